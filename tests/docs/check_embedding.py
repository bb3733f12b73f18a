#!/usr/bin/env python3
"""Holds docs/embedding.md against the module: every function of the host's that it calls is named there, and no other.

usage: check_embedding.py MODULE
"""
import os
import re
import subprocess
import sys

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
HOST = re.compile(r"(?:sgl|CVek|GetProp)\w*")


def called(module):
    """The host's functions among the undefined symbols, without destructors, which go with their constructors."""
    listed = subprocess.run(["nm", "-DC", "--undefined-only", module], check=True, capture_output=True, text=True).stdout
    names = set()
    for line in listed.splitlines():
        name = re.sub(r"(\[abi:\w+\])|(<\w+>)", "", line.split(None, 1)[1].split("(")[0])
        if HOST.match(name) and "~" not in name:
            names.add(name)
    return names


def named():
    with open(os.path.join(ROOT, "docs", "embedding.md"), encoding="utf-8") as f:
        section = f.read().split("call by call\n")[1]
    cells = "".join(line.split("|")[1] for line in section.splitlines() if line.startswith("| `"))
    return set(re.findall(r"`([\w:]+)`", cells))


def main():
    wanted, found = called(sys.argv[1]), named()
    for name in sorted(wanted - found):
        print(f"error: {name} is called and not named")
    for name in sorted(found - wanted):
        print(f"error: {name} is named and not called")
    return 1 if wanted != found or not wanted else 0


if __name__ == "__main__":
    sys.exit(main())
