#!/bin/sh
# check_checks.sh <scratch folder>: the check of sizes notices what it is there to notice.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$1"
mkdir -p "$1"
cd "$1"

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
