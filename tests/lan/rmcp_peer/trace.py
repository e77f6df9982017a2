"""What happened at a controller."""

import enum
from dataclasses import dataclass

from .steps import Step


class Happening(enum.Enum):
    REQUEST = "request"
    ANSWER = "answer"
    DROPPED = "dropped"  # a request that is not one; note says why
    LOST_REQUEST = "lost request"
    LOST_ANSWER = "lost answer"


@dataclass(frozen=True)
class Event:
    seconds: float  # since the controller started
    happening: Happening
    step: Step | None = None  # None: not looked at
    note: str = ""

    def __str__(self):
        about = self.step.value if self.step else ""
        words = [f"{self.seconds:7.3f}", self.happening.value, about, self.note]
        return " ".join(filter(None, words))
