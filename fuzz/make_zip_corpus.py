#!/usr/bin/env python3
"""Writes the seed archives for the ZIP fuzz target into the directory given:
stored, deflated, streamed (data descriptors), commented, nested folders,
empty members. Archives are generated, never committed."""
import io
import os
import sys
import zipfile

TEXT = b"".join(b"set var%d %d // line %d\n" % (i, i * 7, i) for i in range(200))


def write(path, build):
    buf = io.BytesIO()
    build(buf)
    with open(path, "wb") as f:
        f.write(buf.getvalue())


class Unseekable(io.RawIOBase):
    """A sink zipfile cannot seek in, so it writes data descriptors."""

    def __init__(self, target):
        self.target = target

    def writable(self):
        return True

    def write(self, b):
        return self.target.write(b)


def main(out):
    os.makedirs(out, exist_ok=True)

    def stored(buf):
        with zipfile.ZipFile(buf, "w", zipfile.ZIP_STORED) as z:
            z.writestr("data/config.txt", TEXT)
            z.writestr("data/empty.txt", b"")

    def deflated(buf):
        with zipfile.ZipFile(buf, "w", zipfile.ZIP_DEFLATED) as z:
            z.writestr("data/gamevars.xml", b"<g><v name='a' value='1' type='int'/></g>" * 20)
            z.writestr("data/sub/", b"")
            z.writestr("data/sub/x.txt", TEXT)
            z.comment = b"seed archive"

    def streamed(buf):
        with zipfile.ZipFile(Unseekable(buf), "w", zipfile.ZIP_DEFLATED) as z:
            z.writestr("maps/test.xml", TEXT[:700])
            z.writestr("data/b.bin", bytes(range(256)) * 4)

    def mixed(buf):
        with zipfile.ZipFile(buf, "w") as z:
            z.writestr(zipfile.ZipInfo("a"), b"A" * 600, compress_type=zipfile.ZIP_DEFLATED)
            z.writestr(zipfile.ZipInfo("b"), b"B", compress_type=zipfile.ZIP_STORED)

    for name, build in (("stored.zip", stored), ("deflated.zip", deflated),
                        ("streamed.zip", streamed), ("mixed.zip", mixed)):
        write(os.path.join(out, name), build)


if __name__ == "__main__":
    main(sys.argv[1] if len(sys.argv) > 1 else "zip-corpus")
