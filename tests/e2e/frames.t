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
