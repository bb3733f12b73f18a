#!/usr/bin/env python3
"""Checks what the compiler cannot: who includes whom, and that no text of the project ties it to one machine.

usage: check_tree.py layers|texts|names|headers [--root DIR] [--compiler CXX]

  layers   every include of a project file stays inside what MAY_INCLUDE allows; the host's headers are named in angle
           brackets, so that another host's can take their place; the C++ standard library is all else that the module sees
  texts    no source names a path of one machine, and every header begins with #pragma once
  names    what docs/architecture.md names in back quotes stands in the sources: files, and the words of identifiers
  headers  every header of the module compiles alone (asks for a compiler; the host's are compiled alone by tests/host)
Prints 'FILE:LINE: error: ...' for each finding; exit status 1 when there was any.
"""
import argparse
import concurrent.futures
import os
import re
import subprocess
import sys

# Folder, and the folders whose headers its files may include. A folder that is not named may include anything.
MAY_INCLUDE = {
    "vrml/fields": ["vrml/fields"],
    "image": ["image"],
    "vrml/nodes": ["vrml/nodes", "vrml/fields", "image"],
    "vrml/reader": ["vrml/reader", "vrml/nodes", "vrml/fields", "image"],
    "host": ["host"],
    "import": ["import", "vrml/reader", "vrml/nodes", "vrml/fields", "image", "host"],
    "export": ["export", "host"],
    "entry": ["entry", "import", "export", "host"],
    "embedded": ["embedded", "host"],
    "tools/wrl": ["tools/wrl", "embedded", "host", "vrml/reader", "vrml/nodes", "vrml/fields"],
}
# The module's own folders: beside project files they include standard headers, and nothing else.
MODULE = ["vrml/fields", "vrml/nodes", "vrml/reader", "image", "import", "export", "entry", "host"]
HOST_LIBRARIES = ("VekSG/", "VekSGdb/", "VekKernel/", "VekGeometry/", "VekFoundations/")
SYSTEM_HEADERS = {"fcntl.h", "unistd.h", "sys/stat.h", "sys/types.h", "sys/mman.h"}  # POSIX, where the library has no word

INCLUDE = re.compile(r'^\s*#\s*include\s*(<[^>]+>|"[^"]+")')
MACHINE_PATH = re.compile(r'["\s(=]/(?:home|root|work|tmp|Users|mnt)/[A-Za-z]')
SOURCES = (".h", ".cpp")
TEXTS = SOURCES + (".txt", ".cmake", ".md", ".py", ".sh", ".json", ".map")


def files_below(root, endings):
    """Files of the project with one of these endings, as paths relative to the root, in order."""
    found = []
    for base, folders, names in os.walk(root):
        at_top = os.path.samefile(base, root)
        folders[:] = sorted(f for f in folders if not f.startswith(".") and not (at_top and f.startswith("build")))
        found += [os.path.relpath(os.path.join(base, name), root) for name in sorted(names) if name.endswith(endings)]
    return found


def lines_of(root, path):
    with open(os.path.join(root, path), encoding="utf-8", errors="replace") as f:
        return list(enumerate(f, 1))


def folder_of(path, folders):
    """The one of these folders that the path lies in, or None."""
    return next((folder for folder in folders if path.startswith(folder + "/")), None)


def include_finding(path, folder, text):
    """What is wrong with one include, or None. TEXT is the header's name in its quotes or brackets."""
    name, quoted = text[1:-1], text[0] == '"'
    if name.startswith(HOST_LIBRARIES):
        if quoted and folder != "host":
            return f"{name} belongs to the host and stands in angle brackets"
        return None if "host" in MAY_INCLUDE[folder] else f"{folder} knows no host header, found {name}"
    if quoted:
        target = folder_of(name, MAY_INCLUDE)
        if target is None:
            return f"{name} is named from the project's root"
        return None if target in MAY_INCLUDE[folder] else f"{folder} includes nothing of {target}, found {name}"
    if folder in MODULE and name not in SYSTEM_HEADERS and not re.fullmatch(r"[a-z_0-9]+", name):
        return f"the module stands on the C++ standard library alone, found {name}"
    return None


def check_layers(root):
    for path in files_below(root, SOURCES):
        folder = folder_of(path, MAY_INCLUDE)
        if folder is None:
            continue
        for number, line in lines_of(root, path):
            match = INCLUDE.match(line)
            finding = match and include_finding(path, folder, match.group(1))
            if finding:
                yield path, number, finding


def check_texts(root):
    for path in files_below(root, TEXTS):
        if path.startswith(("tests/corpus/worlds", "tests/corpus/odd")):
            continue
        lines = lines_of(root, path)
        if path.endswith(".h") and not any(line.strip() == "#pragma once" for _, line in lines):
            yield path, 1, "a header begins with #pragma once"
        for number, line in lines:
            if MACHINE_PATH.search(line):
                yield path, number, "a path of one machine"


def check_names(root):
    document = os.path.join("docs", "architecture.md")
    sources = files_below(root, (".h", ".cpp", ".map"))
    known = {os.path.basename(path) for path in sources} | {folder for folder in MAY_INCLUDE}
    for path in sources:
        if not path.startswith("tests/"):
            known.update(word for _, line in lines_of(root, path) for word in re.findall(r"\w+", line))
    in_block = False
    for number, line in lines_of(root, document):
        in_block ^= line.startswith("```")
        for name in [] if in_block else re.findall(r"`([^`]+)`", line):
            is_file = re.fullmatch(r"[\w./-]+\.(h|cpp|map)", name)
            is_identifier = re.fullmatch(r"(\w+::)*\w+", name)
            words = [os.path.basename(name)] if is_file else name.split("::") if is_identifier else []
            if not known.issuperset(words):
                yield document, number, f"{name} is not in the sources"


def check_headers(root, compiler):
    command = [compiler, "-std=c++20", "-fsyntax-only", "-Wall", "-Wextra", "-Werror", f"-I{root}",
               f"-I{os.path.join(root, 'host')}", "-x", "c++", "-"]

    def complaint(path):
        done = subprocess.run(command, input=f'#include "{path}"\n', capture_output=True, text=True)
        return None if done.returncode == 0 else next(line for line in done.stderr.splitlines() if "error:" in line)

    headers = [path for path in files_below(root, (".h",)) if folder_of(path, MODULE) not in (None, "host")]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for path, text in zip(headers, pool.map(complaint, headers)):
            if text is not None:
                yield path, 1, "does not compile alone: " + text


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("check", choices=["layers", "texts", "names", "headers"])
    parser.add_argument("--root", default=os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
    parser.add_argument("--compiler", default="c++")
    args = parser.parse_args()
    root = os.path.abspath(args.root)
    if args.check == "layers":
        findings = check_layers(root)
    elif args.check == "texts":
        findings = check_texts(root)
    elif args.check == "names":
        findings = check_names(root)
    else:
        findings = check_headers(root, args.compiler)
    count = 0
    for path, number, what in findings:
        print(f"{path}:{number}: error: {what}")
        count += 1
    return 1 if count else 0


if __name__ == "__main__":
    sys.exit(main())
