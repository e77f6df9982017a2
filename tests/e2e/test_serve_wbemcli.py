"""wbemcli as a client of `bmci2c serve`."""

import re
import subprocess

import pytest
from conftest import JOB, RECORD, SERVICE, passed
from serving import INTEROP, NAMESPACE, call

TEST_NAME = "BMC I2C Test"
KEYS = ("Name", "SystemName", "SystemCreationClassName", "CreationClassName")


@pytest.fixture
def wbemcli(server):
    """Calls wbemcli for an object; returns its lines."""

    def ask(operation, target, *arguments, options=(), namespace=NAMESPACE, fails=None):
        done = subprocess.run(
            ["wbemcli", operation, *options, f"{server.base_url}/{namespace}:{target}", *arguments],
            capture_output=True,
            text=True,
            timeout=100,
            check=False,
        )
        if fails is None:
            assert (done.returncode, done.stderr) == (0, "")
        else:
            assert fails in done.stdout + done.stderr
        return done.stdout.splitlines()

    return ask


def service(name=TEST_NAME, keys=KEYS):
    """The service's path. To call a method wbemcli wants every key of the class."""
    given = ",".join(f'{key}="{name if key.lower() == "name" else ""}"' for key in keys)
    return f"{SERVICE}.{given}"


def properties(line):
    """The properties of a line of instances: PATH NAME=VALUE,..."""
    return line.split(" ", 1)[1]


def test_classes_are_named(wbemcli):
    names = wbemcli("ecn", "CIM_DiagnosticService")
    assert [name.rpartition(":")[2] for name in names] == [SERVICE]
    assert wbemcli("ecn", "CIM_Service", namespace=INTEROP)


def test_class_is_got(wbemcli):
    (line,) = wbemcli("gc", SERVICE)
    assert SERVICE in line


@pytest.mark.parametrize("operation", ["gc", "ei", "ein"])
def test_every_class_is_got_and_enumerated(wbemcli, server, operation):
    deep = '<IPARAMVALUE NAME="DeepInheritance"><VALUE>TRUE</VALUE></IPARAMVALUE>'
    _, _, names = server.post(call("EnumerateClassNames", deep), "EnumerateClassNames")
    names = re.findall('<CLASSNAME NAME="([^"]+)"', names)
    assert len(names) > 30
    lines = [line for name in names for line in wbemcli(operation, name)]
    assert any(SERVICE in line for line in lines)


def test_namespaces_are_enumerated(wbemcli):
    lines = wbemcli("ei", "CIM_Namespace", namespace=INTEROP)
    assert any(f'Name="{NAMESPACE}"' in line for line in lines)


@pytest.mark.parametrize("cls", [SERVICE, "CIM_DiagnosticService", SERVICE.lower()])
def test_instances_are_enumerated(wbemcli, cls):
    (line,) = wbemcli("ei", cls)
    assert f'ElementName="{TEST_NAME}"' in properties(line)
    (name,) = wbemcli("ein", cls)
    assert f':{SERVICE}.' in name
    assert f'Name="{TEST_NAME}"' in name


def test_chosen_properties_are_shown(wbemcli):
    (line,) = wbemcli("ei", JOB, "JobState,PercentComplete")
    assert "JobState=7" in line and "PercentComplete=100" in line
    assert "Owner" not in line


@pytest.mark.parametrize(
    "keys",
    [KEYS, KEYS[::-1], [key.upper() for key in KEYS]],
    ids=["as-declared", "other-order", "other-case"],
)
def test_diagnostic_runs_and_leaves_its_record(wbemcli, keys):
    assert wbemcli("ei", RECORD) == []
    (line,) = wbemcli("cm", service(keys=keys), "RunDiagnostic")
    assert f' RunDiagnostic: 1, Job (reference): {NAMESPACE}:{JOB}.InstanceID="' in line
    (record,) = wbemcli("ei", RECORD)
    assert f'RecordData="{passed(1)}"' in record


def test_associations_are_followed(wbemcli):
    wbemcli("cm", service(), "RunDiagnostic")
    names = wbemcli("ain", service())
    assert any(f":{JOB}." in name for name in names)
    jobs = wbemcli("ai", service(), options=["-arc", JOB])
    assert len(jobs) == 1 and f":{JOB}." in jobs[0]
    assert wbemcli("rin", service())
    assert wbemcli("ri", service())


def test_instance_is_got(wbemcli):
    (line,) = wbemcli("gi", service())
    assert 'ElementName="BMC I2C Test"' in properties(line)


def test_errors_are_told(wbemcli):
    wbemcli("gi", service("No Test"), fails="CIM_ERR_NOT_FOUND")
    wbemcli("di", service(), fails="CIM_ERR_NOT_SUPPORTED")
    wbemcli("ei", "CIM_No", fails="CIM_ERR_INVALID_CLASS")
    wbemcli("gc", "CIM_No", fails="CIM_ERR_NOT_FOUND")
    wbemcli("ei", SERVICE, namespace="root/none", fails="CIM_ERR_INVALID_NAMESPACE")
    wbemcli("mi", service(), "Caption=x", fails="CIM_ERR_NOT_SUPPORTED")
    wbemcli("ci", service(), ",".join(f"{key}=x" for key in KEYS), fails="CIM_ERR_NOT_SUPPORTED")
    wbemcli("cm", service(), "Dance", fails="CIM_ERR_METHOD_NOT_FOUND")
    wbemcli("cm", service(), "StopService", fails="CIM_ERR_NOT_SUPPORTED")
    wbemcli("cm", service("bmc i2c test"), "RunDiagnostic", fails="CIM_ERR_FAILED")
