#!/usr/bin/env bash
# compare.sh SCENARIO HERE SLICE TWIN [COMPARE...]: what act-scenarios left in three folders of a scenario, acted out on
# this machine, with a slice, and on the slice's processor without it. The first two said the same and ended well; each
# report of theirs is the same to the last bit, or what COMPARE, a program that is given two reports, takes for the same.
# The last two took the same pictures, byte by byte; TWIN is "-" where none are taken.
set -euo pipefail
name=$1 here=$2/$1 slice=$3/$1 twin=$4
shift 4
[ $# -gt 0 ] || set -- cmp -s

bad=0
found=$slice/found
same() { # ONE OTHER COMPARE...
  local one=$1 other=$2
  shift 2
  "$@" "$one" "$other" >"$found" 2>&1 && return
  echo "$name: $(basename "$one") differs, < $(dirname "$one"), > $(dirname "$other")"
  [ -s "$found" ] || diff "$one" "$other" >"$found" || true
  head -20 "$found"
  bad=1
}
same "$here/said" "$slice/said" cmp -s
grep -qx 'ends with 0' "$here/said" || { cat "$here/said"; bad=1; }
reports() { (cd "$1" && ls -- *.json); }
[ "$(reports "$here")" = "$(reports "$slice")" ] || { echo "$name: other reports: $(ls "$here" "$slice")"; bad=1; }
[ -s "$here/end.json" ] || { echo "$name: no report"; exit 1; }
for report in $(reports "$here"); do same "$here/$report" "$slice/$report" "$@"; done
if [ "$twin" != - ]; then
  [ -s "$slice/picture" ] || { echo "$name: no picture"; exit 1; }
  for picture in "$slice"/picture "$slice"/*.png; do
    [ ! -e "$picture" ] || same "$twin/$name/${picture##*/}" "$picture" cmp -s
  done
fi
exit "$bad"
