"""Every option that is promised: there, and doing what is promised of it.

    options_test.py PROGRAM TESTS/SERVE
"""
import json
import os
import struct
import sys
import tempfile
import time
import unittest

import program
from program import OURS, listed, report, run, settings

sys.path[:0] = [sys.argv[2]]
from support import Served  # pylint: disable=wrong-import-position

LOADERS = {"substrate": "Library/MobileSubstrate/DynamicLibraries", "sbinject": "bootstrap/Library/SBInject"}
PLIST = '<?xml version="1.0"?><plist version="1.0"><dict><key>rows</key><integer>5</integer></dict></plist>'
LAYOUTS = {"configurations": [{"name": "Mine", "value": 0, "configurable": 1, "configuration": {
    "vertical_padding": 1, "horizontal_padding": 2, "side_inset": 3, "top_inset": 4}}]}
DEVICES = ["iPhone 4s", "iPhone 5", "iPhone 5s", "iPhone 6", "iPhone 6s", "iPhone 6 Plus", "iPhone 7", "iPhone 8", "iPhone X",
           "iPad mini 2", "iPad Air", "iPad Air 2", "iPad Pro (12.9-inch)"]


def chunks(file):
    """The names of a WebP file's chunks."""
    with open(file, "rb") as source:
        contents = source.read()
    assert contents[:4] == b"RIFF" and contents[8:12] == b"WEBP"
    at, names = 12, []
    while at < len(contents):
        names.append(contents[at:at + 4])
        (length,) = struct.unpack("<I", contents[at + 4:at + 8])
        at += 8 + length + length % 2
    return names


class Options(unittest.TestCase):
    """A test for each, named for it."""

    def setUp(self):
        self.folder = self.enterContext(tempfile.TemporaryDirectory())

    def file(self, name, contents=None):
        path = os.path.join(self.folder, name)
        if contents is not None:
            with open(path, "w", encoding="utf-8") as target:
                target.write(contents)
        return path

    def test_standards(self):
        """What holds without any option."""
        seen = report()
        self.assertEqual([seen[key] for key in ("device", "ios", "orientation", "loaded")],
                         ["iPhone 7", "10.3.3", "portrait", True])
        # The library's first start shows a row less than the system, so that the icons of 3 pages take more.
        self.assertEqual(sum(len(page["icons"]) for page in seen["pages"]),
                         sum(len(page["icons"]) for page in report("--stock")["pages"]))
        self.assertEqual(len(report("--stock")["pages"]), 3)

    def test_device(self):
        for device in DEVICES:
            self.assertEqual(report("--stock", "--device", device)["device"], device)

    def test_ios(self):
        self.assertEqual(report("--stock", "--ios", "11.4.1")["ios"], "11.4.1")
        self.assertEqual(report("--stock", "--device", "iPhone 5s", "--ios", "8.4")["ios"], "8.4")

    def test_orientation(self):
        seen = report("--stock", "--device", "iPad Air 2", "--orientation", "landscape")
        self.assertEqual(seen["orientation"], "landscape")
        self.assertNotEqual(seen["pages"][0]["rows"], seen["pages"][0]["columns"])

    def test_pages(self):
        self.assertEqual(len(report("--stock", "--pages", "5")["pages"]), 5)

    def test_icons(self):
        seen = report("--stock", "--icons", "30")
        self.assertEqual([len(page["icons"]) for page in seen["pages"]], [24, 6])

    def test_root(self):
        report("--root", self.file("device"), "--stock", script="write rows=4\n")
        self.assertEqual(report("--root", self.file("device"), "--stock")["preferences"]["rows"], 4)

    def test_prefs(self):
        self.assertEqual(report("--prefs", self.file("p.plist", PLIST))["preferences"], {"rows": 5})

    def test_set(self):
        seen = report(*settings(rows=5, columns="x"), "--set", "rows=6", "--set", "dock=YES")
        self.assertEqual(seen["preferences"], {"rows": 6, "columns": "x", "dock": True})

    def test_presets(self):
        self.assertEqual(report("--presets", self.file("l.json", json.dumps(LAYOUTS)))["presets"], LAYOUTS)

    def test_stock(self):
        seen = report("--stock")
        self.assertEqual((seen["loaded"], seen["framing"]), (False, None))

    def test_icon_support(self):
        self.assertEqual(report()["iconSupport"], [])
        self.assertEqual(len(report("--icon-support")["iconSupport"]), 1)

    def test_springboard(self):
        real, complete = (report("--springboard", which)["hooks"] for which in ("real", "complete"))
        self.assertEqual(real, report()["hooks"])
        self.assertIn("method missing", [row["outcome"] for row in real["rows"]])
        self.assertNotIn("method missing", [row["outcome"] for row in complete["rows"]])

    def test_loader(self):
        for loader, place in LOADERS.items():
            root = self.file(loader)
            report("--root", root, "--loader", loader)
            self.assertTrue(os.path.lexists(os.path.join(root, place, "Tilo.dylib")))

    def test_library(self):
        root = self.file("device")
        copy = self.file("copy.so")
        os.symlink(OURS, copy)
        self.assertTrue(report("--root", root, "--library", copy, "--library", OURS)["loaded"])
        self.assertLessEqual({"copy.dylib", "Tilo.dylib"}, set(os.listdir(os.path.join(root, LOADERS["substrate"]))))

    def test_installed(self):
        root = self.file("device")
        self.assertFalse(report("--root", root, "--installed")["loaded"])
        os.makedirs(os.path.join(root, LOADERS["substrate"]), exist_ok=True)
        os.symlink(OURS, os.path.join(root, LOADERS["substrate"], "Tilo.dylib"))
        self.assertTrue(report("--root", root, "--installed")["loaded"])

    def test_script(self):
        self.assertEqual(report("--stock", script="# a comment\nwait 2\n")["time"], 2)
        self.assertEqual(report("--stock", "--script", self.file("s.txt", "wait 3\n"))["time"], 3)

    def test_snapshot(self):
        picture = self.file("s.png")
        self.assertEqual(run("--stock", "--snapshot", picture)[0], 0)
        with open(picture, "rb") as source:
            head = source.read(24)
        self.assertEqual((head[1:4], struct.unpack(">II", head[16:24])), (b"PNG", (750, 1334)))

    def test_record(self):
        film = self.file("r.webp")
        self.assertEqual(run("--record", film, *program.PANEL, "--script", "-", script="swipe up\nwait 0.5\n")[0], 0)
        self.assertGreater(chunks(film).count(b"ANMF"), 5)

    def test_fps(self):
        frames = []
        for rate in ("10", "20"):
            film = self.file(rate + ".webp")
            run("--record", film, "--fps", rate, *program.PANEL, "--script", "-", script="swipe up\nwait 0.5\n")
            frames.append(chunks(film).count(b"ANMF"))
        self.assertGreater(frames[1], frames[0])

    def test_report(self):
        file = self.file("r.json")
        self.assertEqual(run("--stock", "--report", file), (0, "", ""))
        with open(file, encoding="utf-8") as source:
            self.assertEqual(json.load(source), report("--stock"))

    def test_serve(self):
        with Served(program.PROGRAM, "--stock") as served:
            self.assertEqual((served.host, served.get()[0], served.get("/")[0]), ("127.0.0.1", 200, 403))

    def test_listen(self):
        with Served(program.PROGRAM, "--stock", "--listen", "127.0.0.2") as served:
            self.assertEqual((served.host, served.get()[0]), ("127.0.0.2", 200))

    def test_watch(self):
        library = self.file("watched.so")
        with open(OURS, "rb") as source, open(library, "wb") as target:
            target.write(source.read())
        with Served(program.PROGRAM, "--watch", "--library", library) as served, served.socket() as page:
            page.report()
            (home,) = served.home_processes()
            time.sleep(1.5)  # it has been seen as it is
            os.utime(library, (1, 1))
            page.until("started")
            self.assertNotEqual(served.home_processes(), [home])

    def test_list_devices(self):
        file = self.file("devices.json")
        status, output, _ = run("--list-devices", "--report", file)
        self.assertEqual(status, 0)
        with open(file, encoding="utf-8") as source:
            rows = json.load(source)
        self.assertLessEqual(set(DEVICES), {row["name"] for row in rows})
        self.assertEqual(sum(any(line.find(name) >= 0 for line in output.splitlines()) for name in DEVICES), len(DEVICES))


