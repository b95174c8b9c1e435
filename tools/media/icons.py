"""Weapon icons and held-weapon views, pickups, ammunition and HUD pieces."""
import numpy as np

from imagelib import (Canvas, F, rgb, mix, clamp01, sd_circle, sd_ellipse, sd_box, sd_segment, sd_poly,
                      sd_star, sd_regular, union, smooth_union, subtract, intersect, glow_image, border_fade,
                      edge_distance, to_image)
from sprites import outline_of, STEEL, DARK_STEEL, GUNMETAL, eye

WEAPON_ACCENT = {
    'grapple': rgb('2fd8ff'),
    'pistol': rgb('ffd23f'),
    'plasmagun': rgb('3a8cff'),
    'shotgun': rgb('ff9a2a'),
    'chaingun': rgb('ff5a2a'),
    'grenadelauncher': rgb('6fd83a'),
    'rocketlauncher': rgb('ff3a3a'),
    'railgun': rgb('3affb8'),
    'lightninggun': rgb('b8e8ff'),
    'swarm': rgb('b070ff'),
    'magneticgun': rgb('ff4fd8'),
}


# Guns are drawn on a 64 x 32 design canvas and shrunk into the image so
# the icon's halo and the view's accents stay clear of the edges.
GUN_ZOOM = 0.84


def gun_parts(cv, name):
    """Side view of each gun, muzzle to the right, on a 64 x 32 canvas.
    Returns (metal parts, accent parts) as distance fields."""
    B, S, A = sd_box, sd_segment, []
    if name == 'grapple':
        metal = union(B(cv, 22, 16, 12, 5, 2), S(cv, 16, 19, 13, 26, 3), B(cv, 40, 16, 8, 2.5, 1))
        claw = union(S(cv, 48, 16, 58, 8, 1.8), S(cv, 48, 16, 58, 24, 1.8), S(cv, 48, 16, 60, 16, 1.8))
        A = [claw, sd_circle(cv, 24, 16, 3.2)]
    elif name == 'pistol':
        metal = union(B(cv, 32, 12, 16, 4.5, 1.5), S(cv, 22, 16, 18, 27, 3.5), B(cv, 49, 12, 2, 2, 0.5))
        A = [B(cv, 32, 9, 12, 1.2, 0.6)]
    elif name == 'plasmagun':
        metal = union(B(cv, 26, 16, 16, 7, 4), S(cv, 20, 20, 17, 27, 3.2), B(cv, 48, 16, 8, 4, 3))
        A = [sd_circle(cv, 57, 16, 4.2), B(cv, 24, 16, 2, 4.5, 1), B(cv, 31, 16, 2, 4.5, 1)]
    elif name == 'shotgun':
        metal = union(B(cv, 36, 12, 25, 2.2, 1), B(cv, 36, 17, 25, 2.2, 1), B(cv, 30, 22, 8, 2.5, 1.2),
                      sd_poly(cv, [(2, 14), (12, 12), (14, 22), (4, 26)]))
        A = [B(cv, 30, 22, 6, 1.5, 0.8)]
    elif name == 'chaingun':
        metal = union(B(cv, 44, 11, 18, 1.8, 0.8), B(cv, 44, 16, 18, 1.8, 0.8), B(cv, 44, 21, 18, 1.8, 0.8),
                      B(cv, 20, 16, 12, 8, 3), S(cv, 16, 22, 13, 28, 3), B(cv, 30, 16, 3, 7, 1))
        A = [sd_circle(cv, 18, 16, 4.5)]
    elif name == 'grenadelauncher':
        metal = union(B(cv, 40, 14, 18, 5.5, 2), sd_circle(cv, 24, 17, 9), S(cv, 14, 20, 11, 27, 3),
                      B(cv, 58, 14, 2, 6.5, 1))
        A = [subtract(sd_circle(cv, 24, 17, 5), sd_circle(cv, 24, 17, 2.5))]
    elif name == 'rocketlauncher':
        metal = union(B(cv, 32, 14, 28, 6.5, 3), S(cv, 26, 20, 24.5, 27, 3), S(cv, 40, 20, 40, 27, 2.2),
                      B(cv, 30, 6, 5, 2, 1))
        A = [B(cv, 59, 14, 2.5, 7.5, 1), B(cv, 10, 14, 3, 5, 1)]
    elif name == 'railgun':
        metal = union(B(cv, 36, 12, 26, 2, 1), B(cv, 36, 20, 26, 2, 1), B(cv, 14, 16, 10, 6, 2),
                      S(cv, 12, 20, 9, 27, 3))
        A = [B(cv, 28 + k * 8, 16, 1.8, 5.5, 0.8) for k in range(4)]
    elif name == 'lightninggun':
        metal = union(B(cv, 24, 16, 14, 6, 3), S(cv, 18, 20, 15, 27, 3), S(cv, 38, 16, 56, 9, 1.4),
                      S(cv, 38, 16, 56, 23, 1.4))
        A = [B(cv, 22 + k * 6, 16, 1.6, 7.5, 1.2) for k in range(3)] + [sd_circle(cv, 58, 16, 3)]
    elif name == 'swarm':
        hive = sd_regular(cv, 46, 15, 13, 6, rot=np.pi / 6)
        metal = union(B(cv, 22, 15, 12, 4.5, 2), S(cv, 18, 18, 15, 26, 3), hive, B(cv, 8, 15, 4, 6, 2))
        A = [sd_regular(cv, 46 + dx, 15 + dy, 3.8, 6, rot=np.pi / 6)
             for dx, dy in ((0, 0), (6.6, 0), (-6.6, 0), (3.3, 5.7), (-3.3, 5.7), (3.3, -5.7), (-3.3, -5.7))]
    else:  # magneticgun
        metal = union(B(cv, 22, 16, 14, 6, 3), S(cv, 16, 20, 13, 27, 3))
        horse = subtract(sd_circle(cv, 46, 16, 11), union(sd_circle(cv, 46, 16, 6), B(cv, 56, 16, 8, 6, 0)))
        A = [horse]
    return metal, A


