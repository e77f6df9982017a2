"""Open Session and RAKP: how a session comes to be."""

import hmac
import os
import struct

from .crypto import SUITES
from .packets import Malformed

STATUS_NO_SLOT = 0x01
STATUS_INVALID_SESSION_ID = 0x02
STATUS_UNAUTHORIZED_ROLE = 0x0A
STATUS_UNAUTHORIZED_NAME = 0x0D
STATUS_WRONG_CHECK_VALUE = 0x0F
STATUS_NO_CIPHER_SUITE = 0x11

PRIVILEGE_MASK = 0x0F
ADMINISTRATOR = 4


class Handshake:
    """Each method takes a payload's content and returns the answer's, or None for none."""

    def __init__(self, behaviour, slots):
        self._behaviour = behaviour
        self._slots = slots
        self._guid = os.urandom(16)
        self._user_key = behaviour.password.encode()

    def open_session(self, content):
        if len(content) != 32:
            raise Malformed("Open Session of a wrong length")
        tag, privilege, console_id = struct.unpack_from("<BBxxI", content)
        if status := self._behaviour.open_session_status:
            return _refusal(tag, status, console_id)
        suite = self._offered(content[12], content[20], content[28])
        if suite is None:
            return _refusal(tag, STATUS_NO_CIPHER_SUITE, console_id)
        session = self._slots.take(suite, console_id)
        if session is None:
            return _refusal(tag, STATUS_NO_SLOT, console_id)
        # Whose session it is to be is not known yet, so the user's highest level does not count.
        granted = privilege & PRIVILEGE_MASK or ADMINISTRATOR
        head = struct.pack("<BBBxII", tag, 0, granted, console_id, session.own_id)
        return head + content[8:]

    def rakp1(self, content):
        if len(content) < 28 or len(content) != 28 + content[27]:
            raise Malformed("RAKP 1 of a wrong length")
        tag, own_id = struct.unpack_from("<BxxxI", content)
        session = self._slots.find(own_id)
        if session is None:
            return _refusal(tag, STATUS_INVALID_SESSION_ID, 0)
        if session.rakp1 and not self._behaviour.repeats_handshake:
            return None
        if session.is_active and session.rakp1 != content[1:]:
            return None
        status = self._behaviour.rakp2_status or self._judge(content)
        if status:
            self._slots.free(session)
            return _refusal(tag, status, session.console_id)
        session.rakp1 = content[1:]
        session.console_random = content[8:24]
        session.role_and_name = content[24:25] + content[27:]
        session.derive_keys(self._behaviour.k_g or self._user_key)
        head = struct.pack("<BBxxI", tag, 0, session.console_id)
        code = session.rakp2_code(self._user_key, self._guid)
        return head + session.own_random + self._guid + code

    def rakp3(self, content):
        if len(content) < 8:
            raise Malformed("RAKP 3 of a wrong length")
        tag, status, own_id = struct.unpack_from("<BBxxI", content)
        session = self._slots.find(own_id)
        if session is None or not session.rakp1:
            return _refusal(tag, STATUS_INVALID_SESSION_ID, 0)
        if status:
            self._slots.free(session)
            return None
        if session.is_active and not self._behaviour.repeats_handshake:
            return None
        if status := self._behaviour.rakp4_status:
            self._slots.free(session)
            return _refusal(tag, status, session.console_id)
        if not hmac.compare_digest(content[8:], session.rakp3_code(self._user_key)):
            return self._wrong_rakp3(tag, session)
        self._slots.activate(session)
        code = session.rakp4_code(self._guid)
        if self._behaviour.has_wrong_rakp4:
            code = bytes(byte ^ 0xFF for byte in code)
        return struct.pack("<BBxxI", tag, 0, session.console_id) + code

    def _offered(self, *algorithms):
        for number in self._behaviour.cipher_suites:
            suite = SUITES[number]
            if (suite.authentication, suite.integrity, suite.confidentiality) == algorithms:
                return suite
        return None

    def _judge(self, rakp1):
        if rakp1[28:] != self._behaviour.user.encode():
            return STATUS_UNAUTHORIZED_NAME
        if rakp1[24] & PRIVILEGE_MASK > self._behaviour.privilege:
            return STATUS_UNAUTHORIZED_ROLE
        return 0

    def _wrong_rakp3(self, tag, session):
        if not self._behaviour.refuses_bad_rakp3:
            return None
        self._slots.free(session)
        return _refusal(tag, STATUS_WRONG_CHECK_VALUE, session.console_id)


def _refusal(tag, status, console_id):
    return struct.pack("<BBxxI", tag, status, console_id)
