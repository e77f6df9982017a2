"""`doctor`: one line for each check; what is wrong and what to do."""

import os
import re
import shutil

import pytest
from conftest import catalog_text, node, unwrapped

RIGHT = '[machine]\ntype = "7000"\nbios_id = "P7E100A"\n'
REINSTALL = "Install the module, the MOF and the registrations of one version again."


@pytest.fixture
def shipped_schema():
    return os.environ["BMCI2C_BUILD_SHARE"] + "/bmci2c/schema"


@pytest.fixture
def module():
    return os.path.realpath(os.environ["BMCI2C_BUILD_MODULE"])


@pytest.fixture
def doctor(bmci2c):
    """Examines with these settings; a simulated controller answers unless they name others."""

    def examine(settings=RIGHT, *arguments, env=None, controllers=None):
        bmci2c.profile(node(data=[0]))
        played = '[[controller]]\ntransport = "simulated"\nprofile = "profile.toml"\n'
        config = bmci2c.write(
            "platform.toml", settings + (played if controllers is None else controllers)
        )
        os.chmod(config, 0o644)
        return bmci2c("--config", config, "doctor", *arguments, env=env)

    return examine


def troubles(result):
    """The paragraphs of the checks that failed, which the exit code must tell, or that warn."""
    assert result.err == ""
    checks = paragraphs(result)
    assert all(re.match(r"(OK    |WARN  |FAIL  )[\w /.,-]+: ", check) for check in checks)
    failed = any(check.startswith("FAIL  ") for check in checks)
    assert result.code == (1 if failed else 0)
    return [check for check in checks if not check.startswith("OK    ")]


def paragraphs(result):
    return unwrapped(result.out).splitlines()


def test_healthy_machine(bmci2c, doctor, module, shipped_schema):
    result = doctor()
    folder = bmci2c.folder
    assert (result.code, result.err) == (0, "")
    assert paragraphs(result) == [
        f"OK    settings: The settings file {folder}/platform.toml is right.",
        f"OK    module: The module {module} can be loaded.",
        "OK    functions: The module exports its 58 functions.",
        f"OK    schema: The MOF {shipped_schema}/bmci2c.mof declares the 23 registered classes.",
        "OK    providers: The 23 providers of the module answer; 16 of them show instances, which "
        "agree with the MOF.",
        f'OK    machine type: The machine type is "7000", says {folder}/platform.toml:2.',
        f'OK    BIOS identifier: The BIOS identifier is "P7E100A", says {folder}/platform.toml:3.',
        f"OK    catalog: The catalog {bmci2c.root}/bmci2c/bmci2c.msg.xml has 3 entries.",
        'OK    machine in the catalog: The catalog knows the machine type "7000".',
        "OK    controller 0: Controller 0, simulated, answers: manufacturer 0, product 0, firmware "
        "1.00.",
    ]


def test_simulated_machine_of_a_profile(bmci2c):
    profile = bmci2c.profile(node(data=[0]), node(data=[0]))
    result = bmci2c.simulate(profile, "doctor")
    assert result.code == 0
    assert f"OK    profile: The profile {profile} is right; its machine is simulated.\n" in unwrapped(result.out)
    assert f'OK    machine type: The machine type is "7000", says {profile}:1.\n' in unwrapped(result.out)
    assert "OK    controller 1: Controller 1, simulated, answers: " in unwrapped(result.out)


def test_json_has_the_same_checks(bmci2c, doctor):
    checks = paragraphs(doctor())
    result = doctor(RIGHT, "--json")
    assert (result.code, result.err) == (0, "")
    outcome = result.json()
    assert list(outcome) == ["format_version", "version", "verdict", "checks"]
    assert (outcome["format_version"], outcome["verdict"]) == (1, "ok")
    assert bmci2c.bare("--version").out == f"bmci2c {outcome['version']}\n"
    keys = ["check", "status", "text", "advice"]
    assert [list(check) for check in outcome["checks"]] == [keys] * len(checks)
    assert [f"OK    {check['check']}: {check['text']}" for check in outcome["checks"]] == checks
    assert {(check["status"], check["advice"]) for check in outcome["checks"]} == {("OK", "")}


def test_json_of_a_trouble_has_its_advice_apart(bmci2c, doctor):
    result = doctor("controller = []\n" + RIGHT, "--json", controllers="")
    assert (result.code, result.json()["verdict"]) == (1, "failed")
    assert result.json()["checks"][-1] == {
        "check": "devices",
        "status": "FAIL",
        "text": f"The settings list no controller ({bmci2c.folder}/platform.toml:1).",
        "advice": "Add a [[controller]], or remove the key to use this machine's IPMI devices.",
    }


