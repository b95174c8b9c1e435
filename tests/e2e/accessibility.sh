#!/usr/bin/env bash
# Interface scale 2 and the controls overlay in a real window, at 640x480
# and 1920x1080: main menu, Choose Adventure (with its difficulty), a cut
# scene page, the HUD in the level, the console, the controls overlay on F1,
# Options and Accessibility. Movie frames are kept as shots/<screen>_<W>.png
# (BQ_KEEP_E2E=1 keeps them). At 1920x1080 the HUD's health icon must be
# as tall as it is wide.
set -euo pipefail
game_dir=$1
source "$(dirname "$0")/lib.bash"

# Window pixels of interface unit (x, y from the top).
px() { echo $(($1 * S)) $(($2 * S)); }
click() { xdotool mousemove --window "$win" $(px "$1" "$2"); sleep 0.2; xdotool click 1; sleep 0.35; }
# The menus' layout in interface units (the window divided by the scale).
frame_left() { menu_frame_left "$VW" "$1"; }
frame_top() { menu_frame_top "$VH" "$1"; }
widget() { echo $(($(frame_left "$1") + $3 + $5 / 2)) $(($(frame_top "$2") + $4 + $6 / 2)); }
# Over a level the task bar has four buttons (Save Game among them).
taskbar() { echo $(((VW - 550) / 2 + $1 * 140 + 65)) $((VH - 22)); }
page_next() {
  awk -v W="$VW" -v H="$VH" 'BEGIN {
    s = (W - 40) / 640; t = (H - 90) / 400; if (t < s) s = t; if (s < 0.5) s = 0.5
    ph = 400 * s; gap = (H - 70 - ph) / 2; if (gap < 0) gap = 0
    top = int(H - gap); ctl = int(top - ph - 15)
    printf "%d %d\n", W / 2 + 110, H - ctl + 20 }'
}

# The health icon's pale square, top left: as tall as wide, not stretched.
check_icon_square() {
  PYTHONPATH="$(dirname "$0")" /usr/bin/python3 - "$1" <<'PY' || fail "the HUD icon is stretched"
import sys
from png_rows import read_png
w, h, ch, rows = read_png(sys.argv[1])
xs, ys = [], []
for y in range(int(0.02 * h), int(0.14 * h)):
    row = rows[y]
    for x in range(int(0.03 * w), int(0.085 * w)):
        r, g, b = row[x * ch:x * ch + 3]
        if r > 200 and g > 170 and b > 170:
            xs.append(x)
            ys.append(y)
if not xs:
    sys.exit('no icon found')
iw, ih = max(xs) - min(xs) + 1, max(ys) - min(ys) + 1
print('health icon', iw, 'x', ih)
sys.exit(0 if iw >= 30 and 0.9 <= iw / ih <= 1.1 else 1)
PY
}

run_flow() {
  W=$1 H=$2 S=$3
  VW=$((W / S)) VH=$((H / S))
  export BQ_XVFB_SCREEN=${W}x${H}x24
  work=$(make_game_copy "$game_dir")
  shots=${E2E_SHOTS:-$work/shots}
  start_game "$work" +set skiplogo 1 +set firstrun 0 +set vidfullscreen 0 +set vidwidth "$W" +set vidheight "$H" \
    +set uiscale 2 +movierecord 8
  wait_for_log "$work" "REND New Res" 30
  focus_game_window
  sleep 1.5
  snap mainmenu
  click $(widget 240 220 20 46 200 32)
  snap newgame
  click $(widget 470 364 335 246 120 30)
  wait_for_log "$work" "Read cutscene file sucessfully" 20
  snap cutscene
  for _ in 1 2 3 4; do click $(page_next); done
  sleep 1
  snap hud
  [ "$W" != 1920 ] || check_icon_square "$shots/hud_${W}.png"
  keys grave
  keys e c h o space u i s c a l e
  snap console
  keys grave
  keys F1
  wait_for_log "$work" "Show GUI" 10
  snap controlshelp
  keys F1
  sleep 0.5
  keys Escape
  click $(taskbar 2)
  snap options
  click $(widget 240 264 20 172 200 32)
  sleep 1
  snap accessibility
  check_no_missing_media
  stop_game
  grep -q -x "uiscale 2" "$work/data/config.txt" || fail "the interface scale was not kept"
  kill "$XVFB_PID" 2>/dev/null || true
  [ -n "${BQ_KEEP_E2E:-}" ] || rm -rf "$work"
}

run_flow 640 480 1
run_flow 1920 1080 2
echo "accessibility ok"
