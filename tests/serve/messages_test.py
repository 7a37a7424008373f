#!/usr/bin/env python3
"""What a page may ask of a home screen: its views, log lines, calls, saved steps, layouts; rightly and wrongly.

    messages_test.py PROGRAM LIBRARY_THAT_ENDS_IT
"""
import json
import os
import sys
import tempfile
import unittest

from support import Refused, Served, eventually

PROGRAM = sys.argv[1]
SWITCHED_ON = ("--set", "enabled=YES", "--set", "quick=YES")
STEPS = "var/mobile/Documents/steps"
PRESETS = "var/mobile/Documents/com.wexor.tilo3/custom/config.json"


def tree_of(views):
    """Every view in the trees, by its id."""
    found = {}
    for view in views:
        found[view["id"]] = view
        found.update(tree_of(view["children"]))
    return found


class Messages(unittest.TestCase):
    options = SWITCHED_ON

    @classmethod
    def setUpClass(cls):
        cls.root = cls.enterClassContext(tempfile.TemporaryDirectory())
        cls.served = cls.enterClassContext(Served(PROGRAM, "--root", cls.root, *cls.options))

    def setUp(self):
        self.page = self.enterContext(self.served.socket())

    def assert_refused(self, reason, kind, **message):
        with self.assertRaises(Refused) as refusal:
            self.page.answer(kind, **message)
        self.assertIn(reason, str(refusal.exception))


class Views(Messages):
    options = (*SWITCHED_ON, "--set", "icons=YES", "--set", "rows=5")

    def seen_at(self, x, y):
        views = tree_of(self.page.answer("views"))
        return views[self.page.answer("view-at", x=x, y=y)]

    def test_the_view_that_is_seen_at_a_point_is_the_one_in_front(self):
        icon = self.page.report()["pages"][0]["icons"][0]["frame"]
        x, y = icon[0] + 30, icon[1] + 30 + 18  # below the status bar
        seen = self.seen_at(x, y)
        self.assertEqual(seen["class"], "SBIconImageView")
        left, top, width, height = seen["onScreen"]
        self.assertTrue(left <= x < left + width and top <= y < top + height, seen)
        self.page.step("swipe up")
        self.page.step("wait 0.6")
        panel = self.page.report()["panel"]["frame"]
        self.assertEqual(self.seen_at(panel[0] + 5, panel[1] + panel[3] / 2)["onScreen"], panel)
        self.page.step('tap "close"')
        self.page.step("wait 0.6")

    def test_a_point_beside_the_screen_has_no_view(self):
        self.assertIsNone(self.page.answer("view-at", x=-3, y=10))
        self.assertIsNone(self.page.answer("view-at", x=1e300, y=1e300))

    def test_an_icon_tells_its_list_and_who_gave_each_answer(self):
        icon = next(view for view in tree_of(self.page.answer("views")).values() if view["class"] == "SBIconView")
        answer = self.page.answer("view", view=icon["id"])
        self.assertEqual(answer["classes"][0], "SBIconView")
        self.assertEqual(answer["classes"][-2:], ["UIResponder", "NSObject"])
        self.assertEqual(answer["list"]["class"], "SBRootIconListView")
        told = {each["message"]: each for each in answer["list"]["answers"]}
        page = self.page.report()["pages"][0]
        for message, key in (("-iconRowsForCurrentOrientation", "rows"), ("-iconColumnsForCurrentOrientation", "columns"),
                             ("-verticalIconPadding", "verticalPadding"), ("-topIconInset", "topInset"),
                             ("-horizontalIconPadding", "horizontalPadding"), ("-sideIconInset", "sideInset")):
            self.assertAlmostEqual(told[message]["value"], page[key], msg=message)
        by_class = told["+iconRowsForInterfaceOrientation:"]
        self.assertEqual(by_class["given"], [{"by": "SpringBoard", "value": 6}, {"by": "Tilo.dylib", "value": 5}])
        self.assertEqual(by_class["value"], 5)

    def test_what_lies_in_no_list_has_no_answers(self):
        (window, *_) = self.page.answer("views")
        self.assertIsNone(self.page.answer("view", view=window["id"])["list"])

    def test_wrong_questions_are_refused(self):
        self.assert_refused("no view has the id '0x1'", "view", view="0x1")
        self.assert_refused("", "view", view=7)
        self.assert_refused("", "view-at", x="left", y=1)
        self.assert_refused("", "view-at")


