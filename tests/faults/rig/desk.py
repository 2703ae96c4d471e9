# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A desk of the office: the program tzdesk, told by lines what its user does."""

import json
import os
import select
import time

PATIENCE = 60.0


class DeskGone(AssertionError):
    """The desk ended while its answer was awaited."""


class NoAnswer(AssertionError):
    """The desk did not answer in time."""


class Desk:
    def __init__(self, processes, program, arguments, log, environment):
        self._processes = processes
        self.process = processes.start([program, *arguments], log=log, environment=environment, talks=True)
        self._rest = b""

    # --- Talking ---

    def tell(self, *words):
        """Gives a command whose answer is heard later."""
        try:
            self.process.stdin.write(("\t".join(str(word) for word in words) + "\n").encode())
            self.process.stdin.flush()
        except BrokenPipeError as error:
            raise DeskGone(words[0]) from error

    def hear(self, seconds=PATIENCE):
        deadline = time.monotonic() + seconds
        while b"\n" not in self._rest:
            left = deadline - time.monotonic()
            if left <= 0:
                raise NoAnswer(f"no answer within {seconds:g} s")
            if not select.select([self.process.stdout], [], [], left)[0]:
                continue
            part = os.read(self.process.stdout.fileno(), 65536)
            if not part:
                raise DeskGone("the desk ended")
            self._rest += part
        line, _, self._rest = self._rest.partition(b"\n")
        return json.loads(line)

    def ask(self, *words, seconds=PATIENCE):
        self.tell(*words)
        return self.hear(seconds)

    def do(self, *words, seconds=PATIENCE, awaited="done"):
        """The value of a command that must be answered so."""
        answer = self.ask(*words, seconds=seconds)
        if answer["is"] != awaited:
            raise AssertionError(f"{' '.join(str(word) for word in words)}: {json.dumps(answer, ensure_ascii=False)}")
        return answer.get("value")

    # --- What users do ---

    def open(self, key, kind="contract"):
        return self.do("edit", kind, key, awaited="window")

    def fill_new(self, persons, amount, explanation=""):
        """A new contract, filled in and not yet saved."""
        self.do("new", "contract", awaited="window")
        self.do("parties", *persons)
        self.do("set", "dAmount", amount)
        self.do("vehicle")
        if explanation:
            self.do("set", "sExplain", explanation)

    def add_contract(self, persons, amount, explanation=""):
        """A new contract; its key once it is saved."""
        self.fill_new(persons, amount, explanation)
        return self.do("save", awaited="closed")

    # --- Ends ---

    def kill(self):
        self.process.kill()
        self.process.wait()
        self._forget()

    def leave(self):
        self.process.stdin.close()
        self.process.wait(10)
        self._forget()

    def _forget(self):
        self._processes.forget(self.process)
        for stream in (self.process.stdin, self.process.stdout):
            try:
                stream.close()
            except BrokenPipeError:
                pass
