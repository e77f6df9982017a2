"""What `run` prints for people."""

import os
import pty
import subprocess

from conftest import catalog_text, failed_bus, node, passed


def text_of(bmci2c, *nodes, **keys):
    return bmci2c.simulate(bmci2c.profile(*nodes, **keys), "run").out


def on_terminal(bmci2c, profile, **environment):
    """The output of `run` on a terminal."""
    ours, theirs = pty.openpty()
    with subprocess.Popen(
        [bmci2c.program, "--root", str(bmci2c.root), "--simulate", profile, "run"],
        env={**bmci2c.environment, "TERM": "xterm", **environment},
        stdin=subprocess.DEVNULL,
        stdout=theirs,
    ) as process:
        os.close(theirs)
        output = b""
        try:
            while piece := os.read(ours, 4096):
                output += piece
        except OSError:
            pass  # the other side has closed
        process.wait(timeout=100)
    os.close(ours)
    return output.decode()


def test_first_line_is_the_verdict(bmci2c):
    assert text_of(bmci2c, node(data=[0, 0]), node(data=[0, 0])).startswith(
        "PASSED: all 32 busses of 2 controllers are good.\n"
    )
    assert text_of(bmci2c, node(data=[0, 0]), node(data=[4, 0])).startswith(
        "FAILED: 1 bus has failed: bus 2 of node 1.\n"
    )
    assert text_of(bmci2c, node(data=[0]), node(answers=False)).startswith(
        "NOT COMPLETED: the busses of node 1 could not be examined.\n"
    )


def test_machine_and_controllers_are_shown(bmci2c):
    text = text_of(bmci2c, node(data=[0]), node(data=[0]))
    assert "  Machine type     7000\n  BIOS identifier  P7E100A\n" in text
    assert "\nManagement controllers\n  node 0  simulated\n  node 1  simulated\n" in text


def test_controller_that_is_not_present_is_shown_as_such(bmci2c):
    text = text_of(bmci2c, node(data=[0]), node(present=False))
    assert "\n  node 0  simulated\n  node 1  simulated, not present\n" in text


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
    text = text_of(bmci2c, node(data=[0xC1]), oxc=True, generation=1)
    assert "  node 0   X  .  .  .  .  .  -  -\n" in text
    assert "\n  .  good     X  failed     -  no such bus\n" in text
    text = text_of(bmci2c, node(data=[1, 0xFF, 2]), oxc=True, generation=2)
    assert "  node 0   X  .  .  .  .  .  .  .  .  X  .  .  .  .  .  .\n" in text
    assert "The second status byte of node 0 stands for no bus and was not examined." in text


def test_map_says_why_a_controller_was_not_examined(bmci2c):
    text = text_of(bmci2c, node(answers=False), node(completion_code=0xC1), node(data=[0]))
    assert "  node 0  not reached: its busses were not examined\n" in text
    assert "  node 1  refused (completion code 0xc1): its busses were not examined\n" in text
    assert "  node 2  not asked\n" in text


def test_record_is_shown_with_its_recommendations(bmci2c):
    text = text_of(bmci2c, node(data=[0]), node(data=[0] * 7 + [0x80]))
    assert f"  {passed(1)}\n  {failed_bus(63, 2)}\n" in text
    assert "  Recommendations:\n\n  standard advice\n" in text


def test_long_lines_are_wrapped(bmci2c):
    long_text = " ".join(["word"] * 40)
    bmci2c.write_catalog(catalog_text().replace(">text 0<", f">{long_text}<"))
    text = text_of(bmci2c, node(data=[0]))
    assert max(len(line) for line in text.splitlines() if "word" in line) <= 80


def test_what_the_library_said_is_shown(bmci2c):
    text = text_of(bmci2c, node(data=[0]), node(answers=False))
    said = text[text.index("\nWhat the controllers' library said\n") :]
    assert "  SP: node 1 (simulated): network function 0x3a, command 0x09: " in said


def test_nothing_is_said_when_all_controllers_answer(bmci2c):
    assert "library said" not in text_of(bmci2c, node(data=[1]))


def test_job_is_shown(bmci2c):
    text = text_of(bmci2c, node(data=[0]))
    assert "\nJob\n  InstanceID  BMCI2C_Record:" in text
    assert "\n  State       completed (" in text
    assert "\n  Submitted   20" in text


def test_next_step_is_shown(bmci2c):
    assert "\nWhat to do next\n  Nothing needs to be done.\n" in text_of(bmci2c, node(data=[0]))
    assert "Follow the recommendations above for each failed bus" in text_of(
        bmci2c, node(data=[1])
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
    assert text.startswith("NOT COMPLETED: no management controller was found.\n")
    assert "\n  The run kept no record.\n" in text


def test_missing_catalog_is_explained(bmci2c):
    result = bmci2c.bare(
        "--root", "/nowhere", "--simulate", bmci2c.profile(node(data=[0])), "run"
    )
    assert result.code == 2
    assert "There is no message catalog /nowhere/bmci2c/bmci2c.msg.xml." in result.out


def test_output_into_a_file_has_no_colour(bmci2c):
    assert "\033" not in text_of(bmci2c, node(data=[1]))


def test_failed_bus_is_red_on_a_terminal(bmci2c):
    output = on_terminal(bmci2c, bmci2c.profile(node(data=[1])))
    assert "  node 0   \033[1;31mX\033[0m  ." in output


def test_terminal_with_no_color_has_no_colour(bmci2c):
    output = on_terminal(bmci2c, bmci2c.profile(node(data=[1])), NO_COLOR="1")
    assert "  node 0   X  ." in output
    assert "\033" not in output


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
