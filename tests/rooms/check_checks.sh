#!/bin/sh
# check_checks.sh <scratch folder>: the check of the rooms notices what it is there to notice.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$1"
mkdir -p "$1/docs"
cp "$here/../../docs/rooms.txt" "$1/docs"
cd "$1"
for room in $(sed -n 's/^room //p' docs/rooms.txt); do
  mkdir -p "$room"
  echo '#include "bridge/a.hpp"' > "$room/a.hpp"
done
sh "$here/check_rooms.sh" . || { echo 'refused a tree with nothing wrong in it'; exit 1; }

# upward <file> <what it includes>: is found, and named with its line
upward() {
  printf '// \n#include "%s"\n' "$2" > "$1"
  if found=$(sh "$here/check_rooms.sh" .); then
    echo "not noticed: $1 includes $2"
    exit 1
  fi
  case $found in
    "$1:2: "*"${2##*../}"*) rm "$1" ;;
    *) echo "not named: $1 includes $2: $found"; exit 1 ;;
  esac
}
upward bridge/wrong.hpp platform/a.hpp
upward settings/store/wrong.cpp settings/a.hpp
upward panel/wrong.cpp settings/a.hpp
upward settings/slider/wrong.cpp panel/a.hpp
upward startup/grid/wrong.cpp controls/a.hpp
upward hooks/wrong.hpp startup/a.hpp
upward simulator/input/wrong.cpp simulator/app/a.hpp
upward simulator/app/wrong.cpp simulator/product/a.hpp
upward simulator/quartz/wrong.cpp simulator/uikit/a.hpp
for folder in startup hooks settings panel controls settings/store startup/grid; do
  upward "$folder/wrong.hpp" simulator/uikit/a.hpp
  upward "simulator/json/wrong.cpp" "$folder/a.hpp"
  upward simulator/app/wrong.cpp "$folder/a.hpp"
  upward platform/wrong.hpp "$folder/a.hpp"
  upward bridge/wrong.hpp "$folder/a.hpp"
done
upward platform/wrong.hpp simulator/uikit/a.hpp
upward bridge/wrong.hpp simulator/uikit/a.hpp
upward bridge/wrong.hpp ../../platform/a.hpp
echo '#include <hooks/a.hpp>' > bridge/wrong.hpp
if sh "$here/check_rooms.sh" . > /dev/null; then echo 'not noticed: an include in angle brackets'; exit 1; fi
rm bridge/wrong.hpp
mkdir -p simulator/attic
echo > simulator/attic/a.cpp
if sh "$here/check_rooms.sh" . > /dev/null; then echo 'not noticed: a folder that is in no room'; exit 1; fi
rm -r simulator/attic
echo '#include "panel/popup_view.hpp"
#include "settings/gesture_controller.hpp"' > panel/right.cpp
echo '#include "startup/grid/a.hpp"' > hooks/right.cpp
sh "$here/check_rooms.sh" . || { echo 'refused what is allowed'; exit 1; }
rm -r controls
if sh "$here/check_rooms.sh" . > /dev/null; then echo 'not noticed: a room without sources'; exit 1; fi
