#!/usr/bin/env bash
# The real binary starts under Xvfb, runs frames, and shuts down cleanly on
# SIGTERM, leaving its log in the game directory.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"
start_game "$work"
# Start-up takes longer on a loaded machine: count from the window opening.
wait_for_log "$work" "REND New Res" 30
sleep 3
stop_game
grep -q "======== GAME INIT ========" "$log" || fail "no init line in log"
grep -q "AVG FPS:" "$log" || fail "no AVG FPS line in log"
fps=$(grep "AVG FPS:" "$log" | sed 's/AVG FPS://')
awk -v f="$fps" 'BEGIN { exit !(f > 0) }' || fail "no frames were drawn (AVG FPS:$fps)"
echo "smoke ok: AVG FPS:$fps"
