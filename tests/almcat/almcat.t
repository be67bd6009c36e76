A catalog source compiled, its file layout, and the catalog listed back.

  $ almcat $DATA/roundtrip.msg a.cat && almcat --list a.cat
  $set 1
  1 default set message
  $set 3
  1 first of set three
  2 tab\there, newline\nthere, backslash \\ and octal AB
  3 quoted text with " inside
  4 continued line
  5  two leading blanks kept
  6 
  8 "not quoted"
  $set 4
  1 replaced
  9 ends with a backslash \\
  10 bell \007, del \177, \r\v\b\f and UTF-8 café
  $ almcat --list a.cat > b.msg && almcat b.msg b.cat && cmp a.cat b.cat && echo same
  same
  $ printf '$set 3\n1 hi\n2 yo\n$set 7\n4 z\n' > s.msg && almcat s.msg s.cat && od -An -tx1 -c s.cat
    2a  6e  61  7a  67  75  6c  2a  00  00  00  01  00  00  00  01
     *   n   a   z   g   u   l   *  \0  \0  \0 001  \0  \0  \0 001
    00  00  00  00  00  00  00  02  00  00  00  1c  00  00  00  03
    \0  \0  \0  \0  \0  \0  \0 002  \0  \0  \0 034  \0  \0  \0 003
    00  00  00  56  00  00  00  38  00  00  00  50  00  00  00  06
    \0  \0  \0   V  \0  \0  \0   8  \0  \0  \0   P  \0  \0  \0 006
    00  00  00  02  00  00  00  00  00  00  00  01  00  00  00  00
    \0  \0  \0 002  \0  \0  \0  \0  \0  \0  \0 001  \0  \0  \0  \0
    00  00  00  00  00  00  00  02  00  00  00  03  00  00  00  00
    \0  \0  \0  \0  \0  \0  \0 002  \0  \0  \0 003  \0  \0  \0  \0
    68  69  00  79  6f  00  00  00  00  07  00  00  00  00  00  00
     h   i  \0   y   o  \0  \0  \0  \0  \a  \0  \0  \0  \0  \0  \0
    00  72  00  00  00  7e  00  00  00  02  00  00  00  01  00  00
    \0   r  \0  \0  \0   ~  \0  \0  \0 002  \0  \0  \0 001  \0  \0
    00  00  00  00  00  04  00  00  00  00  00  00  00  00  7a  00
    \0  \0  \0  \0  \0 004  \0  \0  \0  \0  \0  \0  \0  \0   z  \0
  $ printf '$set 3\r\n1 crlf\r\n' > crlf.msg && almcat crlf.msg crlf.cat && almcat --list crlf.cat
  $set 3
  1 crlf
  $ almcat --list catalog/C/cobalt.cat
  $set 1
  1 cobalt message catalog
  $set 50
  35 0
  $set 129
  2 Internal error %d: the program ends.
  3 The program ends after %.2f seconds of CPU time.
  4 The program ends.

Deleted sets and messages kept on request are skipped by readers.

  $ printf '$set 1\n1 a\n$set 2\n1 b\n2 c\n2\n3 d\n$delset 1\n' > d.msg
  $ almcat --keep-deleted d.msg d.cat && almcat --list d.cat && od -An -tx1 d.cat | head -n 4
  $set 2
  1 b
  3 d
   2a 6e 61 7a 67 75 6c 2a 00 00 00 01 00 00 00 01
   00 00 00 00 00 00 00 01 00 00 00 1c 00 00 00 01
   00 00 00 38 00 00 00 38 00 00 00 38 00 00 00 00
   00 00 00 00 00 00 00 01 00 00 00 02 00 00 00 00
  $ almcat d.msg e.cat && almcat --list e.cat && test $(wc -c < e.cat) -lt $(wc -c < d.cat) && echo smaller
  $set 2
  1 b
  3 d
  smaller

Source errors name the line; other failures say what failed.

  $ printf '$set\n' > e1.msg && almcat e1.msg x.cat
  almcat: e1.msg:1: $set needs a set number from 1 to 2147483647
  [1]
  $ printf '$set 0\n' > e2.msg && almcat e2.msg x.cat
  almcat: e2.msg:1: set numbers start at 1
  [1]
  $ printf '$set 12x\n' > e3.msg && almcat e3.msg x.cat
  almcat: e3.msg:1: $set needs a set number from 1 to 2147483647
  [1]
  $ printf '$delset 99999999999\n' > e4.msg && almcat e4.msg x.cat
  almcat: e4.msg:1: $delset needs a set number from 1 to 2147483647
  [1]
  $ printf '1 a\n$frob 1\n' > e5.msg && almcat e5.msg x.cat
  almcat: e5.msg:2: unknown directive $frob
  [1]
  $ printf '1 a\n\n  5 indented\n' > e6.msg && almcat e6.msg x.cat
  almcat: e6.msg:3: expected a message number or a $ directive
  [1]
  $ printf 'abc\n' > e7.msg && almcat e7.msg x.cat
  almcat: e7.msg:1: expected a message number or a $ directive
  [1]
  $ printf '0 zero\n' > f0.msg && almcat f0.msg x.cat
  almcat: f0.msg:1: message numbers start at 1
  [1]
  $ printf '99999999999 x\n' > f1.msg && almcat f1.msg x.cat
  almcat: f1.msg:1: message number above 2147483647
  [1]
  $ printf '5x text\n' > f2.msg && almcat f2.msg x.cat
  almcat: f2.msg:1: expected a blank after the message number
  [1]
  $ printf '5 bad \\q escape\n' > f3.msg && almcat f3.msg x.cat
  almcat: f3.msg:1: unknown escape \q
  [1]
  $ printf '5 nul \\0 here\n' > f4.msg && almcat f4.msg x.cat
  almcat: f4.msg:1: a NUL byte cannot be part of a text
  [1]
  $ printf '5 big \\400\n' > f5.msg && almcat f5.msg x.cat
  almcat: f5.msg:1: octal escape above \377
  [1]
  $ printf '$quote "\n5 "open\n' > f6.msg && almcat f6.msg x.cat
  almcat: f6.msg:2: missing closing quote
  [1]
  $ printf '$quote "\n5 "a" b\n' > f7.msg && almcat f7.msg x.cat
  almcat: f7.msg:2: text after the closing quote
  [1]
  $ printf '1 ok\n2 continued \\\n' > f8.msg && almcat f8.msg x.cat
  almcat: f8.msg:2: continuation at the end of the file
  [1]
  $ printf '1 a\n2 two \\\nlines \\q\n' > f9.msg && almcat f9.msg x.cat
  almcat: f9.msg:2: unknown escape \q
  [1]
  $ printf '$ nothing but a comment\n' > f10.msg && almcat f10.msg x.cat
  almcat: f10.msg: no sets to write
  [1]
  $ almcat nosuch.msg x.cat
  almcat: nosuch.msg: No such file or directory
  [1]
  $ almcat s.msg nosuchdir/x.cat
  almcat: nosuchdir/x.cat.tmp: No such file or directory
  [1]
  $ almcat --list nosuch.cat
  almcat: nosuch.cat: not a readable message catalog
  [1]
  $ almcat --list s.msg
  Message Catalog System: Attempted to use Nimbus message catalog software to access
  ./s.msg which is not a valid Nimbus message catalog.
  Moving the Nimbus message catalog directory to the front of NLSPATH
  may correct this problem.
  almcat: s.msg: not a readable message catalog
  [1]
  $ ls x.cat
  ls: cannot access 'x.cat': No such file or directory
  [2]
