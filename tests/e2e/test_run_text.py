"""What `run` prints for people."""

import os
import subprocess

from conftest import catalog_text, failed_bus, node, passed
from terminal import Terminal


def text_of(bmci2c, *nodes, **keys):
    return bmci2c.simulate(bmci2c.profile(*nodes, **keys), "run").out


def on_terminal(bmci2c, profile, *options, width=80, **environment):
    """The output of `run` on a terminal."""
    arguments = ["--root", str(bmci2c.root), "--simulate", profile, "run", *options]
    with Terminal([bmci2c.program, *arguments], bmci2c.environment, width, **environment) as run:
        return run.rest()


def test_first_line_is_the_verdict(bmci2c):
    assert text_of(bmci2c, node(data=[0, 0]), node(data=[0, 0])).startswith(
        "PASSED (simulated machine): all 32 busses of 2 controllers are good.\n"
    )
    assert text_of(bmci2c, node(data=[0, 0]), node(data=[4, 0])).startswith(
        "FAILED (simulated machine): 1 bus has failed: bus 2 of node 1.\n"
    )
    assert text_of(bmci2c, node(data=[0]), node(answers=False)).startswith(
        "NOT COMPLETED (simulated machine): node 1 was not examined.\n"
    )


def test_failed_bus_beside_a_dead_controller_is_told_first(bmci2c):
    assert text_of(bmci2c, node(answers=False), node(data=[4])).startswith(
        "FAILED (simulated machine): 1 bus has failed: bus 2 of node 1. Node 0 was not examined.\n"
    )
    assert text_of(bmci2c, node(data=[4]), node(answers=False)).startswith(
        "FAILED (simulated machine): 1 bus has failed: bus 2 of node 0. Node 1 was not examined.\n"
    )


def test_duration_is_shown(bmci2c):
    assert text_of(bmci2c, node(data=[0])).splitlines()[1].startswith("Duration ")


def test_machine_and_controllers_are_shown(bmci2c):
    text = text_of(bmci2c, node(data=[0]), node(data=[0]))
    assert "  Machine type     7000\n  BIOS identifier  P7E100A\n" in text
    assert "\nManagement controllers\n  node 0  simulated\n  node 1  simulated\n" in text


def test_controller_that_is_not_present_is_shown_as_such(bmci2c):
    text = text_of(bmci2c, node(data=[0]), node(present=False))
    assert "\n  Node 1 (simulated): The controller is not present.\n" in text


def test_map_has_a_row_for_each_node_and_a_cell_for_each_bus(bmci2c):
    text = text_of(bmci2c, node(data=[0, 0]), node(data=[4, 0x80]))
    assert (
        "  bus      0  1  2  3  4  5  6  7  8  9 10 11 12 13 14 15\n"
        "  node 0   .  .  .  .  .  .  .  .  .  .  .  .  .  .  .  .\n"
        "  node 1   .  .  X  .  .  .  .  .  .  .  .  .  .  .  .  X\n"
        "\n"
        "  .  good     X  failed\n"
    ) in text


def test_map_of_an_oxc_controller_shows_numbers_without_a_bus(bmci2c):
    text = text_of(bmci2c, node(data=[0xC1, 0]), oxc=True, generation=1)
    assert "  node 0   X  .  .  .  .  .  -  -  .  .  .  .  .  .  .  .\n" in text
    assert "\n  .  good     X  failed     -  no such bus\n" in text
    text = text_of(bmci2c, node(data=[1, 0xFF, 2]), oxc=True, generation=2)
    assert "  node 0   X  .  .  .  .  .  .  .  .  X  .  .  .  .  .  .\n" in text
    assert (
        "  Node 0 (simulated): The second status byte stands for no bus and was not\n"
        "    examined.\n"
    ) in text


def test_map_says_why_a_controller_was_not_examined(bmci2c):
    text = text_of(bmci2c, node(answers=False), node(completion_code=0xC1), node(data=[0]))
    assert "  node 0  not examined: no answer\n" in text
    assert "  node 1  not examined: refused (0xc1)\n" in text
    assert "  node 2  not asked\n" in text


