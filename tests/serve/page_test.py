#!/usr/bin/env python3
"""A home screen in a real browser, touched and looked at as people do.

    page_test.py PROGRAM LIBRARY_THAT_ENDS_IT [FOLDER_FOR_PICTURES]
"""
import sys
import time
import unittest

from page import SWITCHED_ON, PageTest, picture_of
from support import eventually


class Page(PageTest):
    def test_names_are_those_that_scripts_rest_on(self):
        self.serve()
        self.assertEqual(self.browser.run("return document.title"), "Tilo: iPhone 7, 10.3.3")
        names = self.browser.run("""return [...document.querySelectorAll('button')].map((each) => each.textContent)""")
        for name in ("Home", "Lock", "Rotate", "Respring", "Safe mode", "Record"):
            self.assertIn(name, names)
        self.assertEqual(self.browser.run("return document.querySelectorAll('canvas').length"), 1)
        self.assertEqual(self.browser.run("return document.querySelector('canvas').getAttribute('aria-label')"),
                         "Home screen")
        labels = self.browser.run("return [...document.querySelectorAll('header select')].map((e) => e.labels[0].firstChild.data.trim())")
        self.assertEqual(labels, ["Device", "System"])
        self.assertEqual(self.browser.run("return document.getElementById('screen').style.width"), "375px")

    def test_a_screen_is_as_large_as_the_zoom_says(self):
        self.serve("--device", "iPad Air 2")
        for width, height in ((1280, 900), (1100, 700), (390, 844), (844, 390)):
            self.use_window(width, height)

            def sizes():
                return self.browser.run("""const {width, height} = document.getElementById('screen').getBoundingClientRect();
                    return [width, height, document.getElementById('zoom').innerText];""")

            def is_fitting():
                shown_width, shown_height, zoom = sizes()
                part = float(zoom.rstrip(" %") or "nan") / 100
                return abs(shown_width - 768 * part) < 0.2 and abs(shown_height - 1024 * part) < 0.2 and \
                    shown_width <= width and shown_height <= height
            eventually(is_fitting, f"a screen for {width} x {height}")

    def test_a_phone_and_its_buttons_fit_the_window(self):
        self.serve("--device", "iPhone X")
        heights = "return [document.querySelector('nav').getBoundingClientRect().bottom, document.body.scrollHeight, innerHeight]"

        def is_fitting():
            buttons, page, window = self.browser.run(heights)
            return buttons <= window and page <= window
        eventually(is_fitting, "all of it in the window")

    def test_a_phone_that_fills_a_phones_own_browser_leaves_a_place_to_scroll_by(self):
        self.serve("--device", "iPhone X")
        for width, height in ((375, 812), (390, 844), (812, 375)):
            self.use_window(width, height)

            def leaves_room():
                right, bottom = self.browser.run("""
                    const {right, bottom} = document.getElementById('screen').getBoundingClientRect();
                    return [right, bottom];""")
                return height - bottom >= 40 or width - right >= 40
            eventually(leaves_room, f"room in {width} x {height}")

    def test_what_is_asked_before_there_is_a_connection_is_answered(self):
        served = self.serve()
        # As early as a page's script can be.
        early = self.browser.command("Page.addScriptToEvaluateOnNewDocument", source="""
            let tilo;
            Object.defineProperty(window, 'tilo', {configurable: true, get: () => tilo, set: (given) => {
              tilo = given;
              window.early = tilo.report().then(({device}) => device, (error) => error.message);
            }});""")["identifier"]
        self.addCleanup(self.browser.command, "Page.removeScriptToEvaluateOnNewDocument", identifier=early)
        self.browser.open(served.address)
        self.assertEqual(self.browser.run("return await window.early"), "iPhone 7")

    def test_the_screen_is_the_one_that_a_picture_shows(self):
        self.serve(*SWITCHED_ON)
        self.await_picture(picture_of("wait 1\n", *SWITCHED_ON))

    def test_plus_on_the_panel_moves_the_icons_as_in_a_picture(self):
        self.serve(*SWITCHED_ON)
        self.open_panel()
        slider = self.report()["panel"]
        self.assertEqual(slider["rows"]["Horizontal Padding"]["value"], 0)
        self.photograph("page-panel.png")
        left, top = slider["frame"][:2]
        for _ in range(3):
            self.click(left + 260, top + 113)
            self.step("wait 0.3")
        self.assertEqual(self.report()["panel"]["rows"]["Horizontal Padding"]["value"], 3)
        eventually(lambda: self.report()["panel"]["alpha"] == 1, "the panel's coming back")
        self.step('tap "close"')
        self.await_picture(picture_of('swipe up\nwait 1\nincrement "Horizontal Padding" 3\nwait 4\ntap "close"\nwait 1\n',
                                      *SWITCHED_ON))

    def test_a_layout_is_named_by_typing(self):
        self.serve(*SWITCHED_ON)
        self.open_panel()
        self.step('tap "Add"')
        self.step("wait 0.6")
        keys = [{"type": kind, "value": key} for key in "Airy" for kind in ("keyDown", "keyUp")]
        self.browser.run("document.getElementById('screen').focus()")
        self.browser.act(*keys, kind="key")
        eventually(lambda: self.report()["alert"]["text"] == "Airy", "the name")
        self.step('choose "Add"')
        self.step("wait 1")
        self.assertEqual(self.report()["panel"]["presets"], ["Airy"])

    def test_a_phone_lies_on_a_dark_page_with_an_edge(self):
        self.browser.command("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": "dark"}])
        self.addCleanup(self.browser.command, "Emulation.setEmulatedMedia", features=[])
        self.serve()
        ground, edge, width = self.browser.run("""
            const brightest = (colour) => Math.max(...colour.match(/\\d+/g).map(Number));
            const phone = getComputedStyle(document.querySelector('.phone'));
            return [brightest(getComputedStyle(document.body).backgroundColor), brightest(phone.borderTopColor),
                    phone.borderTopWidth];""")
        self.assertEqual(width, "1px")
        self.assertLess(ground, 40)
        self.assertGreater(edge, ground + 60)

    def test_rotate_turns_the_screen(self):
        self.serve("--device", "iPhone 6 Plus")
        self.press("rotate")
        eventually(lambda: self.browser.run("return document.getElementById('screen').width") == 1920, "the turn")
        self.press("rotate")
        eventually(lambda: self.browser.run("return document.getElementById('screen').height") == 1920, "the turn back")

    def test_rotate_turns_back_what_others_have_turned(self):
        served = self.serve("--device", "iPhone 6 Plus", "--orientation", "landscape")
        self.press("rotate")
        eventually(lambda: self.browser.run("return document.getElementById('screen').height") == 1920, "the turn")
        self.step("rotate landscape")
        self.await_screen(served)  # loaded again
        self.press("rotate")
        eventually(lambda: self.browser.run("return document.getElementById('screen').height") == 1920, "the turn back")

    def test_lock_unlocks_what_others_have_locked(self):
        self.serve()
        self.step("lock")
        self.press("lock")
        eventually(lambda: not self.report()["locked"], "the end of the lock screen")

    def test_lock_and_its_end_are_a_button(self):
        self.serve()
        self.press("lock")
        self.await_picture(picture_of("lock\nwait 1\n"))
        self.press("lock")
        self.await_picture(picture_of("wait 1\n"))

    def test_a_page_that_is_loaded_again_goes_on(self):
        served = self.serve(*SWITCHED_ON)
        self.open_panel()
        self.await_screen(served)
        self.assertTrue(self.report()["panel"])

    def test_two_tabs_show_one_home(self):
        served = self.serve(*SWITCHED_ON)
        first = self.browser.this_tab()
        self.browser.new_tab()
        self.await_screen(served)
        self.open_panel()
        self.browser.close_tab()
        self.browser.show_tab(first)
        self.assertTrue(self.report()["panel"])

    def test_closing_every_page_leaves_the_process_idle(self):
        served = self.serve(*SWITCHED_ON)
        self.open_panel()
        self.browser.open("about:blank")
        both = served.process.pid, *served.home_processes()
        time.sleep(1)
        before = sum(map(self.ticks, both))
        time.sleep(2)
        self.assertLessEqual(sum(map(self.ticks, both)) - before, 2)

    @staticmethod
    def ticks(process):
        with open(f"/proc/{process}/stat", encoding="ascii") as stat:
            fields = stat.read().rsplit(")", 1)[1].split()
        return int(fields[11]) + int(fields[12])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