def weapon_icon(rng, name):
    """HUD icon: a bright stencil of the gun in its accent colour."""
    cv = Canvas(64, 32, zoom=GUN_ZOOM)
    accent = WEAPON_ACCENT[name]
    metal, acc = gun_parts(cv, name)
    whole = union(metal, *acc)
    cv.fill(whole - 1.6, rgb('05070d'), 0.85)
    cv.shape(metal, mix(accent, np.ones(3, F), 0.75), outline=outline_of(accent), ow=0.9, bevel=2.5,
             gloss=0.4, shadow=0.3)
    for d in acc:
        cv.shape(d, accent, outline=outline_of(accent), ow=0.7, bevel=2, gloss=0.5, shadow=0.2)
    return cv.image()


def weapon_view(rng, name):
    """The gun as held in the world: shaded metal with glowing accents."""
    cv = Canvas(64, 32, zoom=GUN_ZOOM)
    accent = WEAPON_ACCENT[name]
    metal, acc = gun_parts(cv, name)
    cv.shape(metal, STEEL * 0.85, outline=rgb('0d1018'), ow=1.0, bevel=3, gloss=0.5, shadow=0.55)
    for d in acc:
        cv.glow(d, accent, 2.0, 0.5)
        cv.shape(d, accent, outline=outline_of(accent), ow=0.7, bevel=2, gloss=0.6, shadow=0.2,
                 top=mix(accent, np.ones(3, F), 0.5))
    return cv.image()


# -- pickups and HUD icons ------------------------------------------------------

def _cross(cv, cx, cy, arm, thick):
    return union(sd_box(cv, cx, cy, arm, thick, thick * 0.3), sd_box(cv, cx, cy, thick, arm, thick * 0.3))


def _shield(cv, cx, cy, w, h):
    return sd_poly(cv, [(cx - w, cy - h), (cx + w, cy - h), (cx + w, cy), (cx, cy + h), (cx - w, cy)]) - 1.5


