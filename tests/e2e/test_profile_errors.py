"""A profile that is wrong is refused, with file, line and key."""

import pytest
from conftest import node

CASES = {
    "unknown-key": ("machine_type = '7000'\ncolour = 'red'\n", 2, "colour"),
    "unknown-key-of-a-node": ("[[node]]\ndata = [0]\nbusses = 3\n", 3, "busses"),
    "text-for-a-boolean": ("oxc = 'yes'\n", 1, "oxc"),
    "number-for-a-text": ("machine_type = 7000\n", 1, "machine_type"),
    "number-for-an-array": ("[[node]]\ndata = 1\n", 2, "data"),
    "text-in-an-array": ("[[node]]\ndata = [0, 'a']\n", 2, "data"),
    "byte-too-large": ("[[node]]\ndata = [0, 256]\n", 2, "data"),
    "byte-negative": ("[[node]]\ndata = [-1]\n", 2, "data"),
    "completion-code-too-large": ("[[node]]\ncompletion_code = 256\n", 2, "completion_code"),
    "busy-negative": ("[[node]]\nbusy = -1\n", 2, "busy"),
    "generation-0": ("generation = 0\n", 1, "generation"),
    "generation-3": ("generation = 3\n", 1, "generation"),
    "length-as-text": ("[[node]]\nlength = '5'\n", 2, "length"),
    "node-as-table": ("[node]\ndata = [0]\n", 1, "node"),
}


@pytest.mark.parametrize("text, line, key", CASES.values(), ids=CASES.keys())
def test_wrong_profile_ends_with_64_and_its_place(bmci2c, text, line, key):
    profile = bmci2c.write("wrong.toml", text)
    result = bmci2c.simulate(profile, "run", "--json")
    assert result.code == 64
    assert result.json()["verdict"] == "error"
    assert f"{profile}:{line}:" in result.err
    assert key in result.err


def test_profile_with_a_syntax_error_names_its_line(bmci2c):
    profile = bmci2c.write("wrong.toml", "oxc = true\n[[node\n")
    result = bmci2c.simulate(profile, "run")
    assert result.code == 64
    assert f"{profile}:2:" in result.err


def test_missing_profile_is_named(bmci2c):
    result = bmci2c.simulate("/nowhere/profile.toml", "run")
    assert result.code == 64
    assert "/nowhere/profile.toml" in result.err


def test_profile_of_the_environment_is_checked_as_well(bmci2c):
    profile = bmci2c.write("wrong.toml", "colour = 'red'\n")
    result = bmci2c("info", env={"BMCI2C_SIMULATE": profile})
    assert result.code == 64
    assert f"{profile}:1:" in result.err


def test_option_goes_before_the_environment(bmci2c):
    wrong = bmci2c.write("wrong.toml", "colour = 'red'\n")
    right = bmci2c.profile(node(data=[0]))
    result = bmci2c.simulate(right, "run", "--json", env={"BMCI2C_SIMULATE": wrong})
    assert result.code == 0
