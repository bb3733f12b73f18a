#!/usr/bin/env python3
"""What the command says of itself: help, manual page, and completion in three shells.

usage: describes_itself_test.py --wrl PATH/TO/wrl [unittest's arguments]
"""
import os
import pty
import re
import select
import subprocess
import sys
import tempfile
import time
import unittest

WRL = None


def wrl(*arguments):
    return subprocess.run([WRL, *arguments], check=True, capture_output=True, text=True).stdout


def commands():
    text = wrl("--help").split("Subcommands:\n")[1].split("\n\n")[0]
    return re.findall(r"^  (\S+)", text, re.MULTILINE)


def long_options(command):
    return sorted(set(re.findall(r"^  (?:-\w,)?(--[\w-]+)", wrl(command, "--help"), re.MULTILINE)))


class Scratch(unittest.TestCase):
    """A folder with two files and a folder in it, and the script of one shell."""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        for name in ("garden.wrl", "gate.wrl"):
            open(os.path.join(self.folder.name, name), "w").close()
        os.mkdir(os.path.join(self.folder.name, "garage"))

    def script(self, shell):
        path = os.path.join(self.folder.name, "script." + shell)
        wrl("completion", shell, "-o", path)
        return path


# A line to complete, and what is offered; None where files are (each shell's own completion of them).
ROWS = [
    ("wrl inf", ["info"]),
    ("wrl sc", ["scene"]),
    ("wrl check --tex", ["--textures"]),
    ("wrl nodes --no-r", ["--no-resolve"]),
    ("wrl convert --up ", ["y", "z"]),
    ("wrl completion ", ["bash", "fish", "zsh"]),
    ("wrl completion f", ["fish"]),
    ("wrl info --search gar", ["garage"]),
]


class Bash(Scratch):
    COMPLETE = """
        source "$1"
        COMP_WORDS=($2); [[ $2 == *' ' ]] && COMP_WORDS+=('')
        COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
        compopt() { :; }  # has nothing to act upon outside an interactive completion
        _wrl
        ((${#COMPREPLY[@]} == 0)) || printf '%s\\n' "${COMPREPLY[@]}"
    """

    def complete(self, line):
        done = subprocess.run(["bash", "-c", self.COMPLETE, "bash", self.script("bash"), line], capture_output=True,
                              text=True, cwd=self.folder.name)
        self.assertEqual(done.stderr, "")
        return sorted(done.stdout.split())

    def test_each_line_is_completed(self):
        for line, wanted in ROWS:
            with self.subTest(line=line):
                self.assertEqual(self.complete(line), wanted)

    def test_every_command_and_option_is_offered(self):
        self.assertEqual(self.complete("wrl "), sorted(commands()))
        for command in commands():
            self.assertEqual(self.complete(f"wrl {command} --"), long_options(command))

    def test_files_are_left_to_the_shell(self):
        self.assertEqual(self.complete("wrl info g"), [])
        self.assertIn("\ncomplete -o default ", wrl("completion", "bash"))


class Fish(Scratch):
    def complete(self, line):
        done = subprocess.run(["fish", "--no-config", "-c", "source $argv[1]; complete -C $argv[2]", self.script("fish"), line],
                              capture_output=True, text=True, cwd=self.folder.name,
                              env={**os.environ, "HOME": self.folder.name})
        self.assertEqual(done.stderr, "")
        return sorted(entry.split("\t")[0].rstrip("/") for entry in done.stdout.splitlines())

    def test_each_line_is_completed(self):
        for line, wanted in ROWS:
            with self.subTest(line=line):
                self.assertEqual(self.complete(line), wanted)

    def test_files_are_offered_where_files_are_read(self):
        self.assertEqual(self.complete("wrl info g"), ["garage", "garden.wrl", "gate.wrl"])

    def test_every_option_is_offered(self):
        for command in commands():
            self.assertEqual(self.complete(f"wrl {command} --"), long_options(command))


