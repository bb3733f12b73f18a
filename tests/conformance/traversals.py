#!/usr/bin/env python3
"""Compares the host scene, and the hook's calls, of random trees with a second, plain reckoning of the same rules.

usage: traversals.py --wrl PATH/TO/wrl [--seed N] [--count N]

The trees hold grouping nodes, nodes that are nothing to the host, and shapes of every kind, with and without DEF names.
They are loaded once for every event text that the hook can veto, and once without a veto. Compared are the nodes with
their types, names and values, the drawables' types, the calls and the messages. Prints the first difference; exit
status 1 when there is one.
"""
import argparse, json, os, random, subprocess, sys, tempfile

HOST_TYPES = {"Group": "sglGroup", "Transform": "sglTransform", "LOD": "sglLOD", "Switch": "sglSwitch",
              "Billboard": "sglBillboard"}
CHILDREN = {"Group": "children", "Transform": "children", "LOD": "level", "Switch": "choice", "Billboard": "children",
            "Anchor": "children", "Collision": "children"}
POINTS = "coord Coordinate { point [ 0 0 0, 1 0 0, 0 1 0 ] }"
GEOMETRIES = {  # text, the drawable that comes of it, the message
    "faces": (f"geometry IndexedFaceSet {{ {POINTS} coordIndex [ 0 1 2 -1 ] }}", "sglIndexedTriangleSet", None),
    "no face": (f"geometry IndexedFaceSet {{ {POINTS} coordIndex [ 0 1 2 ] }}", None, None),
    "no points": ("geometry IndexedFaceSet { }", None, "No Coordinate Nodes in IndexedFaceSet\n"),
    "box": ("geometry Box { }", "sglCube", None),
    "text": ("geometry Text { }", None, None),
    "grid": ("geometry ElevationGrid { }", None, "ElevationGridNodes not yet supported.\n"),
    "none": ("", None, None),
}
EVENTS = [f"onParse:{name}" for name in (*CHILDREN, "Shape", "Fog")] + [f"onCreate:{name}" for name in
                                                                       (*HOST_TYPES.values(), "sglGeode")]


class Node:
    """A node of a random tree."""

    def __init__(self, rng, depth):
        self.type = rng.choice([*CHILDREN, "Shape", "Shape", "Shape", "Fog"]) if depth < 5 else "Shape"
        self.name = rng.choice(["", "", "a", "b", "c"])
        self.geometry = rng.choice([*GEOMETRIES, "faces", "box"]) if self.type == "Shape" else None
        self.ranges = [rng.randrange(1, 9) for _ in range(rng.randrange(3))]
        self.choice = rng.choice([-7, -1, 0, 1, 5])
        self.children = [Node(rng, depth + 1) for _ in range(rng.randrange(4))] if self.type in CHILDREN else []

    def text(self):
        fields = {"Shape": GEOMETRIES[self.geometry][0] if self.geometry else "", "Switch": f"whichChoice {self.choice} ",
                  "LOD": f"range [ {' '.join(map(str, self.ranges))} ] "}.get(self.type, "")
        if self.type in CHILDREN:
            fields += f"{CHILDREN[self.type]} [ {' '.join(child.text() for child in self.children)} ]"
        return f"{'DEF ' + self.name if self.name else ''} {self.type} {{ {fields} }}"

    def values(self):
        if self.type == "LOD":
            return {"ranges": [0, *self.ranges, 10000000]}
        if self.type == "Switch":
            return {"selected": -2 if self.choice == -1 else self.choice}
        return {"axis": [0, 1, 0], "mode": 2} if self.type == "Billboard" else {}


def new_geode(name=""):
    return {"type": "sglGeode", "name": name, "geometries": []}


def new_group(host_type, name="", **values):
    return {"type": host_type, "name": name, **values, "children": []}