def test_warning_is_no_failure(bmci2c, doctor):
    unset = '[machine]\ntype = "7000"\nbios_id = "00"\n'
    assert troubles(doctor(unset)) == [
        'WARN  BIOS identifier: The BIOS identifier is "00", which stands for none, says '
        f"{bmci2c.folder}/platform.toml:3. Set the key bios_id under [machine] in the settings file."
    ]
    result = doctor(unset, "--json")
    assert (result.code, result.json()["verdict"]) == (0, "warning")
    statuses = {check["check"]: check["status"] for check in result.json()["checks"]}
    assert statuses.pop("BIOS identifier") == "WARN"
    assert set(statuses.values()) == {"OK"}


@pytest.mark.parametrize("columns", [40, 60, 80])
def test_paragraphs_fit_into_the_terminal(bmci2c, doctor, columns):
    piped = doctor()
    config = f"{bmci2c.folder}/platform.toml"
    result = bmci2c.on_terminal("--config", config, "doctor", columns=columns, env={"NO_COLOR": "1"})
    assert (result.code, result.err) == (0, "")
    assert unwrapped(result.out) == unwrapped(piped.out)
    too_long = [line for line in result.out.splitlines() if len(line) > columns]
    assert all(re.fullmatch(r" {6}\S+", line) for line in too_long)


def test_grades_are_coloured_on_a_terminal(bmci2c, doctor):
    doctor()
    config = f"{bmci2c.folder}/platform.toml"
    result = bmci2c.on_terminal("--config", config, "doctor")
    assert result.out.startswith("\033[1;32mOK\033[0m    settings: ")


def test_control_characters_of_a_file_are_escaped(bmci2c, doctor):
    bmci2c.write("dmi/product_name", "\033[2J7000\x9b\n")
    result = doctor('[machine]\nbios_id = "P7E100A"\n[machine.type_source]\nfolder = "dmi"\n')
    assert 'The machine type is "\\x1b[2J7000\\xc2\\x9b", says ' in unwrapped(result.out)
    assert "\033" not in result.out


# Settings


def test_broken_settings_are_shown_with_their_place(bmci2c, doctor):
    result = doctor("[controllers]\ntime_limit = 90\n")
    wrong = troubles(result)
    assert wrong[0] == (
        f"FAIL  settings: {bmci2c.folder}/platform.toml:2:14: key 'controllers.time_limit': found "
        "90, allowed is an integer from 1 to 60. Correct it; docs/platform-settings.md explains "
        "every key."
    )
    assert wrong[1:] == [
        "FAIL  machine type, BIOS identifier, catalog, machine in the catalog, devices: This depends "
        'on the settings, which cannot be read. Fix what the check "settings" tells first.'
    ]
    assert "OK    providers: " in unwrapped(result.out)


def test_settings_that_are_not_toml(bmci2c, doctor):
    wrong = troubles(doctor("[machine\n"))
    assert wrong[0].startswith(
        f"FAIL  settings: {bmci2c.folder}/platform.toml:1:9: The file is not valid TOML: "
    )
    assert wrong[0].endswith(
        ". Fix the file at this line and column; texts stand between quotation marks."
    )


def test_missing_settings_file(bmci2c):
    result = bmci2c("--config", "/nowhere/platform.toml", "doctor")
    assert troubles(result)[0] == (
        "FAIL  settings: /nowhere/platform.toml: The file cannot be read: No such file or "
        "directory. Give an existing, readable file."
    )


def test_settings_file_that_others_may_write(bmci2c, doctor):
    doctor()
    config = f"{bmci2c.folder}/platform.toml"
    os.chmod(config, 0o664)
    assert troubles(bmci2c("--config", config, "doctor")) == [
        f"FAIL  settings: The settings file {config} is writable by users other than its owner. "
        f"Run: chmod go-w {config}"
    ]


def test_wrong_variable(doctor):
    assert troubles(doctor(env={"BMCI2C_LOG_LEVEL": "9"}))[0] == (
        'FAIL  settings: BMCI2C_LOG_LEVEL: found "9", allowed is an integer from 0 to 4. '
        "Correct it; docs/platform-settings.md explains every key."
    )


