"""A management controller that speaks RMCP+ on the loopback interface, for tests.

    with Peer(data=b"\\x01", seconds={Step.COMMAND: 2}) as peer:
        ...  # a client asks 127.0.0.1, port peer.port
    assert peer.requests(Step.COMMAND) == 1

behaviour.py lists everything that a test may tell a controller to be.
"""

from .behaviour import Behaviour, Wrong
from .peer import Peer
from .steps import LOG_IN, Step

__all__ = ["LOG_IN", "Behaviour", "Peer", "Step", "Wrong"]
