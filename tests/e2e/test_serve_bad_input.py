"""What `bmci2c serve` answers to requests that are none, and that it goes on after them."""

import signal
from concurrent.futures import ThreadPoolExecutor

import pytest
from serving import GET_CLASS, call, parse, read_answer, request, rest


@pytest.fixture
def server(server):
    yield server
    status, _, body = server.post(GET_CLASS)
    assert (status, '<CLASS NAME="CIM_Job"' in body) == (200, True), "the server goes on"


def test_right_request_is_answered(server):
    status, headers, body = server.post(GET_CLASS)
    assert status == 200
    assert headers["Content-Type"] == "application/xml; charset=utf-8"
    assert headers["CIMOperation"] == "MethodResponse"
    assert headers["Content-Length"] == str(len(body))
    assert body.startswith('<?xml version="1.0" encoding="utf-8" ?>\n<CIM CIMVERSION="2.0"')
    assert '<MESSAGE ID="1" PROTOCOLVERSION="1.0">' in body


def test_m_post_is_answered_with_its_prefix(server):
    extension = "http://www.dmtf.org/cim/mapping/http/v1.0 ; ns=73"
    plain = {"CIMOperation": None, "CIMMethod": None, "CIMObject": None}
    prefixed = {
        "73-CIMOperation": "MethodCall",
        "73-CIMMethod": "GetClass",
        "73-CIMObject": "root%2FQUVSD",
    }
    data = request(GET_CLASS, verb="M-POST", Man=extension, **plain, **prefixed)
    status, headers, _ = parse(server.exchange(data))
    assert status == 200
    assert headers["73-CIMOperation"] == "MethodResponse"
    assert headers["Man"] == extension


def test_m_post_without_extension_is_not_extended(server):
    status, _, body = parse(server.exchange(request(GET_CLASS, verb="M-POST")))
    assert (status, "header 'Man'" in body) == (510, True)


@pytest.mark.parametrize("verb", ["GET", "HEAD", "PUT", "DELETE", "OPTIONS", "TRACE"])
def test_other_methods_are_not_allowed(server, verb):
    status, headers, _ = parse(server.exchange(request("", verb=verb)))
    assert (status, headers["Allow"]) == (405, "POST, M-POST")


@pytest.mark.parametrize(
    "changed, expected",
    [
        ({"path": "/"}, (404, None)),
        ({"path": "http://127.0.0.1/cimom"}, (200, None)),
        ({"Host": None}, (400, None)),
        ({"Origin": "http://127.0.0.1:5988"}, (403, None)),
        ({"Content_Type": "text/html"}, (415, None)),
        ({"Content_Type": None}, (415, None)),
        ({"Content_Type": "application/xml; charset=latin-1"}, (415, None)),
        ({"Content_Encoding": "gzip"}, (415, None)),
        ({"Content_Length": None}, (411, None)),
        ({"Content_Length": "-5"}, (400, None)),
        ({"Transfer_Encoding": "chunked"}, (400, None)),
        ({"Expect": "miracles"}, (417, None)),
        ({"CIMOperation": None}, (400, "unsupported-operation")),
        ({"CIMOperation": "Dance"}, (501, "unsupported-operation")),
        ({"CIMProtocolVersion": "3.0"}, (501, "unsupported-protocol-version")),
        ({"CIMBatch": "1"}, (501, "multiple-requests-unsupported")),
        ({"CIMMethod": None}, (400, "header-mismatch")),
        ({"CIMObject": None}, (400, "header-mismatch")),
        ({"method": "DeleteClass"}, (400, "header-mismatch")),
        ({"target": "root/interop"}, (400, "header-mismatch")),
    ],
    ids=lambda value: next(iter(value.items()), None).__str__() if isinstance(value, dict) else "",
)
def test_header(server, changed, expected):
    status, headers, _ = parse(server.exchange(request(GET_CLASS, **changed)))
    assert (status, headers.get("CIMError")) == expected


