The listing of archived plans: the files of the home's schedlog/ whose
names start with M, newest first. replies.pl sends the frames on its
command line (type, id, then the arguments, split at commas) and prints
each reply's count, size (the home's path counted as "$HOME") and names.

  $ cat > replies.pl <<'PERL'
  > use IPC::Open2;
  > my $pid = open2(my $out, my $in, "almread");
  > for (@ARGV) { my ($t, $i, @a) = split /,/; my $b = join("", map { "$_\0" } @a);
  >   print $in pack("N6", 20 + length $b, $t, $i, scalar @a, 0, 0), $b }
  > close $in; read $out, my $g, 13;
  > while (read $out, my $s, 4) { $s = unpack "N", $s; read $out, my $r, $s;
  >   my ($t, $i, $n, $d) = unpack "N4", $r; my @names = split /\0/, substr($r, 20);
  >   (my $b = substr($r, 20)) =~ s/\Q$ENV{HOME}\E/\$HOME/g;
  >   print "reply $i: $n names, size 20 + ", length $b, "\n", map { "  $_\n" } @names }
  > waitpid $pid, 0; print "exit ", $? >> 8, "\n";
  > PERL

A missing or empty directory lists nothing; one that appears later is
seen by the next listing.

  $ perl replies.pl 4,1
  reply 1: 0 names, size 20 + 0
  exit 0
  $ mkdir schedlog && perl replies.pl 4,2
  reply 2: 0 names, size 20 + 0
  exit 0
  $ touch schedlog/M2601010600 && perl replies.pl 4,3
  reply 3: 1 names, size 20 + 27
    $HOME/schedlog/M2601010600
  exit 0

Names that do not start with M are left out; the arguments of the request
are not looked at.

  $ cd schedlog && touch M9901010600 M9902010600 M9901020600 x9901010600 m9901010600 AM9901010600 .M9901010600 M && cd ..
  $ perl replies.pl 4,5 4,6,x,y,z
  reply 5: 5 names, size 20 + 125
    $HOME/schedlog/M9902010600
    $HOME/schedlog/M9901020600
    $HOME/schedlog/M9901010600
    $HOME/schedlog/M2601010600
    $HOME/schedlog/M
  reply 6: 5 names, size 20 + 125
    $HOME/schedlog/M9902010600
    $HOME/schedlog/M9901020600
    $HOME/schedlog/M9901010600
    $HOME/schedlog/M2601010600
    $HOME/schedlog/M
  exit 0

At most 1024 names come back (the first found in the directory), sorted,
and the server goes on answering.

  $ for i in $(seq -w 0 1099); do : > schedlog/M${i}010600; done
  $ perl replies.pl 4,9 4,10 | grep -o '^reply .* names'
  reply 9: 1024 names
  reply 10: 1024 names
  $ perl replies.pl 4,9 | grep '^  /' > names && sort -rc names && sort -u names | wc -l
  1024
