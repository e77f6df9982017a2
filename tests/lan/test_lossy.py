"""Networks that lose packets."""

import pytest
from harness import Case, assert_read

RANDOM = {f"2 % at random {seed}": Case({"loss": 0.02, "seed": seed}) for seed in range(50)}
REGULAR = {
    "every fourth request": Case({"lose_request_every": 4}),
    "every fourth answer": Case({"lose_answer_every": 4}),
}
CASES = REGULAR | RANDOM


@pytest.mark.parametrize("name", CASES)
def test_controller_is_read(runs, name):
    assert_read(runs[name])


@pytest.mark.parametrize("name", REGULAR)
def test_packets_were_lost(runs, name):
    peer = runs[name].peer
    assert "lost" in peer.story()


def test_packets_were_lost_at_random(runs):
    assert any("lost" in runs[name].peer.story() for name in RANDOM)
