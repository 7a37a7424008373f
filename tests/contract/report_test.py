"""Every key of the report that is promised: there, and telling what it promises.

    report_test.py PROGRAM TESTS/SERVE
"""
import functools
import re
import sys
import unittest

from program import OPEN, PANEL, listed, reports, settings

ROW = "Vertical Padding"
SAVE = OPEN + ['tap "Add"', "wait 1", 'enter "mine"', 'choose "Add"', "wait 1"]


@functools.cache
def scene(name):
    """A report, made once."""
    script, options = {
        "first start": ([], ()),
        "stock": ([], ("--stock",)),
        "stored": ([], tuple(PANEL)),
        "panel": (OPEN + [f'increment "{ROW}"', "wait 4"], tuple(PANEL)),
        "naming": (OPEN + ['tap "Add"', "wait 1", 'enter "mine"'], tuple(PANEL)),
        "saved": (SAVE + OPEN, tuple(PANEL)),
        "refused": (OPEN + [f'type "{ROW}" "7000"', f'apply "{ROW}"', "wait 0.5"], tuple(PANEL)),
        "exported": (OPEN + ["call exportSettings", "wait 0.6"], tuple(PANEL)),
        "opened": (OPEN + ["call openSettings", "wait 1"], tuple(PANEL)),
        "locked": (["lock"], ("--stock",)),
        "launched": (['launch "Maps"', "wait 1"], ("--stock",)),
        "paged": (["swipe left", "wait 1"], ("--stock",)),
        "looks": ([], tuple(settings(enabled="YES", labels="NO", page="NO", dock="YES"))),
        "supported": ([], ("--icon-support",)),
        "tablet": ([], ("--stock", "--device", "iPad Air 2", "--orientation", "landscape")),
        "eleven": (OPEN + [f'increment "{ROW}"', "wait 4"], tuple(PANEL + ["--ios", "11.4.1"])),
    }[name]
    return reports(script, *options)[-1]


def is_frame(value):
    return isinstance(value, list) and len(value) == 4 and all(isinstance(each, (int, float)) for each in value)


def is_colour(value, parts):
    return isinstance(value, list) and len(value) == parts


def page(name, key):
    return scene(name)["pages"][0][key]


def trees(view):
    """A view and all below it."""
    yield view
    for child in view["children"]:
        yield from trees(child)


STOCK_GRID = {"rows": 6, "columns": 4, "rowsForSpacing": 6}
OUTCOMES = {"replaced", "added", "refused", "successor", "class missing", "method missing"}
STORED = {"verticalPadding": 20, "horizontalPadding": 10, "sideInset": 20, "topInset": 30}