def item_icon(rng, kind, size=32):
    cv = Canvas(size, size)
    # Leave a margin for the additive glow drawn over the same rectangle.
    s = size / 32.0 * 0.84
    c = size / 2.0
    if kind in ('health', 'quickhealth'):
        small = kind == 'quickhealth'
        k = 0.75 if small else 1.0
        box = sd_box(cv, c, c, 13 * s * k, 13 * s * k, 4 * s * k)
        cv.shape(box, rgb('f4f6fa'), outline=rgb('3a1015'), ow=1.0 * s, bevel=4 * s, gloss=0.4, shadow=0.3)
        cross = _cross(cv, c, c, 9 * s * k, 3 * s * k)
        cv.glow(cross, rgb('ff3040'), 2 * s, 0.3)
        cv.shape(cross, rgb('ff3040'), outline=rgb('5a0810'), ow=0.7 * s, bevel=2 * s, gloss=0.5)
    elif kind == 'megahealth':
        orb = sd_circle(cv, c, c, 14 * s)
        cv.glow(orb, rgb('ff3a6a'), 3 * s, 0.5)
        cv.shape(orb, rgb('ff4a6a'), outline=rgb('4a0818'), ow=1.0 * s, bevel=6 * s, gloss=0.6,
                 top=rgb('ffc0d0'))
        cross = _cross(cv, c, c + 1 * s, 8 * s, 2.6 * s)
        cv.shape(cross, rgb('ffffff'), outline=rgb('7a1830'), ow=0.7 * s, bevel=2 * s)
    elif kind in ('armour', 'quickarmour'):
        k = 0.78 if kind == 'quickarmour' else 1.0
        sh = _shield(cv, c, c - 2 * s * k, 12 * s * k, 14 * s * k)
        col = rgb('4fa8ff') if kind == 'armour' else rgb('7ae0ff')
        cv.shape(sh, col, outline=rgb('0a1a3a'), ow=1.0 * s, bevel=4 * s, gloss=0.55)
        inner = _shield(cv, c, c - 2 * s * k, 6 * s * k, 8 * s * k)
        cv.shape(inner, mix(col, np.ones(3, F), 0.55), outline=rgb('0a1a3a'), ow=0.6 * s, bevel=2 * s)
    elif kind in ('quad', 'megaquad'):
        col = rgb('47e05a') if kind == 'quad' else rgb('ff4ad8')
        gem = sd_regular(cv, c, c, 14 * s, 4)
        cv.glow(gem, col, 3 * s, 0.6)
        cv.shape(gem, col, outline=outline_of(col), ow=1.0 * s, bevel=5 * s, gloss=0.6,
                 top=mix(col, np.ones(3, F), 0.6))
        arrows = union(*[sd_poly(cv, [(c + dx * 2 * s, c + dy * 2 * s),
                                      (c + dx * 8 * s - dy * 3 * s, c + dy * 8 * s - dx * 3 * s),
                                      (c + dx * 8 * s + dy * 3 * s, c + dy * 8 * s + dx * 3 * s)])
                         for dx, dy in ((1, 0), (-1, 0), (0, 1), (0, -1))])
        cv.fill(arrows, rgb('ffffff'), 0.9)
        if kind == 'megaquad':
            cv.fill(subtract(sd_circle(cv, c, c, 13.5 * s), sd_circle(cv, c, c, 12.5 * s)), rgb('ffffff'), 0.6)
    elif kind == 'invincibility':
        star = sd_star(cv, c, c + 1 * s, 15 * s, 6.5 * s, 5)
        cv.glow(star, rgb('ffd23a'), 3 * s, 0.6)
        cv.shape(star, rgb('ffd23a'), outline=rgb('5a3a00'), ow=1.0 * s, bevel=4 * s, gloss=0.7,
                 top=rgb('fff7c0'))
    elif kind == 'screenwiper':
        ring = subtract(sd_circle(cv, c, c, 14 * s), sd_circle(cv, c, c, 10 * s))
        cv.glow(ring, rgb('ffffff'), 3 * s, 0.5)
        cv.shape(ring, rgb('d8f0ff'), outline=rgb('1a2a4a'), ow=0.8 * s, bevel=2 * s, gloss=0.5)
        bomb = sd_circle(cv, c, c + 1 * s, 7 * s)
        cv.shape(bomb, rgb('2a2e3a'), outline=rgb('05060a'), ow=0.8 * s, bevel=3 * s, gloss=0.6)
        cv.glow(sd_circle(cv, c + 4 * s, c - 6 * s, 1.2 * s), rgb('ffae3a'), 2 * s, 0.9)
    elif kind == 'swarmtimer':
        for k, (dx, dy) in enumerate(((0, -6), (-6, 4), (6, 4))):
            hexd = sd_regular(cv, c + dx * s, c + dy * s, 6.5 * s, 6)
            cv.shape(hexd, rgb('b070ff'), outline=rgb('1a0a3a'), ow=0.8 * s, bevel=2.5 * s, gloss=0.5)
            cv.fill(sd_circle(cv, c + dx * s, c + dy * s, 2 * s), rgb('f0e0ff'))
    elif kind == 'racetimer':
        cv.shape(sd_box(cv, c, c - 13 * s, 3 * s, 2 * s, 1 * s), STEEL, bevel=1 * s)
        face = sd_circle(cv, c, c + 2 * s, 12.5 * s)
        cv.shape(face, rgb('e8ecf2'), outline=rgb('1a1e2a'), ow=1.2 * s, bevel=3 * s, gloss=0.4)
        cv.fill(subtract(sd_circle(cv, c, c + 2 * s, 10.5 * s), sd_circle(cv, c, c + 2 * s, 9.6 * s)),
                rgb('ff3a3a'))
        cv.fill(sd_segment(cv, c, c + 2 * s, c, c - 6 * s, 1.1 * s), rgb('1a1e2a'))
        cv.fill(sd_segment(cv, c, c + 2 * s, c + 5 * s, c + 4 * s, 1.1 * s), rgb('ff3a3a'))
    return cv.image()