def has_terminals():
    """Whether this machine gives out pseudo-terminals: a container without /dev/pts does not."""
    try:
        for end in os.openpty():
            os.close(end)
    except OSError:
        return False
    return True


@unittest.skipUnless(has_terminals(), "no pseudo-terminals here")
class Zsh(Scratch):
    """An interactive zsh on a terminal of its own, since its completion works nowhere else."""

    def setUp(self):
        super().setUp()
        script = self.script("zsh")
        self.pid, self.terminal = pty.fork()
        if self.pid == 0:
            os.chdir(self.folder.name)
            os.environ.update(HOME=self.folder.name, TERM="dumb", ZDOTDIR=self.folder.name)
            os.execvp("zsh", ["zsh", "-f", "-i"])
        self.addCleanup(self.end)
        self.say(f"PS1='> '; setopt no_beep; autoload -Uz compinit; compinit -u -D; source {script}; print rea''dy\n")
        self.wait_for("ready")

    def end(self):
        os.close(self.terminal)
        os.waitpid(self.pid, 0)

    def say(self, text):
        os.write(self.terminal, text.encode())

    def wait_for(self, wanted):
        heard, end = "", time.monotonic() + 60
        while wanted not in heard:
            self.assertLess(time.monotonic(), end, f"{wanted!r} never came, but {heard!r}")
            if select.select([self.terminal], [], [], 1)[0]:
                heard += os.read(self.terminal, 4096).decode(errors="replace")
        return heard

    def test_each_line_with_one_answer_is_completed(self):
        for number, (line, wanted) in enumerate(ROWS):
            if len(wanted) != 1:
                continue
            with self.subTest(line=line):
                # The line is completed, taken as the text of a print, and shown.
                self.say(f"{line}\t\x01print -r -- case {number}: \x05\n")
                head = " ".join(line.split(" ")[:-1])
                self.wait_for(f"\ncase {number}: {head} {wanted[0]}")

    def test_files_are_offered_where_files_are_read(self):
        self.say("wrl info gat\t\x01print -r -- files: \x05\n")
        self.wait_for("\nfiles: wrl info gate.wrl")


class Manual(unittest.TestCase):
    def formatted(self):
        done = subprocess.run(["groff", "-man", "-ww", "-rHY=0", "-Tascii", "-P-cbou"], input=wrl("manual"), capture_output=True,
                              text=True)
        self.assertEqual(done.stderr, "")
        return done.stdout

    def test_every_command_and_option_is_told(self):
        text = self.formatted()
        for command in commands():
            self.assertIn(f"   wrl {command}\n", text)
            for option in long_options(command):
                self.assertRegex(text, rf"{option}\b")

    def test_every_example_of_the_help_is_told(self):
        text = " ".join(self.formatted().split())
        for command in commands():
            for call, effect in re.findall(r"^  (.*?\S)  +(\S.*)$", wrl(command, "--help").split("Examples:\n")[1], re.MULTILINE):
                self.assertIn(f"{call} {effect}.", text)


class Examples(unittest.TestCase):
    def test_every_command_has_one_that_it_understands(self):
        for command in commands():
            with self.subTest(command=command):
                examples = wrl(command, "--help").split("Examples:\n")[1].strip("\n").splitlines()
                known = long_options(command) + re.findall(r"^  (-\w),", wrl(command, "--help"), re.MULTILINE)
                for example in examples:
                    call = re.split(r"  +", example.strip())[0]
                    self.assertIn(f"wrl {command}", call)
                    own = re.split(r"\s[|>]\s", call)[0]  # what another program is told is not ours
                    self.assertLessEqual(set(re.findall(r"(?<=\s)--?[a-z][\w-]*", own)), set(known))


if __name__ == "__main__":
    at = sys.argv.index("--wrl")
    WRL = os.path.abspath(sys.argv[at + 1])
    del sys.argv[at:at + 2]
    unittest.main()
