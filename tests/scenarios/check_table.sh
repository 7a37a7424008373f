#!/bin/sh
# check_table.sh PAGE: the page tells every scenario as its first line does, and no other.
set -eu
told=$("$(dirname "$0")/table.sh")
written=$(sed -n '/^| scenario /,/^$/p' "$1" | tail -n +3 | sed '/^$/d')
[ "$told" = "$written" ] || {
  echo "$1: the table is not what tests/scenarios/table.sh prints"
  exit 1
}
