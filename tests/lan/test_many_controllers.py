"""Machines with many controllers, some of which are dead."""

import contextlib

from harness import run
from rmcp_peer import Peer, Step

DEAD = {
    1: {"silent": tuple(Step)},
    4: {"silent": [Step.RAKP_1]},
    6: {"silent": [Step.COMMAND]},
}


def options_of(node):
    """Bus number node has failed, where one can be read."""
    return DEAD.get(node, {"data": bytes([1 << node, 0])})


def test_failed_busses_are_named_beside_dead_controllers(tmp_path):
    nodes = range(8)
    with contextlib.ExitStack() as stack:
        done = run(tmp_path, [stack.enter_context(Peer(**options_of(node))) for node in nodes])
    failed = [(failure["node"], failure["bus"]) for failure in done.json["failed"]]
    assert (done.verdict, done.code) == ("failed", 1), str(done)
    assert failed == [(node, node) for node in nodes if node not in DEAD], str(done)
    assert done.outcomes == [
        "not_delivered" if node in DEAD else "examined" for node in nodes
    ], str(done)
    for node in DEAD:
        assert done.controllers[node]["trouble"]["code"] == "no_answer", str(done)