AMMO_STYLE = {
    'pistolammo': 'bullets', 'chaingunammo': 'bullets', 'shotgunammo': 'shells',
    'plasmagunammo': 'cells', 'lightninggunammo': 'cells', 'grenadelauncherammo': 'grenades',
    'rocketlauncherammo': 'rockets', 'railgunammo': 'slugs', 'grappleammo': 'cells',
    'swarmammo': 'cells', 'magneticammo': 'cells',
}


def ammo_box(rng, item):
    weapon = item[:-4] if item != 'magneticammo' else 'magneticgun'
    accent = WEAPON_ACCENT.get(weapon, rgb('ffffff'))
    style = AMMO_STYLE[item]
    cv = Canvas(32, 32, zoom=0.9)
    crate = sd_box(cv, 16, 21, 14, 9, 2)
    cv.shape(crate, rgb('4a5466'), outline=rgb('0c0f18'), ow=1.0, bevel=3, gloss=0.35)
    cv.shape(intersect(sd_box(cv, 16, 21, 15, 2.2, 0), crate + 1), accent, outline=outline_of(accent), ow=0.6,
             bevel=1.5, gloss=0.5)
    if style == 'bullets':
        for k in range(4):
            x = 8 + k * 5.3
            cv.shape(union(sd_box(cv, x, 10, 2, 5, 0.5), sd_circle(cv, x, 5.5, 2)), rgb('e8b84a'),
                     outline=rgb('4a3000'), ow=0.6, bevel=1.2, gloss=0.6)
    elif style == 'shells':
        for k in range(3):
            x = 9 + k * 7
            cv.shape(sd_box(cv, x, 8, 2.8, 6, 1), rgb('d83a2a'), outline=rgb('3a0800'), ow=0.6, bevel=1.2)
            cv.shape(sd_box(cv, x, 13, 2.9, 1.5, 0.4), rgb('d8b048'), outline=rgb('3a2800'), ow=0.5, bevel=1)
    elif style == 'cells':
        for k in range(2):
            x = 11 + k * 10
            cell = sd_box(cv, x, 9, 3.6, 6.5, 1.5)
            cv.glow(cell, accent, 2, 0.5)
            cv.shape(cell, accent, outline=outline_of(accent), ow=0.6, bevel=2, gloss=0.6,
                     top=mix(accent, np.ones(3, F), 0.6))
    elif style == 'grenades':
        for k in range(2):
            x = 11 + k * 10
            cv.shape(sd_circle(cv, x, 9, 4.5), rgb('4e6a32'), outline=rgb('10180a'), ow=0.6, bevel=2, gloss=0.5)
    elif style == 'rockets':
        for k in range(2):
            x = 11 + k * 10
            body = union(sd_box(cv, x, 10, 2.6, 6, 1), sd_poly(cv, [(x - 2.6, 4.5), (x + 2.6, 4.5), (x, 0.8)]))
            cv.shape(body, rgb('e8ecf2'), outline=rgb('1a1e2a'), ow=0.6, bevel=1.5, gloss=0.5)
            cv.fill(sd_box(cv, x, 8, 2.6, 1.1, 0), rgb('ff3a3a'))
    elif style == 'slugs':
        for k in range(3):
            x = 9 + k * 7
            slug = sd_box(cv, x, 9, 1.8, 6, 1.8)
            cv.glow(slug, accent, 2, 0.5)
            cv.shape(slug, accent, outline=outline_of(accent), ow=0.5, bevel=1.2, gloss=0.6)
    return cv.image()


