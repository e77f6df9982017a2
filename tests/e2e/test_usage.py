"""Help, version and wrong usage."""

import pathlib
import re

import pytest
from conftest import SERVICE, node

CHANGELOG = pathlib.Path(__file__).parents[2] / "packaging/debian/changelog"


@pytest.mark.parametrize(
    "arguments",
    [
        [],
        ["nonsense"],
        ["run", "nonsense"],
        ["--nonsense", "run"],
        ["run", "--nonsense"],
        ["--config"],
        ["--root", "", "run"],
        ["enumerate"],
        ["names"],
        ["invoke", SERVICE],
        ["enumerate", SERVICE, "--times", "0"],
        ["enumerate", SERVICE, "--times", "x"],
        ["enumerate", SERVICE, "--after-runs", "-1"],
        ["run", "info"],
    ],
    ids=lambda arguments: "-".join(arguments) or "nothing",
)
def test_wrong_usage_ends_with_64_and_a_message(bmci2c, arguments):
    result = bmci2c.bare(*arguments)
    assert result.code == 64
    assert result.out == ""
    assert re.fullmatch(
        r"bmci2c: .*\. Call bmci2c( [a-z]+)? --help to see what it takes\.\n", result.err, re.DOTALL
    )


def test_wrong_usage_names_the_argument(bmci2c):
    assert bmci2c.bare("run", "--nonsense").err == (
        "bmci2c: The following argument was not expected: --nonsense. Call bmci2c run --help to see "
        "what it takes.\n"
    )


COMMANDS = "run, enumerate, names, invoke, info, register, unregister, doctor, serve and passwd"


def test_missing_command_is_told_with_those_there_are(bmci2c):
    told = f"bmci2c: A command is missing: {COMMANDS}. Call bmci2c --help to see what it takes.\n"
    assert bmci2c.bare().err == told
    assert bmci2c.bare("--root", "/nowhere").err == told


@pytest.mark.parametrize(
    "word, nearest", [("bogus", ""), ("rum", ", but 'run'"), ("docter", ", but 'doctor'")]
)
def test_unknown_command_is_told_with_the_nearest(bmci2c, word, nearest):
    assert bmci2c.bare(word).err == (
        f"bmci2c: There is no command '{word}'{nearest}. The commands are {COMMANDS}. Call bmci2c "
        "--help to see what it takes.\n"
    )


def test_help_lists_the_commands(bmci2c):
    result = bmci2c.bare("--help")
    assert (result.code, result.err) == (0, "")
    for command in ("run", "enumerate", "names", "invoke", "info", "doctor"):
        assert f"\n  {command} " in result.out
    for option in ("--config", "--module", "--root", "--simulate"):
        assert option in result.out


@pytest.mark.parametrize("command", ["run", "enumerate", "names", "invoke", "info", "doctor"])
def test_help_of_a_command_ends_with_0(bmci2c, command):
    result = bmci2c.bare(command, "--help")
    assert result.code == 0
    assert command in result.out


def test_version_is_that_of_the_package(bmci2c):
    newest = CHANGELOG.read_text().splitlines()[0]
    version = re.fullmatch(r"bmci2c \(([0-9.]+)\) .*", newest)[1]
    result = bmci2c.bare("--version")
    assert result.code == 0
    assert result.out == f"bmci2c {version}\n"


def test_help_needs_no_settings(bmci2c):
    assert bmci2c.bare("--config", "/nowhere.toml", "run", "--help").code == 0


def test_options_of_the_program_may_stand_behind_the_command(bmci2c):
    profile = bmci2c.profile(node(data=[0]))
    result = bmci2c.bare("run", "--json", "--simulate", profile, "--root", str(bmci2c.root))
    assert result.code == 0


def test_relative_paths_start_at_the_working_directory(bmci2c, monkeypatch):
    bmci2c.profile(node(data=[0]))
    monkeypatch.chdir(bmci2c.folder)
    result = bmci2c.bare("--root", "root", "--simulate", "profile.toml", "run", "--json")
    assert result.code == 0
