"""A machine with two management controllers."""

import re

import pytest
from conftest import NO_DEVICE, run_on
from controller import ALL_BUSSES_WORK, Controller

PASSED = "166-000-00{} BMC I2C Test Passed: All I2C busses of this management controller work."
NOT_COMPLETED = "166-{}-00{} BMC I2C Test Not Completed: "
ASKED = "SP: node {} (inband /dev/ipmi{}): network function 0x3a, command 0x09: "

LOAD_DRIVER = "modprobe ipmi_devintf && modprobe ipmi_si"
WAIT_FOR_DEVICES = "until [ -e /dev/ipmi0 -a -e /dev/ipmi1 ]; do sleep 0.1; done"


def passed(*nodes):
    return "\n".join(PASSED.format(node + 1) for node in nodes)


def not_completed(number, node):
    return NOT_COMPLETED.format(number, node + 1)


def asked(node):
    return ASKED.format(node, node)


@pytest.fixture(scope="module")
def controllers(folder):
    return [Controller(folder / f"controller{node}", product=node + 1) for node in (0, 1)]


@pytest.fixture(scope="module")
def started_machine(boot, controllers):
    with boot(controllers, product_name="7000", bios_version="P7E100A") as machine:
        assert machine(LOAD_DRIVER).code == 0
        machine(WAIT_FOR_DEVICES)
        yield machine


@pytest.fixture
def machine(started_machine, controllers):
    """The machine in good health."""
    for controller in controllers:
        controller.answer(ALL_BUSSES_WORK)
    return started_machine


def test_all_busses_work_passes(machine):
    outcome = run_on(machine)
    assert (outcome.code, outcome.verdict) == (0, "passed")
    assert outcome.records == [passed(0, 1)]
    assert outcome.log == []


def test_machine_and_controllers_are_those_of_the_kernel(machine):
    told = machine("bmci2c info --json").json()
    assert (told["machine_type"], told["bios_id"]) == ("7000", "P7E100A")
    assert [one["way"] for one in told["controllers"]] == ["inband /dev/ipmi0", "inband /dev/ipmi1"]


def test_failed_bus_on_the_second_controller_fails(machine, controllers):
    controllers[1].answer("09: 00 02 00 00\n")
    outcome = run_on(machine)
    assert (outcome.code, outcome.verdict) == (1, "failed")
    (record,) = outcome.records
    assert record.startswith(
        passed(0) + "\n166-902-002 BMC I2C Test Failed: "
        "I2C bus 1 of this management controller has failed.\nRecommendations:\n\n"
    )


def test_unknown_command_is_not_completed(machine, controllers):
    controllers[0].answer("")
    outcome = run_on(machine)
    assert (outcome.code, outcome.verdict) == (2, "not_completed")
    (record,) = outcome.records
    assert record.startswith(
        not_completed(804, 0) + "The management controller does not know the test command "
        "(completion code 0xC1).\nRecommendations:\n\n"
    )
    assert outcome.log == [
        asked(0) + "completion code 0xc1 (the controller does not know the command), 0 data bytes, "
        "1 attempt, N ms"
    ]


def test_two_processes_at_once_get_all_their_answers(machine):
    """One process asks all the time; the runs of others fall between its requests."""
    process = machine(
        "BMCI2C_LOG_LEVEL=4 bmci2c enumerate QUVSG_BMCI2C_DiagnosticCompletionRecord "
        "--after-runs 1000000 >/dev/null 2>/tmp/asks & "
        "until grep -q SP: /tmp/asks; do sleep 0.1; done; echo $!"
    ).out.strip()
    try:
        outcomes = [run_on(machine) for _ in range(3)]
        assert machine(f"kill -0 {process}").code == 0, "It has not asked all the time."
    finally:
        machine(f"kill {process}")

    assert [outcome.records for outcome in outcomes] == [[passed(0, 1)]] * 3
    exchanges = re.findall(r"command 0x09: (.*), \d+ ms\n", machine("cat /tmp/asks").out)
    assert set(exchanges) == {"completion code 0x00, 3 data bytes, 1 attempt"}


def test_user_without_rights_is_told_so(machine):
    assert machine("stat -c '%a %U' /dev/ipmi0").out == "600 root\n"
    outcome = run_on(machine, run_as=machine.as_guest)
    assert (outcome.code, outcome.verdict) == (2, "not_completed")
    assert outcome.records == []
    refused = (
        "The device /dev/ipmi{} cannot be opened: Permission denied. Run as root, or as a user who "
        "may read and write it. (no completion code, 1 attempt, N ms)"
    )
    assert outcome.log == [asked(node) + refused.format(node) for node in (0, 1)]


