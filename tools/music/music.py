#!/usr/bin/env python3
"""The game's music synthesiser: note files in, looping Ogg Vorbis out.

    python3 tools/music/music.py --out build/game            # every track
    python3 tools/music/music.py --out /tmp/x --only quay    # one track
    python3 tools/music/music.py --wav /tmp/quay.wav tools/music/tracks/quay.txt

A track file (tools/music/tracks/<name>.txt) names its tempo, steps per bar,
instruments and patterns, and a song line that strings the patterns
together; ";" starts a comment. Pattern lines hold one token per step:

    .         rest (ends the note before it)
    -         hold the note before it
    c4 eb3    a note (sharps with #, flats with b); for drums any other
              token hits, "X" accented and "o" softly
    c3+g3     notes together

A line shorter than its pattern repeats to fill it; "|" is ignored. The
song is rendered onto a circle: tails and echoes that run past the end come
round to the start, so the track loops without a seam. Everything random is
seeded by the track's name, so a build always writes the same bytes.
"""
import argparse
import glob
import io
import os
import shutil
import subprocess
import sys
import tempfile
import time
import wave
import zlib

import numpy as np

RATE = 22050
TABLE = 2048
HERE = os.path.dirname(os.path.abspath(__file__))
TRACKS = os.path.join(HERE, 'tracks')
NOTE_BASE = {'c': 0, 'd': 2, 'e': 4, 'f': 5, 'g': 7, 'a': 9, 'b': 11}
DRUMS = ('kick', 'snare', 'hat', 'openhat', 'clap', 'tom', 'anvil', 'tick')
DEFAULTS = {'wave': 'square', 'duty': 0.5, 'attack': 0.005, 'decay': 0.2, 'sustain': 0.6, 'release': 0.15,
            'gain': 0.3, 'bright': 8.0, 'dark': 3.0, 'fdecay': 0.3, 'detune': 0.0, 'vibrato': 0.0,
            'vibrate': 5.0, 'echo': 0.0, 'ratio': 2.0, 'index': 2.0, 'pitch': 1.0}


class TrackError(Exception):
    pass


def midi(token):
    """MIDI number of a note token such as c4, f#2 or bb3 (c4 = 60)."""
    name = token[0].lower()
    if name not in NOTE_BASE:
        raise TrackError('not a note: %r' % token)
    rest = token[1:]
    shift = 0
    if rest[:1] == '#':
        shift, rest = 1, rest[1:]
    elif rest[:1] == 'b' and len(rest) > 1:
        shift, rest = -1, rest[1:]
    try:
        octave = int(rest)
    except ValueError:
        raise TrackError('not a note: %r' % token)
    if not 0 <= octave <= 8:
        raise TrackError('octave out of range: %r' % token)
    return 12 * (octave + 1) + NOTE_BASE[name] + shift


def freq(note):
    return 440.0 * 2.0 ** ((note - 69) / 12.0)


def parse(text):
    """The track's settings, instruments, patterns and song from its text."""
    track = {'tempo': 100.0, 'steps': 8, 'echo': (0.75, 0.35), 'instruments': {}, 'patterns': {}, 'song': []}
    pattern = None
    for number, raw in enumerate(text.splitlines(), 1):
        line = raw.split(';', 1)[0].strip()
        if not line:
            continue
        words = line.split()
        head = words[0]
        try:
            if pattern is not None and head == 'end':
                pattern = None
            elif pattern is not None:
                if head not in track['instruments']:
                    raise TrackError('unknown instrument %r' % head)
                steps = [w for w in words[1:] if w != '|']
                if not steps:
                    raise TrackError('no steps')
                if track['instruments'][head]['wave'] not in DRUMS:
                    for token in steps:
                        if token not in ('.', '-'):
                            for part in token.split('+'):
                                midi(part)
                pattern.append((head, steps))
            elif head == 'tempo':
                track['tempo'] = float(words[1])
                if not 10.0 <= track['tempo'] <= 400.0:
                    raise TrackError('tempo out of range')
            elif head == 'steps':
                track['steps'] = int(words[1])
                if not 1 <= track['steps'] <= 64:
                    raise TrackError('steps out of range')
            elif head == 'echo':
                track['echo'] = (float(words[1]), float(words[2]))
            elif head == 'instrument':
                inst = dict(DEFAULTS)
                for word in words[2:]:
                    key, _, value = word.partition('=')
                    if key not in DEFAULTS:
                        raise TrackError('unknown setting %r' % key)
                    inst[key] = value if key == 'wave' else float(value)
                track['instruments'][words[1]] = inst
            elif head == 'pattern':
                pattern = track['patterns'].setdefault(words[1], [])
            elif head == 'song':
                track['song'] += words[1:]
            else:
                raise TrackError('unknown line')
        except (IndexError, ValueError, TrackError) as e:
            raise TrackError('line %d: %s: %s' % (number, raw.strip(), e))
    for name in track['song']:
        if name not in track['patterns']:
            raise TrackError('song names unknown pattern %r' % name)
    return track


