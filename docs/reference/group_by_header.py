#!/usr/bin/env python3
"""Writes a header to standard output with each of its comments on classes and functions saying to which group of the
reference they belong: groups.dox names the groups. Lines stay where they are."""

import pathlib
import sys

FAMILIES = {
    "building": ["xaxis", "xbaseelement", "xdatavalue", "xelement", "xgraph", "xlegend", "xrow", "xsource", "xutility",
                 "xvariable"],
    "sending": ["chartxmlcontent", "xdocument", "xember", "xgraphservice", "ximage", "xinteractive", "xlumotemplate"],
    "reworking": ["chartupdater", "customizecharts"],
}


def group_of(header):
    if header.parent.name in ("host", "model"):
        return f"{header.parent.name}_{header.stem}"
    if header.parent.name == "kestrelhost":
        return "embedded_host"
    for name, stems in FAMILIES.items():
        if header.stem in stems:
            return name
    sys.exit(f"{header}: no group of the reference has this header, see docs/reference/group_by_header.py")


header = pathlib.Path(sys.argv[1])
group = group_of(header)
lines = header.read_text(encoding="utf-8").splitlines()
for number, line in enumerate(lines[:-1]):
    if line.startswith("///") and not lines[number + 1].startswith("///"):
        lines[number] += f" @ingroup {group}"
print("\n".join(lines))
