#!/bin/sh
# check_steps.sh <tilo-sim> <page>: the page has every step as the program tells it, in the program's order, and no other.
set -eu
told=$("$1" --list-steps)
written=$(sed -n '/^| step /,/^$/p' "$2" | tail -n +3 | sed '/^$/d')
[ "$told" = "$written" ] || {
  echo "$2: the table of steps is not what \"tilo-sim --list-steps\" prints"
  exit 1
}
