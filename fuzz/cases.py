#!/usr/bin/env python3
"""Writes the inputs of the conformance cases as files: worlds to OUT/world, stage documents to OUT/stage.

usage: cases.py OUT

Their authors wrote them to reach a corner each, which is what a fuzzer wants to start from.
"""
import glob
import json
import os
import re
import sys

CASES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "conformance")

# Cases that run into a limit on purpose take seconds, which is nothing to start from.
COSTLY = re.compile(r"without bound|no more|not one more|in time|hundred thousand")


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    out, seen = sys.argv[1], set()
    for kind in ("world", "stage"):
        os.makedirs(os.path.join(out, kind), exist_ok=True)
    for path in sorted(glob.glob(os.path.join(CASES, "*.json"))):
        with open(path, encoding="utf-8") as f:
            cases = json.load(f)["cases"]
        for case in cases:
            if COSTLY.search(case["name"]):
                continue
            for name, text in case.get("files", {}).items():
                text = "\n".join(text) if isinstance(text, list) else text
                kind = {".wrl": "world", ".json": "stage"}.get(os.path.splitext(name)[1])
                if kind is None or text in seen or len(text) > 20000:
                    continue
                seen.add(text)
                with open(os.path.join(out, kind, f"case-{len(seen)}"), "w", encoding="utf-8", newline="") as f:
                    f.write(text)


if __name__ == "__main__":
    main()
