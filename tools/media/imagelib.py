"""Supersampled signed-distance drawing with premultiplied compositing.

Every sprite is drawn on a canvas several times larger than the output and
reduced with a premultiplied box filter, so edges are smooth and transparent
pixels never drag dark colour into the blend. Shapes are signed distance
fields (negative inside) measured in output pixels.
"""
import numpy as np
from PIL import Image, ImageFilter

F = np.float32

# Sprites keep this many output pixels fully transparent along every edge.
BORDER = 1.0


def rgb(hexstr):
    h = hexstr.lstrip('#')
    return np.array([int(h[i:i + 2], 16) / 255.0 for i in (0, 2, 4)], F)


def mix(a, b, t):
    return a * (1 - t) + b * t


def clamp01(v):
    return np.clip(v, 0.0, 1.0)


def smoothstep(e0, e1, v):
    t = clamp01((v - e0) / (e1 - e0))
    return t * t * (3 - 2 * t)


def border_fade(edge, width=3.0):
    """0 within BORDER pixels of an image edge, rising smoothly to 1 over
    width more; edge is the distance from the nearest edge in pixels."""
    return smoothstep(BORDER, BORDER + width, edge)


def edge_distance(h, w, sides='tblr'):
    """Distance of each pixel centre from the nearest of the named image
    edges (t, b, l, r), in pixels."""
    ys, xs = np.mgrid[0:h, 0:w].astype(F) + 0.5
    far = np.full((h, w), np.inf, F)
    for side, dist in (('t', ys), ('b', h - ys), ('l', xs), ('r', w - xs)):
        if side in sides:
            far = np.minimum(far, dist)
    return far


