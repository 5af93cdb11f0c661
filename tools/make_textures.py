#!/usr/bin/env python3
"""Draws the sample textures of samples/textures/: tileable, made of periodic noise from fixed seeds.

Needs python3-numpy. The textures are kept in the tree; run this only to change them:
    tools/make_textures.py samples/textures
"""

import struct
import sys
from pathlib import Path

import numpy as np


def periodic_noise(edge, scale, seed, stretch=(1.0, 1.0)):
    """Noise 0..1 whose features measure about edge/scale pixels; repeats at the edges."""
    rng = np.random.default_rng(seed)
    spectrum = np.fft.fft2(rng.standard_normal((edge, edge)))
    fy = np.fft.fftfreq(edge)[:, None] * edge * stretch[1]
    fx = np.fft.fftfreq(edge)[None, :] * edge * stretch[0]
    radius = np.hypot(fx, fy)
    spectrum *= np.exp(-((radius / scale) ** 2))
    field = np.fft.ifft2(spectrum).real
    low, high = np.percentile(field, [1, 99])
    return np.clip((field - low) / (high - low), 0, 1)


def layered(edge, seed, scales, weights, stretch=(1.0, 1.0)):
    total = sum(w * periodic_noise(edge, s, seed + i, stretch) for i, (s, w) in enumerate(zip(scales, weights)))
    return total / sum(weights)


def ramp(field, stops):
    """Colours by position: stops is a list of (position, (r, g, b))."""
    positions = [p for p, _ in stops]
    return np.stack([np.interp(field, positions, [c[i] for _, c in stops]) for i in range(3)], axis=-1)


def shade(field, strength):
    """Brightness of a relief lit from the upper left, 1.0 on flat ground."""
    slope = (field - np.roll(field, (1, 1), (0, 1))) * strength
    return np.clip(1.0 + slope, 0.55, 1.45)[..., None]


def grass(edge):
    blades = layered(edge, 11, [90, 60, 25], [3, 2, 1.5], stretch=(1.0, 0.45))
    patches = periodic_noise(edge, 5, 21)
    colours = ramp(0.7 * blades + 0.3 * patches,
                   [(0, (38, 58, 22)), (0.45, (74, 104, 40)), (0.75, (108, 136, 56)), (1, (152, 166, 84))])
    return colours * shade(blades, 1.2)


def turf(edge):
    """Pale short growth: the tints of the texture definitions give it its colour."""
    blades = layered(edge, 111, [70, 40, 14], [3, 2, 2], stretch=(1.0, 0.6))
    tufts = periodic_noise(edge, 8, 121)
    colours = ramp(0.6 * blades + 0.4 * tufts,
                   [(0, (142, 146, 132)), (0.5, (206, 206, 190)), (1, (252, 250, 234))])
    return colours * shade(blades, 0.9)


def crag(edge):
    """Pale broken rock, to be tinted as well."""
    mass = layered(edge, 131, [5, 12, 34, 80], [4, 3, 2, 1])
    clefts = np.abs(periodic_noise(edge, 7, 141) - 0.5) * 2
    colours = ramp(mass, [(0, (134, 130, 124)), (0.5, (198, 192, 184)), (1, (252, 248, 240))])
    colours *= np.clip(0.5 + 4 * clefts, 0, 1)[..., None] * 0.35 + 0.65
    return colours * shade(mass, 6)


def rock(edge):
    mass = layered(edge, 31, [6, 14, 40, 90], [4, 3, 2, 1])
    cracks = np.abs(periodic_noise(edge, 9, 41) - 0.5) * 2
    colours = ramp(mass, [(0, (70, 66, 62)), (0.5, (118, 112, 104)), (1, (172, 166, 154))])
    colours *= np.clip(0.55 + 4 * cracks, 0, 1)[..., None] * 0.35 + 0.65
    return colours * shade(mass, 7)


def soil(edge):
    crumbs = layered(edge, 51, [10, 35, 80], [2, 2, 2])
    colours = ramp(crumbs, [(0, (52, 36, 24)), (0.5, (98, 72, 48)), (1, (150, 118, 84))])
    return colours * shade(crumbs, 4)


def sand(edge):
    y, x = np.mgrid[0:edge, 0:edge] / edge
    bend = periodic_noise(edge, 4, 61) * 0.12
    ripples = 0.5 + 0.5 * np.sin(2 * np.pi * (10 * (y + bend) + 2 * x))
    grain = periodic_noise(edge, 100, 71)
    field = 0.55 * ripples + 0.45 * grain
    colours = ramp(field, [(0, (164, 138, 92)), (0.5, (204, 180, 130)), (1, (236, 218, 172))])
    return colours * shade(ripples, 0.9)


