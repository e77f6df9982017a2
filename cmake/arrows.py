#!/usr/bin/env python3
"""Writes which library uses which into docs/architecture.md.

    cmake/arrows.py build/release/arrows.txt      (which CMake writes)
"""

import pathlib
import sys

PAGE = pathlib.Path(__file__).resolve().parent.parent / "docs" / "architecture.md"
BEGIN = "<!-- `./dev arrows` writes these lines from the CMake targets. -->\n\n"
END = "\n<!-- end of the lines -->\n"


def block(text):
    """What the page shows between the two comments."""
    return text.split(BEGIN, 1)[1].split(END, 1)[0]


def indented(arrows):
    return "".join(f"    {line}\n" for line in arrows.splitlines())


def main(arrows_file):
    text = PAGE.read_text(encoding="utf-8")
    arrows = pathlib.Path(arrows_file).read_text(encoding="utf-8")
    PAGE.write_text(text.replace(block(text), indented(arrows)), encoding="utf-8")


if __name__ == "__main__":
    main(sys.argv[1])
