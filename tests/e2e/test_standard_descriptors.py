"""Standard streams that are closed when the command starts."""

import itertools
import os
import subprocess

import pytest

STREAMS = (0, 1, 2)
CLOSED = [some for count in STREAMS for some in itertools.combinations(STREAMS, count + 1)]


@pytest.fixture
def started(bmci2c):
    """Starts the command without these descriptors; it waits for its settings when this returns."""
    settings = str(bmci2c.folder / "settings")
    os.mkfifo(settings)
    processes = []

    def start(closed):
        process = subprocess.Popen(
            [bmci2c.program, "--config", settings, "info"],
            env=bmci2c.environment,
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            preexec_fn=lambda: [os.close(descriptor) for descriptor in closed],
        )
        processes.append(process)
        # Returns when the command has opened the settings for reading.
        writer = os.open(settings, os.O_WRONLY)
        return process, writer

    yield start
    for process in processes:
        process.kill()
        process.communicate()


@pytest.mark.parametrize("closed", CLOSED, ids=lambda some: "-".join(map(str, some)))
def test_closed_descriptor_becomes_the_null_device(started, closed):
    process, writer = started(closed)
    try:
        targets = {one: os.readlink(f"/proc/{process.pid}/fd/{one}") for one in STREAMS}
    finally:
        os.close(writer)
    assert {one for one, target in targets.items() if target == "/dev/null"} == set(closed)
    assert all(targets[one].startswith("pipe:") for one in STREAMS if one not in closed)


def test_message_reaches_the_stream_that_is_open(bmci2c):
    done = subprocess.run(
        ["sh", "-c", 'exec "$0" --nonsense <&- >&-', bmci2c.program],
        env=bmci2c.environment,
        stderr=subprocess.PIPE,
        timeout=100,
        check=False,
    )
    assert done.returncode == 64
    assert b"--nonsense" in done.stderr
