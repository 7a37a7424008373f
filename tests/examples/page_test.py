"""The page on writing a tweak: its commands, in an empty folder, and the examples that they build, alone, together and beside
our library. page_test.py TREE, whose folder build/ has the programs."""
import json
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest

TREE = os.path.realpath(sys.argv[1])
sys.path[:0] = [os.path.join(TREE, "tests/serve")]
from picture import Picture  # pylint: disable=wrong-import-position
from support import PATIENCE, Served, eventually  # pylint: disable=wrong-import-position

PROGRAM = os.path.join(TREE, "build/tilo-sim")
OURS = os.path.join(TREE, "build/libTilo.so")
ENVIRONMENT = {**os.environ, "TILO": TREE}
PLAY = '"$TILO/script/play"'
# Our library answers what is stored.
STORED = [word for setting in ("enabled=YES", "icons=YES", "custom_preset=-1", "vertIconPadding=20", "horiIconPadding=10",
                               "sideIconInset=20", "topIconInset=30") for word in ("--set", setting)]
RED, BLUE = (255, 0, 0), (0, 0, 255)


def blocks():
    """The fenced blocks: their kinds and contents."""
    with open(os.path.join(TREE, "docs/write-a-tweak.md"), encoding="utf-8") as page:
        return re.findall(r"^```(\w*)\n(.*?)^```$", page.read(), re.MULTILINE | re.DOTALL)


def run(script, folder):
    """What the shell's lines print; they must go well."""
    done = subprocess.run(["bash", "-euo", "pipefail", "-c", script], cwd=folder, env=ENVIRONMENT, capture_output=True,
                          text=True, check=False)
    if done.returncode != 0:
        raise AssertionError(f"{script}\nended with {done.returncode}:\n{done.stdout}{done.stderr}")
    return done.stdout


class Playing(Served):
    """The page's command that serves a home screen."""

    def __init__(self, line, folder, **more):  # pylint: disable=super-init-not-called
        self._start(["bash", "-c", "exec " + line], cwd=folder, env={**ENVIRONMENT, **more})


class Page(unittest.TestCase):
    """The page, from the top to the end."""

    def setUp(self):
        self.folder = self.enterContext(tempfile.TemporaryDirectory())

    def play(self, line):
        """Starts it, asks the home screen for a badge, and ends it."""
        with Playing(line, self.folder) as served:
            self.assertEqual(served.get()[0], 200)
            with served.socket() as page:
                page.step("find badge UILabel")
                page.step("send badge text")
                report = page.report()
                self.assertTrue(report["loaded"])
                self.assertEqual(report["answers"], [{"message": "text", "value": "1,4"}])
            served.process.send_signal(signal.SIGINT)
            self.assertEqual(served.process.wait(PATIENCE), 0)

    def test_does_what_it_says(self):
        ran, played, compared = 0, 0, 0
        printed = ""
        for kind, contents in blocks():
            if kind == "sh":
                before, play, after = contents.partition(PLAY)
                printed = run(before, self.folder)
                if play:
                    line, _, rest = after.partition("\n")
                    self.play(PLAY + line)
                    printed += run(rest, self.folder)
                    played += 1
                ran += 1
            elif kind == "output":
                self.assertEqual(printed, contents)
                compared += 1
        self.assertEqual((ran >= 7, played, compared >= 3), (True, 1, True), (ran, played, compared))
        for made in ("badge.so", "closer.so", "badge.png", "both.png", "other.png", "installed.png", "badge.deb"):
            self.assertGreater(os.path.getsize(os.path.join(self.folder, made)), 1000, made)
        # The page has turned the badges blue.
        for made in ("badge.png", "both.png", "other.png", "installed.png"):
            pixels = b"".join(bytes(row) for row in Picture(os.path.join(self.folder, made), 300).rows)
            self.assertGreater(pixels.count(bytes(BLUE) * 20), 4 * 10, made)



