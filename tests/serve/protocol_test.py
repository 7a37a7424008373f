#!/usr/bin/env python3
"""A served home screen under programs that are no browsers, and rude.

    protocol_test.py PROGRAM LIBRARY_THAT_ENDS_IT
"""
import os
import signal
import socket
import sys
import tempfile
import time
import unittest

from support import PATIENCE, Refused, Served, eventually

PROGRAM = sys.argv[1]


class Rudeness(unittest.TestCase):
    """Whatever one connection does, the home screen goes on for the others."""

    @classmethod
    def setUpClass(cls):
        cls.served = cls.enterClassContext(Served(PROGRAM))
        # It takes the server a while to give it up; the other tests go on meanwhile.
        cls.half = cls.enterClassContext(socket.create_connection((cls.served.host, cls.served.port), timeout=PATIENCE))
        cls.half.sendall(b"GET / HTTP/1.1\r\nHost: ")

    def setUp(self):
        self.homes = self.served.home_processes()

    def tearDown(self):
        with self.served.socket() as page:
            self.assertEqual(page.report()["device"], "iPhone 7")
        self.assertEqual(self.served.home_processes(), self.homes)

    def assert_ends(self, reason, contents, opcode=1):
        with self.served.socket() as page:
            page.until("started")
            page.send_bytes(contents, opcode)
            with self.assertRaises(Refused) as ended:
                while True:
                    page.receive()
        self.assertEqual(str(ended.exception), reason)

    def test_what_is_no_message_ends_the_connection_with_a_reason(self):
        reason = "a message is no JSON object with a type"
        for contents in (b"", b"hello", b"[1]", b"{}", b'{"type":1}', b"{" * 100_000, b'{"type":"\xff"}'):
            with self.subTest(contents=contents[:20]):
                self.assert_ends(reason, contents)
        self.assert_ends(reason, b'{"type":"report"}', opcode=2)

    def test_a_message_that_is_too_long_ends_the_connection_with_a_reason(self):
        self.assert_ends("a message is too long", b'{"type":"' + b"x" * (1 << 20) + b'"}')

    def test_an_unknown_message_is_refused_by_name(self):
        with self.served.socket() as page:
            page.send(type="hello")
            self.assertEqual(page.until("refused")["reason"], "no message is called 'hello'")
            page.send(type="leave")
            self.assertEqual(page.until("refused")["reason"], "'leave' is not for pages to say")

    def test_fields_of_wrong_kinds_are_refused(self):
        with self.served.socket() as page:
            for message in ({"type": "finger"}, {"type": "finger", "id": "x", "phase": "down", "x": 1, "y": 1},
                            {"type": "finger", "id": 10, "phase": "down", "x": 1, "y": 1},
                            {"type": "finger", "id": 2 ** 32, "phase": "down", "x": 1, "y": 1},
                            {"type": "finger", "id": 1e300, "phase": "down", "x": 1, "y": 1},
                            {"type": "finger", "id": 1, "phase": "move", "x": 1, "y": 1},
                            {"type": "finger", "id": 1, "phase": "down", "x": None, "y": [1]}, {"type": "key", "key": 3},
                            {"type": "step", "id": 1, "step": 7}, {"type": "drawn", "frame": "all"},
                            {"type": "drawn", "frame": 1e300}, {"type": "drawn", "frame": -1}):
                page.send(**message)
                if message["type"] != "drawn":
                    self.assertTrue(page.until("refused")["reason"], message)

    def test_a_device_that_is_none_is_refused_by_name(self):
        with self.served.socket() as page:
            page.send(type="device", device="iPhone 99")
            self.assertIn("iPhone 99", page.until("refused")["reason"])
            page.send(type="device", device="iPhone 7", ios="9.3")
            self.assertIn("9.3", page.until("refused")["reason"])

    def test_a_page_writes_no_files(self):
        with tempfile.TemporaryDirectory() as folder, self.served.socket() as page:
            for step in (f"snapshot {folder}/a.png", f"report {folder}/a.json"):
                with self.assertRaises(Refused) as error:
                    page.step(step)
                self.assertIn("a page cannot write files", str(error.exception))
            self.assertEqual(os.listdir(folder), [])

    def test_two_hundred_connections_at_once_are_borne(self):
        with self.served.socket() as page:
            page.until("started")
            connections = []
            try:
                for _ in range(200):
                    connections.append(socket.create_connection((self.served.host, self.served.port), timeout=PATIENCE))
                for one in connections:
                    try:
                        one.sendall(b"GET / HTTP/1.1\r\n")
                    except OSError:
                        pass  # sent away
                self.assertLessEqual(len(os.listdir(f"/proc/{self.served.process.pid}/fd")), 160)
                page.step("swipe left")
                page.frame()
                page.send(type="respring")
                page.until("started")
                self.assertEqual(page.report()["device"], "iPhone 7")
                self.homes = self.served.home_processes()
            finally:
                for one in connections:
                    one.close()
        self.assertEqual(eventually(self.status, "an answer"), 200)

    def status(self):
        try:
            return self.served.get()[0]
        except OSError:  # sent away, since those that have gone are not noticed yet
            return None

    def test_what_is_half_a_handshake_is_given_up(self):
        self.assertEqual(self.half.recv(1), b"")

    def test_more_pages_than_it_serves_are_sent_away_with_a_reason(self):
        pages = [self.served.socket() for _ in range(8)]
        try:
            for page in pages:
                page.until("started")
            with self.served.socket() as ninth, self.assertRaises(Refused) as ended:
                ninth.receive()
            self.assertEqual(str(ended.exception), "there are too many pages already")
        finally:
            for page in pages:
                page.socket.close()
        eventually(lambda: self.comes_in(), "room for a page")

    def comes_in(self):
        try:
            with self.served.socket() as page:
                return page.until("started")
        except Refused:
            return None

    def test_a_page_that_never_reads_gets_no_more_than_two_frames(self):
        with self.served.socket() as idle, self.served.socket() as page:
            idle.until("started")
            page.frame()
            page.step("swipe left")
            page.step("wait 0.5")
            frames = 0
            idle.socket.settimeout(0.5)
            try:
                while True:
                    first, second = idle._read(2)
                    length = {126: 2, 127: 8}.get(second & 127)
                    length = int.from_bytes(idle._read(length), "big") if length else second & 127
                    idle._read(length)
                    frames += first & 15 == 2
            except TimeoutError:
                pass
            self.assertEqual(frames, 2)

    def test_a_page_that_asks_and_never_reads_is_let_go(self):
        with tempfile.TemporaryDirectory() as folder, Served(PROGRAM, "--root", folder) as served, \
                served.socket() as page:
            for i in range(60):
                page.answer("save-steps", name=f"n{i}", text="x" * 64 * 1024)
            before = self.memory(served)
            with served.socket() as idle:
                with self.assertRaises(OSError):
                    for _ in range(10_000):
                        idle.send(type="saved-steps", id=1)
                        time.sleep(0.05)
                self.assertLess(self.memory(served) - before, 400 << 20)  # some of it the sanitizers' own
            page.step("swipe left")

    def test_a_page_that_says_more_than_can_be_done_is_refused(self):
        with Served(PROGRAM) as served, served.socket() as page:
            page.report()
            (home,) = served.home_processes()
            os.kill(home, signal.SIGSTOP)
            for i in range(8):
                page.send(type="step", id=i + 1, step="#" + "x" * 900_000)
            with self.assertRaises(Refused) as busy:
                page.until("never")
            self.assertEqual(str(busy.exception), "SpringBoard is busy")
            os.kill(home, signal.SIGCONT)
            eventually(lambda: self.goes_on(page), "an answer")

    def test_there_is_an_end_to_what_waits_for_a_step(self):
        with Served(PROGRAM) as served, served.socket() as page:
            page.report()
            page.send(type="step", id=1, step="wait 600")
            for _ in range(8):
                page.send(type="step", id=2, step="#" + "x" * 900_000)
            with self.assertRaises(Refused) as refusal:
                page.until("never")
            self.assertIn(str(refusal.exception), ("too much waits to be done", "SpringBoard is busy"))
            for _ in range(1000):  # until nothing is on its way any more
                if str(refusal.exception) == "too much waits to be done":
                    break
                page.send(type="step", id=3, step="#" + "x" * 900_000)
                with self.assertRaises(Refused) as refusal:
                    page.until("never")

    def test_time_goes_on_while_much_is_asked(self):
        with Served(PROGRAM) as served, served.socket() as page:
            page.report()
            (home,) = served.home_processes()
            os.kill(home, signal.SIGSTOP)
            for _ in range(20):
                page.send(type="report", id=1)
            time.sleep(0.3)  # until they have all come as far as they can
            os.kill(home, signal.SIGCONT)
            times = [page.until("report")["report"]["time"] for _ in range(20)]
            self.assertEqual(sorted(set(times)), times)

    @staticmethod
    def goes_on(page):
        try:
            return page.report()
        except Refused:
            return None

    @staticmethod
    def memory(served):
        with open(f"/proc/{served.process.pid}/statm", encoding="ascii") as statm:
            return int(statm.read().split()[1]) * os.sysconf("SC_PAGE_SIZE")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