class Names(unittest.TestCase):
    """That the tests above are of every option there is."""

    def test_every_promised_option_is_there(self):
        """Those of the tests above are those that are promised."""
        self.assertLessEqual({name for name in self.cases() if name != "--standards"}, set(listed("options")))

    def test_every_option_has_a_test(self):
        self.assertLessEqual(set(listed("options")) - {"--help", "--list-options", "--list-steps", "--list-report"},
                             set(self.cases()))

    @staticmethod
    def cases():
        return ["--" + name.removeprefix("test_").replace("_", "-") for name in dir(Options) if name.startswith("test_")]


class Refusals(unittest.TestCase):
    """What is wrong ends the run with 2 and one line that names the culprit."""

    def test_wrong_values(self):
        for option, value in (("--device", "iPhone 1"), ("--ios", "1.0"), ("--orientation", "up"), ("--pages", "x"),
                              ("--icons", "0"), ("--root", "/"), ("--prefs", "/none"), ("--set", "rows"),
                              ("--presets", "/none"), ("--springboard", "x"), ("--loader", "x"), ("--library", "/none"),
                              ("--script", "/none"), ("--snapshot", "/none/x.png"), ("--record", "/none/x.webp"),
                              ("--fps", "x"), ("--report", "/none/x.json"), ("--listen", "x"), ("--unheard", "of")):
            with self.subTest(option):
                extra = ["--serve"] if option == "--listen" else []
                status, output, errors = run(*extra, option, value)
                self.assertEqual((status, output, errors.count("\n")), (2, "", 1), errors)
                self.assertIn(option if option == "--unheard" else value, errors)

    def test_a_wrong_step_is_named_with_file_and_line(self):
        status, _, errors = run("--stock", "--script", "-", script="wait 1\nhover\n")
        self.assertEqual((status, errors.count("\n")), (2, 1))
        self.assertIn("<stdin>:2", errors)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
