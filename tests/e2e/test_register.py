"""Registration with CIM servers, whose programs are stand-ins that keep a record of their calls.

The command changes something only for root: a test that needs root runs it in a user namespace of
its own, and so does one that must not be root.
"""

import json
import os
import pathlib
import subprocess

import pytest
from conftest import Command, Result

MODULE = "QUVSG_BMCI2C_DiagnosticService_Module"
SFCB = ("sfcbstage", "sfcbunstage", "sfcbrepos")
PEGASUS = ("cimprovider", "cimmof", "cimcli")
PUBLISHED = ", for a namespace that holds the published CIM classes."
OWN = ", with the base classes, for a namespace that holds none."

TOOL = """#!/usr/bin/python3
import json, os, sys
folder = {folder!r}
name = os.path.basename(sys.argv[0])
with open(os.path.join(folder, "calls"), "a") as calls:
    calls.write(json.dumps([name, *sys.argv[1:]]) + "\\n")
plan = json.load(open(os.path.join(folder, "plan.json")))
words = [name, *sys.argv[1:]]
code, output = plan.get(" ".join(words), plan.get(" ".join(words[:2]), plan.get(name, [0, ""])))
sys.stdout.write(output[: len(output) // 2])
sys.stdout.flush()
sys.stderr.write(output[len(output) // 2 :])
sys.exit(code)
"""


def namespaces_work():
    probe = ["unshare", "--user", "--map-root-user", "true"]
    return subprocess.run(probe, capture_output=True, check=False).returncode == 0


class Servers:
    """The command, and a PATH with programs of servers."""

    def __init__(self, folder):
        self.command = Command(folder)
        self.tools = folder / "tools"
        self.tools.mkdir()
        self.plan = {}
        self.hold("root/PG_InterOp", "PG_ProviderModule", "PG_Provider")
        self.hold("root/QUVSD")
        schema = pathlib.Path(os.environ["BMCI2C_BUILD_SHARE"]) / "bmci2c" / "schema"
        self.schema = {path.name: str(path) for path in schema.iterdir()}

    def install(self, *names):
        for name in names:
            path = self.tools / name
            path.write_text(TOOL.format(folder=str(self.tools)))
            path.chmod(0o755)

    def answer(self, call, code=0, output=""):
        self.plan[call] = [code, output]

    def hold(self, namespace, *classes):
        """Makes the classes that an OpenPegasus has in a namespace."""
        self.answer(" ".join(classes_in(namespace)), output="".join(f"{name}\n" for name in classes))

    def call(self, *arguments, root=True):
        (self.tools / "plan.json").write_text(json.dumps(self.plan))
        become = [] if os.geteuid() == 0 else ["unshare", "--user", "--map-root-user"]
        if not root:
            become = ["unshare", "--user"] if os.geteuid() == 0 else []
        done = subprocess.run(
            [*become, self.command.program, *arguments],
            env={**self.command.environment, "PATH": f"{self.tools}:/usr/bin:/bin"},
            stdin=subprocess.DEVNULL,
            capture_output=True,
            text=True,
            timeout=100,
            check=False,
        )
        return Result(done.returncode, done.stdout, done.stderr)

    def calls(self):
        record = self.tools / "calls"
        lines = record.read_text().splitlines() if record.exists() else []
        return [json.loads(line) for line in lines]


@pytest.fixture
def servers(tmp_path):
    if not namespaces_work():
        pytest.skip("user namespaces are not allowed here")
    return Servers(tmp_path)


def sfcb_calls(servers):
    return [
        ["sfcbstage", "-n", "root/quvsd", "-r", servers.schema["bmci2c.reg"],
         servers.schema["bmci2c-published.mof"]],
        ["sfcbrepos", "-f"],
    ]  # fmt: skip


def classes_in(namespace):
    return ["cimcli", "nc", "-di", "-n", namespace]


def pegasus_calls(servers, mof="bmci2c.mof", interop="root/PG_InterOp"):
    return [
        classes_in(interop),
        classes_in("root/QUVSD"),
        ["cimprovider", "-l"],
        ["cimmof", "-n", "root/QUVSD", servers.schema[mof]],
        ["cimmof", "-n", interop, servers.schema["bmci2c-pegasus.mof"]],
    ]


REMOVAL = [["cimprovider", "-d", "-m", MODULE], ["cimprovider", "-r", "-m", MODULE]]


