"""The manual pages, against what the command and the sample files say."""

import pathlib
import re
import subprocess

import pytest

SOURCE = pathlib.Path(__file__).resolve().parents[2]
MANUAL = SOURCE / "docs" / "man"
OPTION = re.compile(r"^  (?:-\w,)?--([a-z-]+)", re.MULTILINE)


def commands(bmci2c):
    listing = bmci2c.bare("--help").out.split("Commands:\n")[1].split("\n\n")[0]
    return re.findall(r"^  ([a-z-]+)", listing, re.MULTILINE)


def page(name):
    return (MANUAL / name).read_text(encoding="utf-8")


def command_text(text, command):
    """What the page says of a command."""
    match = re.search(rf"^\.It Cm {command}\b.*?(?=^\.It Cm |^\.El)", text, re.M | re.S)
    assert match, f"bmci2c.1 does not tell of the command '{command}'"
    return match.group()


def test_manual_tells_of_every_command_and_its_options(bmci2c):
    text = page("bmci2c.1")
    for command in commands(bmci2c):
        told = command_text(text, command)
        for option in OPTION.findall(bmci2c.bare(command, "--help").out):
            if option != "help":
                assert f"\\-{option}" in told, f"bmci2c.1 lacks {command} --{option}"


def test_manual_tells_of_no_other_command(bmci2c):
    told = re.findall(r"^\.It Cm ([a-z-]+)", page("bmci2c.1"), re.MULTILINE)
    assert sorted(told) == sorted(commands(bmci2c))


def test_manual_tells_of_every_option_of_the_program(bmci2c):
    for option in OPTION.findall(bmci2c.bare("--help").out):
        assert f"\\-{option}" in page("bmci2c.1")


def test_settings_page_tells_of_every_key_and_table():
    sample = (SOURCE / "data" / "platform.toml").read_text(encoding="utf-8")
    keys = set(re.findall(r"^#?(\w+) = ", sample, re.MULTILINE))
    tables = set(re.findall(r"^#?(\[.*\])$", sample, re.MULTILINE))
    text = page("platform.toml.5")
    told = set(re.findall(r"\w+", " ".join(re.findall(r"^\.It Ic (.*)", text, re.MULTILINE))))
    assert keys and told == keys
    assert set(re.findall(r"^\.Ss (.*)", text, re.MULTILINE)) == tables


@pytest.mark.parametrize("name", sorted(path.name for path in MANUAL.iterdir()))
def test_page_is_formatted_without_warnings(name):
    done = subprocess.run(
        ["groff", "-mandoc", "-Tutf8", "-wall", "-z", str(MANUAL / name)],
        capture_output=True,
        text=True,
        check=False,
    )
    assert (done.returncode, done.stderr) == (0, "")
