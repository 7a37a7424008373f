#!/usr/bin/env bash
# check_crash.sh <scratch folder> <build folder> <folder of LLVM's tools> <sign> <slice>: a slice of which one hook runs into
# an instruction that is none tells that hook's name and the method that it is for, and the process ends by the signal.
set -euo pipefail
tree=$(cd "$(dirname "$0")/../.." && pwd)
scratch=$1 build=$2 tools=$3 sign=$4 slice=$5
rm -rf "$scratch"
mkdir -p "$scratch"
case $slice in
  arm64) undefined='\x00\x00\x00\x00' ;;
  armv7) undefined='\xf0\x00\xf0\xe7' ;;
esac
address=$("$tools/llvm-nm" "$build/device/$slice/Tilo.dylib" | sed -n 's/^\([0-9a-f]*\) [tT] __ZN4tilo5hooks19verticalIconPaddingE.*/\1/p')
cp "$build/device/$slice/Tilo-stripped.dylib" "$scratch/slice"
# Code lies in the file where it lies in memory.
# shellcheck disable=SC2059 # the bytes are its format
printf "$undefined" | dd of="$scratch/slice" bs=1 seek=$((16#$address)) conv=notrunc status=none
"$sign" crash "$scratch/slice" "$scratch/signed"
"$tools/llvm-lipo" -create "$scratch/signed" -output "$scratch/Tilo.dylib"

status=0
"$tree/device/linux/run" "$slice" "$build/$slice/tilo-sim" --library "$scratch/Tilo.dylib" --set enabled=YES --set icons=YES >"$scratch/said" 2>&1 || status=$?
cat "$scratch/said"
[ "$status" -gt 128 ]
grep -qx "tilo-sim: Illegal instruction, with the $slice slice running:" "$scratch/said"
grep -qxF '  in tilo::hooks::verticalIconPadding(SBIconListView), for -[SBIconListView verticalIconPadding]' "$scratch/said"
