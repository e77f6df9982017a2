"""`bmci2c serve` under load and abuse: an honest client is answered meanwhile."""

import os
import signal
import socket
import ssl
import subprocess
import threading
import time
from concurrent.futures import ThreadPoolExecutor

import pytest
from conftest import SERVICE, node
from serving import GET_CLASS, Server, call, parse, read_answer, request, rest
from test_serve_access import basic, certificate, password_file  # noqa: F401 (fixtures)

SERVICES = call(
    "EnumerateInstances",
    '<IPARAMVALUE NAME="ClassName"><CLASSNAME NAME="CIM_DiagnosticService"/></IPARAMVALUE>',
)
KEY = (
    '<KEYBINDING NAME="Name"><KEYVALUE VALUETYPE="string">BMC I2C Test</KEYVALUE></KEYBINDING>'
    '<KEYBINDING NAME="SystemName"><KEYVALUE VALUETYPE="string"></KEYVALUE></KEYBINDING>'
)
RUN = (
    '<?xml version="1.0" encoding="utf-8" ?><CIM CIMVERSION="2.0" DTDVERSION="2.0">'
    '<MESSAGE ID="7" PROTOCOLVERSION="1.0"><SIMPLEREQ><METHODCALL NAME="RunDiagnostic">'
    '<LOCALINSTANCEPATH><LOCALNAMESPACEPATH><NAMESPACE NAME="root"/><NAMESPACE NAME="QUVSD"/>'
    f'</LOCALNAMESPACEPATH><INSTANCENAME CLASSNAME="{SERVICE}">{KEY}</INSTANCENAME>'
    "</LOCALINSTANCEPATH></METHODCALL></SIMPLEREQ></MESSAGE></CIM>"
)


def run_request(**headers):
    return request(RUN, "RunDiagnostic", f"root/QUVSD:{SERVICE}", **headers)


def metric(server, name):
    _, _, page = parse(server.exchange(request("", verb="GET", path="/metrics")))
    (value,) = [line.split()[-1] for line in page.splitlines() if line.startswith(name + " ")]
    return int(value)


def await_metric(server, name, value):
    for _ in range(600):
        if metric(server, name) == value:
            return
        time.sleep(0.1)
    raise AssertionError((name, metric(server, name)))


@pytest.fixture
def connections():
    """Opens many connections at once; all are closed at the end."""
    opened = []

    def connect(server, count, data=b""):
        for _ in range(count):
            try:
                opened.append(server.connect())
                opened[-1].sendall(data)
            except ConnectionError:
                pass  # the server has closed it to make room
        return opened

    yield connect
    for connection in opened:
        connection.close()


def assert_answered(server):
    status, _, body = server.post(GET_CLASS)
    assert (status, '<CLASS NAME="CIM_Job"' in body) == (200, True)


@pytest.mark.parametrize(
    "count, data",
    [(300, b""), (80, b"POST /cimom HTTP/1.1\r\nHost: a\r\n"), (100, b"\r\n" * 2000)],
    ids=["silent", "slow-headers", "empty-lines"],
)
def test_honest_client_is_answered_beside_many_that_send_no_request(serve, connections, count, data):
    server = serve()
    connections(server, count, data)
    assert_answered(server)


def test_honest_client_is_answered_beside_a_flood_of_empty_lines(serve):
    server = serve()
    over = threading.Event()

    def flood(_):
        while not over.is_set():
            try:
                with server.connect() as connection:
                    while not over.is_set():
                        connection.sendall(b"\r\n" * 4000)
            except OSError:
                pass

    with ThreadPoolExecutor(4) as clients:
        flooding = [clients.submit(flood, number) for number in range(4)]
        try:
            for _ in range(20):
                assert_answered(server)
        finally:
            over.set()
        for one in flooding:
            one.result()


def test_honest_client_is_answered_beside_half_handshakes(serve, connections, certificate):  # noqa: F811
    server = serve("--certificate", certificate[0], "--key", certificate[1])
    context = ssl.create_default_context(cafile=certificate[0])
    incoming, outgoing = ssl.MemoryBIO(), ssl.MemoryBIO()
    with pytest.raises(ssl.SSLWantReadError):
        context.wrap_bio(incoming, outgoing, server_hostname="127.0.0.1").do_handshake()
    connections(server, 300, outgoing.read())
    with context.wrap_socket(server.connect(), server_hostname="127.0.0.1") as honest:
        honest.sendall(request(GET_CLASS))
        assert parse(rest(honest))[0] == 200


def test_honest_client_is_answered_beside_wrong_passwords(serve, connections, password_file):  # noqa: F811
    server = serve("--password-file", password_file)
    connections(server, 60, request(GET_CLASS, Authorization=basic("ann", "wrong")))
    status, _, _ = server.post(GET_CLASS, Authorization=basic("ann", "sesame"))
    assert status == 200


@pytest.fixture
def slow(bmci2c):
    """Starts a server whose first run takes as long as a busy controller is left alone."""
    servers = []

    def start(*options):
        profile = bmci2c.profile(node(data=[0, 0], busy=1))
        servers.append(Server(bmci2c, profile, "--metrics", *options))
        return servers[-1]

    yield start
    for server in servers:
        assert server.stop() == 0


def begin_run(server):
    connection = server.connect()
    connection.sendall(run_request())
    await_metric(server, "bmci2c_runs_under_way", 1)
    return connection


