"""The peer of these tests, as ipmitool and FreeIPMI's ipmi-raw see it."""

import pytest
from clients import ipmi_raw, ipmitool
from rmcp_peer import Peer, Step, Wrong
from rmcp_peer.crypto import SUITES
from rmcp_peer.slots import Slots

DATA = b"\x01\x02\x80"
K_G = "key-of-generation"

both_clients = pytest.mark.parametrize("client", [ipmitool, ipmi_raw])


# What IPMI 2.0 calls the status codes of RMCP+, in ipmitool's words.
STATUS = {
    0x01: "insufficient resources for session",
    0x02: "invalid session ID",
    0x08: "inactive session ID",
    0x09: "invalid role",
    0x0A: "unauthorized role requested",
    0x0C: "invalid name length",
    0x0D: "unauthorized name",
    0x0F: "invalid integrity check value",
    0x10: "invalid confidentiality algorithm",
    0x11: "no matching cipher suite",
    0x12: "illegal parameter",
}


@both_clients
@pytest.mark.parametrize("k_g", ["", K_G], ids=["password", "k_g"])
@pytest.mark.parametrize("suite", [0, 3, 17])
def test_sound_controller_is_read_and_sessions_are_closed(client, suite, k_g):
    with Peer(data=DATA, k_g=k_g.encode()) as peer:
        assert client(peer, cipher_suite=suite, k_g=k_g).data == DATA
    assert (peer.sessions_opened, peer.sessions_closed, peer.slots_taken) == (1, 1, 0)
    assert peer.requests(Step.COMMAND) == 1
    assert "dropped" not in peer.story()


def test_other_commands_are_answered():
    with Peer(generation_data=b"\x00\x03") as peer:
        assert ipmitool(peer, command=("0x3a", "0xc1")).data == b"\x00\x03"
        assert ipmitool(peer, command=("0x06", "0x01")).data[6:11] == b"\x57\x01\x00\x1d\x00"
        assert "rsp=0xc1): Invalid command" in ipmitool(peer, command=("0x3a", "0x10")).words


@both_clients
@pytest.mark.parametrize(
    "options",
    [
        {"seconds": {Step.COMMAND: 0.5}},
        {"round_trip": 0.1},
        {"late_every": 2, "late_seconds": 0.3},
        {"slots": 1, "seconds": {Step.OPEN_SESSION: 0.3}},
        {"wrong": [Wrong.SEQUENCE], "then_right": True},
        {"wrong": [Wrong.SESSION_ID], "then_right": True},
        {"silent": [Step.CLOSE_SESSION]},
    ],
    ids=str,
)
def test_passable_controller_is_read(client, options):
    with Peer(data=DATA, **options) as peer:
        assert client(peer).data == DATA


@pytest.mark.parametrize("options", [{"lose_request_every": 4}, {"lose_answer_every": 4}], ids=str)
def test_lossy_controller_is_read_by_ipmi_raw(options):
    with Peer(data=DATA, **options) as peer:
        assert ipmi_raw(peer).data == DATA
    assert "lost" in peer.story()


def test_repeated_rakp3_is_not_answered_when_told_so():
    with Peer(lose_answer_every=4, repeats_handshake=False) as peer:
        assert ipmi_raw(peer, silence=3).data is None
    assert peer.requests(Step.RAKP_3) > 1
    assert peer.answers(Step.RAKP_3) == 0


@pytest.mark.parametrize("status", STATUS, ids=hex)
def test_open_session_status_has_its_meaning(status):
    with Peer(open_session_status=status) as peer:
        words = ipmitool(peer).words
    assert f"Error in open session response message : {STATUS[status]}\n" in words


@pytest.mark.parametrize("status", STATUS, ids=hex)
def test_rakp2_status_has_its_meaning(status):
    with Peer(rakp2_status=status) as peer:
        words = ipmitool(peer).words
    assert f"RAKP 2 message indicates an error : {STATUS[status]}\n" in words


@pytest.mark.parametrize("status", STATUS, ids=hex)
def test_rakp4_status_has_its_meaning(status):
    with Peer(rakp4_status=status) as peer:
        words = ipmitool(peer).words
    assert f"RAKP 4 message indicates an error : {STATUS[status]}\n" in words


