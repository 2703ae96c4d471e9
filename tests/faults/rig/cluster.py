# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Three database servers on loopback that are one Galera cluster, each of which can be killed."""

import getpass
import glob
import os
import random
import shutil
import socket
import stat
import subprocess

from lib.database import Database
from lib.waiting import wait_for

# Where scripts/setup.sh puts them when the server's package is not installed.
_SCRIPTS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..", "build", "unpacked")
_PROVIDERS = ("/usr/lib/galera/libgalera_smm.so", "/usr/lib/*/galera/libgalera_smm.so")
_PORTS = range(20_000, 32_768)
_OPTIONS = ("--bind-address=127.0.0.1", "--skip-name-resolve", "--binlog-format=ROW", "--innodb-autoinc-lock-mode=2",
            "--innodb-log-file-size=8M", "--innodb-buffer-pool-size=48M", "--innodb-flush-log-at-trx-commit=1",
            "--performance-schema=OFF", "--character-set-server=utf8mb4", "--max-allowed-packet=32M",
            "--max-connect-errors=1000000", "--wsrep-on=ON", "--wsrep-cluster-name=office", "--wsrep-sst-method=rsync",
            "--wsrep-node-address=127.0.0.1")


class Node:
    """number: from 1. Its folder holds its data, its socket and what it said."""

    def __init__(self, folder, number, ports):
        self.folder = os.path.join(folder, f"node{number}")
        self.name = f"node{number}"
        self.data = os.path.join(self.folder, "data")
        self.port, self.group_port, self.increment_port, self.copy_port = ports
        self.process = None
        os.makedirs(os.path.join(self.folder, "tmp"))

    @property
    def address(self):
        return f"127.0.0.1:{self.port}"

    @property
    def database(self):
        """As the administrator, past the program."""
        return Database(self.folder)

    def state(self):
        return self.database.row("SHOW STATUS WHERE Variable_name='wsrep_local_state_comment'")["Value"]

    def members(self):
        return int(self.database.row("SHOW STATUS WHERE Variable_name='wsrep_cluster_size'")["Value"])


class Cluster:
    def __init__(self, processes, folder, size=3):
        self._processes = processes
        self._folder = folder
        ports = _free_ports(4 * size)
        self.nodes = [Node(folder, number + 1, ports[4 * number:4 * number + 4]) for number in range(size)]
        self._scripts = _usable_scripts(os.path.join(folder, "scripts"))

    def start(self, data, office):
        """The first node on a copy of the data of a server that has stopped, the others on copies of the first one's."""
        for node in self.nodes:
            socket_path = os.path.join(node.folder, "db.sock")
            with open(os.path.join(node.folder, "client.cnf"), "w", encoding="utf-8") as file:
                file.write(f"[client]\nuser={getpass.getuser()}\nprotocol=socket\nsocket={socket_path}\n"
                           f"default-character-set=utf8mb4\n[mysql]\ndatabase={office}\n")
        first, *others = self.nodes
        shutil.copytree(data, first.data)
        self._launch(first, "--wsrep-new-cluster")
        for node in others:
            os.makedirs(node.data)
            self._launch(node)

    def _launch(self, node, *further):
        group = ",".join(f"127.0.0.1:{each.group_port}" for each in self.nodes)
        provider = (f"base_host=127.0.0.1;base_port={node.group_port};gmcast.listen_addr=tcp://127.0.0.1:{node.group_port};"
                    f"ist.recv_addr=127.0.0.1:{node.increment_port};gcache.size=16M")
        environment = {**os.environ, "PATH": f"{self._scripts}{os.pathsep}{os.environ['PATH']}"}
        node.process = self._processes.start(
            [shutil.which("mariadbd") or "/usr/sbin/mariadbd", "--no-defaults", f"--datadir={node.data}",
             f"--socket={os.path.join(node.folder, 'db.sock')}", f"--port={node.port}",
             f"--tmpdir={os.path.join(node.folder, 'tmp')}", f"--pid-file={os.path.join(node.folder, 'server.pid')}",
             f"--user={getpass.getuser()}", *_OPTIONS, f"--wsrep-provider={_provider()}",
             f"--wsrep-cluster-address=gcomm://{group}", f"--wsrep-node-name={node.name}",
             f"--wsrep-provider-options={provider}", f"--wsrep-sst-receive-address=127.0.0.1:{node.copy_port}", *further],
            log=self._log(node), environment=environment)
        wait_for(lambda: node.process.poll() is not None or node.state() == "Synced", f"{node.name} to take part", seconds=60)
        if node.process.poll() is not None:
            raise RuntimeError(f"{node.name} has ended; see {self._log(node)}")

    def _log(self, node):
        return os.path.join(self._folder, f"{node.name}.log")

    def kill(self, node):
        node.process.kill()
        node.process.wait()


def _provider():
    for pattern in _PROVIDERS:
        for path in glob.glob(pattern):
            return path
    raise RuntimeError("the package galera-4 is not installed; scripts/setup.sh test does that")


def _usable_scripts(folder):
    """Copies of the state-transfer scripts, by which a node gets its data from another, as this user can use them."""
    installed = shutil.which("wsrep_sst_rsync")
    scripts = os.path.dirname(installed) if installed else _SCRIPTS
    os.makedirs(folder)
    for path in glob.glob(os.path.join(scripts, "wsrep_sst_*")):
        shutil.copy(path, folder)
    script = os.path.join(folder, "wsrep_sst_rsync")
    if not os.path.exists(script):
        raise RuntimeError(f"no state-transfer scripts in {scripts}; scripts/setup.sh unpacked puts them there")
    if os.geteuid() == 0:
        # A receiving rsync of the system's administrator would otherwise write as nobody.
        subprocess.run(["sed", "-i", r"s/^read only = no/read only = no\nuid = root\ngid = root/", script], check=True)
    for path in glob.glob(os.path.join(folder, "*")):
        os.chmod(path, os.stat(path).st_mode | stat.S_IXUSR)
    return folder


def _free_ports(count):
    """Below those that the system gives to outgoing connections, one of which could else take a port before its node does."""
    ports = []
    for port in random.sample(_PORTS, len(_PORTS)):
        if len(ports) == count:
            break
        with socket.socket() as probe:
            try:
                probe.bind(("127.0.0.1", port))
            except OSError:
                continue
        ports.append(port)
    return ports
