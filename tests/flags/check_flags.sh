#!/bin/sh
# check_flags.sh <compile_commands.json>: names every source that is compiled without -ffp-contract=off, and so might
# round a product and a sum once on one processor and twice on another.
set -eu
sources=$(jq length "$1")
[ "$sources" -gt 0 ] || { echo "$1: compiles nothing"; exit 1; }
fused=$(jq -r '.[] | select(.command | test(" -ffp-contract=off( |$)") | not) | .file' "$1")
[ -z "$fused" ] || { echo "may round a product and a sum once: $fused"; exit 1; }
echo "$sources sources"
