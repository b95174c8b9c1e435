#!/usr/bin/env bash
# "+map quay +levelshot quay.png" writes one picture of the whole level,
# 2048 pixels on its long side, with the level's bodies drawn in it; a name
# that would leave the screenshots folder is refused.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"
start_game "$work" +map quay +levelshot quay.png +levelshot ../escape.png
wait_for_log "$work" "Wrote level picture screenshots/quay.png"
stop_game
shot="$work/screenshots/quay.png"
[ -s "$shot" ] || fail "no level picture"
[ -e "$work/escape.png" ] && fail "levelshot wrote outside screenshots/"
/usr/bin/python3 - "$shot" <<'PY' || fail "level picture is wrong"
import sys
from PIL import Image
image = Image.open(sys.argv[1]).convert('RGB')
w, h = image.size
assert max(w, h) == 2048, (w, h)
assert min(w, h) > 16, (w, h)
# The quay is wide and low: the picture must be too.
assert w > 2 * h, (w, h)
colours = image.getcolors(1 << 24)
background = max(colours)[1]
drawn = sum(n for n, c in colours if c != background)
assert drawn > w * h // 5, 'only %d of %d pixels drawn' % (drawn, w * h)
assert len(colours) > 200, '%d colours: untextured?' % len(colours)
# The quay's ground (brown rock) lies in the lower part of the picture.
def rock(box):
    return sum(n for n, (r, g, b) in image.crop(box).getcolors(1 << 24) if r > b + 25)
assert rock((0, h // 2, w, h)) > 4 * rock((0, 0, w, h // 2)), 'picture upside down?'
PY
echo "levelshot ok"
