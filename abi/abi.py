#!/usr/bin/env python3
"""The exported interface of libkestrel as text: the symbols that it exports, and for each exported class the order of
its virtual operations. Prints it, compares it with a file (--check FILE) or writes the file (--write FILE).

    abi.py symbols LIBRARY
    abi.py virtuals CLANG INCLUDE_FOLDER... (the first one holds the exported headers)
"""
import argparse
import difflib
import pathlib
import re
import subprocess
import sys
import tempfile

EXPORTED_CLASS = re.compile(r"^\s*(?:class|struct)\s+KESTREL_API\s+(\w+)", re.MULTILINE)
VTABLE = re.compile(r"^Vtable for 'Probe_(\w+)'")
SLOT = re.compile(r"^\s*\d+ \| (.*)$")


def symbols(library):
    out = subprocess.run(["nm", "-D", "--defined-only", "--demangle", library], check=True, text=True,
                         stdout=subprocess.PIPE).stdout
    return sorted({line.split(" ", 2)[2] for line in out.splitlines()})


def exported_classes(folder):
    return {
        name: header.name
        for header in sorted(pathlib.Path(folder).glob("*.h"))
        for name in EXPORTED_CLASS.findall(header.read_text(encoding="utf-8"))
    }


def vtable_dump(compiler, folders, classes):
    """A class that adds one operation at the end shows all that it inherits, in order, with full signatures."""
    lines = [f'#include "{header}"' for header in sorted(set(classes.values()))]
    for name in classes:
        lines.append(f"struct Probe_{name} : {name} {{ virtual void end_(); }};")
        lines.append(f"void Probe_{name}::end_() {{}}")
    with tempfile.TemporaryDirectory() as scratch:
        probe = pathlib.Path(scratch) / "probe.cpp"
        probe.write_text("\n".join(lines) + "\n", encoding="utf-8")
        command = [compiler, "-std=c++20", "-w", *(f"-I{folder}" for folder in folders),
                   "-Xclang", "-fdump-vtable-layouts", "-emit-llvm", "-S", "-o", "/dev/null", str(probe)]
        return subprocess.run(command, check=True, text=True, stdout=subprocess.PIPE).stdout


def virtuals(compiler, folders):
    classes = exported_classes(folders[0])
    found = {}
    current = None
    for line in vtable_dump(compiler, folders, classes).splitlines():
        table = VTABLE.match(line)
        slot = SLOT.match(line)
        if table:
            current = found[table.group(1)] = []
        elif not line.strip():
            current = None
        elif slot and current is not None:
            current.append(slot.group(1))
    result = []
    for name in sorted(classes):
        own = [slot.replace(f"Probe_{name}", name) for slot in found[name] if "(" in slot and "::end_()" not in slot]
        own = [slot for slot in own if not slot.startswith(("offset_to_top", "vbase_offset", "vcall_offset"))]
        result += [f"{name}: {len(own)}", *(f"  {index} {slot}" for index, slot in enumerate(own))]
    return result


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    action = parser.add_mutually_exclusive_group()
    action.add_argument("--check", metavar="FILE", type=pathlib.Path)
    action.add_argument("--write", metavar="FILE", type=pathlib.Path)
    parser.add_argument("what", choices=("symbols", "virtuals"))
    parser.add_argument("arguments", nargs="+")
    options = parser.parse_args()
    if options.what == "symbols":
        lines = symbols(options.arguments[0])
    else:
        lines = virtuals(options.arguments[0], options.arguments[1:])
    if not lines:
        sys.exit("nothing is exported")
    if options.write:
        options.write.write_text("\n".join(lines) + "\n", encoding="utf-8")
    elif options.check:
        expected = options.check.read_text(encoding="utf-8").splitlines()
        difference = list(difflib.unified_diff(expected, lines, str(options.check), "what was built", lineterm="", n=1))
        print("\n".join(difference) if difference else f"{len(lines)} lines as in {options.check.name}")
        if difference:
            sys.exit("the exported interface has changed: if that is meant, ./dev abi writes it anew")
    else:
        print("\n".join(lines))


if __name__ == "__main__":
    main()
