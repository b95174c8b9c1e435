#!/usr/bin/env bash
# Rebuilds the shipped demos: writes each level's scripted input with
# tools/demos/make_demos.py, lets the built game play it and store the world
# hashes, and copies the result into demos/. Run after changing the scripts or,
# deliberately, the game's rules (then say why in the commit).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
game="$root/build/game"
[ -x "$game/brindlequay" ] || { echo "build the game first (cmake --build build)" >&2; exit 1; }
levels=$(python3 "$root/tools/demos/make_demos.py" "$game/demos" | sed -n 's|^wrote .*/\(.*\)\.dem$|\1|p')
args=(+set skiplogo 1)
for level in $levels; do
  args+=(+rehashdemo "$level")
done
(cd "$game" && SDL_AUDIODRIVER=dummy xvfb-run -a ./brindlequay "${args[@]}" +quit >/dev/null 2>&1)
grep "^Demo .* rehashed" "$game/outputlog.txt"
for level in $levels; do
  cp "$game/demos/$level.dem" "$root/demos/"
done
