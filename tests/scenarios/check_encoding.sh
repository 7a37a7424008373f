#!/usr/bin/env bash
# check_encoding.sh <scratch folder> <build folder> <llvm-lipo> <sign> <tilo-sim> <compare_reports>: a method whose encoding
# is right on arm64 alone, which no other build would notice, is noticed by a story that the armv7 slice tells.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
scratch=$1 build=$2 lipo=$3 sign=$4 simulator=$5 compare=$6
rm -rf "$scratch"
mkdir -p "$scratch"
# The range of -textField:shouldChangeCharactersInRange:replacementString:, of two words of 64 bits.
right='c@:@{_NSRange=II}@' wrong='c@:@{_NSRange=QQ}@'
LC_ALL=C sed "s/$right/$wrong/" "$build/device/armv7/Tilo-stripped.dylib" >"$scratch/slice"
[ "$(cmp -l "$build/device/armv7/Tilo-stripped.dylib" "$scratch/slice" | wc -l)" -eq 2 ]
"$sign" fault "$scratch/slice" "$scratch/signed"
"$lipo" -create "$scratch/signed" -output "$scratch/Tilo.dylib"

if "$here/run_scenario.sh" "$scratch/acted" "$here/panel_stepped_and_typed.txt" "$simulator" -- \
  "$here/../../device/linux/run" armv7 "$build" "$scratch/Tilo.dylib" -- -- "$compare" 1e-4 >"$scratch/found"; then
  echo "not noticed"
  exit 1
fi
cat "$scratch/found"
grep -q 'panel_stepped_and_typed: .* differs' "$scratch/found"
