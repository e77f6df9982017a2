"""The shells' completion, and what the command offers them."""

import pathlib
import re
import shlex
import shutil
import subprocess

import pytest
from conftest import SERVICE

COMPLETION = pathlib.Path(__file__).resolve().parents[2] / "packaging" / "completion"
METHODS = ["RequestStateChange", "StartService", "StopService", "RunDiagnostic"]
OPTION = re.compile(r"^  (?:-\w,)?(--[a-z-]+)", re.MULTILINE)

BASH = """
source {folder}/bmci2c
COMP_WORDS=({words})
COMP_CWORD=$((${{#COMP_WORDS[@]}} - 1))
_bmci2c
printf '%s\\n' "${{COMPREPLY[@]}}"
"""

# _describe, _files and compset work only while a line is being typed.
ZSH = """
fpath=({folder})
_describe() {{ print -rl -- "${{(@)${{(P)2}}%%:*}}" }}
_files() {{ if [[ ${{1-}} == -/ ]]; then print -rl -- *(/); else print -rl -- *(.); fi }}
compset() {{ true }}
autoload -Uz _bmci2c
words=({words})
CURRENT=${{#words}}
_bmci2c
"""

FISH = """
source {folder}/bmci2c.fish
complete -C (string join ' ' -- {words}) | string replace -r '\\t.*' ''
"""


def run(arguments, bmci2c, **environment):
    done = subprocess.run(
        arguments,
        env={**bmci2c.environment, "PATH": "/usr/bin:/bin", "HOME": "/nowhere", **environment},
        cwd=bmci2c.folder,
        stdin=subprocess.DEVNULL,
        capture_output=True,
        text=True,
        timeout=100,
        check=False,
    )
    assert done.stderr == ""
    return done.stdout.split()


def in_bash(bmci2c, words):
    # As bash parts them.
    parted = [part for word in words for part in (re.split("(=)", word) if "=" in word else [word])]
    script = BASH.format(folder=COMPLETION, words=shlex.join(parted))
    offered = run(["bash", "--norc", "-c", script], bmci2c)
    return [word for word in offered if word.startswith(parted[-1] if parted[-1] != "=" else "")]


def in_zsh(bmci2c, words):
    script = ZSH.format(folder=COMPLETION, words=shlex.join(words))
    offered = run(["zsh", "-f", "-c", script], bmci2c)
    return [word for word in offered if word.startswith(words[-1])]


def in_fish(bmci2c, words):
    # The last word is being typed, so it has no quotes.
    line = " ".join(shlex.quote(word) for word in [*map(shlex.quote, words[:-1]), words[-1]])
    script = FISH.format(folder=COMPLETION, words=line)
    home = str(bmci2c.folder / "home")
    return run(["fish", "--no-config", "-c", script], bmci2c, HOME=home)


SHELLS = {"bash": in_bash, "zsh": in_zsh, "fish": in_fish}


@pytest.fixture(params=SHELLS)
def shell(request):
    if shutil.which(request.param, path="/usr/bin:/bin") is None:
        pytest.skip(f"{request.param} is not installed")
    return request.param


@pytest.fixture
def complete(bmci2c, shell):
    """What the shell offers for these words, of which the last is being typed."""
    return lambda *words: SHELLS[shell](bmci2c, [bmci2c.program, *words])


def commands(bmci2c):
    listing = bmci2c.bare("--help").out.split("Commands:\n")[1].split("\n\n")[0]
    return re.findall(r"^  ([a-z-]+)", listing, re.MULTILINE)


def test_every_command_is_offered(bmci2c, complete):
    assert sorted(complete("")) == sorted(commands(bmci2c))
    assert sorted(complete("help", "")) == sorted(commands(bmci2c))


def test_word_that_is_begun_is_completed(complete):
    assert complete("unr") == ["unregister"]


def test_options_of_the_program_are_offered(bmci2c, complete):
    assert sorted(complete("--")) == sorted(OPTION.findall(bmci2c.bare("--help").out))


