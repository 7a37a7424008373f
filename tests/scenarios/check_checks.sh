#!/usr/bin/env bash
# check_checks.sh <scratch folder> <compare_reports>: what compares the two sides of a scenario notices what it is there to notice.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
compare=$2
rm -rf "$1"
mkdir -p "$1"
cd "$1"
# left FOLDER REPORT STATUS PICTURE: what a scenario leaves.
left() {
  mkdir -p "$1/story"
  printf '%s' "$2" >"$1/story/end.json"
  echo "ends with $3" >"$1/story/said"
  echo "$4" >"$1/story/picture"
}
compared() { "$here/compare.sh" story here slice twin; }
alike() {
  left here '{"a": 1.5}' 0 x86
  left slice '{"a": 1.5}' 0 arm
  left twin '{"a": 1.5}' 0 arm
  compared || { echo 'refused two that are the same'; exit 1; }
}
refused() { # WHAT WORDS
  if compared >found; then echo "not noticed: $1"; exit 1; fi
  grep -q "$2" found || { echo "not named: $1: $(cat found)"; exit 1; }
}
alike
left slice '{"a": 1.5000000000000002}' 0 arm
refused 'another number' 'story: end.json differs'
alike
left slice '{"a": 1.5}' 3 arm
refused 'another status' 'story: said differs'
left here '{"a": 1.5}' 3 x86
refused 'both fail' 'ends with 3'
alike
left slice '{"a": 1.5}' 0 other
refused 'another picture' 'story: picture differs, < twin'
alike
left slice '' 0 arm
left here '' 0 x86
refused 'no report' 'no report'
alike
echo '{}' >here/story/middle.json
refused 'a report that only one has' 'story: other reports'
rm here/story/middle.json
alike
echo one >slice/story/a.png
echo other >twin/story/a.png
refused 'another picture in the middle' 'story: a.png differs'
"$here/compare.sh" story here slice - || { echo 'compared pictures that are not taken'; exit 1; }
rm slice/story/*.png slice/story/picture
refused 'no picture' 'no picture'

# told REPORT REPORT: what is said of the two where lengths are floats.
told() {
  echo "$1" >one
  echo "$2" >other
  "$compare" 1e-4 one other
}
told '{"a": [1.5, "b"], "c": 60}' '{"a": [1.50001, "b"], "c": 60.0}' || { echo 'refused what is alike'; exit 1; }
differs() { # REPORT REPORT WORDS
  if told "$1" "$2" >found; then echo "not noticed: $1 and $2"; exit 1; fi
  grep -qF "$3" found || { echo "not named: $(cat found)"; exit 1; }
}
differs '{"a": [1.5]}' '{"a": [1.5002]}' '.a[0]: 1.5 and 1.5002'
differs '{"a": 150.0}' '{"a": 150.02}' '.a: 150.0 and 150.02'
differs '{"a": 100000}' '{"a": 100001}' '.a: 100000 and 100001'
differs '{"a": "1"}' '{"a": 1}' '.a: "1" and 1'
differs '{"a": null}' '{}' '.a: null and "nothing"'
differs '{}' '{"a": null}' '.a: "nothing" and null'
differs '{"a": [1]}' '{"a": [1, 1]}' '.a: [1] and [1,1]'
status=0
told '{' '{}' 2>found || status=$?
[ "$status" -eq 2 ] && grep -q 'one is no report' found || { echo 'took half a report'; exit 1; }
