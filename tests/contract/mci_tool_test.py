#!/usr/bin/env python3
"""Drives tandrel-mci as a person would: mci_tool_test.py PROGRAM MEDIA_FOLDER. Needs an X server."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

PROGRAM, MEDIA = sys.argv[1], pathlib.Path(sys.argv[2])


def run(text, *arguments, **environment):
    return subprocess.run([PROGRAM, *arguments], input=text.encode(), capture_output=True, timeout=180,
                          env=dict(os.environ, **environment))


class Tool(unittest.TestCase):
    def test_prints_result_and_answer_of_each_line(self):
        done = run(f'Open "{MEDIA}/short.mp4" alias A\r\nstatus A length\n\n Play A\nstatus A mode')
        self.assertEqual(done.stdout, b"0\t1\n0\t2000\n267\t\n261\t\n0\tstopped\n")
        self.assertEqual(done.returncode, 0)
        self.assertEqual(done.stderr, b"")

    def test_nothing_in_nothing_out(self):
        done = run("")
        self.assertEqual((done.stdout, done.returncode), (b"", 0))

    def test_refuses_unknown_options(self):
        self.assertEqual(run("", "--help-me").returncode, 2)

    def test_puts_its_window_in_place_of_the_mark(self):
        done = run(f'Open "{MEDIA}/short.mp4" alias A parent %H style child\nput A window at 0 0 640 480\nclose %H',
                   "--window")
        self.assertEqual(done.stdout, b"0\t1\n0\t\n263\t\n")

    def test_without_a_server_there_is_no_window(self):
        done = run("", "--window", DISPLAY=":9999")
        self.assertEqual(done.returncode, 1)
        done = run(f'Open "{MEDIA}/short.mp4" alias A parent 5\nOpen "{MEDIA}/short.mp4" alias A', DISPLAY=":9999")
        self.assertEqual(done.stdout, b"346\t\n0\t1\n")

    def test_a_file_that_may_not_be_read_is_refused(self):
        with tempfile.TemporaryDirectory() as folder:
            secret = pathlib.Path(folder) / "secret.mp4"
            secret.write_bytes((MEDIA / "short.mp4").read_bytes())
            secret.chmod(0)
            # An administrator may read everything, so that right is given up for this.
            command = [PROGRAM] if os.geteuid() else ["setpriv", "--bounding-set=-dac_override,-dac_read_search",
                                                      "--inh-caps=-dac_override,-dac_read_search", PROGRAM]
            done = subprocess.run(command, input=f'Open "{secret}" alias A\nclose A\n'.encode(), capture_output=True,
                                  timeout=180)
            self.assertEqual(done.stdout, b"296\t\n263\t\n")

    def test_traces(self):
        with tempfile.TemporaryDirectory() as folder:
            trace = pathlib.Path(folder) / "trace"
            run("Close all\nPlay A\n", TANDREL_MCI_TRACE=str(trace))
            self.assertEqual(trace.read_bytes(), b"Close all\t0\t\nPlay A\t263\t\n")

    def test_takes_the_told_output(self):
        commands = f'Open "{MEDIA}/short.mp4" alias A parent %H\nstatus A position\nseek A to 1000\nstatus A position\n'
        done = run(commands, "--window", TANDREL_VO="null")
        self.assertEqual(done.stdout, b"0\t1\n0\t0\n0\t\n0\t1000\n")

    def test_plays_while_it_waits_for_the_next_line(self):
        with subprocess.Popen([PROGRAM], stdin=subprocess.PIPE, stdout=subprocess.PIPE, bufsize=0) as tool:
            def ask(command):
                tool.stdin.write(command.encode() + b"\n")
                return tool.stdout.readline()
            self.assertEqual(ask(f'Open "{MEDIA}/short.mp4" alias A'), b"0\t1\n")
            self.assertEqual(ask("Play A"), b"0\t\n")
            while ask("status A mode") == b"0\tplaying\n":
                pass
            self.assertEqual(ask("status A position"), b"0\t2000\n")
            tool.stdin.close()
            self.assertEqual(tool.wait(30), 0)


unittest.main(argv=sys.argv[:1])
