"""`info`: what is in force, and where it comes from."""

import os
import pathlib
import re

import pytest
from conftest import node, unwrapped


def info(bmci2c, *arguments, env=None):
    result = bmci2c(*arguments, "info", "--json", env=env)
    assert result.code == 0
    return result.json()


def told(value, origin, place=None):
    return {"value": value, "origin": origin, "place": place}


def test_module_and_registrations_are_named(bmci2c):
    facts = info(bmci2c)
    assert facts["module"] == os.path.realpath(os.environ["BMCI2C_BUILD_MODULE"])
    assert len(facts["registrations"]) == 23
    (service,) = [
        one for one in facts["registrations"] if one["class"] == "QUVSG_BMCI2C_DiagnosticService"
    ]
    assert service["provider"] == "QUVSG_BMCI2C_DiagnosticService_Provider"
    assert service["types"] == ["instance", "method"]


def test_missing_catalog_is_told(bmci2c):
    catalog = bmci2c.root / "bmci2c" / "bmci2c.msg.xml"
    profile = bmci2c.profile(node(data=[0]))
    facts = bmci2c.simulate(profile, "info", "--json").json()
    assert (facts["catalog"], facts["troubles"]) == (str(catalog), [])
    catalog.unlink()
    facts = bmci2c.simulate(profile, "info", "--json").json()
    assert facts["troubles"] == [f"There is no message catalog {catalog}."]
    assert unwrapped(bmci2c.simulate(profile, "info").out).endswith(
        f"\nThere is no message catalog {catalog}.\n"
    )


def test_smbios_that_cannot_be_read_is_told(bmci2c):
    config = bmci2c.write("platform.toml", '[machine.type_source]\nfolder = "/nowhere"\n')
    facts = info(bmci2c, "--config", config, env={"BMCI2C_SIMULATE": bmci2c.profile(machine_type=None)})
    (trouble,) = facts["troubles"]
    assert "/nowhere/product_name" in trouble
    # Whatever log somebody chose, it stays out of the answer.
    log = bmci2c.folder / "log.txt"
    info(bmci2c, "--config", config, env={"BMCI2C_LOG": f"file:{log}", "BMCI2C_LOG_LEVEL": "4"})
    assert not log.exists()


def test_settings_tell_their_origin(bmci2c):
    config = bmci2c.write("platform.toml", "[controllers]\ntime_limit = 7\n")
    settings = info(bmci2c, "--config", config)["settings"]
    assert settings["config_file"] == told(config, "command line", "--config")
    assert settings["controllers.time_limit"] == told(7, "file", f"{config}:2")
    assert settings["controllers.oxc"] == told(False, "default")
    assert settings["diagnostics.root"] == told(str(bmci2c.root), "command line", "--root")


def test_variables_are_named(bmci2c):
    root = str(bmci2c.root)
    profile = bmci2c.profile()
    result = bmci2c.bare(
        "info",
        "--json",
        env={"BMCI2C_ROOT": root, "BMCI2C_SIMULATE": profile},
    )
    settings = result.json()["settings"]
    assert settings["diagnostics.root"] == told(root, "environment", "BMCI2C_ROOT")
    assert settings["profile"] == told(profile, "environment", "BMCI2C_SIMULATE")
    assert settings["config_file"]["origin"] == "environment"
    assert settings["config_file"]["place"] == "BMCI2C_CONFIG"


def test_every_key_of_the_sample_is_told(bmci2c):
    sample = pathlib.Path(os.environ["BMCI2C_BUILD_SHARE"], "bmci2c", "platform.toml").read_text()
    lines = re.findall(r"^#(\[.*|[a-z_]+ = .*)$", sample, re.MULTILINE)
    bmci2c.write("profiles/two-nodes-one-failed.toml", "[[node]]\n[[node]]\n")
    config = bmci2c.write("platform.toml", "\n".join(lines) + "\n")
    expected, table, controllers = set(), "", 0
    for line in lines:
        if line == "[[controller]]":
            table, controllers = f"controller[{controllers}].", controllers + 1
        elif line.startswith("["):
            table = line[1:-1] + "."
        else:
            expected.add(table + line.split(" = ")[0])
    # Shown once in the sample, and a key of each controller that may be silent.
    expected.add("controller[2].time_limit")
    assert controllers == 3
    settings = info(bmci2c, "--config", config)["settings"]
    assert set(settings) - expected == {"config_file", "profile", "controller"}
    assert expected - set(settings) == set()


