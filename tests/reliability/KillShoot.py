#!/usr/bin/env python3
"""Kills Marquill with SIGKILL at random moments of a shoot, and looks whether anything was lost.

    tests/reliability/KillShoot.py PROGRAM PLUGINS [--kills 1000] [--seed 1] [--lanes 2]

An operator made of random numbers records takes, fires markers, edits, renames, deletes, takes back, connects and
quits, in the real program without a screen. After each kill the program is started again, as it would be, and the
files are compared with what the operator knows. Nothing may be unreadable, lost or doubled; a marker or a take's
start may be younger than 100 ms. A shoot goes on over 25 kills in one folder. Ends with 0 when nothing was wrong.
"""
import argparse
import collections
import hashlib
import multiprocessing
import os
import pathlib
import plistlib
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time

from driven_program import Ended, Program, TimeIsUp
from operator_at_work import BUTTONS, Operator
from shoot_ledger import GRACE, Clip, differences, display_name, read_clip, settle

KILLS_PER_SHOOT = 25
SHARE_OF_REQUESTS = 0.1  # of all ends; by SIGTERM
# How soon after the decisive key of an operation it is killed, in seconds at most.
BUSY_MOMENTS = {"start": 0.03, "marker": 0.16, "stop": 0.03, "rate": 0.02, "comment": 0.04, "rename": 0.04,
                "delete": 0.03, "take back": 0.04, "connect": 0.12, "disconnect": 0.03, "quit": 0.15}