def events(track):
    """(start step, length in steps, instrument, note or accent) of every note."""
    out = []
    at = 0
    for name in track['song']:
        lines = track['patterns'][name]
        length = max((len(steps) for _, steps in lines), default=0)
        for inst, steps in lines:
            drum = track['instruments'][inst]['wave'] in DRUMS
            playing = []
            for i in range(length):
                token = steps[i % len(steps)]
                if token == '-':
                    for ev in playing:
                        ev[1] += 1
                    continue
                playing = []
                if token == '.':
                    continue
                if drum:
                    ev = [at + i, 1, inst, {'X': 1.4, 'o': 0.5}.get(token, 1.0)]
                    out.append(ev)
                else:
                    for part in token.split('+'):
                        ev = [at + i, 1, inst, midi(part)]
                        out.append(ev)
                        playing.append(ev)
        at += length
    return out, at


def wavetable(inst, note):
    """One period of the instrument's wave with harmonics rolled off above
    `cut` times the fundamental and none above the Nyquist rate."""
    f = freq(note) * inst['pitch']
    top = max(1, min(TABLE // 2 - 1, int(RATE / 2 / f)))
    k = np.arange(1, top + 1, dtype=float)
    wave_name = inst['wave']
    if wave_name == 'saw':
        amp = 1.0 / k
    elif wave_name == 'square':
        amp = np.abs(np.sin(np.pi * k * inst['duty'])) / k
    elif wave_name == 'tri':
        amp = np.where(k % 2 == 1, 1.0 / k ** 2, 0.0)
    else:
        amp = np.where(k == 1, 1.0, 0.0)

    def table(cut):
        spectrum = np.zeros(TABLE // 2 + 1, complex)
        spectrum[1:top + 1] = amp / np.sqrt(1.0 + (k / max(cut, 0.5)) ** 4) * -1j
        t = np.fft.irfft(spectrum, TABLE)
        return t / max(np.max(np.abs(t)), 1e-9)
    return table(inst['bright']), table(inst['dark'])


def envelope(inst, held, n):
    t = np.arange(n) / RATE
    a = max(inst['attack'], 0.001)
    fall = np.exp(-(t - a) / max(inst['decay'], 1e-3))
    env = np.where(t < a, t / a, inst['sustain'] + (1.0 - inst['sustain']) * fall)
    after = t > held
    if np.any(after):
        level = env[~after][-1] if np.any(~after) else 0.0
        env[after] = level * np.exp(-(t[after] - held) / max(inst['release'] / 4.0, 1e-3))
    return env, t


def tone(inst, note, held, cache):
    n = int((held + inst['release']) * RATE) + 1
    env, t = envelope(inst, held, n)
    f = freq(note) * inst['pitch']
    if inst['vibrato']:
        # The vibrato comes in after the attack, as a player would.
        depth = inst['vibrato'] * np.clip(t / 0.3, 0.0, 1.0)
        f = f * (1.0 + depth * np.sin(2 * np.pi * inst['vibrate'] * t))
    if inst['wave'] == 'fm':
        phase = np.cumsum(np.broadcast_to(f, t.shape)) / RATE
        index = inst['index'] * np.exp(-t / max(inst['fdecay'], 1e-3))
        return env * np.sin(2 * np.pi * phase + index * np.sin(2 * np.pi * inst['ratio'] * phase))
    key = (id(inst), note)
    if key not in cache:
        cache[key] = wavetable(inst, note)
    bright, dark = cache[key]
    mix = np.exp(-t / max(inst['fdecay'], 1e-3))
    out = np.zeros(n)
    voices = [1.0] if not inst['detune'] else [2 ** (inst['detune'] / 1200), 2 ** (-inst['detune'] / 1200)]
    for ratio in voices:
        pos = (np.cumsum(np.broadcast_to(f * ratio, t.shape)) / RATE * TABLE) % TABLE
        i = pos.astype(int)
        frac = pos - i
        j = (i + 1) % TABLE
        b = bright[i] + (bright[j] - bright[i]) * frac
        d = dark[i] + (dark[j] - dark[i]) * frac
        out += d + (b - d) * mix
    return env * out / len(voices)


def drum(kind, accent, rng):
    def decaying(seconds, tau):
        t = np.arange(int(seconds * RATE)) / RATE
        return t, np.exp(-t / tau)
    if kind == 'kick':
        t, env = decaying(0.45, 0.12)
        phase = np.cumsum(45.0 + 120.0 * np.exp(-t / 0.025)) / RATE
        x = np.sin(2 * np.pi * phase) * env
    elif kind == 'tom':
        t, env = decaying(0.5, 0.14)
        phase = np.cumsum(95.0 + 50.0 * np.exp(-t / 0.05)) / RATE
        x = np.sin(2 * np.pi * phase) * env
    elif kind == 'snare':
        t, env = decaying(0.3, 0.07)
        noise = np.diff(rng.standard_normal(len(t) + 1)) * 0.5
        x = (noise * 0.8 + np.sin(2 * np.pi * 190.0 * t) * np.exp(-t / 0.04)) * env
    elif kind in ('hat', 'openhat', 'tick'):
        length, tau = {'hat': (0.08, 0.018), 'openhat': (0.35, 0.09), 'tick': (0.03, 0.006)}[kind]
        t, env = decaying(length, tau)
        noise = np.diff(np.diff(rng.standard_normal(len(t) + 2))) * 0.3
        x = noise * env
    elif kind == 'clap':
        t, env = decaying(0.25, 0.05)
        bursts = sum(np.exp(-np.maximum(t - d, 0) / 0.006) * (t >= d) for d in (0.0, 0.011, 0.022))
        x = np.diff(rng.standard_normal(len(t) + 1)) * 0.5 * (bursts * 0.5 + env)
    else:  # anvil: inharmonic partials of struck metal
        t, env = decaying(0.9, 0.22)
        x = sum(np.sin(2 * np.pi * 330.0 * r * t) * np.exp(-t * r / 0.5) / r
                for r in (1.0, 2.76, 5.40, 8.93)) * env
    return x * accent


def add_circular(buf, at, x):
    """Adds x into buf from `at`, carrying what runs past the end round to
    the start."""
    at %= len(buf)
    pos = 0
    while pos < len(x):
        take = min(len(x) - pos, len(buf) - at)
        buf[at:at + take] += x[pos:pos + take]
        pos += take
        at = 0


def render(track, seed):
    """The track as float samples; index 0 follows the last sample."""
    rng = np.random.default_rng(seed)
    notes, steps = events(track)
    step_seconds = 60.0 / track['tempo'] * 4.0 / track['steps']
    length = int(round(steps * step_seconds * RATE))
    if length <= 0:
        raise TrackError('the song is empty')
    dry = np.zeros(length)
    send = np.zeros(length)
    cache = {}
    for start, held, name, value in notes:
        inst = track['instruments'][name]
        if inst['wave'] in DRUMS:
            x = drum(inst['wave'], value, rng)
        else:
            x = tone(inst, value, held * step_seconds, cache)
        x = x * inst['gain']
        at = int(round(start * step_seconds * RATE))
        add_circular(dry, at, x)
        if inst['echo']:
            add_circular(send, at, x * inst['echo'])
    beats, feedback = track['echo']
    delay = max(1, int(round(beats * 60.0 / track['tempo'] * RATE)))
    # Each pass is one more repeat, rolled round the circle; eight repeats
    # of any feedback below 0.6 are inaudible.
    tap = np.roll(send, delay)
    wet = tap.copy()
    for _ in range(8):
        tap = np.roll(tap, delay) * feedback
        wet += tap
    x = dry + wet * 0.6
    x -= np.mean(x)
    rms = np.sqrt(np.mean(x ** 2))
    x = np.tanh(x / max(rms, 1e-9) * 0.14 * 1.3) / 1.3
    return x


def wav_bytes(x):
    pcm = np.clip(np.round(x * 32767.0), -32768, 32767).astype('<i2')
    buf = io.BytesIO()
    with wave.open(buf, 'wb') as w:
        w.setnchannels(1)
        w.setsampwidth(2)
        w.setframerate(RATE)
        w.writeframes(pcm.tobytes())
    return buf.getvalue()


def encode_ogg(x):
    """Vorbis at a low quality (the music sits under the effects) with a
    fixed stream serial, so the bytes repeat."""
    oggenc = shutil.which('oggenc')
    if oggenc is None:
        raise TrackError('oggenc not found (Debian package vorbis-tools)')
    with tempfile.TemporaryDirectory() as tmp:
        src = os.path.join(tmp, 'in.wav')
        dst = os.path.join(tmp, 'out.ogg')
        with open(src, 'wb') as f:
            f.write(wav_bytes(x))
        subprocess.run([oggenc, '-Q', '-q', '0', '--serial', '3307', '-o', dst, src], check=True)
        with open(dst, 'rb') as f:
            return f.read()


def track_seed(name):
    return zlib.crc32(name.encode('utf-8'))


def render_file(path):
    with open(path, encoding='utf-8') as f:
        track = parse(f.read())
    name = os.path.splitext(os.path.basename(path))[0]
    return render(track, track_seed(name))


def write_if_changed(path, data):
    if os.path.exists(path):
        with open(path, 'rb') as f:
            if f.read() == data:
                return False
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path + '.tmp', 'wb') as f:
        f.write(data)
    os.replace(path + '.tmp', path)
    return True


def main(argv=None):
    ap = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    ap.add_argument('--out', help='game directory to write data/music/ into')
    ap.add_argument('--only', action='append', default=[], help='track name (repeatable)')
    ap.add_argument('--stamp', help='touch this file when done')
    ap.add_argument('--wav', help='write the one track file given as WAV here, to listen to')
    ap.add_argument('files', nargs='*')
    args = ap.parse_args(argv)
    start = time.time()
    try:
        if args.wav:
            if len(args.files) != 1:
                ap.error('--wav takes exactly one track file')
            with open(args.wav, 'wb') as f:
                f.write(wav_bytes(render_file(args.files[0])))
            return 0
        if not args.out:
            ap.error('--out is required')
        written = 0
        for path in sorted(glob.glob(os.path.join(TRACKS, '*.txt'))):
            name = os.path.splitext(os.path.basename(path))[0]
            if args.only and name not in args.only:
                continue
            data = encode_ogg(render_file(path))
            written += write_if_changed(os.path.join(args.out, 'data', 'music', name + '.ogg'), data)
    except TrackError as e:
        print('music: %s' % e, file=sys.stderr)
        return 1
    if args.stamp:
        with open(args.stamp, 'w') as f:
            f.write('music generated\n')
    print('music: %d files updated in %.1f s' % (written, time.time() - start))
    return 0


if __name__ == '__main__':
    sys.exit(main())
