#!/usr/bin/env python3
"""Compares what an export writes of random stage documents with a second, plain reckoning of the same rules.

usage: exports.py --wrl PATH/TO/wrl [--seed N] [--count N]

The documents hold trees of groups and actors of every kind, drawables whose lists are missing, empty, too short or out
of range, materials, textures with images of their own, cameras and views, and names of odd bytes. Compared are the
written files byte for byte and what stands in their folder of textures. Prints the first difference; exit status 1 when
there is one.
"""
import argparse, json, math, os, random, re, struct, subprocess, sys, tempfile, zlib

RESERVED = ("DEF EXTERNPROTO FALSE IS NULL PROTO ROUTE TO TRUE USE eventIn eventOut exposedField field").split()
REPLACED = set(b"'\"+-\\{}`.;:,[]") | set(range(0x21))
CONVERSION = re.compile(rb"%%|%[-+ #0]*(?:\*|\d*)(?:\.(?:\*|\d*))?[hlLjzt]*[diouxXeEfFgGaAcspn]")
NAMES = ["", "a", "3D-Part.1", "USE", "field", "Use", "7", "a b\tc", "\u00e4\u20ac", "50%d of 100%% %", "q\"'\\{}[]#~",
         "\u0000x", "%5.2lf%*d%n%y", "% done"]
IMAGES = ["wood.jpg", "oak.png", "wood.png", "deep.er/two.dots.jpg", "missing.jpg", "missing.png", "100%d%%.png",
          "CAPS.JPG", "noextension", ""]
IDENTITY = [1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1]


def single(value):
    """The nearest 32-bit float."""
    try:
        return struct.unpack("f", struct.pack("f", value))[0]
    except OverflowError:
        return math.copysign(math.inf, value)


def fixed(*values):
    return " ".join("%f" % value for value in values)


def expand(text):
    return CONVERSION.sub(lambda match: b"%" if match[0] == b"%%" else b"", text)


def node_name(name):
    if name == "":
        return b"no_name"
    if name in RESERVED:
        return b"_" + name.encode()
    text = bytearray(name.encode())
    if chr(text[0]).isdigit():
        text[0] = ord("_")
    return bytes(ord("_") if byte in REPLACED else byte for byte in text)


# Vectors.

def dot(a, b):
    return sum(x * y for x, y in zip(a, b))


def cross(a, b):
    return [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]]


def scaled(a, factor):
    return [x * factor for x in a]


def single_length(a):
    """The length in single precision, step by step."""
    total = 0.0
    for x in a:
        total = single(total + single(x * x))
    return single(math.sqrt(total))


def unit(a):
    length = math.sqrt(dot(a, a))
    return a if length == 0 else scaled(a, 1 / length)


# Groups.

def axis_and_angle(m):
    trace = m[0][0] + m[1][1] + m[2][2]
    q = [0.0, 0.0, 0.0]
    if trace > 0:
        s = single(math.sqrt(single(trace + 1)))
        f = single(0.5 / s)
        q, w = [(m[1][2] - m[2][1]) * f, (m[2][0] - m[0][2]) * f, (m[0][1] - m[1][0]) * f], s / 2
    else:
        i = 1 if m[1][1] > m[0][0] else 0
        i = 2 if m[2][2] > m[i][i] else i
        j, k = (i + 1) % 3, (i + 2) % 3
        s = single(math.sqrt(single(m[i][i] - (m[j][j] + m[k][k]) + 1)))
        f = single(0.5 / s) if s else s
        q[i], q[j], q[k] = s / 2, (m[i][j] + m[j][i]) * f, (m[i][k] + m[k][i]) * f
        w = (m[j][k] - m[k][j]) * f
    if not abs(math.sqrt(dot(q, q) + w * w) - 1) < 0.0001:
        return [0, 0, 0, 0]
    r = math.sqrt(dot(q, q))
    return (scaled(q, 1 / r) if r > 0.00001 else [1, 0, 0]) + [2 * math.atan2(r, w)]


