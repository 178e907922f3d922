"""A test that Wine lost is started once more; one that failed is not."""

import os
import subprocess
import tempfile
import unittest

SCRIPT = os.path.join(os.path.dirname(__file__), "..", "..", "scripts", "wine_test.sh")
BEGUN = "[==========] Running 1 test from 1 test suite.\n"
PASSED = BEGUN + "[  PASSED  ] 1 test.\n"


def run(program, *starts):
    """(exit code, starts made) when the n-th start prints and ends as told, the last one for ever."""
    with tempfile.TemporaryDirectory() as folder:
        prefix = os.path.join(folder, "prefix")
        os.mkdir(prefix)
        open(os.path.join(prefix, "ready"), "w", encoding="ascii").close()
        for number, (text, code) in enumerate(starts, 1):
            with open(os.path.join(folder, f"out{number}"), "w", encoding="ascii") as file:
                file.write(text)
            with open(os.path.join(folder, f"code{number}"), "w", encoding="ascii") as file:
                file.write(str(code))
        for name, body in (("wine", f'''cd "{folder}"
                                        echo >>starts
                                        turn=$(wc -l <starts)
                                        [ $turn -le {len(starts)} ] || turn={len(starts)}
                                        cat out$turn
                                        exit $(cat code$turn)'''), ("wineserver", "exit 0")):
            with open(os.path.join(folder, name), "w", encoding="ascii") as file:
                file.write("#!/bin/sh\n" + body + "\n")
            os.chmod(os.path.join(folder, name), 0o755)
        path = folder + ":" + os.environ["PATH"]
        done = subprocess.run([SCRIPT, prefix, program], check=False, capture_output=True,
                              env={"PATH": path})
        with open(os.path.join(folder, "starts"), encoding="ascii") as file:
            return done.returncode, len(file.readlines())


class LostByWine(unittest.TestCase):
    def test_a_test_that_passes_runs_once(self):
        self.assertEqual(run("a_tests.exe", (PASSED, 0)), (0, 1))

    def test_a_test_that_fails_runs_once(self):
        self.assertEqual(run("a_tests.exe", (BEGUN + "[  FAILED  ] A.B\n", 1), (PASSED, 0)), (1, 1))

    def test_a_test_that_crashes_on_its_way_runs_once(self):
        self.assertEqual(run("a_tests.exe", (BEGUN, 5), (PASSED, 0)), (5, 1))

    def test_one_that_never_began_runs_again(self):
        lost = "wine client error:0: recvmsg: Connection reset by peer\n"
        self.assertEqual(run("a_tests.exe", (lost, 1), (PASSED, 0)), (0, 2))

    def test_one_that_wine_lost_after_its_last_test_runs_again(self):
        lost = PASSED + "Inconsistency detected by ld.so: dl-fini.c: 87: _dl_fini: Assertion\n"
        self.assertEqual(run("a_tests.exe", (lost, 127), (PASSED, 0)), (0, 2))

    def test_what_happens_again_is_a_failure(self):
        self.assertEqual(run("a_tests.exe", ("", 1)), (1, 2))

    def test_any_other_program_runs_once(self):
        self.assertEqual(run("velmarion.exe", ("", 1)), (1, 1))


if __name__ == "__main__":
    unittest.main()
