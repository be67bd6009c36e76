Listings of damaged plans straight from the server (almq would refuse
them): each ends cleanly with what could be read, the framing whole. The
frames: open the plan, then list workstations, schedules, jobs and
dependencies of every name.

  $ printf 'workstation W\nschedule W S\njob A\njob B\njob C\nschedule W T\njob D\ndep job W S A\n' > base.txt
  $ printf 'n=$1; shift; { cat base.txt; printf "%%s\\n" "$@"; } > $n.txt && almplan build $n.txt $n >/dev/null\n' > damaged
  $ printf 'perl $DATA/replies.pl 2,1,$HOME/$1 8,2,1,@ 5,3,1,@,@ 6,4,1,@,@,@ 7,5,1,@,@,@ | grep -v "^  "\n' > list
  $ printf 'perl $DATA/replies.pl 2,1,$HOME/$1 5,3,1,W,T 6,4,1,W,T,@ 7,5,1,W,U,@ 6,6,1,W,U,E | grep -v "^  "\n' > named
  $ sh damaged sound && sh list sound
  reply 1: 9 items of kind 0, size 20 + 17
  reply 2: 1 items of kind 512, size 20 + 512, md5 be8a49ca
  reply 3: 2 items of kind 512, size 20 + 1024, md5 1f3aec03
  reply 4: 4 items of kind 512, size 20 + 2048, md5 e8f28565
  reply 5: 7 items of kind 512, size 20 + 3584, md5 68d02c7d
  exit 0

A job chain that loops, that leads to a workstation record or beyond the
end of the file, a job that names a record that is not a schedule:

  $ sh damaged loop 'link sj_next_job_ptr job W T D' && sh list loop
  reply 1: 9 items of kind 0, size 20 + 17
  reply 2: 1 items of kind 512, size 20 + 512, md5 be8a49ca
  reply 3: 2 items of kind 512, size 20 + 1024, md5 1f3aec03
  reply 4: 6 items of kind 512, size 20 + 3072, md5 18897c1e
  reply 5: 17 items of kind 512, size 20 + 8704, md5 23588cf0
  exit 0
  $ sh damaged kind 'set sj_next_job_ptr 1' && sh list kind
  reply 1: 9 items of kind 0, size 20 + 17
  reply 2: 1 items of kind 512, size 20 + 512, md5 be8a49ca
  reply 3: 2 items of kind 512, size 20 + 1024, md5 1f3aec03
  reply 4: 4 items of kind 512, size 20 + 2048, md5 8bd27907
  reply 5: 7 items of kind 512, size 20 + 3584, md5 90bda143
  exit 0
  $ sh damaged beyond 'set sj_next_job_ptr 999' && sh list beyond
  reply 1: 9 items of kind 0, size 20 + 17
  reply 2: 1 items of kind 512, size 20 + 512, md5 be8a49ca
  reply 3: 2 items of kind 512, size 20 + 1024, md5 1f3aec03
  reply 4: 4 items of kind 512, size 20 + 2048, md5 7192d309
  reply 5: 7 items of kind 512, size 20 + 3584, md5 0fe285ad
  exit 0
  $ sh damaged owner 'set sj_sched_ptr 1' && sh list owner
  reply 1: 9 items of kind 0, size 20 + 17
  reply 2: 1 items of kind 512, size 20 + 512, md5 be8a49ca
  reply 3: 2 items of kind 512, size 20 + 1024, md5 1f3aec03
  reply 4: 4 items of kind 512, size 20 + 2048, md5 041b1e2f
  reply 5: 7 items of kind 512, size 20 + 3584, md5 4f3a58b3
  exit 0

A schedule chain that loops or leads elsewhere, a workstation chain that
leads to a schedule:

  $ sh damaged schedloop 'schedule W U' 'link ss_next_sch_ptr schedule W S' && sh list schedloop
  reply 1: 9 items of kind 0, size 20 + 17
  reply 2: 1 items of kind 512, size 20 + 512, md5 be8a49ca
  reply 3: 9 items of kind 512, size 20 + 4608, md5 b6c5496f
  reply 4: 5 items of kind 512, size 20 + 2560, md5 15dd2b13
  reply 5: 36 items of kind 512, size 20 + 18432, md5 7b1ce608
  exit 0
  $ sh damaged schedkind 'schedule W U' 'set ss_next_sch_ptr 1' && sh list schedkind
  reply 1: 9 items of kind 0, size 20 + 17
  reply 2: 1 items of kind 512, size 20 + 512, md5 be8a49ca
  reply 3: 3 items of kind 512, size 20 + 1536, md5 df63374b
  reply 4: 4 items of kind 512, size 20 + 2048, md5 e8f28565
  reply 5: 8 items of kind 512, size 20 + 4096, md5 9af01aa5
  exit 0
  $ sh damaged cpukind 'workstation V' 'set sci_next_cpu_ptr 2' && sh list cpukind
  reply 1: 9 items of kind 0, size 20 + 17
  reply 2: 9 items of kind 512, size 20 + 4608, md5 223cce06
  reply 3: 2 items of kind 512, size 20 + 1024, md5 cde02616
  reply 4: 4 items of kind 512, size 20 + 2048, md5 263be24b
  reply 5: 7 items of kind 512, size 20 + 3584, md5 f2892dbc
  exit 0

Searches by plain names, which the server looks up in a table of the
schedule chain when the chain is in order: on the sound plan, and on the
two damaged chains, which it must walk instead.

  $ sh named sound && sh named schedloop && sh named schedkind
  reply 1: 9 items of kind 0, size 20 + 17
  reply 3: 1 items of kind 512, size 20 + 512, md5 faa98082
  reply 4: 1 items of kind 512, size 20 + 512, md5 012c397d
  reply 5: 0 items of kind 512, size 20 + 0, md5 d41d8cd9
  reply 6: 0 items of kind 512, size 20 + 0, md5 d41d8cd9
  exit 0
  reply 1: 9 items of kind 0, size 20 + 17
  reply 3: 3 items of kind 512, size 20 + 1536, md5 e6ca4f63
  reply 4: 2 items of kind 512, size 20 + 1024, md5 855c3250
  reply 5: 3 items of kind 512, size 20 + 1536, md5 6160a37e
  reply 6: 0 items of kind 512, size 20 + 0, md5 d41d8cd9
  exit 0
  reply 1: 9 items of kind 0, size 20 + 17
  reply 3: 1 items of kind 512, size 20 + 512, md5 21bb6f71
  reply 4: 1 items of kind 512, size 20 + 512, md5 012c397d
  reply 5: 1 items of kind 512, size 20 + 512, md5 59c95e9a
  reply 6: 0 items of kind 512, size 20 + 0, md5 d41d8cd9
  exit 0

A V1 plan whose job chain loops:

  $ { echo 'format v1'; cat base.txt; echo 'link sj_next_job_ptr job W S B'; } > v1.txt && almplan build v1.txt v1 && sh list v1
  reply 1: 9 items of kind 0, size 20 + 17
  reply 2: 1 items of kind 512, size 20 + 512, md5 cbbe2c5e
  reply 3: 2 items of kind 512, size 20 + 1024, md5 87669cc3
  reply 4: 6 items of kind 512, size 20 + 3072, md5 dbd88760
  reply 5: 9 items of kind 512, size 20 + 4608, md5 23cde769
  exit 0
