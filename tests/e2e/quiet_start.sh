#!/usr/bin/env bash
# A normal start and level load say nothing that reads like a failure, on the
# terminal or in the log; a real failure is still reported.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"
trap 'rm -rf "$work"' EXIT
cd "$work"
alarming='fail|error|couldn|null|exiting|not found|successfuly|bhasglow|glowsteps|no initialised value'
for start in first second; do
  SDL_AUDIODRIVER=dummy timeout 60 xvfb-run -a ./brindlequay +set skiplogo 1 +map test +quit \
    >terminal.txt 2>&1 || fail "the $start start ended badly"
  grep -q "Found on disk: maps/test.xml" outputlog.txt || fail "the level was not loaded"
  grep -q "^AVG FPS:" outputlog.txt || fail "no clean shutdown"
  [ "$(cat terminal.txt)" = "game starting" ] || { cat terminal.txt; fail "the $start start printed more than it should"; }
  if grep -Ei "$alarming" outputlog.txt; then fail "the $start start logged the lines above"; fi
done

# A damaged data.zip is still a failure worth a word on the terminal.
printf 'PK' > data.zip
SDL_AUDIODRIVER=dummy timeout 60 xvfb-run -a ./brindlequay +set skiplogo 1 +quit >terminal.txt 2>&1 || true
grep -q "^Failed to load data.zip$" terminal.txt || fail "the damaged data.zip went unreported"
echo "quiet_start ok"
