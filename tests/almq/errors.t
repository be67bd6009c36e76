Errors in words: the system's text, the path tidied, the code at the end.

  $ almplan build $SRC/examples/sample.plan.txt Almanack
  $ almq --plan plans/missing info
  almq: cannot open plan plans/missing: The plan file $HOME/plans/missing does not exist (No such file or directory). [QFR20720035]
  [3]
  $ almq --plan ./plans/./missing cpus
  almq: cannot open plan ./plans/./missing: The plan file $HOME/plans/missing does not exist (No such file or directory). [QFR20720035]
  [3]
  $ almq --plan ./plans/missing deps
  almq: cannot open plan ./plans/missing: The plan file $HOME/plans/missing does not exist (No such file or directory). [QFR20720035]
  [3]
  $ almq --server /nonexistent info
  almq: /nonexistent: cannot start: No such file or directory
  [3]
  $ almq --server /dev/null ping
  almq: /dev/null: cannot start: Permission denied
  [3]
  $ almq --server /bin/true info
  almq: /bin/true: no greeting: the server ended with exit status 0
  [3]
  $ almq --server /bin/false logs
  almq: /bin/false: no greeting: the server ended with exit status 1
  [3]
  $ almq --server /bin/echo info
  almq: /bin/echo: no greeting: the server ended with exit status 0
  [3]
  $ almq --server bin/almread info | head -n 1
  FIELD             VALUE
  $ almq --server bin/nothere info
  almq: $HOME/bin/nothere: cannot start: No such file or directory
  [3]
  $ printf '#!/bin/sh\nprintf "AlmRead Lives"\nexec sleep 30\n' > stall && chmod +x stall
  $ almq --server ./stall --timeout 1 info
  almq: $HOME/stall: no reply: no answer within 1 s
  [3]

Lines the server writes on its standard error come marked as its own.

  $ mv catalog nocatalog
  $ almq --plan missing info 2>&1 | sed 's/catopen on .*/catopen on .../'
  almread: catopen on ...
  almread: catopen on ...
  almq: cannot open plan missing: NO MSG: $HOME/missing,2,0,0,0 open failed 2 [QFR20720035]
  $ mv nocatalog catalog
  $ mv catalog/C/kestrel.cat k.cat && mkdir catalog/C/kestrel.cat
  $ almq --plan missing info 2>&1 | sed 's/catopen on .*/catopen on .../'
  almread: catopen on ...
  almq: cannot open plan missing: NO MSG: $HOME/missing,2,0,0,0 open failed 2 [QFR20720035]
  $ rmdir catalog/C/kestrel.cat && mv k.cat catalog/C/kestrel.cat

A reply that breaks off: no table at all; JSON lines each whole.

  $ almplan synth --cpus 3 --scheds 10 --jobs 10 big
  $ mkfifo cut.out
  $ printf '#!/bin/sh\nexec 3<&0\n%s/bin/almread <&3 3<&- >cut.out &\ndd bs=1 count=100000 status=none <cut.out\nkill $!\n' "$HOME" > cut && chmod +x cut
  $ almq --server ./cut --plan big jobs | wc -c
  almq: $HOME/cut: no reply: the server ended with exit status 0
  0
  $ almq --server ./cut --plan big --json jobs > part; almq --plan big --json jobs > whole
  almq: $HOME/cut: no reply: the server ended with exit status 0
  $ cmp part whole 2>&1 | sed 's/byte [0-9]*, line [0-9]*/byte N/'
  cmp: EOF on part after byte N
  $ tail -c 1 part | od -An -c
    \n

Damaged plans are refused before anything is listed; sound ones pass.

  $ almplan build --v1 $SRC/examples/sample.plan.txt good1
  $ almq --plan good1 jobs > /dev/null && echo ok
  ok
  $ : > empty && almq --plan empty jobs
  almq: plan $HOME/empty is damaged: the file is empty (almplan check lists every problem)
  [3]
  $ head -c 26000 /dev/zero | tr '\0' 'x' > noise && almq --plan noise jobs
  almq: plan $HOME/noise is damaged: record 0 is not a plan header: it is a record of unknown type 0x7878 (almplan check lists every problem)
  [3]
  $ head -c 10000 Almanack > truncated && almq --plan truncated jobs
  almq: plan $HOME/truncated is damaged: the schedule chain: record 19 (after record 13) lies beyond the end of the file (19 records) (almplan check lists every problem)
  [3]
  $ printf 'workstation W\nschedule W S\njob A\njob B\njob C\nlink sj_next_job_ptr job W S A\n' > loop.txt
  $ almplan build loop.txt loop && almq --plan loop jobs
  almq: plan $HOME/loop is damaged: the job chain of schedule 2 loops: record 3 comes again after record 5 (almplan check lists every problem)
  [3]
  $ printf 'format v1\nworkstation W\nschedule W S\njob A\njob B\njob C\nlink sj_next_job_ptr job W S B\n' > loop1.txt
  $ almplan build loop1.txt loop1 && almq --plan loop1 jobs
  almq: plan $HOME/loop1 is damaged: the job chain of schedule 2 loops: record 4 comes again after record 5 (almplan check lists every problem)
  [3]
  $ printf 'workstation W\nschedule W S\njob A\njob B\njob C\nlink sj_prev_job_ptr job W S A\n' > back.txt
  $ almplan build back.txt back && almq --plan back jobs
  almq: plan $HOME/back is damaged: the job chain of schedule 2: record 5 points back to record 3, not to record 4 (almplan check lists every problem)
  [3]
