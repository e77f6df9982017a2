"""Starts servers and asks them, for the measurements in this folder."""

import re
import socket
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
SERVICE = "QUVSG_BMCI2C_DiagnosticService"
MESSAGE = (
    '<?xml version="1.0" encoding="utf-8" ?><CIM CIMVERSION="2.0" DTDVERSION="2.0">'
    '<MESSAGE ID="1" PROTOCOLVERSION="1.0"><SIMPLEREQ><IMETHODCALL NAME="EnumerateInstances">'
    '<LOCALNAMESPACEPATH><NAMESPACE NAME="root"/><NAMESPACE NAME="QUVSD"/></LOCALNAMESPACEPATH>'
    f'<IPARAMVALUE NAME="ClassName"><CLASSNAME NAME="{SERVICE}"/></IPARAMVALUE>'
    "</IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>"
)
HEADERS = {
    "Content-Type": "application/xml; charset=utf-8",
    "CIMOperation": "MethodCall",
    "CIMMethod": "EnumerateInstances",
    "CIMObject": "root/QUVSD",
}


class Server:
    """A server on a free port; ends with the block."""

    def __init__(self, command):
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE, text=True)
        self.port = int(re.search(r"(\d+)(/cimom)?$", self.process.stdout.readline().strip())[1])

    @classmethod
    def serve(cls, build, *options):
        """`bmci2c serve` of a build folder, with a simulated machine."""
        profile = str(ROOT / "data/profiles/pass.toml")
        program = str(Path(build) / "bin/bmci2c")
        return cls([program, "--simulate", profile, "serve", "--listen", "127.0.0.1:0", *options])

    def connect(self):
        return socket.create_connection(("127.0.0.1", self.port), timeout=60)

    def peak_memory(self):
        """Peak resident memory in kB."""
        status = Path(f"/proc/{self.process.pid}/status").read_text(encoding="utf-8")
        return int(re.search(r"VmHWM:\s+(\d+)", status)[1])

    def threads(self):
        status = Path(f"/proc/{self.process.pid}/status").read_text(encoding="utf-8")
        return int(re.search(r"Threads:\s+(\d+)", status)[1])

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()


def request(**headers):
    lines = {"Host": "127.0.0.1", "Content-Length": str(len(MESSAGE)), **HEADERS, **headers}
    head = "".join(f"{name.replace('_', '-')}: {value}\r\n" for name, value in lines.items())
    return f"POST /cimom HTTP/1.1\r\n{head}\r\n{MESSAGE}".encode()


def answer_of(connection):
    """All bytes until the connection ends."""
    return b"".join(iter(lambda: connection.recv(65536), b""))