def water(edge):
    waves = layered(edge, 81, [6, 14, 30], [3, 2, 1], stretch=(0.7, 1.3))
    colours = ramp(waves, [(0, (18, 52, 78)), (0.6, (40, 92, 122)), (0.9, (92, 146, 166)), (1, (190, 220, 226))])
    return colours * shade(waves, 4)


def bark(edge):
    ridges = layered(edge, 91, [12, 30, 70], [3, 2, 1], stretch=(1.0, 4.0))
    colours = ramp(ridges, [(0, (34, 26, 20)), (0.5, (92, 74, 58)), (1, (146, 126, 104))])
    return colours * shade(ridges, 5)


def bush(edge):
    """A leafy upright shape on a transparent ground, for point details."""
    y, x = (np.mgrid[0:edge, 0:edge] + 0.5) / edge
    leaves = layered(edge, 101, [8, 20, 34], [2, 3, 2])
    crown = 1 - np.hypot((x - 0.5) / 0.46, (y - 0.46) / 0.44)
    trunk = (np.abs(x - 0.5) < 0.035) & (y > 0.6)
    inside = crown + 0.5 * (leaves - 0.5) > 0.08
    colours = ramp(leaves, [(0, (20, 38, 14)), (0.5, (54, 88, 32)), (1, (120, 150, 66))])
    colours = colours * (1.15 - 0.5 * y)[..., None] * shade(leaves, 2.5)
    colours[trunk & ~inside] = (72, 54, 38)
    alpha = np.where(inside | trunk, 255, 0)
    return np.dstack([colours, alpha])


def pine(edge):
    """A conifer on a transparent ground, for point details."""
    y, x = (np.mgrid[0:edge, 0:edge] + 0.5) / edge
    needles = layered(edge, 151, [14, 30, 44], [2, 3, 2])
    tier = (y * 6.0) % 1.0
    half = 0.03 + 0.40 * np.clip(y / 0.9, 0, 1) * (0.55 + 0.45 * tier)
    inside = (np.abs(x - 0.5) < half * (0.72 + 0.5 * needles)) & (y > 0.02) & (y < 0.9)
    trunk = (np.abs(x - 0.5) < 0.03) & (y >= 0.85)
    colours = ramp(needles, [(0, (14, 30, 20)), (0.5, (38, 66, 40)), (1, (88, 118, 66))])
    colours = colours * (0.75 + 0.45 * tier)[..., None] * shade(needles, 2.0)
    colours[trunk & ~inside] = (66, 48, 34)
    return np.dstack([colours, np.where(inside | trunk, 255, 0)])


def furrows(edge):
    """A ploughed field with a ragged border, for quads on the ground."""
    y, x = (np.mgrid[0:edge, 0:edge] + 0.5) / edge
    bend = periodic_noise(edge, 3, 161) * 0.03
    rows = 0.5 + 0.5 * np.sin(2 * np.pi * 18 * (x + bend))
    clods = periodic_noise(edge, 60, 171)
    colours = ramp(0.6 * rows + 0.4 * clods, [(0, (84, 62, 40)), (0.5, (128, 98, 62)), (1, (172, 142, 96))])
    border = np.minimum(np.minimum(x, 1 - x), np.minimum(y, 1 - y))
    return np.dstack([colours, np.where(border > 0.02 + 0.04 * periodic_noise(edge, 24, 181), 255, 0)])


def write_tga(path, pixels):
    """True colour, 24 bits or 32 with alpha, uncompressed, origin at the top left."""
    height, width, channels = pixels.shape
    data = np.clip(np.rint(pixels), 0, 255).astype(np.uint8)
    order = [2, 1, 0] if channels == 3 else [2, 1, 0, 3]
    header = struct.pack("<BBBHHBHHHHBB", 0, 0, 2, 0, 0, 0, 0, 0, width, height, 8 * channels,
                         0x20 if channels == 3 else 0x28)
    path.write_bytes(header + data[..., order].tobytes())


DRAWN = [(grass, 256), (rock, 256), (soil, 256), (sand, 256), (turf, 256), (crag, 256),
         (water, 128), (bark, 128), (bush, 128), (pine, 128), (furrows, 128)]


def main():
    folder = Path(sys.argv[1] if len(sys.argv) > 1 else "samples/textures")
    folder.mkdir(parents=True, exist_ok=True)
    for draw, edge in DRAWN:
        write_tga(folder / f"{draw.__name__}.tga", draw(edge))


if __name__ == "__main__":
    main()