class Reckoning:
    """What comes of the trees when the hook vetoes one event text."""

    def __init__(self, veto):
        self.veto, self.calls, self.messages = veto, [], []
        self.root = new_group("sglTransform")

    def is_wanted(self, event):
        self.calls.append(event)
        return event != self.veto

    def convert(self, parent, node):
        if not self.is_wanted("onParse:" + node.type):
            return
        if node.type == "Shape":
            self.convert_shape(parent, node.geometry)
        elif node.type in HOST_TYPES:
            self.convert_group(parent, node)
        else:
            for child in node.children:
                self.convert(parent, child)

    def convert_group(self, parent, node):
        group = new_group(HOST_TYPES[node.type], node.name if node.type == "Group" else "", **node.values())
        if node.type == "Transform":
            self.name_transform(parent, node, group)
        if node.type in ("Group", "Transform"):
            group["children"].append(new_geode(group["name"] if node.type == "Group" else ""))
        for child in node.children:
            self.convert(group, child)
        if node.type == "Transform":
            self.name_transform(parent, node, group)
        elif node.type != "Group" and node.name:
            group["name"] = node.name
        if self.is_wanted("onCreate:" + group["type"]):
            parent["children"].append(group)

    @staticmethod
    def name_transform(parent, node, group):
        if node.name:
            parent["name"] = node.name
        group["name"] = parent["name"]

    def convert_shape(self, parent, geometry):
        _, drawable, message = GEOMETRIES[geometry]
        if message:
            self.messages.append(message)
        if geometry in ("none", "no points"):
            return
        siblings = parent["children"]
        is_shared = bool(siblings) and siblings[0]["type"] == "sglGeode"
        geode = siblings[0] if is_shared else new_geode()
        if drawable:
            geode["geometries"].append(drawable)
        is_kept = self.is_wanted("onCreate:sglGeode")
        if is_shared and (geometry == "box" or not is_kept):
            del siblings[0]
        if is_kept and geometry == "box":
            siblings.append({**new_group("sglTransform"), "children": [geode]})
        elif is_kept and not is_shared:
            siblings.append(geode)


def without_details(node):
    """A node of the scene document without what other tests look at."""
    kept = {key: value for key, value in node.items() if key != "matrix"}
    if "geometries" in node:
        kept["geometries"] = [drawable["type"] for drawable in node["geometries"]]
    if "children" in node:
        kept["children"] = [without_details(child) for child in node["children"]]
    return kept


def difference(wrl, path, trees, veto):
    reckoning = Reckoning(veto)
    for tree in trees:
        reckoning.convert(reckoning.root, tree)
    done = subprocess.run([wrl, "scene", "--trace", "--no-stats", "--veto", veto or "nothing", path], capture_output=True,
                          text=True, check=True)
    document = json.loads(done.stdout)
    if [line for line in done.stderr.splitlines() if line in EVENTS] != reckoning.calls:
        return "the hook's calls differ"
    if [message["text"] for message in document["messages"]] != reckoning.messages:
        return "the messages differ"
    loaded = without_details(document["scene"])
    for got, wanted in zip(loaded["children"], reckoning.root["children"]):
        if got != wanted:
            return f"gives  {got}\nwanted {wanted}"
    return None if loaded == reckoning.root else "the root or the number of its children differs"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--wrl", required=True)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--count", type=int, default=300)
    args = parser.parse_args()
    rng = random.Random(args.seed)
    trees = [Node(rng, 0) for _ in range(args.count)]
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "a.wrl")
        with open(path, "w", encoding="utf-8") as f:
            f.write("#VRML V2.0 utf8\n" + "".join(tree.text() + "\n" for tree in trees))
        for veto in [None, *EVENTS]:
            found = difference(os.path.abspath(args.wrl), path, trees, veto)
            if found:
                print(f"veto of {veto}: {found}")
                return 1
    print(f"{args.count} trees agree under {len(EVENTS)} vetoes and without one")
    return 0


if __name__ == "__main__":
    sys.exit(main())
