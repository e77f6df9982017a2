"""Replays the scenarios: one text file each, in the folder scenarios.

The first line of a file says circumstance and result. Sections follow, each begun by "--- NAME":

    profile          the simulated machine, TOML
    catalog          the message catalog, XML; "catalog sample" takes scenarios/sample.msg.xml,
                     "catalog none" leaves it away
    settings         settings file, TOML (may be left out)
    command ARGS     a step: a call of bmci2c; what follows says what it gives
    exit N           its exit code
    stderr           a text that its standard error holds (may be left out)
    properties A, B  the instances are listed with these properties, NULL ones too (may be left out:
                     then with every property that is not NULL)
    instances        the instances of an "enumerate", each a class name and indented properties, in
                     JSON but for references (object path), time stamps (TIME) and intervals
    names            the lines of a "names"
    log              all lines of the core logger, each "SEVERITY TEXT" (may be left out). "log with
                     parser" has the catalog parser's trace, too. Further lines of a text begin with
                     "  |". "\u2420" stands for a blank at the end of a line.
"""

import json
import re
import shlex
from dataclasses import dataclass, field
from pathlib import Path

import pytest

FOLDER = Path(__file__).parent / "scenarios"
TIME_STAMP = re.compile(r"\d{14}\.\d{6}[+-]\d{3}")
INTERVAL = re.compile(r"\d{14}\.\d{6}:\d{3}")
REFERENCE = re.compile(r"root/QUVSD:QUVSG_BMCI2C_\w+\.")
ADDRESS_LINE = "getMachineType:  = "
PLATFORM_PREFIXES = ("SP: ", "DMI: ", "Settings: ", "Log: ", "Run: ")
PARSER_PREFIX = "BMCI2C Parser Line "
PARSER_TRACE = (3, 4)  # severities
END_BLANK = "\u2420"
SETTING_SECTIONS = ("profile", "catalog", "settings")
STEP_SECTIONS = ("exit", "stderr", "properties", "instances", "names", "log")


@dataclass
class Section:
    name: str
    argument: str
    text: str


@dataclass
class Step:
    command: list
    expected: dict = field(default_factory=dict)  # section name to Section


@dataclass
class Scenario:
    settings: dict  # section name to Section
    steps: list


def read_sections(text):
    sections = []
    for part in re.split(r"^--- ", text, flags=re.MULTILINE)[1:]:
        head, _, body = part.partition("\n")
        name, _, argument = head.partition(" ")
        sections.append(Section(name, argument, body))
    return sections


def read_scenario(path):
    scenario = Scenario({}, [])
    for section in read_sections(path.read_text(encoding="utf-8")):
        if section.name == "command":
            scenario.steps.append(Step(shlex.split(section.argument)))
            continue
        known = STEP_SECTIONS if scenario.steps else SETTING_SECTIONS
        target = scenario.steps[-1].expected if scenario.steps else scenario.settings
        assert section.name in known, f"{path.name}: no section '{section.name}' may stand here"
        assert section.name not in target, f"{path.name}: '{section.name}' stands twice"
        target[section.name] = section
    assert scenario.steps, f"{path.name}: has no command"
    assert all("exit" in step.expected for step in scenario.steps), f"{path.name}: lacks an exit"
    return scenario


def value_text(value):
    if isinstance(value, str):
        if TIME_STAMP.fullmatch(value):
            return "TIME"
        if INTERVAL.fullmatch(value) or REFERENCE.match(value):
            return value
    return "NULL" if value is None else json.dumps(value, ensure_ascii=False)


def instance_lines(instance, wanted):
    properties = instance["properties"]
    names = wanted or [name for name, value in properties.items() if value is not None]
    return [instance["class"]] + [f"  {name} = {value_text(properties[name])}" for name in names]


def listing(instances, wanted):
    return [line for instance in instances for line in instance_lines(instance, wanted)]


def log_lines(path, with_parser):
    lines = []
    for line in path.read_text(encoding="utf-8").splitlines() if path.exists() else []:
        entry = json.loads(line)
        severity, text = entry["severity"], entry["text"]
        trace = text.startswith(PARSER_PREFIX) and severity in PARSER_TRACE
        if text.startswith(PLATFORM_PREFIXES) or (trace and not with_parser):
            continue
        if text.startswith(ADDRESS_LINE):
            text = re.sub(r"0x[0-9a-f]+$", "ADDRESS", text)
        first, *others = text.split("\n")
        lines.append(f"{severity} {first}")
        lines.extend(f"  | {other}" if other else "  |" for other in others)
    return [re.sub(" $", END_BLANK, line) for line in lines]


class Replay:
    """A scenario's machine, catalog and settings on disk, and its commands."""

    def __init__(self, bmci2c, scenario):
        self.bmci2c = bmci2c
        self.log = bmci2c.folder / "log.json"
        profile = bmci2c.write("profile.toml", scenario.settings["profile"].text)
        self.options = ["--simulate", profile]
        if "settings" in scenario.settings:
            path = bmci2c.write("settings.toml", scenario.settings["settings"].text)
            self.options += ["--config", path]
        self.write_catalog(scenario.settings["catalog"])

    def write_catalog(self, section):
        if section.argument == "none":
            (self.bmci2c.root / "bmci2c" / "bmci2c.msg.xml").unlink()
        elif section.argument == "sample":
            self.bmci2c.write_catalog((FOLDER / "sample.msg.xml").read_text(encoding="utf-8"))
        else:
            assert section.argument == "", f"no catalog '{section.argument}'"
            self.bmci2c.write_catalog(section.text)

    def step(self, step):
        self.log.unlink(missing_ok=True)
        as_json = [] if step.command[0] == "names" else ["--json"]
        environment = {"BMCI2C_LOG": f"json:{self.log}", "BMCI2C_LOG_LEVEL": "4"}
        result = self.bmci2c(*self.options, *step.command, *as_json, env=environment)
        self.compare(step.expected, result)

    def compare(self, expected, result):
        assert result.code == int(expected["exit"].argument), result.err
        if "stderr" in expected:
            assert expected["stderr"].text.strip() in result.err
        if "instances" in expected:
            wanted = expected["properties"].argument if "properties" in expected else ""
            found = listing(result.json(), [name for name in wanted.split(", ") if name])
            assert found == expected["instances"].text.splitlines()
        if "names" in expected:
            assert result.out.splitlines() == expected["names"].text.splitlines()
        if "log" in expected:
            section = expected["log"]
            assert section.argument in ("", "with parser")
            assert log_lines(self.log, bool(section.argument)) == section.text.splitlines()


@pytest.mark.parametrize("path", sorted(FOLDER.glob("*.txt")), ids=lambda path: path.stem)
def test_scenario(bmci2c, path):
    scenario = read_scenario(path)
    replay = Replay(bmci2c, scenario)
    for step in scenario.steps:
        replay.step(step)