BOMB = (
    '<?xml version="1.0"?><!DOCTYPE CIM [<!ENTITY a "aaaaaaaaaaaaaaaa">'
    + "".join(f'<!ENTITY {b} "{f"&{a};" * 16}">' for a, b in zip("abcdefg", "bcdefgh"))
    + ']><CIM CIMVERSION="2.0" DTDVERSION="2.0">&h;</CIM>'
)
DOCUMENTS = {
    "text": ("no XML at all", 400, "request-not-well-formed"),
    "empty": ("", 400, "request-not-well-formed"),
    "bytes": (bytes(range(256)), 400, "request-not-well-formed"),
    "cut-short": (GET_CLASS[:-20], 400, "request-not-well-formed"),
    "latin-1": (GET_CLASS.replace("CIM_Job", "ü").encode("latin-1"), 400, "request-not-well-formed"),
    "entity-bomb": (BOMB, 400, "request-not-loosely-valid"),
    "external-entity": (
        '<!DOCTYPE CIM [<!ENTITY a SYSTEM "file:///etc/passwd">]><CIM>&a;</CIM>',
        400,
        "request-not-loosely-valid",
    ),
    "too-deep": ("<a>" * 65 + "</a>" * 65, 400, "request-not-loosely-valid"),
    "much-too-deep": ("<a>" * 100000 + "</a>" * 100000, 400, "request-not-loosely-valid"),
    "character-0": (
        GET_CLASS.replace("CIM_Job", "CIM_Job&#0;x"),
        400,
        "request-not-well-formed",
    ),
    "text-around": ("a" + GET_CLASS.partition("?>")[2], 400, "request-not-well-formed"),
    "html": ("<html><body/></html>", 400, "request-not-loosely-valid"),
    "no-namespace": (
        GET_CLASS.replace("LOCALNAMESPACEPATH", "OTHER"),
        400,
        "request-not-loosely-valid",
    ),
    "no-method-name": (GET_CLASS.replace(' NAME="GetClass"', ""), 400, "request-not-loosely-valid"),
    "cim-version": (call(versions=("3.0", "2.0", "1.0")), 501, "unsupported-cim-version"),
    "dtd-version": (call(versions=("2.0", "1.0", "1.0")), 501, "unsupported-dtd-version"),
    "protocol": (call(versions=("2.0", "2.0", "2.0")), 501, "unsupported-protocol-version"),
    "several": (
        GET_CLASS.replace("SIMPLEREQ", "MULTIREQ"),
        501,
        "multiple-requests-unsupported",
    ),
    "indication": (GET_CLASS.replace("SIMPLEREQ", "SIMPLEEXPREQ"), 501, "unsupported-operation"),
}


@pytest.mark.parametrize("name", DOCUMENTS)
def test_document(server, name):
    document, status, error = DOCUMENTS[name]
    answered, headers, body = server.post(document)
    assert (answered, headers["CIMError"]) == (status, error)
    assert body.endswith(".\n"), "a sentence says what is wrong"


FLAG = '<IPARAMVALUE NAME="LocalOnly"><VALUE>{}</VALUE></IPARAMVALUE>'
CLASS = '<IPARAMVALUE NAME="ClassName"><CLASSNAME NAME="CIM_Job"/></IPARAMVALUE>'
CALLS = {
    "unknown-intrinsic": (call("Dance"), "7", "This server has no operation 'Dance'."),
    "missing-parameter": (call(), "4", "The parameter 'ClassName' is missing."),
    "unknown-parameter": (
        call(parameters=CLASS + '<IPARAMVALUE NAME="Colour"/>'),
        "4",
        "The operation 'GetClass' has no parameter 'Colour'.",
    ),
    "parameter-twice": (call(parameters=CLASS * 2), "4", "The parameter 'ClassName' is given twice."),
    "no-boolean": (
        call(parameters=CLASS + FLAG.format("maybe")),
        "4",
        "The parameter 'LocalOnly' is neither TRUE nor FALSE.",
    ),
    "other-namespace": (
        call(parameters=CLASS, namespace="root/none"),
        "3",
        "Unknown namespace 'root/none'.",
    ),
}


@pytest.mark.parametrize("name", CALLS)
def test_call(server, name):
    document, code, description = CALLS[name]
    method = "Dance" if name == "unknown-intrinsic" else "GetClass"
    target = "root/none" if name == "other-namespace" else "root/QUVSD"
    status, _, body = server.post(document, method, target)
    assert status == 200
    assert f'<ERROR CODE="{code}" DESCRIPTION="{description}"/>' in body


def test_too_large_request_is_refused(server):
    status, _, body = server.post("x" * (2**20 + 1))
    assert (status, body) == (413, "The request is larger than 1048576 bytes.\n")


def test_largest_request_is_read(server):
    padding = " " * (2**20 - len(GET_CLASS))
    assert server.post(GET_CLASS + padding)[0] == 200


def test_too_large_header_is_refused(server):
    status, _, body = server.post(GET_CLASS, X="x" * 16384)
    assert (status, body) == (431, "The request's headers are larger than 16384 bytes.\n")


def test_what_is_no_http_is_a_bad_request(server):
    assert parse(server.exchange(b"\x16\x03\x01\x02\x00\x01\r\n\r\n"))[0] == 400


def test_request_in_chunks_is_read(server):
    chunks = b"".join(b"%x\r\n%s\r\n" % (len(part), part) for part in halves(GET_CLASS.encode()))
    assert parse(server.exchange(chunked(chunks + b"0\r\n\r\n")))[0] == 200


