"""`invoke`: methods, keys and arguments as a user writes them."""

import pytest
from conftest import JOB, SERVICE, node

NAME = "Name=BMC I2C Test"


@pytest.fixture
def invoke(bmci2c):
    profile = bmci2c.profile(node(data=[0, 0]))
    return lambda *arguments: bmci2c.simulate(profile, "invoke", *arguments)


def run_diagnostic(invoke, *keys):
    options = [word for key in keys for word in ("--key", key)]
    return invoke(SERVICE, "RunDiagnostic", *options, "--json")


def test_run_diagnostic_gives_1_and_the_job(invoke):
    result = run_diagnostic(invoke, NAME, "SystemName=")
    assert result.code == 0
    outcome = result.json()
    assert list(outcome) == ["status", "return_value", "out"]
    assert (outcome["status"], outcome["return_value"]) == (0, 1)
    assert outcome["out"]["Job"].startswith(f'root/QUVSD:{JOB}.InstanceID="BMCI2C_Record:')


def test_text_names_return_value_and_outputs(invoke):
    result = invoke(SERVICE, "RunDiagnostic", "--key", NAME)
    assert result.code == 0
    lines = result.out.splitlines()
    assert lines[0] == "return value = 1"
    assert lines[1].startswith(f'  Job = root/QUVSD:{JOB}.InstanceID="BMCI2C_Record:')


@pytest.mark.parametrize(
    "keys",
    [
        [NAME],
        ["SystemName=", NAME],
        ["NAME=BMC I2C Test", "systemname="],
        [NAME, "CreationClassName=x", "SystemCreationClassName=y", "SystemName=z"],
    ],
    ids=["name-only", "other-order", "other-case", "all-keys"],
)
def test_keys_in_any_order_and_letter_case_are_accepted(invoke, keys):
    result = run_diagnostic(invoke, *keys)
    assert (result.code, result.json()["status"]) == (0, 0)


def test_class_and_method_in_any_letter_case_are_accepted(invoke):
    result = invoke(SERVICE.upper(), "rundiagnostic", "--key", NAME, "--json")
    assert (result.code, result.json()["return_value"]) == (0, 1)


@pytest.mark.parametrize("keys", [["Name=bmc i2c test"], ["Name="]], ids=["case", "empty"])
def test_name_of_no_test_fails(invoke, keys):
    result = run_diagnostic(invoke, *keys)
    assert result.code == 3
    outcome = result.json()
    assert (outcome["status"], outcome["return_value"], outcome["out"]) == (1, None, {})
    failed = f"Invoking {SERVICE}.RunDiagnostic failed. CIM status 1, failed: "
    assert failed in result.err
    advice = f"No instance has these keys. Run 'bmci2c names {SERVICE}' to see them."
    assert result.err.endswith(f" {advice}\n")
    assert list(outcome) == ["format_version", "verdict", "error", "status", "return_value", "out"]
    assert (outcome["verdict"], outcome["error"]["advice"]) == ("error", advice)


@pytest.mark.parametrize("name", [SERVICE, SERVICE.lower(), "CIM_DiagnosticService"])
def test_only_instance_needs_no_key(invoke, name):
    result = invoke(name, "RunDiagnostic", "--json")
    assert (result.code, result.err) == (0, "")
    assert (result.json()["status"], result.json()["return_value"]) == (0, 1)


def test_several_instances_without_a_key_are_listed(bmci2c, invoke):
    name = "CIM_LogicalElement"
    paths = bmci2c.simulate(f"{bmci2c.folder}/profile.toml", "names", name).out.splitlines()
    assert len(paths) > 1
    result = invoke(name, "RequestStateChange")
    assert (result.code, result.out) == (64, "")
    listed = result.err.split(f"bmci2c: {name} has several instances:\n")[1]
    stable = [path for path in paths if f":{JOB}." not in path]  # the job's key differs each time
    assert all(f"  {path}" in listed for path in stable) and len(stable) > 1
    assert listed.count("\n") == len(paths)
    assert listed.endswith(" Name one with --key NAME=VALUE.\n")


def test_class_without_instances_is_asked_without_a_key(invoke):
    result = invoke("QUVSG_BMCI2C_JobSettingData", "RunDiagnostic")
    assert (result.code, result.out) == (3, "")
    assert "CIM status 17, method not found: " in result.err


@pytest.mark.parametrize("method", ["StartService", "StopService", "STARTSERVICE"])
def test_unsupported_method_answers_not_supported(invoke, method):
    result = invoke(SERVICE, method, "--key", NAME, "--json")
    assert (result.code, result.json()["status"]) == (3, 7)


def test_unsupported_method_with_arguments_answers_not_supported(invoke):
    result = invoke(
        SERVICE,
        "RequestStateChange",
        "--key",
        NAME,
        "--in",
        "RequestedState=2",
        "--in",
        "TimeoutPeriod=00000000000500.000000:000",
        "--json",
    )
    assert (result.code, result.json()["status"]) == (3, 7)


def test_kill_job_answers_not_supported(invoke):
    result = invoke(JOB, "KillJob", "--key", "InstanceID=x", "--in", "DeleteOnKill=true", "--json")
    assert (result.code, result.json()["status"]) == (3, 7)


def test_reference_arguments_are_object_paths(invoke):
    result = invoke(
        SERVICE,
        "RunDiagnostic",
        "--key",
        NAME,
        "--in",
        'ManagedElement=root/QUVSD:QUVSG_BMCI2C_ManagedSystemElement.DeviceID="x"',
        "--json",
    )
    assert (result.code, result.json()["return_value"]) == (0, 1)


def test_unknown_method_ends_with_3(invoke):
    result = invoke(SERVICE, "NoSuchMethod", "--key", NAME, "--json")
    assert (result.code, result.json()["status"]) == (3, 17)
    methods = "RequestStateChange, StartService, StopService and RunDiagnostic"
    assert result.err.endswith(f" Its methods are {methods}.\n")


def test_method_of_another_class_ends_with_3(invoke):
    result = invoke("QUVSG_BMCI2C_HelpService", "RunDiagnostic", "--json")
    assert (result.code, result.json()["status"]) == (3, 17)


def test_unknown_class_ends_with_3(invoke):
    result = invoke("No_Such_Class", "RunDiagnostic", "--key", "A=b", "--json")
    assert (result.code, result.json()["status"]) == (3, 5)
    assert "No_Such_Class" in result.err


def test_unknown_key_is_wrong_usage(invoke):
    result = run_diagnostic(invoke, "Nom=x")
    text = f"--key: unknown key of {SERVICE} 'Nom'."
    assert (result.code, result.json()["error"]["text"]) == (64, text)
    assert result.err.startswith(f"bmci2c: {text} Known: Name, ")


def test_unknown_argument_is_wrong_usage(invoke):
    result = invoke(SERVICE, "RunDiagnostic", "--key", NAME, "--in", "Other=1")
    assert result.code == 64
    assert f"--in: unknown input parameter of {SERVICE}.RunDiagnostic 'Other'. Known: " in result.err


def test_argument_of_a_wrong_type_is_wrong_usage(invoke):
    result = invoke(SERVICE, "RequestStateChange", "--key", NAME, "--in", "RequestedState=65536")
    assert result.code == 64
    assert "--in RequestedState must be of type uint16, not '65536'." in result.err


def test_argument_without_a_value_is_wrong_usage(invoke):
    result = invoke(SERVICE, "RunDiagnostic", "--key", "Name")
    assert result.code == 64
    assert "--key must have the form NAME=VALUE, not 'Name'." in result.err
