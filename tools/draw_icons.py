#!/usr/bin/env python3
"""Draws the panel icons: 32 by 32 pixels, 16 colours, one .ico file each.

    tools/draw_icons.py [--sheet FILE.png] [DIRECTORY]

DIRECTORY defaults to resources/icons; --sheet also writes all icons at 1x and 2x into one picture. The .ico
files are kept in the repository, so that building needs no Python.

One language runs through the tools: ground is a green-topped profile, a dashed line is the state before, blue
arrows say which way, a pipette means that a value is read, a yellow tile is a detail.
"""
import argparse
import math
import pathlib
import struct
import zlib

SIZE = 32
PALETTE = [(0, 0, 0), (128, 0, 0), (0, 128, 0), (128, 128, 0), (0, 0, 128), (128, 0, 128), (0, 128, 128),
           (192, 192, 192), (128, 128, 128), (255, 0, 0), (0, 255, 0), (255, 255, 0), (0, 0, 255),
           (255, 0, 255), (0, 255, 255), (255, 255, 255)]
(BLACK, MAROON, GREEN, OLIVE, NAVY, PURPLE, TEAL, SILVER, GREY, RED, LIME, YELLOW, BLUE, MAGENTA, CYAN,
 WHITE) = range(16)

GLYPHS = {
    "D": ("####.", "##.##", "##.##", "##.##", "##.##", "##.##", "####."),
    "E": ("#####", "##...", "##...", "####.", "##...", "##...", "#####"),
    "F": ("#####", "##...", "##...", "####.", "##...", "##...", "##..."),
    "G": (".####", "##...", "##...", "##.##", "##.##", "##.##", ".####"),
    "O": (".###.", "##.##", "##.##", "##.##", "##.##", "##.##", ".###."),
    "R": ("####.", "##.##", "##.##", "####.", "##.##", "##.##", "##.##"),
    "T": ("######", "..##..", "..##..", "..##..", "..##..", "..##..", "..##.."),
    "V": ("##.##", "##.##", "##.##", "##.##", "##.##", ".###.", "..#.."),
}


class Canvas:
    """Pixels of palette indices; None is transparent."""

    def __init__(self):
        self.rows = [[None] * SIZE for _ in range(SIZE)]

    def dot(self, x, y, colour):
        if 0 <= x < SIZE and 0 <= y < SIZE:
            self.rows[y][x] = colour

    def box(self, x0, y0, x1, y1, colour):
        for y in range(y0, y1 + 1):
            for x in range(x0, x1 + 1):
                self.dot(x, y, colour)

    def frame(self, x0, y0, x1, y1, colour):
        self.box(x0, y0, x1, y0, colour)
        self.box(x0, y1, x1, y1, colour)
        self.box(x0, y0, x0, y1, colour)
        self.box(x1, y0, x1, y1, colour)

    def line(self, x0, y0, x1, y1, colour):
        steps = max(abs(x1 - x0), abs(y1 - y0), 1)
        for i in range(steps + 1):
            self.dot(round(x0 + (x1 - x0) * i / steps), round(y0 + (y1 - y0) * i / steps), colour)

    def area(self, inside, colour):
        """Fills every pixel whose centre satisfies inside(x, y)."""
        for y in range(SIZE):
            for x in range(SIZE):
                if inside(x + 0.5, y + 0.5):
                    self.dot(x, y, colour)

    def polygon(self, points, fill, outline=BLACK):
        def inside(x, y):
            hit = False
            for (ax, ay), (bx, by) in zip(points, points[1:] + points[:1]):
                if (ay > y) != (by > y) and x < ax + (y - ay) * (bx - ax) / (by - ay):
                    hit = not hit
            return hit

        shape = Canvas()
        shape.area(inside, fill)
        self.paste(shape, outline)

    def paste(self, shape, outline=None):
        """Draws another canvas over this one, with a one-pixel outline around it if a colour is given."""
        for y in range(SIZE):
            for x in range(SIZE):
                if outline is not None and shape.rows[y][x] is None and shape.touches(x, y):
                    self.dot(x, y, outline)
        for y in range(SIZE):
            for x in range(SIZE):
                if shape.rows[y][x] is not None:
                    self.rows[y][x] = shape.rows[y][x]

    def touches(self, x, y):
        return any(0 <= x + dx < SIZE and 0 <= y + dy < SIZE and self.rows[y + dy][x + dx] is not None
                   for dx, dy in ((1, 0), (-1, 0), (0, 1), (0, -1)))

    def sprite(self, x, y, art, colours):
        for row, line in enumerate(art):
            for column, mark in enumerate(line):
                if mark in colours:
                    self.dot(x + column, y + row, colours[mark])

    def text(self, y, word, colour):
        x = (SIZE - sum(len(GLYPHS[c][0]) + 1 for c in word) + 1) // 2
        for letter in word:
            self.sprite(x, y, GLYPHS[letter], {"#": colour})
            x += len(GLYPHS[letter][0]) + 1

    def mirrored(self):
        result = Canvas()
        result.rows = [row[::-1] for row in self.rows]
        return result


