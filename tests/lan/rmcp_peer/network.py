"""What the network does to packets."""

import random


class Network:
    def __init__(self, behaviour):
        self._requests = _Way(behaviour.lose_request_every, behaviour.loss, behaviour.seed, "there")
        self._answers = _Way(behaviour.lose_answer_every, behaviour.loss, behaviour.seed, "back")
        self._behaviour = behaviour
        self._delivered = 0

    def loses_request(self):
        return self._requests.loses()

    def loses_answer(self):
        return self._answers.loses()

    def seconds_under_way(self):
        """Of the next answer, and of its request."""
        told = self._behaviour
        self._delivered += 1
        is_late = told.late_every and self._delivered % told.late_every == 0
        return told.round_trip + (told.late_seconds if is_late else 0)


class _Way:
    def __init__(self, every, loss, seed, name):
        self._every = every
        self._loss = loss
        self._random = random.Random(f"{seed} {name}")
        self._packets = 0

    def loses(self):
        self._packets += 1
        is_lost_at_random = self._random.random() < self._loss
        return is_lost_at_random or (self._every > 0 and self._packets % self._every == 0)
