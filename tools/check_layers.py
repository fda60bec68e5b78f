#!/usr/bin/env python3
"""Refuses an include that goes upward, sideways or in a circle, or is not written from the root.

The layers stand below, from the ground up, each with the files it holds and the layers it stands on
directly; a layer may include from all that stands beneath it."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

CORELIB = "libraries/corelib/source/"

# Layer, the folder or file that holds it, the layers directly beneath it. The longest match counts.
LAYERS = [
    ("tables", "shared/library/tables/", []),
    ("common", "shared/library/common/", ["tables"]),
    ("handle_validation", "apps/handlechecker/validation/", ["common"]),
    ("text", CORELIB + "text/", ["tables"]),
    ("values", CORELIB + "values/", ["text"]),
    ("diagnostics", CORELIB + "diagnostics/", ["values"]),
    ("match", CORELIB + "match/", ["diagnostics"]),
    ("process", CORELIB + "process/", ["match"]),
    ("time", CORELIB + "time/", ["process"]),
    ("corelib_messaging", CORELIB + "messaging/", ["time"]),
    ("corelib_system", CORELIB + "system/", ["corelib_messaging"]),
    ("filelib", "libraries/filelib/source/", ["corelib_system"]),
    ("corelib_services", CORELIB + "services/", ["filelib"]),
    ("appframe", "libraries/appframe/source/", ["corelib_services"]),
    ("handlechecker_app", "apps/handlechecker/", ["appframe", "handle_validation"]),
    ("HandleChecker", "apps/handlechecker/main.cpp", ["handlechecker_app"]),
]

# The sources of these lean on each other and are one target; only their headers are a chain.
ONE_TARGET = {"text", "values", "diagnostics", "match", "process", "time"}

PRODUCT = ("apps", "libraries", "shared")
# In angle brackets too, where the path is one of ours.
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"|<(?=(?:apps|libraries|shared|test)/))([^">]+)')


def layer_of(path):
    held = [(len(place), name) for name, place, _ in LAYERS if path.startswith(place)]
    return max(held)[1] if held else None


def beneath():
    """Layer to all the layers that it may include from, itself too."""
    allowed = {}
    for name, _, below in LAYERS:
        allowed[name] = {name}.union(*(allowed[layer] for layer in below))
    return allowed


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


def fault_of(name, target, allowed):
    if not (ROOT / target).is_file():
        return f'"{target}" is not written from the root of the repository'
    source, aim = layer_of(name), layer_of(target)
    if aim is None:
        return f'"{target}" is in no layer'
    if name.endswith(".cpp") and source in ONE_TARGET and aim in ONE_TARGET:
        return None
    if aim not in allowed[source]:
        return f'{source} must not include "{target}" of {aim}'
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


def main():
    faults, headers, allowed = [], {}, beneath()
    for name in product_files():
        if layer_of(name) is None:
            faults.append(f"{name}:1: in no layer")
            continue
        found = list(includes_of(name))
        for number, target in found:
            fault = fault_of(name, target, allowed)
            if fault:
                faults.append(f"{name}:{number}: {fault}")
        if name.endswith(".h"):
            headers[name] = [target for _, target in found]
            if "#pragma once" not in (ROOT / name).read_text(encoding="utf-8"):
                faults.append(f"{name}:1: has no #pragma once")
    faults += [f"{circle[0]}:1: a circle: " + " -> ".join(circle) for circle in circles(headers)]
    print("\n".join(faults) if faults else f"{len(headers)} headers in their layers")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
