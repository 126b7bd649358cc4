"""The sample pictures: what is painted. Colours are red, green, blue from 0.0 to 1.0."""
import colorsys
import math
import random

from .jpeg import jpeg
from .picture_formats import Picture, bmp, gif, png, ppm, tga


def mix(a, b, t):
    t = max(0.0, min(1.0, t))
    return tuple(x + (y - x) * t for x, y in zip(a, b))


def smooth(t):
    t = max(0.0, min(1.0, t))
    return t * t * (3 - 2 * t)


def softened(color_at, samples=2):
    """Each pixel as the mean of samples by samples points: edges without steps."""

    def color(x, y):
        points = [color_at(x + (i + 0.5) / samples, y + (j + 0.5) / samples)
                  for j in range(samples) for i in range(samples)]
        return tuple(sum(p[k] for p in points) / len(points) for k in range(3))

    return color


class Noise:
    """Smooth noise between 0 and 1; repeats after `period` in both directions."""

    def __init__(self, seed, period=256):
        numbers = random.Random(seed)
        self.period = period
        self.grid = [[numbers.random() for _ in range(period)] for _ in range(period)]

    def at(self, x, y):
        left, top = math.floor(x), math.floor(y)
        fx, fy = smooth(x - left), smooth(y - top)
        value = lambda i, j: self.grid[(top + j) % self.period][(left + i) % self.period]
        upper = value(0, 0) + (value(1, 0) - value(0, 0)) * fx
        lower = value(0, 1) + (value(1, 1) - value(0, 1)) * fx
        return upper + (lower - upper) * fy

    def cloudy(self, x, y, octaves=4):
        total = weight = 0.0
        for octave in range(octaves):
            total += self.at(x * 2**octave, y * 2**octave) / 2**octave
            weight += 1 / 2**octave
        return total / weight


# ---- The rendered spheres ----

SPHERES = [  # centre, radius, colour, mirror
    ((-1.25, 0.95, 4.6), 0.95, (0.86, 0.20, 0.16), 0.22),
    ((0.75, 0.70, 3.7), 0.70, (0.16, 0.42, 0.86), 0.30),
    ((1.95, 1.15, 5.6), 1.15, (0.95, 0.72, 0.18), 0.18),
    ((-0.25, 0.34, 2.9), 0.34, (0.22, 0.66, 0.34), 0.20),
]
LIGHT = tuple(c / math.sqrt(14.0) for c in (-1.6, 2.6, -2.15))


def dot(a, b):
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]


def along(origin, direction, distance):
    return tuple(o + d * distance for o, d in zip(origin, direction))


def nearest_sphere(origin, direction):
    best = None
    for sphere in SPHERES:
        to_center = tuple(c - o for c, o in zip(sphere[0], origin))
        middle = dot(to_center, direction)
        square = sphere[1]**2 - dot(to_center, to_center) + middle * middle
        if square <= 0:
            continue
        distance = middle - math.sqrt(square)
        if distance > 1e-4 and (best is None or distance < best[0]):
            best = (distance, sphere)
    return best


def sky(direction):
    color = mix((0.93, 0.95, 0.98), (0.33, 0.55, 0.86), direction[1] * 1.6)
    glow = max(0.0, dot(direction, LIGHT))**24
    return mix(color, (1.0, 0.97, 0.86), glow)


def floor(point, distance):
    tile = (math.floor(point[0] * 1.1) + math.floor(point[2] * 1.1)) % 2
    color = (0.90, 0.89, 0.86) if tile else (0.34, 0.37, 0.42)
    shade = 0.42 if nearest_sphere(along(point, LIGHT, 1e-3), LIGHT) else 1.0
    return mix(tuple(c * shade for c in color), (0.90, 0.93, 0.97), 1 - math.exp(-distance * 0.045))


def trace(origin, direction, depth=0):
    hit = nearest_sphere(origin, direction)
    to_floor = -origin[1] / direction[1] if direction[1] < -1e-6 else math.inf
    if hit is None or to_floor < hit[0]:
        return sky(direction) if to_floor == math.inf else floor(along(origin, direction, to_floor), to_floor)
    distance, (center, radius, color, mirror) = hit
    point = along(origin, direction, distance)
    normal = tuple((p - c) / radius for p, c in zip(point, center))
    lit = max(0.0, dot(normal, LIGHT))
    if nearest_sphere(along(point, normal, 1e-3), LIGHT):
        lit *= 0.25
    reflected = along(direction, normal, -2 * dot(direction, normal))
    shine = max(0.0, dot(reflected, LIGHT))**60 if lit > 0.1 else 0.0
    surface = tuple(c * (0.26 + 0.10 * normal[1] + 0.72 * lit) for c in color)
    if depth < 2:
        surface = mix(surface, trace(along(point, normal, 1e-3), reflected, depth + 1), mirror)
    return mix(surface, (1, 1, 1), shine * 0.85)


