"""Every message of docs/troubleshooting.md, word for word, in the sources or the shipped catalog."""

import pathlib
import re

import pytest

SOURCE = pathlib.Path(__file__).resolve().parents[2]
PAGE = (SOURCE / "docs" / "troubleshooting.md").read_text(encoding="utf-8")
MESSAGES = re.findall(r"^### `(.*)`$", PAGE, re.MULTILINE)


def words_of(path):
    """A file's text, with C++ literals that stand behind each other joined and decoded."""
    text = path.read_text(encoding="utf-8").replace('\\"', "\0")
    return re.sub(r'"\s*"', "", text).replace("\0", '"')


@pytest.fixture(scope="module")
def texts():
    sources = (SOURCE / "src").rglob("*.[ch]*")
    files = [path for path in sources if path.suffix in (".cpp", ".h")]
    files.append(SOURCE / "data/bmci2c/bmci2c.msg.xml")
    return "\n".join(words_of(path) for path in files)


def parts(message):
    """What is the same in every message of the kind."""
    return [part.strip() for part in message.split("...") if part.strip()]


def test_every_heading_of_the_third_level_is_a_message():
    assert len(MESSAGES) == len(re.findall("^### ", PAGE, re.MULTILINE)) > 40


def test_no_message_stands_twice():
    assert sorted(set(MESSAGES)) == sorted(MESSAGES)


@pytest.mark.parametrize("message", MESSAGES, ids=lambda text: re.sub(r"\W+", "-", text).strip("-"))
def test_message_is_one_of_ours(texts, message):
    assert max(len(part) for part in parts(message)) >= 8, "too little to find it by"
    for part in parts(message):
        assert part in texts
