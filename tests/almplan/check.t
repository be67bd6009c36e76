almplan check walks every chain of a plan and lists each problem it meets,
one per line, exit 1 when there is any. base.txt is a sound plan: record 1
is the workstation, 2 and 6 the schedules, 3 to 5 the jobs of the first.

  $ printf 'workstation W\nschedule W S\njob A\njob B\njob C\nschedule W T\n' > base.txt
  $ almplan build base.txt sound && almplan check sound && echo sound
  sound
  $ printf 'n=$1; shift; { cat base.txt; printf "%%s\\n" "$@"; } > $n.txt && almplan build $n.txt $n && almplan check $n\n' > damaged

Job chains: a loop, a link back that names another record, a record that
calls itself by another number, a job that names another schedule, a link
beyond the end or to the wrong kind of record, a wrong end and count.

  $ sh damaged loop 'job D' 'link sj_next_job_ptr job W T D'
  loop: the job chain of schedule 6 loops: record 7 comes again after record 7
  [1]
  $ sh damaged back 'schedule W U' 'job E' 'job F' 'link sj_prev_job_ptr job W S A'
  back: the job chain of schedule 7: record 9 points back to record 3, not to record 8
  [1]
  $ sh damaged self 'schedule W U' 'job E' 'set sj_rec_num 9'
  self: the job chain of schedule 7: record 8 calls itself record 9
  [1]
  $ sh damaged owner 'schedule W U' 'job E' 'set sj_sched_ptr 2'
  owner: job 8 points to schedule 2, not to its schedule 7
  [1]
  $ sh damaged beyond 'schedule W U' 'job E' 'set sj_next_job_ptr 99'
  beyond: the job chain of schedule 7: record 99 (after record 8) lies beyond the end of the file (9 records)
  [1]
  $ sh damaged kind 'schedule W U' 'job E' 'set sj_next_job_ptr 1'
  kind: the job chain of schedule 7: record 1 (after record 8) is a workstation record, not a job record
  [1]
  $ sh damaged ends 'schedule W U' 'set ss_num_jobs 7' 'set ss_last_job 3' 'job E' 'job F'
  ends: the job chain of schedule 7 ends at record 9, but the schedule says record 3
  ends: schedule 7 counts 7 jobs, its chain holds 2
  [1]

The header's chains: a schedule chain that loops is not counted as well; a
count or an end that does not fit the chain. A header that counts fewer
records than the file holds is sound: the file grows as it is written.

  $ sh damaged schedloop 'schedule W U' 'link ss_next_sch_ptr schedule W S'
  schedloop: the schedule chain loops: record 2 comes again after record 7
  [1]
  $ sh damaged counts header 'set sh_num_scheds 5' 'set sh_last_cpu 2' 'set sh_num_recs 9'
  counts: the header counts 9 records, the file holds 7
  counts: the workstation chain ends at record 1, but the header says record 2
  counts: the header counts 5 schedules, the chain holds 2
  [1]
  $ sh damaged fewer header 'set sh_num_recs 3' && echo sound
  sound

The same checks read a V1 plan's narrower records.

  $ { echo 'format v1'; cat base.txt; printf 'schedule W U\nset ss_num_jobs 3\njob E\nset sj_next_job_ptr 2\n'; } > v1.txt
  $ almplan build v1.txt v1 && almplan check v1
  v1: the job chain of schedule 7: record 2 (after record 8) is a schedule record, not a job record
  [1]

The file itself: empty, not a plan, cut short, of an unknown version.

  $ : > empty && almplan check empty
  empty: the file is empty
  [1]
  $ head -c 2000 /dev/zero | tr '\0' 'x' > noise && almplan check noise
  noise: record 0 is not a plan header: it is a record of unknown type 0x7878
  [1]
  $ head -c 1300 sound > cut && almplan check cut
  cut: the file size 1300 is not a whole number of 512-byte records
  cut: the header counts 7 records, the file holds 2
  cut: the schedule chain: record 2 (its first) lies beyond the end of the file (2 records)
  [1]
  $ head -c 100 sound > short && almplan check short
  short: the file is too short for a plan header (100 bytes)
  [1]
  $ sh damaged version header 'set sh_alm_version 7'
  version: the header is of an unknown format (version 7)
  [1]
