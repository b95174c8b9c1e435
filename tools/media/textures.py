"""Seamless level textures and flat backgrounds.

Every level texture is periodic in both directions: noise comes from
spectral synthesis on whole frequencies and every pattern (panels, rivets,
stripes, grate holes) repeats an exact divisor of the image size.
"""
import numpy as np
from PIL import Image, ImageDraw, ImageFont, ImageFilter

from imagelib import (F, rgb, mix, clamp01, smoothstep, fbm, cells, straight_image, Canvas, sd_box, sd_circle,
                      glow_image, border_fade, edge_distance)

FONT_BOLD = '/usr/share/fonts/truetype/ttf-bitstream-vera/VeraBd.ttf'
FONT_FALLBACK = '/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf'


def font(size):
    for path in (FONT_BOLD, FONT_FALLBACK):
        try:
            return ImageFont.truetype(path, size)
        except OSError:
            continue
    return ImageFont.load_default()


def grid(n):
    ys, xs = np.mgrid[0:n, 0:n].astype(F)
    return xs, ys


def shade(height, strength=1.0, light=(-0.6, -0.8)):
    """Lambert-like relief from a periodic height map."""
    gx = (np.roll(height, -1, 1) - np.roll(height, 1, 1)) * 0.5
    gy = (np.roll(height, -1, 0) - np.roll(height, 1, 0)) * 0.5
    return 1.0 + strength * (gx * light[0] + gy * light[1])


def colourise(v, stops):
    """Map 0..1 values through colour stops [(t, '#rrggbb'), ...]."""
    ts = np.array([s[0] for s in stops], F)
    cs = np.array([rgb(s[1]) for s in stops], F)
    out = np.zeros(v.shape + (3,), F)
    for ch in range(3):
        out[..., ch] = np.interp(v, ts, cs[:, ch])
    return out


def panel_field(n, cell, gap=2.0, bevel=5.0):
    """Periodic rectangular panel height: 1 in panel centres, 0 in seams."""
    xs, ys = grid(n)
    fx = np.mod(xs, cell)
    fy = np.mod(ys, cell)
    ex = np.minimum(fx, cell - 1 - fx)
    ey = np.minimum(fy, cell - 1 - fy)
    e = np.minimum(ex, ey)
    return smoothstep(gap, gap + bevel, e), e


def rivets(n, cell, inset, r=2.2):
    xs, ys = grid(n)
    fx = np.mod(xs, cell)
    fy = np.mod(ys, cell)
    h = np.zeros((n, n), F)
    for cx in (inset, cell - 1 - inset):
        for cy in (inset, cell - 1 - inset):
            d = np.sqrt((fx - cx) ** 2 + (fy - cy) ** 2)
            h = np.maximum(h, clamp01(1 - d / r))
    return np.sqrt(h)


def metal(rng, n=256, variant=1):
    if variant == 1:
        grain = fbm(rng, n, beta=1.0, lo=2) * 0.5 + fbm(rng, n, beta=3.0, lo=1) * 0.5
        brushed = np.repeat(rng.standard_normal((n, 1)), n, 1).T * 0.0
        streak = fbm(rng, n, beta=1.6, lo=1, m=n)
        streak = np.roll(np.repeat(streak[:, :1], n, 1), 0, 0) * 0.0 + np.tile(fbm(rng, n, beta=1.2)[0:1, :], (n, 1)).T
        panels, e = panel_field(n, 128, gap=1.5, bevel=3)
        rv = rivets(n, 128, 8)
        height = panels * 0.6 + rv * 0.8 + grain * 0.15
        base = colourise(grain * 0.5 + streak * 0.5, [(0, '5d6675'), (0.5, '7c8697'), (1, '9aa4b4')])
        col = base * shade(height * 6, 0.35)[..., None]
        col = col * (0.55 + 0.45 * panels)[..., None]
        col = col + rv[..., None] * 0.15
    else:
        # Diamond tread plate.
        xs, ys = grid(n)
        p = 32.0
        u = np.mod(xs + ys, p) / p - 0.5
        v = np.mod(xs - ys, p) / p - 0.5
        grid_id = (np.floor((xs + ys) / p) + np.floor((xs - ys) / p)) % 2
        ang_u = np.where(grid_id == 0, u, v)
        ang_v = np.where(grid_id == 0, v, u)
        bump = clamp01(1 - (np.abs(ang_u) * 6.5) ** 2 - (np.abs(ang_v) * 2.2) ** 2)
        grain = fbm(rng, n, beta=2.2, lo=1)
        base = colourise(grain, [(0, '6a7280'), (1, 'a2aab8')])
        col = base * shade(bump * 8, 0.4)[..., None] + bump[..., None] * 0.08
    return straight_image(col)


