"""A whole shoot, connected and exported by commands and by the windows: the same records and documents come of it."""
import os
import pathlib
import shutil
import subprocess
import sys

from desktop import Desktop, read_placeholder
from shoot import settings_for
from shoot_media import Shoot

# Dates in documents, and those of a P2 card, are local ones. Seven hours behind UTC, all year.
os.environ["TZ"] = "MST7"

CLIP_MANAGER = "Clip Manager"
FIRST_FOLDER, CLIPS = (0.1, 78 / 640), (0.5, 170 / 640)
CHOOSERS = {"qt": "Choose folder with QuickTime clips", "p2": "Choose root folder with P2 clips"}
RED_CHOOSER, CONVERTED_CHOOSER = "Choose folder with RED clips", "Choose folder with clips converted by FCP"
# Of the menu Clip > Connect, which begins with two commands that several clips do not have, or do not need.
KINDS_IN_MENU = ["qt", "red-h", "red-p", "red-m", "red-raw", "p2"]
OPTIONS = "Export as Text"
NOT_ALL, NO_RAW_FILE = "Could not connect all clips", "Red files not found"
FORMATS = {"xmeml": ".xml", "text": ".txt", "tab": ".txt", "comma": ".csv"}
LAYOUT_KEYS = {"text": "alt+u", "tab": "alt+t", "comma": "alt+c"}  # in the options sheet


def check(condition, what):
    if not condition:
        raise AssertionError(what)


def contents(folder):
    return {path.name: path.read_bytes() for path in folder.iterdir() if path.is_file()}


def formats(day):
    """Those that a day is exported in: the layouts of texts are the same for all kinds of media."""
    return FORMATS if day.kind in ("qt", "p2") else ["xmeml"]


def document(folder, day, form):
    return folder / f"{day.name} {form}{FORMATS[form]}"


# By commands


def connect_by_command(desktop, shoot, day):
    command = ["connect", shoot.records / day.name, "--kind", day.kind, "--media", day.media]
    if day.converted:
        command += ["--converted", day.converted]
    ended = run(desktop, *command)
    whole = None not in day.connected.values()
    check(ended.returncode == (0 if whole else 1), f"connecting {day.name} ends with {ended.returncode}")
    check((NOT_ALL in ended.stderr) == (not whole), f"{day.name}: {ended.stderr}")
    check((NO_RAW_FILE in ended.stderr) == day.lacks_raw_file, f"{day.name}: {ended.stderr}")


def export_by_command(desktop, shoot, day, target):
    for form in formats(day):
        path = document(target, day, form)
        ended = run(desktop, "export", shoot.records / day.name, "--format", form, "--output", path)
        check(ended.returncode == 0, f"exporting {path.name}: {ended.stderr}")


def run(desktop, *command):
    return subprocess.run([desktop.program, "--settings", desktop.settings, *command], env=desktop.environment,
                          text=True, capture_output=True, check=False)


# By the windows


def show(desktop, index):
    """Shows a record folder by the keys that move in the list of folders."""
    desktop.focus(CLIP_MANAGER)
    desktop.click(CLIP_MANAGER, *FIRST_FOLDER)
    for _ in range(index):
        desktop.key("Down")
    desktop.settle()


def choose(desktop, title, path):
    desktop.window(title)
    desktop.settle()
    desktop.key("ctrl+a")
    desktop.type(path)
    desktop.settle()
    desktop.key("Return")
    desktop.settle()
    if desktop.is_shown(title):
        desktop.key("Return")  # the first one took what the chooser proposed
    desktop.until(lambda: not desktop.is_shown(title), f"“{title}” to close")


