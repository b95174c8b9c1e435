#!/usr/bin/env bash
# A level started from the command line has the keys at once: the first
# Escape opens the menus over it and the next one returns to play.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"
start_game "$work" +set skiplogo 1 +map test
wait_for_log "$work" "REND New Res" 30
focus_game_window
sleep 1.5
xdotool key --window "$win" Escape
wait_for_log "$work" "Show GUI" 5
xdotool key --window "$win" Escape
wait_for_log "$work" "Hide GUI" 5
stop_game
echo "escape_after_map ok"
