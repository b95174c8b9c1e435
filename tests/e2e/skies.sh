#!/usr/bin/env bash
# Skies in a real window: the test level comes up with its sky, every shipped
# sky is selected in turn with the "sky" command and photographed, a missing
# sky keeps the current one, and the glow pass is photographed on and off.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"
skies=$(cd "$game_dir/data/sky" && ls *.xml | sed 's/\.xml$//')
{
  echo "set con_height 0"
  echo "bind f9 screenshot"
  echo "bind f10 sky nosuchsky"
  echo "bind f11 set drawbloom 0"
  echo "bind f12 set drawbloom 1"
  n=1
  for s in $skies; do echo "bind $n sky $s"; n=$((n + 1)); done
} > "$work/data/autoexec.txt"
start_game "$work" +set skiplogo 1 +set vidwidth 800 +set vidheight 600 +set vidfullscreen 0 +map test
wait_for_log "$work" "REND New Res" 20
sleep 3
focus_game_window
shots=0
shoot() {
  xdotool key --window "$win" F9
  shots=$((shots + 1))
  wait_for_file "$work/screenshots/screenshot$(printf %04d $((shots - 1))).png" 30
  # The file shows up before the writer has finished it.
  sleep 0.5
}
# The level's own sky first, with and without the glow pass.
xdotool key --window "$win" F12
sleep 1.5
shoot
xdotool key --window "$win" F11
sleep 0.5
shoot
xdotool key --window "$win" F12
n=1
for s in $skies; do
  xdotool key --window "$win" $n
  # Past the one-second fade in.
  sleep 1.6
  shoot
  cp "$work/screenshots/screenshot$(printf %04d $((shots - 1))).png" "$work/sky_$s.png"
  n=$((n + 1))
done
# A switch fades the new sky in from black: photographed at once it is dark.
n=1
for s in $skies; do [ "$s" = hcsky1 ] && break; n=$((n + 1)); done
xdotool key --window "$win" $n F9
shots=$((shots + 1))
wait_for_file "$work/screenshots/screenshot$(printf %04d $((shots - 1))).png" 30
# The file shows up before the writer has finished it.
sleep 0.5
cp "$work/screenshots/screenshot$(printf %04d $((shots - 1))).png" "$work/fading.png"
xdotool key --window "$win" F10
sleep 0.5
stop_game
grep -q "Could not load sky file: data/sky/nosuchsky.xml" "$log" || fail "missing sky not reported"
grep -q '^No sky called "nosuchsky". Skies: default, haze, hcsky1' "$log" || fail "the sky command did not name the known skies"
grep -q "FAILED to load texture" "$log" && fail "a texture is missing"
python3 - "$work" $skies <<'PY' || fail "sky screenshots look wrong"
import sys, zlib, struct
def load(path):
    data = open(path, 'rb').read()
    pos, chunks = 8, {}
    w = h = 0; idat = b''
    while pos < len(data):
        n, = struct.unpack('>I', data[pos:pos + 4]); t = data[pos + 4:pos + 8]; body = data[pos + 8:pos + 8 + n]
        if t == b'IHDR': w, h, depth, ctype = struct.unpack('>IIBB', body[:10])
        if t == b'IDAT': idat += body
        pos += 12 + n
    raw = zlib.decompress(idat); bpp = 3 if ctype == 2 else 4; stride = w * bpp
    rows, prev = [], bytearray(stride)
    for y in range(h):
        f = raw[y * (stride + 1)]; line = bytearray(raw[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for i in range(stride):
            a = line[i - bpp] if i >= bpp else 0; b = prev[i]; c = prev[i - bpp] if i >= bpp else 0
            if f == 1: line[i] = (line[i] + a) & 255
            elif f == 2: line[i] = (line[i] + b) & 255
            elif f == 3: line[i] = (line[i] + (a + b) // 2) & 255
            elif f == 4:
                p = a + b - c; pa, pb, pc = abs(p - a), abs(p - b), abs(p - c)
                line[i] = (line[i] + (a if pa <= pb and pa <= pc else b if pb <= pc else c)) & 255
        rows.append(bytes(line)); prev = line
    return w, h, bpp, rows
work, skies = sys.argv[1], sys.argv[2:]
means = {}
for s in skies:
    w, h, bpp, rows = load(f'{work}/sky_{s}.png')
    # The top band of the window is pure sky: never black, never one flat colour.
    band = [rows[y][x * bpp:x * bpp + 3] for y in range(0, h // 4, 4) for x in range(0, w, 8)]
    bright = sum(sum(p) for p in band) / len(band)
    distinct = len(set(band))
    print(f'{s}: mean {bright / 3:.1f}, {distinct} distinct colours')
    if bright / 3 < 6 or distinct < 40:
        sys.exit(f'{s} looks like a void or a flat colour')
    means[s] = bright
if len(set(round(m) for m in means.values())) < len(means) - 1:
    sys.exit('skies look alike')
w, h, bpp, rows = load(f'{work}/fading.png')
band = [rows[y][x * bpp:x * bpp + 3] for y in range(0, h // 4, 4) for x in range(0, w, 8)]
fading = sum(sum(p) for p in band) / len(band)
print(f'hcsky1 mid-fade: mean {fading / 3:.1f}')
if fading > 0.6 * means['hcsky1']:
    sys.exit('the sky switch did not fade in from black')
# The glow pass adds light around glowing things only: with it on, the
# picture is at most slightly brighter and mostly unchanged.
_, _, _, on = load(f'{work}/screenshots/screenshot0000.png')
_, _, _, off = load(f'{work}/screenshots/screenshot0001.png')
diff = sum(abs(a - b) for ra, rb in zip(on[h // 3:2 * h // 3], off[h // 3:2 * h // 3]) for a, b in zip(ra, rb))
mean_diff = diff / (w * bpp * (h // 3))
print(f'glow on vs off: mean difference {mean_diff:.2f} per channel in the level band')
if mean_diff > 8:
    sys.exit('the glow pass changes the whole picture')
PY
echo "skies ok: $(echo $skies | wc -w) skies, $shots screenshots"
