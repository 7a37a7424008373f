#!/usr/bin/env python3
"""Fingers, a pen and keys on the screen, in a real browser.

    hands_test.py PROGRAM LIBRARY_THAT_ENDS_IT [FOLDER_FOR_PICTURES]
"""
import sys
import unittest

from page import SWITCHED_ON, PageTest
from support import eventually

HELD = 300  # milliseconds: a scroll view passes on what is held, and not a flick
ONE, OTHER = (300, 200), (75, 467)  # points without an icon, opposite each other


class Hands(PageTest):
    def panel_after_a_while(self):
        self.step("wait 0.6")
        return self.report()["panel"]

    def test_two_fingers_are_two_touches(self):
        self.serve(*SWITCHED_ON, "--set", "twoFinger=YES")
        self.browser.perform(self.finger("one", ONE))
        self.assertIsNone(self.panel_after_a_while())
        self.browser.perform(self.finger("one", ONE), self.finger("other", OTHER))
        eventually(lambda: self.report()["panel"], "the panel")

    def test_shift_is_a_second_finger(self):
        self.serve(*SWITCHED_ON, "--set", "twoFinger=YES")
        shift = {"type": "key", "id": "keys", "actions": [
            {"type": "keyDown", "value": "\ue008"}, *[{"type": "pause"}] * 3, {"type": "keyUp", "value": "\ue008"}]}
        self.browser.perform(self.finger("mouse", ONE, "mouse"), shift)
        eventually(lambda: self.report()["panel"], "the panel")
        self.assertRegex(self.script(), r"^two-finger-tap [\d.]+ [\d.]+\n$")

    def test_a_finger_swipes(self):
        self.serve(*SWITCHED_ON)
        finger = self.finger("one", ONE)
        x, y = self.on_page(ONE[0], ONE[1] - 170)
        finger["actions"][2] = {"type": "pointerMove", "duration": 120, "x": x, "y": y}
        self.browser.perform(finger)
        eventually(lambda: self.report()["panel"], "the panel")
        self.assertRegex(self.script(), r"^drag [\d. ]+\n$")

    def test_a_pens_pressure_is_the_touchs_force(self):
        self.serve(*SWITCHED_ON, "--set", "forceTouch=YES")

        def press(*pressures):
            pen = self.finger("pen", ONE, "pen", pressure=pressures[0])
            x, y = self.on_page(ONE[0] + 1, ONE[1])
            pen["actions"][2:3] = [
                {"type": "pause", "duration": HELD}, {"type": "pointerMove", "x": x, "y": y, "pressure": pressures[1]},
                {"type": "pause", "duration": HELD}]
            self.browser.perform(pen)

        press(0.3, 0.4)
        self.assertIsNone(self.panel_after_a_while())
        press(0.3, 0.9)
        eventually(lambda: self.report()["panel"], "the panel")

    def test_f_makes_a_press_firm(self):
        self.serve(*SWITCHED_ON, "--set", "forceTouch=YES")
        self.browser.perform(self.finger("mouse", ONE, "mouse", 2 * HELD))
        self.assertIsNone(self.panel_after_a_while())
        key = {"type": "key", "id": "keys", "actions": [
            *[{"type": "pause"}] * 3, {"type": "keyDown", "value": "f"}, {"type": "pause"}, {"type": "keyUp", "value": "f"}]}
        mouse = self.finger("mouse", ONE, "mouse", HELD)
        mouse["actions"][2:2] = [{"type": "pause", "duration": HELD}, {"type": "pause"}]
        self.browser.perform(mouse, key)
        eventually(lambda: self.report()["panel"], "the panel")
        self.assertIn("press 5 ", self.script())

    def test_f_may_be_held_before(self):
        self.serve(*SWITCHED_ON, "--set", "forceTouch=YES")
        self.browser.run("document.getElementById('screen').focus()")
        key = {"type": "key", "id": "keys", "actions": [
            {"type": "keyDown", "value": "f"}, *[{"type": "pause"}] * 7, {"type": "keyUp", "value": "f"}]}
        mouse = self.finger("mouse", ONE, "mouse", HELD)
        x, y = self.on_page(ONE[0] + 1, ONE[1])
        mouse["actions"][3:3] = [{"type": "pointerMove", "x": x, "y": y}, {"type": "pause", "duration": HELD}]
        mouse["actions"].insert(0, {"type": "pause"})
        self.browser.perform(mouse, key)
        eventually(lambda: self.report()["panel"], "the panel")
        self.assertRegex(self.script(), r"^press 5 [\d.]+ [\d.]+\n$")

    def test_everything_is_reached_by_keys(self):
        self.serve()
        eventually(lambda: self.browser.run("return document.querySelectorAll('#rows label').length") > 15, "the settings")
        names = self.browser.run("""
            const names = (one) => [one.ariaLabel, one.textContent, ...[...one.labels ?? []].map((each) => each.firstChild.textContent)];
            window.met = [];
            document.addEventListener('focusin', ({target}) => window.met.push(target));
            window.metNames = () => window.met.flatMap(names).map((each) => each?.trim());
            return document.querySelectorAll('button, input, select, canvas, summary, textarea').length;""")
        tab = [{"type": "keyDown", "value": "\ue004"}, {"type": "keyUp", "value": "\ue004"}]
        self.browser.act(*tab * names, kind="key")
        met = self.browser.run("return window.metNames()")
        for name in ("Device", "System", "Home screen", "Home", "Lock", "Rotate", "Respring", "Safe mode", "Record", "Compare",
                     "Quit", "Settings", "Enabled", "Columns", "Respring", "Save layouts", "Hands"):
            self.assertIn(name, met)

    def test_tabs_are_chosen_by_arrows(self):
        self.serve()
        self.browser.run("document.querySelector('[aria-controls=settings]').focus()")

        def press(key):
            self.browser.act({"type": "keyDown", "value": key}, {"type": "keyUp", "value": key}, kind="key")
            return self.browser.run("""return [...document.querySelectorAll('[role=tabpanel]')].filter((each) => !each.hidden)
                .map((each) => each.id)""")

        left, right = "\ue012", "\ue014"
        self.assertEqual([press(key) for key in (right, right, right, right, left)],
                         [["steps"], ["inspector"], ["console"], ["settings"], ["console"]])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
