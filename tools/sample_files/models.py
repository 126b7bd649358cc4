"""The sample models and their file formats. A mesh is a Mesh: points (x, y, z; y is up) and faces of point numbers."""
import base64
import json
import math
import struct


class Mesh:
    def __init__(self, points, faces):
        self.points = points
        self.faces = faces

    def triangles(self):
        return [(f[0], f[i], f[i + 1]) for f in self.faces for i in range(1, len(f) - 1)]

    def moved(self, dx, dy, dz):
        return Mesh([(x + dx, y + dy, z + dz) for x, y, z in self.points], self.faces)


def joined(meshes):
    points, faces = [], []
    for mesh in meshes:
        faces += [tuple(i + len(points) for i in face) for face in mesh.faces]
        points += mesh.points
    return Mesh(points, faces)


# ---- Shapes ----

def box(width, height, depth):
    w, d = width / 2, depth / 2
    points = [(x, y, z) for y in (0, height) for z in (-d, d) for x in (-w, w)]
    return Mesh(points, [(0, 1, 3, 2), (4, 6, 7, 5), (0, 4, 5, 1), (2, 3, 7, 6), (0, 2, 6, 4), (1, 5, 7, 3)])


def grid(rows, columns, point_at, wrap_rows, wrap_columns):
    """Faces over a grid of points; the last row or column joins the first where it wraps."""
    points = [point_at(r, c) for r in range(rows) for c in range(columns)]
    number = lambda r, c: (r % rows) * columns + c % columns
    faces = [(number(r, c), number(r, c + 1), number(r + 1, c + 1), number(r + 1, c))
             for r in range(rows if wrap_rows else rows - 1)
             for c in range(columns if wrap_columns else columns - 1)]
    return Mesh(points, faces)


def torus(rows, columns, radius, thickness):
    def point(r, c):
        around, tube = math.tau * r / rows, math.tau * c / columns
        reach = radius + thickness * math.cos(tube)
        return reach * math.cos(around), thickness * math.sin(tube), reach * math.sin(around)

    return grid(rows, columns, point, True, True)


def turned(profile, columns):
    """A solid of revolution: profile is a list of (radius, height)."""
    def point(r, c):
        angle = math.tau * c / columns
        return profile[r][0] * math.cos(angle), profile[r][1], -profile[r][0] * math.sin(angle)

    return grid(len(profile), columns, point, False, True)


def pawn():
    ball = [(0.34 * math.sin(a), 1.72 - 0.34 * math.cos(a)) for a in (math.pi * (0.22 + 0.78 * i / 9) for i in range(10))]
    body = [(0, 0), (0.62, 0), (0.64, 0.12), (0.52, 0.20), (0.50, 0.30), (0.36, 0.42), (0.26, 0.70), (0.21, 1.08),
            (0.36, 1.20), (0.36, 1.28), (0.22, 1.36)]
    return turned(body + ball, 28)


def vase():
    outer = [(0.32 + 0.24 * math.sin(0.4 + h * 2.6) * (1.1 - h * 0.25), h * 1.6) for h in (i / 16 for i in range(17))]
    inner = [(radius - 0.04, height) for radius, height in reversed(outer[1:])]
    return turned([(0, 0)] + outer + inner + [(0, 0.08)], 32)


def spring(turns, steps, columns):
    def point(r, c):
        along, tube = r / steps, math.tau * c / columns
        angle = math.tau * turns * along
        reach = 1 + 0.16 * math.cos(tube)
        return reach * math.cos(angle), 2.2 * along + 0.16 * math.sin(tube), reach * math.sin(angle)

    return grid(steps + 1, columns, point, False, True)


def terrain(size):
    def point(r, c):
        x, z = 8 * c / (size - 1) - 4, 8 * r / (size - 1) - 4
        distance = math.hypot(x, z)
        return x, 0.9 * math.cos(2.2 * distance) * math.exp(-0.35 * distance) + 0.12 * math.sin(1.7 * x + z), z

    return grid(size, size, lambda r, c: point(r, size - 1 - c), False, False)


def gear(teeth, thickness):
    outline = []
    for tooth in range(teeth):
        for share, radius in ((0.0, 1.0), (0.12, 1.24), (0.38, 1.24), (0.5, 1.0)):
            angle = math.tau * (tooth + share) / teeth
            outline.append((radius * math.cos(angle), radius * math.sin(angle), 0.42 * math.cos(angle), 0.42 * math.sin(angle)))
    points = [(p[k], height, p[k + 1]) for height in (0, thickness) for k in (0, 2) for p in outline]
    count = len(outline)
    faces = []
    for i in range(count):
        j = (i + 1) % count
        low, low_hole, high, high_hole = ((n * count + i, n * count + j) for n in range(4))
        faces += [(low[0], low[1], low_hole[1], low_hole[0]), (high[0], high_hole[0], high_hole[1], high[1]),
                  (low[0], high[0], high[1], low[1]), (low_hole[0], low_hole[1], high_hole[1], high_hole[0])]
    return Mesh(points, faces)


