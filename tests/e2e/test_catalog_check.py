"""`bmci2c catalog`: mistakes with their places, texts as the test says them, and what changed.

Each file catalog_mistakes/NAME.xml holds one mistake; NAME.txt is what is said of it, one line
"LINE:COLUMN: error|warning: SENTENCE" for each report."""

import json
import os
import re
import textwrap
from pathlib import Path

import pytest
from conftest import catalog_text, node

MISTAKES = sorted((Path(__file__).parent / "catalog_mistakes").glob("*.xml"))
SHIPPED = Path(__file__).parents[2] / "data/bmci2c/bmci2c.msg.xml"


def check(bmci2c, *arguments):
    return bmci2c.bare("catalog", "check", *map(str, arguments))


@pytest.mark.parametrize("catalog", MISTAKES, ids=lambda path: path.stem)
def test_mistake_is_told_with_its_place(bmci2c, catalog):
    said = catalog.with_suffix(".txt").read_text().splitlines()
    result = check(bmci2c, catalog)
    *reports, total = result.out.splitlines()
    assert reports == [f"{catalog}:{line}" for line in said]
    errors = sum(": error: " in line for line in said)
    assert re.fullmatch(rf"{errors} errors?, {len(said) - errors} warnings?", total)
    assert result.code == (2 if errors else 1)


def test_there_are_the_typical_mistakes():
    assert len(MISTAKES) >= 28


def test_shipped_catalog_has_no_mistake(bmci2c):
    result = check(bmci2c, SHIPPED)
    assert (result.code, result.out, result.err) == (0, "0 errors, 0 warnings\n", "")


def test_several_files_are_told_apart(bmci2c):
    result = check(bmci2c, SHIPPED, MISTAKES[0], MISTAKES[1])
    assert {line.split(".xml:")[0] for line in result.out.splitlines()[:-1]} == {
        str(MISTAKES[0].with_suffix("")),
        str(MISTAKES[1].with_suffix("")),
    }


def test_json_holds_the_same(bmci2c):
    catalog = next(path for path in MISTAKES if path.stem == "unknown-qualifier")
    answer = json.loads(check(bmci2c, "--json", catalog).out)
    assert answer["format_version"] == 1
    assert (answer["errors"], answer["warnings"]) == (0, 2)
    (file,) = answer["files"]
    assert file["file"] == str(catalog)
    assert [
        f"{one['line']}:{one['column']}: {one['severity']}: {one['text']}" for one in file["reports"]
    ] == catalog.with_suffix(".txt").read_text().splitlines()


def test_neither_machine_nor_settings_are_needed(bmci2c):
    broken = bmci2c.write("broken.toml", "[")
    result = bmci2c.bare("catalog", "check", str(SHIPPED), env={"BMCI2C_CONFIG": broken})
    assert (result.code, result.out) == (0, "0 errors, 0 warnings\n")


def test_file_that_cannot_be_read_is_named(bmci2c):
    result = check(bmci2c, "/absent.xml")
    assert (result.code, result.err) == (
        64,
        "bmci2c: /absent.xml: The file cannot be read: No such file or directory.\n",
    )


def test_show_prints_the_text_as_the_test_says_it(bmci2c):
    result = bmci2c.bare("catalog", "show", str(SHIPPED), "--machine", "7000", "--message", "901")
    assert result.code == 0
    lines = result.out.splitlines()
    assert lines[0] == "Machine 7000"
    assert lines[2].startswith("166-901-001 BMC I2C Test Failed: ")
    assert lines[-1] == "(text: GENERIC_QUV; recommendations: GENERIC_QUV)"


def shown(bmci2c, *arguments):
    answer = json.loads(bmci2c.bare("catalog", "show", *map(str, arguments), "--json").out)
    return {machine["type"]: machine["messages"] for machine in answer["machines"]}


def test_show_says_what_a_run_says(bmci2c):
    catalog = bmci2c.root / "bmci2c" / "bmci2c.msg.xml"
    message = shown(bmci2c, catalog, "--machine", "7000", "--message", "909")["7000"][0]
    (record,) = bmci2c.record_texts(node(data=[0, 1]))
    assert record.startswith(message["line"])
    assert all(text in record for text in message["recommendations"])


def test_show_of_an_oem_build_has_the_oem_recommendations(bmci2c):
    standard = shown(bmci2c, SHIPPED, "--machine", "7000", "--message", "901")["7000"][0]
    oem = shown(bmci2c, SHIPPED, "--machine", "7000", "--message", "901", "--oem")["7000"][0]
    assert any("QUV support" in text for text in standard["recommendations"])
    assert not any("QUV support" in text for text in oem["recommendations"])


def test_show_of_an_unknown_machine_names_it(bmci2c):
    result = bmci2c.bare("catalog", "show", str(SHIPPED), "--machine", "none")
    assert (result.code, result.err) == (3, f"bmci2c: {SHIPPED} has no machine 'none'.\n")


GUIDE = (Path(__file__).parents[2] / "docs/catalog-guide.md").read_text()


@pytest.mark.parametrize("machine", ["7000", "7001"])
def test_example_of_the_guide_says_what_the_guide_says(bmci2c, machine):
    bmci2c.write_catalog(re.search(r"```xml\n(.*?)```", GUIDE, re.DOTALL)[1])
    said = re.search(r"standard build:\n\n((?:    .*\n|\n)+)", GUIDE)[1]
    (record,) = bmci2c.record_texts(node(data=[1]), machine_type=machine)
    assert record.strip() == textwrap.dedent(said).strip()


def test_example_of_the_guide_lacks_only_texts(bmci2c):
    example = bmci2c.write("example.xml", re.search(r"```xml\n(.*?)```", GUIDE, re.DOTALL)[1])
    report, total = check(bmci2c, example).out.splitlines()
    assert total == "0 errors, 1 warning"
    assert "has a text for 101, 102 and 801 to 824." in report


def test_diff_of_one_file_is_empty(bmci2c):
    result = bmci2c.bare("catalog", "diff", str(SHIPPED), str(SHIPPED))
    assert (result.code, result.out) == (0, "")


def test_diff_tells_texts_and_machines(bmci2c):
    old = bmci2c.write("old.xml", catalog_text())
    new = bmci2c.write("new.xml", catalog_text(machines=("7777",)))
    result = bmci2c.bare("catalog", "diff", old, new)
    assert result.code == 1
    assert "Machine 7000: removed\n" in result.out
    assert "Machine 7777: added\n" in result.out


def test_diff_needs_two_files(bmci2c):
    result = bmci2c.bare("catalog", "diff", str(SHIPPED))
    assert (result.code, result.err) == (
        64,
        "bmci2c: catalog diff needs two files, the old one and the new one.\n",
    )


def test_a_large_catalog_is_checked(bmci2c):
    text = SHIPPED.read_text()
    machines = "".join(
        f'<machine type="M{n}"><property name="message" index="901">'
        f"<value>Bus 0 of {n}.</value></property></machine>\n"
        for n in range(20000)
    )
    large = bmci2c.write("large.xml", text.replace("</bmci2cmsg>", machines + "</bmci2cmsg>"))
    assert os.path.getsize(large) > 2 * 2**20
    assert check(bmci2c, large).out == "0 errors, 0 warnings\n"
