#!/usr/bin/env python3
"""Refuses an include that goes upward, sideways or in a circle, or is not written from the root.

The targets, their files and what each depends on come from the list that CMake writes from the
`DEPENDS` of the targets; a target may include from all that it depends on, directly or not. The table
of targets in docs/architecture.md is held against the same list."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
DOCS = ROOT / "docs/architecture.md"
PRODUCT = ("apps", "examples", "libraries", "shared")

# The folders of one target whose headers are a chain, from the ground up. Files of one folder include
# from it and from those before it.
CHAIN_TARGET = "corelib_base"
CHAIN = ["text", "values", "diagnostics", "match", "process", "time"]
# Sources of that target that look back: the source, and the later header that it includes.
STREAM = "libraries/corelib/source/values/PrimitiveStream.cpp"
BACKWARD = {
    ("libraries/corelib/source/values/SharedString.cpp",
     "libraries/corelib/source/diagnostics/NoDestructor.h"),
    (STREAM, "libraries/corelib/source/time/DateTime.h"),
    (STREAM, "libraries/corelib/source/time/DateTimeDetails.h"),
}

# In angle brackets too, where the path is one of ours.
INCLUDE = re.compile(
    r'^\s*#\s*include\s*(?:"|<(?=(?:apps|examples|libraries|shared|test)/))([^">]+)')
TABLE_HEADING = "## The targets"
# A row of that table: the target, its folder, what it may include.
ROW = re.compile(r"^\| `(\w+)` \| [^|]+ \| ([^|]+) \|$", re.MULTILINE)


def read_targets(path):
    """Target to what it depends on directly, and file to its target."""
    depends, target_of = {}, {}
    for line in pathlib.Path(path).read_text(encoding="utf-8").splitlines():
        name, below, files = line.split("|")
        depends[name] = set(below.split())
        target_of.update(dict.fromkeys(files.split(), name))
    return depends, target_of


def with_all_below(name, depends):
    return {name}.union(*(with_all_below(below, depends) for below in depends[name]))


def product_files():
    for top in PRODUCT:
        for path in sorted((ROOT / top).rglob("*")):
            name = path.relative_to(ROOT).as_posix()
            if path.suffix in (".h", ".cpp") and "/test/" not in name:
                yield name


def includes_of(name):
    text = (ROOT / name).read_text(encoding="utf-8")
    for number, line in enumerate(text.splitlines(), 1):
        found = INCLUDE.match(line)
        if found:
            yield number, found.group(1)


def looks_back(name, aim):
    """Whether the included file is in a later folder of the chain."""
    folders = [pathlib.PurePath(path).parent.name for path in (name, aim)]
    return CHAIN.index(folders[1]) > CHAIN.index(folders[0])


def fault_of(name, aim, target_of, allowed):
    if not (ROOT / aim).is_file():
        return f'"{aim}" is not written from the root of the repository'
    if aim not in target_of:
        return f'"{aim}" is in no target'
    if target_of[aim] not in allowed[target_of[name]]:
        return f'{target_of[name]} must not include "{aim}" of {target_of[aim]}'
    within = target_of[name] == target_of[aim] == CHAIN_TARGET
    if within and looks_back(name, aim) and (name, aim) not in BACKWARD:
        return f'"{aim}" is in a later folder of {CHAIN_TARGET}'
    return None


def circles(headers):
    """Each circle of headers once, as the list of its names."""
    done, path, found = set(), [], []

    def visit(name):
        if name in path:
            found.append(path[path.index(name):] + [name])
        elif name not in done:
            path.append(name)
            for target in headers.get(name, []):
                visit(target)
            path.pop()
            done.add(name)

    for name in headers:
        visit(name)
    return found


def source_faults(depends, target_of):
    allowed = {name: with_all_below(name, depends) for name in depends}
    faults, headers = [], {}
    for name in product_files():
        if name not in target_of:
            faults.append(f"{name}:1: in no target")
            continue
        found = list(includes_of(name))
        for number, aim in found:
            fault = fault_of(name, aim, target_of, allowed)
            if fault:
                faults.append(f"{name}:{number}: {fault}")
        if name.endswith(".h"):
            headers[name] = [aim for _, aim in found]
            if "#pragma once" not in (ROOT / name).read_text(encoding="utf-8"):
                faults.append(f"{name}:1: has no #pragma once")
    faults += [f"{circle[0]}:1: a circle: " + " -> ".join(circle) for circle in circles(headers)]
    return faults


def docs_faults(depends):
    section = DOCS.read_text(encoding="utf-8").partition(TABLE_HEADING)[2].partition("\n## ")[0]
    table = {name: set(re.findall(r"`(\w+)`", below)) for name, below in ROW.findall(section)}
    faults = [f"the table lacks {name}" for name in depends.keys() - table.keys()]
    faults += [f"there is no target {name}" for name in table.keys() - depends.keys()]
    faults += [f"{name} depends on {sorted(depends[name])}, not on {sorted(table[name])}"
               for name in depends.keys() & table.keys() if depends[name] != table[name]]
    return [f"{DOCS.relative_to(ROOT)}: {fault}" for fault in sorted(faults)]


def main():
    depends, target_of = read_targets(sys.argv[1])
    faults = source_faults(depends, target_of) + docs_faults(depends)
    print("\n".join(faults) if faults else f"{len(target_of)} files in {len(depends)} targets")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