def test_keys_of_a_controller_tell_their_origin(bmci2c):
    config = bmci2c.write(
        "platform.toml",
        '[[controller]]\ntransport = "lan"\nhost = "192.0.2.1"\n'
        '[[controller]]\ntransport = "inband"\ndevice = "/dev/ipmi0"\ntime_limit = 9\n',
    )
    settings = info(bmci2c, "--config", config)["settings"]
    assert settings["controller"] == told(2, "file", f"{config}:1")
    assert settings["controller[0].host"] == told("192.0.2.1", "file", f"{config}:3")
    assert settings["controller[0].port"] == told(623, "default")
    assert settings["controller[0].time_limit"] == told(4, "default")
    assert settings["controller[1].time_limit"] == told(9, "file", f"{config}:7")


def test_oxc_family_by_products_is_told(bmci2c):
    config = bmci2c.write(
        "platform.toml", "[controllers]\noxc = [{ manufacturer = 32473, product = 7 }]\n"
    )
    settings = info(bmci2c, "--config", config)["settings"]
    assert settings["controllers.oxc"]["value"] == [{"manufacturer": 32473, "product": 7}]


def test_profile_is_an_origin_of_its_own(bmci2c):
    profile = bmci2c.profile(node(data=[0]), oxc=True)
    facts = info(bmci2c, "--simulate", profile)
    assert facts["settings"]["controllers.oxc"] == told(True, "profile", f"{profile}:3")
    assert facts["machine_type"] == "7000"
    assert facts["bios_id"] == "P7E100A"
    assert facts["controllers"] == [{"way": "simulated"}]


def test_what_the_command_chose_itself_is_told(bmci2c):
    settings = bmci2c.bare("info", "--json").json()["settings"]
    assert settings["diagnostics.root"]["origin"] == "default"
    assert settings["log.sink"] == told("stderr", "command")
    assert settings["log.level"] == told(0, "command")


def test_log_that_somebody_chose_is_left_alone(bmci2c):
    settings = info(bmci2c, env={"BMCI2C_LOG": "none"})["settings"]
    assert settings["log.sink"] == told("none", "environment", "BMCI2C_LOG")
    assert settings["log.level"]["origin"] == "default"


def test_log_level_that_somebody_chose_is_kept(bmci2c):
    settings = info(bmci2c, env={"BMCI2C_LOG_LEVEL": "3"})["settings"]
    assert settings["log.sink"] == told("stderr", "command")
    assert settings["log.level"] == told(3, "environment", "BMCI2C_LOG_LEVEL")


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
    lines = [" ".join(line.split()) for line in unwrapped(result.out).splitlines()]
    assert "controllers.time_limit 4 [default]" in lines
    assert f"diagnostics.root {bmci2c.root} [command line --root]" in lines
    assert "log.sink stderr [chosen by this command]" in lines
    assert f"machine.type 7000 [profile {bmci2c.folder}/profile.toml:1]" in lines
    assert "\nRegistrations: 23 classes\n" in result.out


@pytest.mark.parametrize("columns", [40, 60, 80, 100])
def test_text_fits_into_the_terminal(bmci2c, columns):
    profile = bmci2c.profile(node(data=[0]))
    piped = bmci2c.simulate(profile, "info").out
    result = bmci2c.on_terminal("--simulate", profile, "info", columns=columns)
    assert (result.code, result.err) == (0, "")
    assert unwrapped(result.out).split() == unwrapped(piped).split()
    too_long = [line for line in result.out.splitlines() if len(line) > columns]
    # A name and a word, or a word, that does not fit in.
    assert all(len(line.split()) <= 2 for line in too_long)


def test_control_characters_of_a_file_are_escaped(bmci2c):
    profile = bmci2c.profile(node(data=[0]), bios_id="P7\033[2J\x9b\nE")
    assert "  BIOS identifier  P7\\x1b[2J\\xc2\\x9b\\x0aE\n" in bmci2c.simulate(profile, "info").out
    assert bmci2c.simulate(profile, "info", "--json").json()["bios_id"] == "P7\033[2J\x9b\nE"


def test_missing_module_ends_with_3(bmci2c):
    result = bmci2c("--module", "/nowhere/module.so", "info")
    assert (result.code, result.out) == (3, "")
    assert result.err == (
        "bmci2c: The provider module '/nowhere/module.so' cannot be loaded: cannot open shared object "
        "file: No such file or directory. Run 'bmci2c doctor' to see which files are wrong and what "
        "to do.\n"
    )
