#!/usr/bin/env bash
# The logo card plays at start: recorded as movie frames, the brightest frame
# shows the maker's line in yellow and the game's name in white on black.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"
# Recording starts after start-up, which resets movierecord to 0.
start_game "$work" +movierecord 8
wait_for_log "$work" "REND New Res" 30
# The card fades in for about 3.2 s and out again.
wait_for_file "$work/screenshots/movie0031.png" 30
stop_game
# Movie frames are written without a line each.
grep -q "Writing screenshot" "$work/outputlog.txt" && fail "movie frames were announced in the log"
ls "$work"/screenshots/movie*.png >/dev/null 2>&1 || fail "no movie frames of the logo card"
PYTHONPATH="$(dirname "$0")" /usr/bin/python3 - "$work"/screenshots/movie002[2468].png <<'PY' || fail "the logo card does not show its two lines"
import sys
from png_rows import read_png

best = None
for path in sys.argv[1:]:
    w, h, ch, rows = read_png(path)
    yellow = white = 0
    top = bottom = 0
    for y, row in enumerate(rows):
        for x in range(0, w * ch, ch):
            r, g, b = row[x], row[x + 1], row[x + 2]
            if r > 200 and 150 < g < 225 and b < 80:
                yellow += 1
                top += y < h // 2
            elif r > 200 and g > 200 and b > 200:
                white += 1
                bottom += y >= h // 2
    if best is None or yellow > best[1]:
        best = (path, yellow, white, top, bottom)
print("brightest frame", best)
path, yellow, white, top, bottom = best
# Rows run top to bottom here: the yellow line is above the centre, the white one below.
sys.exit(0 if yellow > 500 and white > 300 and top > yellow * 0.9 and bottom > white * 0.9 else 1)
PY
echo "logo ok"
