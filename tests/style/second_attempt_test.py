"""A test that needs a second attempt is named, and more than two of them are a failure."""

import os
import pathlib
import subprocess
import tempfile
import unittest

PROGRAM = pathlib.Path(__file__).parents[2] / "scripts/ctest-again"

# Stands for ctest: each run takes a line of the plan, which names the tests that fail in it.
CTEST = '''#!/usr/bin/env python3
import pathlib, sys
folder = pathlib.Path(__file__).parent
plan = (folder / "plan").read_text().splitlines()
(folder / "plan").write_text("\\n".join(plan[1:]))
(folder / "calls").open("a").write(" ".join(sys.argv[1:-2]) + "\\n")
failed = plan[0].split()
cases = "".join(f'<testcase name="{name}" status="{"fail" if name in failed else "run"}"/>' for name in ("a", "b", "c"))
pathlib.Path(sys.argv[-1]).write_text(f"<testsuite>{cases}</testsuite>")
sys.exit(8 if failed else 0)
'''


class SecondAttemptTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.ctest = self.folder / "ctest"
        self.ctest.write_text(CTEST)
        self.ctest.chmod(0o755)

    def run_tests(self, *plan):
        (self.folder / "plan").write_text("\n".join([*plan, "a b c"]))
        (self.folder / "calls").write_text("")
        command = [str(PROGRAM), str(self.folder / "record"), "--preset", "default"]
        environment = os.environ | {"HALORIC_CTEST": str(self.ctest)}
        return subprocess.run(command, env=environment, capture_output=True, text=True)

    def calls(self):
        return (self.folder / "calls").read_text().splitlines()

    def recorded(self):
        record = self.folder / "record"
        return record.read_text().split() if record.exists() else []

    def test_tests_that_pass_run_once(self):
        self.assertEqual(self.run_tests("").returncode, 0)
        self.assertEqual(self.calls(), ["--preset default"])
        self.assertEqual(self.recorded(), [])

    def test_what_failed_runs_once_more_and_is_named(self):
        result = self.run_tests("a b", "")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(self.calls(), ["--preset default", "--preset default --rerun-failed"])
        self.assertEqual(self.recorded(), ["a", "b"])
        self.assertIn("  a\n  b\n", result.stdout)

    def test_a_test_that_fails_twice_is_a_failure(self):
        self.assertEqual(self.run_tests("a", "a").returncode, 8)
        self.assertEqual(self.recorded(), [])

    def test_three_that_fail_get_no_second_attempt(self):
        result = self.run_tests("a b c", "")
        self.assertEqual(result.returncode, 8)
        self.assertEqual(len(self.calls()), 1)
        self.assertIn("  a\n  b\n  c\n", result.stdout)

    def test_several_runs_share_what_is_allowed(self):
        self.assertEqual(self.run_tests("a", "").returncode, 0)
        self.assertEqual(self.run_tests("b", "").returncode, 0)
        self.assertEqual(self.run_tests("c", "").returncode, 8)
        self.assertEqual(self.recorded(), ["a", "b"])

    def test_a_run_that_ctest_refuses_is_a_failure(self):
        self.ctest.write_text("#!/bin/sh\nexit 3\n")
        self.assertEqual(self.run_tests("").returncode, 3)


if __name__ == "__main__":
    unittest.main()
