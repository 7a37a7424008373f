#!/usr/bin/env bash
# check_encoding.sh <scratch folder> <build folder> <llvm-lipo> <sign> <act-scenarios> <compare_reports>: a method whose encoding
# is right on arm64 alone, which no other build would notice, is noticed by a story that the armv7 slice tells.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
scratch=$1 build=$2 lipo=$3 sign=$4 act=$5 compare=$6
rm -rf "$scratch"
mkdir -p "$scratch"
# The range of -textField:shouldChangeCharactersInRange:replacementString:, of two words of 64 bits.
right='c@:@{_NSRange=II}@' wrong='c@:@{_NSRange=QQ}@'
LC_ALL=C sed "s/$right/$wrong/" "$build/device/armv7/Tilo-stripped.dylib" >"$scratch/slice"
[ "$(cmp -l "$build/device/armv7/Tilo-stripped.dylib" "$scratch/slice" | wc -l)" -eq 2 ]
"$sign" fault "$scratch/slice" "$scratch/signed"
"$lipo" -create "$scratch/signed" -output "$scratch/Tilo.dylib"

story=panel_stepped_and_typed
"$act" --into "$scratch/here" --pictures none "$here/$story.txt"
"$here/../../device/linux/run" armv7 "$build/armv7/act-scenarios" --into "$scratch/armv7" --pictures none \
  --library "$scratch/Tilo.dylib" "$here/$story.txt"
if "$here/compare.sh" "$story" "$scratch/here" "$scratch/armv7" - "$compare" 1e-4 >"$scratch/found"; then
  echo "not noticed"
  exit 1
fi
cat "$scratch/found"
grep -q 'panel_stepped_and_typed: .* differs' "$scratch/found"
