"""One PNG showing every generated image with its name, for review."""
import numpy as np
from PIL import Image, ImageDraw

from textures import font

CELL = 136
LABEL = 22
TEXTURES = ('concrete1', 'concrete2', 'metal1', 'metal2', 'rock1', 'rock2', 'techpanel1', 'techpanel2', 'grate1',
            'hazard1', 'planks1', 'quaystone1', 'roofing1', 'serverrack1', 'water1', 'lava1', 'techbase', 'checkers', 'checkersred', 'bg', 'skystars', 'skyclouds',
            'skynebula')


def _checker(w, h, n=8):
    ys, xs = np.mgrid[0:h, 0:w]
    c = ((xs // n + ys // n) % 2).astype(np.uint8)
    arr = np.where(c[..., None] == 1, np.array([58, 62, 72], np.uint8), np.array([40, 43, 52], np.uint8))
    return Image.fromarray(arr.astype(np.uint8), 'RGB')


def _tile(img):
    """Textures are shown 2 x 2 so that seams would show."""
    w, h = img.size
    out = Image.new(img.mode, (w * 2, h * 2))
    for dx in (0, w):
        for dy in (0, h):
            out.paste(img, (dx, dy))
    return out


def write(images, path):
    names = sorted(images)
    cols = 10
    rows = (len(names) + cols - 1) // cols
    sheet = Image.new('RGB', (cols * CELL, rows * (CELL + LABEL)), (24, 26, 32))
    draw = ImageDraw.Draw(sheet)
    f = font(10)
    for i, name in enumerate(names):
        img = images[name].convert('RGBA')
        short = name.split('/', 1)[1]
        if short.rsplit('/', 1)[-1].split('.')[0] in TEXTURES:
            img = _tile(img)
        scale = min((CELL - 8) / img.width, (CELL - 8) / img.height)
        size = (max(1, int(img.width * scale)), max(1, int(img.height * scale)))
        resample = Image.NEAREST if scale >= 2 else Image.LANCZOS
        thumb = img.resize(size, resample)
        x = (i % cols) * CELL
        y = (i // cols) * (CELL + LABEL)
        bg = _checker(CELL, CELL)
        ox = (CELL - size[0]) // 2
        oy = (CELL - size[1]) // 2
        bg.paste(thumb, (ox, oy), thumb)
        sheet.paste(bg, (x, y))
        label = short.replace('images/', '').replace('particles/', 'p/')
        draw.text((x + 3, y + CELL + 4), label[:24], fill=(220, 226, 240), font=f)
    sheet.save(path)
