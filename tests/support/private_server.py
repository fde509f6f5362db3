#!/usr/bin/env python3
"""A PostgreSQL of its own for a test, on a socket in a private folder, with a driver alias that leads to it.

As a program it prints where the server is, one line of JSON, and serves until its standard input ends, which it
does with the test however that ends; then nothing of it is left. Tests in Python take PrivateServer.
"""

import ctypes
import glob
import json
import os
import pwd
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

OWNER = "workshop_owner"
PASSWORD = "Kx7-Probe:密语"
DATABASE = "workshop"
START_PATIENCE = 60  # seconds
PR_SET_PDEATHSIG = 1

SETTINGS = {
    "listen_addresses": "",
    "fsync": "off",
    "full_page_writes": "off",
    "max_connections": "60",
    "autovacuum": "off",
}
# Of this order of texts a list must show nothing.
ORDER_OF_TEXTS = ("--encoding=UTF8", "--locale=C.UTF-8", "--locale-provider=icu", "--icu-locale=zh-Hans-CN")


def server_programs():
    """The folder of initdb and postgres, which distributions keep off the path."""
    found = glob.glob("/usr/lib/postgresql/*/bin/initdb") or [shutil.which("initdb") or ""]
    if not found[0]:
        raise SystemExit("There is no initdb: install the packages of the section [test]")
    return Path(sorted(found)[-1]).parent


def driver_library():
    found = glob.glob("/usr/lib/*/odbc/psqlodbcw.so")
    if not found:
        raise SystemExit("There is no psqlodbcw.so: install the packages of the section [test]")
    return found[0]


def other_drivers():
    return {"Other Engine": path for path in glob.glob("/usr/lib/*/odbc/libsqlite3odbc.so")}


def user_of_the_server():
    """The server refuses to run as root."""
    if os.getuid() != 0:
        return None
    for name in ("postgres", "nobody"):
        try:
            return pwd.getpwnam(name)
        except KeyError:
            continue
    raise SystemExit("There is no user to run a server as")


def die_with_the_parent():
    ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGQUIT)


class Cluster:
    """The server's process and its folder."""

    def __init__(self):
        self.folder = Path(tempfile.mkdtemp(prefix="commtest-server-", dir="/tmp"))
        self.process = None
        try:
            self.user = user_of_the_server()
            self.make_folder()
            self.start()
        except BaseException:
            self.end()
            raise

    @property
    def data(self):
        return self.folder / "data"

    def options(self):
        """How a program of the server is run."""
        options = {"cwd": self.folder, "stdin": subprocess.DEVNULL}
        if self.user is not None:
            options |= {"user": self.user.pw_uid, "group": self.user.pw_gid, "extra_groups": []}
        return options

    def make_folder(self):
        self.folder.chmod(0o755)
        (self.folder / "odbcinst.ini").write_text(self.driver_aliases(), encoding="utf-8")
        secret = self.folder / "secret"
        secret.write_text(PASSWORD, encoding="utf-8")
        secret.chmod(0o600)
        if self.user is not None:
            for path in (self.folder, secret):
                os.chown(path, self.user.pw_uid, self.user.pw_gid)
        words = [server_programs() / "initdb", "--no-sync", f"--username={OWNER}", f"--pwfile={secret}",
                 "--auth=scram-sha-256", *ORDER_OF_TEXTS, self.data]
        made = subprocess.run(words, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8",
                              **self.options())
        secret.unlink()
        if made.returncode != 0:
            raise SystemExit(made.stdout)

    def driver_aliases(self):
        aliases = {"SQL Server": driver_library()} | other_drivers()
        return "".join(f"[{name}]\nDriver = {path}\n\n" for name, path in aliases.items())

    def start(self):
        words = [server_programs() / "postgres", "-D", self.data, "-k", self.folder]
        for name, value in SETTINGS.items():
            words += ["-c", f"{name}={value}"]
        with open(self.folder / "server.log", "wb") as log:
            self.process = subprocess.Popen(words, stdout=log, stderr=log, start_new_session=True,
                                            preexec_fn=die_with_the_parent, **self.options())
        deadline = time.monotonic() + START_PATIENCE
        while not self.is_ready():
            if self.process.poll() is not None or time.monotonic() > deadline:
                raise SystemExit((self.folder / "server.log").read_text(encoding="utf-8"))
            time.sleep(0.02)
        self.make_database()

    def is_ready(self):
        try:
            lines = (self.data / "postmaster.pid").read_text(encoding="utf-8").splitlines()
        except OSError:
            return False
        return len(lines) > 7 and lines[7].strip() == "ready"

    def make_database(self):
        environment = os.environ | {"PGPASSWORD": PASSWORD}
        words = [server_programs() / "psql", "--no-psqlrc", "--quiet", "-h", self.folder, "-U", OWNER, "postgres",
                 "-c", f"CREATE DATABASE {DATABASE}"]
        subprocess.run(words, check=True, env=environment, **self.options())

    def where(self):
        return {"server": str(self.folder), "user": OWNER, "password": PASSWORD, "database": DATABASE,
                "drivers": str(self.folder)}

    def end(self):
        if self.process is not None:
            self.process.send_signal(signal.SIGQUIT)
            self.process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)


class PrivateServer:
    """A server for a test, by the program of this file: it ends also where the test is killed."""

    def __init__(self):
        self.program = subprocess.Popen([sys.executable, "-B", __file__], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, encoding="utf-8")
        line = self.program.stdout.readline()
        if not line:
            raise RuntimeError("no server has started")
        where = json.loads(line)
        self.server, self.user, self.password = where["server"], where["user"], where["password"]
        self.database = where["database"]
        # What a program needs to find the driver alias; nothing in it is secret.
        self.environment = {"ODBCSYSINI": where["drivers"]}

    def setup_ini(self, user=None, password=None, database=None, server=None):
        """The lines of a Setup.ini that leads to the server."""
        lines = (f"Server {server or self.server}", f"User {user or self.user}",
                 f"Password {password or self.password}", f"Database {database or self.database}", "Version 1")
        return "".join(line + "\r\n" for line in lines)

    def sql(self, statement, database=None):
        """What psql prints of a statement: the server seen with other eyes than the program's."""
        words = [server_programs() / "psql", "--no-psqlrc", "--quiet", "--tuples-only", "--no-align", "-v",
                 "ON_ERROR_STOP=1", "-h", self.server, "-U", self.user, database or self.database, "-c", statement]
        environment = os.environ | {"PGPASSWORD": self.password, "PGOPTIONS": "-c client_min_messages=warning"}
        return subprocess.run(words, check=True, env=environment,
                              stdout=subprocess.PIPE, encoding="utf-8").stdout

    def end(self):
        self.program.stdin.close()
        self.program.wait()
        self.program.stdout.close()


def main():
    signal.signal(signal.SIGINT, signal.SIG_IGN)
    cluster = Cluster()
    try:
        signal.signal(signal.SIGTERM, lambda *_: sys.exit(0))
        print(json.dumps(cluster.where()), flush=True)
        sys.stdin.read()
    finally:
        cluster.end()


if __name__ == "__main__":
    main()
