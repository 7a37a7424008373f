#!/bin/sh
# check_rooms.sh <root of the tree>: names the file and line of every include that goes up in the list docs/rooms.txt, or
# from the library's house to the simulator's, or back.
set -eu
cd "$1"
rooms=$(sed -n 's/^room //p' docs/rooms.txt)
for room in $rooms; do
  [ -n "$(find "$room" -name '*.[ch]pp' 2>/dev/null)" ] || { echo "$room: a room without sources"; exit 1; }
done
# Precompiled headers stand beside the rooms.
outside=$(find . -path ./build -prune -o -name '*.[ch]pp' -print | sed 's|^\./||' |
  grep -E '^(startup|hooks|settings|panel|controls|simulator|platform|bridge)/' |
  grep -vE "^($(echo $rooms | tr ' ' '|'))/|/precompiled\.hpp$") || true
[ -z "$outside" ] || { echo "in no room: $outside"; exit 1; }
# shellcheck disable=SC2086 # a folder a word
grep -rnE --include='*.[ch]pp' '^[[:space:]]*#[[:space:]]*include[[:space:]]*["<]' $rooms |
  sort -u | awk '
  FILENAME == "docs/rooms.txt" {
    if ($1 == "house") current = $2
    if ($1 == "room") { place[$2] = ++count; house[$2] = current }
    if ($1 == "face") face[$2] = 1
    next
  }
  function room(path) {
    while (sub(/\/[^\/]*$/, "", path))
      if (path in place) return path
    return ""
  }
  {
    split($0, part, ":")
    included = $0
    sub(/^[^"<]*["<](\.\.\/)*/, "", included)
    sub(/[">].*/, "", included)
    from = room(part[1])
    to = room(included)
    if (to == "" || from == "") next
    strange = house[to] != house[from] && house[to] != "ground"
    if (strange || (place[to] < place[from] && !(included in face))) {
      print part[1] ":" part[2] ": " from " must not include from " to (strange ? "" : ", which is above it") ": " included
      wrong = 1
    }
  }
  END { exit wrong }
' docs/rooms.txt -
