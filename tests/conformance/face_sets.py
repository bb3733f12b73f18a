#!/usr/bin/env python3
"""Compares what an import makes of many random face sets with a second, plain reckoning of the same rules.

usage: face_sets.py --wrl PATH/TO/wrl [--seed N] [--count N]

One world holds all the face sets, each in a group of its own: faces of any number of corners, closed or not, indices in
and out of range, with and without normals, colours, texture coordinates and their index lists. Compared are the
drawables with all their lists and states, the messages in their order, and the statistics. Prints the first difference;
exit status 1 when there is one.
"""
import argparse, json, os, random, subprocess, sys, tempfile

DEGENERATE_FACE = "sglTriStripper::addPolyFace() warning: ignoring degenerate face\n"
DEGENERATE_TRIANGLE = "sglTriStripper::addTriangleFace() warning: ignoring degenerate triangle\n"
OUT_OF_RANGE = "IndexedFaceSet: %d faces with coordinate indices out of range ignored.\n"
PER_FACE_KINDS = ("normal", "color")


class FaceSet:
    """A random face set. Values that the shape lacks are None; an index list may be empty, too short, or too long."""

    def __init__(self, rng):
        self.points = [[rng.randrange(-40, 40) / 8 for _ in range(3)] for _ in range(rng.randrange(9))]
        self.coord_index = []
        for _ in range(rng.randrange(6)):
            corners = rng.choice([0, 1, 2, 3, 3, 3, 4, 4, 5, 6, 7, 9])
            self.coord_index += [self.place(rng) for _ in range(corners)]
            if rng.random() < 0.95:
                self.coord_index.append(-1)
        self.values = {kind: self.random_values(rng, size) for kind, size in (("normal", 3), ("color", 3), ("texCoord", 2))}
        self.indices = {kind: self.random_indices(rng) for kind in self.values}
        self.per_vertex = {kind: kind not in PER_FACE_KINDS or rng.random() < 0.6 for kind in self.values}
        self.has_texture, self.has_material, self.solid, self.ccw = (rng.random() < 0.5 for _ in range(4))

    def place(self, rng):
        return rng.choice([len(self.points), -2, 99]) if rng.random() < 0.03 else rng.randrange(max(len(self.points), 1))

    @staticmethod
    def random_values(rng, size):
        count = rng.choice([None, 0, 1, 3, 8])
        return None if count is None else [[rng.randrange(9) / 8 for _ in range(size)] for _ in range(count)]

    def random_indices(self, rng):
        if rng.random() < 0.5:
            return []
        return [rng.choice([-1, -1, -2, 0, 1, 2, 3, 7, 50]) for _ in range(rng.randrange(len(self.coord_index) + 4))]

    def text(self):
        def numbers(values):
            return " ".join(map(str, values))

        def vectors(values):
            return ", ".join(map(numbers, values))

        def truth(value):
            return "TRUE" if value else "FALSE"

        appearance = "material Material { } " if self.has_material else ""
        appearance += "texture PixelTexture { image 1 1 1 3 } " if self.has_texture else ""
        nodes = {"normal": "Normal { vector", "color": "Color { color", "texCoord": "TextureCoordinate { point"}
        geometry = f"coord Coordinate {{ point [ {vectors(self.points)} ] }} coordIndex [ {numbers(self.coord_index)} ] "
        for kind, values in self.values.items():
            if values is not None:
                geometry += f"{kind} {nodes[kind]} [ {vectors(values)} ] }} "
            geometry += f"{kind}Index [ {numbers(self.indices[kind])} ] "
        for kind in PER_FACE_KINDS:
            geometry += f"{kind}PerVertex {truth(self.per_vertex[kind])} "
        geometry += f"solid {truth(self.solid)} ccw {truth(self.ccw)}"
        return (f"Group {{ children Shape {{ appearance Appearance {{ {appearance}}} "
                f"geometry IndexedFaceSet {{ {geometry} }} }} }}\n")


def place_of(face_set, kind, position, face, coord):
    values, indices = face_set.values[kind], face_set.indices[kind]
    if not indices:
        index = coord if face_set.per_vertex[kind] else face
    else:
        entry = position if face_set.per_vertex[kind] else face
        index = indices[entry] if entry < len(indices) else 0
    return index if 0 <= index < len(values or []) else 0


def faces_of(face_set):
    corners, face = [], 0
    for position, coord in enumerate(face_set.coord_index):
        if coord == -1:
            yield corners
            corners, face = [], face + 1
        else:
            places = {kind: place_of(face_set, kind, position, face, coord) for kind in face_set.values}
            corners.append({"coord": coord, **places})


