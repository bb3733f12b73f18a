#!/usr/bin/env python3
"""Opens the HTML pages that wrl writes from disk, in a browser without a network, and looks at them.

usage: run.py --wrl PATH/TO/wrl --modules DIR [-k SUBSTRING] [-v]

What the browser shows is compared with the pictures that `wrl render` takes of the same model; look_at_pages.js does that and
says what else it looks at. What drives the browser is fetched with npm into the folder of --modules, unless it is there.
Without npm or Chromium, or where npm cannot fetch it, the run says so and ends with status 77. Prints a line for each page
that fails, then the closing line 'N passed, N failed'.
"""
import argparse
import json
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import zlib

HERE = os.path.dirname(os.path.abspath(__file__))
EXAMPLES = os.path.join(HERE, "..", "..", "examples")
SKIPPED = 77
SIZE = (480, 300)  # of the pictures

HOSTILE = "</script><script>window.struck = 1</script><!-- & \"quoted\" 'twice' <b>&lt;"

# What stands in another way in a page than plain looks do: a texture, colours of vertices, something transparent.
LOOKS = """#VRML V2.0 utf8
Shape { appearance Appearance { material Material { } texture ImageTexture { url "squares.png" } }
  geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0, 2 0 0, 2 2 0, 0 2 0 ] }
    texCoord TextureCoordinate { point [ 0 0, 1 0, 1 1, 0 1 ] } coordIndex [ 0 1 2 3 -1 ] } }
Transform { translation 2.5 0 0 children Shape { appearance Appearance { material Material { } }
  geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0, 2 0 0, 2 2 0, 0 2 0 ] }
    color Color { color [ 1 0 0, 0 1 0, 0.2 0.2 0.6, 0.5 0.5 0 ] } coordIndex [ 0 1 2 3 -1 ] } } }
Transform { translation 1 -2 0 children Shape {
  appearance Appearance { material Material { diffuseColor 0.2 0.4 0.9 transparency 0.5 } }
  geometry Box { size 1.5 1.5 1.5 } } }
"""

# Names that would end the elements that they stand in.
NAMES = f"""#VRML V2.0 utf8
WorldInfo {{ title "TITLE" }}
Viewpoint {{ description "TITLE" position 0 0 5 }}
DEF </script>x Shape {{ geometry Box {{ }} appearance Appearance {{ material Material {{ diffuseColor 1 0 0 }} }} }}
""".replace("TITLE", HOSTILE.replace('"', '\\"'))

# Two views of three boxes, as an application saves them.
VIEWS = [
    {"name": "Corner", "frame": [0.6, 0.8, 0, 0, -0.384, 0.288, 0.877, 0, 0.702, -0.526, 0.48, 0, 7, -5.3, 4.9, 1],
     "perspective": True, "fov": 0.9},
    {"name": "Flat", "frame": [0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 9, 0, 0, 1], "perspective": False, "fov": 0.7},
]
BOXES = "#VRML V2.0 utf8\n" + "".join(f"""Transform {{ translation {place} children DEF </script>box Shape {{
  appearance Appearance {{ material Material {{ diffuseColor {color} }} }} geometry Box {{ size {size} }} }} }}
""" for place, color, size in (("0 0 0", "0.8 0.1 0.1", "2 1 1"), ("0 1.5 0.5", "0.1 0.7 0.2", "1 2 1"), ("1.5 0 2", "0.2 0.3 0.9", "1 1 2")))


def fetch(folder):
    """Why there is nothing to drive a browser with in FOLDER, or None when there is."""
    if os.path.isdir(os.path.join(folder, "node_modules", "playwright-core")):
        return None
    if shutil.which("npm") is None or shutil.which("node") is None:
        return "npm is not installed"
    os.makedirs(folder, exist_ok=True)
    for name in ("package.json", "package-lock.json"):
        shutil.copy(os.path.join(HERE, name), folder)
    try:
        done = subprocess.run(["npm", "ci", "--ignore-scripts", "--no-audit", "--no-fund"], cwd=folder,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=200)
    except subprocess.TimeoutExpired:
        return "npm did not answer in time"
    return None if done.returncode == 0 else "npm could not fetch it: " + done.stderr.strip()[-300:]


def squares_png():
    """A picture of two red, a green and a blue square."""
    rows = [[(220, 40, 30), (30, 160, 60)], [(30, 60, 200), (220, 40, 30)]]
    pixels = b"".join(b"\0" + b"".join(bytes(color) * 8 for color in row) for row in rows for _ in range(8))
    chunks = [(b"IHDR", struct.pack(">IIBBBBB", 16, 16, 8, 2, 0, 0, 0)), (b"IDAT", zlib.compress(pixels)), (b"IEND", b"")]
    return b"\x89PNG\r\n\x1a\n" + b"".join(
        struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data)) for kind, data in chunks)


