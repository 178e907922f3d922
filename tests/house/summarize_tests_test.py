"""The last line of ./test must tell the truth, whatever ctest left behind."""

import os
import subprocess
import sys
import tempfile
import unittest

SCRIPT = os.path.join(os.path.dirname(__file__), "..", "..", "scripts", "summarize_tests.py")
PASSED_B = '<testcase name="b" status="run"/>'
PASSED = '<testcase name="a" status="run"/>'
FAILED = '<testcase name="b" status="fail"><failure message=""/></testcase>'
SKIPPED = ('<testcase name="c" status="notrun">'
           '<skipped message="SKIP_REGULAR_EXPRESSION_MATCHED"/></testcase>')
NO_PROGRAM = ('<testcase name="d" status="notrun">'
              '<skipped message="Unable to find executable"/></testcase>')


def summarize(groups):
    """(last line, exit code) for groups given as name -> list of cases, or None for no file."""
    with tempfile.TemporaryDirectory() as folder:
        for name, cases in groups.items():
            if cases is not None:
                with open(os.path.join(folder, name + ".xml"), "w", encoding="utf-8") as file:
                    file.write("<testsuite>" + "".join(cases) + "</testsuite>")
        named = [name for name in groups if not name.endswith(".again")]
        done = subprocess.run([sys.executable, SCRIPT, folder, *named], check=False,
                              capture_output=True, text=True)
        return done.stdout.splitlines()[-1], done.returncode


def failed_of(cases):
    """ctest's -R for the failed ones among the cases of a group."""
    with tempfile.TemporaryDirectory() as folder:
        with open(os.path.join(folder, "x.xml"), "w", encoding="utf-8") as file:
            file.write("<testsuite>" + "".join(cases) + "</testsuite>")
        return subprocess.run([sys.executable, SCRIPT, "--failed", folder, "x"], check=True,
                              capture_output=True, text=True).stdout.strip()


class Summary(unittest.TestCase):
    def test_adds_up_the_groups(self):
        self.assertEqual(summarize({"x": [PASSED, PASSED, SKIPPED], "y": [PASSED]}),
                         ("tests: 3 passed, 0 failed, 1 skipped", 0))

    def test_a_failure_fails_the_whole(self):
        self.assertEqual(summarize({"x": [PASSED, FAILED]}),
                         ("tests: 1 passed, 1 failed, 0 skipped", 1))

    def test_a_missing_program_is_a_failure_and_no_skip(self):
        self.assertEqual(summarize({"x": [PASSED, NO_PROGRAM]}),
                         ("tests: 1 passed, 1 failed, 0 skipped", 1))

    def test_a_group_that_did_not_run_is_a_failure(self):
        self.assertEqual(summarize({"x": [PASSED], "y": None}),
                         ("tests: 1 passed, 1 failed, 0 skipped", 1))

    def test_a_group_without_tests_is_a_failure(self):
        self.assertEqual(summarize({"x": []}), ("tests: 0 passed, 1 failed, 0 skipped", 1))

    def test_a_failure_that_passed_alone_is_a_pass(self):
        self.assertEqual(summarize({"x": [PASSED, FAILED], "x.again": [PASSED_B]}),
                         ("tests: 2 passed, 0 failed, 0 skipped", 0))

    def test_a_failure_that_failed_again_stays_one(self):
        self.assertEqual(summarize({"x": [PASSED, FAILED], "x.again": [FAILED]}),
                         ("tests: 1 passed, 1 failed, 0 skipped", 1))

    def test_what_is_run_again_are_the_failed_tests_by_their_exact_names(self):
        other = '<testcase name="s.T/0 (char)+" status="fail"><failure message=""/></testcase>'
        self.assertEqual(failed_of([PASSED, FAILED, other]), r"^(b|s\.T/0 \(char\)\+)$")

    def test_nothing_is_run_again_where_much_failed_or_nothing(self):
        self.assertEqual(failed_of([FAILED.replace('"b"', f'"b{i}"') for i in range(5)]), "")
        self.assertEqual(failed_of([PASSED]), "")


if __name__ == "__main__":
    unittest.main()
