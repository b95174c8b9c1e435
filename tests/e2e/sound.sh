#!/usr/bin/env bash
# Real audio through the mixer: SDL's disk driver writes the mixed stream to a
# file while "playsound" plays the test jingle. The stream must be silent
# before, loud while it plays and silent again once it has finished.
set -euo pipefail
game_dir=$1
source "$(dirname "$0")/lib.bash"
work=$(make_game_copy "$game_dir")
export SDL_DISKAUDIOFILE="$work/mixed.raw"
# The default 44.1 kHz stereo is what SDL's disk driver writes, untouched.
E2E_AUDIODRIVER=disk start_game "$work" +set skiplogo 1 +set soundfrequency 44100 +set soundchannels 2
wait_for_log "$work" "REND New Res" 20
sleep 1
win=$(xdotool search --sync --name Brindlequay | head -n 1) || fail "no game window"
xdotool windowactivate --sync "$win" >/dev/null 2>&1 || xdotool windowfocus "$win" || true
xdotool key --window "$win" grave
sleep 0.3
xdotool type --window "$win" --delay 40 "playsound"
xdotool key --window "$win" Return
# The jingle lasts about two seconds; leave as long again of silence after it.
sleep 4.5
stop_game

log="$work/outputlog.txt"
grep -q "^Audio Format: 32784$" "$log" || fail "no audio format line"
grep -q "^Audio: opened at 44100 Hz, 2 channels" "$log" || fail "device not opened as asked"
! grep -q "Sound init Failed\|Couldn't find sound\|Couldn't decode sound" "$log" || fail "sound errors in the log"
[ -s "$work/mixed.raw" ] || fail "the disk driver wrote nothing"

/usr/bin/python3 - "$work/mixed.raw" <<'PY' || fail "the mixed stream is not what was played"
import array, math, sys

rate = 44100
frames = array.array('h')
with open(sys.argv[1], 'rb') as f:
    data = f.read()
frames.frombytes(data[:len(data) // 4 * 4])
# The jingle is mono, mixed to the middle: both sides carry the same samples.
samples = frames[0::2]
if samples != frames[1::2]:
    sys.exit('left and right differ: not 16-bit stereo as expected')
window = rate // 20
levels = []
for i in range(0, len(samples) - window + 1, window):
    chunk = samples[i:i + window]
    levels.append(math.sqrt(sum(s * s for s in chunk) / window))
loud = [i for i, v in enumerate(levels) if v > 300]
print('seconds written %.2f, loud windows %d, peak rms %.0f' % (len(samples) / rate, len(loud), max(levels or [0])))
if not loud:
    sys.exit('nothing audible was mixed')
first, last = loud[0], loud[-1]
heard = (last - first + 1) / 20.0
print('audible from %.2f s to %.2f s' % (first / 20.0, (last + 1) / 20.0))
if not 1.0 <= heard <= 3.5:
    sys.exit('the jingle lasted %.2f s' % heard)
if any(levels[i] < 30 for i in range(first, first + 10)):
    sys.exit('gaps while the jingle plays')
tail = samples[(last + 1) * window + rate // 2:]
if len(tail) < rate:
    sys.exit('less than a second written after the jingle')
if any(tail):
    sys.exit('the stream is not silent after the jingle')
head = samples[:max(0, first * window - window)]
if len(head) < rate // 2:
    sys.exit('the jingle began before the console command')
if any(head):
    sys.exit('sound before the jingle was played')
PY
echo "sound ok"
