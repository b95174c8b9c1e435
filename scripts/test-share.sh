#!/usr/bin/env bash
# Prints the size of the C++ tests against the code they test, in lines that
# are neither blank nor comments: tests/**/*.cpp|h against src/**/*.cpp|h plus
# the code under tools/. The project aims at 25-33%. The end-to-end scripts
# and media checks are shown beside it, not counted.
set -euo pipefail
cd "$(dirname "$0")/.."
count() {
  # Tracked files plus new ones not yet added; generated and ignored files never count.
  git ls-files --cached --others --exclude-standard -- "$@" | sort -u |
    while read -r f; do [ -f "$f" ] && cat "$f"; done |
    grep -Ev '^[[:space:]]*$' | grep -Ev '^[[:space:]]*(//|/\*|\*|#( |$))' | wc -l
}
tests=$(count 'tests/*.cpp' 'tests/*.h')
src=$(count 'src/*.cpp' 'src/*.h')
tools=$(count 'tools/*.py' 'tools/*.js' 'tools/*.cpp' 'tools/*.h' 'tools/*.sh')
other=$(count 'tests/*.sh' 'tests/*.py' 'tests/*.bash')
share=$(awk -v t="$tests" -v c="$((src + tools))" 'BEGIN { printf "%.1f", 100 * t / c }')
echo "tests: $tests lines; code: $((src + tools)) lines (src $src, tools $tools); tests are $share% of the code"
echo "(end-to-end and media test scripts, not counted: $other lines)"
