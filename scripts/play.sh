#!/usr/bin/env bash
# Installs what is missing, builds the game and its data (not the tests or the
# benchmarks, which take several minutes more) and starts it from its game
# directory.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
bash "$root/scripts/install-deps.sh"
build="$root/build-play"
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DBQ_TESTS=OFF -DBQ_BENCH=OFF >/dev/null
cmake --build "$build" -j2 --target brindlequay
cd "$build/game"
exec ./brindlequay "$@"
