"""The table of trouble codes: what runs and the sources say, and nothing else."""

import os
import re
from collections import Counter

import pytest
from conftest import catalog_text, node
from test_docs import trouble_codes
from test_troubleshooting import MESSAGES, parts, texts
from trouble_table import PAGE, ROWS, rows_of

__all__ = ["texts"]  # a fixture

PASSES = node(data=[0])
RIGHT = '[machine]\ntype = "7000"\nbios_id = "P7E100A"\n'
LAN = '[[controller]]\ntransport = "lan"\nhost = "127.0.0.1"\nport = 1\n'

# Profiles: their nodes, and other keys.
PROFILES = {
    "no_answer": ([node(answers=False)], {}),
    "unusable_answers": ([node(data=[])], {}),
    "refused": ([node(completion_code=0xC1)], {}),
    "busy": ([node(completion_code=0xC0)], {}),
    "not_present": ([PASSES, node(present=False)], {}),
    "not_asked after a refusal": ([node(completion_code=0xC1), PASSES], {}),
    "not_asked without the first": ([node(present=False), PASSES], {}),
    "not_asked on this machine": ([PASSES], {"machine_type": "other", "bios_id": "other"}),
    "generation_unknown": ([node(data=[0xC0], answers_generation=False)], {"oxc": True}),
    "answer_cut": ([node(data=[0] * 250)], {}),
    "no_controller": ([], {}),
    "machine_unknown": ([PASSES], {"machine_type": ""}),
}

# What stands in the settings beside the machine.
SETTINGS = {
    "no_controller": "controller = []\n" + RIGHT,
    "no_device": RIGHT + '[[controller]]\ntransport = "inband"\ndevice = "absent"\n',
    "other": RIGHT + '[[controller]]\ntransport = "inband"\ndevice = "platform.toml"\n',
    "unreachable": RIGHT + LAN,
    "name_not_found": RIGHT + LAN.replace("127.0.0.1", "no host"),
    "family_unknown": RIGHT
    + "[controllers]\noxc = [{ manufacturer = 1, product = 2 }]\n"
    + '[[controller]]\ntransport = "simulated"\nprofile = "profile.toml"\n',
}

# Lines of a password file and of a k_g file; None: a folder in its place.
SECRETS = ["", "x" * 60, None]

CATALOGS = {
    "catalog_syntax": catalog_text().replace("</bmci2cmsg>", "<"),
    "catalog_generic_missing": catalog_text().replace('"GENERIC_QUV"', '"other"'),
}


def sources_say(texts, row):
    return all(part in texts for part in row.parts)


@pytest.fixture(scope="module")
def produced():
    """The rows that the runs of this file have given so far."""
    return set()


def run_with(bmci2c, settings):
    config = bmci2c.write("platform.toml", settings)
    return bmci2c("--config", config, "run", "--json").json()


def assert_told(result, code, produced):
    rows = rows_of(result)
    assert code in {row.code for row in rows}
    produced |= rows


@pytest.mark.parametrize("name", PROFILES)
def test_trouble_of_a_profile_is_listed(bmci2c, produced, name):
    nodes, keys = PROFILES[name]
    assert_told(bmci2c.run_json(*nodes, **keys)[1], name.split()[0], produced)


@pytest.mark.parametrize("name", SETTINGS)
def test_trouble_of_settings_is_listed(bmci2c, produced, name):
    bmci2c.profile(node(data=[0], answers_device_id=False))
    assert_told(run_with(bmci2c, SETTINGS[name]), name, produced)


@pytest.mark.parametrize("line", SECRETS)
@pytest.mark.parametrize("key", ["password_file", "k_g_file"])
def test_trouble_of_a_secret_file_is_listed(bmci2c, produced, key, line):
    path = bmci2c.folder / "secret"
    if line is None:
        path.mkdir()
    else:
        path.write_text(line + "\n")
        os.chmod(path, 0o600)
    assert_told(run_with(bmci2c, f'{RIGHT}{LAN}{key} = "secret"\n'), key, produced)
    if line is not None:
        os.chmod(path, 0o644)
        assert_told(run_with(bmci2c, f'{RIGHT}{LAN}{key} = "secret"\n'), key, produced)
    path.rename(bmci2c.folder / "elsewhere")
    assert_told(run_with(bmci2c, f'{RIGHT}{LAN}{key} = "secret"\n'), key, produced)


@pytest.mark.parametrize("line", ["0x1", "x" * 21])
def test_trouble_of_a_key_is_listed(bmci2c, produced, line):
    os.chmod(bmci2c.write("secret", line), 0o600)
    assert_told(run_with(bmci2c, f'{RIGHT}{LAN}k_g_file = "secret"\n'), "k_g_file", produced)


@pytest.mark.parametrize("code", CATALOGS)
def test_trouble_of_a_catalog_is_listed(bmci2c, produced, code):
    bmci2c.write_catalog(CATALOGS[code])
    result = bmci2c.simulate(bmci2c.profile(PASSES), "run", "--json")
    assert_told(result.json(), code, produced)


def test_trouble_of_a_missing_or_unreadable_catalog_is_listed(bmci2c, produced):
    path = bmci2c.root / "bmci2c" / "bmci2c.msg.xml"
    path.unlink()
    assert_told(bmci2c.run_json(PASSES)[1], "catalog_missing", produced)
    path.mkdir()
    assert_told(bmci2c.run_json(PASSES)[1], "catalog_unreadable", produced)


# Comes last: what the runs above gave needs no look into the sources.
def test_every_row_is_what_a_run_or_the_sources_say(texts, produced):
    unknown = [row.text for row in ROWS if row not in produced and not sources_say(texts, row)]
    assert unknown == []
    assert len(produced) > 25


def test_codes_are_those_of_the_sources():
    assert {row.code for row in ROWS} == trouble_codes()


def test_no_row_stands_twice_or_is_not_read():
    text = PAGE.read_text(encoding="utf-8")
    lines = re.findall(r"^\| `.*", text[text.index("| code | text |") :], re.MULTILINE)
    assert len(lines) == len(ROWS)
    assert max(Counter((row.code, row.text) for row in ROWS).values()) == 1


@pytest.mark.parametrize("row", ROWS, ids=lambda row: re.sub(r"\W+", "-", row.code + row.text[:60]))
def test_text_is_explained_below_a_heading(row):
    def explains(heading):
        return all(part.strip(" .:,") in row.text for part in parts(heading))

    assert any(explains(heading) for heading in MESSAGES)
