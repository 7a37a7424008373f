"""Which test of the library comes by which line, and which to run for a change of a line."""
import array
import collections
import difflib
import hashlib
import json
import math
import os
import pathlib
import re
import shutil
import subprocess
import sys

from library_copy import BUILD, COPY, KEPT, LIBRARY, LINKED, Place, must

FOLDERS = (COPY / "tests" / "library", COPY / "tests" / "preferences")


def files_of_tests():
    return [file for folder in FOLDERS for file in folder.glob("*_test.cpp")]


def digest(paths):
    sum = hashlib.sha256()
    for path in sorted(paths):
        sum.update(path.read_bytes())
    return sum.hexdigest()[:16]


def words_of(text):
    """Names in their parts, and numbers."""
    return {word.lower() for word in re.findall(r"[A-Z]?[a-z]{2,}|[A-Z]{2,}|\d+(?:\.\d+)?", text)}


def plain(name):
    """An instance of a parametrised test is named PREFIX/SUITE.NAME/NUMBER."""
    return re.sub(r"/[^./]*$", "", re.sub(r"^[^./]*/", "", name))


def texts_of_tests():
    """{test: what its file holds, in short}, and {test: its file's name}; a test of an unknown file is in all of them."""
    texts, files = collections.defaultdict(lambda: digest(files_of_tests())), {}
    for file in files_of_tests():
        text = digest([file])
        for suite, name in re.findall(r"\bTEST(?:_F|_P)?\((\w+),\s*(\w+)\)", file.read_text()):
            texts[f"{suite}.{name}"] = text
            files[f"{suite}.{name}"] = file.stem
    return texts, files


def learn_lines(library):
    """What each test comes by and how long it takes; learnt again for the tests whose file changed."""
    texts, files = texts_of_tests()
    names = must([BUILD / "library-tests", "--list"]).split("\n")[:-1]
    current = {name: texts[plain(name)] for name in names}
    kept = KEPT / "touched.json"
    known = json.loads(kept.read_text()) if kept.exists() else {"texts": {}, "seconds": {}, "lines": {}, "sources": {}}
    follow_edits(known)
    new = [name for name in names if known["texts"].get(name) != current[name]]
    if new:
        run_noting(library, new, known)
    known["texts"] = current
    for told in (known["seconds"], known["lines"]):
        for name in set(told) - set(names):
            del told[name]
    kept.write_text(json.dumps(known))
    bodies = words_of_tests()
    known["words"] = {name: bodies.get(plain(name), set()) | words_of(name) for name in names}
    counts = collections.Counter(word for words in known["words"].values() for word in words)
    known["rarity"] = {word: math.log(len(names) / count) for word, count in counts.items()}
    known["files"] = {name: files.get(plain(name)) for name in names}
    return known


def words_of_tests():
    found = {}
    for file in files_of_tests():
        for piece in re.split(r"^(?=TEST)", file.read_text(), flags=re.MULTILINE)[1:]:
            suite, name = re.match(r"TEST(?:_F|_P)?\((\w+),\s*(\w+)\)", piece).groups()
            found[f"{suite}.{name}"] = words_of(piece)
    return found


def follow_edits(known):
    """What a test came by when a source was another, it still comes by, wherever that stands now."""
    sources = {str(path.relative_to(COPY)): path.read_text().splitlines() for folder in LIBRARY for path in (COPY / folder).rglob("*.[ch]pp")}
    for path, now in sources.items():
        before = known["sources"].get(path, now)
        if before == now:
            continue
        place = {}
        for what, begin, end, new, last in difflib.SequenceMatcher(None, before, now, autojunk=False).get_opcodes():
            for line in range(begin, end):
                place[line + 1] = (new + line - begin if what == "equal" else min(new, len(now) - 1)) + 1
        for lines in known["lines"].values():
            if path in lines:
                lines[path] = sorted({place.get(line, line) for line in lines[path]})
    known["sources"] = sources


def run_noting(library, names, known):
    place = Place("noting")
    noting = KEPT / f"noting-{digest(path for folder in LIBRARY for path in (COPY / folder).rglob('*.[ch]pp'))}"
    if not (noting / LINKED[0]).exists():
        for old in KEPT.glob("noting-*"):
            shutil.rmtree(old)
        recorder = place.folder / "touched_lines.o"
        must(["clang++-19", "-std=c++23", "-fPIC", "-fvisibility=hidden", "-O2", "-c", COPY / "script/touched_lines.cpp", "-o", recorder])
        library.build(noting, "-fsanitize-coverage=edge,trace-pc-guard", extra=[recorder])
    library.take(place, noting)
    folder, times, wanted = place.folder / "touched", place.folder / "times", place.folder / "names"
    for name in LINKED:
        (folder / pathlib.Path(name).name).mkdir(parents=True)
    wanted.write_text("\n".join(names) + "\n")
    done = subprocess.run([place.tests, "--jobs", "2", "--times", times, "--names", wanted], cwd=COPY, capture_output=True, text=True,
                          env={**os.environ, "TILO_TOUCHED": str(folder)})
    failed = set(re.findall(r"^failed: (.+)$", done.stdout, re.MULTILINE))
    for name in sorted(failed):
        print(f"mutate: {name} fails as it stands, and is left out", file=sys.stderr)
    for line in times.read_text().splitlines():
        took, name = line.split(" ", 1)
        known["seconds"][name] = float(took) / 1000
    found = {name: collections.defaultdict(set) for name in names}
    for linked in LINKED:
        for name, places in lines_touched(folder / pathlib.Path(linked).name, place.folder / linked).items():
            for path, numbers in places if name in found and name not in failed else ():
                found[name][path] |= numbers
    for name, lines in found.items():
        known["lines"][name] = {path: sorted(numbers) for path, numbers in lines.items()}
    shutil.rmtree(place.folder)


