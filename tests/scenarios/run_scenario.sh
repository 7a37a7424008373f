#!/usr/bin/env bash
# run_scenario.sh SCRATCH SCENARIO HERE -- SLICE -- TWIN: three programs, with their arguments, act the scenario out, with
# the options in its line "# options:": this machine's simulator, the one of the slice's processor with the slice, and the
# same with its own kind of library. The first two tell the same, report by report, to the last bit, and end alike. The
# last two, where the scenario takes pictures, take the same, byte by byte.
set -euo pipefail
scratch=$1 scenario=$2
shift 2
programs=("" "" "")
at=0
for word in "$@"; do
  if [ "$word" = -- ]; then at=$((at + 1)); else programs[at]+=$(printf '%q ' "$word"); fi
done
options=$(sed -n 's/^# options: //p' "$scenario")

rm -rf "$scratch"
mkdir -p "$scratch"/{here,slice,twin}
# act FOLDER PROGRAM: what it said goes into the folder, with how it ended.
act() {
  local status=0
  # Quotes in the options are a shell's.
  (cd "$1" && eval "$2 $options --script $(printf %q "$scenario") --report end.json") >"$1/said" 2>&1 || status=$?
  echo "ends with $status" >>"$1/said"
}
act "$scratch/here" "${programs[0]}"
act "$scratch/slice" "${programs[1]}"

bad=0
same() { # FOLDER FILE: as the slice's
  cmp -s "$scratch/$1/$2" "$scratch/slice/$2" && return
  echo "$(basename "$scenario" .txt): $2 differs, < $1, > the slice"
  diff "$scratch/$1/$2" "$scratch/slice/$2" | head -20 || true
  bad=1
}
same here said
grep -q 'ends with 0' "$scratch/here/said" || { cat "$scratch/here/said"; bad=1; }
[ "$(ls "$scratch/here")" = "$(ls "$scratch/slice")" ] || { echo "other files: $(ls "$scratch/here" "$scratch/slice")"; bad=1; }
[ -s "$scratch/here/end.json" ] || { echo "no report"; exit 1; }
for report in "$scratch"/here/*.json; do same here "$(basename "$report")"; done

if grep -q '^snapshot ' "$scenario"; then
  act "$scratch/twin" "${programs[2]}"
  for picture in "$scratch"/slice/*.png; do same twin "$(basename "$picture")"; done
fi
exit "$bad"
