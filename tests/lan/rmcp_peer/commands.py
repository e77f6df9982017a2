"""The commands that a controller knows."""

import struct

from .steps import Step

NET_FUNCTION_APPLICATION = 0x06
NET_FUNCTION_OEM = 0x3A

GET_DEVICE_ID = (NET_FUNCTION_APPLICATION, 0x01)
GET_AUTHENTICATION_CAPABILITIES = (NET_FUNCTION_APPLICATION, 0x38)
SET_PRIVILEGE = (NET_FUNCTION_APPLICATION, 0x3B)
CLOSE_SESSION = (NET_FUNCTION_APPLICATION, 0x3C)
BUS_STATUS = (NET_FUNCTION_OEM, 0x09)
GENERATION = (NET_FUNCTION_OEM, 0xC1)

INVALID_SESSION = 0x87
PRIVILEGE_NOT_AVAILABLE = 0x81
UNKNOWN_COMMAND = 0xC1
WRONG_LENGTH = 0xC7

STEPS = {
    BUS_STATUS: Step.COMMAND,
    GET_AUTHENTICATION_CAPABILITIES: Step.AUTHENTICATION_CAPABILITIES,
    SET_PRIVILEGE: Step.SET_PRIVILEGE,
    CLOSE_SESSION: Step.CLOSE_SESSION,
}

# IPMI 2.0, manufacturer 343, product 29.
DEVICE_ID = bytes.fromhex("200102100288 570100 1d00 00000000")


def step_of(request):
    return STEPS.get((request.net_function, request.command), Step.OTHER_COMMAND)


class Commands:
    def __init__(self, behaviour, slots):
        self._behaviour = behaviour
        self._slots = slots

    def answer(self, request, session):
        """Completion code and data of the answer; session is None outside one."""
        name = (request.net_function, request.command)
        if name == GET_AUTHENTICATION_CAPABILITIES:
            return self._authentication_capabilities(request.data)
        if session is None:
            return UNKNOWN_COMMAND, b""
        if name == SET_PRIVILEGE:
            return self._set_privilege(request.data, session)
        if name == CLOSE_SESSION:
            return self._close_session(request.data, session)
        return self._plain_answers().get(name, (UNKNOWN_COMMAND, b""))

    def _plain_answers(self):
        told = self._behaviour
        return {
            GET_DEVICE_ID: (0, DEVICE_ID),
            BUS_STATUS: (told.completion_code, told.data),
            GENERATION: (told.generation_completion_code, told.generation_data),
        }

    def _authentication_capabilities(self, data):
        if code := self._behaviour.authentication_capabilities_code:
            return code, b""
        if len(data) != 2:
            return WRONG_LENGTH, b""
        has_user = bool(self._behaviour.user)
        status = (0x04 if has_user else 0x02) | (0x20 if self._behaviour.k_g else 0)
        types = data[0] & 0x80  # IPMI 2.0, as asked for; no type of IPMI 1.5
        return 0, bytes([1, types, status, 0x02, 0, 0, 0, 0])

    def _set_privilege(self, data, session):
        if code := self._behaviour.set_privilege_code:
            return code, b""
        if len(data) != 1:
            return WRONG_LENGTH, b""
        if data[0] > self._behaviour.privilege:
            return PRIVILEGE_NOT_AVAILABLE, b""
        session.privilege = data[0] or session.privilege
        return 0, bytes([session.privilege])

    def _close_session(self, data, session):
        if data[:4] != struct.pack("<I", session.own_id):
            return INVALID_SESSION, b""
        self._slots.free(session)
        return 0, b""
