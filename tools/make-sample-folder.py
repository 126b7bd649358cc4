#!/usr/bin/env python3
"""Makes the sample folder that the workbench opens when it is given none.

  tools/make-sample-folder.py            writes every file again
  tools/make-sample-folder.py --dates    only sets the dates (a checkout does not keep them) and makes the empty folder
  tools/make-sample-folder.py --check    says what is missing, damaged or not as the program would make it
"""
import argparse
import calendar
import hashlib
import io
import os
import pathlib
import struct
import sys
import zipfile
import zlib

from sample_files import documents, models, pictures

SAMPLES = pathlib.Path(__file__).resolve().parent.parent / 'samples'
EMPTY_FOLDERS = ['Empty folder']
FIRST_DATE = (2024, 3, 4, 9, 30, 0)  # of the first file; each later one is some days and hours younger
SIZE_LIMIT = 600 * 1024


def all_files():
    files = {**models.files(), **pictures.files()}
    files.update(documents.files(files, FIRST_DATE))
    return dict(sorted(files.items()))


def date_of(name):
    """Seconds since 1970: spread over two years, always the same for a name."""
    number = zlib.crc32(name.encode('utf-8'))
    return calendar.timegm(FIRST_DATE + (0, 0, 0)) + number % 700 * 86400 + number // 700 % 36000


def set_dates(names):
    for name in names:
        os.utime(SAMPLES / name, (date_of(name), date_of(name)))
    folders = sorted({parent for name in names for parent in (SAMPLES / name).parents if SAMPLES in parent.parents},
                     key=lambda path: -len(path.parts))
    for folder in folders + [SAMPLES / name for name in EMPTY_FOLDERS]:
        name = folder.relative_to(SAMPLES).as_posix() + '/'
        os.utime(folder, (date_of(name), date_of(name)))


def existing_files():
    return sorted(path.relative_to(SAMPLES).as_posix() for path in SAMPLES.rglob('*') if path.is_file())


def make_empty_folders():
    for name in EMPTY_FOLDERS:
        (SAMPLES / name).mkdir(parents=True, exist_ok=True)