def ball(rounds):
    """An icosahedron, its triangles split `rounds` times and pushed out to the sphere."""
    g = (1 + math.sqrt(5)) / 2
    points = [(-1, g, 0), (1, g, 0), (-1, -g, 0), (1, -g, 0), (0, -1, g), (0, 1, g), (0, -1, -g), (0, 1, -g), (g, 0, -1),
              (g, 0, 1), (-g, 0, -1), (-g, 0, 1)]
    faces = [(0, 11, 5), (0, 5, 1), (0, 1, 7), (0, 7, 10), (0, 10, 11), (1, 5, 9), (5, 11, 4), (11, 10, 2), (10, 7, 6),
             (7, 1, 8), (3, 9, 4), (3, 4, 2), (3, 2, 6), (3, 6, 8), (3, 8, 9), (4, 9, 5), (2, 4, 11), (6, 2, 10),
             (8, 6, 7), (9, 8, 1)]
    for _ in range(rounds):
        middles, split = {}, []
        for a, b, c in faces:
            new = []
            for i, j in ((a, b), (b, c), (c, a)):
                key = (min(i, j), max(i, j))
                if key not in middles:
                    middles[key] = len(points)
                    points.append(tuple((p + q) / 2 for p, q in zip(points[i], points[j])))
                new.append(middles[key])
            ab, bc, ca = new
            split += [(a, ab, ca), (b, bc, ab), (c, ca, bc), (ab, bc, ca)]
        faces = split
    return Mesh([tuple(c / math.sqrt(sum(d * d for d in p)) for c in p) for p in points], faces)


def pyramid():
    return Mesh([(-1, 0, -1), (1, 0, -1), (1, 0, 1), (-1, 0, 1), (0, 1.6, 0)],
                [(0, 1, 2, 3), (0, 4, 1), (1, 4, 2), (2, 4, 3), (3, 4, 0)])


def house(width, height, depth):
    w, d, top = width / 2 + 0.1, depth / 2 + 0.1, height + width * 0.55
    roof = Mesh([(-w, height, -d), (w, height, -d), (w, height, d), (-w, height, d), (0, top, -d), (0, top, d)],
                [(0, 1, 2, 3), (0, 3, 5, 4), (1, 4, 5, 2), (0, 4, 1), (3, 2, 5)])
    return joined([box(width, height, depth), roof])


def village():
    places = [(1.6, 1.0, 1.4, -3, 0), (1.2, 1.6, 1.2, -0.6, 1.2), (2.2, 1.1, 1.5, 2.2, -0.4), (1.3, 0.9, 1.3, 0.3, -2.2)]
    tower = joined([box(0.8, 3.0, 0.8), pyramid().moved(0, 0, 0)])
    tower.points[8:] = [(x * 0.5, 3.0 + y * 0.7, z * 0.5) for x, y, z in tower.points[8:]]
    return joined([house(w, h, d).moved(x, 0, z) for w, h, d, x, z in places] + [tower.moved(-1.6, 0, -1.4)])


# ---- Formats ----

def obj(mesh, name, material=None):
    lines = ['# ' + name]
    if material:
        lines += ['mtllib ' + material[0], 'usemtl ' + material[1]]
    lines.append('o ' + name.replace(' ', '_'))
    lines += ['v %.4f %.4f %.4f' % p for p in mesh.points]
    lines += ['f ' + ' '.join(str(i + 1) for i in face) for face in mesh.faces]
    return ('\n'.join(lines) + '\n').encode('ascii')


def _normal(a, b, c):
    u, v = [tuple(q - p for p, q in zip(a, other)) for other in (b, c)]
    normal = (u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0])
    length = math.sqrt(sum(n * n for n in normal)) or 1.0
    return tuple(n / length for n in normal)


def stl_text(mesh, name):
    lines = ['solid ' + name]
    for face in mesh.triangles():
        corners = [mesh.points[i] for i in face]
        lines.append('facet normal %.4f %.4f %.4f' % _normal(*corners))
        lines += [' outer loop'] + ['  vertex %.4f %.4f %.4f' % p for p in corners] + [' endloop', 'endfacet']
    return ('\n'.join(lines + ['endsolid ' + name]) + '\n').encode('ascii')


def stl_binary(mesh, name):
    triangles = mesh.triangles()
    data = bytearray(name.encode('ascii').ljust(80) + struct.pack('<I', len(triangles)))
    for face in triangles:
        corners = [mesh.points[i] for i in face]
        data += struct.pack('<12fH', *_normal(*corners), *corners[0], *corners[1], *corners[2], 0)
    return bytes(data)


def _ply_header(mesh, form, name):
    return ('ply\nformat %s 1.0\ncomment %s\nelement vertex %d\nproperty float x\nproperty float y\nproperty float z\n'
            'element face %d\nproperty list uchar int vertex_indices\nend_header\n' %
            (form, name, len(mesh.points), len(mesh.faces))).encode('ascii')


