"""Help, version and wrong usage."""

import pathlib
import re

import pytest
from conftest import SERVICE, node

CHANGELOG = pathlib.Path(__file__).parents[2] / "packaging/debian/changelog"

COMMANDS = [
    "run",
    "enumerate",
    "names",
    "invoke",
    "info",
    "register",
    "unregister",
    "doctor",
    "serve",
    "passwd",
    "catalog",
    "help",
]
LISTED = ", ".join(COMMANDS[:-1]) + " and " + COMMANDS[-1]


def refused(text, command=""):
    """What is told of a wrong line, and where its help is."""
    return text, f"See 'bmci2c{command and ' ' + command} --help'."


WRONG_LINES = {
    "": refused(f"A command is missing. The commands are {LISTED}."),
    "--root /nowhere": refused(f"A command is missing. The commands are {LISTED}."),
    "bogus": refused(f"Unknown command 'bogus'. The commands are {LISTED}."),
    "runn": refused("Unknown command 'runn'. Did you mean 'run'?"),
    "docter": refused("Unknown command 'docter'. Did you mean 'doctor'?"),
    "help runn": refused("Unknown command 'runn'. Did you mean 'run'?"),
    "--nonsense run": refused("Unknown option '--nonsense'.", "run"),
    "run --nonsense": refused("Unknown option '--nonsense'.", "run"),
    "run --jsno": refused("Unknown option '--jsno'. Did you mean '--json'?", "run"),
    "run --jsno=1": refused("Unknown option '--jsno'. Did you mean '--json'?", "run"),
    "--simulat x": refused("Unknown option '--simulat'. Did you mean '--simulate'?"),
    "run --simulat x": refused("Unknown option '--simulat'. Did you mean '--simulate'?", "run"),
    "-x": refused("Unknown option '-x'."),
    "--times 2 enumerate X": refused(
        "--times must follow the command: bmci2c enumerate --times.", "enumerate"
    ),
    "--config": refused("--config needs a value: --config FILE."),
    "run --root": refused("--root needs a value: --root DIR.", "run"),
    "enumerate X --times": refused("--times needs a value: --times N.", "enumerate"),
    "--simulate a --simulate b run": refused("--simulate may be given only once.", "run"),
    "enumerate X --times 1 --times 2": refused("--times may be given only once.", "enumerate"),
    "run --help --json=yes": refused("--json takes no value.", "run"),
    "run nonsense": refused("Unexpected argument 'nonsense': 'bmci2c run' takes none.", "run"),
    "run info": refused("Unexpected argument 'info': 'bmci2c run' takes none.", "run"),
    "names X more": refused("Unexpected argument 'more': 'bmci2c names' takes only CLASS.", "names"),
    "passwd a b c": refused(
        "Unexpected argument 'c': 'bmci2c passwd' takes only FILE and USER.", "passwd"
    ),
    "enumerate": refused("The argument CLASS is missing.", "enumerate"),
    "names": refused("The argument CLASS is missing.", "names"),
    "invoke X": refused("The argument METHOD is missing.", "invoke"),
    "register apache": refused("SERVER must be sfcb or pegasus, not 'apache'.", "register"),
    "enumerate X --times 0": refused(
        "--times must be a whole number of at least 1, not '0'.", "enumerate"
    ),
    "enumerate X --times 1x": refused(
        "--times must be a whole number of at least 1, not '1x'.", "enumerate"
    ),
    "enumerate X --times 99999999999999999999": refused(
        "--times must be a whole number of at least 1, not '99999999999999999999'.", "enumerate"
    ),
    "enumerate X --after-runs -1": refused(
        "--after-runs must be a whole number of at least 0, not '-1'.", "enumerate"
    ),
    "--color red info": refused("--color must be auto, always or never, not 'red'.", "info"),
    "--color": refused("--color needs a value: --color auto|always|never."),
    "serve --max-depth 1001": refused(
        "--max-depth must be a whole number from 1 to 1000, not '1001'.", "serve"
    ),
    "serve --idle-time x": refused(
        "--idle-time must be a whole number from 1 to 86400, not 'x'.", "serve"
    ),
}


