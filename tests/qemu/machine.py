"""A machine of its own: Debian's kernel in QEMU, with management controllers behind KCS interfaces.

The machine's first serial line is a file with the kernel's messages; the second is QEMU's standard
input and output, over which the tests give commands (see init).
"""

import json
import os
import select
import shlex
import subprocess
import time
from contextlib import ExitStack, contextmanager
from dataclasses import dataclass

from child import child

LONGEST_COMMAND = 300  # seconds: longer means that the machine hangs, however busy its host is

# On a busy host the emulated timer looks broken to the kernel. It boots sooner without messages,
# and without care for what a processor may leak.
KERNEL_OPTIONS = "console=ttyS0 quiet panic=-1 no_timer_check mitigations=off"

# KCS interfaces at fixed addresses. The kernel numbers them in the opposite order of the command line.
ISA_KCS = ("isa-ipmi-kcs,ioport=0xca2,irq=5", "isa-ipmi-kcs,ioport=0xcb0,irq=10")

# KCS interfaces that can be unbound, by their PCI addresses.
PCI_ADDRESSES = ("0000:00:04.0", "0000:00:05.0", "0000:00:06.0")
PCI_KCS = tuple(f"pci-ipmi-kcs,addr={address[-4:]}" for address in PCI_ADDRESSES)


@dataclass
class Result:
    code: int
    out: str
    err: str

    def json(self):
        return json.loads(self.out)


class Machine:
    def __init__(self, process, folder):
        self.process = process
        self.folder = folder
        self.received = b""

    def __call__(self, command):
        """Runs a line of shell as root; returns exit code, output and errors."""
        assert "\n" not in command, "A command is one line."
        self.process.stdin.write(command.encode() + b"\n")
        self.process.stdin.flush()
        end = time.monotonic() + LONGEST_COMMAND
        word, code, output, errors = self.line(end).split()
        assert word == "done", f"The machine answers {word}."
        return Result(int(code), self.text(int(output), end), self.text(int(errors), end))

    def as_guest(self, command):
        """The same, as a user without any rights."""
        return self(f"su guest -c {shlex.quote(command)}")

    def wait_until_ready(self):
        assert self.line(time.monotonic() + LONGEST_COMMAND) == "ready"

    def line(self, end):
        while b"\n" not in self.received:
            self.receive(end)
        line, self.received = self.received.split(b"\n", 1)
        return line.decode()

    def text(self, size, end):
        while len(self.received) < size:
            self.receive(end)
        text, self.received = self.received[:size], self.received[size:]
        return text.decode(errors="replace")

    def receive(self, end):
        output = self.process.stdout
        readable, _, _ = select.select([output], [], [], max(0, end - time.monotonic()))
        received = os.read(output.fileno(), 65536) if readable else b""
        if not received:
            trouble = "ended" if readable else "does not answer"
            raise RuntimeError(
                f"The machine {trouble}, after {self.received!r}.\n{self.last_words()}"
            )
        self.received += received

    def last_words(self):
        files = [self.folder / "qemu.log", self.folder / "console"]
        return "\n".join(
            f"{file.name}:\n{file.read_text(errors='replace')[-4000:]}" for file in files
        )


def qemu_command(folder, kernel, initramfs, smbios, controllers, interfaces):
    command = [
        "qemu-system-x86_64",
        *("-machine", "pc,accel=tcg", "-smp", "2", "-m", "512"),
        *("-nodefaults", "-no-user-config", "-display", "none", "-no-reboot"),
        *("-kernel", kernel / "vmlinuz", "-initrd", initramfs),
        *("-append", KERNEL_OPTIONS),
        *("-serial", f"file:{folder / 'console'}", "-serial", "stdio"),
        *("-smbios", f"type=0,version={smbios['bios_version']}"),
        *("-smbios", f"type=1,product={smbios['product_name']}"),
    ]
    places = list(enumerate(zip(controllers, interfaces)))
    for number, (controller, kcs) in places[::-1] if interfaces is ISA_KCS else places:
        command += [
            "-chardev",
            f"socket,id=c{number},host=127.0.0.1,port={controller.port},reconnect=1",
            *("-device", f"ipmi-bmc-extern,id=b{number},chardev=c{number}"),
            *("-device", f"{kcs},bmc=b{number}"),
        ]
    return command


@contextmanager
def running_machine(folder, kernel, initramfs, smbios, controllers=(), interfaces=()):
    """Starts controllers and machine, yields the machine when it takes commands, stops them all."""
    (folder / "console").touch()
    with ExitStack() as everything, open(folder / "qemu.log", "wb") as log:
        for controller in controllers:
            everything.callback(controller.stop)
            controller.start()
        process = everything.enter_context(
            child(
                qemu_command(folder, kernel, initramfs, smbios, controllers, interfaces),
                stdin=subprocess.PIPE,
                stdout=subprocess.PIPE,
                stderr=log,
            )
        )
        machine = Machine(process, folder)
        machine.wait_until_ready()
        yield machine