class Lines(Messages):
    def setUp(self):
        super().setUp()
        self.page.report()  # the device's files are there

    def test_each_line_is_told_once(self):
        first = self.page.answer("console", after=0)
        self.assertEqual(first["lines"], self.page.report()["console"])
        self.assertEqual(self.page.answer("console", after=first["count"])["lines"], [])
        log = self.page.answer("log", after=0)
        self.assertEqual(log["lines"], self.page.report()["log"])
        with open(os.path.join(self.root, "var/mobile/Documents/Tilo3.log"), "a", encoding="utf-8") as out:
            out.write("one more\nhalf a")
        more = self.page.answer("log", after=log["count"])
        self.assertEqual(more["lines"], ["one more"])
        with open(os.path.join(self.root, "var/mobile/Documents/Tilo3.log"), "a", encoding="utf-8") as out:
            out.write(" line\n")
        self.assertEqual(self.page.answer("log", after=more["count"])["lines"], ["half a line"])

    def test_a_log_that_is_another_one_is_told_from_its_beginning(self):
        with open(os.path.join(self.root, "var/mobile/Documents/Tilo3.log"), "w", encoding="utf-8") as out:
            out.write("anew\n")
        self.assertEqual(self.page.answer("log", after=10**6)["lines"], ["anew"])

    def test_of_a_long_log_the_last_lines_are_told(self):
        with open(os.path.join(self.root, "var/mobile/Documents/Tilo3.log"), "w", encoding="utf-8") as out:
            out.write("".join(f"{i}\n" for i in range(2000)))
        lines = self.page.answer("log", after=0)["lines"]
        self.assertEqual((len(lines), lines[0], lines[-1]), (500, "1500", "1999"))

    def test_wrong_places_are_refused_or_none(self):
        for kind in ("console", "log"):
            self.assert_refused("", kind, after="all")
            self.assert_refused("", kind)
            self.assertEqual(self.page.answer(kind, after=-5)["count"], self.page.answer(kind, after=0)["count"])
            self.page.answer(kind, after=1e300)


class SavedSteps(Messages):
    def test_what_is_saved_stays_with_the_files(self):
        self.page.answer("save-steps", name="To the panel", text="swipe up\n")
        self.assertEqual(self.page.answer("saved-steps"), {"To the panel": "swipe up\n"})
        self.page.answer("save-steps", name="b", text="wait 1\n")
        self.page.send(type="respring")
        self.page.until("started")
        self.assertEqual(self.page.answer("saved-steps"), {"To the panel": "swipe up\n", "b": "wait 1\n"})
        self.page.answer("save-steps", name="b", text="")
        self.assertEqual(os.listdir(os.path.join(self.root, STEPS)), ["To the panel.txt"])

    def test_no_name_leads_elsewhere(self):
        for name in ("", "../x", "/etc/x", "a/b", "a\0b", ".", "..", "a.txt", " a", "a ", "é", "x" * 41):
            self.assert_refused("is no name for steps", "save-steps", name=name, text="x")

    def test_a_link_that_lies_there_is_not_followed(self):
        with tempfile.TemporaryDirectory() as elsewhere:
            target = os.path.join(elsewhere, "target")
            with open(target, "w", encoding="utf-8") as out:
                out.write("untouched")
            os.makedirs(os.path.join(self.root, STEPS), exist_ok=True)
            os.symlink(target, os.path.join(self.root, STEPS, "linked.txt"))
            self.assertNotIn("linked", self.page.answer("saved-steps"))
            self.page.answer("save-steps", name="linked", text="home\n")
            with open(target, encoding="utf-8") as untouched:
                self.assertEqual(untouched.read(), "untouched")
            self.page.answer("save-steps", name="linked", text="")

    def test_there_is_an_end_to_what_is_saved(self):
        self.assert_refused("too many steps", "save-steps", name="long", text="x" * (64 * 1024 + 1))
        for i in range(100):
            self.page.answer("save-steps", name=f"n{i}", text="home\n")
        self.assert_refused("there are 100 already", "save-steps", name="one more", text="home\n")
        self.page.answer("save-steps", name="n7", text="lock\n")
        for i in range(100):
            self.page.answer("save-steps", name=f"n{i}", text="")

    def test_wrong_kinds_are_refused(self):
        self.assert_refused("", "save-steps", name=3, text="x")
        self.assert_refused("", "save-steps", name="x", text=None)


