"""Characters, enemies, bosses, projectiles, pickups and weapon art.

All sprites share one look: a dark tinted outline, light from the upper
left, a glossy rim, and glowing eyes or cores in the side's colour
(amber for the player, red and magenta for enemies, cyan for allies).
"""
import numpy as np

from imagelib import (Canvas, F, rgb, mix, clamp01, sd_circle, sd_ellipse, sd_box, sd_segment,
                      sd_poly, sd_star, sd_regular, union, smooth_union, subtract, intersect)

STEEL = rgb('8c97ab')
DARK_STEEL = rgb('4a5266')
GUNMETAL = rgb('3a3f4c')
HOSTILE_EYE = rgb('ff3b2f')
ALLY_EYE = rgb('3cf2ff')
PLAYER_EYE = rgb('ffe066')

# Level tints: the same silhouette gets hotter and heavier as it ranks up.
LEVEL_TRIM = [rgb('d8dde6'), rgb('ffd23f'), rgb('ff8a1f'), rgb('ff2e4c'), rgb('c03cff')]


def outline_of(c):
    return np.asarray(c, F) * 0.18 + rgb('0b0e1a') * 0.6


def eye(cv, cx, cy, r, colour, pupil=True):
    d = sd_circle(cv, cx, cy, r)
    cv.glow(d, colour, r * 0.9, 0.55)
    cv.shape(d, colour * 0.55 + 0.35, outline=outline_of(colour), ow=0.9, bevel=r, gloss=0.2, shadow=0.1,
             top=mix(colour, np.ones(3, F), 0.55), bottom=colour)
    if pupil:
        cv.fill(sd_circle(cv, cx + r * 0.15, cy + r * 0.1, r * 0.42), rgb('1a0508') * 0.5 + colour * 0.2)
    cv.highlight(cx - r * 0.35, cy - r * 0.4, r * 0.35, r * 0.3, 0.9)


def visor(cv, cx, cy, hw, hh, colour):
    d = sd_box(cv, cx, cy, hw, hh, hh)
    cv.fill(d - 1.0, outline_of(colour))
    cv.glow(d, colour, hh * 1.2, 0.45)
    cv.shape(d, colour, outline=outline_of(colour), ow=0.8, bevel=hh, gloss=0.5, shadow=0.35,
             top=mix(colour, np.ones(3, F), 0.5))


def chevrons(cv, cx, cy, level, colour, size=3.0):
    """Rank marks: one small bar per level above the first."""
    n = max(0, level - 1)
    for i in range(n):
        x = cx + (i - (n - 1) / 2.0) * (size * 2.2)
        d = sd_box(cv, x, cy, size * 0.7, size * 1.1, 0.8)
        cv.shape(d, colour, ow=0.7, bevel=1.5, gloss=0.4)


def barrel(cv, x0, y, x1, r, colour=GUNMETAL, muzzle=True):
    d = sd_box(cv, (x0 + x1) / 2.0, y, abs(x1 - x0) / 2.0, r, r * 0.5)
    cv.shape(d, colour, bevel=r, gloss=0.4)
    if muzzle:
        mx = x1 if x1 > x0 else x1
        dm = sd_box(cv, mx, y, 1.3, r + 1.0, 0.6)
        cv.shape(dm, colour * 1.3, bevel=1.0)


def shadow_blob(cv, cx, cy, rx, ry, strength=0.35):
    d = sd_ellipse(cv, cx, cy, rx, ry)
    cv.over(rgb('000000'), clamp01(0.5 - d / 3.0) * strength)


# -- the player -----------------------------------------------------------------

def player(rng, size=64):
    cv = Canvas(size, size)
    s = size / 64.0
    body = rgb('ffc934')
    d = sd_circle(cv, 32 * s, 32 * s, 27 * s)
    cv.shape(d, body, outline=rgb('3a2205'), ow=1.6 * s, bevel=7 * s, gloss=0.45, shadow=0.45)
    # Visor band with two friendly eyes.
    band = intersect(sd_box(cv, 32 * s, 27 * s, 22 * s, 8 * s, 7 * s), d + 3 * s)
    cv.shape(band, rgb('1d2333'), outline=rgb('0b0d14'), ow=1.0 * s, bevel=3 * s, gloss=0.5)
    for ex in (24, 40):
        ed = sd_ellipse(cv, ex * s, 27 * s, 4.2 * s, 5.2 * s)
        cv.glow(ed, PLAYER_EYE, 3 * s, 0.6)
        cv.shape(ed, PLAYER_EYE, outline=rgb('402a00'), ow=0.6 * s, bevel=2 * s, gloss=0.6,
                 top=rgb('fffbe0'), bottom=rgb('ffb000'))
    # Smile.
    smile = subtract(sd_circle(cv, 32 * s, 36 * s, 12 * s), sd_circle(cv, 32 * s, 33 * s, 12 * s))
    smile = intersect(smile, -(cv.y - 40 * s))
    cv.fill(smile - 0.6 * s, rgb('5a3206'))
    cv.highlight(22 * s, 14 * s, 10 * s, 6 * s, 0.6, clip=d)
    return cv.image()


def player_glow(rng, size=64):
    cv = Canvas(size, size, ss=2)
    r = np.sqrt((cv.x - size / 2) ** 2 + (cv.y - size / 2) ** 2) / (size / 2)
    a = clamp01(1 - r) ** 2.2
    col = mix(rgb('ffb020'), rgb('fff4c0'), clamp01(1 - r * 1.6)[..., None])
    cv.over(col, a)
    return cv.image()