# Motifs that several icons share

def ground(canvas, profile, bottom=28):
    """A cut through the terrain: profile(x) is the surface's y at column x."""
    cut = Canvas()
    for x in range(3, 29):
        top = round(profile(x)) + 1
        slope = abs(profile(min(x + 1, 29)) - profile(max(x - 1, 2))) / 2
        turf = top + (2 if slope < 6 else 0) + min(round(slope), 3)
        cut.box(x, top, x, bottom, OLIVE)
        cut.box(x, top, x, min(turf, bottom), GREEN)
        cut.dot(x, top, LIME)
    canvas.paste(cut, BLACK)


def dashed(canvas, profile, colour=RED, first=2, last=29):
    for x in range(first, last + 1):
        if x % 4 < 2:
            y = round(profile(x))
            canvas.box(x, y, x, y + 1, colour)


def hill(base, height, centre=15.5, width=11.0):
    return lambda x: base - height * math.exp(-((x - centre) / width * 1.9) ** 2)


def zigzag(*points):
    """A profile through (x, y) points joined by straight lines."""
    def profile(x):
        for (ax, ay), (bx, by) in zip(points, points[1:]):
            if ax <= x <= bx:
                return ay + (by - ay) * (x - ax) / (bx - ax)
        return points[-1][1]
    return profile


def arrow_up(canvas, x, top, bottom, fill=BLUE, half=5):
    canvas.polygon([(x, top), (x + half, top + half), (x + 2, top + half), (x + 2, bottom), (x - 2, bottom),
                    (x - 2, top + half), (x - half, top + half)], fill)


def arrow_down(canvas, x, top, bottom, fill=BLUE, half=5):
    canvas.polygon([(x, bottom), (x - half, bottom - half), (x - 2, bottom - half), (x - 2, top), (x + 2, top),
                    (x + 2, bottom - half), (x + half, bottom - half)], fill)


def pipette(canvas, x, y):
    """An eyedropper whose tip is at (x, y), leaning to the upper right."""
    glass = Canvas()
    for i in range(9):
        glass.box(x + 1 + i, y - 2 - i, x + 2 + i, y - 1 - i, CYAN if i < 4 else WHITE)
    canvas.paste(glass, BLACK)
    bulb = Canvas()
    for i in range(5):
        bulb.box(x + 10 + i, y - 13 - i, x + 12 + i, y - 11 - i, RED)
    canvas.paste(bulb, BLACK)
    collar = Canvas()
    for i in range(6):
        collar.box(x + 7 + i, y - 14 + i, x + 8 + i, y - 14 + i, GREY)
    canvas.paste(collar, BLACK)
    canvas.dot(x, y, BLACK)


def ruler(canvas, x):
    canvas.box(x, 2, x + 6, 29, YELLOW)
    canvas.frame(x, 2, x + 6, 29, BLACK)
    for i, y in enumerate(range(5, 28, 3)):
        canvas.box(x + (2 if i % 2 else 3), y, x + 5, y, BLACK)


