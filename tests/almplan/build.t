The sample plan, built in both formats: every field of every record, and
the bytes of the files.

  $ almplan build $SRC/examples/sample.plan.txt v2 && almplan build --v1 $SRC/examples/sample.plan.txt v1
  $ wc -c < v2; wc -c < v1; cksum < v2; cksum < v1
  26112
  13056
  3282124838 26112
  3218303495 13056
  $ almplan check v2 && almplan check v1 && echo sound
  sound
  $ almplan dump v2
  #0 header RH version=1 cpu=MASTER master=MASTER master_domain=MAINDM records=51 run=412 day_start=600 job_fence=0 sched_date=2026-11-22 last="2026-11-22 06:00" started="2026-11-22 06:00" first_cpu=1 last_cpu=3 first_domain=1 last_domain=3 first_sched=13 last_sched=49 first_msg=4 last_msg=6 first_file=7 last_file=9 first_resource=10 last_resource=12 first_cal=- last_cal=- first_st=- last_st=- cpus=3 scheds=12 msgs=3 files=3 resources=3 cals=0 flags=- flags2=-
  #1 workstation IC cpu=MASTER host="" node=master.example.net domain=MAINDM status=0 rec_num=1 prev=- next=2 prev_domain=- next_domain=2 first_sched=40 started="2026-11-22 06:00" flags=-
  #2 workstation IC cpu=AGENT1 host=MASTER node=agent1.example.net domain=MAINDM status=0 rec_num=2 prev=1 next=3 prev_domain=1 next_domain=3 first_sched=13 started="2026-11-22 06:01" flags=-
  #3 workstation IC cpu=AGENT2 host=MASTER node=agent2.example.net domain=EDGEDM status=0 rec_num=3 prev=2 next=- prev_domain=2 next_domain=- first_sched=28 started="2026-11-22 06:02" flags=-
  #4 prompt RM prompt=TAPEOK cpu=MASTER status=0 msg_no=1 prev=- next=5 job=- asked="2026-11-22 21:40" answered=- text="Is the backup tape mounted in drive 2? Reply YES to continue."
  #5 prompt RM prompt=PAYOK cpu=MASTER status=0 msg_no=2 prev=4 next=6 job=- asked=- answered=- text="Payroll figures approved by finance?"
  #6 prompt RM prompt=CLOSEOK cpu=MASTER status=0 msg_no=3 prev=5 next=- job=- asked="2026-11-22 17:55" answered="2026-11-22 18:02" text="Close the business day now?"
  #7 file RF cpu=AGENT1 file=/data/in/orders.csv status=0 prev=- next=8 qualifier=""
  #8 file RF cpu=AGENT1 file=/data/in/payments.csv status=0 prev=7 next=9 qualifier=""
  #9 file RF cpu=AGENT2 file=/var/log/web/access.log status=0 prev=8 next=- qualifier=-s
  #10 resource RR cpu=MASTER resource=DBCONN status=0 prev=- next=11 avail=8 used=2 holders=0
  #11 resource RR cpu=AGENT1 resource=TAPES status=0 prev=10 next=12 avail=2 used=0 holders=0
  #12 resource RR cpu=AGENT2 resource=CPUSLOT status=0 prev=11 next=- avail=4 used=0 holders=0
  #13 schedule RS cpu=AGENT1 sched=LOADDATA status=exec rec_num=13 priority=10 jobs=5 first_job=14 last_job=18 prev=- next=19 prod_date=- sched_date="2026-11-22 08:00" until=- started="2026-11-22 08:00" flags=- re_flags=- deps=PreschedDep:40
  #14 job RJ cpu=AGENT1 sched=LOADDATA job=GETORD status=succ rec_num=14 job_number=0 priority=10 user=loader sched_rec=13 prev=- next=15 restart=- re_job=- re_prompt=- sched_date="2026-11-22 08:00" until=- started="2026-11-22 08:01" flags=- flags2=- re_flags=- deps=FileDep:7
  #15 job RJ cpu=AGENT1 sched=LOADDATA job=GETPAY status=abend rec_num=15 job_number=0 priority=10 user=loader sched_rec=13 prev=14 next=16 restart=16 re_job=- re_prompt=- sched_date=- until=- started="2026-11-22 08:02" flags=- flags2=- re_flags=- deps=FileDep:8
  #16 job RJ cpu=AGENT1 sched=LOADDATA job=RETRYPAY status=ready rec_num=16 job_number=0 priority=10 user=loader sched_rec=13 prev=15 next=17 restart=17 re_job=- re_prompt=- sched_date=- until=- started=- flags=- flags2=- re_flags=- deps=-
  #17 job RJ cpu=AGENT1 sched=LOADDATA job=NOTIFY status=hold rec_num=17 job_number=0 priority=10 user=loader sched_rec=13 prev=16 next=18 restart=- re_job=- re_prompt=- sched_date=- until=- started=- flags=- flags2=- re_flags=- deps=-
  #18 job RJ cpu=AGENT1 sched=LOADDATA job=MERGE status=hold rec_num=18 job_number=0 priority=10 user=loader sched_rec=13 prev=17 next=- restart=- re_job=- re_prompt=- sched_date=- until=- started=- flags=- flags2=- re_flags=- deps=PrejobDep:14,PrejobDep:15,resource(1):10
  #19 schedule RS cpu=AGENT1 sched=BILLING status=hold rec_num=19 priority=10 jobs=2 first_job=20 last_job=21 prev=13 next=22 prod_date=- sched_date="2026-11-22 10:00" until="2026-11-22 23:00" started=- flags=- re_flags=- deps=PreschedDep:13
  #20 job RJ cpu=AGENT1 sched=BILLING job=INVOICE status=hold rec_num=20 job_number=0 priority=10 user=billing sched_rec=19 prev=- next=21 restart=- re_job=- re_prompt=- sched_date="2026-11-22 10:00" until="2026-11-22 23:00" started=- flags=- flags2=- re_flags=- deps=resource(1):10
  #21 job RJ cpu=AGENT1 sched=BILLING job=STATEMNT status=hold rec_num=21 job_number=0 priority=10 user=billing sched_rec=19 prev=20 next=- restart=- re_job=- re_prompt=- sched_date=- until=- started=- flags=- flags2=- re_flags=- deps=PrejobDep:20
  #22 schedule RS cpu=AGENT1 sched=PAYROLL status=hold rec_num=22 priority=10 jobs=2 first_job=23 last_job=24 prev=19 next=25 prod_date=- sched_date="2026-11-22 12:00" until=- started=- flags=- re_flags=- deps=GlbMsgDep:5
  #23 job RJ cpu=AGENT1 sched=PAYROLL job=CALCPAY status=hold rec_num=23 job_number=0 priority=10 user=payroll sched_rec=22 prev=- next=24 restart=- re_job=- re_prompt=- sched_date=- until=- started=- flags=- flags2=- re_flags=- deps=PrejobDep:18
  #24 job RJ cpu=AGENT1 sched=PAYROLL job=PRINTPAY status=hold rec_num=24 job_number=0 priority=10 user=payroll sched_rec=22 prev=23 next=- restart=- re_job=- re_prompt=- sched_date=- until=- started=- flags=- flags2=- re_flags=- deps=PrejobDep:23,LocMsgDep:5
  #25 schedule RS cpu=AGENT1 sched=BACKUP status=hold rec_num=25 priority=10 jobs=2 first_job=26 last_job=27 prev=22 next=28 prod_date=- sched_date="2026-11-22 21:30" until=- started=- flags=- re_flags=- deps=PreschedDep:43
  #26 job RJ cpu=AGENT1 sched=BACKUP job=DUMPDB status=hold rec_num=26 job_number=0 priority=10 user=backup sched_rec=25 prev=- next=27 restart=- re_job=- re_prompt=- sched_date=- until=- started=- flags=- flags2=- re_flags=- deps=resource(1):11,GlbMsgDep:4
  #27 job RJ cpu=AGENT1 sched=BACKUP job=VERIFY status=hold rec_num=27 job_number=0 priority=10 user=backup sched_rec=25 prev=26 next=- restart=- re_job=- re_prompt=- sched_date=- until=- started=- flags=- flags2=- re_flags=- deps=PrejobDep:26
  #28 schedule RS cpu=AGENT2 sched=WEBSTATS status=exec rec_num=28 priority=10 jobs=3 first_job=29 last_job=31 prev=25 next=32 prod_date=- sched_date="2026-11-22 07:00" until=- started="2026-11-22 07:00" flags=- re_flags=- deps=FileDep:9
  #29 job RJ cpu=AGENT2 sched=WEBSTATS job=COLLECT status=succ rec_num=29 job_number=0 priority=10 user=webops sched_rec=28 prev=- next=30 restart=- re_job=- re_prompt=- sched_date="2026-11-22 07:00" until=- started="2026-11-22 07:00" flags=- flags2=- re_flags=- deps=-
  #30 job RJ cpu=AGENT2 sched=WEBSTATS job=COMPUTE status=exec rec_num=30 job_number=0 priority=10 user=webops sched_rec=28 prev=29 next=31 restart=- re_job=- re_prompt=- sched_date="2026-11-22 07:05" until=- started="2026-11-22 07:06" flags=- flags2=- re_flags=- deps=PrejobDep:29,resource(2):12
  #31 job RJ cpu=AGENT2 sched=WEBSTATS job=PUBLISH status=hold rec_num=31 job_number=0 priority=10 user=webops sched_rec=28 prev=30 next=- restart=- re_job=- re_prompt=- sched_date=- until=- started=- flags=- flags2=- re_flags=- deps=PrejobDep:30
  #32 schedule RS cpu=AGENT2 sched=CLEANUP status=hold rec_num=32 priority=10 jobs=2 first_job=33 last_job=34 prev=28 next=35 prod_date=- sched_date="2026-11-22 22:00" until=- started=- flags=- re_flags=- deps=-
  #33 job RJ cpu=AGENT2 sched=CLEANUP job=PURGETMP status=hold rec_num=33 job_number=0 priority=10 user=ops sched_rec=32 prev=- next=34 restart=- re_job=- re_prompt=- sched_date=- until=- started=- flags=- flags2=- re_flags=- deps=-
  #34 job RJ cpu=AGENT2 sched=CLEANUP job=ROTATE status=hold rec_num=34 job_number=0 priority=10 user=ops sched_rec=32 prev=33 next=- restart=- re_job=- re_prompt=- sched_date=- until=- started=- flags=- flags2=- re_flags=- deps=PrejobDep:31
  #35 schedule RS cpu=AGENT2 sched=ARCHIVE status=hold rec_num=35 priority=10 jobs=2 first_job=36 last_job=37 prev=32 next=38 prod_date=- sched_date="2026-11-22 23:00" until=- started=- flags=- re_flags=- deps=PreschedDep:32
  #36 job RJ cpu=AGENT2 sched=ARCHIVE job=PACKLOGS status=hold rec_num=36 job_number=0 priority=10 user=ops sched_rec=35 prev=- next=37 restart=- re_job=- re_prompt=- sched_date=- until=- started=- flags=- flags2=- re_flags=- deps=resource(1):12
  #37 job RJ cpu=AGENT2 sched=ARCHIVE job=SHIPLOGS status=hold rec_num=37 job_number=0 priority=10 user=ops sched_rec=35 prev=36 next=- restart=- re_job=- re_prompt=- sched_date=- until=- started=- flags=- flags2=- re_flags=- deps=PrejobDep:36
  #38 schedule RS cpu=AGENT2 sched=MONTHEND status=cancl rec_num=38 priority=10 jobs=1 first_job=39 last_job=39 prev=35 next=40 prod_date=- sched_date="2026-11-22 23:30" until=- started=- flags=- re_flags=- deps=-
  #39 job RJ cpu=AGENT2 sched=MONTHEND job=LEDGER status=cancl rec_num=39 job_number=0 priority=10 user=finance sched_rec=38 prev=- next=- restart=- re_job=- re_prompt=- sched_date=- until=- started=- flags=- flags2=- re_flags=- deps=-
  #40 schedule RS cpu=MASTER sched=STARTDAY status=succ rec_num=40 priority=10 jobs=2 first_job=41 last_job=42 prev=38 next=43 prod_date=- sched_date="2026-11-22 06:00" until=- started="2026-11-22 06:00" flags=- re_flags=- deps=-
  #41 job RJ cpu=MASTER sched=STARTDAY job=OPENDAY status=succ rec_num=41 job_number=0 priority=10 user=batch sched_rec=40 prev=- next=42 restart=- re_job=- re_prompt=- sched_date="2026-11-22 06:00" until=- started="2026-11-22 06:00" flags=- flags2=- re_flags=- deps=-
  #42 job RJ cpu=MASTER sched=STARTDAY job=SYNCCAL status=succ rec_num=42 job_number=0 priority=10 user=batch sched_rec=40 prev=41 next=- restart=- re_job=- re_prompt=- sched_date=- until=- started="2026-11-22 06:01" flags=- flags2=- re_flags=- deps=PrejobDep:41
  #43 schedule RS cpu=MASTER sched=NIGHTLY status=hold rec_num=43 priority=10 jobs=2 first_job=44 last_job=45 prev=40 next=46 prod_date=- sched_date="2026-11-22 20:00" until=- started=- flags=- re_flags=- deps=PreschedDep:40
  #44 job RJ cpu=MASTER sched=NIGHTLY job=DBSTATS status=hold rec_num=44 job_number=0 priority=10 user=dbadmin sched_rec=43 prev=- next=45 restart=- re_job=- re_prompt=- sched_date=- until=- started=- flags=- flags2=- re_flags=- deps=resource(3):10
  #45 job RJ cpu=MASTER sched=NIGHTLY job=REINDEX status=hold rec_num=45 job_number=0 priority=10 user=dbadmin sched_rec=43 prev=44 next=- restart=- re_job=- re_prompt=- sched_date=- until=- started=- flags=- flags2=- re_flags=- deps=PrejobDep:44
  #46 schedule RS cpu=MASTER sched=REPORTS status=hold rec_num=46 priority=10 jobs=2 first_job=47 last_job=48 prev=43 next=49 prod_date=- sched_date="2026-11-22 16:00" until=- started=- flags=- re_flags=- deps=PreschedDep:19
  #47 job RJ cpu=MASTER sched=REPORTS job=SALESRPT status=hold rec_num=47 job_number=0 priority=10 user=reports sched_rec=46 prev=- next=48 restart=- re_job=- re_prompt=- sched_date=- until=- started=- flags=- flags2=- re_flags=- deps=PrejobDep:21
  #48 job RJ cpu=MASTER sched=REPORTS job=OPSRPT status=fail rec_num=48 job_number=0 priority=10 user=reports sched_rec=46 prev=47 next=- restart=- re_job=- re_prompt=- sched_date=- until=- started="2026-11-22 16:10" flags=- flags2=- re_flags=- deps=PrejobDep:31
  #49 schedule RS cpu=MASTER sched=ENDDAY status=hold rec_num=49 priority=10 jobs=1 first_job=50 last_job=50 prev=46 next=- prod_date=- sched_date="2026-11-22 23:45" until=- started=- flags=- re_flags=- deps=PreschedDep:46,PreschedDep:25,GlbMsgDep:6
  #50 job RJ cpu=MASTER sched=ENDDAY job=CLOSEDAY status=hold rec_num=50 job_number=0 priority=10 user=batch sched_rec=49 prev=- next=- restart=- re_job=- re_prompt=- sched_date=- until=- started=- flags=- flags2=- re_flags=- deps=PrejobDep:37
  $ almplan dump v1 > dump1; almplan dump v2 > dump2; diff dump1 dump2 | head -n 40
  1c1
  < #0 header RH version=0 cpu=MASTER master=MASTER master_domain=MAINDM records=51 run=412 day_start=600 job_fence=0 sched_date=2026-11-22 last="2026-11-22 06:00" started="2026-11-22 06:00" first_cpu=1 last_cpu=3 first_domain=1 last_domain=3 first_sched=13 last_sched=49 first_msg=4 last_msg=6 first_file=7 last_file=9 first_resource=10 last_resource=12 first_cal=- last_cal=- first_st=- last_st=- cpus=3 scheds=12 msgs=3 files=3 resources=3 cals=0 flags=- flags2=-
  ---
  > #0 header RH version=1 cpu=MASTER master=MASTER master_domain=MAINDM records=51 run=412 day_start=600 job_fence=0 sched_date=2026-11-22 last="2026-11-22 06:00" started="2026-11-22 06:00" first_cpu=1 last_cpu=3 first_domain=1 last_domain=3 first_sched=13 last_sched=49 first_msg=4 last_msg=6 first_file=7 last_file=9 first_resource=10 last_resource=12 first_cal=- last_cal=- first_st=- last_st=- cpus=3 scheds=12 msgs=3 files=3 resources=3 cals=0 flags=- flags2=-
  $ almplan dump v2 --json | head -n 3
  {"rec":0,"kind":"header","code":"RH","version":1,"cpu":"MASTER","master":"MASTER","master_domain":"MAINDM","records":51,"run":412,"day_start":600,"job_fence":0,"sched_date":"2026-11-22","last":"2026-11-22 06:00","started":"2026-11-22 06:00","first_cpu":1,"last_cpu":3,"first_domain":1,"last_domain":3,"first_sched":13,"last_sched":49,"first_msg":4,"last_msg":6,"first_file":7,"last_file":9,"first_resource":10,"last_resource":12,"first_cal":null,"last_cal":null,"first_st":null,"last_st":null,"cpus":3,"scheds":12,"msgs":3,"files":3,"resources":3,"cals":0,"flags":[],"flags2":[]}
  {"rec":1,"kind":"workstation","code":"IC","cpu":"MASTER","host":"","node":"master.example.net","domain":"MAINDM","status":0,"rec_num":1,"prev":null,"next":2,"prev_domain":null,"next_domain":2,"first_sched":40,"started":"2026-11-22 06:00","flags":[]}
  {"rec":2,"kind":"workstation","code":"IC","cpu":"AGENT1","host":"MASTER","node":"agent1.example.net","domain":"MAINDM","status":0,"rec_num":2,"prev":1,"next":3,"prev_domain":1,"next_domain":3,"first_sched":13,"started":"2026-11-22 06:01","flags":[]}
  $ od -An -tx1 -w32 -N 1024 v2
   52 48 00 00 00 00 01 00 00 00 00 00 00 80 00 00 4d 41 53 54 45 52 20 20 20 20 20 20 20 20 20 20
   4d 41 53 54 45 52 20 20 20 20 20 20 20 20 20 20 0d 00 00 00 31 00 00 00 04 00 00 00 06 00 00 00
   33 00 00 00 07 00 00 00 09 00 00 00 0a 00 00 00 0c 00 00 00 00 80 00 00 00 80 00 00 01 00 00 00
   03 00 00 00 00 80 00 00 00 80 00 00 00 80 00 00 00 80 00 00 00 00 00 00 d0 76 02 6b d0 76 02 6b
   30 cb 02 6b 00 00 00 00 01 00 00 00 03 00 00 00 00 00 02 00 03 00 0c 00 24 00 00 00 9c 01 00 00
   58 02 00 00 03 00 00 00 03 00 00 00 03 00 00 00 14 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
   00 00 00 00 00 00 00 00 58 02 58 02 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20
   20 20 20 20 20 20 20 20 20 20 20 20 4d 41 49 4e 44 4d 20 20 20 20 20 20 20 20 20 20 00 00 01 00
   20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20
  *
   49 43 00 00 00 00 01 00 01 00 00 00 00 80 00 00 4d 41 53 54 45 52 20 20 20 20 20 20 20 20 20 20
   20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 28 00 00 00 00 00 00 00 30 cb 02 6b 00 00 00 00
   00 00 00 00 00 00 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20
   20 20 20 20 20 20 20 20 20 20 20 20 20 20 00 00 9c 01 00 00 00 00 6d 61 73 74 65 72 2e 65 78 61
   6d 70 6c 65 2e 6e 65 74 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20
   20 20 20 20 20 20 20 20 20 20 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 58 02 14 00 00 00
   00 00 00 00 00 80 00 00 02 00 00 00 00 80 00 00 02 00 00 00 00 00 00 00 00 00 00 00 55 4e 49 58
   00 00 00 00 00 00 20 20 20 20 20 20 20 20 00 00 00 00 00 00 00 00 20 20 20 20 20 20 20 20 20 20
   20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20
   20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 4d 41 49 4e 44 4d 20 20 20 20
   20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20
   20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 00 00
   00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
  *
  $ od -An -tx1 -w32 -N 512 v1
   52 48 4d 41 53 54 45 52 20 20 4d 41 53 54 45 52 20 20 00 00 0d 00 31 00 0c 00 04 00 06 00 03 00
   33 00 24 00 00 00 9c 01 00 00 00 00 00 00 58 02 07 00 09 00 03 00 0a 00 0c 00 03 00 00 00 00 00
   00 80 00 80 00 00 01 00 03 00 03 00 00 80 00 80 00 00 00 80 00 80 00 00 01 00 03 00 02 00 00 00
   00 00 00 00 00 00 00 00 00 00 58 02 02 29 35 01 02 29 35 01 02 29 35 01 00 00 00 00 58 02 14 00
   00 00 00 00 00 00 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20
   20 20 20 20 20 20 4d 41 49 4e 44 4d 20 20 00 00 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20
   20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20
   20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 00 00
   49 43 4d 41 53 54 45 52 20 20 20 20 20 20 20 20 20 20 00 00 28 00 00 00 00 00 00 00 20 20 20 20
   20 20 20 20 00 00 9c 01 00 00 00 00 00 00 00 00 6d 61 73 74 65 72 2e 65 78 61 6d 70 6c 65 2e 6e
   65 74 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20
   20 20 20 20 00 00 00 00 00 00 00 00 00 00 00 00 00 80 02 00 80 30 02 6b 00 00 00 00 58 02 14 00
   00 00 00 00 01 00 00 80 02 00 00 00 00 00 00 00 00 00 00 00 55 4e 49 58 00 00 00 00 00 00 20 20
   20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20
  *
   20 20 20 20 20 20 20 20 20 20 20 20 20 20 4d 41 49 4e 44 4d 20 20 20 20 20 20 20 20 20 20 00 00