class Canvas:
    """RGBA canvas in premultiplied float, coordinates in drawing units
    (x right, y down, origin at the top-left corner of the image)."""

    def __init__(self, w, h, ss=4, scale=1, zoom=1.0, focus=None):
        """w x h drawing units, output at scale pixels per unit. A zoom below
        1 shrinks the drawing about focus (a point in drawing units, by
        default the centre), widening the clear margin without moving any
        coordinate inside the generator."""
        self.w, self.h = w * scale, h * scale
        self.out_ss = ss
        k = scale * zoom
        self.ss = ss * k
        H, W = h * scale * ss, w * scale * ss
        ys, xs = np.mgrid[0:H, 0:W].astype(F)
        px, py = (xs + 0.5) / ss, (ys + 0.5) / ss
        fx, fy = (w / 2.0, h / 2.0) if focus is None else focus
        self.x = (px - fx * scale) / k + fx
        self.y = (py - fy * scale) / k + fy
        # Distance of each sample from the nearest image edge, in output pixels.
        self.edge = np.minimum(np.minimum(px, self.w - px), np.minimum(py, self.h - py))
        self.px = 1.0 / self.ss
        self.units_h = h
        self.rgb = np.zeros((H, W, 3), F)
        self.a = np.zeros((H, W), F)

    # -- coverage and compositing -------------------------------------
    def coverage(self, d):
        return clamp01(0.5 - d * self.ss)

    @staticmethod
    def _bbox(mask, pad=0):
        """Slices bounding the true cells of mask (grown by pad), or None."""
        rows = np.flatnonzero(mask.any(axis=1))
        if rows.size == 0:
            return None
        cols = np.flatnonzero(mask.any(axis=0))
        h, w = mask.shape
        return (slice(max(rows[0] - pad, 0), min(rows[-1] + 1 + pad, h)),
                slice(max(cols[0] - pad, 0), min(cols[-1] + 1 + pad, w)))

    @staticmethod
    def _cut(v, sl):
        v = np.asarray(v, F)
        return v[sl] if v.ndim >= 2 else v

    def over(self, colour, alpha):
        """Composite straight colour (3-vector or HxWx3) with alpha over."""
        alpha = np.broadcast_to(np.asarray(alpha, F), self.a.shape)
        sl = self._bbox(alpha > 0)
        if sl is None:
            return
        a = alpha[sl]
        c = self._cut(colour, sl)
        self.rgb[sl] = c * a[..., None] + self.rgb[sl] * (1 - a[..., None])
        self.a[sl] = a + self.a[sl] * (1 - a)

    def add(self, colour, alpha):
        """Additive light: raises colour and opacity without darkening."""
        alpha = np.broadcast_to(np.asarray(alpha, F), self.a.shape)
        sl = self._bbox(alpha > 0)
        if sl is None:
            return
        a = alpha[sl]
        c = self._cut(colour, sl)
        self.a[sl] = clamp01(self.a[sl] + a)
        self.rgb[sl] = np.minimum(self.rgb[sl] + c * a[..., None], self.a[sl][..., None])

    def fill(self, d, colour, alpha=1.0):
        self.over(colour, self.coverage(d) * alpha)

    def shape(self, d, base, outline=None, ow=1.2, bevel=3.0, light=(-0.55, -0.83),
              gloss=0.35, shadow=0.45, alpha=1.0, top=None, bottom=None):
        """Outlined, bevel-shaded fill of the region d < 0.

        Light comes from the upper left: the rim facing it brightens, the far
        rim darkens, and a vertical gradient adds volume."""
        base = np.asarray(base, F)
        if outline is None:
            outline = base * 0.22
        sl = self._bbox(d < self.px, pad=2)
        if sl is None:
            return
        d = d[sl]
        ys = self.y[sl]
        gy, gx = np.gradient(d, self.px)
        n = np.sqrt(gx * gx + gy * gy) + 1e-6
        nx, ny = gx / n, gy / n
        rim = clamp01(1.0 - (-d) / bevel)
        facing = -(nx * light[0] + ny * light[1])
        lit = 1.0 + rim * facing * 0.55
        inside = d < 0
        if inside.any():
            y0 = ys[inside].min()
            y1 = ys[inside].max()
        else:
            y0, y1 = 0.0, float(self.units_h)
        t = clamp01((ys - y0) / max(y1 - y0, 1e-3))[..., None]
        topc = base * 1.18 if top is None else np.asarray(top, F)
        botc = base * (1 - shadow) if bottom is None else np.asarray(bottom, F)
        col = (topc * (1 - t) + botc * t) * lit[..., None]
        col = col + gloss * clamp01(rim * facing)[..., None] * (1 - t)
        col = np.where((d > -ow)[..., None], np.asarray(outline, F), col)
        a = self.coverage(d) * alpha
        self.rgb[sl] = clamp01(col) * a[..., None] + self.rgb[sl] * (1 - a[..., None])
        self.a[sl] = a + self.a[sl] * (1 - a)

    def highlight(self, cx, cy, rx, ry, strength=0.5, colour=(1, 1, 1), clip=None):
        """Soft specular spot, optionally clipped to a shape."""
        r = np.sqrt(((self.x - cx) / rx) ** 2 + ((self.y - cy) / ry) ** 2)
        a = clamp01(1 - r) ** 1.5 * strength
        if clip is not None:
            a = a * self.coverage(clip)
        self.add(np.asarray(colour, F), a)

    def glow(self, d, colour, radius, strength=1.0):
        """Additive halo falling off outside the region d < 0. Its reach is
        cut to the room left before the image edge, so it ends in a rounded
        fade instead of a faint square; a last fade along the edge covers
        shapes that come close to it."""
        dd = np.maximum(d, 0)
        room = float(d[self.edge < BORDER].min()) if (self.edge < BORDER).any() else radius * 6.0
        reach = min(radius * 6.0, max(room, radius))
        g = np.exp(-dd / radius) * clamp01(1.0 - (dd / reach) ** 2) * strength
        self.add(np.asarray(colour, F), clamp01(g) * border_fade(self.edge))

    # -- output ---------------------------------------------------------
    def premultiplied(self):
        s = self.out_ss
        H, W = self.h, self.w
        rgb = self.rgb.reshape(H, s, W, s, 3).mean(axis=(1, 3))
        a = self.a.reshape(H, s, W, s).mean(axis=(1, 3))
        return rgb, a

    def image(self, mode='RGBA'):
        rgb, a = self.premultiplied()
        return to_image(rgb, a, mode)


def bleed(col, a, iterations=12):
    """Fill the colour of transparent pixels from their neighbours, so that
    linear filtering at an alpha edge never blends towards black."""
    col = col.copy()
    # Only texels that keep some opacity once stored as bytes count as known.
    known = a >= 0.5 / 255.0
    for _ in range(iterations):
        if known.all():
            break
        acc = np.zeros_like(col)
        cnt = np.zeros(a.shape, F)
        for dy, dx in ((0, 1), (0, -1), (1, 0), (-1, 0), (1, 1), (-1, -1), (1, -1), (-1, 1)):
            k = np.roll(np.roll(known, dy, 0), dx, 1)
            c = np.roll(np.roll(col, dy, 0), dx, 1)
            acc += c * k[..., None]
            cnt += k
        grow = (~known) & (cnt > 0)
        col[grow] = acc[grow] / cnt[grow][:, None]
        known = known | grow
    if not known.all():
        mean = col[known].mean(axis=0) if known.any() else np.zeros(3, F)
        col[~known] = mean
    return col


