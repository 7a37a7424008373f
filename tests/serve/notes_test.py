#!/usr/bin/env python3
"""What is done on a page is written down as steps of a script, and can be done again; in a real browser.

    notes_test.py PROGRAM LIBRARY_THAT_ENDS_IT [FOLDER_FOR_PICTURES]
"""
import sys
import unittest

from page import SWITCHED_ON, PageTest
from support import eventually

ONE, OTHER = (300, 200), (75, 467)  # points without an icon


class Notes(PageTest):
    def lines(self):
        """Without the time between."""
        return [line for line in self.script().splitlines() if not line.startswith("wait ")]

    def run_again(self):
        """The same on a home screen that has started anew."""
        self.press("respring")
        eventually(lambda: self.text("state") == "Running" and not self.report()["panel"], "the start")
        self.step("wait 0.5")
        self.press("run")
        self.await_text("outcome", "Done")

    def test_what_is_done_can_be_done_again(self):
        self.serve()
        self.click(60, 60)
        self.step("wait 0.6")
        opened = self.report()["application"]
        self.assertTrue(opened)
        self.press("home")
        self.step("wait 0.6")
        self.assertRegex(self.script(), r"^tap [\d.]+ [\d.]+\nwait [\d.]+\nhome\n$")
        self.browser.run("document.getElementById('script').value = args[0]", self.script().split("\n", 1)[0] + "\nwait 0.6\n")
        self.press("run")
        self.await_text("outcome", "Done")
        self.assertEqual(self.report()["application"], opened)

    def test_there_is_as_much_time_between_as_there_was(self):
        self.serve(*SWITCHED_ON)
        self.open_panel()
        left, top = self.report()["panel"]["frame"][:2]
        self.click(left + 260, top + 113)
        eventually(lambda: self.report()["panel"]["rows"]["Horizontal Padding"]["value"] == 1, "the step")
        self.assertRegex(self.script(), r"^drag [\d. ]+\nwait [\d.]+\ntap [\d.]+ [\d.]+\n$")
        self.run_again()
        eventually(lambda: self.report()["panel"]["rows"]["Horizontal Padding"]["value"] == 2, "the step once more")

    def test_keys_that_type_are_steps(self):
        self.serve(*SWITCHED_ON)
        self.browser.run("document.getElementById('screen').focus()")
        self.type("xyz")  # which nothing is edited by
        self.step("swipe up")
        self.step("wait 0.6")
        self.step('tap "Add"')
        self.step("wait 0.6")
        self.type('A "b" \\')
        self.type("\ue003c\ue007")
        eventually(lambda: len(self.lines()) == 4, "the steps")
        self.assertEqual(self.lines(), [r'keys "A \"b\" \\"', "key delete", 'keys "c"', "key return"])
        written = self.report()["alert"]["text"]
        self.assertEqual(written, 'A "b" c')
        for _ in written:
            self.step("key delete")
        self.assertEqual(self.report()["alert"]["text"], "")
        self.press("run")
        self.await_text("outcome", "Done")
        self.assertEqual(self.report()["alert"]["text"], written)

    def type(self, text):
        self.browser.act(*({"type": kind, "value": key} for key in text for kind in ("keyDown", "keyUp")), kind="key")

    def test_what_is_set_beside_the_phone_is_a_step(self):
        self.serve()
        eventually(lambda: self.browser.run("return document.querySelectorAll('#rows label').length") > 15, "the settings")
        self.setting("Custom Rows and Columns", "control.click();")
        eventually(lambda: self.report()["preferences"]["icons"], "the setting")
        for value in (3, 5):
            self.setting("Columns", f"control.value = {value}; control.dispatchEvent(new Event('change'));")
            eventually(lambda: self.report()["preferences"]["columns"] == value, "the setting")
        eventually(lambda: len(self.lines()) == 2, "the steps")
        self.assertEqual(self.lines(), ["set icons=YES", "set columns=5"])
        self.step("set columns=4")
        self.press("run")
        self.await_text("outcome", "Done")
        self.assertEqual(self.report()["pages"][0]["columns"], 5)

    def test_two_fingers_are_one_step(self):
        self.serve(*SWITCHED_ON, "--set", "twoFinger=YES")
        self.browser.perform(self.finger("one", ONE), self.finger("other", OTHER))
        eventually(lambda: self.report()["panel"], "the panel")
        self.assertRegex(self.script(), r"^two-finger-tap [\d.]+ [\d.]+\n$")
        self.run_again()
        eventually(lambda: self.report()["panel"], "the panel once more")

    def test_fingers_that_move_side_by_side_are_told_one_by_one(self):
        self.serve("--pages", "3")
        fingers = [self.finger(name, at) for name, at in (("one", ONE), ("other", (300, 400)))]
        for finger, (x, y) in zip(fingers, (ONE, (300, 400))):
            x, y = self.on_page(x - 200, y)
            finger["actions"][2] = {"type": "pointerMove", "duration": 200, "x": x, "y": y}
        self.browser.perform(*fingers)
        eventually(self.lines, "the steps")
        lines = self.lines()
        self.assertTrue(all(line.startswith(("finger 0 ", "finger 1 ")) for line in lines), lines)
        self.assertEqual([sum(f" {phase} " in line for line in lines) for phase in ("down", "up")], [2, 2])
        self.assertGreaterEqual(sum(" move " in line for line in lines), 2, self.script())
        self.run_again()

    def test_a_finger_that_stays_is_no_tap(self):
        self.serve()
        self.browser.perform(self.finger("one", ONE, hold=600))
        eventually(self.lines, "the step")
        self.assertRegex(self.script(), r"^drag ([\d.]+ [\d.]+) \1 0\.[67]\d\n$")

    def test_a_wrong_step_is_named(self):
        self.serve()
        self.browser.run("document.getElementById('script').value = 'wait 0\\nfly\\n'")
        self.press("run")
        eventually(lambda: self.text("outcome").startswith("Step 2: fly: "), "the culprit")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
