"""No password is seen anywhere: in what a command prints or logs, and in the list of processes."""

import os
import pathlib
import socket
import subprocess

import pytest
from conftest import RECORD, unwrapped

PASSWORD = "sesame-open"


@pytest.fixture
def controller():
    """A controller that never answers."""
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as server:
        server.bind(("127.0.0.1", 0))
        server.settimeout(100)
        yield server


@pytest.fixture
def config(bmci2c, controller):
    """Settings with that controller, and a log of every line."""
    os.chmod(bmci2c.write("secret", PASSWORD + "\n"), 0o600)
    return bmci2c.write(
        "platform.toml",
        '[machine]\ntype = "7000"\nbios_id = "P7E100A"\n'
        '[log]\nsink = "json:log"\nlevel = 4\n'
        f'[[controller]]\ntransport = "lan"\nhost = "127.0.0.1"\nport = {controller.getsockname()[1]}\n'
        'user = "tester"\npassword_file = "secret"\ntime_limit = 1\n',
    )


@pytest.mark.parametrize(
    "command",
    [
        ["run"],
        ["run", "--json"],
        ["enumerate", RECORD, "--after-runs", "1"],
        ["doctor"],
        ["doctor", "--json"],
    ],
    ids="-".join,
)
def test_command_that_logs_in_shows_no_password(bmci2c, controller, config, command):
    with subprocess.Popen(
        [bmci2c.program, "--root", str(bmci2c.root), "--config", config, *command],
        env=bmci2c.environment,
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
    ) as process:
        controller.recv(1000)  # from here on it has read the password, and waits for an answer
        listed = pathlib.Path(f"/proc/{process.pid}")
        seen = (listed / "cmdline").read_bytes() + (listed / "environ").read_bytes()
        assert config.encode() in seen
        output, _ = process.communicate(timeout=100)
    log = bmci2c.folder / "log"
    told = output + (log.read_bytes() if log.exists() else b"")
    assert b"did not answer within 1 s" in told
    assert PASSWORD.encode() not in seen + told


def test_password_in_the_settings_file_is_an_error_that_does_not_show_it(bmci2c, config):
    with open(config, "a", encoding="utf-8") as file:
        file.write(f'password = "{PASSWORD}"\n')
    for command in ("run", "info", "doctor"):
        result = bmci2c("--config", config, command)
        said = unwrapped(result.out) + result.err
        assert "key 'controller[0].password': found an unknown key, allowed are " in said
        assert PASSWORD not in said