def to_image(rgb_premul, a, mode='RGBA'):
    a = clamp01(a)
    col = np.where(a[..., None] > 1e-4, rgb_premul / np.maximum(a[..., None], 1e-4), 0)
    col = clamp01(col)
    if mode == 'RGBA':
        col = bleed(col, a)
        arr = np.dstack([col, a[..., None]])
    else:
        arr = col
    return Image.fromarray(np.round(arr * 255).astype(np.uint8), mode)


def straight_image(col, a=None):
    """Image from straight (not premultiplied) colour and optional alpha."""
    col = clamp01(np.asarray(col, F))
    if a is None:
        return Image.fromarray(np.round(col * 255).astype(np.uint8), 'RGB')
    a = clamp01(np.asarray(a, F))
    col = bleed(col, a)
    return Image.fromarray(np.round(np.dstack([col, a[..., None]]) * 255).astype(np.uint8), 'RGBA')


def glow_image(img, colour, radius):
    """The "_glow" companion of a sprite: a halo of the sprite's shape in
    one colour, on the same canvas, for additive drawing over it. The halo
    is strongest just outside the outline; over the sprite it follows the
    sprite's own light and dark, so the sprite lights up clearly and its
    outlines still read. It fades out before the image edge."""
    rgba = img.convert('RGBA')
    alpha = rgba.getchannel('A')
    a = np.asarray(alpha, F) / 255.0
    lum = np.asarray(rgba.convert('L'), F) / 255.0
    # The wide part of the halo is held to the room around the sprite, so it
    # has died away before the edge fade would square it off.
    rows = np.flatnonzero(a.max(axis=1) > 0)
    cols = np.flatnonzero(a.max(axis=0) > 0)
    room = min(rows[0], a.shape[0] - 1 - rows[-1], cols[0], a.shape[1] - 1 - cols[-1]) if rows.size else 0
    near = np.asarray(alpha.filter(ImageFilter.GaussianBlur(radius)), F) / 255.0
    far_radius = min(radius * 2.5, max(radius, room / 2.5))
    far = np.asarray(alpha.filter(ImageFilter.GaussianBlur(far_radius)), F) / 255.0
    halo = clamp01(near * 1.5 + far * 0.8)
    ga = clamp01(halo * (1.0 - a) + a * (0.25 + 0.55 * lum))
    ga = ga * border_fade(edge_distance(*a.shape), max(2.0, radius * 1.5))
    colour = np.asarray(colour, F)
    hot = (clamp01(near * 1.2 - 0.4) * (1.0 - a))[..., None]
    col = mix(np.broadcast_to(colour, a.shape + (3,)), mix(colour, np.ones(3, F), 0.6), hot)
    return straight_image(col, ga)


# -- signed distance primitives (output pixel units, y down) -----------------

def sd_circle(c, cx, cy, r):
    return np.sqrt((c.x - cx) ** 2 + (c.y - cy) ** 2) - r


def sd_ellipse(c, cx, cy, rx, ry):
    # Scaled-circle approximation, corrected by the gradient length.
    px, py = (c.x - cx) / rx, (c.y - cy) / ry
    k0 = np.sqrt(px * px + py * py)
    k1 = np.sqrt((px / rx) ** 2 + (py / ry) ** 2) + 1e-6
    return k0 * (k0 - 1.0) / k1


def sd_box(c, cx, cy, hw, hh, r=0.0):
    qx = np.abs(c.x - cx) - hw + r
    qy = np.abs(c.y - cy) - hh + r
    out = np.sqrt(np.maximum(qx, 0) ** 2 + np.maximum(qy, 0) ** 2)
    return out + np.minimum(np.maximum(qx, qy), 0) - r


def sd_segment(c, ax, ay, bx, by, r):
    pax, pay = c.x - ax, c.y - ay
    bax, bay = bx - ax, by - ay
    h = clamp01((pax * bax + pay * bay) / (bax * bax + bay * bay + 1e-9))
    return np.sqrt((pax - bax * h) ** 2 + (pay - bay * h) ** 2) - r


