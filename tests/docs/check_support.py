#!/usr/bin/env python3
"""Holds docs/vrml-support.md against the catalogue of node types and against what the command does with each.

usage: check_support.py --wrl PATH/TO/wrl

The table names every type that the node factory makes, and no other. A file with one node of the type, in a place where it is
of use, is read; `wrl nodes` writes the node back; and `wrl check` names the type where the table says that it is not
converted, and does not where it says that it is.
"""
import argparse
import os
import re
import subprocess
import sys
import tempfile

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
HEADER = "#VRML V2.0 utf8\n"
FACES = "geometry IndexedFaceSet {{ coord Coordinate {{ point [ 0 0 0, 1 0 0, 0 1 0 ] }} coordIndex [ 0 1 2 -1 ] {} }}"
APPEARANCE = "Shape {{ appearance Appearance {{ {} }} geometry Sphere {{ }} }}"
GEOMETRY = "Shape {{ geometry {} {{ }} }}"

# Where a node is of use, for those that mean nothing by themselves.
PLACES = {
    "Appearance": APPEARANCE.format("material NULL"),
    "Material": APPEARANCE.format("material Material { }"),
    "ImageTexture": APPEARANCE.format('texture ImageTexture { url "a.png" }'),
    "PixelTexture": APPEARANCE.format("texture PixelTexture { image 1 1 3 0xFF0000 }"),
    "MovieTexture": APPEARANCE.format('texture MovieTexture { url "a.mpg" }'),
    "TextureTransform": APPEARANCE.format("textureTransform TextureTransform { scale 2 2 }"),
    "Shape": GEOMETRY.format("Sphere"),
    "IndexedFaceSet": "Shape { " + FACES.format("") + " }",
    "Coordinate": "Shape { " + FACES.format("") + " }",
    "Color": "Shape { " + FACES.format("color Color { color [ 1 0 0, 0 1 0, 0 0 1 ] }") + " }",
    "Normal": "Shape { " + FACES.format("normal Normal { vector [ 0 0 1, 0 0 1, 0 0 1 ] }") + " }",
    "TextureCoordinate": "Shape { " + FACES.format("texCoord TextureCoordinate { point [ 0 0, 1 0, 0 1 ] }") + " }",
    "FontStyle": 'Shape { geometry Text { string "a" fontStyle FontStyle { } } }',
    "AudioClip": "Sound { source AudioClip { } }",
    **{name: GEOMETRY.format(name) for name in ("Box", "Cone", "Cylinder", "Sphere", "ElevationGrid", "Extrusion",
                                                "IndexedLineSet", "PointSet", "Text")},
}

# Nodes that go unnamed because what holds them is named: the note speaks of that.
HOLDERS = {"FontStyle": "Text"}


def catalogue():
    with open(os.path.join(ROOT, "vrml", "nodes", "NodeFactory.cpp"), encoding="utf-8") as f:
        names = set(re.findall(r'#include "vrml/nodes/(\w+)Node\.h"', f.read()))
    return {"LOD" if name == "Lod" else name for name in names - {"DEF", "Root"}}


def table():
    with open(os.path.join(ROOT, "docs", "vrml-support.md"), encoding="utf-8") as f:
        section = f.read().split("## Node types")[1].split("\n## ")[0]
    return {name: (kept, converted) for name, kept, converted in
            re.findall(r"^\| `(\w+)` \| ([^|]*?) \| ([^|]*?) \|", section, re.MULTILINE)}


def findings(wrl, folder):
    rows = table()
    yield from (f"{name} is not in the table" for name in sorted(catalogue() - set(rows)))
    yield from (f"{name} is no node type" for name in sorted(set(rows) - catalogue()))
    for name, (kept, converted) in sorted(rows.items()):
        path = os.path.join(folder, name + ".wrl")
        with open(path, "w", encoding="utf-8") as f:
            f.write(HEADER + PLACES.get(name, name + " { }") + "\n")
        report = subprocess.run([wrl, "check", path], capture_output=True, text=True).stdout
        notes = "".join(re.findall(r": note: (.*\n)", report))
        written = subprocess.run([wrl, "nodes", path], capture_output=True, text=True).stdout
        is_named = re.search(rf"\b{HOLDERS.get(name, name)}\b", notes) is not None
        if not report.startswith(path + ": ok\n"):
            yield f"{name} is not read: {report}"
        if (kept == "yes") != (re.search(rf"\b{name} {{", written) is not None):
            yield f"{name}: written back is {kept!r}, but {written!r}"
        if converted not in ("yes", "in part", "no", "nothing to show"):
            yield f"{name}: converted is {converted!r}"
        if converted == "no" and not is_named or converted in ("yes", "nothing to show") and is_named:
            yield f"{name}: converted is {converted!r}, but check notes {notes!r}"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--wrl", required=True)
    args = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        found = list(findings(os.path.abspath(args.wrl), folder))
    for finding in found:
        print(f"error: {finding}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
