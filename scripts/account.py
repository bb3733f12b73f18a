#!/usr/bin/env python3
"""Says what became of every file that GNU parallel was to work on: nothing is lost when each has an output or a reason.

usage: account.py LIST JOBLOG OUTPUT

LIST holds the names that went in, each ended by a zero byte, in the order in which parallel took them (parallel -0 -a LIST);
JOBLOG is what its --joblog wrote. OUTPUT names the file that one input becomes, with {} for the input's name: models/{}.glb.

A line of text for each file that has no output, with the reason; one for each that is not accounted for: never run, ended
well without an output, or failed and yet with one; then the counts, and how many processors were kept busy on the way. Exit
status 1 when a file is not accounted for; one that failed with a reason is.
"""
import os
import sys
from collections import Counter, namedtuple

Job = namedtuple("Job", "start seconds status signal")


def read_names(path):
    with open(path, "rb") as f:
        names = f.read().split(b"\0")
    return [os.fsdecode(name) for name in names if name]


def read_jobs(path):
    """The last job of each number, from 1. A command with a line break in it goes over several lines of the log."""
    jobs = {}
    with open(path, encoding="utf-8", errors="replace") as f:
        for line in f:
            cells = line.split("\t")
            if len(cells) >= 9 and cells[0].isdigit():
                jobs[int(cells[0])] = Job(float(cells[2]), float(cells[3]), int(cells[6]), int(cells[7]))
    return jobs


def reason(job):
    if job.status == -1 or job.status == 124:
        return "out of time"
    if job.signal != 0:
        return f"signal {job.signal}"
    if job.status > 128:
        return f"signal {job.status - 128}"
    return f"exit status {job.status}"


def fate(job, has_output):
    """What became of one file, and whether that is a whole account of it."""
    if job is None:
        return "never run", False
    if job.status == 0 and job.signal == 0:
        return ("written", True) if has_output else ("ended well, but there is no output", False)
    return (reason(job), True) if not has_output else (reason(job) + ", but there is an output", False)


def busy(jobs):
    """How many jobs ran at a time, on average from the first one's start to the last one's end."""
    start, end = min(job.start for job in jobs), max(job.start + job.seconds for job in jobs)
    return sum(job.seconds for job in jobs) / (end - start) if end > start else 0.0


def main():
    if len(sys.argv) != 4 or "{}" not in sys.argv[3]:
        sys.exit(__doc__)
    names, jobs = read_names(sys.argv[1]), read_jobs(sys.argv[2])
    counts, unaccounted = Counter(), 0
    for number, name in enumerate(names, 1):
        what, is_whole = fate(jobs.get(number), os.path.isfile(sys.argv[3].replace("{}", name)))
        counts["written" if what == "written" else "failed" if is_whole else "unaccounted"] += 1
        unaccounted += not is_whole
        if what != "written":
            print(f"{name}: {what}".encode(errors="replace").decode())
    print(f"{len(names)} files: {counts['written']} written, {counts['failed']} failed, {unaccounted} not accounted for")
    if jobs:
        print(f"{busy(list(jobs.values())):.1f} at a time")
    return 1 if unaccounted or not names else 0


if __name__ == "__main__":
    sys.exit(main())
