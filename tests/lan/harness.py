"""Runs the command against peers, each of which is a controller of its settings."""

import importlib
import importlib.util
import os
import pathlib
import sys
from dataclasses import dataclass, field

from rmcp_peer import Peer

MACHINE = '[machine]\ntype = "7000"\nbios_id = "P7E100A"\n[log]\nsink = "file:log"\nlevel = 4\n'


def _load_e2e_conftest():
    """The driver of the command; under another name than this folder's conftest."""
    folder = pathlib.Path(__file__).parent.parent / "e2e"
    sys.path.append(str(folder))
    spec = importlib.util.spec_from_file_location("e2e_conftest", folder / "conftest.py")
    module = importlib.util.module_from_spec(spec)
    sys.modules[spec.name] = module
    spec.loader.exec_module(module)
    return module


e2e = _load_e2e_conftest()
trouble_table = importlib.import_module("trouble_table")  # of the same folder


@dataclass(frozen=True)
class Case:
    """A run against one peer: the peer's options, and keys of its [[controller]]."""

    peer: dict = field(default_factory=dict)
    settings: dict = field(default_factory=dict)

    def run(self, folder):
        with Peer(**{"data": b"\0\0", **self.peer}) as peer:
            return run(folder, [peer], **self.settings)


@dataclass
class Run:
    code: int
    json: dict
    peers: list

    @property
    def verdict(self):
        return self.json["verdict"]

    @property
    def controllers(self):
        return self.json["controllers"]

    @property
    def outcomes(self):
        return [controller["outcome"] for controller in self.controllers]

    @property
    def trouble(self):
        """The one controller's."""
        (controller,) = self.controllers
        return controller["trouble"]

    @property
    def peer(self):
        (peer,) = self.peers
        return peer

    def __str__(self):
        """What a failed test shows."""
        lines = [f"verdict {self.verdict}, exit code {self.code}"]
        for controller, peer in zip(self.controllers, self.peers):
            lines += [str(controller), peer.story()]
        return "\n".join(lines)


def run(folder, peers, password="sesame-open", k_g=None, **keys):
    """The keys are added to each controller; password and k_g are what its files hold."""
    command = e2e.Command(folder)
    config = write_settings(command, peers, password, k_g, **keys)
    result = command("--config", config, "run", "--json")
    assert result.out.startswith("{"), result.err
    outcome = result.json()
    trouble_table.rows_of(outcome)  # every trouble is one of docs/troubleshooting.md
    return Run(result.code, outcome, list(peers))


def write_settings(command, peers, password="sesame-open", k_g=None, **keys):
    """The settings file of such a run; the key oxc is that of all controllers."""
    keys["password_file"] = _write_secret(command, "password", password)
    if k_g is not None:
        keys["k_g_file"] = _write_secret(command, "k_g", k_g)
    settings = MACHINE + "[controllers]\n" + e2e.toml_keys({"oxc": keys.pop("oxc", False)})
    for peer in peers:
        address = {"transport": "lan", "host": "127.0.0.1", "port": peer.port}
        settings += "[[controller]]\n" + e2e.toml_keys({**address, "user": "tester", **keys})
    return command.write("platform.toml", settings)


def _write_secret(command, name, text):
    os.chmod(command.write(name, text + "\n"), 0o600)
    return name


def assert_read(run):
    """Every controller was read, and every bus works."""
    assert (run.verdict, run.code) == ("passed", 0), str(run)
    for controller in run.controllers:
        assert controller["outcome"] == "examined", str(run)
        assert [bus["state"] for bus in controller["busses"]] == ["good"] * 16, str(run)
        assert controller["trouble"] is None, str(run)


def assert_not_delivered(run):
    """The one controller's bus status did not come, and nothing is said of its busses."""
    assert (run.verdict, run.code) == ("not_completed", 2), str(run)
    assert run.outcomes == ["not_delivered"], str(run)
    assert run.controllers[0]["busses"] == [], str(run)
    assert run.trouble["text"], str(run)
    assert run.json["failed"] == [], str(run)
