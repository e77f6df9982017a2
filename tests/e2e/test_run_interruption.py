"""Ctrl-C and its relatives end a run early; what is known by then is told."""

import json
import signal

import pytest
from conftest import node
from terminal import Terminal

SIGNALS = [signal.SIGINT, signal.SIGTERM, signal.SIGHUP]

# The second controller is busy, so that the run pauses there.
NODES = [node(data=[4]), node(data=[0], busy=1), node(data=[0])]


def start(bmci2c, *options, nodes=NODES, before=()):
    profile = bmci2c.profile(*nodes)
    arguments = ["--root", str(bmci2c.root), "--simulate", profile, "run", *options]
    return Terminal([*before, bmci2c.program, *arguments], bmci2c.environment)


@pytest.mark.parametrize("number", SIGNALS, ids=lambda number: number.name)
def test_signal_ends_the_run_and_what_is_known_is_told(bmci2c, number):
    with start(bmci2c) as run:
        run.until("Busy: asking controller 2 of 3")
        run.process.send_signal(number)
        output = run.rest()
        assert run.process.returncode == 128 + number
    assert (
        "INTERRUPTED (simulated machine): 1 bus has failed: bus 2 of node 0. Nodes 1 and 2 were "
        "not examined."
    ) in output
    assert "  node 0   .  .  \033[1;31mX\033[0m  ." in output


def test_json_of_an_interrupted_run_is_whole(bmci2c):
    log = bmci2c.folder / "log.txt"
    bmci2c.environment.update(BMCI2C_LOG=f"file:{log}", BMCI2C_LOG_LEVEL="3")
    with start(bmci2c, "--json") as run:
        # There is no progress beside JSON; the log tells when the busy controller was asked.
        while not log.exists() or log.read_text().count("Sending command data") < 2:
            assert run.process.poll() is None
        run.process.send_signal(signal.SIGTERM)
        outcome = json.loads(run.rest())
        assert run.process.returncode == 128 + signal.SIGTERM
    assert outcome["verdict"] == "interrupted"
    assert [controller["outcome"] for controller in outcome["controllers"]][::2] == [
        "examined",
        "not_asked",
    ]
    assert [(bus["node"], bus["bus"]) for bus in outcome["failed"]] == [(0, 2)]


def test_ignored_hangup_lets_the_run_go_on(bmci2c):
    with start(bmci2c, before=["env", "--ignore-signal=HUP"]) as run:
        run.until("Busy: asking controller 2 of 3")
        run.process.send_signal(signal.SIGHUP)
        output = run.rest()
        assert run.process.returncode == 1
    assert "FAILED (simulated machine): 1 bus has failed: bus 2 of node 0." in output
