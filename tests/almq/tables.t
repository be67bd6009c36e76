The tables almq prints for a person, on the sample plan, through the server.

  $ almplan build $SRC/examples/sample.plan.txt Almanack
  $ mkdir schedlog && cp Almanack schedlog/M2611210600 && cp Almanack schedlog/M2611220600
  $ almq info
  FIELD             VALUE
  plan              Almanack
  handle            1
  plan date         2026-11-22 (20261122)
  day start         06:00
  this workstation  MASTER
  master            MASTER
  job fence         0
  format            1 (512-byte records)
  $ almq cpus
  WORKSTATION  HOST    DOMAIN  TYPE  STATUS  LIMIT  FENCE  STARTED
  MASTER               MAINDM  UNIX  0          20      0  2026-11-22 06:00
  AGENT1       MASTER  MAINDM  UNIX  0          10      0  2026-11-22 06:01
  AGENT2       MASTER  EDGEDM  UNIX  0          10      0  2026-11-22 06:02
  3 workstations
  $ almq --wide cpus
  WORKSTATION  HOST    NODE                DOMAIN  PARENT  TYPE  STATUS  LIMIT  FENCE  RUN  STARTED           FLAGS
  MASTER               master.example.net  MAINDM          UNIX  0          20      0  412  2026-11-22 06:00  -
  AGENT1       MASTER  agent1.example.net  MAINDM  MAINDM  UNIX  0          10      0    0  2026-11-22 06:01  -
  AGENT2       MASTER  agent2.example.net  EDGEDM  MAINDM  UNIX  0          10      0    0  2026-11-22 06:02  -
  3 workstations
  $ almq cpus MASTER
  WORKSTATION  HOST  DOMAIN  TYPE  STATUS  LIMIT  FENCE  STARTED
  MASTER             MAINDM  UNIX  0          20      0  2026-11-22 06:00
  1 workstation
  $ almq scheds
  WORKSTATION  SCHEDULE  STATUS  START             JOBS  SUCC  ABEND  FAIL  DEPS
  AGENT1       LOADDATA  EXEC    2026-11-22 08:00     5     1      1     0     1
  AGENT1       BILLING   HOLD    2026-11-22 10:00     2     0      0     0     1
  AGENT1       PAYROLL   HOLD    2026-11-22 12:00     2     0      0     0     1
  AGENT1       BACKUP    HOLD    2026-11-22 21:30     2     0      0     0     1
  AGENT2       WEBSTATS  EXEC    2026-11-22 07:00     3     1      0     0     1
  AGENT2       CLEANUP   HOLD    2026-11-22 22:00     2     0      0     0     0
  AGENT2       ARCHIVE   HOLD    2026-11-22 23:00     2     0      0     0     1
  AGENT2       MONTHEND  CANCL   2026-11-22 23:30     1     0      0     0     0
  MASTER       STARTDAY  SUCC    2026-11-22 06:00     2     2      0     0     0
  MASTER       NIGHTLY   HOLD    2026-11-22 20:00     2     0      0     0     1
  MASTER       REPORTS   HOLD    2026-11-22 16:00     2     0      0     1     1
  MASTER       ENDDAY    HOLD    2026-11-22 23:45     1     0      0     0     3
  12 schedules
  $ almq --wide scheds AGENT@
  WORKSTATION  SCHEDULE  STATUS  PRI  START             UNTIL             STARTED           JOBS  SUCC  EXEC  ABEND  FAIL  DEPS  FLAGS
  AGENT1       LOADDATA  EXEC     10  2026-11-22 08:00  -                 2026-11-22 08:00     5     1     0      1     0     1  -
  AGENT1       BILLING   HOLD     10  2026-11-22 10:00  2026-11-22 23:00  -                    2     0     0      0     0     1  -
  AGENT1       PAYROLL   HOLD     10  2026-11-22 12:00  -                 -                    2     0     0      0     0     1  -
  AGENT1       BACKUP    HOLD     10  2026-11-22 21:30  -                 -                    2     0     0      0     0     1  -
  AGENT2       WEBSTATS  EXEC     10  2026-11-22 07:00  -                 2026-11-22 07:00     3     1     1      0     0     1  -
  AGENT2       CLEANUP   HOLD     10  2026-11-22 22:00  -                 -                    2     0     0      0     0     0  -
  AGENT2       ARCHIVE   HOLD     10  2026-11-22 23:00  -                 -                    2     0     0      0     0     1  -
  AGENT2       MONTHEND  CANCL    10  2026-11-22 23:30  -                 -                    1     0     0      0     0     0  -
  8 schedules
  $ almq jobs
  WORKSTATION  SCHEDULE  JOB       STATUS  START             STARTED
  AGENT1       LOADDATA  GETORD    SUCC    2026-11-22 08:00  2026-11-22 08:01
  AGENT1       LOADDATA  GETPAY    ABEND   -                 2026-11-22 08:02
  AGENT1       LOADDATA  RETRYPAY  READY   -                 -
  AGENT1       LOADDATA  NOTIFY    HOLD    -                 -
  AGENT1       LOADDATA  MERGE     HOLD    -                 -
  AGENT1       BILLING   INVOICE   HOLD    2026-11-22 10:00  -
  AGENT1       BILLING   STATEMNT  HOLD    -                 -
  AGENT1       PAYROLL   CALCPAY   HOLD    -                 -
  AGENT1       PAYROLL   PRINTPAY  HOLD    -                 -
  AGENT1       BACKUP    DUMPDB    HOLD    -                 -
  AGENT1       BACKUP    VERIFY    HOLD    -                 -
  AGENT2       WEBSTATS  COLLECT   SUCC    2026-11-22 07:00  2026-11-22 07:00
  AGENT2       WEBSTATS  COMPUTE   EXEC    2026-11-22 07:05  2026-11-22 07:06
  AGENT2       WEBSTATS  PUBLISH   HOLD    -                 -
  AGENT2       CLEANUP   PURGETMP  HOLD    -                 -
  AGENT2       CLEANUP   ROTATE    HOLD    -                 -
  AGENT2       ARCHIVE   PACKLOGS  HOLD    -                 -
  AGENT2       ARCHIVE   SHIPLOGS  HOLD    -                 -
  AGENT2       MONTHEND  LEDGER    CANCL   -                 -
  MASTER       STARTDAY  OPENDAY   SUCC    2026-11-22 06:00  2026-11-22 06:00
  MASTER       STARTDAY  SYNCCAL   SUCC    -                 2026-11-22 06:01
  MASTER       NIGHTLY   DBSTATS   HOLD    -                 -
  MASTER       NIGHTLY   REINDEX   HOLD    -                 -
  MASTER       REPORTS   SALESRPT  HOLD    -                 -
  MASTER       REPORTS   OPSRPT    FAIL    -                 2026-11-22 16:10
  MASTER       ENDDAY    CLOSEDAY  HOLD    -                 -
  26 jobs
  $ almq --wide jobs
  WORKSTATION  SCHEDULE  JOB       STATUS  PRI  USER     START             STARTED           ELAPSE  UNTIL             DEPS  FLAGS  SCRIPT
  AGENT1       LOADDATA  GETORD    SUCC     10  loader   2026-11-22 08:00  2026-11-22 08:01       0  -                    1  -      /opt/load/getord.sh
  AGENT1       LOADDATA  GETPAY    ABEND    10  loader   -                 2026-11-22 08:02       0  -                    1  -      /opt/load/getpay.sh
  AGENT1       LOADDATA  RETRYPAY  READY    10  loader   -                 -                      0  -                    0  -      /opt/load/retrypay.sh
  AGENT1       LOADDATA  NOTIFY    HOLD     10  loader   -                 -                      0  -                    0  -      /opt/load/notify.sh
  AGENT1       LOADDATA  MERGE     HOLD     10  loader   -                 -                      0  -                    3  -      /opt/load/merge.sh
  AGENT1       BILLING   INVOICE   HOLD     10  billing  2026-11-22 10:00  -                      0  2026-11-22 23:00     1  -      /opt/bill/invoice.sh
  AGENT1       BILLING   STATEMNT  HOLD     10  billing  -                 -                      0  -                    1  -      /opt/bill/statemnt.sh
  AGENT1       PAYROLL   CALCPAY   HOLD     10  payroll  -                 -                      0  -                    1  -      /opt/pay/calcpay.sh
  AGENT1       PAYROLL   PRINTPAY  HOLD     10  payroll  -                 -                      0  -                    2  -      /opt/pay/printpay.sh
  AGENT1       BACKUP    DUMPDB    HOLD     10  backup   -                 -                      0  -                    2  -      /opt/bkp/dumpdb.sh
  AGENT1       BACKUP    VERIFY    HOLD     10  backup   -                 -                      0  -                    1  -      /opt/bkp/verify.sh
  AGENT2       WEBSTATS  COLLECT   SUCC     10  webops   2026-11-22 07:00  2026-11-22 07:00       4  -                    0  -      /opt/web/collect.sh
  AGENT2       WEBSTATS  COMPUTE   EXEC     10  webops   2026-11-22 07:05  2026-11-22 07:06       0  -                    2  -      /opt/web/compute.sh
  AGENT2       WEBSTATS  PUBLISH   HOLD     10  webops   -                 -                      0  -                    1  -      /opt/web/publish.sh
  AGENT2       CLEANUP   PURGETMP  HOLD     10  ops      -                 -                      0  -                    0  -      /opt/ops/purgetmp.sh
  AGENT2       CLEANUP   ROTATE    HOLD     10  ops      -                 -                      0  -                    1  -      /opt/ops/rotate.sh
  AGENT2       ARCHIVE   PACKLOGS  HOLD     10  ops      -                 -                      0  -                    1  -      /opt/ops/packlogs.sh
  AGENT2       ARCHIVE   SHIPLOGS  HOLD     10  ops      -                 -                      0  -                    1  -      /opt/ops/shiplogs.sh
  AGENT2       MONTHEND  LEDGER    CANCL    10  finance  -                 -                      0  -                    0  -      /opt/fin/ledger.sh
  MASTER       STARTDAY  OPENDAY   SUCC     10  batch    2026-11-22 06:00  2026-11-22 06:00       1  -                    0  -      /opt/batch/openday.sh
  MASTER       STARTDAY  SYNCCAL   SUCC     10  batch    -                 2026-11-22 06:01       0  -                    1  -      /opt/batch/synccal.sh
  MASTER       NIGHTLY   DBSTATS   HOLD     10  dbadmin  -                 -                      0  -                    1  -      /opt/batch/dbstats.sh
  MASTER       NIGHTLY   REINDEX   HOLD     10  dbadmin  -                 -                      0  -                    1  -      /opt/batch/reindex.sh
  MASTER       REPORTS   SALESRPT  HOLD     10  reports  -                 -                      0  -                    1  -      /opt/rpt/sales.sh
  MASTER       REPORTS   OPSRPT    FAIL     10  reports  -                 2026-11-22 16:10       0  -                    1  -      /opt/rpt/ops.sh
  MASTER       ENDDAY    CLOSEDAY  HOLD     10  batch    -                 -                      0  -                    1  -      /opt/batch/closeday.sh
  26 jobs
  $ almq jobs AGENT1 LOADDATA
  WORKSTATION  SCHEDULE  JOB       STATUS  START             STARTED
  AGENT1       LOADDATA  GETORD    SUCC    2026-11-22 08:00  2026-11-22 08:01
  AGENT1       LOADDATA  GETPAY    ABEND   -                 2026-11-22 08:02
  AGENT1       LOADDATA  RETRYPAY  READY   -                 -
  AGENT1       LOADDATA  NOTIFY    HOLD    -                 -
  AGENT1       LOADDATA  MERGE     HOLD    -                 -
  5 jobs
  $ almq jobs AGENT1 "" ""
  WORKSTATION  SCHEDULE  JOB       STATUS  START             STARTED
  AGENT1       LOADDATA  GETORD    SUCC    2026-11-22 08:00  2026-11-22 08:01
  AGENT1       LOADDATA  GETPAY    ABEND   -                 2026-11-22 08:02
  AGENT1       LOADDATA  RETRYPAY  READY   -                 -
  AGENT1       LOADDATA  NOTIFY    HOLD    -                 -
  AGENT1       LOADDATA  MERGE     HOLD    -                 -
  AGENT1       BILLING   INVOICE   HOLD    2026-11-22 10:00  -
  AGENT1       BILLING   STATEMNT  HOLD    -                 -
  AGENT1       PAYROLL   CALCPAY   HOLD    -                 -
  AGENT1       PAYROLL   PRINTPAY  HOLD    -                 -
  AGENT1       BACKUP    DUMPDB    HOLD    -                 -
  AGENT1       BACKUP    VERIFY    HOLD    -                 -
  11 jobs
  $ almq jobs @ @ NOSUCHJOB
  almq: no job matches @ @ NOSUCHJOB
  [1]
  $ almq jobs @ @ 'PAY*'
  almq: no job matches @ @ PAY* (the wildcard is @, not *)
  [1]
  $ almq scheds NOSUCH
  almq: no schedule matches NOSUCH @
  [1]
  $ almq scheds MASTER NOSUCH
  almq: no schedule matches MASTER NOSUCH
  [1]
  $ almq jobs ZZZ NOSUCH @
  almq: no job matches ZZZ NOSUCH @
  [1]
  $ almq scheds AGENT2 WEBSTATS
  WORKSTATION  SCHEDULE  STATUS  START             JOBS  SUCC  ABEND  FAIL  DEPS
  AGENT2       WEBSTATS  EXEC    2026-11-22 07:00     3     1      0     0     1
  1 schedule
  $ almq scheds AGENT1 'P@'
  WORKSTATION  SCHEDULE  STATUS  START             JOBS  SUCC  ABEND  FAIL  DEPS
  AGENT1       PAYROLL   HOLD    2026-11-22 12:00     2     0      0     0     1
  1 schedule
  $ almq jobs AGENT2 '@E@' @
  WORKSTATION  SCHEDULE  JOB       STATUS  START             STARTED
  AGENT2       WEBSTATS  COLLECT   SUCC    2026-11-22 07:00  2026-11-22 07:00
  AGENT2       WEBSTATS  COMPUTE   EXEC    2026-11-22 07:05  2026-11-22 07:06
  AGENT2       WEBSTATS  PUBLISH   HOLD    -                 -
  AGENT2       CLEANUP   PURGETMP  HOLD    -                 -
  AGENT2       CLEANUP   ROTATE    HOLD    -                 -
  AGENT2       ARCHIVE   PACKLOGS  HOLD    -                 -
  AGENT2       ARCHIVE   SHIPLOGS  HOLD    -                 -
  AGENT2       MONTHEND  LEDGER    CANCL   -                 -
  8 jobs
  $ almq cpus -- --json
  almq: no workstation matches --json
  [1]
  $ almq --fields sj_job_name,sj_job_state jobs
  almq: no field named sj_job_state here (almq --json shows the names)
  [2]
  $ almq --fields cpu_name cpus
  almq: no field named cpu_name here (almq --json shows the names)
  [2]
  $ almq logs
  PLAN         PATH
  M2611220600  $HOME/schedlog/M2611220600
  M2611210600  $HOME/schedlog/M2611210600
  2 archived plans
  $ almq --plan schedlog/M2611210600 cpus MASTER
  WORKSTATION  HOST  DOMAIN  TYPE  STATUS  LIMIT  FENCE  STARTED
  MASTER             MAINDM  UNIX  0          20      0  2026-11-22 06:00
  1 workstation
  $ cd schedlog && almq --plan ./M2611210600 scheds
  WORKSTATION  SCHEDULE  STATUS  START             JOBS  SUCC  ABEND  FAIL  DEPS
  AGENT1       LOADDATA  EXEC    2026-11-22 08:00     5     1      1     0     1
  AGENT1       BILLING   HOLD    2026-11-22 10:00     2     0      0     0     1
  AGENT1       PAYROLL   HOLD    2026-11-22 12:00     2     0      0     0     1
  AGENT1       BACKUP    HOLD    2026-11-22 21:30     2     0      0     0     1
  AGENT2       WEBSTATS  EXEC    2026-11-22 07:00     3     1      0     0     1
  AGENT2       CLEANUP   HOLD    2026-11-22 22:00     2     0      0     0     0
  AGENT2       ARCHIVE   HOLD    2026-11-22 23:00     2     0      0     0     1
  AGENT2       MONTHEND  CANCL   2026-11-22 23:30     1     0      0     0     0
  MASTER       STARTDAY  SUCC    2026-11-22 06:00     2     2      0     0     0
  MASTER       NIGHTLY   HOLD    2026-11-22 20:00     2     0      0     0     1
  MASTER       REPORTS   HOLD    2026-11-22 16:00     2     0      0     1     1
  MASTER       ENDDAY    HOLD    2026-11-22 23:45     1     0      0     0     3
  12 schedules
  $ cd schedlog && almq --plan ../Almanack scheds AGENT1
  WORKSTATION  SCHEDULE  STATUS  START             JOBS  SUCC  ABEND  FAIL  DEPS
  AGENT1       LOADDATA  EXEC    2026-11-22 08:00     5     1      1     0     1
  AGENT1       BILLING   HOLD    2026-11-22 10:00     2     0      0     0     1
  AGENT1       PAYROLL   HOLD    2026-11-22 12:00     2     0      0     0     1
  AGENT1       BACKUP    HOLD    2026-11-22 21:30     2     0      0     0     1
  4 schedules
  $ almq --plan M2611210600 scheds
  almq: cannot open plan M2611210600: The plan file $HOME/M2611210600 does not exist (No such file or directory). [QFR20720035]
  [3]
  $ almq --plan $HOME/schedlog/M2611220600 info
  FIELD             VALUE
  plan              $HOME/schedlog/M2611220600
  handle            1
  plan date         2026-11-22 (20261122)
  day start         06:00
  this workstation  MASTER
  master            MASTER
  job fence         0
  format            1 (512-byte records)

The older format reads the same.

  $ almplan build --v1 $SRC/examples/sample.plan.txt old
  $ almq --plan old jobs > v1.txt; almq jobs > v2.txt; cmp v1.txt v2.txt && echo same
  same
  $ almq --plan old deps > v1.txt; almq deps > v2.txt; cmp v1.txt v2.txt && echo same
  same

