#!/usr/bin/env python3
"""Fails on an include that goes around who may know whom (see ARCHITECTURE.md).

Every quoted include is resolved as the compiler would and must land in an area that the including file's area may
know; angle brackets name the standard library and what the area's libraries are built on.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]', re.MULTILINE)
API = {"api", "host_api", "model_api"}
CONFIGURATION = {"host_config"}
SUPPORT = {"test support", "schema validator"}
EVERY_FOLDER = ("interfaces", "include", "src", "embedded", "tools", "examples", "tests", "benchmarks", "fuzz")
COMMON_ROOTS = ("interfaces", "include", "embedded/host/include")

# First match wins: path pattern, area, areas it may know beside its own, further include roots.
AREAS = (
    (r"interfaces/model/", "model_api", set(), ()),
    (r"interfaces/host/", "host_api", {"model_api"}, ()),
    (r"include/", "api", API, ()),
    (r"src/support/", "support", API, ("src",)),
    (r"src/([^/]+)/", r"family \1", API | {"support"}, ("src", r"src/\1")),
    (r"embedded/model/", "model", {"model_api", "host_api"}, ("embedded/model",)),
    (r"embedded/host/include/", "host_config", {"host_api", "model_api"}, ()),
    (r"embedded/host/", "host", {"host_api", "model_api", "host_config"}, ("embedded/host",)),
    (r"tools/", "tools", API | CONFIGURATION | {"examples"}, ("tools/kestrel", "examples/gallery")),
    (r"examples/", "examples", API | CONFIGURATION, ()),
    (r"benchmarks/", "benchmarks", API | CONFIGURATION, ("benchmarks",)),
    (r"fuzz/", "fuzz", API | CONFIGURATION | {"tools"}, ("tools/kestrel",)),
    (r"tests/support/schema_validator", "schema validator", set(), ()),
    (r"tests/support/", "test support", API | CONFIGURATION | {"schema validator"}, ("tests/support",)),
    (r"tests/unit/model/", "unit/model", API | CONFIGURATION | SUPPORT | {"model"},
     ("tests/unit/model", "tests/support", "embedded/model")),
    (r"tests/unit/host/", "unit/host", API | CONFIGURATION | SUPPORT | {"host"},
     ("tests/unit/host", "tests/support", "embedded/host")),
    (r"tests/unit/tools/", "unit/tools", API | CONFIGURATION | SUPPORT | {"tools"},
     ("tests/unit/tools", "tests/support", "tools/kestrel")),
    (r"tests/unit/([^/]+)/", r"unit/\1", API | CONFIGURATION | SUPPORT | {"support", r"family \1"},
     (r"tests/unit/\1", "tests/support", r"src/\1", "src")),
    (r"tests/contract/([^/]+)/", r"contract/\1", {"model_api", "host_api", "schema validator"},
     (r"tests/contract/\1", "tests/support")),
    (r"tests/golden/tools/", "golden/tools", API | CONFIGURATION | SUPPORT | {"tools"},
     ("tests/golden/tools", "tests/support", "tools/kestrel")),
    (r"tests/(golden/gallery|arrow_reader)/", r"tests/\1", API | CONFIGURATION | SUPPORT | {"examples"},
     (r"tests/\1", "tests/support", "examples/gallery")),
    (r"tests/soak/", "soak", API | CONFIGURATION | SUPPORT | {"tools"},
     ("tests/soak", "tests/support", "tools/kestrel")),
    (r"tests/([^/]+)/", r"tests/\1", API | CONFIGURATION | SUPPORT, (r"tests/\1", "tests/support")),
)

# What the libraries of an area are built on, beyond the standard library.
XERCES = r"xercesc/.*"
LIBRARIES = {
    "model_api": (XERCES,),
    "host_api": (XERCES,),
    "api": (XERCES,),
    "support": (XERCES,),
    "family": (XERCES, r"zlib\.h", r"jni\.h"),
    "model": (XERCES, r"unicode/.*"),
    "host_config": (XERCES,),
}
C_LIBRARY = r"(?:c?(?:assert|ctype|errno|fenv|float|limits|locale|math|signal|stdarg|stddef|stdint|stdio|stdlib|string|time)(?:\.h)?)"
STANDARD = re.compile(rf"^(?:[a-z_0-9]+|{C_LIBRARY})$")


def area_of(path):
    for pattern, name, known, roots in AREAS:
        match = re.match(pattern, path)
        if match:
            expand = match.expand
            return expand(name), {expand(area) for area in known}, [expand(root) for root in roots]
    return None


def resolve(path, name, roots):
    for folder in [str(pathlib.PurePath(path).parent), *roots, *COMMON_ROOTS]:
        candidate = (ROOT / folder / name).resolve()
        if candidate.is_file() and ROOT in candidate.parents:
            return str(candidate.relative_to(ROOT))
    return None


def faults_of(path):
    area, known, roots = area_of(path)
    text = (ROOT / path).read_text(encoding="utf-8")
    for match in INCLUDE.finditer(text):
        quote, name = match.groups()
        line = text.count("\n", 0, match.start(1)) + 1
        if quote == "<":
            allowed = LIBRARIES.get(area.split(" ")[0])
            if allowed is not None and not STANDARD.match(name) and not any(re.fullmatch(a, name) for a in allowed):
                yield f"{path}:{line}: {area} is not built on <{name}>"
            continue
        if name.endswith("_generated.h"):
            continue
        target = resolve(path, name, roots)
        if target is None:
            yield f'{path}:{line}: "{name}" is no header that {area} can see'
        elif area_of(target)[0] not in known | {area}:
            yield f"{path}:{line}: {area} may not include {target} ({area_of(target)[0]})"


def main():
    files = [
        path.relative_to(ROOT).as_posix()
        for folder in EVERY_FOLDER
        for path in sorted((ROOT / folder).rglob("*"))
        if path.suffix in (".h", ".cpp") and "node_modules" not in path.parts
    ]
    faults = [fault for path in files if area_of(path) for fault in faults_of(path)]
    print("\n".join(faults) if faults else f"{len(files)} files include only what they may")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
