"""`info`: what is in force, and where it comes from."""

import os

from conftest import node


def info(bmci2c, *arguments, env=None):
    result = bmci2c(*arguments, "info", "--json", env=env)
    assert result.code == 0
    return result.json()


def test_module_and_registrations_are_named(bmci2c):
    told = info(bmci2c)
    assert told["module"] == os.path.realpath(os.environ["BMCI2C_BUILD_MODULE"])
    assert len(told["registrations"]) == 23
    (service,) = [
        one for one in told["registrations"] if one["class"] == "QUVSG_BMCI2C_DiagnosticService"
    ]
    assert service["provider"] == "QUVSG_BMCI2C_DiagnosticService_Provider"
    assert service["types"] == ["instance", "method"]


def test_settings_tell_their_origin(bmci2c):
    config = bmci2c.write("platform.toml", "[controllers]\ntime_limit = 7\n")
    settings = info(bmci2c, "--config", config)["settings"]
    assert settings["config_file"] == {"value": config, "origin": "environment"}
    assert settings["controllers.time_limit"] == {"value": 7, "origin": "file"}
    assert settings["controllers.oxc"] == {"value": False, "origin": "default"}
    assert settings["diagnostics.root"] == {"value": str(bmci2c.root), "origin": "environment"}


def test_profile_is_an_origin_of_its_own(bmci2c):
    profile = bmci2c.profile(node(data=[0]), oxc=True)
    told = info(bmci2c, "--simulate", profile)
    assert told["settings"]["controllers.oxc"] == {"value": True, "origin": "profile"}
    assert told["machine_type"] == "7000"
    assert told["bios_id"] == "P7E100A"
    assert told["controllers"] == [{"way": "simulated"}]


def test_what_the_command_chose_itself_is_told(bmci2c):
    settings = bmci2c.bare("info", "--json").json()["settings"]
    assert settings["diagnostics.root"]["origin"] == "command"
    assert settings["log.sink"] == {"value": "stderr", "origin": "command"}
    assert settings["log.level"] == {"value": 0, "origin": "command"}


def test_log_that_somebody_chose_is_left_alone(bmci2c):
    settings = info(bmci2c, env={"BMCI2C_LOG": "none"})["settings"]
    assert settings["log.sink"] == {"value": "none", "origin": "environment"}
    assert settings["log.level"]["origin"] == "default"


def test_log_level_that_somebody_chose_is_kept(bmci2c):
    settings = info(bmci2c, env={"BMCI2C_LOG_LEVEL": "3"})["settings"]
    assert settings["log.sink"] == {"value": "stderr", "origin": "command"}
    assert settings["log.level"] == {"value": 3, "origin": "environment"}


def test_lan_controller_is_told_without_its_password(bmci2c):
    bmci2c.write("secret", "sesame\n")
    config = bmci2c.write(
        "platform.toml",
        '[[controller]]\ntransport = "lan"\nhost = "192.0.2.1"\nport = 6230\nuser = "admin"\n'
        'password_file = "secret"\n',
    )
    result = bmci2c("--config", config, "info", "--json")
    (controller,) = result.json()["controllers"]
    assert controller["way"] == "lan 192.0.2.1:6230"
    assert controller["user"] == "admin"
    assert controller["protocol"] == "2.0"
    assert "sesame" not in result.out + result.err


def test_text_has_the_same_facts(bmci2c):
    result = bmci2c.simulate(bmci2c.profile(node(data=[0])), "info")
    assert result.code == 0
    assert "  Machine type     7000\n" in result.out
    assert "  BIOS identifier  P7E100A\n" in result.out
    assert "  node 0  simulated\n" in result.out
    assert "controllers.time_limit  4  [default]\n" in result.out
    assert "\nRegistrations: 23 classes\n" in result.out


def test_missing_module_ends_with_3(bmci2c):
    result = bmci2c("--module", "/nowhere/module.so", "info")
    assert (result.code, result.out) == (3, "")
    assert "/nowhere/module.so" in result.err