def test_log_that_cannot_be_written(bmci2c, doctor):
    assert troubles(doctor(RIGHT + '[log]\nsink = "file:absent/bmci2c.log"\n')) == [
        f"FAIL  log: The log {bmci2c.folder}/absent/bmci2c.log cannot be written: No such file or "
        "directory. Name another one with the key sink under [log] or with BMCI2C_LOG."
    ]


def test_log_that_can_be_written_is_not_made(bmci2c, doctor):
    result = doctor(RIGHT + '[log]\nsink = "json:bmci2c.log"\n')
    assert f"OK    log: The log {bmci2c.folder}/bmci2c.log can be written.\n" in unwrapped(result.out)
    assert not (bmci2c.folder / "bmci2c.log").exists()


LAN = (
    '[[controller]]\ntransport = "lan"\nhost = "127.0.0.1"\nport = 1\nuser = "tester"\n'
    'password_file = "secret"\n'
)


def test_password_file_that_others_may_read(bmci2c, doctor):
    secret = bmci2c.write("secret", "sesame\n")
    os.chmod(secret, 0o644)
    result = doctor(controllers=LAN)
    refused = (
        f"The password file {secret} may be read by others than its owner (mode 0644). Run: "
        f"chmod 600 {secret}"
    )
    assert troubles(result) == [
        f"FAIL  password file of controller 0: {refused}",
        "FAIL  controller 0: Controller 0, lan 127.0.0.1:1, was not asked. Fix what the check "
        '"password file of controller 0" tells first.',
    ]
    assert "sesame" not in unwrapped(result.out)


def test_password_file_that_is_right_is_not_shown(bmci2c, doctor):
    secret = bmci2c.write("secret", "sesame\n")
    os.chmod(secret, 0o600)
    for arguments in ([], ["--json"]):
        result = doctor(RIGHT, *arguments, controllers=LAN + "time_limit = 1\n")
        assert f"The password file {secret} can be read, by its owner only." in unwrapped(result.out)
        assert "sesame" not in result.out + result.err


# Machine


def test_smbios_that_cannot_be_read(bmci2c, doctor):
    settings = "".join(
        f'[machine.{text}_source]\nfolder = "dmi"\n' for text in ("type", "bios_id")
    )
    wrong = troubles(doctor(settings))
    assert wrong[:2] == [
        f"FAIL  machine type: {bmci2c.folder}/dmi/product_name cannot be read: No such file or "
        "directory. The key type under [machine] in the settings file can stand in for it.",
        f"FAIL  BIOS identifier: {bmci2c.folder}/dmi/bios_version cannot be read: No such file or "
        "directory. The key bios_id under [machine] in the settings file can stand in for it.",
    ]


def test_smbios_that_is_empty(bmci2c, doctor):
    bmci2c.write("dmi/product_name", " \n")
    wrong = troubles(doctor('[machine]\nbios_id = "00"\n[machine.type_source]\nfolder = "dmi"\n'))
    assert wrong[:2] == [
        f"FAIL  machine type: The machine type is empty, says {bmci2c.folder}/dmi/product_name. "
        "Set the key type under [machine] in the settings file.",
        'FAIL  BIOS identifier: The BIOS identifier is "00", which stands for none, says '
        f"{bmci2c.folder}/platform.toml:2. Set the key bios_id under [machine] in the settings "
        "file.",
    ]


def test_smbios_text_without_the_pattern(bmci2c, doctor):
    bmci2c.write("dmi/product_name", "7000\n")
    settings = '[machine]\nbios_id = "B"\n[machine.type_source]\nfolder = "dmi"\npattern = "^QUV"\n'
    assert troubles(doctor(settings)) == [
        f'FAIL  machine type: The text of {bmci2c.folder}/dmi/product_name, "7000", does not hold '
        'the pattern "^QUV", so it is taken whole. Fix the key pattern under '
        "[machine.type_source] in the settings file."
    ]


# Catalog


def test_catalog_that_is_missing(bmci2c, doctor):
    path = bmci2c.root / "bmci2c" / "bmci2c.msg.xml"
    path.unlink()
    assert troubles(doctor()) == [
        f"FAIL  catalog: The catalog {path} cannot be read: No such file or directory. Name the "
        "folder that holds bmci2c/bmci2c.msg.xml with the key root under [diagnostics], with "
        "BMCI2C_ROOT or with --root."
    ]


