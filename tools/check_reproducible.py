#!/usr/bin/env python3
"""Refuses a release that depends on where it was built.

Builds the program once more in another folder and compares the two to the byte. The folder's name
has another length, since a path in the program would then move what follows it."""

import pathlib
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
# What the program is built from.
PARTS = ["CMakeLists.txt", "CMakePresets.json", "cmake", "apps", "libraries", "shared"]


def build_elsewhere(folder):
    for part in PARTS:
        source, target = ROOT / part, folder / part
        (shutil.copytree if source.is_dir() else shutil.copy)(source, target)
    commands = [
        ["cmake", "--preset", "release", "-DTARVIK_TESTS=OFF"],
        ["cmake", "--build", "--preset", "release", "--target", "HandleChecker"],
    ]
    for command in commands:
        subprocess.run(command, cwd=folder, check=True, stdout=subprocess.DEVNULL)
    return folder / "build/release/apps/handlechecker/HandleChecker"


def main():
    built = pathlib.Path(sys.argv[1])
    with tempfile.TemporaryDirectory(prefix="handle-checker-built-in-another-folder-") as folder:
        again = build_elsewhere(pathlib.Path(folder))
        if built.read_bytes() == again.read_bytes():
            print("both builds are equal to the byte")
            return 0
    print(f"{built} differs from a build of the same sources in another folder")
    return 1


if __name__ == "__main__":
    sys.exit(main())
