"""Tests on a real kernel: Debian's, in QEMU, with the kernel's own IPMI driver and SMBIOS.

A test file is one machine, started once. The build passes, besides what the helpers read,
BMCI2C_KERNEL (what fetch_kernel made) and BMCI2C_QEMU_FOLDER (where the machine's files are kept).
"""

import os
import re
import shutil
from dataclasses import dataclass
from pathlib import Path

import initramfs
import pytest
from machine import ISA_KCS, running_machine

PROGRAMS = {"qemu-system-x86_64": "qemu-system-x86", "busybox": "busybox-static", "cpio": "cpio"}

SKIPPED = 77  # what ctest takes as "skipped"

NO_DEVICE = (
    "SP: There is no IPMI device: /dev/ipmi0: No such file or directory; "
    "/dev/ipmi/0: No such file or directory; /dev/ipmidev/0: No such file or directory. "
    "Is the kernel module ipmi_devintf loaded?"
)


def pytest_sessionfinish(session, exitstatus):
    """A machine that could not be had is neither passed nor failed."""
    reporter = session.config.pluginmanager.get_plugin("terminalreporter")
    if exitstatus == pytest.ExitCode.OK and reporter.stats.get("skipped"):
        session.exitstatus = SKIPPED


def what_is_missing(kernel):
    for program, package in PROGRAMS.items():
        if shutil.which(program) is None:
            return f"there is no program {program} (Debian package {package})"
    if not (kernel / "vmlinuz").exists():
        reason = kernel / "reason"
        return reason.read_text().strip() if reason.exists() else f"there is no kernel in {kernel}"
    return None


@pytest.fixture(scope="module")
def folder(request):
    """An empty folder for the machine's files, which stay for a look after a failure."""
    path = Path(os.environ["BMCI2C_QEMU_FOLDER"]) / request.module.__name__
    shutil.rmtree(path, ignore_errors=True)
    path.mkdir(parents=True)
    return path


@pytest.fixture(scope="module")
def boot(folder):
    """Starts the machine with these SMBIOS texts, and controllers at these interfaces, as a context."""
    kernel = Path(os.environ["BMCI2C_KERNEL"])
    missing = what_is_missing(kernel)
    if missing:
        pytest.skip(f"No machine for the test: {missing}")

    def start(controllers=(), interfaces=ISA_KCS, **smbios):
        archive = initramfs.build(folder, kernel)
        return running_machine(folder, kernel, archive, smbios, controllers, interfaces)

    return start


@dataclass
class Run:
    """An outcome of `bmci2c run --json`."""

    code: int
    verdict: str
    records: list  # their texts
    log: list  # the lines about controllers, each with N in the place of its milliseconds


def run_on(machine, environment="", run_as=None):
    """Runs the diagnostic as root, or by another of the machine's ways to run a command."""
    result = (run_as or machine)(f"{environment} BMCI2C_LOG_LEVEL=2 bmci2c run --json")
    outcome = result.json()
    return Run(
        code=result.code,
        verdict=outcome["verdict"],
        records=[record["RecordData"] for record in outcome["records"]],
        log=[re.sub(r"\d+ ms", "N ms", line) for line in re.findall("SP: .*", result.err)],
    )
