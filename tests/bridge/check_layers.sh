#!/bin/sh
# check_layers.sh <root of the tree>: fails when a source includes something of a layer it may not know. The
# bridge stands on nothing of ours, the platform's faces on the bridge, the library and the simulator each on
# those two and never on each other.
set -eu
cd "$1"
library='startup hooks settings panel controls'
failed=0

# layer <folder> <folders it may not include from>...
layer() {
  folder=$1
  shift
  [ -d "$folder" ] || return 0
  if [ -z "$(find "$folder/" -name '*.[ch]pp')" ]; then
    echo "$folder: no sources"
    failed=1
    return 0
  fi
  forbidden=$(echo "$@" | tr ' ' '|')
  line="^[[:space:]]*#[[:space:]]*include[[:space:]]*[<\"](\.\./)*($forbidden)/"
  if grep -rnE --include='*.[ch]pp' "$line" "$folder/"; then
    echo "$folder: must not include from: $*"
    failed=1
  fi
}

for needed in bridge platform simulator; do
  [ -d "$needed" ] || { echo "$needed: no such folder"; failed=1; }
done
# shellcheck disable=SC2086 # the list is meant to be split
{
  layer bridge platform simulator $library
  layer platform simulator $library
  layer simulator $library
  for folder in $library; do layer "$folder" simulator; done
}
exit $failed
