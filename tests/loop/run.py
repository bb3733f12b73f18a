#!/usr/bin/env python3
"""Sends random stage documents through `wrl convert` to VRML97 and back.

usage: run.py --wrl PATH/TO/wrl [--count N] [--seed N] [-v] [--timeout SECONDS]

Each document is one case: what is written loads, and holds the same triangles in the same colours and, turned as every
load turns, in the same box. The expected numbers are taken from the document itself, by measure.py. Documents are made
from consecutive seeds, so that one that fails can be made again: run.py --seed N --count 1 -v prints it.
Prints a line for each case that fails, then the closing line 'N passed, N failed'. Exit status 1 when any failed.
"""
import argparse
import json
import math
import os
import random
import subprocess
import sys
import tempfile

from measure import differences, measure

BOX_TOLERANCE = 1e-4  # of the diagonal

NAMES = ["", "part", "3D-Part.1", "USE", "a b", "tab\tname", "Gr\u00fc\u00dfe", "100%d", "a#b", "x{y}", "DEF", "\u007f", "#"]


def rotation(rng):
    """Three rows of a turn about any axis."""
    axis = [rng.gauss(0, 1) for _ in range(3)]
    length = math.hypot(*axis) or 1.0
    x, y, z = (value / length for value in axis)
    angle = rng.choice([0, 90, 180, rng.uniform(-180, 180)])
    c, s = math.cos(math.radians(angle)), math.sin(math.radians(angle))
    t = 1 - c
    return [
        [t * x * x + c, t * x * y + s * z, t * x * z - s * y],
        [t * x * y - s * z, t * y * y + c, t * y * z + s * x],
        [t * x * z + s * y, t * y * z - s * x, t * z * z + c],
    ]


def placement(rng):
    """A matrix that a Transform can hold: scales along the axes, mirrorings too, then a turn, then a move."""
    even = rng.uniform(0.5, 2)
    scales = [even] * 3 if rng.random() < 0.5 else [rng.uniform(0.5, 2) for _ in range(3)]
    rows = rotation(rng)
    matrix = []
    for scale, row in zip(scales, rows):
        sign = -1 if rng.random() < 0.2 else 1
        matrix += [sign * scale * value for value in row] + [0]
    return matrix + [rng.uniform(-5, 5) for _ in range(3)] + [1]


def states(rng):
    def color():
        return [rng.choice([0, 1, round(rng.random(), 6)]) for _ in range(3)]

    found = [{"type": "sglLighting", "on": True}] if rng.random() < 0.5 else []
    for _ in range(rng.choice([0, 1, 1, 1, 2])):
        found.append({"type": "sglMaterial", "diffuse": color(), "specular": color(), "ambient": color(),
                      "shininess": rng.choice([0, 64, 0.2]), "alpha": rng.choice([1, 0, 0.25])})
    return found


def vectors(rng, count):
    return [rng.uniform(-10, 10) for _ in range(3 * count)]


def directions(rng, count):
    return [value for _ in range(count) for value in rotation(rng)[0]]


def strip_lengths(rng, room):
    """Lengths of strips that add up to the room at most; some are too short to hold a triangle."""
    lengths = []
    while room > 2 and len(lengths) < 4:
        lengths.append(rng.randint(1, min(room, 9)))
        room -= lengths[-1]
    return lengths


