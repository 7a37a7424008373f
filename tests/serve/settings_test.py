#!/usr/bin/env python3
"""The settings beside a home screen, in a real browser.

    settings_test.py PROGRAM LIBRARY_THAT_ENDS_IT [FOLDER_FOR_PICTURES]
"""
import os
import plistlib
import sys
import unittest

from page import SWITCHED_ON, PageTest
from support import eventually


class Settings(PageTest):
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

    def test_an_emptied_field_has_its_value_again(self):
        self.serve()
        eventually(lambda: self.browser.run("return document.querySelectorAll('#rows label').length") > 15, "the settings")
        self.setting("Side Inset", "control.focus(); control.value = 21; control.dispatchEvent(new Event('change'));")
        eventually(lambda: self.report()["preferences"].get("sideIconInset") == 21, "the setting")
        self.setting("Side Inset", "control.value = ''; control.dispatchEvent(new Event('change'));")
        self.assertEqual(self.setting("Side Inset", "return control.value;"), "21")
        self.setting("Top Inset", "control.focus(); control.value = 5; control.dispatchEvent(new Event('change'));")
        eventually(lambda: self.report()["preferences"].get("topIconInset") == 5, "another setting")
        self.assertEqual(self.report()["preferences"]["sideIconInset"], 21)

    def test_settings_follow_what_the_panel_does(self):
        self.serve(*SWITCHED_ON)
        self.open_panel()
        eventually(lambda: self.browser.run("return document.querySelectorAll('#rows label').length") > 15, "the settings")
        self.step('increment "Side Inset" 3')
        eventually(lambda: self.setting("Side Inset", "return control.value;") == "3", "the setting")

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

    def test_each_setting_is_named_by_its_title(self):
        self.serve()
        titles = self.settings_titles()
        nodes = [node for node in self.browser.command("Accessibility.getFullAXTree")["nodes"] if not node.get("ignored")]
        names = [node["name"]["value"] for node in nodes if node["role"]["value"] in ("checkbox", "spinbutton", "combobox")]
        self.assertEqual(names, ["Device", "System", *titles])

    def settings_titles(self):
        titles = "return [...document.querySelectorAll('#rows label')].map((label) => label.firstChild.textContent)"
        return eventually(lambda: self.browser.run(titles), "the settings")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
