#!/usr/bin/env python3
"""Refuses a message of the handle format that comes out of no case kept as a file."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
MESSAGES = ROOT / "apps/handlechecker/validation/HandleMessages.h"
CASES = [
    (ROOT / "apps/handlechecker/test/handles", "*.expected"),
    (ROOT / "test/cli/cases", "stdout"),
]

CONSTANT = re.compile(
    r'MessageText<\d+>\s+(\w+)\s*=\s*(?:R"\((.*?)\)"|"((?:[^"\\]|\\.)*)");', re.DOTALL)


def messages():
    text = MESSAGES.read_text(encoding="utf-8")
    for name, raw, plain in CONSTANT.findall(text):
        yield name, raw or plain


def expected_text():
    """All expected messages; quotes read as they do in JSON too."""
    parts = []
    for folder, pattern in CASES:
        for path in sorted(folder.rglob(pattern)):
            parts.append(path.read_text(encoding="utf-8", errors="replace"))
    return "\n".join(parts).replace('\\"', '"')


def main():
    expected = expected_text()
    missing = []
    for name, text in messages():
        pattern = ".*".join(re.escape(piece) for piece in text.split("{}"))
        if not re.search(pattern, expected):
            missing.append(f"{name}: no case shows: {text}")
    print("\n".join(missing) if missing else "every message has its case")
    return 1 if missing else 0


if __name__ == "__main__":
    sys.exit(main())