def drawable(rng):
    kind = rng.choice(["sglTriangleSet", "sglIndexedTriangleSet", "sglIndexedTriangleStripSet",
                       "sglMonoIndexedTriangleStripSet", "sglCube"])
    if kind == "sglCube":  # primitives are not exported
        return {"type": kind, "size": [1, 2, 3], "states": states(rng)}
    points = rng.randint(3, 12)
    found = {"type": kind, "states": states(rng)}
    has_normals, has_texture = rng.random() < 0.5, rng.random() < 0.5
    if kind == "sglTriangleSet":
        found["numPrims"] = points // 3
    elif kind == "sglIndexedTriangleSet":
        found["numPrims"] = rng.randint(0, 6)
        found["coordIndex"] = [rng.randrange(points) for _ in range(3 * found["numPrims"])]
    else:
        found["coordIndex"] = [rng.randrange(points) for _ in range(rng.randint(3, 20))]
        found["primLengths"] = strip_lengths(rng, len(found["coordIndex"]))
        found["numPrims"] = len(found["primLengths"])
    found["coords"] = vectors(rng, points)
    if has_normals:
        found["normals"] = directions(rng, points)
    if has_texture:
        found["texCoords"] = [rng.uniform(-2, 2) for _ in range(2 * points)]
    if kind in ("sglIndexedTriangleSet", "sglIndexedTriangleStripSet"):
        if has_normals:
            found["normalIndex"] = [rng.randrange(points) for _ in found["coordIndex"]]
            found["normalBinding"] = 3
        if has_texture:
            found["texCoordIndex"] = [rng.randrange(points) for _ in found["coordIndex"]]
    return found


def mesh(rng):
    kind = "actor" if rng.random() < 0.1 else "mesh"
    node = {"type": kind, "name": rng.choice(NAMES), "visible": rng.random() < 0.9}
    node["geode"] = {"geometries": [drawable(rng) if rng.random() < 0.95 else None for _ in range(rng.randint(0, 3))]}
    if rng.random() < 0.3:
        node["texture"] = {"repeatS": rng.random() < 0.5, "matrix": placement(rng)}
    if rng.random() < 0.05:
        node["geode"] = None
    return node


def group(rng, depth):
    kind = rng.choice(["group", "group", "group", "plainGroup", "root"])
    node = {"type": kind, "name": rng.choice(NAMES), "children": children(rng, depth)}
    if kind == "group" and rng.random() < 0.9:
        node["matrix"] = placement(rng)
    return node


def children(rng, depth):
    found = []
    for _ in range(rng.randint(1, 3)):
        if rng.random() < 0.05:
            found.append(None)
        else:
            found.append(group(rng, depth - 1) if depth > 0 and rng.random() < 0.6 else mesh(rng))
    return found


def views(rng):
    found = [None] if rng.random() < 0.1 else []
    for name in rng.sample(["Front", "100%d", "", "%", "R\u00fcck\nseite"], 2):
        found.append({"name": name, "frame": placement(rng), "perspective": rng.random() < 0.5, "fov": rng.uniform(0, 3)})
    return found


def document(seed):
    rng = random.Random(seed)
    stage = {"assembly": {"type": "root", "name": "model", "children": children(rng, 4)}}
    if rng.random() < 0.5:
        stage["views"] = views(rng)
        stage["background"] = {"color": [rng.randrange(256) for _ in range(3)], "floor": [0, 0, 0]}
    return json.dumps(stage)


def problems_of(wrl, timeout, text, folder):
    source, written = (os.path.join(folder, name) for name in ("stage.json", "written.wrl"))
    with open(source, "w", encoding="utf-8") as f:
        f.write(text)
    try:
        for words in (["convert", source, written], ["stage", "--no-stats", written]):
            done = subprocess.run([wrl, *words], stdin=subprocess.DEVNULL, capture_output=True, timeout=timeout)
            if done.returncode != 0:
                return [f"{words[0]}: exit {done.returncode}: {done.stderr[-300:].decode('utf-8', 'replace')!r}"]
    except subprocess.TimeoutExpired:
        return ["no answer in time"]
    return differences(measure(text), measure(done.stdout), BOX_TOLERANCE)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--wrl", required=True)
    parser.add_argument("--count", type=int, default=300)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("-v", action="store_true")
    parser.add_argument("--timeout", type=float, default=20)
    args = parser.parse_args()
    passed = failed = 0
    for seed in range(args.seed, args.seed + args.count):
        text = document(seed)
        if args.v:
            print(text)
        with tempfile.TemporaryDirectory() as folder:
            problems = problems_of(os.path.abspath(args.wrl), args.timeout, text, folder)
        if problems:
            failed += 1
            print(f"FAIL seed {seed}")
            for problem in problems:
                print(f"     {problem}")
        else:
            passed += 1
    print(f"{passed} passed, {failed} failed")
    return 1 if failed or not passed else 0


if __name__ == "__main__":
    sys.exit(main())
