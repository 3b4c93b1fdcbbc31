"""A whole day with real keys: from empty settings over takes, in and out points, edits and undo to each way of quitting."""
import pathlib
import sys

from desktop import Desktop, read_placeholder
from FirstTake import add_folder, button, check, journal, pause
from shoot import make_movie

CLIP_MANAGER, MARKERS = "Clip Manager", "Real Time Markers"
GO_TO = {"folders": "ctrl+5", "clips": "ctrl+6", "movie": "ctrl+7", "attributes": "ctrl+8", "markers": "ctrl+9"}


def go_to(desktop, part):
    desktop.focus(CLIP_MANAGER)
    desktop.key(GO_TO[part])
    desktop.settle()


def set_name_and_scene(desktop, name, scene):
    desktop.focus(CLIP_MANAGER)
    desktop.key("ctrl+4")
    desktop.settle()
    desktop.key("Tab")
    desktop.key("ctrl+a")
    desktop.type(name)
    desktop.key("Tab")
    desktop.key("ctrl+a")
    desktop.type(scene)
    desktop.key("Return")
    desktop.settle()


def take(desktop, path):
    """One take with a marker by key and one by its button."""
    desktop.key("ctrl+space")
    pause(desktop, 0.6)
    desktop.key("alt+4")
    desktop.click(MARKERS, *button(2))
    desktop.until(lambda: journal(desktop).count(b"untitled (") == 2, "the clicked marker in the journal")
    desktop.key("Escape")
    desktop.until(path.exists, f"the clip {path.name}")
    titles = [marker["clipMarkerTitle"] for marker in read_placeholder(path)["clipMarkerArray"]]
    check(titles == ["untitled (4)", "untitled (2)"], f"the markers {titles}")


def connect(desktop, movie):
    """Connects the selected clip by the Clip menu's first command of its Connect menu."""
    desktop.focus(CLIP_MANAGER)
    desktop.key("alt+c")
    desktop.settle()
    desktop.key("o")
    desktop.settle()
    desktop.key("Return")
    desktop.settle()
    desktop.type(str(movie))
    desktop.settle()
    desktop.key("Return")


def select_clip(desktop, end):
    """The first clip ("Home") or the last one ("End"); one that was changed comes last."""
    go_to(desktop, "clips")
    desktop.key(end)
    desktop.settle()


def set_in_and_out(desktop, path):
    go_to(desktop, "movie")
    desktop.key("Home")
    desktop.settle()
    for _ in range(5):
        desktop.key("Right")
        desktop.settle()
    desktop.key("ctrl+shift+i")
    for _ in range(5):
        desktop.key("Right")
        desktop.settle()
    desktop.key("ctrl+shift+o")
    desktop.settle()

    def points():
        markers = read_placeholder(path)["clipMarkerArray"]
        return {tag: marker["clipMarkerIn"] for marker in markers for tag in marker.get("clipMarkerTags", {})}
    desktop.until(lambda: set(points()) == {"in", "out"}, "in and out point on disk")
    found = points()
    # Five and ten frames of a movie of 25 frames a second.
    check(abs(found["in"] - 0.2) < 0.001 and abs(found["out"] - 0.4) < 0.001, f"in and out point {found}")


def edit_attributes(desktop, folder):
    """Edits every field from the name on; the order of Tab is that of the fields."""
    go_to(desktop, "attributes")
    desktop.key("ctrl+a")
    desktop.type("Pier")
    desktop.key("Tab")
    desktop.until((folder / "Pier#01.xml").exists, "the renamed clip")
    go_to(desktop, "attributes")
    desktop.key("Tab")
    desktop.key("ctrl+a")
    desktop.type("22B")
    desktop.key("Tab")
    desktop.key("ctrl+a")
    desktop.type("7")
    desktop.key("Tab")
    desktop.key("Down")  # the label menu
    desktop.key("Tab", "Tab")  # past the button that edits the labels
    desktop.key("Down", "Down", "Down")  # the rating menu
    desktop.key("Tab")
    desktop.type("Gulls in the sound")
    go_to(desktop, "clips")
    wanted = {"clipScene": "22B", "clipTake": "7", "clipRating": 3, "clipComment": "Gulls in the sound"}

    def is_written():
        clip = read_placeholder(folder / "Pier#01.xml")
        return all(clip.get(key) == value for key, value in wanted.items()) and "clipLabel" in clip
    desktop.until(is_written, f"the edits {wanted} on disk")


def files(folder):
    return {str(path.relative_to(folder)): path.read_bytes() for path in sorted(folder.rglob("*")) if path.is_file()}


def delete_and_undo(desktop, folder):
    before = files(folder)
    select_clip(desktop, "Home")
    desktop.key("Delete")
    desktop.until(lambda: list((folder / "Trash").glob("*.xml")), "the deleted clip in the trash")
    desktop.settle()
    desktop.key("ctrl+z")
    desktop.until(lambda: files(folder) == before, "undo to bring the same files back")


def ask_to_quit(desktop, *answer):
    desktop.focus(CLIP_MANAGER)
    desktop.key("ctrl+q")
    desktop.settle()
    for key in answer:
        desktop.key(key)
        if key != answer[-1]:
            desktop.settle()


def record_the_day(desktop, folder, movie):
    add_folder(desktop, folder)
    set_name_and_scene(desktop, "Harbour", "21")
    desktop.focus(CLIP_MANAGER)
    take(desktop, folder / "Harbour#01.xml")
    take(desktop, folder / "Harbour#02.xml")
    check(read_placeholder(folder / "Harbour#01.xml")["clipScene"] == "21", "the scene")
    select_clip(desktop, "Home")
    connect(desktop, movie)
    first = folder / "Harbour#01.xml"
    desktop.until(lambda: read_placeholder(first).get("clipPath") == str(movie), "the clip to be connected")
    select_clip(desktop, "End")
    desktop.settle()
    set_in_and_out(desktop, first)
    edit_attributes(desktop, folder)
    delete_and_undo(desktop, folder)


def quit_in_every_way(desktop, folder):
    select_clip(desktop, "Home")
    desktop.key("Delete")
    desktop.until(lambda: list((folder / "Trash").glob("*.xml")), "the deleted clip in the trash")
    day = files(folder)
    # The buttons follow each other by Tab: keep, cancel, delete.
    ask_to_quit(desktop, "Tab", "space")
    desktop.settle()
    check(desktop.marquill.poll() is None and files(folder) == day, "cancelling leaves all as it was")
    ask_to_quit(desktop, "Return")
    desktop.wait_for_end()
    check(files(folder) == day, "keeping the clips keeps the files")
    kept = read_placeholder(desktop.settings)
    desktop.start_marquill()
    desktop.settle()
    check(files(folder) == day, "a new start changes no file")
    ask_to_quit(desktop, "Tab", "Tab", "space")
    desktop.wait_for_end()
    check(not list((folder / "Trash").iterdir()), "deleting empties the trash")
    check(read_placeholder(desktop.settings) == kept, "the settings are as they were")


def main():
    with Desktop(sys.argv[1], width=1600, height=900) as desktop:
        folder = pathlib.Path(desktop.folder) / "Day 1"
        folder.mkdir()
        record_the_day(desktop, folder, make_movie(desktop.folder))
        quit_in_every_way(desktop, folder)
    print("A whole day by keys; every file and setting is as it should be.")


if __name__ == "__main__":
    main()
