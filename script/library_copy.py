"""The copy of the tree that script/mutate works in, and the library that is built there from changed sources."""
import collections
import fcntl
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys

from combined import combined

ROOT = pathlib.Path(__file__).resolve().parent.parent
COPY = ROOT / "build" / "mutate"
BUILD = COPY / "build" / "changes"
KEPT = BUILD / "objects"
LIBRARY = ("startup", "hooks", "settings", "panel", "controls")


def must(command):
    words = [str(word) for word in command]
    done = subprocess.run(words, cwd=COPY, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if done.returncode != 0:
        print(done.stdout[-4000:], file=sys.stderr)
        print(f"mutate: failed: {' '.join(words)[:200]}", file=sys.stderr)
        sys.exit(2)
    return done.stdout


def copy_tree():
    """Brings the copy up to date; holds it until the file that is returned is closed."""
    COPY.mkdir(parents=True, exist_ok=True)
    held = open(COPY / ".lock", "w")
    try:
        fcntl.flock(held, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except OSError:
        print("mutate: another one works in build/mutate/", file=sys.stderr)
        sys.exit(2)
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "-z"], cwd=ROOT, check=True, capture_output=True)
    wanted = {pathlib.Path(name) for name in listed.stdout.decode().split("\0") if name and (ROOT / name).is_file()}
    present = {path.relative_to(COPY) for path in COPY.rglob("*") if path.is_file() and path.name != ".lock" and BUILD.parent not in path.parents}
    for path in present - wanted:
        (COPY / path).unlink()
    for path in wanted:
        # What is as it was keeps its date, so that it is not compiled again.
        if path not in present or (COPY / path).read_bytes() != (ROOT / path).read_bytes():
            (COPY / path).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(ROOT / path, COPY / path)
    return held


class Place:
    """A folder with the program of tests and a library of its own beside it, as the program looks for it."""

    def __init__(self, name):
        self.folder = KEPT / name
        self.sources = self.folder / "sources"
        self.library = self.folder / "libTilo.so"
        self.tests = self.folder / "library-tests"
        shutil.rmtree(self.folder, ignore_errors=True)
        self.sources.mkdir(parents=True)
        for each in BUILD.iterdir():
            if each == KEPT or each.name == self.library.name:
                continue
            # A program asks where it is itself, and a symbolic link would tell of the other folder.
            elif each.is_file():
                os.link(each, self.folder / each.name)
            else:
                (self.folder / each.name).symlink_to(each)


class Library:
    """The library's objects, and what links them."""

    def __init__(self):
        if not (BUILD / "build.ninja").exists():
            must(["cmake", "--preset", "changes"])
        must(["ninja", "-C", BUILD, "-j2", "tilo-sim", "library-tests"])
        KEPT.mkdir(exist_ok=True)
        self.commands = {}
        for entry in json.loads((BUILD / "compile_commands.json").read_text()):
            source = pathlib.Path(entry["file"]).relative_to(COPY)
            if source.parts[0] in LIBRARY:
                words = entry["command"].split()
                start = next(index for index, word in enumerate(words) if re.search(r"clang\+\+(-\d+)?$", word))
                self.commands[source] = [word.replace('\\"', '"') for word in words[start:]]
        link = must(["ninja", "-C", BUILD, "-t", "commands", "libTilo.so"]).splitlines()[-1].split()
        start = next(index for index, word in enumerate(link) if re.search(r"clang\+\+(-\d+)?$", word))
        self.link_command = [word for word in link[start:] if not word.endswith(".cpp.o") and word not in ("&&", ":")]
        needed = must(["ninja", "-C", BUILD, "-t", "deps"])
        self.includers = collections.defaultdict(list)
        for block in needed.split("\n\n"):
            lines = block.splitlines()
            found = re.match(r"startup/CMakeFiles/Tilo\.dir/(.+)\.o:", lines[0]) if lines else None
            if found:
                source = pathlib.Path(os.path.normpath("startup/" + found.group(1).replace("__", "..")))
                for line in lines[1:]:
                    path = pathlib.Path(os.path.normpath(BUILD / line.strip()))
                    if path.is_relative_to(COPY) and source in self.commands:
                        self.includers[path.relative_to(COPY)].append(source)

    def compile(self, source, target, *flags, text=None, tell=False):
        """Whether it compiled; with `tell`, what was wrong, or None."""
        # What is asked for stands before what is asked for anyway: of two folders of headers, the first counts.
        words = [self.commands[source][0], *flags, *self.commands[source][1:], "-w"]
        words[words.index("-o") + 1] = str(target)
        words[words.index("-c") + 1] = str(text or COPY / source)
        done = subprocess.run(words, cwd=BUILD, capture_output=True, text=True)
        return (done.stderr if done.returncode else None) if tell else done.returncode == 0

    def link(self, objects, target):
        words = list(self.link_command)
        words[words.index("-o") + 1] = str(target)
        return subprocess.run(words + [str(each) for each in objects], cwd=BUILD, capture_output=True).returncode == 0

    @staticmethod
    def take(place, library):
        """One that is built already, into the place."""
        place.library.unlink(missing_ok=True)
        os.link(library, place.library)

    def build(self, place, *flags, extra=()):
        """All of it, into the place, with more flags than it ships with."""
        objects = []
        for source in self.commands:
            objects.append(place.folder / (str(source).replace("/", "_") + ".o"))
            if not self.compile(source, objects[-1], *flags):
                sys.exit(f"mutate: {source} does not compile as it stands")
        self.link([*objects, *extra], place.library)

    def build_combined(self, folder, path, lines, changes, left_out):
        """A library with as many of the changes in one as go into one, and the numbers of these."""
        if path not in self.commands:
            return None, set()
        text, objects = folder / "changed.cpp", []
        chooser, target, library = folder / "chosen_change.o", folder / "changed.o", folder / "combined.so"
        folder.mkdir(exist_ok=True)
        must(["clang++-19", "-std=c++23", "-fPIC", "-c", COPY / "script/chosen_change.cpp", "-o", chooser])
        out, constants = set(left_out), True
        for _ in range(10):
            made, whose, held = combined(lines, changes, out, constants)
            text.write_text("\n".join(made) + "\n")
            told = self.compile(path, target, "-ferror-limit=0", text=text, tell=True)
            if told is None:
                break
            # What a line of a change has wrong keeps that change out; what any other has, constants first.
            wrong = {whose[int(line) - 1] for line in re.findall(rf"{re.escape(str(text))}:(\d+):", told)} - {None}
            if not wrong and not constants:
                return None, set()
            constants = constants and bool(wrong)
            out |= wrong
        else:
            return None, set()
        for source, words in self.commands.items():
            objects.append(target if source == path else BUILD / words[words.index("-o") + 1])
        library.unlink(missing_ok=True)
        return (library, held) if self.link([*objects, chooser], library) else (None, set())

    def build_changed(self, place, path, text):
        """The library with this text for the source or header `path`, into the place; false when that does not compile."""
        shutil.rmtree(place.sources)
        changed = place.sources / path
        changed.parent.mkdir(parents=True)
        changed.write_text(text)
        touched = [path] if path in self.commands else self.includers[path]
        objects = []
        for source, words in self.commands.items():
            if source not in touched:
                objects.append(BUILD / words[words.index("-o") + 1])
                continue
            objects.append(place.folder / (str(source).replace("/", "_") + ".o"))
            # A changed header is found before the one that it is a change of.
            if not self.compile(source, objects[-1], f"-I{place.sources}", text=changed if source == path else None):
                return False
        place.library.unlink(missing_ok=True)
        return self.link(objects, place.library)