def test_sfcb_gets_the_classes_for_published_bases_and_the_registrations(servers):
    servers.install(*SFCB)
    result = servers.call("register", "sfcb")
    assert (result.code, result.err) == (0, "")
    assert servers.calls() == sfcb_calls(servers)
    lines = result.out.splitlines()
    assert lines[0] == "Classes: " + servers.schema["bmci2c-published.mof"] + PUBLISHED
    assert lines[2] == "Running: sfcbrepos -f"
    assert lines[3] == "Registered 23 classes in root/QUVSD."
    assert lines[4].startswith("Next: make sure that providerDirs in sfcb.cfg names /")
    assert lines[4].endswith(", and restart sfcb.")


def test_sfcb_can_be_registered_twice(servers):
    servers.install(*SFCB)
    first, second = servers.call("register", "sfcb"), servers.call("register", "sfcb")
    assert (second.code, second.out) == (0, first.out)
    assert servers.calls() == 2 * sfcb_calls(servers)


def test_sfcb_is_unregistered_by_the_names_that_were_staged(servers):
    servers.install(*SFCB)
    result = servers.call("unregister", "sfcb")
    assert (result.code, result.err) == (0, "")
    assert servers.calls() == [
        ["sfcbunstage", "-n", "root/quvsd", "-r", "bmci2c.reg", "bmci2c-published.mof"],
        ["sfcbrepos", "-f"],
    ]
    assert result.out.splitlines()[2:] == [
        "The module is no longer registered with sfcb.",
        "Next: restart sfcb. The module's folder stays in providerDirs of sfcb.cfg.",
    ]


def test_sfcb_gets_one_stanza_per_class_that_is_never_unloaded(servers):
    registrations = pathlib.Path(servers.schema["bmci2c.reg"]).read_text()
    stanzas = registrations.split("\n\n")
    assert len(stanzas) == 23
    assert all("unload: never" in stanza and "location: bmci2c.cmpi\n" in stanza
               for stanza in stanzas)  # fmt: skip


def test_pegasus_gets_the_classes_with_their_bases_and_the_capabilities(servers):
    servers.install(*PEGASUS)
    result = servers.call("register", "pegasus")
    assert (result.code, result.err) == (0, "")
    assert servers.calls() == pegasus_calls(servers)
    lines = result.out.splitlines()
    assert lines[0] == "Classes: " + servers.schema["bmci2c.mof"] + OWN
    assert "Registered 23 classes in root/QUVSD." in lines
    folder = lines[-1].split()[2]
    assert folder.startswith("/")
    assert f"'cimconfig -p -s providerDir=VALUE:{folder}'" in lines[-1]
    assert lines[-1].endswith(" Then restart the server: 'cimserver -s', 'cimserver'.")


def test_pegasus_that_knows_the_module_forgets_it_first(servers):
    servers.install(*PEGASUS)
    servers.answer("cimprovider -l", output=f"OtherModule\n{MODULE}\n")
    assert servers.call("register", "pegasus").code == 0
    *looks, mof, registrations = pegasus_calls(servers)
    assert servers.calls() == [*looks, *REMOVAL, mof, registrations]


def test_pegasus_with_a_module_of_a_similar_name_forgets_nothing(servers):
    servers.install(*PEGASUS)
    servers.answer("cimprovider -l", output=f"{MODULE}2\n")
    assert servers.call("register", "pegasus").code == 0
    assert servers.calls() == pegasus_calls(servers)


def test_pegasus_module_that_is_disabled_already_is_removed(servers):
    servers.install(*PEGASUS)
    servers.answer("cimprovider -l", output=f"{MODULE}\n")
    servers.answer("cimprovider -d", 1, "The module is disabled already.\n")
    assert servers.call("unregister", "pegasus").code == 0
    assert servers.calls() == [["cimprovider", "-l"], *REMOVAL]


def test_pegasus_can_be_unregistered_twice(servers):
    servers.install(*PEGASUS)
    result = servers.call("unregister", "pegasus")
    assert result.code == 0
    assert servers.calls() == [["cimprovider", "-l"]]
    assert "The module is no longer registered with OpenPegasus." in result.out


@pytest.mark.parametrize("option", [[], ["--interop", "root/interop"]], ids=["default", "given"])
def test_wrong_namespace_of_registrations_is_found_before_anything_is_changed(servers, option):
    servers.install(*PEGASUS)
    servers.hold("root/PG_InterOp")
    servers.answer("cimprovider -l", output=f"{MODULE}\n")
    result = servers.call("register", "pegasus", *option)
    interop = option[-1] if option else "root/PG_InterOp"
    assert result.code == 3
    assert servers.calls() == [classes_in(interop)]
    assert result.err == (
        f"bmci2c: The namespace '{interop}' does not hold OpenPegasus's registrations: it has no class "
        "PG_ProviderModule. Start the server if it does not run. Otherwise name the right namespace, such "
        "as --interop root/interop or --interop root/PG_InterOp.\n"
    )


