"""`enumerate` and `names`."""

import re

import pytest
from conftest import JOB, RECORD, SERVICE, catalog_text, node, passed

EMPTY_CLASSES = [
    "QUVSG_BMCI2C_CorrespondingSettingsRecord",
    "QUVSG_BMCI2C_DiagnosticSettingRecord",
    "QUVSG_BMCI2C_ElementCapabilities",
    "QUVSG_BMCI2C_ElementSoftwareIdentity",
    "QUVSG_BMCI2C_JobSettingData",
    "QUVSG_BMCI2C_LogManagesRecord",
    "QUVSG_BMCI2C_ServiceAvailableToElement",
]


@pytest.fixture
def good(bmci2c):
    profile = bmci2c.profile(node(data=[0, 0]))
    return lambda *arguments: bmci2c.simulate(profile, *arguments)


def test_service_has_class_path_and_properties(good):
    result = good("enumerate", SERVICE, "--json")
    assert result.code == 0
    (service,) = result.json()
    assert list(service) == ["class", "path", "properties"]
    assert service["class"] == SERVICE
    assert service["path"].startswith(f"root/QUVSD:{SERVICE}.")
    properties = service["properties"]
    assert properties["Name"] == properties["ElementName"] == "BMC I2C Test"
    assert properties["SystemName"] == ""
    assert properties["CreationClassName"] is None
    assert properties["StatusDescriptions"] == ["Status OK"]
    assert properties["Started"] is True


def test_records_before_any_run_are_an_empty_array(good):
    result = good("enumerate", RECORD, "--json")
    assert (result.code, result.json()) == (0, [])


NO_RECORD = (
    f"bmci2c: {RECORD} has no instance. Records exist only in the process that ran the test: use "
    f"'bmci2c enumerate {RECORD} --after-runs 1' to run it first.\n"
)


def test_records_before_any_run_are_no_text_but_a_hint(good):
    result = good("enumerate", RECORD)
    assert (result.code, result.out, result.err) == (0, "", NO_RECORD)


def test_no_instance_after_a_run_is_no_text(good):
    result = good("enumerate", EMPTY_CLASSES[0], "--after-runs", "1")
    assert (result.code, result.out, result.err) == (0, "", "")


def test_after_runs_runs_in_the_same_process(good):
    result = good("enumerate", RECORD, "--after-runs", "1", "--json")
    assert result.code == 0
    assert [record["properties"]["RecordData"] for record in result.json()] == [passed(1)]


def test_after_several_runs_the_records_are_those_of_the_last(good):
    result = good("enumerate", RECORD, "--after-runs", "3", "--json")
    assert len(result.json()) == 1


def test_each_run_makes_a_new_instance_id(good):
    def instance_id(runs):
        (job,) = good("enumerate", JOB, "--after-runs", runs, "--json").json()
        return job["properties"]["InstanceID"]

    assert instance_id("1") != instance_id("2")


def test_after_runs_whose_call_fails_ends_with_3(bmci2c):
    bmci2c.write_catalog(
        '<bmci2cmsg version="1.0"><machine type="7000">'
        '<property name="message" index="x"><value>text</value></property></machine></bmci2cmsg>'
    )
    profile = bmci2c.profile(node(data=[0]))
    result = bmci2c.simulate(profile, "enumerate", RECORD, "--after-runs", "1", "--json")
    assert result.code == 3
    failed = "Running the I2C bus test failed. CIM status 1, failed: "
    assert result.json()["error"]["text"].startswith(failed)
    assert failed in result.err


def test_times_prints_the_last_enumeration_only(good):
    once = good("enumerate", SERVICE)
    thrice = good("enumerate", SERVICE, "--times", "3")
    assert thrice.code == 0
    assert thrice.out.count(SERVICE) == once.out.count(SERVICE)


def test_job_keeps_its_instance_id_from_time_to_time(good):
    once = good("enumerate", JOB, "--json").json()
    twice = good("enumerate", JOB, "--times", "2", "--json").json()
    assert once[0]["path"] == twice[0]["path"]


def test_text_has_a_line_for_each_property(good):
    lines = good("enumerate", SERVICE).out.splitlines()
    assert lines[0].startswith(f"root/QUVSD:{SERVICE}.")
    assert "  Name = BMC I2C Test" in lines
    assert "  CreationClassName = (none)" in lines
    assert "  OperationalStatus = { 2 }" in lines


def test_base_class_finds_the_module_s_instances(good):
    result = good("enumerate", "CIM_DiagnosticService", "--json")
    assert [instance["class"] for instance in result.json()] == [SERVICE]


def test_class_in_any_letter_case_is_found(good):
    result = good("enumerate", SERVICE.lower(), "--json")
    assert (result.code, len(result.json())) == (0, 1)