def concrete(rng, n=256, variant=1):
    big = fbm(rng, n, beta=2.6, lo=1)
    fine = fbm(rng, n, beta=0.6, lo=8)
    pits = (fbm(rng, n, beta=0.2, lo=16) > 0.82).astype(F)
    v = big * 0.6 + fine * 0.4 - pits * 0.15
    if variant == 1:
        stops = [(0, '5e5a55'), (0.5, '86817a'), (1, 'a8a298')]
        slabs, e = panel_field(n, 128, gap=0.6, bevel=1.5)
    else:
        stops = [(0, '4f5358'), (0.5, '707579'), (1, '92979b')]
        slabs, e = panel_field(n, 256, gap=0.6, bevel=1.5)
    col = colourise(clamp01(v), stops) * shade(v * 10, 0.25)[..., None]
    col = col * (0.7 + 0.3 * slabs)[..., None]
    stain = fbm(rng, n, beta=3.0, lo=1)
    col = col * (0.85 + 0.15 * stain)[..., None]
    return straight_image(col)


def rock(rng, n=256, variant=1):
    d1, d2, ident = cells(rng, n, 26 if variant == 1 else 40)
    edge = clamp01((d2 - d1) / 6.0)
    tone = (ident * 0.6180339) % 1.0
    noise = fbm(rng, n, beta=1.8, lo=2)
    height = edge * 0.8 + noise * 0.4
    if variant == 1:
        stops = [(0, '3d3128'), (0.5, '6b5744'), (1, '8f7a62')]
    else:
        stops = [(0, '2e3238'), (0.5, '4f565e'), (1, '767e86')]
    col = colourise(clamp01(tone * 0.45 + noise * 0.55), stops)
    col = col * shade(height * 10, 0.45)[..., None] * (0.45 + 0.55 * edge)[..., None]
    return straight_image(col)


def techpanel(rng, n=256, variant=1):
    xs, ys = grid(n)
    cell = 64 if variant == 1 else 128
    panels, e = panel_field(n, cell, gap=2, bevel=3)
    grain = fbm(rng, n, beta=2.0, lo=2)
    tone = colourise(grain, [(0, '2a3446'), (1, '3e4c64')]) if variant == 1 else \
        colourise(grain, [(0, '30343c'), (1, '4a505c')])
    col = tone * shade(panels * 5, 0.4)[..., None] * (0.5 + 0.5 * panels)[..., None]
    fx = np.mod(xs, cell)
    fy = np.mod(ys, cell)
    light = rgb('39d0ff') if variant == 1 else rgb('ffb020')
    # Glowing strip lights and vents, periodic with the panel grid.
    strip = (np.abs(fy - cell * 0.5) < 1.5) & (np.abs(fx - cell * 0.5) < cell * 0.3)
    halo = np.exp(-np.abs(fy - cell * 0.5) / 3.0) * (np.abs(fx - cell * 0.5) < cell * 0.32)
    col = col + light * (halo * 0.25)[..., None]
    col = np.where(strip[..., None], mix(light, np.ones(3, F), 0.4), col)
    vent = (np.mod(fx, 6) < 3) & (fy > cell * 0.7) & (fy < cell * 0.85) & (fx > cell * 0.2) & (fx < cell * 0.8)
    col = np.where(vent[..., None], col * 0.35, col)
    col = col + rivets(n, cell, 6, 1.8)[..., None] * 0.25
    return straight_image(col)


