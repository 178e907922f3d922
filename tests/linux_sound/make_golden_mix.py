#!/usr/bin/env python3
"""Writes golden_mix.txt: the mix that DeckMixer.MixesAsTheGoldenMixDoes must give, in ten-thousandths
of full level, each tenth frame. Kept apart from the player's code on purpose."""
import math
import os

FRAMES, VOLUME_RAMP, EDGE = 3000, 882, 220
song = [(0.9 * math.sin(i * 0.05), 0.9 * math.cos(i * 0.031)) for i in range(FRAMES)]


def level(volume):
    return 10 ** (volume / 2000)


def line(start, end, length, i):
    return end if i >= length else start + (end - start) * i / length


TOTAL = 700 + 500 + 900 + 300 + 900
mix = [[0.0, 0.0] for _ in range(TOTAL)]


def put(at, frame, gain):
    for channel in (0, 1):
        mix[at][channel] += song[frame][channel] * gain


# The old song from the start; from 1200 on it goes down by 9.8 dB; from 2400 on it fades out.
for t in range(2400 + EDGE):
    gain = line(1, level(-980), VOLUME_RAMP, t - 1200) if t >= 1200 else 1
    if t >= 2400:
        gain *= 1 - (t - 2400) / EDGE
    put(t, t, gain)

# The next song from 700 on at -5 dB, paused at 2100 (fading out on its next frames), resumed at 2400.
for t in range(700, 2100 + EDGE):
    put(t, t - 700, level(-500) * (1 - max(0, t - 2100) / EDGE))
resumed = 2100 - 700 + EDGE
for t in range(2400, TOTAL):
    if resumed + t - 2400 < FRAMES:
        put(t, resumed + t - 2400, level(-500) * min(1, (t - 2400) / EDGE))

with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), "golden_mix.txt"), "w") as out:
    for left, right in mix[::10]:
        clip = [max(-1.0, min(1.0, sample)) for sample in (left, right)]
        out.write(f"{round(clip[0] * 10000)} {round(clip[1] * 10000)}\n")