@pytest.mark.parametrize("name", EMPTY_CLASSES)
def test_class_without_instances_succeeds(good, name):
    result = good("enumerate", name, "--json")
    assert (result.code, result.json()) == (0, [])


@pytest.mark.parametrize("command", ["enumerate", "names"])
def test_unknown_class_ends_with_3(good, command):
    result = good(command, "No_Such_Class")
    assert result.code == 3
    assert result.out == ""
    assert "CIM status 5, invalid class: " in result.err
    assert "No_Such_Class" in result.err


@pytest.mark.parametrize("command", [["enumerate"], ["names"], ["invoke", "RunDiagnostic"]])
def test_class_without_its_prefix_is_told_with_it(good, command):
    result = good(command[0], "DiagnosticService", *command[1:])
    assert result.code == 3
    assert result.err.endswith(
        "There is no class 'DiagnosticService' in the namespace 'root/QUVSD'. Did you mean "
        f"{SERVICE}? Run 'bmci2c info' to see the classes.\n"
    )


def test_names_of_the_job_is_its_path(good):
    result = good("names", JOB)
    assert result.code == 0
    assert re.fullmatch(
        rf'root/QUVSD:{JOB}\.InstanceID="BMCI2C_Record:\d{{1,3}}"\n', result.out
    )


def test_names_of_the_service_has_the_keys_that_it_assigned(good):
    result = good("names", SERVICE)
    path = re.fullmatch(rf"root/QUVSD:{SERVICE}\.(.*)\n", result.out)
    assert sorted(path.group(1).split(",")) == ['Name="BMC I2C Test"', 'SystemName=""']


def test_names_of_a_class_without_instances_prints_a_hint(good):
    result = good("names", RECORD)
    assert (result.code, result.out, result.err) == (0, "", NO_RECORD)


def test_names_as_json_have_class_path_and_keys(good):
    result = good("names", SERVICE, "--json")
    (name,) = result.json()
    assert result.code == 0
    assert list(name) == ["class", "path", "keys"]
    assert name["class"] == SERVICE
    assert name["path"] + "\n" == good("names", SERVICE).out
    assert name["keys"] == {"Name": "BMC I2C Test", "SystemName": ""}


def test_names_as_json_of_a_class_without_instances_are_an_empty_array(good):
    result = good("names", RECORD, "--json")
    assert (result.code, result.json(), result.err) == (0, [], "")


def test_control_characters_of_the_catalog_are_escaped(bmci2c):
    bmci2c.write_catalog(catalog_text().replace(">text 0<", ">a\x9b31mb<"))
    profile = bmci2c.profile(node(data=[0]))
    arguments = ["enumerate", RECORD, "--after-runs", "1"]
    assert "a\\xc2\\x9b31mb" in bmci2c.simulate(profile, *arguments).out
    (record,) = bmci2c.simulate(profile, *arguments, "--json").json()
    assert "a\x9b31mb" in record["properties"]["RecordData"]


@pytest.mark.parametrize("names", [["Name"], ["elementname", "NAME", "Name"]], ids=len)
def test_only_the_named_properties_are_printed(good, names):
    options = [word for name in names for word in ("--property", name)]
    (whole,) = good("enumerate", SERVICE, "--json").json()
    wanted = {name.lower() for name in names}
    expected = {
        name: value for name, value in whole["properties"].items() if name.lower() in wanted
    }
    assert len(expected) == len(wanted)
    (instance,) = good("enumerate", SERVICE, *options, "--json").json()
    assert instance == {**whole, "properties": expected}
    lines = good("enumerate", SERVICE, *options).out.splitlines()
    assert lines == [whole["path"], *(f"  {name} = {value}" for name, value in expected.items())]


def test_property_of_a_subclass_is_known(good):
    result = good("enumerate", "CIM_ManagedElement", "--property", "RecordData", "--json")
    assert result.code == 0
    assert all(set(one["properties"]) <= {"RecordData"} for one in result.json())


@pytest.mark.parametrize(
    "name, advice",
    [
        ("Nmae", "Did you mean 'Name'?"),
        ("elementnames", "Did you mean 'ElementName'?"),
        ("Colour", f"Run 'bmci2c enumerate {SERVICE}' without --property to see all."),
    ],
)
def test_unknown_property_is_wrong_usage(good, name, advice):
    result = good("enumerate", SERVICE, "--property", "Name", "--property", name)
    assert (result.code, result.out) == (64, "")
    assert result.err == f"bmci2c: {SERVICE} has no property '{name}'. {advice}\n"


def test_property_of_an_unknown_class_is_not_looked_at(good):
    assert good("enumerate", "No_Such_Class", "--property", "Name").code == 3
