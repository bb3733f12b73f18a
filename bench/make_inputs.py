#!/usr/bin/env python3
"""Makes the worlds that the benchmarks read: the same bytes on every machine.

usage: make_inputs.py FOLDER

A file that is there already is left alone.

  ifs_10MB, ifs_100MB     one face set: a wavy grid with a normal at every vertex
  many_20MB, many_40MB    50,000 and 100,000 small shapes, each a box of six faces under a transform
  defuse, defuse2         20,000 materials with names and 100,000 shapes that use them, and twice as many
  deep_4000               transforms nested as deep as the reader goes
"""
import math
import os
import sys

HEADER = "#VRML V2.0 utf8\n"
BOX_POINTS = ("-0.5 -0.5 -0.5, 0.5 -0.5 -0.5, 0.5 0.5 -0.5, -0.5 0.5 -0.5, "
              "-0.5 -0.5 0.5, 0.5 -0.5 0.5, 0.5 0.5 0.5, -0.5 0.5 0.5")
BOX_INDICES = "0 3 2 1 -1 4 5 6 7 -1 0 1 5 4 -1 1 2 6 5 -1 2 3 7 6 -1 3 0 4 7 -1"


def grid_point(column, row):
    x = column * 0.1237 - 40.0
    y = row * 0.1171 - 40.0
    return x, y, 3.0 * math.sin(x * 0.37) * math.cos(y * 0.23)


def grid_normal(column, row):
    x, y, _ = grid_point(column, row)
    a = -3.0 * 0.37 * math.cos(x * 0.37) * math.cos(y * 0.23)
    b = 3.0 * 0.23 * math.sin(x * 0.37) * math.sin(y * 0.23)
    r = 1 / math.sqrt(a * a + b * b + 1)
    return a * r, b * r, r


def write_vectors(write, vector_at, columns, rows):
    for row in range(rows):
        write("".join("        %f %f %f,\n" % vector_at(column, row) for column in range(columns)))


def write_indices(write, columns, rows):
    for row in range(rows - 1):
        for column in range(columns - 1):
            corner = row * columns + column
            right, below, across = corner + 1, corner + columns, corner + columns + 1
            write("      %d %d %d -1,\n      %d %d %d -1,\n" % (corner, right, across, corner, across, below))


def face_set(write, columns, rows):
    write("Shape {\n  appearance Appearance {\n    material Material {\n      diffuseColor 0.8 0.5 0.2\n"
          "      ambientIntensity 0.2\n      specularColor 0.1 0.1 0.1\n      shininess 0.3\n    }\n  }\n"
          "  geometry IndexedFaceSet {\n    solid FALSE\n    coord Coordinate {\n      point [\n")
    write_vectors(write, grid_point, columns, rows)
    write("      ]\n    }\n    normal Normal {\n      vector [\n")
    write_vectors(write, grid_normal, columns, rows)
    write("      ]\n    }\n    normalPerVertex TRUE\n")
    for name in ("coordIndex", "normalIndex"):
        write("    %s [\n" % name)
        write_indices(write, columns, rows)
        write("    ]\n")
    write("  }\n}\n")


def colour(i):
    return "%.3f %.3f %.3f" % ((i % 11) / 10., (i % 7) / 6., (i % 5) / 4.)


def many_shapes(write, count):
    for i in range(count):
        write("Transform {\n  translation %f %f %f\n  rotation 0 0 1 %f\n  children [\n    Shape {\n"
              "      appearance Appearance {\n        material Material { diffuseColor %s }\n      }\n"
              "      geometry IndexedFaceSet {\n        coord Coordinate {\n          point [ %s ]\n        }\n"
              "        coordIndex [ %s ]\n      }\n    }\n  ]\n}\n"
              % (2 * (i % 100), 2 * (i // 100 % 100), 2 * (i // 10000), (i % 628) / 100.0, colour(i), BOX_POINTS,
                 BOX_INDICES))


def shared_materials(write, material_count, shape_count):
    for i in range(material_count):
        write("Shape { appearance Appearance { material DEF M%d Material { diffuseColor %s } } "
              "geometry Box { size 1 1 1 } }\n" % (i, colour(i)))
    for i in range(shape_count):
        write("Transform { translation %d %d %d children [ Shape { appearance Appearance { material USE M%d } "
              "geometry Box { size 1 1 1 } } ] }\n" % (i % 100, i // 100 % 100, i // 10000, (i * 7919) % material_count))


def nested(write, depth):
    write("Transform { translation 0.001 0 0 children [\n" * depth)
    write("Shape { appearance Appearance { material Material { } } geometry IndexedFaceSet { coord Coordinate "
          "{ point [ %s ] } coordIndex [ %s ] } }\n" % (BOX_POINTS, BOX_INDICES))
    write("] }\n" * depth)


INPUTS = {
    "ifs_10MB": (face_set, 230, 232),
    "ifs_100MB": (face_set, 720, 700),
    "many_20MB": (many_shapes, 50000),
    "many_40MB": (many_shapes, 100000),
    "defuse": (shared_materials, 20000, 100000),
    "defuse2": (shared_materials, 40000, 200000),
    "deep_4000": (nested, 4000),
}


def main():
    folder = sys.argv[1]
    os.makedirs(folder, exist_ok=True)
    for name, (make, *sizes) in INPUTS.items():
        path = os.path.join(folder, name + ".wrl")
        if os.path.exists(path):
            continue
        with open(path + ".part", "w", encoding="ascii") as f:
            f.write(HEADER)
            make(f.write, *sizes)
        os.rename(path + ".part", path)


if __name__ == "__main__":
    main()
