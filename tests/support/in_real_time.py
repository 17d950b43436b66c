#!/usr/bin/env python3
"""in_real_time.py PROGRAM [ARGUMENT...]: runs a program of GoogleTest, as tests/support/tries.py has it.

What fails runs again by itself. Passes if in the end each test has passed once, and no run has crashed or leaked."""

import json
import os
import subprocess
import sys
import tempfile

import tries


def failed_tests(report):
    """Full names of those that the report tells as failed; None without a whole report."""
    try:
        with open(report, encoding="utf-8") as file:
            suites = json.load(file)["testsuites"]
    except (OSError, ValueError, KeyError):
        return None
    return [f"{suite['name']}.{test['name']}" for suite in suites for test in suite["testsuite"] if test.get("failures")]


def run(command, report, chosen=None):
    """Its exit code, and what has failed of all or of the chosen ones."""
    if os.path.exists(report):
        os.remove(report)
    options = [f"--gtest_output=json:{report}"] + ([f"--gtest_filter={':'.join(chosen)}"] if chosen else [])
    code = subprocess.run([*command, *options], check=False).returncode
    return code, failed_tests(report)


def main(command):
    with tempfile.TemporaryDirectory(prefix="tandrel-tries-") as folder:
        report = os.path.join(folder, "report.json")
        code, failed = run(command, report)
        for tried in range(1, tries.MOST):
            # What ends in another way than by tests that fail has crashed or leaked.
            if code != 1 or not failed:
                break
            again = failed
            print(f"== Try {tried + 1}: {', '.join(again)}", flush=True)
            code, failed = run(command, report, again)
            if failed is not None:
                for name in sorted(set(again) - set(failed)):
                    tries.note(name, tried)
        return code


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
