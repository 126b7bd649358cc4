#!/usr/bin/env python3
"""Makes the bitmaps and icons of the programs from their vector sources.

  tools/make-bitmaps.py                  makes all of them again
  tools/make-bitmaps.py --check          says which of them differ from their sources
  tools/make-bitmaps.py --sheet x.png    draws every picture, enlarged, on the grey of a toolbar, to look at

The results are committed: building needs neither this program nor what it uses (rsvg-convert; --sheet also ImageMagick's
convert). A strip's background is its mask colour; its pictures are drawn on the pixel grid, so no pixel is half mask.
"""
import argparse
import pathlib
import struct
import subprocess
import sys
import zlib

ROOT = pathlib.Path(__file__).resolve().parent.parent
TOOLBAR_MASK = (251, 195, 0)
LIGHT_GREY = (192, 192, 192)
# source, pictures, width and height of a picture, background
STRIPS = [
    ('src/res/ToolbarBitmaps1.svg', 38, 16, 15, TOOLBAR_MASK),
    ('src/res/ToolbarFavs.svg', 2, 16, 15, TOOLBAR_MASK),
    ('src/res/FolderBitmap.svg', 1, 16, 16, LIGHT_GREY),
    ('src/res/PanelBitmap.svg', 1, 16, 16, LIGHT_GREY),
]
# source, its drawing for 16 pixels
ICONS = [
    ('src/res/explorer.svg', 'src/res/explorer-16.svg'),
    ('workbench/app/res/workbench.svg', 'workbench/app/res/workbench-16.svg'),
]
# The toolbars' pictures for the help pages: the strip as PNG with a transparent background.
HELP_STRIP = ('src/res/ToolbarBitmaps1.svg', 608, 15, 'help/ui_file_explorer/toolbar.png')
ICON_SIZES = [16, 20, 24, 32, 48, 256]


class BadPicture(Exception):
    pass


def render(source, width, height):
    """The drawing as PNG."""
    return subprocess.run(['rsvg-convert', '-w', str(width), '-h', str(height), str(ROOT / source)],
                          check=True, stdout=subprocess.PIPE).stdout