def placement(matrix):
    rows = [[single(value) for value in matrix[4 * i:4 * i + 4]] for i in range(4)]
    z = unit(rows[2][:3])
    x = unit(cross(rows[1][:3], z))
    after = [[single(value) for value in axis] for axis in (x, cross(z, x), z)]
    scale = []
    for i in range(3):
        length = single(math.sqrt(dot(rows[i], rows[i])))
        scale.append(-length if dot(rows[i][:3], after[i]) < 0 else length)
    return axis_and_angle(after), scale, rows[3][:3]


# Geometry.

def vectors(name, values, size, count):
    """A list of vectors as far as there are values; nothing without a whole one."""
    count = min(max(count, 1), len(values) // size)
    lines = [fixed(*values[size * i:size * i + size]) for i in range(count)]
    return f"{name}[\n" + ",\n".join(lines) + "]\n" if lines else ""


def triangle(a, b, c):
    return "%d %d %d -1" % tuple(index - 2**32 if index >= 2**31 else index for index in (a, b, c))


def triangles(indices, count):
    return ",\n ".join(triangle(*indices[3 * i:3 * i + 3]) for i in range(min(count, len(indices) // 3)))


def strips(indices, lengths):
    texts, start = [], 0
    for length in lengths:
        for j in range(start, min(start + length, len(indices)) - 2):
            a, b, c = indices[j:j + 3]
            texts.append(triangle(a, b, c) if (j - start) % 2 == 0 else triangle(a, c, b))
        start += length
    return ",\n".join(texts)


def weld(coords, normals):
    """For each vertex the one that stands for it, by comparing each with all that follow."""
    points = [coords[i:i + 3] for i in range(0, len(coords), 3)]
    corners = [(min(axis), max(axis)) for axis in zip(*points)] or [(0, 0)]
    tolerance = single(0.0001 * single(math.sqrt(sum((high - low) ** 2 for low, high in corners))))
    factor = single(2.14)
    reference = [single(single(x * factor) + factor) for x in points[0]] if points else []

    def difference(a, b):
        return [single(x - y) for x, y in zip(a, b)]

    def normal(vertex):
        return normals[3 * vertex:3 * vertex + 3] if 3 * vertex + 3 <= len(normals) else [0.0] * 3

    def are_near(a, b):
        if not all(x == y if tolerance == 0 else abs(single(x - y)) < tolerance for x, y in zip(points[a], points[b])):
            return False
        m, n = normal(a), normal(b)
        product = [single(single(m[j] * n[k]) - single(m[k] * n[j])) for j, k in ((1, 2), (2, 0), (0, 1))]
        return not normals or single_length(product) < single(0.01)

    distances = [single_length(difference(point, reference)) for point in points]
    order = sorted(range(len(points)), key=lambda vertex: (distances[vertex], vertex))
    stands_for = [None] * len(points)
    for k, first in enumerate(order):
        if stands_for[first] is not None:
            continue
        stands_for[first] = first
        for other in order[k + 1:]:
            if not -tolerance <= single(distances[first] - distances[other]) <= tolerance:
                break
            if stands_for[other] is None and are_near(first, other):
                stands_for[other] = first
    return stands_for


def moved(values, texture):
    """Texture coordinates through the texture's matrix."""
    m = [single(value) for value in texture.get("matrix", IDENTITY)]
    result = []
    for u, v in zip(values[::2], values[1::2]):
        for column in (0, 1):
            value = single(m[12 + column] + u * m[column] + v * m[4 + column])
            result.append(value if -1000000 < value < 1000000 else 0.0)
    return result


def face_set(drawable, texture):
    """The text of one of the four kinds of triangle sets."""
    kind, count = drawable["type"], drawable["numPrims"]
    values = {key: [single(value) for value in drawable.get(key, [])] for key in ("coords", "normals", "texCoords")}
    lengths = drawable.get("primLengths", [])[:count]
    used = sum(lengths) if "Strip" in kind else 3 * count
    has_normals = "normals" in drawable
    if kind == "sglTriangleSet":
        count = min(count, len(values["coords"]) // 9)
        indices = weld(values["coords"][:9 * count], values["normals"])
        index, reach = dict.fromkeys(("coord", "texCoord", "normal"), indices), dict.fromkeys(
            ("coord", "texCoord", "normal"), 3 * count)
    else:
        kinds = ("coord",) * 3 if "Mono" in kind else ("coord", "texCoord", "normal")
        index = {key: drawable.get(source + "Index", [])[:used]
                 for key, source in zip(("coord", "texCoord", "normal"), kinds)}
        reach = {key: max(indices, default=0) + 1 for key, indices in index.items()}
        if "Mono" not in kind:
            has_normals = "normalIndex" in drawable
    written = {key: strips(indices, lengths) if "Strip" in kind else triangles(indices, count)
               for key, indices in index.items()}
    if kind == "sglTriangleSet" and count == 0:
        reach = dict.fromkeys(reach, 1)
    has_texture = texture is not None and values["texCoords"] and "states" in drawable
    text = "geometry IndexedFaceSet{\ncoord Coordinate{\n" + vectors("point", values["coords"], 3, reach["coord"])
    if has_texture:
        text += "}\ntexCoord TextureCoordinate{\n"
        text += vectors("point", moved(values["texCoords"], texture), 2, reach["texCoord"])
    text += "}\ncoordIndex[\n" + written["coord"]
    if has_texture:
        text += "]\ntexCoordIndex [\n" + written["texCoord"]
    if has_normals:
        text += "]\nnormalPerVertex TRUE\nnormal Normal {\n" + vectors("vector", values["normals"], 3, reach["normal"])
        text += "}\nnormalIndex[\n" + written["normal"]
    return (text + "]}}\n").encode()


def appearance(drawable, mesh):
    """The opening of a Shape; nothing for a drawable without a state."""
    if "states" not in drawable:
        return b""
    text = b"Shape{\nappearance Appearance {"
    if mesh.get("mapPath"):
        base = os.path.splitext(mesh["mapPath"].split("/")[-1])[0]
        flag = "TRUE" if mesh.get("texture", {}).get("repeatS") and mesh["texture"].get("image", True) else "FALSE"
        text += f'\ntexture ImageTexture {{ url [ "Textures\\{base}.jpg"]repeatS {flag} repeatT {flag} }}'.encode()
    diffuse, specular, shininess, transparency = [0] * 3, [0] * 3, 0, 0
    for state in drawable["states"]:
        if state["type"] == "sglMaterial":
            diffuse, specular, shininess = state["diffuse"], state["specular"], state["shininess"]
            transparency = single(1 - single(state["alpha"]))
    colors = [fixed(*map(single, color)) for color in (diffuse, specular)]
    material = (f"\nmaterial Material {{\ndiffuseColor {colors[0]}\nspecularColor {colors[1]}\n"
                f"shininess {fixed(single(shininess))}\ntransparency {fixed(transparency)}\n}}\n}}\n")
    return expand(text) + material.encode()


class World:
    """What is to be written of a document."""

    def __init__(self, document):
        self.text = b"#VRML V2.0 utf8\nGroup{\nchildren[\n"
        self.sources = []  # of textures, in order
        self.write(document["assembly"])
        self.text += b"]}\n"
        if document.get("viewport", True):
            self.write_views(document)
            self.write_background(document["background"])

    def write(self, node):
        if node is None or node["type"] == "actor" or not node.get("visible", True):
            return
        if node["type"] == "group":
            rotation, scale, translation = placement(node["matrix"])
            self.text += b"DEF " + node_name(node["name"]) + (
                f" Transform {{\ncenter 0.0 0.0 0.0 rotation {fixed(*rotation)} scale {fixed(*scale)} translation "
                f"{fixed(*translation)} \nchildren[\n").encode()
        for drawable in (node.get("geode") or {}).get("geometries", []):
            if drawable is not None and "Triangle" in drawable["type"] and drawable["numPrims"] > 0:
                self.text += appearance(drawable, node) + face_set(drawable, node.get("texture"))
                if node.get("mapPath") and "states" in drawable:
                    self.sources.append(node["mapPath"])
        for child in node.get("children", []):
            self.write(child)
        if node["type"] == "group":
            self.text += b"]}\n"

    def write_views(self, document):
        if document["camera"] is None:
            return
        self.text += b"Group {\nchildren ["
        self.write_view("Zentra Stager Main Camera", document["camera"])
        if document["views"] is None:
            return
        for view in document["views"]:
            if view is not None and view.get("properties", True) and "frame" in view:
                self.write_view(view["name"], view)
        self.text += b"] \n}"

    def write_view(self, name, view):
        frame = [single(value) for value in view["frame"]]
        fov = single(view.get("fov", 0)) if view.get("perspective") else 0
        self.text += expand(b'Viewpoint { \ndescription"' + name.encode() + b'"')
        if 0 < fov < math.pi / 2:
            self.text += f"\nfieldOfView {fixed(fov)} ".encode()
        orientation = fixed(*map(single, orientation_of(frame[12:15], frame[8:11], frame[4:7])))
        self.text += f"\norientation {orientation} \nposition {fixed(*frame[12:15])} \n}}\n".encode()

    def write_background(self, background):
        def color(bytes_, factor):
            return fixed(*(single(single(byte * factor) / 255) for byte in bytes_))
        parts = (("color", 1), ("color", 0.5), ("floor", 1))
        colors = ", ".join(color(background[key], factor) for key, factor in parts)
        self.text += f"DEF browns Background {{ skyAngle [0, 3.1416] skyColor [{colors}] }}".encode()


# Cameras. A quaternion is x, y, z, w.

def product(a, b):
    turned = cross(a, b)
    return [a[3] * b[i] + b[3] * a[i] + turned[i] for i in range(3)] + [a[3] * b[3] - dot(a[:3], b[:3])]


def rotation(axis, cosine):
    half = math.acos(max(-1, min(1, cosine))) / 2
    return scaled(axis, math.sin(half)) + [math.cos(half)]


def orientation_of(position, z, up):
    target = [p - a for p, a in zip(position, z)]
    d = unit([t - p for t, p in zip(target, position)])
    u = unit(up)
    v = unit([a - dot(u, d) * b for a, b in zip(u, d)])
    axis = [d[1], -d[0], 0]
    if dot(axis, axis) < 1e-8:
        q1 = [0, 1, 0, 0] if d[2] > 0 else [0, 0, 0, 1]
    else:
        q1 = rotation(unit(axis), -d[2])
    u1 = product(product(q1, [0, 1, 0, 0]), [-q1[0], -q1[1], -q1[2], q1[3]])[:3]
    axis = cross(u1, v)
    if dot(axis, axis) < 1e-8:
        axis = [0, -v[2], v[1]]
    if dot(axis, axis) < 1e-8:
        axis = [v[2], 0, -v[0]]
    q = product(rotation(unit(axis), dot(u1, v)), q1)
    half = math.acos(q[3])
    sine = math.sin(half)
    return ([1, 0, 0] if abs(sine) < 1e-8 else scaled(q[:3], 1 / sine)) + [2 * half]


# Random documents.

def random_matrix(rng):
    """Turned, scaled, mirrored, sheared, or of anything."""
    kind = rng.randrange(5)
    if kind == 0:
        return IDENTITY
    if kind == 1:
        return [rng.uniform(-5, 5) for _ in range(16)]
    turn = unit([rng.gauss(0, 1) for _ in range(4)])
    rows = [product(product(turn, axis + [0]), [-turn[0], -turn[1], -turn[2], turn[3]])[:3]
            for axis in ([1, 0, 0], [0, 1, 0], [0, 0, 1])]
    if kind > 2:
        rows = [scaled(row, rng.choice([0.25, 1, 3, -1])) for row in rows]
    return [*rows[0], 0, *rows[1], 0, *rows[2], 0, *(rng.randrange(-80, 80) / 8 for _ in range(3)), 1]


def random_frame(rng):
    x = [rng.gauss(0, 1) for _ in range(3)]
    z = unit(cross(x, [rng.gauss(0, 1) for _ in range(3)]))
    y = cross(z, unit(x))
    return [*unit(x), 0, *y, 0, *z, 0, *(rng.randrange(-800, 800) / 8 for _ in range(3)), 1]


def random_floats(rng, size, count):
    near = [0, 0, 0, 1e-5, 3e-5, 1]
    values = [rng.randrange(-3, 4) + rng.choice(near) for _ in range(size * count)]
    return values + [1.0] * rng.choice([0, 0, 0, 0, 1, 2])


def random_indices(rng, count):
    return [rng.choice([2**31, 2**32 - 1, 77]) if rng.random() < 0.01 else rng.randrange(12) for _ in range(count)]


def random_drawable(rng):
    kind = rng.choice(["sglTriangleSet", "sglIndexedTriangleSet", "sglIndexedTriangleStripSet",
                       "sglMonoIndexedTriangleStripSet", "sglCube", None])
    if kind in ("sglCube", None):
        return kind and {"type": kind, "size": [1, 2, 3]}
    drawable = {"type": kind, "numPrims": rng.choice([0, 1, 1, 2, 3, 4, 4000000000])}
    count = rng.choice([0, 3, 6, 12])
    for key, size in (("coords", 3), ("normals", 3), ("texCoords", 2)):
        if rng.random() < 0.8:
            drawable[key] = random_floats(rng, size, count + rng.choice([0, 0, 0, -1, 5]) if count else 0)
    if kind != "sglTriangleSet":
        kinds = ("coord",) if "Mono" in kind else ("coord", "normal", "texCoord")
        for key in kinds:
            if rng.random() < 0.8:
                drawable[key + "Index"] = random_indices(rng, rng.choice([0, 3, 6, 7, 12, 13]))
    if "Strip" in kind and rng.random() < 0.9:
        drawable["primLengths"] = [rng.choice([0, 1, 2, 3, 4, 5, 9, 4294967295]) for _ in range(rng.randrange(5))]
    if rng.random() < 0.9:
        drawable["states"] = [random_state(rng) for _ in range(rng.randrange(3))]
    return drawable


def random_state(rng):
    if rng.random() < 0.3:
        return {"type": "sglLighting", "on": True}
    values = [rng.random() for _ in range(8)]
    return {"type": "sglMaterial", "diffuse": values[:3], "specular": values[3:6], "shininess": 128 * values[6],
            "alpha": values[7], "side": rng.choice([1028, 1032])}


def random_node(rng, depth):
    kind = rng.choice(["group", "group", "plainGroup", "root", "mesh", "mesh", "mesh", "mesh", "actor", None])
    if kind is None or depth > 5:
        return None
    node = {"type": kind, "name": rng.choice(NAMES)}
    if kind in ("group", "root"):
        node["matrix"] = random_matrix(rng)
    if kind in ("group", "plainGroup", "root"):
        # A set holds one null child at most, and that one first: where it stands makes no difference.
        node["children"] = [random_node(rng, depth + 1) for _ in range(rng.randrange(5))]
        return node
    if rng.random() < 0.1:
        node["visible"] = False
    if rng.random() < 0.9:
        node["geode"] = {"geometries": [random_drawable(rng) for _ in range(rng.randrange(4))]}
    if rng.random() < 0.5:
        node["mapPath"] = rng.choice(IMAGES)
    if rng.random() < 0.7:
        node["texture"] = {"repeatS": rng.random() < 0.5, "repeatT": rng.random() < 0.5, "image": rng.random() < 0.8}
        if rng.random() < 0.5:
            node["texture"]["matrix"] = [rng.choice([0, 1, -0.5, 2, 400000]) for _ in range(16)]
    return node


def random_view(rng):
    if rng.random() < 0.1:
        return None
    view = {"name": rng.choice(NAMES), "frame": random_frame(rng), "perspective": rng.random() < 0.7,
            "fov": rng.choice([-1, 0, 1e-7, 0.5, 1.5707963, 1.5707964, 3])}
    for key in ("frame", "perspective", "fov"):
        if rng.random() < 0.1:
            del view[key]
    if rng.random() < 0.1:
        view["properties"] = rng.random() < 0.5
    return view


def random_document(rng):
    camera = {"perspective": rng.random() < 0.7, "fov": rng.choice([0.7853981633974483, 1.57079632, 2]),
              "frame": random_frame(rng)}
    children = [random_node(rng, 0) for _ in range(12)]
    return {"assembly": {"type": "root", "name": "", "matrix": random_matrix(rng), "children": children},
            "viewport": rng.random() < 0.9,
            "camera": camera if rng.random() < 0.9 else None,
            "views": [random_view(rng) for _ in range(6)] if rng.random() < 0.9 else None,
            "background": {key: [rng.randrange(256) for _ in range(3)] for key in ("color", "floor")}}


# Comparing.

def png():
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", 1, 1, 8, 2, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(b"\0\xff\x80\0")) + chunk(b"IEND", b""))


def make_images(folder):
    for name in IMAGES:
        if name and not name.startswith("missing"):
            path = os.path.join(folder, name)
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "wb") as f:
                f.write(name.encode() if name.endswith(".jpg") else png())


def textures_of(sources):
    """What each file of the folder of textures holds: a copy, or something that was converted."""
    textures = {}
    for source in sources:
        name = os.path.basename(source)
        target = os.path.splitext(name)[0] + ".jpg"
        if name.startswith("missing"):
            continue
        if not name.endswith(".jpg"):
            textures[target] = b"\xff\xd8\xff"
        else:
            textures.setdefault(target, source.encode())
    return textures


def difference(wrl, folder, document, number):
    """What is wrong with the world of a document, or nothing."""
    stage, out = os.path.join(folder, "stage.json"), os.path.join(folder, str(number), "out.wrl")
    os.mkdir(os.path.dirname(out))
    with open(stage, "w", encoding="utf-8") as f:
        json.dump(document, f)
    done = subprocess.run([wrl, "export", stage, out], capture_output=True, text=True, check=False)
    if done.returncode != 0:
        return f"exit status {done.returncode}: {done.stderr}"
    with open(out, "rb") as f:
        lines = f.read().split(b"\n")
    world = World(document)
    wanted_lines = world.text.split(b"\n")
    for i, (line, wanted) in enumerate(zip(lines + [None], wanted_lines + [None])):
        if line != wanted:
            return f"line {i + 1} is {line}, wanted {wanted}"
    textures, found = os.path.join(os.path.dirname(out), "Textures"), {}
    if os.path.isdir(textures) != bool(world.sources):
        return "a folder of textures " + ("is missing" if world.sources else "without a texture")
    wanted = textures_of(world.sources)
    for name in os.listdir(textures) if world.sources else []:
        with open(os.path.join(textures, name), "rb") as f:
            found[name] = f.read()[:len(wanted.get(name, b""))]
    return None if found == wanted else f"the textures are {found}, wanted {wanted}"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--wrl", required=True)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--count", type=int, default=60)
    args = parser.parse_args()
    rng = random.Random(args.seed)
    with tempfile.TemporaryDirectory() as folder:
        make_images(folder)
        for number in range(args.count):
            found = difference(os.path.abspath(args.wrl), folder, random_document(rng), number)
            if found:
                print(f"document {number}: {found}")
                return 1
    print(f"{args.count} documents agree")
    return 0


if __name__ == "__main__":
    sys.exit(main())