def test_record_is_shown_with_its_recommendations(bmci2c):
    text = text_of(bmci2c, node(data=[0]), node(data=[0] * 7 + [0x80]))
    line = failed_bus(63, 2)
    assert (
        f"  {passed(1)}\n  {line}\n    Recommendations:\n    - standard advice\n"
    ) in text


def test_every_result_line_begins_a_line(bmci2c):
    # In the record that of a silent controller follows the one before without a line break.
    lines = text_of(bmci2c, node(data=[0]), node(answers=False), node(data=[0])).splitlines()
    assert [line[2:13] for line in lines if line.startswith("  166-")] == [
        "166-000-001",
        "166-802-002",
        "166-000-003",
    ]


def test_long_lines_are_wrapped(bmci2c):
    long_text = " ".join(["word"] * 40)
    bmci2c.write_catalog(catalog_text().replace(">text 0<", f">{long_text}<"))
    text = text_of(bmci2c, node(data=[0]))
    assert max(len(line) for line in text.splitlines() if "word" in line) <= 80


def test_trouble_of_a_controller_is_shown_with_its_text(bmci2c):
    text = text_of(bmci2c, node(data=[0]), node(answers=False))
    assert (
        "\nWhat was not examined, and why\n"
        "  Node 1 (simulated): The simulated controller does not answer.\n"
    ) in text


def test_nothing_is_said_when_all_controllers_answer(bmci2c):
    assert "not examined" not in text_of(bmci2c, node(data=[1]))


def test_run_that_ended_early_says_where_and_how_to_go_on(bmci2c):
    text = text_of(bmci2c, node(completion_code=0xC1), node(data=[0]))
    words = " ".join(text.split())
    assert "Node 1 (simulated): The controller was not asked: the run ended at node 0" in words
    assert "bmci2c run --all" in words


def test_run_of_all_controllers_says_where_that_of_a_cim_client_ends(bmci2c):
    profile = bmci2c.profile(node(completion_code=0xC1), node(data=[0]))
    words = " ".join(bmci2c.simulate(profile, "run", "--all").out.split())
    assert "A CIM client's run would have ended at node 0" in words
    assert "--all" not in words


def test_job_of_cim_clients_is_not_shown(bmci2c):
    text = text_of(bmci2c, node(data=[0]))
    assert "BMCI2C_Record:" not in text


def test_next_step_is_shown(bmci2c):
    assert "\nWhat to do next\n  Nothing needs to be done.\n" in text_of(bmci2c, node(data=[0]))
    assert "Follow the recommendations above for each failed bus" in text_of(
        bmci2c, node(data=[0] * 7 + [0x80])
    )


def test_command_for_the_real_machine_is_shown(bmci2c):
    text = text_of(bmci2c, node(data=[0]))
    sudo = "" if os.geteuid() == 0 else "sudo "
    config = bmci2c.environment["BMCI2C_CONFIG"]
    assert text.endswith(
        "\nThe same test on this machine's own controllers\n"
        f"  {sudo}{os.path.realpath(bmci2c.program)} --config {config} --root {bmci2c.root} run\n"
    )


def test_machine_without_controllers_is_explained(bmci2c):
    text = text_of(bmci2c)
    assert text.startswith(
        "NOT COMPLETED (simulated machine): no management controller was found.\n"
    )
    assert "\nWhat the test recorded\n  nothing\n" in text


def test_missing_catalog_is_explained(bmci2c):
    result = bmci2c.bare(
        "--root", "/nowhere", "--simulate", bmci2c.profile(node(data=[0])), "run"
    )
    assert result.code == 2
    assert "there is no usable message catalog" in result.out.splitlines()[0]
    assert "There is no message catalog /nowhere/bmci2c/bmci2c.msg.xml." in result.out


def test_catalog_that_is_wrong_behind_the_machine_is_told_with_its_line(bmci2c):
    bmci2c.write_catalog(catalog_text().replace("</bmci2cmsg>", "</nonsense>"))
    result = bmci2c.simulate(bmci2c.profile(node(data=[0])), "run")
    assert result.code == 0
    assert "bmci2c.msg.xml is wrong in line" in " ".join(result.out.split())


