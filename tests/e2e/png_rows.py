"""Reads a PNG as rows of bytes for the e2e picture checks."""
from PIL import Image


def read_png(path):
    """Returns (width, height, channels, rows), rows top to bottom."""
    image = Image.open(path)
    if image.mode not in ("RGB", "RGBA"):
        image = image.convert("RGBA")
    width, height = image.size
    channels = len(image.getbands())
    data = image.tobytes()
    stride = width * channels
    rows = [data[y * stride:(y + 1) * stride] for y in range(height)]
    return width, height, channels, rows


def count_pixels(path, keep):
    """How many pixels of the PNG pass keep(r, g, b)."""
    width, _, channels, rows = read_png(path)
    n = 0
    for row in rows:
        for x in range(0, width * channels, channels):
            if keep(row[x], row[x + 1], row[x + 2]):
                n += 1
    return n


def main():
    """python3 png_rows.py FILE EXPR: prints the count of pixels for which
    the Python expression EXPR over r, g, b is true."""
    import sys
    path, expr = sys.argv[1], sys.argv[2]
    test = eval('lambda r, g, b: ' + expr)
    print(count_pixels(path, test))


if __name__ == '__main__':
    main()
