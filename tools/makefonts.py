#!/usr/bin/env python3
"""Bakes the game's bitmap fonts from Bitstream Vera.

Writes, into the output directory:
  vera_12.xml, verabd_14.xml, verabd_18.xml, verabd_24.xml  (font descriptions)
  one RGBA PNG page per font (white glyphs, coverage in alpha)
  font.tga  (the 16 x 16 cell fallback bitmap)

The game draws each glyph as a quad starting at the pen and advances the pen
by max(xadvance, width) + 1 pixel, so each cell is cut tight around the ink
(shifted right when the glyph hangs left of the pen) and xadvance is the
hinted advance less that one pixel of tracking.  Pages are powers of two so
the texture upload never rescales them, which keeps glyphs crisp at 1:1.
"""
import argparse
import os
import sys
from xml.sax.saxutils import quoteattr

from PIL import Image, ImageDraw, ImageFont

FAMILY = "vera"
FONTS = [  # (output stem, ttf file, pixel size)
    ("vera_12", "Vera.ttf", 12),
    ("verabd_14", "VeraBd.ttf", 14),
    ("verabd_18", "VeraBd.ttf", 18),
    ("verabd_24", "VeraBd.ttf", 24),
]
FALLBACK_TTF = "VeraMoBd.ttf"
CODES = list(range(32, 127)) + list(range(160, 256))  # printable Latin-1
# Control codes get empty glyphs (a tab spaces like a blank) so stray
# characters in printed text are skipped quietly instead of being reported.
CONTROL_CODES = [c for c in range(256) if c not in CODES]
TRACKING = 1  # the renderer's extra pixel between glyphs
PAD = 2       # empty texels around each cell so filtering never bleeds


def render_glyph(font, code):
    """Returns (coverage image or None, ink left, ink top, advance) with ink
    coordinates relative to the pen on the baseline."""
    ch = chr(code)
    size = font.size * 4
    im = Image.new("L", (size, size), 0)
    ox, oy = size // 4, (size * 3) // 4
    ImageDraw.Draw(im).text((ox, oy), ch, font=font, fill=255, anchor="ls")
    advance = int(round(font.getlength(ch)))
    box = im.getbbox()
    if box is None:
        return None, 0, 0, advance
    return im.crop(box), box[0] - ox, box[1] - oy, advance


def pack(cells, page_width):
    """Shelf packing, tallest first.  Returns {code: (x, y)} and the page height."""
    order = sorted(cells, key=lambda c: (-cells[c][1], c))
    x = y = shelf = 0
    spots = {}
    for code in order:
        w, h = cells[code]
        if x + w + PAD > page_width:
            x, y, shelf = 0, y + shelf, 0
        spots[code] = (x + PAD, y + PAD)
        x += w + PAD
        shelf = max(shelf, h + PAD)
    used = y + shelf + PAD
    height = 16
    while height < used:
        height *= 2
    return spots, height


def bake_font(stem, ttf, size, fontdir, outdir):
    font = ImageFont.truetype(os.path.join(fontdir, ttf), size)
    glyphs = {}
    for code in CODES:
        img, left, top, advance = render_glyph(font, code)
        shift = max(0, -left)
        glyphs[code] = dict(img=img, left=left, top=top, advance=advance, shift=shift)

    cells = {}
    for code, g in glyphs.items():
        if g["img"] is None:
            cells[code] = (0, 0)
        else:
            # The cell starts at the pen: blank left bearing columns are kept.
            cells[code] = (g["left"] + g["shift"] + g["img"].width, g["img"].height)

    page_width = 256 if size <= 16 else 512
    spots, page_height = pack(cells, page_width)
    page = Image.new("L", (page_width, page_height), 0)
    for code, g in glyphs.items():
        if g["img"] is not None:
            px, py = spots[code]
            page.paste(g["img"], (px + g["left"] + g["shift"], py))
    rgba = Image.merge("RGBA", (Image.new("L", page.size, 255),) * 3 + (page,))
    page_name = stem + ".png"
    rgba.save(os.path.join(outdir, page_name))

    # Digits share one advance so counters and timers do not jitter.
    digits = range(ord("0"), ord("9") + 1)
    digit_advance = max(max(glyphs[c]["advance"], cells[c][0] + TRACKING) for c in digits)
    for c in digits:
        glyphs[c]["advance"] = digit_advance

    space = glyphs[32]["advance"]
    for code in CONTROL_CODES:
        glyphs[code] = dict(img=None, left=0, top=0, shift=0,
                            advance=space if code == 9 else TRACKING)
        cells[code] = (0, 0)
        spots[code] = spots[32]

    lines = ['<?xml version="1.0" ?>',
             '<font name=%s size="%d">' % (quoteattr(FAMILY), size),
             "    <descriptors>"]
    for code in sorted(glyphs):
        g = glyphs[code]
        w, h = cells[code]
        px, py = spots[code]
        top = -g["top"] if g["img"] is not None else 0
        attrs = [
            ("charcode", code), ("image", page_name),
            ("x", px), ("y", py + top),  # pen origin on the baseline
            ("px", px), ("py", py), ("pwidth", w), ("pheight", h),
            ("width", w), ("height", h),
            ("left", g["left"]), ("top", top),
            ("xadvance", max(0, g["advance"] - TRACKING)),
            ("s", "%.6f" % (px / page_width)),
            ("t", "%.6f" % (1.0 - py / page_height)),
            ("s2", "%.6f" % ((px + w) / page_width)),
            ("t2", "%.6f" % (1.0 - (py + h) / page_height)),
        ]
        lines.append("        <char " + " ".join('%s="%s"' % (k, v) for k, v in attrs) + " />")
    lines += ["    </descriptors>",
              "    <imageindex>",
              '        <image filename="%s" />' % page_name,
              "    </imageindex>",
              "</font>", ""]
    with open(os.path.join(outdir, stem + ".xml"), "w", encoding="ascii") as out:
        out.write("\n".join(lines))


def bake_fallback(fontdir, outdir):
    """16 x 16 grid of 16-pixel cells; the cell at row r from the top, column
    k holds code 16 * (r + 1) + k, which is how the fallback text drawer
    addresses it."""
    font = ImageFont.truetype(os.path.join(fontdir, FALLBACK_TTF), 13)
    sheet = Image.new("L", (256, 256), 0)
    draw = ImageDraw.Draw(sheet)
    for code in CODES:
        row, col = code // 16 - 1, code % 16
        if 0 <= row < 16:
            cx, cy = col * 16 + 8, row * 16 + 12
            draw.text((cx, cy), chr(code), font=font, fill=255, anchor="ms")
    rgba = Image.merge("RGBA", (Image.new("L", sheet.size, 255),) * 3 + (sheet,))
    rgba.save(os.path.join(outdir, "font.tga"))


def main(argv):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--out", required=True, help="directory to write into")
    parser.add_argument("--fontdir", default="/usr/share/fonts/truetype/ttf-bitstream-vera")
    args = parser.parse_args(argv)
    os.makedirs(args.out, exist_ok=True)
    for stem, ttf, size in FONTS:
        bake_font(stem, ttf, size, args.fontdir, args.out)
    bake_fallback(args.fontdir, args.out)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
