"""A run that a signal ends while a session is open."""

import json
import signal
import subprocess
import time

import pytest
from harness import e2e, write_settings
from rmcp_peer import Peer, Step


def wait_until(peer, holds):
    deadline = time.monotonic() + 60
    while not holds():
        assert time.monotonic() < deadline, peer.story()
        time.sleep(0.02)


def interrupt_at(step, peer, folder, by):
    """Runs the command and sends it the signal while the peer works at the step."""
    command = e2e.Command(folder)
    config = write_settings(command, [peer], time_limit=60)
    with subprocess.Popen(
        [command.program, "--root", str(command.root), "--config", config, "run", "--json"],
        env=command.environment,
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
    ) as process:
        wait_until(peer, lambda: peer.requests(step) > 0)
        process.send_signal(by)
        output, _ = process.communicate(timeout=60)
    assert process.returncode == 128 + by, peer.story()
    outcome = json.loads(output)
    assert outcome["verdict"] == "interrupted"
    assert outcome["controllers"][0]["trouble"]["code"] == "interrupted"


@pytest.mark.parametrize("by", [signal.SIGINT, signal.SIGTERM, signal.SIGHUP])
def test_signal_closes_the_session(tmp_path, by):
    with Peer(data=b"\0\0", seconds={Step.COMMAND: 30}, is_concurrent=True) as peer:
        interrupt_at(Step.COMMAND, peer, tmp_path, by)
        # The packet that closes the session may still be on its way when the command has ended.
        wait_until(peer, lambda: peer.sessions_closed == 1)
        assert peer.sessions_opened == 1, peer.story()


def test_signal_within_the_handshake_frees_the_slot(tmp_path):
    with Peer(data=b"\0\0", seconds={Step.RAKP_1: 30}, is_concurrent=True) as peer:
        interrupt_at(Step.RAKP_1, peer, tmp_path, signal.SIGINT)
        wait_until(peer, lambda: peer.slots_taken == 0)
