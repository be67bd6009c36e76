Dependencies as a tree, as JSON and as a graph.

  $ almplan build $SRC/examples/sample.plan.txt Almanack
  $ almq deps
  AGENT1#LOADDATA  EXEC  start 2026-11-22 08:00  started 2026-11-22 08:00
    SD       MASTER#STARTDAY  SUCC
    job      GETORD  SUCC  start 2026-11-22 08:00  started 2026-11-22 08:01
      file     AGENT1#/data/in/orders.csv
    job      GETPAY  ABEND  started 2026-11-22 08:02
      file     AGENT1#/data/in/payments.csv
      restart  RETRYPAY  READY
      restart  NOTIFY  HOLD
    job      RETRYPAY  READY
      restart  NOTIFY  HOLD
    job      NOTIFY  HOLD
    job      MERGE  HOLD
      JD       AGENT1#LOADDATA.GETORD  SUCC
      JD       AGENT1#LOADDATA.GETPAY  ABEND
      resource MASTER#DBCONN  needs 1, 8 available, 2 in use
  
  AGENT1#BILLING  HOLD  start 2026-11-22 10:00
    SD       AGENT1#LOADDATA  EXEC
    job      INVOICE  HOLD  start 2026-11-22 10:00
      resource MASTER#DBCONN  needs 1, 8 available, 2 in use
    job      STATEMNT  HOLD
      JD       AGENT1#BILLING.INVOICE  HOLD
  
  AGENT1#PAYROLL  HOLD  start 2026-11-22 12:00
    prompt   PAYOK  "Payroll figures approved by finance?"
    job      CALCPAY  HOLD
      JD       AGENT1#LOADDATA.MERGE  HOLD
    job      PRINTPAY  HOLD
      JD       AGENT1#PAYROLL.CALCPAY  HOLD
      prompt   PAYOK (local)  "Payroll figures approved by finance?"
  
  AGENT1#BACKUP  HOLD  start 2026-11-22 21:30
    SD       MASTER#NIGHTLY  HOLD
    job      DUMPDB  HOLD
      resource AGENT1#TAPES  needs 1, 2 available, 0 in use
      prompt   TAPEOK  "Is the backup tape mounted in drive 2? Reply YES to continue."  asked 2026-11-22 21:40
    job      VERIFY  HOLD
      JD       AGENT1#BACKUP.DUMPDB  HOLD
  
  AGENT2#WEBSTATS  EXEC  start 2026-11-22 07:00  started 2026-11-22 07:00
    file     AGENT2#/var/log/web/access.log -s
    job      COLLECT  SUCC  start 2026-11-22 07:00  started 2026-11-22 07:00
    job      COMPUTE  EXEC  start 2026-11-22 07:05  started 2026-11-22 07:06
      JD       AGENT2#WEBSTATS.COLLECT  SUCC
      resource AGENT2#CPUSLOT  needs 2, 4 available, 0 in use
    job      PUBLISH  HOLD
      JD       AGENT2#WEBSTATS.COMPUTE  EXEC
  
  AGENT2#CLEANUP  HOLD  start 2026-11-22 22:00
    job      PURGETMP  HOLD
    job      ROTATE  HOLD
      JD       AGENT2#WEBSTATS.PUBLISH  HOLD
  
  AGENT2#ARCHIVE  HOLD  start 2026-11-22 23:00
    SD       AGENT2#CLEANUP  HOLD
    job      PACKLOGS  HOLD
      resource AGENT2#CPUSLOT  needs 1, 4 available, 0 in use
    job      SHIPLOGS  HOLD
      JD       AGENT2#ARCHIVE.PACKLOGS  HOLD
  
  AGENT2#MONTHEND  CANCL  start 2026-11-22 23:30
    job      LEDGER  CANCL
  
  MASTER#STARTDAY  SUCC  start 2026-11-22 06:00  started 2026-11-22 06:00
    job      OPENDAY  SUCC  start 2026-11-22 06:00  started 2026-11-22 06:00
    job      SYNCCAL  SUCC  started 2026-11-22 06:01
      JD       MASTER#STARTDAY.OPENDAY  SUCC
  
  MASTER#NIGHTLY  HOLD  start 2026-11-22 20:00
    SD       MASTER#STARTDAY  SUCC
    job      DBSTATS  HOLD
      resource MASTER#DBCONN  needs 3, 8 available, 2 in use
    job      REINDEX  HOLD
      JD       MASTER#NIGHTLY.DBSTATS  HOLD
  
  MASTER#REPORTS  HOLD  start 2026-11-22 16:00
    SD       AGENT1#BILLING  HOLD
    job      SALESRPT  HOLD
      JD       AGENT1#BILLING.STATEMNT  HOLD
    job      OPSRPT  FAIL  started 2026-11-22 16:10
      JD       AGENT2#WEBSTATS.PUBLISH  HOLD
  
  MASTER#ENDDAY  HOLD  start 2026-11-22 23:45
    SD       MASTER#REPORTS  HOLD
    SD       AGENT1#BACKUP  HOLD
    prompt   CLOSEOK  "Close the business day now?"  asked 2026-11-22 17:55  answered 2026-11-22 18:02
    job      CLOSEDAY  HOLD
      JD       AGENT2#ARCHIVE.SHIPLOGS  HOLD
  
  12 schedules, 26 jobs, 3 restart links, 36 dependencies
  $ almq deps AGENT1 LOADDATA
  AGENT1#LOADDATA  EXEC  start 2026-11-22 08:00  started 2026-11-22 08:00
    SD       MASTER#STARTDAY  SUCC
    job      GETORD  SUCC  start 2026-11-22 08:00  started 2026-11-22 08:01
      file     AGENT1#/data/in/orders.csv
    job      GETPAY  ABEND  started 2026-11-22 08:02
      file     AGENT1#/data/in/payments.csv
      restart  RETRYPAY  READY
      restart  NOTIFY  HOLD
    job      RETRYPAY  READY
      restart  NOTIFY  HOLD
    job      NOTIFY  HOLD
    job      MERGE  HOLD
      JD       AGENT1#LOADDATA.GETORD  SUCC
      JD       AGENT1#LOADDATA.GETPAY  ABEND
      resource MASTER#DBCONN  needs 1, 8 available, 2 in use
  
  1 schedule, 5 jobs, 3 restart links, 6 dependencies
  $ almq deps @ @ GETPAY
  AGENT1#LOADDATA  EXEC  start 2026-11-22 08:00  started 2026-11-22 08:00
    SD       MASTER#STARTDAY  SUCC
    job      GETPAY  ABEND  started 2026-11-22 08:02
      file     AGENT1#/data/in/payments.csv
      restart  RETRYPAY  READY
      restart  NOTIFY  HOLD
  
  AGENT1#BILLING  HOLD  start 2026-11-22 10:00
    SD       AGENT1#LOADDATA  EXEC
  
  AGENT1#PAYROLL  HOLD  start 2026-11-22 12:00
    prompt   PAYOK  "Payroll figures approved by finance?"
  
  AGENT1#BACKUP  HOLD  start 2026-11-22 21:30
    SD       MASTER#NIGHTLY  HOLD
  
  AGENT2#WEBSTATS  EXEC  start 2026-11-22 07:00  started 2026-11-22 07:00
    file     AGENT2#/var/log/web/access.log -s
  
  AGENT2#CLEANUP  HOLD  start 2026-11-22 22:00
  
  AGENT2#ARCHIVE  HOLD  start 2026-11-22 23:00
    SD       AGENT2#CLEANUP  HOLD
  
  AGENT2#MONTHEND  CANCL  start 2026-11-22 23:30
  
  MASTER#STARTDAY  SUCC  start 2026-11-22 06:00  started 2026-11-22 06:00
  
  MASTER#NIGHTLY  HOLD  start 2026-11-22 20:00
    SD       MASTER#STARTDAY  SUCC
  
  MASTER#REPORTS  HOLD  start 2026-11-22 16:00
    SD       AGENT1#BILLING  HOLD
  
  MASTER#ENDDAY  HOLD  start 2026-11-22 23:45
    SD       MASTER#REPORTS  HOLD
    SD       AGENT1#BACKUP  HOLD
    prompt   CLOSEOK  "Close the business day now?"  asked 2026-11-22 17:55  answered 2026-11-22 18:02
  
  12 schedules, 1 job, 2 restart links, 12 dependencies
  $ almq deps @ @ ""
  AGENT1#LOADDATA  EXEC  start 2026-11-22 08:00  started 2026-11-22 08:00
    SD       MASTER#STARTDAY  SUCC
    job      GETORD  SUCC  start 2026-11-22 08:00  started 2026-11-22 08:01
      file     AGENT1#/data/in/orders.csv
    job      GETPAY  ABEND  started 2026-11-22 08:02
      file     AGENT1#/data/in/payments.csv
      restart  RETRYPAY  READY
      restart  NOTIFY  HOLD
    job      RETRYPAY  READY
      restart  NOTIFY  HOLD
    job      NOTIFY  HOLD
    job      MERGE  HOLD
      JD       AGENT1#LOADDATA.GETORD  SUCC
      JD       AGENT1#LOADDATA.GETPAY  ABEND
      resource MASTER#DBCONN  needs 1, 8 available, 2 in use
  
  AGENT1#BILLING  HOLD  start 2026-11-22 10:00
    SD       AGENT1#LOADDATA  EXEC
    job      INVOICE  HOLD  start 2026-11-22 10:00
      resource MASTER#DBCONN  needs 1, 8 available, 2 in use
    job      STATEMNT  HOLD
      JD       AGENT1#BILLING.INVOICE  HOLD
  
  AGENT1#PAYROLL  HOLD  start 2026-11-22 12:00
    prompt   PAYOK  "Payroll figures approved by finance?"
    job      CALCPAY  HOLD
      JD       AGENT1#LOADDATA.MERGE  HOLD
    job      PRINTPAY  HOLD
      JD       AGENT1#PAYROLL.CALCPAY  HOLD
      prompt   PAYOK (local)  "Payroll figures approved by finance?"
  
  AGENT1#BACKUP  HOLD  start 2026-11-22 21:30
    SD       MASTER#NIGHTLY  HOLD
    job      DUMPDB  HOLD
      resource AGENT1#TAPES  needs 1, 2 available, 0 in use
      prompt   TAPEOK  "Is the backup tape mounted in drive 2? Reply YES to continue."  asked 2026-11-22 21:40
    job      VERIFY  HOLD
      JD       AGENT1#BACKUP.DUMPDB  HOLD
  
  AGENT2#WEBSTATS  EXEC  start 2026-11-22 07:00  started 2026-11-22 07:00
    file     AGENT2#/var/log/web/access.log -s
    job      COLLECT  SUCC  start 2026-11-22 07:00  started 2026-11-22 07:00
    job      COMPUTE  EXEC  start 2026-11-22 07:05  started 2026-11-22 07:06
      JD       AGENT2#WEBSTATS.COLLECT  SUCC
      resource AGENT2#CPUSLOT  needs 2, 4 available, 0 in use
    job      PUBLISH  HOLD
      JD       AGENT2#WEBSTATS.COMPUTE  EXEC
  
  AGENT2#CLEANUP  HOLD  start 2026-11-22 22:00
    job      PURGETMP  HOLD
    job      ROTATE  HOLD
      JD       AGENT2#WEBSTATS.PUBLISH  HOLD
  
  AGENT2#ARCHIVE  HOLD  start 2026-11-22 23:00
    SD       AGENT2#CLEANUP  HOLD
    job      PACKLOGS  HOLD
      resource AGENT2#CPUSLOT  needs 1, 4 available, 0 in use
    job      SHIPLOGS  HOLD
      JD       AGENT2#ARCHIVE.PACKLOGS  HOLD
  
  AGENT2#MONTHEND  CANCL  start 2026-11-22 23:30
    job      LEDGER  CANCL
  
  MASTER#STARTDAY  SUCC  start 2026-11-22 06:00  started 2026-11-22 06:00
    job      OPENDAY  SUCC  start 2026-11-22 06:00  started 2026-11-22 06:00
    job      SYNCCAL  SUCC  started 2026-11-22 06:01
      JD       MASTER#STARTDAY.OPENDAY  SUCC
  
  MASTER#NIGHTLY  HOLD  start 2026-11-22 20:00
    SD       MASTER#STARTDAY  SUCC
    job      DBSTATS  HOLD
      resource MASTER#DBCONN  needs 3, 8 available, 2 in use
    job      REINDEX  HOLD
      JD       MASTER#NIGHTLY.DBSTATS  HOLD
  
  MASTER#REPORTS  HOLD  start 2026-11-22 16:00
    SD       AGENT1#BILLING  HOLD
    job      SALESRPT  HOLD
      JD       AGENT1#BILLING.STATEMNT  HOLD
    job      OPSRPT  FAIL  started 2026-11-22 16:10
      JD       AGENT2#WEBSTATS.PUBLISH  HOLD
  
  MASTER#ENDDAY  HOLD  start 2026-11-22 23:45
    SD       MASTER#REPORTS  HOLD
    SD       AGENT1#BACKUP  HOLD
    prompt   CLOSEOK  "Close the business day now?"  asked 2026-11-22 17:55  answered 2026-11-22 18:02
    job      CLOSEDAY  HOLD
      JD       AGENT2#ARCHIVE.SHIPLOGS  HOLD
  
  12 schedules, 26 jobs, 3 restart links, 36 dependencies
  $ almq deps @ @ NOSUCHJOB
  almq: no job matches @ @ NOSUCHJOB
  [1]
  $ almq deps @ @ 'GET*'
  almq: no job matches @ @ GET* (the wildcard is @, not *)
  [1]
  $ almq deps NOSUCH
  almq: no schedule matches NOSUCH @ @
  [1]
  $ almq --dot deps
  digraph plan {
    rankdir=LR;
    node [fontsize=10];
    edge [fontsize=9];
    subgraph cluster_0 {
      label="AGENT1";
      subgraph cluster_1 {
        label="BACKUP";
        style=dashed;
        "AGENT1#BACKUP" [shape=box, style=bold, label="BACKUP\nHOLD"];
        "AGENT1#BACKUP.DUMPDB" [shape=box, style=rounded, label="DUMPDB\nHOLD"];
        "AGENT1#BACKUP.VERIFY" [shape=box, style=rounded, label="VERIFY\nHOLD"];
      }
      subgraph cluster_2 {
        label="BILLING";
        style=dashed;
        "AGENT1#BILLING" [shape=box, style=bold, label="BILLING\nHOLD"];
        "AGENT1#BILLING.INVOICE" [shape=box, style=rounded, label="INVOICE\nHOLD"];
        "AGENT1#BILLING.STATEMNT" [shape=box, style=rounded, label="STATEMNT\nHOLD"];
      }
      subgraph cluster_3 {
        label="LOADDATA";
        style=dashed;
        "AGENT1#LOADDATA" [shape=box, style=bold, label="LOADDATA\nEXEC"];
        "AGENT1#LOADDATA.GETORD" [shape=box, style=rounded, label="GETORD\nSUCC"];
        "AGENT1#LOADDATA.GETPAY" [shape=box, style=rounded, label="GETPAY\nABEND"];
        "AGENT1#LOADDATA.RETRYPAY" [shape=box, style=rounded, label="RETRYPAY\nREADY"];
        "AGENT1#LOADDATA.NOTIFY" [shape=box, style=rounded, label="NOTIFY\nHOLD"];
        "AGENT1#LOADDATA.MERGE" [shape=box, style=rounded, label="MERGE\nHOLD"];
      }
      subgraph cluster_4 {
        label="PAYROLL";
        style=dashed;
        "AGENT1#PAYROLL" [shape=box, style=bold, label="PAYROLL\nHOLD"];
        "AGENT1#PAYROLL.CALCPAY" [shape=box, style=rounded, label="CALCPAY\nHOLD"];
        "AGENT1#PAYROLL.PRINTPAY" [shape=box, style=rounded, label="PRINTPAY\nHOLD"];
      }
      "file AGENT1#/data/in/orders.csv" [shape=note, label="/data/in/orders.csv"];
      "file AGENT1#/data/in/payments.csv" [shape=note, label="/data/in/payments.csv"];
      "resource AGENT1#TAPES" [shape=cylinder, label="TAPES\n2 available, 0 in use"];
    }
    subgraph cluster_5 {
      label="AGENT2";
      subgraph cluster_6 {
        label="ARCHIVE";
        style=dashed;
        "AGENT2#ARCHIVE" [shape=box, style=bold, label="ARCHIVE\nHOLD"];
        "AGENT2#ARCHIVE.PACKLOGS" [shape=box, style=rounded, label="PACKLOGS\nHOLD"];
        "AGENT2#ARCHIVE.SHIPLOGS" [shape=box, style=rounded, label="SHIPLOGS\nHOLD"];
      }
      subgraph cluster_7 {
        label="CLEANUP";
        style=dashed;
        "AGENT2#CLEANUP" [shape=box, style=bold, label="CLEANUP\nHOLD"];
        "AGENT2#CLEANUP.PURGETMP" [shape=box, style=rounded, label="PURGETMP\nHOLD"];
        "AGENT2#CLEANUP.ROTATE" [shape=box, style=rounded, label="ROTATE\nHOLD"];
      }
      subgraph cluster_8 {
        label="MONTHEND";
        style=dashed;
        "AGENT2#MONTHEND" [shape=box, style=bold, label="MONTHEND\nCANCL"];
        "AGENT2#MONTHEND.LEDGER" [shape=box, style=rounded, label="LEDGER\nCANCL"];
      }
      subgraph cluster_9 {
        label="WEBSTATS";
        style=dashed;
        "AGENT2#WEBSTATS" [shape=box, style=bold, label="WEBSTATS\nEXEC"];
        "AGENT2#WEBSTATS.COLLECT" [shape=box, style=rounded, label="COLLECT\nSUCC"];
        "AGENT2#WEBSTATS.COMPUTE" [shape=box, style=rounded, label="COMPUTE\nEXEC"];
        "AGENT2#WEBSTATS.PUBLISH" [shape=box, style=rounded, label="PUBLISH\nHOLD"];
      }
      "file AGENT2#/var/log/web/access.log" [shape=note, label="/var/log/web/access.log"];
      "resource AGENT2#CPUSLOT" [shape=cylinder, label="CPUSLOT\n4 available, 0 in use"];
    }
    subgraph cluster_10 {
      label="MASTER";
      subgraph cluster_11 {
        label="ENDDAY";
        style=dashed;
        "MASTER#ENDDAY" [shape=box, style=bold, label="ENDDAY\nHOLD"];
        "MASTER#ENDDAY.CLOSEDAY" [shape=box, style=rounded, label="CLOSEDAY\nHOLD"];
      }
      subgraph cluster_12 {
        label="NIGHTLY";
        style=dashed;
        "MASTER#NIGHTLY" [shape=box, style=bold, label="NIGHTLY\nHOLD"];
        "MASTER#NIGHTLY.DBSTATS" [shape=box, style=rounded, label="DBSTATS\nHOLD"];
        "MASTER#NIGHTLY.REINDEX" [shape=box, style=rounded, label="REINDEX\nHOLD"];
      }
      subgraph cluster_13 {
        label="REPORTS";
        style=dashed;
        "MASTER#REPORTS" [shape=box, style=bold, label="REPORTS\nHOLD"];
        "MASTER#REPORTS.SALESRPT" [shape=box, style=rounded, label="SALESRPT\nHOLD"];
        "MASTER#REPORTS.OPSRPT" [shape=box, style=rounded, label="OPSRPT\nFAIL"];
      }
      subgraph cluster_14 {
        label="STARTDAY";
        style=dashed;
        "MASTER#STARTDAY" [shape=box, style=bold, label="STARTDAY\nSUCC"];
        "MASTER#STARTDAY.OPENDAY" [shape=box, style=rounded, label="OPENDAY\nSUCC"];
        "MASTER#STARTDAY.SYNCCAL" [shape=box, style=rounded, label="SYNCCAL\nSUCC"];
      }
      "resource MASTER#DBCONN" [shape=cylinder, label="DBCONN\n8 available, 2 in use"];
    }
    "prompt PAYOK" [shape=diamond, label="PAYOK\nPayroll figures approved by finance?"];
    "local prompt AGENT1#PAYROLL.PRINTPAY PAYOK" [shape=diamond, label="PAYOK\nPayroll figures approved by finance?"];
    "prompt TAPEOK" [shape=diamond, label="TAPEOK\nIs the backup tape mounted in drive 2..."];
    "prompt CLOSEOK" [shape=diamond, label="CLOSEOK\nClose the business day now?"];
    "MASTER#STARTDAY" -> "AGENT1#LOADDATA" [label="follows"];
    "file AGENT1#/data/in/orders.csv" -> "AGENT1#LOADDATA.GETORD" [label="opens"];
    "file AGENT1#/data/in/payments.csv" -> "AGENT1#LOADDATA.GETPAY" [label="opens"];
    "AGENT1#LOADDATA.GETPAY" -> "AGENT1#LOADDATA.RETRYPAY" [label="restart", style=dashed];
    "AGENT1#LOADDATA.RETRYPAY" -> "AGENT1#LOADDATA.NOTIFY" [label="restart", style=dashed];
    "AGENT1#LOADDATA.GETORD" -> "AGENT1#LOADDATA.MERGE" [label="follows"];
    "AGENT1#LOADDATA.GETPAY" -> "AGENT1#LOADDATA.MERGE" [label="follows"];
    "resource MASTER#DBCONN" -> "AGENT1#LOADDATA.MERGE" [label="needs 1"];
    "AGENT1#LOADDATA" -> "AGENT1#BILLING" [label="follows"];
    "resource MASTER#DBCONN" -> "AGENT1#BILLING.INVOICE" [label="needs 1"];
    "AGENT1#BILLING.INVOICE" -> "AGENT1#BILLING.STATEMNT" [label="follows"];
    "prompt PAYOK" -> "AGENT1#PAYROLL" [label="prompt"];
    "AGENT1#LOADDATA.MERGE" -> "AGENT1#PAYROLL.CALCPAY" [label="follows"];
    "AGENT1#PAYROLL.CALCPAY" -> "AGENT1#PAYROLL.PRINTPAY" [label="follows"];
    "local prompt AGENT1#PAYROLL.PRINTPAY PAYOK" -> "AGENT1#PAYROLL.PRINTPAY" [label="local prompt"];
    "MASTER#NIGHTLY" -> "AGENT1#BACKUP" [label="follows"];
    "resource AGENT1#TAPES" -> "AGENT1#BACKUP.DUMPDB" [label="needs 1"];
    "prompt TAPEOK" -> "AGENT1#BACKUP.DUMPDB" [label="prompt"];
    "AGENT1#BACKUP.DUMPDB" -> "AGENT1#BACKUP.VERIFY" [label="follows"];
    "file AGENT2#/var/log/web/access.log" -> "AGENT2#WEBSTATS" [label="opens"];
    "AGENT2#WEBSTATS.COLLECT" -> "AGENT2#WEBSTATS.COMPUTE" [label="follows"];
    "resource AGENT2#CPUSLOT" -> "AGENT2#WEBSTATS.COMPUTE" [label="needs 2"];
    "AGENT2#WEBSTATS.COMPUTE" -> "AGENT2#WEBSTATS.PUBLISH" [label="follows"];
    "AGENT2#WEBSTATS.PUBLISH" -> "AGENT2#CLEANUP.ROTATE" [label="follows"];
    "AGENT2#CLEANUP" -> "AGENT2#ARCHIVE" [label="follows"];
    "resource AGENT2#CPUSLOT" -> "AGENT2#ARCHIVE.PACKLOGS" [label="needs 1"];
    "AGENT2#ARCHIVE.PACKLOGS" -> "AGENT2#ARCHIVE.SHIPLOGS" [label="follows"];
    "MASTER#STARTDAY.OPENDAY" -> "MASTER#STARTDAY.SYNCCAL" [label="follows"];
    "MASTER#STARTDAY" -> "MASTER#NIGHTLY" [label="follows"];
    "resource MASTER#DBCONN" -> "MASTER#NIGHTLY.DBSTATS" [label="needs 3"];
    "MASTER#NIGHTLY.DBSTATS" -> "MASTER#NIGHTLY.REINDEX" [label="follows"];
    "AGENT1#BILLING" -> "MASTER#REPORTS" [label="follows"];
    "AGENT1#BILLING.STATEMNT" -> "MASTER#REPORTS.SALESRPT" [label="follows"];
    "AGENT2#WEBSTATS.PUBLISH" -> "MASTER#REPORTS.OPSRPT" [label="follows"];
    "MASTER#REPORTS" -> "MASTER#ENDDAY" [label="follows"];
    "AGENT1#BACKUP" -> "MASTER#ENDDAY" [label="follows"];
    "prompt CLOSEOK" -> "MASTER#ENDDAY" [label="prompt"];
    "AGENT2#ARCHIVE.SHIPLOGS" -> "MASTER#ENDDAY.CLOSEDAY" [label="follows"];
  }
  $ almq --dot deps AGENT1 LOADDATA
  digraph plan {
    rankdir=LR;
    node [fontsize=10];
    edge [fontsize=9];
    subgraph cluster_0 {
      label="AGENT1";
      subgraph cluster_1 {
        label="LOADDATA";
        style=dashed;
        "AGENT1#LOADDATA" [shape=box, style=bold, label="LOADDATA\nEXEC"];
        "AGENT1#LOADDATA.GETORD" [shape=box, style=rounded, label="GETORD\nSUCC"];
        "AGENT1#LOADDATA.GETPAY" [shape=box, style=rounded, label="GETPAY\nABEND"];
        "AGENT1#LOADDATA.RETRYPAY" [shape=box, style=rounded, label="RETRYPAY\nREADY"];
        "AGENT1#LOADDATA.NOTIFY" [shape=box, style=rounded, label="NOTIFY\nHOLD"];
        "AGENT1#LOADDATA.MERGE" [shape=box, style=rounded, label="MERGE\nHOLD"];
      }
      "file AGENT1#/data/in/orders.csv" [shape=note, label="/data/in/orders.csv"];
      "file AGENT1#/data/in/payments.csv" [shape=note, label="/data/in/payments.csv"];
    }
    subgraph cluster_2 {
      label="MASTER";
      subgraph cluster_3 {
        label="STARTDAY";
        style=dashed;
        "MASTER#STARTDAY" [shape=box, style=bold, label="STARTDAY\nSUCC"];
      }
      "resource MASTER#DBCONN" [shape=cylinder, label="DBCONN\n8 available, 2 in use"];
    }
    "MASTER#STARTDAY" -> "AGENT1#LOADDATA" [label="follows"];
    "file AGENT1#/data/in/orders.csv" -> "AGENT1#LOADDATA.GETORD" [label="opens"];
    "file AGENT1#/data/in/payments.csv" -> "AGENT1#LOADDATA.GETPAY" [label="opens"];
    "AGENT1#LOADDATA.GETPAY" -> "AGENT1#LOADDATA.RETRYPAY" [label="restart", style=dashed];
    "AGENT1#LOADDATA.RETRYPAY" -> "AGENT1#LOADDATA.NOTIFY" [label="restart", style=dashed];
    "AGENT1#LOADDATA.GETORD" -> "AGENT1#LOADDATA.MERGE" [label="follows"];
    "AGENT1#LOADDATA.GETPAY" -> "AGENT1#LOADDATA.MERGE" [label="follows"];
    "resource MASTER#DBCONN" -> "AGENT1#LOADDATA.MERGE" [label="needs 1"];
  }

The graph is one that dot draws, where dot is installed.

  $ if command -v dot > /dev/null; then almq --dot deps | dot -Tsvg | grep -c '<svg'; else echo 1; fi
  1

A synthetic plan with dependencies between its schedules.

  $ almplan synth --cpus 3 --scheds 4 --jobs 3 --deps synth
  $ almq --plan synth deps WS@ @ @ | tail -n 12
    job      J0000003  SUCC  start 2026-11-22 16:10  started 2026-11-22 16:13
      JD       WS000003#S0000003.J0000002  ABEND
  
  WS000003#S0000004  HOLD  start 2026-11-22 17:17
    prompt   P0000001  "Reply YES when input batch 1 is ready"
    job      J0000001  HOLD  start 2026-11-22 17:17
    job      J0000002  FAIL  start 2026-11-22 17:17  started 2026-11-22 17:19
      JD       WS000003#S0000004.J0000001  HOLD
    job      J0000003  SUCC  start 2026-11-22 17:17  started 2026-11-22 17:20
      JD       WS000003#S0000004.J0000002  FAIL
  
  12 schedules, 36 jobs, 0 restart links, 44 dependencies
  $ almq --plan synth --json deps | wc -l
  92
