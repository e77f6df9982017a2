#!/usr/bin/env python3
"""Requests a second: `bmci2c serve` of one or more build folders beside a bare Beast server.

    bench/server/throughput.py --bare build/release/bench/bench_bare_server build/old build/release

All answer the same request with the same body, with 2 and 64 connections, alternating. wrk makes the
requests. For each it prints the median, and its ratio to the bare server's median.
"""

import argparse
import re
import statistics
import subprocess
import tempfile
from pathlib import Path

from serving import HEADERS, MESSAGE, Server, answer_of, request


def wrk_script(folder):
    script = Path(folder) / "post.lua"
    headers = "".join(f'wrk.headers["{name}"] = "{value}"\n' for name, value in HEADERS.items())
    script.write_text(f"wrk.method = \"POST\"\nwrk.body = [[{MESSAGE}]]\n{headers}", encoding="utf-8")
    return str(script)


def rate(server, connections, seconds, script):
    command = ["wrk", "-t1", f"-c{connections}", f"-d{seconds}s", "-s", script]
    done = subprocess.run(
        [*command, f"http://127.0.0.1:{server.port}/cimom"], capture_output=True, text=True, check=True
    )
    assert "Non-2xx" not in done.stdout, done.stdout
    return float(re.search(r"Requests/sec:\s+([\d.]+)", done.stdout)[1])


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--bare", required=True)
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--seconds", type=int, default=2)
    parser.add_argument("builds", nargs="+")
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        script = wrk_script(folder)
        servers = {build: Server.serve(build, "--max-connections", "100") for build in options.builds}
        for build, server in servers.items():
            help_text = subprocess.run(
                [f"{build}/bin/bmci2c", "serve", "--help"], capture_output=True, text=True, check=True
            ).stdout
            if "--max-connections-per-address" in help_text:
                server.__exit__()
                limits = ["--max-connections", "100", "--max-connections-per-address", "100"]
                servers[build] = Server.serve(build, *limits)
        first = next(iter(servers.values()))
        with first.connect() as connection:
            connection.sendall(request(Connection="close"))
            body = answer_of(connection).partition(b"\r\n\r\n")[2]
        (Path(folder) / "body").write_bytes(body)
        servers = {"bare": Server([options.bare, f"{folder}/body"]), **servers}
        print(f"{len(body)} bytes in each answer")
        for connections in (2, 64):
            rates = {name: [] for name in servers}
            for _ in range(options.rounds):
                for name, server in servers.items():
                    rates[name].append(rate(server, connections, options.seconds, script))
            bare = statistics.median(rates["bare"])
            for name, measured in rates.items():
                median = statistics.median(measured)
                print(f"{connections:3} connections: {median:9.0f}/s {median / bare:5.0%}  {name}")
        for server in servers.values():
            server.__exit__()


if __name__ == "__main__":
    main()
