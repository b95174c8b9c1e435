#!/usr/bin/env bash
# With "showloadtimes" set the game prints how long start-up took and how long
# each level change took to show its first stepped frame; a level that does
# not load prints no time, and the next change is timed from its own request.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"
start_game "$work" +set skiplogo 1 +set showloadtimes 1 +map test +bind 1 map nosuchlevel +bind 2 map armoury
wait_for_log "$work" "^Level change to test:" 60
focus_game_window
xdotool key --window "$win" 1
wait_for_log "$work" "Could not load level file: maps/nosuchlevel.xml" 30
xdotool key --window "$win" 2
wait_for_log "$work" "^Level change to armoury:" 60
stop_game
grep -q "^Level change to nosuchlevel" "$log" && fail "a level that did not load was timed"
line=$(grep -m1 "^Start-up: first frame " "$log") || fail "no start-up time"
[[ "$line" =~ ^Start-up:\ first\ frame\ ([0-9]+)\ ms\ after\ the\ process\ started\ \(before\ init\ ([0-9]+)\ ms,\ game\ init\ ([0-9]+)\ ms\)$ ]] ||
  fail "start-up line malformed: $line"
(( BASH_REMATCH[1] > 0 && BASH_REMATCH[1] >= BASH_REMATCH[2] + BASH_REMATCH[3] )) || fail "start-up times do not add up: $line"
line=$(grep -m1 "^Level change to armoury:" "$log")
[[ "$line" =~ first\ drawn\ step\ ([0-9]+)\ ms\ after\ the\ request\ \(loading\ ([0-9]+)\ ms,\ ([0-9]+)\ frames\)$ ]] ||
  fail "level change line malformed: $line"
# Shown after it was loaded, at least a frame later, and well within the wait.
(( BASH_REMATCH[1] >= BASH_REMATCH[2] && BASH_REMATCH[3] >= 1 && BASH_REMATCH[1] < 30000 )) ||
  fail "level change times do not add up: $line"
echo "load times ok: $line"
