"""pywbemcli as a client of `bmci2c serve`, with the operations that pull and with the others."""

import subprocess
import sys

import pytest
from conftest import JOB, RECORD, SERVICE, Command, node, passed
from serving import INTEROP, NAMESPACE, Server

PREFIX = "QUVSG_BMCI2C_"
ELEMENT = f"{PREFIX}ManagedSystemElement"
PROGRAM = "import sys; from pywbemtools.pywbemcli.pywbemcli import cli; sys.exit(cli())"
REGISTRATION, BUS_TEST = "DMTF:Profile Registration:1.0.0", "QUV:BMC I2C Bus Test:1.0.0"


@pytest.fixture(scope="module")
def served(tmp_path_factory):
    """A server that has run the test once."""
    command = Command(tmp_path_factory.mktemp("serve"))
    server = Server(command, command.profile(node(data=[0, 0])))
    done = call_pywbemcli(server, ["instance", "invokemethod", f"{SERVICE}.?", "RunDiagnostic"])
    assert done.stdout.startswith("ReturnValue=1\n"), done.stderr
    yield server
    assert server.stop() == 0


def call_pywbemcli(server, arguments, pull="either", namespace=NAMESPACE):
    options = ["--server", server.base_url, "--default-namespace", namespace, "--use-pull", pull]
    return subprocess.run(
        [sys.executable, "-c", PROGRAM, *options, *arguments],
        env={
            "PATH": "/usr/bin:/bin",
            "PYTHONWARNINGS": "ignore",
            "PYWBEMTOOLS_TERMWIDTH": "200",
            "PYWBEMCLI_CONNECTIONS_FILE": str(server.log_file.parent / "connections.yaml"),
            "HOME": str(server.log_file.parent),
        },
        stdin=subprocess.DEVNULL,
        capture_output=True,
        text=True,
        timeout=100,
        check=False,
    )


@pytest.fixture(params=["yes", "no"])
def pywbemcli(served, request):
    """Calls pywbemcli; returns what it prints."""

    def call(*arguments, namespace=NAMESPACE):
        done = call_pywbemcli(served, arguments, request.param, namespace)
        assert (done.returncode, done.stderr) == (0, ""), done.stdout
        return done.stdout

    return call


def classes_in(paths):
    """The classes of the object paths of an answer, one in each line that is not empty."""
    lines = [line for line in paths.splitlines() if line]
    return [line.split(":", 2)[2].partition(".")[0] for line in lines]


def test_classes_are_found(pywbemcli):
    found = pywbemcli("class", "find", "*DiagnosticService")
    assert f"{NAMESPACE}: {SERVICE}\n" in found
    assert f"{NAMESPACE}: CIM_DiagnosticService\n" in found


def test_class_is_got(pywbemcli):
    mof = pywbemcli("class", "get", SERVICE)
    assert f"class {SERVICE} : CIM_DiagnosticService {{" in mof
    assert "RunDiagnostic(" in mof


def test_tree_of_classes_is_shown(pywbemcli):
    tree = pywbemcli("class", "tree", "CIM_Service")
    assert f"|   +-- {SERVICE}\n" in tree
    assert "+-- CIM_DiagnosticService\n" in tree


def test_associators_of_a_class_are_shown(pywbemcli):
    paths = pywbemcli("class", "associators", SERVICE, "--assoc-class", "CIM_UseOfLog", "--names-only")
    assert classes_in(paths) == ["CIM_Log"]
    mof = pywbemcli("class", "associators", SERVICE, "--assoc-class", "CIM_UseOfLog")
    assert "class CIM_Log : CIM_EnabledLogicalElement {" in mof


def test_references_of_a_class_are_shown(pywbemcli):
    found = classes_in(pywbemcli("class", "references", SERVICE, "--names-only"))
    assert f"{PREFIX}UseOfLog" in found
    assert f"{PREFIX}LogManagesRecord" not in found
    assert f"class {PREFIX}UseOfLog" in pywbemcli("class", "references", SERVICE)


@pytest.mark.parametrize("name", ["CIM_DiagnosticService", SERVICE])
def test_instances_are_enumerated(pywbemcli, name):
    mof = pywbemcli("instance", "enumerate", name)
    assert mof.count("instance of ") == 1
    assert '   Name = "BMC I2C Test";\n' in mof
    assert classes_in(pywbemcli("instance", "enumerate", name, "--names-only")) == [SERVICE]


def test_records_are_enumerated(pywbemcli):
    mof = pywbemcli("instance", "enumerate", RECORD, "--propertylist", "RecordData")
    assert passed(1) in mof.replace('"\n      "', "")
    assert "Caption" not in mof


def test_instance_is_got(pywbemcli):
    by_key = pywbemcli("instance", "get", SERVICE, "--key", "Name=BMC I2C Test")
    assert f"instance of {SERVICE} {{\n" in by_key
    assert pywbemcli("instance", "get", f'{SERVICE}.Name="BMC I2C Test",SystemName=""') == by_key