# -- grunts -----------------------------------------------------------------------

GRUNT_COLOURS = {
    'chaingun': rgb('f07a24'),
    'rocket': rgb('d6323a'),
    'shotgun': rgb('7d9a2f'),
    'melee': rgb('9a3fd0'),
    'sniper': rgb('1f9c8c'),
    'plasma': rgb('2f6ee0'),
    'kamikaze': rgb('e8b21c'),
}


# Eyes burn hotter with rank, so a veteran reads as one at a glance.
LEVEL_EYE = [rgb('ff3b2f'), rgb('ff3b2f'), rgb('ff6a1a'), rgb('ff2a8a'), rgb('d04dff')]

# Where each grunt's rank crest sits (behind the hull) and which way it fans.
CREST_ANCHOR = {'chaingun': (28, 14, -90, 13), 'rocket': (12, 30, -165, 11), 'shotgun': (28, 15, -90, 13),
                'melee': (32, 17, -90, 14), 'sniper': (12, 30, 180, 11), 'plasma': (32, 14, -90, 12),
                'kamikaze': (20, 18, -120, 13)}


def crest(cv, kind, level, colour):
    """Spikes behind the hull from level 3 up: two, three, then four."""
    n = level - 1 if level >= 3 else 0
    if n == 0:
        return
    cx, cy, base_angle, length = CREST_ANCHOR[kind]
    spikes = []
    for i in range(n):
        ang = np.radians(base_angle + (i - (n - 1) / 2.0) * 24)
        tip = (cx + length * np.cos(ang), cy + length * np.sin(ang))
        side = np.array([-np.sin(ang), np.cos(ang)]) * 4.5
        spikes.append(sd_poly(cv, [(cx + side[0], cy + side[1]), tip, (cx - side[0], cy - side[1])]))
    cv.shape(union(*spikes), colour * 0.85, outline=outline_of(colour), ow=0.9, bevel=2.5, gloss=0.5)


# Grunts carry guns out to the right edge of their design square; drawing
# them slightly smaller keeps the muzzles inside the clear margin.
GRUNT_ZOOM = 0.9