def test_catalog_with_errors(bmci2c, doctor):
    path = bmci2c.root / "bmci2c" / "bmci2c.msg.xml"
    bmci2c.write_catalog(catalog_text().replace("<machine ", "<colour></colour>\n<machine ", 1))
    assert troubles(doctor()) == [
        f"FAIL  catalog: The catalog {path} has 1 error, the first in line 2: There is no "
        f"element 'colour'. See 'bmci2c catalog check {path}' for all."
    ]


def test_catalog_that_ends_early(bmci2c, doctor):
    path = bmci2c.root / "bmci2c" / "bmci2c.msg.xml"
    path.write_text('<bmci2cmsg version="1.0">\n<machine\n')
    wrong = troubles(doctor())
    assert wrong[0].startswith(f"FAIL  catalog: The catalog {path} has 1 error, the first in line 2: ")
    assert wrong[1:] == [
        "FAIL  machine in the catalog: The catalog has errors, so it is not known which machines it "
        'lists. Fix what the check "catalog" tells first.'
    ]


def test_catalog_without_this_machine(bmci2c, doctor):
    bmci2c.write_catalog(catalog_text(machines=["7001"]))
    assert troubles(doctor()) == [
        'FAIL  machine in the catalog: The catalog knows neither the machine type "7000" nor the '
        'BIOS identifier "P7E100A". Add one of them to the catalog, or set the key type under '
        "[machine] in the settings file to what the catalog calls this machine."
    ]


def test_machine_that_the_catalog_knows_by_its_bios(bmci2c, doctor):
    bmci2c.write_catalog(catalog_text(machines=["P7E100A"]))
    result = doctor()
    assert result.code == 0
    assert 'The catalog knows the BIOS identifier "P7E100A".\n' in unwrapped(result.out)


@pytest.mark.parametrize(
    "oxc, entry",
    [("true", "GENERIC_QUV_OXC"), ("[{ manufacturer = 1, product = 2 }]", "GENERIC_QUV_OXC")],
)
def test_catalog_without_the_generic_entry(bmci2c, doctor, oxc, entry):
    bmci2c.write_catalog(catalog_text().replace(f'"{entry}"', '"other"'))
    assert troubles(doctor(f"{RIGHT}[controllers]\noxc = {oxc}\n")) == [
        f"FAIL  machine in the catalog: The catalog has no entry {entry}, which holds the texts of "
        f'machines without texts of their own. Add <machine type="{entry}"> to the catalog.'
    ]


# Module and schema


def test_module_that_is_missing(bmci2c, doctor):
    doctor()
    config = f"{bmci2c.folder}/platform.toml"
    wrong = troubles(bmci2c("--config", config, "--module", "/nowhere/module.so", "doctor"))
    text = (
        "The provider module '/nowhere/module.so' cannot be loaded: cannot open shared object "
        f"file: No such file or directory. {REINSTALL}"
    )
    assert wrong == [f"FAIL  module, functions, providers: {text}"]


@pytest.fixture
def schema(bmci2c, shipped_schema):
    """A copy of the schema's folder that a test may damage."""
    folder = bmci2c.folder / "schema"
    shutil.copytree(shipped_schema, folder)

    def damage(name, old, new):
        path = folder / name
        text = path.read_text()
        assert old in text
        path.write_text(text.replace(old, new, 1))
        return {"BMCI2C_SCHEMA": str(folder)}

    return damage


def test_function_that_is_missing(doctor, schema):
    env = schema(
        "bmci2c.reg", "provider: QUVSG_BMCI2C_HelpService_Provider", "provider: Help_Provider"
    )
    wrong = troubles(doctor(env=env))
    assert wrong[0] == (
        "FAIL  functions: The module lacks 2 of its 58 functions: Help_Provider_Create_InstanceMI "
        f"and Help_Provider_Create_MethodMI. {REINSTALL}"
    )
    assert wrong[1].startswith("FAIL  providers: ")


def test_class_that_the_mof_lacks(bmci2c, doctor, schema):
    env = schema("bmci2c.reg", "[QUVSG_BMCI2C_HelpService]", "[QUVSG_BMCI2C_HelpServices]")
    folder = bmci2c.folder / "schema"
    assert troubles(doctor(env=env))[0] == (
        f"FAIL  schema: The MOF {folder}/bmci2c.mof and the registrations {folder}/bmci2c.reg "
        "disagree: the MOF does not declare the registered class QUVSG_BMCI2C_HelpServices and no "
        f"provider is registered for the class QUVSG_BMCI2C_HelpService. {REINSTALL}"
    )


