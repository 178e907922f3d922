#!/usr/bin/env python3
"""Draws skin.jpg, the faceplate behind the controls: brushed dark metal, lit from above.

Usage: make_skin.py [OUTPUT]. Needs ImageMagick. The grain comes from a fixed sequence, so that the
same picture comes out every time.
"""
import math
import pathlib
import subprocess
import sys

WIDTH, HEIGHT = 960, 720


def grain(seed):
    """Numbers in -1..1, always the same for a seed (a linear congruential generator)."""
    state = seed
    while True:
        state = (state * 1664525 + 1013904223) & 0xFFFFFFFF
        yield (state >> 8) / float(1 << 23) - 1.0


def brushed_row(numbers, length):
    """A scratch runs far along the row: noise, smoothed over many pixels."""
    value, row = 0.0, []
    for _ in range(length):
        value += (next(numbers) - value) * 0.035
        row.append(value)
    return row


def pixel(x, y, scratch, stroke):
    down = y / (HEIGHT - 1)
    aside = (x / (WIDTH - 1) - 0.5) * 2
    base = 47 - 22 * math.pow(down, 0.75)
    sheen = 5.0 * math.exp(-((down - 0.05) ** 2) / 0.02) * math.exp(-(aside**2) / 0.5)
    shade = 3.5 * aside * aside
    light = base + sheen - shade + scratch * 5.0 + stroke * 0.9
    return tuple(max(0, min(255, int(round(light * tone)))) for tone in (0.94, 1.02, 1.12))


def main():
    output = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).with_name("skin.jpg"))
    numbers = grain(20240229)
    data = bytearray()
    for y in range(HEIGHT):
        row, stroke = brushed_row(numbers, WIDTH), next(numbers)
        for x in range(WIDTH):
            data.extend(pixel(x, y, row[x], stroke))
    header = f"P6 {WIDTH} {HEIGHT} 255\n".encode()
    subprocess.run(["convert", "ppm:-", "-strip", "-sampling-factor", "4:2:0", "-quality", "82",
                    f"jpg:{output}"], input=header + bytes(data), check=True)


if __name__ == "__main__":
    main()
