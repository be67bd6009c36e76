Every field of each record as JSON lines, and the raw frames in hex.

  $ almplan build $SRC/examples/sample.plan.txt Almanack
  $ almq --json info
  {"plan":"Almanack","return_code":0,"error_text":"","handle":1,"sh_sched_date":20261122,"sh_sched_date_iso":"2026-11-22","sh_day_start":600,"sh_cpu_id":"MASTER","sh_mast_cpu":"MASTER","sh_job_fence":0,"sh_alm_version":1}
  $ almq --json cpus
  {"alm_rec_type":17225,"sci_status":0,"sci_filler6":0,"sci_rec_version":1,"sci_rec_num":1,"sci_cont_rec":32768,"sci_cpu_id":"MASTER","sci_host_cpu":"","sci_first_sched":40,"sci_console":0,"sci_date_started":1795305600,"sci_date_started_iso":"2026-11-22T06:00:00-05:00","sci_elapse_time":0,"sci_marshal_flags":0,"sci_mpe_fence":0,"sci_mpe_limit":0,"sci_access_method":"","sci_filler2":0,"sci_run_number":412,"sci_cons_level":0,"sci_filler3":0,"sci_node_name":"master.example.net","sci_filler4":[0,0,0,0,0,0,0,0],"sci_time_started":600,"sci_cpu_limit":20,"sci_job_fence":0,"sci_requested":0,"sci_flags":0,"sci_prev_cpu_ptr":32768,"sci_next_cpu_ptr":2,"sci_prev_domain_ptr":32768,"sci_next_domain_ptr":2,"sci_dblnk_recnum":0,"sci_node_addr":0,"sci_cpu_type":"UNIX","sci_link_type":0,"sci_server":0,"sci_node_type":0,"sci_kestrel_version":"","sci_filler7":[0,0,0,0],"sci_user_info":"","sci_domain_name":"MAINDM","sci_domain_parent":"","sci_timezone_id":"","sci_filler5":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"alm_rec_type":17225,"sci_status":0,"sci_filler6":0,"sci_rec_version":1,"sci_rec_num":2,"sci_cont_rec":32768,"sci_cpu_id":"AGENT1","sci_host_cpu":"MASTER","sci_first_sched":13,"sci_console":0,"sci_date_started":1795305600,"sci_date_started_iso":"2026-11-22T06:01:00-05:00","sci_elapse_time":0,"sci_marshal_flags":0,"sci_mpe_fence":0,"sci_mpe_limit":0,"sci_access_method":"","sci_filler2":0,"sci_run_number":0,"sci_cons_level":0,"sci_filler3":0,"sci_node_name":"agent1.example.net","sci_filler4":[0,0,0,0,0,0,0,0],"sci_time_started":601,"sci_cpu_limit":10,"sci_job_fence":0,"sci_requested":0,"sci_flags":0,"sci_prev_cpu_ptr":1,"sci_next_cpu_ptr":3,"sci_prev_domain_ptr":1,"sci_next_domain_ptr":3,"sci_dblnk_recnum":0,"sci_node_addr":0,"sci_cpu_type":"UNIX","sci_link_type":0,"sci_server":0,"sci_node_type":0,"sci_kestrel_version":"","sci_filler7":[0,0,0,0],"sci_user_info":"","sci_domain_name":"MAINDM","sci_domain_parent":"MAINDM","sci_timezone_id":"","sci_filler5":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"alm_rec_type":17225,"sci_status":0,"sci_filler6":0,"sci_rec_version":1,"sci_rec_num":3,"sci_cont_rec":32768,"sci_cpu_id":"AGENT2","sci_host_cpu":"MASTER","sci_first_sched":28,"sci_console":0,"sci_date_started":1795305600,"sci_date_started_iso":"2026-11-22T06:02:00-05:00","sci_elapse_time":0,"sci_marshal_flags":0,"sci_mpe_fence":0,"sci_mpe_limit":0,"sci_access_method":"","sci_filler2":0,"sci_run_number":0,"sci_cons_level":0,"sci_filler3":0,"sci_node_name":"agent2.example.net","sci_filler4":[0,0,0,0,0,0,0,0],"sci_time_started":602,"sci_cpu_limit":10,"sci_job_fence":0,"sci_requested":0,"sci_flags":0,"sci_prev_cpu_ptr":2,"sci_next_cpu_ptr":32768,"sci_prev_domain_ptr":2,"sci_next_domain_ptr":32768,"sci_dblnk_recnum":0,"sci_node_addr":0,"sci_cpu_type":"UNIX","sci_link_type":0,"sci_server":0,"sci_node_type":0,"sci_kestrel_version":"","sci_filler7":[0,0,0,0],"sci_user_info":"","sci_domain_name":"EDGEDM","sci_domain_parent":"MAINDM","sci_timezone_id":"","sci_filler5":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  $ almq --json scheds AGENT1
  {"alm_rec_type":21330,"ss_status":3,"ss_filler1":0,"ss_rec_version":1,"ss_rec_num":13,"ss_cont_rec":32768,"ss_cpu_id":"AGENT1","ss_sched_name":"LOADDATA","ss_num_recs":6,"ss_num_jobs":5,"ss_num_succ":1,"ss_orig_sched":"LOADDATA","ss_sched_pri":{"priority":10,"orig_pri":10},"ss_spare_word12":0,"ss_calc_num":0,"ss_num_notrun":3,"ss_num_exec":0,"ss_num_abend":1,"ss_num_failed":0,"ss_until_time":0,"ss_filler6":0,"ss_cpu_time":0,"ss_until_date":0,"ss_until_date_iso":null,"ss_first_job":14,"ss_last_job":18,"ss_prev_sch_ptr":32768,"ss_next_sch_ptr":19,"ss_job_number":0,"ss_dependencies":[40,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"ss_limit":0,"ss_cpuclass_id":"","ss_spare_word15":0,"ss_num_skel":0,"ss_filler2":[0,0,0,0,0,0,0],"ss_flags":0,"ss_filler3":0,"ss_re_flags":0,"ss_filler4":0,"ss_restart_ptr":0,"ss_restart_from":0,"ss_prod_date":0,"ss_sched_date":1795305600,"ss_sched_date_iso":"2026-11-22T08:00:00-05:00","ss_date_started":1795305600,"ss_date_started_iso":"2026-11-22T08:00:00-05:00","ss_elapse_time":0,"ss_est_elapse":0,"ss_num_depends":1,"ss_start_time":800,"ss_time_started":800,"ss_depend_flags":[3,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"ss_filler5":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"alm_rec_type":21330,"ss_status":1,"ss_filler1":0,"ss_rec_version":1,"ss_rec_num":19,"ss_cont_rec":32768,"ss_cpu_id":"AGENT1","ss_sched_name":"BILLING","ss_num_recs":3,"ss_num_jobs":2,"ss_num_succ":0,"ss_orig_sched":"BILLING","ss_sched_pri":{"priority":10,"orig_pri":10},"ss_spare_word12":0,"ss_calc_num":0,"ss_num_notrun":2,"ss_num_exec":0,"ss_num_abend":0,"ss_num_failed":0,"ss_until_time":2300,"ss_filler6":0,"ss_cpu_time":0,"ss_until_date":1795305600,"ss_until_date_iso":"2026-11-22T23:00:00-05:00","ss_first_job":20,"ss_last_job":21,"ss_prev_sch_ptr":13,"ss_next_sch_ptr":22,"ss_job_number":0,"ss_dependencies":[13,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"ss_limit":0,"ss_cpuclass_id":"","ss_spare_word15":0,"ss_num_skel":0,"ss_filler2":[0,0,0,0,0,0,0],"ss_flags":0,"ss_filler3":0,"ss_re_flags":0,"ss_filler4":0,"ss_restart_ptr":0,"ss_restart_from":0,"ss_prod_date":0,"ss_sched_date":1795305600,"ss_sched_date_iso":"2026-11-22T10:00:00-05:00","ss_date_started":0,"ss_date_started_iso":null,"ss_elapse_time":0,"ss_est_elapse":0,"ss_num_depends":1,"ss_start_time":1000,"ss_time_started":0,"ss_depend_flags":[3,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"ss_filler5":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"alm_rec_type":21330,"ss_status":1,"ss_filler1":0,"ss_rec_version":1,"ss_rec_num":22,"ss_cont_rec":32768,"ss_cpu_id":"AGENT1","ss_sched_name":"PAYROLL","ss_num_recs":3,"ss_num_jobs":2,"ss_num_succ":0,"ss_orig_sched":"PAYROLL","ss_sched_pri":{"priority":10,"orig_pri":10},"ss_spare_word12":0,"ss_calc_num":0,"ss_num_notrun":2,"ss_num_exec":0,"ss_num_abend":0,"ss_num_failed":0,"ss_until_time":0,"ss_filler6":0,"ss_cpu_time":0,"ss_until_date":0,"ss_until_date_iso":null,"ss_first_job":23,"ss_last_job":24,"ss_prev_sch_ptr":19,"ss_next_sch_ptr":25,"ss_job_number":0,"ss_dependencies":[5,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"ss_limit":0,"ss_cpuclass_id":"","ss_spare_word15":0,"ss_num_skel":0,"ss_filler2":[0,0,0,0,0,0,0],"ss_flags":0,"ss_filler3":0,"ss_re_flags":0,"ss_filler4":0,"ss_restart_ptr":0,"ss_restart_from":0,"ss_prod_date":0,"ss_sched_date":1795305600,"ss_sched_date_iso":"2026-11-22T12:00:00-05:00","ss_date_started":0,"ss_date_started_iso":null,"ss_elapse_time":0,"ss_est_elapse":0,"ss_num_depends":1,"ss_start_time":1200,"ss_time_started":0,"ss_depend_flags":[2,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"ss_filler5":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"alm_rec_type":21330,"ss_status":1,"ss_filler1":0,"ss_rec_version":1,"ss_rec_num":25,"ss_cont_rec":32768,"ss_cpu_id":"AGENT1","ss_sched_name":"BACKUP","ss_num_recs":3,"ss_num_jobs":2,"ss_num_succ":0,"ss_orig_sched":"BACKUP","ss_sched_pri":{"priority":10,"orig_pri":10},"ss_spare_word12":0,"ss_calc_num":0,"ss_num_notrun":2,"ss_num_exec":0,"ss_num_abend":0,"ss_num_failed":0,"ss_until_time":0,"ss_filler6":0,"ss_cpu_time":0,"ss_until_date":0,"ss_until_date_iso":null,"ss_first_job":26,"ss_last_job":27,"ss_prev_sch_ptr":22,"ss_next_sch_ptr":28,"ss_job_number":0,"ss_dependencies":[43,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"ss_limit":0,"ss_cpuclass_id":"","ss_spare_word15":0,"ss_num_skel":0,"ss_filler2":[0,0,0,0,0,0,0],"ss_flags":0,"ss_filler3":0,"ss_re_flags":0,"ss_filler4":0,"ss_restart_ptr":0,"ss_restart_from":0,"ss_prod_date":0,"ss_sched_date":1795305600,"ss_sched_date_iso":"2026-11-22T21:30:00-05:00","ss_date_started":0,"ss_date_started_iso":null,"ss_elapse_time":0,"ss_est_elapse":0,"ss_num_depends":1,"ss_start_time":2130,"ss_time_started":0,"ss_depend_flags":[3,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"ss_filler5":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  $ almq --json jobs AGENT1 LOADDATA
  {"alm_rec_type":19026,"sj_status":4,"sj_filler2":0,"sj_rec_version":1,"sj_rec_num":14,"sj_cont_rec":32768,"sj_cpu_id":"AGENT1","sj_job_name":"GETORD","sj_job_pri":{"priority":10,"orig_pri":10},"sj_schedule":"LOADDATA","sj_job_user":"loader","sj_job_acct":"","sj_job_group":"","sj_every_hhmm":0,"sj_until_time":0,"sj_flags2":0,"sj_flags":0,"sj_re_flags":0,"sj_start_time":800,"sj_time_started":801,"sj_num_depends":1,"sj_filler3":0,"sj_fname_jname":{"jcl_file":"/opt/load/getord.sh"},"sj_sched_ptr":13,"sj_prev_job_ptr":32768,"sj_next_job_ptr":15,"sj_re_job_ptr":32768,"sj_re_prmpt_ptr":32768,"sj_restart_ptr":32768,"sj_rec_ptrs":32768,"sj_until_date":0,"sj_until_date_iso":null,"sj_sched_date":1795305600,"sj_sched_date_iso":"2026-11-22T08:00:00-05:00","sj_date_started":1795305600,"sj_date_started_iso":"2026-11-22T08:01:00-05:00","sj_elapse_time":0,"sj_est_elapse":0,"sj_cpu_time":0,"sj_job_number":0,"subdep":{"sj_depend_flags":[8,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sj_dependencies":[7,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]},"sj_filler1":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"alm_rec_type":19026,"sj_status":5,"sj_filler2":0,"sj_rec_version":1,"sj_rec_num":15,"sj_cont_rec":32768,"sj_cpu_id":"AGENT1","sj_job_name":"GETPAY","sj_job_pri":{"priority":10,"orig_pri":10},"sj_schedule":"LOADDATA","sj_job_user":"loader","sj_job_acct":"","sj_job_group":"","sj_every_hhmm":0,"sj_until_time":0,"sj_flags2":0,"sj_flags":0,"sj_re_flags":0,"sj_start_time":0,"sj_time_started":802,"sj_num_depends":1,"sj_filler3":0,"sj_fname_jname":{"jcl_file":"/opt/load/getpay.sh"},"sj_sched_ptr":13,"sj_prev_job_ptr":14,"sj_next_job_ptr":16,"sj_re_job_ptr":32768,"sj_re_prmpt_ptr":32768,"sj_restart_ptr":16,"sj_rec_ptrs":32768,"sj_until_date":0,"sj_until_date_iso":null,"sj_sched_date":0,"sj_sched_date_iso":null,"sj_date_started":1795305600,"sj_date_started_iso":"2026-11-22T08:02:00-05:00","sj_elapse_time":0,"sj_est_elapse":0,"sj_cpu_time":0,"sj_job_number":0,"subdep":{"sj_depend_flags":[8,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sj_dependencies":[8,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]},"sj_filler1":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"alm_rec_type":19026,"sj_status":2,"sj_filler2":0,"sj_rec_version":1,"sj_rec_num":16,"sj_cont_rec":32768,"sj_cpu_id":"AGENT1","sj_job_name":"RETRYPAY","sj_job_pri":{"priority":10,"orig_pri":10},"sj_schedule":"LOADDATA","sj_job_user":"loader","sj_job_acct":"","sj_job_group":"","sj_every_hhmm":0,"sj_until_time":0,"sj_flags2":0,"sj_flags":0,"sj_re_flags":0,"sj_start_time":0,"sj_time_started":0,"sj_num_depends":0,"sj_filler3":0,"sj_fname_jname":{"jcl_file":"/opt/load/retrypay.sh"},"sj_sched_ptr":13,"sj_prev_job_ptr":15,"sj_next_job_ptr":17,"sj_re_job_ptr":32768,"sj_re_prmpt_ptr":32768,"sj_restart_ptr":17,"sj_rec_ptrs":32768,"sj_until_date":0,"sj_until_date_iso":null,"sj_sched_date":0,"sj_sched_date_iso":null,"sj_date_started":0,"sj_date_started_iso":null,"sj_elapse_time":0,"sj_est_elapse":0,"sj_cpu_time":0,"sj_job_number":0,"subdep":{"sj_depend_flags":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sj_dependencies":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]},"sj_filler1":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"alm_rec_type":19026,"sj_status":1,"sj_filler2":0,"sj_rec_version":1,"sj_rec_num":17,"sj_cont_rec":32768,"sj_cpu_id":"AGENT1","sj_job_name":"NOTIFY","sj_job_pri":{"priority":10,"orig_pri":10},"sj_schedule":"LOADDATA","sj_job_user":"loader","sj_job_acct":"","sj_job_group":"","sj_every_hhmm":0,"sj_until_time":0,"sj_flags2":0,"sj_flags":0,"sj_re_flags":0,"sj_start_time":0,"sj_time_started":0,"sj_num_depends":0,"sj_filler3":0,"sj_fname_jname":{"jcl_file":"/opt/load/notify.sh"},"sj_sched_ptr":13,"sj_prev_job_ptr":16,"sj_next_job_ptr":18,"sj_re_job_ptr":32768,"sj_re_prmpt_ptr":32768,"sj_restart_ptr":32768,"sj_rec_ptrs":32768,"sj_until_date":0,"sj_until_date_iso":null,"sj_sched_date":0,"sj_sched_date_iso":null,"sj_date_started":0,"sj_date_started_iso":null,"sj_elapse_time":0,"sj_est_elapse":0,"sj_cpu_time":0,"sj_job_number":0,"subdep":{"sj_depend_flags":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sj_dependencies":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]},"sj_filler1":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"alm_rec_type":19026,"sj_status":1,"sj_filler2":0,"sj_rec_version":1,"sj_rec_num":18,"sj_cont_rec":32768,"sj_cpu_id":"AGENT1","sj_job_name":"MERGE","sj_job_pri":{"priority":10,"orig_pri":10},"sj_schedule":"LOADDATA","sj_job_user":"loader","sj_job_acct":"","sj_job_group":"","sj_every_hhmm":0,"sj_until_time":0,"sj_flags2":0,"sj_flags":0,"sj_re_flags":0,"sj_start_time":0,"sj_time_started":0,"sj_num_depends":3,"sj_filler3":0,"sj_fname_jname":{"jcl_file":"/opt/load/merge.sh"},"sj_sched_ptr":13,"sj_prev_job_ptr":17,"sj_next_job_ptr":32768,"sj_re_job_ptr":32768,"sj_re_prmpt_ptr":32768,"sj_restart_ptr":32768,"sj_rec_ptrs":32768,"sj_until_date":0,"sj_until_date_iso":null,"sj_sched_date":0,"sj_sched_date_iso":null,"sj_date_started":0,"sj_date_started_iso":null,"sj_elapse_time":0,"sj_est_elapse":0,"sj_cpu_time":0,"sj_job_number":0,"subdep":{"sj_depend_flags":[4,4,32,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sj_dependencies":[14,15,10,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]},"sj_filler1":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  $ almq --json deps AGENT1 LOADDATA
  {"role":"schedule","depth":0,"owner":-1,"alm_rec_type":21330,"ss_status":3,"ss_filler1":0,"ss_rec_version":1,"ss_rec_num":13,"ss_cont_rec":32768,"ss_cpu_id":"AGENT1","ss_sched_name":"LOADDATA","ss_num_recs":6,"ss_num_jobs":5,"ss_num_succ":1,"ss_orig_sched":"LOADDATA","ss_sched_pri":{"priority":10,"orig_pri":10},"ss_spare_word12":0,"ss_calc_num":0,"ss_num_notrun":3,"ss_num_exec":0,"ss_num_abend":1,"ss_num_failed":0,"ss_until_time":0,"ss_filler6":0,"ss_cpu_time":0,"ss_until_date":0,"ss_until_date_iso":null,"ss_first_job":14,"ss_last_job":18,"ss_prev_sch_ptr":32768,"ss_next_sch_ptr":19,"ss_job_number":0,"ss_dependencies":[40,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"ss_limit":0,"ss_cpuclass_id":"","ss_spare_word15":0,"ss_num_skel":0,"ss_filler2":[0,0,0,0,0,0,0],"ss_flags":0,"ss_filler3":0,"ss_re_flags":0,"ss_filler4":0,"ss_restart_ptr":0,"ss_restart_from":0,"ss_prod_date":0,"ss_sched_date":1795305600,"ss_sched_date_iso":"2026-11-22T08:00:00-05:00","ss_date_started":1795305600,"ss_date_started_iso":"2026-11-22T08:00:00-05:00","ss_elapse_time":0,"ss_est_elapse":0,"ss_num_depends":1,"ss_start_time":800,"ss_time_started":800,"ss_depend_flags":[3,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"ss_filler5":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"role":"dependency","depth":1,"owner":0,"dep_kind":"SD","dep_flag":3,"alm_rec_type":21316,"ss_status":4,"ss_filler1":0,"ss_rec_version":1,"ss_rec_num":40,"ss_cont_rec":32768,"ss_cpu_id":"MASTER","ss_sched_name":"STARTDAY","ss_num_recs":3,"ss_num_jobs":2,"ss_num_succ":2,"ss_orig_sched":"STARTDAY","ss_sched_pri":{"priority":10,"orig_pri":10},"ss_spare_word12":0,"ss_calc_num":0,"ss_num_notrun":0,"ss_num_exec":0,"ss_num_abend":0,"ss_num_failed":0,"ss_until_time":0,"ss_filler6":0,"ss_cpu_time":0,"ss_until_date":0,"ss_until_date_iso":null,"ss_first_job":41,"ss_last_job":42,"ss_prev_sch_ptr":38,"ss_next_sch_ptr":43,"ss_job_number":0,"ss_dependencies":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"ss_limit":0,"ss_cpuclass_id":"","ss_spare_word15":0,"ss_num_skel":0,"ss_filler2":[0,0,0,0,0,0,0],"ss_flags":0,"ss_filler3":0,"ss_re_flags":0,"ss_filler4":0,"ss_restart_ptr":0,"ss_restart_from":0,"ss_prod_date":0,"ss_sched_date":1795305600,"ss_sched_date_iso":"2026-11-22T06:00:00-05:00","ss_date_started":1795305600,"ss_date_started_iso":"2026-11-22T06:00:00-05:00","ss_elapse_time":0,"ss_est_elapse":0,"ss_num_depends":0,"ss_start_time":600,"ss_time_started":600,"ss_depend_flags":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"ss_filler5":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"role":"job","depth":1,"owner":0,"alm_rec_type":19026,"sj_status":4,"sj_filler2":0,"sj_rec_version":1,"sj_rec_num":14,"sj_cont_rec":32768,"sj_cpu_id":"AGENT1","sj_job_name":"GETORD","sj_job_pri":{"priority":10,"orig_pri":10},"sj_schedule":"LOADDATA","sj_job_user":"loader","sj_job_acct":"","sj_job_group":"","sj_every_hhmm":0,"sj_until_time":0,"sj_flags2":0,"sj_flags":0,"sj_re_flags":0,"sj_start_time":800,"sj_time_started":801,"sj_num_depends":1,"sj_filler3":0,"sj_fname_jname":{"jcl_file":"/opt/load/getord.sh"},"sj_sched_ptr":13,"sj_prev_job_ptr":32768,"sj_next_job_ptr":15,"sj_re_job_ptr":32768,"sj_re_prmpt_ptr":32768,"sj_restart_ptr":32768,"sj_rec_ptrs":32768,"sj_until_date":0,"sj_until_date_iso":null,"sj_sched_date":1795305600,"sj_sched_date_iso":"2026-11-22T08:00:00-05:00","sj_date_started":1795305600,"sj_date_started_iso":"2026-11-22T08:01:00-05:00","sj_elapse_time":0,"sj_est_elapse":0,"sj_cpu_time":0,"sj_job_number":0,"subdep":{"sj_depend_flags":[8,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sj_dependencies":[7,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]},"sj_filler1":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"role":"dependency","depth":2,"owner":2,"dep_kind":"file","dep_flag":8,"alm_rec_type":18002,"sf_status":0,"sf_filler6":0,"sf_rec_version":1,"sf_rec_num":7,"sf_cont_rec":32768,"sf_cpu_id":"AGENT1","sf_prev_file":32768,"sf_next_file":8,"sf_filler1":"","sf_file_name":"/data/in/orders.csv","sf_filler2":"","sf_filler3":[0,0,0,0,0,0],"sf_timer":{"sf_lasttime":0,"timer1":0,"timer2":0},"sf_filler4":[0,0,0,0,0,0,0,0],"sf_feq_len":0,"sf_feq":"","sf_filler5":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"role":"job","depth":1,"owner":0,"alm_rec_type":19026,"sj_status":5,"sj_filler2":0,"sj_rec_version":1,"sj_rec_num":15,"sj_cont_rec":32768,"sj_cpu_id":"AGENT1","sj_job_name":"GETPAY","sj_job_pri":{"priority":10,"orig_pri":10},"sj_schedule":"LOADDATA","sj_job_user":"loader","sj_job_acct":"","sj_job_group":"","sj_every_hhmm":0,"sj_until_time":0,"sj_flags2":0,"sj_flags":0,"sj_re_flags":0,"sj_start_time":0,"sj_time_started":802,"sj_num_depends":1,"sj_filler3":0,"sj_fname_jname":{"jcl_file":"/opt/load/getpay.sh"},"sj_sched_ptr":13,"sj_prev_job_ptr":14,"sj_next_job_ptr":16,"sj_re_job_ptr":32768,"sj_re_prmpt_ptr":32768,"sj_restart_ptr":16,"sj_rec_ptrs":32768,"sj_until_date":0,"sj_until_date_iso":null,"sj_sched_date":0,"sj_sched_date_iso":null,"sj_date_started":1795305600,"sj_date_started_iso":"2026-11-22T08:02:00-05:00","sj_elapse_time":0,"sj_est_elapse":0,"sj_cpu_time":0,"sj_job_number":0,"subdep":{"sj_depend_flags":[8,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sj_dependencies":[8,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]},"sj_filler1":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"role":"dependency","depth":2,"owner":4,"dep_kind":"file","dep_flag":8,"alm_rec_type":18002,"sf_status":0,"sf_filler6":0,"sf_rec_version":1,"sf_rec_num":8,"sf_cont_rec":32768,"sf_cpu_id":"AGENT1","sf_prev_file":7,"sf_next_file":9,"sf_filler1":"","sf_file_name":"/data/in/payments.csv","sf_filler2":"","sf_filler3":[0,0,0,0,0,0],"sf_timer":{"sf_lasttime":0,"timer1":0,"timer2":0},"sf_filler4":[0,0,0,0,0,0,0,0],"sf_feq_len":0,"sf_feq":"","sf_filler5":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"role":"restart","depth":2,"owner":4,"alm_rec_type":19026,"sj_status":2,"sj_filler2":0,"sj_rec_version":1,"sj_rec_num":16,"sj_cont_rec":32768,"sj_cpu_id":"AGENT1","sj_job_name":"RETRYPAY","sj_job_pri":{"priority":10,"orig_pri":10},"sj_schedule":"LOADDATA","sj_job_user":"loader","sj_job_acct":"","sj_job_group":"","sj_every_hhmm":0,"sj_until_time":0,"sj_flags2":0,"sj_flags":0,"sj_re_flags":0,"sj_start_time":0,"sj_time_started":0,"sj_num_depends":0,"sj_filler3":0,"sj_fname_jname":{"jcl_file":"/opt/load/retrypay.sh"},"sj_sched_ptr":13,"sj_prev_job_ptr":15,"sj_next_job_ptr":17,"sj_re_job_ptr":32768,"sj_re_prmpt_ptr":32768,"sj_restart_ptr":17,"sj_rec_ptrs":32768,"sj_until_date":0,"sj_until_date_iso":null,"sj_sched_date":0,"sj_sched_date_iso":null,"sj_date_started":0,"sj_date_started_iso":null,"sj_elapse_time":0,"sj_est_elapse":0,"sj_cpu_time":0,"sj_job_number":0,"subdep":{"sj_depend_flags":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sj_dependencies":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]},"sj_filler1":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"role":"restart","depth":2,"owner":4,"alm_rec_type":19026,"sj_status":1,"sj_filler2":0,"sj_rec_version":1,"sj_rec_num":17,"sj_cont_rec":32768,"sj_cpu_id":"AGENT1","sj_job_name":"NOTIFY","sj_job_pri":{"priority":10,"orig_pri":10},"sj_schedule":"LOADDATA","sj_job_user":"loader","sj_job_acct":"","sj_job_group":"","sj_every_hhmm":0,"sj_until_time":0,"sj_flags2":0,"sj_flags":0,"sj_re_flags":0,"sj_start_time":0,"sj_time_started":0,"sj_num_depends":0,"sj_filler3":0,"sj_fname_jname":{"jcl_file":"/opt/load/notify.sh"},"sj_sched_ptr":13,"sj_prev_job_ptr":16,"sj_next_job_ptr":18,"sj_re_job_ptr":32768,"sj_re_prmpt_ptr":32768,"sj_restart_ptr":32768,"sj_rec_ptrs":32768,"sj_until_date":0,"sj_until_date_iso":null,"sj_sched_date":0,"sj_sched_date_iso":null,"sj_date_started":0,"sj_date_started_iso":null,"sj_elapse_time":0,"sj_est_elapse":0,"sj_cpu_time":0,"sj_job_number":0,"subdep":{"sj_depend_flags":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sj_dependencies":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]},"sj_filler1":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"role":"job","depth":1,"owner":0,"alm_rec_type":19026,"sj_status":2,"sj_filler2":0,"sj_rec_version":1,"sj_rec_num":16,"sj_cont_rec":32768,"sj_cpu_id":"AGENT1","sj_job_name":"RETRYPAY","sj_job_pri":{"priority":10,"orig_pri":10},"sj_schedule":"LOADDATA","sj_job_user":"loader","sj_job_acct":"","sj_job_group":"","sj_every_hhmm":0,"sj_until_time":0,"sj_flags2":0,"sj_flags":0,"sj_re_flags":0,"sj_start_time":0,"sj_time_started":0,"sj_num_depends":0,"sj_filler3":0,"sj_fname_jname":{"jcl_file":"/opt/load/retrypay.sh"},"sj_sched_ptr":13,"sj_prev_job_ptr":15,"sj_next_job_ptr":17,"sj_re_job_ptr":32768,"sj_re_prmpt_ptr":32768,"sj_restart_ptr":17,"sj_rec_ptrs":32768,"sj_until_date":0,"sj_until_date_iso":null,"sj_sched_date":0,"sj_sched_date_iso":null,"sj_date_started":0,"sj_date_started_iso":null,"sj_elapse_time":0,"sj_est_elapse":0,"sj_cpu_time":0,"sj_job_number":0,"subdep":{"sj_depend_flags":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sj_dependencies":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]},"sj_filler1":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"role":"restart","depth":2,"owner":8,"alm_rec_type":19026,"sj_status":1,"sj_filler2":0,"sj_rec_version":1,"sj_rec_num":17,"sj_cont_rec":32768,"sj_cpu_id":"AGENT1","sj_job_name":"NOTIFY","sj_job_pri":{"priority":10,"orig_pri":10},"sj_schedule":"LOADDATA","sj_job_user":"loader","sj_job_acct":"","sj_job_group":"","sj_every_hhmm":0,"sj_until_time":0,"sj_flags2":0,"sj_flags":0,"sj_re_flags":0,"sj_start_time":0,"sj_time_started":0,"sj_num_depends":0,"sj_filler3":0,"sj_fname_jname":{"jcl_file":"/opt/load/notify.sh"},"sj_sched_ptr":13,"sj_prev_job_ptr":16,"sj_next_job_ptr":18,"sj_re_job_ptr":32768,"sj_re_prmpt_ptr":32768,"sj_restart_ptr":32768,"sj_rec_ptrs":32768,"sj_until_date":0,"sj_until_date_iso":null,"sj_sched_date":0,"sj_sched_date_iso":null,"sj_date_started":0,"sj_date_started_iso":null,"sj_elapse_time":0,"sj_est_elapse":0,"sj_cpu_time":0,"sj_job_number":0,"subdep":{"sj_depend_flags":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sj_dependencies":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]},"sj_filler1":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"role":"job","depth":1,"owner":0,"alm_rec_type":19026,"sj_status":1,"sj_filler2":0,"sj_rec_version":1,"sj_rec_num":17,"sj_cont_rec":32768,"sj_cpu_id":"AGENT1","sj_job_name":"NOTIFY","sj_job_pri":{"priority":10,"orig_pri":10},"sj_schedule":"LOADDATA","sj_job_user":"loader","sj_job_acct":"","sj_job_group":"","sj_every_hhmm":0,"sj_until_time":0,"sj_flags2":0,"sj_flags":0,"sj_re_flags":0,"sj_start_time":0,"sj_time_started":0,"sj_num_depends":0,"sj_filler3":0,"sj_fname_jname":{"jcl_file":"/opt/load/notify.sh"},"sj_sched_ptr":13,"sj_prev_job_ptr":16,"sj_next_job_ptr":18,"sj_re_job_ptr":32768,"sj_re_prmpt_ptr":32768,"sj_restart_ptr":32768,"sj_rec_ptrs":32768,"sj_until_date":0,"sj_until_date_iso":null,"sj_sched_date":0,"sj_sched_date_iso":null,"sj_date_started":0,"sj_date_started_iso":null,"sj_elapse_time":0,"sj_est_elapse":0,"sj_cpu_time":0,"sj_job_number":0,"subdep":{"sj_depend_flags":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sj_dependencies":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]},"sj_filler1":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"role":"job","depth":1,"owner":0,"alm_rec_type":19026,"sj_status":1,"sj_filler2":0,"sj_rec_version":1,"sj_rec_num":18,"sj_cont_rec":32768,"sj_cpu_id":"AGENT1","sj_job_name":"MERGE","sj_job_pri":{"priority":10,"orig_pri":10},"sj_schedule":"LOADDATA","sj_job_user":"loader","sj_job_acct":"","sj_job_group":"","sj_every_hhmm":0,"sj_until_time":0,"sj_flags2":0,"sj_flags":0,"sj_re_flags":0,"sj_start_time":0,"sj_time_started":0,"sj_num_depends":3,"sj_filler3":0,"sj_fname_jname":{"jcl_file":"/opt/load/merge.sh"},"sj_sched_ptr":13,"sj_prev_job_ptr":17,"sj_next_job_ptr":32768,"sj_re_job_ptr":32768,"sj_re_prmpt_ptr":32768,"sj_restart_ptr":32768,"sj_rec_ptrs":32768,"sj_until_date":0,"sj_until_date_iso":null,"sj_sched_date":0,"sj_sched_date_iso":null,"sj_date_started":0,"sj_date_started_iso":null,"sj_elapse_time":0,"sj_est_elapse":0,"sj_cpu_time":0,"sj_job_number":0,"subdep":{"sj_depend_flags":[4,4,32,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sj_dependencies":[14,15,10,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]},"sj_filler1":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"role":"dependency","depth":2,"owner":11,"dep_kind":"JD","dep_flag":4,"alm_rec_type":19012,"sj_status":4,"sj_filler2":0,"sj_rec_version":1,"sj_rec_num":14,"sj_cont_rec":32768,"sj_cpu_id":"AGENT1","sj_job_name":"GETORD","sj_job_pri":{"priority":10,"orig_pri":10},"sj_schedule":"LOADDATA","sj_job_user":"loader","sj_job_acct":"","sj_job_group":"","sj_every_hhmm":0,"sj_until_time":0,"sj_flags2":0,"sj_flags":0,"sj_re_flags":0,"sj_start_time":800,"sj_time_started":801,"sj_num_depends":1,"sj_filler3":0,"sj_fname_jname":{"jcl_file":"/opt/load/getord.sh"},"sj_sched_ptr":13,"sj_prev_job_ptr":32768,"sj_next_job_ptr":15,"sj_re_job_ptr":32768,"sj_re_prmpt_ptr":32768,"sj_restart_ptr":32768,"sj_rec_ptrs":32768,"sj_until_date":0,"sj_until_date_iso":null,"sj_sched_date":1795305600,"sj_sched_date_iso":"2026-11-22T08:00:00-05:00","sj_date_started":1795305600,"sj_date_started_iso":"2026-11-22T08:01:00-05:00","sj_elapse_time":0,"sj_est_elapse":0,"sj_cpu_time":0,"sj_job_number":0,"subdep":{"sj_depend_flags":[8,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sj_dependencies":[7,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]},"sj_filler1":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"role":"dependency","depth":2,"owner":11,"dep_kind":"JD","dep_flag":4,"alm_rec_type":19012,"sj_status":5,"sj_filler2":0,"sj_rec_version":1,"sj_rec_num":15,"sj_cont_rec":32768,"sj_cpu_id":"AGENT1","sj_job_name":"GETPAY","sj_job_pri":{"priority":10,"orig_pri":10},"sj_schedule":"LOADDATA","sj_job_user":"loader","sj_job_acct":"","sj_job_group":"","sj_every_hhmm":0,"sj_until_time":0,"sj_flags2":0,"sj_flags":0,"sj_re_flags":0,"sj_start_time":0,"sj_time_started":802,"sj_num_depends":1,"sj_filler3":0,"sj_fname_jname":{"jcl_file":"/opt/load/getpay.sh"},"sj_sched_ptr":13,"sj_prev_job_ptr":14,"sj_next_job_ptr":16,"sj_re_job_ptr":32768,"sj_re_prmpt_ptr":32768,"sj_restart_ptr":16,"sj_rec_ptrs":32768,"sj_until_date":0,"sj_until_date_iso":null,"sj_sched_date":0,"sj_sched_date_iso":null,"sj_date_started":1795305600,"sj_date_started_iso":"2026-11-22T08:02:00-05:00","sj_elapse_time":0,"sj_est_elapse":0,"sj_cpu_time":0,"sj_job_number":0,"subdep":{"sj_depend_flags":[8,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sj_dependencies":[8,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]},"sj_filler1":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  {"role":"dependency","depth":2,"owner":11,"dep_kind":"resource","dep_flag":32,"alm_rec_type":21074,"sr_status":0,"sr_filler4":0,"sr_rec_version":1,"sr_rec_num":10,"sr_cont_rec":32768,"sr_cpu_id":"MASTER","sr_resource_name":"DBCONN","sr_prev_resource":32768,"sr_next_resource":11,"sr_num_avail":8,"sr_num_used":2,"sr_num_unused":0,"sr_num_holders":0,"sr_filler1":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sr_holders":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sr_filler2":[0,0],"sr_hold_counts":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sr_filler3":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  $ almq --json --fields sj_job_name,sj_start_time jobs @ PAYROLL
  {"sj_job_name":"CALCPAY","sj_start_time":0}
  {"sj_job_name":"PRINTPAY","sj_start_time":0}
  $ almq --raw cpus AGENT2
  # reply to open (request type 2, id 1): 60 bytes
  00000000  00 00 00 38 00 00 00 00  00 00 00 01 00 00 00 09  |...8............|
  00000010  00 00 00 00 00 00 00 00  30 00 00 31 00 32 30 32  |........0..1.202|
  00000020  36 31 31 32 32 00 36 30  30 00 4d 41 53 54 45 52  |61122.600.MASTER|
  00000030  00 4d 41 53 54 45 52 00  30 00 31 00              |.MASTER.0.1.|
  # reply to workstations (request type 8, id 2): 536 bytes
  00000000  00 00 02 14 00 00 00 00  00 00 00 02 00 00 00 01  |................|
  00000010  00 00 02 00 00 00 00 01  43 49 00 00 00 00 01 00  |........CI......|
  00000020  00 03 00 00 00 80 00 00  41 47 45 4e 54 32 20 20  |........AGENT2  |
  00000030  20 20 20 20 20 20 20 20  4d 41 53 54 45 52 20 20  |        MASTER  |
  00000040  20 20 20 20 20 20 20 20  00 1c 00 00 00 00 00 00  |        ........|
  00000050  6b 02 30 80 00 00 00 00  00 00 00 00 00 00 20 20  |k.0...........  |
  00000060  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000070  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000080  20 20 20 20 20 20 00 00  00 00 00 00 00 00 61 67  |      ........ag|
  00000090  65 6e 74 32 2e 65 78 61  6d 70 6c 65 2e 6e 65 74  |ent2.example.net|
  000000a0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000000b0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000000c0  20 20 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |  ..............|
  000000d0  00 00 02 5a 00 0a 00 00  00 00 00 00 00 02 00 00  |...Z............|
  000000e0  80 00 00 00 02 00 00 00  00 80 00 00 00 00 00 00  |................|
  000000f0  00 00 00 00 55 4e 49 58  00 00 00 00 00 00 20 20  |....UNIX......  |
  00000100  20 20 20 20 20 20 00 00  00 00 00 00 00 00 20 20  |      ........  |
  00000110  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000120  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000130  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000140  20 20 20 20 20 20 20 20  20 20 20 20 20 20 45 44  |              ED|
  00000150  47 45 44 4d 20 20 20 20  20 20 20 20 20 20 4d 41  |GEDM          MA|
  00000160  49 4e 44 4d 20 20 20 20  20 20 20 20 20 20 20 20  |INDM            |
  00000170  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000180  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000190  20 20 20 20 20 20 00 00  00 00 00 00 00 00 00 00  |      ..........|
  000001a0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001b0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001c0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001d0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001e0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001f0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000200  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000210  00 00 00 00 00 00 00 00                           |........|
  # reply to close (request type 3, id 3): 24 bytes
  00000000  00 00 00 14 00 00 00 00  00 00 00 03 00 00 00 00  |................|
  00000010  00 00 00 00 00 00 00 00                           |........|
  $ almq --raw scheds AGENT1 LOADDATA
  # reply to open (request type 2, id 1): 60 bytes
  00000000  00 00 00 38 00 00 00 00  00 00 00 01 00 00 00 09  |...8............|
  00000010  00 00 00 00 00 00 00 00  30 00 00 31 00 32 30 32  |........0..1.202|
  00000020  36 31 31 32 32 00 36 30  30 00 4d 41 53 54 45 52  |61122.600.MASTER|
  00000030  00 4d 41 53 54 45 52 00  30 00 31 00              |.MASTER.0.1.|
  # reply to schedules (request type 5, id 2): 536 bytes
  00000000  00 00 02 14 00 00 00 00  00 00 00 02 00 00 00 01  |................|
  00000010  00 00 02 00 00 00 00 01  53 52 00 03 00 00 01 00  |........SR......|
  00000020  00 00 00 0d 00 80 00 00  41 47 45 4e 54 31 20 20  |........AGENT1  |
  00000030  20 20 20 20 20 20 20 20  4c 4f 41 44 44 41 54 41  |        LOADDATA|
  00000040  20 20 20 20 20 20 20 20  00 06 00 05 00 01 4c 4f  |        ......LO|
  00000050  41 44 44 41 54 41 20 20  20 20 20 20 20 20 0a 0a  |ADDATA        ..|
  00000060  00 00 00 00 00 03 00 00  00 01 00 00 00 00 00 00  |................|
  00000070  00 00 00 00 00 00 00 00  00 0e 00 00 00 12 00 00  |................|
  00000080  80 00 00 00 00 13 00 00  00 00 00 00 28 00 00 00  |............(...|
  00000090  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000000a0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000000b0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000000c0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000000d0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000000e0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000000f0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000100  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000110  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000120  00 00 00 00 00 00 00 00  00 00 00 00 00 00 20 20  |..............  |
  00000130  20 20 20 20 20 20 20 20  20 20 20 20 20 20 00 00  |              ..|
  00000140  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000150  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000160  6b 02 30 80 6b 02 30 80  00 00 00 00 00 00 00 00  |k.0.k.0.........|
  00000170  00 01 03 20 03 20 03 00  00 00 00 00 00 00 00 00  |... . ..........|
  00000180  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000190  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001a0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001b0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001c0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001d0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001e0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001f0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000200  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000210  00 00 00 00 00 00 00 00                           |........|
  # reply to close (request type 3, id 3): 24 bytes
  00000000  00 00 00 14 00 00 00 00  00 00 00 03 00 00 00 00  |................|
  00000010  00 00 00 00 00 00 00 00                           |........|
  $ almq --raw jobs AGENT1 LOADDATA
  # reply to open (request type 2, id 1): 60 bytes
  00000000  00 00 00 38 00 00 00 00  00 00 00 01 00 00 00 09  |...8............|
  00000010  00 00 00 00 00 00 00 00  30 00 00 31 00 32 30 32  |........0..1.202|
  00000020  36 31 31 32 32 00 36 30  30 00 4d 41 53 54 45 52  |61122.600.MASTER|
  00000030  00 4d 41 53 54 45 52 00  30 00 31 00              |.MASTER.0.1.|
  # reply to jobs (request type 6, id 2): 2584 bytes
  00000000  00 00 0a 14 00 00 00 00  00 00 00 02 00 00 00 05  |................|
  00000010  00 00 02 00 00 00 00 01  4a 52 00 04 00 00 01 00  |........JR......|
  00000020  00 00 00 0e 00 80 00 00  41 47 45 4e 54 31 20 20  |........AGENT1  |
  00000030  20 20 20 20 20 20 20 20  47 45 54 4f 52 44 20 20  |        GETORD  |
  00000040  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000050  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000060  0a 0a 4c 4f 41 44 44 41  54 41 20 20 20 20 20 20  |..LOADDATA      |
  00000070  20 20 6c 6f 61 64 65 72  20 20 20 20 20 20 20 20  |  loader        |
  00000080  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000090  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000000a0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000000b0  20 20 00 00 00 00 00 00  00 00 00 00 03 20 03 21  |  ........... .!|
  000000c0  00 01 00 00 2f 6f 70 74  2f 6c 6f 61 64 2f 67 65  |..../opt/load/ge|
  000000d0  74 6f 72 64 2e 73 68 20  20 20 20 20 20 20 20 20  |tord.sh         |
  000000e0  20 20 20 20 20 20 20 20  20 20 20 20 00 0d 00 00  |            ....|
  000000f0  80 00 00 00 00 0f 00 00  80 00 00 00 80 00 00 00  |................|
  00000100  80 00 00 00 80 00 00 00  00 00 00 00 6b 02 30 80  |............k.0.|
  00000110  6b 02 30 80 00 00 00 00  00 00 00 00 00 00 00 00  |k.0.............|
  00000120  00 00 00 00 08 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000130  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000140  00 00 00 00 00 00 00 00  00 00 00 00 07 00 00 00  |................|
  00000150  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000160  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000170  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000180  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000190  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001a0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001b0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001c0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001d0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001e0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001f0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000200  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000210  00 00 00 00 00 00 00 00  4a 52 00 05 00 00 01 00  |........JR......|
  00000220  00 00 00 0f 00 80 00 00  41 47 45 4e 54 31 20 20  |........AGENT1  |
  00000230  20 20 20 20 20 20 20 20  47 45 54 50 41 59 20 20  |        GETPAY  |
  00000240  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000250  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000260  0a 0a 4c 4f 41 44 44 41  54 41 20 20 20 20 20 20  |..LOADDATA      |
  00000270  20 20 6c 6f 61 64 65 72  20 20 20 20 20 20 20 20  |  loader        |
  00000280  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000290  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000002a0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000002b0  20 20 00 00 00 00 00 00  00 00 00 00 00 00 03 22  |  ............."|
  000002c0  00 01 00 00 2f 6f 70 74  2f 6c 6f 61 64 2f 67 65  |..../opt/load/ge|
  000002d0  74 70 61 79 2e 73 68 20  20 20 20 20 20 20 20 20  |tpay.sh         |
  000002e0  20 20 20 20 20 20 20 20  20 20 20 20 00 0d 00 00  |            ....|
  000002f0  00 0e 00 00 00 10 00 00  80 00 00 00 80 00 00 00  |................|
  00000300  00 10 00 00 80 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000310  6b 02 30 80 00 00 00 00  00 00 00 00 00 00 00 00  |k.0.............|
  00000320  00 00 00 00 08 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000330  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000340  00 00 00 00 00 00 00 00  00 00 00 00 08 00 00 00  |................|
  00000350  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000360  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000370  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000380  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000390  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000003a0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000003b0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000003c0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000003d0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000003e0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000003f0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000400  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000410  00 00 00 00 00 00 00 00  4a 52 00 02 00 00 01 00  |........JR......|
  00000420  00 00 00 10 00 80 00 00  41 47 45 4e 54 31 20 20  |........AGENT1  |
  00000430  20 20 20 20 20 20 20 20  52 45 54 52 59 50 41 59  |        RETRYPAY|
  00000440  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000450  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000460  0a 0a 4c 4f 41 44 44 41  54 41 20 20 20 20 20 20  |..LOADDATA      |
  00000470  20 20 6c 6f 61 64 65 72  20 20 20 20 20 20 20 20  |  loader        |
  00000480  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000490  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000004a0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000004b0  20 20 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |  ..............|
  000004c0  00 00 00 00 2f 6f 70 74  2f 6c 6f 61 64 2f 72 65  |..../opt/load/re|
  000004d0  74 72 79 70 61 79 2e 73  68 20 20 20 20 20 20 20  |trypay.sh       |
  000004e0  20 20 20 20 20 20 20 20  20 20 20 20 00 0d 00 00  |            ....|
  000004f0  00 0f 00 00 00 11 00 00  80 00 00 00 80 00 00 00  |................|
  00000500  00 11 00 00 80 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000510  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000520  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000530  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000540  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000550  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000560  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000570  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000580  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000590  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000005a0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000005b0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000005c0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000005d0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000005e0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000005f0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000600  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000610  00 00 00 00 00 00 00 00  4a 52 00 01 00 00 01 00  |........JR......|
  00000620  00 00 00 11 00 80 00 00  41 47 45 4e 54 31 20 20  |........AGENT1  |
  00000630  20 20 20 20 20 20 20 20  4e 4f 54 49 46 59 20 20  |        NOTIFY  |
  00000640  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000650  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000660  0a 0a 4c 4f 41 44 44 41  54 41 20 20 20 20 20 20  |..LOADDATA      |
  00000670  20 20 6c 6f 61 64 65 72  20 20 20 20 20 20 20 20  |  loader        |
  00000680  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000690  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000006a0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000006b0  20 20 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |  ..............|
  000006c0  00 00 00 00 2f 6f 70 74  2f 6c 6f 61 64 2f 6e 6f  |..../opt/load/no|
  000006d0  74 69 66 79 2e 73 68 20  20 20 20 20 20 20 20 20  |tify.sh         |
  000006e0  20 20 20 20 20 20 20 20  20 20 20 20 00 0d 00 00  |            ....|
  000006f0  00 10 00 00 00 12 00 00  80 00 00 00 80 00 00 00  |................|
  00000700  80 00 00 00 80 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000710  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000720  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000730  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000740  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000750  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000760  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000770  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000780  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000790  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000007a0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000007b0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000007c0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000007d0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000007e0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000007f0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000800  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000810  00 00 00 00 00 00 00 00  4a 52 00 01 00 00 01 00  |........JR......|
  00000820  00 00 00 12 00 80 00 00  41 47 45 4e 54 31 20 20  |........AGENT1  |
  00000830  20 20 20 20 20 20 20 20  4d 45 52 47 45 20 20 20  |        MERGE   |
  00000840  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000850  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000860  0a 0a 4c 4f 41 44 44 41  54 41 20 20 20 20 20 20  |..LOADDATA      |
  00000870  20 20 6c 6f 61 64 65 72  20 20 20 20 20 20 20 20  |  loader        |
  00000880  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000890  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000008a0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000008b0  20 20 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |  ..............|
  000008c0  00 03 00 00 2f 6f 70 74  2f 6c 6f 61 64 2f 6d 65  |..../opt/load/me|
  000008d0  72 67 65 2e 73 68 20 20  20 20 20 20 20 20 20 20  |rge.sh          |
  000008e0  20 20 20 20 20 20 20 20  20 20 20 20 00 0d 00 00  |            ....|
  000008f0  00 11 00 00 80 00 00 00  80 00 00 00 80 00 00 00  |................|
  00000900  80 00 00 00 80 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000910  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000920  00 00 00 00 04 04 20 00  00 00 00 00 00 00 00 00  |...... .........|
  00000930  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000940  00 00 00 00 00 00 00 00  00 00 00 00 0e 00 00 00  |................|
  00000950  0f 00 00 00 0a 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000960  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000970  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000980  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000990  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000009a0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000009b0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000009c0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000009d0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000009e0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000009f0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000a00  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000a10  00 00 00 00 00 00 00 00                           |........|
  # reply to close (request type 3, id 3): 24 bytes
  00000000  00 00 00 14 00 00 00 00  00 00 00 03 00 00 00 00  |................|
  00000010  00 00 00 00 00 00 00 00                           |........|
  $ almq --raw deps @ PAYROLL
  # reply to open (request type 2, id 1): 60 bytes
  00000000  00 00 00 38 00 00 00 00  00 00 00 01 00 00 00 09  |...8............|
  00000010  00 00 00 00 00 00 00 00  30 00 00 31 00 32 30 32  |........0..1.202|
  00000020  36 31 31 32 32 00 36 30  30 00 4d 41 53 54 45 52  |61122.600.MASTER|
  00000030  00 4d 41 53 54 45 52 00  30 00 31 00              |.MASTER.0.1.|
  # reply to dependencies (request type 7, id 2): 3608 bytes
  00000000  00 00 0e 14 00 00 00 00  00 00 00 02 00 00 00 07  |................|
  00000010  00 00 02 00 00 00 00 01  53 52 00 01 00 00 01 00  |........SR......|
  00000020  00 00 00 16 00 80 00 00  41 47 45 4e 54 31 20 20  |........AGENT1  |
  00000030  20 20 20 20 20 20 20 20  50 41 59 52 4f 4c 4c 20  |        PAYROLL |
  00000040  20 20 20 20 20 20 20 20  00 03 00 02 00 00 50 41  |        ......PA|
  00000050  59 52 4f 4c 4c 20 20 20  20 20 20 20 20 20 0a 0a  |YROLL         ..|
  00000060  00 00 00 00 00 02 00 00  00 00 00 00 00 00 00 00  |................|
  00000070  00 00 00 00 00 00 00 00  00 17 00 00 00 18 00 00  |................|
  00000080  00 13 00 00 00 19 00 00  00 00 00 00 00 05 00 00  |................|
  00000090  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000000a0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000000b0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000000c0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000000d0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000000e0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000000f0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000100  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000110  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000120  00 00 00 00 00 00 00 00  00 00 00 00 00 00 20 20  |..............  |
  00000130  20 20 20 20 20 20 20 20  20 20 20 20 20 20 00 00  |              ..|
  00000140  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000150  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000160  6b 02 30 80 00 00 00 00  00 00 00 00 00 00 00 00  |k.0.............|
  00000170  00 01 04 b0 00 00 02 00  00 00 00 00 00 00 00 00  |................|
  00000180  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000190  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001a0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001b0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001c0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001d0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001e0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000001f0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000200  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000210  00 00 00 00 00 00 00 00  4d 52 00 00 00 00 01 00  |........MR......|
  00000220  00 00 00 05 00 80 00 00  4d 41 53 54 45 52 20 20  |........MASTER  |
  00000230  20 20 20 20 20 20 20 20  50 41 59 4f 4b 20 20 20  |        PAYOK   |
  00000240  00 04 00 00 00 06 00 00  80 00 00 00 00 00 00 00  |................|
  00000250  00 00 00 00 00 02 00 00  00 00 00 00 00 00 00 00  |................|
  00000260  00 00 00 00 00 00 50 61  79 72 6f 6c 6c 20 66 69  |......Payroll fi|
  00000270  67 75 72 65 73 20 61 70  70 72 6f 76 65 64 20 62  |gures approved b|
  00000280  79 20 66 69 6e 61 6e 63  65 3f 20 20 20 20 20 20  |y finance?      |
  00000290  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000002a0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000002b0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000002c0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000002d0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000002e0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000002f0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000300  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000310  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000320  20 20 20 20 20 20 20 20  20 20 20 20 20 20 00 00  |              ..|
  00000330  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000340  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000350  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000360  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000370  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000380  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000390  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000003a0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000003b0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000003c0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000003d0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000003e0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000003f0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000400  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000410  00 00 00 00 00 00 00 00  4a 52 00 01 00 00 01 00  |........JR......|
  00000420  00 00 00 17 00 80 00 00  41 47 45 4e 54 31 20 20  |........AGENT1  |
  00000430  20 20 20 20 20 20 20 20  43 41 4c 43 50 41 59 20  |        CALCPAY |
  00000440  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000450  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000460  0a 0a 50 41 59 52 4f 4c  4c 20 20 20 20 20 20 20  |..PAYROLL       |
  00000470  20 20 70 61 79 72 6f 6c  6c 20 20 20 20 20 20 20  |  payroll       |
  00000480  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000490  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000004a0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000004b0  20 20 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |  ..............|
  000004c0  00 01 00 00 2f 6f 70 74  2f 70 61 79 2f 63 61 6c  |..../opt/pay/cal|
  000004d0  63 70 61 79 2e 73 68 20  20 20 20 20 20 20 20 20  |cpay.sh         |
  000004e0  20 20 20 20 20 20 20 20  20 20 20 20 00 16 00 00  |            ....|
  000004f0  80 00 00 00 00 18 00 00  80 00 00 00 80 00 00 00  |................|
  00000500  80 00 00 00 00 80 00 00  00 00 00 00 00 00 00 00  |................|
  00000510  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000520  00 00 00 00 04 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000530  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000540  00 00 00 00 00 00 00 00  00 00 00 00 00 12 00 00  |................|
  00000550  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000560  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000570  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000580  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000590  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000005a0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000005b0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000005c0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000005d0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000005e0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000005f0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000600  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000610  00 00 00 00 00 00 00 00  4a 44 00 01 00 00 01 00  |........JD......|
  00000620  00 00 00 12 00 80 00 00  41 47 45 4e 54 31 20 20  |........AGENT1  |
  00000630  20 20 20 20 20 20 20 20  4d 45 52 47 45 20 20 20  |        MERGE   |
  00000640  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000650  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000660  0a 0a 4c 4f 41 44 44 41  54 41 20 20 20 20 20 20  |..LOADDATA      |
  00000670  20 20 6c 6f 61 64 65 72  20 20 20 20 20 20 20 20  |  loader        |
  00000680  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000690  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000006a0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000006b0  20 20 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |  ..............|
  000006c0  00 03 00 00 2f 6f 70 74  2f 6c 6f 61 64 2f 6d 65  |..../opt/load/me|
  000006d0  72 67 65 2e 73 68 20 20  20 20 20 20 20 20 20 20  |rge.sh          |
  000006e0  20 20 20 20 20 20 20 20  20 20 20 20 00 0d 00 00  |            ....|
  000006f0  00 11 00 00 80 00 00 00  80 00 00 00 80 00 00 00  |................|
  00000700  80 00 00 00 00 80 00 00  00 00 00 00 00 00 00 00  |................|
  00000710  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000720  00 00 00 00 04 04 20 00  00 00 00 00 00 00 00 00  |...... .........|
  00000730  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000740  00 00 00 00 00 00 00 00  00 00 00 00 00 0e 00 00  |................|
  00000750  00 0f 00 00 00 0a 00 00  00 00 00 00 00 00 00 00  |................|
  00000760  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000770  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000780  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000790  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000007a0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000007b0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000007c0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000007d0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000007e0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000007f0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000800  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000810  00 00 00 00 00 00 00 00  4a 52 00 01 00 00 01 00  |........JR......|
  00000820  00 00 00 18 00 80 00 00  41 47 45 4e 54 31 20 20  |........AGENT1  |
  00000830  20 20 20 20 20 20 20 20  50 52 49 4e 54 50 41 59  |        PRINTPAY|
  00000840  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000850  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000860  0a 0a 50 41 59 52 4f 4c  4c 20 20 20 20 20 20 20  |..PAYROLL       |
  00000870  20 20 70 61 79 72 6f 6c  6c 20 20 20 20 20 20 20  |  payroll       |
  00000880  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000890  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000008a0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  000008b0  20 20 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |  ..............|
  000008c0  00 02 00 00 2f 6f 70 74  2f 70 61 79 2f 70 72 69  |..../opt/pay/pri|
  000008d0  6e 74 70 61 79 2e 73 68  20 20 20 20 20 20 20 20  |ntpay.sh        |
  000008e0  20 20 20 20 20 20 20 20  20 20 20 20 00 16 00 00  |            ....|
  000008f0  00 17 00 00 80 00 00 00  80 00 00 00 80 00 00 00  |................|
  00000900  80 00 00 00 00 80 00 00  00 00 00 00 00 00 00 00  |................|
  00000910  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000920  00 00 00 00 04 01 00 00  00 00 00 00 00 00 00 00  |................|
  00000930  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000940  00 00 00 00 00 00 00 00  00 00 00 00 00 17 00 00  |................|
  00000950  00 05 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000960  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000970  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000980  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000990  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000009a0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000009b0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000009c0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000009d0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000009e0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  000009f0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000a00  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000a10  00 00 00 00 00 00 00 00  4a 44 00 01 00 00 01 00  |........JD......|
  00000a20  00 00 00 17 00 80 00 00  41 47 45 4e 54 31 20 20  |........AGENT1  |
  00000a30  20 20 20 20 20 20 20 20  43 41 4c 43 50 41 59 20  |        CALCPAY |
  00000a40  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000a50  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000a60  0a 0a 50 41 59 52 4f 4c  4c 20 20 20 20 20 20 20  |..PAYROLL       |
  00000a70  20 20 70 61 79 72 6f 6c  6c 20 20 20 20 20 20 20  |  payroll       |
  00000a80  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000a90  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000aa0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000ab0  20 20 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |  ..............|
  00000ac0  00 01 00 00 2f 6f 70 74  2f 70 61 79 2f 63 61 6c  |..../opt/pay/cal|
  00000ad0  63 70 61 79 2e 73 68 20  20 20 20 20 20 20 20 20  |cpay.sh         |
  00000ae0  20 20 20 20 20 20 20 20  20 20 20 20 00 16 00 00  |            ....|
  00000af0  80 00 00 00 00 18 00 00  80 00 00 00 80 00 00 00  |................|
  00000b00  80 00 00 00 00 80 00 00  00 00 00 00 00 00 00 00  |................|
  00000b10  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000b20  00 00 00 00 04 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000b30  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000b40  00 00 00 00 00 00 00 00  00 00 00 00 00 12 00 00  |................|
  00000b50  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000b60  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000b70  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000b80  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000b90  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000ba0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000bb0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000bc0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000bd0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000be0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000bf0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000c00  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000c10  00 00 00 00 00 00 00 00  4d 52 00 00 00 00 01 00  |........MR......|
  00000c20  00 00 00 05 00 80 00 00  4d 41 53 54 45 52 20 20  |........MASTER  |
  00000c30  20 20 20 20 20 20 20 20  50 41 59 4f 4b 20 20 20  |        PAYOK   |
  00000c40  00 04 00 00 00 06 00 00  80 00 00 00 00 00 00 00  |................|
  00000c50  00 00 00 00 00 02 00 00  00 00 00 00 00 00 00 00  |................|
  00000c60  00 00 00 00 00 00 50 61  79 72 6f 6c 6c 20 66 69  |......Payroll fi|
  00000c70  67 75 72 65 73 20 61 70  70 72 6f 76 65 64 20 62  |gures approved b|
  00000c80  79 20 66 69 6e 61 6e 63  65 3f 20 20 20 20 20 20  |y finance?      |
  00000c90  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000ca0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000cb0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000cc0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000cd0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000ce0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000cf0  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000d00  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000d10  20 20 20 20 20 20 20 20  20 20 20 20 20 20 20 20  |                |
  00000d20  20 20 20 20 20 20 20 20  20 20 20 20 20 20 00 00  |              ..|
  00000d30  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000d40  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000d50  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000d60  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000d70  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000d80  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000d90  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000da0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000db0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000dc0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000dd0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000de0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000df0  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000e00  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|
  00000e10  00 00 00 00 00 00 00 00                           |........|
  # reply to no-operation (request type 0, id 3): 24 bytes
  00000000  00 00 00 14 00 00 00 00  00 00 00 03 00 00 00 00  |................|
  00000010  00 00 00 00 00 00 00 00                           |........|
  # reply to close (request type 3, id 4): 24 bytes
  00000000  00 00 00 14 00 00 00 00  00 00 00 04 00 00 00 00  |................|
  00000010  00 00 00 00 00 00 00 00                           |........|
  $ almq --raw logs
  # reply to log listing (request type 4, id 1): 24 bytes
  00000000  00 00 00 14 00 00 00 00  00 00 00 01 00 00 00 00  |................|
  00000010  00 00 00 00 00 00 00 00                           |........|
  almq: no archived plans
  [1]
  $ almq --raw --plan /nonexistent/missing cpus
  # reply to open (request type 2, id 1): 120 bytes
  00000000  00 00 00 74 00 00 00 00  00 00 00 01 00 00 00 09  |...t............|
  00000010  00 00 00 00 00 00 00 00  33 35 00 51 46 52 32 30  |........35.QFR20|
  00000020  37 32 30 30 33 35 20 20  54 68 65 20 70 6c 61 6e  |720035  The plan|
  00000030  20 66 69 6c 65 20 2f 6e  6f 6e 65 78 69 73 74 65  | file /nonexiste|
  00000040  6e 74 2f 6d 69 73 73 69  6e 67 20 64 6f 65 73 20  |nt/missing does |
  00000050  6e 6f 74 20 65 78 69 73  74 20 28 73 79 73 74 65  |not exist (syste|
  00000060  6d 20 65 72 72 6f 72 20  32 29 2e 00 30 00 30 00  |m error 2)..0.0.|
  00000070  30 00 00 00 30 00 30 00                           |0...0.0.|
  almq: cannot open plan /nonexistent/missing: The plan file /nonexistent/missing does not exist (No such file or directory). [QFR20720035]
  [3]

Names that need escaping in JSON.

  $ printf 'workstation "A\\"B"\nschedule "A\\"B" "S\\\\1"\njob "J\\tK"\n' > odd.txt
  $ almplan build odd.txt odd && almq --plan odd --json jobs
  {"alm_rec_type":19026,"sj_status":1,"sj_filler2":0,"sj_rec_version":1,"sj_rec_num":3,"sj_cont_rec":32768,"sj_cpu_id":"A\"B","sj_job_name":"JtK","sj_job_pri":{"priority":10,"orig_pri":10},"sj_schedule":"S\\1","sj_job_user":"","sj_job_acct":"","sj_job_group":"","sj_every_hhmm":0,"sj_until_time":0,"sj_flags2":0,"sj_flags":0,"sj_re_flags":0,"sj_start_time":0,"sj_time_started":0,"sj_num_depends":0,"sj_filler3":0,"sj_fname_jname":{"jcl_file":""},"sj_sched_ptr":2,"sj_prev_job_ptr":32768,"sj_next_job_ptr":32768,"sj_re_job_ptr":32768,"sj_re_prmpt_ptr":32768,"sj_restart_ptr":32768,"sj_rec_ptrs":32768,"sj_until_date":0,"sj_until_date_iso":null,"sj_sched_date":0,"sj_sched_date_iso":null,"sj_date_started":0,"sj_date_started_iso":null,"sj_elapse_time":0,"sj_est_elapse":0,"sj_cpu_time":0,"sj_job_number":0,"subdep":{"sj_depend_flags":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],"sj_dependencies":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]},"sj_filler1":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}
  $ almq --plan odd jobs
  WORKSTATION  SCHEDULE  JOB  STATUS  START  STARTED
  A"B          S\1       JtK  HOLD    -      -
  1 job
