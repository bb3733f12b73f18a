#!/usr/bin/env python3
"""Converts worlds to binary glTF and has the result validated.

usage: run.py --wrl PATH/TO/wrl --modules DIR [--corpus DIR] [-k SUBSTRING] [-v]

Every file DIR/worlds/**/*.wrl that loads and holds a scene is converted to .glb. It passes when the npm package
gltf-validator finds no error in it, when it has as many triangles as the assembly that `wrl stage` prints, and when a
second conversion gives the same bytes. The validator is fetched with npm into the folder of --modules, unless it is
there. Without npm, or where npm cannot fetch it, the run says so and ends with status 77. Prints a line for each file
that fails, then the closing line 'N passed, N failed'.
"""
import argparse
import json
import os
import shutil
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
CORPUS = os.path.join(HERE, "..", "corpus")
PACKAGE = "gltf-validator"
VERSION = "2.0.0-dev.3.10"
SKIPPED = 77


def fetch(folder):
    """Why there is no validator in FOLDER, or None when there is one."""
    modules = os.path.join(folder, "node_modules")
    if os.path.isdir(os.path.join(modules, PACKAGE)):
        return None
    if shutil.which("npm") is None or shutil.which("node") is None:
        return "npm is not installed"
    os.makedirs(folder, exist_ok=True)
    command = ["npm", "install", "--prefix", folder, "--no-audit", "--no-fund", "--no-save", f"{PACKAGE}@{VERSION}"]
    try:
        done = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=300)
    except subprocess.TimeoutExpired:
        return "npm did not answer in time"
    return None if done.returncode == 0 else "npm could not fetch it: " + done.stderr.strip()[-300:]


def triangles_of(node):
    """The number of triangles that a node of a stage document's assembly shows, itself and below."""
    count, pending = 0, [node]
    while pending:
        node = pending.pop()
        if node is None or not node.get("visible", True):
            continue
        pending += node.get("children", [])
        for drawable in filter(None, (node.get("geode") or {}).get("geometries", [])):
            if "primLengths" in drawable:
                count += sum(max(length - 2, 0) for length in drawable["primLengths"])
            else:
                count += drawable["numPrims"]
    return count


class Converter:
    def __init__(self, wrl, folder):
        self.wrl = os.path.abspath(wrl)
        self.folder = folder
        self.triangles = {}  # by output
        self.names = {}      # of the worlds, by output
        self.problems = []   # pairs of world and text

    def run(self, *args):
        return subprocess.run([self.wrl, *args], stdin=subprocess.DEVNULL, capture_output=True, timeout=120)

    def convert(self, path, name):
        """Converts a world, unless there is none in the file."""
        stage = self.run("stage", "--no-stats", path)
        document = json.loads(stage.stdout) if stage.returncode == 0 else {}
        if document.get("assembly") is None:
            return
        outputs = [os.path.join(self.folder, f"{len(self.names)}{copy}.glb") for copy in ("", "-again")]
        for output in outputs:
            done = self.run("convert", "--no-stats", "--textures", path, output)
            if done.returncode != 0:
                self.problems.append((name, f"exit {done.returncode}: {done.stderr[-300:].decode('utf-8', 'replace')}"))
                return
        with open(outputs[0], "rb") as first, open(outputs[1], "rb") as second:
            if first.read() != second.read():
                self.problems.append((name, "the second conversion gave other bytes"))
        self.names[outputs[0]] = name
        self.triangles[outputs[0]] = triangles_of(document["assembly"])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--wrl", required=True)
    parser.add_argument("--modules", required=True)
    parser.add_argument("--corpus", default=CORPUS)
    parser.add_argument("-k", default="")
    parser.add_argument("-v", action="store_true")
    args = parser.parse_args()
    sys.setrecursionlimit(20000)
    reason = fetch(args.modules)
    if reason is not None:
        print(f"skipped: {reason}")
        return SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        converter = Converter(args.wrl, folder)
        root = os.path.join(os.path.abspath(args.corpus), "worlds")
        for base, folders, names in os.walk(root):
            folders.sort()
            for name in sorted(names):
                path = os.path.join(base, name)
                label = os.path.relpath(path, root)
                if name.endswith(".wrl") and args.k in label:
                    converter.convert(path, label)
        command = ["node", os.path.join(HERE, "validate.js"), os.path.join(os.path.abspath(args.modules), "node_modules")]
        done = subprocess.run(command + list(converter.names), capture_output=True, text=True, timeout=600)
        if done.returncode != 0:
            print(done.stderr, file=sys.stderr)
            return 1
        results = json.loads(done.stdout)
    problems = list(converter.problems)
    for output, name in converter.names.items():
        problems += [(name, error) for error in results[output]["errors"]]
        if results[output]["triangles"] != converter.triangles[output]:
            problems.append((name, f"{converter.triangles[output]} triangles became {results[output]['triangles']}"))
    for name, problem in problems:
        print(f"FAIL {name}\n     {problem}")
    failed = {name for name, _ in problems}
    passed = [name for name in converter.names.values() if name not in failed]
    for name in passed if args.v else []:
        print(f"ok   {name}")
    print(f"{len(passed)} passed, {len(failed)} failed")
    return 1 if failed or not passed else 0


if __name__ == "__main__":
    sys.exit(main())