def test_mof_that_cannot_be_read(bmci2c, doctor, schema):
    env = schema("bmci2c.mof", "Qualifier Abstract : boolean", "Qualifier Abstract boolean")
    wrong = troubles(doctor(env=env))
    assert wrong[0].startswith(f"FAIL  schema: {bmci2c.folder}/schema/bmci2c.mof:3:")
    assert wrong[1].startswith("FAIL  providers: The schema cannot be read: ")


def disagreement(name, text):
    return (
        f"FAIL  providers: The provider of QUVSG_BMCI2C_{name} and the MOF disagree: {text}. "
        f"{REINSTALL}"
    )


def test_property_that_only_one_of_module_and_mof_has(doctor, schema):
    env = schema("bmci2c.mof", "string DocumentDescriptions[];", "string DocumentTexts[];")
    assert troubles(doctor(env=env)) == [
        disagreement(
            "HelpService",
            "The instance of 'QUVSG_BMCI2C_HelpService' has no property 'DocumentDescriptions' and "
            "it does not know the property 'DocumentTexts'",
        )
    ]


def test_property_of_another_type_in_the_mof(doctor, schema):
    env = schema("bmci2c.mof", "uint16 DocumentFormat[];", "string DocumentFormat[];")
    assert troubles(doctor(env=env)) == [
        disagreement(
            "HelpService",
            "The property 'DocumentFormat' of 'QUVSG_BMCI2C_HelpService' is of another type than "
            "the value and it does not know the property 'DocumentFormat'",
        )
    ]


def test_key_that_is_none_in_the_mof(doctor, schema):
    env = schema(
        "bmci2c.mof",
        "class CIM_SoftwareIdentity : CIM_LogicalElement {\n    [Key] string InstanceID;",
        "class CIM_SoftwareIdentity : CIM_LogicalElement {\n    string InstanceID;",
    )
    assert troubles(doctor(env=env)) == [
        disagreement(
            "SoftwareIdentity",
            'the keys of its object path root/QUVSD:QUVSG_BMCI2C_SoftwareIdentity.InstanceID="QUV : '
            'QUVSG_BMCI2C_SoftwareIdentity" are not those of the MOF',
        )
    ]


def test_method_that_the_module_lacks(doctor, schema):
    env = schema("bmci2c.mof", "uint32 GetHelp(", "uint32 GetAdvice(")
    assert troubles(doctor(env=env)) == [
        disagreement("HelpService", "it does not know the method 'GetAdvice'")
    ]


# Controllers


def test_device_that_is_missing(bmci2c, doctor):
    device = f"{bmci2c.folder}/no-ipmi0"
    assert troubles(
        doctor(controllers=f'[[controller]]\ntransport = "inband"\ndevice = "{device}"\n')
    ) == [
        f"FAIL  device {device}: The device {device} cannot be read and written: No such file or "
        "directory. Load the kernel's IPMI driver with: modprobe -a ipmi_si ipmi_devintf",
        f"FAIL  controller 0: Controller 0, inband {device}, was not asked. Fix what the check "
        f'"device {device}" tells first.',
    ]


def test_controllers_that_do_not_answer(bmci2c):
    profile = bmci2c.profile(
        node(data=[0]), node(answers=False), node(present=False), node(busy=1)
    )
    wrong = troubles(bmci2c.simulate(profile, "doctor"))
    advice = "Change its profile if it is to answer."
    assert wrong[:2] == [
        "FAIL  controller 1: Controller 1, simulated, is not reached: The simulated controller "
        f"does not answer. {advice}",
        "FAIL  controller 2: Controller 2, simulated, is not reached: The profile says that this "
        f"controller is not present. {advice}",
    ]
    assert wrong[2] == (
        "FAIL  controller 3: Controller 3, simulated, answers, but does not identify itself: The "
        "controller answered Get Device ID with completion code 0xff (the controller is busy). Wait a "
        "while, then try again."
    )


def test_profile_without_controllers(bmci2c):
    profile = bmci2c.profile()
    assert troubles(bmci2c.simulate(profile, "doctor")) == [
        f"FAIL  devices: The profile {profile} lists no controller. Add a [[node]], or run the test "
        "without a profile to use this machine's IPMI devices."
    ]


def test_wrong_usage_ends_with_64(bmci2c):
    result = bmci2c("doctor", "nonsense")
    assert (result.code, result.out) == (64, "")