def png_rows(png):
    """Rows of (red, green, blue, alpha) of an 8-bit PNG with alpha and without interlacing."""
    at, packed = 8, b''
    while at < len(png):
        size, kind = struct.unpack('>I4s', png[at:at + 8])
        data = png[at + 8:at + 8 + size]
        if kind == b'IHDR':
            width, height, depth, color, _, _, interlaced = struct.unpack('>IIBBBBB', data)
            if (depth, color, interlaced) != (8, 6, 0):
                raise BadPicture('not the kind of PNG that is expected')
        packed += data if kind == b'IDAT' else b''
        at += size + 12
    raw = zlib.decompress(packed)
    stride = width * 4
    above, rows = bytearray(stride), []
    for y in range(height):
        kind, line = raw[y * (stride + 1)], bytearray(raw[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for i in range(stride):
            left = line[i - 4] if i >= 4 else 0
            corner = above[i - 4] if i >= 4 else 0
            line[i] = (line[i] + predicted(kind, left, above[i], corner)) & 255
        rows.append([tuple(line[i:i + 4]) for i in range(0, stride, 4)])
        above = line
    return rows


def predicted(kind, left, above, corner):
    """The value that a PNG filter expects of a byte."""
    if kind == 4:
        estimate = left + above - corner
        return min((left, above, corner), key=lambda value: abs(estimate - value))
    return (0, left, above, (left + above) // 2)[kind]


def strip_rows(source, count, width, height, background):
    """The strip's pixels on its background."""
    rows = png_rows(render(source, count * width, height))
    for y, row in enumerate(rows):
        for x, (red, green, blue, alpha) in enumerate(row):
            if alpha not in (0, 255) or alpha == 255 and (red, green, blue) == background:
                raise BadPicture('%s: picture %d is half transparent, or has the mask colour, at %d, %d' %
                                 (source, x // width, x % width, y))
    return [[pixel[:3] if pixel[3] else background for pixel in row] for row in rows]


def bmp24(rows):
    width, height = len(rows[0]), len(rows)
    data = bytearray()
    for row in reversed(rows):
        line = b''.join(bytes(reversed(pixel)) for pixel in row)
        data += line + bytes(-len(line) % 4)
    header = struct.pack('<IiiHHIIiiII', 40, width, height, 1, 24, 0, len(data), 2835, 2835, 0, 0)
    return b'BM' + struct.pack('<IHHI', 54 + len(data), 0, 0, 54) + header + bytes(data)


def icon_bitmap(rows):
    """An icon's image: 32-bit pixels with alpha, then the one-bit mask of the transparent ones."""
    size = len(rows)
    pixels, mask = bytearray(), bytearray()
    for row in reversed(rows):
        for red, green, blue, alpha in row:
            pixels += bytes((blue, green, red, alpha))
        bits = ''.join('1' if pixel[3] == 0 else '0' for pixel in row)
        bits += '0' * (-len(bits) % 32)
        mask += int(bits, 2).to_bytes(len(bits) // 8, 'big')
    return struct.pack('<IiiHHIIiiII', 40, size, 2 * size, 1, 32, 0, len(pixels) + len(mask), 0, 0, 0, 0) + pixels + mask


def icon(source, small_source):
    images = []
    for size in ICON_SIZES:
        png = render(small_source if size == 16 else source, size, size)
        images.append(png if size == 256 else icon_bitmap(png_rows(png)))
    directory = struct.pack('<HHH', 0, 1, len(images))
    at = 6 + 16 * len(images)
    for size, image in zip(ICON_SIZES, images):
        directory += struct.pack('<BBBBHHII', size % 256, size % 256, 0, 0, 1, 32, len(image), at)
        at += len(image)
    return directory + b''.join(images)


def products():
    """Path -> content of everything that is made."""
    made = {source.replace('.svg', '.bmp'): bmp24(strip_rows(source, *shape)) for source, *shape in STRIPS}
    made.update({source.replace('.svg', '.ico'): icon(source, small) for source, small in ICONS})
    source, width, height, target = HELP_STRIP
    made[target] = render(source, width, height)
    return made


def differing():
    return [path for path, content in products().items()
            if not (ROOT / path).is_file() or (ROOT / path).read_bytes() != content]


# ---- The sheet ----

def sheet_pictures():
    """Rows of (red, green, blue, alpha) of each picture, the icons' sizes up to 48 too."""
    for source, count, width, height, _ in STRIPS:
        rows = png_rows(render(source, count * width, height))
        for i in range(count):
            yield [row[i * width:(i + 1) * width] for row in rows]
    for source, small in ICONS:
        for size in ICON_SIZES[:-1]:
            yield png_rows(render(small if size == 16 else source, size, size))


def write_sheet(target, scale=6, columns=10, cell=20, ground=(240, 240, 240)):
    pictures = list(sheet_pictures())
    places, column, line, line_height = [], 0, 0, cell
    for rows in pictures:
        cells = -(-(len(rows[0]) + 4) // cell)
        if column + cells > columns:
            column, line, line_height = 0, line + line_height, cell
        places.append((column * cell + 2, line + 2))
        line_height = max(line_height, len(rows) + 4)
        column += cells
    width, height = columns * cell, line + line_height
    canvas = [[ground] * width for _ in range(height)]
    for (left, top), rows in zip(places, pictures):
        for y, row in enumerate(rows):
            for x, pixel in enumerate(row):
                canvas[top + y][left + x] = tuple(
                    (part * pixel[3] + below * (255 - pixel[3])) // 255 for part, below in zip(pixel, ground))
    ppm = b'P6 %d %d 255\n' % (width, height) + b''.join(bytes(pixel) for row in canvas for pixel in row)
    subprocess.run(['convert', 'ppm:-', '-filter', 'point', '-resize', '%d%%' % (scale * 100), target], input=ppm,
                   check=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    group = parser.add_mutually_exclusive_group()
    group.add_argument('--check', action='store_true')
    group.add_argument('--sheet', metavar='PNG')
    arguments = parser.parse_args()
    try:
        if arguments.sheet:
            write_sheet(arguments.sheet)
        elif arguments.check:
            found = differing()
            print('\n'.join(path + ': differs from its source' for path in found) or 'all bitmaps are up to date')
            return 1 if found else 0
        else:
            for path, content in products().items():
                (ROOT / path).write_bytes(content)
                print('%s: %d bytes' % (path, len(content)))
    except BadPicture as problem:
        print(problem, file=sys.stderr)
        return 1
    return 0


if __name__ == '__main__':
    sys.exit(main())
