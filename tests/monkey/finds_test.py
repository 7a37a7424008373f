"""Faults that a library has are found, and told with the fewest steps. The command line: MONKEY LIBRARY FAULTY_LIBRARY"""
import os
import subprocess
import sys
import unittest

MONKEY, LIBRARY, FAULTY = sys.argv[1:4]


def told(fault, *options):
    done = subprocess.run([MONKEY, "--device", "iPhone 7", "--library", LIBRARY, "--library", FAULTY, *options],
                          env={**os.environ, "FAULT": fault}, capture_output=True, text=True, timeout=300)
    return done.returncode, done.stdout.splitlines()


class AFault(unittest.TestCase):
    def test_that_ends_springboard_is_told_with_the_steps_that_lead_there(self):
        status, lines = told("ends", "--steps", "150")
        self.assertEqual(status, 1)
        self.assertIn(", seed 1: ended: ", lines[0])
        self.assertEqual(lines[2:], ["  edit", "  edit"])

    def test_that_moves_icons_is_told_with_the_steps_that_lead_there(self):
        status, lines = told("moves", "--steps", "150")
        self.assertEqual(status, 1)
        self.assertIn(", seed 1: answers: topInset is ", lines[0])
        self.assertEqual(lines[2:], ["  edit", "  edit"])


class NoFault(unittest.TestCase):
    def test_a_walk_is_told_with_its_length(self):
        status, lines = told("none", "--steps", "20")
        self.assertEqual(status, 0, lines)
        self.assertRegex(lines[0], r"^iPhone 7, seed 1: \d+ of 20 steps could be done, nothing wrong$")


class TheCommandLine(unittest.TestCase):
    def test_a_model_that_is_none_is_named(self):
        done = subprocess.run([MONKEY, "--device", "iPhone 70"], capture_output=True, text=True, timeout=60)
        self.assertEqual(done.returncode, 2)
        self.assertEqual(done.stderr.splitlines(), ["monkey: unknown device 'iPhone 70' (--list-devices shows them)"])


unittest.main(argv=sys.argv[:1])
