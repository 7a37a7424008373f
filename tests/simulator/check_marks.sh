#!/bin/sh
# check_marks.sh <tests> <page>...: fails when a page does not tell how many expectations of the tests are
# confirmed and how many are assumed.
set -eu
tests=$1
shift
count() { grep -rhoE "// $1" --include='*.cpp' "$tests" | wc -l; }
sentence="$(count confirmed) are confirmed, $(count assumed) assumed."
for page; do
  grep -qF "$sentence" "$page" || {
    echo "$page should say: $sentence"
    exit 1
  }
done
