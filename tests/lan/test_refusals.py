"""Controllers that refuse the login: the trouble says why, and advises nothing beside it."""

import re
from dataclasses import dataclass

import pytest
from harness import Case, assert_not_delivered
from rmcp_peer import Step

# Those that an advice can name, the files of two without their ending.
SETTINGS = re.compile(
    r"\b(user|password|k_g|privilege_level|cipher_suite|protocol|time_limit)(?:_file)?\b"
)


@dataclass(frozen=True)
class Meaning:
    code: str  # of the trouble
    words: str  # in its text
    settings: frozenset = frozenset()  # which its advice may name

    @classmethod
    def of(cls, code, words, *settings):
        return cls(code, words, frozenset(settings))


INVALID_ID = Meaning.of("refused_login", "invalid session ID")
PARAMETER = Meaning.of("refused_login", "parameter", "cipher_suite", "privilege_level")
PRIVILEGE = Meaning.of("refused_privilege", "privilege level", "privilege_level")

OPEN_SESSION = {
    0x02: INVALID_ID,
    0x0A: PRIVILEGE,
    0x0C: Meaning.of("refused_user", "length", "user"),
    0x10: Meaning.of("refused_cipher_suite", "confidentiality", "cipher_suite"),
    0x12: PARAMETER,
}
RAKP_2 = {
    0x02: INVALID_ID,
    0x08: Meaning.of("refused_login", "inactive session ID"),
    0x09: Meaning.of("refused_privilege", "role", "privilege_level"),
    0x0D: Meaning.of("refused_user", "user name", "user"),
    0x0F: Meaning.of("refused_password", "check value", "password", "k_g"),
    0x12: PARAMETER,
}
RAKP_4 = {
    0x02: INVALID_ID,
    0x0F: Meaning.of("refused_password", "check value", "password", "k_g"),
}

STATUSES = {
    f"{name} {status:#04x}": (option, status, meaning)
    for name, option, meanings in (
        ("Open Session", "open_session_status", OPEN_SESSION),
        ("RAKP 2", "rakp2_status", RAKP_2),
        ("RAKP 4", "rakp4_status", RAKP_4),
    )
    for status, meaning in meanings.items()
}
CASES = {name: Case({option: status}) for name, (option, status, _) in STATUSES.items()} | {
    "RAKP 4 wrong": Case({"has_wrong_rakp4": True}),
    "k_g of the controller alone": Case({"k_g": b"key-of-generation"}),
    "another k_g": Case({"k_g": b"key-of-generation"}, {"k_g": "another"}),
    "another password": Case(settings={"password": "another"}),
    "another user": Case({"user": "other"}),
    "lower privilege": Case({"privilege": 2}),
    "no such cipher suite": Case({"cipher_suites": [17]}, {"cipher_suite": 3}),
    "Set Session Privilege Level 0x81": Case({"set_privilege_code": 0x81}),
    "Get Channel Authentication Capabilities 0xCC": Case(
        {"authentication_capabilities_code": 0xCC}
    ),
}


def settings_advised(run):
    return set(SETTINGS.findall(run.trouble["advice"]))


def code_in_text(code):
    return f"0x{code:02x}"


@pytest.mark.parametrize("name", STATUSES)
def test_status_has_its_own_meaning(runs, name):
    _, status, meaning = STATUSES[name]
    run = runs[name]
    assert_not_delivered(run)
    assert code_in_text(status) in run.trouble["text"], str(run)
    assert meaning.words in run.trouble["text"], str(run)
    assert run.trouble["code"] == meaning.code, str(run)
    assert settings_advised(run) <= meaning.settings, str(run)


@pytest.mark.parametrize("name", STATUSES)
def test_refusal_is_the_last_word_but_for_one_more_try(runs, name):
    peer = runs[name].peer
    assert peer.requests(Step.COMMAND) == 0
    assert 1 <= peer.requests(Step.OPEN_SESSION) <= 2, peer.story()


@pytest.mark.parametrize("name", ["RAKP 4 wrong", "k_g of the controller alone", "another k_g"])
def test_wrong_check_value_of_the_controller_is_about_k_g(runs, name):
    run = runs[name]
    assert_not_delivered(run)
    assert run.peer.requests(Step.SET_PRIVILEGE, Step.COMMAND) == 0
    assert "K_G" in run.trouble["text"], str(run)
    assert "k_g" in settings_advised(run) <= {"k_g", "password"}, str(run)


@pytest.mark.parametrize(
    "name, code, advised",
    [
        ("another password", "refused_password", {"password"}),
        ("another user", "refused_user", {"user"}),
        ("lower privilege", "refused_privilege", {"privilege_level"}),
        ("no such cipher suite", "refused_cipher_suite", {"cipher_suite"}),
        ("Set Session Privilege Level 0x81", "refused_privilege", {"privilege_level"}),
    ],
)
def test_refused_setting_is_named(runs, name, code, advised):
    run = runs[name]
    assert_not_delivered(run)
    assert run.trouble["code"] == code, str(run)
    assert settings_advised(run) == advised, str(run)


@pytest.mark.parametrize(
    "name, code",
    [
        ("Set Session Privilege Level 0x81", 0x81),
        ("Get Channel Authentication Capabilities 0xCC", 0xCC),
    ],
)
def test_completion_code_is_told(runs, name, code):
    run = runs[name]
    assert_not_delivered(run)
    assert code_in_text(code) in run.trouble["text"], str(run)
