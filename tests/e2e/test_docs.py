"""What docs/ says of the classes and of catalogs is what the MOF, the providers and the parser do."""

import importlib.util
import re
import subprocess
import sys
from pathlib import Path

import pytest
from conftest import node

PROJECT = Path(__file__).parents[2]
PREFIX = "QUVSG_BMCI2C_"
CLASSES_TEXT = (PROJECT / "docs" / "classes.md").read_text(encoding="utf-8")
GUIDE = (PROJECT / "docs" / "catalog-guide.md").read_text(encoding="utf-8")


def table(text, heading):
    """The rows below the table row that begins with this heading, each a list of cells."""
    lines = text[text.index(f"| {heading} |") :].splitlines()
    rows = []
    for line in lines[2:]:
        if not line.startswith("|"):
            break
        rows.append([cell.strip() for cell in line.strip("|").split("|")])
    return rows


CLASS_ROWS = {row[0]: row for row in table(CLASSES_TEXT, "class")}
ASSOCIATION_ROWS = {row[0]: row for row in table(CLASSES_TEXT, "association")}


def names_in(cell):
    return [name.strip() for name in cell.split(",")]


@pytest.fixture(scope="module")
def mof():
    """The picture's reader of the MOF, and all classes."""
    spec = importlib.util.spec_from_file_location("picture", PROJECT / "schema" / "picture.py")
    picture = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(picture)
    return picture, picture.read_classes(PROJECT / "schema")


@pytest.fixture
def instances(bmci2c):
    profile = bmci2c.profile(node(data=[0]))

    def enumerate_class(name, runs="0"):
        arguments = ["enumerate", PREFIX + name, "--after-runs", runs, "--json"]
        result = bmci2c.simulate(profile, *arguments)
        assert result.code == 0, result.err
        return result.json()

    return enumerate_class


def test_picture_is_what_the_script_draws():
    drawn = subprocess.run(
        [sys.executable, PROJECT / "schema" / "picture.py"], stdout=subprocess.PIPE, check=True
    )
    assert (PROJECT / "docs" / "classes.svg").read_bytes() == drawn.stdout


def test_tables_list_every_class_once(mof):
    picture, classes = mof
    own = [name[len(PREFIX) :] for name in classes if name.startswith(PREFIX)]
    associations = [name for name in own if picture.inherited(classes, PREFIX + name, 1)]
    rows = table(CLASSES_TEXT, "association")
    listed = [name for row in rows for name in names_in(row[0])]
    assert sorted(listed) == sorted(associations)
    assert sorted(CLASS_ROWS) == sorted(set(own) - set(associations))
    assert (len(associations), len(own)) == (11, 23)


@pytest.mark.parametrize("name", CLASS_ROWS)
def test_keys_are_those_of_the_class(mof, name):
    picture, classes = mof
    said = re.findall(r"`(\w+)`", CLASS_ROWS[name][3])
    assert sorted(said) == sorted(picture.inherited(classes, PREFIX + name, 2))


@pytest.mark.parametrize("name", CLASS_ROWS)
def test_instances_are_as_many_as_said_and_have_the_keys_that_are_not_unset(instances, name):
    _, _, said, keys, _ = CLASS_ROWS[name]
    unset = re.search(r"((?:`\w+`(?:, )?)+) \(unset\)", keys)
    unset_keys = re.findall(r"`(\w+)`", unset[1]) if unset else []
    counts = [len(instances(name, runs)) for runs in ("0", "1")]
    if said.startswith("always one"):
        assert counts == [1, 1]
        properties = instances(name)[0]["properties"]
        null_keys = [key for key in re.findall(r"`(\w+)`", keys) if properties[key] is None]
        assert sorted(null_keys) == sorted(unset_keys)
    elif said == "never":
        assert counts == [0, 0]
    else:
        assert said.startswith("one per kept record: none before a run, normally one after it")
        assert counts == [0, 1]


@pytest.mark.parametrize("names", ASSOCIATION_ROWS)
def test_associations_tie_what_is_said(instances, names):
    _, ties, said = ASSOCIATION_ROWS[names]
    roles = re.findall(r"(\w+) \(`(\w+)`\)", ties)
    for name in names_in(names):
        found = instances(name)
        if said == "never":
            assert found == []
            continue
        (association,) = found
        paths = {key: path for key, path in association["properties"].items() if path}
        assert sorted(paths) == sorted(role for _, role in roles)
        for endpoint, role in roles:
            assert paths[role].startswith(f"root/QUVSD:{PREFIX}{endpoint}.")
        keys = re.findall(r'[.,](\w+)="(?:[^"\\]|\\.)*"', association["path"])
        assert sorted(keys) == sorted(paths)


def test_example_of_the_catalog_guide_gives_the_text_below_it(bmci2c):
    catalog = re.search(r"```xml\n(.*?)```", GUIDE, re.DOTALL)[1]
    text = re.search(r"in a standard build:\n\n((?:    .*\n|\n)+)", GUIDE)[1]
    generic = (
        '<machine type="GENERIC_QUV"><property name="message" index="206">'
        "<value>BMC I2C Test Failed: </value></property></machine>\n"
    )
    bmci2c.write_catalog(catalog.replace("</bmci2cmsg>", generic + "</bmci2cmsg>"))
    expected = "\n".join(line[4:] for line in text.rstrip().splitlines())
    for machine_type in ("7000", "7001"):
        assert bmci2c.record_texts(node(data=[1]), machine_type=machine_type) == [expected]


def test_qualifiers_and_elements_of_the_catalog_guide_are_known(bmci2c):
    elements = [name for row in table(GUIDE, "Element") for name in re.findall(r"`(.*?)`", row[0])]
    assert len(elements) == 9
    tags = "".join(f"<{name}/>" for name in elements if name != "bmci2cmsg")
    bmci2c.write_catalog(f'<bmci2cmsg version="1">{tags}</bmci2cmsg>')
    result = bmci2c.simulate(bmci2c.profile(node(data=[0])), "run")
    assert "Unrecognized identifier" not in result.err


def trouble_codes():
    """The codes that the sources give to troubles."""
    source = PROJECT / "src"
    names = (source / "platform/service_processor/TransportError.cpp").read_text()
    codes = set(re.findall(r'return "([a-z_0-9]+)";', names))
    for path in source.glob("**/*.cpp"):
        codes |= set(re.findall(r'\.code = "([a-z_0-9]+)"', path.read_text()))
    return codes


def test_every_trouble_code_is_documented_and_no_other():
    text = (PROJECT / "docs" / "json.md").read_text(encoding="utf-8")
    told = {code for row in table(text, "`code`") for code in re.findall(r"`(\w+)`", row[0])}
    assert told == trouble_codes()