The fields that set accepts, and a field set by name lands at its offset.

  $ almplan fields
  header alm_rec_type 0 2 1 signed plain
  header sh_status 2 2 1 signed plain
  header sh_filler5 4 2 1 signed plain
  header sh_rec_version 6 2 1 signed plain
  header sh_rec_num 8 4 1 unsigned plain
  header sh_cont_rec 12 4 1 unsigned recptr
  header sh_cpu_id 16 16 1 text plain
  header sh_mast_cpu 32 16 1 text plain
  header sh_first_sched 48 4 1 unsigned recptr
  header sh_last_sched 52 4 1 unsigned recptr
  header sh_first_msg 56 4 1 unsigned recptr
  header sh_last_msg 60 4 1 unsigned recptr
  header sh_num_recs 64 4 1 unsigned plain
  header sh_first_file 68 4 1 unsigned recptr
  header sh_last_file 72 4 1 unsigned recptr
  header sh_first_resource 76 4 1 unsigned recptr
  header sh_last_resource 80 4 1 unsigned recptr
  header sh_first_cal 84 4 1 unsigned recptr
  header sh_last_cal 88 4 1 unsigned recptr
  header sh_first_cpu 92 4 1 unsigned recptr
  header sh_last_cpu 96 4 1 unsigned recptr
  header sh_first_st 100 4 1 unsigned recptr
  header sh_last_st 104 4 1 unsigned recptr
  header sh_first_super 108 4 1 unsigned recptr
  header sh_last_super 112 4 1 unsigned recptr
  header sh_console 116 4 1 signed plain
  header sh_last_date 120 4 1 signed plain
  header sh_sched_date 124 4 1 signed plain
  header sh_date_started 128 4 1 signed plain
  header sh_elapse_time 132 4 1 signed plain
  header sh_first_domain 136 4 1 unsigned recptr
  header sh_last_domain 140 4 1 unsigned recptr
  header sh_flags 144 2 1 unsigned plain
  header sh_num_domains 146 2 1 signed plain
  header sh_num_msgs 148 2 1 signed plain
  header sh_num_scheds 150 2 1 signed plain
  header sh_num_depends 152 2 1 signed plain
  header sh_version 154 2 1 signed plain
  header sh_run_number 156 2 1 signed plain
  header sh_cons_level 158 2 1 signed plain
  header sh_day_start 160 2 1 signed plain
  header sh_num_sts 162 2 1 signed plain
  header sh_num_cpus 164 2 1 signed plain
  header sh_num_cals 166 2 1 signed plain
  header sh_num_resources 168 2 1 signed plain
  header sh_num_userjobs 170 2 1 signed plain
  header sh_num_files 172 2 1 signed plain
  header sh_num_super 174 2 1 signed plain
  header sh_cpu_limit 176 2 1 signed plain
  header sh_job_fence 178 2 1 signed plain
  header sh_filler2 180 2 1 signed plain
  header sh_filler1 182 2 8 signed plain
  header sh_audit_level 198 2 1 signed plain
  header sh_last_time 200 2 1 signed plain
  header sh_time_started 202 2 1 signed plain
  header sh_cons_session 204 32 1 text plain
  header sh_mast_domain 236 16 1 text plain
  header sh_flags2 252 2 1 unsigned plain
  header sh_alm_version 254 2 1 signed plain
  header sh_filler3 256 256 1 text plain
  workstation alm_rec_type 0 2 1 signed plain
  workstation sci_status 2 2 1 signed plain
  workstation sci_filler6 4 2 1 signed plain
  workstation sci_rec_version 6 2 1 signed plain
  workstation sci_rec_num 8 4 1 unsigned plain
  workstation sci_cont_rec 12 4 1 unsigned recptr
  workstation sci_cpu_id 16 16 1 text plain
  workstation sci_host_cpu 32 16 1 text plain
  workstation sci_first_sched 48 4 1 unsigned recptr
  workstation sci_console 52 4 1 signed plain
  workstation sci_date_started 56 4 1 signed plain
  workstation sci_elapse_time 60 4 1 signed plain
  workstation sci_marshal_flags 64 2 1 unsigned plain
  workstation sci_mpe_fence 66 2 1 signed plain
  workstation sci_mpe_limit 68 2 1 signed plain
  workstation sci_access_method 70 40 1 text plain
  workstation sci_filler2 110 2 1 signed plain
  workstation sci_run_number 112 2 1 signed plain
  workstation sci_cons_level 114 2 1 signed plain
  workstation sci_filler3 116 2 1 signed plain
  workstation sci_node_name 118 52 1 text plain
  workstation sci_filler4 170 2 8 signed plain
  workstation sci_time_started 186 2 1 signed plain
  workstation sci_cpu_limit 188 2 1 signed plain
  workstation sci_job_fence 190 2 1 signed plain
  workstation sci_requested 192 2 1 signed plain
  workstation sci_flags 194 2 1 unsigned plain
  workstation sci_prev_cpu_ptr 196 4 1 unsigned recptr
  workstation sci_next_cpu_ptr 200 4 1 unsigned recptr
  workstation sci_prev_domain_ptr 204 4 1 unsigned recptr
  workstation sci_next_domain_ptr 208 4 1 unsigned recptr
  workstation sci_dblnk_recnum 212 4 1 signed plain
  workstation sci_node_addr 216 4 1 signed plain
  workstation sci_cpu_type 220 4 1 text plain
  workstation sci_link_type 224 2 1 signed plain
  workstation sci_server 226 2 1 signed plain
  workstation sci_node_type 228 2 1 signed plain
  workstation sci_kestrel_version 230 8 1 text plain
  workstation sci_filler7 238 2 4 signed plain
  workstation sci_user_info 246 64 1 text plain
  workstation sci_domain_name 310 16 1 text plain
  workstation sci_domain_parent 326 16 1 text plain
  workstation sci_timezone_id 342 40 1 text plain
  workstation sci_filler5 382 2 65 signed plain
  schedule alm_rec_type 0 2 1 signed plain
  schedule ss_status 2 2 1 signed plain
  schedule ss_filler1 4 2 1 signed plain
  schedule ss_rec_version 6 2 1 signed plain
  schedule ss_rec_num 8 4 1 unsigned plain
  schedule ss_cont_rec 12 4 1 unsigned recptr
  schedule ss_cpu_id 16 16 1 text plain
  schedule ss_sched_name 32 16 1 text plain
  schedule ss_num_recs 48 2 1 signed plain
  schedule ss_num_jobs 50 2 1 signed plain
  schedule ss_num_succ 52 2 1 signed plain
  schedule ss_orig_sched 54 16 1 text plain
  schedule ss_sched_pri.priority 70 1 1 unsigned plain
  schedule ss_sched_pri.orig_pri 71 1 1 unsigned plain
  schedule ss_spare_word12 72 2 1 signed plain
  schedule ss_calc_num 74 2 1 signed plain
  schedule ss_num_notrun 76 2 1 signed plain
  schedule ss_num_exec 78 2 1 signed plain
  schedule ss_num_abend 80 2 1 signed plain
  schedule ss_num_failed 82 2 1 signed plain
  schedule ss_until_time 84 2 1 signed plain
  schedule ss_filler6 86 2 1 signed plain
  schedule ss_cpu_time 88 4 1 signed plain
  schedule ss_until_date 92 4 1 signed plain
  schedule ss_first_job 96 4 1 unsigned recptr
  schedule ss_last_job 100 4 1 unsigned recptr
  schedule ss_prev_sch_ptr 104 4 1 unsigned recptr
  schedule ss_next_sch_ptr 108 4 1 unsigned recptr
  schedule ss_job_number 112 4 1 signed plain
  schedule ss_dependencies 116 4 40 unsigned plain
  schedule ss_limit 276 2 1 signed plain
  schedule ss_cpuclass_id 278 16 1 text plain
  schedule ss_spare_word15 294 2 1 signed plain
  schedule ss_num_skel 296 2 1 signed plain
  schedule ss_filler2 298 2 7 signed plain
  schedule ss_flags 312 2 1 unsigned plain
  schedule ss_filler3 314 2 1 signed plain
  schedule ss_re_flags 316 2 1 signed plain
  schedule ss_filler4 318 2 1 signed plain
  schedule ss_restart_ptr 320 2 1 signed plain
  schedule ss_restart_from 322 2 1 signed plain
  schedule ss_prod_date 324 4 1 signed plain
  schedule ss_sched_date 328 4 1 signed plain
  schedule ss_date_started 332 4 1 signed plain
  schedule ss_elapse_time 336 4 1 signed plain
  schedule ss_est_elapse 340 4 1 signed plain
  schedule ss_num_depends 344 2 1 signed plain
  schedule ss_start_time 346 2 1 signed plain
  schedule ss_time_started 348 2 1 signed plain
  schedule ss_depend_flags 350 1 40 unsigned plain
  schedule ss_filler5 390 2 61 signed plain
  job alm_rec_type 0 2 1 signed plain
  job sj_status 2 2 1 signed plain
  job sj_filler2 4 2 1 signed plain
  job sj_rec_version 6 2 1 signed plain
  job sj_rec_num 8 4 1 unsigned plain
  job sj_cont_rec 12 4 1 unsigned recptr
  job sj_cpu_id 16 16 1 text plain
  job sj_job_name 32 40 1 text plain
  job sj_job_pri.priority 72 1 1 unsigned plain
  job sj_job_pri.orig_pri 73 1 1 unsigned plain
  job sj_schedule 74 16 1 text plain
  job sj_job_user 90 48 1 text plain
  job sj_job_acct 138 8 1 text plain
  job sj_job_group 146 8 1 text plain
  job sj_every_hhmm 154 2 1 signed plain
  job sj_until_time 156 2 1 signed plain
  job sj_flags2 158 2 1 unsigned plain
  job sj_flags 160 2 1 unsigned plain
  job sj_re_flags 162 2 1 unsigned plain
  job sj_start_time 164 2 1 signed plain
  job sj_time_started 166 2 1 signed plain
  job sj_num_depends 168 2 1 signed plain
  job sj_filler3 170 2 1 signed plain
  job real_name 172 40 1 text plain
  job jcl_file 172 24 1 text alias
  job jcl_filler 172 32 1 text alias
  job jcl_loc.st_offset 204 4 1 unsigned alias
  job jcl_loc.st_rec_num 208 4 1 unsigned alias
  job sj_sched_ptr 212 4 1 unsigned recptr
  job sj_prev_job_ptr 216 4 1 unsigned recptr
  job sj_next_job_ptr 220 4 1 unsigned recptr
  job sj_re_job_ptr 224 4 1 unsigned recptr
  job sj_re_prmpt_ptr 228 4 1 unsigned recptr
  job sj_restart_ptr 232 4 1 unsigned recptr
  job sj_rec_ptrs 236 4 1 unsigned recptr
  job current_job 236 4 1 unsigned alias
  job head_job 236 4 1 unsigned alias
  job sj_until_date 240 4 1 signed plain
  job sj_sched_date 244 4 1 signed plain
  job sj_date_started 248 4 1 signed plain
  job sj_elapse_time 252 4 1 signed plain
  job sj_est_elapse 256 4 1 signed plain
  job sj_cpu_time 260 4 1 signed plain
  job sj_job_number 264 4 1 signed plain
  job sj_depend_flags 268 1 40 unsigned plain
  job sj_dependencies 308 4 40 unsigned plain
  job sj_re_for_cpu 268 16 1 text alias
  job sj_re_for_job 284 40 1 text alias
  job xkes_id 268 64 1 text alias
  job sj_filler1 468 2 22 signed plain
  prompt alm_rec_type 0 2 1 signed plain
  prompt sm_status 2 2 1 signed plain
  prompt sm_filler3 4 2 1 signed plain
  prompt sm_rec_version 6 2 1 signed plain
  prompt sm_rec_num 8 4 1 unsigned plain
  prompt sm_cont_rec 12 4 1 unsigned recptr
  prompt sm_cpu_id 16 16 1 text plain
  prompt sm_msg_name 32 8 1 text plain
  prompt sm_prev_msg 40 4 1 unsigned recptr
  prompt sm_next_msg 44 4 1 unsigned recptr
  prompt sm_job_ptr 48 4 1 unsigned recptr
  prompt sm_date_asked 52 4 1 signed plain
  prompt sm_date_resp 56 4 1 signed plain
  prompt sm_msg_no 60 2 1 signed plain
  prompt sm_msg_flags 62 2 1 signed plain
  prompt sm_time_asked 64 2 1 signed plain
  prompt sm_time_resp 66 2 1 signed plain
  prompt sm_filler1 68 2 5 signed plain
  prompt sm_message 78 80 1 text plain
  prompt sm_message_more 158 120 1 text plain
  prompt sm_filler2 278 2 117 signed plain
  file alm_rec_type 0 2 1 signed plain
  file sf_status 2 2 1 signed plain
  file sf_filler6 4 2 1 signed plain
  file sf_rec_version 6 2 1 signed plain
  file sf_rec_num 8 4 1 unsigned plain
  file sf_cont_rec 12 4 1 unsigned recptr
  file sf_cpu_id 16 16 1 text plain
  file sf_prev_file 32 4 1 unsigned recptr
  file sf_next_file 36 4 1 unsigned recptr
  file sf_filler1 40 8 1 text plain
  file sf_file_name 48 28 1 text plain
  file sf_filler2 76 48 1 text plain
  file sf_filler3 124 2 6 signed plain
  file sf_timer 136 4 1 signed plain
  file sf_lasttime 136 4 1 signed alias
  file timer1 136 2 1 signed alias
  file timer2 138 2 1 signed alias
  file sf_filler4 140 2 8 signed plain
  file sf_feq_len 156 2 1 signed plain
  file sf_feq 158 120 1 text plain
  file sf_filler5 278 2 117 signed plain
  resource alm_rec_type 0 2 1 signed plain
  resource sr_status 2 2 1 signed plain
  resource sr_filler4 4 2 1 signed plain
  resource sr_rec_version 6 2 1 signed plain
  resource sr_rec_num 8 4 1 unsigned plain
  resource sr_cont_rec 12 4 1 unsigned recptr
  resource sr_cpu_id 16 16 1 text plain
  resource sr_resource_name 32 8 1 text plain
  resource sr_prev_resource 40 4 1 unsigned recptr
  resource sr_next_resource 44 4 1 unsigned recptr
  resource sr_num_avail 48 4 1 signed plain
  resource sr_num_used 52 4 1 signed plain
  resource sr_num_unused 56 4 1 signed plain
  resource sr_num_holders 60 4 1 signed plain
  resource sr_filler1 64 2 16 signed plain
  resource sr_holders 96 4 32 unsigned plain
  resource sr_filler2 224 2 2 signed plain
  resource sr_hold_counts 228 2 32 signed plain
  resource sr_filler3 292 2 110 signed plain
  calendar alm_rec_type 0 2 1 signed plain
  calendar sc_filler1 2 2 1 signed plain
  calendar sc_filler3 4 2 1 signed plain
  calendar sc_rec_version 6 2 1 signed plain
  calendar sc_cal_name 8 8 1 text plain
  calendar sc_num_dates 16 4 1 signed plain
  calendar sc_cont_rec 20 4 1 unsigned recptr
  calendar sc_cont_from 24 4 1 unsigned recptr
  calendar sc_prev_cal 28 4 1 unsigned recptr
  calendar sc_next_cal 32 4 1 unsigned recptr
  calendar sc_cal_dates 36 4 118 signed plain
  calendar sc_filler2 508 2 2 signed plain
  string alm_rec_type 0 2 1 signed plain
  string st_filler1 2 2 1 signed plain
  string st_filler2 4 2 1 signed plain
  string st_rec_version 6 2 1 signed plain
  string st_rec_num 8 4 1 unsigned plain
  string st_next_ptr 12 4 1 unsigned recptr
  string st_First_Free 16 4 1 unsigned plain
  string st_strings 20 492 1 text plain
  string st_subrec_identifier 20 4 1 text alias
  string prev_ptr 24 4 1 unsigned alias
  string buffer1 28 120 1 text alias
  string buffer2 148 360 1 text alias
  string next_ptr 508 4 1 unsigned alias
  $ almplan fields job | head -n 5
  job alm_rec_type 0 2 1 signed plain
  job sj_status 2 2 1 signed plain
  job sj_filler2 4 2 1 signed plain
  job sj_rec_version 6 2 1 signed plain
  job sj_rec_num 8 4 1 unsigned plain
  $ printf 'workstation W\nschedule W S\n  set ss_limit 0x1234\n  set ss_depend_flags[39] 7\n  set ss_sched_date 2026-11-22 08:30\njob J\n  set sj_job_user "ab cd"\n  set sj_start_time 510\n' > f.txt
  $ almplan build f.txt f && od -An -tx1 -j 1024 f | head -n 16
   52 53 01 00 00 00 01 00 02 00 00 00 00 80 00 00
   57 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20
   53 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20
   02 00 01 00 00 00 53 20 20 20 20 20 20 20 20 20
   20 20 20 20 20 20 0a 0a 00 00 00 00 01 00 00 00
   00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
   03 00 00 00 03 00 00 00 00 80 00 00 00 80 00 00
   00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
  *
   00 00 00 00 34 12 20 20 20 20 20 20 20 20 20 20
   20 20 20 20 20 20 00 00 00 00 00 00 00 00 00 00
   00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
   00 00 00 00 00 00 00 00 58 ee 02 6b 00 00 00 00
   00 00 00 00 00 00 00 00 00 00 3e 03 00 00 00 00
   00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
  *
  $ printf 'format v1\nworkstation W\nschedule W S\n  set ss_limit 0x1234\n  set ss_sched_date 2026-11-22 08:30\njob J\n  set sj_start_time 510\n' > f1.txt
  $ almplan build f1.txt f1 && od -An -tx1 -j 512 f1
   52 53 57 20 20 20 20 20 20 20 53 20 20 20 20 20
   20 20 01 00 0a 0a 00 00 02 00 01 00 00 00 00 00
   00 00 00 00 53 20 20 20 20 20 20 20 00 00 01 00
   00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
   03 00 03 00 00 80 00 80 00 00 00 00 34 12 20 20
   20 20 20 20 20 20 00 00 00 00 00 00 00 00 00 00
   00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
   02 29 35 01 00 00 00 00 00 00 00 00 00 00 00 00
   3e 03 00 00 02 00 00 00 00 00 00 00 00 00 00 00
   00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
  *
   52 4a 57 20 20 20 20 20 20 20 4a 20 20 20 20 20
   20 20 01 00 0a 0a 00 00 20 20 20 20 20 20 20 20
   20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20
   53 20 20 20 20 20 20 20 00 00 00 00 00 00 00 00
   02 00 00 00 00 80 00 80 00 00 00 00 20 20 20 20
   20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20
   20 20 20 20 00 00 00 80 00 00 00 80 00 80 00 80
   00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
   fe 01 00 00 03 00 00 00 00 00 00 00 00 00 00 00
   00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
  *
  $ UNIDATESTRIP=0 almplan build f1.txt f0 && cmp f0 f1 | sed 's/byte [0-9]*, line [0-9]*/byte N/'
  f0 f1 differ: char 626, line 3
