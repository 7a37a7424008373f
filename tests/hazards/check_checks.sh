#!/bin/sh
# check_checks.sh <scratch folder>: the check of the page on hazards notices what it is there to notice.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$1"
mkdir -p "$1/tests/one"
cd "$1"
printf 'TEST(Deer, Runs) {\n}\nTEST_P(Hare,\n       Jumps) {\n}\n' > tests/one/one_test.cpp
printf 'add_test(NAME "one: is sound" COMMAND one)\nadd_test(NAME one.checks COMMAND one)\n' > tests/one/CMakeLists.txt
page() { printf '# Page\n\n| what happens | what is done | shown by |\n|---|---|---|\n%s\n' "$1" > page.md; }
check() { python3 -B "$here/check_page.py" page.md .; }
row='| a \| b `c` | d | `Deer.Runs`, `Hare.Jumps`, `one: is sound`, `one.checks` |'
page "$row"
check || { echo 'refused a page with nothing wrong in it'; exit 1; }
refused() { # PAGE WORDS
  page "$1"
  if found=$(check); then echo "not noticed: $1"; exit 1; fi
  case $found in
    *"$2"*) ;;
    *) echo "not named: $1: $found"; exit 1 ;;
  esac
}
refused "$row
| a | b | \`Deer.Runs\`, \`Deer.Walks\` |" "page.md:6: there is no test 'Deer.Walks'"
refused '| a | b | `Hare.Runs` |' "'Hare.Runs'"
refused '| a | b | `Deer.Run` |' "'Deer.Run'"
refused '| a | b | |' 'page.md:5: names no test'
refused '| `script/gone` | b | `Deer.Runs` |' "there is no 'script/gone'"
refused '' 'has no table'
