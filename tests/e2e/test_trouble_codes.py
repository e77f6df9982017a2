"""The table of trouble codes: what runs and the sources say, and nothing else."""

import os
import re
from collections import Counter
from concurrent.futures import ThreadPoolExecutor
from functools import partial

import pytest
from conftest import Command, catalog_text, node
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

# Lines of a password file or a k_g file, and its mode; None: a folder in its place.
SECRETS = [("", 0o600), ("x" * 60, 0o600), ("x", 0o644), (None, 0o700)]
KEYS = ["0x1", "x" * 21]

CATALOGS = {
    "catalog_syntax": catalog_text().replace("</bmci2cmsg>", "<"),
    "catalog_generic_missing": catalog_text().replace('"GENERIC_QUV"', '"other"'),
}


def with_profile(command, name):
    nodes, keys = PROFILES[name]
    return command.run_json(*nodes, **keys)[1]


def with_settings(command, settings):
    command.profile(node(data=[0], answers_device_id=False))
    config = command.write("platform.toml", settings)
    return command("--config", config, "run", "--json").json()


def with_secret(command, key, line, mode):
    path = command.folder / "secret"
    if line is None:
        path.mkdir()
    else:
        path.write_text(line + "\n")
    os.chmod(path, mode)
    return with_settings(command, f'{RIGHT}{LAN}{key} = "secret"\n')


def with_catalog(command, text):
    command.write_catalog(text)
    return command.run_json(PASSES)[1]


def without_catalog(command, is_folder):
    path = command.root / "bmci2c" / "bmci2c.msg.xml"
    path.unlink()
    if is_folder:
        path.mkdir()
    return command.run_json(PASSES)[1]


# Each gives a run's JSON object; its name begins with the code of a trouble in it.
RUNS = (
    {f"{name} (profile)": partial(with_profile, name=name) for name in PROFILES}
    | {f"{name} (settings)": partial(with_settings, settings=SETTINGS[name]) for name in SETTINGS}
    | {f"{name} (catalog)": partial(with_catalog, text=CATALOGS[name]) for name in CATALOGS}
    | {
        f"{key} {number}": partial(with_secret, key=key, line=line, mode=mode)
        for key in ("password_file", "k_g_file")
        for number, (line, mode) in enumerate(SECRETS)
    }
    | {
        f"k_g_file with {line}": partial(with_secret, key="k_g_file", line=line, mode=0o600)
        for line in KEYS
    }
    | {
        f"{key} (none)": partial(with_settings, settings=f'{RIGHT}{LAN}{key} = "absent"\n')
        for key in ("password_file", "k_g_file")
    }
    | {
        "catalog_missing": partial(without_catalog, is_folder=False),
        "catalog_unreadable": partial(without_catalog, is_folder=True),
    }
)


@pytest.fixture(scope="module")
def results(tmp_path_factory):
    """The runs' objects by their names."""
    with ThreadPoolExecutor() as pool:
        futures = {
            name: pool.submit(run, Command(tmp_path_factory.mktemp("run")))
            for name, run in RUNS.items()
        }
    return {name: future.result() for name, future in futures.items()}


@pytest.mark.parametrize("name", RUNS)
def test_trouble_of_a_run_is_listed(results, name):
    assert name.split()[0] in {row.code for row in rows_of(results[name])}


def test_every_row_is_what_a_run_or_the_sources_say(texts, results):
    told = set().union(*(rows_of(result) for result in results.values()))
    assert len(told) > 30
    unknown = [
        row for row in ROWS if row not in told and not all(part in texts for part in row.parts)
    ]
    assert unknown == []


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
