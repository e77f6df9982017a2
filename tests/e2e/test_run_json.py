"""The object that `run --json` prints."""

import re

from conftest import node

CIM_TIME = re.compile(r"\d{14}\.\d{6}[+-]\d{3}")
ZERO_INTERVAL = "00000000000000.000000:000"


def run(bmci2c):
    return bmci2c.run_json(node(data=[0, 0]))[1]


def test_keys_are_those_that_scripts_read(bmci2c):
    outcome = run(bmci2c)
    assert list(outcome) == ["status", "return_value", "job", "records", "verdict"]
    assert outcome["status"] == 0
    assert outcome["return_value"] == 1


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
