"""Catalogs that are wrong leave the test not completed, never passed, and say why."""

import os

import pytest
from conftest import catalog_text, node


def run(bmci2c):
    result = bmci2c.simulate(bmci2c.profile(node(data=[0])), "run", "--json")
    return result.code, result.json(), result.err


def unwrapped_report(bmci2c):
    result = bmci2c.simulate(bmci2c.profile(node(data=[0])), "run")
    assert result.out.startswith("NOT COMPLETED (simulated machine): there is no usable message catalog, so no ")
    return " ".join(result.out.split())


def test_missing_catalog_is_an_unsupported_machine(bmci2c):
    (bmci2c.root / "bmci2c" / "bmci2c.msg.xml").unlink()
    code, outcome, _ = run(bmci2c)
    assert code == 2
    assert outcome["records"][0]["RecordData"].startswith("166-899-001 BMCI2C Bus Test Aborted: ")


@pytest.mark.parametrize(
    "text",
    ["", "no XML at all", "\x00\x01\x02", catalog_text()[: len(catalog_text()) // 3]],
    ids=["empty", "text", "bytes", "truncated"],
)
def test_broken_catalog_is_an_unsupported_machine(bmci2c, text):
    bmci2c.write_catalog(text)
    code, outcome, _ = run(bmci2c)
    assert (code, outcome["verdict"]) == (2, "not_completed")


def test_truncated_catalog_says_where(bmci2c):
    text = catalog_text()[: len(catalog_text()) // 3]
    bmci2c.write_catalog(text)
    _, _, err = run(bmci2c)
    assert f"BMCI2C Parser Line {text.count(chr(10)) + 1}:" in err


def test_catalog_that_is_a_folder_is_an_unsupported_machine(bmci2c):
    path = bmci2c.root / "bmci2c" / "bmci2c.msg.xml"
    path.unlink()
    path.mkdir()
    code, outcome, _ = run(bmci2c)
    assert (code, outcome["verdict"]) == (2, "not_completed")
    assert f"{path} cannot be read: it is not a regular file." in unwrapped_report(bmci2c)


def test_catalog_that_nobody_may_read_is_an_unsupported_machine(bmci2c):
    path = bmci2c.root / "bmci2c" / "bmci2c.msg.xml"
    path.chmod(0)
    if os.access(path, os.R_OK):
        path.unlink()
        path.symlink_to(path)  # root reads every file, but not a link to itself
        reason = "Too many levels of symbolic links"
    else:
        reason = "Permission denied"
    code, outcome, _ = run(bmci2c)
    assert (code, outcome["verdict"]) == (2, "not_completed")
    assert f"{path} cannot be read: {reason}." in unwrapped_report(bmci2c)


def test_truncated_catalog_is_named_in_the_report(bmci2c):
    text = catalog_text()[: len(catalog_text()) // 3]
    bmci2c.write_catalog(text)
    line = text.count("\n") + 1
    assert f"bmci2c.msg.xml is wrong in line {line}: Not well" in unwrapped_report(bmci2c)


@pytest.mark.parametrize("options", [[], ["--json"]], ids=["text", "json"])
def test_index_that_is_no_number_is_named_with_its_line(bmci2c, options):
    text = catalog_text().replace('index="964"', 'index="0x3C4"', 1)
    bmci2c.write_catalog(text)
    line = text[: text.index("0x3C4")].count("\n") + 1
    result = bmci2c.simulate(bmci2c.profile(node(data=[0])), "run", *options)
    assert result.code == 3
    path = bmci2c.root / "bmci2c" / "bmci2c.msg.xml"
    assert (
        f"The message catalog {path} is wrong in line {line}: the index '0x3C4' is not a decimal "
        "number."
    ) in result.err


def test_unknown_element_is_reported_and_the_rest_is_read(bmci2c):
    bmci2c.write_catalog(catalog_text().replace("<machine ", "<colour></colour>\n<machine ", 1))
    code, _, err = run(bmci2c)
    assert code == 0
    assert "BMCI2C Parser Line 2:Unrecognized identifier: colour" in err


def test_catalog_in_another_encoding_is_read(bmci2c):
    text = catalog_text().replace(">text 0<", ">grün<")
    path = bmci2c.root / "bmci2c" / "bmci2c.msg.xml"
    path.write_bytes(('<?xml version="1.0" encoding="ISO-8859-1"?>\n' + text).encode("latin-1"))
    code, outcome, _ = run(bmci2c)
    assert code == 0
    assert outcome["records"][0]["RecordData"] == "166-000-001 PASS: grün"
