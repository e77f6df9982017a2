"""The core logger's lines, as BMCI2C_LOG asks for them."""

import json

from conftest import node

REQUEST = "01 20 3a 00 09 00 00 00 00 00 00 00 00 00 00 "
ANSWER = "Response length is : 3 Including completion code, received response data is : "


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


def test_every_line_is_an_object_of_severity_and_text(bmci2c):
    lines = log_of(bmci2c, node(data=[0]))
    assert lines
    assert all(list(line) == ["severity", "text"] for line in lines)
    assert {type(line["severity"]) for line in lines} == {int}


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
    assert {"severity": 2, "text": text} in lines


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
