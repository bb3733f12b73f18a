#!/usr/bin/env python3
"""Runs `wrl` over a folder of real worlds.

usage: run.py --wrl PATH/TO/wrl [--corpus DIR] [-k SUBSTRING] [-v] [--timeout SECONDS]

Every file DIR/worlds/**/*.wrl must load, except those that refused.json names under "worlds"; every file
DIR/odd/**/*.wrl must get the answer that refused.json gives under "odd". An entry is {"line": N, "why": text}: refused,
with the error reported at that line of the file; a line of null, under "odd", means that the file loads. Paths are
relative to DIR/worlds and DIR/odd, so that one list serves the corpus beside this script and any larger one.

A file that loads is one passed case when all of this holds, a refused one when the first does:
  check   `wrl check` answers with the exit status and the line that are expected
  nodes   what `wrl nodes` writes is, read by `wrl nodes` again, the same bytes
  scene   `wrl scene` prints a JSON document with the keys "scene" and "messages", and ends with 0
  loop    what `wrl convert` writes of it loads, and holds as many triangles, in the same colours and, turned once more,
          the same box; of a file without a scene it writes nothing and ends with 1
Prints a line for each file that fails, then the closing line 'N passed, N failed'. Exit status 1 when any failed.
"""
import argparse
import itertools
import json
import os
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(os.path.dirname(HERE), "loop"))
from measure import differences, measure  # noqa: E402

BOX_TOLERANCE = 1e-4  # of the diagonal


class Runner:
    def __init__(self, wrl, timeout):
        self.wrl = os.path.abspath(wrl)
        self.timeout = timeout

    def run(self, *args):
        """The exit status, standard output and standard error of one call; a status of None when it took too long."""
        try:
            done = subprocess.run([self.wrl, *args], stdin=subprocess.DEVNULL, capture_output=True, timeout=self.timeout)
        except subprocess.TimeoutExpired:
            return None, b"", b""
        return done.returncode, done.stdout, done.stderr


def describe(status, errors):
    if status is None:
        return "no answer in time"
    return f"exit {status}; stderr: {errors[-300:].decode('utf-8', 'replace')!r}"


def check_problems(runner, path, line):
    """What is wrong with the answer of `wrl check`; LINE is where the error must be reported, None when it must load."""
    status, out, errors = runner.run("check", path)
    if status != (0 if line is None else 1):
        verdict = "loads" if line is None else f"is refused at line {line}"
        return [f"check: wanted that it {verdict}; {describe(status, errors)}; {out[:300].decode('utf-8', 'replace')!r}"]
    wanted = f"{path}: ok" if line is None else f"{path}:{line}: error"
    if not any(row.startswith(wanted.encode()) for row in out.splitlines()):
        return [f"check: no line {wanted!r} in {out[:300].decode('utf-8', 'replace')!r}"]
    return []


def nodes_problems(runner, path):
    with tempfile.TemporaryDirectory() as folder:
        copies = [os.path.join(folder, name) for name in ("first.wrl", "second.wrl")]
        for source, copy in zip([path, copies[0]], copies):
            status, _, errors = runner.run("nodes", source, "-o", copy)
            if status != 0:
                return [f"nodes: {'what was written' if source != path else 'the file'}: {describe(status, errors)}"]
        first, second = (open(copy, "rb").read() for copy in copies)
    if first == second:
        return []
    rows = itertools.zip_longest(first.splitlines(True), second.splitlines(True), fillvalue=b"")
    at, (a, b) = next((i, pair) for i, pair in enumerate(rows, 1) if pair[0] != pair[1])
    return [f"nodes: written twice, line {at} differs: {a[:120]!r}, then {b[:120]!r}"]


def scene_problems(runner, path):
    status, out, errors = runner.run("scene", path)
    if status != 0:
        return [f"scene: {describe(status, errors)}"]
    try:
        document = json.loads(out)
    except (ValueError, RecursionError) as error:
        return [f"scene: no JSON that can be read: {error}"]
    return [f"scene: lacks {key!r}" for key in ("scene", "messages") if key not in document]


def loop_problems(runner, path):
    status, before, errors = runner.run("stage", "--no-stats", path)
    if status != 0:
        return [f"stage: {describe(status, errors)}"]
    has_scene = json.loads(before)["assembly"] is not None
    with tempfile.TemporaryDirectory() as folder:
        written = os.path.join(folder, "written.wrl")
        status, _, errors = runner.run("convert", "--no-stats", path, written)
        if status != (0 if has_scene else 1):
            return [f"convert: {describe(status, errors)}"]
        if not has_scene:
            return [f"convert: {name} was written of a file without a scene" for name in os.listdir(folder)]
        status, after, errors = runner.run("stage", "--no-stats", written)
    if status != 0:
        return [f"convert: what was written does not load: {describe(status, errors)}"]
    return [f"loop: {line}" for line in differences(measure(before), measure(after), BOX_TOLERANCE)]


def problems_of(runner, path, line):
    if line is not None:
        return check_problems(runner, path, line)
    return check_problems(runner, path, line) + (
        nodes_problems(runner, path) + scene_problems(runner, path) + loop_problems(runner, path)
    )


def worlds_below(folder):
    """The worlds under a folder, as paths relative to it, in order."""
    found = []
    for base, _, names in os.walk(folder):
        found += [os.path.relpath(os.path.join(base, name), folder) for name in names if name.endswith(".wrl")]
    return sorted(found)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--wrl", required=True)
    parser.add_argument("--corpus", default=HERE)
    parser.add_argument("-k", default="")
    parser.add_argument("-v", action="store_true")
    parser.add_argument("--timeout", type=float, default=20)
    args = parser.parse_args()
    sys.setrecursionlimit(20000)
    runner = Runner(args.wrl, args.timeout)
    with open(os.path.join(HERE, "refused.json"), encoding="utf-8") as f:
        answers = json.load(f)
    passed = failed = 0
    for kind in ("worlds", "odd"):
        folder = os.path.join(os.path.abspath(args.corpus), kind)
        for name in worlds_below(folder):
            label = f"{kind}/{name}"
            if args.k not in label:
                continue
            answer = answers[kind].get(name.replace(os.sep, "/"))
            if answer is None and kind == "odd":
                problems = ["refused.json gives no answer"]
            else:
                problems = problems_of(runner, os.path.join(folder, name), answer["line"] if answer else None)
            if problems:
                failed += 1
                print(f"FAIL {label}")
                for problem in problems:
                    print(f"     {problem}")
            else:
                passed += 1
                if args.v:
                    print(f"ok   {label}")
    print(f"{passed} passed, {failed} failed")
    return 1 if failed or not passed else 0


if __name__ == "__main__":
    sys.exit(main())