def test_published_classes_that_are_there_already_are_not_mixed_with_the_modules(servers):
    servers.install(*PEGASUS)
    servers.hold("root/QUVSD", "CIM_ManagedElement", "CIM_System", "CIM_ComputerSystem")
    result = servers.call("register", "pegasus")
    assert result.code == 3
    assert servers.calls() == pegasus_calls(servers)[:2]
    assert result.err == (
        "bmci2c: The namespace 'root/QUVSD' holds the published CIM classes, with which the module's base "
        "classes would mix. Register with --published-classes.\n"
    )


def test_classes_of_an_earlier_registration_are_not_the_published_ones(servers):
    servers.install(*PEGASUS)
    servers.hold("root/QUVSD", "CIM_ManagedElement", "CIM_Job", "QUVSG_BMCI2C_ConcreteJob")
    assert servers.call("register", "pegasus").code == 0


def test_published_classes_that_are_not_there_are_told(servers):
    servers.install(*PEGASUS)
    servers.hold("root/QUVSD", "CIM_ManagedElement")
    result = servers.call("register", "pegasus", "--published-classes")
    assert result.code == 3
    assert servers.calls() == pegasus_calls(servers)[:2]
    assert result.err == (
        "bmci2c: The namespace 'root/QUVSD' does not hold the published CIM classes. Load them first, or "
        "leave out --published-classes.\n"
    )


def test_pegasus_with_published_classes_gets_no_base_class(servers):
    servers.install(*PEGASUS)
    servers.hold("root/QUVSD", "CIM_System")
    servers.hold("root/interop", "PG_ProviderModule")
    result = servers.call("register", "pegasus", "--published-classes", "--interop", "root/interop")
    assert result.code == 0
    assert servers.calls() == pegasus_calls(servers, "bmci2c-published.mof", "root/interop")
    assert PUBLISHED in result.out


@pytest.mark.parametrize("action", ["register", "unregister"])
@pytest.mark.parametrize("server", ["sfcb", "pegasus"])
def test_dry_run_prints_the_commands_and_runs_none(servers, action, server):
    servers.install(*SFCB, *PEGASUS)
    result = servers.call(action, server, "--dry-run", root=False)
    assert (result.code, result.err) == (0, "")
    assert servers.calls() == []
    assert "Would run: " in result.out
    assert "Running: " not in result.out


def test_dry_run_says_which_commands_depend_on_the_servers_answer(servers):
    removal = [
        "Would run: cimprovider -l",
        f"Would run, if that lists {MODULE}: cimprovider -d -m {MODULE}",
        f"Would run, if that lists {MODULE}: cimprovider -r -m {MODULE}",
    ]
    assert servers.call("unregister", "pegasus", "--dry-run").out.splitlines() == removal
    lines = servers.call("register", "pegasus", "--dry-run").out.splitlines()
    looks = [f"Would run: {' '.join(classes_in(name))}" for name in ("root/PG_InterOp", "root/QUVSD")]
    assert lines[1:6] == looks + removal
    assert [line.split(" -n")[0] for line in lines[6:]] == 2 * ["Would run: cimmof"]


def test_registration_as_json_tells_what_was_done(servers):
    servers.install(*SFCB)
    result = servers.call("register", "sfcb", "--json")
    assert (result.code, result.err) == (0, "")
    outcome = result.json()
    note = outcome.pop("note")
    assert note.startswith("Next: make sure that providerDirs in sfcb.cfg names /")
    assert outcome == {
        "format_version": 1,
        "action": "register",
        "server": "sfcb",
        "dry_run": False,
        "files": {
            "mof": servers.schema["bmci2c-published.mof"],
            "registrations": servers.schema["bmci2c.reg"],
        },
        "steps": [{"command": call, "condition": None} for call in servers.calls()],
    }
    assert servers.calls() == sfcb_calls(servers)