class Shoot:
    def __init__(self, arguments, seed):
        self.arguments = arguments
        self.random = random.Random(seed)
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="marquill-kills-"))
        self.folder, self.trash = self.home / "Day 1", self.home / "Day 1" / "Trash"
        self.settings = self.home / "config" / "marquill" / "settings.plist"
        self.journals = self.home / "state" / "marquill" / "takes"
        self.clips = {}  # by scene
        self.counts = collections.Counter()
        self.program = None
        self.prepare()

    def prepare(self):
        self.folder.mkdir()
        shutil.copytree(self.arguments.media, self.home / "media")
        for number in (1, 2):
            shutil.copy(self.arguments.media / "own.mov", self.folder / f"Own#{number:02d}.mov")
            record = {"clipScene": f"M{number}", "clipName": "", "clipDuration": 0}
            append_record(self.folder / f"Own#{number:02d}.mov", plistlib.dumps(record))
            self.clips[f"M{number}"] = Clip(f"M{number}", "Own")
        name = self.random.choice(["Clip", "Harbour Wide", "Ferry & <Gulls>"])
        self.settings.parent.mkdir(parents=True)
        self.settings.write_bytes(plistlib.dumps({
            "ClipManagerSettings": {"kRecordFolderArray": [{"folderPath": str(self.folder), "folderName": "Day 1"}],
                                    "kRecordFolderPath": str(self.folder), "kWindVisible": True, "kWindExpanded": True,
                                    "kWindPosX": 10.0, "kWindPosY": 10.0, "kWindWidth": 760.0, "kWindHeight": 560.0},
            "kMarkerSets": {"kMarkerSetArray": [{"kMarkerSetTitle": "Shoot", "kMarkerArray": BUTTONS, "kMarkerID": 1}],
                            "kMarkerCurrSet": 1},
            "kOfflineRecorder": {"kOfflineRecorderClipName": name, "kOfflineRecorderSceneName": "S0"}}))
        self.name = name

    def run(self, kills):
        self.start()
        for _ in range(kills):
            self.run_until_killed()
            self.counts["kills"] += 1
        self.end_cleanly()

    # One run of the program

    def start(self):
        began = time.monotonic()
        if self.random.random() < 0.1:  # killed again before it is up: while it reads, or recovers
            self.program = Program(self.arguments.program, self.arguments.plugins, self.home)
            time.sleep(self.random.uniform(0, 0.5))
            self.program.kill()
            self.counts["killed at a start"] += 1
            self.check_readable()
        self.program = Program(self.arguments.program, self.arguments.plugins, self.home)
        self.program.until(lambda state: state["isLaunched"] and not state["isReading"], "the window")
        self.program.until(lambda _: not self.unrecovered(), "the recovery of takes")
        self.counts["start ms"] += int(1000 * (time.monotonic() - began))

    def unrecovered(self):
        """The journals of takes; one that was killed before it got its name counts from its first line on."""
        return [path for path in self.journals.glob("*") if path.suffix == ".journal" or b"\n" in read_if_there(path)]

    def run_until_killed(self):
        operator = self.new_operator()
        moment = None
        try:
            self.aim(operator)
            operator.work()
        except TimeIsUp:
            pass
        except Ended:
            moment = self.ended(operator)
        moment = moment or self.end(operator)
        self.counts["during: " + (operator.now or "nothing")] += 1
        self.counts["operations"] += operator.done
        self.start()
        self.check(moment)

    def new_operator(self):
        return Operator(self.program, self.random, self.clips, self.folder, self.home / "media", self.name)

    def aim(self, operator):
        """Four kills in ten come at any moment, six right after the decisive key of one operation."""
        if self.random.random() < 0.4:
            self.program.deadline = time.monotonic() + self.random.uniform(0.02, 0.9)
        else:
            target = self.random.choice(list(BUSY_MOMENTS))
            operator.aim(target, self.random.uniform(0, BUSY_MOMENTS[target]))
            self.program.deadline = time.monotonic() + 5  # at the latest, where the key does not come

    def end(self, operator):
        """Kills it; now and then it is asked to end instead, which must cost nothing at all."""
        if self.random.random() > SHARE_OF_REQUESTS:
            return self.program.kill()
        moment = time.monotonic()
        status = self.program.end_as_asked()
        # One that has already ended its work, and is asked to end, may leave the rest to the system.
        if status != 0 and not (status == -signal.SIGTERM and operator.now == "quit"):
            raise AssertionError(f"the program ended with {status} when it was asked to, during “{operator.now}”")
        self.counts["ended as asked"] += 1
        operator.note_end()
        if list(self.journals.glob("*.journal")):
            raise AssertionError("a program that ended as it was asked to left a journal")
        return moment + GRACE  # what the program had dealt with by then needs none

    def ended(self, operator):
        status = self.program.wait()
        if status != 0 or operator.now != "quit":
            raise AssertionError(f"the program ended with {status} during “{operator.now}”")
        self.counts["quit before the kill"] += 1
        return time.monotonic()

    # What is left

    def files(self):
        """All clip files, as (place, name, record); raises when one is unreadable."""
        found = []
        for place, folder in (("folder", self.folder), ("trash", self.trash)):
            for path in sorted(folder.iterdir()) if folder.exists() else []:
                if path.suffix in (".xml", ".mov"):
                    try:
                        found.append((place, path.name, read_clip(path)))
                    except Exception as error:
                        raise AssertionError(f"{path} cannot be read: {error}") from error
        return found

    def check_readable(self):
        self.files()
        plistlib.loads(self.settings.read_bytes())

    def check(self, moment):
        """After the program was killed at `moment` and is up again."""
        by_scene = collections.defaultdict(list)
        self.program.until(self.lists_all, "all clips to be listed under their files' names")
        for place, name, record in self.files():
            by_scene[record.get("clipScene")].append((place, name, record))
        wrong = []
        for scene, clip in self.clips.items():
            found = by_scene.pop(scene, [])
            wrong += [f"{text}; {clip.describe()}" for text in differences(clip, found, moment)]
            if clip.is_take() and not clip.is_known and found:
                recovered = found[0][2].get("clipComment") == "Recovered take"
                self.counts["takes recovered" if recovered else "takes found written"] += 1
                self.counts["markers found"] += len(found[0][2].get("clipMarkerArray", []))
            settle(clip, found)
        wrong += [f"nobody made the clips {found}" for scene, found in by_scene.items()]
        settings = plistlib.loads(self.settings.read_bytes())
        if settings["ClipManagerSettings"]["kRecordFolderPath"] != str(self.folder):
            wrong.append("the settings have lost the recording folder")
        if wrong:
            raise AssertionError("\n".join(wrong) + f"\n(killed at {moment})")
        for scene in [scene for scene, clip in self.clips.items() if clip.places == {"gone"}]:
            del self.clips[scene]

    def left_behind(self):
        return [*self.settings.parent.glob(".marquill-*"), *self.folder.glob(".marquill-*"), *self.journals.glob("*")]

    def lists_all(self, state):
        """Whether the window lists what stands in the folder."""
        listed = sorted((row["Scene"], row["Clip"]) for row in state["rows"])
        return listed == sorted((record.get("clipScene"), display_name(name))
                                for place, name, record in self.files() if place == "folder")

    def digests(self):
        return {path: hashlib.sha256(path.read_bytes()).digest() for path in self.folder.rglob("*") if path.is_file()}

    def end_cleanly(self):
        """A start after a quit that nothing interrupted tells nothing, changes nothing and leaves nothing behind."""
        for path in self.left_behind():
            self.counts["temporary files of killed runs"] += 1
            os.utime(path, (time.time() - 172800, time.time() - 172800))
        for _ in range(2):
            self.new_operator().quit_keeping_trash()
            if self.program.wait() != 0:
                raise AssertionError("the program did not end well")
            before = self.digests()
            notices = self.start_quietly()["notices"]
            if notices:
                raise AssertionError(f"a start after a quiet end tells {notices}")
            if {path for path in self.digests() if self.digests()[path] != before.get(path)}:
                raise AssertionError("a start changed files")
        self.program.until(lambda _: not self.left_behind(), "the removal of what killed runs left behind")
        self.program.kill()

    def start_quietly(self):
        self.program = Program(self.arguments.program, self.arguments.plugins, self.home)
        return self.program.until(lambda state: state["isLaunched"] and not state["isReading"], "the window")


