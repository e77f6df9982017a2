"""A machine with three management controllers, one of which goes away."""

import pytest
from controller import Controller
from machine import PCI_ADDRESSES, PCI_KCS

NODES = (0, 1, 2)
MIDDLE = 1
DRIVER = "/sys/bus/pci/drivers/ipmi_si"
LOAD_DRIVER = "modprobe ipmi_devintf && modprobe ipmi_si"
WAIT_FOR_DEVICES = "until [ -e /dev/ipmi0 -a -e /dev/ipmi1 -a -e /dev/ipmi2 ]; do sleep 0.1; done"

# The first answer makes the run pause for 5 s, long enough to unbind another controller.
BUSY_THEN_BUS_1 = "09: ff\n09: 00 02 00 00\n"
EVERY_BUS = "09: 00 ff ff ff\n"
BUS_3 = "09: 00 08 00 00\n"


@pytest.fixture(scope="module")
def controllers(folder):
    return [Controller(folder / f"controller{node}", product=node + 1) for node in NODES]


@pytest.fixture(scope="module")
def machine(boot, controllers):
    with boot(controllers, PCI_KCS, product_name="7000", bios_version="P7E100A") as machine:
        assert machine(LOAD_DRIVER).code == 0
        machine(WAIT_FOR_DEVICES)
        yield machine


def run_and_unbind(machine, address):
    """Unbinds the driver from a controller while the run waits for node 0."""
    machine("BMCI2C_LOG_LEVEL=2 bmci2c run --json >/tmp/result 2>/tmp/log & echo $! >/tmp/run")
    machine("until grep -q 'completion code 0xff' /tmp/log; do sleep 0.1; done")
    assert machine(f"echo {address} >{DRIVER}/unbind").code == 0
    assert not machine("cat /tmp/result").out, "The run ended before the controller was unbound."
    machine("while kill -0 $(cat /tmp/run); do sleep 0.1; done")
    return machine("cat /tmp/result").json()


def failed_busses(result):
    return [(failed["node"], failed["bus"]) for failed in result["failed"]]


def test_controller_that_is_unbound_during_the_run_has_gone_at_its_own_node(machine, controllers):
    for controller, script in zip(controllers, (BUSY_THEN_BUS_1, EVERY_BUS, BUS_3)):
        controller.answer(script)

    result = run_and_unbind(machine, PCI_ADDRESSES[MIDDLE])

    told = result["controllers"]
    assert [one["address"] for one in told] == [f"inband /dev/ipmi{node}" for node in NODES]
    assert [one["outcome"] for one in told] == ["examined", "not_delivered", "examined"]
    assert failed_busses(result) == [(0, 1), (2, 3)]
    assert (told[0]["trouble"], told[2]["trouble"]) == (None, None)
    assert told[MIDDLE]["trouble"]["code"] == "gone"
    assert told[MIDDLE]["trouble"]["text"].startswith("The device /dev/ipmi1 has gone: ")
    assert result["verdict"] == "failed"


def test_next_run_knows_the_controllers_that_are_left(machine, controllers):
    controllers[0].answer(BUS_3)
    result = machine("bmci2c run --json").json()
    addresses = [one["address"] for one in result["controllers"]]
    assert addresses == ["inband /dev/ipmi0", "inband /dev/ipmi2"]
    assert failed_busses(result) == [(0, 3), (1, 3)]
