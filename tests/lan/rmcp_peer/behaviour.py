"""What a test may tell a controller to be: slow, lossy, refusing or wrong. All of it combines."""

import enum
from collections.abc import Collection, Mapping
from dataclasses import dataclass, field

from .steps import Step


class Wrong(enum.Enum):
    """A way in which an answer is wrong."""

    NETWORK_FUNCTION = "network function"
    RESPONDER = "responder address"
    COMMAND = "command"
    SEQUENCE = "sequence number of the message; in the handshake its tag"
    SESSION_ID = "session ID"
    PLAIN = "neither encrypted nor authenticated"
    UNENCRYPTED = "authenticated, but not encrypted"
    AUTHENTICATION_CODE = "authentication code"
    SHORT_PACKET = "second half of the packet missing"
    SHORT_MESSAGE = "a message of five bytes, in a sound packet"
    NO_COMPLETION_CODE = "no completion code"


@dataclass(frozen=True)
class Behaviour:
    # The account, and what the controller offers.
    user: str = "tester"
    password: str = "sesame-open"
    k_g: bytes = b""  # empty: the password is used in its place
    privilege: int = 4  # the highest of the user: 2 user, 3 operator, 4 administrator
    cipher_suites: Collection[int] = (0, 3, 17)

    # The answers to the OEM commands 0x09 (bus status) and 0xC1 (generation).
    completion_code: int = 0
    data: bytes = b"\x00"
    generation_completion_code: int = 0
    generation_data: bytes = b"\x00\x00"

    # Sessions at a time; None: any number. Open Session takes a slot, also a repeated one; Close
    # Session frees it, or slot_seconds without a packet.
    slots: int | None = None
    slot_seconds: float = 60

    # Repeated RAKP 1 and RAKP 3 get the same answer again; False: none.
    repeats_handshake: bool = True

    # How long it works on a request; the next one waits, unless is_concurrent.
    seconds: Mapping[Step, float] = field(default_factory=dict)
    seconds_otherwise: float = 0
    is_concurrent: bool = False

    # How long a packet is under way, there and back. Packets overtake nothing but late answers.
    round_trip: float = 0
    late_every: int = 0  # each such answer ...
    late_seconds: float = 0  # ... is late by this much more

    # What the network loses: every such packet of one way, and at random of both.
    lose_request_every: int = 0
    lose_answer_every: int = 0
    loss: float = 0  # probability
    seed: int = 0

    # Requests that are not answered, nor worked on.
    silent: Collection[Step] = ()

    # Refusals: RMCP+ status codes and completion codes.
    open_session_status: int = 0
    rakp2_status: int = 0
    rakp4_status: int = 0
    authentication_capabilities_code: int = 0
    set_privilege_code: int = 0
    refuses_bad_rakp3: bool = True  # with status 0x0F; False: no answer
    has_wrong_rakp4: bool = False  # a wrong integrity check value

    # The answers to these steps are wrong in each of these ways.
    wrong: Collection[Wrong] = ()
    wrong_at: Collection[Step] = (Step.COMMAND,)
    wrong_data: bytes | None = None  # of a wrong bus status, in the place of data
    then_right: bool = False  # the right answer follows the wrong one