@pytest.mark.parametrize("line", WRONG_LINES, ids=lambda line: line.replace(" ", "-") or "nothing")
def test_wrong_usage_is_told_with_what_to_do(bmci2c, line):
    text, advice = WRONG_LINES[line]
    result = bmci2c.bare(*line.split())
    assert (result.code, result.err) == (64, f"bmci2c: {text} {advice}\n")
    assert "--json" in line or result.out == ""


def test_option_without_a_name_is_wrong_usage(bmci2c):
    for arguments in (["--root", "", "run"], ["run", "--config", ""]):
        result = bmci2c.bare(*arguments)
        assert (result.code, result.out) == (64, "")
        assert re.match(r"bmci2c: --(root|config) must not be empty\. See ", result.err)


def error_object(text, advice):
    return {"format_version": 1, "verdict": "error", "error": {"text": text, "advice": advice}}


@pytest.mark.parametrize(
    "line",
    [
        "run --json nonsense",
        "--json bogus",
        "--json",
        "enumerate --json",
        "enumerate X --json --times 0",
        "invoke X --json",
        "info --json --nonsense",
        "doctor --json=yes",
        "help runn --json",
    ],
    ids=lambda line: line.replace(" ", "-"),
)
def test_wrong_usage_with_json_is_an_object(bmci2c, line):
    result = bmci2c.bare(*line.split())
    assert result.code == 64
    (text, advice) = re.fullmatch(r"bmci2c: (.*) (See '[^']*'\.)\n", result.err).groups()
    assert result.json() == error_object(text, advice)


def test_json_after_the_end_of_options_is_an_argument(bmci2c):
    result = bmci2c.bare("run", "--", "--json")
    assert (result.code, result.out) == (64, "")


@pytest.mark.parametrize("line", ["info", f"enumerate {SERVICE}", f"invoke {SERVICE} X"])
def test_broken_settings_with_json_are_an_object(bmci2c, line):
    result = bmci2c("--config", "/nowhere/platform.toml", *line.split(), "--json")
    assert result.code == 64
    error = result.json()["error"]
    assert error["text"].startswith("/nowhere/platform.toml: The file cannot be read: ")
    assert error["advice"] != ""
    assert result.json() == error_object(**error)
    assert result.err == f"bmci2c: {error['text']} {error['advice']}\n"


@pytest.mark.parametrize("line", ["info", f"enumerate {SERVICE}", f"invoke {SERVICE} X"])
def test_module_that_cannot_be_loaded_is_an_object_with_json(bmci2c, line):
    result = bmci2c("--module", "/nowhere/module.so", *line.split(), "--json")
    assert result.code == 3
    error = result.json()["error"]
    assert error["text"].startswith("The provider module '/nowhere/module.so' cannot be loaded: ")
    assert error["advice"] == "Run 'bmci2c doctor' to see which files are wrong and what to do."
    assert result.json() == error_object(**error)
    assert result.err == f"bmci2c: {error['text']} {error['advice']}\n"


def test_call_that_fails_is_an_object_with_json(bmci2c):
    result = bmci2c("enumerate", "No_Such_Class", "--json")
    assert result.code == 3
    assert result.json()["verdict"] == "error"
    assert "CIM status 5, invalid class: " in result.json()["error"]["text"]


def test_help_lists_the_commands(bmci2c):
    result = bmci2c.bare("--help")
    assert (result.code, result.err) == (0, "")
    commands = result.out.split("\nCommands:\n")[1].split("\n\n")[0]
    assert re.findall(r"^  ([a-z]+)", commands, re.MULTILINE) == COMMANDS
    for option in ("--config", "--module", "--root", "--simulate", "-V,--version", "-h,--help"):
        assert f"\n  {option} " in result.out


