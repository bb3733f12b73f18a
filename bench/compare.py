#!/usr/bin/env python3
"""Runs the yardstick and the product in turn and prints, as tables, what the product takes beside it.

usage: compare.py --bin FOLDER --data FOLDER [--module FILE] [--rounds N] [-k SUBSTRING]

A figure is the median over the rounds. Time is user time, which each program reads for itself from the system, for the
stage named and not for its start and end; "cpu" counts the system's time for it too, which is steadier for inputs that take
a few hundredths of a second. Memory is the most that was resident in the whole process. It is a report: it fails on nothing.
"""
import argparse
import os
import re
import statistics
import subprocess
import sys

STAGE = re.compile(r"^STAGE (\w+) user=([\d.]+) sys=([\d.]+) wall=[\d.]+ peakMiB=([\d.]+)$", re.M)


class Figures:
    """What the rounds of one program on one input gave."""

    def __init__(self):
        self.user, self.cpu, self.peak = [], [], []

    def add(self, user, system, peak):
        self.user.append(user)
        self.cpu.append(user + system)
        self.peak.append(peak)

    def __bool__(self):
        return bool(self.user)


def measure(command, stage, figures):
    """Runs a program once and adds the figures of its stage; false, with a word about it, when it gives none."""
    done = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True)
    rows = [row for row in STAGE.findall(done.stdout) if row[0] == stage]
    if done.returncode != 0 or not rows:
        print(f"{' '.join(command)}: exit {done.returncode}: {done.stderr.strip()[-300:]}", file=sys.stderr)
        return False
    figures.add(*map(float, rows[-1][1:]))
    return True


class Bench:
    def __init__(self, args):
        self.args = args
        self.done = {}

    def program(self, name):
        path = os.path.join(self.args.bin, name)
        return path if os.path.exists(path) else None

    def commands(self, work, name):
        """The yardstick's command and the product's with the stage that counts, or None where a program is not there."""
        world = os.path.join(self.args.data, name + ".wrl")
        output = os.path.join(self.args.data, "written.wrl")
        yardstick, load, export = map(self.program, ("yardstick", "bench_load", "bench_export"))
        if work == "export":
            return export and (([yardstick, "write", output], "write"), ([export, output, self.args.module], "export"))
        options = [self.args.module] if work == "import" else []
        return load and (([yardstick, "read", world], "read"), ([load, work, world, *options], work))

    def run(self, work, name):
        """The yardstick's figures and the product's, measured in turn; measured once, however many tables ask."""
        key = (work, name)
        if key not in self.done:
            self.done[key] = (Figures(), Figures())
            commands = self.commands(work, name)
            for _ in range(self.args.rounds if commands else 0):
                if not all([measure(*command, figures) for command, figures in zip(commands, self.done[key])]):
                    break
        return self.done[key]

    def grow(self, work, name, double):
        """The product's figures for an input and for its double, measured in turn, so that both meet the same machine."""
        inputs = [(name, Figures()), (double, Figures())]
        for _ in range(self.args.rounds):
            for which, figures in inputs:
                commands = self.commands(work, which)
                if not commands or not measure(*commands[1], figures):
                    return None
        return [figures for _, figures in inputs]


# Work, input, and what of the yardstick's time is aimed at.
SPEED = [
    ("read", "ifs_100MB", 1.3), ("read", "many_20MB", 3), ("read", "defuse", 5),
    ("import", "ifs_100MB", 2.5), ("import", "many_20MB", 6), ("import", "defuse", 12),
    ("export", "grid", 0.8),
]
# Work, an input, its double, and how much longer the double may take.
GROWTH = [(work, *pair, 2.1) for work in ("read", "import") for pair in (("many_20MB", "many_40MB"), ("defuse", "defuse2"))]
# Work, input, and the mebibytes that are aimed at.
MEMORY = [("read", "ifs_100MB", 150), ("read", "many_20MB", 120), ("import", "ifs_100MB", 330)]


def table(title, head, rows):
    print(f"\n{title}\n\n| {' | '.join(head)} |\n|{'---|' * len(head)}")
    for row in rows:
        print(f"| {' | '.join(row)} |", flush=True)


def speed_rows(bench, chosen):
    for work, name, aim in filter(chosen, SPEED):
        yardstick, product = bench.run(work, name)
        if yardstick and product:
            base, user = statistics.median(yardstick.user), statistics.median(product.user)
            cpu = statistics.median(product.cpu) / statistics.median(yardstick.cpu)
            yield work, name, f"{base:.3f}", f"{user:.3f}", f"{user / base:.2f}", f"{cpu:.2f}", f"{aim}"


def growth_rows(bench, chosen):
    for work, name, double, aim in filter(chosen, GROWTH):
        pair = bench.grow(work, name, double)
        if pair:
            small, large = pair
            ratio = statistics.median(large.cpu) / statistics.median(small.cpu)
            yield work, f"{double} to {name}", f"{ratio:.2f}", f"{aim}"


def memory_rows(bench, chosen):
    for work, name, aim in filter(chosen, MEMORY):
        product = bench.run(work, name)[1]
        if product:
            yield work, name, f"{statistics.median(product.peak):.0f}", f"{aim}"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--bin", required=True)
    parser.add_argument("--data", required=True)
    parser.add_argument("--module", default="")
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("-k", default="", help="only rows whose work and input hold this text")
    args = parser.parse_args()
    bench = Bench(args)

    def chosen(row):
        return args.k in " ".join(map(str, row))

    table("Speed: seconds of user time", ["work", "input", "yardstick", "wrl", "ratio", "ratio of cpu", "aim"],
          speed_rows(bench, chosen))
    table("Growth: twice the input to the input, cpu time", ["work", "inputs", "ratio", "aim"], growth_rows(bench, chosen))
    table("Memory: MiB resident at most", ["work", "input", "wrl", "aim"], memory_rows(bench, chosen))


if __name__ == "__main__":
    main()