def test_shrub_of_the_service_shows_what_it_is_tied_to(pywbemcli):
    shrub = pywbemcli("instance", "shrub", f"{SERVICE}.?")
    for association, role, target in (
        ("AvailableDiagnosticService", "ServiceProvided", ELEMENT),
        ("OwningJobElement", "OwningElement", JOB),
        ("UseOfLog", "Dependent", f"{PREFIX}DiagnosticsLog"),
        ("ElementSetting", "Element", f"{PREFIX}DiagnosticSetting"),
    ):
        assert f"+-- {PREFIX}{association}(AssocClass)\n" in shrub
        assert f"+-- {role}(Role)\n" in shrub
        assert f"+-- {target}(ResultClass)(1 insts)\n" in shrub


def test_instances_are_counted(pywbemcli):
    rows = pywbemcli("instance", "count", f"{PREFIX}Diag*").splitlines()
    counts = dict(row.split()[1:] for row in rows if row.startswith(NAMESPACE))
    assert counts[SERVICE] == counts[RECORD] == "1"


def test_associators_are_shown(pywbemcli):
    path = f"{SERVICE}.?"
    found = classes_in(pywbemcli("instance", "associators", path, "--names-only"))
    assert sorted(found) == sorted(
        [JOB, ELEMENT, f"{PREFIX}DiagnosticSetting", f"{PREFIX}DiagnosticsLog"]
    )
    mof = pywbemcli("instance", "associators", path, "--result-class", "CIM_Job")
    assert f"instance of {JOB} {{\n" in mof
    assert mof.count("instance of ") == 1


def test_references_are_shown(pywbemcli):
    found = classes_in(pywbemcli("instance", "references", f"{ELEMENT}.?", "--names-only"))
    links = ("AffectedJobElement", "AvailableDiagnosticService", "RecordAppliesToElement")
    assert sorted(found) == [f"{PREFIX}{link}" for link in links]
    mof = pywbemcli("instance", "references", f"{ELEMENT}.?")
    assert mof.count("instance of ") == len(links)


def test_method_is_called(pywbemcli):
    answer = pywbemcli("instance", "invokemethod", f"{SERVICE}.?", "RunDiagnostic")
    value, job = answer.split("\n", 1)
    assert value == "ReturnValue=1"
    assert f"{JOB}.InstanceID" in job


def test_name_spaces_are_listed(pywbemcli):
    assert pywbemcli("namespace", "list").splitlines()[2:] == [NAMESPACE, INTEROP]


def test_profiles_are_listed(pywbemcli):
    rows = pywbemcli("profile", "list").splitlines()[3:]
    assert [row.split("  ")[0] for row in rows] == ["DMTF", "Other"]
    assert "Profile Registration" in rows[0]
    assert "BMC I2C Bus Test" in rows[1]


def test_central_instances_are_listed(pywbemcli, served):
    table = pywbemcli("profile", "centralinsts")
    assert "Exception" not in table
    authority = served.base_url.removeprefix("http://")
    assert f"//{authority}/{NAMESPACE}:{SERVICE}." in table
    for profile in (REGISTRATION, BUS_TEST):
        assert f'InstanceID="{profile}"' in table


def test_server_is_described(pywbemcli):
    assert pywbemcli("server", "info").splitlines()[3].split(None, 3) == [
        "bmci2c", "1.0.0", INTEROP, f"{NAMESPACE}, {INTEROP}"
    ]  # fmt: skip
    assert pywbemcli("server", "brand") == "bmci2c\n"


def test_connection_is_tested(pywbemcli, served):
    authority = served.base_url.removeprefix("http://")
    assert pywbemcli("connection", "test") == f"Connection OK: {authority}\n"


def test_pull_operations_are_there(served):
    done = call_pywbemcli(served, ["connection", "test", "--test-pull"])
    assert done.returncode == 0
    results = dict(line.split(None, 1) for line in done.stdout.splitlines() if "Open" in line)
    assert {operation: result.strip() for operation, result in results.items()} == {
        "OpenEnumerateInstances": "OK",
        "OpenEnumerateInstancePaths": "OK",
        "OpenAssociatorInstances": "OK",
        "OpenAssociatorInstancePaths": "OK",
        "OpenReferenceInstances": "OK",
        "OpenReferenceInstancePaths": "OK",
        "OpenQueryInstances": "NOT SUPPORTED",
    }


def test_subscriptions_are_listed(pywbemcli):
    table = pywbemcli("subscription", "list", "--summary")
    assert table
    rows = [row.strip("| ").split("|") for row in pywbemcli("subscription", "list").splitlines()]
    total = next(row for row in rows if row[0].strip() == "TOTAL INSTANCES")
    assert [cell.strip() for cell in total[1:]] == ["0", "0", "0"]
