"""Changes of what is no source of the library: for each, programs are built again and run, each up to the first test that fails."""
import re
import subprocess
import sys
import time

from library_copy import COPY, KEPT
from touched_tests import digest

LOADER, SIGNATURE = "*Loader*:*LoadedPointers*", "*Signature*"
# Where a source is, the preset and what of it is built, the program of tests, which of its tests, and the tests' sources.
PROGRAMS = [
    ("device/signature/", "device", ["image-tests", "sign", "verify"], "image-tests", SIGNATURE, "tests/device"),
    # The others of this folder are the slices' simulators' alone.
    *((f"device/loader/{name}.cpp", "device", ["image-tests"], "image-tests", tests, "tests/device")
      for name, tests in [("arm64/frames", "FrameDescriptions*:UnwindTables*"), ("armv7/words", "WordsOfACall*"), ("layout", LOADER),
                          ("memory", LOADER), ("process", LOADER)]),
    ("simulator/appsupport/", "sanitize", ["appsupport-tests"], "appsupport-tests", "-*ARestoration*:*TravellingSettings*:*SettingsTool*", "tests/simulator/appsupport"),
]
FOLDERS = {"device": COPY / "build", "sanitize": COPY / "build" / "sanitize"}


def program_of(path):
    return next((program for program in PROGRAMS if str(path).startswith(program[0])), None)


class Program:
    """One that is built in the copy of the tree."""

    def __init__(self, path):
        _, preset, self.targets, self.name, self.tests, sources = program_of(path)
        self.folder = FOLDERS[preset]
        KEPT.mkdir(parents=True, exist_ok=True)
        self.path, self.text = COPY / path, (COPY / path).read_text()
        self.stands = f"{self.name} {digest((COPY / sources).rglob('*_test.cpp'))}"
        if not (self.folder / "build.ninja").exists():
            subprocess.run(["cmake", "--preset", preset], cwd=COPY, check=True, stdout=subprocess.DEVNULL)
        begun = time.monotonic()
        if not self.build() or self.failed(None):
            print(f"mutate: {self.name} does not stand as it is", file=sys.stderr)
            sys.exit(2)
        self.seconds = 30 + 5 * (time.monotonic() - begun)

    def build(self):
        command = ["ninja", "-C", self.folder, "-j2", *self.targets]
        return subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0

    def failed(self, seconds):
        """The first test that fails; none when none does."""
        command = [self.folder / self.name, "--jobs", "2", f"--gtest_filter={self.tests}", "--gtest_fail_fast"]
        try:
            done = subprocess.run(command, cwd=self.folder, capture_output=True, text=True, errors="replace", timeout=seconds)
        except subprocess.TimeoutExpired:
            return "its time"
        found = re.findall(r"^failed: (.+)$", done.stdout, re.MULTILINE)
        return None if done.returncode == 0 else found[0] if found else "its end"

    def find(self, changes, outcomes):
        try:
            for _, _, _, changed, key in changes:
                if outcomes.holds(key, self.stands):
                    continue
                self.path.write_text("\n".join(changed) + "\n")
                if not self.build():
                    outcomes.note(key, {"result": "does not compile"})
                elif by := self.failed(self.seconds):
                    outcomes.note(key, {"result": "killed", "by": by, "text": self.stands})
                else:
                    outcomes.note(key, {"result": "survives", "text": self.stands})
        finally:
            self.path.write_text(self.text)
            outcomes.write()
