"""The table of operations in docs/serve.md, against what the server answers."""

import re
from pathlib import Path

import pytest
from conftest import SERVICE, Command, node
from serving import INTEROP, NAMESPACE, Server, call

PAGE = (Path(__file__).parents[2] / "docs" / "serve.md").read_text(encoding="utf-8")

CLASS = f'<IPARAMVALUE NAME="ClassName"><CLASSNAME NAME="{SERVICE}"/></IPARAMVALUE>'
NAME = (
    f'<INSTANCENAME CLASSNAME="{SERVICE}"><KEYBINDING NAME="Name">'
    "<KEYVALUE>BMC I2C Test</KEYVALUE></KEYBINDING></INSTANCENAME>"
)


def parameter(name, content):
    return f'<IPARAMVALUE NAME="{name}">{content}</IPARAMVALUE>'


def value(name, text):
    return parameter(name, f"<VALUE>{text}</VALUE>")


def operations():
    """Each operation of the table, and the error code that the table gives for it, or None."""
    lines = PAGE[PAGE.index("| operation |") :].splitlines()[2:]
    rows = [line.strip("| ").split(" | ") for line in lines[: lines.index("")]]
    for names, answer in rows:
        code = re.match(r"error (\d+)", answer)
        assert code or answer.startswith("yes")
        for name in names.split(", "):
            yield name, code and code[1]


@pytest.fixture(scope="module")
def served(tmp_path_factory):
    command = Command(tmp_path_factory.mktemp("serve"))
    server = Server(command, command.profile(node(data=[0, 0])))
    yield server
    assert server.stop() == 0


def ask(server, operation, parameters, namespace=NAMESPACE):
    status, _, body = server.post(
        call(operation, parameters, namespace), method=operation, target=namespace
    )
    assert status == 200, body
    return body


def context(server, opening, parameters):
    """The context of an enumeration that has just been opened."""
    body = ask(server, opening, parameters + value("MaxObjectCount", 0))
    return re.search(r'"EnumerationContext" PARAMTYPE="string"><VALUE>(\w+)', body)[1]


def parameters_for(server, operation):
    if operation == "GetQualifier":
        return value("QualifierName", "Key")
    if operation in ("EnumerateQualifiers", "EnumerateClasses", "EnumerateClassNames"):
        return ""
    if operation.startswith(("OpenAssociator", "OpenReference")) or operation == "GetInstance":
        return parameter("InstanceName", NAME)
    if operation.startswith(("Associator", "Reference")):
        return parameter("ObjectName", NAME)
    if operation.startswith("Pull") or operation == "CloseEnumeration":
        opening = "OpenEnumerateInstances"
        opening += {"PullInstancePaths": "Paths"}.get(operation, "")
        opening = opening.replace("InstancesPaths", "InstancePaths")
        count = "" if operation == "CloseEnumeration" else value("MaxObjectCount", 1)
        return value("EnumerationContext", context(server, opening, CLASS)) + count
    return CLASS


@pytest.mark.parametrize("operation, code", operations())
def test_operation_is_answered_as_the_table_says(served, operation, code):
    body = ask(served, operation, parameters_for(served, operation))
    assert f'<IMETHODRESPONSE NAME="{operation}">' in body
    error = re.search(r'<ERROR CODE="(\d+)"', body)
    assert (error and error[1]) == code, body


@pytest.mark.parametrize("operation, code", operations())
def test_unknown_name_space_is_told_by_every_operation(served, operation, code):
    assert '<ERROR CODE="3"' in ask(served, operation, "", "root/none")


@pytest.mark.parametrize("operation", ["Associators", "AssociatorNames", "References", "ReferenceNames"])
def test_operation_on_a_class_is_answered(served, operation):
    body = ask(served, operation, CLASS.replace('"ClassName"', '"ObjectName"'))
    assert "<CLASSPATH>" in body


def test_profiles_are_those_of_the_page(served):
    cls = CLASS.replace(SERVICE, "CIM_RegisteredProfile")
    body = ask(served, "EnumerateInstances", cls, INTEROP)
    names = re.findall(r'NAME="RegisteredName" TYPE="string"><VALUE>([^<]*)', body)
    assert len(names) == 2
    for name in names:
        assert f'"{name}" 1.0.0' in PAGE.replace("\n", " ")


def test_limits_are_those_of_the_page(server):
    page = " ".join(PAGE.split())
    assert "1 to 300 s, 60 s by default" in page
    assert "The server keeps 64 open; one more gets CIM error 27." in page
    opening = lambda more: ask(server, "OpenEnumerateInstances", CLASS + more)
    for seconds, error in ((0, '"22"'), (1, None), (300, None), (301, '"22"')):
        body = opening(value("OperationTimeout", seconds) + value("MaxObjectCount", 1))
        assert ("<ERROR" in body) == bool(error), body
    answers = [opening("") for _ in range(65)]
    assert '<ERROR CODE="27"' in answers[-1]
