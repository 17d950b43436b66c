"""Tests that play in real time get three tries each: a machine that is busy elsewhere may spoil one. What needed more than
one is noted, and told at the end of all tests. A crash is none of that: it fails at once."""

import os
import signal
import sys
import unittest

MOST = 3
CRASHES = {-signal.SIGABRT, -signal.SIGBUS, -signal.SIGFPE, -signal.SIGILL, -signal.SIGSEGV, -signal.SIGTRAP}


def note(name, tried):
    """This test has failed `tried` times and passed then. A line of the file that the environment names, if any."""
    path = os.environ.get("TANDREL_TRIES")
    if path:
        with open(path, "a", encoding="utf-8") as notes:
            notes.write(f"{name} (try {tried + 1})\n")


class Trial(unittest.TestResult):
    """What came of one try, to be told to another result."""

    def __init__(self):
        super().__init__()
        self.told = []

    def addFailure(self, test, err):
        super().addFailure(test, err)
        self.told.append(("addFailure", test, err))

    def addError(self, test, err):
        super().addError(test, err)
        self.told.append(("addError", test, err))

    def addSkip(self, test, reason):
        super().addSkip(test, reason)
        self.told.append(("addSkip", test, reason))

    def addSuccess(self, test):
        super().addSuccess(test)
        self.told.append(("addSuccess", test))

    def addSubTest(self, test, subtest, err):
        super().addSubTest(test, subtest, err)
        if err:
            self.told.append(("addSubTest", test, subtest, err))

    def tell(self, result):
        for name, *what in self.told:
            getattr(result, name)(*what)


class SeveralTries(unittest.TestCase):
    """Each test of it is run until it passes, three times at most."""

    def crashed(self):
        """True if a program under test has, in the try that is over."""
        return False

    def run(self, result=None):
        result = result or self.defaultTestResult()
        result.startTest(self)
        try:
            for tried in range(MOST):
                trial = Trial()
                super().run(trial)
                if trial.wasSuccessful() or self.crashed() or tried + 1 == MOST:
                    break
                reasons = "\n".join(told for _, told in trial.failures + trial.errors)
                print(f"\n== Try {tried + 1} of {self.id()} failed:\n{reasons}", file=sys.stderr, flush=True)
            if trial.wasSuccessful() and tried:
                note(self.id().replace("__main__", os.path.basename(sys.argv[0])), tried)
            trial.tell(result)
        finally:
            result.stopTest(self)
        return result