def lines_touched(folder, library):
    """{test: [(source, lines)]} of the addresses in the library that are noted in the folder."""
    touched = {}
    for file in folder.iterdir():
        places = array.array("Q")
        places.frombytes(file.read_bytes())
        touched[file.name.replace("@", "/")] = set(places)
    places = sorted(set().union(*touched.values()))
    told = subprocess.run(["llvm-symbolizer-19", "--obj=" + str(library), "--output-style=JSON", "--no-inlines"],
                          input="\n".join(hex(each - 1) for each in places), capture_output=True, text=True, cwd=COPY).stdout
    where = {}
    for each, line in zip(places, told.splitlines()):
        for symbol in json.loads(line).get("Symbol", []):
            path = pathlib.Path(os.path.normpath(BUILD / symbol["FileName"]))
            if path.is_relative_to(COPY) and path.relative_to(COPY).parts[0] in LIBRARY:
                where[each] = (str(path.relative_to(COPY)), {symbol.get("StartLine", 0), symbol["Line"]})
    return {name: [where[each] for each in each_places if each in where] for name, each_places in touched.items()}


class Choice:
    """Which tests to run for a change of a source, the likeliest to notice it first."""

    def __init__(self, known, path, outcomes, includers):
        self.lines = (COPY / path).read_text().splitlines()
        self.words = known["words"]
        self.rarity = known["rarity"]
        self.seconds = known["seconds"]
        self.texts = known["texts"]
        self.by = collections.defaultdict(set)
        for name, lines in known["lines"].items():
            for line in lines.get(str(path), ()):
                self.by[line].add(name)
        # A header of nothing but declarations has no line of its own to come by: those count that include it.
        paths = [path] if self.by else includers
        self.all = {name for name, lines in known["lines"].items() if any(str(each) in lines for each in paths)}
        self.kills = outcomes.kills(path)
        # Files of tests that are named like it, then those that name it.
        stems = {each.stem for each in paths}
        words = {word.rstrip("s") for stem in stems for word in stem.split("_") if len(word) > 3} | stems
        text = {file.stem: file.read_text() for file in files_of_tests()}
        nearness = {stem: 0 if any(word in stem for word in words) else 1 if any(each in text[stem] for each in stems) else 2
                    for stem in text}
        self.far = {name: nearness.get(file, 2) for name, file in known["files"].items()}
        # How much of what a test comes by is of this source.
        self.share = {name: sum(len(lines.get(str(each), ())) for each in paths) / (1 + sum(map(len, lines.values())))
                      for name, lines in known["lines"].items()}

    def head(self, line):
        """Where the function begins that a line is of; what stands at the margin is of none."""
        if not self.lines[line - 1].startswith(" "):
            return None
        return next((number for number in range(line, 0, -1) if re.match(r"[A-Za-z].*[({]", self.lines[number - 1])), 1)

    def about(self, first, last):
        """The words of the lines and of the function's head, and of the tests that come by; how rare they are counts."""
        return words_of(" ".join([self.lines[(self.head(first) or first) - 1], *self.lines[first - 1:last]]))

    def users(self, first):
        """Lines that name what a line at the margin gives a name."""
        names = set(re.findall(r"(\w+)(?= =|\{|\[)", self.lines[first - 1]))
        return [number for number, line in enumerate(self.lines, 1) if number != first and names & set(re.findall(r"\w+", line))]

    def tests(self, first, last):
        near, others = set(), set()
        head = self.head(first)
        for begin, place, end in [(head, first, last)] if head else [(self.head(each) or each, each, each) for each in self.users(first)]:
            noted = [line for line in self.by if begin <= line <= place]
            for line in range(max(noted, default=place), end + 1):
                near |= self.by.get(line, set())
            for line in range(begin, end + 2):
                others |= self.by.get(line, set())
        if not others:
            others = self.all

        words = self.about(first, last)

        def likelihood(name):
            said = sum(self.rarity[word] for word in words & self.words[name])
            return name not in near, self.seconds.get(name, 0) > 1, self.far[name] - said - min(self.kills[name], 6) / 2, -self.share[name]

        # Of a parametrised test one instance, and the others when all else has looked.
        found = sorted(near | others, key=likelihood)
        first = {plain(name): name for name in reversed(found)}
        return [name for name in found if first[plain(name)] == name] + [name for name in found if first[plain(name)] != name]
