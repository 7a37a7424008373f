#!/bin/sh
# check_checks.sh <scratch folder>: the check of the compilers' options notices what it is there to notice.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$1"
mkdir -p "$1"
cd "$1"
commands() {
  printf '[{"file": "a.cpp", "command": "clang -ffp-contract=off -c a.cpp"}, {"file": "b.cpp", "command": "%s"}]' "$1" > commands.json
}
commands 'clang -c b.cpp -ffp-contract=off'
sh "$here/check_flags.sh" commands.json || { echo 'refused what is allowed'; exit 1; }
for command in 'clang -c b.cpp' 'clang -ffp-contract=on -c b.cpp' 'clang -o -ffp-contract=off.o'; do
  commands "$command"
  if found=$(sh "$here/check_flags.sh" commands.json); then echo "not noticed: $command"; exit 1; fi
  case $found in *b.cpp*) ;; *) echo "not named: $found"; exit 1 ;; esac
done
echo '[]' > commands.json
if sh "$here/check_flags.sh" commands.json > /dev/null; then echo 'not noticed: nothing is compiled'; exit 1; fi
