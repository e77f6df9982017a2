"""A machine without controllers, of which the catalog lists the BIOS identifier only."""

import pytest
from conftest import NO_DEVICE, run_on

SIMULATED_CONTROLLER = (
    "mkdir -p /tmp/simulated && cd /tmp/simulated && "
    "echo '[[node]]' >profile.toml && echo 'data = [0]' >>profile.toml && "
    "echo '[[controller]]' >platform.toml && "
    "echo 'transport = \"simulated\"' >>platform.toml && "
    "echo 'profile = \"profile.toml\"' >>platform.toml"
)


@pytest.fixture(scope="module")
def machine(boot):
    with boot(product_name="Unlisted", bios_version="7000") as started:
        assert started("modprobe ipmi_devintf").code == 0
        yield started


def test_no_device_is_told_with_every_path(machine):
    outcome = run_on(machine)
    assert (outcome.code, outcome.verdict) == (2, "not_completed")
    assert outcome.records == []
    assert set(outcome.log) == {NO_DEVICE}


def test_machine_listed_by_its_bios_identifier_is_tested(machine):
    told = machine("bmci2c info --json").json()
    assert (told["machine_type"], told["bios_id"]) == ("Unlisted", "7000")

    machine(SIMULATED_CONTROLLER)
    outcome = run_on(machine, "BMCI2C_CONFIG=/tmp/simulated/platform.toml")
    assert (outcome.code, outcome.verdict) == (0, "passed")
    assert outcome.records == [
        "166-000-001 BMC I2C Test Passed: All I2C busses of this management controller work."
    ]


def test_machine_that_no_catalog_lists_is_unsupported(machine):
    machine("mkdir -p /tmp/empty/bmci2c")
    outcome = run_on(machine, "BMCI2C_ROOT=/tmp/empty")
    assert (outcome.code, outcome.verdict) == (2, "not_completed")
    assert outcome.records == [
        "166-899-001 BMCI2C Bus Test Aborted: The machine with MT [Unlisted] is not supported by "
        "BMCI2C Bus Test."
    ]
