"""Cases that wait run side by side: all CASES of a file start together, and each is a test."""

from concurrent.futures import ThreadPoolExecutor

import pytest

AT_ONCE = 12


@pytest.fixture(scope="module")
def runs(request, tmp_path_factory):
    """runs[name] is the run of that case."""
    cases = request.module.CASES
    with ThreadPoolExecutor(AT_ONCE) as pool:
        yield Runs(
            {
                name: pool.submit(case.run, tmp_path_factory.mktemp("case"))
                for name, case in cases.items()
            }
        )


class Runs:
    def __init__(self, futures):
        self._futures = futures

    def __getitem__(self, name):
        return self._futures[name].result()