def grunt(rng, kind, level=1, size=64):
    cv = Canvas(size, size, zoom=GRUNT_ZOOM)
    base = GRUNT_COLOURS[kind]
    # Higher levels darken and saturate the hull.
    base = clamp01(base * (1.0 - 0.07 * (level - 1)) + (base - base.mean()) * 0.08 * (level - 1))
    trim = LEVEL_TRIM[min(level, 5) - 1]
    ol = outline_of(base)
    eye_col = LEVEL_EYE[min(level, 5) - 1]
    crest(cv, kind, level, trim)
    if kind == 'chaingun':
        barrel(cv, 30, 40, 62, 2.6, STEEL * 0.7)
        barrel(cv, 30, 45, 62, 2.6, STEEL * 0.7)
        barrel(cv, 30, 50, 62, 2.6, STEEL * 0.7)
        cv.shape(sd_box(cv, 46, 45, 3.5, 9, 1.5), GUNMETAL, outline=rgb('10141e'), bevel=2)
        cv.shape(sd_box(cv, 56, 45, 2.5, 8.5, 1.2), GUNMETAL, outline=rgb('10141e'), bevel=2)
        hull = sd_circle(cv, 28, 30, 21)
        cv.shape(hull, base, outline=ol, bevel=6, gloss=0.4)
        cv.shape(intersect(sd_box(cv, 28, 47, 22, 5, 0), hull + 2), trim * 0.8, outline=ol, ow=0.8)
        visor(cv, 31, 24, 12, 4.2, eye_col)
    elif kind == 'rocket':
        hull = sd_box(cv, 28, 36, 19, 20, 7)
        cv.shape(hull, base, outline=ol, bevel=6, gloss=0.4)
        tube = sd_box(cv, 38, 13, 22, 7, 6)
        cv.shape(tube, STEEL * 0.8, outline=rgb('10141e'), bevel=4, gloss=0.6)
        cv.shape(intersect(sd_box(cv, 30, 13, 3, 8, 0), tube + 1), trim, outline=rgb('10141e'), ow=0.7, bevel=2)
        cv.shape(sd_box(cv, 58, 13, 3, 8.5, 1.5), GUNMETAL, outline=rgb('10141e'), bevel=2)
        cv.fill(sd_circle(cv, 59.5, 13, 3.6), rgb('1a0c0c'))
        cv.glow(sd_circle(cv, 59.5, 13, 2.0), rgb('ff6a2a'), 2.0, 0.5)
        eye(cv, 30, 36, 7, eye_col)
    elif kind == 'shotgun':
        barrel(cv, 34, 40, 61, 2.8)
        barrel(cv, 34, 46, 61, 2.8)
        hull = sd_regular(cv, 28, 34, 23, 6, rot=np.pi / 6)
        cv.shape(hull, base, outline=ol, bevel=6, gloss=0.35)
        plate = intersect(sd_regular(cv, 28, 34, 15, 6, rot=np.pi / 6), hull)
        cv.shape(plate, base * 0.8, outline=ol, ow=0.8, bevel=4, gloss=0.3)
        visor(cv, 29, 30, 10, 3.6, eye_col)
    elif kind == 'melee':
        spikes = sd_star(cv, 32, 33, 29, 17, 8, rot=np.pi / 8)
        cv.shape(spikes, trim * 0.55 + STEEL * 0.45, outline=ol, bevel=4, gloss=0.5)
        hull = sd_circle(cv, 32, 33, 19)
        cv.shape(hull, base, outline=ol, bevel=6, gloss=0.4)
        # Angry brow and jaw.
        cv.fill(sd_poly(cv, [(19, 22), (45, 22), (40, 28), (24, 28)]), ol)
        eye(cv, 26, 30, 4.5, eye_col)
        eye(cv, 38, 30, 4.5, eye_col)
        for i in range(5):
            x = 23 + i * 4.5
            cv.shape(sd_poly(cv, [(x - 2, 39), (x + 2, 39), (x, 44)]), rgb('f2eee0'), ow=0.6, bevel=1)
    elif kind == 'sniper':
        barrel(cv, 30, 30, 63, 2.0)
        cv.shape(sd_box(cv, 44, 24, 7, 2.5, 1.5), DARK_STEEL, bevel=1.5)
        hull = sd_poly(cv, [(26, 4), (44, 30), (26, 60), (8, 30)])
        cv.shape(hull, base, outline=ol, bevel=5, gloss=0.4)
        cv.shape(intersect(sd_box(cv, 26, 46, 20, 3, 0), hull + 2), trim * 0.8, outline=ol, ow=0.7)
        eye(cv, 27, 27, 5.5, rgb('ff2a6a'))
        cv.glow(sd_circle(cv, 27, 27, 2), rgb('ff2a6a'), 6, 0.3)
    elif kind == 'plasma':
        legs = union(*[sd_segment(cv, 32 + dx, 40, 32 + dx * 1.6, 58 + (i % 2) * 2, 2.4)
                       for i, dx in enumerate((-14, -6, 6, 14))])
        cv.shape(legs, base * 0.7, outline=ol, bevel=2)
        dome = intersect(sd_circle(cv, 32, 34, 24), cv.y - 42)
        cv.shape(dome, base, outline=ol, bevel=7, gloss=0.55)
        core = sd_circle(cv, 32, 28, 8)
        cv.glow(core, rgb('7ff7ff'), 6, 0.8)
        cv.shape(core, rgb('9ffcff'), outline=rgb('103060'), ow=0.8, bevel=4, gloss=0.5,
                 top=rgb('ffffff'), bottom=rgb('2fd8ff'))
        chevrons(cv, 32, 38, level, trim, 2.2)
    elif kind == 'kamikaze':
        fuse = sd_segment(cv, 38, 14, 48, 5, 2.0)
        cv.shape(fuse, rgb('6b5a3a'), bevel=1)
        cv.glow(sd_circle(cv, 49, 5, 2), rgb('ffae3a'), 4, 0.9)
        cv.fill(sd_circle(cv, 49, 5, 2.2), rgb('fff3a0'))
        hull = sd_circle(cv, 30, 36, 23)
        cv.shape(hull, rgb('2c2c36'), outline=rgb('0a0a10'), bevel=7, gloss=0.5)
        cv.shape(sd_box(cv, 36, 16, 6, 4, 1.5), DARK_STEEL, bevel=2)
        band = intersect(sd_box(cv, 30, 36, 26, 4, 0), hull + 1.5)
        stripes = np.sin((cv.x + cv.y) * 0.9) > 0
        col = np.where(stripes[..., None], base, rgb('1a1a1a'))
        cv.over(col, cv.coverage(band))
        eye(cv, 22, 30, 4.2, eye_col)
        eye(cv, 36, 30, 4.2, eye_col)
        cv.fill(sd_poly(cv, [(16, 22), (27, 26), (27, 24), (17, 20)]), rgb('0a0a10'))
        cv.fill(sd_poly(cv, [(42, 22), (31, 26), (31, 24), (41, 20)]), rgb('0a0a10'))
    if kind not in ('plasma',):
        chevrons(cv, 26 if kind != 'melee' else 32, 56 if kind not in ('sniper',) else 52, level, trim, 2.2)
    return cv.image()


# -- other enemies ---------------------------------------------------------------

def spawner(rng, size=64):
    cv = Canvas(size, size)
    base = rgb('3f7a3a')
    ol = outline_of(base)
    hull = smooth_union(sd_ellipse(cv, 32, 36, 26, 22), sd_circle(cv, 32, 16, 10), 6)
    cv.shape(hull, base, outline=ol, bevel=7, gloss=0.35)
    for (x, y) in ((18, 36), (46, 36), (32, 48)):
        pod = sd_circle(cv, x, y, 6)
        cv.shape(pod, rgb('c6f25a'), outline=ol, ow=0.9, bevel=3, gloss=0.5)
        cv.glow(pod, rgb('b8ff40'), 3, 0.4)
    hatch = sd_circle(cv, 32, 30, 9)
    cv.shape(hatch, DARK_STEEL, outline=ol, bevel=3)
    for k in range(4):
        a = k * np.pi / 2 + np.pi / 4
        cv.fill(sd_segment(cv, 32, 30, 32 + 8 * np.cos(a), 30 + 8 * np.sin(a), 0.6), ol)
    eye(cv, 32, 15, 4.5, HOSTILE_EYE)
    return cv.image()


