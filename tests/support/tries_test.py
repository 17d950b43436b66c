#!/usr/bin/env python3
"""What several tries forgive, and what they don't."""

import contextlib
import io
import json
import os
import signal
import subprocess
import sys
import tempfile
import unittest
import unittest.mock

import tries

IN_REAL_TIME = os.path.join(os.path.dirname(os.path.abspath(__file__)), "in_real_time.py")
# Stands for a program of GoogleTest with the tests Some.a and Some.b: what becomes of each in the runs to come, and the
# exit code of each run, is in a file.
PROGRAM = """
import json, os, sys
plan = json.load(open("plan"))
run = plan.pop(0)
json.dump(plan, open("plan", "w"))
options = dict(one.split("=", 1) for one in sys.argv[1:])
with open("runs", "a") as runs:
    runs.write(options.get("--gtest_filter", "all") + "\\n")
if "signal" in run:
    os.kill(os.getpid(), run["signal"])
tests = [dict(name=name, **({"failures": [{}]} if name in run["failed"] else {})) for name in "ab"]
json.dump({"testsuites": [{"name": "Some", "testsuite": tests}]}, open(options["--gtest_output"].removeprefix("json:"), "w"))
sys.exit(run["code"])
"""


class Programs(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory(prefix="tandrel-tries-")
        self.addCleanup(holder.cleanup)
        self.folder = holder.name

    def path(self, name):
        return os.path.join(self.folder, name)

    def lines(self, name):
        if not os.path.exists(self.path(name)):
            return []
        with open(self.path(name), encoding="utf-8") as file:
            return file.read().splitlines()

    def ends_with(self, *plan):
        """The exit code of these runs, one behind the other."""
        with open(self.path("plan"), "w", encoding="utf-8") as file:
            json.dump(plan, file)
        done = subprocess.run([sys.executable, IN_REAL_TIME, sys.executable, "-c", PROGRAM], cwd=self.folder,
                              env=dict(os.environ, TANDREL_TRIES=self.path("notes")), stdout=subprocess.DEVNULL, check=False)
        return done.returncode

    def test_what_passes_runs_once(self):
        self.assertEqual(self.ends_with({"failed": "", "code": 0}), 0)
        self.assertEqual(self.lines("runs"), ["all"])
        self.assertEqual(self.lines("notes"), [])

    def test_what_fails_and_passes_then_is_noted(self):
        self.assertEqual(self.ends_with({"failed": "ab", "code": 1}, {"failed": "b", "code": 1}, {"failed": "", "code": 0}), 0)
        self.assertEqual(self.lines("runs"), ["all", "Some.a:Some.b", "Some.b"])
        self.assertEqual(self.lines("notes"), ["Some.a (try 2)", "Some.b (try 3)"])

    def test_what_fails_each_time_fails(self):
        self.assertEqual(self.ends_with(*3 * [{"failed": "a", "code": 1}]), 1)
        self.assertEqual(self.lines("runs"), ["all", "Some.a", "Some.a"])
        self.assertEqual(self.lines("notes"), [])

    def test_a_crash_fails_at_once(self):
        self.assertNotEqual(self.ends_with({"signal": signal.SIGSEGV}), 0)
        self.assertEqual(self.lines("runs"), ["all"])

    def test_a_crash_in_a_later_try_fails(self):
        self.assertNotEqual(self.ends_with({"failed": "a", "code": 1}, {"signal": signal.SIGABRT}), 0)
        self.assertEqual(self.lines("runs"), ["all", "Some.a"])
        self.assertEqual(self.lines("notes"), [])

    def test_a_leak_fails_at_once_though_a_test_has_failed_too(self):
        self.assertEqual(self.ends_with({"failed": "a", "code": 23}), 23)
        self.assertEqual(self.ends_with({"failed": "", "code": 23}), 23)
        self.assertEqual(self.lines("runs"), ["all", "all"])


class Tests(unittest.TestCase):
    def outcome(self, verdicts, crashes=False):
        """The result of a test with these verdicts, and how many of them were asked for."""
        asked = []

        class Some(tries.SeveralTries):
            def test(self):
                asked.append(len(asked))
                self.assertTrue(verdicts[asked[-1]])

            def crashed(self):
                return crashes

        result = unittest.TestResult()
        with contextlib.redirect_stderr(io.StringIO()), unittest.mock.patch.dict(os.environ, TANDREL_TRIES=os.devnull):
            Some("test").run(result)
        return result, len(asked)

    def test_the_first_verdict_counts_if_it_is_good(self):
        result, asked = self.outcome([True])
        self.assertTrue(result.wasSuccessful())
        self.assertEqual((result.testsRun, asked), (1, 1))

    def test_three_verdicts_may_be_asked_for(self):
        result, asked = self.outcome([False, False, True])
        self.assertTrue(result.wasSuccessful())
        self.assertEqual((result.testsRun, asked), (1, 3))
        result, asked = self.outcome([False, False, False])
        self.assertEqual((len(result.failures), result.testsRun, asked), (1, 1, 3))

    def test_a_crash_is_not_forgiven(self):
        result, asked = self.outcome([False, True], crashes=True)
        self.assertEqual((len(result.failures), asked), (1, 1))

    def test_errors_and_parts_of_a_test_count_too(self):
        class Some(tries.SeveralTries):
            def test_error(self):
                raise OSError

            def test_part(self):
                with self.subTest("part"):
                    self.fail()

        for name, kind in (("test_error", "errors"), ("test_part", "failures")):
            result = unittest.TestResult()
            with contextlib.redirect_stderr(io.StringIO()):
                Some(name).run(result)
            self.assertEqual(len(getattr(result, kind)), 1)


if __name__ == "__main__":
    unittest.main()
