#!/bin/sh
# check_checks.sh <scratch folder>: the two checks themselves notice what they are there to notice.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$1"
mkdir -p "$1"
cd "$1"

# tree: a tree with nothing wrong in it
tree() {
  rm -rf tree
  for folder in bridge platform simulator startup hooks settings panel controls; do
    mkdir -p "tree/$folder/inner"
    printf '#include <new>\n#include "bridge/object.hpp"\n' > "tree/$folder/inner/a.hpp"
  done
  echo '#include "platform/uikit/view.hpp"' > tree/simulator/b.cpp
}

# refused <what>: the layers check fails
refused() {
  if sh "$here/check_layers.sh" tree > /dev/null; then
    echo "not noticed: $1"
    exit 1
  fi
}

tree
sh "$here/check_layers.sh" tree || { echo 'refused a tree with nothing wrong in it'; exit 1; }

# wrong <from> <include>
wrong() {
  tree
  echo "#include $2" > "tree/$1/inner/wrong.cpp"
  refused "$1 includes $2"
}
wrong bridge '"platform/uikit/view.hpp"'
wrong bridge '"../../platform/uikit/view.hpp"'
wrong bridge '"simulator/uikit/views/view.hpp"'
wrong bridge '<hooks/scroll_view.hpp>'
wrong platform '"simulator/uikit/views/view.hpp"'
for folder in startup hooks settings panel controls; do
  wrong platform "\"$folder/a.hpp\""
  wrong simulator "\"$folder/a.hpp\""
  wrong "$folder" '"simulator/uikit/views/view.hpp"'
done
tree
rm -rf tree/simulator
refused 'a missing folder'
tree
rm tree/panel/inner/a.hpp
refused 'a folder without sources'

tree
lines() { i=0; while [ "$i" -lt "$1" ]; do echo; i=$((i + 1)); done; }
rm -rf sizes
mkdir -p sizes/inner
sh "$here/check_size.sh" sizes 10 20 > /dev/null && { echo 'not noticed: nothing to count'; exit 1; }
lines 10 > sizes/a.cpp
lines 10 > sizes/inner/b.hpp
sh "$here/check_size.sh" sizes 10 20 > /dev/null || { echo 'refused sizes that are allowed'; exit 1; }
sh "$here/check_size.sh" sizes 9 20 > /dev/null && { echo 'not noticed: a long file'; exit 1; }
sh "$here/check_size.sh" sizes 10 19 > /dev/null && { echo 'not noticed: too much in all'; exit 1; }
exit 0
