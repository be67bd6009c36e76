The listing of archived plans: the files of the home's schedlog/ whose
names start with M, newest first.

A missing or empty directory lists nothing; one that appears later is
seen by the next listing.

  $ perl $DATA/replies.pl 4,1
  reply 1: 0 items of kind 0, size 20 + 0
  exit 0
  $ mkdir schedlog && perl $DATA/replies.pl 4,2
  reply 2: 0 items of kind 0, size 20 + 0
  exit 0
  $ touch schedlog/M2601010600 && perl $DATA/replies.pl 4,3
  reply 3: 1 items of kind 0, size 20 + 27
    $HOME/schedlog/M2601010600
  exit 0

Names that do not start with M are left out; the arguments of the request
are not looked at.

  $ cd schedlog && touch M9901010600 M9902010600 M9901020600 x9901010600 m9901010600 AM9901010600 .M9901010600 M && cd ..
  $ perl $DATA/replies.pl 4,5 4,6,x,y,z
  reply 5: 5 items of kind 0, size 20 + 125
    $HOME/schedlog/M9902010600
    $HOME/schedlog/M9901020600
    $HOME/schedlog/M9901010600
    $HOME/schedlog/M2601010600
    $HOME/schedlog/M
  reply 6: 5 items of kind 0, size 20 + 125
    $HOME/schedlog/M9902010600
    $HOME/schedlog/M9901020600
    $HOME/schedlog/M9901010600
    $HOME/schedlog/M2601010600
    $HOME/schedlog/M
  exit 0

At most 1024 names come back (the first found in the directory), sorted,
and the server goes on answering.

  $ for i in $(seq -w 0 1099); do : > schedlog/M${i}010600; done
  $ perl $DATA/replies.pl 4,9 4,10 | grep -o '^reply .* items'
  reply 9: 1024 items
  reply 10: 1024 items
  $ perl $DATA/replies.pl 4,9 | grep '^  /' > names && sort -rc names && sort -u names | wc -l
  [1]
