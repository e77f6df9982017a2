"""The object that `run --json` prints."""

import re

from conftest import node, passed

CIM_TIME = re.compile(r"\d{14}\.\d{6}[+-]\d{3}")
UTC_TIME = re.compile(r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z")
ZERO_INTERVAL = "00000000000000.000000:000"


def run(bmci2c, *nodes, **keys):
    return bmci2c.run_json(*(nodes or [node(data=[0, 0])]), **keys)[1]


def test_keys_are_those_that_scripts_read(bmci2c):
    outcome = run(bmci2c)
    assert list(outcome) == [
        "format_version",
        "version",
        "simulated",
        "verdict",
        "begin",
        "end",
        "seconds",
        "machine",
        "controllers",
        "failed",
        "status",
        "return_value",
        "job",
        "records",
        "end_of_record",
        "messages",
        "troubles",
    ]
    assert outcome["format_version"] == 1
    assert bmci2c.bare("--version").out == f"bmci2c {outcome['version']}\n"
    assert (outcome["status"], outcome["return_value"]) == (0, 1)
    assert outcome["simulated"] is True
    assert UTC_TIME.fullmatch(outcome["begin"])
    assert outcome["begin"] <= outcome["end"]


def test_machine_is_told(bmci2c):
    assert run(bmci2c)["machine"] == {
        "type": "7000",
        "bios_id": "P7E100A",
        "oxc": False,
        "catalog": str(bmci2c.root / "bmci2c" / "bmci2c.msg.xml"),
        "supported": True,
    }


def test_controller_is_told(bmci2c):
    (controller,) = run(bmci2c, node(data=[0x00, 0x00]))["controllers"]
    seconds = controller.pop("seconds")
    assert isinstance(seconds, float)
    assert controller == {
        "node": 0,
        "address": "simulated",
        "outcome": "examined",
        "generation": None,
        "completion_code": 0,
        "data": "0000",
        "attempts": 1,
        "busses": [{"bus": bus, "state": "good"} for bus in range(16)],
        "trouble": None,
        "length": 3,
        "unused_byte": False,
        "message": passed(1),
        "recommendations": [],
    }


def test_failed_bus_is_told_with_its_recommendations(bmci2c):
    outcome = run(bmci2c, node(data=[0]), node(data=[0] * 7 + [0x80]))
    assert outcome["failed"] == [
        {
            "node": 1,
            "bus": 63,
            "message": "166-964-002 FAIL: text 964",
            "recommendations": ["standard advice"],
        }
    ]


def test_refusing_and_later_controllers_are_told(bmci2c):
    outcome = run(bmci2c, node(completion_code=0xC1), node(data=[0]))
    refusing, later = outcome["controllers"]
    assert (refusing["outcome"], refusing["completion_code"]) == ("refused", 0xC1)
    assert refusing["trouble"]["code"] == "refused"
    assert refusing["message"].startswith("166-")
    assert (later["outcome"], later["completion_code"], later["busses"]) == ("not_asked", None, [])
    assert later["attempts"] == 0
    assert outcome["end_of_record"] == 0


def test_busy_controller_is_asked_twice(bmci2c):
    (controller,) = run(bmci2c, node(data=[0], busy=1))["controllers"]
    assert (controller["outcome"], controller["attempts"]) == ("examined", 2)


def test_unsupported_machine_is_told(bmci2c):
    outcome = run(bmci2c, machine_type="0000", bios_id="X")
    assert outcome["machine"]["supported"] is False
    assert [message["message"][:7] for message in outcome["messages"]] == ["166-899"]
    assert [trouble["code"] for trouble in outcome["troubles"]] == ["machine_not_listed"]


def test_job_has_values_times_and_nulls(bmci2c):
    job = run(bmci2c)["job"]
    assert job["JobState"] == 7
    assert job["JobStatus"] == "Job Status OK"
    assert job["OperationalStatus"] == [2]
    assert job["DeleteOnCompletion"] is False
    assert job["ElapsedTime"] == ZERO_INTERVAL
    assert CIM_TIME.fullmatch(job["TimeSubmitted"])
    assert job["TimeBeforeRemoval"] is None
    assert job["HealthState"] is None
    assert re.fullmatch(r"BMCI2C_Record:\d{1,3}", job["InstanceID"])


def test_record_has_values_arrays_and_nulls(bmci2c):
    outcome = run(bmci2c)
    (record,) = outcome["records"]
    assert record["Caption"] == "DiagnosticRecord"
    assert record["ElementName"] == "Result for BMC I2C Test"
    assert record["ManagedElementName"] == "I2C Bus"
    assert record["RecordFormat"] == ""
    assert record["ErrorCode"] is None
    assert record["ErrorCount"] == [0]
    assert record["ResultArray"] == []
    assert record["LogArray"] == []
    assert record["OverallResult"] is True
    assert record["ExpirationDate"] is None
    assert CIM_TIME.fullmatch(record["CreationTimeStamp"])
    assert record["InstanceID"] == outcome["job"]["InstanceID"]


def test_properties_stand_in_class_order(bmci2c):
    (record,) = run(bmci2c)["records"]
    names = list(record)
    assert names[:5] == ["Caption", "Description", "ElementName", "RecordFormat", "RecordData"]
    assert names[-3:] == ["OverallResult", "ResultArray", "LogArray"]


def test_instance_id_repeats_from_process_to_process(bmci2c):
    assert run(bmci2c)["job"]["InstanceID"] == run(bmci2c)["job"]["InstanceID"]


def test_nothing_but_the_object_is_printed(bmci2c):
    result = bmci2c.simulate(bmci2c.profile(node(data=[1])), "run", "--json")
    assert result.out.startswith("{") and result.out.endswith("}\n")
    assert result.err == ""