def test_quiet_prints_the_verdict_only(bmci2c):
    result = bmci2c.simulate(bmci2c.profile(node(data=[4])), "run", "--quiet")
    assert (result.code, result.err) == (1, "")
    assert result.out == "FAILED (simulated machine): 1 bus has failed: bus 2 of node 0.\n"


def test_verbose_logs_each_step_to_standard_error(bmci2c):
    profile = bmci2c.profile(node(data=[0]))
    result = bmci2c.simulate(profile, "run", "--verbose")
    assert "BMCI2C: Total number of BMC(s) found = 1" in result.err
    assert result.out.startswith("PASSED")
    # Whatever log somebody chose.
    log = bmci2c.folder / "log.txt"
    chosen = {"BMCI2C_LOG": f"file:{log}", "BMCI2C_LOG_LEVEL": "0"}
    result = bmci2c.simulate(profile, "run", "--verbose", "--quiet", env=chosen)
    assert "BMCI2C: Total number of BMC(s) found = 1" in result.err
    assert not log.exists()


def test_control_characters_of_the_catalog_never_reach_the_terminal(bmci2c):
    bmci2c.write_catalog(catalog_text().replace(">text 0<", ">a&#x9b;2Jb<"))
    out = text_of(bmci2c, node(data=[0]))
    assert "a\\xc2\\x9b2Jb" in out
    assert "\x9b" not in out


def test_control_characters_of_the_machine_are_escaped(bmci2c):
    profile = bmci2c.write(
        "evil.toml", 'machine_type = "7000"\nbios_id = "\\u001b[2J"\n[[node]]\ndata = [0]\n'
    )
    result = bmci2c.simulate(profile, "run")
    assert "  BIOS identifier  \\x1b[2J\n" in result.out
    assert "\033" not in result.out


def test_output_into_a_file_has_no_colour_and_no_progress(bmci2c):
    text = text_of(bmci2c, node(data=[1]), node(data=[0], busy=1))
    assert "\033" not in text
    assert "\r" not in text


def test_failed_bus_is_red_on_a_terminal(bmci2c):
    output = on_terminal(bmci2c, bmci2c.profile(node(data=[1])))
    assert "  node 0   \033[1;31mX\033[0m  ." in output


def test_terminal_with_no_color_has_no_colour(bmci2c):
    output = on_terminal(bmci2c, bmci2c.profile(node(data=[1])), NO_COLOR="1")
    assert "  node 0   X  ." in output
    assert "\033" not in output


def shown(output):
    """The lines that stay on a terminal."""
    return [line.rstrip("\r").rpartition("\r")[2] for line in output.split("\n")]


def test_progress_is_redrawn_in_place_and_erased(bmci2c):
    output = on_terminal(bmci2c, bmci2c.profile(node(data=[0], busy=1), node(data=[0])))
    assert "\rAsking controller 1 of 2, simulated (" in output
    assert "\rBusy: asking controller 1 of 2, simulated, again in 5 s (" in output
    assert "\rBusy: asking controller 1 of 2, simulated, again in 1 s (" in output
    assert "\rAsking controller 2 of 2, simulated (" in output
    lines = shown(output)
    assert "PASSED (simulated machine)" in lines[0]
    assert not any("Asking" in line or "Busy" in line for line in lines)


def test_progress_is_not_shown_where_nobody_wants_it(bmci2c):
    profile = bmci2c.profile(node(data=[0]))
    for options, environment in ((["--json"], {}), (["--quiet"], {}), ([], {"TERM": "dumb"})):
        assert "Asking" not in on_terminal(bmci2c, profile, *options, **environment)


def test_output_that_cannot_be_written_is_an_error(bmci2c):
    with open("/dev/full", "wb") as full:
        done = subprocess.run(
            [bmci2c.program, "--simulate", bmci2c.profile(node(data=[0])), "run"],
            env=bmci2c.environment,
            stdout=full,
            stderr=subprocess.PIPE,
            timeout=100,
            check=False,
        )
    assert done.returncode == 3
    assert b"The standard output cannot be written." in done.stderr
