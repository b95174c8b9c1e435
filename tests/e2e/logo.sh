#!/usr/bin/env bash
# The logo card plays at start: recorded as movie frames, the brightest frame
# shows the maker's line in yellow and the game's name in white on black.
set -euo pipefail
game_dir=$1
source "$(dirname "$0")/lib.bash"
work=$(make_game_copy "$game_dir")
# Recording starts after start-up, which resets movierecord to 0.
start_game "$work" +movierecord 8
wait_for_log "$work" "REND New Res" 30
# The card fades in for about 3.2 s and out again.
wait_for_log "$work" "Writing screenshot to screenshots/movie0030.png" 30
stop_game
ls "$work"/screenshots/movie*.png >/dev/null 2>&1 || fail "no movie frames of the logo card"
python3 - "$work"/screenshots/movie002[2468].png <<'PY' || fail "the logo card does not show its two lines"
import sys, zlib, struct

def read_png(path):
    data = open(path, "rb").read()
    pos, chunks = 8, b""
    while pos < len(data):
        length, kind = struct.unpack(">I4s", data[pos:pos + 8])
        body = data[pos + 8:pos + 8 + length]
        if kind == b"IHDR":
            width, height, depth, colour = struct.unpack(">IIBB", body[:10])
            channels = {2: 3, 6: 4}[colour]
        elif kind == b"IDAT":
            chunks += body
        pos += 12 + length
    raw = zlib.decompress(chunks)
    stride = width * channels
    rows, prev = [], bytearray(stride)
    for y in range(height):
        f, line = raw[y * (stride + 1)], bytearray(raw[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for i in range(stride):
            a = line[i - channels] if i >= channels else 0
            b, c = prev[i], prev[i - channels] if i >= channels else 0
            p = a + b - c
            pa, pb, pc = abs(p - a), abs(p - b), abs(p - c)
            pred = [0, a, b, (a + b) // 2, a if pa <= pb and pa <= pc else (b if pb <= pc else c)][f]
            line[i] = (line[i] + pred) & 255
        rows.append(line)
        prev = line
    return width, height, channels, rows

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
