Descriptions with errors: the message names the line and the problem, the
exit status is non-zero and nothing is written.

  $ printf 'workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\n  set sj_foo 1\n' > UnknownField.txt && almplan build UnknownField.txt UnknownField; s=$?; test -e UnknownField && echo written; exit $s
  almplan: UnknownField.txt:4: unknown field 'sj_foo'
  [1]
  $ printf 'workstation MASTER\n  set ss_limit 3\n' > FieldOfAnotherKind.txt && almplan build FieldOfAnotherKind.txt FieldOfAnotherKind; s=$?; test -e FieldOfAnotherKind && echo written; exit $s
  almplan: FieldOfAnotherKind.txt:2: field 'ss_limit' belongs to a schedule record, not to a workstation record
  [1]
  $ printf 'workstation MASTER\nfrobnicate\n' > UnknownKeyword.txt && almplan build UnknownKeyword.txt UnknownKeyword; s=$?; test -e UnknownKeyword && echo written; exit $s
  almplan: UnknownKeyword.txt:2: unknown keyword 'frobnicate'
  [1]
  $ printf 'workstation MASTER\njob EXTRACT\n' > JobBeforeSchedule.txt && almplan build JobBeforeSchedule.txt JobBeforeSchedule; s=$?; test -e JobBeforeSchedule && echo written; exit $s
  almplan: JobBeforeSchedule.txt:2: job 'EXTRACT' comes before any schedule
  [1]
  $ printf 'workstation MASTER\n\nworkstation MASTER\n' > DuplicateWorkstation.txt && almplan build DuplicateWorkstation.txt DuplicateWorkstation; s=$?; test -e DuplicateWorkstation && echo written; exit $s
  almplan: DuplicateWorkstation.txt:3: duplicate workstation 'MASTER' (first on line 1)
  [1]
  $ printf 'workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\njob EXTRACT\n' > DuplicateJob.txt && almplan build DuplicateJob.txt DuplicateJob; s=$?; test -e DuplicateJob && echo written; exit $s
  almplan: DuplicateJob.txt:4: duplicate job 'MASTER DAILY EXTRACT' (first on line 3)
  [1]
  $ printf 'workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\n  dep job MASTER DAILY NOPE\n' > UnknownJobTarget.txt && almplan build UnknownJobTarget.txt UnknownJobTarget; s=$?; test -e UnknownJobTarget && echo written; exit $s
  almplan: UnknownJobTarget.txt:4: no record for 'job MASTER DAILY NOPE'
  [1]
  $ printf 'workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\n  restart LOAD\n' > UnknownRestart.txt && almplan build UnknownRestart.txt UnknownRestart; s=$?; test -e UnknownRestart && echo written; exit $s
  almplan: UnknownRestart.txt:4: no record for 'job MASTER DAILY LOAD'
  [1]
  $ printf 'workstation MASTER\nschedule MASTER DAILY\n  dep prompt ASK\n' > UnknownPromptTarget.txt && almplan build UnknownPromptTarget.txt UnknownPromptTarget; s=$?; test -e UnknownPromptTarget && echo written; exit $s
  almplan: UnknownPromptTarget.txt:3: no record for 'prompt ASK'
  [1]
  $ printf 'workstation MASTER\n# comment\nschedule AGENT9 DAILY\n' > ScheduleOnUnknownWorkstation.txt && almplan build ScheduleOnUnknownWorkstation.txt ScheduleOnUnknownWorkstation; s=$?; test -e ScheduleOnUnknownWorkstation && echo written; exit $s
  almplan: ScheduleOnUnknownWorkstation.txt:3: unknown workstation 'AGENT9'
  [1]
  $ printf 'workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\n  set sj_status 70000\n' > ValueTooBig.txt && almplan build ValueTooBig.txt ValueTooBig; s=$?; test -e ValueTooBig && echo written; exit $s
  almplan: ValueTooBig.txt:4: value 70000 does not fit field 'sj_status' (2 bytes)
  [1]
  $ printf 'workstation MASTER\n  set sci_node_addr 12x\n' > BadNumber.txt && almplan build BadNumber.txt BadNumber; s=$?; test -e BadNumber && echo written; exit $s
  almplan: BadNumber.txt:2: bad number '12x' for field 'sci_node_addr'
  [1]
  $ printf 'workstation ABCDEFGHIJKLMNOPQ\n' > NameTooLongV2.txt && almplan build NameTooLongV2.txt NameTooLongV2; s=$?; test -e NameTooLongV2 && echo written; exit $s
  almplan: NameTooLongV2.txt:1: workstation name 'ABCDEFGHIJKLMNOPQ' is longer than 16 bytes
  [1]
  $ printf 'format v1\nworkstation MASTER\nschedule MASTER DAILY\njob EXTRACTED\n' > NameTooLongV1.txt && almplan build NameTooLongV1.txt NameTooLongV1; s=$?; test -e NameTooLongV1 && echo written; exit $s
  almplan: NameTooLongV1.txt:4: job name 'EXTRACTED' is longer than 8 bytes
  [1]
  $ printf 'workstation MASTER\n  set sci_cpu_type LINUX\n' > TextTooLong.txt && almplan build TextTooLong.txt TextTooLong; s=$?; test -e TextTooLong && echo written; exit $s
  almplan: TextTooLong.txt:2: text for field 'sci_cpu_type' is longer than 4 bytes
  [1]
  $ printf 'workstation MASTER\nschedule MASTER DAILY\n  set ss_sched_date 2026-02-30\n' > BadDate.txt && almplan build BadDate.txt BadDate; s=$?; test -e BadDate && echo written; exit $s
  almplan: BadDate.txt:3: bad date '2026-02-30' (YYYY-MM-DD, 1971 to 2037)
  [1]
  $ printf 'workstation MASTER\nschedule MASTER DAILY\n  set ss_sched_date 2026-02-03 24:00\n' > BadTime.txt && almplan build BadTime.txt BadTime; s=$?; test -e BadTime && echo written; exit $s
  almplan: BadTime.txt:3: bad time of day '24:00' (HH:MM)
  [1]
  $ printf 'header\n  set sh_sched_date 2026-11-22 06:00\n' > DateWithoutTimeField.txt && almplan build DateWithoutTimeField.txt DateWithoutTimeField; s=$?; test -e DateWithoutTimeField && echo written; exit $s
  almplan: DateWithoutTimeField.txt:2: field 'sh_sched_date' has no time of day
  [1]
  $ printf 'workstation MASTER\nprompt ASK\n  text "Ready?\n' > UnterminatedQuote.txt && almplan build UnterminatedQuote.txt UnterminatedQuote; s=$?; test -e UnterminatedQuote && echo written; exit $s
  almplan: UnterminatedQuote.txt:3: unterminated quoted text
  [1]
  $ printf 'workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\n  set sj_dependencies 5\n' > ArrayWithoutIndex.txt && almplan build ArrayWithoutIndex.txt ArrayWithoutIndex; s=$?; test -e ArrayWithoutIndex && echo written; exit $s
  almplan: ArrayWithoutIndex.txt:4: field 'sj_dependencies' has 40 elements: give an index, as in sj_dependencies[0]
  [1]
  $ printf 'workstation MASTER\nschedule MASTER DAILY\n  set ss_depend_flags[40] 1\n' > IndexOutOfRange.txt && almplan build IndexOutOfRange.txt IndexOutOfRange; s=$?; test -e IndexOutOfRange && echo written; exit $s
  almplan: IndexOutOfRange.txt:3: index 40 is out of range for field 'ss_depend_flags' (40 elements)
  [1]
  $ printf 'workstation MASTER\nformat v1\n' > FormatAfterRecord.txt && almplan build FormatAfterRecord.txt FormatAfterRecord; s=$?; test -e FormatAfterRecord && echo written; exit $s
  almplan: FormatAfterRecord.txt:2: format must come before the first record
  [1]
  $ printf 'workstation MASTER\nprompt ASK\n  dep prompt ASK\n' > DepOnPrompt.txt && almplan build DepOnPrompt.txt DepOnPrompt; s=$?; test -e DepOnPrompt && echo written; exit $s
  almplan: DepOnPrompt.txt:3: a prompt record has no dependencies
  [1]
  $ printf 'workstation MASTER\nschedule MASTER DAILY\n  dep rec 7\n' > RawTargetNeedsFlag.txt && almplan build RawTargetNeedsFlag.txt RawTargetNeedsFlag; s=$?; test -e RawTargetNeedsFlag && echo written; exit $s
  almplan: RawTargetNeedsFlag.txt:3: a dependency on 'rec 7' needs a flag byte, as in 'dep 0x83 rec 7'
  [1]
  $ printf 'workstation MASTER\nschedule MASTER DAILY\n  dep 256 rec 7\n' > FlagTooBig.txt && almplan build FlagTooBig.txt FlagTooBig; s=$?; test -e FlagTooBig && echo written; exit $s
  almplan: FlagTooBig.txt:3: bad flag byte '256' (0 to 255)
  [1]
  $ printf 'workstation MASTER\nresource MASTER TAPES\nschedule MASTER DAILY\n  dep resource MASTER TAPES 97\n' > ResourceUnits.txt && almplan build ResourceUnits.txt ResourceUnits; s=$?; test -e ResourceUnits && echo written; exit $s
  almplan: ResourceUnits.txt:4: resource units must be 1 to 96, not '97'
  [1]
  $ printf 'workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\n  text "hi"\n' > PromptTextOnJob.txt && almplan build PromptTextOnJob.txt PromptTextOnJob; s=$?; test -e PromptTextOnJob && echo written; exit $s
  almplan: PromptTextOnJob.txt:4: only a prompt has a text
  [1]
  $ printf 'workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\n  link sj_job_user job MASTER DAILY EXTRACT\n' > LinkIntoText.txt && almplan build LinkIntoText.txt LinkIntoText; s=$?; test -e LinkIntoText && echo written; exit $s
  almplan: LinkIntoText.txt:4: field 'sj_job_user' holds text, not a record number
  [1]
  $ printf 'calendar HOLIDAYS\n  status hold\n' > StatusOnCalendar.txt && almplan build StatusOnCalendar.txt StatusOnCalendar; s=$?; test -e StatusOnCalendar && echo written; exit $s
  almplan: StatusOnCalendar.txt:2: a calendar record has no status
  [1]

