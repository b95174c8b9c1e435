"""Particle and beam textures.

Particles are tinted by their definition's colours, so these are mostly
white light with the shape in the alpha channel. Beam textures run across
the beam in x (u) and along it in y (v); the ones that scroll or tile along
the beam repeat exactly from top to bottom.
"""
import numpy as np

from imagelib import F, rgb, mix, clamp01, smoothstep, fbm, straight_image, border_fade, edge_distance

WHITE = np.ones(3, F)


def _xy(w, h):
    ys, xs = np.mgrid[0:h, 0:w].astype(F)
    return (xs + 0.5) / w * 2 - 1, (ys + 0.5) / h * 2 - 1


def _alpha(a, sides='tblr'):
    """Alpha clamped to 0..1 and faded out before the named edges, so no
    particle quad shows its square. Beams leave their ends open: they
    repeat from top to bottom."""
    h, w = a.shape
    return clamp01(a) * border_fade(edge_distance(h, w, sides), max(2.0, min(h, w) / 16.0))


def _white(a, tint=None):
    a = _alpha(a)
    col = np.broadcast_to(WHITE if tint is None else tint, a.shape + (3,))
    return straight_image(col, a)


def soft_dot(rng, n=64):
    x, y = _xy(n, n)
    r = np.sqrt(x * x + y * y)
    return _white(np.exp(-(r / 0.42) ** 2) * clamp01((1 - r) * 4))


def bright_part(rng, n=64):
    x, y = _xy(n, n)
    r = np.sqrt(x * x + y * y)
    a = clamp01(1 - r) ** 2.2 + np.exp(-(r / 0.12) ** 2) * 0.6
    return _white(a)


def beam(rng, w=32, h=64, core=0.18, soft=0.55):
    x, y = _xy(w, h)
    ax = np.abs(x)
    a = np.exp(-(ax / core) ** 2) + np.exp(-(ax / soft) ** 2) * 0.45
    ripple = 0.9 + 0.1 * np.sin((y + 1) * np.pi * 2)
    a = a * ripple * clamp01((1 - ax) * 6)
    col = mix(np.broadcast_to(rgb('d8f4ff'), a.shape + (3,)), WHITE, clamp01(np.exp(-(ax / core) ** 2))[..., None])
    return straight_image(col, _alpha(a, 'lr'))


def laser_beam(rng, w=16, h=64):
    x, y = _xy(w, h)
    ax = np.abs(x)
    a = np.exp(-(ax / 0.2) ** 2) + np.exp(-(ax / 0.6) ** 2) * 0.35
    col = mix(np.broadcast_to(rgb('ffb0a8'), a.shape + (3,)), WHITE, clamp01(np.exp(-(ax / 0.2) ** 2))[..., None])
    return straight_image(col, _alpha(a * clamp01((1 - ax) * 5), 'lr'))


def tracer(rng, w=16, h=64):
    x, y = _xy(w, h)
    along = clamp01(1 - np.abs(y)) ** 0.6
    a = np.exp(-(np.abs(x) / (0.3 * along + 0.05)) ** 2) * along
    col = mix(np.broadcast_to(rgb('ffd890'), a.shape + (3,)), WHITE, clamp01(a)[..., None])
    return straight_image(col, _alpha(a * 1.2))


def cloud(rng, n=128):
    x, y = _xy(n, n)
    r = np.sqrt(x * x + y * y)
    v = fbm(rng, n, beta=3.0, lo=1, hi=10)
    a = clamp01(1 - r) ** 1.4 * (0.45 + 0.8 * v)
    return _white(clamp01(a) * clamp01((1 - r) * 8))


def magnetic_pulse(rng, n=64):
    x, y = _xy(n, n)
    r = np.sqrt(x * x + y * y)
    ring = np.exp(-((r - 0.78) / 0.09) ** 2)
    inner = clamp01(1 - r) ** 2 * 0.35
    a = (ring + inner) * clamp01((1 - r) * 10)
    return _white(a)


