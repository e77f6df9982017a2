"""Controllers without faults."""

import pytest
from harness import Case, assert_read
from rmcp_peer import LOG_IN, Step

K_G = "key-of-generation"

CASES = {
    "suite 0": Case(settings={"cipher_suite": 0}),
    "suite 3": Case(settings={"cipher_suite": 3}),
    "suite 17": Case(settings={"cipher_suite": 17}),
    "suite 3 with k_g": Case({"k_g": K_G.encode()}, {"cipher_suite": 3, "k_g": K_G}),
    "suite 17 with k_g": Case({"k_g": K_G.encode()}, {"cipher_suite": 17, "k_g": K_G}),
    "user level": Case({"privilege": 2}, {"privilege_level": "user"}),
    "never answers Close Session": Case({"silent": [Step.CLOSE_SESSION]}),
}


@pytest.mark.parametrize("name", CASES)
def test_controller_is_read(runs, name):
    assert_read(runs[name])


@pytest.mark.parametrize("name", CASES)
def test_session_is_opened_once_and_asked_once(runs, name):
    peer = runs[name].peer
    assert peer.sessions_opened == 1
    for step in (*LOG_IN, Step.COMMAND):
        assert peer.requests(step) == 1, f"{step}\n{peer.story()}"


@pytest.mark.parametrize("name", [name for name in CASES if "never answers" not in name])
def test_session_is_closed(runs, name):
    peer = runs[name].peer
    assert (peer.sessions_closed, peer.slots_taken) == (1, 0), peer.story()