More than 40 dependencies; an existing plan is left alone on error and
replaced by a good build.

  $ { printf 'workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\n'; for i in $(seq 0 40); do echo "  dep 7 rec $i"; done; } > many.txt
  $ almplan build many.txt many; s=$?; test -e many && echo written; exit $s
  almplan: many.txt:44: more than 40 dependencies
  [1]
  $ mkdir keep && printf 'previous plan' > keep/Almanack
  $ printf 'workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\n  set sj_nope 1\n' > keep/bad.txt && almplan build keep/bad.txt keep/Almanack; cat keep/Almanack; echo; ls keep
  almplan: keep/bad.txt:4: unknown field 'sj_nope'
  previous plan
  Almanack
  bad.txt
  $ printf 'workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\n' > keep/good.txt && almplan build keep/good.txt keep/Almanack && wc -c < keep/Almanack && ls keep
  2048
  Almanack
  bad.txt
  good.txt
  $ almplan build absent.txt out
  almplan: absent.txt: No such file or directory
  [1]
  $ almplan build keep/good.txt no/such/dir/Almanack
  almplan: no/such/dir/Almanack: No such file or directory
  [1]

Usage errors exit 2.

  $ almplan
  almplan: no command
  Usage:
    almplan build [--v1] DESC OUT
    almplan synth --cpus N --scheds M --jobs K [--deps] [--v1] [--date YYYY-MM-DD] OUT
    almplan fields [KIND]
    almplan dump PLAN [--json]
    almplan check PLAN
    almplan --help | --version | COMMAND --help
  [2]
  $ almplan build only-one
  almplan: build takes DESC and OUT
  Usage:
    almplan build [--v1] DESC OUT
    almplan synth --cpus N --scheds M --jobs K [--deps] [--v1] [--date YYYY-MM-DD] OUT
    almplan fields [KIND]
    almplan dump PLAN [--json]
    almplan check PLAN
    almplan --help | --version | COMMAND --help
  [2]
  $ almplan build --v2 a b
  almplan: unknown option '--v2'
  Usage:
    almplan build [--v1] DESC OUT
    almplan synth --cpus N --scheds M --jobs K [--deps] [--v1] [--date YYYY-MM-DD] OUT
    almplan fields [KIND]
    almplan dump PLAN [--json]
    almplan check PLAN
    almplan --help | --version | COMMAND --help
  [2]
  $ almplan synth --cpus 1 --scheds 1 out
  almplan: synth needs --cpus, --scheds, --jobs and OUT
  Usage:
    almplan build [--v1] DESC OUT
    almplan synth --cpus N --scheds M --jobs K [--deps] [--v1] [--date YYYY-MM-DD] OUT
    almplan fields [KIND]
    almplan dump PLAN [--json]
    almplan check PLAN
    almplan --help | --version | COMMAND --help
  [2]
  $ almplan synth --cpus x --scheds 1 --jobs 1 out
  almplan: --cpus needs a number
  Usage:
    almplan build [--v1] DESC OUT
    almplan synth --cpus N --scheds M --jobs K [--deps] [--v1] [--date YYYY-MM-DD] OUT
    almplan fields [KIND]
    almplan dump PLAN [--json]
    almplan check PLAN
    almplan --help | --version | COMMAND --help
  [2]
  $ almplan synth --cpus 1 --scheds 1 --jobs 1 --date 2026-13-01 out
  almplan: --date needs YYYY-MM-DD (1971 to 2037)
  Usage:
    almplan build [--v1] DESC OUT
    almplan synth --cpus N --scheds M --jobs K [--deps] [--v1] [--date YYYY-MM-DD] OUT
    almplan fields [KIND]
    almplan dump PLAN [--json]
    almplan check PLAN
    almplan --help | --version | COMMAND --help
  [2]
  $ almplan synth --cpus 1 --scheds 1 --jobs 1 --date 2026-11x22 out
  almplan: --date needs YYYY-MM-DD (1971 to 2037)
  Usage:
    almplan build [--v1] DESC OUT
    almplan synth --cpus N --scheds M --jobs K [--deps] [--v1] [--date YYYY-MM-DD] OUT
    almplan fields [KIND]
    almplan dump PLAN [--json]
    almplan check PLAN
    almplan --help | --version | COMMAND --help
  [2]
  $ almplan synth --cpus 1 --scheds 1 --jobs 1 --date 2026x11-22 out
  almplan: --date needs YYYY-MM-DD (1971 to 2037)
  Usage:
    almplan build [--v1] DESC OUT
    almplan synth --cpus N --scheds M --jobs K [--deps] [--v1] [--date YYYY-MM-DD] OUT
    almplan fields [KIND]
    almplan dump PLAN [--json]
    almplan check PLAN
    almplan --help | --version | COMMAND --help
  [2]
  $ almplan fields nosuchkind
  almplan: unknown record kind 'nosuchkind'
  Usage:
    almplan build [--v1] DESC OUT
    almplan synth --cpus N --scheds M --jobs K [--deps] [--v1] [--date YYYY-MM-DD] OUT
    almplan fields [KIND]
    almplan dump PLAN [--json]
    almplan check PLAN
    almplan --help | --version | COMMAND --help
  [2]
  $ almplan check
  almplan: check takes one PLAN
  Usage: almplan check PLAN
  [2]
  $ almplan dump
  Usage: almplan dump PLAN [--json]
  [2]
