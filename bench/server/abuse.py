#!/usr/bin/env python3
"""Peak resident memory of `bmci2c serve` under abuse, and whether an honest client is answered.

    bench/server/abuse.py build/release
"""

import base64
import ssl
import subprocess
import sys
import tempfile
import threading
from pathlib import Path

from serving import Server, answer_of, request


def many(server, count, data):
    opened = []
    for _ in range(count):
        try:
            opened.append(server.connect())
            opened[-1].sendall(data)
        except ConnectionError:
            pass  # closed to make room
    return opened


def flood(server, count):
    def work():
        try:
            with server.connect() as connection:
                while True:
                    connection.sendall(b"\r\n" * 4000)
        except OSError:
            pass

    threads = [threading.Thread(target=work) for _ in range(count)]
    for thread in threads:
        thread.start()
    return threads


def client_hello():
    incoming, outgoing = ssl.MemoryBIO(), ssl.MemoryBIO()
    try:
        ssl.create_default_context().wrap_bio(incoming, outgoing, server_hostname="a").do_handshake()
    except ssl.SSLWantReadError:
        return outgoing.read()


def basic(password):
    return "Basic " + base64.b64encode(f"ann:{password}".encode()).decode()


def is_answered(server, tls=None, **headers):
    with server.connect() as connection:
        if tls:
            connection = tls.wrap_socket(connection)
        connection.sendall(request(Connection="close", **headers))
        return answer_of(connection).startswith(b"HTTP/1.1 200 ")


def main():
    (build,) = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        files = f"{folder}/pem", f"{folder}/key", f"{folder}/passwords"
        subprocess.run(
            ["openssl", "req", "-x509", "-nodes", "-subj", "/CN=x", "-newkey", "ec", "-pkeyopt"]
            + ["ec_paramgen_curve:prime256v1", "-out", files[0], "-keyout", files[1]],
            check=True,
            capture_output=True,
        )
        program = str(Path(build) / "bin/bmci2c")
        subprocess.run([program, "passwd", files[2], "ann"], input="sesame\n", text=True, check=True)
        tls = ["--certificate", files[0], "--key", files[1]]
        open_context = ssl.SSLContext(ssl.PROTOCOL_TLS_CLIENT)
        open_context.check_hostname = False
        open_context.verify_mode = ssl.CERT_NONE
        users = ["--password-file", files[2]]
        wrong = request(Authorization=basic("wrong"))
        right = {"Authorization": basic("sesame")}
        large = ["--max-connections", "1000", "--max-connections-per-address", "1000"]
        cases = [
            ("none", [], lambda server: [], {}),
            ("300 silent connections", [], lambda server: many(server, 300, b""), {}),
            ("300 silent ones, all kept", large, lambda server: many(server, 300, b""), {}),
            ("300 half handshakes", tls, lambda server: many(server, 300, client_hello()),
             {"tls": open_context}),
            ("300 half ones, all kept", tls + large,
             lambda server: many(server, 300, client_hello()), {"tls": open_context}),
            ("80 slow headers", [], lambda server: many(server, 80, b"POST / HTTP/1.1\r\nA: "), {}),
            ("flood of empty lines", [], lambda server: flood(server, 4), {}),
            ("60 wrong passwords", users, lambda server: many(server, 60, wrong), right),
        ]
        for name, options, abuse, honest in cases:
            with Server.serve(build, *options) as server:
                kept = abuse(server)
                answered = "answered" if is_answered(server, **honest) else "NOT ANSWERED"
                print(f"{name:28} {server.peak_memory():7} kB at the peak, {server.threads():3} "
                      f"threads, an honest client is {answered}")
                del kept


if __name__ == "__main__":
    main()
