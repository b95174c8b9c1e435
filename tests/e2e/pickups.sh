#!/usr/bin/env bash
# The pickup walk: starting hurt, the player walks right through every
# pickup; the log then shows health, armour, the guns, ammunition and cash
# (with upgrades) gained. The HUD with the upgrade screen is captured at two
# window sizes and must sit inside the window.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"

write_autoexec <<'SCRIPT'
bind k listinventory
bind p screenshot
bind o exec small.txt
SCRIPT
cat > "$work/data/small.txt" <<'SCRIPT'
set vidwidth 640
set vidheight 480
vidrestart
SCRIPT

# The level loads from the command line, once every effect is ready.
start_game "$work" +map pickups +give health 30
focus_game_window
sleep 1
xdotool key --window "$win" Escape
sleep 1.5

inventory() { log_line_after_key k "Inventory:"; }
field() { awk -v f="$1" '{ for (i = 1; i < NF; ++i) if ($i == f) print $(i + 1) }'; }

start=$(inventory)
[ "$(echo "$start" | field health)" = 30 ] || fail "did not start hurt: $start"
xdotool keydown --window "$win" d
sleep 9
xdotool keyup --window "$win" d
sleep 0.5
end=$(inventory)
echo "$start"
echo "$end"
[ "$(echo "$end" | field health)" -gt 30 ] || fail "no health collected: $end"
[ "$(echo "$end" | field armour)" -gt 0 ] || fail "no armour collected: $end"
[ "$(echo "$end" | field owned)" = "1,2,3,4,5,6,7,8,9,10" ] || fail "not every gun collected: $end"
[ "$(echo "$end" | field cash)" -ge 100 ] || fail "not enough cash collected: $end"
[ "$(echo "$end" | field level)" -ge 3 ] || fail "no upgrades bought: $end"
grep -q "Upgraded to Level" "$log" || true

# The upgrade screen on Tab, at 1024 x 768 and at 640 x 480.
xdotool keydown --window "$win" Tab
sleep 0.4
xdotool key --window "$win" p
wait_for_log "$work" "Writing screenshot to screenshots/screenshot0000.png" 10
xdotool keyup --window "$win" Tab
xdotool key --window "$win" o
sleep 2
focus_game_window
xdotool keydown --window "$win" Tab
sleep 0.4
xdotool key --window "$win" p
wait_for_log "$work" "Writing screenshot to screenshots/screenshot0001.png" 10
xdotool keyup --window "$win" Tab
sleep 0.3
stop_game
grep -q "AVG FPS:" "$log" || fail "the game did not shut down cleanly"
check_no_missing_media

[ -z "${BQ_SHOTS:-}" ] || cp "$work/screenshots/screenshot0000.png" "$BQ_SHOTS/pickups_1024.png"
[ -z "${BQ_SHOTS:-}" ] || cp "$work/screenshots/screenshot0001.png" "$BQ_SHOTS/pickups_640.png"
# Both pictures: the status panel's white digits sit in the top-left corner
# and the grey-blue upgrade panel inside the window.
for n in 0 1; do
  shot="$work/screenshots/screenshot000$n.png"
  [ -s "$shot" ] || fail "no screenshot $n"
  PYTHONPATH="$(dirname "$0")" /usr/bin/python3 - "$shot" <<'PY' || fail "HUD not in place on $shot"
import sys
from png_rows import read_png
w, h, ch, rows = read_png(sys.argv[1])
def count(x0, y0, x1, y1, test):
    n = 0
    for y in range(int(y0 * h), int(y1 * h)):
        row = rows[y]
        for x in range(int(x0 * w), int(x1 * w)):
            p = row[x * ch:x * ch + 3]
            n += test(*p)
    return n
white = lambda r, g, b: r > 200 and g > 200 and b > 200
panel = lambda r, g, b: b > r + 20 and b > g + 10 and 20 < b < 200
status = count(0.0, 0.0, 0.25, 0.2, white)
upgrades = count(0.43, 0.27, 0.9, 0.85, white)
blue = count(0.43, 0.27, 0.9, 0.85, panel)
print(w, h, status, upgrades, blue)
sys.exit(0 if status > 30 and upgrades > 0.01 * w * h and blue > 0.002 * w * h else 1)
PY
done
echo "pickups ok: $end"
