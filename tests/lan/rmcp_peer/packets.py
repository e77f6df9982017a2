"""Bytes of RMCP, RMCP+ and IPMI messages."""

import struct
from dataclasses import dataclass

RMCP_HEADER = bytes([0x06, 0x00, 0xFF, 0x07])

FORMAT_NONE = 0x00  # IPMI 1.5 without authentication
FORMAT_RMCP_PLUS = 0x06

TYPE_IPMI = 0x00
TYPE_OPEN_SESSION_REQUEST = 0x10
TYPE_OPEN_SESSION_RESPONSE = 0x11
TYPE_RAKP_1 = 0x12
TYPE_RAKP_2 = 0x13
TYPE_RAKP_3 = 0x14
TYPE_RAKP_4 = 0x15

BIT_ENCRYPTED = 0x80
BIT_AUTHENTICATED = 0x40

NEXT_HEADER = 0x07


class Malformed(Exception):
    """A packet that a controller drops."""


def checksum(data):
    return -sum(data) & 0xFF


@dataclass(frozen=True)
class Request:
    responder: int
    net_function: int
    requester: int
    requester_lun: int
    responder_lun: int
    sequence: int
    command: int
    data: bytes

    @classmethod
    def parse(cls, message):
        if len(message) < 7:
            raise Malformed("message too short")
        if checksum(message[:2]) != message[2] or checksum(message[3:-1]) != message[-1]:
            raise Malformed("wrong checksum")
        return cls(
            responder=message[0],
            net_function=message[1] >> 2,
            responder_lun=message[1] & 3,
            requester=message[3],
            sequence=message[4] >> 2,
            requester_lun=message[4] & 3,
            command=message[5],
            data=message[6:-1],
        )


@dataclass(frozen=True)
class Response:
    requester: int
    net_function: int
    requester_lun: int
    responder: int
    responder_lun: int
    sequence: int
    command: int
    body: bytes  # completion code and data

    @classmethod
    def to(cls, request, completion_code, data=b""):
        return cls(
            requester=request.requester,
            net_function=request.net_function | 1,
            requester_lun=request.requester_lun,
            responder=request.responder,
            responder_lun=request.responder_lun,
            sequence=request.sequence,
            command=request.command,
            body=bytes([completion_code]) + data,
        )

    def encode(self):
        head = bytes([self.requester, self.net_function << 2 | self.requester_lun])
        rest = bytes([self.responder, self.sequence << 2 | self.responder_lun, self.command])
        rest += self.body
        return head + bytes([checksum(head)]) + rest + bytes([checksum(rest)])


@dataclass(frozen=True)
class Payload:
    """What follows the RMCP header of an RMCP+ packet."""

    type: int
    is_encrypted: bool
    is_authenticated: bool
    session_id: int
    sequence: int
    content: bytes  # still encrypted
    signed: bytes = b""  # what the authentication code is made of
    code: bytes = b""

    @classmethod
    def parse(cls, data, code_length):
        """code_length(session ID) tells the length of the session's authentication codes."""
        if len(data) < 12:
            raise Malformed("session header too short")
        kind, session_id, sequence, length = struct.unpack_from("<xBIIH", data)
        content = data[12 : 12 + length]
        if len(content) != length:
            raise Malformed("payload too short")
        is_authenticated = bool(kind & BIT_AUTHENTICATED)
        end = len(data) - code_length(session_id) if is_authenticated else len(data)
        return cls(
            type=kind & 0x3F,
            is_encrypted=bool(kind & BIT_ENCRYPTED),
            is_authenticated=is_authenticated,
            session_id=session_id,
            sequence=sequence,
            content=content,
            signed=data[:end],
            code=data[end:],
        )

    def encode(self, sign=None):
        """The packet; sign makes the authentication code of bytes."""
        kind = self.type
        kind |= BIT_ENCRYPTED if self.is_encrypted else 0
        kind |= BIT_AUTHENTICATED if self.is_authenticated else 0
        data = struct.pack(
            "<BBIIH", FORMAT_RMCP_PLUS, kind, self.session_id, self.sequence, len(self.content)
        )
        data += self.content
        if self.is_authenticated:
            padding = -(len(data) + 2) % 4
            data += b"\xff" * padding + bytes([padding, NEXT_HEADER])
            data += sign(data)
        return RMCP_HEADER + data


def session_data(packet):
    """The packet without its RMCP header."""
    if len(packet) < 5 or packet[:1] != RMCP_HEADER[:1] or packet[3:4] != RMCP_HEADER[3:]:
        raise Malformed("not RMCP with IPMI")
    return packet[4:]


def parse_sessionless(data):
    """The message of an IPMI 1.5 packet without a session."""
    if len(data) < 10:
        raise Malformed("session header too short")
    sequence, session_id, length = struct.unpack_from("<xIIB", data)
    message = data[10 : 10 + length]
    if sequence or session_id or len(message) != length:
        raise Malformed("not a packet outside a session")
    return message


def encode_sessionless(message):
    return RMCP_HEADER + struct.pack("<BIIB", FORMAT_NONE, 0, 0, len(message)) + message
