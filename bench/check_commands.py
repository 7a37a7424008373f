#!/usr/bin/env python3
"""check_commands.py PAGE TREE BUILD: every command of the page's `sh` blocks works, in its short form: programs run
once, benchmarks are there, and a script is run by a test of its own."""
import pathlib
import re
import shlex
import subprocess
import sys

page, tree, build = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
once = {"tilo-compare": ["1"], "tilo-load": ["1"]}
listings = "".join(each.read_text() for each in (*tree.glob("bench/CMakeLists.txt"), *tree.glob("tests/**/CMakeLists.txt")))


def place(name):
    """Where what the page calls build/x or script/x lies."""
    return build / name.removeprefix("build/") if name.startswith("build/") else tree / name


def output(program, arguments):
    done = subprocess.run([program, *arguments], capture_output=True, text=True)
    if done.returncode:
        raise ValueError(f"'{program.name}' ends with {done.returncode}: {(done.stderr or done.stdout).strip()}")
    return done.stdout


def check_benchmarks(program, arguments):
    names = output(program, [*arguments, "--benchmark_list_tests=true"])
    for argument in arguments:
        if not argument.startswith("--benchmark_filter="):
            continue
        for part in argument.split("=", 1)[1].split("|"):
            if not re.search(part, names, re.M):
                raise ValueError(f"no benchmark is called '{part}'")


def check(command):
    words = shlex.split(command, comments=True)
    # What looks on while it runs is not ours.
    if words[:2] == ["perf", "report"]:
        return
    if words[:2] == ["perf", "record"]:
        words = words[2:]
        while words[0].startswith("-"):
            words.pop(0)
    while "=" in words[0]:
        name, _, value = words.pop(0).partition("=")
        if name == "LD_PRELOAD" and not place(value).exists():
            raise ValueError(f"there is no '{value}'")
    program = place(words[0])
    if not program.exists():
        raise ValueError(f"there is no '{words[0]}'")
    if program.name == "tilo-bench":
        check_benchmarks(program, words[1:])
    elif program.name in once:
        output(program, once[program.name])
    elif f"/{words[0]}" not in listings:
        raise ValueError(f"no test runs '{words[0]}'")


wrong, checked, inside = [], 0, False
for number, line in enumerate(open(page), 1):
    if line.startswith("```"):
        inside = line.strip() == "```sh"
        continue
    for command in line.split("&&") if inside and line.strip() else []:
        checked += 1
        try:
            check(command)
        except ValueError as error:
            wrong.append(f"{page}:{number}: {error}")
if not checked:
    wrong.append(f"{page}: has no commands")
print("\n".join(wrong), end="\n" if wrong else "")
sys.exit(bool(wrong))
