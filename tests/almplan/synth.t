Synthetic plans: record counts, chains, the null record number, the limits
of each format.

  $ almplan synth --cpus 2 --scheds 2 --jobs 3 --deps small && almplan check small && wc -c < small
  13312
  $ almplan dump small | grep -c -E '^#'
  26
  $ almplan dump small | head -n 60
  #0 header RH version=1 cpu=WS000001 master=WS000001 master_domain=DM000001 records=26 run=1 day_start=600 job_fence=0 sched_date=2026-11-22 last="2026-11-22 06:00" started="2026-11-22 06:00" first_cpu=1 last_cpu=2 first_domain=1 last_domain=2 first_sched=10 last_sched=22 first_msg=3 last_msg=3 first_file=4 last_file=4 first_resource=5 last_resource=9 first_cal=- last_cal=- first_st=- last_st=- cpus=2 scheds=4 msgs=1 files=1 resources=5 cals=0 flags=- flags2=-
  #1 workstation IC cpu=WS000001 host="" node=ws000001.example.net domain=DM000001 status=0 rec_num=1 prev=- next=2 prev_domain=- next_domain=2 first_sched=10 started="2026-11-22 06:00" flags=-
  #2 workstation IC cpu=WS000002 host="" node=ws000002.example.net domain=DM000001 status=0 rec_num=2 prev=1 next=- prev_domain=1 next_domain=- first_sched=18 started="2026-11-22 06:00" flags=-
  #3 prompt RM prompt=P0000001 cpu=WS000001 status=0 msg_no=1 prev=- next=- job=- asked=- answered=- text="Reply YES when input batch 1 is ready"
  #4 file RF cpu=WS000001 file=/data/in/f0000001.dat status=0 prev=- next=- qualifier=""
  #5 resource RR cpu=WS000001 resource=R0000001 status=0 prev=- next=6 avail=1 used=0 holders=0
  #6 resource RR cpu=WS000002 resource=R0000002 status=0 prev=5 next=7 avail=2 used=0 holders=0
  #7 resource RR cpu=WS000001 resource=R0000003 status=0 prev=6 next=8 avail=3 used=0 holders=0
  #8 resource RR cpu=WS000002 resource=R0000004 status=0 prev=7 next=9 avail=4 used=0 holders=0
  #9 resource RR cpu=WS000001 resource=R0000005 status=0 prev=8 next=- avail=5 used=0 holders=0
  #10 schedule RS cpu=WS000001 sched=S0000001 status=hold rec_num=10 priority=10 jobs=3 first_job=11 last_job=13 prev=- next=14 prod_date=- sched_date="2026-11-22 06:00" until=- started=- flags=- re_flags=- deps=-
  #11 job RJ cpu=WS000001 sched=S0000001 job=J0000001 status=hold rec_num=11 job_number=0 priority=10 user=batch sched_rec=10 prev=- next=12 restart=- re_job=- re_prompt=- sched_date="2026-11-22 06:00" until=- started=- flags=- flags2=- re_flags=- deps=-
  #12 job RJ cpu=WS000001 sched=S0000001 job=J0000002 status=abend rec_num=12 job_number=0 priority=10 user=batch sched_rec=10 prev=11 next=13 restart=- re_job=- re_prompt=- sched_date="2026-11-22 06:00" until=- started="2026-11-22 06:02" flags=- flags2=- re_flags=- deps=PrejobDep:11
  #13 job RJ cpu=WS000001 sched=S0000001 job=J0000003 status=succ rec_num=13 job_number=0 priority=10 user=batch sched_rec=10 prev=12 next=- restart=- re_job=- re_prompt=- sched_date="2026-11-22 06:00" until=- started="2026-11-22 06:03" flags=- flags2=- re_flags=- deps=PrejobDep:12
  #14 schedule RS cpu=WS000001 sched=S0000002 status=hold rec_num=14 priority=10 jobs=3 first_job=15 last_job=17 prev=10 next=18 prod_date=- sched_date="2026-11-22 07:07" until=- started=- flags=- re_flags=- deps=GlbMsgDep:3
  #15 job RJ cpu=WS000001 sched=S0000002 job=J0000001 status=hold rec_num=15 job_number=0 priority=10 user=batch sched_rec=14 prev=- next=16 restart=- re_job=- re_prompt=- sched_date="2026-11-22 07:07" until=- started=- flags=- flags2=- re_flags=- deps=PrejobDep:13
  #16 job RJ cpu=WS000001 sched=S0000002 job=J0000002 status=fail rec_num=16 job_number=0 priority=10 user=batch sched_rec=14 prev=15 next=17 restart=- re_job=- re_prompt=- sched_date="2026-11-22 07:07" until=- started="2026-11-22 07:09" flags=- flags2=- re_flags=- deps=PrejobDep:15
  #17 job RJ cpu=WS000001 sched=S0000002 job=J0000003 status=succ rec_num=17 job_number=0 priority=10 user=batch sched_rec=14 prev=16 next=- restart=- re_job=- re_prompt=- sched_date="2026-11-22 07:07" until=- started="2026-11-22 07:10" flags=- flags2=- re_flags=- deps=PrejobDep:16,FileDep:4
  #18 schedule RS cpu=WS000002 sched=S0000001 status=exec rec_num=18 priority=10 jobs=3 first_job=19 last_job=21 prev=14 next=22 prod_date=- sched_date="2026-11-22 08:14" until=- started=- flags=- re_flags=- deps=resource(3):7
  #19 job RJ cpu=WS000002 sched=S0000001 job=J0000001 status=ready rec_num=19 job_number=0 priority=10 user=batch sched_rec=18 prev=- next=20 restart=- re_job=- re_prompt=- sched_date="2026-11-22 08:14" until=- started=- flags=- flags2=- re_flags=- deps=-
  #20 job RJ cpu=WS000002 sched=S0000001 job=J0000002 status=succ rec_num=20 job_number=0 priority=10 user=batch sched_rec=18 prev=19 next=21 restart=- re_job=- re_prompt=- sched_date="2026-11-22 08:14" until=- started="2026-11-22 08:16" flags=- flags2=- re_flags=- deps=PrejobDep:19,FileDep:4
  #21 job RJ cpu=WS000002 sched=S0000001 job=J0000003 status=exec rec_num=21 job_number=0 priority=10 user=batch sched_rec=18 prev=20 next=- restart=- re_job=- re_prompt=- sched_date="2026-11-22 08:14" until=- started="2026-11-22 08:17" flags=- flags2=- re_flags=- deps=PrejobDep:20
  #22 schedule RS cpu=WS000002 sched=S0000002 status=hold rec_num=22 priority=10 jobs=3 first_job=23 last_job=25 prev=18 next=- prod_date=- sched_date="2026-11-22 09:21" until=- started=- flags=- re_flags=- deps=PreschedDep:18
  #23 job RJ cpu=WS000002 sched=S0000002 job=J0000001 status=succ rec_num=23 job_number=0 priority=10 user=batch sched_rec=22 prev=- next=24 restart=- re_job=- re_prompt=- sched_date="2026-11-22 09:21" until=- started="2026-11-22 09:22" flags=- flags2=- re_flags=- deps=FileDep:4
  #24 job RJ cpu=WS000002 sched=S0000002 job=J0000002 status=hold rec_num=24 job_number=0 priority=10 user=batch sched_rec=22 prev=23 next=25 restart=- re_job=- re_prompt=- sched_date="2026-11-22 09:21" until=- started=- flags=- flags2=- re_flags=- deps=PrejobDep:23
  #25 job RJ cpu=WS000002 sched=S0000002 job=J0000003 status=abend rec_num=25 job_number=0 priority=10 user=batch sched_rec=22 prev=24 next=- restart=- re_job=- re_prompt=- sched_date="2026-11-22 09:21" until=- started="2026-11-22 09:24" flags=- flags2=- re_flags=- deps=PrejobDep:24,resource(3):5
  $ almplan synth --cpus 2 --scheds 2 --jobs 3 --deps small2 && cmp small small2 && echo same bytes
  same bytes
  $ almplan synth --cpus 1 --scheds 1 --jobs 2 --v1 --date 2026-01-31 tiny1 && almplan dump tiny1
  #0 header RH version=0 cpu=WS000001 master=WS000001 master_domain=DM000001 records=5 run=1 day_start=600 job_fence=0 sched_date=2026-01-31 last="2026-01-31 06:00" started="2026-01-31 06:00" first_cpu=1 last_cpu=1 first_domain=1 last_domain=1 first_sched=2 last_sched=2 first_msg=- last_msg=- first_file=- last_file=- first_resource=- last_resource=- first_cal=- last_cal=- first_st=- last_st=- cpus=1 scheds=1 msgs=0 files=0 resources=0 cals=0 flags=- flags2=-
  #1 workstation IC cpu=WS000001 host="" node=ws000001.example.net domain=DM000001 status=0 rec_num=1 prev=- next=- prev_domain=- next_domain=- first_sched=2 started="2026-01-31 06:00" flags=-
  #2 schedule RS cpu=WS000001 sched=S0000001 status=hold rec_num=2 priority=10 jobs=2 first_job=3 last_job=4 prev=- next=- prod_date=- sched_date="2026-01-31 06:00" until=- started=- flags=- re_flags=- deps=-
  #3 job RJ cpu=WS000001 sched=S0000001 job=J0000001 status=hold rec_num=3 job_number=0 priority=10 user=batch sched_rec=2 prev=- next=4 restart=- re_job=- re_prompt=- sched_date="2026-01-31 06:00" until=- started=- flags=- flags2=- re_flags=- deps=-
  #4 job RJ cpu=WS000001 sched=S0000001 job=J0000002 status=abend rec_num=4 job_number=0 priority=10 user=batch sched_rec=2 prev=3 next=- restart=- re_job=- re_prompt=- sched_date="2026-01-31 06:00" until=- started="2026-01-31 06:02" flags=- flags2=- re_flags=- deps=-
  $ almplan synth --cpus 2 --scheds 10 --jobs 1700 --deps big && almplan check big && wc -c < big
  17425408
  $ almplan dump big | grep -E '^#3276[6789] ' | cut -c 1-160
  #32766 job RJ cpu=WS000002 sched=S0000010 job=J0000434 status=hold rec_num=32766 job_number=0 priority=10 user=batch sched_rec=32332 prev=32765 next=32767 resta
  #32767 job RJ cpu=WS000002 sched=S0000010 job=J0000435 status=abend rec_num=32767 job_number=0 priority=10 user=batch sched_rec=32332 prev=32766 next=32769 rest
  #32769 job RJ cpu=WS000002 sched=S0000010 job=J0000436 status=succ rec_num=32769 job_number=0 priority=10 user=batch sched_rec=32332 prev=32767 next=32770 resta
  $ almplan synth --cpus 2 --scheds 10 --jobs 1700 --v1 big1; s=$?; test -e big1 && echo written; exit $s
  almplan: synth: a V1 plan holds at most 32768 records; these sizes need 34023
  [1]
  $ almplan synth --cpus 1 --scheds 1 --jobs 32766 --v1 big1; s=$?; test -e big1 && echo written; exit $s
  almplan: synth: a V1 plan holds at most 32768 records; these sizes need 32769
  [1]
  $ almplan synth --cpus 1 --scheds 2 --jobs 16382 --v1 fits1 && wc -c < fits1 && almplan check fits1
  8388608
  $ almplan synth --cpus 200 --scheds 200 --jobs 1 p
  almplan: synth: at most 32767 schedules in all (sh_num_scheds is 16 bits)
  [1]
  $ almplan synth --cpus 1 --scheds 1 --jobs 40000 p
  almplan: synth: at most 32766 jobs per schedule (ss_num_recs is 16 bits)
  [1]
