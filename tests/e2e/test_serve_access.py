"""Who may use `bmci2c serve`: addresses, TLS, users and passwords."""

import base64
import os
import pty
import re
import select
import signal
import ssl
import stat
import subprocess
import time
from pathlib import Path

import pytest
from conftest import node
from serving import GET_CLASS, parse, read_answer, request, rest


@pytest.fixture
def refused(bmci2c):
    """Calls `serve` with options with which it must not start; returns its complaint."""

    def call(*options):
        result = bmci2c.simulate(bmci2c.profile(node(data=[0])), "serve", *options)
        assert (result.code, result.out) == (64, "")
        return result.err

    return call


@pytest.fixture
def certificate(tmp_path):
    """A certificate for 127.0.0.1 and its key."""
    files = str(tmp_path / "server.pem"), str(tmp_path / "server.key")
    subprocess.run(
        ["openssl", "req", "-x509", "-nodes", "-days", "2", "-subj", "/CN=bmci2c test"]
        + ["-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1"]
        + ["-addext", "subjectAltName=IP:127.0.0.1", "-out", files[0], "-keyout", files[1]],
        check=True,
        capture_output=True,
    )
    return files


def passwd(bmci2c, file, user, password):
    done = subprocess.run(
        [bmci2c.program, "passwd", file, user],
        env=bmci2c.environment,
        input=password + "\n",
        capture_output=True,
        text=True,
        timeout=100,
        check=False,
    )
    return done.returncode, done.stdout + done.stderr


@pytest.fixture
def password_file(bmci2c, tmp_path):
    file = str(tmp_path / "passwords")
    assert passwd(bmci2c, file, "ann", "sesame") == (0, "")
    assert passwd(bmci2c, file, "bob", "open:up") == (0, "")
    return file


def basic(user, password):
    return "Basic " + base64.b64encode(f"{user}:{password}".encode()).decode()


def status(server, authorization=None):
    answered, headers, _ = server.post(GET_CLASS, Authorization=authorization)
    if answered == 401:
        assert headers["WWW-Authenticate"] == 'Basic realm="bmci2c", charset="UTF-8"'
    return answered


OTHERS = (
    "bmci2c: Other machines can reach '0.0.0.0:0'. The server listens there only with TLS (a "
    "certificate and its key) and a password file.\n"
)


def test_address_of_other_machines_wants_tls_and_passwords(refused, certificate, password_file):
    tls = ["--certificate", certificate[0], "--key", certificate[1]]
    listen = ["--listen", "0.0.0.0:0"]
    assert refused(*listen) == OTHERS
    assert refused(*listen, *tls) == OTHERS
    assert refused(*listen, "--password-file", password_file) == OTHERS


def test_certificate_wants_its_key(refused, certificate):
    expected = "bmci2c: TLS needs both a certificate and its key.\n"
    assert refused("--certificate", certificate[0]) == expected
    assert refused("--key", certificate[1]) == expected


@pytest.mark.parametrize("address", ["nonsense", "*:5988", ":5988", "::1:5988", "127.0.0.1:65536"])
def test_unusable_address_is_named(refused, address):
    assert refused("--listen", address) == (
        f"bmci2c: The server cannot listen on '{address}': it must have the form ADDRESS:PORT, as "
        "127.0.0.1:5988 or [::1]:5988.\n"
    )


def test_address_in_use_is_named(refused, serve):
    address = f"127.0.0.1:{serve().port}"
    assert refused("--listen", address) == (
        f"bmci2c: The server cannot listen on '{address}': Address already in use.\n"
    )


def test_unusable_files_are_named(refused, certificate, tmp_path, password_file):
    listen = ["--listen", "127.0.0.1:0"]
    assert refused(*listen, "--certificate", "/none", "--key", certificate[1]) == (
        "bmci2c: The certificate '/none' cannot be used: No such file or directory.\n"
    )
    assert refused(*listen, "--certificate", certificate[0], "--key", "/none") == (
        "bmci2c: The key '/none' cannot be used: No such file or directory.\n"
    )
    assert refused(*listen, "--certificate", certificate[0], "--key", certificate[0]).startswith(
        f"bmci2c: The key '{certificate[0]}' cannot be used: "
    )
    os.chmod(password_file, 0o644)
    assert refused(*listen, "--password-file", password_file) == (
        f"bmci2c: The password file '{password_file}' is open to every user of this machine; say "
        f"'chmod o= {password_file}'.\n"
    )


