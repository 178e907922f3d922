#!/usr/bin/env python3
"""summarize_tests.py RESULTS_DIR GROUP...: adds up the JUnit files that ctest wrote.

Prints the last lines of each failed test, a line for each group (RESULTS_DIR/GROUP.xml) and the
total as the last line. A group without a file did not build or did not run, and counts as one
failure. Only a test that says itself that it skips is skipped; one whose program is missing has
failed.
"""

import os
import sys
import xml.etree.ElementTree as ElementTree

LINES_OF_A_FAILED_TEST = 15


def last_words(case):
    """The end of what a test printed."""
    said = [line for line in (case.findtext("system-out") or "").splitlines() if line.strip()]
    return said[-LINES_OF_A_FAILED_TEST:] or ["(not a word)"]


def count(path):
    """Returns (passed, failed, skipped, {name: last lines} of the failed) of one JUnit file."""
    passed = failed = skipped = 0
    broken = {}
    for case in ElementTree.parse(path).getroot().iter("testcase"):
        skip = case.find("skipped")
        if case.get("status") == "run" and case.find("failure") is None and skip is None:
            passed += 1
        elif skip is not None and skip.get("message", "").startswith("SKIP_"):
            skipped += 1
        else:
            failed += 1
            broken[case.get("name")] = last_words(case)
    return passed, failed, skipped, broken


def main(arguments):
    folder, groups = arguments[0], arguments[1:]
    total = [0, 0, 0]
    summary = []
    for group in groups:
        path = os.path.join(folder, group + ".xml")
        try:
            passed, failed, skipped, broken = count(path)
        except (OSError, ElementTree.ParseError):
            passed, failed, skipped, broken = 0, 1, 0, {"(did not build or did not run)": []}
        if passed + failed + skipped == 0:
            failed, broken = 1, {"(ran no test)": []}
        for index, value in enumerate((passed, failed, skipped)):
            total[index] += value
        for name, said in broken.items():
            print(f"broken: {group}: {name}")
            print("".join(f"    {line}\n" for line in said), end="")
        summary.append(f"  {group:<16} {passed} ok, {failed} broken, {skipped} left out")
        summary += [f"    broken: {group}: {name}" for name in broken]
    print("\n".join(summary))
    print("tests: {} passed, {} failed, {} skipped".format(*total))
    return 1 if total[1] or not total[0] else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
