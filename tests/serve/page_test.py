#!/usr/bin/env python3
"""A home screen in a real browser, touched and looked at as people do.

    page_test.py PROGRAM LIBRARY_THAT_ENDS_IT [FOLDER_FOR_PICTURES]
"""
import os
import plistlib
import shutil
import signal
import sys
import tempfile
import time
import unittest

from page import ENDING_LIBRARY, PROGRAM, SWITCHED_ON, PageTest, picture_of
from support import PATIENCE, Served, eventually


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

    def test_each_setting_is_named_by_its_title(self):
        self.serve()
        titles = self.settings_titles()
        nodes = [node for node in self.browser.command("Accessibility.getFullAXTree")["nodes"] if not node.get("ignored")]
        names = [node["name"]["value"] for node in nodes if node["role"]["value"] in ("checkbox", "spinbutton", "combobox")]
        self.assertEqual(names, ["Device", "System", *titles])

    def settings_titles(self):
        titles = "return [...document.querySelectorAll('#rows label')].map((label) => label.firstChild.textContent)"
        return eventually(lambda: self.browser.run(titles), "the settings")

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

    def test_settings_beside_the_phone_move_the_icons(self):
        self.serve()
        eventually(lambda: self.browser.run("return document.querySelectorAll('#rows label').length") > 15, "the settings")
        self.assertEqual(self.report()["pages"][0]["columns"], 4)
        before = self.report()["pages"][0]["icons"][4]["frame"]
        self.setting("Custom Rows and Columns", "control.click();")
        self.setting("Columns", "control.value = 5; control.dispatchEvent(new Event('change'));")
        eventually(lambda: self.report()["preferences"]["columns"] == 5, "the setting")
        self.assertEqual(self.report()["pages"][0]["columns"], 5)
        eventually(lambda: self.report()["pages"][0]["icons"][4]["frame"] != before, "the icons' moving")

    def test_a_setting_beyond_its_range_is_refused_by_name(self):
        self.serve()
        eventually(lambda: self.browser.run("return document.querySelectorAll('#rows label').length") > 15, "the settings")
        self.setting("Columns", "control.value = 99; control.dispatchEvent(new Event('change'));")
        eventually(lambda: "'columns'" in self.text("fault"), "the fault")
        eventually(lambda: self.setting("Columns", "return control.value;") == "4", "the value as it was")

    def test_settings_follow_what_the_panel_does(self):
        self.serve(*SWITCHED_ON)
        self.open_panel()
        eventually(lambda: self.browser.run("return document.querySelectorAll('#rows label').length") > 15, "the settings")
        self.step('increment "Side Inset" 3')
        eventually(lambda: self.setting("Side Inset", "return control.value;") == "3", "the setting")

    def test_respring_on_the_page_in_settings_starts_anew(self):
        served = self.serve(*SWITCHED_ON)
        homes = served.home_processes()
        for step in ("settings", "wait 0.6", *["swipe up"] * 6, "wait 1.5", 'tap "Respring"', "wait 0.6"):
            self.step(step)
        self.browser.run("tilo.step(args[0]).catch(() => {})", 'choose "Respring"')
        eventually(lambda: served.home_processes() not in (homes, []), "another process")
        self.await_text("state", "Running")
        self.assertIsNone(self.report()["application"])

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

    def test_what_ends_springboard_is_told_on_a_phones_own_browser_too(self):
        served = self.serve(*SWITCHED_ON)
        self.use_window(390, 844)
        os.kill(served.home_processes()[0], 9)
        self.await_text("state", "Safe mode")
        for name, words in (("trouble", "Killed"), ("state", "Safe mode")):
            self.assertIn(words, self.browser.run("return document.getElementById(args[0]).innerText", name))
            self.assertEqual(self.browser.run("return document.getElementById(args[0]).getClientRects().length", name), 1)

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

    def test_another_device_and_system_come_with_the_same_files(self):
        self.serve()
        self.step("write rows=4")
        self.browser.run("""const choice = document.getElementById('device');
            choice.value = 'iPad Air 2'; choice.dispatchEvent(new Event('change'));""")
        eventually(lambda: self.browser.run("return document.title").startswith("Tilo: iPad Air 2"), "the device")
        eventually(lambda: self.browser.run("return document.getElementById('screen').width") == 1536, "its screen")
        self.assertEqual(self.report()["preferences"]["rows"], 4)
        self.browser.run("""const choice = document.getElementById('system');
            choice.value = '9.0'; choice.dispatchEvent(new Event('change'));""")
        eventually(lambda: self.browser.run("return document.title") == "Tilo: iPad Air 2, 9.0", "the system")
        self.assertEqual(self.report()["ios"], "9.0")

    def test_a_library_that_ends_springboard_leads_to_safe_mode(self):
        served = self.enterContext(Served(PROGRAM, "--library", ENDING_LIBRARY))
        self.browser.open(served.address)
        self.await_text("state", "Safe mode")
        self.assertFalse(self.report()["loaded"])
        # It is loaded again on demand, which this one does not survive either.
        self.press("respring")
        eventually(lambda: "ending_library.cpp:" in self.text("trouble"), "the place")
        self.await_text("state", "Safe mode")
        self.assertIn("Aborted", self.text("trouble"))
        self.photograph("page-crash.png")

    def test_springboard_that_ends_says_why_and_comes_back(self):
        served = self.serve(*SWITCHED_ON)
        os.kill(served.home_processes()[0], 9)
        self.await_text("state", "Safe mode")
        self.assertIn("Killed", self.text("trouble"))
        self.step("wait 0.5")
        self.photograph("page-safe-mode.png")
        self.press("respring")
        self.await_text("state", "Running")
        self.assertTrue(self.report()["loaded"])

    def test_what_is_asked_of_a_springboard_that_starts_anew_does_not_wait_for_ever(self):
        served = self.serve()
        os.kill(served.home_processes()[0], signal.SIGSTOP)
        self.browser.run("window.asked = tilo.report().then(() => 'answered', (error) => error.message);")
        before, behind = self.browser.run("""
            document.getElementById('respring').click();
            const behind = tilo.report().then((report) => report.device, (error) => error.message);
            return [await window.asked, await behind];""")
        self.assertEqual((before, behind), ("SpringBoard has started anew", "iPhone 7"))

    def test_lock_and_its_end_are_a_button(self):
        self.serve()
        self.press("lock")
        self.await_picture(picture_of("lock\nwait 1\n"))
        self.press("lock")
        self.await_picture(picture_of("wait 1\n"))

    def test_safe_mode_is_a_button(self):
        self.serve(*SWITCHED_ON)
        self.assertTrue(self.report()["loaded"])
        self.press("safe")
        self.await_text("state", "Safe mode")
        self.assertFalse(self.report()["loaded"])
        self.press("respring")
        self.await_text("state", "Running")
        self.assertTrue(self.report()["loaded"])

    def test_quit_ends_the_program_and_the_page_says_so(self):
        served = self.serve()
        self.press("quit")
        self.assertEqual(served.process.wait(PATIENCE), 0)
        self.await_text("state", "Disconnected")
        self.assertEqual(self.browser.run("return await tilo.report().catch(({message}) => message)"), "the connection has ended")
        self.press("home")
        self.await_text("outcome", "the connection has ended")

    def test_a_library_that_changes_is_loaded_anew_and_the_page_stays_as_it_was(self):
        with tempfile.TemporaryDirectory() as folder:
            library = os.path.join(folder, "watched.so")
            shutil.copy(ENDING_LIBRARY, library)
            served = self.serve("--watch", "--stock", "--library", library)
            homes = served.home_processes()
            self.show_panel("steps")
            self.browser.run("document.getElementById('script').value = 'home\\n'")
            self.step("wait 1.2")  # which is when the file has been looked at
            os.utime(library, (1, 1))
            eventually(lambda: served.home_processes() not in (homes, []), "another process")
            self.await_text("state", "Running")
            self.press("run")
            self.await_text("outcome", "Done")
            self.assertEqual(self.browser.run("""return [document.getElementById('steps').hidden,
                document.getElementById('script').value]"""), [False, "home\n"])

    def test_settings_are_those_of_the_page_on_the_device(self):
        self.serve()
        with open(os.path.join(os.path.dirname(__file__), "../../preferences/bundle/Root.plist"), "rb") as file:
            rows = [row for row in plistlib.load(file)["items"] if "key" in row]
        self.assertGreater(len(rows), 15)
        eventually(lambda: self.browser.run("return document.querySelectorAll('#rows label').length") == len(rows), "the rows")
        shown = self.browser.run("""return [...document.querySelectorAll('#rows label')].map((label) => {
            const control = label.querySelector('input, select');
            return [label.firstChild.textContent, label.parentElement.querySelector('legend').textContent, control.type,
                    control.min ?? '', control.max ?? ''];
        });""")
        kinds = {"boolean": "checkbox", "float": "number", "integer": "select-one"}
        self.assertEqual([(title, kind) for title, _, kind, *_ in shown], [(row["label"], kinds[row["kind"]]) for row in rows])
        self.assertEqual([[float(end) for end in ends] for *_, kind, low, high in shown if kind == "number" for ends in [(low, high)]],
                         [[row["min"], row["max"]] for row in rows if "min" in row])

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
