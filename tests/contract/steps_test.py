"""Every step that is promised: there, doing what is promised of it, and taking the time that it is to take.

    steps_test.py PROGRAM TESTS/SERVE
"""
import json
import os
import sys
import tempfile
import unittest

from program import OPEN, PANEL, listed, reports, run, settings

TABLET = ["--stock", "--device", "iPad Air 2"]
ROW = "Vertical Padding"
FIELD = OPEN + [f'type "{ROW}" "7"']
NAMING = OPEN + ['tap "Add"', "wait 1"]
SAVED = NAMING + ['enter "Mine"', 'choose "Add"', "wait 1"]
ON_PAGE_1 = SAVED + OPEN + ["page 1", "wait 1"]


def icon(seen, name):
    return next(each for page in seen["pages"] for each in page["icons"] if each["name"] == name)


def row(seen):
    return seen["panel"]["rows"][ROW]


def near(one, other, within):
    return abs(one - other) <= within


# The step, the options, the steps before it, the seconds that it takes (None: not promised), the steps behind it, and what
# must hold of the reports before and after.
CASES = [
    ("wait 1.5", PANEL, ["swipe up"], 1.5, [], lambda old, new: old["panel"]["frame"] != new["panel"]["frame"]),
    ("swipe up", PANEL, [], 0.15, ["wait 1"], lambda old, new: old["panel"] is None and new["panel"] is not None),
    ("swipe left 200 300", ["--stock"], [], 0.15, ["wait 1"],
     lambda old, new: (old["pageDots"]["current"], new["pageDots"]["current"]) == (0, 1)),
    ('tap "close"', PANEL, OPEN, 0.05, ["wait 1"], lambda old, new: old["panel"] and new["panel"] is None),
    ("tap 50 60", PANEL, [], 0.05, ["wait 1"], lambda old, new: new["application"] == "Messages"),
    ("two-finger-tap", PANEL + settings(twoFinger="YES"), [], None, ["wait 1"], lambda old, new: new["panel"]),
    ("two-finger-tap 300 200", PANEL + settings(twoFinger="YES"), [], None, ["wait 1"], lambda old, new: new["panel"]),
    ("press 6 300 200", PANEL + settings(forceTouch="YES"), [], 0.3, ["wait 1"], lambda old, new: new["panel"]),
    ("press 6", PANEL + settings(forceTouch="YES"), [], 0.3, ["wait 1"], lambda old, new: new["panel"]),
    ("press 1", PANEL + settings(forceTouch="YES"), [], 0.3, ["wait 1"], lambda old, new: new["panel"] is None),
    ("drag 300 300 50 300 0.2", ["--stock"], [], 0.2, ["wait 1"], lambda old, new: new["pageDots"]["current"] == 1),
    ("drag 50 300 300 300", ["--stock"], ["swipe left", "wait 1"], None, ["wait 1"],
     lambda old, new: (old["pageDots"]["current"], new["pageDots"]["current"]) == (1, 0)),
    ("swipe right", ["--stock"], ["swipe left", "wait 1"], 0.15, ["wait 1"],
     lambda old, new: (old["pageDots"]["current"], new["pageDots"]["current"]) == (1, 0)),
    # Up opens the panel, down does not.
    ("swipe down", PANEL, [], 0.15, ["wait 1"], lambda old, new: new["panel"] is None),
    ("finger 0 move 300 202 6", PANEL + settings(forceTouch="YES"), ["finger 0 down 300 200 1", "wait 0.3", "finger 0 move 300 201 3"],
     0, ["finger 0 up 300 202", "wait 1"], lambda old, new: new["panel"]),
    ("finger 0 down 50 60", PANEL, [], 0, ["finger 0 up 50 60", "wait 1"],
     lambda old, new: new["application"] == "Messages"),
    (f'increment "{ROW}"', PANEL, OPEN, 0.3, ["wait 3"],
     lambda old, new: row(new)["value"] == row(old)["value"] + 1 and
     new["pages"][0]["verticalPadding"] == old["pages"][0]["verticalPadding"] + 1),
    (f'increment "{ROW}" 3', PANEL, OPEN, 0.9, [], lambda old, new: row(new)["value"] == row(old)["value"] + 3),
    (f'decrement "{ROW}" 2', PANEL, OPEN, 0.6, [], lambda old, new: row(new)["value"] == row(old)["value"] - 2),
    (f'slide "{ROW}" 50', PANEL, OPEN, 0, [], lambda old, new: near(row(new)["value"], 50, 1.5)),
    (f'type "{ROW}" ""', PANEL, OPEN, 0.4, [], lambda old, new: (row(old)["text"], row(new)["text"]) == ("20.0", "")),
    (f'type "{ROW}" "7"', PANEL, OPEN, 0.5, [], lambda old, new: row(new)["text"] == "7"),
    (f'paste "{ROW}" "31"', PANEL, OPEN, 0.4, [], lambda old, new: row(new)["text"] == "31"),
    (f'apply "{ROW}"', PANEL, FIELD, 0, ["wait 1"], lambda old, new: row(new)["value"] == 7),
    (f'cancel "{ROW}"', PANEL, FIELD, 0, ["wait 1"], lambda old, new: row(new)["value"] == 20),
    ('enter "mine"', PANEL, NAMING, 0.4, [], lambda old, new: new["alert"]["text"] == "mine"),
    ('keys "mine"', PANEL, NAMING, 0.4, [], lambda old, new: new["alert"]["text"] == "mine"),
    ("key delete", PANEL, NAMING + ['keys "mine"'], 0.1, [], lambda old, new: new["alert"]["text"] == "min"),
    ("key return", PANEL, NAMING + ['keys "mine"'], 0.1, [], lambda old, new: new["alert"]["text"] == "mine"),
    ('choose "Add"', PANEL, NAMING + ['enter "Mine"'], None, ["wait 1"],
     lambda old, new: [each["name"] for each in new["presets"]["configurations"]] == ["Mine"]),
    ("page 1", PANEL, OPEN, 0, ["wait 1"], lambda old, new: (old["panel"]["page"], new["panel"]["page"]) == (0, 1)),
    ("pick 0", PANEL, ON_PAGE_1, 0, ["wait 1"], lambda old, new: new["panel"]["selectedRow"] == 0),
    ("rotate landscape", TABLET, [], 0.4, [],
     lambda old, new: old["pages"][0]["columns"] == new["pages"][0]["rows"] and
     icon(old, "Messages")["frame"] != icon(new, "Messages")["frame"]),
    ("rotate portrait", TABLET, ["rotate landscape"], 0.4, [],
     lambda old, new: old["pages"][0]["columns"] == new["pages"][0]["rows"]),
    ("rotate landscape", ["--stock"], [], 0.4, [], lambda old, new: old["pages"] == new["pages"]),
    # Nobody reaches an icon then.
    ("lock", ["--stock"], [], 0, ["wait 1", "tap 50 60", "wait 1"], lambda old, new: new["application"] is None),
    ("unlock", ["--stock"], ["lock", "wait 1"], 0, ["wait 1", "tap 50 60", "wait 1"],
     lambda old, new: new["application"] == "Messages"),
    ('launch "Maps"', ["--stock"], [], 0.05, ["wait 1"], lambda old, new: new["application"] == "Maps"),
    ("home", ["--stock"], ['launch "Maps"', "wait 1"], 0, ["wait 1"],
     lambda old, new: (old["application"], new["application"]) == ("Maps", None)),
    ('open "Extras"', ["--stock"], [], 0.05, ["wait 1"],
     lambda old, new: (old["dock"]["backgroundAlpha"], near(new["dock"]["backgroundAlpha"], 0.3, 0.01)) == (1, True)),
    ("home", ["--stock"], ['open "Extras"', "wait 1"], 0, ["wait 1"],
     lambda old, new: (near(old["dock"]["backgroundAlpha"], 0.3, 0.01), new["dock"]["backgroundAlpha"]) == (True, 1)),
    ("edit", ["--stock"], [], 0, ["tap 50 60", "wait 1"], lambda old, new: new["application"] is None),
    ("home", ["--stock"], ["edit"], 0, ["tap 50 60", "wait 1"], lambda old, new: new["application"] == "Messages"),
    ("write rows=4", PANEL, [], 0, [], lambda old, new: new["preferences"]["rows"] == 4),
    ("set columns=5", PANEL, [], 0, [],
     lambda old, new: (old["pages"][0]["columns"], new["pages"][0]["columns"]) == (4, 5) and
     icon(old, "Weather")["frame"] != icon(new, "Weather")["frame"]),
    ('message PreferencesDidChangeNotification name="Use Two Finger Tap Instead" value=YES', PANEL, [], 0,
     ["two-finger-tap", "wait 1"], lambda old, new: new["panel"]),
    ("call exportSettings", PANEL, OPEN, 0, ["wait 0.6"], lambda old, new: new["hud"] is not None),
    ("call openSettings", PANEL, OPEN, 0, ["wait 1"], lambda old, new: len(new["openedURLs"]) == 1),
    ("settings", [], [], None, ["wait 1"], lambda old, new: new["application"] == "Settings"),
]


