"""The sessions of a controller, of which there may be few."""

import time

from .session import Session


class Slots:
    def __init__(self, number, seconds):
        self._number = number  # None: any
        self._seconds = seconds
        self._sessions = {}
        self._last_id = 0x02003000
        self.opened = 0
        self.closed = 0

    def take(self, suite, console_id):
        """A new session, or None when no slot is free."""
        self._free_stale()
        if self._number is not None and len(self._sessions) >= self._number:
            return None
        self._last_id += 1
        session = Session(suite, console_id, self._last_id, time.monotonic())
        self._sessions[session.own_id] = session
        return session

    def find(self, own_id):
        """The session, which lives on from now, or None."""
        self._free_stale()
        session = self._sessions.get(own_id)
        if session:
            session.last_packet = time.monotonic()
        return session

    def activate(self, session):
        if not session.is_active:
            session.is_active = True
            self.opened += 1

    def free(self, session):
        if self._sessions.pop(session.own_id, None) and session.is_active:
            self.closed += 1

    def taken(self):
        self._free_stale()
        return len(self._sessions)

    def _free_stale(self):
        oldest = time.monotonic() - self._seconds
        kept = {key: one for key, one in self._sessions.items() if one.last_packet > oldest}
        self._sessions = kept
