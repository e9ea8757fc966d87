#!/usr/bin/env python3
"""Fails where a guide says that a block of code is quoted from a file, and the file has no such lines.

A block that follows the line `<!-- quoted from FILE -->` stands in that file, line by line, whatever its indentation. In
the pages of ALWAYS every block of C++ or CMake does."""

import pathlib
import re
import sys
import textwrap

ROOT = pathlib.Path(__file__).resolve().parent.parent
ALWAYS = {"docs/guide/getting-started.md", "docs/guide/describing-charts.md", "docs/guide/embedding.md"}
BLOCK = re.compile(r"(?:^<!-- quoted from (\S+) -->\n)?^```(\w*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def stands_in(quoted, text):
    wanted = textwrap.dedent(quoted).splitlines()
    lines = text.splitlines()
    for start in range(len(lines) - len(wanted) + 1):
        if textwrap.dedent("\n".join(lines[start:start + len(wanted)])).splitlines() == wanted:
            return True
    return False


def faults_of(page):
    text = page.read_text(encoding="utf-8")
    name = str(page.relative_to(ROOT))
    for block in BLOCK.finditer(text):
        source, language, quoted = block.groups()
        line = text.count("\n", 0, block.start(3)) + 1
        if source is None:
            if name in ALWAYS and language in ("cpp", "cmake"):
                yield f"{name}:{line}: the block does not say where it is quoted from"
        elif not (ROOT / source).is_file():
            yield f"{name}:{line}: there is no {source}"
        elif not stands_in(quoted, (ROOT / source).read_text(encoding="utf-8")):
            yield f"{name}:{line}: {source} has no such lines"


def main():
    pages = [ROOT / "README.md", *sorted((ROOT / "docs" / "guide").glob("*.md"))]
    faults = [fault for page in pages for fault in faults_of(page)]
    print("\n".join(faults), end="\n" if faults else "")
    return 1 if faults else 0


sys.exit(main())