def egglayer(rng, size=64):
    cv = Canvas(size, size)
    base = rgb('c2477e')
    ol = outline_of(base)
    for dx in (-16, -8, 8, 16):
        cv.shape(sd_segment(cv, 32 + dx * 0.6, 44, 32 + dx * 1.5, 60, 2.2), base * 0.6, outline=ol, bevel=2)
    sac = sd_ellipse(cv, 36, 38, 22, 17)
    cv.shape(sac, rgb('f2a7c8'), outline=ol, bevel=8, gloss=0.5)
    veins = (np.abs(np.sin(cv.x * 0.5 + np.sin(cv.y * 0.4) * 2)) < 0.15)
    cv.over(rgb('a02a5a'), veins * cv.coverage(sac + 3) * 0.5)
    head = sd_circle(cv, 16, 24, 12)
    cv.shape(head, base, outline=ol, bevel=5, gloss=0.4)
    eye(cv, 12, 22, 3.5, HOSTILE_EYE)
    eye(cv, 20, 21, 3.0, HOSTILE_EYE)
    for i in range(3):
        cv.shape(sd_ellipse(cv, 30 + i * 9, 42, 3.2, 4.2), rgb('fff0c8'), outline=ol, ow=0.7, bevel=2)
    return cv.image()


def swarmer(rng, level=1, size=64):
    cv = Canvas(size, size)
    base = rgb('b6d82a') if level == 1 else rgb('ff8f1f')
    ol = outline_of(base)
    for sx in (-1, 1):
        wing = sd_ellipse(cv, 32 + sx * 13, 20, 12, 7)
        cv.over(rgb('d8f4ff'), cv.coverage(wing) * 0.55)
        cv.fill(subtract(wing, wing + 0.9), rgb('6f8fa8'))
    body = smooth_union(sd_ellipse(cv, 32, 36, 13, 16), sd_circle(cv, 32, 22, 9), 4)
    cv.shape(body, base, outline=ol, bevel=5, gloss=0.45)
    stripes = (np.sin(cv.y * 1.1) > 0.35) & (cv.y > 32)
    cv.over(ol, stripes * cv.coverage(body + 2) * 0.8)
    eye(cv, 28, 21, 3.2, HOSTILE_EYE, pupil=False)
    eye(cv, 36, 21, 3.2, HOSTILE_EYE, pupil=False)
    cv.shape(sd_poly(cv, [(30, 52), (34, 52), (32, 60)]), ol * 1.5, bevel=1)
    if level > 1:
        for sx in (-1, 1):
            cv.shape(sd_poly(cv, [(32 + sx * 8, 14), (32 + sx * 13, 4), (32 + sx * 5, 12)]), ol * 2, bevel=1)
    return cv.image()


def bacteria(rng, level=1, size=64):
    # The largest, spikiest level sets the scale for all of them.
    cv = Canvas(size, size, zoom=0.88)
    cols = [rgb('5fd35a'), rgb('b9d23a'), rgb('f0902a'), rgb('e8304a')]
    base = cols[level - 1]
    ol = outline_of(base)
    ang = np.arctan2(cv.y - 32, cv.x - 32)
    wob = 1.6 * np.sin(ang * (3 + level)) + 1.0 * np.sin(ang * 7 + 1.3)
    spikes = level * 1.3 * np.maximum(0, np.sin(ang * (6 + 2 * level))) ** 6
    r = 18 + level * 2.0
    d = np.sqrt((cv.x - 32) ** 2 + (cv.y - 32) ** 2) - r - wob - spikes
    # Cilia.
    cv.glow(d, base, 2.5, 0.35)
    cv.over(mix(base, np.ones(3, F), 0.2), cv.coverage(d) * 0.55)
    membrane = d + 2.5
    cv.shape(membrane, base, outline=ol, ow=1.0, bevel=6, gloss=0.45, alpha=0.92)
    nucleus = sd_ellipse(cv, 35, 35, 8 + level, 6 + level * 0.8)
    cv.shape(nucleus, base * 0.45 + rgb('301030') * 0.4, outline=ol, ow=0.8, bevel=4, gloss=0.3)
    for i in range(3 + level):
        a = rng.random() * 2 * np.pi
        rr = rng.random() * (r - 8) * 0.8 + 4
        vd = sd_circle(cv, 32 + rr * np.cos(a), 32 + rr * np.sin(a), 1.6 + rng.random() * 1.5)
        cv.shape(vd, mix(base, np.ones(3, F), 0.5), ow=0.5, bevel=1, gloss=0.6)
    eye(cv, 28, 26, 4.0, HOSTILE_EYE)
    cv.highlight(24, 18, 9, 5, 0.45, clip=membrane)
    return cv.image()


def egg(rng, level=1, cracked=False, size=64):
    cv = Canvas(size, size)
    base = rgb('e9dcc0') if level == 1 else rgb('9fd0c8')
    ol = outline_of(base * 0.6)
    shell = sd_ellipse(cv, 32, 35, 19, 25)
    cv.shape(shell, base, outline=ol, bevel=8, gloss=0.5)
    spots = rng.random((7, 3))
    for sx, sy, sr in spots:
        sd = intersect(sd_circle(cv, 18 + sx * 28, 16 + sy * 38, 2 + sr * 3), shell + 2)
        cv.over(base * 0.6 + rgb('402a40') * 0.3, cv.coverage(sd) * 0.8)
    if cracked:
        glowc = rgb('ff4d3a') if level == 1 else rgb('c04dff')
        pts = [(14, 30), (20, 26), (24, 33), (30, 27), (35, 34), (40, 28), (45, 33), (50, 29)]
        crack = union(*[sd_segment(cv, *pts[i], *pts[i + 1], 1.1) for i in range(len(pts) - 1)])
        crack = union(crack, sd_segment(cv, 30, 27, 28, 40, 0.9), sd_segment(cv, 40, 28, 43, 42, 0.8))
        crack = intersect(crack, shell + 1.5)
        cv.glow(crack, glowc, 3.5, 0.9)
        cv.fill(crack, mix(glowc, np.ones(3, F), 0.5))
    cv.highlight(24, 18, 7, 9, 0.55, clip=shell)
    return cv.image()


