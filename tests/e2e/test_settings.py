"""Settings files and variables, as the command and the module read them."""

import pytest
from conftest import SERVICE, node, passed

PLAYED = '[[controller]]\ntransport = "simulated"\nprofile = "profile.toml"\n'


def run_with(bmci2c, settings, *arguments, **env):
    config = bmci2c.write("platform.toml", settings)
    return bmci2c("--config", config, *arguments, "run", "--json", env=env)


def texts(result):
    return [record["RecordData"] for record in result.json()["records"]]


def test_machine_and_controllers_of_the_file_are_used(bmci2c):
    bmci2c.profile(node(data=[0]))
    result = run_with(bmci2c, '[machine]\ntype = "7000"\nbios_id = "B"\n' + PLAYED)
    assert (result.code, texts(result)) == (0, [passed(1)])


def test_bios_id_of_the_file_is_used(bmci2c):
    bmci2c.profile(node(data=[0]))
    result = run_with(bmci2c, '[machine]\ntype = "x"\nbios_id = "7000"\n' + PLAYED)
    assert (result.code, texts(result)) == (0, [passed(1)])


def test_root_of_the_file_is_used(bmci2c):
    bmci2c.profile(node(data=[0]))
    config = bmci2c.write(
        "platform.toml", f'[machine]\ntype = "7000"\n[diagnostics]\nroot = "root"\n{PLAYED}'
    )
    assert bmci2c.bare("--config", config, "run", "--json").code == 0


def test_oem_build_of_the_file_is_used(bmci2c):
    bmci2c.profile(node(data=[0] * 7 + [0x80]))
    machine = '[machine]\ntype = "7000"\n'
    result = run_with(bmci2c, f"{machine}[diagnostics]\noem_build = true\n{PLAYED}")
    assert texts(result)[0].endswith("\nOEM advice")


def test_oxc_of_the_file_is_used(bmci2c):
    bmci2c.profile(node(data=[0]))
    config = bmci2c.write("platform.toml", f"[controllers]\noxc = true\n{PLAYED}")
    (service,) = bmci2c("--config", config, "enumerate", SERVICE, "--json").json()
    assert service["properties"]["Name"] == "OXC I2C Test"


def test_profile_goes_before_the_file(bmci2c):
    profile = bmci2c.profile(node(data=[0]))
    settings = '[machine]\ntype = "x"\nbios_id = "y"\n'
    result = run_with(bmci2c, settings, "--simulate", profile)
    assert (result.code, texts(result)) == (0, [passed(1)])


def test_variables_do_the_same_as_options(bmci2c):
    bmci2c.profile(node(data=[0]))
    config = bmci2c.write("platform.toml", '[machine]\ntype = "7000"\n' + PLAYED)
    result = bmci2c.bare(
        "run", "--json", env={"BMCI2C_CONFIG": config, "BMCI2C_ROOT": str(bmci2c.root)}
    )
    assert (result.code, texts(result)) == (0, [passed(1)])


def test_options_go_before_variables(bmci2c):
    bmci2c.profile(node(data=[0]))
    config = bmci2c.write("platform.toml", '[machine]\ntype = "7000"\n' + PLAYED)
    result = bmci2c(
        "--config",
        config,
        "run",
        "--json",
        env={"BMCI2C_CONFIG": "/nowhere.toml", "BMCI2C_ROOT": "/nowhere"},
    )
    assert result.code == 0


WRONG = {
    "syntax": ("[machine\n", 1, "not valid TOML"),
    "unknown-key": ("[machine]\ncolour = 1\n", 2, "machine.colour"),
    "unknown-table": ("[engine]\n", 1, "engine"),
    "wrong-type": ('[controllers]\noxc = "yes"\n', 2, "controllers.oxc"),
    "time-limit-0": ("[controllers]\ntime_limit = 0\n", 2, "controllers.time_limit"),
    "unknown-transport": ('[[controller]]\ntransport = "usb"\n', 2, "transport"),
    "protocol": (
        '[[controller]]\ntransport = "lan"\nhost = "h"\nprotocol = "3"\n',
        4,
        "protocol",
    ),
    "missing-device": ('[[controller]]\ntransport = "inband"\n', 1, "device"),
}


@pytest.mark.parametrize("text, line, said", WRONG.values(), ids=WRONG.keys())
def test_wrong_file_ends_with_64_and_its_place(bmci2c, text, line, said):
    result = run_with(bmci2c, text)
    assert (result.code, result.json()["verdict"]) == (64, "error")
    assert f"platform.toml:{line}:" in result.err
    assert said in result.err


def test_missing_file_is_named(bmci2c):
    result = bmci2c("--config", "/nowhere/platform.toml", "run")
    assert result.code == 64
    assert "/nowhere/platform.toml" in result.err


@pytest.mark.parametrize(
    "variable, value", [("BMCI2C_LOG", "printer"), ("BMCI2C_LOG_LEVEL", "9")]
)
def test_wrong_variable_ends_with_64(bmci2c, variable, value):
    result = bmci2c("run", env={variable: value})
    assert result.code == 64
    assert variable in result.err
    assert value in result.err


def test_device_that_cannot_be_opened_is_named_with_its_reason(bmci2c):
    config = bmci2c.write(
        "platform.toml",
        '[machine]\ntype = "7000"\n[[controller]]\ntransport = "inband"\ndevice = "no-ipmi0"\n',
    )
    result = bmci2c("--config", config, "run")
    assert result.code == 2
    said = " ".join(result.out[result.out.index("What was not examined") :].split())
    assert f"{bmci2c.folder}/no-ipmi0" in said
    assert "No such file or directory" in said
