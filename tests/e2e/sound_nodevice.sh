#!/usr/bin/env bash
# A sound driver that cannot open leaves the game running in silence: the
# window comes up, the log says why, and playing a sound just reports it.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"
E2E_AUDIODRIVER=nosuchdriver start_game "$work" +set skiplogo 1 +playsound +condump nodevice.txt
wait_for_log "$work" "REND New Res" 20
for _ in $(seq 100); do [ -f "$work/nodevice.txt" ] && break; sleep 0.1; done
sleep 0.5
kill -0 "$GAME_PID" 2>/dev/null || fail "the game stopped without a sound device"
stop_game
grep -q "^Sound init Failed: " "$work/outputlog.txt" || fail "no message about the device"
grep -q "^Could not play data/sounds/test/test.ogg" "$work/nodevice.txt" || fail "playsound did not report silence"
echo "sound without a device ok"
