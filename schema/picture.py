#!/usr/bin/env python3
"""Draws the module's classes and associations from the MOF: schema/picture.py > docs/classes.svg

Left the classes with their keys, right the associations with their two roles. A line runs from a
role to every class that its reference admits, but for references to the CIM roots, which admit all.
"""
import pathlib
import re
import sys
from xml.sax.saxutils import escape

PREFIX = "QUVSG_BMCI2C_"
ROOTS = {"CIM_ManagedElement", "CIM_ManagedSystemElement"}
CLASS = re.compile(r"(\[[^\]]*\]\s*)?class\s+(\w+)(?:\s*:\s*(\w+))?\s*\{(.*?)\n\};", re.S)
FEATURE = re.compile(r"^\s*(\[[^\]]*\]\s*)?(\w+)(\s+REF)?\s+(\w+)(\[\])?;", re.M)
BOX_WIDTH, LINE_HEIGHT, GAP, LEFT, RIGHT, TOP = 330, 18, 14, 20, 560, 50


def read_classes(folder):
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


def box(x, y, title, subtitle, lines, colour):
    height = (len(lines) + 2) * LINE_HEIGHT + 8
    texts = [(title, "bold"), (subtitle, "italic")] + [(line, "") for line in lines]
    style = {"bold": ' font-weight="bold"', "italic": ' font-style="italic" fill="#555"', "": ""}
    parts = [f'<rect x="{x}" y="{y}" width="{BOX_WIDTH}" height="{height}" rx="4" '
             f'fill="{colour}" stroke="#333"/>']
    for index, (text, kind) in enumerate(texts):
        parts.append(f'<text x="{x + 10}" y="{y + (index + 1) * LINE_HEIGHT}"{style[kind]}>'
                     f'{escape(text)}</text>')
    return "\n".join(parts), height


def draw(classes):
    own = [name for name in classes if name.startswith(PREFIX)]
    associations = [name for name in own if inherited(classes, name, 1)]
    shapes, middle, y = [], {}, TOP
    for name in sorted(set(own) - set(associations)):
        keys = [f"key {key}" for key in inherited(classes, name, 2)]
        shape, height = box(LEFT, y, name[len(PREFIX):], classes[name][0], keys, "#eef4fb")
        shapes.append(shape)
        middle[name] = y + height / 2
        y += height + GAP
    bottom, y, lines = y, TOP, []
    for name in sorted(associations):
        roles = inherited(classes, name, 1)
        texts = [f"{role}: {target}" for role, target in roles.items()]
        shape, height = box(RIGHT, y, name[len(PREFIX):], classes[name][0], texts, "#fdf5e6")
        shapes.append(shape)
        for index, target in enumerate(roles.values()):
            role_y = y + (index + 3) * LINE_HEIGHT - 5
            for end in middle:
                if target not in ROOTS and target in ancestors(classes, end):
                    lines.append(f'<line x1="{LEFT + BOX_WIDTH}" y1="{middle[end]}" x2="{RIGHT}" '
                                 f'y2="{role_y}" stroke="#888"/>')
        y += height + GAP
    width, height = RIGHT + BOX_WIDTH + LEFT, max(bottom, y)
    heading = (f'<text x="{LEFT}" y="30" font-weight="bold">Classes</text>'
               f'<text x="{RIGHT}" y="30" font-weight="bold">Associations</text>')
    return "\n".join([f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
                      f'font-family="sans-serif" font-size="13">',
                      f'<rect width="{width}" height="{height}" fill="white"/>', heading]
                     + lines + shapes + ["</svg>"])


if __name__ == "__main__":
    print(draw(read_classes(pathlib.Path(sys.argv[0]).resolve().parent)))
