#!/usr/bin/env python3
"""Draws the desktop icon, the player from the game's own sprite, at every
size the hicolor icon theme commonly holds:

    python3 tools/media/appicon.py --out build/icons --name io.github.brindlequay.Brindlequay

writes build/icons/hicolor/<n>x<n>/apps/<name>.png. The sprite is drawn from
its distance fields at each size rather than scaled, so small icons stay sharp.
"""
import argparse
import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)

import numpy as np  # noqa: E402

import sprites  # noqa: E402
from generate import encode_image, write_if_changed  # noqa: E402

SIZES = (16, 22, 24, 32, 48, 64, 128, 256)


def icon_paths(out, name):
    return [(n, os.path.join(out, 'hicolor', f'{n}x{n}', 'apps', name + '.png')) for n in SIZES]


def main(argv=None):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument('--out', required=True)
    parser.add_argument('--name', required=True)
    args = parser.parse_args(argv)
    for size, path in icon_paths(args.out, args.name):
        img = sprites.player(np.random.default_rng(size), size=size)
        write_if_changed(path, encode_image(img, path))
    return 0


if __name__ == '__main__':
    sys.exit(main())
