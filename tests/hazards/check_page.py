#!/usr/bin/env python3
"""check_page.py PAGE TREE: every test that the tables of the page name is one of the tree, and every row names one."""
import pathlib
import re
import sys

page, tree = sys.argv[1], pathlib.Path(sys.argv[2])


def tests():
    """What gtest calls Suite.Name, and what ctest runs by a name that is not made up of others."""
    found = set()
    for source in tree.glob("tests/**/*.cpp"):
        for suite, name in re.findall(r"^TEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\)", source.read_text(), re.M):
            found.add(f"{suite}.{name}")
    for listing in tree.glob("tests/**/CMakeLists.txt"):
        for quoted, plain in re.findall(r'NAME (?:"([^"$]+)"|([\w.]+))\s', listing.read_text()):
            found.add(quoted or plain)
        found |= {f"fuzz.{name}" for name in re.findall(r"^add(?:_device)?_fuzzer\((\w+) ", listing.read_text(), re.M)}
    return found


known, wrong, rows = tests(), [], 0
for number, line in enumerate(open(page), 1):
    cells = [cell.strip() for cell in re.split(r"(?<!\\)\|", line)[1:-1]]
    if len(cells) != 3 or cells[2] in ("shown by", "in `script/test`", "---"):
        continue
    rows += 1
    wrong += [f"{page}:{number}: there is no '{script}'" for script in re.findall(r"`(script/[\w-]+)", line)
              if not (tree / script).exists()]
    named = re.findall("`([^`]+)`", cells[2])
    wrong += [f"{page}:{number}: there is no test '{name}'" for name in named if name not in known]
    if not named:
        wrong.append(f"{page}:{number}: names no test")
if not rows:
    wrong.append(f"{page}: has no table")
print("\n".join(wrong), end="\n" if wrong else "")
sys.exit(bool(wrong))
