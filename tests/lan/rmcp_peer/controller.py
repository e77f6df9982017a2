"""A controller without a network: packet in, packets out."""

from dataclasses import dataclass

from . import distortion, packets
from .commands import Commands, step_of
from .handshake import Handshake
from .packets import Malformed, Payload, Request, Response
from .slots import Slots
from .steps import Step


@dataclass(frozen=True)
class Reply:
    step: Step
    answers: tuple[bytes, ...] = ()


class Controller:
    def __init__(self, behaviour):
        self._behaviour = behaviour
        self.slots = Slots(behaviour.slots, behaviour.slot_seconds)
        self._commands = Commands(behaviour, self.slots)
        handshake = Handshake(behaviour, self.slots)
        self._handshake = {
            packets.TYPE_OPEN_SESSION_REQUEST: (
                Step.OPEN_SESSION,
                packets.TYPE_OPEN_SESSION_RESPONSE,
                handshake.open_session,
            ),
            packets.TYPE_RAKP_1: (Step.RAKP_1, packets.TYPE_RAKP_2, handshake.rakp1),
            packets.TYPE_RAKP_3: (Step.RAKP_3, packets.TYPE_RAKP_4, handshake.rakp3),
        }

    def reply(self, packet):
        """Raises Malformed for a packet that a controller drops."""
        data = packets.session_data(packet)
        if data[0] == packets.FORMAT_NONE:
            return self._outside_session(packets.parse_sessionless(data))
        if data[0] != packets.FORMAT_RMCP_PLUS:
            raise Malformed("neither IPMI 2.0 nor outside a session")
        payload = Payload.parse(data, self._code_length)
        if payload.type in self._handshake:
            return self._of_handshake(payload)
        if payload.type != packets.TYPE_IPMI:
            raise Malformed("unknown payload type")
        return self._in_session(payload)

    def _outside_session(self, message):
        request = Request.parse(message)
        seal = lambda message, wrong: packets.encode_sessionless(message)
        return self._of_command(request, None, seal)

    def _in_session(self, payload):
        session = self.slots.find(payload.session_id)
        if session is None:
            raise Malformed("unknown session")
        request = Request.parse(session.open(payload))
        seal = lambda message, wrong: session.seal(
            message, **distortion.seal_options(session, wrong)
        )
        return self._of_command(request, session, seal)

    def _of_command(self, request, session, seal):
        step = step_of(request)
        if step in self._behaviour.silent:
            return Reply(step)
        response = Response.to(request, *self._commands.answer(request, session))
        wrong_data = self._behaviour.wrong_data if step is Step.COMMAND else None
        return self._distorted(
            step, lambda wrong: seal(distortion.response(response, wrong, wrong_data), wrong)
        )

    def _of_handshake(self, payload):
        step, answer_type, answer = self._handshake[payload.type]
        if step in self._behaviour.silent:
            return Reply(step)
        content = answer(payload.content)
        if content is None:
            return Reply(step)

        def encode(wrong):
            return Payload(
                type=answer_type,
                is_encrypted=False,
                is_authenticated=False,
                session_id=0,
                sequence=0,
                content=distortion.handshake(content, wrong),
            ).encode()

        return self._distorted(step, encode)

    def _distorted(self, step, encode):
        """encode(ways of being wrong) makes a packet."""
        told = self._behaviour
        wrong = told.wrong if step in told.wrong_at else ()
        answers = [distortion.packet(encode(wrong), wrong)]
        if wrong and told.then_right:
            answers.append(encode(()))
        return Reply(step, tuple(answers))

    def _code_length(self, session_id):
        session = self.slots.find(session_id)
        return session.suite.code_length if session else 0
