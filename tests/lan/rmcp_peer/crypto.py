"""Cipher suites of RMCP+."""

import hmac
import os
from dataclasses import dataclass

from cryptography.hazmat.primitives.ciphers import Cipher, algorithms, modes

from .packets import Malformed

BLOCK = 16
CONSTANT_LENGTH = 20  # with SHA-256, too


@dataclass(frozen=True)
class CipherSuite:
    # The numbers that Open Session gives them.
    authentication: int
    integrity: int
    confidentiality: int
    digest: str | None  # of authentication and integrity
    code_length: int  # of integrity check values and authentication codes

    def hmac(self, key, data):
        """The whole HMAC, empty without authentication."""
        return hmac.digest(key, data, self.digest) if self.digest else b""

    def code(self, key, data):
        return self.hmac(key, data)[: self.code_length]

    def is_encrypting(self):
        return self.confidentiality != 0

    def is_authenticating(self):
        return self.integrity != 0

    def derived_key(self, session_key, number):
        """K1 and K2 of the session integrity key."""
        return self.hmac(session_key, bytes([number]) * CONSTANT_LENGTH)


SUITES = {
    0: CipherSuite(0, 0, 0, None, 0),
    3: CipherSuite(1, 1, 1, "sha1", 12),
    17: CipherSuite(3, 4, 1, "sha256", 16),
}


def encrypt(key, data):
    """AES-CBC-128 with its padding, behind a random initialisation vector."""
    padding = -(len(data) + 1) % BLOCK
    data += bytes(range(1, padding + 1)) + bytes([padding])
    vector = os.urandom(BLOCK)
    encryptor = _cipher(key, vector).encryptor()
    return vector + encryptor.update(data) + encryptor.finalize()


def decrypt(key, data):
    if len(data) < 2 * BLOCK or len(data) % BLOCK:
        raise Malformed("encrypted payload of a wrong length")
    decryptor = _cipher(key, data[:BLOCK]).decryptor()
    plain = decryptor.update(data[BLOCK:]) + decryptor.finalize()
    padding = plain[-1]
    if padding >= BLOCK or plain[-1 - padding : -1] != bytes(range(1, padding + 1)):
        raise Malformed("wrong padding")
    return plain[: -1 - padding]


def _cipher(key, vector):
    return Cipher(algorithms.AES(key[:BLOCK]), modes.CBC(vector))