class Settings(Messages):
    def test_their_files_are_read_once_and_not_for_each_of_them(self):
        rows = [row for row in self.page.answer("settings") if "key" in row]
        before = self.bytes_read()
        self.page.answer("settings")
        file = os.path.getsize(os.path.join(os.path.dirname(PROGRAM), "Tilo.bundle/Root.plist"))
        self.assertLess(self.bytes_read() - before, 4 * file)
        self.assertGreater(len(rows), 8)

    def bytes_read(self):
        (home,) = self.served.home_processes()
        with open(f"/proc/{home}/io", encoding="ascii") as counts:
            return int(counts.readline().removeprefix("rchar: "))

    def test_what_a_setting_cannot_be_is_refused_with_its_name_and_changes_nothing(self):
        before = self.page.report()["preferences"]
        for key, value, fault in (("rows", 99, "'99' for 'rows': it has to be from 1 to 15"),
                                  ("rows", True, "'true' for 'rows': it has to be a number, 1 to 15"),
                                  ("enabled", 1, "'1' for 'enabled': it has to be YES or NO"),
                                  ("nothing", 1, "no setting is called 'nothing'")):
            with self.assertRaises(Refused) as error:
                self.page.answer("set", key=key, value=value)
            self.assertEqual(str(error.exception), fault)
        self.assertEqual(self.page.report()["preferences"], before)


def layout(name, top, value=0):
    return {"name": name, "value": value, "configurable": 1,
            "configuration": {"horizontal_padding": 0, "vertical_padding": 0, "side_inset": 0, "top_inset": top}}


class Layouts(Messages):
    def read(self):
        with open(os.path.join(self.root, PRESETS), encoding="utf-8") as file:
            return file.read()

    def test_a_file_that_is_used_is_in_its_place_and_the_icons_follow_at_the_next_start(self):
        self.page.answer("set", key="custom_preset", value=-1)
        text = json.dumps({"configurations": [layout("Low", 40), layout("High", 0, 1)]})
        before = self.page.report()["pages"][0]["icons"][0]["frame"]
        self.assertIsNone(self.page.answer("use-presets", text=text))
        self.assertEqual(self.read(), text)
        self.assertEqual(self.page.answer("presets"), text)
        self.assertEqual([each["name"] for each in self.page.report()["presets"]["configurations"]], ["Low", "High"])
        self.page.answer("set", key="custom_preset", value=0)
        self.page.send(type="respring")
        self.page.until("started")
        after = self.page.report()["pages"][0]["icons"][0]["frame"]
        self.assertEqual(after[1] - before[1], 40)
        self.assertEqual(os.listdir(os.path.dirname(os.path.join(self.root, PRESETS))), ["config.json"])

    def test_what_is_no_presets_file_changes_nothing(self):
        self.page.answer("use-presets", text='{"configurations": []}')
        for text, reason in (("", "is no JSON object"), ("[]", "is no JSON object"), ("{", "is no JSON object"),
                             ("[" * 100, "is no JSON object"), ("{}", "has no list 'configurations'"),
                             ('{"configurations": {}}', "has no list 'configurations'"),
                             ('{"configurations": [3]}', "for layout 1"),
                             (json.dumps({"configurations": [layout("a", 0), {"name": "b"}]}), "for layout 2"),
                             (json.dumps({"configurations": [layout("a", 0)] * 501}), "more than 500"),
                             (" " * (512 * 1024 + 1), "is too long")):
            self.assert_refused(f"the presets file {reason}" if reason.startswith(("is", "has")) else reason,
                                "use-presets", text=text)
            self.assertEqual(self.read(), '{"configurations": []}')
        self.assert_refused("", "use-presets", text=["x"])

    def test_a_link_in_its_place_is_replaced_and_not_followed(self):
        with tempfile.TemporaryDirectory() as elsewhere:
            target, place = os.path.join(elsewhere, "target"), os.path.join(self.root, PRESETS)
            with open(target, "w", encoding="utf-8") as out:
                out.write("untouched")
            if os.path.exists(place):
                os.remove(place)
            os.symlink(target, place)
            self.page.answer("use-presets", text='{"configurations": []}')
            with open(target, encoding="utf-8") as untouched:
                self.assertEqual(untouched.read(), "untouched")
            self.assertFalse(os.path.islink(place))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