@pytest.mark.parametrize("value", ["0", "-1", "x", "99999999999"])
def test_limit_that_is_none_is_wrong_usage(refused, value):
    assert "--max-depth" in refused("--max-depth", value)


def test_limits_have_the_defaults_that_the_page_says(bmci2c):
    page = (Path(__file__).parents[2] / "docs" / "serve.md").read_text(encoding="utf-8")
    said = re.findall(r"^\| `(--[a-z-]+)` \| (\d+) ", page, re.MULTILINE)
    help_text = bmci2c("serve", "--help").out
    limits = help_text[help_text.index("\nLimits:\n") :]
    listed = re.findall(r"^  (--[a-z-]+) [^\[]*\[(\d+)\]$", limits, re.MULTILINE)
    assert len(said) == 9 and said == listed


def test_tls_is_spoken(serve, certificate):
    server = serve("--certificate", certificate[0], "--key", certificate[1])
    assert server.url.startswith("https://127.0.0.1:")
    context = ssl.create_default_context(cafile=certificate[0])
    with context.wrap_socket(server.connect(), server_hostname="127.0.0.1") as connection:
        assert connection.version() in ("TLSv1.2", "TLSv1.3")
        for _ in range(2):
            connection.sendall(request(GET_CLASS, Connection=None))
            head = b""
            while b"</CIM>" not in head:
                head += connection.recv(65536)
            assert parse(head)[0] == 200
        connection.sendall(request("x" * (2**20 + 1)))
        assert parse(rest(connection))[0] == 413


def test_client_that_begins_no_tls_is_left(serve, certificate):
    server = serve("--certificate", certificate[0], "--key", certificate[1], "--request-time", "1")
    context = ssl.create_default_context(cafile=certificate[0])
    with server.connect() as silent:
        with context.wrap_socket(server.connect(), server_hostname="127.0.0.1") as connection:
            connection.sendall(request(GET_CLASS))
            assert parse(rest(connection))[0] == 200
        assert rest(silent) == b""


def test_old_tls_and_clear_text_are_refused(serve, certificate):
    server = serve("--certificate", certificate[0], "--key", certificate[1])
    old = ssl.SSLContext(ssl.PROTOCOL_TLS_CLIENT)
    old.check_hostname = False
    old.verify_mode = ssl.CERT_NONE
    old.set_ciphers("ALL:@SECLEVEL=0")
    old.minimum_version = ssl.TLSVersion.TLSv1
    old.maximum_version = ssl.TLSVersion.TLSv1_1
    with pytest.raises((ssl.SSLError, ConnectionError)):
        old.wrap_socket(server.connect())
    try:
        answer = server.exchange(request(GET_CLASS))
    except ConnectionError:
        answer = b""
    assert b"HTTP" not in answer


def test_tls_1_2_has_forward_secrecy(serve, tmp_path):
    files = str(tmp_path / "rsa.pem"), str(tmp_path / "rsa.key")
    subprocess.run(
        ["openssl", "req", "-x509", "-nodes", "-days", "2", "-subj", "/CN=x", "-newkey", "rsa:2048"]
        + ["-out", files[0], "-keyout", files[1]],
        check=True,
        capture_output=True,
    )
    server = serve("--certificate", files[0], "--key", files[1])

    def cipher_of(offered):
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_CLIENT)
        context.check_hostname = False
        context.verify_mode = ssl.CERT_NONE
        context.maximum_version = ssl.TLSVersion.TLSv1_2
        context.set_ciphers(offered)
        with context.wrap_socket(server.connect()) as connection:
            return connection.cipher()[0]

    assert cipher_of("ALL") in ("ECDHE-RSA-AES256-GCM-SHA384", "ECDHE-RSA-CHACHA20-POLY1305")
    with pytest.raises((ssl.SSLError, ConnectionError)):
        cipher_of("AES256-GCM-SHA384:AES128-SHA")


