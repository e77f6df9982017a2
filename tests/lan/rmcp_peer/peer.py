"""A controller on the loopback interface, in a thread of its own."""

import asyncio
import socket
import threading
import time

from .behaviour import Behaviour
from .controller import Controller
from .network import Network
from .packets import Malformed
from .trace import Event, Happening

ADDRESS = "127.0.0.1"


class Peer(asyncio.DatagramProtocol):
    """Works from `with` to its end. Options are those of Behaviour."""

    def __init__(self, **options):
        self.behaviour = Behaviour(**options)
        self.trace = []
        self._controller = Controller(self.behaviour)
        self._network = Network(self.behaviour)
        self._socket = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self._socket.bind((ADDRESS, 0))
        self.port = self._socket.getsockname()[1]
        self._begin = time.monotonic()
        self._loop = asyncio.new_event_loop()
        self._thread = threading.Thread(target=self._serve, daemon=True)
        self._error = None
        self._listens = threading.Event()

    def __enter__(self):
        self._thread.start()
        self._listens.wait()
        return self

    def __exit__(self, *_):
        self._loop.call_soon_threadsafe(self._loop.stop)
        self._thread.join()
        if self._error:
            raise self._error

    @property
    def sessions_opened(self):
        return self._controller.slots.opened

    @property
    def sessions_closed(self):
        return self._controller.slots.closed

    @property
    def slots_taken(self):
        return self._controller.slots.taken()

    def requests(self, *steps):
        """How many requests arrived of these steps, or at all."""
        return self._count(Happening.REQUEST, steps)

    def answers(self, *steps):
        return self._count(Happening.ANSWER, steps)

    def story(self):
        """Everything that happened, a line each."""
        return "\n".join(map(str, self.trace))

    def _count(self, happening, steps):
        return sum(
            event.happening is happening and (not steps or event.step in steps)
            for event in self.trace
        )

    def _note(self, *what):
        self.trace.append(Event(time.monotonic() - self._begin, *what))

    def _serve(self):
        asyncio.set_event_loop(self._loop)
        self._loop.set_exception_handler(self._on_error)
        self._queue = asyncio.Queue()
        self._tasks = {self._loop.create_task(self._work())}
        endpoint = self._loop.create_datagram_endpoint(lambda: self, sock=self._socket)
        transport, _ = self._loop.run_until_complete(endpoint)
        self._listens.set()
        self._loop.run_forever()
        for task in self._tasks:
            task.cancel()
        self._loop.run_until_complete(asyncio.gather(*self._tasks, return_exceptions=True))
        transport.close()
        self._loop.run_until_complete(asyncio.sleep(0))
        self._loop.close()

    def _on_error(self, _, context):
        self._error = self._error or context.get("exception") or RuntimeError(context["message"])

    def connection_made(self, transport):
        self._transport = transport

    def datagram_received(self, packet, client):
        if self._network.loses_request():
            self._note(Happening.LOST_REQUEST)
        else:
            self._queue.put_nowait((packet, client))

    async def _work(self):
        while True:
            packet, client = await self._queue.get()
            answering = self._answer(packet, client)
            if self.behaviour.is_concurrent:
                self._tasks.add(self._loop.create_task(answering))
            else:
                await answering

    async def _answer(self, packet, client):
        try:
            reply = self._controller.reply(packet)
        except Malformed as error:
            self._note(Happening.DROPPED, None, str(error))
            return
        except Exception as error:  # the test is to see it
            self._error = self._error or error
            return
        self._note(Happening.REQUEST, reply.step)
        if reply.answers:
            await asyncio.sleep(
                self.behaviour.seconds.get(reply.step, self.behaviour.seconds_otherwise)
            )
        for answer in reply.answers:
            self._send(answer, client, reply.step)

    def _send(self, answer, client, step):
        if self._network.loses_answer():
            self._note(Happening.LOST_ANSWER, step)
            return

        def send():
            self._note(Happening.ANSWER, step)
            self._transport.sendto(answer, client)

        if seconds := self._network.seconds_under_way():
            self._loop.call_later(seconds, send)
        else:
            send()
