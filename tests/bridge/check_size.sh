#!/bin/sh
# check_size.sh <folder> <lines of one file> <lines in all>: fails when a source of the folder, or all of them
# together, are longer than that.
set -eu
find "$1/" -name '*.[ch]pp' -exec wc -l {} \; | awk -v one="$2" -v all="$3" '
  { total += $1; if ($1 > one) { print $2 ": " $1 " lines, " one " allowed"; bad = 1 } }
  END {
    print NR " files, " total + 0 " lines, " all " allowed"
    exit bad || total > all || NR == 0
  }'