def lightning(rng, variant, w=32, h=64):
    """A jagged bolt from the top centre to the bottom centre, so chained
    segments join up."""
    ys = np.linspace(0, 1, h)
    steps = 9
    knots = np.concatenate([[0.0], rng.uniform(-0.45, 0.45, steps - 1), [0.0]])
    path = np.interp(ys, np.linspace(0, 1, steps + 1), knots)
    jitter = np.interp(ys, np.linspace(0, 1, 33), np.concatenate([[0], rng.uniform(-0.08, 0.08, 31), [0]]))
    path = path + jitter
    x, y = _xy(w, h)
    dx = np.abs(x - path[:, None])
    a = np.exp(-(dx / 0.07) ** 2) + np.exp(-(dx / 0.28) ** 2) * 0.5
    # A short side fork on variants 2 and 3.
    if variant > 1:
        t0 = 0.25 + 0.2 * variant
        i0 = int(t0 * h)
        fx = np.linspace(path[i0], path[i0] + (0.5 if variant == 2 else -0.5), 14)
        for k, fxv in enumerate(fx):
            row = min(h - 1, i0 + k)
            a[row] = np.maximum(a[row], np.exp(-((x[row] - fxv) / 0.06) ** 2) * (1 - k / 14))
    col = mix(np.broadcast_to(rgb('9fd8ff'), a.shape + (3,)), WHITE, clamp01(np.exp(-(dx / 0.07) ** 2))[..., None])
    return straight_image(col, _alpha(a, 'lr'))


def plasma(rng, variant, w=32, h=64):
    """Scrolling plasma stream; tiles along its length."""
    x, y = _xy(w, h)
    v = fbm(rng, max(w, h), beta=1.8 + 0.2 * variant, lo=1)[:h, :w] if w == h else None
    n = fbm(rng, h, beta=1.8 + 0.2 * variant, lo=1)
    noise = n[:, :w] if n.shape[1] >= w else np.tile(n, (1, 2))[:, :w]
    # Periodic in y: the noise grid is h x h, cropped in x only.
    width = 0.35 + 0.25 * noise
    a = np.exp(-(np.abs(x) / width) ** 2) * (0.6 + 0.6 * noise)
    phase = np.sin((y + 1) * np.pi * (variant + 1) + x * 3)
    a = a * (0.8 + 0.2 * phase)
    core = np.exp(-(np.abs(x) / 0.15) ** 2)
    col = mix(np.broadcast_to(rgb('8fc0ff'), a.shape + (3,)), WHITE, clamp01(core)[..., None])
    return straight_image(col, _alpha(a * clamp01((1 - np.abs(x)) * 4), 'lr'))


def rail(rng, w=32, h=64):
    x, y = _xy(w, h)
    t = (y + 1) * np.pi * 2
    helix1 = np.exp(-((x - 0.6 * np.sin(t)) / 0.12) ** 2) * (0.6 + 0.4 * np.cos(t))
    helix2 = np.exp(-((x + 0.6 * np.sin(t)) / 0.12) ** 2) * (0.6 - 0.4 * np.cos(t))
    core = np.exp(-(np.abs(x) / 0.12) ** 2)
    a = clamp01(helix1 + helix2 + core)
    col = mix(np.broadcast_to(rgb('a0ffd8'), a.shape + (3,)), WHITE, clamp01(core)[..., None])
    return straight_image(col, _alpha(a * clamp01((1 - np.abs(x)) * 5), 'lr'))


def spark(rng, n=32):
    x, y = _xy(n, n)
    r = np.sqrt(x * x + y * y)
    rays = np.exp(-(np.abs(x) / 0.08) ** 2) * clamp01(1 - np.abs(y)) + \
        np.exp(-(np.abs(y) / 0.08) ** 2) * clamp01(1 - np.abs(x))
    a = rays * 0.8 + np.exp(-(r / 0.25) ** 2)
    col = mix(np.broadcast_to(rgb('ffe0a0'), a.shape + (3,)), WHITE, clamp01(np.exp(-(r / 0.25) ** 2))[..., None])
    return straight_image(col, _alpha(a))