@pytest.mark.parametrize(
    "options, words",
    [
        ({"has_wrong_rakp4": True}, "RAKP 4 message has invalid integrity check value"),
        ({"set_privilege_code": 0x81}, "Set Session Privilege Level to ADMINISTRATOR failed"),
        ({"authentication_capabilities_code": 0xCC}, "Get Auth Capabilities error"),
        ({"user": "other"}, "RAKP 2 message indicates an error : unauthorized name"),
        ({"privilege": 3}, "RAKP 2 message indicates an error : unauthorized role requested"),
        ({"cipher_suites": [17]}, "open session response message : no matching cipher suite"),
        ({"slots": 0}, "open session response message : insufficient resources for session"),
        ({"wrong": [Wrong.AUTHENTICATION_CODE]}, "message with invalid authcode"),
        ({"wrong": [Wrong.SESSION_ID]}, "does not match active session"),
        ({"completion_code": 0xC1, "data": b""}, "rsp=0xc1): Invalid command"),
    ],
    ids=str,
)
def test_refusal_and_wrong_answer_have_their_meaning(options, words):
    with Peer(**options) as peer:
        answer = ipmitool(peer, silence=1, tries=1)
    assert answer.data is None
    assert words in answer.words


def test_wrong_password_is_seen_at_rakp2():
    with Peer() as peer:
        assert "RAKP 2 HMAC is invalid" in ipmitool(peer, password="another").words
        assert "password invalid" in ipmi_raw(peer, password="another").words
    assert peer.sessions_opened == 0


def test_wrong_k_g_is_seen_at_rakp4():
    with Peer(k_g=K_G.encode()) as peer:
        answer = ipmitool(peer, k_g="another")
    assert "RAKP 4 message has invalid integrity check value" in answer.words


@pytest.mark.parametrize(
    "step",
    [
        Step.AUTHENTICATION_CAPABILITIES,
        Step.OPEN_SESSION,
        Step.RAKP_1,
        Step.RAKP_3,
        Step.SET_PRIVILEGE,
        Step.COMMAND,
    ],
)
def test_silent_step_is_the_last_one(step):
    with Peer(silent=[step]) as peer:
        assert ipmi_raw(peer, silence=1).data is None
    assert peer.requests(step) > 0
    assert peer.answers(step) == 0
    steps = list(Step)
    assert peer.requests(*steps[steps.index(step) + 1 : -1]) == 0


@pytest.mark.parametrize(
    "wrong",
    [Wrong.SEQUENCE, Wrong.PLAIN, Wrong.UNENCRYPTED, Wrong.SHORT_PACKET, Wrong.SHORT_MESSAGE],
)
def test_wrong_answer_is_dropped_by_ipmi_raw(wrong):
    with Peer(wrong=[wrong]) as peer:
        assert "session timeout" in ipmi_raw(peer, silence=1).words
    assert peer.answers(Step.COMMAND) > 0


def test_peer_that_nobody_asks_ends():
    for _ in range(100):
        with Peer() as peer:
            pass
        assert peer.trace == []


def test_requests_are_worked_on_one_after_another():
    with Peer(seconds={Step.COMMAND: 1.5}) as peer:
        ipmi_raw(peer, silence=4)
    happenings = [event.happening.value for event in peer.trace if event.step is Step.COMMAND]
    # Retransmissions are worked on, too.
    assert len(happenings) > 2
    assert set(happenings[0::2]) == {"request"}
    assert set(happenings[1::2]) == {"answer"}


def test_slot_stays_taken_by_a_session_that_is_not_closed():
    with Peer(slots=1, silent=[Step.CLOSE_SESSION]) as peer:
        assert ipmi_raw(peer, silence=1).data is not None
        assert "BMC busy" in ipmi_raw(peer).words
        assert peer.slots_taken == 1


def test_slot_of_a_stale_session_is_free():
    slots = Slots(number=1, seconds=0)
    assert slots.take(SUITES[3], 1) is not None
    assert slots.take(SUITES[3], 1) is not None
    assert slots.taken() == 0
