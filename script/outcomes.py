"""What script/mutate found out about each change, kept from run to run."""
import collections
import hashlib
import json
import os
import re
import subprocess
import threading
import time

from library_copy import COPY, KEPT

FILE = KEPT / "outcomes.json"


def keys_of(path, lines, changes):
    """The changes, and what each is known by: what it is and the code around it, wherever in the source that stands."""
    changes = list(changes)
    seen = collections.Counter()
    keys = []
    for first, last, what, changed in changes:
        around = "\n".join(lines[max(first - 4, 0):last + 3])
        key = f"{path}: {what}: " + hashlib.sha256(around.encode() + str(len(changed) - len(lines)).encode()).hexdigest()[:16]
        seen[key] += 1
        keys.append(f"{key} {seen[key]}")
    return changes, keys


class Outcomes:
    def __init__(self):
        self.all = json.loads(FILE.read_text()) if FILE.exists() else {}
        self.guard = threading.Lock()
        self.written = time.monotonic()

    def kills(self, path):
        """How many changes of a source each test has noticed."""
        return collections.Counter(each["by"] for key, each in self.all.items() if key.startswith(f"{path}: ") and "by" in each)

    def known(self, key):
        return self.all.get(key, {}).get("result", "not tried")

    def pending(self, key, choice, tests):
        """The tests that have to look for a change, none for one that is only compiled; None when what was found holds still."""
        before = self.all.get(key, {})
        if before.get("result") == "does not compile":
            return None
        if before.get("result") == "killed" and choice.texts.get(before["by"]) == before["text"]:
            return None
        tried = before.get("tried", {})
        new = [name for name in tests if tried.get(name) != choice.texts[name]]
        if new:
            return new
        if "result" not in before or before["result"] == "killed":
            return []
        return None

    def find(self, key, library, place, path, text, number, choice, tests):
        """Runs them over the change, which the place's library holds under its number where it has one."""
        if number is None and not library.build_changed(place, path, text):
            kept = {"result": "does not compile"}
        elif not tests:
            kept = {"result": "no test comes by"}
        else:
            by = self.noticed(place, tests, choice, number)
            tried = self.all.get(key, {}).get("tried", {}) | {name: choice.texts[name] for name in tests}
            kept = {"result": "killed", "by": by, "text": choice.texts[by]} if by else {"result": "survives", "tried": tried}
        self.keep(key, kept, choice)

    def keep(self, key, kept, choice):
        with self.guard:
            if kept["result"] == "killed":
                choice.kills[kept["by"]] += 1
            self.all[key] = kept
            if time.monotonic() - self.written > 10:
                self.write()

    def note(self, key, kept):
        """Of a change of what is no source of the library."""
        self.all[key] = kept
        if time.monotonic() - self.written > 10:
            self.write()

    def holds(self, key, stands):
        """Whether it was found with the tests as they stand, or by any when it was noticed."""
        before = self.all.get(key, {})
        return before.get("result") in ("does not compile", "killed") or before.get("text") == stands

    def write(self):
        self.written = time.monotonic()
        FILE.with_suffix(".new").write_text(json.dumps(self.all, indent=0))
        FILE.with_suffix(".new").replace(FILE)

    @staticmethod
    def noticed(place, tests, choice, number):
        """The first of the tests that fails; none when none does."""
        names = place.folder / "names"
        names.write_text("\n".join(tests) + "\n")
        # What goes on for ever, or takes all memory, is noticed by that.
        seconds = 5 + int(2 * max(choice.seconds[name] for name in tests))
        done = subprocess.run(["prlimit", f"--cpu={seconds}", f"--as={4 << 30}", place.tests, "--jobs", "1", "--names", names, "--gtest_fail_fast"], cwd=COPY, capture_output=True, text=True,
                              errors="replace",
                              env={**os.environ, "TILO_CHANGE": str(number or 0)})
        if done.returncode == 0:
            return None
        found = re.findall(r"^failed: (.+)$", done.stdout, re.MULTILINE)
        if not found:
            raise RuntimeError(f"the tests did not run: {done.stderr[-500:]}")
        return found[0]
