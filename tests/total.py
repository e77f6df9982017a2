#!/usr/bin/env python3
"""Prints the total of a test run: what ctest ran, with each pytest file counted by its tests.

    tests/total.py RESULTS.xml        (written by ctest --output-junit)
"""

import re
import sys
import xml.etree.ElementTree as ElementTree
from collections import Counter

PYTEST_SUMMARY = re.compile(r"^=*\s*((?:\d+ [a-z]+(?:, )?)+) in [\d.]+s.*$", re.MULTILINE)
PYTEST_SKIP = re.compile(r"^SKIPPED \[\d+\] .*$", re.MULTILINE)
OUTCOMES = {"run": "passed", "fail": "failed", "notrun": "skipped", "disabled": "skipped"}


def pytest_counts(output):
    """The counts of a pytest run by outcome; None when the output is not pytest's."""
    found = PYTEST_SUMMARY.findall(output)
    if not found:
        return None
    counts = Counter()
    for part in found[-1].split(", "):
        number, outcome = part.split(" ")
        counts["failed" if outcome.startswith("error") else outcome] += int(number)
    return counts


def main(path):
    total = Counter()
    reasons = Counter()
    for case in ElementTree.parse(path).getroot().iter("testcase"):
        output = case.findtext("system-out") or ""
        total += pytest_counts(output) or Counter({OUTCOMES[case.get("status")]: 1})
        reasons.update(line.split("] ", 1)[1] for line in PYTEST_SKIP.findall(output))
    for reason, count in sorted(reasons.items()):
        print(f"skipped {count}: {reason}")
    ran = total["passed"] + total["failed"]
    print(f"{ran} tests ran: {total['passed']} passed, {total['failed']} failed", end="")
    print(f"; {total['skipped']} skipped" if total["skipped"] else "")


main(sys.argv[1])
