#!/usr/bin/env python3
"""Checks a module's dynamic symbols.

usage: check_symbols.py MODULE --exports NAME... --host LIBRARY [--optional NAME...]

The module must define the named symbols and no other, and what it leaves undefined must be defined by the host library,
or by a library of the C and C++ runtime (the sanitizers' counted, in a build that has them); it may need no other library.
What is optional it must refer to weakly, so that it loads in a host that lacks it; nothing else of the host's may be weak.
Prints a line for each finding; exit status 1 when there was any.
"""
import argparse
import re
import subprocess
import sys

RUNTIME = re.compile(r"(libstdc\+\+|libm|libc|libgcc_s|ld-linux[-\w]*|libasan|libubsan)\.so(\.\d+)*")


def dynamic_symbols(path, *options):
    """Names in the dynamic symbol table, without versions, with their type letters."""
    out = subprocess.run(["nm", "-D", "--without-symbol-versions", *options, path], check=True, capture_output=True,
                         text=True).stdout
    return {words[-1]: words[-2] for words in map(str.split, out.splitlines()) if len(words) >= 2}


def needed_libraries(path):
    """Pairs of name and file of what the dynamic linker loads with this module."""
    out = subprocess.run(["ldd", path], check=True, capture_output=True, text=True).stdout
    found = []
    for line in out.splitlines():
        words = line.split()
        if "=>" in words:
            found.append((words[0], words[2]))
        elif words[0].startswith("/"):
            found.append((words[0].rsplit("/", 1)[-1], words[0]))
    return found


def directly_needed(path):
    out = subprocess.run(["objdump", "-p", path], check=True, capture_output=True, text=True).stdout
    return re.findall(r"NEEDED\s+(\S+)", out)


def findings(module, exports, host, optional):
    defined = dynamic_symbols(module, "--defined-only")
    yield from (f"{name} is exported" for name in sorted(set(defined) - set(exports)))
    yield from (f"{name} is not exported" for name in sorted(set(exports) - set(defined)))

    host_name = host.rsplit("/", 1)[-1]
    for name in directly_needed(module):
        if not RUNTIME.fullmatch(name) and name != host_name:
            yield f"the module needs {name}"

    known = set(dynamic_symbols(host, "--defined-only"))
    undefined = dynamic_symbols(module, "--undefined-only")
    weak = {name for name, kind in undefined.items() if kind in "wv" and name in known}
    for wanted in optional:
        if not any(wanted in name for name in weak):
            yield f"{wanted} is not referred to weakly"
    yield from (f"{name} is weak" for name in sorted(weak) if not any(wanted in name for wanted in optional))

    for name, path in needed_libraries(module):
        if RUNTIME.fullmatch(name) and path.startswith("/"):
            known |= set(dynamic_symbols(path, "--defined-only"))
    for name, kind in sorted(undefined.items()):
        if name not in known and kind not in "wv":
            yield f"{name} is neither the host's nor the runtime's"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("module")
    parser.add_argument("--exports", nargs="+", required=True)
    parser.add_argument("--host", required=True)
    parser.add_argument("--optional", nargs="*", default=[])
    args = parser.parse_args()
    found = list(findings(args.module, args.exports, args.host, args.optional))
    for finding in found:
        print(f"error: {finding}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
