#!/usr/bin/env bash
# Particle effects in a real window: every shipped definition starts without
# falling back to "default" or to the fallback texture, and a screenshot of
# an explosion, blood, a rail trail, a lightning bolt and floating text shows
# their colours.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"
ids=$(sed -n 's/.*<particle id="\([a-z0-9]*\)".*/\1/p' "$game_dir/data/particles/particles.xml")
[ "$(wc -w <<<"$ids")" -ge 30 ] || fail "expected several dozen shipped definitions, found: $ids"
{
  echo "set con_height 0"
  for id in $ids; do echo "spawnparticle $id -300 -200"; done
} > "$work/data/everyeffect.txt"
cat > "$work/data/showcase.txt" <<'S'
spawnparticle explosionfire -60 60
spawnparticle explosionspark -60 60
spawnparticle explosionshock -60 60
spawnparticle debugbloodexplosion 120 60
spawnparticle rail 150 190 -150 190
spawnparticle lightning 150 215 -150 215
spawnparticle teleporter 40 100
spawnparticle text 40 140
S
echo "bind f9 screenshot" > "$work/data/autoexec.txt"
start_game "$work" +set skiplogo 1 +set vidwidth 800 +set vidheight 600 +set vidfullscreen 0 +map test
wait_for_log "$work" "Loaded [0-9]* particle defs from data/particles/particles.xml" 20
wait_for_log "$work" "REND New Res" 20
sleep 2
focus_game_window
xdotool key --window "$win" grave
sleep 0.3
type_line "exec everyeffect.txt"
sleep 1.5
type_line "exec showcase.txt"
xdotool key --window "$win" grave
sleep 0.05
xdotool key --window "$win" F9
wait_for_log "$work" "Writing screenshot to screenshots/screenshot0000.png" 10
sleep 0.5
stop_game

grep -q "Couldn't find particle def" "$log" && fail "a shipped effect fell back to default: $(grep "Couldn't find particle def" "$log" | sort -u)"
grep -q "lacks" "$log" && fail "a shipped definition misses attributes: $(grep lacks "$log")"
grep "FAILED to load texture" "$log" | grep -q particles && fail "a particle texture is missing: $(grep "FAILED to load texture" "$log")"
shot="$work/screenshots/screenshot0000.png"
[ -s "$shot" ] || fail "no screenshot"
[ -n "${BQ_E2E_SHOTS:-}" ] && cp "$shot" "$BQ_E2E_SHOTS/particles.png"
PYTHONPATH="$(dirname "$0")" /usr/bin/python3 - "$shot" <<'PY' || fail "the screenshot does not show the effects"
import sys
from png_rows import read_png

w, h, ch, rows = read_png(sys.argv[1])
fire = blood = rail = 0
for row in rows:
    for x in range(0, w * ch, ch):
        r, g, b = row[x], row[x + 1], row[x + 2]
        if r > 220 and 90 < g < 220 and b < 120:
            fire += 1
        if 100 < r < 230 and g < 40 and b < 40:
            blood += 1
        if g > 180 and b > 150 and r < 150:
            rail += 1
print("fire", fire, "blood", blood, "rail", rail)
if fire < 400 or blood < 20 or rail < 100:
    sys.exit(1)
PY
echo "particles ok: $(wc -w <<<"$ids") definitions"
