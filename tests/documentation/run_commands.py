#!/usr/bin/env python3
"""Runs the commands of a guide, and compares what they print.

    run_commands.py PAGE KESTREL FOLDER [--client]

Blocks behind the line `<!-- run -->` are run, in their order, in FOLDER, which has the examples; those behind
`<!-- run with the client -->` where the client is built. A line with `$` is a command; what follows is all that it prints, where `...` stands for any text, or on a line of its own for any lines."""

import os
import pathlib
import re
import shutil
import subprocess
import sys


def commands_of(page, client):
    blocks = re.findall(r"^<!-- run( with the client)? -->\n```console\n(.*?)^```$", page.read_text(encoding="utf-8"),
                        re.M | re.S)
    for needs_client, block in blocks:
        if needs_client and not client:
            continue
        for part in re.split(r"^\$ ", block, flags=re.MULTILINE)[1:]:
            command, _, expected = part.partition("\n")
            yield command, expected


def pattern(expected):
    lines = []
    for line in expected.splitlines():
        lines.append("(?:.*\n)*?" if line == "..." else ".*".join(map(re.escape, line.split("..."))) + "\n")
    return "".join(lines)


def main():
    page, kestrel, folder = (pathlib.Path(argument) for argument in sys.argv[1:4])
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    (folder / "examples").symlink_to(page.resolve().parent.parent.parent / "examples")
    environment = dict(os.environ, PATH=f"{kestrel.parent}:{os.environ['PATH']}")
    faults = count = 0
    for command, expected in commands_of(page, "--client" in sys.argv[4:]):
        done = subprocess.run(command, shell=True, cwd=folder, env=environment, text=True, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, check=False)
        count += 1
        if done.returncode != 0 or not re.fullmatch(pattern(expected), done.stdout):
            print(f"$ {command}\n{done.stdout}-- exit code {done.returncode}; expected was\n{expected}")
            faults += 1
    print(f"{count} commands, {faults} faults")
    return 1 if faults or count == 0 else 0


sys.exit(main())
