"""The shipped profiles with the shipped catalog, as `./dev run` uses them."""

import os

import pytest

VERDICTS = {
    "pass": 0,
    "two-nodes-one-failed": 1,
    "oem-build": 1,
    "oxc-v1": 1,
    "oxc-v2": 1,
    "busy": 0,
    "absent-controller": 2,
    "dead-controller": 2,
    "no-controllers": 2,
    "short-answer": 2,
    "unknown-command": 2,
    "unsupported-machine": 2,
}


def folder():
    return os.path.join(os.environ["BMCI2C_BUILD_SHARE"], "bmci2c", "profiles")


def run(bmci2c, name, *arguments):
    # Without --root: the command finds the catalog that stands beside it.
    return bmci2c.bare("--simulate", f"{folder()}/{name}.toml", "run", *arguments)


def test_every_profile_has_an_expected_verdict():
    assert {f"{name}.toml" for name in VERDICTS} == set(os.listdir(folder()))


@pytest.mark.parametrize("name, code", VERDICTS.items(), ids=VERDICTS.keys())
def test_profile_has_its_verdict(bmci2c, name, code):
    result = run(bmci2c, name)
    assert result.code == code
    assert result.err == ""


def test_failed_bus_comes_with_recommendations(bmci2c):
    (record,) = run(bmci2c, "two-nodes-one-failed", "--json").json()["records"]
    assert "\n166-903-002 " in record["RecordData"]
    assert "\nRecommendations:\n\n" in record["RecordData"]