def ply_text(mesh, name):
    lines = ['%.4f %.4f %.4f' % p for p in mesh.points]
    lines += ['%d %s' % (len(face), ' '.join(map(str, face))) for face in mesh.faces]
    return _ply_header(mesh, 'ascii', name) + ('\n'.join(lines) + '\n').encode('ascii')


def ply_binary(mesh, name):
    data = b''.join(struct.pack('<3f', *p) for p in mesh.points)
    data += b''.join(struct.pack('<B%di' % len(face), len(face), *face) for face in mesh.faces)
    return _ply_header(mesh, 'binary_little_endian', name) + data


def _chunk(kind, data):
    return struct.pack('<HI', kind, len(data) + 6) + data


def three_ds(mesh, name, color):
    """One object with one material; the format's z is up."""
    triangles = mesh.triangles()
    material = b'surface\0'
    points = struct.pack('<H', len(mesh.points)) + b''.join(struct.pack('<3f', x, -z, y) for x, y, z in mesh.points)
    used = _chunk(0x4130, material + struct.pack('<H', len(triangles)) +
                  b''.join(struct.pack('<H', i) for i in range(len(triangles))))
    faces = (struct.pack('<H', len(triangles)) + b''.join(struct.pack('<4H', *face, 7) for face in triangles) + used)
    thing = _chunk(0x4100, _chunk(0x4110, points) + _chunk(0x4120, faces))
    diffuse = _chunk(0xA020, _chunk(0x0011, bytes(color)))
    editor = (_chunk(0x3D3E, struct.pack('<I', 3)) + _chunk(0xAFFF, _chunk(0xA000, material) + diffuse) +
              _chunk(0x4000, name.encode('ascii') + b'\0' + thing))
    return _chunk(0x4D4D, _chunk(0x0002, struct.pack('<I', 3)) + _chunk(0x3D3D, editor))


def gltf(mesh, name, color):
    triangles = mesh.triangles()
    points = b''.join(struct.pack('<3f', *p) for p in mesh.points)
    indices = b''.join(struct.pack('<3H', *face) for face in triangles)
    buffer = points + indices
    low, high = ([round(pick(p[k] for p in mesh.points), 6) for k in range(3)] for pick in (min, max))
    scene = {
        'asset': {'version': '2.0', 'generator': 'make-sample-folder'},
        'scene': 0,
        'scenes': [{'nodes': [0]}],
        'nodes': [{'mesh': 0, 'name': name}],
        'meshes': [{'primitives': [{'attributes': {'POSITION': 0}, 'indices': 1, 'material': 0}]}],
        'materials': [{'pbrMetallicRoughness': {'baseColorFactor': color + [1.0], 'metallicFactor': 0.0}}],
        'accessors': [
            {'bufferView': 0, 'componentType': 5126, 'count': len(mesh.points), 'type': 'VEC3', 'min': low, 'max': high},
            {'bufferView': 1, 'componentType': 5123, 'count': 3 * len(triangles), 'type': 'SCALAR'}],
        'bufferViews': [{'buffer': 0, 'byteOffset': 0, 'byteLength': len(points), 'target': 34962},
                        {'buffer': 0, 'byteOffset': len(points), 'byteLength': len(indices), 'target': 34963}],
        'buffers': [{'byteLength': len(buffer),
                     'uri': 'data:application/octet-stream;base64,' + base64.b64encode(buffer).decode('ascii')}],
    }
    return (json.dumps(scene, indent=1) + '\n').encode('ascii')


MATERIAL = b'''# Materials of the cube
newmtl painted
Kd 0.29 0.53 0.81
Ks 0.30 0.30 0.30
Ns 40
'''


def files():
    """Path in the sample folder -> content."""
    cube = box(2, 2, 2)
    return {
        'Models/Cube.obj': obj(cube, 'Cube', ('Cube.mtl', 'painted')),
        'Models/Cube.mtl': MATERIAL,
        'Models/Torus.obj': obj(torus(32, 16, 1.0, 0.36), 'Torus'),
        'Models/Spring with eight turns.obj': obj(spring(8, 96, 8), 'Spring'),
        'Models/Vase.ply': ply_text(vase(), 'Vase'),
        'Chess pawn.ply': ply_binary(pawn(), 'Chess pawn'),
        'Models/Ball.stl': stl_binary(ball(3), 'Ball'),
        'Models/Gear.stl': stl_text(gear(12, 0.4), 'gear'),
        'Pyramid.3ds': three_ds(pyramid(), 'Pyramid', (214, 168, 92)),
        'Models/Ring.3ds': three_ds(torus(36, 12, 1.0, 0.2), 'Ring', (240, 200, 80)),
        'Models/W\u00fcrfel \u2013 gro\u00df.obj': obj(box(4, 4, 4), 'Large cube'),
        'Models/\u7acb\u65b9\u4f53.obj': obj(box(1, 1, 1), 'Small cube'),
        'My first village.obj': obj(village(), 'Village'),
        'Scenes/Ripples.stl': stl_binary(terrain(21), 'Ripples'),
        'Scenes/Courtyard.gltf': gltf(village(), 'Courtyard', [0.78, 0.66, 0.52]),
    }
