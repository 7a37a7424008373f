#!/bin/sh
# check_table.sh <tilo-sim> options|steps|report <page>: the page has a section with every row as the program tells it, in
# the program's order, and no other.
set -eu
case $2 in
  options) head=option ;;
  steps) head=step ;;
  report) head=key ;;
esac
told=$("$1" "--list-$2")
written=$(sed -n "/^| $head /,/^\$/p" "$3" | tail -n +3 | sed '/^$/d')
[ "$told" = "$written" ] || {
  echo "$3: the table of the $2 is not what \"tilo-sim --list-$2\" prints"
  exit 1
}
