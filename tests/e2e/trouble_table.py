"""The table of trouble codes in docs/troubleshooting.md."""

import re
from dataclasses import dataclass
from pathlib import Path

PAGE = Path(__file__).resolve().parents[2] / "docs" / "troubleshooting.md"
ROW = re.compile(r"^\| `(\w+)` \| `(.*?)` \| (.*?) \| (.*?) \|$", re.MULTILINE)
PLACE = re.compile(r" ?<[\w ]+>")  # what differs from case to case, and the blank before it


@dataclass(frozen=True)
class Row:
    code: str
    text: str
    meaning: str
    advice: str

    @property
    def parts(self):
        """What is the same in every text of the row."""
        return [part.strip(" .:,'") for part in PLACE.split(self.text) if part.strip(" .:,'")]

    def tells(self, trouble):
        pattern = ".*".join(re.escape(part) for part in PLACE.split(self.text))
        is_ours = re.fullmatch(pattern, trouble["text"], re.DOTALL) is not None
        return trouble["code"] == self.code and is_ours


ROWS = [Row(*cells) for cells in ROW.findall(PAGE.read_text(encoding="utf-8"))]


def troubles_of(result):
    """Those of a run's JSON object, of the run as a whole and of its controllers."""
    of_controllers = [controller["trouble"] for controller in result["controllers"]]
    return result["troubles"] + [trouble for trouble in of_controllers if trouble]


def rows_of(result):
    """The rows that tell the troubles of a run; every trouble must have one."""
    found = set()
    for trouble in troubles_of(result):
        rows = [row for row in ROWS if row.tells(trouble)]
        assert rows, f"docs/troubleshooting.md does not list {trouble}"
        found.update(rows)
    return found