def test_key_that_others_can_read_is_refused(refused, certificate):
    os.chmod(certificate[1], 0o604)
    tls = ["--certificate", certificate[0], "--key", certificate[1]]
    assert refused("--listen", "127.0.0.1:0", *tls) == (
        f"bmci2c: The key '{certificate[1]}' is open to every user of this machine; say "
        f"'chmod o= {certificate[1]}'.\n"
    )


def await_log(server, lines):
    """Waits until the server has logged so many lines."""
    for _ in range(600):
        logged = server.log().splitlines()
        if len(logged) >= lines:
            return logged
        time.sleep(0.1)
    raise AssertionError(logged)


def test_hangup_reads_password_file_and_certificate_again(bmci2c, serve, certificate, password_file):
    tls = ["--certificate", certificate[0], "--key", certificate[1]]
    server = serve(*tls, "--password-file", password_file)
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_CLIENT)
    context.check_hostname = False
    context.verify_mode = ssl.CERT_NONE

    def ask(user, password):
        with context.wrap_socket(server.connect()) as connection:
            connection.sendall(request(GET_CLASS, Authorization=basic(user, password)))
            return parse(rest(connection))[0], connection.getpeercert(binary_form=True)

    _, old = ask("ann", "sesame")
    assert passwd(bmci2c, password_file, "ann", "changed") == (0, "")
    subprocess.run(
        ["openssl", "req", "-x509", "-new", "-days", "3", "-subj", "/CN=new"]
        + ["-key", certificate[1], "-out", certificate[0]],
        check=True,
        capture_output=True,
    )
    server.process.send_signal(signal.SIGHUP)
    assert await_log(server, 2) == [
        "bmci2c: The certificate has been read again.",
        "bmci2c: The password file has been read again.",
    ]
    status_now, new = ask("ann", "changed")
    assert (status_now, new != old) == (200, True)
    assert ask("ann", "sesame")[0] == 401

    for broken in (certificate[0], password_file):
        Path(broken).write_text("broken", encoding="utf-8")
    server.process.send_signal(signal.SIGHUP)
    logged = await_log(server, 5)[3:]
    assert all(line.endswith(" The old one stays in use.") for line in logged)
    assert ask("ann", "changed") == (200, new)


def test_user_who_is_gone_is_not_known_on_an_open_connection(bmci2c, serve, password_file):
    server = serve("--password-file", password_file)
    with server.connect() as connection:
        answers = connection.makefile("rb")
        data = request(GET_CLASS, Authorization=basic("ann", "sesame"), Connection=None)
        connection.sendall(data)
        assert read_answer(answers)[0].startswith("HTTP/1.1 200 ")
        assert passwd(bmci2c, password_file, "ann", "changed") == (0, "")
        server.process.send_signal(signal.SIGHUP)
        await_log(server, 1)
        connection.sendall(data)
        assert read_answer(answers)[0].startswith("HTTP/1.1 401 ")


def test_passwd_leaves_devices_alone_and_follows_links(bmci2c, password_file, tmp_path):
    fifo = str(tmp_path / "fifo")
    os.mkfifo(fifo)
    assert passwd(bmci2c, fifo, "ann", "x") == (
        64,
        f"bmci2c: The password file '{fifo}' is not a regular file.\n",
    )
    link = tmp_path / "link"
    link.symlink_to("passwords")
    assert passwd(bmci2c, str(link), "eve", "x") == (0, "")
    assert link.is_symlink()
    assert len(Path(password_file).read_text(encoding="utf-8").splitlines()) == 3


def test_pywbem_comes_through_tls_with_a_password(serve, certificate, password_file, monkeypatch):
    import pywbem

    # These would stand in for the certificate that the test names.
    for variable in ("REQUESTS_CA_BUNDLE", "CURL_CA_BUNDLE"):
        monkeypatch.delenv(variable, raising=False)
    tls = ["--certificate", certificate[0], "--key", certificate[1]]
    server = serve(*tls, "--password-file", password_file)
    for password, expected in (("sesame", True), ("wrong", False)):
        with pywbem.WBEMConnection(
            server.base_url, ("ann", password), "root/QUVSD", ca_certs=certificate[0]
        ) as connection:
            try:
                assert connection.EnumerateClassNames() and expected
            except pywbem.AuthError:
                assert not expected


