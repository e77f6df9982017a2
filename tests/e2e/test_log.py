"""The core logger's lines, as BMCI2C_LOG asks for them."""

import json
import re
import socket

from conftest import node

REQUEST = "01 20 3a 00 09 00 00 00 00 00 00 00 00 00 00 "
ANSWER = "Response length is : 3 Including completion code, received response data is : "
TIME = re.compile(r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}[+-]\d\d:\d\d")
TEXT_LINE = re.compile(r"\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} \+05:45 bmci2c\[\d+\] [0-4]: ")


def log_of(bmci2c, *nodes, level="4", command=("run", "--json"), **keys):
    path = bmci2c.folder / "log.json"
    profile = bmci2c.profile(*nodes, **keys)
    bmci2c.simulate(
        profile, *command, env={"BMCI2C_LOG": f"json:{path}", "BMCI2C_LOG_LEVEL": level}
    )
    return [json.loads(line) for line in path.read_text().splitlines()]


def first_missing(lines, expected):
    """The first of the (severity, text) pairs that does not stand behind those before it."""
    rest = iter([(line["severity"], line["text"]) for line in lines])
    return next((pair for pair in expected if pair not in rest), None)


def test_every_line_tells_when_and_where_it_was_logged(bmci2c):
    lines = log_of(bmci2c, node(data=[0]))
    fields = ["time", "pid", "host", "severity", "node", "text"]
    for line in lines:
        assert list(line) == [name for name in fields if name != "node" or "node" in line]
        assert TIME.fullmatch(line["time"])
        assert type(line["severity"]) is int
    assert {line["host"] for line in lines} == {socket.gethostname()}
    (process,) = {line["pid"] for line in lines}
    assert type(process) is int


def test_lines_of_exchanges_tell_their_node(bmci2c):
    lines = log_of(bmci2c, node(data=[0]), node(answers=False))
    exchanges = [line for line in lines if line["text"].startswith("SP: node ")]
    assert {line["node"] for line in exchanges} == {0, 1}
    assert all(line["text"].startswith(f"SP: node {line['node']} (") for line in exchanges)
    (entered,) = [line for line in lines if line["text"] == "getMachineType() entered."]
    assert "node" not in entered


def test_text_lines_tell_the_zone_and_keep_a_text_on_one_line(bmci2c):
    path = bmci2c.folder / "log.txt"
    bmci2c.write_catalog(
        '<bmci2cmsg version="1.0">\n<machine type="GENERIC_QUV">'
        '<property name="message" index="0"><value>two\nlines</value></property>'
        '</machine>\n<machine type="7000"></machine>\n</bmci2cmsg>\n'
    )
    environment = {"BMCI2C_LOG": f"file:{path}", "BMCI2C_LOG_LEVEL": "4", "TZ": "NPT-5:45"}
    bmci2c.simulate(bmci2c.profile(node(data=[0])), "run", "--json", env=environment)
    lines = path.read_text().splitlines()
    assert all(TEXT_LINE.match(line) for line in lines)
    assert any(r"two\nlines" in line for line in lines)


def test_run_is_logged_in_order(bmci2c):
    lines = log_of(bmci2c, node(data=[0x00, 0x04]))
    expected = [
        (3, "getMachineType() entered."),
        (3, "BMCI2C At BMCI2C_Test_Impl.cpp: 515: "),
        (4, "BMCI2C Parser Line 1:++ ELEMENT: bmci2cmsg"),
        (4, "BMCI2C Parser Line 1:    version:1.0"),
        (3, "BMCI2C: Total number of BMC(s) found = 1"),
        (3, "Sending command data: " + REQUEST),
        (3, "isCmdComplete of sendIPMICommand() is : 1 fIsOXC: 0"),
        (3, ANSWER + REQUEST[:24] + "00 00 04 00 "),
        (3, "BMCI2C: Received data from BMC:0 4 0"),
        (3, "BMCI2C At BMCI2C_Test_Impl.cpp: 448: "),
        (3, "BMCI2C At BMCI2C_Test_Impl.cpp: 452: "),
        (3, "BMCI2C: Failure string: 166-911-001 FAIL: text 911"),
        (3, "BMCI2C: Result 166-911-001 FAIL: text 911"),
        (3, "BMCI2C At BMCI2C_Test_Impl.cpp: 507: "),
    ]
    assert first_missing(lines, expected) is None


def test_short_answer_is_logged_as_an_error(bmci2c):
    lines = log_of(bmci2c, node(length=1))
    text = "BMCI2C Bus Test fails with reason : Incorrect IPMI response length."
    assert first_missing(lines, [(2, text)]) is None


def test_level_2_holds_errors_only(bmci2c):
    lines = log_of(bmci2c, node(completion_code=0xC1), level="2")
    assert lines
    assert max(line["severity"] for line in lines) == 2


def test_text_run_logs_the_same_lines(bmci2c):
    # The command itself adds nothing to the module's log.
    def texts(command):
        path = bmci2c.folder / "log.json"
        path.unlink(missing_ok=True)
        lines = log_of(bmci2c, node(data=[0]), command=command)
        return [
            line["text"]
            for line in lines
            if not line["text"].startswith(("getMachineType:", "SP: ", "Run: "))  # addresses and times
        ]

    assert texts(["run"]) == texts(["run", "--json"])


def test_without_a_choice_only_errors_in_the_catalog_reach_the_terminal(bmci2c):
    bmci2c.write_catalog('<bmci2cmsg version="1.0">\n<machine type="7000">\n</nonsense>\n')
    result = bmci2c.simulate(bmci2c.profile(node(data=[0])), "run", "--json")
    assert result.code in (0, 2)
    (line,) = result.err.splitlines()
    assert "BMCI2C Parser Line 3:" in line


def test_log_none_is_silent(bmci2c):
    bmci2c.write_catalog("<nonsense")
    profile = bmci2c.profile(node(data=[0]))
    result = bmci2c.simulate(profile, "run", "--json", env={"BMCI2C_LOG": "none"})
    assert result.err == ""
