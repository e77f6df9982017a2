"""Other programs that ask a controller, to see that the peer is one."""

import os
import shutil
import subprocess
from dataclasses import dataclass

TIMEOUT = 100
BUS_STATUS = ("0x3a", "0x09")
PATH = os.environ.get("PATH", "") + ":/usr/sbin"  # where Debian keeps ipmi-raw


@dataclass
class Answer:
    data: bytes | None  # of the answer; None: none came
    words: str  # what the program says of it


def ipmitool(peer, password=None, cipher_suite=3, k_g="", silence=1, tries=3, command=BUS_STATUS):
    """Sends a packet up to tries times and waits silence seconds each time.

    ipmitool asks other commands before that of the test.
    """
    done = _run(
        "ipmitool", "-v", "-I", "lanplus", "-H", "127.0.0.1", "-p", str(peer.port),
        "-U", "tester", "-P", password or peer.behaviour.password, "-C", str(cipher_suite),
        "-N", str(silence), "-R", str(tries), *(["-k", k_g] if k_g else []),
        "raw", *command,
    )  # fmt: skip
    data = bytes.fromhex(done.stdout) if done.returncode == 0 else None
    return Answer(data, done.stderr)


def ipmi_raw(peer, password=None, cipher_suite=3, k_g="", silence=10):
    """FreeIPMI's; silence is how many seconds a whole exchange may take."""
    done = _run(
        "ipmi-raw", "--driver-type=LAN_2_0", "-h", f"127.0.0.1:{peer.port}",
        "-u", "tester", "-p", password or peer.behaviour.password, "-I", str(cipher_suite),
        "-l", "ADMIN", f"--session-timeout={silence * 1000}", "--retransmission-timeout=500",
        *(["-k", k_g] if k_g else []),
        "0", "3a", "9",
    )  # fmt: skip
    received = done.stdout.partition("rcvd: ")[2]
    data = bytes.fromhex(received)[2:] if done.returncode == 0 else None
    return Answer(data, done.stderr)


def _run(program, *arguments):
    return subprocess.run(
        [shutil.which(program, path=PATH) or program, *arguments],
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=subprocess.PIPE,
        text=True,
        timeout=TIMEOUT,
        check=False,
    )