class Maker:
    """Writes pages and the pictures that they are compared with, and lists what is to be looked at."""

    def __init__(self, wrl, folder):
        self.wrl = os.path.abspath(wrl)
        self.folder = folder
        self.pages = []

    def run(self, *args):
        done = subprocess.run([self.wrl, *args], cwd=self.folder, stdin=subprocess.DEVNULL, capture_output=True,
                              timeout=120)
        if done.returncode != 0:
            raise RuntimeError(f"wrl {' '.join(args)}: exit {done.returncode}: {done.stderr.decode('utf-8', 'replace')}")
        return done.stdout

    def write(self, name, content):
        with open(os.path.join(self.folder, name), "wb") as f:
            f.write(content if isinstance(content, bytes) else content.encode())

    def add(self, source, title, facts, views, pictured=None):
        """A page of a file. VIEWS: by the names of the page's buttons the views of PICTURED for `wrl render`, None for its own."""
        name = source.rsplit(".", 1)[0]
        self.run("convert", "-q", source, name + ".html")
        pictures = []
        for number, (button, view) in enumerate(views.items()):
            picture = os.path.join(self.folder, f"{name}-{number}.png")
            self.run("render", "-q", "--size", "%dx%d" % SIZE, *(["--view", view] if view else []), pictured or source, picture)
            pictures.append({"button": button, "picture": picture})
        self.pages.append({"name": name, "path": os.path.join(self.folder, name + ".html"), "title": title, "facts": facts,
                           "pictures": pictures})

    def add_all(self):
        for name in ("garden.wrl", "chair.wrl"):
            shutil.copy(os.path.join(EXAMPLES, name), self.folder)
        self.add("garden.wrl", "Garden", "garden.wrl \u00b7 11,358 triangles", {"Overview": None, "Front": "front"})
        self.add("chair.wrl", "chair.wrl", "chair.wrl \u00b7 7,056 triangles \u00b7 no messages",
                 {"Overview": None, "Top": "top", "Bottom": "bottom"})
        self.write("squares.png", squares_png())
        self.write("looks.wrl", LOOKS)
        self.add("looks.wrl", "looks.wrl", "looks.wrl \u00b7 16 triangles \u00b7 no messages", {"Overview": None})
        self.write("names.wrl", NAMES)
        self.add("names.wrl", HOSTILE, "names.wrl \u00b7 12 triangles \u00b7 no messages", {"Overview": None})
        self.write("nothing.wrl", "#VRML V2.0 utf8\nGroup { }\n")
        self.add("nothing.wrl", "nothing.wrl", "nothing.wrl \u00b7 0 triangles \u00b7 no messages", {})
        self.add_views()

    def add_views(self):
        """Views that an application saved, and the same as viewpoints of a world that is written with them."""
        self.write("boxes.wrl", BOXES)
        stage = json.loads(self.run("stage", "-q", "boxes.wrl"))
        stage["views"] = VIEWS
        self.write("saved.json", json.dumps(stage))
        self.add("saved.json", "saved.json", "saved.json \u00b7 36 triangles \u00b7 no messages",
                 {"Overview": None, "Corner": "Corner", "Flat": "Flat"})
        self.run("export", "saved.json", "viewpoints.wrl")
        self.add("viewpoints.wrl", "viewpoints.wrl", "viewpoints.wrl \u00b7 36 triangles \u00b7 no messages",
                 {"Corner": "Corner"}, pictured="saved.json")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--wrl", required=True)
    parser.add_argument("--modules", required=True)
    parser.add_argument("-k", default="")
    parser.add_argument("-v", action="store_true")
    args = parser.parse_args()
    browser = shutil.which("chromium")
    reason = "chromium is not installed" if browser is None else fetch(args.modules)
    if reason is not None:
        print(f"skipped: {reason}")
        return SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        maker = Maker(args.wrl, folder)
        if b".html" not in maker.run("formats"):
            print("skipped: this wrl writes no pages")
            return SKIPPED
        maker.add_all()
        pages = [page for page in maker.pages if args.k in page["name"]]
        job = {"browser": browser, "size": SIZE, "pages": pages}
        modules = os.path.join(os.path.abspath(args.modules), "node_modules")
        done = subprocess.run(["node", os.path.join(HERE, "look_at_pages.js"), modules], input=json.dumps(job),
                              capture_output=True, text=True, timeout=240)
        if done.returncode != 0:
            print(done.stderr, file=sys.stderr)
            return 1
        results = json.loads(done.stdout)
    failed = {name for name, problems in results.items() if problems}
    for name, problems in results.items():
        if problems:
            print("\n     ".join([f"FAIL {name}", *problems]))
        elif args.v:
            print(f"ok   {name}")
    print(f"{len(results) - len(failed)} passed, {len(failed)} failed")
    return 1 if failed or not results else 0


if __name__ == "__main__":
    sys.exit(main())
