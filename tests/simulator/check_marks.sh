#!/bin/sh
# check_marks.sh <tests> <page>: fails when the page does not tell how many expectations of the tests are
# confirmed and how many are assumed.
set -eu
count() { grep -rhoE "// $1" --include='*.cpp' "$2" | wc -l; }
sentence="$(count confirmed "$1") are confirmed, $(count assumed "$1") assumed."
grep -qF "$sentence" "$2" || {
  echo "$2 should say: $sentence"
  exit 1
}
