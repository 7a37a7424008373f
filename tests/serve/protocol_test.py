#!/usr/bin/env python3
"""A served home screen as programs see it that are no browsers, friendly and otherwise.

    protocol_test.py PROGRAM LIBRARY_THAT_ENDS_IT
"""
import os
import shutil
import signal
import socket
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import unittest.mock

from support import PATIENCE, Refused, Served, eventually

PROGRAM, ENDING_LIBRARY = sys.argv[1:3]
SWITCHED_ON = ("--set", "enabled=YES", "--set", "quick=YES")


def refused(*options):
    """Status and complaint of a run that does not come to serve."""
    done = subprocess.run([PROGRAM, *options], capture_output=True, timeout=PATIENCE, text=True, check=False)
    return done.returncode, done.stderr.strip()


class Options(unittest.TestCase):
    def test_serve_refuses_what_is_no_port(self):
        self.assertEqual(refused("--serve=x"), (2, "tilo-sim: --serve: 'x' is no port, 1 to 65535"))
        self.assertEqual(refused("--serve", "65536"), (2, "tilo-sim: --serve: '65536' is no port, 1 to 65535"))

    def test_serve_refuses_a_port_that_is_taken(self):
        with socket.create_server(("127.0.0.1", 0)) as taken:
            port = taken.getsockname()[1]
            self.assertEqual(refused("--serve", str(port)), (2, f"tilo-sim: --serve: cannot listen at 127.0.0.1:{port}"))

    def test_listen_refuses_what_is_no_address(self):
        self.assertEqual(refused("--serve", "--listen", "here"), (2, "tilo-sim: --listen: 'here' is no IPv4 address"))

    def test_what_is_for_serve_is_refused_without_it(self):
        self.assertEqual(refused("--listen", "127.0.0.1"), (2, "tilo-sim: --listen is for --serve"))
        self.assertEqual(refused("--watch"), (2, "tilo-sim: --watch is for --serve"))

    def test_serve_goes_without_a_script(self):
        self.assertEqual(refused("--serve", "--report", "-"),
                         (2, "tilo-sim: --serve goes without --script, --snapshot and --report"))


class Gate(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.served = cls.enterClassContext(Served(PROGRAM))

    def test_the_page_comes_with_a_policy_that_lets_nothing_foreign_in(self):
        status, headers, body = self.served.get()
        self.assertEqual(status, 200)
        self.assertIn(b"<title>Tilo", body)
        self.assertIn("default-src 'none'", headers["Content-Security-Policy"])
        self.assertEqual(headers["Referrer-Policy"], "no-referrer")

    def test_without_the_token_everything_is_forbidden(self):
        for path in ("/", "/page.js", "/" + "0" * 32 + "/", self.served.path[:-1], self.served.path[:-2] + "/"):
            self.assertEqual(self.served.get(path)[0], 403, path)

    def test_no_path_leads_to_other_files(self):
        for name in ("page.py", "../page.js", "%2e%2e/page.js", "/etc/passwd", "socket/"):
            self.assertIn(self.served.get(self.served.path + name)[0], (403, 404), name)

    def test_a_foreign_host_is_forbidden(self):
        for host in ("evil.example", f"evil.example:{self.served.port}", "127.0.0.1", f"127.0.0.1:{self.served.port}.x"):
            self.assertEqual(self.served.get(Host=host)[0], 403, host)
        self.assertEqual(self.served.get(Host=f"localhost:{self.served.port}")[0], 200)

    def test_a_foreign_origin_is_forbidden(self):
        for origin in ("http://evil.example", "null", f"https://127.0.0.1:{self.served.port}"):
            with self.assertRaises(Refused, msg=origin):
                self.served.socket(origin=origin)
        self.served.socket(origin=f"http://127.0.0.1:{self.served.port}").socket.close()

    def test_a_socket_without_the_token_is_forbidden(self):
        for path in ("/socket", "/" + "0" * 32 + "/socket", self.served.path + "page.js"):
            with self.assertRaises(Refused, msg=path):
                self.served.socket(path=path)

    def test_it_listens_on_this_machine_alone(self):
        with open("/proc/net/tcp", encoding="ascii") as table:
            listening = [line.split()[1] for line in table if line.split()[3] == "0A"]
        self.assertIn(f"0100007F:{self.served.port:04X}", listening)
        self.assertNotIn(f"00000000:{self.served.port:04X}", listening)


class Rudeness(unittest.TestCase):
    """Whatever one connection does, the home screen goes on for the others."""

    @classmethod
    def setUpClass(cls):
        cls.served = cls.enterClassContext(Served(PROGRAM))

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

    def test_half_a_handshake_is_given_up(self):
        with socket.create_connection((self.served.host, self.served.port), timeout=PATIENCE) as half:
            half.sendall(b"GET / HTTP/1.1\r\nHost: ")
            self.assertEqual(half.recv(1), b"")

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
            finally:
                for one in connections:
                    one.close()
        self.assertEqual(eventually(lambda: self.served.get()[0], "an answer"), 200)

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
            page.step("wait 1")
            frames = 0
            idle.socket.settimeout(1)
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
            for i in range(8):
                page.send(type="finger", id=0, phase=("down" if i == 0 else "move"), x=187, y=333 - 30 * i)
                time.sleep(0.01)
            page.send(type="finger", id=0, phase="up", x=187, y=100)
            eventually(lambda: page.report()["panel"], "the panel")
            page.step("wait 0.6")
            page.step('tap "close"')
            eventually(lambda: page.report()["panel"] is None, "the panel's leaving")

    def test_what_changes_much_after_a_rest_comes_quickly_and_then_exactly(self):
        with Served(PROGRAM) as served, served.socket() as page:
            page.send(type="finger", id=0, phase="down", x=300, y=330)
            page.send(type="finger", id=0, phase="move", x=200, y=330)
            time.sleep(1)
            page.report()  # what came before it is read
            page.send(type="finger", id=0, phase="move", x=150, y=330)
            exact = 1  # the codec of a frame
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
