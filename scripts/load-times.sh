#!/usr/bin/env bash
# Prints how long the game takes to start and to change to each shipped level,
# as the game itself times them ("showloadtimes"). Runs under its own Xvfb.
# Usage: scripts/load-times.sh [build/game] [runs]
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
game=${1:-$here/build/game}
runs=${2:-3}
source "$here/tests/e2e/lib.bash"
levels=$(cd "$game/maps" && ls *.xml | sed 's/\.xml$//')

for run in $(seq "$runs"); do
  # A start to the menus, then a start into a level that changes to each level.
  work=$(make_game_copy "$game")
  start_game "$work" +set skiplogo 1 +set showloadtimes 1
  wait_for_log "$work" "^Start-up:" 60
  stop_game
  grep -E "^Start-up" "$work/outputlog.txt" | sed "s/^/run $run: /"
  kill "$XVFB_PID" 2>/dev/null || true
  rm -rf "$work"
  work=$(make_game_copy "$game")
  # Each level is one key away, so the change starts in a running level.
  args=(+set skiplogo 1 +set showloadtimes 1 +map test)
  n=0
  for l in $levels; do
    n=$((n + 1))
    args+=(+bind "$n" map "$l")
  done
  start_game "$work" "${args[@]}"
  wait_for_log "$work" "^Level change to test:" 60
  focus_game_window
  n=0
  for l in $levels; do
    n=$((n + 1))
    # The start already changed to "test": wait for one more line, not the first.
    before=$(grep -c "^Level change to $l:" "$work/outputlog.txt" || true)
    xdotool key --window "$win" "$n"
    for _ in $(seq 600); do
      [ "$(grep -c "^Level change to $l:" "$work/outputlog.txt" || true)" -gt "$before" ] && break
      sleep 0.1
    done
  done
  stop_game
  grep -E "^(Start-up|Level change)" "$work/outputlog.txt" | sed "s/^/run $run: /"
  kill "$XVFB_PID" 2>/dev/null || true
  rm -rf "$work"
  trap - EXIT
done