def spheres(width, height):
    def color(x, y):
        direction = ((x - width / 2) / height * 1.15, (height * 0.40 - y) / height * 1.15, 1.0)
        length = math.sqrt(dot(direction, direction))
        return trace((0.25, 1.25, -1.2), tuple(d / length for d in direction))

    return Picture(width, height, softened(color, 3))


# ---- Landscapes ----

def landscape(width, height):
    noise = Noise(7)
    ridges = [  # base line, height, roughness, colour near, seed shift
        (0.52, 0.20, 2.6, (0.60, 0.68, 0.82), 3.0),
        (0.62, 0.18, 3.4, (0.42, 0.53, 0.68), 17.0),
        (0.72, 0.16, 4.2, (0.24, 0.40, 0.46), 41.0),
        (0.86, 0.14, 5.5, (0.12, 0.27, 0.22), 73.0),
    ]

    def color(x, y):
        u, v = x / width, y / height
        result = mix((0.26, 0.46, 0.80), (0.99, 0.86, 0.70), smooth(v / 0.60))
        sun = math.hypot((u - 0.68) * width / height, v - 0.36)
        result = mix(result, (1.0, 0.96, 0.82), max(0.0, 1 - sun / 0.34)**2)
        if sun < 0.055:
            result = (1.0, 0.99, 0.93)
        cloud = noise.cloudy(u * 5, v * 13 + 100)
        result = mix(result, (1.0, 0.97, 0.95), smooth((cloud - 0.55) * 4) * (1 - v / 0.55) * 0.9 if v < 0.55 else 0)
        for base, rise, rough, near, shift in ridges:
            top = base - rise * (noise.cloudy(u * rough + shift, shift, 5) - 0.35)
            if v > top:
                result = mix(near, tuple(c * 0.72 for c in near), (v - top) / 0.30)
        return result

    return Picture(width, height, softened(color))


def sunset(width, height):
    noise = Noise(11)
    horizon = 0.58

    def color(x, y):
        u, v = x / width, y / height
        sky_color = mix((0.18, 0.14, 0.38), (0.98, 0.52, 0.24), smooth((v if v < horizon else 2 * horizon - v) / horizon))
        aspect = width / height
        if v < horizon:
            sun = math.hypot((u - 0.5) * aspect, v - horizon + 0.06)
            return mix(mix(sky_color, (1.0, 0.80, 0.42), max(0.0, 1 - sun / 0.5)**2), (1.0, 0.93, 0.66), 1.0 if sun < 0.13 else 0)
        depth = (v - horizon) / (1 - horizon)
        wave = noise.at(u * 6 / (depth + 0.25), depth * 34)
        path = max(0.0, 1 - abs(u - 0.5) * aspect / (0.12 + depth * 0.28))
        water = tuple(c * (0.50 + 0.16 * wave) for c in sky_color)
        return mix(water, (1.0, 0.84, 0.48), path * smooth((wave - 0.32) * 2.4))

    return Picture(width, height, softened(color))


def night_sky(width, height):
    noise = Noise(23)
    numbers = random.Random(5)
    stars = {(numbers.randrange(width), numbers.randrange(int(height * 0.8))): numbers.random() for _ in range(140)}

    def color(x, y):
        v = y / height
        glow = (0.02, 0.03, 0.10), (0.10, 0.14, 0.34)
        level = int(smooth(v) * 24) / 24  # in steps: the run-length coding has runs to code
        result = mix(*glow, level)
        moon = math.hypot(x - width * 0.74, y - height * 0.26)
        if moon < height * 0.11:
            if math.hypot(x - width * 0.70, y - height * 0.23) > height * 0.10:
                return 0.96, 0.94, 0.82
        if (x, y) in stars and moon > height * 0.13:
            return mix(result, (1, 1, 0.95), 0.35 + 0.65 * stars[x, y])
        if v > 0.86 - 0.12 * noise.cloudy(x / width * 5, 9):
            return 0.02, 0.03, 0.05
        return result

    return Picture(width, height, color)


# ---- Textures, all of which can be tiled ----

