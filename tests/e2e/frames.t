Requests made by hand, for what almq does not send: frame.pl writes one
request frame (type, id, then its arguments).

  $ echo 'my ($t, $i, @a) = @ARGV; my $b = join("", map { "$_\0" } @a); print pack("N6", 20 + length $b, $t, $i, scalar @a, 0, 0), $b;' > frame.pl
  $ almplan build $SRC/examples/sample.plan.txt plan

A plan cut to the first half of its header still opens: the half that is
missing reads as zeros.

  $ head -c 256 plan > half && perl frame.pl 2 1 $HOME/half | almread | tail -c +14 | od -An -c
    \0  \0  \0   8  \0  \0  \0  \0  \0  \0  \0 001  \0  \0  \0  \t
    \0  \0  \0  \0  \0  \0  \0  \0   0  \0  \0   1  \0   2   0   2
     6   1   1   2   2  \0   6   0   0  \0   M   A   S   T   E   R
    \0   M   A   S   T   E   R  \0   0  \0   1  \0

The command line: a version option as the only argument prints the banner
and ends; anything else (usage and debug options, operands, unknown or
repeated options) starts the service, which greets and answers as always.

  $ almread -v < /dev/null > banner; echo "exit $?"; cat banner
  exit 0
  KARVEN UNIX (INTEL)/ALMREAD 7.0  (1.3)
  Program patch revision: 1.3
  $ for o in -vers -V -VERSION -Version; do
  >   almread $o < /dev/null > v.out || echo "exit $?: $o"; cmp -s v.out banner || echo "differs: $o"; done
  $ perl frame.pl 0 11 | almread > plain.out && od -An -c plain.out
     A   l   m   R   e   a   d       L   i   v   e   s  \0  \0  \0
   024  \0  \0  \0  \0  \0  \0  \0  \v  \0  \0  \0  \0  \0  \0  \0
    \0  \0  \0  \0  \0
  $ for a in '-v -v' -x -u -usage -debug '-debug -debug' -v=1 plan '-- -v' -abcdefghijklmnopqrstuvwxyz; do
  >   perl frame.pl 0 11 | almread $a | cmp - plain.out || echo "differs: $a"; done
