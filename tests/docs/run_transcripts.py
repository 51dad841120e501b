#!/usr/bin/env python3
"""Runs the console transcripts of a document and holds them against what is written.

    run_transcripts.py BIN_FOLDER REPOSITORY DOCUMENT...

A transcript is a fenced block that begins with ```console. A line behind "$ " is a
command, lines behind "> " belong to it (a here-document), and what follows is
what it prints; a line of "..." stands for any lines. Each document gets a
scratch folder with samples/ in it, an own home, an own shell that lasts for all
its blocks, and an own practice gateway with the company "Demo Traders"; the port
9000 of the text is that gateway's. With --fix the written output is replaced by
the real one, but for blocks with "...".
"""

import os
import re
import subprocess
import sys
import tempfile
import threading

TIME_LIMIT = 30  # seconds for one command; its shell is gone then, and the rest fails
END_MARK = "--- end of command ---"
BLOCK = re.compile(r"^```console\n(.*?)^```$", re.MULTILINE | re.DOTALL)


class Surroundings:
    """The gateway and the shell of one document."""

    def __init__(self, bin_folder, repository, scratch):
        os.symlink(os.path.join(repository, "samples"), os.path.join(scratch, "samples"))
        environment = dict(
            os.environ,
            PATH=bin_folder + os.pathsep + os.environ["PATH"],
            VORLANE_HOME=os.path.join(scratch, "home"),
            XDG_CONFIG_HOME=os.path.join(scratch, "config"),
            LC_ALL="C",  # what the shell's own tools say
        )
        self.gateway = subprocess.Popen(
            ["vorlane-practice", "--port", "0", "--company", "Demo Traders", "--stop-after", "300"],
            env=environment, stdout=subprocess.PIPE, text=True)
        self.port = self.gateway.stdout.readline().strip().rpartition(":")[2]
        self.shell = subprocess.Popen(
            ["bash"], env=environment, cwd=scratch, stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, encoding="utf-8")

    def run(self, command):
        # Only a here-document may be read: a program that asks for more gets nothing.
        command = re.sub(r"\b9000\b", self.port, command)
        self.shell.stdin.write(f"{{ {command}\n}} </dev/null\necho; echo '{END_MARK}'\n")
        self.shell.stdin.flush()
        watchdog = threading.Timer(TIME_LIMIT, self.shell.kill)
        watchdog.start()
        lines = []
        while (line := self.shell.stdout.readline()) and line.rstrip("\n") != END_MARK:
            lines.append(line.rstrip("\n"))
        watchdog.cancel()
        # The echo ends a last line without line end, or is an empty line of its own.
        if lines and not lines[-1]:
            lines.pop()
        return [re.sub(rf"\b{self.port}\b", "9000", line) for line in lines]

    def close(self):
        self.shell.stdin.close()
        for process in (self.shell, self.gateway):
            process.terminate()
            process.wait()


def steps_of(block):
    """Pairs of the command's written lines and the lines that it is to print."""
    steps = []
    for line in block.splitlines():
        if line.startswith("$ "):
            steps.append(([line], []))
        elif re.match(r">( |$)", line) and not steps[-1][1]:
            steps[-1][0].append(line)
        else:
            steps[-1][1].append(line)
    return steps


def agrees(expected, printed):
    pattern = "".join("(?:.*\n)*" if line == "..." else re.escape(line.rstrip()) + "\n"
                      for line in expected)
    return re.fullmatch(pattern, "".join(line.rstrip() + "\n" for line in printed)) is not None


def run_document(path, surroundings, fix):
    with open(path, encoding="utf-8") as file:
        text = file.read()
    faults = 0

    def run_block(match):
        nonlocal faults
        written = []
        for command, expected in steps_of(match.group(1)):
            printed = surroundings.run("\n".join(line[2:] for line in command))
            if not agrees(expected, printed):
                faults += 1
                if not fix:
                    line = text[:match.start()].count("\n") + 1
                    print(f"{path}, block at line {line}: {command[0]}\n--- written\n"
                          + "\n".join(expected) + "\n--- printed\n" + "\n".join(printed) + "\n")
            keep = "..." in expected
            written += command + (expected if keep else [line.rstrip() for line in printed])
        return "```console\n" + "\n".join(written) + "\n```"

    fixed = BLOCK.sub(run_block, text)
    if fix and fixed != text:
        with open(path, "w", encoding="utf-8") as file:
            file.write(fixed)
    return faults


def main():
    arguments = [word for word in sys.argv[1:] if word != "--fix"]
    fix = "--fix" in sys.argv
    bin_folder, repository = (os.path.abspath(word) for word in arguments[:2])
    faults = 0
    for path in arguments[2:]:
        with tempfile.TemporaryDirectory() as scratch:
            surroundings = Surroundings(bin_folder, repository, scratch)
            try:
                faults += run_document(path, surroundings, fix)
            finally:
                surroundings.close()
    sys.exit(1 if faults and not fix else 0)


main()
