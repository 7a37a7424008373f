"""Memory is refused once, at each place in turn at which files and pictures are read, made and written: a run goes wrong aloud
or does what it does otherwise, and no file is half of one.

    refused_test.py SIMULATOR REFUSING [--every N]
"""
import argparse, json, os, pathlib, subprocess, sys, tempfile
from concurrent.futures import ThreadPoolExecutor

LEAST = 16384  # bytes: smaller pieces are not of files or pictures
PRESETS = '{"configurations":[{"name":"one","value":0,"configurable":1,"configuration":{' \
          '"horizontal_padding":1,"vertical_padding":2,"side_inset":3,"top_inset":4}}]}'
STORY = """swipe up
wait 1
increment "Horizontal Padding" 3
tap "Add"
wait 1
enter "Airy"
choose "Add"
wait 1
snapshot {folder}/panel.png
home
wait 1
"""

given = argparse.ArgumentParser()
given.add_argument("simulator", type=pathlib.Path)
given.add_argument("refusing", type=pathlib.Path)
given.add_argument("--every", type=int, default=1)
given = given.parse_args()


class Run:
    def __init__(self, folder: pathlib.Path, place: int):
        self.place = place
        folder.mkdir()
        (folder / "story").write_text(STORY.format(folder=folder))
        (folder / "presets").write_text(PRESETS)
        settings = ["enabled=YES", "quick=YES", "custom_preset=-1", "horiIconPadding=20"]
        ended = subprocess.run(
            [given.simulator.resolve(), "--root", folder / "root", "--presets", folder / "presets", "--script", folder / "story",
             "--snapshot", folder / "end.png", "--report", folder / "report"] + [w for s in settings for w in ("--set", s)],
            env=os.environ | {"LD_PRELOAD": str(given.refusing.resolve()), "LEAST": str(LEAST), "PLACE": str(place),
                              "COUNTS": str(folder / "counts")},
            capture_output=True, text=True, errors="replace", timeout=120)
        self.status, self.said = ended.returncode, ended.stderr
        self.made = {name: self.read(folder / name) for name in ("panel.png", "end.png", "report")}
        layouts = folder / "root/var/mobile/Documents/com.wexor.tilo3/custom/config.json"
        self.layouts = [each["name"] for each in json.loads(layouts.read_text())["configurations"]] if layouts.exists() else None
        self.counts = self.read(folder / "counts")

    @staticmethod
    def read(file: pathlib.Path):
        return file.read_bytes().replace(str(file.parent).encode(), b"") if file.exists() else None

    def faults(self, well):
        if self.status == 0 and not self.said and self.made != well.made:
            other = [name for name in self.made if self.made[name] != well.made[name]]
            yield f"says nothing and makes another {', '.join(other)}"
        if self.status and not self.said.strip():
            yield f"ends with {self.status} and says nothing"
        if self.layouts not in (None, ["one"], ["one", "Airy"]) or (self.layouts is None and self.status == 0):
            yield f"leaves the layouts {self.layouts}"


with tempfile.TemporaryDirectory() as folder:
    folder = pathlib.Path(folder)
    well = Run(folder / "well", 0)
    assert well.status == 0 and not well.said and well.layouts == ["one", "Airy"], (well.status, well.said, well.layouts)
    places = max(int(count) for count in well.counts.split())
    assert places > 100, places
    with ThreadPoolExecutor(os.cpu_count()) as hands:
        runs = list(hands.map(lambda place: Run(folder / str(place), place), range(1, places + 1, given.every)))
wrong = [f"place {run.place}: {fault}" for run in runs for fault in run.faults(well)]
ends = [run.status for run in runs]
print(f"{len(runs)} of {places} places: {ends.count(0)} runs came to their end, {len(ends) - ends.count(0)} said why not")
print("\n".join(wrong))
sys.exit(bool(wrong))