def smoke(rng, n=64):
    x, y = _xy(n, n)
    r = np.sqrt(x * x + y * y)
    v = fbm(rng, n, beta=3.0, lo=1, hi=8)
    a = clamp01(1 - r) ** 1.2 * (0.3 + 1.0 * v) * clamp01((1 - r) * 6)
    shade = clamp01(0.75 + 0.35 * v - y * 0.15)
    col = np.repeat(shade[..., None], 3, 2) * rgb('e8e8ec')
    return straight_image(col, _alpha(a))


def fire(rng, n=64):
    x, y = _xy(n, n)
    v = fbm(rng, n, beta=2.8, lo=1, hi=9)
    r = np.sqrt(x * x + (y * 0.8 + 0.1) ** 2)
    a = clamp01(1.1 - r - (v - 0.5) * 0.5) ** 1.5 * clamp01((1 - np.sqrt(x * x + y * y)) * 6)
    col = mix(np.broadcast_to(rgb('ffb040'), a.shape + (3,)), WHITE, clamp01(a * 1.4 - 0.4)[..., None])
    return straight_image(col, _alpha(a))


def flare(rng, n=128):
    x, y = _xy(n, n)
    r = np.sqrt(x * x + y * y)
    ang = np.arctan2(y, x)
    rays = (np.abs(np.cos(ang * 3)) ** 40) * clamp01(1 - r) ** 2 * 0.7
    a = np.exp(-(r / 0.12) ** 2) + clamp01(1 - r) ** 3 * 0.45 + rays
    a = a + np.exp(-((r - 0.7) / 0.03) ** 2) * 0.15
    return _white(clamp01(a) * clamp01((1 - r) * 8))


def shockwave(rng, n=128):
    x, y = _xy(n, n)
    r = np.sqrt(x * x + y * y)
    a = np.exp(-((r - 0.85) / 0.05) ** 2) + clamp01((r - 0.4) / 0.5) ** 3 * 0.35 * (r < 0.9)
    return _white(clamp01(a) * clamp01((1 - r) * 12))


def blood(rng, n=64):
    x, y = _xy(n, n)
    v = fbm(rng, n, beta=2.6, lo=1, hi=10)
    r = np.sqrt(x * x + y * y) + (v - 0.5) * 0.35
    a = smoothstep(0.78, 0.62, r)
    shade = 0.7 + 0.3 * clamp01(-x * 0.5 - y * 0.5 + 0.5)
    col = np.repeat(shade[..., None], 3, 2)
    return straight_image(col, _alpha(a))


def bubble(rng, n=32):
    x, y = _xy(n, n)
    r = np.sqrt(x * x + y * y)
    ring = np.exp(-((r - 0.78) / 0.1) ** 2) + 0.15 * (r < 0.8)
    hl = np.exp(-(((x + 0.3) ** 2 + (y + 0.35) ** 2) / 0.02))
    return _white(clamp01(ring + hl) * clamp01((1 - r) * 8))


def dust(rng, n=32):
    x, y = _xy(n, n)
    r = np.sqrt(x * x + y * y)
    return _white(clamp01(1 - r) ** 2.5)


def star(rng, n=64):
    x, y = _xy(n, n)
    r = np.sqrt(x * x + y * y)
    a = np.exp(-(np.abs(x) / 0.05) ** 2) * clamp01(1 - np.abs(y)) ** 2 + \
        np.exp(-(np.abs(y) / 0.05) ** 2) * clamp01(1 - np.abs(x)) ** 2 + np.exp(-(r / 0.15) ** 2)
    return _white(clamp01(a))


def debris(rng, n=64):
    from imagelib import Canvas, sd_poly
    cv = Canvas(32, 32, scale=n // 32)
    pts = []
    for k in range(6):
        a = k * 2 * np.pi / 6 + rng.uniform(-0.3, 0.3)
        rr = 32 * (0.28 + rng.random() * 0.15)
        pts.append((16 + rr * np.cos(a), 16 + rr * np.sin(a)))
    cv.shape(sd_poly(cv, pts), rgb('d0d0d0'), outline=rgb('303030'), ow=1.0, bevel=3, gloss=0.4)
    return cv.image()