def engineer(rng, size=64):
    # The wrench reaches the right edge of the design square.
    cv = Canvas(size, size, zoom=0.92)
    base = rgb('e0a21e')
    ol = outline_of(base)
    # Wrench arm.
    cv.shape(sd_segment(cv, 40, 38, 56, 26, 2.6), STEEL, bevel=2, gloss=0.5)
    jaw = subtract(sd_circle(cv, 57, 24, 6), union(sd_box(cv, 60, 21, 4, 2.5, 0), sd_circle(cv, 57, 24, 2.2)))
    cv.shape(jaw, STEEL, bevel=2, gloss=0.5)
    hull = sd_box(cv, 28, 40, 17, 16, 8)
    cv.shape(hull, rgb('3c4a5e'), outline=outline_of(rgb('3c4a5e')), bevel=6, gloss=0.35)
    stripes = np.sin((cv.x - cv.y) * 0.8) > 0
    band = intersect(sd_box(cv, 28, 50, 17, 3.5, 0), hull + 1.5)
    cv.over(np.where(stripes[..., None], base, rgb('161616')), cv.coverage(band))
    helmet = intersect(sd_circle(cv, 28, 26, 16), cv.y - 28)
    cv.shape(helmet, base, outline=ol, bevel=5, gloss=0.55)
    cv.shape(sd_box(cv, 28, 28, 19, 2.2, 1.2), base * 0.8, outline=ol, ow=0.7, bevel=1)
    visor(cv, 28, 34, 9, 3, rgb('ff6a2a'))
    cv.fill(sd_circle(cv, 28, 11, 3), rgb('ff4020'))
    cv.glow(sd_circle(cv, 28, 11, 3), rgb('ff5030'), 3, 0.7)
    return cv.image()


def friendly(rng, size=64):
    cv = Canvas(size, size)
    base = rgb('e8eef6')
    ol = outline_of(rgb('4a6a9a'))
    cv.shape(sd_box(cv, 50, 40, 10, 3, 2), DARK_STEEL, bevel=2)
    cv.glow(sd_circle(cv, 60, 40, 2), ALLY_EYE, 4, 0.7)
    hull = smooth_union(sd_circle(cv, 30, 34, 20), sd_box(cv, 30, 48, 14, 8, 4), 4)
    cv.shape(hull, base, outline=ol, bevel=6, gloss=0.45, shadow=0.35)
    band = intersect(sd_box(cv, 30, 46, 22, 3.2, 0), hull + 1.5)
    cv.shape(band, rgb('2f7bff'), outline=ol, ow=0.7, bevel=2)
    visor(cv, 31, 29, 12, 4.5, ALLY_EYE)
    cv.shape(sd_segment(cv, 22, 14, 18, 5, 1.0), DARK_STEEL, bevel=1)
    cv.glow(sd_circle(cv, 18, 5, 2), rgb('5dff7a'), 3, 0.8)
    cv.fill(sd_circle(cv, 18, 5, 2.0), rgb('c8ffd0'))
    return cv.image()


def swarm_member(rng, size=64):
    cv = Canvas(size, size)
    base = rgb('3db8ff')
    ol = outline_of(base)
    cv.glow(sd_circle(cv, 32, 32, 16), base, 6, 0.45)
    for k in range(3):
        a = k * 2 * np.pi / 3 - np.pi / 2
        cv.shape(sd_segment(cv, 32, 32, 32 + 24 * np.cos(a), 32 + 24 * np.sin(a), 3), DARK_STEEL, bevel=2)
        cv.shape(sd_circle(cv, 32 + 24 * np.cos(a), 32 + 24 * np.sin(a), 5), base * 0.8, outline=ol, bevel=2)
    hull = sd_circle(cv, 32, 32, 14)
    cv.shape(hull, base, outline=ol, bevel=5, gloss=0.55)
    eye(cv, 32, 32, 6, rgb('e8ffff'), pupil=False)
    return cv.image()


def turret(rng, sighted=False, size=64):
    cv = Canvas(size, size)
    base = rgb('6b7385')
    ol = outline_of(base)
    cv.shape(sd_box(cv, 32, 57, 24, 5, 2), DARK_STEEL, outline=ol, bevel=3)
    cv.shape(sd_box(cv, 32, 50, 8, 6, 1), GUNMETAL, bevel=2)
    dome = intersect(sd_circle(cv, 32, 46, 20), cv.y - 46)
    cv.shape(dome, base, outline=ol, bevel=6, gloss=0.5)
    stripes = np.sin((cv.x + cv.y) * 0.7) > 0
    band = intersect(sd_box(cv, 32, 43, 20, 2.4, 0), dome + 1.5)
    cv.over(np.where(stripes[..., None], rgb('ffc21a'), rgb('161616')), cv.coverage(band))
    colour = HOSTILE_EYE if sighted else rgb('ffb02a')
    eye(cv, 32, 35, 6.5 if sighted else 5.5, colour)
    if sighted:
        cv.glow(sd_circle(cv, 32, 35, 6), HOSTILE_EYE, 10, 0.5)
    return cv.image()