def halves(data):
    return data[: len(data) // 2], data[len(data) // 2 :]


def chunked(body):
    head = request("", Content_Length=None, Transfer_Encoding="chunked")
    return head + body


@pytest.mark.parametrize(
    "body, expected",
    [
        (b"x\r\n", 400),
        (b"-1\r\n", 400),
        (b"1\r\nab\r\n", 400),
        (b"0" * 2000, 400),
        (b"fffffff\r\n", 413),
        (b"0\r\n" + b"A: b\r\n" * 5000 + b"\r\n", 431),
    ],
    ids=["no-number", "negative", "longer", "endless-size", "too-large", "trailers"],
)
def test_bad_chunk_is_refused(server, body, expected):
    assert parse(server.exchange(chunked(body)))[0] == expected


@pytest.mark.parametrize(
    "ambiguous",
    [
        {"Content_Length": "4", "Transfer_Encoding": "chunked"},
        {"Content_Length": "4\r\nContent-Length: 40"},
        {"Transfer_Encoding": "chunked\r\nTransfer-Encoding: identity", "Content_Length": None},
        {"Content_Length": "4, 40"},
        {"Content_Length": "+4"},
        {"Transfer_Encoding": "chunked, chunked", "Content_Length": None},
        {"X": "y\nContent-Length: 40"},
        {"Content_Length ": "40"},
    ],
    ids=["both", "two-lengths", "two-codings", "list", "sign", "coding-list", "line-feed", "blank"],
)
def test_request_of_unclear_length_ends_the_connection(server, ambiguous):
    smuggled = request(GET_CLASS)
    answer = server.exchange(request("", **ambiguous) + b"0\r\n\r\n" + smuggled)
    assert parse(answer)[0] in (400, 501)
    assert answer.count(b"HTTP/1.1 ") == 1, "what follows is no request"


def test_huge_length_is_refused_before_the_body_comes(server):
    for length in ("1048577", "9" * 30):
        assert parse(server.exchange(request("", Content_Length=length)))[0] == 413


def test_limits_can_be_set(serve):
    server = serve("--max-request-size", "500", "--max-header-size", "400", "--max-depth", "3")
    assert server.post("x" * 501)[0] == 413
    assert server.post("", X="x" * 400)[0] == 431
    assert "deeper than 3 levels" in server.post("<a><b><c><d/></c></b></a>")[2]


@pytest.mark.parametrize("sent", [5, 60, -10], ids=["in-line", "in-headers", "in-document"])
def test_slow_client_is_timed_out_and_others_are_served(serve, sent):
    server = serve("--request-time", "1")
    with server.connect() as slow:
        slow.sendall(request(GET_CLASS)[:sent])
        assert server.post(GET_CLASS)[0] == 200
        status, _, body = parse(rest(slow))
    assert (status, body) == (408, "The request did not arrive within 1 s.\n")


def test_silent_connection_is_closed(serve):
    server = serve("--idle-time", "1")
    with server.connect() as silent:
        assert rest(silent) == b""


def test_client_beyond_the_limit_is_told_to_come_back(serve):
    server = serve("--max-connections", "1")
    with server.connect() as first:
        first.sendall(request(GET_CLASS)[:-1])
        status, headers, _ = parse(server.exchange(request(GET_CLASS)))
        assert (status, headers["Retry-After"]) == (503, "1")
        first.sendall(request(GET_CLASS)[-1:])
        assert parse(rest(first))[0] == 200


@pytest.mark.parametrize("by", [signal.SIGTERM, signal.SIGINT], ids=["term", "int"])
def test_request_under_way_is_answered_before_the_end(serve, by):
    server = serve()
    with server.connect() as under_way, server.connect() as idle:
        data = request(GET_CLASS, Connection=None)
        under_way.sendall(data[:-10])
        # Connections are accepted in their order: when this one is answered, both are.
        assert server.post(GET_CLASS)[0] == 200
        server.process.send_signal(by)
        assert rest(idle) == b""  # closed: the signal has arrived
        under_way.sendall(data[-10:])
        status, headers, _ = parse(rest(under_way))
    assert (status, headers["Connection"]) == (200, "close")
    assert server.stop() == 0


def test_client_that_goes_away_does_no_harm(server):
    for _ in range(20):
        with server.connect() as connection:
            connection.sendall(request(GET_CLASS))


def test_thousands_of_requests_at_once_are_all_answered(serve):
    server = serve("--max-connections", "20")
    document = call(
        "EnumerateInstances",
        '<IPARAMVALUE NAME="ClassName"><CLASSNAME NAME="CIM_DiagnosticService"/></IPARAMVALUE>',
    )
    data = request(document, "EnumerateInstances", Connection=None)

    def work(_):
        with server.connect() as connection:
            answers = connection.makefile("rb")
            for _ in range(100):
                connection.sendall(data)
                head, body = read_answer(answers)
                assert head.startswith("HTTP/1.1 200 ")
                assert body.count(b"BMC I2C Test") > 1

    with ThreadPoolExecutor(20) as clients:
        list(clients.map(work, range(20)))