class Steps(unittest.TestCase):
    """All of them, each in a run of its own."""

    def test_do_what_they_promise_in_the_time_that_they_are_to_take(self):
        for step, options, before, seconds, behind, holds in CASES:
            with self.subTest(step=step, options=options):
                old, then, new = reports([*before, "report", step, "report", *behind], *options)
                if seconds is not None:
                    self.assertAlmostEqual(then["time"] - old["time"], seconds, 6)
                self.assertTrue(holds(old, new))

    def test_write_files_now(self):
        with tempfile.TemporaryDirectory() as folder:
            picture, seen = os.path.join(folder, "s.png"), os.path.join(folder, "r.json")
            script = f"wait 1\nsnapshot {picture}\nreport {seen}\nwait 1\n"
            self.assertEqual(run("--stock", "--script", "-", script=script), (0, "", ""))
            with open(seen, encoding="utf-8") as source:
                self.assertEqual(json.load(source)["time"], 1)
            self.assertGreater(os.path.getsize(picture), 10000)

    def test_that_cannot_be_done_say_why(self):
        for step, complaint in (('keys "a"', "no text field is being edited"), ("key return", "no text field is being edited"),
                                ("key up", "'up'"), ("set columns=99", "'99' for 'columns'"), ("set none=1", "'none'")):
            status, _, errors = run("--stock", "--script", "-", script=step + "\n")
            self.assertEqual((status, errors.count("\n")), (2, 1), errors)
            self.assertIn(complaint, errors)

    def test_take_names_with_quotes_in_them(self):
        """And a number sign inside of quotes is text."""
        (seen,) = reports(NAMING + [r'enter "a \"b\" \\ #c"  # a comment'], *PANEL)
        self.assertEqual(seen["alert"]["text"], r'a "b" \ #c')


class Names(unittest.TestCase):
    """That the tests above are of every step that is promised, and that the program has them."""

    PROMISED = ("wait swipe tap two-finger-tap press drag finger increment decrement slide type paste apply cancel enter choose "
                "pick page rotate lock unlock launch home open edit write message call settings snapshot report").split()

    def test_every_promised_step_is_there(self):
        self.assertEqual([name for name in self.PROMISED if name not in listed("steps")], [])

    def test_every_promised_step_has_a_test(self):
        tested = {step.split(" ")[0] for step, *_ in CASES} | {"snapshot", "report"}
        self.assertEqual([name for name in self.PROMISED if name not in tested], [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
