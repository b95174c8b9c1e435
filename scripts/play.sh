#!/usr/bin/env bash
# Installs what is missing, builds the game and starts it from its game directory.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
bash "$root/scripts/install-deps.sh"
cmake -S "$root" -B "$root/build" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$root/build" -j2
cd "$root/build/game"
exec ./brindlequay "$@"
