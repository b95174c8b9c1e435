#!/usr/bin/env bash
# data.zip alone: a directory holding only the binary and the data.zip that
# the build packs with Info-ZIP's zip runs the test level, with its fonts,
# textures and definitions read from the archive, and plays a shipped demo
# from it.
set -euo pipefail
game_dir=$1
zip=$game_dir/../data.zip
source "$(dirname "$0")/lib.bash"
[ -f "$zip" ] || fail "no data.zip beside the game directory (build the datazip target)"
work=$(mktemp -d /tmp/bq-e2e.XXXXXX)
cp "$game_dir/brindlequay" "$zip" "$work"/
start_game "$work" +set skiplogo 1 +map test
wait_for_log "$work" "Found on disk: data/config.txt\|NOT Found on disk: maps/test.xml"
focus_game_window
sleep 2
xdotool key --window "$win" F12
for _ in $(seq 50); do ls "$work"/screenshots/screenshot*.png >/dev/null 2>&1 && break; sleep 0.1; done
sleep 0.5
stop_game
log=$work/outputlog.txt

[ ! -e "$work/maps" ] || fail "maps/ appeared on disk"
for f in data/gamevars.xml data/keymaps.xml data/default.cfg maps/test.xml data/fonts/vera_12.xml \
         data/fonts/vera_12.png; do
  grep -q "^NOT Found on disk: $f$" "$log" || fail "$f was not asked of the archive"
done
grep -Eq "^NOT Found on disk: data/(images|particles)/.*\.(png|tga)$" "$log" || fail "no texture came from the archive"
if grep -q "data/sounds/" "$log"; then
  grep -q "^NOT Found on disk: data/sounds/.*\.wav$" "$log" || fail "no sound came from the archive"
fi
if grep "^Not in any archive: " "$log" | grep -v "data/config.txt\|data/userconfig.txt\|data/autoexec.txt"; then
  fail "files above were in neither the directory nor the archive"
fi
grep -q "Failed to parse\|Failed to load level\|fallback" "$log" && fail "a load failed"
shot=$(ls "$work"/screenshots/screenshot*.png 2>/dev/null | head -n 1)
[ -n "$shot" ] || fail "no screenshot"
PYTHONPATH="$(dirname "$0")" /usr/bin/python3 - "$shot" <<'PY' || fail "the screenshot does not show a textured, lettered level"
import sys
from png_rows import read_png

w, h, ch, rows = read_png(sys.argv[1])
colours = set()
white = 0
for row in rows[::2]:
    for x in range(0, w * ch, ch * 2):
        r, g, b = row[x], row[x + 1], row[x + 2]
        colours.add((r >> 3, g >> 3, b >> 3))
        white += r > 230 and g > 230 and b > 230
print(sys.argv[1], "colours", len(colours), "white", white)
# Archive textures give many colours; the level clock's font is white.
sys.exit(0 if len(colours) > 150 and white > 20 else 1)
PY
grep -q "AVG FPS:" "$log" || fail "the game did not shut down cleanly"
kill "$XVFB_PID" 2>/dev/null || true

rm -f "$log"
start_game "$work" +set skiplogo 1 +timedemo test nodraw
wait_for_log "$work" "^Demo test played: [0-9]* steps, all [0-9]* world hashes matched$" 120
stop_game
grep -q "^NOT Found on disk: demos/test.dem$" "$log" || fail "the demo was not read from the archive"
[ ! -e "$work/demos/test.dem" ] || fail "the demo was on disk"
echo "datazip ok"