def sd_poly(c, pts):
    """Exact signed distance to a simple polygon."""
    pts = [(float(x), float(y)) for x, y in pts]
    d = None
    s = np.ones_like(c.x)
    n = len(pts)
    for i in range(n):
        ax, ay = pts[i]
        bx, by = pts[i - 1]
        ex, ey = bx - ax, by - ay
        wx, wy = c.x - ax, c.y - ay
        h = clamp01((wx * ex + wy * ey) / (ex * ex + ey * ey + 1e-9))
        bxx, byy = wx - ex * h, wy - ey * h
        dd = bxx * bxx + byy * byy
        d = dd if d is None else np.minimum(d, dd)
        c1 = c.y >= ay
        c2 = c.y < by
        c3 = ex * wy > ey * wx
        flip = (c1 & c2 & c3) | (~c1 & ~c2 & ~c3)
        s = np.where(flip, -s, s)
    return s * np.sqrt(d)


def sd_star(c, cx, cy, r_out, r_in, points, rot=0.0):
    pts = []
    for i in range(points * 2):
        ang = rot + np.pi * i / points
        r = r_out if i % 2 == 0 else r_in
        pts.append((cx + r * np.sin(ang), cy - r * np.cos(ang)))
    return sd_poly(c, pts)


def sd_regular(c, cx, cy, r, sides, rot=0.0):
    pts = [(cx + r * np.sin(rot + 2 * np.pi * i / sides), cy - r * np.cos(rot + 2 * np.pi * i / sides))
           for i in range(sides)]
    return sd_poly(c, pts)


def union(*ds):
    out = ds[0]
    for d in ds[1:]:
        out = np.minimum(out, d)
    return out


def smooth_union(a, b, k):
    h = clamp01(0.5 + 0.5 * (b - a) / k)
    return b * (1 - h) + a * h - k * h * (1 - h)


def subtract(a, b):
    return np.maximum(a, -b)


def intersect(a, b):
    return np.maximum(a, b)


# -- tileable noise ---------------------------------------------------------

def fbm(rng, n, beta=2.0, lo=1.0, hi=None, m=None):
    """Periodic fractal noise on an n x m grid, normalised to 0..1.

    Spectral synthesis on integer frequencies makes it tile exactly."""
    m = n if m is None else m
    white = rng.standard_normal((n, m))
    spec = np.fft.fft2(white)
    fy = np.fft.fftfreq(n)[:, None] * n
    fx = np.fft.fftfreq(m)[None, :] * m
    f = np.sqrt(fx * fx + fy * fy)
    amp = np.where(f >= lo, 1.0 / np.maximum(f, 1e-6) ** (beta / 2.0), 0.0)
    if hi is not None:
        amp = amp * np.exp(-(f / hi) ** 2)
    out = np.real(np.fft.ifft2(spec * amp))
    out -= out.min()
    out /= max(out.max(), 1e-9)
    return out.astype(F)


def spaced_points(rng, n, count, spacing=0.7):
    """count points on the n x n torus, no two closer than spacing times
    the mean point distance. Clumped points would cut sliver cells whose
    narrow, fan-shaped shading repeats conspicuously when tiled."""
    gap = spacing * n / np.sqrt(count)
    pts = np.zeros((0, 2))
    misses = 0
    while len(pts) < count:
        p = rng.random(2) * n
        d = np.abs(pts - p)
        d = np.minimum(d, n - d)
        if len(pts) == 0 or np.sqrt((d * d).sum(axis=1)).min() >= gap:
            pts = np.vstack([pts, p])
            misses = 0
        else:
            misses += 1
            if misses > 500:
                gap *= 0.95
                misses = 0
    return pts


def cells(rng, n, count):
    """Periodic Worley distance (to the nearest feature point), distance to
    the second nearest, and the id of the nearest point, on an n x n grid."""
    pts = spaced_points(rng, n, count)
    ys, xs = np.mgrid[0:n, 0:n].astype(F)
    best = np.full((n, n), 1e9, F)
    second = np.full((n, n), 1e9, F)
    ident = np.zeros((n, n), np.int32)
    for i, (px, py) in enumerate(pts):
        dx = np.abs(xs - px)
        dx = np.minimum(dx, n - dx)
        dy = np.abs(ys - py)
        dy = np.minimum(dy, n - dy)
        d = np.sqrt(dx * dx + dy * dy)
        closer = d < best
        second = np.where(closer, best, np.minimum(second, d))
        ident = np.where(closer, i, ident)
        best = np.where(closer, d, best)
    return best, second, ident