def tile(canvas, x, y, side=15):
    """The textured square that stands for a detail."""
    canvas.box(x, y, x + side, y + side, YELLOW)
    for row in range(side):
        for column in range(side):
            if (row // 3 + column // 3) % 2:
                canvas.dot(x + column, y + row, OLIVE)
    canvas.frame(x, y, x + side, y + side, BLACK)


def plus_badge(canvas, x, y):
    badge = Canvas()
    badge.box(x + 3, y, x + 5, y + 8, LIME)
    badge.box(x, y + 3, x + 8, y + 5, LIME)
    canvas.paste(badge, BLACK)


def grid(canvas, filled, lines=GREY):
    """Four by four cells, the filled ones (column, row) in red."""
    canvas.box(3, 3, 28, 28, WHITE)
    for column, row in filled:
        canvas.box(4 + 6 * column, 4 + 6 * row, 9 + 6 * column, 9 + 6 * row, RED)
    for i in range(5):
        at = 3 + 6 * i + (1 if i == 4 else 0)
        canvas.box(at, 3, at, 28, lines)
        canvas.box(3, at, 28, at, lines)
    canvas.frame(3, 3, 28, 28, BLACK)


# Brush sizes

def brush_vertex(canvas):
    plate(canvas, "VERT")
    cell_outline(canvas)
    canvas.area(lambda x, y: math.hypot(x - 10, y - 15) < 3.2, RED)


def brush_edge(canvas):
    plate(canvas, "EDGE")
    cell_outline(canvas)
    canvas.box(9, 14, 22, 16, RED)
    for x in (9.5, 22.5):
        canvas.area(lambda px, py, cx=x: math.hypot(px - cx, py - 15.5) < 2.7, RED)


def plate(canvas, word):
    canvas.box(2, 2, 29, 29, WHITE)
    canvas.frame(2, 2, 29, 29, BLACK)
    canvas.text(20, word, NAVY)


def cell_outline(canvas):
    canvas.frame(9, 4, 22, 15, GREY)
    canvas.line(9, 4, 22, 15, SILVER)
    canvas.frame(9, 4, 22, 15, GREY)


def brush_cell(canvas):
    canvas.box(3, 3, 28, 28, WHITE)
    for at in (11, 20):
        canvas.box(at, 3, at, 28, GREY)
        canvas.box(3, at, 28, at, GREY)
    canvas.box(12, 12, 19, 19, RED)
    canvas.frame(3, 3, 28, 28, BLACK)


def brush_plus(canvas):
    grid(canvas, [])
    canvas.box(14, 9, 17, 22, RED)
    canvas.box(9, 14, 22, 17, RED)


def brush_2x2(canvas):
    grid(canvas, [(1, 1), (2, 1), (1, 2), (2, 2)])


def brush_disc(canvas):
    grid(canvas, [(c, r) for c in range(4) for r in range(4) if not (c in (0, 3) and r in (0, 3))])


# Terrain tools

def tool_select(canvas):
    for i in range(24):
        colour = BLACK if i % 6 < 3 else WHITE
        for x, y in ((2 + i, 3), (2 + i, 24), (2, 3 + min(i, 21)), (25, 3 + min(i, 21))):
            canvas.dot(x, y, colour)
            canvas.dot(x, y + 1, colour)
    canvas.sprite(13, 11, (
        "#............",
        "##...........",
        "#o#..........",
        "#oo#.........",
        "#ooo#........",
        "#oooo#.......",
        "#ooooo#......",
        "#oooooo#.....",
        "#ooooooo#....",
        "#oooooooo#...",
        "#ooooooooo#..",
        "#oooooo#####.",
        "#ooo#oo#.....",
        "#oo##ooo#....",
        "#o#..#oo#....",
        "##...#ooo#...",
        "......#oo#...",
        "......#ooo#..",
        ".......###..."), {"#": BLACK, "o": WHITE})


def tool_raise(canvas):
    ground(canvas, hill(26, 9))
    arrow_up(canvas, 16, 2, 15)


def tool_flatten(canvas):
    ground(canvas, lambda x: 21)
    dashed(canvas, hill(19, 15))
    arrow_down(canvas, 16, 8, 20)


def tool_set_height(canvas):
    ground(canvas, zigzag((2, 25), (12, 25), (13, 14), (29, 14)))
    ruler(canvas, 2)
    canvas.box(9, 10, 29, 11, RED)
    arrow_up(canvas, 21, 13, 26)


def tool_get_height(canvas):
    ground(canvas, zigzag((2, 25), (12, 25), (13, 20), (29, 20)))
    ruler(canvas, 2)
    pipette(canvas, 13, 19)


def tool_tint(canvas):
    canvas.area(lambda x, y: ((x - 16) / 14) ** 2 + ((y - 16) / 11.5) ** 2 < 1, BLACK)
    canvas.area(lambda x, y: ((x - 16) / 12.8) ** 2 + ((y - 16) / 10.4) ** 2 < 1, SILVER)
    hole = lambda x, y: math.hypot(x - 21.5, y - 22) < 3.2
    canvas.area(lambda x, y: math.hypot(x - 21.5, y - 22) < 4.3, BLACK)
    canvas.area(hole, None)
    for x, y, colour in ((8, 17, RED), (12, 10.5, YELLOW), (19, 9.5, LIME), (25, 14, BLUE), (12.5, 22.5, MAGENTA)):
        canvas.area(lambda px, py, cx=x, cy=y: math.hypot(px - cx, py - cy) < 3.1, BLACK)
        canvas.area(lambda px, py, cx=x, cy=y, c=colour: math.hypot(px - cx, py - cy) < 2.3, colour)


JAGGED = ((2, 20), (6, 10), (9, 18), (13, 5), (17, 17), (21, 8), (24, 16), (27, 10), (29, 15))


def tool_smooth(canvas):
    ground(canvas, lambda x: 20 - 3 * math.cos((x - 15.5) * math.pi / 15))
    former = zigzag(*[(x, y - 3) for x, y in JAGGED])
    for x in range(2, 29):
        canvas.line(x, round(former(x)), x + 1, round(former(x + 1)), RED)


def tool_roughen(canvas):
    ground(canvas, zigzag(*[(x, y + 6) for x, y in JAGGED]))
    dashed(canvas, lambda x: 7 - 3 * math.cos((x - 15.5) * math.pi / 15))


def basin(x):
    return 9 + 15 * max(0.0, 1 - (abs(x - 15.5) / 13.0) ** 4)


def water(canvas, level):
    for x in range(2, 30):
        surface = level + (1 if x % 8 in (0, 1, 2, 3) else 0)
        for y in range(surface, round(basin(x))):
            canvas.dot(x, y, CYAN if y < surface + 2 else BLUE)


def tool_flood(canvas):
    ground(canvas, basin)
    water(canvas, 11)
    arrow_up(canvas, 16, 2, 17, WHITE)


def tool_drain(canvas):
    ground(canvas, basin)
    water(canvas, 19)
    dashed(canvas, lambda x: 11, BLUE, 4, 27)
    arrow_down(canvas, 16, 3, 18, WHITE)


def tool_paint(canvas):
    for y in range(20, 30):
        for x in range(2, 30):
            canvas.dot(x, y, GREEN if (x // 3 + y // 3) % 2 else LIME)
    canvas.frame(2, 20, 29, 29, BLACK)
    handle = Canvas()
    for i in range(11):
        handle.box(17 + i, 13 - i, 19 + i, 15 - i, MAROON)
    canvas.paste(handle, BLACK)
    ferrule = Canvas()
    for i in range(4):
        ferrule.box(12 + i, 14 - i, 14 + i, 16 - i, None)
        ferrule.box(13 + i, 16 - i, 17 + i, 19 - i, SILVER)
    canvas.paste(ferrule, BLACK)
    canvas.polygon([(5, 26), (7, 19), (13, 15), (17, 19), (13, 24)], GREEN)


def tool_get_gradient(canvas):
    ground(canvas, zigzag((2, 27), (29, 10)))
    pipette(canvas, 12, 19)


def tool_magnet(canvas):
    ground(canvas, hill(28, 6, width=9))
    ring = Canvas()
    ring.area(lambda x, y: 4.2 < math.hypot(x - 16, y - 12) < 10 and y <= 12, RED)
    ring.box(6, 12, 11, 14, RED)
    ring.box(20, 12, 25, 14, RED)
    ring.box(6, 15, 11, 18, WHITE)
    ring.box(20, 15, 25, 18, WHITE)
    canvas.paste(ring, BLACK)
    canvas.box(6, 14, 11, 14, BLACK)
    canvas.box(20, 14, 25, 14, BLACK)


# Undo, redo and the two toggles

def undo(canvas):
    shape = Canvas()
    shape.area(lambda x, y: 6 < math.hypot(x - 17, y - 17) < 11 and not (x < 17 and y > 17), BLUE)
    shape.box(12, 23, 16, 27, BLUE)
    shape.area(lambda x, y: x < 13 and abs(y - 17) < 0, BLUE)
    canvas.paste(shape, BLACK)
    canvas.polygon([(2, 14), (15, 14), (8.5, 22)], BLUE)
    canvas.box(7, 13, 10, 15, BLUE)


def redo(canvas):
    mirror = Canvas()
    undo(mirror)
    canvas.paste(mirror.mirrored())


def map_flag(canvas):
    for row in range(4):
        for column in range(4):
            canvas.box(4 + 6 * column, 4 + 6 * row, 9 + 6 * column, 9 + 6 * row,
                       BLACK if (row + column) % 2 else WHITE)
    canvas.frame(3, 3, 28, 28, BLACK)


def fog(canvas):
    canvas.area(lambda x, y: math.hypot(x - 16, y - 16) < 14, NAVY)
    canvas.area(lambda x, y: math.hypot(x - 16, y - 16) < 12, WHITE)
    canvas.area(lambda x, y: math.hypot(x - 16, y - 16) < 12 and int(y) in (7, 9, 22, 24), SILVER)
    canvas.text(12, "FOG", NAVY)


# Details

def detail_add_quad(canvas):
    tile(canvas, 3, 12, 16)
    plus_badge(canvas, 19, 3)


def detail_delete(canvas):
    tile(canvas, 3, 12, 16)
    cross = Canvas()
    for i in range(10):
        cross.box(18 + i, 4 + i, 20 + i, 4 + i, RED)
        cross.box(27 - i, 4 + i, 29 - i, 4 + i, RED)
    canvas.paste(cross, BLACK)


def detail_move(canvas):
    tile(canvas, 10, 10, 11)
    for points in ([(16, 1), (21, 7), (11, 7)], [(16, 31), (21, 25), (11, 25)],
                   [(1, 16), (7, 11), (7, 21)], [(31, 16), (25, 11), (25, 21)]):
        canvas.polygon(points, BLUE)


def detail_rotate(canvas):
    turned = Canvas()
    angle = math.radians(25)
    for y in range(SIZE):
        for x in range(SIZE):
            u = (x - 15.5) * math.cos(angle) + (y - 15.5) * math.sin(angle)
            v = (y - 15.5) * math.cos(angle) - (x - 15.5) * math.sin(angle)
            if abs(u) < 6.2 and abs(v) < 6.2:
                turned.dot(x, y, OLIVE if (math.floor(u / 3.1) + math.floor(v / 3.1)) % 2 else YELLOW)
    canvas.paste(turned, BLACK)
    arc = Canvas()
    arc.area(lambda x, y: 10.5 < math.hypot(x - 16, y - 16) < 13.5 and
             not -60 < math.degrees(math.atan2(y - 16, x - 16)) < 0, BLUE)
    canvas.paste(arc, BLACK)
    canvas.polygon([(20, 1), (29, 5), (21, 12)], BLUE)


def detail_scale(canvas):
    for i in range(2, 30):
        if i % 4 < 2:
            for x, y in ((i, 2), (i, 29), (2, i), (29, i)):
                canvas.dot(x, y, RED)
    tile(canvas, 4, 16, 11)
    shaft = Canvas()
    for i in range(9):
        shaft.box(17 + i, 14 - i, 18 + i, 15 - i, BLUE)
    canvas.paste(shaft, BLACK)
    canvas.polygon([(19, 4), (28, 4), (28, 13)], BLUE)


def detail_add_point(canvas):
    canvas.box(3, 20, 19, 20, BLACK)
    canvas.box(11, 12, 11, 28, BLACK)
    canvas.area(lambda x, y: math.hypot(x - 11.5, y - 20.5) < 6, BLACK)
    canvas.area(lambda x, y: math.hypot(x - 11.5, y - 20.5) < 5, YELLOW)
    canvas.area(lambda x, y: math.hypot(x - 11.5, y - 20.5) < 2, BLACK)
    plus_badge(canvas, 19, 3)


def detail_duplicate(canvas):
    tile(canvas, 3, 3, 16)
    tile(canvas, 12, 12, 16)


def detail_flip(canvas):
    canvas.polygon([(13, 4), (13, 28), (2, 28)], YELLOW)
    canvas.polygon([(19, 4), (19, 28), (30, 28)], WHITE)
    for y in range(2, 30, 4):
        canvas.box(15, y, 16, y + 1, RED)


# The movie editor: a lens looks closer or wider at the timeline; the player's signs are those of any player

def lens(canvas):
    grip = Canvas()
    for i in range(9):
        grip.box(19 + i, 19 + i, 21 + i, 21 + i, MAROON)
    canvas.paste(grip, BLACK)
    canvas.area(lambda x, y: math.hypot(x - 13, y - 13) < 11, BLACK)
    canvas.area(lambda x, y: math.hypot(x - 13, y - 13) < 8.6, WHITE)
    canvas.box(8, 12, 17, 13, BLUE)


def zoom_in(canvas):
    lens(canvas)
    canvas.box(12, 8, 13, 17, BLUE)


def zoom_out(canvas):
    lens(canvas)


def zoom_fit(canvas):
    canvas.box(2, 4, 3, 27, BLACK)
    canvas.box(28, 4, 29, 27, BLACK)
    canvas.polygon([(6, 16), (13, 9), (13, 14), (19, 14), (19, 9), (26, 16), (19, 23), (19, 18), (13, 18),
                    (13, 23)], BLUE)


def player_triangle(canvas, left, right, colour=BLUE):
    canvas.polygon([(left, 4), (right, 16), (left, 28)], colour)


def player_bar(canvas, left, colour=BLUE):
    bar = Canvas()
    bar.box(left, 5, left + 3, 27, colour)
    canvas.paste(bar, BLACK)


def go_to_end(canvas):
    player_triangle(canvas, 3, 14)
    player_triangle(canvas, 14, 25)
    player_bar(canvas, 25)


def step_forward(canvas):
    player_bar(canvas, 6)
    player_triangle(canvas, 13, 26)


def go_to_start(canvas):
    forward = Canvas()
    go_to_end(forward)
    canvas.paste(forward.mirrored())


def step_back(canvas):
    forward = Canvas()
    step_forward(forward)
    canvas.paste(forward.mirrored())


def play(canvas):
    canvas.polygon([(7, 3), (27, 16), (7, 29)], GREEN)


def stop(canvas):
    canvas.box(5, 5, 26, 26, BLACK)
    canvas.box(6, 6, 25, 25, RED)


def pause(canvas):
    for left in (7, 18):
        canvas.box(left, 4, left + 7, 27, BLACK)
        canvas.box(left + 1, 5, left + 6, 26, BLUE)


ICONS = [brush_vertex, brush_edge, brush_cell, brush_plus, brush_2x2, brush_disc, tool_select, tool_raise,
         tool_flatten, tool_set_height, tool_get_height, tool_tint, tool_smooth, tool_flood, tool_drain,
         tool_paint, tool_get_gradient, undo, tool_magnet, redo, map_flag, detail_add_quad, detail_delete,
         detail_move, detail_rotate, tool_roughen, fog, detail_scale, detail_add_point, detail_duplicate,
         detail_flip, zoom_in, zoom_out, zoom_fit, go_to_start, step_back, play, stop, pause, step_forward,
         go_to_end]


def ico_bytes(canvas):
    colours, mask = bytearray(), bytearray()
    for row in reversed(canvas.rows):
        for x in range(0, SIZE, 2):
            colours.append((row[x] or 0) << 4 | (row[x + 1] or 0))
        for x in range(0, SIZE, 8):
            mask.append(sum(0x80 >> i for i in range(8) if row[x + i] is None))
    header = struct.pack("<IiiHHIIiiII", 40, SIZE, 2 * SIZE, 1, 4, 0, len(colours) + len(mask), 0, 0, 16, 0)
    image = header + b"".join(bytes((b, g, r, 0)) for r, g, b in PALETTE) + colours + mask
    directory = struct.pack("<HHHBBBBHHII", 0, 1, 1, SIZE, SIZE, 16, 0, 1, 4, len(image), 22)
    return directory + image


def write_sheet(path, canvases):
    """All icons on button grey, eight to a row, at 1x and below that at 2x."""
    columns, pitch = 8, 40
    lines = (len(canvases) + columns - 1) // columns
    width, height = columns * pitch * 2, lines * pitch * 3
    pixels = [[(239, 239, 239)] * width for _ in range(height)]
    for number, canvas in enumerate(canvases):
        row, column = divmod(number, columns)
        for scale, top in ((1, 0), (2, lines * pitch)):
            for y in range(SIZE * scale):
                for x in range(SIZE * scale):
                    index = canvas.rows[y // scale][x // scale]
                    if index is not None:
                        pixels[top + (row * pitch + 4) * scale + y][(column * pitch + 4) * scale + x] = PALETTE[index]
    raw = b"".join(b"\0" + bytes(value for pixel in line for value in pixel) for line in pixels)

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
                     chunk(b"IDAT", zlib.compress(raw, 9)) + chunk(b"IEND", b""))


def main():
    here = pathlib.Path(__file__).resolve().parent
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("directory", nargs="?", type=pathlib.Path, default=here.parent / "resources" / "icons")
    parser.add_argument("--sheet", type=pathlib.Path, help="also write all icons into this PNG")
    arguments = parser.parse_args()
    canvases = []
    for draw in ICONS:
        canvas = Canvas()
        draw(canvas)
        (arguments.directory / f"{draw.__name__}.ico").write_bytes(ico_bytes(canvas))
        canvases.append(canvas)
    if arguments.sheet:
        write_sheet(arguments.sheet, canvases)


if __name__ == "__main__":
    main()
