#!/usr/bin/env python3
"""Installs a build into a folder of its own, moves that, and uses it as a stranger would.

usage: check_install.py --build DIR --source DIR --compiler CXX [--flags=FLAGS]

The command runs in the moved tree; the example programs are configured with find_package(wrl), built and run; one of them is
compiled by what pkg-config says; a build of the module alone takes the headers of another host.
Prints what went wrong; exit status 1 when anything did.
"""
import argparse
import json
import os
import shutil
import subprocess
import sys
import tempfile


class Failure(Exception):
    pass


def run(*command, **options):
    done = subprocess.run(command, capture_output=True, text=True, **options)
    if done.returncode != 0:
        raise Failure(f"{' '.join(command)}: exit status {done.returncode}\n{done.stdout}{done.stderr}")
    return done.stdout


def expect(what, found, wanted):
    if found != wanted:
        raise Failure(f"{what}: wanted {wanted!r}, found {found!r}")


def check_command(prefix, world):
    found = run(os.path.join(prefix, "bin", "wrl"), "scene", "--no-stats", world)
    expect("the installed command's scene", json.loads(found)["scene"]["type"], "sglTransform")


def check_pages(prefix, world):
    """The installed command writes pages with all that they need, and their viewer's licence is installed with it."""
    wrl = os.path.join(prefix, "bin", "wrl")
    has_pages = ".html" in run(wrl, "formats")
    with open(os.path.join(prefix, "share", "doc", "wrl", "copyright"), encoding="utf-8") as f:
        licence = f.read()
    for part, wanted in (("the wrl authors", True), ("three.js authors", has_pages)):
        expect(f"whether the copyright file names {part}", part in licence, wanted)
    if has_pages:
        page = os.path.join(prefix, "page.html")
        run(wrl, "convert", "-q", world, page)
        expect("whether a page holds its model", os.path.getsize(page) > 100_000, True)


def check_programs(folder, world, prefix=None):
    """The two example programs, where they were built."""
    environment = {**os.environ, **({"LD_LIBRARY_PATH": os.path.join(prefix, "lib")} if prefix else {})}
    expect("load_world", run(os.path.join(folder, "load_world"), world, env=environment), "Left\nLeft\n")
    found = subprocess.run([os.path.join(folder, "load_world"), world + "-is-missing"], capture_output=True, env=environment)
    expect("load_world's status for a file that is missing", found.returncode, 1)


def check_cmake_package(folder, prefix, examples, world, args):
    run("cmake", "-G", "Ninja", "-S", examples, "-B", folder, f"-DCMAKE_PREFIX_PATH={prefix}",
        f"-DCMAKE_CXX_COMPILER={args.compiler}", f"-DCMAKE_CXX_FLAGS={args.flags}")
    run("cmake", "--build", folder)
    check_programs(folder, world)
    expect("own_search", run(os.path.join(folder, "own_search"), world), "found\n")


def check_pkg_config(folder, prefix, examples, world, args):
    environment = {**os.environ, "PKG_CONFIG_PATH": os.path.join(prefix, "lib", "pkgconfig")}
    flags = run("pkg-config", "--cflags", "--libs", "wrl", env=environment).split()
    module = run("pkg-config", "--variable=module", "wrl", env=environment).strip()
    expect(f"whether {module} is there", os.path.isfile(module), True)
    os.mkdir(folder)
    run(args.compiler, "-std=c++20", *args.flags.split(), os.path.join(examples, "load_world.cpp"), *flags, "-o",
        os.path.join(folder, "load_world"))
    check_programs(folder, world, prefix)


def check_other_host(folder, other, args):
    """The module alone, against a folder of headers that is not host/."""
    run("cmake", "-G", "Ninja", "-S", args.source, "-B", folder, f"-DWRL_HOST_INCLUDE_DIR={other}", "-DWRL_BUILD_TOOLS=OFF",
        "-DWRL_BUILD_TESTS=OFF", "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON", f"-DCMAKE_CXX_COMPILER={args.compiler}")
    with open(os.path.join(folder, "compile_commands.json"), encoding="utf-8") as f:
        commands = [entry["command"] for entry in json.load(f) if "/entry/" in entry["file"]]
    expect("the number of entry points", len(commands), 2)
    for command in commands:
        expect("whether the other host's headers are used", f"-I{other} " in command, True)
        expect("whether the headers in host/ are", os.path.join(args.source, "host") in command, False)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", required=True)
    parser.add_argument("--source", required=True)
    parser.add_argument("--compiler", required=True)
    parser.add_argument("--flags", default="")
    args = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        try:
            first, prefix = os.path.join(folder, "first"), os.path.join(folder, "moved")
            run("cmake", "--install", args.build, "--prefix", first)
            shutil.move(first, prefix)
            documents = os.path.join(prefix, "share", "doc", "wrl", "examples")
            examples, world = os.path.join(documents, "host"), os.path.join(documents, "two-triangles.wrl")
            check_command(prefix, world)
            check_pages(prefix, world)
            check_cmake_package(os.path.join(folder, "cmake"), prefix, examples, world, args)
            check_pkg_config(os.path.join(folder, "pkg-config"), prefix, examples, world, args)
            check_other_host(os.path.join(folder, "other"), os.path.join(prefix, "include", "wrl"), args)
        except Failure as failure:
            print(f"error: {failure}")
            return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
