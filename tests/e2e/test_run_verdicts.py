"""Exit code and verdict of a run: no failed bus is hidden, nothing unexamined called passed."""

import pytest
from conftest import failed_bus, node, passed, unjudged

GOOD = node(data=[0, 0])
ONE_FAILED = node(data=[4, 0])
SILENT = node(answers=False)
SHORT = node(length=1)
REFUSING = node(completion_code=0xC1)

UNUSABLE = {"silent": SILENT, "refusing": REFUSING, "short": SHORT}


def verdict(bmci2c, *nodes, **keys):
    code, run = bmci2c.run_json(*nodes, **keys)
    return code, run["verdict"], [record["CompletionState"] for record in run["records"]]


def outcomes(run):
    return [controller["outcome"] for controller in run["controllers"]]


def test_all_busses_good_is_passed(bmci2c):
    assert verdict(bmci2c, GOOD, GOOD) == (0, "passed", [2])


def test_failed_bus_is_failed(bmci2c):
    assert verdict(bmci2c, GOOD, ONE_FAILED) == (1, "failed", [5])


def test_failed_bus_before_a_good_controller_stays_failed(bmci2c):
    assert verdict(bmci2c, ONE_FAILED, GOOD) == (1, "failed", [5])


def test_failed_bus_before_a_short_answer_is_failed(bmci2c):
    # The record is kept by the first controller and again by the second, which sets its state.
    assert verdict(bmci2c, ONE_FAILED, SHORT) == (1, "failed", [6, 6])


@pytest.mark.parametrize("controller", UNUSABLE.values(), ids=UNUSABLE)
def test_failed_bus_before_an_unusable_controller_is_failed(bmci2c, controller):
    code, run = bmci2c.run_json(ONE_FAILED, controller)
    assert (code, run["verdict"]) == (1, "failed")
    assert [(bus["node"], bus["bus"]) for bus in run["failed"]] == [(0, 2)]


@pytest.mark.parametrize("controller", UNUSABLE.values(), ids=UNUSABLE)
def test_failed_bus_after_an_unusable_controller_is_found_with_all(bmci2c, controller):
    profile = bmci2c.profile(controller, ONE_FAILED)
    result = bmci2c.simulate(profile, "run", "--all", "--json")
    assert result.code == 1
    assert [(bus["node"], bus["bus"]) for bus in result.json()["failed"]] == [(1, 2)]
    text = bmci2c.simulate(profile, "run", "--all").out
    assert text.startswith(
        "FAILED (simulated machine): 1 bus has failed: bus 2 of node 1. Node 0 was not examined.\n"
    )
    # The record ends before the failed bus; only a silent controller does not end it.
    heading = "recorded" if controller == SILENT else "found"
    assert f"\nWhat the test {heading}\n" in text


@pytest.mark.parametrize("controller", [REFUSING, SHORT], ids=["refusing", "short"])
def test_controller_after_one_that_ends_the_run_is_not_asked(bmci2c, controller):
    code, run = bmci2c.run_json(controller, ONE_FAILED)
    assert (code, run["verdict"], run["end_of_record"]) == (2, "not_completed", 0)
    assert outcomes(run)[1] == "not_asked"
    assert "node 0" in run["controllers"][1]["trouble"]["text"]
    assert "--all" in run["controllers"][1]["trouble"]["advice"]


@pytest.mark.parametrize("controller", [REFUSING, SHORT], ids=["refusing", "short"])
def test_record_of_a_run_that_asked_all_is_that_of_a_cim_client(bmci2c, controller):
    profile = bmci2c.profile(GOOD, controller, ONE_FAILED)
    runs = [
        bmci2c.simulate(profile, "run", *options, "--json").json() for options in ([], ["--all"])
    ]
    texts = [[record["RecordData"] for record in run["records"]] for run in runs]
    assert texts[0] == texts[1]
    assert [run["verdict"] for run in runs] == ["not_completed", "failed"]
    assert [run["end_of_record"] for run in runs] == [1, 1]


def test_no_controller_leaves_no_record_and_is_not_completed(bmci2c):
    assert verdict(bmci2c) == (2, "not_completed", [])


def test_silent_controllers_leave_no_record_and_are_not_completed(bmci2c):
    assert verdict(bmci2c, SILENT, SILENT) == (2, "not_completed", [])


