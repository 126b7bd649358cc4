"""A baseline JPEG encoder: no subsampling, Huffman tables made for the picture."""
import heapq
import math
import struct

_ZIGZAG = sorted(range(64), key=lambda i: (i // 8 + i % 8, i // 8 if (i // 8 + i % 8) % 2 else i % 8))
_COSINE = [[math.cos((2 * x + 1) * u * math.pi / 16) * (math.sqrt(0.125) if u == 0 else 0.5) for x in range(8)]
           for u in range(8)]


def _quantizers(strength):
    """Coarser for higher frequencies; strength about 0.5 to 4."""
    return [max(1, min(255, round((3 + 2.2 * (i // 8 + i % 8)) * strength))) for i in range(64)]


def _transform(block):
    rows = [[sum(block[y * 8 + x] * _COSINE[u][x] for x in range(8)) for u in range(8)] for y in range(8)]
    return [sum(rows[y][u] * _COSINE[v][y] for y in range(8)) for v in range(8) for u in range(8)]


def _planes(picture):
    planes = [{}, {}, {}]
    for y in range((picture.height + 7) // 8 * 8):
        for x in range((picture.width + 7) // 8 * 8):
            r, g, b = picture.at(x, y)
            planes[0][x, y] = 0.299 * r + 0.587 * g + 0.114 * b - 128
            planes[1][x, y] = -0.168736 * r - 0.331264 * g + 0.5 * b
            planes[2][x, y] = 0.5 * r - 0.418688 * g - 0.081312 * b
    return planes


def _blocks(picture, quantizers):
    """Quantised blocks in zigzag order, as (component, coefficients)."""
    planes = _planes(picture)
    for top in range(0, picture.height, 8):
        for left in range(0, picture.width, 8):
            for component, plane in enumerate(planes):
                values = _transform([plane[left + x, top + y] for y in range(8) for x in range(8)])
                table = quantizers[1 if component else 0]
                yield component, [round(values[i] / table[i]) for i in _ZIGZAG]


def _magnitude(value):
    """Bit length of a value and the bits that are written for it."""
    size = abs(value).bit_length()
    return size, value if value >= 0 else value + (1 << size) - 1


def _symbols(blocks):
    """The stream as (table, symbol, extra bits, their number); table 0 and 1 DC, 2 and 3 AC."""
    last = [0, 0, 0]
    for component, block in blocks:
        chroma = 1 if component else 0
        size, bits = _magnitude(block[0] - last[component])
        last[component] = block[0]
        yield chroma, size, bits, size
        run = 0
        final = max((i for i in range(1, 64) if block[i]), default=0)
        for value in block[1:final + 1]:
            if value == 0:
                run += 1
                continue
            while run > 15:
                yield 2 + chroma, 0xF0, 0, 0
                run -= 16
            size, bits = _magnitude(value)
            yield 2 + chroma, run << 4 | size, bits, size
            run = 0
        if final < 63:
            yield 2 + chroma, 0, 0, 0


def _code_lengths(counts):
    """Huffman code lengths of at most 16; one code more, of ones only, stays unused as the format wants it."""
    heap = [(count, symbol, [symbol]) for symbol, count in counts.items()] + [(0, 256, [256])]
    heapq.heapify(heap)
    lengths = {symbol: 0 for _, symbol, _ in heap}
    while len(heap) > 1:
        a, b = heapq.heappop(heap), heapq.heappop(heap)
        for symbol in a[2] + b[2]:
            lengths[symbol] += 1
        heapq.heappush(heap, (a[0] + b[0], min(a[1], b[1]), a[2] + b[2]))
    if max(lengths.values()) > 16:
        return _code_lengths({symbol: count // 2 + 1 for symbol, count in counts.items()})
    longest = max(lengths.values())
    other = max((s for s in lengths if s != 256 and lengths[s] == longest))
    lengths[other], lengths[256] = lengths[256], lengths[other]
    assert lengths[256] == longest
    return lengths


def _codes(lengths):
    codes = {}
    code = 0
    size = 0
    for symbol in sorted(lengths, key=lambda s: (lengths[s], s)):
        code <<= lengths[symbol] - size
        size = lengths[symbol]
        codes[symbol] = (code, size)
        code += 1
    return codes


def _segment(marker, data):
    return struct.pack('>BBH', 0xFF, marker, len(data) + 2) + data


def _table_segment(table, lengths):
    symbols = sorted((s for s in lengths if s != 256), key=lambda s: (lengths[s], s))
    counts = bytes(sum(1 for s in symbols if lengths[s] == size) for size in range(1, 17))
    return _segment(0xC4, bytes([(table >> 1) << 4 | table & 1]) + counts + bytes(symbols))


def _scan(stream, codes):
    value, count, data = 0, 0, bytearray()
    for table, symbol, extra, extra_size in stream:
        code, size = codes[table][symbol]
        value = (value << size | code) << extra_size | extra
        count += size + extra_size
        while count >= 8:
            count -= 8
            byte = value >> count & 255
            data.append(byte)
            if byte == 255:
                data.append(0)
        value &= (1 << count) - 1
    if count:
        byte = (value << 8 - count | (1 << 8 - count) - 1) & 255
        data.append(byte)
        if byte == 255:
            data.append(0)
    return bytes(data)


def jpeg(picture, strength=0.8):
    quantizers = [_quantizers(strength), _quantizers(strength * 1.7)]
    stream = list(_symbols(_blocks(picture, quantizers)))
    counts = [{}, {}, {}, {}]
    for table, symbol, _, _ in stream:
        counts[table][symbol] = counts[table].get(symbol, 0) + 1
    lengths = [_code_lengths(c) for c in counts]
    data = b'\xFF\xD8' + _segment(0xE0, b'JFIF\0' + bytes([1, 1, 1, 0, 96, 0, 96, 0, 0]))
    for index, table in enumerate(quantizers):
        data += _segment(0xDB, bytes([index]) + bytes(table[i] for i in _ZIGZAG))
    components = b''.join(bytes([c + 1, 0x11, 1 if c else 0]) for c in range(3))
    data += _segment(0xC0, struct.pack('>BHHB', 8, picture.height, picture.width, 3) + components)
    for table in range(4):
        data += _table_segment(table, lengths[table])
    scan_header = bytes([3]) + b''.join(bytes([c + 1, 0x11 if c else 0]) for c in range(3)) + bytes([0, 63, 0])
    return data + _segment(0xDA, scan_header) + _scan(stream, [_codes(l) for l in lengths]) + b'\xFF\xD9'
