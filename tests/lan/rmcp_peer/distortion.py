"""How an answer becomes wrong."""

import dataclasses

from .behaviour import Wrong

WRONG_SESSION_ID_BITS = 0x00550000
SHORT_MESSAGE_LENGTH = 5

# Names of Session.seal's options.
_SEALS = {
    Wrong.PLAIN: "is_plain",
    Wrong.UNENCRYPTED: "is_unencrypted",
    Wrong.AUTHENTICATION_CODE: "has_wrong_code",
}


def response(right, wrong, wrong_data):
    """The IPMI message, distorted; with other data unless wrong_data is None."""
    changes = {}
    if wrong and wrong_data is not None:
        changes["body"] = right.body[:1] + wrong_data
    if Wrong.NETWORK_FUNCTION in wrong:
        changes["net_function"] = right.net_function ^ 0x02
    if Wrong.RESPONDER in wrong:
        changes["responder"] = right.responder ^ 0x02
    if Wrong.COMMAND in wrong:
        changes["command"] = right.command ^ 0x01
    if Wrong.SEQUENCE in wrong:
        changes["sequence"] = right.sequence ^ 0x20
    if Wrong.NO_COMPLETION_CODE in wrong:
        changes["body"] = b""
    message = dataclasses.replace(right, **changes).encode()
    return message[:SHORT_MESSAGE_LENGTH] if Wrong.SHORT_MESSAGE in wrong else message


def handshake(content, wrong):
    """The content of an Open Session Response, RAKP 2 or RAKP 4, distorted."""
    if Wrong.SEQUENCE in wrong:
        content = bytes([content[0] ^ 0x20]) + content[1:]
    if Wrong.SESSION_ID in wrong:
        content = content[:6] + bytes([content[6] ^ WRONG_SESSION_ID_BITS >> 16]) + content[7:]
    return content


def seal_options(session, wrong):
    options = {name: True for kind, name in _SEALS.items() if kind in wrong}
    if Wrong.SESSION_ID in wrong:
        options["session_id"] = session.console_id ^ WRONG_SESSION_ID_BITS
    return options


def packet(whole, wrong):
    return whole[: len(whole) // 2] if Wrong.SHORT_PACKET in wrong else whole