def controller_checks(result):
    """The paragraphs of `doctor` that tell of devices and controllers."""
    text = re.sub(r"\n {6}", " ", result.out)
    return re.findall(r"^(?:OK|WARN|FAIL) +(?:devices|device|controller)\b.*", text, re.MULTILINE)


def test_doctor_asks_the_controllers_who_they_are(machine):
    result = machine("bmci2c doctor")
    assert (result.code, result.err) == (0, "")
    assert controller_checks(result) == [
        *(
            f"OK    device /dev/ipmi{node}: The device /dev/ipmi{node} may be read and written."
            for node in (0, 1)
        ),
        *(
            f"OK    controller {node}: Controller {node}, inband /dev/ipmi{node}, answers: "
            f"manufacturer 0, product {node + 1}, firmware 1.00."
            for node in (0, 1)
        ),
    ]


def test_doctor_of_a_user_without_rights_tells_so(machine):
    result = machine.as_guest("bmci2c doctor")
    assert result.code == 1
    assert controller_checks(result) == [
        *(
            f"FAIL  device /dev/ipmi{node}: The device /dev/ipmi{node} cannot be read and written: "
            "Permission denied. Run the test as root, or as a user who may do both."
            for node in (0, 1)
        ),
        *(
            f"FAIL  controller {node}: Controller {node}, inband /dev/ipmi{node}, was not asked. "
            f'Fix what the check "device /dev/ipmi{node}" tells first.'
            for node in (0, 1)
        ),
    ]


def test_family_by_products_goes_by_get_device_id(machine, controllers):
    """Whether an OXC controller that does not tell its generation has busses 6 and 7 is not known."""
    controllers[0].answer("09: 00 c0 00 00\n")
    assert run_on(machine).code == 1
    for product, code in ((1, 2), (2, 1)):
        machine(
            f"printf '[controllers]\\noxc = [{{ manufacturer = 0, product = {product} }}]\\n' "
            ">/tmp/family.toml"
        )
        assert run_on(machine, "BMCI2C_CONFIG=/tmp/family.toml").code == code


def test_driver_that_is_not_loaded_is_told_so(machine):
    machine("modprobe -r ipmi_devintf")
    try:
        outcome = run_on(machine)
        examined = machine("bmci2c doctor")
    finally:
        machine(f"{LOAD_DRIVER}; {WAIT_FOR_DEVICES}")
    assert (outcome.code, outcome.verdict) == (2, "not_completed")
    assert outcome.records == []
    assert set(outcome.log) == {NO_DEVICE}
    assert controller_checks(examined) == [
        "FAIL  devices: "
        + NO_DEVICE.removeprefix("SP: ").replace(
            "Is the kernel module ipmi_devintf loaded?",
            "Load the kernel's IPMI driver (modprobe -a ipmi_si ipmi_devintf), or list the "
            "controllers in the settings file, then run the test again.",
        )
    ]


def test_controller_that_falls_silent_is_not_completed(machine, controllers):
    """The KCS interface gives up after 4 s and answers in the controller's place."""
    machine("printf '[controllers]\\ntime_limit = 60\\n' >/tmp/patient.toml")
    controllers[1].pause()
    try:
        outcome = run_on(machine, "BMCI2C_CONFIG=/tmp/patient.toml")
    finally:
        controllers[1].resume()
    assert (outcome.code, outcome.verdict) == (2, "not_completed")
    assert outcome.records[0].startswith(passed(0) + not_completed(806, 1))
    assert outcome.log == [
        asked(1) + "completion code 0xc3 (the controller did not answer the command in time), "
        "0 data bytes, 1 attempt, N ms"
    ]
    assert run_on(machine).records == [passed(0, 1)]


def test_controller_that_is_gone_is_not_completed(machine, controllers):
    """The KCS interface answers in the place of a controller that it has lost."""
    controllers[1].stop()
    try:
        outcome = run_on(machine)
    finally:
        controllers[1].start()
        machine("until bmci2c run; do sleep 0.1; done")  # until the interface is connected again
    assert (outcome.code, outcome.verdict) == (2, "not_completed")
    assert outcome.records[0].startswith(passed(0) + not_completed(821, 1))
    assert outcome.log == [
        asked(1) + "completion code 0xd2 (the controller is still starting), "
        "0 data bytes, 1 attempt, N ms"
    ]
