"""docs/architecture.md shows the folders as they are, and the arrows that the build holds to."""

import importlib.util
import os
import re
from pathlib import Path

PROJECT = Path(__file__).parents[2]
BUILD = Path(os.environ["BMCI2C_BUILD_SHARE"]).parent

spec = importlib.util.spec_from_file_location("arrows", PROJECT / "cmake" / "arrows.py")
arrows = importlib.util.module_from_spec(spec)
spec.loader.exec_module(arrows)
PAGE = arrows.PAGE.read_text(encoding="utf-8")


def test_arrows_are_those_of_the_cmake_targets():
    assert arrows.block(PAGE) == arrows.indented((BUILD / "arrows.txt").read_text())


def test_no_two_folders_use_each_other():
    uses = dict(line.strip().split(" -> ") for line in arrows.block(PAGE).splitlines())
    for folder, others in uses.items():
        pending, reached = others.split(", "), set()
        while pending:
            other = pending.pop()
            if other not in reached:
                reached.add(other)
                pending += [name for name in uses.get(other, "").split(", ") if name]
        assert folder not in reached


def test_table_lists_every_folder_of_the_sources():
    listed = set(re.findall(r"^\| `src/([\w/]+)` \|", PAGE, re.MULTILINE))
    libraries = {
        str(path.parent.relative_to(PROJECT / "src"))
        for path in (PROJECT / "src").rglob("CMakeLists.txt")
    }
    assert listed == libraries
