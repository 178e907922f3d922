"""The last line of ./test must tell the truth, whatever ctest left behind."""

import os
import subprocess
import sys
import tempfile
import unittest

SCRIPT = os.path.join(os.path.dirname(__file__), "..", "..", "scripts", "summarize_tests.py")
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
        done = subprocess.run([sys.executable, SCRIPT, folder, *groups], check=False,
                              capture_output=True, text=True)
        return done.stdout.splitlines()[-1], done.returncode


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


if __name__ == "__main__":
    unittest.main()
