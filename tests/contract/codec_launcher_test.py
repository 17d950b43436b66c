#!/usr/bin/env python3
"""Starts modules of all kinds: codec_launcher_test.py PROGRAM LIBRARY"""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest

PROGRAM, LIBRARY = (os.fsencode(os.path.abspath(name)) for name in sys.argv[1:3])
SCRIPT = b'#!/bin/sh\necho "$$ $#:$1"\n'


class Launcher(unittest.TestCase):
    def setUp(self):
        self.kept = tempfile.TemporaryDirectory()
        self.addCleanup(self.kept.cleanup)
        self.folder = os.fsencode(self.kept.name)

    def make(self, name, content, mode=0o755):
        path = os.path.join(self.folder, name)
        with open(path, "wb") as file:
            file.write(content)
        os.chmod(path, mode)
        return path

    def start(self, *arguments, **options):
        process = subprocess.Popen([PROGRAM, *arguments], stdout=subprocess.PIPE, stderr=subprocess.PIPE, **options)
        out, err = process.communicate(timeout=90)
        return process.pid, process.returncode, out, err

    def assert_script_runs(self, *arguments, entry=b"configure", **options):
        number, code, out, err = self.start(*arguments, **options)
        self.assertEqual((code, err), (0, b""))
        self.assertEqual(out, b"%d 1:%s\n" % (number, entry))

    def assert_refused(self, *arguments, **options):
        _, code, out, err = self.start(*arguments, **options)
        self.assertEqual((code, out), (1, b""))
        self.assertEqual(err.count(b"\n"), 1, err)

    def test_a_program_goes_on_as_the_same_process(self):
        path = self.make(b"module.ax", SCRIPT)
        self.assert_script_runs(path + b",configure")
        self.assert_script_runs(path + b",configureAudio", entry=b"configureAudio")

    def test_names_may_hold_blanks_commas_and_any_bytes(self):
        for name in (b"a module.ax", b"a,configure.ax", b"a\xff\xfe\n\"quoted\" $HOME.ax", b"-n"):
            self.assert_script_runs(self.make(name, SCRIPT) + b",configure")

    def test_a_path_that_comes_in_several_words_ends_at_the_first(self):
        path = self.make(b"a module.ax", SCRIPT)
        self.assert_refused(*(path + b",configure").split(b" "))

    def test_a_bare_name_is_one_in_this_folder(self):
        self.make(b"ls", SCRIPT)
        self.assert_script_runs(b"ls,configure", cwd=self.folder)

    def test_a_library_is_called(self):
        path = os.path.join(self.folder, b"module.so")
        shutil.copyfile(LIBRARY, path)
        os.chmod(path, 0o644)
        self.assertEqual(self.start(path + b",configure")[1:], (0, b"configure was called\n", b""))
        self.assertEqual(self.start(b"module.so,configure", cwd=self.folder)[1:3], (0, b"configure was called\n"))
        self.assert_refused(path + b",nothing")
        self.assert_refused(self.make(b"broken.so", b"\x7fELF and no more", 0o644) + b",configure")

    def test_a_module_for_windows_is_handed_on(self):
        path = self.make(b"module.ax", b"MZ\x90\x00")
        tools = os.path.join(self.folder, b"tools")
        os.mkdir(tools)
        self.assert_refused(path + b",configure", env={"PATH": os.fsdecode(tools)})
        self.make(b"tools/wine", b'#!/bin/sh\necho "$$ $1 $2"\n')
        number, code, out, _ = self.start(path + b",configure", env={"PATH": os.fsdecode(tools)})
        self.assertEqual((code, out), (0, b"%d rundll32 %s,configure\n" % (number, path)))

    def test_what_is_no_module_is_refused(self):
        path = self.make(b"module.ax", b"text\n", 0o644)
        empty = self.make(b"empty", b"", 0o644)
        odd = self.make(b"odd", b"#!/no/such/interpreter\n")
        for arguments in ([], [b""], [b","], [path], [path + b","], [path + b",configure"], [b"/no/such,configure"],
                          [self.folder + b",configure"], [empty + b",configure"], [b",configure"],
                          [odd + b",configure"], [b"/no\nsuch,configure"]):
            self.assert_refused(*arguments)

    def test_a_pipe_is_not_waited_for(self):
        pipe = os.path.join(self.folder, b"pipe")
        os.mkfifo(pipe)
        self.assert_refused(pipe + b",configure")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
