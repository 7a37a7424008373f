"""Running the program, and what every table of the contract's tests wants."""
import json
import os
import subprocess
import sys
import tempfile

PROGRAM = os.path.realpath(sys.argv[1])
BUILD = os.path.dirname(PROGRAM)
OURS = os.path.join(BUILD, "libTilo.so")


def run(*options, script="", folder=None):
    """Status, standard output and standard error."""
    done = subprocess.run([PROGRAM, *options], input=script, capture_output=True, text=True, cwd=folder, check=False)
    return done.returncode, done.stdout, done.stderr


def report(*options, script=None):
    """The report at the end of a run that goes well."""
    status, output, errors = run(*options, *(["--script", "-"] if script else []), "--report", "-", script=script or "")
    assert (status, errors) == (0, ""), errors
    return json.loads(output)


def reports(lines, *options):
    """The reports that a script's steps "report" write, and the one at the end."""
    with tempfile.TemporaryDirectory() as folder:
        numbered = [f"report {folder}/{i}.json" if line == "report" else line for i, line in enumerate(lines)]
        last = report(*options, script="\n".join(numbered) + "\n")
        written = [os.path.join(folder, f"{i}.json") for i, line in enumerate(lines) if line == "report"]
        every = []
        for file in written:
            with open(file, encoding="utf-8") as source:
                every.append(json.load(source))
        return every + [last]


def settings(**values):
    """As options."""
    return [word for key, value in values.items() for word in ("--set", f"{key}={value}")]


def listed(what):
    """The first words of the rows that `--list-what` prints."""
    status, output, _ = run("--list-" + what)
    assert status == 0
    names = []
    for line in output.splitlines():
        for usage in line.split(" | ")[0].lstrip("| ").split("`, `"):
            names.append(usage.strip("` ").split(" ")[0])
    return list(dict.fromkeys(names))


# The library's panel can be opened, and its icons follow what is stored.
PANEL = settings(enabled="YES", icons="YES", quick="YES", custom_preset="-1", vertIconPadding=20, horiIconPadding=10,
                 sideIconInset=20, topIconInset=30)
OPEN = ["swipe up", "wait 1"]
