#!/usr/bin/env bash
# run_scenario.sh SCRATCH SCENARIO HERE -- SLICE -- TWIN [-- COMPARE]: three programs, with their arguments, act the
# scenario out, with the options in its line "# options:": this machine's simulator, the one of the slice's processor with
# the slice, and the same with its own kind of library. The first two tell the same, report by report, and end alike: to
# the last bit, or what COMPARE, a program that is given two reports, takes for the same. The last two, where the scenario
# takes pictures, take the same, byte by byte. Without a TWIN no pictures are taken.
set -euo pipefail
scratch=$1 scenario=$2
shift 2
programs=("" "" "" "cmp -s ")
at=0
for word in "$@"; do
  if [ "$word" != -- ]; then
    programs[at]+=$(printf '%q ' "$word")
  else
    at=$((at + 1))
    programs[at]=
  fi
done
options=$(sed -n 's/^# options: //p' "$scenario")

rm -rf "$scratch"
mkdir -p "$scratch"/{here,slice,twin}
script=$scenario
if [ -z "${programs[2]}" ]; then
  script=$scratch/script
  sed '/^snapshot /s/.*//' "$scenario" >"$script"
fi
# act FOLDER PROGRAM: what it said goes into the folder, with how it ended.
act() {
  local status=0
  # Quotes in the options are a shell's.
  (cd "$1" && eval "$2 $options --script $(printf %q "$script") --report end.json") >"$1/said" 2>&1 || status=$?
  echo "ends with $status" >>"$1/said"
}
act "$scratch/here" "${programs[0]}"
act "$scratch/slice" "${programs[1]}"

bad=0
same() { # FOLDER FILE [COMPARE]: as the slice's
  local one=$scratch/$1/$2 other=$scratch/slice/$2
  eval "${3:-cmp -s} $(printf '%q ' "$one" "$other")" >"$scratch/found" 2>&1 && return
  echo "$(basename "$scenario" .txt): $2 differs, < $1, > the slice"
  [ -s "$scratch/found" ] || diff "$one" "$other" >"$scratch/found" || true
  head -20 "$scratch/found"
  bad=1
}
same here said
grep -q 'ends with 0' "$scratch/here/said" || { cat "$scratch/here/said"; bad=1; }
[ "$(ls "$scratch/here")" = "$(ls "$scratch/slice")" ] || { echo "other files: $(ls "$scratch/here" "$scratch/slice")"; bad=1; }
[ -s "$scratch/here/end.json" ] || { echo "no report"; exit 1; }
for report in "$scratch"/here/*.json; do same here "$(basename "$report")" "${programs[3]}"; done

if grep -q '^snapshot ' "$script"; then
  act "$scratch/twin" "${programs[2]}"
  for picture in "$scratch"/slice/*.png; do same twin "$(basename "$picture")"; done
fi
exit "$bad"
