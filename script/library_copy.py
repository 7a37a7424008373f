"""The copy of the tree that script/mutate works in, and the library that is built there from changed sources, with the page in
Settings, which has some of them too."""
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
# What is linked from sources of the library: itself, then the page.
LINKED = ("libTilo.so", "Tilo.bundle/Tilo")


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
    """A folder with the program of tests and a library and page of its own beside it, as the program looks for them."""

    def __init__(self, name):
        self.folder = KEPT / name
        self.sources = self.folder / "sources"
        self.tests = self.folder / "library-tests"
        shutil.rmtree(self.folder, ignore_errors=True)
        self.sources.mkdir(parents=True)
        (self.folder / LINKED[1]).parent.mkdir()
        for each in [*BUILD.iterdir(), *(BUILD / LINKED[1]).parent.iterdir()]:
            name = each.relative_to(BUILD)
            if each == KEPT or str(name) in LINKED or (self.folder / name).exists():
                continue
            # A program asks where it is itself, and a symbolic link would tell of the other folder.
            elif each.is_file():
                os.link(each, self.folder / name)
            else:
                (self.folder / name).symlink_to(each)


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
            if source.parts[0] in LIBRARY and "/Tilo.dir/" in entry["command"]:
                self.commands[source] = self.from_compiler(entry["command"].replace('\\"', '"'))
        self.link_commands, self.objects = {}, {}
        for name in LINKED:
            words = self.from_compiler(must(["ninja", "-C", BUILD, "-t", "commands", name]).splitlines()[-1])
            self.link_commands[name] = [word for word in words if not word.endswith(".cpp.o") and word not in ("&&", ":")]
            self.objects[name] = {self.source_of(word): BUILD / word for word in words if word.endswith(".cpp.o")}
        needed = must(["ninja", "-C", BUILD, "-t", "deps"])
        self.includers = collections.defaultdict(list)
        for block in needed.split("\n\n"):
            lines = block.splitlines()
            object, colon, _ = lines[0].partition(".o:") if lines else ("", "", "")
            if colon and "/Tilo.dir/" in object:
                source = self.source_of(object + ".o")
                for line in lines[1:]:
                    path = pathlib.Path(os.path.normpath(BUILD / line.strip()))
                    if path.is_relative_to(COPY) and source in self.commands:
                        self.includers[path.relative_to(COPY)].append(source)

    @staticmethod
    def from_compiler(command):
        words = command.split()
        return words[next(index for index, word in enumerate(words) if re.search(r"clang\+\+(-\d+)?$", word)):]

    @staticmethod
    def source_of(object):
        """Of an object's file, as the build names it."""
        return pathlib.Path(os.path.normpath(re.sub(r"CMakeFiles/\w+\.dir/", "", object).replace("__", "..").removesuffix(".o")))

    def compile(self, source, target, *flags, text=None, tell=False):
        """Whether it compiled; with `tell`, what was wrong, or None."""
        # What is asked for stands before what is asked for anyway: of two folders of headers, the first counts.
        words = [self.commands[source][0], *flags, *self.commands[source][1:], "-w"]
        words[words.index("-o") + 1] = str(target)
        words[words.index("-c") + 1] = str(text or COPY / source)
        done = subprocess.run(words, cwd=BUILD, capture_output=True, text=True)
        return (done.stderr if done.returncode else None) if tell else done.returncode == 0

    def link(self, folder, changed, *extra):
        """What has a changed object, of {source: object}, into the folder; whether all of it could be linked."""
        for name, objects in self.objects.items():
            target = folder / name
            target.unlink(missing_ok=True)
            if not objects.keys() & changed.keys():
                continue
            target.parent.mkdir(parents=True, exist_ok=True)
            words = list(self.link_commands[name])
            words[words.index("-o") + 1] = str(target)
            words += [str(changed.get(source, object)) for source, object in objects.items()] + [str(each) for each in extra]
            if subprocess.run(words, cwd=BUILD, capture_output=True).returncode != 0:
                return False
        return True

    @staticmethod
    def take(place, folder):
        """What is linked in the folder already, into the place, and what is not, as it stands."""
        for name in LINKED:
            (place.folder / name).unlink(missing_ok=True)
            os.link(folder / name if (folder / name).exists() else BUILD / name, place.folder / name)

    def build(self, folder, *flags, extra=()):
        """The library into the folder, with more flags than it ships with."""
        folder.mkdir()
        changed = {}
        for source in self.commands:
            changed[source] = folder / (str(source).replace("/", "_") + ".o")
            if not self.compile(source, changed[source], *flags):
                sys.exit(f"mutate: {source} does not compile as it stands")
        if not self.link(folder, changed, *extra):
            sys.exit("mutate: what notes lines cannot be linked")

    def build_combined(self, folder, path, lines, changes, left_out):
        """Into the folder a library with as many of the changes in one as go into one; the numbers of these."""
        if path not in self.commands:
            return set()
        text, chooser, target = folder / "changed.cpp", folder / "chosen_change.o", folder / "changed.o"
        folder.mkdir(exist_ok=True)
        must(["clang++-19", "-std=c++23", "-fPIC", "-c", COPY / "script/chosen_change.cpp", "-o", chooser])
        # What runs when the library is loaded comes before its constants are chosen.
        out, constants = set(left_out), not any("__attribute__((constructor))" in line for line in lines)
        for _ in range(10):
            made, whose, held = combined(lines, changes, out, constants)
            text.write_text("\n".join(made) + "\n")
            told = self.compile(path, target, "-ferror-limit=0", text=text, tell=True)
            if told is None:
                break
            # What a line of a change has wrong keeps that change out; what any other has, constants first.
            wrong = {whose[int(line) - 1] for line in re.findall(rf"{re.escape(str(text))}:(\d+):", told)} - {None}
            if not wrong and not constants:
                return set()
            constants = constants and bool(wrong)
            out |= wrong
        else:
            return set()
        return held if self.link(folder, {path: target}, chooser) else set()

    def build_changed(self, place, path, text):
        """The library with this text for the source or header `path`, into the place; false when that does not compile."""
        shutil.rmtree(place.sources)
        changed = place.sources / path
        changed.parent.mkdir(parents=True)
        changed.write_text(text)
        touched = [path] if path in self.commands else self.includers[path]
        made = {}
        for source in touched:
            made[source] = place.folder / (str(source).replace("/", "_") + ".o")
            # A changed header is found before the one that it is a change of.
            if not self.compile(source, made[source], f"-I{place.sources}", text=changed if source == path else None):
                return False
        if not self.link(place.folder, made):
            return False
        for name in LINKED:
            if not (place.folder / name).exists():
                os.link(BUILD / name, place.folder / name)
        return True