def test_silent_controller_after_a_good_one_is_not_completed(bmci2c):
    assert verdict(bmci2c, GOOD, SILENT) == (2, "not_completed", [6])


def test_silent_controller_hidden_by_a_later_pass_is_not_completed(bmci2c):
    code, run = bmci2c.run_json(SILENT, GOOD)
    assert (code, run["verdict"]) == (2, "not_completed")
    assert run["records"][0]["CompletionState"] == 2
    assert run["records"][0]["RecordData"] == unjudged(802, 1) + "\n" + passed(2)


def test_silent_controller_between_good_ones_is_not_completed(bmci2c):
    # Its line follows the one before without a line break.
    code, run = bmci2c.run_json(GOOD, SILENT, GOOD)
    assert (code, run["verdict"]) == (2, "not_completed")
    assert run["records"][0]["CompletionState"] == 2
    assert run["records"][0]["RecordData"] == passed(1) + unjudged(802, 2) + "\n" + passed(3)


def test_silent_controller_before_a_failed_bus_is_failed(bmci2c):
    code, run = bmci2c.run_json(SILENT, ONE_FAILED)
    assert (code, run["verdict"]) == (1, "failed")
    assert run["records"][0]["RecordData"] == unjudged(802, 1) + "\n" + failed_bus(2, 2)


def test_short_answer_is_not_completed(bmci2c):
    assert verdict(bmci2c, SHORT) == (2, "not_completed", [6])


def test_short_answer_after_a_good_controller_is_recorded_twice(bmci2c):
    code, run = bmci2c.run_json(GOOD, SHORT, GOOD)
    assert (code, run["verdict"]) == (2, "not_completed")
    first, second = run["records"]
    assert first == second
    assert first["RecordData"] == passed(1) + unjudged(801, 2)


def test_completion_code_is_not_completed(bmci2c):
    assert verdict(bmci2c, REFUSING) == (2, "not_completed", [6])


def test_unsupported_machine_is_not_completed(bmci2c):
    code, run = bmci2c.run_json(GOOD, machine_type="0000", bios_id="X")
    assert (code, run["verdict"]) == (2, "not_completed")
    assert [record["RecordData"] for record in run["records"]] == [
        "166-899-001 BMCI2C Bus Test Aborted: The machine with MT [0000] is not supported by "
        "BMCI2C Bus Test."
    ]


def test_empty_machine_type_is_not_completed(bmci2c):
    code, run = bmci2c.run_json(GOOD, machine_type="", bios_id="X")
    assert (code, run["verdict"]) == (2, "not_completed")
    # Without a machine type the catalog is not read, so the first record's message has no text.
    assert [record["RecordData"] for record in run["records"]] == [
        "",
        "166-899-001 BMCI2C Bus Test Aborted: The machine with MT [] is not supported by "
        "BMCI2C Bus Test.",
    ]
    assert [record["CompletionState"] for record in run["records"]] == [6, 6]


def test_oxc_controller_of_the_first_generation_has_no_busses_6_and_7(bmci2c):
    code, run = bmci2c.run_json(node(data=[0xC0, 0]), oxc=True, generation=1)
    assert (code, run["verdict"]) == (0, "passed")
    (controller,) = run["controllers"]
    assert controller["generation"] == 1
    assert [bus["bus"] for bus in controller["busses"]] == [0, 1, 2, 3, 4, 5, *range(8, 16)]


# How the controller answers the query for its generation, which goes to node 0.
UNANSWERED = {
    "silent": {"answers_generation": False},
    "refused": {"generation_completion_code": 0xC1},
}
OUTCOME_BY_GENERATION = {1: (0, "passed", []), 2: (1, "failed", [6, 7])}


@pytest.mark.parametrize("generation", [1, 2])
def test_generation_that_is_told_decides_about_busses_6_and_7(bmci2c, generation):
    code, run = bmci2c.run_json(node(data=[0xC0, 0]), oxc=True, generation=generation)
    failed = [bus["bus"] for bus in run["failed"]]
    assert (code, run["verdict"], failed) == OUTCOME_BY_GENERATION[generation]
    (controller,) = run["controllers"]
    assert (controller["generation"], controller["trouble"]) == (generation, None)