def test_users_come_in_and_strangers_do_not(serve, password_file):
    server = serve("--password-file", password_file)
    assert status(server) == 401
    assert status(server, basic("ann", "sesame")) == 200
    assert status(server, basic("bob", "open:up")) == 200
    for wrong in (
        basic("ann", "Sesame"),
        basic("ann", ""),
        basic("bob", "sesame"),
        basic("eve", "sesame"),
        "Bearer x",
        "Basic ===",
    ):
        assert status(server, wrong) == 401
    lines = server.log().splitlines()
    assert len(lines) == 6  # a request without credentials is only a client that asks
    assert lines[0].startswith("bmci2c: The user 'ann' at 127.0.0.1:")
    assert lines[3].startswith("bmci2c: The user 'eve' at 127.0.0.1:")
    assert all(line.endswith(" gave a wrong password.") for line in lines)


def test_name_that_forges_log_lines_stays_one_line(serve, password_file):
    server = serve("--password-file", password_file)
    assert status(server, basic("x\nbmci2c is well", "y")) == 401
    (line,) = server.log().splitlines()
    assert line.startswith("bmci2c: The user 'x\\x0abmci2c is well' at 127.0.0.1:")


def test_every_request_of_a_connection_is_judged(serve, password_file):
    server = serve("--password-file", password_file)
    with server.connect() as connection:
        good = request(GET_CLASS, Authorization=basic("ann", "sesame"), Connection=None)
        connection.sendall(good + good)
        connection.sendall(request(GET_CLASS, Authorization=basic("ann", "no"), Connection=None))
        answer = rest(connection)
    assert [answer.count(f"HTTP/1.1 {code} ".encode()) for code in (200, 401)] == [2, 1]


def test_credentials_come_before_everything_else(serve, password_file):
    server = serve("--password-file", password_file)
    assert parse(server.exchange(request("", verb="GET", path="/none")))[0] == 401
    assert parse(server.exchange(request("x" * 3000000)))[0] == 401


def test_passwd_changes_one_user_only(bmci2c, password_file):
    with open(password_file) as file:
        before = file.read().splitlines()
    assert passwd(bmci2c, password_file, "ann", "new") == (0, "")
    with open(password_file) as file:
        after = file.read().splitlines()
    assert before[1] == after[1]
    assert before[0] != after[0]
    assert after[0].startswith("ann:$")
    assert stat.S_IMODE(os.stat(password_file).st_mode) == 0o600


def test_passwd_refuses_what_cannot_be_meant(bmci2c, password_file):
    assert passwd(bmci2c, password_file, "a:b", "x")[0] == 64
    assert passwd(bmci2c, password_file, "ann", "") == (64, "bmci2c: The password is empty.\n")
    result = bmci2c.bare("passwd", password_file, "ann")
    assert (result.code, result.err) == (64, "bmci2c: Standard input holds no password.\n")


def answer_terminal(program, arguments, environment, answers):
    """Runs the program on a terminal; types an answer at each question. Returns code and screen."""
    pid, terminal = pty.fork()
    if pid == 0:
        os.execve(program, [program, *arguments], environment)
    screen = b""
    answers = list(answers)
    while True:
        ready, _, _ = select.select([terminal], [], [], 60)
        try:
            block = os.read(terminal, 1024) if ready else b""
        except OSError:
            block = b""
        if not block:
            break
        screen += block
        if screen.endswith(b": ") and answers:
            os.write(terminal, answers.pop(0).encode() + b"\n")
    os.close(terminal)
    return os.waitstatus_to_exitcode(os.waitpid(pid, 0)[1]), screen.decode()


def test_passwd_asks_twice_and_shows_nothing(bmci2c, serve, password_file):
    ask = lambda *answers: answer_terminal(
        bmci2c.program, ["passwd", password_file, "eve"], bmci2c.environment, answers
    )
    code, screen = ask("swordfish", "swordfish")
    assert (code, screen.replace("\r", "")) == (0, "New password of eve: \nRepeat password: \n")
    assert status(serve("--password-file", password_file), basic("eve", "swordfish")) == 200
    code, screen = ask("swordfish", "cat fish")
    assert code == 64
    assert screen.replace("\r", "").endswith("\nbmci2c: The two passwords differ.\n")
    assert "fish" not in screen
