#!/usr/bin/env python3
"""Runs the commands that the documents show and compares what comes out.

usage: run_documents.py --wrl PATH/TO/wrl [--update] [DOCUMENT...]

In a block that begins with ```console, a line that begins with "$ " is run by bash, and the lines behind it are all that it
prints, standard error included. The commands of a document run in order in one folder, which begins as a copy of examples/.
Times are compared as times. With --update the documents are written anew with what came out.
"""
import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
TIMES = [(re.compile(r"\d+\.\d{3} s\b"), "0.000 s"), (re.compile(r'"seconds":[-+.e\d]+'), '"seconds":0.001')]


def masked(text):
    for pattern, replacement in TIMES:
        text = pattern.sub(replacement, text)
    return text


def run(command, folder, wrl):
    environment = {**os.environ, "PATH": os.path.dirname(wrl) + os.pathsep + os.environ["PATH"]}
    done = subprocess.run(["bash", "-c", command], cwd=folder, env=environment, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL, timeout=120)
    return done.stdout.decode(errors="replace").splitlines()


def check(document, wrl, update):
    """The number of commands, and how many gave something else than is shown."""
    with open(document, encoding="utf-8") as f:
        lines = f.read().splitlines()
    written, count, wrong, in_block, i = [], 0, 0, False, 0
    with tempfile.TemporaryDirectory() as folder:
        shutil.copytree(os.path.join(ROOT, "examples"), folder, dirs_exist_ok=True)
        while i < len(lines):
            line = lines[i]
            written.append(line)
            i += 1
            if line.startswith("```"):
                in_block = line == "```console"
            elif in_block and line.startswith("$ "):
                shown = []
                while not lines[i].startswith(("$ ", "```")):
                    shown.append(lines[i])
                    i += 1
                found = [masked(text) for text in run(line[2:], folder, wrl)]
                written += found
                count += 1
                if found != [masked(text) for text in shown] and not update:
                    wrong += 1
                    print(f"{os.path.relpath(document)}: {line}\n--- shown\n" + "\n".join(shown) + "\n--- found\n" + "\n".join(found))
    if update:
        with open(document, "w", encoding="utf-8") as f:
            f.write("\n".join(written) + "\n")
    return count, wrong


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--wrl", required=True)
    parser.add_argument("--update", action="store_true")
    parser.add_argument("documents", nargs="*", default=[os.path.join(ROOT, "docs", "usage.md")])
    args = parser.parse_args()
    results = [check(document, os.path.abspath(args.wrl), args.update) for document in args.documents]
    count, wrong = sum(r[0] for r in results), sum(r[1] for r in results)
    print(f"{count} commands, {wrong} of them wrong")
    return 1 if wrong or count == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
