"""A controller with few sessions at a time."""

from concurrent.futures import ThreadPoolExecutor

from harness import assert_not_delivered, assert_read, run
from rmcp_peer import Peer, Step

SLOTS = 4


def test_runs_in_turn_leave_no_slot_taken(tmp_path):
    with Peer(data=b"\0\0", slots=SLOTS, seconds={Step.OPEN_SESSION: 0.3}) as peer:
        for number in range(10):
            assert_read(run(tmp_path / str(number), [peer]))
        assert peer.slots_taken == 0, peer.story()


def test_runs_at_once_wait_for_a_slot(tmp_path):
    with Peer(data=b"\0\0", slots=SLOTS, round_trip=0.1) as peer, ThreadPoolExecutor(20) as pool:
        for done in list(
            pool.map(lambda number: run(tmp_path / str(number), [peer]), range(20))
        ):
            assert_read(done)


def test_runs_at_once_wait_for_a_controller_that_works_one_request_at_a_time(tmp_path):
    with Peer(data=b"\0\0", seconds_otherwise=0.1) as peer, ThreadPoolExecutor(20) as pool:
        for done in list(
            pool.map(lambda number: run(tmp_path / str(number), [peer]), range(20))
        ):
            assert_read(done)


def test_full_controller_is_told_as_such(tmp_path):
    with Peer(slots=0) as peer:
        done = run(tmp_path, [peer])
    assert_not_delivered(done)
    assert done.trouble["code"] == "no_session"
    assert "0x01" in done.trouble["text"]