def checkerboard(size, fields):
    return Picture(size, size, lambda x, y: (0.94, 0.94, 0.92) if (x * fields // size + y * fields // size) % 2
                   else (0.20, 0.24, 0.30))


def bricks(size):
    noise = Noise(31, 16)
    numbers = random.Random(2)
    tones = [[numbers.random() for _ in range(4)] for _ in range(8)]

    def color(x, y):
        row = y * 8 // size
        shifted = (x + (size // 8 if row % 2 else 0)) % size
        inside_x, inside_y = shifted % (size // 4), y % (size // 8)
        grain = noise.at(x * 16 / size * 4 % 16, y * 16 / size * 4 % 16)
        if inside_x < 2 or inside_y < 2:
            return mix((0.70, 0.68, 0.64), (0.80, 0.78, 0.74), grain)
        tone = tones[row][shifted * 4 // size]
        face = mix((0.58, 0.22, 0.16), (0.76, 0.36, 0.24), tone)
        edge = 1.12 if inside_x == 2 or inside_y == 2 else 0.86 if inside_x == size // 4 - 1 or inside_y == size // 8 - 1 else 1
        return tuple(c * edge * (0.90 + 0.20 * grain) for c in face)

    return Picture(size, size, color)


def wood(size):
    noise = Noise(43, 8)

    def color(x, y):
        u, v = x / size, y / size
        bend = noise.at(u * 8, v * 2 % 8) * 0.9
        ring = (math.sin((u * 9 + bend * 1.6 + 0.25 * math.sin(v * math.tau)) * math.tau) + 1) / 2
        fibre = noise.at(u * 64 % 8, v * 4 % 8)
        return mix(mix((0.80, 0.58, 0.34), (0.52, 0.32, 0.16), ring**1.6), (0.42, 0.25, 0.12), fibre * 0.28)

    return Picture(size, size, softened(color))


def marble(size):
    noise = Noise(57, 8)

    def color(x, y):
        u, v = x / size, y / size
        turbulence = sum(abs(noise.at(u * 4 * 2**i, v * 4 * 2**i) - 0.5) / 2**i for i in range(4))
        vein = abs(math.sin((u + v) * math.pi + turbulence * 5))
        return mix((0.30, 0.34, 0.38), (0.95, 0.95, 0.93), vein**0.55)

    return Picture(size, size, color)


def gradient(width, height):
    def color(x, y):
        u, v = x / (width - 1), y / (height - 1)
        top = mix((0.98, 0.40, 0.32), (0.99, 0.86, 0.36), u)
        return mix(top, mix((0.24, 0.22, 0.60), (0.16, 0.68, 0.74), u), v)

    return Picture(width, height, color)


def colour_wheel(size):
    middle = size / 2

    def color(x, y):
        dx, dy = x + 0.5 - middle, middle - y - 0.5
        return colorsys.hsv_to_rgb(math.atan2(dy, dx) / math.tau % 1, min(1.0, math.hypot(dx, dy) / middle), 1.0)

    def opacity(x, y):
        return middle - 1 - math.hypot(x + 0.5 - middle, y + 0.5 - middle)

    return png(Picture(size, size, color), opacity)


def fractal(width, height):
    """Points by the number of steps that they stay near: a bounded palette picture."""
    palette = [tuple(int(c * 255) for c in colorsys.hsv_to_rgb((0.62 + i / 300) % 1, 0.75, min(1.0, 0.25 + i / 90)))
               for i in range(255)] + [(8, 8, 24)]

    def index(x, y):
        c = complex((x / width - 0.68) * 3.1, (y / height - 0.5) * 3.1 * height / width)
        z = 0j
        for step in range(90):
            z = z * z + c
            if abs(z) > 6:
                return min(254, max(0, int((step + 1 - math.log2(math.log(abs(z)))) * 5)))
        return 255

    return gif(width, height, palette, index)


EMBLEM = '''<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 200 200" width="200" height="200">
  <title>Cube in a ring</title>
  <circle cx="100" cy="100" r="90" fill="#eef3fb" stroke="#2f5d9b" stroke-width="10"/>
  <polygon points="100,42 150,71 100,100 50,71" fill="#8fc1f5"/>
  <polygon points="50,71 100,100 100,158 50,129" fill="#4a86cf"/>
  <polygon points="150,71 100,100 100,158 150,129" fill="#2f5d9b"/>
</svg>
'''

FLOW_CHART = '''<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 320 120" width="320" height="120" font-family="sans-serif" font-size="14">
  <title>From model to picture</title>
  <g fill="#fff4d6" stroke="#b07a1e" stroke-width="2">
    <rect x="10" y="35" width="80" height="50" rx="8"/>
    <rect x="120" y="35" width="80" height="50" rx="8"/>
    <rect x="230" y="35" width="80" height="50" rx="8"/>
  </g>
  <path d="M90 60h24M200 60h24" stroke="#b07a1e" stroke-width="2"/>
  <path d="M112 54l8 6-8 6zM222 54l8 6-8 6z" fill="#b07a1e"/>
  <g text-anchor="middle" fill="#3a2c10">
    <text x="50" y="65">Model</text>
    <text x="160" y="65">Scene</text>
    <text x="270" y="65">Picture</text>
  </g>
</svg>
'''


def files():
    """Path in the sample folder -> content."""
    return {
        'Pictures/Glass marbles.png': png(spheres(360, 240)),
        'Landscape.jpg': jpeg(landscape(384, 240)),
        'Pictures/Sunset.bmp': bmp(sunset(136, 102)),
        'Pictures/Night sky.tga': tga(night_sky(160, 120)),
        'Pictures/Fractal.gif': fractal(200, 150),
        'Pictures/Gradient.ppm': ppm(gradient(96, 64)),
        'Pictures/Flow chart.svg': FLOW_CHART.encode(),
        'Textures/Checkerboard.png': png(checkerboard(128, 8)),
        'Textures/Colour wheel.png': colour_wheel(128),
        'Textures/Bricks.bmp': bmp(bricks(96)),
        'Textures/Wood.jpg': jpeg(wood(128)),
        'Textures/Marble.png': png(marble(96)),
        'Emblem.svg': EMBLEM.encode(),
    }
