#!/usr/bin/env bash
# on_slice.sh <scratch folder> <build folder of the slice> <slice> <library that ships> <exceptions> [<jobs>]: the library's tests with
# the slice that ships in place of this machine's library, many at once in one emulated processor. The exceptions, each
# with its reason, are a line each: "fails", which one that passes belies, or "not tried", which would take an emulator for ever.
set -euo pipefail
ulimit -c 0
tree=$(cd "$(dirname "$0")/../.." && pwd)
scratch=$1 build=$2 slice=$3 library=$4 exceptions=$5 jobs=${6:-2}

# Programs look for the library beside themselves, and tests for the program that they start.
rm -rf "$scratch"
mkdir -p "$scratch/started"
cp "$build/library-tests" "$scratch"
cp "$build/tilo-sim" "$scratch/started"
for folder in "$scratch" "$scratch/started"; do
  cp -rL "$build"/{Tilo.bundle,Tilo.plist,Tilo_Main.bundle,libIconSupport.so,libstranger.so} "$folder"
  cp "$library" "$folder/libTilo.so"
done
printf '#!/bin/sh\nexec "%s" %s "%s" "$@"\n' "$tree/device/linux/run" "$slice" "$scratch/started/tilo-sim" >"$scratch/tilo-sim"
chmod +x "$scratch/tilo-sim"

run() { "$tree/device/linux/run" "$slice" "$scratch/library-tests" "$@"; }
sed 's/ .*//' "$exceptions" | sort >"$scratch/excepted"
run --list | sort >"$scratch/all"
gone=$(comm -13 "$scratch/all" "$scratch/excepted")
[ -z "$gone" ] || { printf 'no such tests, in %s:\n%s\n' "$exceptions" "$gone"; exit 1; }
comm -23 "$scratch/all" "$scratch/excepted" >"$scratch/expected"

sed -n 's/ fails: .*//p' "$exceptions" | sort >"$scratch/failing"

bad=0
run --jobs "$jobs" --limit 600 --names "$scratch/expected" --times "$scratch/times" || bad=1
run --jobs "$jobs" --limit 600 --names "$scratch/failing" >"$scratch/said" 2>&1 || true
sed -n 's/^failed: //p' "$scratch/said" | sort >"$scratch/failed"
passing=$(comm -23 "$scratch/failing" "$scratch/failed")
[ -z "$passing" ] || { printf 'these pass, in spite of %s:\n%s\n' "$exceptions" "$passing"; bad=1; }
echo "on $slice: $(wc -l <"$scratch/expected") of $(wc -l <"$scratch/all") tests run, $(wc -l <"$scratch/excepted") are exceptions"
exit "$bad"
