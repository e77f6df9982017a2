"""The exit code and verdict of a run: the first rule that applies."""

from conftest import failed_bus, node, passed, unjudged

GOOD = node(data=[0, 0])
ONE_FAILED = node(data=[4, 0])
SILENT = node(answers=False)
SHORT = node(length=1)


def verdict(bmci2c, *nodes, **keys):
    code, run = bmci2c.run_json(*nodes, **keys)
    return code, run["verdict"], [record["CompletionState"] for record in run["records"]]


def test_all_busses_good_is_passed(bmci2c):
    assert verdict(bmci2c, GOOD, GOOD) == (0, "passed", [2])


def test_failed_bus_is_failed(bmci2c):
    assert verdict(bmci2c, GOOD, ONE_FAILED) == (1, "failed", [5])


def test_failed_bus_before_a_good_controller_stays_failed(bmci2c):
    assert verdict(bmci2c, ONE_FAILED, GOOD) == (1, "failed", [5])


def test_failed_bus_before_a_short_answer_is_not_completed(bmci2c):
    # The record is kept by the first controller and again by the second, which sets its state.
    assert verdict(bmci2c, ONE_FAILED, SHORT) == (2, "not completed", [6, 6])


def test_no_controller_leaves_no_record_and_is_not_completed(bmci2c):
    assert verdict(bmci2c) == (2, "not completed", [])


def test_silent_controllers_leave_no_record_and_are_not_completed(bmci2c):
    assert verdict(bmci2c, SILENT, SILENT) == (2, "not completed", [])


def test_silent_controller_after_a_good_one_is_not_completed(bmci2c):
    assert verdict(bmci2c, GOOD, SILENT) == (2, "not completed", [6])


def test_silent_controller_hidden_by_a_later_pass_is_not_completed(bmci2c):
    code, run = bmci2c.run_json(SILENT, GOOD)
    assert (code, run["verdict"]) == (2, "not completed")
    assert run["records"][0]["CompletionState"] == 2
    assert run["records"][0]["RecordData"] == unjudged(802, 1) + "\n" + passed(2)


def test_silent_controller_between_good_ones_is_not_completed(bmci2c):
    # Its line follows the one before without a line break.
    code, run = bmci2c.run_json(GOOD, SILENT, GOOD)
    assert (code, run["verdict"]) == (2, "not completed")
    assert run["records"][0]["CompletionState"] == 2
    assert run["records"][0]["RecordData"] == passed(1) + unjudged(802, 2) + "\n" + passed(3)


def test_silent_controller_before_a_failed_bus_is_failed(bmci2c):
    code, run = bmci2c.run_json(SILENT, ONE_FAILED)
    assert (code, run["verdict"]) == (1, "failed")
    assert run["records"][0]["RecordData"] == unjudged(802, 1) + "\n" + failed_bus(2, 2)


def test_short_answer_is_not_completed(bmci2c):
    assert verdict(bmci2c, SHORT) == (2, "not completed", [6])


def test_short_answer_after_a_good_controller_is_recorded_twice(bmci2c):
    code, run = bmci2c.run_json(GOOD, SHORT, GOOD)
    assert (code, run["verdict"]) == (2, "not completed")
    first, second = run["records"]
    assert first == second
    assert first["RecordData"] == passed(1) + unjudged(801, 2)


def test_completion_code_is_not_completed(bmci2c):
    assert verdict(bmci2c, node(completion_code=0xC1)) == (2, "not completed", [6])


def test_unsupported_machine_is_not_completed(bmci2c):
    code, run = bmci2c.run_json(GOOD, machine_type="0000", bios_id="X")
    assert (code, run["verdict"]) == (2, "not completed")
    assert [record["RecordData"] for record in run["records"]] == [
        "166-899-001 BMCI2C Bus Test Aborted: The machine with MT [0000] is not supported by "
        "BMCI2C Bus Test."
    ]


def test_empty_machine_type_is_not_completed(bmci2c):
    code, run = bmci2c.run_json(GOOD, machine_type="", bios_id="X")
    assert (code, run["verdict"]) == (2, "not completed")
    # Without a machine type the catalog is not read, so the first record's message has no text.
    assert [record["RecordData"] for record in run["records"]] == [
        "",
        "166-899-001 BMCI2C Bus Test Aborted: The machine with MT [] is not supported by "
        "BMCI2C Bus Test.",
    ]
    assert [record["CompletionState"] for record in run["records"]] == [6, 6]


def test_missing_module_ends_with_3(bmci2c):
    result = bmci2c("--module", "/nowhere/module.so", "run", "--json")
    assert result.code == 3
    assert result.json() == {
        "status": None,
        "return_value": None,
        "job": None,
        "records": [],
        "verdict": "error",
    }
    assert "/nowhere/module.so" in result.err


def test_file_that_is_no_module_ends_with_3(bmci2c):
    file = bmci2c.write("module.so", "no library")
    result = bmci2c("--module", file, "run")
    assert result.code == 3
    assert result.out == ""
    assert file in result.err


def test_missing_schema_ends_with_3(bmci2c):
    result = bmci2c("run", env={"BMCI2C_SCHEMA": "/nowhere"})
    assert (result.code, result.out) == (3, "")
    assert "/nowhere/bmci2c.mof" in result.err


def test_failed_call_ends_with_3_and_its_status(bmci2c):
    # A message number that is none lets the catalog's parser throw; the call fails with its text.
    bmci2c.write_catalog(
        '<bmci2cmsg version="1.0"><machine type="7000">'
        '<property name="message" index="0x10"><value>text</value></property>'
        "</machine></bmci2cmsg>"
    )
    result = bmci2c.simulate(bmci2c.profile(GOOD), "run", "--json")
    assert result.code == 3
    run = result.json()
    assert (run["status"], run["verdict"]) == (1, "error")
    assert (run["return_value"], run["job"], run["records"]) == (None, None, [])
    assert "bad lexical cast: source type value could not be interpreted as target" in result.err


def test_wrong_settings_end_with_64(bmci2c):
    result = bmci2c("--config", bmci2c.write("wrong.toml", "[machine\n"), "run", "--json")
    assert result.code == 64
    assert result.out == ""
