#!/usr/bin/env bash
# table.sh: a line of a Markdown table for each scenario, with what its first line says; docs/scenarios.md has these.
set -euo pipefail
cd "$(dirname "$0")"
for scenario in [a-z]*.txt; do
  [ "$scenario" = CMakeLists.txt ] || printf '| `%s` | %s |\n' "${scenario%.txt}" "$(sed -n '1s/^# //p' "$scenario")"
done
