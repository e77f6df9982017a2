#!/usr/bin/env python3
"""Draws docs/classes.svg with Graphviz: the module's classes and, between them, its associations.

The MOF says which classes there are, their keys, and what each association's roles are called and may
refer to. Which classes an association ties, and whether it has instances, say the tables in
docs/classes.md: most roles admit every class.

    schema/picture.py        writes the picture; needs Graphviz's program `dot`
"""

import pathlib
import re
import subprocess
from typing import NamedTuple

PROJECT = pathlib.Path(__file__).resolve().parent.parent
PICTURE = PROJECT / "docs" / "classes.svg"
PREFIX = "QUVSG_BMCI2C_"
CLASS = re.compile(r"(\[[^\]]*\]\s*)?class\s+(\w+)(?:\s*:\s*(\w+))?\s*\{(.*?)\n\};", re.S)
FEATURE = re.compile(r"^\s*(\[[^\]]*\]\s*)?(\w+)(\s+REF)?\s+(\w+)(\[\])?;", re.M)
ENDPOINT = re.compile(r"(\w+) \(`(\w+)`\)")
# The file's own comment names the version of Graphviz.
COMMENT = re.compile(r"<!--.*?-->\n?", re.S)


class Box(NamedTuple):
    name: str
    superclass: str
    keys: tuple


class Edge(NamedTuple):
    name: str
    ends: tuple  # (class, role) twice
    has_instances: bool


def read_classes(folder=PROJECT / "schema"):
    """{name: (superclass, {role: referenced class}, [keys])} of what each class itself declares."""
    classes = {}
    for file in sorted(folder.glob("*.mof")):
        text = re.sub(r"//[^\n]*", "", file.read_text(encoding="utf-8"))
        for _, name, parent, body in CLASS.findall(text):
            roles, keys = {}, []
            for qualifiers, kind, reference, feature, _ in FEATURE.findall(body):
                if reference:
                    roles[feature] = kind
                elif re.search(r"\bkey\b", qualifiers, re.I):
                    keys.append(feature)
            classes[name] = (parent, roles, keys)
    return classes


def ancestors(classes, name):
    while name:
        yield name
        name = classes[name][0]


def inherited(classes, name, part):
    """Roles or keys of a class with those that it inherits; the nearest declaration wins."""
    result = {}
    for ancestor in reversed(list(ancestors(classes, name))):
        declared = classes[ancestor][part]
        result.update(declared if isinstance(declared, dict) else dict.fromkeys(declared))
    return result


def table(text, heading):
    """The rows below the table row that begins with this heading, each a list of cells."""
    rows = []
    for line in text[text.index(f"| {heading} |") :].splitlines()[2:]:
        if not line.startswith("|"):
            break
        rows.append([cell.strip() for cell in line.strip("|").split("|")])
    return rows


def boxes(classes):
    own = [name for name in classes if name.startswith(PREFIX)]
    return [
        Box(name[len(PREFIX) :], classes[name][0], tuple(inherited(classes, name, 2)))
        for name in sorted(own)
        if not inherited(classes, name, 1)
    ]


def edges(text):
    return [
        Edge(name, tuple(ENDPOINT.findall(ties)), instances != "never")
        for name, ties, instances in table(text, "association")
    ]


def box_line(box):
    rows = [f"<b>{box.name}</b>", f"<i>{box.superclass}</i>", *(f"key {key}" for key in box.keys)]
    cells = "".join(f'<tr><td align="left">{row}</td></tr>' for row in rows)
    return (
        f'{box.name} [label=<<table border="0" cellborder="0" cellspacing="0" '
        f'cellpadding="1">{cells}</table>>]'
    )


def edge_line(edge):
    (tail, tail_role), (head, head_role) = edge.ends
    style = "solid" if edge.has_instances else "dashed"
    text = f"<b>{edge.name}</b><br/>{tail_role} – {head_role}"
    return f"{tail} -- {head} [label=<{text}>, style={style}]"


def dot_text(box_list, edge_list):
    lines = [
        "graph classes {",
        'graph [rankdir=LR, nodesep=0.6, ranksep=0.4, size="10.6,7.2", bgcolor=white]',  # A4
        'node [shape=box, style="filled", fillcolor="#eef4fb", fontname="Helvetica", fontsize=12]',
        'edge [fontname="Helvetica", fontsize=11]',
        *map(box_line, box_list),
        *map(edge_line, edge_list),
        "}",
    ]
    return "\n".join(lines)


def main():
    text = (PROJECT / "docs" / "classes.md").read_text(encoding="utf-8")
    graph = dot_text(boxes(read_classes()), edges(text))
    svg = subprocess.run(["dot", "-Tsvg"], input=graph, text=True, stdout=subprocess.PIPE, check=True)
    PICTURE.write_text(COMMENT.sub("", svg.stdout), encoding="utf-8")


if __name__ == "__main__":
    main()
