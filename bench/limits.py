#!/usr/bin/env python3
"""Measures what attacks at the limits of a load cost: the smallest file that reaches a limit, and one that passes it.

usage: limits.py --wrl PATH/TO/wrl [-k SUBSTRING]

Each file goes through `wrl check` (read, resolve) and `wrl info` (the whole import, and a walk over the scene). Prints a
Markdown table: the size of the files, the answer, processor seconds, and the peak of resident memory in MiB.
"""
import argparse
import os
import subprocess
import sys
import tempfile

HEADER = "#VRML V2.0 utf8\n"


def nest(depth, core, node="Transform"):
    return f"{node}{{children " * depth + core + "}" * depth


def copies(lines, last):
    """Groups that hold ten references to the one before, with one more node; the last line is `last` of them."""
    text = "DEF n0 Group { }\n"
    for i in range(1, lines):
        text += f"DEF n{i} Group {{ children [ {f'USE n{i - 1} ' * 10}] }}\n"
    return text + f"Group {{ children [ {f'USE n{lines - 1} ' * last}] }}\n"


def deepest():
    text = "DEF n0 Transform { children Group { } }\n"
    for i in range(1, 44):
        text += f"DEF n{i} " + nest(4000, f"USE n{i - 1}") + "\n"
    return text


def instances(levels):
    text = "PROTO P0 [ field MFNode n [ ] ] { Group { children IS n } }\n"
    for i in range(1, levels + 1):
        inner = f"P{i - 1} {{ n IS n }} "
        text += f"PROTO P{i} [ field MFNode n [ ] ] {{ Group {{ children [ {inner * 2}] }} }}\n"
    return text + f"P{levels} {{ n [ Group {{ }} Group {{ }} ] }}\n"


def proto_chain(length):
    text = "PROTO P0 [ ] { Group { } }\n"
    for i in range(1, length):
        text += f"PROTO P{i} [ ] {{ Group {{ children P{i - 1} {{ }} }} }}\n"
    return text + f"P{length - 1} {{ }}\n"


def inlines(count, name="part.wrl"):
    return f'Inline {{ url "{name}" }}\n' * count


def chain(depth):
    files = {f"f{i}.wrl": inlines(1, f"f{i + 1}.wrl") for i in range(depth)}
    return {**files, f"f{depth}.wrl": "Group { }"}


def titles(count):
    return 'PROTO T [ ] { WorldInfo { title "' + "t" * 1_000_000 + '" } }\n' + "T { }\n" * count


def comment():
    return "#" * (64 << 20)


def numbers():
    return "Shape { geometry PointSet { coord Coordinate { point [ " + "1 2 3 " * 2_500_000 + "] } } }"


# What is attacked, and the files of the attack; the first is the one that is loaded.
ATTACKS = [
    ("nodes open at once, reached", lambda: {"a.wrl": nest(4096, "NULL")}),
    ("nodes open at once, passed", lambda: {"a.wrl": nest(1_000_000, "NULL")}),
    ("deepest tree: copies below open nodes", lambda: {"a.wrl": deepest()}),
    ("depth of expansions, reached", lambda: {"a.wrl": proto_chain(64)}),
    ("depth of expansions, passed", lambda: {"a.wrl": proto_chain(65)}),
    ("text of expansions, reached", lambda: {"a.wrl": titles(67)}),
    ("text of expansions, passed", lambda: {"a.wrl": titles(68)}),
    ("text of expansions, in a million instances", lambda: {"a.wrl": instances(40)}),
    ("nodes of a tree, reached", lambda: {"a.wrl": copies(7, 2)}),
    ("nodes of a tree, passed", lambda: {"a.wrl": copies(7, 3)}),
    ("depth of Inline files, reached", lambda: chain(16)),
    ("depth of Inline files, passed", lambda: chain(17)),
    ("number of Inline files, reached", lambda: {"a.wrl": inlines(4096), "part.wrl": "Group { }"}),
    ("number of Inline files, passed", lambda: {"a.wrl": inlines(4097), "part.wrl": "Group { }"}),
    ("text of Inline files, reached", lambda: {"a.wrl": inlines(15), "part.wrl": comment()}),
    ("text of Inline files, passed", lambda: {"a.wrl": inlines(17), "part.wrl": comment()}),
    ("text of Inline files, all of it numbers", lambda: {"a.wrl": inlines(71), "part.wrl": numbers()}),
]


def write_files(folder, files):
    """Writes the files of an attack, in a process of its own: the memory that a process had before it became another one
    counts as that one's."""
    child = os.fork()
    if child == 0:
        for number, (name, text) in enumerate(files().items()):
            with open(os.path.join(folder, "first" if number == 0 else name), "w", encoding="ascii") as f:
                f.write(HEADER + text)
        os._exit(0)
    os.waitpid(child, 0)
    return os.path.join(folder, "first")


def measure(wrl, command, path):
    """The exit status, processor seconds and MiB of one run."""
    child = subprocess.Popen([wrl, command, path], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                             stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(child.pid, 0)
    child.returncode = os.waitstatus_to_exitcode(status)
    return child.returncode, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


def size_text(size):
    return f"{size} B" if size < 1000 else f"{size / 1000:.1f} kB" if size < 1e6 else f"{size / 1e6:.1f} MB"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--wrl", required=True)
    parser.add_argument("-k", default="")
    args = parser.parse_args()
    print("| attack | files | answer | read: s | MiB | import: s | MiB |")
    print("|---|---|---|---|---|---|---|")
    with tempfile.TemporaryDirectory() as folder:
        for name, files in ATTACKS:
            if args.k not in name:
                continue
            path = write_files(folder, files)
            runs = [measure(args.wrl, command, path) for command in ("check", "info")]
            answer = "loads" if runs[0][0] == 0 else "refused" if runs[0][0] == 1 else f"exit {runs[0][0]}"
            written = [os.path.join(folder, file) for file in os.listdir(folder)]
            size = sum(map(os.path.getsize, written))
            cells = [f"{seconds:.2f} | {mib:.0f}" for _, seconds, mib in runs]
            print(f"| {name} | {size_text(size)} | {answer} | {' | '.join(cells)} |", flush=True)
            for file in written:
                os.remove(file)
    return 0


if __name__ == "__main__":
    sys.exit(main())
