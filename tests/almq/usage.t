Bad command lines exit 2 with one line; help and version exit 0.

  $ almplan build $SRC/examples/sample.plan.txt Almanack
  $ almq
  almq: no subcommand given (see almq --help)
  [2]
  $ almq frobnicate
  almq: unknown subcommand 'frobnicate' (see almq --help)
  [2]
  $ almq --bogus cpus
  almq: unknown option '--bogus' (see almq --help)
  [2]
  $ almq -x cpus
  almq: unknown option '-x' (see almq --help)
  [2]
  $ almq cpus A B
  almq: too many operands for cpus (see almq --help)
  [2]
  $ almq scheds A B C
  almq: too many operands for scheds (see almq --help)
  [2]
  $ almq jobs A B C D
  almq: too many operands for jobs (see almq --help)
  [2]
  $ almq info x
  almq: too many operands for info (see almq --help)
  [2]
  $ almq logs x
  almq: too many operands for logs (see almq --help)
  [2]
  $ almq ping 0
  almq: ping needs a count from 1 to 1000000, not '0' (see almq --help)
  [2]
  $ almq ping 12x
  almq: ping needs a count from 1 to 1000000, not '12x' (see almq --help)
  [2]
  $ almq ping 1000001
  almq: ping needs a count from 1 to 1000000, not '1000001' (see almq --help)
  [2]
  $ almq --json --raw cpus
  almq: --json, --raw and --dot exclude each other (see almq --help)
  [2]
  $ almq --dot jobs
  almq: --dot draws the dependencies only (almq --dot deps) (see almq --help)
  [2]
  $ almq --fields a,,b jobs
  almq: option --fields needs names separated by commas, not 'a,,b' (see almq --help)
  [2]
  $ almq --fields sj_job_name --raw jobs
  almq: --fields chooses what --json and the tables show (see almq --help)
  [2]
  $ almq --fields no_such_field jobs
  almq: no field named no_such_field here (almq --json shows the names)
  [2]
  $ almq cpus --plan
  almq: option --plan needs a value (see almq --help)
  [2]
  $ almq --plan= cpus
  almq: option --plan needs a non-empty path (see almq --help)
  [2]
  $ almq --timeout 0 cpus
  almq: option --timeout needs a number of seconds from 1 to 3600, not '0' (see almq --help)
  [2]
  $ almq --timeout soon cpus
  almq: option --timeout needs a number of seconds from 1 to 3600, not 'soon' (see almq --help)
  [2]
  $ almq --timeout '' cpus
  almq: option --timeout needs a number of seconds from 1 to 3600, not '' (see almq --help)
  [2]
  $ almq --wait 1234567890123456789 info
  almq: option --wait needs a number of seconds from 0 to 3600, not '1234567890123456789' (see almq --help)
  [2]
  $ almq --wait soon info
  almq: option --wait needs a number of seconds from 0 to 3600, not 'soon' (see almq --help)
  [2]
  $ almq --json=1 cpus
  almq: option --json takes no value (see almq --help)
  [2]
  $ almq --help
  Usage: almq [OPTIONS] SUBCOMMAND [OPERANDS]
  Queries a plan through an almread server that almq starts on pipes.
  
  Subcommands:
    info                      the open reply: plan date, workstations, version
    cpus [WS]                 workstations whose names match WS
    scheds [WS] [SCHED]       schedules
    jobs [WS] [SCHED] [JOB]   jobs
    deps [WS] [SCHED] [JOB]   schedules with their dependencies and jobs, as a tree
    logs                      archived plans in the home's schedlog directory
    ping [N]                  N no-operation round trips (3 by default), timed
  Patterns default to @; @ matches any run of characters, ? one character,
  % one digit.
  
  Options:
    --plan PATH       plan file (default Almanack); a relative PATH is taken
                      under the server's home, one beginning with ./ or ../
                      under the current directory
    --server PATH     the almread to start (default: the one beside almq)
    --json            one JSON object per line, every field of each record;
                      each date also as ISO 8601 text in a member NAME_iso
    --fields A,B,...  only these JSON members, or table columns of them
    --wide            every column of the tables (they fit 80 columns without)
    --dot             deps only: the dependency graph in Graphviz DOT
    --raw             the reply frames as received, in hexadecimal
    --timeout SECS    how long to wait for each reply (default 30)
    --wait SECS       while another process holds the plan locked, try again
                      for up to SECS seconds (default 0: fail at once)
    -h, --help        this text
    -V, --version     almq's version
  
  Exit status: 0 ok, 1 nothing matched, 2 bad usage, 3 server or plan error.
  $ almq nonsense --help | head -n 1
  Usage: almq [OPTIONS] SUBCOMMAND [OPERANDS]
  $ almq --version
  almq 1.3
  $ almq -V jobs
  almq 1.3
  $ almq --json cpus MASTER > a; almq cpus MASTER --json > b; almq cpus --plan=Almanack MASTER --json > c
  $ cmp a b && cmp a c && echo same
  same
  $ almq ping 2 | sed -E 's/ +[0-9.]+ ms/ N ms/g'
  REPLY  ID  BYTES      TIME
  1       1     24 N ms
  2       2     24 N ms
  2 round trips: min N ms, avg N ms, max N ms
