#!/usr/bin/env python3
"""A SpringBoard that starts anew, is another, or ends, as a page in a real browser shows it.

    restarts_test.py PROGRAM LIBRARY_THAT_ENDS_IT [FOLDER_FOR_PICTURES]
"""
import os
import shutil
import signal
import sys
import tempfile
import unittest

from page import ENDING_LIBRARY, PROGRAM, SWITCHED_ON, PageTest
from support import PATIENCE, Served, eventually


class Restarts(PageTest):
    def test_respring_on_the_page_in_settings_starts_anew(self):
        served = self.serve(*SWITCHED_ON)
        homes = served.home_processes()
        for step in ("settings", "wait 0.6", *["swipe up"] * 6, "wait 1.5", 'tap "Respring"', "wait 0.6"):
            self.step(step)
        self.browser.run("tilo.step(args[0]).catch(() => {})", 'choose "Respring"')
        eventually(lambda: served.home_processes() not in (homes, []), "another process")
        self.await_text("state", "Running")
        self.assertIsNone(self.report()["application"])

    def test_what_ends_springboard_is_told_on_a_phones_own_browser_too(self):
        served = self.serve(*SWITCHED_ON)
        self.use_window(390, 844)
        os.kill(served.home_processes()[0], 9)
        self.await_text("state", "Safe mode")
        for name, words in (("trouble", "Killed"), ("state", "Safe mode")):
            self.assertIn(words, self.browser.run("return document.getElementById(args[0]).innerText", name))
            self.assertEqual(self.browser.run("return document.getElementById(args[0]).getClientRects().length", name), 1)

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


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
