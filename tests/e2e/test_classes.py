"""All 23 classes, before any run, after one and after three."""

import re
from pathlib import Path

import pytest
from conftest import node
from test_module import CLASSES

PREFIX = "QUVSG_BMCI2C_"
# What the classes declare, as a person wrote it down from the CIM model.
DECLARED = Path(__file__).parents[1] / "unit" / "schema" / "classes.txt"
EMPTY = [
    "CorrespondingSettingsRecord",
    "DiagnosticSettingRecord",
    "ElementCapabilities",
    "ElementSoftwareIdentity",
    "JobSettingData",
    "LogManagesRecord",
    "ServiceAvailableToElement",
]
# Properties that tell of the run or of the time; all others are the same before and after it.
CHANGING = {
    "ConcreteJob": {"InstanceID", "TimeSubmitted", "ScheduledStartTime", "StartTime", "InstallDate"},
    "DiagnosticService": {"InstallDate"},
    "DiagnosticServiceRecord": {"RecordData", "CreationTimeStamp"},
    "AffectedJobElement": {"AffectingElement"},
    "OwningJobElement": {"OwnedElement"},
}


def declared_properties():
    """{class: names of its properties, inherited ones first}."""
    properties = {}
    for block in DECLARED.read_text(encoding="utf-8").split("\n\n"):
        lines = [line for line in block.splitlines() if not line.startswith("#")]
        head = re.match(r"(\w+)(?: : (\w+))?", lines[0]) if lines else None
        if head is None:
            continue
        names = list(properties.get(head[2], []))
        for line in lines[1:]:
            words = [word for word in line.split() if word not in ("key", "override")]
            if "(" not in line and words[-1] not in names:
                names.append(words[-1])
        properties[head[1]] = names
    return properties


@pytest.fixture
def enumerate_after(bmci2c):
    profile = bmci2c.profile(node(data=[0, 0]))

    def instances(name, runs):
        result = bmci2c.simulate(
            profile, "enumerate", PREFIX + name, "--after-runs", str(runs), "--json"
        )
        assert result.code == 0, result.err
        return result.json()

    return instances


@pytest.mark.parametrize("name", CLASSES)
def test_class_has_its_instances_and_their_properties_in_order(enumerate_after, name):
    order = declared_properties()[PREFIX + name]
    before, once, thrice = (enumerate_after(name, runs) for runs in (0, 1, 3))
    if name == "DiagnosticCompletionRecord":
        assert [len(before), len(once), len(thrice)] == [0, 1, 1]
    else:
        count = 0 if name in EMPTY else 1
        assert [len(before), len(once), len(thrice)] == [count] * 3
    for instance in before + once + thrice:
        assert instance["class"] == PREFIX + name
        assert list(instance["properties"]) == order


WITHOUT_RUN = [name for name in CLASSES if name not in [*EMPTY, "DiagnosticCompletionRecord"]]


@pytest.mark.parametrize("name", WITHOUT_RUN)
def test_runs_change_only_what_tells_of_them(enumerate_after, name):
    def constant(runs):
        return [
            {
                key: value
                for key, value in instance["properties"].items()
                if key not in CHANGING.get(name, set())
            }
            for instance in enumerate_after(name, runs)
        ]

    before = constant(0)
    assert constant(1) == before
    assert constant(3) == before
