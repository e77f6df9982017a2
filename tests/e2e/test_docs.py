"""What docs/ says of the classes and of catalogs is what the MOF, the providers and the parser do."""

import re
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path

import pytest
from conftest import node

PROJECT = Path(__file__).parents[2]
sys.path.insert(0, str(PROJECT / "schema"))
import picture  # noqa: E402

SVG = "{http://www.w3.org/2000/svg}"
PREFIX = "QUVSG_BMCI2C_"
CLASSES_TEXT = (PROJECT / "docs" / "classes.md").read_text(encoding="utf-8")
GUIDE = (PROJECT / "docs" / "catalog-guide.md").read_text(encoding="utf-8")


CLASS_ROWS = {row[0]: row for row in picture.table(CLASSES_TEXT, "class")}
ASSOCIATION_ROWS = {row[0]: row for row in picture.table(CLASSES_TEXT, "association")}


@pytest.fixture(scope="module")
def classes():
    return picture.read_classes()


@pytest.fixture
def instances(bmci2c):
    profile = bmci2c.profile(node(data=[0]))

    def enumerate_class(name, runs="0"):
        arguments = ["enumerate", PREFIX + name, "--after-runs", runs, "--json"]
        result = bmci2c.simulate(profile, *arguments)
        assert result.code == 0, result.err
        return result.json()

    return enumerate_class


def shapes(kind):
    """The nodes or edges of the committed picture: {title: (texts, is dashed)}."""
    found = {}
    for group in ElementTree.parse(picture.PICTURE).iter(SVG + "g"):
        if group.get("class") == kind:
            title = group.findtext(SVG + "title")
            lines = [group.find(SVG + shape) for shape in ("path", "polygon")]
            dashed = any(line is not None and line.get("stroke-dasharray") for line in lines)
            texts = [text.text.replace("\N{NO-BREAK SPACE}", " ") for text in group.iter(SVG + "text")]
            found[title, *texts[:1]] = (texts, dashed)
    return found


# Not compared byte for byte: each version of Graphviz places things its own way.
def test_picture_shows_each_class_with_its_superclass_and_keys(classes):
    boxes = picture.boxes(classes)
    assert shapes("node") == {
        (box.name, box.name): (
            [box.name, box.superclass, *(f"key {key}" for key in box.keys)], False
        )
        for box in boxes
    }  # fmt: skip
    assert len(boxes) == 12


def test_picture_shows_each_association_between_its_ends_and_those_without_instances_dashed():
    edges = picture.edges(CLASSES_TEXT)
    assert shapes("edge") == {
        (f"{edge.ends[0][0]}--{edge.ends[1][0]}", edge.name): (
            [edge.name, f"{edge.ends[0][1]} \N{EN DASH} {edge.ends[1][1]}"], not edge.has_instances
        )
        for edge in edges
    }  # fmt: skip
    assert [edge.has_instances for edge in edges].count(True) == 6


@pytest.mark.parametrize("edge", picture.edges(CLASSES_TEXT), ids=lambda edge: edge.name)
def test_roles_of_an_association_admit_the_classes_at_its_ends(classes, edge):
    roles = picture.inherited(classes, PREFIX + edge.name, 1)
    assert sorted(role for _, role in edge.ends) == sorted(roles)
    for end, role in edge.ends:
        assert roles[role] in picture.ancestors(classes, PREFIX + end)


def test_tables_list_every_class_once(classes):
    own = [name[len(PREFIX) :] for name in classes if name.startswith(PREFIX)]
    associations = [name for name in own if picture.inherited(classes, PREFIX + name, 1)]
    assert sorted(ASSOCIATION_ROWS) == sorted(associations)
    assert sorted(CLASS_ROWS) == sorted(set(own) - set(associations))
    assert (len(associations), len(own)) == (11, 23)


@pytest.mark.parametrize("name", CLASS_ROWS)
def test_keys_are_those_of_the_class(classes, name):
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


@pytest.mark.parametrize("edge", picture.edges(CLASSES_TEXT), ids=lambda edge: edge.name)
def test_associations_tie_what_is_said(instances, edge):
    found = instances(edge.name)
    if not edge.has_instances:
        assert found == []
        return
    (association,) = found
    paths = {key: path for key, path in association["properties"].items() if path}
    assert sorted(paths) == sorted(role for _, role in edge.ends)
    for end, role in edge.ends:
        assert paths[role].startswith(f"root/QUVSD:{PREFIX}{end}.")
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
    elements = [name for row in picture.table(GUIDE, "Element") for name in re.findall(r"`(.*?)`", row[0])]
    assert len(elements) == 9
    tags = "".join(f"<{name}/>" for name in elements if name != "bmci2cmsg")
    bmci2c.write_catalog(f'<bmci2cmsg version="1">{tags}</bmci2cmsg>')
    result = bmci2c.simulate(bmci2c.profile(node(data=[0])), "run")
    assert "Unrecognized identifier" not in result.err


def installed_pages():
    """The pages that the installation brings, by name."""
    rules = (PROJECT / "packaging" / "CMakeLists.txt").read_text()
    names = re.findall(r"/docs/([\w-]+\.md)\"", rules)
    assert names
    return {name: (PROJECT / "docs" / name).read_text(encoding="utf-8") for name in names}


def test_every_page_that_messages_manual_and_installed_pages_name_is_installed():
    texts = list(installed_pages().values())
    for pattern in ("src/cli/**/*.cpp", "docs/man/*", "data/*.toml", "packaging/systemd/*"):
        texts += [path.read_text(encoding="utf-8") for path in PROJECT.glob(pattern)]
    page = r"\b(?:docs/|doc/bmci2c/)([\w-]+\.md)|\]\(([\w-]+\.md)\)"
    named = {first or second for text in texts for first, second in re.findall(page, text)}
    assert {"json.md", "classes.md", "catalog-guide.md"} <= named <= set(installed_pages())


# serve.md shows a call in the source folder.
@pytest.mark.parametrize("name", sorted(set(installed_pages()) - {"serve.md"}))
def test_installed_page_names_samples_where_they_are_installed(name):
    assert not re.search(r"(?<![\w/])(?:data|schema|packaging)/\w", installed_pages()[name])


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
    told = {code for row in picture.table(text, "`code`") for code in re.findall(r"`(\w+)`", row[0])}
    assert told == trouble_codes()
