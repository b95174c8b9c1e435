#!/usr/bin/env bash
# Video sizes beyond the display are bounded, at start and on "vidrestart"
# alike: the game keeps running and answering SIGTERM, and the video
# variables (and so data/config.txt) hold the mode actually obtained.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
export BQ_XVFB_SCREEN=1024x768x24
use_game_copy "$1"
write_autoexec <<'SCRIPT'
bind k vidwidth 100000; vidheight 100000; vidrestart
bind j vidwidth 40000; vidheight 30000; vidfullscreen 1; vidrestart
SCRIPT
start_game "$work" +set skiplogo 1 +set vidfullscreen 0 +set vidwidth 16384 +set vidheight 16384 +map test
wait_for_log "$work" "^Video mode 16384 x 16384 is larger than the display allows: using 1024 x 768$" 20
wait_for_log "$work" "Found on disk: maps/test.xml" 30
focus_game_window
sleep 2
xdotool key --window "$win" k
wait_for_log "$work" "^Video mode 100000 x 100000 is larger than the display allows: using 1024 x 768$" 10
sleep 2
kill -0 "$GAME_PID" 2>/dev/null || fail "the game ended after 100000 x 100000"
xdotool key --window "$win" j
wait_for_log "$work" "^Video mode 40000 x 30000 is larger than the display allows: using 1024 x 768$" 10
sleep 2
kill -0 "$GAME_PID" 2>/dev/null || fail "the game ended after 40000 x 30000 full screen"
[ "$(grep -c '^REND New Res: 1024 , 768$' "$log")" -ge 4 ] || fail "a mode other than 1024 x 768 was set"
stop_game
grep -q "AVG FPS:" "$log" || fail "no clean shutdown"
for line in "vidwidth 1024" "vidheight 768"; do
  grep -qx "$line" "$work/data/config.txt" || fail "config.txt lacks '$line'"
done
echo "video_bounds ok"
