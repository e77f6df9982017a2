"""Controllers whose answers are wrong: none of these may be judged."""

import pytest
from harness import Case, assert_not_delivered, assert_read
from rmcp_peer import Step, Wrong

HANDSHAKE = (Step.OPEN_SESSION, Step.RAKP_1, Step.RAKP_3)
OF_HANDSHAKE = {
    f"{step.value}: {wrong.value}": Case({"wrong": [wrong], "wrong_at": [step]})
    for step in HANDSHAKE
    for wrong in (Wrong.SEQUENCE, Wrong.SESSION_ID, Wrong.SHORT_PACKET)
}
ONLY = {f"only: {wrong.value}": Case({"wrong": [wrong]}) for wrong in Wrong}
THEN_RIGHT = {
    f"then right: {wrong.value}": Case(
        {"wrong": [wrong], "wrong_data": b"\xff\xff", "then_right": True}
    )
    for wrong in Wrong
    if wrong is not Wrong.NO_COMPLETION_CODE
}
CASES = OF_HANDSHAKE | ONLY | THEN_RIGHT


@pytest.mark.parametrize("name", OF_HANDSHAKE)
def test_wrong_answer_in_the_handshake_opens_no_session(runs, name):
    run = runs[name]
    assert_not_delivered(run)
    assert run.peer.requests(Step.COMMAND) == 0


@pytest.mark.parametrize("name", ONLY)
def test_wrong_answers_alone_are_not_judged(runs, name):
    run = runs[name]
    assert_not_delivered(run)
    assert run.trouble["code"] == "unusable_answers", str(run)
    assert run.peer.answers(Step.COMMAND) > 0


@pytest.mark.parametrize("name", THEN_RIGHT)
def test_right_answer_after_a_wrong_one_is_read(runs, name):
    assert_read(runs[name])
