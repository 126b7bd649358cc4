"""The sample texts, sounds and archives."""
import io
import json
import math
import struct
import zipfile

READ_ME = '''Sample files
============

Every file in this folder was made by tools/make-sample-folder.py: models, pictures,
textures, texts, a sound and two archives. Double-click one to load it, or open an
archive as if it were a folder.

  Models     meshes in the formats OBJ, STL, PLY and 3DS
  Scenes     larger meshes and a glTF scene
  Pictures   PNG, JPEG, BMP, GIF, TGA, PPM and SVG
  Textures   patterns, most of which can be tiled
  Documents  notes, a table and a web page
'''

NOTES = '''# Modelling notes

- **Torus.obj** has 32 by 16 faces, all of them four-sided.
- **Ball.stl** is an icosahedron, split three times.
- The *gear* has twelve teeth; the pitch circle has the radius 1.

| Model | Format | Up |
|-------|--------|----|
| Pyramid | 3DS | z |
| Vase | PLY | y |
'''

PAGE = '''<!DOCTYPE html>
<html lang="en">
<head><meta charset="utf-8"><title>Sample page</title>
<style>body { font-family: sans-serif; margin: 2em; max-width: 40em } img { border: 1px solid #999 }</style></head>
<body>
<h1>Glass marbles</h1>
<p><img src="../Pictures/Glass marbles.png" alt="Four spheres on a chequered floor" width="360" height="240"></p>
<p>Four spheres, one light, two reflections.</p>
</body>
</html>
'''

PARTS = [('Part', 'Material', 'Pieces', 'Weight in g'), ('Gear', 'Steel', 4, 182.5), ('Axle', 'Steel', 2, 96.0),
         ('Spring', 'Spring steel', 8, 12.4), ('Cover', 'Aluminium', 1, 240.0), ('Screw M4', 'Brass', 24, 2.1),
         ('Washer', 'Brass', 24, 0.4)]

SCENE_SETTINGS = {
    'camera': {'position': [0.25, 1.25, -1.2], 'fieldOfView': 60},
    'light': {'direction': [-1.6, 2.6, -2.15], 'color': [1.0, 0.97, 0.86]},
    'picture': {'width': 360, 'height': 240, 'samples': 9},
}

POEM = '''Das große Maß

Äpfel, Öl und Übermut,
süße Grüße tun hier gut.
'''

MEMO = '''Η λίστα μου

Αυτό το όνομα δεν γράφεται σε λατινική κωδικοσελίδα.
'''

CHORD = [(261.63, 0.0), (329.63, 0.12), (392.00, 0.24), (523.25, 0.36)]  # hertz, start in seconds


def chime():
    """A broken chord that dies away: 11025 samples a second, 16 bits, one channel."""
    rate, seconds = 11025, 1.6
    samples = []
    for i in range(int(rate * seconds)):
        t = i / rate
        value = sum(math.sin(math.tau * f * (t - start)) * math.exp(-3.2 * (t - start)) * min(1.0, (t - start) * 200)
                    for f, start in CHORD if t >= start)
        samples.append(int(max(-1.0, min(1.0, value * 0.28)) * 32767))
    data = struct.pack('<%dh' % len(samples), *samples)
    form = struct.pack('<HHIIHH', 1, 1, rate, rate * 2, 2, 16)
    return (b'RIFF' + struct.pack('<I', 36 + len(data)) + b'WAVEfmt ' + struct.pack('<I', 16) + form + b'data' +
            struct.pack('<I', len(data)) + data)


def archive(members, when):
    """members: name -> content, a name that ends in "/" is a folder; when: (year, month, day, hour, minute, second)."""
    target = io.BytesIO()
    with zipfile.ZipFile(target, 'w') as zipped:
        for name, content in members.items():
            entry = zipfile.ZipInfo(name, when)
            entry.create_system = 0
            entry.external_attr = 0x10 if name.endswith('/') else 0x20
            entry.compress_type = zipfile.ZIP_STORED if name.endswith('/') else zipfile.ZIP_DEFLATED
            zipped.writestr(entry, content)
    return target.getvalue()


def files(others, when):
    """Path in the sample folder -> content; others are the files that the archives are filled from."""
    table = '\r\n'.join(','.join(map(str, row)) for row in PARTS) + '\r\n'
    tabbed = '\r\n'.join('\t'.join(map(str, row)) for row in PARTS) + '\r\n'
    toys = {
        'Read me.txt': b'A pyramid, a cube and what they are painted with.\r\n',
        'Models/': b'',
        'Models/Pyramid.3ds': others['Pyramid.3ds'],
        'Models/Cube.obj': others['Models/Cube.obj'],
        'Models/Cube.mtl': others['Models/Cube.mtl'],
        'Models/Textures/': b'',
        'Models/Textures/Checkerboard.png': others['Textures/Checkerboard.png'],
        'Models/Textures/Wood.jpg': others['Textures/Wood.jpg'],
    }
    return {
        'Read me.txt': READ_ME.encode().replace(b'\n', b'\r\n'),
        'Documents/Modelling notes.md': NOTES.encode(),
        'Parts list.csv': table.encode(),
        'Documents/Parts list.tsv': tabbed.encode(),
        'Documents/Scene settings.json': (json.dumps(SCENE_SETTINGS, indent=2) + '\n').encode(),
        'Documents/Sample page.html': PAGE.encode(),
        'Gr\u00fc\u00dfe.txt': POEM.encode('utf-8-sig').replace(b'\n', b'\r\n'),
        '\u0397 \u03bb\u03af\u03c3\u03c4\u03b1 \u03bc\u03bf\u03c5.txt': MEMO.encode('utf-8-sig').replace(b'\n', b'\r\n'),
        'Documents/Empty file.txt': b'',
        'Documents/File without extension': b'A file whose type only its content tells.\n',
        'Chime.wav': chime(),
        'Toy box.zip': archive(toys, when),
        'Textures/Patterns.zip': archive(
            {name: others['Textures/' + name] for name in ('Checkerboard.png', 'Marble.png')}, when),
    }