def electrotower(rng, sighted=False, size=64):
    # Shrunk towards its foot, so it still stands on the ground and the orb's
    # aura has room under the top edge.
    cv = Canvas(size, size, zoom=0.84, focus=(32, 62))
    base = rgb('4c5a78')
    ol = outline_of(base)
    cv.shape(sd_poly(cv, [(14, 62), (50, 62), (40, 46), (24, 46)]), DARK_STEEL, outline=ol, bevel=3)
    cv.shape(sd_box(cv, 32, 32, 6, 16, 2), base, outline=ol, bevel=3, gloss=0.4)
    for y in (22, 30, 38):
        cv.shape(sd_box(cv, 32, y, 11, 2.6, 2.6), rgb('c98a3a'), outline=outline_of(rgb('c98a3a')), ow=0.8,
                 bevel=2, gloss=0.6)
    orb = sd_circle(cv, 32, 11, 8)
    colour = rgb('9fe8ff') if not sighted else rgb('ffffff')
    cv.glow(orb, rgb('4fc8ff'), 5 if not sighted else 9, 0.7 if not sighted else 1.0)
    cv.shape(orb, colour, outline=rgb('10305a'), ow=0.9, bevel=4, gloss=0.6, top=rgb('ffffff'),
             bottom=rgb('3ab8ff'))
    if sighted:
        rr = np.random.default_rng(7)
        # Arcs fan out sideways and down over the coils, never up past the edge.
        for a in np.radians([-175, -150, -30, -5, 95]):
            pts = [(32, 11)]
            for j in range(1, 4):
                rad = 5 + j * 4
                pts.append((32 + rad * np.cos(a) + rr.uniform(-2, 2), 11 + rad * np.sin(a) + rr.uniform(-2, 2)))
            bolt = union(*[sd_segment(cv, *pts[i], *pts[i + 1], 0.8) for i in range(3)])
            cv.glow(bolt, rgb('6fd8ff'), 2.5, 0.8)
            cv.fill(bolt, rgb('f0fcff'))
    return cv.image()


def harddrive(rng, cpu=False, size=64):
    cv = Canvas(size, size)
    if cpu:
        for i in range(6):
            for side in (-1, 1):
                x = 14 + i * 7.2
                cv.shape(sd_box(cv, x, 32 + side * 24, 1.6, 4, 0.5), rgb('d8c070'), bevel=1)
                cv.shape(sd_box(cv, 32 + side * 24, x, 4, 1.6, 0.5), rgb('d8c070'), bevel=1)
        chip = sd_box(cv, 32, 32, 21, 21, 3)
        cv.shape(chip, rgb('2c3340'), bevel=4, gloss=0.3)
        core = sd_box(cv, 32, 32, 11, 11, 2)
        cv.shape(core, rgb('aab4c4'), bevel=3, gloss=0.6)
        cv.glow(sd_circle(cv, 32, 32, 3), rgb('3cff9a'), 5, 0.6)
        cv.fill(sd_circle(cv, 32, 32, 2.5), rgb('b8ffd8'))
    else:
        case = sd_box(cv, 32, 32, 27, 20, 3)
        cv.shape(case, rgb('7c8596'), bevel=4, gloss=0.4)
        platter = sd_circle(cv, 26, 32, 14)
        cv.shape(platter, rgb('c9d2de'), bevel=5, gloss=0.7)
        cv.fill(sd_circle(cv, 26, 32, 3), rgb('4a5060'))
        cv.shape(sd_segment(cv, 50, 46, 30, 30, 1.8), DARK_STEEL, bevel=1)
        cv.shape(sd_circle(cv, 50, 46, 3.5), GUNMETAL, bevel=2)
        cv.glow(sd_circle(cv, 52, 17, 2), rgb('3cff6a'), 4, 0.8)
        cv.fill(sd_circle(cv, 52, 17, 2), rgb('c8ffd0'))
    return cv.image()


def searchlight(rng, size=64):
    cv = Canvas(size, size)
    base = rgb('5a6478')
    ol = outline_of(base)
    cv.shape(sd_box(cv, 32, 12, 16, 5, 2), DARK_STEEL, outline=ol, bevel=2)
    cv.shape(sd_box(cv, 32, 20, 4, 6, 1), GUNMETAL, bevel=2)
    housing = sd_poly(cv, [(16, 26), (48, 26), (54, 52), (10, 52)])
    cv.shape(housing, base, outline=ol, bevel=4, gloss=0.45)
    lens = sd_box(cv, 32, 52, 21, 4, 3)
    cv.glow(lens, rgb('fff3b0'), 6, 0.8)
    cv.shape(lens, rgb('fffbe0'), outline=ol, ow=0.8, bevel=2, gloss=0.3, top=rgb('ffffff'),
             bottom=rgb('ffd860'))
    eye(cv, 32, 38, 4, HOSTILE_EYE)
    return cv.image()


