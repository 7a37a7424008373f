"""How often methods that libraries have replaced are called, as pages are told."""
import os
import sys
import unittest

PROGRAM = sys.argv[1]
OURS = os.path.join(os.path.dirname(PROGRAM), "libTilo.so")

from support import Served, eventually  # pylint: disable=wrong-import-position

# Our library answers what is stored, and the panel can be opened.
SETTINGS = [word for setting in ("enabled=YES", "icons=YES", "quick=YES", "custom_preset=-1", "vertIconPadding=20",
                                 "horiIconPadding=10", "sideIconInset=20", "topIconInset=30")
            for word in ("--set", setting)]


class Calls(unittest.TestCase):
    """A home screen with our library."""

    def setUp(self):
        self.page = self.enterContext(self.enterContext(Served(PROGRAM, *SETTINGS)).socket())
        self.page.report()

    def calls(self):
        return {row["class"] + " " + row["method"]: row for row in self.page.answer("calls")}

    def after(self, *steps):
        """What has been called by the end of these steps."""
        self.calls()
        for step in steps:
            self.page.step(step)
        return self.calls()

    def keep_list(self):
        """The page in front gets the name "list"."""
        self.page.step("keep list SBIconController sharedInstance")
        self.page.step("keep list list currentRootIconList")

    def test_there_are_none_before_anybody_has_asked(self):
        self.page.step("rotate landscape")
        self.assertEqual(self.calls(), {})

    def test_are_counted_with_their_time_and_libraries(self):
        self.keep_list()
        row = self.after(*["send list verticalIconPadding"] * 5)["SBIconListView -verticalIconPadding"]
        self.assertEqual(row["count"], 5)
        self.assertEqual(row["libraries"], ["Tilo.dylib"])
        self.assertTrue(0 < row["seconds"] < 1, row)

    def test_are_forgotten_after_a_second(self):
        self.keep_list()
        self.assertIn("SBIconListView -verticalIconPadding", self.after("send list verticalIconPadding"))
        eventually(lambda: "SBIconListView -verticalIconPadding" not in self.calls(), "forgetting")

    def test_answer_as_ever_while_they_are_watched(self):
        """Reals, whole numbers and rectangles, of classes and of objects."""
        story = ["swipe up", "wait 1", 'increment "Vertical Padding" 2', 'tap "close"', "wait 0.6"]
        kept = ("pages", "folder", "dock", "framing", "hooks", "preferences", "classRows")
        with Served(PROGRAM, *SETTINGS) as other, other.socket() as unwatched:
            for step in story:
                unwatched.step(step)
            expected = unwatched.report()
        called = self.after(*story[:3])
        self.assertGreater(len(called), 5)
        for step in story[3:]:
            self.page.step(step)
        report = self.page.report()
        self.assertEqual({key: report[key] for key in kept}, {key: expected[key] for key in kept})

    def test_are_let_alone_when_nobody_has_asked_for_a_while(self):
        self.keep_list()
        self.after("send list verticalIconPadding")
        self.page.step("wait 3.2")
        self.page.step("send list verticalIconPadding")  # the last one that is seen
        self.page.step("send list verticalIconPadding")
        row = self.calls()["SBIconListView -verticalIconPadding"]
        self.assertEqual(row["count"], 1)
        self.assertEqual(self.after("send list verticalIconPadding")["SBIconListView -verticalIconPadding"]["count"], 2)

    def test_leave_who_answered_what_as_it_is(self):
        seen = self.page.answer("view-at", x=50, y=60)
        view = seen["view"] if isinstance(seen, dict) else seen
        before = self.page.answer("view", view=view)["list"]
        self.assertIn("Tilo.dylib", [given["by"] for answer in before["answers"] for given in answer["given"]])
        self.calls()
        self.assertEqual(self.page.answer("view", view=view)["list"], before)


class CallsOfSeveral(unittest.TestCase):
    """Two libraries that replace one method."""

    def test_name_them_in_their_order(self):
        doubling = os.path.join(os.path.dirname(PROGRAM), "libdoubling.so")
        with Served(PROGRAM, *SETTINGS, "--library", OURS, "--library", doubling) as served, served.socket() as page:
            page.answer("calls")
            page.step("keep list SBIconController sharedInstance")
            page.step("keep list list currentRootIconList")
            page.step("send list verticalIconPadding")
            rows = {row["class"] + " " + row["method"]: row for row in page.answer("calls")}
            row = rows["SBIconListView -verticalIconPadding"]
            self.assertEqual((row["count"], row["libraries"]), (1, ["Tilo.dylib", "libdoubling.dylib"]))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
