#!/usr/bin/env python3
"""The screen over time as an animation, read by its chunks.

    recording_test.py PROGRAM
"""
import os
import re
import struct
import subprocess
import sys
import tempfile
import unittest

PROGRAM = sys.argv[1]


def chunks(data):
    """Names and contents of RIFF chunks."""
    at = 0
    while at + 8 <= len(data):
        name, size = data[at:at + 4].decode(), struct.unpack("<I", data[at + 4:at + 8])[0]
        yield name, data[at + 8:at + 8 + size]
        at += 8 + size + size % 2


def number(data):
    return int.from_bytes(data, "little")


class Recording(unittest.TestCase):
    def record(self, script, *options, device="iPhone 4s"):
        """Size in pixels, and each picture's milliseconds."""
        folder = self.enterContext(tempfile.TemporaryDirectory())
        steps, file = os.path.join(folder, "steps"), os.path.join(folder, "a.webp")
        with open(steps, "w", encoding="utf-8") as out:
            out.write(script)
        subprocess.run([PROGRAM, "--device", device, *options, "--script", steps, "--record", file], check=True)
        with open(file, "rb") as webp:
            data = webp.read()
        self.assertEqual((data[:4], data[8:12]), (b"RIFF", b"WEBP"))
        self.assertEqual(number(data[4:8]) + 8, len(data))
        all_chunks = list(chunks(data[12:]))
        if all_chunks[0][0] != "VP8X":  # no animation: a single picture
            return None, [0]
        header = dict(all_chunks)["VP8X"]
        size = number(header[4:7]) + 1, number(header[7:10]) + 1
        return size, [number(contents[12:15]) for name, contents in all_chunks if name == "ANMF"]

    def test_it_lasts_as_long_as_the_steps_do(self):
        size, durations = self.record("wait 0.5\nswipe left\nwait 0.85\n")
        self.assertEqual(size, (640, 960))
        self.assertAlmostEqual(sum(durations), 1500, delta=40)

    def test_what_moves_has_as_many_pictures_as_asked_for(self):
        _, slow = self.record("swipe left\nwait 0.35\n", "--fps", "10")
        _, quick = self.record("swipe left\nwait 0.35\n", "--fps", "50")
        self.assertLessEqual(len(slow), 7)
        self.assertGreaterEqual(len(quick), 15)
        self.assertTrue(all(duration % 100 in (0, 1, 99) for duration in slow[:-1]), slow)

    def test_a_still_screen_is_one_picture(self):
        _, durations = self.record("wait 3\n")
        self.assertEqual(len(durations), 1)

    def test_a_device_that_turns_keeps_the_picture(self):
        size, durations = self.record("rotate landscape\nwait 0.2\n", "--fps", "5", device="iPad mini 2")
        self.assertEqual(size, (1536, 2048))
        self.assertAlmostEqual(sum(durations), 600, delta=220)

    def test_the_first_picture_of_the_readme_is_one(self):
        tree = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../..")
        with open(os.path.join(tree, "README.md"), encoding="utf-8") as page:
            first = re.search(r'<img src="([^"]+)"|!\[[^]]*\]\(([^)]+)\)', page.read())
        with open(os.path.join(tree, first[1] or first[2]), "rb") as picture:
            names = [name for name, _ in chunks(picture.read()[12:])]
        self.assertGreater(names.count("ANMF"), 10)

    def test_wrong_uses_are_refused_by_name(self):
        for options, complaint in ((["--fps", "10"], "--fps is for --record"),
                                   (["--record", "/nowhere/a.webp"], "--record: no file can be written at"),
                                   (["--record", "/tmp/a.webp", "--fps", "0"], "--fps: '0' is not a whole number from 1 to 60"),
                                   (["--record", "/tmp/a.webp", "--fps", "61"], "--fps: '61' is not"),
                                   (["--record", "/dev/full"], "--record: '/dev/full' cannot be written")):
            done = subprocess.run([PROGRAM, *options], capture_output=True, text=True, check=False)
            self.assertEqual(done.returncode, 2, options)
            self.assertIn(complaint, done.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
