#!/usr/bin/env bash
# Builds with gcc --coverage in build-coverage/, runs the unit tests (and the
# end-to-end tests with --e2e) and prints gcovr's line and branch summary for
# src/. The full per-file table goes to build-coverage/coverage.txt.
# Usage: scripts/coverage.sh [--e2e] [gtest filter]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build="$root/build-coverage"
e2e=0
if [ "${1:-}" = "--e2e" ]; then
  e2e=1
  shift
fi
filter=${1:-*}
command -v gcovr >/dev/null || bash "$root/scripts/install-deps.sh"
launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache)
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Debug -DBQ_BENCH=OFF "${launcher[@]}" \
  -DCMAKE_CXX_FLAGS="--coverage" -DCMAKE_C_FLAGS="--coverage" \
  -DCMAKE_EXE_LINKER_FLAGS="--coverage" -DCMAKE_SHARED_LINKER_FLAGS="--coverage" >/dev/null
# Everything, so the tests of the generated media find it.
cmake --build "$build" -j2
# Counts from an earlier run would add to this one.
find "$build" -name '*.gcda' -delete
mkdir -p "$build/testwork"
(cd "$build/testwork" && BQ_SOURCE_DIR="$root" BQ_GAME_DIR="$build/game" \
  "$build/tests/brindlequay_tests" --gtest_filter="$filter" --gtest_brief=1) || echo "some unit tests failed" >&2
if [ "$e2e" = 1 ]; then
  for t in "$root"/tests/e2e/*.sh; do
    bash "$t" "$build/game" >/dev/null 2>&1 || echo "e2e $(basename "$t") failed" >&2
  done
fi
gcovr --root "$root" --filter "$root/src/" --exclude-throw-branches --exclude-unreachable-branches \
  -j 2 --print-summary --txt "$build/coverage.txt" "$build"
