"""`run` calls the test directly; a CIM client reads the same from the module, in every scenario."""

import pytest
from conftest import JOB, RECORD
from test_scenarios import FOLDER, TIME_STAMP, Replay, read_scenario


def without_times(value):
    """The same with every time stamp made equal."""
    if isinstance(value, dict):
        return {key: without_times(part) for key, part in value.items()}
    if isinstance(value, list):
        return [without_times(part) for part in value]
    return "TIME" if isinstance(value, str) and TIME_STAMP.fullmatch(value) else value


@pytest.mark.parametrize("path", sorted(FOLDER.glob("*.txt")), ids=lambda path: path.stem)
def test_run_gives_what_a_cim_client_reads(bmci2c, path):
    replay = Replay(bmci2c, read_scenario(path))

    def enumerated(name):
        arguments = ["enumerate", name, "--after-runs", "1", "--json"]
        result = bmci2c(*replay.options, *arguments)
        if result.code != 0:
            return None
        return [instance["properties"] for instance in result.json()]

    direct = bmci2c(*replay.options, "run", "--json").json()
    records = enumerated(RECORD)
    if records is None:
        assert direct["verdict"] == "error"
        return
    assert without_times(direct["records"]) == without_times(records)
    assert [list(record) for record in direct["records"]] == [list(record) for record in records]
    (job,) = enumerated(JOB)
    assert without_times(direct["job"]) == without_times(job)
    assert list(direct["job"]) == list(job)
