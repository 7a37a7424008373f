#!/usr/bin/env python3
"""Two home screens side by side, in a real browser.

    compare_test.py PROGRAM LIBRARY_THAT_ENDS_IT [FOLDER_FOR_PICTURES]
"""
import os
import sys
import unittest

from page import SWITCHED_ON, PageTest, picture_of
from support import eventually

CHANGED = (*SWITCHED_ON, "--set", "icons=YES", "--set", "columns=5", "--set", "custom_preset=-1")
SECOND = """document.querySelector('canvas[aria-label="Second home screen"]')"""


class Compare(PageTest):
    def compare(self, *options):
        served = self.serve(*options)
        self.press("compare")
        eventually(lambda: self.browser.run(f"return {SECOND}.width > 1"), "the second screen")
        return served

    def second(self):
        # A question may be overtaken by the start of another one; that one is asked again.
        return self.browser.run("""return await tilo.second.report().catch(({message}) => {
            if (message !== 'SpringBoard has started anew') throw new Error(message);
            return tilo.second.report();
        });""")

    def choose(self, name, value):
        self.browser.run("""const choice = document.querySelector(`.choices .${args[0]}`);
            if (choice.type === 'checkbox') choice.checked = args[1]; else choice.value = args[1];
            choice.dispatchEvent(new Event('change'));""", name, value)

    def test_stock_stands_beside_changed(self):
        served = self.compare(*CHANGED)
        self.assertEqual(len(served.home_processes()), 2)
        self.await_picture(picture_of("wait 1\n", "--stock"), SECOND)
        self.await_picture(picture_of("wait 1\n", *CHANGED))
        self.photograph("compare.png")
        self.assertEqual((self.report()["loaded"], self.second()["loaded"]), (True, False))
        self.assertEqual((self.report()["pages"][0]["columns"], self.second()["pages"][0]["columns"]), (5, 4))

    def test_the_same_settings_are_on_another_device(self):
        self.compare(*CHANGED)
        self.choose("stock", False)
        eventually(lambda: self.second()["loaded"], "the library")
        self.choose("device", "iPad Air 2")
        eventually(lambda: self.second()["device"] == "iPad Air 2", "the device")
        self.assertEqual(self.second()["preferences"], self.report()["preferences"])
        self.assertEqual(self.second()["pages"][0]["columns"], 5)
        self.assertEqual(self.report()["device"], "iPhone 7")

    def test_what_is_set_on_the_first_is_set_on_the_second(self):
        self.compare(*CHANGED)
        self.choose("stock", False)
        eventually(lambda: self.second()["loaded"], "the library")
        self.browser.run("await new Promise((resolve) => setTimeout(resolve, 500))")
        self.browser.run("""
            const label = [...document.querySelectorAll('#rows label')].find((each) => each.firstChild.textContent === 'Rows');
            const control = label.querySelector('input');
            control.value = 4; control.dispatchEvent(new Event('change'));""")
        eventually(lambda: self.second()["pages"][0]["rows"] == 4, "the second's rows")
        self.assertEqual(self.report()["pages"][0]["rows"], 4)

    def test_a_layout_that_is_saved_on_the_first_is_there_on_the_second(self):
        self.compare(*CHANGED)
        self.choose("stock", False)
        eventually(lambda: self.second()["loaded"], "the library")
        for step in ("swipe up", "wait 0.6", 'tap "Add"', "wait 0.6", 'enter "Mine"', 'choose "Add"', "wait 0.6"):
            self.step(step)
        eventually(lambda: [each["name"] for each in (self.second()["presets"] or {}).get("configurations", [])] == ["Mine"],
                   "the layout")

    def test_a_window_of_a_phones_size_has_the_first_alone(self):
        self.compare()
        for width, height in ((390, 844), (844, 390)):
            self.use_window(width, height)
            eventually(lambda: self.browser.run(f"return {SECOND}.getClientRects().length") == 0, "one phone")
            zoom = min(width / 375, height / 667)
            eventually(lambda: abs(self.shown_width() - 375 * zoom) < 1, "a screen that fills the window")
        self.use_window(1280, 1000)
        eventually(lambda: self.browser.run(f"return {SECOND}.getClientRects().length") == 1, "two phones")
        self.assertLess(self.shown_width(), 640)

    def shown_width(self):
        return self.browser.run("return document.getElementById('screen').getBoundingClientRect().width")

    def test_the_second_is_touched_by_itself(self):
        self.compare()
        box = self.browser.run(f"const box = {SECOND}.getBoundingClientRect(); return [box.left, box.top, box.width]")
        scale = box[2] / 375
        x, y = round(box[0] + 60 * scale), round(box[1] + 60 * scale)
        self.browser.act({"type": "pointerMove", "x": x, "y": y}, {"type": "pointerDown", "button": 0},
                         {"type": "pause", "duration": 60}, {"type": "pointerUp", "button": 0})
        eventually(lambda: self.second()["application"], "the application on the second")
        self.assertIsNone(self.report()["application"])
        self.assertEqual(self.browser.run("return document.getElementById('script').value"), "")

    def test_the_second_starts_anew_with_the_first(self):
        self.compare(*CHANGED)
        self.choose("stock", False)
        eventually(lambda: self.second()["loaded"], "the library")
        self.step("write rows=3")
        self.assertNotEqual(self.second()["preferences"].get("rows"), 3)
        self.press("respring")
        eventually(lambda: self.second()["preferences"].get("rows") == 3, "the files of the first")

    def test_the_second_ends_with_the_comparing(self):
        served = self.compare()
        self.press("compare")
        eventually(lambda: len(served.home_processes()) == 1, "the second's end")
        self.assertEqual(self.browser.run("return document.querySelectorAll('canvas').length"), 1)
        self.press("compare")
        eventually(lambda: len(served.home_processes()) == 2, "another second")

    def test_a_second_that_ends_leaves_the_first_alone(self):
        served = self.compare()
        self.step("write rows=3")
        first, second = served.home_processes()
        os.kill(second, 9)
        output = "return document.querySelector('.choices output').textContent"
        eventually(lambda: self.browser.run(output) == "Safe mode", "what came of it")
        self.assertIn(first, served.home_processes())
        self.assertEqual(self.text("state"), "Running")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