def connect_by_window(desktop, shoot, day, index):
    show(desktop, index)
    desktop.click(CLIP_MANAGER, *CLIPS)
    desktop.settle()
    desktop.key("ctrl+a")
    desktop.key("alt+c")
    desktop.settle()
    desktop.key("o")
    desktop.settle()
    for _ in range(len(KINDS_IN_MENU) - KINDS_IN_MENU.index(day.kind)):
        desktop.key("Up")  # from the end
    desktop.key("Return")
    choose(desktop, CHOOSERS.get(day.kind, RED_CHOOSER), day.media)
    if day.converted:
        choose(desktop, CONVERTED_CHOOSER, day.converted)
    for title, is_told in [(NOT_ALL, None in day.connected.values()), (NO_RAW_FILE, day.lacks_raw_file)]:
        if is_told:
            desktop.window(title)
            desktop.settle()
            desktop.key("Return")
            desktop.until(lambda: not desktop.is_shown(title), f"“{title}” to close")
    folder = shoot.records / day.name
    wanted = [name for name, media in day.connected.items() if media]
    desktop.until(lambda: all("clipPath" in read_placeholder(folder / name) for name in wanted),
                  f"the clips of {day.name} to be connected")


def export_by_window(desktop, day, index, target):
    """The folder is read anew before it is exported, so that its clips stand in the order of the listing."""
    show(desktop, index)
    for form in formats(day):
        path = document(target, day, form)
        if form == "xmeml":
            desktop.key("ctrl+e")
        else:
            choose_layout(desktop, LAYOUT_KEYS[form])
        choose(desktop, "Export", path)
        desktop.until(path.exists, f"the document {path.name}")
        desktop.settle()  # the command is not taken before the window has heard of the end


def choose_layout(desktop, key):
    desktop.key("ctrl+shift+e")
    desktop.window(OPTIONS)
    desktop.settle()
    desktop.key(key)
    desktop.settle()
    desktop.key("Return")
    desktop.until(lambda: not desktop.is_shown(OPTIONS), f"“{OPTIONS}” to close")


# What must have come of it


def check_records(shoot, day):
    for name, media in day.connected.items():
        record = read_placeholder(shoot.records / day.name / name)
        path = record.get("clipPath")
        check(path == (str(media) if media else None), f"{day.name}: {name} is connected to {path}, not to {media}")
        if not media:
            continue
        start, own = record["clipRecordingStartTime"], record["clipOldRecordingStartTime"]
        starts = [day.start] if day.kind != "p2" else day.start
        check(start in starts, f"{day.name}: {name} starts at {start}")
        check(record["clipMarkerOffset"] == (start - own).total_seconds(), f"{day.name}: the offset of {name}")


def check_equal(first, second, what):
    check(first.keys() == second.keys(), f"{what}: {sorted(first)} are not {sorted(second)}")
    for name, expected in first.items():
        if second[name] != expected:
            kept = pathlib.Path("/tmp/marquill-failure")
            kept.mkdir(exist_ok=True)
            (kept / f"command {name}").write_bytes(expected)
            (kept / f"window {name}").write_bytes(second[name])
            raise AssertionError(f"{what}: {name} is not the same; see {kept}")


def main():
    program = os.path.abspath(sys.argv[1])
    with Desktop(program, launch=False) as desktop:
        shoot = Shoot(desktop.folder / "shoot")
        desktop.write_settings(settings_for(shoot.folders()))
        untouched = desktop.folder / "untouched"
        by_command, by_window = desktop.folder / "by command", desktop.folder / "by window"
        by_command.mkdir()
        by_window.mkdir()
        # The records take turns at one place, as documents name where they are.
        shutil.copytree(shoot.records, untouched)
        for day in shoot.days:
            connect_by_command(desktop, shoot, day)
            check_records(shoot, day)
            export_by_command(desktop, shoot, day, by_command)
        records = {day.name: contents(shoot.records / day.name) for day in shoot.days}

        shutil.rmtree(shoot.records)
        shutil.copytree(untouched, shoot.records)
        desktop.start_marquill()
        for index, day in enumerate(shoot.days):
            connect_by_window(desktop, shoot, day, index)
            check_records(shoot, day)
            check_equal(records[day.name], contents(shoot.records / day.name), f"the records of {day.name}")
        for index, day in enumerate(shoot.days):
            export_by_window(desktop, day, index, by_window)
        check_equal(contents(by_command), contents(by_window), "the documents")
        desktop.quit()
    print("Fifty takes connected and exported, by commands and by the windows: the same files.")


if __name__ == "__main__":
    main()
