"""The module as a file, and in programs other than the command."""

import ctypes
import os
import re
import shutil
import subprocess

import pytest
from conftest import failed_bus, node, passed

CLASSES = [
    "AffectedJobElement",
    "AvailableDiagnosticService",
    "ConcreteJob",
    "CorrespondingSettingsRecord",
    "DiagnosticCompletionRecord",
    "DiagnosticService",
    "DiagnosticServiceCapabilities",
    "DiagnosticServiceRecord",
    "DiagnosticSetting",
    "DiagnosticSettingRecord",
    "DiagnosticsLog",
    "ElementCapabilities",
    "ElementSetting",
    "ElementSoftwareIdentity",
    "HelpService",
    "JobSettingData",
    "LogManagesRecord",
    "ManagedSystemElement",
    "OwningJobElement",
    "RecordAppliesToElement",
    "ServiceAvailableToElement",
    "SoftwareIdentity",
    "UseOfLog",
]
ASSOCIATIONS = [
    "AffectedJobElement",
    "AvailableDiagnosticService",
    "CorrespondingSettingsRecord",
    "ElementCapabilities",
    "ElementSetting",
    "ElementSoftwareIdentity",
    "LogManagesRecord",
    "OwningJobElement",
    "RecordAppliesToElement",
    "ServiceAvailableToElement",
    "UseOfLog",
]


@pytest.fixture
def module():
    return os.environ["BMCI2C_BUILD_MODULE"]


def without_sanitizers():
    if os.environ.get("BMCI2C_BUILD_SANITIZERS"):
        pytest.skip("a sanitizer's run-time library must be the program's first")


def output_of(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, check=True, text=True).stdout


def test_module_stays_loaded_when_a_server_closes_it(module):
    flags = [line for line in output_of("readelf", "-d", module).splitlines() if "(FLAGS_1)" in line]
    assert len(flags) == 1 and "NODELETE" in flags[0]


def test_exported_functions_are_exactly_the_58(module):
    names = {line.split()[-1] for line in output_of("nm", "-D", "--defined-only", module).splitlines()}
    factories = {
        f"QUVSG_BMCI2C_{name}_Provider_Create_{kind}MI"
        for name in CLASSES
        for kind in ("Instance", "Method")
    } | {f"QUVSG_BMCI2C_{name}_Provider_Create_AssociationMI" for name in ASSOCIATIONS}
    assert len(factories) == 57
    assert names == factories | {"cimple_module"}


def test_soname_is_the_file_s_name(module):
    dynamic = output_of("readelf", "-d", module)
    assert re.search(r"\(SONAME\).*\[libbmci2c\.cmpi\.so\]", dynamic)
    assert "NOW" in dynamic


def test_module_loads_at_once_in_a_process_of_its_own(module):
    without_sanitizers()
    library = ctypes.CDLL(module, mode=os.RTLD_NOW)
    library.cimple_module.restype = ctypes.c_void_p
    assert library.cimple_module()


@pytest.fixture
def run_elsewhere(bmci2c, module):
    """Runs the diagnostic in a program that knows only the module; returns its result and log."""

    def run(module=module, **environment):
        log = bmci2c.folder / "log.json"
        result = bmci2c.bare(
            module,
            os.environ["BMCI2C_BUILD_SHARE"] + "/bmci2c/schema",
            program=os.environ["BMCI2C_OTHER_PROGRAM"],
            env={"BMCI2C_ROOT": str(bmci2c.root), "BMCI2C_LOG": f"json:{log}", **environment},
        )
        return result, log.read_text()

    return run


def test_another_program_gets_the_same_from_the_environment(bmci2c, run_elsewhere):
    profile = bmci2c.profile(node(data=[0, 1]))
    result, log = run_elsewhere(BMCI2C_SIMULATE=profile, BMCI2C_LOG_LEVEL="4")
    assert (result.code, result.out, result.err) == (0, failed_bus(8, 1) + "\n", "")
    assert '"BMCI2C: Total number of BMC(s) found = 1"' in log


def test_module_of_another_installation_reads_the_catalog_beside_itself(bmci2c, run_elsewhere, module):
    prefix = bmci2c.folder / "prefix"
    installed = prefix / "lib/cmpi/libbmci2c.cmpi.so"
    installed.parent.mkdir(parents=True)
    shutil.copy(module, installed)
    shutil.copytree(bmci2c.root, prefix / "share")
    profile = bmci2c.profile(node(data=[0, 1]))
    result, _ = run_elsewhere(module=str(installed), BMCI2C_ROOT=None, BMCI2C_SIMULATE=profile)
    assert (result.code, result.out, result.err) == (0, failed_bus(8, 1) + "\n", "")


def test_process_of_another_program_stays_as_it_was(bmci2c, run_elsewhere):
    """Locale, umask, folder, threads, signals; and nothing but the program prints."""
    profile = bmci2c.profile(node(data=[0, 0], busy=1))
    result, _ = run_elsewhere(BMCI2C_SIMULATE=profile)
    assert (result.code, result.out, result.err) == (0, passed(1) + "\n", "")


def test_another_program_with_broken_settings_has_no_controllers(bmci2c, run_elsewhere):
    config = bmci2c.write("wrong.toml", "[machine\n")
    result, log = run_elsewhere(BMCI2C_CONFIG=config, BMCI2C_LOG_LEVEL="4")
    assert result.code == 0
    assert "Sending command data" not in log
    assert f"Settings: {config}:1:" in log
