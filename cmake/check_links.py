#!/usr/bin/env python3
"""Fails on a link of a Markdown file that leads nowhere: to no file, or to no heading of it."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
OTHERS = {"build", "node_modules", ".git"}


def pages():
    for page in sorted(ROOT.rglob("*.md")):
        if not OTHERS & set(page.relative_to(ROOT).parts):
            yield page


def prose(page):
    """The lines with their numbers, without blocks of code; code within a line is blanked."""
    fence = None
    for number, line in enumerate(page.read_text(encoding="utf-8").splitlines(), 1):
        mark = re.match(r"\s*(```+|~~~+)", line)
        if mark and (fence is None or mark.group(1).startswith(fence)):
            fence = None if fence else mark.group(1)
        elif fence is None:
            yield number, re.sub(r"(`+)(?:(?!\1).)+\1", lambda code: code.group().replace("](", "] ("), line)


def anchors(page):
    found = {}
    for _, line in prose(page):
        heading = re.match(r"#{1,6}\s+(.*?)\s*#*$", line)
        if heading:
            text = re.sub(r"\[([^]]*)\]\([^)]*\)", r"\1", heading.group(1)).lower()
            anchor = re.sub(r"[^\w\- ]", "", text).replace(" ", "-")
            count = found.get(anchor, -1) + 1
            found[anchor] = count
            if count:
                found[f"{anchor}-{count}"] = 0
    return found


def problem(page, target):
    path, _, anchor = target.partition("#")
    file = (page.parent / path).resolve() if path else page
    if not file.is_relative_to(ROOT):
        return "leads out of the project"
    if not file.exists():
        return "leads to no file"
    if anchor and (file.suffix != ".md" or anchor not in anchors(file)):
        return "leads to no heading"
    return None


def main():
    faults = 0
    for page in pages():
        for number, line in prose(page):
            for target in re.findall(r"\]\(([^)\s]+)(?:\s+\"[^\"]*\")?\)", line):
                if re.match(r"[a-z]+:", target):
                    continue
                what = problem(page, target)
                if what:
                    print(f"{page.relative_to(ROOT)}:{number}: {target} {what}")
                    faults += 1
    return 1 if faults else 0


sys.exit(main())
