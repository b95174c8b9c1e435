#!/usr/bin/env bash
# HUD colours in a real window: the armour, swarm and weapon texts are red,
# and with no cash the upgrade screen greys every level it cannot buy.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"

write_autoexec <<'SCRIPT'
bind p screenshot
bind o +showupgrades
SCRIPT

start_game "$work" +map test
focus_game_window
sleep 1
xdotool key --window "$win" Escape
sleep 1.5
xdotool key --window "$win" p
wait_for_log "$work" "Writing screenshot to screenshots/screenshot0000.png" 10
xdotool keydown --window "$win" o
sleep 0.5
xdotool key --window "$win" p
wait_for_log "$work" "Writing screenshot to screenshots/screenshot0001.png" 10
xdotool keyup --window "$win" o
sleep 0.5
stop_game
[ -z "${BQ_SHOTS:-}" ] || cp "$work/screenshots/screenshot0000.png" "$BQ_SHOTS/hud_colours.png"
[ -z "${BQ_SHOTS:-}" ] || cp "$work/screenshots/screenshot0001.png" "$BQ_SHOTS/hud_upgrades.png"

PYTHONPATH="$(dirname "$0")" /usr/bin/python3 - "$work/screenshots/screenshot0000.png" \
  "$work/screenshots/screenshot0001.png" <<'PY' || fail "HUD colours wrong"
import sys
from png_rows import read_png

def count(path, x0, y0, x1, y1, test):
    w, h, ch, rows = read_png(path)
    n = 0
    for y in range(int(y0 * h), int(y1 * h)):
        row = rows[y]
        for x in range(int(x0 * w), int(x1 * w)):
            n += test(*row[x * ch:x * ch + 3])
    return n

red = lambda r, g, b: r > 180 and g < 60 and b < 60
grey = lambda r, g, b: 80 < r < 130 and abs(r - g) < 12 and abs(r - b) < 12
status_red = count(sys.argv[1], 0.0, 0.0, 0.25, 0.3, red)
weapon_red = count(sys.argv[1], 0.75, 0.0, 1.0, 0.2, red)
upgrades_grey = count(sys.argv[2], 0.43, 0.27, 0.95, 0.9, grey)
print('red status', status_red, 'red weapon panel', weapon_red, 'grey upgrades', upgrades_grey)
sys.exit(0 if status_red > 40 and weapon_red > 40 and upgrades_grey > 200 else 1)
PY
echo "hud colours ok"