def triangles_of(corners):
    """Zigzag: from the first corner, one step forward, one step back, and so on."""
    a, b, c, forward, backward = 0, 1, len(corners) - 1, 2, len(corners) - 2
    for step in range(len(corners) - 2):
        yield corners[a], corners[b], corners[c]
        if step % 2 == 0:
            a, c, forward = c, forward, forward + 1
        else:
            b, c, backward = c, backward, backward - 1


class Totals:
    def __init__(self):
        self.messages = []
        self.counts = dict.fromkeys(("S.Tris", "S.Quads", "S.Polygons", "Indep Tris", "Strips", "Materials", "Textures"), 0)


def collected_triangles(face_set, totals):
    triangles, out_of_range = [], 0
    for corners in faces_of(face_set):
        totals.counts[{3: "S.Tris", 4: "S.Quads"}.get(len(corners), "S.Polygons")] += 1
        if any(not 0 <= corner["coord"] < len(face_set.points) for corner in corners):
            out_of_range += 1
        elif len(corners) < 3:
            totals.messages.append(DEGENERATE_FACE)
        else:
            for triangle in triangles_of(corners):
                if len({corner["coord"] for corner in triangle}) == 3:
                    triangles.append(triangle)
                else:
                    totals.messages.append(DEGENERATE_TRIANGLE)
    if out_of_range:
        totals.messages.append(OUT_OF_RANGE % out_of_range)
    return triangles


def expected_geometries(face_set, totals):
    totals.counts["Materials"] += face_set.has_material
    totals.counts["Textures"] += face_set.has_texture
    triangles = collected_triangles(face_set, totals)
    totals.counts["Indep Tris"] += len(triangles)
    if not triangles:
        return []
    corners = [corner for triangle in triangles for corner in triangle]
    drawable = {"type": "sglIndexedTriangleSet", "numPrims": len(triangles), "displayList": True,
                "coords": sum(face_set.points, []), "coordIndex": [corner["coord"] for corner in corners]}
    for kind, values in face_set.values.items():
        if not values or (kind == "texCoord" and not face_set.has_texture):
            continue
        drawable[kind + "s"] = sum((value + [1] if kind == "color" else value for value in values), [])
        drawable[kind + "Index"] = [corner[kind] for corner in corners]
        if kind in PER_FACE_KINDS:
            drawable[kind + "Binding"] = 3
    states = ["sglLighting"] + ["sglMaterial"] * face_set.has_material
    states += ["sglTexture2D", "sglTexEnv"] * face_set.has_texture
    drawable["states"] = states + ["sglCullMode"] * (not face_set.solid) + ["sglFrontFace"] * (not face_set.ccw)
    return [drawable]


def loaded_geometries(group):
    geometries = group["children"][0]["geometries"]
    return [{**drawable, "states": [state["type"] for state in drawable["states"]]} for drawable in geometries]


def scene_of(wrl, world):
    with tempfile.TemporaryDirectory() as folder:
        with open(os.path.join(folder, "a.wrl"), "w", encoding="utf-8") as f:
            f.write(world)
        done = subprocess.run([os.path.abspath(wrl), "scene", "a.wrl"], cwd=folder, capture_output=True, check=True)
    return json.loads(done.stdout)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--wrl", required=True)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--count", type=int, default=1000)
    args = parser.parse_args()
    rng = random.Random(args.seed)
    face_sets = [FaceSet(rng) for _ in range(args.count)]
    document = scene_of(args.wrl, "#VRML V2.0 utf8\n" + "".join(face_set.text() for face_set in face_sets))

    totals = Totals()
    for face_set, group in zip(face_sets, document["scene"]["children"], strict=True):
        wanted, loaded = expected_geometries(face_set, totals), loaded_geometries(group)
        if loaded != wanted:
            print(f"{face_set.text()}gives  {loaded}\nwanted {wanted}")
            return 1
    texts = [message["text"] for message in document["messages"]]
    if texts[:len(totals.messages)] != totals.messages:
        print("the messages differ")
        return 1
    figures = {line.split(":")[0].strip(): line.split(":")[1].strip() for line in texts[len(totals.messages):] if ":" in line}
    wrong = [name for name, count in totals.counts.items() if figures["Num " + name] != str(count)]
    print(f"wrong figures: {wrong}" if wrong else f"{args.count} face sets, {totals.counts['Indep Tris']} triangles agree")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
