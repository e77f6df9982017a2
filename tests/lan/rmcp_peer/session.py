"""One session: its keys, and packets within it."""

import hmac
import os
import struct
from dataclasses import dataclass, field

from .crypto import CipherSuite, decrypt, encrypt
from .packets import TYPE_IPMI, Malformed, Payload

# How far a sequence number may be from the highest so far.
AHEAD = 15
BEHIND = 16


@dataclass
class Session:
    suite: CipherSuite
    console_id: int  # the client's
    own_id: int
    last_packet: float  # time
    is_active: bool = False
    rakp1: bytes = b""  # as received, without its tag
    console_random: bytes = b""
    own_random: bytes = field(default_factory=lambda: os.urandom(16))
    role_and_name: bytes = b""
    integrity_key: bytes = b""
    encryption_key: bytes = b""
    session_key: bytes = b""
    privilege: int = 0
    sequence: int = 0  # of the last answer
    highest: int = 0  # sequence number of the requests so far
    seen: set = field(default_factory=set)

    def derive_keys(self, k_g):
        data = self.console_random + self.own_random + self.role_and_name
        self.session_key = self.suite.hmac(k_g, data)
        self.integrity_key = self.suite.derived_key(self.session_key, 1)
        self.encryption_key = self.suite.derived_key(self.session_key, 2)

    def rakp2_code(self, user_key, guid):
        ids = struct.pack("<II", self.console_id, self.own_id)
        data = ids + self.console_random + self.own_random + guid + self.role_and_name
        return self.suite.hmac(user_key, data)

    def rakp3_code(self, user_key):
        data = self.own_random + struct.pack("<I", self.console_id) + self.role_and_name
        return self.suite.hmac(user_key, data)

    def rakp4_code(self, guid):
        data = self.console_random + struct.pack("<I", self.own_id) + guid
        return self.suite.code(self.session_key, data)

    def open(self, payload):
        """The message of a request. Raises Malformed for one that a controller must drop."""
        if not self.is_active:
            raise Malformed("session not active")
        if payload.is_authenticated != self.suite.is_authenticating():
            raise Malformed("authenticated otherwise than the session")
        if payload.is_encrypted != self.suite.is_encrypting():
            raise Malformed("encrypted otherwise than the session")
        code = self._sign(payload.signed) if payload.is_authenticated else b""
        if not hmac.compare_digest(code, payload.code):
            raise Malformed("wrong authentication code")
        self._check_sequence(payload.sequence)
        if not payload.is_encrypted:
            return payload.content
        return decrypt(self.encryption_key, payload.content)

    def seal(
        self,
        message,
        is_plain=False,
        is_unencrypted=False,
        has_wrong_code=False,
        session_id=None,
    ):
        """The packet of an answer."""
        self.sequence += 1
        is_encrypted = self.suite.is_encrypting() and not (is_plain or is_unencrypted)
        payload = Payload(
            type=TYPE_IPMI,
            is_encrypted=is_encrypted,
            is_authenticated=self.suite.is_authenticating() and not is_plain,
            session_id=self.console_id if session_id is None else session_id,
            sequence=self.sequence,
            content=encrypt(self.encryption_key, message) if is_encrypted else message,
        )
        return payload.encode(self._sign_wrongly if has_wrong_code else self._sign)

    def _sign(self, data):
        return self.suite.code(self.integrity_key, data)

    def _sign_wrongly(self, data):
        return bytes(byte ^ 0xFF for byte in self._sign(data))

    def _check_sequence(self, sequence):
        if sequence in self.seen:
            raise Malformed("sequence number twice")
        if not self.highest - BEHIND <= sequence <= self.highest + AHEAD:
            raise Malformed("sequence number out of the window")
        self.seen.add(sequence)
        self.highest = max(self.highest, sequence)
