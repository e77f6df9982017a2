"""A `bmci2c serve` for tests, and ways to talk to it."""

import os
import select
import signal
import socket
import subprocess

NAMESPACE = "root/QUVSD"
INTEROP = "root/interop"
SECONDS_TO_START = 60
SECONDS_TO_END = 60


class Server:
    """A server on a free port of this machine. Its standard error goes to a file."""

    def __init__(self, command, profile, *options):
        self.log_file = command.folder / "serve.log"
        arguments = [command.program, "--root", str(command.root), "--simulate", profile, "serve"]
        with open(self.log_file, "wb") as log:
            self.process = subprocess.Popen(
                [*arguments, "--listen", "127.0.0.1:0", *options],
                env=command.environment,
                stdin=subprocess.DEVNULL,
                stdout=subprocess.PIPE,
                stderr=log,
            )
        self.ready_line = self._read_line()
        prefix = "bmci2c: serving at "
        assert self.ready_line.startswith(prefix), (self.ready_line, self.log())
        self.url = self.ready_line[len(prefix) :].rstrip("\n")
        self.base_url = self.url.removesuffix("/cimom")
        self.port = int(self.base_url.rpartition(":")[2])

    def _read_line(self):
        ready, _, _ = select.select([self.process.stdout], [], [], SECONDS_TO_START)
        return self.process.stdout.readline().decode() if ready else ""

    def log(self):
        return self.log_file.read_text()

    def stop(self, by=signal.SIGTERM):
        """Ends the server; returns its exit code."""
        if self.process.poll() is None:
            os.kill(self.process.pid, by)
        try:
            code = self.process.wait(SECONDS_TO_END)
        finally:
            self.process.kill()
            self.process.stdout.close()
        return code

    def connect(self):
        return socket.create_connection(("127.0.0.1", self.port), timeout=60)

    def exchange(self, data):
        """Sends bytes; returns the answer to the end of the connection."""
        with self.connect() as connection:
            connection.sendall(data)
            return rest(connection)

    def post(self, document, method="GetClass", target=NAMESPACE, **headers):
        """Sends a document with the headers of a method call; returns status, headers, body."""
        return parse(self.exchange(request(document, method, target, **headers)))


def rest(connection):
    answer = b""
    while block := connection.recv(65536):
        answer += block
    return answer


def read_answer(answers):
    """Reads one answer, head and body, from the file of a connection that goes on."""
    head = b"".join(iter(answers.readline, b"\r\n")).decode()
    length = int(head.partition("Content-Length: ")[2].partition("\r\n")[0])
    return head, answers.read(length)


def request(document, method="GetClass", target=NAMESPACE, verb="POST", path="/cimom", **headers):
    """The bytes of a request. A header that is None is left out; "_" in names stands for "-"."""
    data = document if isinstance(document, bytes) else document.encode()
    fields = {
        "Host": "127.0.0.1",
        "Content-Type": "application/xml; charset=utf-8",
        "Content-Length": str(len(data)),
        "CIMOperation": "MethodCall",
        "CIMMethod": method,
        "CIMObject": target,
        "Connection": "close",
    }
    fields.update({name.replace("_", "-"): value for name, value in headers.items()})
    lines = "".join(f"{name}: {value}\r\n" for name, value in fields.items() if value is not None)
    return f"{verb} {path} HTTP/1.1\r\n{lines}\r\n".encode() + data


def parse(answer):
    head, _, body = answer.partition(b"\r\n\r\n")
    status, *lines = head.decode().split("\r\n")
    headers = dict(line.split(": ", 1) for line in lines)
    return int(status.split()[1]), headers, body.decode()


def call(name="GetClass", parameters="", namespace=NAMESPACE, versions=("2.0", "2.0", "1.0")):
    """The document of an intrinsic call."""
    cim, dtd, protocol = versions
    parts = "".join(f'<NAMESPACE NAME="{part}"/>' for part in namespace.split("/"))
    return (
        f'<?xml version="1.0" encoding="utf-8" ?><CIM CIMVERSION="{cim}" DTDVERSION="{dtd}">'
        f'<MESSAGE ID="1" PROTOCOLVERSION="{protocol}"><SIMPLEREQ><IMETHODCALL NAME="{name}">'
        f"<LOCALNAMESPACEPATH>{parts}</LOCALNAMESPACEPATH>{parameters}</IMETHODCALL></SIMPLEREQ>"
        f"</MESSAGE></CIM>"
    )


GET_CLASS = call(
    parameters='<IPARAMVALUE NAME="ClassName"><CLASSNAME NAME="CIM_Job"/></IPARAMVALUE>'
)
