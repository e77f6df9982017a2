"""A child process that is gone when the test is, however the test ends."""

import subprocess
from contextlib import contextmanager

LONGEST_STOP = 10  # seconds that a process may take to end when it is asked to


@contextmanager
def child(command, **options):
    """Runs `command` and yields its Popen; stops it, by its process id, at the end."""
    # The kernel kills it, should this process die without coming back here.
    process = subprocess.Popen(["setpriv", "--pdeathsig", "KILL", *command], **options)
    try:
        yield process
    finally:
        process.terminate()
        try:
            process.wait(LONGEST_STOP)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
