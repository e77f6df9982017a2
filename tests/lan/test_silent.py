"""Controllers that fall silent."""

import pytest
from harness import Case, assert_not_delivered
from rmcp_peer import LOG_IN, Step

STEPS = (*LOG_IN, Step.COMMAND)
CASES = {step.value: Case({"silent": [step]}) for step in STEPS}


@pytest.mark.parametrize("step", STEPS, ids=lambda step: step.value)
def test_silence_is_not_delivered(runs, step):
    run = runs[step.value]
    assert_not_delivered(run)
    assert run.trouble["code"] == "no_answer"
    assert run.peer.requests(step) > 0
    assert run.peer.answers(step) == 0
