Every tool: help and version on standard output with 0, bad usage on
standard error with 2.

  $ almq --version
  almq 1.3
  $ almplan --help | head -n 3
  Usage:
    almplan build [--v1] DESC OUT
    almplan synth --cpus N --scheds M --jobs K [--deps] [--v1] [--date YYYY-MM-DD] OUT
  $ almplan --version
  almplan 1.3
  $ almplan build --help | head -n 1
  Usage: almplan build [--v1] DESC OUT
  $ almplan synth --cpus 1 -h | head -n 1
  Usage: almplan synth --cpus N --scheds M --jobs K [--deps] [--v1] [--date YYYY-MM-DD] OUT
  $ almplan fields --help | head -n 1
  Usage: almplan fields [KIND]
  $ almplan dump --help | head -n 1
  Usage: almplan dump PLAN [--json]
  $ almplan check --help | head -n 1
  Usage: almplan check PLAN
  $ almplan frob
  almplan: unknown command 'frob'
  Usage:
    almplan build [--v1] DESC OUT
    almplan synth --cpus N --scheds M --jobs K [--deps] [--v1] [--date YYYY-MM-DD] OUT
    almplan fields [KIND]
    almplan dump PLAN [--json]
    almplan check PLAN
    almplan --help | --version | COMMAND --help
  [2]
  $ almcat --help | head -n 1
  Usage: almcat [--keep-deleted] SOURCE OUT
  $ almcat --version
  almcat 1.3
  $ almcat
  Usage: almcat [--keep-deleted] SOURCE OUT
         almcat --list CATALOG
  [2]
  $ almcat --bogus a b
  Usage: almcat [--keep-deleted] SOURCE OUT
         almcat --list CATALOG
  [2]
  $ almcodeset --help | head -n 1
  Usage: almcodeset [--as TABLE] CODESET TYPE OUTDIR
  $ almcodeset --version
  almcodeset 1.3
  $ almcodeset --as
  Usage: almcodeset [--as TABLE] CODESET TYPE OUTDIR
         almcodeset --alias OUTDIR NAME TABLE
         almcodeset --aliases OUTDIR [NAME=TABLE ...]
         almcodeset --help | --version
  
  The first form asks iconv about every character of CODESET (an iconv
  name) and writes its conversion table to OUTDIR/codeset/TABLE (TABLE is
  CODESET unless --as gives it). TYPE is one of:
    sbcs         single-byte, ASCII-based (ISO-8859-1, CP1252, IBM850)
    ebcdic       single-byte EBCDIC (IBM037, IBM1047)
    dbcs         double-byte, ASCII-based (SJIS, CP932, GBK, BIG5)
    mbcs         multi-byte, ASCII-based, up to 4 bytes (EUC-JP, EUC-KR)
    ebcdic-dbcs  double-byte EBCDIC with shift-out/shift-in (IBM930, IBM939)
  Characters beyond 16-bit code points convert as "?".
  
  --alias writes OUTDIR/codeset/NAME as an alias file naming TABLE.
  --aliases writes the alias list OUTDIR/codeset/aliases, one line
  "NAME TABLE" per pair; it maps the normalised system code-set name
  (letters and digits in upper case, a leading IBM removed) to a table.
  
  Exit status: 0 written, 1 failed (unknown code set, unwritable OUTDIR),
  2 bad usage.
  [2]
  $ almcodeset UTF-8 nosuchtype .
  almcodeset: unknown type nosuchtype
  Usage: almcodeset [--as TABLE] CODESET TYPE OUTDIR
         almcodeset --alias OUTDIR NAME TABLE
         almcodeset --aliases OUTDIR [NAME=TABLE ...]
         almcodeset --help | --version
  
  The first form asks iconv about every character of CODESET (an iconv
  name) and writes its conversion table to OUTDIR/codeset/TABLE (TABLE is
  CODESET unless --as gives it). TYPE is one of:
    sbcs         single-byte, ASCII-based (ISO-8859-1, CP1252, IBM850)
    ebcdic       single-byte EBCDIC (IBM037, IBM1047)
    dbcs         double-byte, ASCII-based (SJIS, CP932, GBK, BIG5)
    mbcs         multi-byte, ASCII-based, up to 4 bytes (EUC-JP, EUC-KR)
    ebcdic-dbcs  double-byte EBCDIC with shift-out/shift-in (IBM930, IBM939)
  Characters beyond 16-bit code points convert as "?".
  
  --alias writes OUTDIR/codeset/NAME as an alias file naming TABLE.
  --aliases writes the alias list OUTDIR/codeset/aliases, one line
  "NAME TABLE" per pair; it maps the normalised system code-set name
  (letters and digits in upper case, a leading IBM removed) to a table.
  
  Exit status: 0 written, 1 failed (unknown code set, unwritable OUTDIR),
  2 bad usage.
  [2]
  $ almcodeset NO-SUCH-SET sbcs .
  almcodeset: iconv does not know NO-SUCH-SET
  [1]

The installed bash completion offers what help names.

  $ complete() { bash -c ". $SRC/completion/$1; COMP_WORDS=($2 ''); [ \"\${2: -1}\" = ' ' ] || unset 'COMP_WORDS[-1]'; COMP_CWORD=\$((\${#COMP_WORDS[@]} - 1)); _$1; printf '%s\n' \"\${COMPREPLY[@]}\"" bash "$1" "$2"; }
  > complete almq 'almq -' | tr '\n' ' '; echo
  > complete almq 'almq --json ' | tr '\n' ' '; echo
  > complete almplan 'almplan ' | tr '\n' ' '; echo
  > complete almplan 'almplan synth -' | tr '\n' ' '; echo
  --plan --server --json --fields --wide --dot --raw --timeout --wait --help --version 
  info cpus scheds jobs deps logs ping 
  build synth fields dump check --help --version 
  --cpus --scheds --jobs --deps --v1 --date --help 

The manual pages render without warnings and have the sections a reader
looks for.

  $ for p in almread almq almplan almcat almcodeset; do
  >   command -v man > /dev/null || continue
  >   MANWIDTH=80 man --warnings -l $SRC/man/$p.1 2>&1 > /dev/null
  >   MANWIDTH=80 man -l $SRC/man/$p.1 2> /dev/null | grep -c -E '^(NAME|EXIT STATUS|EXAMPLES)$' | grep -qx 3 || echo "$p lacks a section"
  > done
