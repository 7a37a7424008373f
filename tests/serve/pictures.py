#!/usr/bin/env python3
"""The pictures of the page in docs/pictures: taken in a real browser, light and dark, and on a phone's.

    pictures.py PROGRAM FOLDER
"""
import os
import sys

from support import Browser, Served, eventually

PROGRAM, FOLDER = sys.argv[1:3]
SETTINGS = [word for setting in ("enabled=YES", "quick=YES", "icons=YES", "rows=5", "columns=5", "custom_preset=-1",
                                 "labels=YES", "page=YES",
                                 "vertIconPadding=22", "horiIconPadding=12", "sideIconInset=13", "topIconInset=34")
            for word in ("--set", setting)]


class Page:
    def __init__(self, served, size, dark=False, phone=False):
        self.browser = Browser(size)
        self.browser.command("Emulation.setEmulatedMedia",
                             features=[{"name": "prefers-color-scheme", "value": "dark" if dark else "light"}])
        if phone:
            self.browser.command("Emulation.setDeviceMetricsOverride", width=size[0], height=size[1],
                                 deviceScaleFactor=2, mobile=True)
        self.browser.open(served.address)
        eventually(lambda: self.browser.run("return document.getElementById('screen').width > 1"), "a frame")
        eventually(lambda: self.browser.run("return document.querySelectorAll('#rows label').length > 15"), "the settings")

    def __enter__(self):
        return self.browser.__enter__() and self

    def __exit__(self, *_):
        self.browser.__exit__()

    def do(self, *steps):
        for step in steps:
            self.browser.run("await tilo.step(args[0])", step)

    def press(self, selector):
        self.browser.run("document.querySelector(args[0]).click()", selector)

    def take(self, name):
        self.do("wait 1")  # until what is still is shown exactly
        self.browser.run("await new Promise((resolve) => setTimeout(resolve, 1500))")
        self.browser.screenshot(os.path.join(FOLDER, name))


def panel(page):
    page.do("swipe up", "wait 0.6")
    page.take("page.png")


def inspector(page, name):
    page.press("[aria-controls=inspector]")
    eventually(lambda: page.browser.run("return document.querySelectorAll('#tree > *').length > 5"), "the tree")
    page.press("#point")
    left, top = page.browser.run("""
        const box = document.getElementById('screen').getBoundingClientRect();
        const [x, y, width, height] = (await tilo.report()).pages[0].icons[6].frame;
        return [box.left + x + width / 2, box.top + y + height / 2];""")
    at = {"x": round(left), "y": round(top)}
    page.browser.act({"type": "pointerMove", **at}, {"type": "pointerDown", "button": 0}, {"type": "pointerUp", "button": 0})
    eventually(lambda: page.browser.run("return document.querySelector('#facts table') !== null"), "the answers")
    page.take(name)


def compare(page):
    page.press("#compare")
    eventually(lambda: page.browser.run("return document.querySelectorAll('canvas')[1]?.width > 1"), "the second")
    page.take("page-compare.png")


def console(page):
    page.press("[aria-controls=console]")
    page.do("swipe up", "wait 0.6", 'increment "Side Inset" 2')
    rows = "await tilo.report(); return document.getElementById('calls').rows.length > 5"
    eventually(lambda: page.browser.run(rows), "calls")
    page.browser.screenshot(os.path.join(FOLDER, "page-console.png"))
    page.do('tap "close"')


def main():
    with Served(PROGRAM, *SETTINGS) as served:
        with Page(served, (1360, 1000)) as page:
            panel(page)
            page.do('tap "close"')
            inspector(page, "page-inspector.png")
        with Page(served, (1360, 1000), dark=True) as page:
            inspector(page, "page-dark.png")
        with Page(served, (1360, 1000)) as page:
            compare(page)
        with Page(served, (1360, 1000)) as page:
            console(page)
        with Page(served, (390, 844), phone=True) as page:
            page.take("page-phone.png")


if __name__ == "__main__":
    main()