def test_reading_does_not_wait_for_a_run(slow):
    server = slow()
    with begin_run(server) as runner:
        status, _, body = server.post(SERVICES, "EnumerateInstances")
        assert (status, "BMC I2C Test" in body) == (200, True)
        assert metric(server, "bmci2c_runs_under_way") == 1, "answered before the run ended"
        assert "<RETURNVALUE" in parse(rest(runner))[2]


def test_second_run_waits_its_turn(slow):
    server = slow()
    with begin_run(server) as first, server.connect() as second:
        second.sendall(run_request())
        await_metric(server, "bmci2c_runs_waiting", 1)
        for runner in (first, second):
            assert "<RETURNVALUE" in parse(rest(runner))[2]
    assert metric(server, "bmci2c_runs_total") == 2


def test_run_whose_turn_does_not_come_fails(slow):
    server = slow("--run-wait", "1")
    with begin_run(server) as first:
        status, _, body = parse(server.exchange(run_request()))
        assert status == 200
        assert '<METHODRESPONSE NAME="RunDiagnostic"><ERROR CODE="1" DESCRIPTION="' in body
        assert "a run is under way" in body
        assert "<RETURNVALUE" in parse(rest(first))[2]


def test_client_that_has_gone_leaves_no_run(slow):
    server = slow()
    with begin_run(server) as first:
        with server.connect() as gone:
            gone.sendall(run_request())
            await_metric(server, "bmci2c_runs_waiting", 1)
        await_metric(server, "bmci2c_runs_waiting", 0)
        assert metric(server, "bmci2c_runs_under_way") == 1, "it was not the run's end"
        assert "<RETURNVALUE" in parse(rest(first))[2]
    assert metric(server, "bmci2c_runs_total") == 1


def test_second_signal_ends_the_server_at_once(slow):
    server = slow()
    with begin_run(server) as runner:
        server.process.send_signal(signal.SIGTERM)
        while is_listening(server):
            time.sleep(0.05)
        server.process.send_signal(signal.SIGTERM)
        assert rest(runner) == b"", "the run was not awaited"
    assert server.stop() == 0
    assert server.log() == "bmci2c: The server ends without the requests under way.\n"


def is_listening(server):
    try:
        server.connect().close()
        return True
    except ConnectionError:
        return False


def test_run_that_outlasts_the_end_is_not_awaited(bmci2c):
    # Three busy controllers: a pause of 5 s each; the server waits for one time limit of 1 s and 5 s.
    bmci2c.environment["BMCI2C_CONFIG"] = bmci2c.write("short.toml", "[controllers]\ntime_limit = 1\n")
    nodes = [node(data=[0, 0], busy=1)] * 3
    server = Server(bmci2c, bmci2c.profile(*nodes), "--metrics")
    with begin_run(server) as runner:
        server.process.send_signal(signal.SIGTERM)
        assert rest(runner) == b""
    assert server.stop() == 0
    assert server.log() == "bmci2c: The server ends without the requests under way.\n"


def test_full_log_pipe_does_not_stop_the_server(bmci2c, password_file):  # noqa: F811
    reader, writer = os.pipe()
    arguments = ["--root", str(bmci2c.root), "--simulate", bmci2c.profile(node(data=[0]))]
    with subprocess.Popen(
        [bmci2c.program, *arguments, "serve", "--listen", "127.0.0.1:0", "--metrics"]
        + ["--password-file", password_file],
        env=bmci2c.environment,
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=writer,
    ) as process:
        os.set_blocking(writer, False)
        try:
            while True:
                os.write(writer, b"x" * 4096)
        except BlockingIOError:
            os.close(writer)  # the pipe is full, and nobody reads it
        port = int(process.stdout.readline().decode().rpartition(":")[2].partition("/")[0])
        for password, expected in (("wrong", 401), ("wrong", 401), ("sesame", 200)):
            with socket.create_connection(("127.0.0.1", port), timeout=60) as connection:
                connection.sendall(request(GET_CLASS, Authorization=basic("ann", password)))
                assert parse(rest(connection))[0] == expected
        process.send_signal(signal.SIGTERM)
        assert process.wait(60) == 0
        os.close(reader)


def test_metrics_are_for_users_and_health_is_for_all(serve, password_file):  # noqa: F811
    server = serve("--metrics", "--password-file", password_file)
    health = parse(server.exchange(request("", verb="GET", path="/healthz")))
    assert (health[0], health[2]) == (200, "ok\n")
    assert parse(server.exchange(request("", verb="GET", path="/metrics")))[0] == 401
    user = basic("ann", "sesame")
    status, headers, page = parse(
        server.exchange(request("", verb="GET", path="/metrics", Authorization=user))
    )
    assert status == 200
    assert headers["Content-Type"].startswith("application/openmetrics-text; version=1.0.0")
    assert 'bmci2c_requests_total{status="401"} 1\n' in page
    assert page.endswith("# EOF\n")


def test_there_are_no_metrics_unless_wanted(server):
    assert parse(server.exchange(request("", verb="GET", path="/metrics")))[0] == 404


def test_open_connection_is_kept_by_requests(serve):
    server = serve("--first-request-time", "1")
    with server.connect() as connection:
        answers = connection.makefile("rb")
        for _ in range(3):
            connection.sendall(request(GET_CLASS, Connection=None))
            assert read_answer(answers)[0].startswith("HTTP/1.1 200 ")
            time.sleep(0.7)
