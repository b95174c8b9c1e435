#!/usr/bin/env bash
# Music by place, heard through SDL's disk driver (the mixed stream written to
# a file in real time, so its size marks when each step happened):
#  1. The main menu plays the menu track, and it is audible.
#  2. The quay (Act 1) plays its own track, after a crossfade.
#  3. The test level names no track: the music fades to silence.
#  4. Pausing stops the music with the game.
set -euo pipefail
game_dir=$1
source "$(dirname "$0")/lib.bash"
work=$(make_game_copy "$game_dir")
stream="$work/mixed.raw"
export SDL_DISKAUDIOFILE="$stream"
E2E_AUDIODRIVER=disk start_game "$work" +set skiplogo 1 +set soundfrequency 44100 +set soundchannels 2 \
  +set musicvolume 128 +set volume 0
wait_for_log "$work" "^Music: menu$" 20
sleep 2.5
focus_game_window
marks=()
mark() { marks+=("$1:$(stat -c %s "$stream")"); }
console() {
  xdotool type --window "$win" --delay 30 "$1"
  xdotool key --window "$win" Return
}
mark menu

xdotool key --window "$win" grave
sleep 0.3
console "map quay"
wait_for_log "$work" "^Music: quay$" 10
sleep 2.5
mark quay
console "pause"
sleep 1.5
mark paused
console "pause"
console "map test"
wait_for_log "$work" "^Music: silence$" 10
sleep 2.5
mark silence
stop_game

log="$work/outputlog.txt"
! grep -q "Couldn't find music\|Couldn't play music\|Music: no track" "$log" || fail "music errors in the log"
# Menu first, then the quay, then silence; each said once.
[ "$(grep '^Music: ' "$log" | tr '\n' '|')" = "Music: menu|Music: quay|Music: silence|" ] ||
  fail "tracks chosen: $(grep '^Music: ' "$log" | tr '\n' '|')"

/usr/bin/python3 - "$stream" "${marks[@]}" <<'PY' || fail "the music in the mixed stream is not what was chosen"
import array, math, sys

rate = 44100
frames = array.array('h')
with open(sys.argv[1], 'rb') as f:
    data = f.read()
frames.frombytes(data[:len(data) // 4 * 4])
samples = frames[0::2]
marks = {}
for arg in sys.argv[2:]:
    name, size = arg.split(':')
    marks[name] = int(size) // 4

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