def test_dry_run_as_json_tells_what_would_be_done(servers):
    result = servers.call("unregister", "pegasus", "--dry-run", "--json", root=False)
    assert (result.code, result.err) == (0, "")
    outcome = result.json()
    assert (outcome["action"], outcome["server"]) == ("unregister", "pegasus")
    assert outcome["dry_run"] is True
    listing = [{"command": ["cimprovider", "-l"], "condition": None}]
    removal = [{"command": call, "condition": MODULE} for call in REMOVAL]
    assert outcome["steps"] == listing + removal
    assert outcome["note"] == (
        "Its classes stay in root/QUVSD, without a provider. The module's folder stays in the server's "
        "option providerDir."
    )


def test_module_that_was_registered_before_is_no_condition_afterwards(servers):
    servers.install(*PEGASUS)
    servers.answer("cimprovider -l", output=f"{MODULE}\n")
    steps = servers.call("unregister", "pegasus", "--json").json()["steps"]
    assert [step["command"] for step in steps] == servers.calls()
    assert {step["condition"] for step in steps} == {None}


def test_registration_that_fails_is_an_object_with_json(servers):
    result = servers.call("register", "sfcb", "--json")
    assert result.code == 3
    error = result.json()["error"]
    assert error["text"] == "The program 'sfcbstage' of sfcb is in no folder of PATH."
    assert result.err == f"bmci2c: {error['text']} {error['advice']}\n"


@pytest.mark.parametrize(
    "server, program, package",
    [("sfcb", "sfcbstage", "sfcb (sblim-sfcb elsewhere)"),
     ("pegasus", "cimprovider", "tog-pegasus")],
    ids=["sfcb", "pegasus"],
)  # fmt: skip
def test_missing_program_is_named_with_its_package(servers, server, program, package):
    result = servers.call("register", server)
    assert (result.code, result.out) == (3, "")
    assert f"bmci2c: The program '{program}' of " in result.err
    assert f"is in no folder of PATH. Install the package {package}, or " in result.err


def test_nothing_is_run_when_a_later_program_is_missing(servers):
    servers.install("sfcbstage", "sfcbunstage")
    result = servers.call("register", "sfcb")
    assert result.code == 3
    assert "'sfcbrepos'" in result.err
    assert servers.calls() == []


def test_user_who_is_not_root_changes_nothing(servers):
    servers.install(*SFCB)
    result = servers.call("register", "sfcb", root=False)
    assert (result.code, result.out) == (3, "")
    assert result.err == (
        "bmci2c: Only root may change what sfcb provides. Use sudo, or --dry-run to see what would be "
        "done.\n"
    )
    assert servers.calls() == []


def test_program_that_fails_ends_the_registration_with_its_output(servers):
    servers.install(*SFCB)
    servers.answer("sfcbstage", 7, "No such namespace.\nAsk your administrator.\n")
    result = servers.call("register", "sfcb")
    assert result.code == 3
    assert servers.calls() == sfcb_calls(servers)[:1]
    assert "sfcbstage -n root/quvsd" in result.err
    assert result.err.endswith(
        "failed with exit code 7. It printed:\nNo such namespace.\nAsk your administrator.\n"
    )
    assert "Registered" not in result.out


def test_unknown_server_is_wrong_usage(servers):
    result = servers.call("register", "apache")
    assert (result.code, result.out) == (64, "")
    assert "SERVER must be sfcb or pegasus, not 'apache'." in result.err


@pytest.mark.parametrize("option", [["--interop", "root/interop"], ["--published-classes"]])
def test_options_of_openpegasus_are_refused_for_sfcb(servers, option):
    servers.install(*SFCB)
    result = servers.call("register", "sfcb", *option)
    assert (result.code, result.out) == (64, "")
    assert result.err == (
        "bmci2c: --interop and --published-classes are for OpenPegasus only. Leave them out for "
        "sfcb.\n"
    )
    assert servers.calls() == []


def test_missing_schema_file_is_named(servers):
    servers.install(*SFCB)
    servers.command.environment["BMCI2C_SCHEMA"] = "/nowhere"
    result = servers.call("register", "sfcb")
    assert result.code == 3
    assert result.err == (
        "bmci2c: The file '/nowhere/bmci2c-published.mof' does not exist. Install the package "
        "again.\n"
    )


def test_arguments_with_blanks_and_dollars_reach_the_program_as_they_are(servers, tmp_path):
    schema = tmp_path / "a $(touch evil) b"
    schema.mkdir()
    for name, path in servers.schema.items():
        (schema / name).symlink_to(path)
    servers.install(*SFCB)
    servers.command.environment["BMCI2C_SCHEMA"] = str(schema)
    assert servers.call("register", "sfcb").code == 0
    assert servers.calls()[0][-1] == str(schema / "bmci2c-published.mof")
    assert not pathlib.Path("evil").exists()
