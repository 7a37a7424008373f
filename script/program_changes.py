"""Changes of what is no source of the library: programs of tests are built with many of them at once, of which each takes the one that
the environment names, and for each of the others again; the tests run up to the first that fails. What only a slice's processor runs is
built for that, and run by its emulator, which hands the environment on."""
import os
import re
import subprocess
import sys

from combined import combined
from library_copy import COPY, KEPT
from touched_tests import digest

LOADER, SIGNATURE = "*Loader*:*LoadedPointers*", "*Signature*"
# Where a source is, the preset and what of it is built, the program of tests, which of its tests, and the tests' sources.
PROGRAMS = [
    ("device/signature/", "device", ["image-tests", "sign", "verify"], "image-tests", SIGNATURE, "tests/device"),
    *((f"device/loader/{name}.cpp", "device", ["image-tests"], "image-tests", tests, "tests/device")
      for name, tests in [("arm64/frames", "FrameDescriptions*:UnwindTables*"), ("armv7/words", "WordsOfACall*"), ("layout", LOADER),
                          ("memory", LOADER), ("process", LOADER), ("pages", f"{LOADER}:Pages*"), ("constant_string", "ConstantString*"),
                          ("imports", "Imports*:Symbols*"), ("methods", "Methods*:Thunks*"), ("names", "*FunctionNames*"),
                          ("trail", "Frames*:Calls*:Place*")]),
    # The rest is the slices' simulators' alone; what both have is tried on the first.
    ("device/loader/armv7/", "armv7", ["loader-tests"], "loader-tests", "*", "tests/loader"),
    ("device/loader/", "arm64", ["loader-tests"], "loader-tests", "*", "tests/loader"),
    # The others of this folder are the server's.
    *((f"simulator/serve/{name}.cpp", "sanitize", ["serve-tests"], "serve-tests", tests, "tests/simulator/serve")
      for name, tests in [("envelope", "AnEnvelope*"), ("frame", "Tiles*:Frame.*:AViewer*"), ("live_home", "-AnEnvelope*:Tiles*:Frame.*:AViewer*:DrawnFrames*:AFinger.*"),
                          ("page_fingers", "AFinger*"), ("viewer", "AViewer*:DrawnFrames*")]),
    ("simulator/appsupport/", "sanitize", ["appsupport-tests"], "appsupport-tests", "-*ARestoration*:*TravellingSettings*:*SettingsTool*", "tests/simulator/appsupport"),
]
FOLDERS = {"device": COPY / "build", **{name: COPY / "build" / name for name in ("sanitize", "arm64", "armv7")}}
SLICES = ("arm64", "armv7")


def program_of(path):
    return next((program for program in PROGRAMS if str(path).startswith(program[0])), None)


class Program:
    """One that is built in the copy of the tree."""

    def __init__(self, path):
        _, preset, self.targets, self.name, self.tests, sources = program_of(path)
        self.folder = FOLDERS[preset]
        self.run = [COPY / "device/linux/run", preset] if preset in SLICES else []
        KEPT.mkdir(parents=True, exist_ok=True)
        self.path, self.text = COPY / path, (COPY / path).read_text()
        self.stands = f"{self.name} {digest((COPY / sources).rglob('*_test.cpp'))}"
        # A slice's program loads the slices.
        for each, needed in ([("device", ["device_library", "device_pane"])] if self.run else []) + [(preset, [])]:
            if not (FOLDERS[each] / "build.ninja").exists():
                subprocess.run(["cmake", "--preset", each], cwd=COPY, check=True, stdout=subprocess.DEVNULL)
            if needed:
                subprocess.run(["ninja", "-C", FOLDERS[each], "-j2", *needed], check=True, stdout=subprocess.DEVNULL)
        self.names, times = KEPT / "names", KEPT / "times"
        if self.build() is not None or self.failed(f"--gtest_filter={self.tests}", "--times", times):
            print(f"mutate: {self.name} does not stand as it is", file=sys.stderr)
            sys.exit(2)
        # The shortest first: most changes are noticed by any of many.
        taken = sorted((float(line.split(" ")[0]), line.split(" ", 1)[1]) for line in times.read_text().splitlines())
        self.names.write_text("".join(f"{name}\n" for _, name in taken))
        self.seconds = 30 + sum(each for each, _ in taken) / 200

    def build(self):
        """What was wrong, or None."""
        command = ["ninja", "-C", self.folder, "-j2", *self.targets]
        done = subprocess.run(command, capture_output=True, text=True, errors="replace")
        return done.stdout if done.returncode else None

    def build_combined(self, lines, changes, wanted):
        """With as many of the wanted changes in one as go into one; the numbers of these."""
        out, constants = set(range(len(changes))) - wanted, True
        quiet = "#pragma clang diagnostic ignored \"-Weverything\""
        chooser = (COPY / "script/chosen_change.cpp").read_text()
        for _ in range(20):
            made, whose, held = combined(lines, changes, out, constants)
            self.path.write_text("\n".join([quiet, *made, chooser]))
            told = self.build()
            if told is None:
                return held
            # What a line of a change has wrong keeps that change out; what any other has, constants first.
            found = [int(line) - 2 for line in re.findall(rf"{re.escape(str(self.path))}:(\d+):\d+: (?:fatal )?error", told)]
            wrong = {whose[line] for line in found if line < len(whose)} - {None}
            if not wrong and not constants:
                return set()
            constants = constants and bool(wrong)
            out |= wrong
        return set()

    def failed(self, *which, number=0, seconds=None):
        """The first of these tests that fails with a change; none when none does."""
        # The time of all of them ends the emulator, and none of the processes that it has started.
        limit = ["--limit", "30"] if self.run else []
        command = [*self.run, self.folder / self.name, *limit, "--jobs", "2", "--gtest_fail_fast", *which]
        try:
            done = subprocess.run(command, cwd=self.folder, capture_output=True, text=True, errors="replace", timeout=seconds,
                                  env={**os.environ, "TILO_CHANGE": str(number)})
        except subprocess.TimeoutExpired:
            return "its time"
        found = re.findall(r"^failed: (.+)$", done.stdout, re.MULTILINE)
        return None if done.returncode == 0 else found[0] if found else "its end"

    def note(self, outcomes, key, number=0):
        by = self.failed("--names", self.names, number=number, seconds=self.seconds)
        outcomes.note(key, {"result": "killed", "by": by, "text": self.stands} if by else {"result": "survives", "text": self.stands})

    def find(self, changes, outcomes):
        wanted = {number for number, change in enumerate(changes) if not outcomes.holds(change[4], self.stands)}
        held = set()
        try:
            if len(wanted) > 2:
                held = self.build_combined(self.text.splitlines(), [each[:4] for each in changes], wanted)
            if held and self.failed("--names", self.names):
                held = set()  # together they are not what the source was
            for number in sorted(held):
                self.note(outcomes, changes[number][4], number + 1)
            for number in sorted(wanted - held):
                self.path.write_text("\n".join(changes[number][3]) + "\n")
                if self.build() is None:
                    self.note(outcomes, changes[number][4])
                else:
                    outcomes.note(changes[number][4], {"result": "does not compile"})
        finally:
            self.path.write_text(self.text)
            outcomes.write()