class Play(unittest.TestCase):
    """The command that opens the page."""

    def test_opens_the_address_where_there_is_a_desktop(self):
        folder = self.enterContext(tempfile.TemporaryDirectory())
        opener, opened = (os.path.join(folder, name) for name in ("xdg-open", "opened"))
        with open(opener, "w", encoding="utf-8") as script:
            script.write(f'#!/bin/sh\nprintf %s "$1" >{opened}.part\nmv {opened}.part {opened}\n')
        os.chmod(opener, 0o755)
        path = folder + ":" + os.environ["PATH"]
        with Playing(PLAY + " --root phone", folder, PATH=path, DISPLAY=":7") as served:
            eventually(lambda: os.path.exists(opened), "the opening")
            with open(opened, encoding="utf-8") as address:
                self.assertEqual(address.read(), served.address)
        os.remove(opened)
        with Playing(PLAY + " --root phone", folder, PATH=path, DISPLAY="", WAYLAND_DISPLAY="") as served:
            self.assertEqual(served.get()[0], 200)
            self.assertFalse(os.path.exists(opened))


class Examples(unittest.TestCase):
    """The examples as they are in the tree."""

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp()
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        for source in ("badge.cpp", "closer.c"):
            run(f'"$TILO/examples/build" "$TILO/examples/{source}"', cls.folder)

    def home(self, *libraries, options=(), badges):
        """The report of a home screen with these libraries, whose picture has badges, or none."""
        picture = os.path.join(self.folder, "picture.png")
        named = [word for library in libraries
                 for word in ("--library", OURS if library == "ours" else os.path.join(self.folder, library))]
        done = subprocess.run([PROGRAM, *(named or ["--stock"]), *options, "--snapshot", picture, "--report", "-"],
                              capture_output=True, text=True, check=False)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        report = json.loads(done.stdout)
        shown = Picture(picture, 2 * 70)
        corners = [shown.pixel(2 * (x - 4), 2 * (y - 4))
                   for x, y, _, _ in (icon["frame"] for icon in report["pages"][0]["icons"]) if y < 70]
        self.assertGreaterEqual(len(corners), 3)
        self.assertEqual([corner == RED for corner in corners], [badges] * len(corners))
        return report

    def padding(self, *libraries, **given):
        return self.home(*libraries, **given)["pages"][0]["verticalPadding"]

    def test_are_ten_to_thirty_lines_of_code(self):
        for source in ("badge.cpp", "closer.c"):
            with open(os.path.join(TREE, "examples", source), encoding="utf-8") as lines:
                code = [line for line in lines if line.strip() and not line.lstrip().startswith("//")]
            self.assertTrue(10 <= len(code) <= 30, (source, len(code)))

    def test_badge_alone(self):
        stock = self.home(badges=False)
        self.assertEqual(self.home("badge.so", badges=True)["pages"], stock["pages"])

    def test_closer_alone(self):
        stock, closer = (self.home(*libraries, badges=False)["pages"][0] for libraries in ((), ("closer.so",)))
        self.assertEqual(closer["verticalPadding"], stock["verticalPadding"] / 2)
        rows = [page["icons"][4]["frame"][1] - page["icons"][0]["frame"][1] for page in (closer, stock)]
        self.assertEqual(rows[1] - rows[0], stock["verticalPadding"] / 2)

    def test_together_in_both_orders(self):
        closer = self.padding("closer.so", badges=False)
        self.assertEqual(self.padding("badge.so", "closer.so", badges=True), closer)
        self.assertEqual(self.padding("closer.so", "badge.so", badges=True), closer)

    def test_beside_ours(self):
        ours = self.padding("ours", options=STORED, badges=False)
        self.assertNotEqual(ours, self.padding(badges=False))
        self.assertEqual(self.padding("ours", "badge.so", "closer.so", options=STORED, badges=True), ours / 2)
        self.assertEqual(self.padding("closer.so", "ours", "badge.so", options=STORED, badges=True), ours)
        self.assertEqual(self.padding("badge.so", "closer.so", "ours", options=STORED, badges=True), ours)

    def test_badges_follow_the_grid(self):
        report = self.home("ours", "badge.so", badges=True,
                           options=[*STORED, "--set", "columns=3"])
        self.assertEqual(report["pages"][0]["columns"], 3)

    def test_wrong_use_is_named(self):
        for words, culprit in ((["build"], "no source is named"), (["build", "x.m"], "'x.m' is neither C++ nor C"),
                               (["package"], "no source is named"), (["package", "none.cpp"], "no source 'none.cpp'")):
            done = subprocess.run([os.path.join(TREE, "examples", words[0]), *words[1:]], capture_output=True, text=True,
                                  cwd=self.folder, check=False)
            self.assertEqual(done.returncode, 2, words)
            self.assertIn(culprit, done.stderr)
            self.assertEqual(done.stderr.count("\n"), 1)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])
