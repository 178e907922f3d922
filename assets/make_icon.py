#!/usr/bin/env python3
"""make_icon.py OUT.ico: draws velmarion.svg's picture in the sizes that Windows asks for, with
nothing but Python. Run it again when that picture changes."""

import math
import struct
import sys
import zlib

SIZES = (16, 20, 24, 32, 40, 48, 64, 256)
FINE = 4  # samples across a pixel


def curve(*pieces):
    """Points along lines (4 numbers) and cubic curves (8 numbers)."""
    points = []
    for piece in pieces:
        pairs = list(zip(piece[::2], piece[1::2]))
        for i in range(33):
            t = i / 32
            level = pairs
            while len(level) > 1:
                level = [((1 - t) * a + t * c, (1 - t) * b + t * d)
                         for (a, b), (c, d) in zip(level, level[1:])]
            points.append(level[0])
    return points


SINKING = curve((30, 44, 52, 44), (52, 44, 72, 44, 74, 92, 98, 92))
RISING = curve((30, 92, 54, 92, 56, 44, 76, 44), (76, 44, 98, 44))


def in_box(x, y, left, top, size_x, size_y, radius):
    dx = max(left + radius - x, x - (left + size_x - radius), 0)
    dy = max(top + radius - y, y - (top + size_y - radius), 0)
    inside = left <= x <= left + size_x and top <= y <= top + size_y
    return inside and math.hypot(dx, dy) <= radius


def near(points, x, y, reach):
    return any((px - x) ** 2 + (py - y) ** 2 <= reach * reach for px, py in points)


def between(one, other, share):
    return tuple(a + (b - a) * share for a, b in zip(one, other))


def colour_at(x, y, stroke):
    """Red, green, blue at a place of the 128 by 128 picture, or None outside of it."""
    if not in_box(x, y, 6, 6, 116, 116, 24):
        return None
    distance = math.hypot(x - 64, y - 68)
    if distance <= 7.5:
        share = min(math.hypot(x - 62, y - 65) / 12.6, 1)
        if share < 0.5:
            return between((0xff, 0xd0, 0xc8), (0xff, 0x3b, 0x2f), share * 2)
        return between((0xff, 0x3b, 0x2f), (0x8f, 0x10, 0x0a), share * 2 - 1)
    if distance <= 10.5:
        return (0x0b, 0x11, 0x0f)
    if near(RISING, x, y, stroke / 2):
        return (0x3f, 0xe0, 0x7c)
    if near(SINKING, x, y, stroke / 2):
        return (0xd2, 0x9c, 0x3a)
    if in_box(x, y, 20, 22, 88, 84, 12):
        return (0x0b, 0x11, 0x0f)
    plate = between((0x3a, 0x41, 0x49), (0x18, 0x1b, 0x1f), (y - 6) / 116)
    if not in_box(x, y, 7.5, 7.5, 113, 113, 22.5):
        return between(plate, (255, 255, 255), 0.14)
    return plate


def pixels(size):
    """Rows from the top of (red, green, blue, alpha)."""
    scale = 128 / size / FINE
    stroke = max(8, 1.6 * 128 / size)
    rows = []
    for row in range(size):
        line = []
        for column in range(size):
            found = [colour_at((column * FINE + i + 0.5) * scale, (row * FINE + j + 0.5) * scale,
                               stroke) for i in range(FINE) for j in range(FINE)]
            solid = [colour for colour in found if colour]
            mean = [round(sum(part) / len(solid)) for part in zip(*solid)] if solid else [0, 0, 0]
            line.append((*mean, round(255 * len(solid) / len(found))))
        rows.append(line)
    return rows


def bitmap(rows):
    size = len(rows)
    head = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0)
    body = b"".join(struct.pack("4B", blue, green, red, alpha)
                    for line in reversed(rows) for red, green, blue, alpha in line)
    return head + body + b"\0" * (((size + 31) // 32 * 4) * size)


def png(rows):
    def chunk(kind, data):
        return (struct.pack(">I", len(data)) + kind + data
                + struct.pack(">I", zlib.crc32(kind + data)))
    size = len(rows)
    body = b"".join(b"\0" + b"".join(bytes(pixel) for pixel in line) for line in rows)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(body, 9)) + chunk(b"IEND", b""))


def main(path):
    pictures = [(size, (png if size == 256 else bitmap)(pixels(size))) for size in SIZES]
    offset = 6 + 16 * len(pictures)
    index = struct.pack("<HHH", 0, 1, len(pictures))
    for size, data in pictures:
        index += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(data), offset)
        offset += len(data)
    with open(path, "wb") as file:
        file.write(index + b"".join(data for _, data in pictures))


if __name__ == "__main__":
    main(sys.argv[1])