def planks(rng, n=256):
    """Weathered deck boards for piers and crates: rows of planks with
    staggered joints, grain along the boards and a nail at each end."""
    xs, ys = grid(n)
    board, length = 32, 128
    row = np.floor(ys / board)
    fy = np.mod(ys, board)
    shifted = np.mod(xs - np.mod(row * 80, n), n)
    fx = np.mod(shifted, length)
    plank = (row * (n // length) + np.floor(shifted / length)).astype(int)
    tone = rng.random(int(plank.max()) + 1)[plank]
    noise = fbm(rng, n, beta=1.4, lo=2)
    # Smear the noise along x into grain; rolling keeps it periodic.
    grain = sum(np.roll(noise, k, 1) for k in range(0, 24, 3)) / 8.0
    grain = clamp01((grain - grain.min()) / max(grain.max() - grain.min(), 1e-6))
    seam = np.minimum(np.minimum(fy, board - 1 - fy), np.minimum(fx, length - 1 - fx))
    edge = clamp01(seam / 1.6)
    col = colourise(clamp01(grain * 0.6 + tone * 0.4), [(0, '4a3423'), (0.5, '7a5a3c'), (1, 'a48058')])
    col = col * shade(edge * 4 + grain * 2, 0.3)[..., None] * (0.35 + 0.65 * edge)[..., None]
    nail = np.zeros((n, n), F)
    for cx in (6, length - 7):
        d = np.sqrt((fx - cx) ** 2 + (fy - board / 2) ** 2)
        nail = np.maximum(nail, clamp01(1.0 - d / 1.8))
    col = mix(col, rgb('2a2624'), (nail * 0.8)[..., None])
    return straight_image(col)


def quaystone(rng, n=256):
    """Dressed stone blocks in courses, for quay walls: staggered joints,
    a tone per block and worn, recessed mortar."""
    xs, ys = grid(n)
    course, length = 64, 128
    row = np.floor(ys / course)
    fy = np.mod(ys, course)
    shifted = np.mod(xs + np.mod(row, 2) * (length / 2), n)
    fx = np.mod(shifted, length)
    block = (row * (n // length) + np.floor(shifted / length)).astype(int)
    tone = rng.random(int(block.max()) + 1)[block]
    noise = fbm(rng, n, beta=1.8, lo=2)
    mortar = np.minimum(np.minimum(fy, course - 1 - fy), np.minimum(fx, length - 1 - fx))
    edge = clamp01((mortar - 1.0) / 3.0)
    height = edge * 0.8 + noise * 0.3
    col = colourise(clamp01(tone * 0.4 + noise * 0.6), [(0, '575049'), (0.5, '7e766b'), (1, 'a59c8f')])
    col = col * shade(height * 8, 0.4)[..., None] * (0.45 + 0.55 * edge)[..., None]
    return straight_image(col)



def roofing(rng, n=256):
    """Tarred roofing felt for the foundry roofs: overlapping sheets with a
    lapped seam every course, gravel pressed into the tar, and a few sheets
    patched darker."""
    xs, ys = grid(n)
    course = 64
    # Laps fall mid-tile, so the tile's own edge is plain felt.
    fy = np.mod(ys + course // 2, course)
    row = np.mod(np.floor((ys + course // 2) / course), n // course).astype(int)
    sheet = np.mod(xs + np.mod(row, 2) * (n // 2), n) // (n // 2)
    patch = rng.random((n // course, 2))[row, sheet.astype(int)]
    grit = fbm(rng, n, beta=0.2, lo=8)
    stones = clamp01((grit - 0.6) * 5.0)
    body = fbm(rng, n, beta=1.6, lo=2)
    tone = colourise(clamp01(body * 0.7 + patch * 0.3), [(0, '353331'), (0.6, '4c4945'), (1, '66615a')])
    # The lap: a raised lip at the top of each course, shadowed under it.
    lip = smoothstep(course - 6, course - 1, fy)
    shadow = 1.0 - 0.45 * (1.0 - smoothstep(0.0, 5.0, fy))
    col = tone * (shadow * (1.0 + 0.25 * lip))[..., None]
    col = mix(col, rgb('8d877c') * (0.8 + 0.4 * grit)[..., None], (stones * 0.7)[..., None])
    return straight_image(col)


def serverrack(rng, n=256):
    """A server cabinet front, one to a tile: a stack of units with vents
    and status lights between dark steel rails."""
    xs, ys = grid(n)
    unit = 32
    fy = np.mod(ys, unit)
    slot = np.floor(ys / unit).astype(int)
    tone = rng.random(n // unit)[slot]
    grain = fbm(rng, n, beta=2.0, lo=2)
    face = colourise(clamp01(grain * 0.5 + tone * 0.5), [(0, '22262c'), (1, '3a404a')])
    rail = (xs < 16) | (xs > n - 17)
    seam = np.minimum(fy, unit - 1 - fy)
    col = face * (0.55 + 0.45 * clamp01(seam / 2.0))[..., None]
    vent = (np.mod(xs, 6) < 3) & (fy > 8) & (fy < 24) & (xs > 96) & (xs < 224)
    col = np.where(vent[..., None], col * 0.4, col)
    col = np.where(rail[..., None], colourise(grain, [(0, '15171a'), (1, '262a30')]), col)
    col = col + rivets(n, unit, 6, 2.0)[..., None] * rail[..., None] * 0.2
    # Status lights: a green or amber pair at the left of most units.
    pick = rng.random(n // unit)[slot]
    light = np.where((pick > 0.7)[..., None], rgb('ffb020'), rgb('4cff7a'))
    for cx in (36.0, 52.0):
        d = np.sqrt((xs - cx) ** 2 + (fy - unit * 0.5) ** 2)
        on = (pick > 0.15).astype(F)
        col = mix(col, light, (clamp01(3.0 - d) * on)[..., None])
        col = col + light * (np.exp(-d / 4.0) * 0.18 * on)[..., None]
    return straight_image(col)

def grate(rng, n=128):
    """Floor grating with see-through holes (RGBA)."""
    xs, ys = grid(n)
    p = 16
    fx = np.mod(xs, p)
    fy = np.mod(ys, p)
    bar = np.minimum(np.minimum(fx, p - 1 - fx), np.minimum(fy, p - 1 - fy))
    a = clamp01(2.6 - bar)
    frame, e = panel_field(n, 64, gap=0, bevel=0.01)
    rail = (e < 3).astype(F)
    a = np.maximum(a, rail)
    grain = fbm(rng, n, beta=2.0, lo=2)
    col = colourise(grain, [(0, '4a505a'), (1, '8a929e')])
    col = col * (0.75 + 0.35 * clamp01(1 - bar / 2.6))[..., None]
    col = np.where(rail[..., None] > 0, col * 1.1, col)
    return straight_image(col, a)


def hazard(rng, n=128):
    xs, ys = grid(n)
    p = 32.0
    t = np.mod(xs + ys, p) / p
    stripe = smoothstep(0.48, 0.52, t) * (1 - smoothstep(0.98, 1.0, t)) + (1 - smoothstep(0.0, 0.02, t)) * 0
    wear = fbm(rng, n, beta=1.2, lo=4)
    yellow = rgb('f2b81c') * (0.85 + 0.2 * wear)[..., None]
    black = rgb('1c1c1e') * (0.9 + 0.3 * wear)[..., None]
    col = mix(yellow, black, stripe[..., None])
    scratches = (fbm(rng, n, beta=0.3, lo=20) > 0.8).astype(F)
    col = mix(col, rgb('8a8a86'), (scratches * 0.5)[..., None])
    return straight_image(col)


def water(rng, n=256):
    """Translucent water with soft caustic lines."""
    a1 = fbm(rng, n, beta=3.2, lo=2, hi=24)
    a2 = fbm(rng, n, beta=3.2, lo=2, hi=24)
    caustic = clamp01(1 - np.abs(a1 - a2) * 5.0) ** 4
    depth = fbm(rng, n, beta=3.5, lo=1)
    col = colourise(depth, [(0, '0e3f72'), (1, '1f74b4')]) + caustic[..., None] * rgb('a8f0ff') * 0.45
    alpha = 0.6 + caustic * 0.2
    return straight_image(col, alpha)


def lava(rng, n=256):
    d1, d2, ident = cells(rng, n, 22)
    crack = 1 - clamp01((d2 - d1) / 5.0)
    heat = fbm(rng, n, beta=2.2, lo=2)
    v = clamp01(crack * 0.8 + heat * 0.45)
    col = colourise(v, [(0, '1e0804'), (0.35, '5a1406'), (0.6, 'c83a0a'), (0.8, 'ff8a1a'), (1, 'fff0a0')])
    crust = shade(heat * 6 * (1 - crack), 0.35)
    col = col * np.where(v < 0.5, crust, 1.0)[..., None]
    return straight_image(col)


def techbase(rng, n=512):
    """Menu and upgrade-screen backdrop: dark blue tech plating."""
    xs, ys = grid(n)
    big, e = panel_field(n, 256, gap=3, bevel=4)
    small, e2 = panel_field(n, 64, gap=1, bevel=2)
    grain = fbm(rng, n, beta=2.0, lo=2)
    col = colourise(grain, [(0, '0e1626'), (1, '1c2a44')])
    col = col * shade(big * 6 + small * 2, 0.35)[..., None] * (0.55 + 0.25 * big + 0.2 * small)[..., None]
    circuit = (fbm(rng, n, beta=0.4, lo=24) > 0.86) & (small > 0.5)
    col = col + circuit[..., None] * rgb('1a5a8a') * 0.35
    fx = np.mod(xs, 256)
    fy = np.mod(ys, 256)
    strip = np.exp(-np.abs(fy - 128) / 2.0) * (np.abs(fx - 128) < 90)
    col = col + strip[..., None] * rgb('2fa8ff') * 0.35
    col = col + rivets(n, 256, 10, 2.5)[..., None] * 0.3
    return straight_image(col)


def checkers(rng, red=False, n=64):
    xs, ys = grid(n)
    c = ((np.floor(xs / 16) + np.floor(ys / 16)) % 2).astype(F)
    light = rgb('f2f2f2') if not red else rgb('ff3a3a')
    dark = rgb('1a1a1e') if not red else rgb('f2f2f2')
    col = mix(dark, light, c[..., None])
    grain = fbm(rng, n, beta=1.5, lo=2)
    col = col * (0.9 + 0.1 * grain)[..., None]
    return straight_image(col)


def boss_block(rng, kind, n=64):
    from sprites import BLOCK_COLOURS, outline_of
    col = BLOCK_COLOURS[kind]
    cv = Canvas(n, n)
    d = sd_box(cv, n / 2, n / 2, n / 2, n / 2, 0)
    cv.shape(d, col, outline=outline_of(col), ow=2.0, bevel=8, gloss=0.5)
    inner = sd_box(cv, n / 2, n / 2, n / 2 - 10, n / 2 - 10, 3)
    cv.shape(inner, col * 0.75, outline=outline_of(col), ow=1.0, bevel=4, gloss=0.3)
    from imagelib import sd_regular
    glyph = [sd_circle(cv, n / 2, n / 2, 8), sd_regular(cv, n / 2, n / 2 + 2, 10, 3), sd_box(cv, n / 2, n / 2, 7, 7, 1)][kind]
    cv.glow(glyph, col, 4, 0.6)
    cv.shape(glyph, rgb('ffffff'), outline=outline_of(col), ow=1.0, bevel=3, gloss=0.3)
    return cv.image('RGB')


def fallback(rng, n=64):
    xs, ys = grid(n)
    c = ((np.floor(xs / 8) + np.floor(ys / 8)) % 2).astype(F)
    col = mix(rgb('2a2a2e'), rgb('c2309a'), c[..., None])
    return straight_image(col)


def text_image(text, w, h, size, colour, glow_colour, rng=None, tracking=0):
    """Centred bold caption with a soft glow on a transparent canvas."""
    ss = 4
    big = Image.new('L', (w * ss, h * ss), 0)
    dr = ImageDraw.Draw(big)
    f = font(size * ss)
    box = dr.textbbox((0, 0), text, font=f)
    tw, th = box[2] - box[0], box[3] - box[1]
    dr.text(((w * ss - tw) / 2 - box[0], (h * ss - th) / 2 - box[1]), text, font=f, fill=255)
    mask = np.asarray(big.resize((w, h), Image.BOX), F) / 255.0
    m8 = Image.fromarray(np.round(mask * 255).astype(np.uint8))
    halo = np.asarray(m8.filter(ImageFilter.GaussianBlur(size * 0.18)), F) / 255.0
    outline = np.asarray(m8.filter(ImageFilter.MaxFilter(3)), F) / 255.0
    ys = np.mgrid[0:h, 0:w][0].astype(F) / h
    fillc = mix(mix(colour, np.ones(3, F), 0.55), colour, ys[..., None])
    a = np.maximum(mask, np.maximum(outline * 0.9, clamp01(halo * 1.8) * 0.8))
    col = np.where(mask[..., None] > 0.01, fillc, np.where(outline[..., None] > 0.01, np.asarray(glow_colour) * 0.25,
                                                          glow_colour))
    col = mix(col, fillc, mask[..., None])
    return straight_image(col, a)


def _text_mask(text, w, h, size, ss=4):
    big = Image.new('L', (w * ss, h * ss), 0)
    dr = ImageDraw.Draw(big)
    f = font(size * ss)
    box = dr.textbbox((0, 0), text, font=f)
    tw, th = box[2] - box[0], box[3] - box[1]
    dr.text(((w * ss - tw) / 2 - box[0], (h * ss - th) / 2 - box[1]), text, font=f, fill=255)
    return big


def title_text(text, w, h, size, light='fff6c8', mid='ffc934', dark='d8560c', edge='1c0f06', halo='ff8a1a'):
    """Chunky title lettering: a two-band metallic gradient, a thick dark
    edge, a drop shadow and a soft outer halo."""
    ss = 4
    big = _text_mask(text, w, h, size, ss)
    thick = max(3, int(size * 0.09))
    edge_big = big.filter(ImageFilter.GaussianBlur(thick * ss * 0.5)).point(lambda v: 255 if v > 24 else v * 10)
    mask = np.asarray(big.resize((w, h), Image.BOX), F) / 255.0
    emask = np.asarray(edge_big.resize((w, h), Image.BOX), F) / 255.0
    shadow = np.roll(np.roll(emask, 2, 0), 2, 1)
    halo_a = np.asarray(Image.fromarray(np.round(emask * 255).astype(np.uint8)).filter(
        ImageFilter.GaussianBlur(size * 0.16)), F) / 255.0
    halo_a = halo_a * border_fade(edge_distance(h, w), size * 0.12)
    rows = np.flatnonzero(mask.max(axis=1) > 0.5)
    top, bottom = (rows[0], rows[-1]) if rows.size else (0, h)
    t = clamp01((np.mgrid[0:h, 0:w][0].astype(F) - top) / max(bottom - top, 1))
    upper = mix(rgb(light), rgb(mid), clamp01(t / 0.5)[..., None])
    lower = mix(rgb(mid) * 0.95, rgb(dark), clamp01((t - 0.5) / 0.5)[..., None])
    fill = np.where((t < 0.5)[..., None], upper, lower)
    cv = Canvas(w, h, ss=1)
    cv.over(rgb(halo), clamp01(halo_a * 0.9))
    cv.over(rgb('000000'), shadow * 0.6)
    cv.over(rgb(edge), emask)
    cv.over(fill, mask)
    return cv.image()


def paused(rng):
    return title_text('PAUSED', 256, 64, 42)


def default_game(rng, w=320, h=240):
    cv = Canvas(w, h, ss=2)
    t = clamp01(cv.y / h)
    cv.over(mix(rgb('1a2a48'), rgb('070b14'), t[..., None]), np.ones_like(t))
    ring = np.sqrt((cv.x - w / 2) ** 2 + (cv.y - h / 2) ** 2)
    cv.add(rgb('2f6aff'), clamp01(1 - ring / (w * 0.6)) * 0.25)
    body = sd_box(cv, w / 2, h / 2 - 6, 46, 30, 8)
    cv.shape(body, rgb('5a6a86'), outline=rgb('0c1220'), ow=2, bevel=6, gloss=0.4)
    lens = sd_circle(cv, w / 2, h / 2 - 6, 18)
    cv.shape(lens, rgb('1a2438'), outline=rgb('0a0e18'), ow=2, bevel=6, gloss=0.6)
    cv.glow(sd_circle(cv, w / 2, h / 2 - 6, 8), rgb('3ac8ff'), 6, 0.6)
    cv.shape(sd_box(cv, w / 2 - 28, h / 2 - 40, 10, 5, 2), rgb('5a6a86'), outline=rgb('0c1220'), ow=1.5, bevel=2)
    img = cv.image('RGB')
    cap = text_image('NO SAVE SELECTED', w, 40, 20, rgb('9fd8ff'), rgb('2f6aff'))
    img.paste(cap, (0, h - 64), cap)
    return img


def logo(rng, glow=False):
    w, h = 512, 128
    img = title_text('BRINDLEQUAY', w, h, 58)
    if not glow:
        return img
    return glow_image(img, rgb('ff9a2a'), 5.0)


def sky(rng, kind, n=256):
    if kind == 'stars':
        col = np.zeros((n, n, 3), F)
        a = np.zeros((n, n), F)
        xs, ys = grid(n)
        for _ in range(180):
            x, y = rng.random() * n, rng.random() * n
            r = 0.6 + rng.random() ** 4 * 1.8
            dx = np.abs(xs - x)
            dx = np.minimum(dx, n - dx)
            dy = np.abs(ys - y)
            dy = np.minimum(dy, n - dy)
            s = clamp01(1 - np.sqrt(dx * dx + dy * dy) / r) ** 1.5
            tint = mix(rgb('ffffff'), [rgb('9fc8ff'), rgb('ffe0a0'), rgb('ffffff')][int(rng.random() * 3)], 0.5)
            col = col + tint * s[..., None]
            a = np.maximum(a, s)
        col = col / np.maximum(a[..., None], 1e-3)
        return straight_image(col, a)
    if kind == 'clouds':
        v = fbm(rng, n, beta=3.2, lo=1, hi=20)
        a = smoothstep(0.45, 0.8, v)
        col = mix(rgb('8a9ab8'), rgb('ffffff'), smoothstep(0.5, 0.95, v)[..., None])
        return straight_image(col, a * 0.9)
    if kind == 'nebula':
        v = fbm(rng, n, beta=2.8, lo=1)
        w2 = fbm(rng, n, beta=2.0, lo=2)
        col = colourise(v, [(0, '05030c'), (0.45, '2a0a4a'), (0.7, '8a2a7a'), (1, 'ff9ac8')])
        col = col + (w2 > 0.7)[..., None] * rgb('2a4aa8') * 0.2
        return straight_image(col)
    # haze: a vertical gradient strip for horizon glows
    ys = np.mgrid[0:n, 0:n][0].astype(F) / (n - 1)
    a = smoothstep(0.0, 1.0, ys) ** 1.5
    col = np.broadcast_to(rgb('ffffff'), (n, n, 3))
    return straight_image(col, a)
