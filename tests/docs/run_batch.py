#!/usr/bin/env python3
"""Runs what docs/batch.md shows over real worlds, and sees whether the account that it takes finds what is lost.

usage: run_batch.py --wrl PATH/TO/wrl [unittest's arguments]
"""
import glob
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
ACCOUNT = os.path.join(ROOT, "scripts", "account.py")
WRL = None
BROKEN = "#VRML V2.0 utf8\nShape { size 3 }\n"


def blocks():
    """The scripts of the document: one machine, and a task of an array."""
    with open(os.path.join(ROOT, "docs", "batch.md"), encoding="utf-8") as f:
        return re.findall(r"^```sh\n(.*?)^```", f.read(), re.MULTILINE | re.DOTALL)


class Batch(unittest.TestCase):
    """A folder with every fourth world of the corpus and some that are odd, as a user would have it."""

    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = scratch.name
        worlds = os.path.join(ROOT, "tests", "corpus", "worlds")
        for path in sorted(glob.glob(worlds + "/**/*.wrl", recursive=True))[::4]:
            target = os.path.join(self.folder, "worlds", os.path.relpath(path, worlds))
            os.makedirs(os.path.dirname(target), exist_ok=True)
            shutil.copy(path, target)
        os.makedirs(os.path.join(self.folder, "worlds", "odd names"))
        for name, text in {"broken.wrl": BROKEN, "it's \"one\" $HOME.wrl": None, "-q.WRL": None, "-q.wrl": None,
                           "two\nlines.wrl": None}.items():
            with open(os.path.join(self.folder, "worlds", "odd names", name), "w", encoding="utf-8") as f:
                f.write(text or "#VRML V2.0 utf8\nShape { geometry Box { } }\n")
        os.symlink(os.path.join(ROOT, "scripts"), os.path.join(self.folder, "scripts"))
        self.count = sum(len(files) for _, _, files in os.walk(os.path.join(self.folder, "worlds")))

    def run_script(self, script, **more):
        environment = {**os.environ, "HOME": self.folder, "PATH": os.path.dirname(WRL) + os.pathsep + os.environ["PATH"], **more}
        done = subprocess.run(["bash", "-c", script], cwd=self.folder, env=environment, capture_output=True, text=True)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def account(self):
        return subprocess.run([ACCOUNT, "worlds.list", "convert.log", "models/{}.glb"], cwd=self.folder,
                              capture_output=True, text=True)

    def models(self):
        return sorted(os.path.join(folder, name) for folder, _, names in os.walk(os.path.join(self.folder, "models"))
                      for name in names)

    def test_every_file_has_an_output_or_a_reason(self):
        said = self.run_script(blocks()[0]).splitlines()
        written, failed = map(int, re.match(rf"{self.count} files: (\d+) written, (\d+) failed, 0 not accounted for$",
                                            said[-2]).groups())
        self.assertEqual(written, len(self.models()))
        self.assertEqual(failed, self.count - written)
        self.assertIn("odd names/broken.wrl: exit status 1", said)
        self.assertEqual(len([name for name in self.models() if "odd names" in name]), 4)

        victim = self.models()[0]
        os.rename(victim, victim + ".away")
        lost = self.account()
        name = os.path.relpath(victim, os.path.join(self.folder, "models"))[:-4]
        self.assertEqual(lost.returncode, 1)
        self.assertIn(f"{name}: ended well, but there is no output\n", lost.stdout)
        self.assertIn(" 1 not accounted for\n", lost.stdout)
        os.rename(victim + ".away", victim)

        stale = os.path.join(self.folder, "models", "odd names", "broken.wrl.glb")
        open(stale, "w").close()
        self.assertIn("odd names/broken.wrl: exit status 1, but there is an output\n", self.account().stdout)
        os.remove(stale)
        self.assertEqual(self.account().returncode, 0)

    def test_an_array_of_tasks_leaves_none_out(self):
        list_them, task = blocks()[0].splitlines()[0], blocks()[1]
        self.run_script(list_them)
        for number in range(1, 4):
            self.run_script(task.replace("/100", "/3"), SLURM_ARRAY_TASK_ID=str(number), SLURM_CPUS_PER_TASK="2")
        counts = []
        for path in glob.glob(self.folder + "/account.*.txt"):
            with open(path, encoding="utf-8") as f:
                counts.append(re.search(r"^(\d+) files: (\d+) written, \d+ failed, 0 not accounted for$", f.read(), re.MULTILINE))
        self.assertEqual(len(counts), 3)
        self.assertEqual(sum(int(count[1]) for count in counts), self.count)
        self.assertEqual(sum(int(count[2]) for count in counts), len(self.models()))


class Fates(unittest.TestCase):
    """What the account makes of a log."""

    HEADER = "Seq\tHost\tStarttime\tJobRuntime\tSend\tReceive\tExitval\tSignal\tCommand\n"

    def account(self, rows, outputs):
        with tempfile.TemporaryDirectory() as folder:
            with open(folder + "/list", "w", encoding="utf-8") as f:
                f.write("a\0b\0")
            with open(folder + "/log", "w", encoding="utf-8") as f:
                f.write(self.HEADER + "".join(f"{seq}\t:\t{start}\t2.0\t0\t0\t{status}\t{signal}\twrl\n"
                                              for seq, start, status, signal in rows))
            for name in outputs:
                open(f"{folder}/{name}.out", "w").close()
            done = subprocess.run([ACCOUNT, "list", "log", "{}.out"], cwd=folder, capture_output=True, text=True)
        return done.returncode, done.stdout

    def test_each(self):
        good = (1, 10.0, 0, 0)
        for rows, outputs, status, said in [
            ([good, (2, 10.0, 0, 0)], "ab", 0, "2 files: 2 written, 0 failed, 0 not accounted for\n2.0 at a time\n"),
            ([good, (2, 12.0, 1, 0)], "a", 0, "b: exit status 1\n2 files: 1 written, 1 failed, 0 not accounted for\n1.0 at a time\n"),
            ([good, (2, 10.0, -1, 15)], "a", 0, "b: out of time\n"),
            ([good, (2, 10.0, 124, 0)], "a", 0, "b: out of time\n"),
            ([good, (2, 10.0, 0, 9)], "a", 0, "b: signal 9\n"),
            ([good, (2, 10.0, 139, 0)], "a", 0, "b: signal 11\n"),
            ([good], "ab", 1, "b: never run\n2 files: 1 written, 0 failed, 1 not accounted for\n"),
            ([good, (2, 10.0, 0, 0)], "a", 1, "b: ended well, but there is no output\n"),
            ([good, (2, 10.0, 1, 0), (2, 20.0, 0, 0)], "ab", 0, "2 files: 2 written, 0 failed, 0 not accounted for\n"),
        ]:
            with self.subTest(rows=rows, outputs=outputs):
                found, text = self.account(rows, outputs)
                self.assertEqual(found, status)
                self.assertTrue(text.startswith(said), text)


if __name__ == "__main__":
    at = sys.argv.index("--wrl")
    WRL = os.path.abspath(sys.argv[at + 1])
    del sys.argv[at:at + 2]
    unittest.main()
