"""A management controller: ipmi_sim with the project's OEM module, at the end of a KCS interface.

The build passes BMCI2C_OEM_MODULE.
"""

import os
import signal
import socket
import subprocess
import time
from contextlib import ExitStack

from child import child

ALL_BUSSES_WORK = "09: 00 00 00 00\n"
STARTS = 5  # another process may take the free port first
LONGEST_START = 20  # seconds


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def is_listening(port):
    with socket.socket() as client:
        return client.connect_ex(("127.0.0.1", port)) == 0


class Controller:
    """Runs between `start` and `stop`; QEMU reaches it at `port`, again after each start.

    The kernel takes two controllers of the same product number for one.
    """

    def __init__(self, folder, product):
        self.folder = folder
        self.product = product
        self.port = None
        self.process = None
        self.running = ExitStack()
        folder.mkdir()
        self.answer(ALL_BUSSES_WORK)

    def answer(self, script):
        """Answers by `script` from the next request on; OemModule.cpp says what that is."""
        new = self.folder / "script.new"
        new.write_text(script)
        new.rename(self.folder / "script")  # never half a script

    def start(self):
        for _ in range(STARTS):
            self.launch(self.port or free_port())
            if self.comes_up():
                return
            self.stop()
        raise RuntimeError(f"ipmi_sim does not come up:\n{self.output()}")

    def stop(self):
        self.running.close()

    def pause(self):
        """Stays connected and says nothing until `resume`."""
        self.process.send_signal(signal.SIGSTOP)

    def resume(self):
        self.process.send_signal(signal.SIGCONT)

    def launch(self, port):
        self.port = port
        module = os.environ["BMCI2C_OEM_MODULE"]
        (self.folder / "lan.conf").write_text(
            'name "bmci2c"\n'
            "set_working_mc 0x20\n"
            f"serial 15 127.0.0.1 {port} codec VM\n"
            f'loadlib "{module}" "{self.folder}/script"\n'
        )
        (self.folder / "commands").write_text(
            "mc_setbmc 0x20\n"
            f"mc_add 0x20 0 no-device-sdrs 0x01 1 0 0x00 0 {self.product}\n"
            "mc_enable 0x20\n"
        )
        with open(self.folder / "output", "ab") as output:
            self.process = self.running.enter_context(
                child(
                    ["ipmi_sim", "-n", "-c", "lan.conf", "-f", "commands", "-s", "."],
                    cwd=self.folder,
                    stdin=subprocess.DEVNULL,
                    stdout=output,
                    stderr=subprocess.STDOUT,
                    restore_signals=False,  # without SIGPIPE it outlives a connection that ends
                )
            )

    def comes_up(self):
        end = time.monotonic() + LONGEST_START
        while time.monotonic() < end and self.process.poll() is None:
            if is_listening(self.port):
                return True
            time.sleep(0.05)
        return False

    def output(self):
        return (self.folder / "output").read_text(errors="replace")