@pytest.mark.parametrize("generation", [1, 2])
@pytest.mark.parametrize("keys", UNANSWERED.values(), ids=UNANSWERED)
def test_busses_6_and_7_are_not_judged_without_the_generation(bmci2c, generation, keys):
    first = node(data=[0xC0, 0], **keys)
    code, run = bmci2c.run_json(first, oxc=True, generation=generation)
    assert (code, run["verdict"], run["failed"]) == (2, "not_completed", [])
    (controller,) = run["controllers"]
    assert (controller["generation"], controller["trouble"]["code"]) == (
        "unknown",
        "generation_unknown",
    )
    states = [bus["state"] for bus in controller["busses"]]
    assert states == ["good"] * 6 + ["unjudged"] * 2 + ["good"] * 8
    text = " ".join(bmci2c.simulate(str(bmci2c.folder / "profile.toml"), "run").out.split())
    assert "Node 0 (simulated): Busses 6 and 7 were not judged." in text


@pytest.mark.parametrize("generation", [1, 2])
@pytest.mark.parametrize("keys", UNANSWERED.values(), ids=UNANSWERED)
def test_failed_bus_is_found_without_the_generation(bmci2c, generation, keys):
    first = node(data=[0x41], **keys)
    code, run = bmci2c.run_json(first, oxc=True, generation=generation)
    assert (code, run["verdict"]) == (1, "failed")
    assert [bus["bus"] for bus in run["failed"]] == [0]


def test_controller_that_nobody_has_before_it_is_not_asked(bmci2c):
    # Without node 0 a run has no controllers.
    code, run = bmci2c.run_json(node(present=False), ONE_FAILED)
    assert (code, run["verdict"], outcomes(run)) == (
        2,
        "not_completed",
        ["not_asked", "not_asked"],
    )


def test_unjudged_busses_keep_a_run_from_passing(bmci2c):
    code, run = bmci2c.run_json(SILENT, node(data=[0xC0, 0]), oxc=True, generation=2)
    assert (code, run["verdict"], run["failed"]) == (2, "not_completed", [])
    text = bmci2c.simulate(str(bmci2c.folder / "profile.toml"), "run").out
    assert text.startswith(
        "NOT COMPLETED (simulated machine): node 0 was not examined. Busses 6 and 7 of node 1 were "
        "not judged.\n"
    )
    assert "  node 1   .  .  .  .  .  .  ?  ?  ." in text


def test_run_needs_no_module(bmci2c):
    profile = bmci2c.profile(GOOD)
    result = bmci2c.simulate(profile, "--module", "/nowhere/module.so", "run")
    assert (result.code, result.err) == (0, "")
    result = bmci2c.simulate(profile, "run", env={"BMCI2C_SCHEMA": "/nowhere"})
    assert (result.code, result.err) == (0, "")


WRONG_INDEX = (
    '<bmci2cmsg version="1.0">\n<machine type="7000">\n'
    '<property name="message" index="0x10"><value>text</value></property>\n'
    "</machine></bmci2cmsg>"
)


def test_index_that_is_not_decimal_ends_with_3_and_its_place(bmci2c):
    bmci2c.write_catalog(WRONG_INDEX)
    catalog = bmci2c.root / "bmci2c" / "bmci2c.msg.xml"
    text = (
        f"The message catalog {catalog} is wrong in line 3: the index '0x10' is not a decimal "
        "number."
    )
    advice = (
        "Fix the message catalog, or name the diagnostics root directory of another one "
        "(--root DIR)."
    )
    result = bmci2c.simulate(bmci2c.profile(GOOD), "run", "--json")
    assert result.code == 3
    assert result.json() == {
        "format_version": 1,
        "verdict": "error",
        "error": {"text": text, "advice": advice},
    }
    assert result.err == f"bmci2c: {text} {advice}\n"
    result = bmci2c.simulate(bmci2c.profile(GOOD), "run")
    assert (result.code, result.out, result.err) == (3, "", f"bmci2c: {text} {advice}\n")


def test_wrong_settings_end_with_64(bmci2c):
    result = bmci2c("--config", bmci2c.write("wrong.toml", "[machine\n"), "run", "--json")
    assert result.code == 64
    assert result.json()["verdict"] == "error"
    assert "wrong.toml:1:" in result.json()["error"]["text"]


def test_json_and_quiet_exclude_each_other(bmci2c):
    result = bmci2c.simulate(bmci2c.profile(GOOD), "run", "--json", "--quiet")
    assert result.code == 64
    assert "--json and --quiet cannot be combined." in result.err
