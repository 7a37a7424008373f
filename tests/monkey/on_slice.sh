#!/usr/bin/env bash
# on_slice.sh SCRATCH BUILD SLICE OPTIONS...: the monkey with the slice that ships, in an emulated processor, beside the
# same walk on this machine: after each step both report the same. BUILD has the plain build, and the slice's below it.
set -euo pipefail
tree=$(cd "$(dirname "$0")/../.." && pwd)
scratch=$1 build=$2 slice=$3
shift 3

# Programs look for the library beside themselves, and the monkey for the program that it starts.
rm -rf "$scratch"
mkdir -p "$scratch/started"
cp "$build/$slice/monkey" "$scratch"
cp "$build/$slice/tilo-sim" "$scratch/started"
for folder in "$scratch" "$scratch/started"; do
  cp -rL "$build/$slice"/{Tilo.bundle,Tilo.plist,Tilo_Main.bundle,libIconSupport.so} "$folder"
  cp "$build/Tilo.dylib" "$folder/libTilo.so"
done
printf '#!/bin/sh\nexec "%s" %s "%s" "$@"\n' "$tree/device/linux/run" "$slice" "$scratch/started/tilo-sim" >"$scratch/tilo-sim"
chmod +x "$scratch/tilo-sim"

"$build/monkey" "$@" --told "$scratch/here"
"$tree/device/linux/run" "$slice" "$scratch/monkey" "$@" --told "$scratch/there"
steps=$(wc -l <"$scratch/here")
[ "$steps" -gt 0 ] || { echo "no step was told"; exit 1; }
if ! cmp -s "$scratch/here" "$scratch/there"; then
  echo "here (<) and on $slice (>) first differ after:"
  diff "$scratch/here" "$scratch/there" | sed -n 1,8p
  exit 1
fi
echo "on $slice: $steps steps, and the same reports after each"