def ball_of_death(rng, size=64):
    cv = Canvas(size, size)
    spikes = sd_star(cv, 32, 32, 30, 19, 12)
    cv.shape(spikes, rgb('b8c0cc'), outline=rgb('1a1c24'), bevel=4, gloss=0.6)
    core = sd_circle(cv, 32, 32, 19)
    cv.shape(core, rgb('2a2e3a'), outline=rgb('0a0b10'), bevel=6, gloss=0.5)
    cv.glow(sd_circle(cv, 32, 32, 7), HOSTILE_EYE, 5, 0.6)
    eye(cv, 32, 32, 7, HOSTILE_EYE)
    return cv.image()


def proxy_grenade(rng, size=64):
    cv = Canvas(size, size)
    legs = union(sd_segment(cv, 14, 58, 24, 44, 2), sd_segment(cv, 50, 58, 40, 44, 2))
    cv.shape(legs, DARK_STEEL, bevel=2)
    body = intersect(sd_ellipse(cv, 32, 44, 22, 14), cv.y - 50)
    cv.shape(body, rgb('3e4a34'), outline=rgb('10140c'), bevel=5, gloss=0.5)
    band = intersect(sd_box(cv, 32, 46, 22, 2.5, 0), body + 1.2)
    stripes = np.sin((cv.x + cv.y) * 0.8) > 0
    cv.over(np.where(stripes[..., None], rgb('ffc21a'), rgb('161616')), cv.coverage(band))
    cv.glow(sd_circle(cv, 32, 31, 3), HOSTILE_EYE, 6, 0.9)
    eye(cv, 32, 32, 4, HOSTILE_EYE, pupil=False)
    return cv.image()


# -- bosses ---------------------------------------------------------------------

BLOCK_COLOURS = [rgb('e8383a'), rgb('3ad25a'), rgb('3a7aff')]


def block_boss(rng, state=0, size=128):
    cv = Canvas(size, size, ss=3)
    col = BLOCK_COLOURS[state]
    ol = outline_of(col)
    shell = sd_box(cv, 64, 66, 56, 54, 10)
    cv.shape(shell, rgb('5a6172'), outline=rgb('0c0e16'), ow=2.0, bevel=10, gloss=0.4)
    for gx in (-1, 1):
        for gy in (-1, 1):
            cv.shape(sd_circle(cv, 64 + gx * 46, 66 + gy * 44, 3.5), STEEL, bevel=2, gloss=0.6)
    face = sd_box(cv, 64, 64, 40, 36, 6)
    cv.shape(face, col, outline=ol, ow=1.5, bevel=8, gloss=0.5)
    glyph = [None, sd_circle(cv, 64, 88, 7),
             sd_regular(cv, 64, 89, 9, 3), sd_box(cv, 64, 88, 7, 7, 1)][state + 1]
    brow = sd_poly(cv, [(34, 36), (94, 36), (86, 50), (42, 50)])
    cv.fill(brow, ol)
    for ex in (48, 80):
        eye(cv, ex, 58, 8, rgb('fff2a0'))
    mouth = sd_box(cv, 64, 84, 22, 8, 3)
    cv.fill(mouth, rgb('14060a'))
    for i in range(6):
        x = 46 + i * 7.2
        cv.shape(sd_poly(cv, [(x - 3, 76), (x + 3, 76), (x, 83)]), rgb('f0ece0'), ow=0.7, bevel=1)
    cv.glow(glyph, col, 4, 0.3)
    cv.shape(sd_box(cv, 64, 116, 30, 6, 3), col * 0.9, outline=ol, ow=1.0, bevel=3, gloss=0.4)
    return cv.image()


def destroyer(rng, size=128):
    cv = Canvas(size, size, ss=3, zoom=0.95)
    base = rgb('8a2a30')
    ol = outline_of(base)
    # Gun pods first so the hull overlaps their roots.
    barrel(cv, 76, 48, 126, 5)
    barrel(cv, 76, 62, 122, 4)
    barrel(cv, 76, 92, 124, 6)
    cv.shape(sd_box(cv, 104, 92, 8, 10, 3), DARK_STEEL, bevel=3)
    treads = sd_box(cv, 60, 112, 50, 11, 11)
    cv.shape(treads, rgb('2a2c34'), outline=rgb('0a0b10'), bevel=4)
    for i in range(7):
        cv.shape(sd_circle(cv, 18 + i * 14, 112, 6), DARK_STEEL, bevel=3, gloss=0.5)
    hull = sd_poly(cv, [(14, 96), (20, 46), (44, 22), (88, 22), (104, 46), (106, 96)])
    cv.shape(hull, base, outline=ol, ow=2.0, bevel=10, gloss=0.4)
    plate = intersect(sd_poly(cv, [(30, 90), (34, 54), (50, 36), (82, 36), (92, 54), (94, 90)]), hull + 4)
    cv.shape(plate, base * 0.75, outline=ol, ow=1.2, bevel=6, gloss=0.3)
    stripes = np.sin((cv.x - cv.y) * 0.5) > 0
    band = intersect(sd_box(cv, 60, 96, 46, 4, 0), hull + 2)
    cv.over(np.where(stripes[..., None], rgb('ffc21a'), rgb('161616')), cv.coverage(band))
    visor(cv, 62, 52, 22, 6, HOSTILE_EYE)
    for x in (42, 62, 82):
        cv.shape(sd_circle(cv, x, 76, 4), STEEL, bevel=2, gloss=0.6)
    return cv.image()


# -- projectiles, gibs, cash ------------------------------------------------------

