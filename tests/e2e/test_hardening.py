"""The module runs in servers that are often root: how command and module are hardened, read from the files.

A build with sanitizers brings checks of its own and is not hardened.
"""

import os
import re
import subprocess
from pathlib import Path

import pytest

BUILD = Path(os.environ["BMCI2C_BUILD_SHARE"]).parent
FILES = {"command": os.environ["BMCI2C_BIN"], "module": os.environ["BMCI2C_BUILD_MODULE"]}
CET = "x86 feature: IBT, SHSTK"

pytestmark = pytest.mark.skipif(
    bool(os.environ.get("BMCI2C_BUILD_SANITIZERS")), reason="a build with sanitizers is not hardened"
)


def cached(name):
    """A value of the build's CMake cache."""
    found = re.search(rf"^{name}:\w+=(.*)$", (BUILD / "CMakeCache.txt").read_text(), re.MULTILINE)
    return found[1] if found else ""


def readelf(*arguments):
    return subprocess.run(
        ["readelf", "-W", *arguments], capture_output=True, text=True, check=True
    ).stdout


def imported(file):
    """The functions that a file takes from shared libraries."""
    symbols = re.findall(r" UND (\w+)", readelf("--dyn-syms", file))
    assert symbols
    return set(symbols)


@pytest.fixture(params=FILES)
def file(request):
    return FILES[request.param]


def test_it_is_loaded_at_any_address(file):
    assert re.search(r"^Elf file type is DYN", readelf("-l", file), re.MULTILINE)


def test_command_is_a_position_independent_program():
    assert re.search(r"\(FLAGS_1\).*\bPIE\b", readelf("-d", FILES["command"]))


def test_all_functions_are_bound_at_load_and_the_table_is_read_only_then(file):
    dynamic = readelf("-d", file)
    assert re.search(r"\(FLAGS\).*\bBIND_NOW\b", dynamic)
    assert re.search(r"\(FLAGS_1\).*\bNOW\b", dynamic)
    assert re.search(r"^  GNU_RELRO ", readelf("-l", file), re.MULTILINE)


def test_stack_is_not_executable(file):
    (flags,) = re.findall(r"^  GNU_STACK +(?:0x\w+ +){5}([RWE ]+?) +0x", readelf("-l", file), re.MULTILINE)
    assert flags == "RW"


def test_nothing_is_writable_and_executable(file):
    segments = re.findall(r"^  LOAD +(?:0x\w+ +){5}([RWE ]{3}) ", readelf("-l", file), re.MULTILINE)
    assert segments and not any({"W", "E"} <= set(flags) for flags in segments)


def test_overwritten_stack_ends_the_process(file):
    assert "__stack_chk_fail" in imported(file)


def test_buffer_functions_check_sizes(file):
    if cached("CMAKE_BUILD_TYPE") not in ("RelWithDebInfo", "Release", "MinSizeRel"):
        pytest.skip("the C library checks buffer sizes in optimised builds only")
    assert {name for name in imported(file) if re.fullmatch(r"__(?!stack)\w+_chk", name)}


def archived_objects():
    """The notes of every object of the project's own libraries."""
    archives = sorted(BUILD.glob("src/**/libbmci2c_*.a"))
    assert archives
    for archive in archives:
        for part in readelf("-n", str(archive)).split("\nFile: ")[1:]:
            yield part.partition("\n")[0], part


def test_every_object_marks_its_jump_targets_and_fits_a_shadow_stack():
    if not cached("BMCI2C_HAS_CET"):
        pytest.skip("the compiler has no -fcf-protection for this processor")
    assert [name for name, notes in archived_objects() if CET not in notes] == []


def test_linked_file_is_marked_for_shadow_stacks_where_the_c_runtime_is(file):
    runtime = [
        subprocess.run(
            ["c++", f"-print-file-name={name}"], capture_output=True, text=True, check=True
        ).stdout.strip()
        for name in ("crti.o", "crtbeginS.o", "crtendS.o", "crtn.o")
    ]
    if not cached("BMCI2C_HAS_CET") or not all(CET in readelf("-n", name) for name in runtime):
        pytest.skip("this system's C runtime is not marked for shadow stacks")
    assert CET in readelf("-n", file)
