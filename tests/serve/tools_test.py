#!/usr/bin/env python3
"""What stands beside a home screen: console, saved steps, layouts, recording; in a real browser.

    tools_test.py PROGRAM LIBRARY_THAT_ENDS_IT [FOLDER_FOR_PICTURES]
"""
import json
import os
import sys
import tempfile
import unittest

from page import SWITCHED_ON, PageTest
from support import eventually

PRESETS = "var/mobile/Documents/com.wexor.tilo3/custom/config.json"
LAYOUTS = json.dumps({"configurations": [{"name": "Low", "value": 0, "configurable": 1, "configuration": {
    "horizontal_padding": 4, "vertical_padding": 4, "side_inset": 10, "top_inset": 40}}]})

# Keeps what is handed out for downloading, in place of a file.
KEEP_DOWNLOADS = """
    window.handedOut = [];
    const made = URL.createObjectURL;
    URL.createObjectURL = (contents) => ((window.contents = contents), made.call(URL, contents));
    HTMLAnchorElement.prototype.click = function() { window.handedOut.push([this.download, window.contents]); };"""

# What a browser makes of an animation: its size, and each picture's milliseconds; and the last one's difference from
# the screen, on average over pixels and colours.
DECODE = """
    const contents = window.handedOut.at(-1)[1];
    const decoder = new ImageDecoder({data: await contents.arrayBuffer(), type: contents.type});
    await decoder.tracks.ready;
    const durations = [], canvas = document.getElementById('screen');
    let last;
    for (let i = 0; i < decoder.tracks.selectedTrack.frameCount; ++i) {
      last = (await decoder.decode({frameIndex: i})).image;
      durations.push(last.duration / 1000);
    }
    const {displayWidth: width, displayHeight: height} = last;
    const other = new OffscreenCanvas(width, height).getContext('2d');
    other.drawImage(last, 0, 0);
    const pixels = (context) => context.getImageData(0, 0, width, height).data;
    const [a, b] = [pixels(canvas.getContext('2d')), pixels(other)];
    let sum = 0;
    for (let i = 0; i < a.length; ++i) sum += Math.abs(a[i] - b[i]);
    return [decoder.tracks.selectedTrack.animated, width, height, durations, sum / a.length];"""


