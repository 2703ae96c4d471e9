# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A wire between a program and its database server that can be cut, or go silent, at any statement.

It listens on loopback and passes everything on. A rule sees each statement before it reaches the server and says what
becomes of it; without one, everything passes.
"""

import enum
import select
import socket
import threading

_QUERY = 3
_GREETING_SEQUENCE = 0


class Fate(enum.Enum):
    PASSES = "it goes on, and its answer comes back"
    CUT_BEFORE = "the wire breaks before it reaches the server"
    CUT_AFTER = "it reaches the server, and the wire breaks before the answer comes back"
    SILENT_AFTER = "it reaches the server; the answer never comes, and the wire stays"


class Wire:
    def __init__(self, server_port):
        self._server_port = server_port
        self._listener = socket.create_server(("127.0.0.1", 0))
        self.port = self._listener.getsockname()[1]
        self._lock = threading.Lock()
        self._rule = None
        self._unplugged = False
        self._ended = False
        self.statements = []
        # Called where a wire is cut after the server's answer, before anybody can see that it is.
        self.after_answer = None
        threading.Thread(target=self._accept, daemon=True).start()

    def obey(self, rule):
        """rule(statement) -> Fate, called in the order of the statements, one at a time. None: everything passes."""
        with self._lock:
            self._rule = rule
            self.statements = []

    def unplug(self, out=True):
        """While out, nobody gets a connection any more; those that are open stay."""
        self._unplugged = out

    def close(self):
        self._ended = True
        self._listener.close()

    def _accept(self):
        while not self._ended:
            try:
                client, _ = self._listener.accept()
            except OSError:
                return
            if self._unplugged:
                client.close()
                continue
            threading.Thread(target=self._carry, args=(client,), daemon=True).start()

    def _fate(self, statement):
        with self._lock:
            self.statements.append(statement)
            return self._rule(statement) if self._rule else Fate.PASSES

    def _carry(self, client):
        try:
            server = socket.create_connection(("127.0.0.1", self._server_port))
        except OSError:
            client.close()
            return
        for line in (client, server):
            line.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        try:
            self._carry_until_cut(client, server)
        except OSError:
            pass
        finally:
            client.close()
            server.close()

    def _carry_until_cut(self, client, server):
        packets = _Packets()
        mute = False
        while True:
            for line in select.select([client, server], [], [])[0]:
                data = line.recv(65536)
                if not data:
                    return
                if line is server:
                    if not mute:
                        client.sendall(data)
                    continue
                for packet, statement in packets.of(data):
                    fate = Fate.PASSES if statement is None else self._fate(statement)
                    if fate is Fate.CUT_BEFORE:
                        return
                    server.sendall(packet)
                    if fate is Fate.CUT_AFTER:
                        # What the server says is what makes sure that it is done.
                        server.recv(65536)
                        if self.after_answer:
                            self.after_answer()
                        return
                    mute = mute or fate is Fate.SILENT_AFTER


class _Packets:
    """Cuts what a client sends into whole packets, and reads the statements among them."""

    def __init__(self):
        self._rest = b""

    def of(self, data):
        self._rest += data
        while len(self._rest) >= 4:
            length = int.from_bytes(self._rest[:3], "little") + 4
            if len(self._rest) < length:
                return
            packet, self._rest = self._rest[:length], self._rest[length:]
            is_query = packet[3] == _GREETING_SEQUENCE and length > 5 and packet[4] == _QUERY
            yield packet, packet[5:].decode("utf-8", "replace") if is_query else None


def nth(number, action, *, counts=None):
    """A rule that lets statements pass until the n-th that counts (from 1), then asks action(statement) for its fate."""
    seen = 0

    def rule(statement):
        nonlocal seen
        if counts is None or counts(statement):
            seen += 1
            if seen == number:
                return action(statement)
        return Fate.PASSES
    return rule


def at_commit(fate):
    """A rule for the next COMMIT; what follows passes."""
    return nth(1, lambda _: fate, counts=lambda statement: statement.startswith("COMMIT"))