def weapon_pickup(rng, name):
    """A weapon lying in the world: the held view on a glowing pad."""
    return weapon_view(rng, name)


# Sides of each bar piece that meet no neighbour and so stay clear.
BAR_OUTER_SIDES = {'left': 'tbl', 'centre': 'tb', 'right': 'tbr'}


def bar_piece(rng, part, w, h, glow=False):
    """Translucent HUD panel pieces with a bright rim, drawn clamped. The
    pieces join edge to edge; their outer sides keep a margin for the glow
    twin, which lights the rim only, so the panel stays dark under it."""
    cv = Canvas(w, h)
    top_col = rgb('1a2a44')
    bot_col = rgb('0a1020')
    rim = rgb('5ab4ff')
    if part == 'left':
        d = sd_box(cv, w + 8, h / 2, w + 4, h / 2 - 4, 6)
    elif part == 'right':
        d = sd_box(cv, -8, h / 2, w + 4, h / 2 - 4, 6)
    else:
        d = sd_box(cv, w / 2, h / 2, w / 2 + 8, h / 2 - 4, 0)
    if glow:
        band = np.abs(d + 0.7)
        cv.add(rim, clamp01(np.exp(-band / 1.6) * 0.9))
        cv.add(mix(rim, np.ones(3, F), 0.6), clamp01(np.exp(-band / 0.6) * 0.6))
        col, a = cv.premultiplied()
        keep = border_fade(edge_distance(h, w, BAR_OUTER_SIDES[part]), 2.0)
        return to_image(col * keep[..., None], a * keep)
    t = clamp01(cv.y / h)
    col = mix(top_col, bot_col, t[..., None])
    cv.over(col, cv.coverage(d) * 0.78)
    edge = subtract(d + 0.0, d + 1.4)
    cv.over(rim, cv.coverage(edge) * 0.95)
    inner = subtract(d + 2.4, d + 3.0)
    cv.over(rim * 0.5, cv.coverage(inner) * 0.5)
    sheen = clamp01(1 - cv.y / (h * 0.45)) * 0.12
    cv.add(np.ones(3, F), sheen * cv.coverage(d + 3))
    return cv.image()


def weapon_selected(rng):
    cv = Canvas(64, 32)
    # Inset, and without a halo of its own, so that its glow twin's halo
    # has room to fade out inside the image.
    outer = sd_box(cv, 32, 16, 25, 10, 4.5)
    inner = sd_box(cv, 32, 16, 21.5, 6.5, 3)
    ring = subtract(outer, inner)
    cv.shape(ring, rgb('ffcc4a'), outline=rgb('5a3000'), ow=0.8, bevel=2, gloss=0.6)
    cv.over(rgb('ffb42a'), cv.coverage(inner) * 0.12)
    return cv.image()