def rocket_star(rng, size=32):
    cv = Canvas(size, size)
    c = size / 2
    cv.glow(sd_circle(cv, c, c, 4), rgb('ff7a1a'), 5, 1.0)
    star = sd_star(cv, c, c, 14, 5, 4, rot=np.pi / 4)
    cv.shape(star, rgb('ffd040'), outline=rgb('a03a00'), ow=0.8, bevel=3, gloss=0.6, top=rgb('fff8c0'))
    star2 = sd_star(cv, c, c, 10, 3, 4)
    cv.shape(star2, rgb('ffffff'), outline=rgb('ffa030'), ow=0.6, bevel=2, gloss=0.4)
    cv.fill(sd_circle(cv, c, c, 3), rgb('ffffff'))
    return cv.image()


def grenade(rng, size=32):
    cv = Canvas(size, size)
    base = rgb('4e6a32')
    ol = outline_of(base)
    cv.shape(sd_box(cv, 16, 6, 4, 3, 1), STEEL, bevel=1.5, gloss=0.6)
    body = sd_circle(cv, 16, 18, 11)
    cv.shape(body, base, outline=ol, bevel=4, gloss=0.5)
    band = intersect(sd_box(cv, 16, 18, 12, 2, 0), body + 1)
    cv.shape(band, rgb('ffc21a'), outline=ol, ow=0.5, bevel=1)
    cv.glow(sd_circle(cv, 21, 8, 1.5), HOSTILE_EYE, 3, 0.9)
    cv.fill(sd_circle(cv, 21, 8, 1.5), rgb('ffd0c0'))
    return cv.image()


def grapple_star(rng, size=32):
    cv = Canvas(size, size)
    c = size / 2
    claws = union(*[sd_segment(cv, c, c, c + 12 * np.cos(a), c + 12 * np.sin(a), 2.2)
                    for a in np.arange(4) * np.pi / 2 + np.pi / 4])
    tips = union(*[sd_poly(cv, [(c + 12 * np.cos(a) + 4 * np.cos(a + 1.9), c + 12 * np.sin(a) + 4 * np.sin(a + 1.9)),
                                (c + 15 * np.cos(a), c + 15 * np.sin(a)),
                                (c + 9 * np.cos(a), c + 9 * np.sin(a))])
                   for a in np.arange(4) * np.pi / 2 + np.pi / 4])
    cv.shape(union(claws, tips), rgb('c9d4e2'), outline=rgb('1a2030'), ow=0.9, bevel=2, gloss=0.7)
    hub = sd_circle(cv, c, c, 5)
    cv.shape(hub, rgb('2fd8ff'), outline=rgb('0a2838'), ow=0.8, bevel=2, gloss=0.6)
    cv.glow(hub, rgb('2fd8ff'), 3, 0.5)
    return cv.image()


def gib(rng, size=32):
    """A wet, lumpy chunk with a bit of bone."""
    cv = Canvas(size, size)
    ang = np.arctan2(cv.y - 16, cv.x - 16)
    lumps = sum(rng.uniform(0.6, 1.4) * np.sin(ang * k + rng.uniform(0, 6.3)) for k in (2, 3, 5))
    chunk = np.sqrt((cv.x - 16) ** 2 + (cv.y - 16) ** 2) - 10.5 - lumps * 0.9
    cv.shape(chunk, rgb('a8182a'), outline=rgb('2e0408'), ow=1.0, bevel=4, gloss=0.7, shadow=0.5,
             top=rgb('e04050'))
    for _ in range(4):
        x, y = 16 + rng.uniform(-6, 6), 16 + rng.uniform(-5, 6)
        cv.fill(intersect(sd_circle(cv, x, y, rng.uniform(1.2, 2.2)), chunk + 1.5), rgb('5a0812'), 0.7)
    bone = union(sd_segment(cv, 11, 20, 21, 11, 1.6), sd_circle(cv, 10, 21, 2.2), sd_circle(cv, 12, 22.5, 1.8),
                 sd_circle(cv, 22, 10, 2.2), sd_circle(cv, 20.5, 8.5, 1.8))
    cv.shape(bone, rgb('f2ead6'), outline=rgb('5a4a3a'), ow=0.6, bevel=1.5, gloss=0.5)
    cv.highlight(12, 11, 4, 2.5, 0.7, clip=chunk)
    return cv.image()


def cash(rng, size=32):
    cv = Canvas(size, size)
    c = size / 2
    coin = sd_circle(cv, c, c, 12.5)
    cv.glow(coin, rgb('ffd23a'), 1.2, 0.35)
    cv.shape(coin, rgb('ffc21a'), outline=rgb('6a4200'), ow=1.0, bevel=4, gloss=0.6, top=rgb('fff0a0'))
    rim = subtract(sd_circle(cv, c, c, 9.5), sd_circle(cv, c, c, 8.5))
    cv.fill(rim, rgb('c08a00'))
    # A stylised "B" for the game's currency.
    glyph = union(sd_box(cv, c - 3, c, 1.3, 6, 0),
                  subtract(sd_box(cv, c, c - 3, 4, 3, 2.5), sd_box(cv, c, c - 3, 1.6, 1.1, 1)),
                  subtract(sd_box(cv, c + 0.3, c + 3, 4.3, 3, 2.5), sd_box(cv, c + 0.3, c + 3, 1.9, 1.1, 1)))
    cv.fill(glyph, rgb('8a5a00'))
    cv.highlight(c - 5, c - 6, 4, 3, 0.7, clip=coin)
    return cv.image()
