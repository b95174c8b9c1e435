#!/usr/bin/env bash
# Music by place, heard through SDL's disk driver (the mixed stream written to
# a file in real time, so its size marks when each step happened):
#  1. The main menu plays the menu track, and it is audible.
#  2. The quay (Act 1) plays its own track, after a crossfade.
#  3. The test level names no track: the music fades to silence.
#  4. Pausing stops the music with the game.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"
use_disk_audio
E2E_AUDIODRIVER=disk start_game "$work" +set skiplogo 1 +set soundfrequency 44100 +set soundchannels 2 \
  +set musicvolume 128 +set volume 0
wait_for_log "$work" "^Music: menu$" 20
sleep 2.5
focus_game_window
mark menu

xdotool key --window "$win" grave
sleep 0.3
type_line "map quay"
wait_for_log "$work" "^Music: quay$" 10
sleep 2.5
mark quay
type_line "pause"
sleep 1.5
mark paused
type_line "pause"
type_line "map test"
wait_for_log "$work" "^Music: silence$" 10
sleep 2.5
mark silence
stop_game

! grep -q "Couldn't find music\|Couldn't play music\|Music: no track" "$log" || fail "music errors in the log"
# Menu first, then the quay, then silence; each said once.
[ "$(grep '^Music: ' "$log" | tr '\n' '|')" = "Music: menu|Music: quay|Music: silence|" ] ||
  fail "tracks chosen: $(grep '^Music: ' "$log" | tr '\n' '|')"

PYTHONPATH="$(dirname "$0")" /usr/bin/python3 - "$stream" "${marks[@]}" <<'PY' ||
  fail "the music in the mixed stream is not what was chosen"
import math, sys
from disk_stream import RATE as rate, read_stream

samples, _, marks = read_stream(sys.argv[1], sys.argv[2:])

def rms(name):
    end = marks[name]
    part = samples[end - rate:end]
    return math.sqrt(sum(s * s for s in part) / max(len(part), 1))

levels = {name: rms(name) for name in marks}
print({k: round(v) for k, v in levels.items()})
for name in ('menu', 'quay'):
    if levels[name] < 500:
        sys.exit('no music at %s' % name)
for name in ('paused', 'silence'):
    if levels[name] > 20:
        sys.exit('music still playing when %s' % name)
PY
echo "music ok"