def read_if_there(path):
    try:
        return path.read_bytes()
    except FileNotFoundError:
        return b""


def append_record(path, record):
    """Puts a user-data list with a clip's record into a movie whose header stands at its end."""
    data = path.read_bytes()
    item = (len(record) + 8).to_bytes(4, "big") + b"KVXN" + record
    user_data = (len(item) + 12).to_bytes(4, "big") + b"udta" + item + bytes(4)
    at = data.index(b"moov") - 4
    size = int.from_bytes(data[at:at + 4], "big")
    if at + size != len(data):
        raise AssertionError("the movie's header does not stand at its end")
    path.write_bytes(data[:at] + (size + len(user_data)).to_bytes(4, "big") + data[at + 4:] + user_data)


def make_media(folder):
    """Movies for connecting and for the folder itself."""
    command = ["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "color=gray:size=32x32:rate=25", "-t", "1", "-map_metadata",
               "-1", "-fflags", "+bitexact", "-c:v", "mjpeg", str(folder / "own.mov")]
    subprocess.run(command, check=True, stdin=subprocess.DEVNULL)
    for number in range(40):
        shutil.copy(folder / "own.mov", folder / f"MVI_{number:04d}.mov")
        moment = time.time() + 30 * (number - 5)
        os.utime(folder / f"MVI_{number:04d}.mov", (moment, moment))


def run_lane(arguments, lane):
    counts = collections.Counter()
    kills = arguments.kills // arguments.lanes + (lane < arguments.kills % arguments.lanes)
    seed = arguments.seed * 1000 + lane * 100_000
    while kills > 0:
        shoot = Shoot(arguments, seed)
        try:
            shoot.run(min(kills, KILLS_PER_SHOOT))
        except Exception as error:
            if shoot.program:
                shoot.program.process.kill()
            return counts + shoot.counts, f"seed {seed}, kill {shoot.counts['kills'] + 1}, in {shoot.home}: {type(error).__name__} {error}"
        shutil.rmtree(shoot.home)
        counts += shoot.counts
        kills -= KILLS_PER_SHOOT
        seed += 1
        print(f"lane {lane}: {counts['kills']} kills", flush=True)
    return counts, None


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program", type=pathlib.Path)
    parser.add_argument("plugins", type=pathlib.Path)
    parser.add_argument("--kills", type=int, default=1000)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--lanes", type=int, default=2)
    arguments = parser.parse_args()
    arguments.program, arguments.plugins = arguments.program.resolve(), arguments.plugins.resolve()
    began = time.monotonic()
    with tempfile.TemporaryDirectory(prefix="marquill-media-") as media:
        arguments.media = pathlib.Path(media)
        make_media(arguments.media)
        with multiprocessing.Pool(arguments.lanes) as pool:
            results = pool.starmap(run_lane, [(arguments, lane) for lane in range(arguments.lanes)])
    counts = sum((counts for counts, _ in results), collections.Counter())
    for name in sorted(counts):
        print(f"{counts[name]:8} {name}")
    print(f"{time.monotonic() - began:8.0f} seconds, seed {arguments.seed}")
    errors = [error for _, error in results if error]
    for error in errors:
        print(f"WRONG: {error}")
    sys.exit(1 if errors else 0)


if __name__ == "__main__":
    main()
