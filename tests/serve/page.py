"""What the tests of the page in a browser share. The command line: PROGRAM LIBRARY_THAT_ENDS_IT [FOLDER_FOR_PICTURES]"""
import base64
import os
import subprocess
import sys
import tempfile
import unittest

from support import PATIENCE, Browser, Served, eventually

PROGRAM, ENDING_LIBRARY = sys.argv[1:3]
PICTURES = sys.argv[3] if len(sys.argv) > 3 else None
SWITCHED_ON = ("--set", "enabled=YES", "--set", "quick=YES")

# How many pixels of the canvas differ from those of a PNG, or how the sizes do.
DIFFERENCE = """
    const bytes = Uint8Array.from(atob(args[0]), (c) => c.charCodeAt(0));
    const image = await createImageBitmap(new Blob([bytes], {type: 'image/png'}),
                                          {colorSpaceConversion: 'none', premultiplyAlpha: 'none'});
    const canvas = CANVAS;
    if (image.width !== canvas.width || image.height !== canvas.height)
      return `${image.width} x ${image.height} and ${canvas.width} x ${canvas.height}`;
    const other = new OffscreenCanvas(image.width, image.height).getContext('2d');
    other.drawImage(image, 0, 0);
    const pixels = (context) => new Uint32Array(context.getImageData(0, 0, image.width, image.height).data.buffer);
    const [a, b] = [pixels(canvas.getContext('2d')), pixels(other)];
    let count = 0;
    for (let i = 0; i < a.length; ++i) count += a[i] !== b[i];
    return count;"""


def picture_of(script, *options):
    """The screen after a script without a page, as a PNG in base 64."""
    with tempfile.TemporaryDirectory() as folder:
        steps, file = os.path.join(folder, "steps"), os.path.join(folder, "screen.png")
        with open(steps, "w", encoding="utf-8") as out:
            out.write(script)
        subprocess.run([PROGRAM, *options, "--script", steps, "--snapshot", file], check=True, timeout=PATIENCE)
        with open(file, "rb") as png:
            return base64.b64encode(png.read()).decode()


class PageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = cls.enterClassContext(Browser())

    def serve(self, *options):
        served = self.enterContext(Served(PROGRAM, *options))
        self.await_screen(served)
        return served

    def await_screen(self, served):
        self.browser.open(served.address)
        self.await_text("state", "Running")
        eventually(lambda: self.browser.run("return document.getElementById('screen').width > 1"), "a frame")

    def await_text(self, name, text):
        eventually(lambda: self.text(name) == text, f"'{text}' of {name}")

    def text(self, name):
        return self.browser.run("return document.getElementById(args[0]).textContent", name)

    def report(self):
        return self.browser.run("return await tilo.report()")

    def step(self, line):
        return self.browser.run("return await tilo.step(args[0])", line)

    def press(self, name):
        self.browser.run("document.getElementById(args[0]).click()", name)

    def show_panel(self, name):
        self.browser.run("document.querySelector(`[aria-controls=${args[0]}]`).click()", name)

    def on_page(self, x, y):
        """A point of the screen in the browser's window."""
        left, top = self.browser.run("""
            const box = document.getElementById('screen').getBoundingClientRect();
            return [box.left, box.top];""")
        return round(left + x), round(top + y)

    def click(self, x, y):
        x, y = self.on_page(x, y)
        self.browser.act({"type": "pointerMove", "x": x, "y": y}, {"type": "pointerDown", "button": 0},
                         {"type": "pause", "duration": 60}, {"type": "pointerUp", "button": 0})

    def drag(self, start, end, duration):
        start, end = self.on_page(*start), self.on_page(*end)
        self.browser.act({"type": "pointerMove", "x": start[0], "y": start[1]}, {"type": "pointerDown", "button": 0},
                         {"type": "pointerMove", "x": end[0], "y": end[1], "duration": duration},
                         {"type": "pointerUp", "button": 0})

    def setting(self, title, script):
        """Runs a script on a setting's control."""
        return self.browser.run("""
            const label = [...document.querySelectorAll('#rows label')].find((each) =>
                each.firstChild.textContent === args[0]);
            const control = label.querySelector('input, select');""" + script, title)

    def finger(self, name, at, kind="touch", hold=60, **more):
        """A pointer that goes down there, and up after so many milliseconds."""
        x, y = self.on_page(*at)
        return {"type": "pointer", "id": name, "parameters": {"pointerType": kind}, "actions": [
            {"type": "pointerMove", "x": x, "y": y}, {"type": "pointerDown", "button": 0, **more},
            {"type": "pause", "duration": hold}, {"type": "pointerUp", "button": 0}]}

    def script(self):
        return self.browser.run("return document.getElementById('script').value")

    def await_picture(self, expected, canvas="document.getElementById('screen')"):
        def is_equal():
            self.difference = self.browser.run(DIFFERENCE.replace("CANVAS", canvas), expected)
            return self.difference == 0
        try:
            eventually(is_equal, "the picture")
        except AssertionError:
            self.fail(f"pixels that differ: {self.difference}")

    def photograph(self, name):
        if PICTURES:
            self.browser.screenshot(os.path.join(PICTURES, name))

    def use_window(self, width, height):
        """The browser is as large as that, until the test ends."""
        self.browser.command("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1,
                             mobile=True)
        self.addCleanup(self.browser.command, "Emulation.clearDeviceMetricsOverride")

    def broken_lines(self, selector):
        """Where lines end within such an element's text: what is before and behind each."""
        return self.browser.run("""
            const found = [];
            for (const each of document.querySelectorAll(args[0])) {
              const walker = document.createTreeWalker(each, NodeFilter.SHOW_TEXT), letters = [];
              while (walker.nextNode())
                for (let i = 0; i < walker.currentNode.length; ++i) {
                  const range = document.createRange();
                  range.setStart(walker.currentNode, i);
                  range.setEnd(walker.currentNode, i + 1);
                  letters.push([walker.currentNode.data[i], range.getBoundingClientRect().top]);
                }
              for (let i = 1; i < letters.length; ++i)
                if (letters[i][1] > letters[i - 1][1] + 3)
                  found.push([letters.slice(0, i), letters.slice(i)].map((part) => part.map(([letter]) => letter).join('')));
            }
            return found;""", selector)

    def assert_lines_end_between_words(self, selector):
        lines = self.broken_lines(selector)
        self.assertTrue(lines, "everything is on one line")
        for before, behind in lines:
            self.assertTrue(before[-1] in ": " or behind[0].isupper(), f"{before} | {behind}")

    def open_panel(self):
        self.drag((187, 400), (187, 150), 120)
        eventually(lambda: self.report()["panel"], "the panel")
        self.step("wait 0.6")
