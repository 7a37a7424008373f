#!/usr/bin/env python3
"""Another home screen beside the one that is served, as pages that compare have it.

    second_home_test.py PROGRAM LIBRARY_THAT_ENDS_IT
"""
import os
import sys
import tempfile
import unittest

from support import Refused, Served, eventually

PROGRAM = sys.argv[1]


class SecondHome(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.root = cls.enterClassContext(tempfile.TemporaryDirectory())
        cls.served = cls.enterClassContext(Served(PROGRAM, "--root", cls.root, "--set", "enabled=YES", "--set", "quick=YES"))

    def setUp(self):
        self.page = self.enterContext(self.served.socket())
        self.page.report()
        self.other = self.enterContext(self.served.socket(protocol="tilo-second"))

    def start(self, **choice):
        self.other.send(type="device", **choice)
        eventually(lambda: self.other.until("started")["running"], "the second home screen")

    def test_there_is_none_until_a_device_is_chosen(self):
        self.assertFalse(self.other.until("started")["running"])
        with self.assertRaises(Refused) as refusal:
            self.other.report()
        self.assertEqual(str(refusal.exception), "there is no SpringBoard")
        self.other.send(type="respring")
        self.assertEqual(self.other.until("refused")["reason"], "there is no SpringBoard")
        self.assertEqual(len(self.served.home_processes()), 1)

    def test_it_has_the_files_of_the_first_as_they_were_when_it_started(self):
        self.page.step("write rows=3")
        self.start(device="iPhone X")
        self.assertEqual(self.other.report()["preferences"]["rows"], 3)
        self.page.step("write rows=4")
        self.assertEqual(self.other.report()["preferences"]["rows"], 3)
        self.other.step("write rows=5")
        self.assertEqual(self.page.report()["preferences"]["rows"], 4)
        self.other.send(type="respring")
        self.other.until("started")
        self.assertEqual(self.other.report()["preferences"]["rows"], 5)
        self.start(device="iPhone X")
        self.assertEqual(self.other.report()["preferences"]["rows"], 4)
        self.assertEqual(self.page.report()["device"], "iPhone 7")

    def test_it_may_be_stock(self):
        self.start(device="iPhone 7", stock=True)
        self.assertFalse(self.other.report()["loaded"])
        self.start(device="iPhone 7", stock=False)
        self.assertTrue(self.other.report()["loaded"])
        self.assertTrue(self.page.report()["loaded"])

    def test_links_are_copied_as_links_and_pipes_are_left_out(self):
        place = os.path.join(self.root, "var/mobile/Documents")
        os.makedirs(place, exist_ok=True)
        for name, make in (("pipe", os.mkfifo), ("round", lambda path: os.symlink(".", path))):
            if not os.path.lexists(os.path.join(place, name)):
                make(os.path.join(place, name))
        self.start(device="iPhone 7")
        self.assertTrue(self.other.report()["loaded"])

    def test_it_ends_with_its_last_page(self):
        self.start(device="iPhone 7")
        with self.served.socket(protocol="tilo-second") as third:
            third.until("started")
            self.other.socket.close()
            self.assertEqual(third.report()["device"], "iPhone 7")
            self.assertEqual(len(self.served.home_processes()), 2)
        eventually(lambda: len(self.served.home_processes()) == 1, "the end of the second")

    def test_a_choice_that_is_none_leaves_it_as_it_is(self):
        self.start(device="iPhone 7")
        homes = self.served.home_processes()
        self.other.send(type="device", device="iPhone 99")
        self.assertIn("iPhone 99", self.other.until("refused")["reason"])
        self.assertEqual(self.served.home_processes(), homes)
        self.other.send(type="device", device="iPhone 7", stock="yes")
        with self.assertRaises(Refused):
            self.other.until("started")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
