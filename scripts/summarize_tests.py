#!/usr/bin/env python3
"""summarize_tests.py RESULTS_DIR GROUP...: adds up the JUnit files that ctest wrote.

Prints a line for each group (RESULTS_DIR/GROUP.xml) and the total as the last line. A group
without a file did not build or did not run, and counts as one failure. Only a test that says
itself that it skips is skipped; one whose program is missing has failed.
"""

import os
import sys
import xml.etree.ElementTree as ElementTree


def count(path):
    """Returns (passed, failed, skipped, names of the failed) of one JUnit file."""
    passed = failed = skipped = 0
    names = []
    for case in ElementTree.parse(path).getroot().iter("testcase"):
        skip = case.find("skipped")
        if case.get("status") == "run" and case.find("failure") is None and skip is None:
            passed += 1
        elif skip is not None and skip.get("message", "").startswith("SKIP_"):
            skipped += 1
        else:
            failed += 1
            names.append(case.get("name"))
    return passed, failed, skipped, names


def main(arguments):
    folder, groups = arguments[0], arguments[1:]
    total = [0, 0, 0]
    for group in groups:
        path = os.path.join(folder, group + ".xml")
        try:
            passed, failed, skipped, names = count(path)
        except (OSError, ElementTree.ParseError):
            passed, failed, skipped, names = 0, 1, 0, ["(did not build or did not run)"]
        if passed + failed + skipped == 0:
            failed, names = 1, ["(ran no test)"]
        for index, value in enumerate((passed, failed, skipped)):
            total[index] += value
        print(f"  {group:<16} {passed} ok, {failed} broken, {skipped} left out")
        for name in names:
            print(f"    broken: {group}: {name}")
    print("tests: {} passed, {} failed, {} skipped".format(*total))
    return 1 if total[1] or not total[0] else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
