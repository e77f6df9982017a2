"""Whatever `run --json` prints is what its schema, data/run.schema.json, says."""

import json
import pathlib

import jsonschema
import pytest
from conftest import node
from test_scenarios import FOLDER, Replay, read_scenario

DATA = pathlib.Path(__file__).resolve().parents[2] / "data"
SCHEMA = json.loads((DATA / "run.schema.json").read_text(encoding="utf-8"))
PROFILES = sorted((DATA / "profiles").glob("*.toml"))


@pytest.fixture(scope="module")
def validator():
    jsonschema.Draft202012Validator.check_schema(SCHEMA)
    return jsonschema.Draft202012Validator(SCHEMA)


@pytest.mark.parametrize("profile", PROFILES, ids=lambda path: path.stem)
@pytest.mark.parametrize("options", [[], ["--all"]], ids=["run", "all"])
def test_every_profile_gives_an_object_of_the_schema(bmci2c, validator, profile, options):
    result = bmci2c.bare("--simulate", str(profile), "run", *options, "--json")
    validator.validate(result.json())


@pytest.mark.parametrize("path", sorted(FOLDER.glob("*.txt")), ids=lambda path: path.stem)
def test_every_scenario_gives_an_object_of_the_schema(bmci2c, validator, path):
    replay = Replay(bmci2c, read_scenario(path))
    validator.validate(bmci2c(*replay.options, "run", "--json").json())


WRONG_LINES = {
    "unknown-option": ["run", "--json", "--bogus"],
    "two-forms": ["run", "--json", "--quiet"],
    "missing-profile": ["--simulate", "/nowhere.toml", "run", "--json"],
}


@pytest.mark.parametrize("words", WRONG_LINES.values(), ids=WRONG_LINES)
def test_every_error_is_an_object_of_the_schema(bmci2c, validator, words):
    result = bmci2c(*words)
    assert result.code == 64
    validator.validate(result.json())
    assert result.json()["verdict"] == "error"


def test_schema_refuses_what_is_not_of_the_format(bmci2c, validator):
    run = bmci2c.run_json(node(data=[0]))[1]
    validator.validate(run)
    for change in ({"verdict": "error"}, {"verdict": "perhaps"}, {"extra": 1}, {"status": 1}):
        assert not validator.is_valid({**run, **change})
    del run["records"]
    assert not validator.is_valid(run)


def test_schema_names_the_keys_in_the_order_of_the_output(bmci2c):
    run = bmci2c.run_json(node(data=[1]), node(completion_code=0xC1))[1]

    def keys(name):
        return list(SCHEMA["$defs"][name]["properties"])

    assert list(run) == keys("run")
    assert list(run["machine"]) == keys("machine")
    assert list(run["controllers"][0]) == keys("controller")
    assert list(run["failed"][0]) == keys("failed_bus")
    assert list(run["controllers"][1]["trouble"]) == keys("trouble")
