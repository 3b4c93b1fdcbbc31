"""The program's central task with real keys and clicks: add a folder, record two takes, read the clips back."""
import datetime
import os
import pathlib
import sys
import time

from desktop import Desktop, read_placeholder

TOLERANCE = 0.020  # seconds between a key and the time stored for it
CLIP_MANAGER, MARKERS, RECORDER = "Clip Manager", "Real Time Markers", "Place Holder Clip Recorder"


def check(condition, what):
    if not condition:
        raise AssertionError(what)


def check_time(stored, fired, started, what):
    """`stored` must be the time from the start key to the fired key, each known as a short span."""
    earliest, latest = fired[0] - started[1] - TOLERANCE, fired[1] - started[0] + TOLERANCE
    check(earliest <= stored <= latest, f"{what} is stored at {stored:.3f}, fired between {earliest:.3f} and {latest:.3f}")


def add_folder(desktop, folder):
    desktop.focus(CLIP_MANAGER)
    desktop.key("ctrl+o")
    desktop.window("Add Folder")
    desktop.settle()
    desktop.type(f"{folder}")
    desktop.settle()
    desktop.key("Return")  # takes what the chooser proposes
    desktop.settle()
    desktop.key("Return")
    desktop.until(lambda: not desktop.is_shown("Add Folder"), "the folder chooser to close")
    desktop.settle()


def first_take(desktop, folder):
    desktop.focus(CLIP_MANAGER)
    focused = desktop.xdotool("getactivewindow")
    started = desktop.key("ctrl+space")
    pause(desktop, 1.2)
    three = desktop.key("alt+3")
    pause(desktop, 0.7)
    zero = desktop.key("alt+0")
    clicked = desktop.click(MARKERS, *button(1))
    check(desktop.xdotool("getactivewindow") == focused, "a click on a marker button takes the keyboard")
    # A click waits one second for a second one before it fires; the journal of the take tells when it has.
    desktop.until(lambda: journal(desktop).count(b"untitled (") == 3, "the clicked marker in the journal")
    fired = (clicked[0] + 1, time.time())
    stopped = desktop.key("Escape")
    path = folder / "Clip#01.xml"
    desktop.until(path.exists, "the first clip")

    clip = read_placeholder(path)
    check(set(clip) == {"clipName", "clipScene", "clipCreationDate", "clipRecordingStartTime",
                        "clipOldRecordingStartTime", "clipDuration", "clipOldDuration", "clipMarkerArray"},
          f"the clip has the keys {sorted(clip)}")
    check(clip["clipName"] == "Clip#01.xml" and clip["clipScene"] == "Scene", f"name and scene in {clip}")
    shortest, longest = int(stopped[0] - started[1] - TOLERANCE), int(stopped[1] - started[0] + TOLERANCE)
    check(shortest <= clip["clipDuration"] <= longest, f"a duration of {shortest} s to {longest} s in {clip}")
    check(clip["clipDuration"] == clip["clipOldDuration"], f"both durations in {clip}")
    date = clip["clipCreationDate"].replace(tzinfo=datetime.timezone.utc).timestamp()  # in whole seconds
    check(started[0] - 1 <= date <= started[1] + 1, f"the start is {date - started[0]} s off")
    check(clip["clipCreationDate"] == clip["clipRecordingStartTime"] == clip["clipOldRecordingStartTime"], "the dates")
    markers = clip["clipMarkerArray"]
    check([marker["clipMarkerTitle"] for marker in markers] == ["untitled (3)", "untitled (0)", "untitled (1)"],
          f"the markers' titles in {markers}")
    check_time(markers[0]["clipMarkerIn"], three, started, "marker 3")
    check_time(markers[1]["clipMarkerIn"], zero, started, "marker 0")
    check_time(markers[2]["clipMarkerIn"], fired, started, "the clicked marker")
    for marker in markers:
        check(marker["clipMarkerDur"] == 0 and marker["clipMarkerComment"] == "" and marker["clipMarkerTags"] == {},
              f"the rest of {marker}")


def journal(desktop):
    """What the journal of the take that is running says; nothing while it is not there yet."""
    folder = pathlib.Path(f"{desktop.settings}.state") / "takes"
    return b"".join(path.read_bytes() for path in folder.glob("*") if path.is_file())


def retitle(desktop):
    """Double-clicks the second button and types a new title; Escape in the field stops no take and ends no edit."""
    desktop.double_click(MARKERS, *button(2))
    desktop.key("ctrl+a")
    desktop.type("Act")
    desktop.key("Escape")
    desktop.type("ion\n")
    desktop.settle()


def second_take(desktop, folder):
    """Starts with the grave accent, stops with Escape while the clip-name field has the keyboard."""
    desktop.focus(CLIP_MANAGER)
    desktop.key("grave")
    pause(desktop, 0.5)
    desktop.key("alt+2")
    desktop.click(RECORDER, 0.5, 0.68)
    desktop.settle()
    desktop.key("ctrl+a")
    desktop.type("Wide")
    desktop.key("Escape")
    path = folder / "Wide#01.xml"
    desktop.until(path.exists, "the second clip")
    markers = read_placeholder(path)["clipMarkerArray"]
    check([marker["clipMarkerTitle"] for marker in markers] == ["Action"], f"the retitled marker in {markers}")
    check(markers[0]["clipMarkerTags"] == {"in": True}, "a marker titled Action is the in point")


def pause(desktop, seconds):
    """Lets a take go on; what is to happen is waited for by other means."""
    end = time.time() + seconds
    while time.time() < end:
        check(desktop.marquill.poll() is None, "Marquill ended")
        time.sleep(0.02)


def button(number):
    """Where marker button 1 to 10 lies in its window, as shares of width and height."""
    column, row = (number - 1) // 5, (number - 1) % 5
    return 0.25 + 0.5 * column, 0.25 + 0.15 * row


def main():
    program = sys.argv[1]
    with Desktop(program) as desktop:
        folder = pathlib.Path(desktop.folder) / "Day 1"
        folder.mkdir()
        add_folder(desktop, folder)
        first_take(desktop, folder)
        retitle(desktop)
        second_take(desktop, folder)
        check(sorted(os.listdir(folder)) == ["Clip#01.xml", "Wide#01.xml"], "the folder holds the two clips alone")
        desktop.quit()
        settings = read_placeholder(desktop.settings)
        check(settings["ClipManagerSettings"]["kRecordFolderPath"] == str(folder), "the recording folder is kept")
        check(settings["kMarkerSets"]["kMarkerSetArray"][0]["kMarkerArray"] == ["", "Action"], "the title is kept")
    print("Two takes recorded by keys and clicks, and read back.")


if __name__ == "__main__":
    main()
