#!/usr/bin/env bash
# check_checks.sh <scratch folder> <compare_reports>: what compares the two sides of a scenario notices what it is there to notice.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
compare=$2
rm -rf "$1"
mkdir -p "$1"
cd "$1"
printf '# A story.\n# options: --set name="two words"\n' >story.txt

# program NAME REPORT STATUS: stands for a simulator.
program() {
  printf '#!/bin/sh\n[ "$2" = "name=two words" ] || exit 9\necho said\necho %s >end.json\nexit %s\n' "'$2'" "$3" >"$1"
  chmod +x "$1"
}
program native '{"a": 1.5}' 0
acted() { "$here/run_scenario.sh" "$PWD/scratch" "$PWD/story.txt" "$PWD/native" -- "$PWD/slice" -- "$PWD/twin"; }

program slice '{"a": 1.5}' 0
acted || { echo 'refused two that are the same'; exit 1; }
refused() {
  if acted >found; then echo "not noticed: $1"; exit 1; fi
  grep -q "$2" found || { echo "not named: $1: $(cat found)"; exit 1; }
}
program slice '{"a": 1.5000000000000002}' 0
refused 'another number' 'story: end.json differs'
program slice '{"a": 1.5}' 3
refused 'another status' 'story: said differs'
program native '{"a": 1.5}' 3
refused 'both fail' 'ends with 3'
program native '{"a": 1.5}' 0
program slice '{"a": 1.5}' 0
program twin '{"a": 1.5}' 0
echo 'snapshot a.png' >>story.txt
for side in native slice twin; do sed -i "2i echo $side >a.png" "$side"; done
refused 'another picture' 'story: a.png differs, < twin'
sed -i 's/echo slice/echo twin/' slice
acted || { echo 'refused two pictures that are the same'; exit 1; }
program native '' 0
program slice '' 0
sed -i '/end.json/d' native slice
refused 'no report' 'no report'

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
