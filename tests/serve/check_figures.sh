#!/bin/sh
# check_figures.sh FRAME_FIGURES BUILD: the figures of frames come about in their short form, a row of numbers in each of
# its two tables; what is not understood and a folder without programs are refused. How large they are is not judged.
set -eu
found=$("$1" --short "$2")
rows=$(printf '%s\n' "$found" | grep -cE '^\| iPhone 7( \| [0-9.,]+){8,10} \|$') || true
[ "$rows" -eq 2 ] || { printf 'no two rows of numbers:\n%s\n' "$found"; exit 1; }
refused() {
  status=0
  said=$("$@" 2>&1) || status=$?
  [ "$status" -eq 2 ] || { echo "status $status: $*"; exit 1; }
  case $said in *"$culprit"*) ;; *) echo "not named: $said"; exit 1 ;; esac
}
culprit=--long
refused "$1" --long
culprit=/nowhere/tilo-bench
refused "$1" /nowhere
