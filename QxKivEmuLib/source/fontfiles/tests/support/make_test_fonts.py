#!/usr/bin/env python3
"""Writes small fonts for tests, table by table, so that each says exactly what a test asks about.

    make_test_fonts.py FOLDER

variable.ttf    two axes, "wght" and "wdth"; an A as wide as the axes say
restricted.ttf  the same shapes without axes, all permissions denied, and nothing to see for a character
                that it lacks
"""
import os
import struct
import sys

EM = 1000
ADVANCE = 600


def glyph(boxes):
    """Boxes (left, bottom, right, top), a contour each."""
    if not boxes:
        return b""
    points = [p for (l, b, r, t) in boxes for p in ((l, b), (l, t), (r, t), (r, b))]
    xs, ys = [p[0] for p in points], [p[1] for p in points]
    data = struct.pack(">5h", len(boxes), min(xs), min(ys), max(xs), max(ys))
    data += b"".join(struct.pack(">H", 4 * i + 3) for i in range(len(boxes))) + struct.pack(">H", 0)
    data += b"\x01" * len(points)  # on the curve, both coordinates as words
    for values in (xs, ys):
        before = 0
        for value in values:
            data += struct.pack(">h", value - before)
            before = value
    return data + b"\0" * (-len(data) % 4)


BOX = (100, 0, 500, 700)
GLYPHS = [glyph([BOX]), b"", glyph([BOX, (200, 100, 400, 300)]), glyph([(100, 0, 300, 500)])]
CHARACTERS = {0x20: 1, 0x41: 2, 0x61: 3}  # blank, A, a


def deltas(values):
    return bytes([0x40 | len(values) - 1]) + b"".join(struct.pack(">h", v) for v in values)


def variation(peak, dx):
    """One tuple for all points: the right edges move by dx, the pen's advance by as much."""
    data = b"\0" + deltas([0, 0, dx, dx] * 2 + [0, dx, 0, 0]) + deltas([0] * 12)
    return struct.pack(">HH", len(data), 0x8000 | 0x2000) + struct.pack(">2h", *peak), data


def gvar():
    tuples = [variation((0x4000, 0), 80), variation((0, 0x4000), 60)]
    heads = b"".join(head for head, _ in tuples)
    glyph_a = struct.pack(">HH", len(tuples), 4 + len(heads)) + heads
    glyph_a += b"".join(data for _, data in tuples)
    glyph_a += b"\0" * (len(glyph_a) % 2)
    ends = [0, 0, 0, len(glyph_a), len(glyph_a)]
    offsets = b"".join(struct.pack(">I", end) for end in ends)
    start = 20 + len(offsets)
    return struct.pack(">HHHHIHHI", 1, 0, 2, 0, start, len(GLYPHS), 1, start) + offsets + glyph_a


def fvar():
    def axis(tag, low, usual, high, name):
        return tag + struct.pack(">iiiHH", low << 16, usual << 16, high << 16, 0, name)
    return (struct.pack(">HHHHHHHH", 1, 0, 16, 2, 2, 20, 0, 4 + 2 * 4) +
            axis(b"wght", 100, 400, 900, 256) + axis(b"wdth", 75, 100, 125, 257))


def name_table(family):
    names = [(0, "\u00a9 The testers"), (1, family), (2, "Regular"), (4, family), (13, "Free\nfor tests"),
             (14, "https://example.org/licence"), (256, "Weight"), (257, "Width")]
    records = b""
    texts = b""
    for ident, text in names:
        raw = text.encode("utf-16-be")
        records += struct.pack(">6H", 3, 1, 0x409, ident, len(raw), len(texts))
        texts += raw
    return struct.pack(">3H", 0, len(names), 6 + len(records)) + records + texts


def cmap():
    segments = [(c, c, (g - c) & 0xFFFF) for c, g in sorted(CHARACTERS.items())] + [(0xFFFF, 0xFFFF, 1)]
    count = len(segments)
    body = b"".join(struct.pack(">H", s[1]) for s in segments) + b"\0\0"
    body += b"".join(struct.pack(">H", s[0]) for s in segments)
    body += b"".join(struct.pack(">H", s[2]) for s in segments) + b"\0\0" * count
    head = struct.pack(">7H", 4, 14 + len(body), 0, count * 2, 4, 1, count * 2 - 4)
    return struct.pack(">HHHHI", 0, 1, 3, 1, 12) + head + body


def font(family, fs_type, is_variable):
    loca, glyf = [0], b""
    glyphs = GLYPHS if is_variable else [b""] + GLYPHS[1:]
    for data in glyphs:
        glyf += data
        loca.append(len(glyf))
    tables = {
        b"OS/2": struct.pack(">hHHHH", 3, 500, 400, 5, fs_type) + struct.pack(">10h", *[0] * 10) +
                 struct.pack(">h", 0) + b"\0" * 10 + struct.pack(">4I", 1, 0, 0, 0) + b"KIVT" +
                 struct.pack(">HHHhhhHH", 0x40, 0x20, 0x61, 800, -200, 0, 900, 300) +
                 struct.pack(">2I", 1, 0) + struct.pack(">2h3H", 500, 700, 0, 32, 0),
        b"cmap": cmap(),
        b"glyf": glyf,
        b"head": struct.pack(">IIIIHHqqhhhhHHhhh", 0x10000, 0x10000, 0, 0x5F0F3CF5, 3, EM, 0, 0,
                             100, 0, 500, 700, 0, 8, 2, 1, 0),
        b"hhea": struct.pack(">IhhhHhhhhhhhhhhhH", 0x10000, 800, -200, 0, ADVANCE, 100, 100, 500,
                             1, 0, 0, 0, 0, 0, 0, 0, len(GLYPHS)),
        b"hmtx": b"".join(struct.pack(">Hh", ADVANCE, 100 if data else 0) for data in glyphs),
        b"loca": b"".join(struct.pack(">I", offset) for offset in loca),
        b"maxp": struct.pack(">I14H", 0x10000, len(GLYPHS), 8, 2, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0),
        b"name": name_table(family),
        b"post": struct.pack(">IIhhIIIII", 0x30000, 0, -100, 50, 0, 0, 0, 0, 0),
    }
    if is_variable:
        tables[b"fvar"] = fvar()
        tables[b"gvar"] = gvar()
    directory, body = b"", b""
    start = 12 + 16 * len(tables)
    for tag, data in sorted(tables.items()):
        padded = data + b"\0" * (-len(data) % 4)
        total = sum(struct.unpack(f">{len(padded) // 4}I", padded)) & 0xFFFFFFFF
        directory += tag + struct.pack(">3I", total, start + len(body), len(data))
        body += padded
    return struct.pack(">IHHHH", 0x10000, len(tables), 128, 3, len(tables) * 16 - 128) + directory + body


def main(folder):
    os.makedirs(folder, exist_ok=True)
    everything_denied = 0x0002 | 0x0100 | 0x0200
    for name, data in (("variable.ttf", font("Test Variable", 0x0008, True)),
                       ("restricted.ttf", font("Test Restricted", everything_denied, False))):
        with open(os.path.join(folder, name), "wb") as file:
            file.write(data)


if __name__ == "__main__":
    main(sys.argv[1])
