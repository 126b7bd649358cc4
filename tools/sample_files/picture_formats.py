"""Writers of picture files. A picture is a Picture: width, height and rows of (red, green, blue) bytes."""
import struct
import zlib


class Picture:
    def __init__(self, width, height, color_at):
        """color_at(x, y) gives red, green, blue (0.0 to 1.0) for a pixel."""
        self.width = width
        self.height = height
        self.pixels = [
            tuple(max(0, min(255, int(part * 255 + 0.5))) for part in color_at(x, y))
            for y in range(height)
            for x in range(width)
        ]

    def at(self, x, y):
        return self.pixels[min(y, self.height - 1) * self.width + min(x, self.width - 1)]

    def rows(self):
        return [self.pixels[y * self.width:(y + 1) * self.width] for y in range(self.height)]


def _png_chunk(kind, data):
    return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(kind + data))


def png(picture, alpha_at=None):
    """alpha_at(x, y) gives the opacity (0.0 to 1.0); without it the picture is opaque."""
    raw = bytearray()
    previous = None
    for y, row in enumerate(picture.rows()):
        line = bytearray()
        for x, pixel in enumerate(row):
            line += bytes(pixel)
            if alpha_at:
                line.append(int(max(0.0, min(1.0, alpha_at(x, y))) * 255 + 0.5))
        size = 4 if alpha_at else 3
        left = bytes(size) + bytes(line[:-size])
        above = previous or bytes(len(line))
        # Of the filters "left" and "above", the one with the smaller differences.
        by_left = bytes((a - b) & 255 for a, b in zip(line, left))
        by_above = bytes((a - b) & 255 for a, b in zip(line, above))
        cost = lambda data: sum(min(b, 256 - b) for b in data)
        raw += b'\x01' + by_left if cost(by_left) <= cost(by_above) else b'\x02' + by_above
        previous = bytes(line)
    header = struct.pack('>IIBBBBB', picture.width, picture.height, 8, 6 if alpha_at else 2, 0, 0, 0)
    return (b'\x89PNG\r\n\x1a\n' + _png_chunk(b'IHDR', header) + _png_chunk(b'IDAT', zlib.compress(bytes(raw), 9)) +
            _png_chunk(b'IEND', b''))


def bmp(picture):
    lines = bytearray()
    for row in reversed(picture.rows()):
        line = b''.join(bytes(reversed(pixel)) for pixel in row)
        lines += line + bytes(-len(line) % 4)
    header = struct.pack('<IiiHHIIiiII', 40, picture.width, picture.height, 1, 24, 0, len(lines), 2835, 2835, 0, 0)
    return b'BM' + struct.pack('<IHHI', 54 + len(lines), 0, 0, 54) + header + lines


def tga(picture):
    """Run-length coded, 24 bits, first row at the top."""
    data = bytearray(struct.pack('<BBBHHBHHHHBB', 0, 0, 10, 0, 0, 0, 0, 0, picture.width, picture.height, 24, 0x20))
    for row in picture.rows():
        x = 0
        while x < len(row):
            run = 1
            while x + run < len(row) and run < 128 and row[x + run] == row[x]:
                run += 1
            if run > 1:
                data += bytes([0x80 | (run - 1)]) + bytes(reversed(row[x]))
                x += run
                continue
            plain = 1
            while x + plain < len(row) and plain < 128 and row[x + plain] != row[x + plain - 1]:
                plain += 1
            data.append(plain - 1)
            for pixel in row[x:x + plain]:
                data += bytes(reversed(pixel))
            x += plain
    return bytes(data) + bytes(8) + b'TRUEVISION-XFILE.\x00'


def ppm(picture):
    return b'P6\n%d %d\n255\n' % (picture.width, picture.height) + b''.join(bytes(p) for p in picture.pixels)


class _Bits:
    """Bits into bytes, the lowest bit first."""

    def __init__(self):
        self.data = bytearray()
        self.value = 0
        self.count = 0

    def put(self, code, size):
        self.value |= code << self.count
        self.count += size
        while self.count >= 8:
            self.data.append(self.value & 255)
            self.value >>= 8
            self.count -= 8

    def finish(self):
        if self.count:
            self.data.append(self.value & 255)
        return bytes(self.data)


def _lzw(indices):
    clear, end = 256, 257
    bits = _Bits()
    table = {(i,): i for i in range(256)}
    size = 9
    bits.put(clear, size)
    prefix = ()
    for index in indices:
        longer = prefix + (index,)
        if longer in table:
            prefix = longer
            continue
        bits.put(table[prefix], size)
        table[longer] = len(table) + 2
        if len(table) + 2 > 1 << size and size < 12:
            size += 1
        if len(table) + 2 >= 4096:
            bits.put(clear, size)
            table = {(i,): i for i in range(256)}
            size = 9
        prefix = (index,)
    bits.put(table[prefix], size)
    bits.put(end, size)
    return bits.finish()


def gif(width, height, palette, index_at):
    """palette: 256 colours as bytes; index_at(x, y) gives a palette index."""
    data = bytearray(b'GIF89a' + struct.pack('<HHBBB', width, height, 0xF7, 0, 0))
    for color in palette:
        data += bytes(color)
    data += b',' + struct.pack('<HHHHB', 0, 0, width, height, 0) + b'\x08'
    coded = _lzw([index_at(x, y) for y in range(height) for x in range(width)])
    for start in range(0, len(coded), 255):
        block = coded[start:start + 255]
        data += bytes([len(block)]) + block
    return bytes(data) + b'\x00;'
