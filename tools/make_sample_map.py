#!/usr/bin/env python3
"""Makes samples/jacksboro_fault_dem.png from the elevation model that Debian's python-matplotlib-data carries.

Needs nothing but the standard library. Run it again only when the sample is to change: the picture is kept
in the repository, so that a build needs neither Python nor that package.
Usage: tools/make_sample_map.py [SOURCE.npz [TARGET.png]]
"""
import ast
import math
import pathlib
import struct
import sys
import zipfile
import zlib

SOURCE = "/usr/share/matplotlib/mpl-data/sample_data/jacksboro_fault_dem.npz"
TARGET = pathlib.Path(__file__).resolve().parent.parent / "samples" / "jacksboro_fault_dem.png"
EDGE = 321  # points a side: 320 cells, five chunks of 64


def read_array(archive, name):
    """One array of an .npz file: its shape and its values in row order."""
    raw = archive.read(name + ".npy")
    if raw[:8] != b"\x93NUMPY\x01\x00":
        raise ValueError(f"{name}: not an array of format version 1")
    (header_length,) = struct.unpack_from("<H", raw, 8)
    header = ast.literal_eval(raw[10:10 + header_length].decode("latin-1"))
    code = {"<i2": "h", "<f8": "d"}[header["descr"]]
    if header["fortran_order"]:
        raise ValueError(f"{name}: columns first")
    count = math.prod(header["shape"])
    return header["shape"], struct.unpack_from(f"<{count}{code}", raw, 10 + header_length)


def to_true_proportions(shape, values, column_width):
    """Rows in metres whose cells are as wide as high: columns are drawn together by linear interpolation."""
    rows, columns = shape
    width = int((columns - 1) * column_width) + 1
    result = []
    for row in range(rows):
        line = values[row * columns:(row + 1) * columns]
        out = []
        for x in range(width):
            place = min(x / column_width, columns - 1)
            left = min(int(place), columns - 2)
            out.append(round(line[left] + (line[left + 1] - line[left]) * (place - left)))
        result.append(out)
    return result


def middle_square(rows, edge):
    top = (len(rows) - edge) // 2
    left = (len(rows[0]) - edge) // 2
    return [row[left:left + edge] for row in rows[top:top + edge]]


def write_png(path, rows):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    edge = len(rows)
    # Filter 2 (up) on every row: neighbouring rows of a landscape are alike.
    above = bytes(edge * 2)
    lines = []
    for row in rows:
        line = struct.pack(f">{edge}H", *row)
        lines.append(b"\x02" + bytes((a - b) & 255 for a, b in zip(line, above)))
        above = line
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", edge, edge, 16, 0, 0, 0, 0))
                     + chunk(b"IDAT", zlib.compress(b"".join(lines), 9)) + chunk(b"IEND", b""))


def main():
    source = sys.argv[1] if len(sys.argv) > 1 else SOURCE
    target = pathlib.Path(sys.argv[2]) if len(sys.argv) > 2 else TARGET
    with zipfile.ZipFile(source) as archive:
        shape, elevation = read_array(archive, "elevation")
        _, (north,) = read_array(archive, "ymin")
        _, (south,) = read_array(archive, "ymax")
    # The model's cells are as many degrees wide as high, so on the ground they narrow with the latitude.
    column_width = math.cos(math.radians((north + south) / 2))
    rows = middle_square(to_true_proportions(shape, elevation, column_width), EDGE)
    target.parent.mkdir(parents=True, exist_ok=True)
    write_png(target, rows)
    low, high = min(map(min, rows)), max(map(max, rows))
    print(f"{target}: {EDGE} x {EDGE} points, {low} to {high} m")


if __name__ == "__main__":
    main()
