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