@pytest.mark.parametrize("command", ["run", "enumerate", "invoke", "register", "serve", "doctor"])
def test_options_of_the_command_are_offered(bmci2c, complete, command):
    own = OPTION.findall(bmci2c.bare(command, "--help").out)
    assert set(own) <= set(complete(command, "--"))
    assert "--simulate" in complete(command, "--")


def test_option_that_is_begun_is_completed(complete):
    assert complete("--simulate", "x", "enumerate", "--a") == ["--after-runs"]


def test_classes_are_offered(complete):
    for command in ("enumerate", "names", "invoke"):
        assert len(complete(command, "")) == 23
    assert complete("enumerate", "QUVSG_BMCI2C_He") == ["QUVSG_BMCI2C_HelpService"]


def test_methods_of_the_class_are_offered(complete):
    assert sorted(complete("invoke", SERVICE, "")) == sorted(METHODS)
    assert complete("invoke", "--json", SERVICE.lower(), "--in", "A=b", "Run") == ["RunDiagnostic"]
    assert "GetHelp" in complete("invoke", "QUVSG_BMCI2C_HelpService", "")
    assert complete("invoke", "No_Such_Class", "") == []


def test_properties_of_the_class_are_offered(complete):
    assert complete("enumerate", SERVICE, "--property", "Na") == ["Name"]


def test_nothing_is_offered_where_nothing_fits(complete):
    assert complete("run", "") == []
    assert complete("nonsense", "") == []
    assert complete("invoke", SERVICE, "RunDiagnostic", "") == []
    assert complete("enumerate", SERVICE, "--times", "") == []


def test_servers_are_offered(complete):
    assert sorted(complete("register", "")) == ["pegasus", "sfcb"]
    assert complete("unregister", "--dry-run", "s") == ["sfcb"]


def test_values_of_an_option_are_offered(complete, shell):
    assert sorted(complete("--color", "")) == ["always", "auto", "never"]
    prefix = "" if shell == "bash" else "--color="  # bash completes the part after the "="
    assert complete("info", "--color=al") == [prefix + "always"]


@pytest.mark.parametrize(
    "words",
    [["--config"], ["--simulate"], ["run", "--module"], ["serve", "--key"], ["passwd"]],
    ids=" ".join,
)
def test_files_are_offered_where_one_is_asked_for(bmci2c, complete, words):
    bmci2c.write("settings.toml", "")
    assert complete(*words, "sett") == ["settings.toml"]


def test_folders_are_offered_where_one_is_asked_for(bmci2c, complete):
    bmci2c.write("settings.toml", "")
    (bmci2c.folder / "settings").mkdir()
    assert [word.rstrip("/") for word in complete("--root", "sett")] == ["settings"]


# zsh's compset, which has a stand-in here, takes the option away.
@pytest.mark.parametrize("shell", ["bash", "fish"], indirect=True)
def test_file_in_the_options_word_is_offered(bmci2c, complete, shell):
    bmci2c.write("settings.toml", "")
    prefix = "" if shell == "bash" else "--config="
    assert complete("--config=sett") == [prefix + "settings.toml"]


def test_broken_settings_do_not_matter(bmci2c, complete):
    bmci2c.environment["BMCI2C_CONFIG"] = "/nowhere/platform.toml"
    bmci2c.environment["BMCI2C_SIMULATE"] = "/nowhere/profile.toml"
    assert len(complete("names", "")) == 23


def test_missing_schema_offers_nothing(bmci2c, complete):
    bmci2c.environment["BMCI2C_SCHEMA"] = "/nowhere"
    assert complete("names", "") == []
    assert complete("invoke", SERVICE, "") == []


def test_module_is_not_loaded(bmci2c):
    """It could reach a controller."""
    debug = {"LD_DEBUG": "files", "LD_DEBUG_OUTPUT": str(bmci2c.folder / "loaded")}
    result = bmci2c.bare("complete", "invoke", SERVICE, "", env=debug)
    assert (result.code, result.err) == (0, "")
    loaded = "".join(path.read_text() for path in bmci2c.folder.glob("loaded.*"))
    assert "libc.so" in loaded and "cmpi" not in loaded


def test_completion_is_not_among_the_commands(bmci2c):
    assert "complete" not in commands(bmci2c)
    assert "Did you mean" not in bmci2c.bare("complet").err