# A key with its way from the top, and what must hold.
CASES = {
    "device": lambda: (scene("stock")["device"], scene("tablet")["device"]) == ("iPhone 7", "iPad Air 2"),
    "ios": lambda: (scene("stock")["ios"], scene("eleven")["ios"]) == ("10.3.3", "11.4.1"),
    "orientation": lambda: (scene("stock")["orientation"], scene("tablet")["orientation"]) == ("portrait", "landscape"),
    "loaded": lambda: (scene("stock")["loaded"], scene("first start")["loaded"]) == (False, True),
    "pages[].index": lambda: [each["index"] for each in scene("stock")["pages"]] == [0, 1, 2],
    **{f"pages[].{key}": lambda key=key, value=value: page("stock", key) == value for key, value in STOCK_GRID.items()},
    **{f"pages[].{key}": lambda key=key, value=value: page("stored", key) == value for key, value in STORED.items()},
    "pages[].icons[].name": lambda: page("stock", "icons")[0]["name"] == "Messages",
    "pages[].icons[].frame": lambda: page("stored", "icons")[0]["frame"][:2] == [20, 30],
    "pages[].icons[].square": lambda: {each["square"] for each in page("stock", "icons")} == {False},
    "pages[].icons[].label.visible": lambda: ({each["label"]["visible"] for each in page("stock", "icons")},
                                              {each["label"]["visible"] for each in page("looks", "icons")}) ==
                                             ({True}, {False}),
    "pages[].icons[].label.frame": lambda: all(is_frame(each["label"]["frame"]) for each in page("stock", "icons")),
    "classRows": lambda: scene("stock")["classRows"] == 6,
    "classColumns": lambda: scene("stock")["classColumns"] == 4,
    "hooks.replaced": lambda: scene("first start")["hooks"]["replaced"] == sum(
        each["outcome"] in ("replaced", "successor") for each in scene("first start")["hooks"]["rows"]) > 20,
    "hooks.added": lambda: scene("first start")["hooks"]["added"] == sum(
        each["outcome"] == "added" for each in scene("first start")["hooks"]["rows"]) > 0,
    "hooks.rows[].class": lambda: all(each["class"].startswith("SB") for each in scene("first start")["hooks"]["rows"]),
    "hooks.rows[].method": lambda: all(each["method"][0] in "+-" for each in scene("first start")["hooks"]["rows"]),
    "hooks.rows[].outcome": lambda: {each["outcome"] for each in scene("first start")["hooks"]["rows"]} <= OUTCOMES,
    "hooks.rows[].successor": lambda: all(bool(each["successor"]) == (each["outcome"] == "successor")
                                          for each in scene("first start")["hooks"]["rows"]),
    "iconSupport": lambda: (scene("first start")["iconSupport"], len(scene("supported")["iconSupport"])) == ([], 1),
    **{f"folder.{key}": lambda key=key: scene("stock")["folder"][key] == 3 for key in ("rows", "columns", "classRows")},
    **{f"folder.{key}": lambda key=key: scene("stock")["folder"][key] > 0 for key in ("verticalPadding", "horizontalPadding")},
    "dock.height": lambda: scene("stock")["dock"]["height"] == 96,
    "dock.alpha": lambda: (scene("stock")["dock"]["alpha"], scene("looks")["dock"]["alpha"]) == (1, 0),
    "dock.backgroundAlpha": lambda: scene("stock")["dock"]["backgroundAlpha"] == 1,
    "dock.maxIcons": lambda: scene("stock")["dock"]["maxIcons"] == 4,
    "dock.rows": lambda: scene("stock")["dock"]["rows"] == 1,
    "dock.visibleRows": lambda: scene("stock")["dock"]["visibleRows"] == 1,
    "dock.iconsInRow": lambda: scene("stock")["dock"]["iconsInRow"] == 4,
    "dock.spacing": lambda: "spacing" in scene("stock")["dock"],
    "dock.effectiveSpacing": lambda: "effectiveSpacing" in scene("stock")["dock"],
    "dock.verticalPadding": lambda: isinstance(scene("stock")["dock"]["verticalPadding"], (int, float)),
    "dock.horizontalPadding": lambda: isinstance(scene("stock")["dock"]["horizontalPadding"], (int, float)),
    "dock.icons": lambda: [each["name"] for each in scene("stock")["dock"]["icons"]] == ["Phone", "Browser", "Mail", "Music"],
    "pageDots.count": lambda: scene("stock")["pageDots"]["count"] == 3,
    "pageDots.drawn": lambda: (scene("stock")["pageDots"]["drawn"], scene("looks")["pageDots"]["drawn"]) == (3, 0),
    "pageDots.current": lambda: (scene("stock")["pageDots"]["current"], scene("paged")["pageDots"]["current"]) == (0, 1),
    "framing": lambda: scene("stock")["framing"] is None and is_frame(scene("stored")["framing"]),
    "panel": lambda: scene("stored")["panel"] is None,
    "panel.frame": lambda: is_frame(scene("panel")["panel"]["frame"]),
    "panel.alpha": lambda: scene("panel")["panel"]["alpha"] == 1,
    "panel.background": lambda: scene("panel")["panel"]["background"] == [250, 250, 250],
    "panel.dark": lambda: scene("panel")["panel"]["dark"] is False,
    "panel.collapsed": lambda: scene("panel")["panel"]["collapsed"] is False,
    "panel.page": lambda: scene("panel")["panel"]["page"] == 0,
    "panel.rows": lambda: scene("panel")["panel"]["rows"][ROW] == {
        "key": "vertIconPadding", "value": 21, "minimum": -20, "maximum": 100, "text": "21.0", "error": None},
    "panel.rows.error": lambda: isinstance(scene("refused")["panel"]["rows"][ROW]["error"], str),
    "panel.presets": lambda: (scene("panel")["panel"]["presets"], scene("saved")["panel"]["presets"]) == ([], ["mine"]),
    "panel.selectedRow": lambda: isinstance(scene("saved")["panel"]["selectedRow"], int),
    "panel.caption": lambda: scene("panel")["panel"]["caption"] == "No Saved Presets",
    "panel.views": lambda: scene("panel")["panel"]["views"]["class"] == "RQPopupView",
    "panel.views.class": lambda: "ColorSlider" in [each["class"] for each in trees(scene("panel")["panel"]["views"])],
    "panel.views.frame": lambda: all(is_frame(each["frame"]) for each in trees(scene("panel")["panel"]["views"])),
    "panel.views.alpha": lambda: all(0 <= each["alpha"] <= 1 for each in trees(scene("panel")["panel"]["views"])),
    "panel.views.transform": lambda: all(len(each["transform"]) == 6 for each in trees(scene("panel")["panel"]["views"])),
    "panel.views.colours": lambda: any(is_colour(each["background"], 4) for each in trees(scene("panel")["panel"]["views"])),
    "panel.views.text": lambda: ROW in [each["text"] for each in trees(scene("panel")["panel"]["views"])],
    "alert": lambda: scene("panel")["alert"] is None,
    "alert.title": lambda: isinstance(scene("naming")["alert"]["title"], str),
    "alert.message": lambda: "message" in scene("naming")["alert"],
    "alert.actions": lambda: "Add" in scene("naming")["alert"]["actions"],
    "alert.text": lambda: scene("naming")["alert"]["text"] == "mine",
    "hud": lambda: scene("panel")["hud"] is None,
    "hud.text": lambda: isinstance(scene("exported")["hud"]["text"], str),
    "hud.mode": lambda: isinstance(scene("exported")["hud"]["mode"], int),
    "hud.alpha": lambda: 0 < scene("exported")["hud"]["alpha"] <= 1,
    "preferences": lambda: scene("panel")["preferences"]["vertIconPadding"] == 21,
    "presets": lambda: scene("stock")["presets"] is None and scene("saved")["presets"]["configurations"][0]["name"] == "mine",
    "log": lambda: isinstance(scene("panel")["log"], list),
    "console": lambda: "got preferences" in "".join(scene("first start")["console"]),
    "application": lambda: (scene("stock")["application"], scene("launched")["application"]) == (None, "Maps"),
    "locked": lambda: (scene("stock")["locked"], scene("locked")["locked"]) == (False, True),
    "openedURLs": lambda: scene("stock")["openedURLs"] == [] and re.match(r"\w+[:-]", scene("opened")["openedURLs"][0]),
    "relayouts": lambda: scene("stock")["relayouts"] == [] != scene("panel")["relayouts"],
    "relayouts[].page": lambda: scene("panel")["relayouts"][0]["page"] == 0,
    "relayouts[].duration": lambda: scene("panel")["relayouts"][0]["duration"] >= 0,
    "relayouts[].call": lambda: (scene("panel")["relayouts"][0]["call"], scene("eleven")["relayouts"][0]["call"]) ==
                                ("domino", "animationType"),
    "relayouts[].at": lambda: 1 < scene("panel")["relayouts"][0]["at"] < scene("panel")["time"],
    "relayoutsLeftOut": lambda: scene("panel")["relayoutsLeftOut"] == 0,
    "time": lambda: (scene("stock")["time"], round(scene("launched")["time"], 6)) == (0, 1.05),
}


class Keys(unittest.TestCase):
    """All of them."""

    def test_tell_what_they_promise(self):
        for key, holds in CASES.items():
            with self.subTest(key):
                self.assertTrue(holds())


class Names(unittest.TestCase):
    """That the tests above are of every key that is promised, and that the program tells of them all."""

    PROMISED = ("device ios orientation loaded pages classRows classColumns hooks iconSupport folder dock pageDots framing panel "
                "alert hud preferences presets log console application openedURLs relayouts relayoutsLeftOut "
                "time").split()

    def test_every_promised_key_is_there(self):
        self.assertEqual([key for key in self.PROMISED if key not in scene("stock")], [])
        self.assertEqual([key for key in self.PROMISED if key not in listed("report")], [])

    def test_every_promised_key_has_a_test(self):
        self.assertEqual([key for key in self.PROMISED if key not in {case.split(".")[0].removesuffix("[]") for case in CASES}],
                         [])

    def test_every_key_of_the_report_is_told_of(self):
        self.assertEqual([key for key in scene("stock") if key not in listed("report")], [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
