#!/usr/bin/env python3
"""The inspector beside a home screen, in a real browser.

    inspector_test.py PROGRAM LIBRARY_THAT_ENDS_IT [FOLDER_FOR_PICTURES]
"""
import sys
import unittest

from page import SWITCHED_ON, PageTest
from support import eventually


class Inspector(PageTest):
    def open_inspector(self, *options):
        self.serve(*SWITCHED_ON, *options)
        self.show_panel("inspector")
        eventually(lambda: self.rows(), "the tree")

    def rows(self, which=""):
        return self.browser.run(f"""return [...document.querySelectorAll('#tree [role=treeitem]{which}')].map((row) =>
            row.children[1].textContent)""")

    def facts(self):
        return self.browser.run("""
            const names = [...document.querySelectorAll('#facts dt')].map((each) => each.textContent);
            const values = [...document.querySelectorAll('#facts dd')].map((each) => each.textContent);
            return Object.fromEntries(names.map((name, i) => [name, values[i]]));""")

    def outline(self, name):
        """What is outlined, and where, in points of the screen."""
        return self.browser.run("""
            const outline = document.getElementById(args[0]);
            if (outline.hidden) return null;
            const box = outline.getBoundingClientRect(), canvas = document.getElementById('screen').getBoundingClientRect();
            return [outline.textContent, box.left - canvas.left, box.top - canvas.top, box.width, box.height];""", name)

    def middle_of_an_icon(self):
        x, y, width, height = self.report()["pages"][0]["icons"][5]["frame"]
        return x + width / 2, y + height / 2

    def point_at(self, x, y):
        x, y = self.on_page(x, y)
        self.browser.act({"type": "pointerMove", "x": x, "y": y})

    def test_it_points_at_the_thing_under_the_pointer(self):
        self.open_inspector()
        self.press("point")
        x, y = self.middle_of_an_icon()
        self.point_at(x, y)
        eventually(lambda: self.outline("pointed"), "an outline")
        words, left, top, width, height = self.outline("pointed")
        self.assertEqual(words, "SBIconImageView 60 × 60")
        self.assertTrue(left < x < left + width and top < y < top + height, (left, top))
        self.assertAlmostEqual(width, 60, delta=0.5)
        self.click(x, y)
        eventually(lambda: self.rows("[aria-selected=true]") == ["SBIconImageView"], "the choice")
        eventually(lambda: self.facts().get("class", "").startswith("SBIconImageView : "), "its facts")
        facts = self.facts()
        self.assertTrue(facts["class"].endswith(" : UIView : UIResponder : NSObject"), facts["class"])
        self.assertEqual(facts["frame"].split(", ")[2:], ["60", "60"])
        self.assertEqual((facts["alpha"], facts["transform"], facts["hidden"]), ("1", "none", "no"))
        self.assertIsNone(self.report()["application"])  # it was pointed at, not touched
        self.photograph("inspector.png")
        self.click(x, y)
        eventually(lambda: self.report()["application"], "a touch, once nothing is pointed at")

    def test_a_text_tells_its_letters_and_colours(self):
        self.open_inspector()
        self.step("swipe up")
        self.browser.run("""const seek = document.getElementById('seek');
            seek.value = 'side inset'; seek.dispatchEvent(new Event('input'));""")
        eventually(lambda: self.rows(".found") == ["UILabel"], "the label with that text")
        self.browser.run("document.querySelector('#tree .found').click()")
        eventually(lambda: self.facts().get("text") == "Side Inset", "its text")
        self.assertEqual(self.facts()["text colour"], "0, 0, 0")
        self.browser.run("""const seek = document.getElementById('seek');
            seek.value = 'popupview'; seek.dispatchEvent(new Event('input'));
            document.querySelector('#tree .found').click();""")
        eventually(lambda: self.facts().get("background") == "250, 250, 250", "the panel's colour")

    def test_escape_ends_pointing(self):
        self.open_inspector()
        self.press("point")
        self.point_at(*self.middle_of_an_icon())
        eventually(lambda: self.outline("pointed"), "an outline")
        self.browser.act({"type": "keyDown", "value": "\ue00c"}, {"type": "keyUp", "value": "\ue00c"}, kind="key")
        eventually(lambda: self.outline("pointed") is None, "the end of it")
        self.assertEqual(self.browser.run("return document.getElementById('point').ariaPressed"), "false")

    def test_an_icon_tells_what_its_list_answers_and_who_gave_it(self):
        self.open_inspector("--set", "icons=YES", "--set", "columns=5")
        self.press("point")
        self.click(*self.middle_of_an_icon())
        eventually(lambda: self.browser.run("return document.querySelector('#facts table')"), "the answers")
        caption, rows = self.browser.run("""
            const table = document.querySelector('#facts table');
            return [table.caption.textContent, Object.fromEntries([...table.tBodies[0].rows].map((row) =>
                [row.cells[0].textContent, [row.cells[1].textContent, row.cells[2].textContent]]))];""")
        self.assertEqual(caption, "What SBRootIconListView answers")
        self.assertEqual(rows["-iconColumnsForCurrentOrientation"][0], "5")
        self.assertEqual(rows["+iconColumnsForInterfaceOrientation:"], ["5", "SpringBoard: 4 → Tilo.dylib: 5"])

    def test_long_names_of_methods_go_on_below_between_words(self):
        self.open_inspector()
        self.press("point")
        self.click(*self.middle_of_an_icon())
        eventually(lambda: self.browser.run("return document.querySelector('#facts table')"), "the answers")
        self.assert_lines_end_between_words("#facts th[scope=row]")

    def test_the_tree_is_sought_by_class_and_text(self):
        self.open_inspector()
        self.browser.run("""const seek = document.getElementById('seek');
            seek.value = 'sbdock'; seek.dispatchEvent(new Event('input'));""")
        self.assertEqual(set(self.rows(".found")), {"SBDockView", "SBDockIconListView"})
        self.assertIn("UIWindow", self.rows())
        self.assertNotIn("SBRootIconListView", self.rows())
        self.step("swipe up")
        self.browser.run("""const seek = document.getElementById('seek');
            seek.value = 'side inset'; seek.dispatchEvent(new Event('input'));""")
        eventually(lambda: self.rows(".found") == ["UILabel"], "the label with that text")

    def test_the_tree_is_walked_and_folded_by_keys(self):
        self.open_inspector()
        self.browser.run("document.querySelector('#tree [tabindex=\"0\"]').focus()")
        count = len(self.rows())

        def press(*keys):
            for key in keys:
                self.browser.act({"type": "keyDown", "value": key}, {"type": "keyUp", "value": key}, kind="key")

        down, left, right = "\ue015", "\ue012", "\ue014"
        press(down)
        focused = "return document.activeElement.getAttribute('aria-level') + document.activeElement.ariaSelected"
        self.assertEqual(self.browser.run(focused), "2true")
        press(left, left)  # folds it, and goes to what it lies in
        self.assertEqual(self.browser.run(focused), "1true")
        press(left)
        self.assertLess(len(self.rows()), count)
        press(right)
        self.assertEqual(self.rows("[aria-expanded=true]")[0], self.rows()[0])

    def test_what_changes_is_highlighted_as_it_does(self):
        self.open_inspector()
        self.step("swipe up")
        eventually(lambda: any("RQPopupView" in row for row in self.rows()), "the panel in the tree")
        self.step("wait 1")
        self.browser.run("document.querySelectorAll('.changed').forEach((each) => each.classList.remove('changed'))")
        self.step('tap "collapse"')
        eventually(lambda: "RQPopupView" in self.rows(".changed"), "the panel's flash")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
