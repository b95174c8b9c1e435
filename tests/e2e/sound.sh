#!/usr/bin/env bash
# Real audio through the mixer: SDL's disk driver writes the mixed stream to a
# file while console commands play sounds. The file grows in real time, so
# its size at each step marks where in the stream that step happened.
#  1. "playsound": silent before, the jingle, silent again once it is over.
#  2. A looping hum placed in the test level to the player's right: silent
#     while the player is far away, loud beside it and louder in the right
#     ear, silent when he warps away, loud on his return; placed to his left
#     it is louder in the left ear.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"
use_disk_audio
# The default 44.1 kHz stereo is what SDL's disk driver writes, untouched.
# Music would fill the silences this checks; music.sh hears it.
E2E_AUDIODRIVER=disk start_game "$work" +set skiplogo 1 +set soundfrequency 44100 +set soundchannels 2 \
  +set musicvolume 0
wait_for_log "$work" "REND New Res" 20
sleep 1
focus_game_window

xdotool key --window "$win" grave
sleep 0.3

mark before_jingle
type_line "playsound"
sleep 4
mark after_jingle
type_line "map test"
# The console stays open over the level it loaded.
sleep 1
type_line "warpto east"
type_line "playsoundat data/sounds/world/hum.wav -1 160 16"
sleep 2.5
mark far
type_line "warpto start"
sleep 1.5
mark near
type_line "warpto east"
sleep 1.5
mark far_again
type_line "warpto start"
sleep 1.5
mark near_again
type_line "stopsounds"
type_line "playsoundat data/sounds/world/hum.wav -1 -80 16"
sleep 1.5
mark left_side
stop_game

grep -q "^Audio Format: 32784$" "$log" || fail "no audio format line"
grep -q "^Audio: opened at 44100 Hz, 2 channels" "$log" || fail "device not opened as asked"
! grep -q "Sound init Failed\|Couldn't find sound\|Couldn't decode sound" "$log" || fail "sound errors in the log"
[ -s "$stream" ] || fail "the disk driver wrote nothing"

PYTHONPATH="$(dirname "$0")" /usr/bin/python3 - "$stream" "${marks[@]}" <<'PY' ||
  fail "the mixed stream is not what was played"
import math, sys
from disk_stream import RATE as rate, read_stream

samples, right, marks = read_stream(sys.argv[1], sys.argv[2:])
# The jingle is heard at the player, mixed to the middle: both sides alike.
if samples[:marks['after_jingle']] != right[:marks['after_jingle']]:
    sys.exit('left and right differ under the jingle: not 16-bit stereo as expected')
window = rate // 20

def levels(start, end, side=samples):
    return [math.sqrt(sum(s * s for s in side[i:i + window]) / window)
            for i in range(start, end - window + 1, window)]

def last_second(name):
    return marks[name] - rate, marks[name]

def silent(name):
    start, end = last_second(name)
    return not any(samples[start:end])

def loud(name):
    return min(levels(*last_second(name))) > 100

print('seconds written %.2f' % (len(samples) / rate), {k: round(v / rate, 2) for k, v in marks.items()})
if any(samples[:marks['before_jingle']]):
    sys.exit('sound before the jingle was played')
jingle = levels(marks['before_jingle'], marks['after_jingle'])
heard = [i for i, v in enumerate(jingle) if v > 300]
if not heard:
    sys.exit('the jingle was not mixed')
length = (heard[-1] - heard[0] + 1) / 20.0
print('jingle audible for %.2f s, peak rms %.0f' % (length, max(jingle)))
if not 1.0 <= length <= 3.0:
    sys.exit('the jingle lasted %.2f s' % length)
if not silent('after_jingle'):
    sys.exit('the stream is not silent after the jingle')
for name, want in (('far', silent), ('near', loud), ('far_again', silent), ('near_again', loud)):
    rms = levels(*last_second(name))
    print('%-10s rms %5.0f .. %5.0f' % (name, min(rms), max(rms)))
    if not want(name):
        sys.exit('the hum is wrong when the player is %s' % name.replace('_', ' '))
# Panning: the louder ear is the one on the hum's side.
for name, louder in (('near', 'right'), ('near_again', 'right'), ('left_side', 'left')):
    left_rms = sum(levels(*last_second(name))) + 1
    right_rms = sum(levels(*last_second(name), side=right)) + 1
    print('%-10s left %6.0f right %6.0f' % (name, left_rms, right_rms))
    ratio = right_rms / left_rms if louder == 'right' else left_rms / right_rms
    if ratio < 1.3:
        sys.exit('the hum at %s is not louder on the %s' % (name.replace('_', ' '), louder))
PY
echo "sound ok"
