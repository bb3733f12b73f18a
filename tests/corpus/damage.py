#!/usr/bin/env python3
"""Runs `wrl` over damaged worlds: each file cut off at every STEPth byte, and each with every STEPth byte changed.

usage: damage.py --wrl PATH/TO/wrl [--corpus DIR] [--step STEP] [-k SUBSTRING] [--command check|scene|nodes] [--seconds S]

Whatever was done to a file, `wrl` must end by itself with status 0 or 1, and within S seconds. `check` takes many files
at once, so that the many copies of one file cost few processes; a batch that ends badly is run again one by one, and the
damage is named. Prints the closing line 'N passed, N failed', where a case is one damaged copy.
"""
import argparse
import os
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
BATCH = 100  # copies handed to one `wrl check`


def damaged(content, step):
    """Pairs of a name that says what was done, and the damaged content."""
    for at in range(0, len(content), step):
        yield f"cut at {at}", content[:at]
        # Flipping bit 6 turns letters to control characters and digits to letters, braces and brackets to others.
        yield f"byte {at} changed", content[:at] + bytes([content[at] ^ 0x40]) + content[at + 1:]


def ends_well(wrl, command, paths, seconds):
    """None, or how the run over these files ended that it must not."""
    try:
        done = subprocess.run([wrl, command, *paths], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=subprocess.PIPE, timeout=seconds)
    except subprocess.TimeoutExpired:
        return f"no answer in {seconds} s"
    if done.returncode in (0, 1) and b"Sanitizer" not in done.stderr:
        return None
    return f"exit {done.returncode}: {done.stderr[-600:].decode('utf-8', 'replace')}"


def run_batch(wrl, command, batch, seconds):
    """The failures of a list of (name, path), as (name, how it ended)."""
    paths = [path for _, path in batch]
    if command == "check" and ends_well(wrl, command, paths, seconds) is None:
        return []
    answers = [(name, ends_well(wrl, command, [path], seconds)) for name, path in batch]
    return [(name, answer) for name, answer in answers if answer is not None]


def run_file(wrl, command, path, step, seconds):
    """How many damaged copies of one file were tried, and the failures among them."""
    with open(path, "rb") as f:
        content = f.read()
    tried, failures = 0, []
    with tempfile.TemporaryDirectory() as folder:
        batch = []
        for name, text in damaged(content, step):
            copy = os.path.join(folder, f"{len(batch)}.wrl")
            with open(copy, "wb") as f:
                f.write(text)
            batch.append((name, copy))
            tried += 1
            if len(batch) == BATCH:
                failures += run_batch(wrl, command, batch, seconds)
                batch = []
        if batch:
            failures += run_batch(wrl, command, batch, seconds)
    return tried, failures


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--wrl", required=True)
    parser.add_argument("--corpus", default=HERE)
    parser.add_argument("--step", type=int, default=997)
    parser.add_argument("-k", default="")
    parser.add_argument("--command", choices=["check", "scene", "nodes"], default="check")
    parser.add_argument("--seconds", type=float, default=10)
    args = parser.parse_args()
    passed = failed = 0
    for base, folders, names in os.walk(args.corpus):
        folders.sort()
        for name in sorted(names):
            path = os.path.join(base, name)
            if not name.endswith(".wrl") or args.k not in path:
                continue
            tried, failures = run_file(os.path.abspath(args.wrl), args.command, path, args.step, args.seconds)
            for what, answer in failures:
                print(f"FAIL {os.path.relpath(path, args.corpus)}, {what}: {answer}")
            failed += len(failures)
            passed += tried - len(failures)
    print(f"{passed} passed, {failed} failed")
    return 1 if failed or not passed else 0


if __name__ == "__main__":
    sys.exit(main())
