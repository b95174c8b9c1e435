#!/usr/bin/env python3
"""Generates the game's images and sounds into a game directory.

    python3 tools/media/generate.py --out build/game
    python3 tools/media/generate.py --out /tmp/x --only 'data/images/egg*'
    python3 tools/media/generate.py --out build/game --contact-sheet build/contact.png

Output is byte-for-byte reproducible: every file draws from its own
generator seeded by the manifest seed and the file's path, so a subset
comes out exactly as in a full run. Files whose bytes are unchanged are not
rewritten, which keeps their timestamps (and anything depending on them)
stable.
"""
import argparse
import fnmatch
import importlib
import io
import os
import shutil
import subprocess
import sys
import tempfile
import time
import zlib

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)

import numpy as np  # noqa: E402

import manifest  # noqa: E402
import sfx  # noqa: E402
import sounds  # noqa: E402
from imagelib import glow_image, rgb  # noqa: E402


def rng_for(path):
    return np.random.default_rng([manifest.SEED, zlib.crc32(path.encode('utf-8'))])


def write_if_changed(path, data):
    if os.path.exists(path):
        with open(path, 'rb') as f:
            if f.read() == data:
                return False
    os.makedirs(os.path.dirname(path), exist_ok=True)
    tmp = path + '.tmp'
    with open(tmp, 'wb') as f:
        f.write(data)
    os.replace(tmp, path)
    return True


def encode_image(img, path):
    buf = io.BytesIO()
    if path.endswith('.tga'):
        img.save(buf, format='TGA', compression=None)
    else:
        img.save(buf, format='PNG', compress_level=6)
    return buf.getvalue()


def make_image(entry, cache):
    gen = entry['gen']
    args = dict(entry['args'])
    if gen == 'glow':
        src = cache.get(args['source'])
        if src is None:
            src = make_image(next(e for e in manifest.IMAGES if e['path'] == args['source']), cache)
        return glow_image(src, rgb(args['colour']), args['radius'])
    module, func = gen.split('.')
    fn = getattr(importlib.import_module(module), func)
    img = fn(rng_for(entry['path']), **args)
    cache[entry['path']] = img
    return img


def make_sound(entry):
    recipe = getattr(sounds, entry['recipe'])
    x = recipe(rng_for(entry['path']), **entry['args'])
    x = x - np.mean(x)
    x = sfx.fade_edges(x, 0.001, 0.0 if entry['recipe'].endswith('_loop') else 0.01)
    return sfx.normalise(x, entry['loudness'])


def encode_ogg(samples):
    """Vorbis through oggenc with a fixed stream serial, so it is repeatable."""
    oggenc = shutil.which('oggenc')
    wav = sfx.wav_bytes(samples)
    if oggenc is None:
        print('warning: oggenc not found; writing the test sound as WAV data', file=sys.stderr)
        return wav
    with tempfile.TemporaryDirectory() as tmp:
        src = os.path.join(tmp, 'in.wav')
        dst = os.path.join(tmp, 'out.ogg')
        with open(src, 'wb') as f:
            f.write(wav)
        subprocess.run([oggenc, '-Q', '-q', '4', '--serial', '1129', '-o', dst, src], check=True)
        with open(dst, 'rb') as f:
            return f.read()


def sound_definitions():
    lines = ['<?xml version="1.0" ?>', '<sounds>']
    for s in manifest.SOUNDS:
        if s['id'] is None:
            continue
        lines.append('    <sound id="%d" path="%s" channel="%d" volume="%d" positional="%s" />'
                     % (s['id'], s['path'], s['channel'], s['volume'], 'true' if s['positional'] else 'false'))
    lines.append('</sounds>')
    return ('\n'.join(lines) + '\n').encode('utf-8')


def selected(path, patterns):
    return not patterns or any(fnmatch.fnmatch(path, p) for p in patterns)


def main(argv=None):
    ap = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    ap.add_argument('--out', required=True, help='game directory to write data/ into')
    ap.add_argument('--only', action='append', default=[], help='glob of paths to generate (repeatable)')
    ap.add_argument('--contact-sheet', help='also write a contact sheet PNG of every image')
    ap.add_argument('--stamp', help='touch this file when done')
    ap.add_argument('--list', action='store_true', help='print every output path and exit')
    args = ap.parse_args(argv)

    if args.list:
        print('\n'.join(manifest.all_paths()))
        return 0

    start = time.time()
    written = 0
    cache = {}
    images = {}
    for entry in manifest.IMAGES:
        if not selected(entry['path'], args.only):
            continue
        img = make_image(entry, cache)
        images[entry['path']] = img
        written += write_if_changed(os.path.join(args.out, entry['path']), encode_image(img, entry['path']))
    for entry in manifest.SOUNDS:
        if not selected(entry['path'], args.only):
            continue
        x = make_sound(entry)
        data = encode_ogg(x) if entry['path'].endswith('.ogg') else sfx.wav_bytes(x)
        written += write_if_changed(os.path.join(args.out, entry['path']), data)
    if selected(manifest.SOUND_DEFS, args.only):
        written += write_if_changed(os.path.join(args.out, manifest.SOUND_DEFS), sound_definitions())
    if args.contact_sheet:
        import contactsheet
        contactsheet.write(images, args.contact_sheet)
    if args.stamp:
        os.makedirs(os.path.dirname(os.path.abspath(args.stamp)), exist_ok=True)
        with open(args.stamp, 'w') as f:
            f.write('media generated\n')
    print('media: %d files updated in %.1f s' % (written, time.time() - start))
    return 0


if __name__ == '__main__':
    sys.exit(main())
