"""Menu art: the panel texture, image buttons, scroll grabbers and the cursor."""
import numpy as np

from imagelib import (Canvas, F, rgb, mix, clamp01, sd_circle, sd_box, sd_segment, sd_poly, union, subtract,
                      fbm, straight_image)

BLUE = rgb('2f7bff')
STATE = {
    'normal': (rgb('3a4a66'), rgb('9fc8ff')),
    'over': (rgb('4f6a96'), rgb('ffffff')),
    'clicked': (rgb('2f7bff'), rgb('ffffff')),
}


def panel_bg(rng, n=64):
    """Near-white brushed panel; widgets tint it with their colour."""
    v = fbm(rng, n, beta=1.4, lo=2)
    streak = np.tile(fbm(rng, n, beta=1.0, lo=4)[0:1, :], (n, 1)).T
    shade = 0.86 + 0.08 * v + 0.06 * streak
    col = np.repeat(shade[..., None], 3, 2) * rgb('f4f7ff')
    return straight_image(col)


def _button_base(cv, state, d):
    fill, glyph = STATE[state]
    cv.glow(d, BLUE, 1.5, 0.35 if state != 'normal' else 0.15)
    cv.shape(d, fill, outline=rgb('0a0f1c'), ow=1.0, bevel=3, gloss=0.5, shadow=0.4)
    return glyph


def round_button(rng, glyph_kind, state, n=32):
    cv = Canvas(n, n)
    c = n / 2
    d = sd_circle(cv, c, c, n * 0.44)
    glyph_col = _button_base(cv, state, d)
    s = n / 32.0
    if glyph_kind == 'close':
        g = union(sd_segment(cv, c - 5 * s, c - 5 * s, c + 5 * s, c + 5 * s, 1.8 * s),
                  sd_segment(cv, c - 5 * s, c + 5 * s, c + 5 * s, c - 5 * s, 1.8 * s))
    elif glyph_kind == 'next':
        g = sd_poly(cv, [(c - 4 * s, c - 7 * s), (c + 6 * s, c), (c - 4 * s, c + 7 * s)]) - 0.6 * s
    else:
        g = sd_poly(cv, [(c + 4 * s, c - 7 * s), (c + 4 * s, c + 7 * s), (c - 6 * s, c)]) - 0.6 * s
    if state == 'clicked':
        g = g
    cv.glow(g, glyph_col, 1.5, 0.4)
    cv.fill(g, glyph_col)
    return cv.image()


def test_button(rng, state, w=128, h=32):
    cv = Canvas(w, h)
    d = sd_box(cv, w / 2, h / 2, w / 2 - 2, h / 2 - 2, 6)
    glyph = _button_base(cv, state, d)
    cv.fill(sd_box(cv, w / 2, h / 2, w / 2 - 14, 1.5, 1.5), glyph, 0.8)
    return cv.image()


def grabber(rng, horizontal=False):
    w, h = (32, 16) if horizontal else (16, 32)
    cv = Canvas(w, h)
    d = sd_box(cv, w / 2, h / 2, w / 2 - 1.5, h / 2 - 1.5, min(w, h) / 2 - 2)
    cv.shape(d, rgb('8fb4e8'), outline=rgb('0a0f1c'), ow=1.0, bevel=3, gloss=0.6, shadow=0.4)
    for k in (-1, 0, 1):
        if horizontal:
            g = sd_box(cv, w / 2 + k * 4, h / 2, 0.8, 3.5, 0.5)
        else:
            g = sd_box(cv, w / 2, h / 2 + k * 4, 3.5, 0.8, 0.5)
        cv.fill(g, rgb('2a3a5a'), 0.9)
    return cv.image()


def cursor(rng, w=32, h=64):
    """Arrow with its tip in the top-left corner of the image."""
    cv = Canvas(w, h)
    s = 1.75
    pts = [(1.5, 1.5), (1.5, 1.5 + 22 * s), (1.5 + 6 * s, 1.5 + 16.5 * s), (1.5 + 10 * s, 1.5 + 26 * s),
           (1.5 + 13.5 * s, 1.5 + 24.5 * s), (1.5 + 9.5 * s, 1.5 + 15 * s), (1.5 + 16 * s, 1.5 + 15 * s)]
    d = sd_poly(cv, pts)
    cv.glow(d, BLUE, 2.0, 0.35)
    cv.shape(d, rgb('f4f8ff'), outline=rgb('0a0f1c'), ow=1.6, bevel=3, gloss=0.3, shadow=0.25)
    return cv.image()