class Tools(PageTest):
    def serve(self, *options):
        self.root = self.enterContext(tempfile.TemporaryDirectory())
        served = super().serve("--root", self.root, *options)
        self.browser.run(KEEP_DOWNLOADS)
        return served

    def handed_out(self):
        """Name and text of what was downloaded last."""
        return self.browser.run("""
            const last = window.handedOut.at(-1);
            return last ? [last[0], await last[1].text()] : null;""")

    def log_lines(self):
        return self.browser.run("return [...document.getElementById('log').children].map((each) => each.textContent)")

    def calls(self):
        return self.browser.run("""return [...document.getElementById('calls').rows].map((row) =>
            [...row.cells].map((cell) => cell.textContent))""")

    def test_the_console_shows_log_lines_as_they_come(self):
        self.serve(*SWITCHED_ON)
        self.show_panel("console")
        eventually(lambda: self.log_lines() == [each.replace("\033[0m", "") for each in self.log_lines()] and
                   len(self.log_lines()) >= len(self.report()["console"]), "the lines so far")
        with open(os.path.join(self.root, "var/mobile/Documents/Tilo3.log"), "a", encoding="utf-8") as log:
            log.write("<b>a line of its own</b>\n")
        eventually(lambda: "<b>a line of its own</b>" in self.log_lines(), "the new line")
        self.photograph("console.png")
        self.press("respring")
        eventually(lambda: "SpringBoard has started" in self.log_lines(), "the mark between two starts")
        self.press("clear-log")
        self.assertEqual(self.log_lines(), [])

    def test_the_console_counts_calls_of_replaced_methods(self):
        self.serve(*SWITCHED_ON, "--set", "icons=YES")
        self.show_panel("console")

        def counted():
            self.report()  # which asks every list
            return [row for row in self.calls() if row[0] == "-[SBIconListView verticalIconPadding]"]
        (row,) = eventually(counted, "the count")
        self.assertGreaterEqual(int(row[1]), 6)
        self.assertRegex(row[2], r"^\d+\.\d\d ms$")
        self.assertEqual(row[3], "Tilo.dylib")
        self.assert_lines_end_between_words("#calls th")
        eventually(lambda: self.calls() == [], "a second without calls")
        self.assertFalse(self.browser.run("return document.getElementById('no-calls').hidden"))

    def test_steps_are_saved_under_a_name_and_come_back(self):
        served = self.serve()
        self.browser.run("""
            document.getElementById('script').value = 'wait 0.1\\n';
            document.getElementById('steps-name').value = 'A while';""")
        self.press("save")
        self.await_text("outcome", "Saved")
        self.press("download")
        self.assertEqual(self.handed_out(), ["steps.txt", "wait 0.1\n"])
        self.await_screen(served)  # loaded again
        eventually(lambda: self.browser.run("return document.getElementById('saved').options.length") == 2, "the choice")
        self.browser.run("""const saved = document.getElementById('saved');
            saved.value = 'A while'; saved.dispatchEvent(new Event('change'));""")
        self.assertEqual(self.browser.run("return document.getElementById('script').value"), "wait 0.1\n")
        self.press("run")
        self.await_text("outcome", "Done")
        self.browser.run("document.getElementById('steps-name').value = '../elsewhere'")
        self.press("save")
        eventually(lambda: "'../elsewhere' is no name" in self.text("outcome"), "the refusal")

    def drop(self, name, text):
        self.browser.run("""
            const data = new DataTransfer();
            data.items.add(new File([args[1]], args[0], {type: 'application/json'}));
            for (const type of ['dragover', 'drop'])
              document.body.dispatchEvent(new DragEvent(type, {dataTransfer: data, bubbles: true, cancelable: true}));""",
                         name, text)

    def test_a_presets_file_that_is_dropped_is_used(self):
        self.serve(*SWITCHED_ON, "--set", "custom_preset=0")
        before = self.report()["pages"][0]["icons"][0]["frame"]
        self.drop("mine.json", LAYOUTS)
        self.await_text("outcome", "The layouts of 'mine.json' are in use")
        with open(os.path.join(self.root, PRESETS), encoding="utf-8") as file:
            self.assertEqual(file.read(), LAYOUTS)
        eventually(lambda: self.report()["pages"][0]["icons"][0]["frame"][1] == before[1] + 40, "the icons' moving")
        titles = "return [...document.querySelectorAll('#rows option')].map((each) => each.textContent)"
        eventually(lambda: "Low" in self.browser.run(titles), "the layout's name among the settings")
        self.press("save-presets")
        eventually(lambda: self.handed_out() == ["config.json", LAYOUTS], "the file again")

    def test_what_is_no_presets_file_is_refused_by_name(self):
        self.serve(*SWITCHED_ON)
        self.drop("song.mp3", "la la la")
        self.await_text("outcome", "the presets file is no JSON object")
        self.drop("huge.json", " " * (512 * 1024 + 1))
        self.await_text("outcome", "'huge.json' is too long for a presets file")
        self.assertFalse(self.report()["presets"] and self.report()["presets"]["configurations"])

    def test_record_makes_an_animation_of_what_is_done(self):
        self.serve("--device", "iPhone 4s")
        self.press("record")
        self.assertEqual(self.browser.run("return document.getElementById('record').ariaPressed"), "true")
        self.step("swipe left")
        self.step("wait 1.2")
        self.press("record")
        eventually(self.handed_out, "the file")
        self.assertEqual(self.handed_out()[0], "home.webp")
        animated, width, height, durations, difference = self.browser.run(DECODE)
        self.assertEqual((animated, width, height), (True, 640, 960))
        self.assertGreaterEqual(len(durations), 3)
        self.assertTrue(1200 <= sum(durations) <= 20000, durations)
        self.assertLess(difference, 4)
        self.assertEqual(self.browser.run("return document.getElementById('record').ariaPressed"), "false")

    def test_a_recording_of_a_screen_that_turns_has_room_for_both_ways(self):
        self.serve("--device", "iPhone 6 Plus")
        self.press("record")
        self.step("rotate landscape")
        eventually(lambda: self.browser.run("return document.getElementById('screen').width") == 1920, "the turn")
        self.step("wait 0.3")
        self.press("record")
        eventually(self.handed_out, "the file")
        animated, width, height, durations, _ = self.browser.run(DECODE)
        self.assertEqual((animated, width, height), (True, 1920, 1920))
        self.assertGreaterEqual(len(durations), 2)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
