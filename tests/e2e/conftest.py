"""Drives the command as a user does: arguments and environment in, exit code and output out.

The build passes where things are: BMCI2C_BIN (the command), BMCI2C_BUILD_MODULE, BMCI2C_BUILD_SHARE
and BMCI2C_OTHER_PROGRAM.
"""

import fcntl
import json
import os
import pty
import re
import struct
import subprocess
import termios
from dataclasses import dataclass

import pytest
from serving import Server

SERVICE = "QUVSG_BMCI2C_DiagnosticService"
JOB = "QUVSG_BMCI2C_ConcreteJob"
RECORD = "QUVSG_BMCI2C_DiagnosticCompletionRecord"


# What the catalog of these tests says. Each text names its number, so that a mix-up shows.
def message(number, controller, heading):
    return f"166-{number:03d}-{controller:03d} {heading}: text {number}"


def passed(controller):
    return message(0, controller, "PASS")


def failed_bus(bus, controller):
    return message(901 + bus, controller, "FAIL")


def unjudged(number, controller):
    return message(number, controller, "STOP")


def catalog_text(machines=("7000",)):
    """A catalog in which every message that a test meets has a text."""
    numbers = [0, 2, 101, 102, *range(801, 825), *range(901, 965)]
    texts = "".join(
        f'<property name="message" index="{number}"><value>text {number}</value></property>\n'
        for number in numbers
    )
    headings = (
        '<property name="message" index="201"><value>PASS: </value></property>\n'
        '<property name="message" index="206"><value>FAIL: </value></property>\n'
        '<property name="message" index="207"><value>STOP: </value></property>\n'
    )
    recommendations = (
        '<property name="message" index="964">\n'
        '<qualifier name="quvrecommendation" type="string"><value>standard advice</value>'
        "</qualifier>\n"
        '<qualifier name="oemrecommendation" type="string"><value>OEM advice</value></qualifier>\n'
        "</property>\n"
    )
    generic = "".join(
        f'<machine type="{name}">\n{headings}{texts}{recommendations}</machine>\n'
        for name in ("GENERIC_QUV", "GENERIC_QUV_OXC")
    )
    listed = "".join(f'<machine type="{machine}"></machine>\n' for machine in machines)
    return f'<bmci2cmsg version="1.0">\n{generic}{listed}</bmci2cmsg>\n'


def node(**keys):
    """A [[node]] of a profile."""
    return "[[node]]\n" + toml_keys(keys)


def toml_keys(keys):
    return "".join(f"{key} = {toml_value(value)}\n" for key, value in keys.items())


def toml_value(value):
    return json.dumps(value)  # booleans, integers, texts and arrays are the same in TOML


def unwrapped(text):
    """The text with its continued lines, which are indented, joined."""
    return re.sub(r"\n {4,}(?=\S)", " ", text)


@dataclass
class Result:
    code: int
    out: str
    err: str

    def json(self):
        return json.loads(self.out)


class Command:
    """The command, with a catalog and an environment of its own."""

    def __init__(self, folder):
        self.folder = folder
        self.program = os.environ["BMCI2C_BIN"]
        self.environment = {
            name: value for name, value in os.environ.items() if not name.startswith("BMCI2C_")
        }
        # No settings file of this machine takes part.
        self.environment["BMCI2C_CONFIG"] = self.write("empty.toml", "")
        self.root = folder / "root"
        self.write_catalog(catalog_text())

    def write(self, name, text):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)
        return str(path)

    def write_catalog(self, text):
        path = self.root / "bmci2c" / "bmci2c.msg.xml"
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def profile(self, *nodes, **keys):
        """Writes a profile, of machine type 7000 unless it says otherwise; returns its path."""
        keys = {"machine_type": "7000", "bios_id": "P7E100A", **keys}
        keys = {key: value for key, value in keys.items() if value is not None}
        return self.write("profile.toml", toml_keys(keys) + "".join(nodes))

    def bare(self, *arguments, env=None, program=None):
        """Calls the program with exactly these arguments; a variable that is None is not set."""
        environment = {**self.environment, **(env or {})}
        done = subprocess.run(
            [program or self.program, *arguments],
            env={name: value for name, value in environment.items() if value is not None},
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            timeout=100,
            check=False,
        )
        return Result(
            done.returncode,
            done.stdout.decode("utf-8", "replace"),
            done.stderr.decode("utf-8", "replace"),
        )

    def __call__(self, *arguments, env=None):
        """Calls the command with the catalog of these tests."""
        return self.bare("--root", str(self.root), *arguments, env=env)

    def on_terminal(self, *arguments, columns=80, env=None):
        """Calls the command with its output on a terminal of this width; input stays away."""
        ours, theirs = pty.openpty()
        fcntl.ioctl(theirs, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        with subprocess.Popen(
            [self.program, "--root", str(self.root), *arguments],
            env={**self.environment, "TERM": "xterm", **(env or {})},
            stdin=subprocess.DEVNULL,
            stdout=theirs,
            stderr=subprocess.PIPE,
        ) as process:
            os.close(theirs)
            output = b""
            try:
                while piece := os.read(ours, 4096):
                    output += piece
            except OSError:
                pass  # the other side has closed
            os.close(ours)
            _, errors = process.communicate(timeout=100)
        out = output.decode("utf-8", "replace").replace("\r\n", "\n")
        return Result(process.returncode, out, errors.decode("utf-8", "replace"))

    def simulate(self, profile, *arguments, env=None):
        return self("--simulate", profile, *arguments, env=env)

    def run_json(self, *nodes, **keys):
        """Runs the diagnostic on a simulated machine; returns exit code and JSON object."""
        result = self.simulate(self.profile(*nodes, **keys), "run", "--json")
        return result.code, result.json()

    def record_texts(self, *nodes, **keys):
        return [record["RecordData"] for record in self.run_json(*nodes, **keys)[1]["records"]]


@pytest.fixture
def bmci2c(tmp_path):
    return Command(tmp_path)


@pytest.fixture
def serve(bmci2c):
    """Starts `bmci2c serve` with options, on a machine whose busses all work."""
    servers = []

    def start(*options):
        servers.append(Server(bmci2c, bmci2c.profile(node(data=[0, 0])), *options))
        return servers[-1]

    yield start
    for server in servers:
        assert server.stop() == 0


@pytest.fixture
def server(serve):
    return serve()