def write():
    files = all_files()
    make_empty_folders()
    for name in existing_files():
        if name not in files:
            (SAMPLES / name).unlink()
    for name, content in files.items():
        path = SAMPLES / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
    set_dates(files)
    print('%d files, %d KB' % (len(files), sum(map(len, files.values())) // 1024))


# ---- The check: reads the files back with code that shares nothing with the writers ----

def check_png(data):
    width, height, depth, kind = struct.unpack('>IIBB', data[16:26])
    at, pixels = 8, b''
    while at < len(data):
        size, name = struct.unpack('>I4s', data[at:at + 8])
        body = data[at + 8:at + 8 + size]
        assert zlib.crc32(name + body) == struct.unpack('>I', data[at + 8 + size:at + 12 + size])[0], 'checksum'
        pixels += body if name == b'IDAT' else b''
        at += size + 12
    assert len(zlib.decompress(pixels)) == height * (1 + width * {2: 3, 6: 4}[kind]), 'pixels'


def check_bmp(data):
    size, start, width, height = struct.unpack('<I4xIxxxxii', data[2:26])
    assert data[:2] == b'BM' and size == len(data) == start + (width * 3 + 3) // 4 * 4 * height, 'size'


def check_jpeg(data):
    assert data[:3] == b'\xFF\xD8\xFF' and data[-2:] == b'\xFF\xD9', 'marks'
    at, kinds = 2, []
    while data[at + 1] != 0xDA:
        kinds.append(data[at + 1])
        at += 2 + struct.unpack('>H', data[at + 2:at + 4])[0]
    assert kinds == [0xE0, 0xDB, 0xDB, 0xC0, 0xC4, 0xC4, 0xC4, 0xC4], kinds


def check_gif(data):
    assert data[:6] == b'GIF89a' and data[-1:] == b';', 'marks'
    at = 13 + 3 * 256 + 10 + 1
    while data[at]:
        at += data[at] + 1
    assert at == len(data) - 2, 'blocks'


def check_stl(data):
    if data.startswith(b'solid'):
        assert data.count(b'\nfacet') == data.count(b'endfacet') > 0 and data.count(b'vertex') == 3 * data.count(b'endfacet')
    else:
        assert len(data) == 84 + 50 * struct.unpack('<I', data[80:84])[0], 'size'


def check_obj(data):
    points = data.count(b'\nv ')
    numbers = [int(n) for line in data.decode('ascii').splitlines() if line.startswith('f ') for n in line.split()[1:]]
    assert numbers and min(numbers) == 1 and max(numbers) <= points, 'face numbers'


def check_3ds(data):
    def walk(start, end):
        while start < end:
            kind, size = struct.unpack('<HI', data[start:start + 6])
            assert 6 <= size <= end - start, 'chunk %04x' % kind
            kinds.append(kind)
            if kind in (0x4D4D, 0x3D3D, 0x4100):
                walk(start + 6, start + size)
            elif kind == 0x4000:
                walk(data.index(b'\0', start + 6) + 1, start + size)
            start += size

    kinds = []
    walk(0, len(data))
    assert kinds == [0x4D4D, 0x0002, 0x3D3D, 0x3D3E, 0xAFFF, 0x4000, 0x4100, 0x4110, 0x4120], kinds


def check_wav(data):
    assert data[:4] == b'RIFF' and struct.unpack('<I', data[4:8])[0] == len(data) - 8, 'size'


def check_ply(data):
    header, _, body = data.partition(b'end_header\n')
    count = {line.split()[1]: int(line.split()[2]) for line in header.splitlines() if line.startswith(b'element')}
    if b'format ascii' in header:
        assert len(body.splitlines()) == count[b'vertex'] + count[b'face'], 'lines'
        return
    at = 12 * count[b'vertex']
    for _ in range(count[b'face']):
        at += 1 + 4 * body[at]
    assert at == len(body), 'size'


def check_zip(data):
    with zipfile.ZipFile(io.BytesIO(data)) as zipped:
        assert zipped.testzip() is None, 'content'


CHECKS = {'.png': check_png, '.bmp': check_bmp, '.jpg': check_jpeg, '.gif': check_gif, '.stl': check_stl, '.obj': check_obj,
          '.3ds': check_3ds, '.wav': check_wav, '.ply': check_ply, '.zip': check_zip}


def problems():
    files = all_files()
    found = [name + ': missing' for name in files if not (SAMPLES / name).is_file()]
    found += [name + ': not one of the samples' for name in existing_files() if name not in files]
    for name, content in files.items():
        if not (SAMPLES / name).is_file():
            continue
        data = (SAMPLES / name).read_bytes()
        if hashlib.sha256(data).digest() != hashlib.sha256(content).digest():
            found.append(name + ': differs from what the program makes')
        check = CHECKS.get(os.path.splitext(name)[1])
        try:
            if check:
                check(data)
        except (AssertionError, ValueError, struct.error, zlib.error, IndexError, KeyError, zipfile.BadZipFile) as problem:
            found.append('%s: damaged (%s)' % (name, problem))
    total = sum(map(len, files.values()))
    if total > SIZE_LIMIT:
        found.append('together %d KB: more than %d KB' % (total // 1024, SIZE_LIMIT // 1024))
    return found


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    group = parser.add_mutually_exclusive_group()
    group.add_argument('--check', action='store_true')
    group.add_argument('--dates', action='store_true')
    arguments = parser.parse_args()
    if arguments.dates:
        make_empty_folders()
        set_dates(existing_files())
    elif arguments.check:
        found = problems()
        print('\n'.join(found) if found else 'the sample folder is as it should be')
        return 1 if found else 0
    else:
        write()
    return 0


if __name__ == '__main__':
    sys.exit(main())
