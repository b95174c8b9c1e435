#!/usr/bin/env bash
# Without an OpenGL context (SDL's dummy video driver has none) the game says
# so once, on the terminal and in the log, and exits cleanly instead of
# crashing. SDL's offscreen driver does have one through EGL, which
# scripts/install-deps.sh installs, and a headless start there works.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"
trap 'rm -rf "$work"' EXIT
cd "$work"
rc=0
SDL_VIDEODRIVER=dummy SDL_AUDIODRIVER=dummy timeout 60 ./brindlequay +set skiplogo 1 +quit \
  >"$work/terminal.txt" 2>&1 || rc=$?
cat "$work/terminal.txt"
[ "$rc" -eq 0 ] || fail "exit status $rc without a GL context"
[ "$(grep -c "Could not open an OpenGL window" "$work/terminal.txt")" -eq 1 ] || fail "not one message on the terminal"
grep -q "^Could not open an OpenGL window: .*SDL_VIDEODRIVER=offscreen need EGL" outputlog.txt || fail "not in the log"
[ ! -e data/config.txt ] || fail "a start without a window wrote data/config.txt"

rm -f outputlog.txt
rc=0
SDL_VIDEODRIVER=offscreen SDL_AUDIODRIVER=dummy timeout 60 ./brindlequay +set skiplogo 1 +quit \
  >/dev/null 2>&1 || rc=$?
[ "$rc" -eq 0 ] || fail "exit status $rc under the offscreen driver"
grep -q "^REND New Res: " outputlog.txt || fail "no video mode under the offscreen driver"
grep -q "^AVG FPS:" outputlog.txt || fail "no clean shutdown under the offscreen driver"
echo "no_gl ok"
