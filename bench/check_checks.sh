#!/bin/sh
# check_checks.sh <scratch folder>: the check of the page's commands notices what it is there to notice.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$1"
mkdir -p "$1/tests/one" "$1/bench" "$1/script" "$1/built"
cd "$1"
echo 'add_test(NAME one COMMAND ${CMAKE_SOURCE_DIR}/script/plot --short)' > tests/one/CMakeLists.txt
touch bench/CMakeLists.txt script/plot script/idle built/libmessages.so
printf '#!/bin/sh\n[ "$1" = 1 ]\n' > built/tilo-compare
printf '#!/bin/sh\necho broken >&2; exit 3\n' > built/tilo-load
printf '#!/bin/sh\necho relayout; echo "press on plus"\n' > built/tilo-bench
chmod +x built/tilo-*
page() { printf '# Page\n\n```sh\n%s\n```\n' "$1" > page.md; }
check() { python3 -B "$here/check_commands.py" page.md . built; }
page "script/plot --write  # a comment
build/tilo-compare 61
build/tilo-bench --benchmark_filter='^relay|press'
perf record build/tilo-bench && perf report
LD_PRELOAD=build/libmessages.so build/tilo-bench --benchmark_filter=press"
check || { echo 'refused a page with nothing wrong in it'; exit 1; }
refused() { # COMMAND WORDS
  page "$1"
  if found=$(check); then echo "not noticed: $1"; exit 1; fi
  case $found in
    *"$2"*) ;;
    *) echo "not named: $1: $found"; exit 1 ;;
  esac
}
refused 'build/tilo-compare 61
build/gone 3' "page.md:5: there is no 'build/gone'"
refused 'script/gone' "there is no 'script/gone'"
refused 'script/idle' "no test runs 'script/idle'"
refused 'build/tilo-load 41' "'tilo-load' ends with 3: broken"
refused "build/tilo-bench --benchmark_filter='press|choosing'" "no benchmark is called 'choosing'"
refused 'perf record build/gone && perf report' "there is no 'build/gone'"
refused 'LD_PRELOAD=build/gone.so build/tilo-bench' "there is no 'build/gone.so'"
refused '' 'has no commands'
