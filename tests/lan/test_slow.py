"""Controllers that take their time."""

import pytest
from harness import Case, assert_read
from rmcp_peer import Step


def command_takes(seconds, **options):
    return {"seconds": {Step.COMMAND: seconds}, **options}


CASES = {
    "command takes 0.5 s": Case(command_takes(0.5)),
    "command takes 1 s": Case(command_takes(1)),
    "command takes 2 s": Case(command_takes(2)),
    "command takes 3 s": Case(command_takes(3)),
    "command takes 7 s of 10": Case(command_takes(7), {"time_limit": 10}),
    "every request takes 1.5 s": Case({"seconds_otherwise": 1.5}),
    "every request takes 2 s": Case({"seconds_otherwise": 2}),
    "every request takes 3.5 s": Case({"seconds_otherwise": 3.5}),
    "answer after 3.5 s": Case(command_takes(3.5, is_concurrent=True)),
    "answer after 20 s of 60": Case(command_takes(20, is_concurrent=True), {"time_limit": 60}),
    "every second answer 0.6 s late": Case({"late_every": 2, "late_seconds": 0.6}),
    "round trip 0.8 s": Case({"round_trip": 0.8}),
}


@pytest.mark.parametrize("name", CASES)
def test_controller_is_read(runs, name):
    assert_read(runs[name])


def test_generation_is_asked_after_a_slow_command(tmp_path):
    done = Case(command_takes(3), {"oxc": True}).run(tmp_path)
    assert (done.verdict, done.code) == ("passed", 0), str(done)
    assert [one["generation"] for one in done.controllers] == [1], str(done)