@pytest.mark.parametrize("command", COMMANDS)
def test_help_of_a_command_is_the_same_in_both_ways(bmci2c, command):
    result = bmci2c.bare(command, "--help")
    assert (result.code, result.err) == (0, "")
    assert f"\nUsage: bmci2c {command} " in result.out
    assert bmci2c.bare("help", command) == result


def test_help_of_the_program_is_the_same_in_all_ways(bmci2c):
    result = bmci2c.bare("--help")
    assert bmci2c.bare("help") == bmci2c.bare("-h") == result


@pytest.mark.parametrize("option", ["--version", "-V"])
def test_version_is_that_of_the_package(bmci2c, option):
    newest = CHANGELOG.read_text().splitlines()[0]
    version = re.fullmatch(r"bmci2c \(([0-9.]+)\) .*", newest)[1]
    result = bmci2c.bare(option)
    assert result.code == 0
    assert result.out == f"bmci2c {version}\n"


def test_help_needs_no_settings(bmci2c):
    for arguments in (["run", "--help"], ["help", "run"]):
        assert bmci2c.bare("--config", "/nowhere.toml", *arguments).code == 0


def test_options_of_the_program_may_stand_behind_the_command(bmci2c):
    profile = bmci2c.profile(node(data=[0]))
    result = bmci2c.bare("run", "--json", "--simulate", profile, "--root", str(bmci2c.root))
    assert result.code == 0


def test_relative_paths_start_at_the_working_directory(bmci2c, monkeypatch):
    bmci2c.profile(node(data=[0]))
    monkeypatch.chdir(bmci2c.folder)
    result = bmci2c.bare("--root", "root", "--simulate", "profile.toml", "run", "--json")
    assert result.code == 0


@pytest.mark.parametrize("columns", [40, 50, 80, 100])
@pytest.mark.parametrize("command", [[], *([command] for command in COMMANDS)], ids="".join)
def test_help_fits_into_the_terminal(bmci2c, command, columns):
    piped = bmci2c.bare(*command, "--help").out
    assert max(len(line) for line in piped.splitlines()) <= 80
    result = bmci2c.on_terminal(*command, "--help", columns=columns)
    assert max(len(line) for line in result.out.splitlines()) <= columns
    assert result.out.split() == piped.split()  # nothing is lost


def test_narrow_terminal_has_40_columns_at_least(bmci2c):
    assert (
        bmci2c.on_terminal("--help", columns=20).out == bmci2c.on_terminal("--help", columns=40).out
    )


@pytest.mark.parametrize(
    "arguments, environment, coloured",
    [
        ([], {}, True),
        (["--color=auto"], {}, True),
        (["--color", "never"], {}, False),
        ([], {"NO_COLOR": "1"}, False),
        (["--color=auto"], {"NO_COLOR": "1"}, False),
        (["--color=always"], {"NO_COLOR": "1"}, True),
        ([], {"TERM": "dumb"}, False),
        (["--color=always"], {"TERM": "dumb"}, True),
    ],
    ids=lambda one: " ".join(one) if isinstance(one, (list, dict)) else None,
)
def test_colours_on_a_terminal(bmci2c, arguments, environment, coloured):
    profile = bmci2c.profile(node(data=[0]))
    result = bmci2c.on_terminal("--simulate", profile, *arguments, "doctor", env=environment)
    assert ("\033[" in result.out) == coloured


@pytest.mark.parametrize("colour, coloured", [("auto", False), ("always", True), ("never", False)])
def test_colours_in_a_file(bmci2c, colour, coloured):
    profile = bmci2c.profile(node(data=[0]))
    result = bmci2c.simulate(profile, "doctor", f"--color={colour}", env={"NO_COLOR": "1"})
    assert ("\033[" in result.out) == coloured


def test_control_characters_of_a_wrong_line_are_escaped(bmci2c):
    assert "Unknown command '\\x1b[2J'. " in bmci2c.bare("\033[2J").err
    result = bmci2c.bare("--config", "/\033[2J", "info")
    assert "/\\x1b[2J: The file cannot be read" in result.err
    assert "\033" not in result.err
