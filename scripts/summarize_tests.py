#!/usr/bin/env python3
"""summarize_tests.py RESULTS_DIR GROUP...: adds up the JUnit files that ctest wrote.

Prints the last lines of each failed test, a line for each group (RESULTS_DIR/GROUP.xml) and the
total as the last line. A group without a file did not build or did not run, and counts as one
failure. Only a test that says itself that it skips is skipped; one whose program is missing has
failed. A test that failed in its group and passed when it was run again by itself
(RESULTS_DIR/GROUP.again.xml) has passed, and is named.

summarize_tests.py --failed RESULTS_DIR GROUP: prints ctest's -R for the group's failed tests, if
they are few enough to blame the machine; else nothing.
"""

import os
import re
import sys
import xml.etree.ElementTree as ElementTree

LINES_OF_A_FAILED_TEST = 15
TESTS_THAT_MAY_BE_LATE = 4


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


def expression_of_the_failed(folder, group):
    try:
        broken = count(os.path.join(folder, group + ".xml"))[3]
    except (OSError, ElementTree.ParseError):
        return ""
    if not 0 < len(broken) <= TESTS_THAT_MAY_BE_LATE:
        return ""
    return "^(" + "|".join(re.sub(r"([][^$.*+?|()\\])", r"\\\1", name) for name in broken) + ")$"


def names_passed_again(path):
    try:
        cases = ElementTree.parse(path).getroot().iter("testcase")
    except (OSError, ElementTree.ParseError):
        return set()
    return {case.get("name") for case in cases
            if case.get("status") == "run" and case.find("failure") is None}


def main(arguments):
    if arguments[0] == "--failed":
        print(expression_of_the_failed(*arguments[1:]))
        return 0
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
        late = names_passed_again(os.path.join(folder, group + ".again.xml")) & broken.keys()
        passed, failed = passed + len(late), failed - len(late)
        for name, said in broken.items():
            print(f"{'late' if name in late else 'broken'}: {group}: {name}")
            print("".join(f"    {line}\n" for line in said), end="")
        for index, value in enumerate((passed, failed, skipped)):
            total[index] += value
        summary.append(f"  {group:<26} {passed} ok, {failed} broken, {skipped} left out")
        summary += [f"    broken: {group}: {name}" for name in broken if name not in late]
        summary += [f"    passed only when run again alone: {group}: {name}" for name in late]
    print("\n".join(summary))
    print("tests: {} passed, {} failed, {} skipped".format(*total))
    return 1 if total[1] or not total[0] else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
