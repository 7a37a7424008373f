#!/usr/bin/env python3
"""A served home screen over time: frames, fingers and keys; starting anew, safe mode, the end.

    living_test.py PROGRAM LIBRARY_THAT_ENDS_IT
"""
import os
import shutil
import signal
import struct
import sys
import tempfile
import time
import unittest
import unittest.mock

from support import PATIENCE, Served, eventually

PROGRAM, ENDING_LIBRARY = sys.argv[1:3]
SWITCHED_ON = ("--set", "enabled=YES", "--set", "quick=YES")


class Living(unittest.TestCase):
    def test_time_is_the_wall_clock(self):
        with Served(PROGRAM) as served, served.socket() as page:
            first = page.report()["time"]
            time.sleep(0.5)
            second = page.report()["time"]
            self.assertGreaterEqual(second - first, 0.5)
            page.step("wait 0.5")
            self.assertGreaterEqual(page.report()["time"] - second, 0.5)

    def test_fingers_open_the_panel_and_press_its_buttons(self):
        with Served(PROGRAM, *SWITCHED_ON) as served, served.socket() as page:
            def swipe():
                for i in range(8):
                    page.send(type="finger", id=0, phase=("down" if i == 0 else "move"), x=187, y=333 - 30 * i)
                    time.sleep(0.01)
                page.send(type="finger", id=0, phase="up", x=187, y=100)
                return page.report()["panel"]
            # On a machine that is busy elsewhere a finger may be too slow.
            eventually(swipe, "the panel")
            page.step("wait 0.6")
            page.step('tap "close"')
            eventually(lambda: page.report()["panel"] is None, "the panel's leaving")

    def test_what_changes_much_after_a_rest_comes_quickly_and_then_exactly(self):
        with Served(PROGRAM) as served, served.socket() as page:
            page.send(type="finger", id=0, phase="down", x=300, y=330)
            page.send(type="finger", id=0, phase="move", x=200, y=330)
            exact = 1  # the codec of a frame
            while page.frame()[12] == exact:
                pass
            while page.frame()[12] != exact:
                pass
            time.sleep(1)
            page.report()  # what came before it is read
            page.send(type="finger", id=0, phase="move", x=150, y=330)
            self.assertNotEqual(page.frame()[12], exact)
            self.assertEqual(page.frame()[12], exact)

    def test_a_frame_is_one_picture_with_its_tiles_in_rows(self):
        with Served(PROGRAM, *SWITCHED_ON) as served, served.socket() as page:
            frame = page.frame()
            _, width, height, _, _, codec, side, across, count = struct.unpack("<IHHHHBBHH", frame[:18])
            self.assertEqual((width, height, codec, side, across, count), (750, 1334, 1, 64, 12, 12 * 21))
            self.assertEqual(list(frame[18:18 + 2 * count]), [place for row in range(21) for column in range(12)
                                                              for place in (column, row)])
            sheet = frame[18 + 2 * count:]
            self.assertEqual((sheet[:4], sheet[12:16], sheet[20]), (b"RIFF", b"VP8L", 0x2F))
            size = int.from_bytes(sheet[21:25], "little")
            self.assertEqual(((size & 0x3FFF) + 1, (size >> 14 & 0x3FFF) + 1), (across * side, 21 * side))
            page.send(type="step", id=1, step="swipe up")
            across, count = struct.unpack("<HH", page.frame()[14:18])
            self.assertTrue(0 < count < 12 * 21 and across == min(count, 12), (across, count))

    def test_keys_type_into_the_field_that_is_edited(self):
        with Served(PROGRAM, *SWITCHED_ON) as served, served.socket() as page:
            page.step("swipe up")
            page.step("wait 0.6")
            page.step('tap "Add"')
            page.step("wait 0.6")
            for key in ("O", "n", "é", "x", "Backspace"):
                page.send(type="key", key=key)
            self.assertEqual(page.report()["alert"]["text"], "Oné")

    def test_a_page_that_leaves_lifts_its_fingers(self):
        with Served(PROGRAM) as served, served.socket() as other:
            with served.socket() as page:
                page.send(type="finger", id=3, phase="down", x=60, y=60)
                page.report()
            eventually(lambda: self.tap_works(other), "another finger's turn")

    @staticmethod
    def tap_works(page):
        page.step("tap 60 60")
        page.step("wait 0.5")
        opened = page.report()["application"]
        page.step("home")
        page.step("wait 0.5")
        return opened

    def test_idle_it_does_nothing(self):
        with Served(PROGRAM, *SWITCHED_ON) as served:
            with served.socket() as page:
                page.frame()
                page.step("wait 1")
            (home,) = served.home_processes()
            time.sleep(0.5)
            before = self.ticks(home) + self.ticks(served.process.pid)
            time.sleep(3)
            spent = self.ticks(home) + self.ticks(served.process.pid) - before
            self.assertLessEqual(spent, 3 * os.sysconf("SC_CLK_TCK") / 100)

    @staticmethod
    def ticks(process):
        with open(f"/proc/{process}/stat", encoding="ascii") as stat:
            fields = stat.read().rsplit(")", 1)[1].split()
        return int(fields[11]) + int(fields[12])

    def test_a_long_message_comes_through_to_a_home_screen_that_was_busy(self):
        with Served(PROGRAM) as served, served.socket() as page:
            page.report()
            (home,) = served.home_processes()
            os.kill(home, signal.SIGSTOP)
            page.send(type="step", id=1, step="x" * 1_000_000)
            time.sleep(0.3)
            os.kill(home, signal.SIGCONT)
            self.assertIn("xxx", page.until("done")["error"])

    def test_respring_keeps_the_files(self):
        with Served(PROGRAM) as served, served.socket() as page:
            page.step("write rows=4")
            (first,) = served.home_processes()
            page.send(type="respring")
            page.until("started")
            self.assertEqual(page.report()["preferences"]["rows"], 4)
            self.assertNotEqual(served.home_processes(), [first])

    def test_files_that_options_put_there_are_put_there_once(self):
        with tempfile.TemporaryDirectory() as folder:
            presets = os.path.join(folder, "presets.json")
            with open(presets, "w", encoding="utf-8") as out:
                out.write('{"configurations": []}')
            with Served(PROGRAM, "--set", "rows=4", "--presets", presets) as served, served.socket() as page:
                page.step("write rows=5")
                text = '{"configurations": [{"name": "One", "configuration": {}}]}'
                page.answer("use-presets", text=text)
                page.send(type="respring")
                page.until("started")
                self.assertEqual(page.report()["preferences"]["rows"], 5)
                self.assertEqual(page.answer("presets"), text)

    def test_another_device_has_the_same_files(self):
        with Served(PROGRAM) as served, served.socket() as page:
            page.step("write rows=4")
            page.send(type="device", device="iPad Air 2", ios="9.3.5")
            eventually(lambda: page.until("started")["device"] == "iPad Air 2", "the other device")
            report = page.report()
            self.assertEqual((report["device"], report["ios"], report["preferences"]["rows"]), ("iPad Air 2", "9.3.5", 4))

    def test_a_library_that_ends_it_leads_to_safe_mode(self):
        with Served(PROGRAM, "--library", ENDING_LIBRARY) as served, served.socket() as page:
            self.assertTrue(eventually(lambda: page.until("started")["safe"], "safe mode"))
            self.assertFalse(page.report()["loaded"])

    def test_a_library_that_ends_it_quietly_leads_to_safe_mode_too(self):
        os.environ["ENDS_QUIETLY"] = "YES"
        try:
            with Served(PROGRAM, "--library", ENDING_LIBRARY) as served, served.socket() as page:
                self.assertTrue(eventually(lambda: page.until("started")["safe"], "safe mode"))
                (home,) = served.home_processes()
                self.assertFalse(page.report()["loaded"])
                self.assertEqual(served.home_processes(), [home])
        finally:
            del os.environ["ENDS_QUIETLY"]

    def test_a_library_that_ends_it_is_told_with_the_place(self):
        with Served(PROGRAM, "--library", ENDING_LIBRARY) as served, served.socket() as page:
            self.assertTrue(eventually(lambda: page.until("started")["safe"], "safe mode"))
            page.send(type="respring")
            ended = page.until("ended")
            self.assertEqual(ended["reason"], "stopped by a signal, Aborted")
            self.assertIn("    end at ending_library.cpp:", ended["trace"])

    def test_what_a_library_raises_and_where_it_crashes_is_told(self):
        raising = os.path.join(os.path.dirname(PROGRAM), "tests/simulator/runtime/libraising.so")
        for place, reason in (("layout", "TestException: too many spoons"),
                              ("fault", "stopped by a signal, Segmentation fault at the address 0x1000")):
            with unittest.mock.patch.dict(os.environ, RAISE_FROM=place), \
                    Served(PROGRAM, "--library", raising) as served, served.socket() as page:
                self.assertTrue(eventually(lambda: page.until("started")["safe"], "safe mode"))
                page.send(type="respring")
                ended = page.until("ended")
                self.assertEqual(ended["reason"], reason)
                first, second = ended["trace"].splitlines()[:2]
                self.assertEqual(first, "  in -[SBIconListView verticalIconPadding], replaced by libraising.dylib")
                self.assertRegex(second, r"^    \w+ForPadding at raising.cpp:\d+, libraising.so$|^    raise ")
                self.assertTrue(page.until("started")["safe"])

    def test_what_ended_it_is_told(self):
        with Served(PROGRAM, *SWITCHED_ON) as served, served.socket() as page:
            page.report()
            (home,) = served.home_processes()
            os.kill(home, 9)
            ended = page.until("ended")
            self.assertEqual((ended["reason"], ended["trace"]), ("stopped by a signal, Killed", ""))
            self.assertTrue(ended["safe"])
            self.assertTrue(page.until("started")["safe"])
            page.send(type="respring")
            self.assertFalse(page.until("started")["safe"])
            self.assertTrue(page.report()["loaded"])

    def test_watch_starts_anew_when_the_library_changes(self):
        with tempfile.TemporaryDirectory() as folder:
            library = os.path.join(folder, "watched.so")
            with open(ENDING_LIBRARY, "rb") as source, open(library, "wb") as target:
                target.write(source.read())
            with Served(PROGRAM, "--watch", "--stock", "--library", library) as served, served.socket() as page:
                page.until("started")
                page.report()
                homes = served.home_processes()
                time.sleep(1.5)
                self.assertEqual(served.home_processes(), homes)
                os.utime(library, (1, 1))
                page.until("started")
                self.assertNotEqual(served.home_processes(), homes)

    def test_watch_looks_at_every_library(self):
        with tempfile.TemporaryDirectory() as folder:
            library = os.path.join(folder, "watched.so")
            shutil.copy(ENDING_LIBRARY, library)
            with Served(PROGRAM, "--watch", "--stock", "--library", ENDING_LIBRARY, "--library", library) as served, \
                    served.socket() as page:
                page.until("started")
                page.report()
                homes = served.home_processes()
                time.sleep(1.5)
                os.utime(library, (1, 1))
                page.until("started")
                self.assertNotEqual(served.home_processes(), homes)

    def test_several_libraries_are_loaded(self):
        ours = os.path.join(os.path.dirname(PROGRAM), "libTilo.so")
        with Served(PROGRAM, "--library", ours, "--library", ENDING_LIBRARY) as served, served.socket() as page:
            self.assertTrue(eventually(lambda: page.until("started")["safe"], "safe mode after the second"))
        with tempfile.TemporaryDirectory() as folder:
            twin = os.path.join(folder, "twin.so")
            shutil.copy(ours, twin)
            with Served(PROGRAM, "--root", folder, "--library", ours, "--library", twin) as served, \
                    served.socket() as page:
                self.assertTrue(page.report()["loaded"])
                place = os.path.join(folder, "Library/MobileSubstrate/DynamicLibraries")
                self.assertLessEqual({"Tilo.dylib", "twin.dylib"}, set(os.listdir(place)))

    def test_quit_ends_the_program(self):
        with Served(PROGRAM) as served, served.socket() as page:
            homes = served.home_processes()
            page.send(type="quit")
            self.assertEqual(served.process.wait(PATIENCE), 0)
            for home in homes:
                self.assertFalse(os.path.exists(f"/proc/{home}"))

    def test_an_interrupt_ends_it_and_leaves_nothing(self):
        with tempfile.TemporaryDirectory() as place:
            os.environ["TMPDIR"] = place
            try:
                with Served(PROGRAM) as served:
                    self.assertEqual(len(os.listdir(place)), 1)
                    served.process.send_signal(2)
                    self.assertEqual(served.process.wait(PATIENCE), 0)
                self.assertEqual(os.listdir(place), [])
            finally:
                del os.environ["TMPDIR"]


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
