#!/usr/bin/env bash
# Records the run through the adventure with the demo bot: every route in
# tools/demos/routes/, in the order of the demos they write (runNN_...), each
# going on with the player the one before left. Replays the result in the
# real game and, when every demo finishes its level, copies it into demos/.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
game="$root/build/game"
[ -x "$game/demobot" ] && [ -x "$game/brindlequay" ] ||
  { echo "build first: cmake --build build --target demobot brindlequay stage_data" >&2; exit 1; }
mapfile -t routes < <(for f in "$root"/tools/demos/routes/*.route; do
  echo "$(sed -n 's/^demo \(run[0-9]*_[^ ]*\).*/\1/p' "$f") $f"; done | sort | cut -d' ' -f2)
(cd "$game" && ./demobot "${routes[@]}") | grep '^demobot'
names=$(for f in "${routes[@]}"; do sed -n 's/^demo \([^ ]*\).*/\1/p' "$f"; done)
args=(+set skiplogo 1)
for n in $names; do args+=(+timedemo "$n" nodraw); done
(cd "$game" && SDL_AUDIODRIVER=dummy timeout 300 xvfb-run -a ./brindlequay "${args[@]}" +quit >/dev/null 2>&1) || true
for n in $names; do
  grep -q "^Demo $n played: .* world hashes matched$" "$game/outputlog.txt" ||
    { echo "$n does not replay in the game" >&2; exit 1; }
  grep "^demo $n: " "$game/outputlog.txt"
  cp "$game/demos/$n.dem" "$root/demos/"
done
