"""Reviewing a day with real keys and clicks: look at a movie, rate, rename, delete, undo, redo, reorder labels."""
import pathlib
import sys

from desktop import Desktop, read_placeholder
from shoot import make_shoot, settings_for

CLIP_MANAGER, PREFERENCES = "Clip Manager", "Preferences"
CLIP_HEADER = (0.25, 130 / 640)


def check(condition, what):
    if not condition:
        raise AssertionError(what)


def names(folder):
    return sorted(path.name for path in folder.iterdir() if path.is_file())


def select_last_clip(desktop):
    """Sorts the shown folder by name and selects its last row, the connected “Lighthouse”."""
    desktop.focus(CLIP_MANAGER)
    desktop.click(CLIP_MANAGER, *CLIP_HEADER)
    desktop.settle()
    go_to_clips(desktop)
    desktop.key("End")
    desktop.settle()


def go_to_clips(desktop):
    desktop.focus(CLIP_MANAGER)
    desktop.key("ctrl+6")
    desktop.settle()


def rate(desktop, folder):
    desktop.key("4")
    desktop.until(lambda: read_placeholder(folder / "Lighthouse#01.xml").get("clipRating") == 4, "the rating on disk")


def play_and_step(desktop):
    """Plays and steps in the preview; pictures of it must differ as it moves."""
    desktop.key("ctrl+7")
    desktop.key("Home")
    desktop.settle()
    first = picture_bytes(desktop)
    for _ in range(10):
        desktop.key("Right")
        desktop.settle()
    stepped = picture_bytes(desktop)
    check(first != stepped, "ten steps show another frame")
    seen = {stepped}

    def has_moved():
        seen.add(picture_bytes(desktop))
        return len(seen) > 2  # the first change may be the button's alone

    desktop.key("space")
    desktop.until(has_moved, "playing to show another frame")
    desktop.key("space")
    desktop.settle()
    check(picture_bytes(desktop) != stepped, "the frame it stops at is another one")


def picture_bytes(desktop):
    path = desktop.folder / "picture.ppm"
    desktop.picture_of(CLIP_MANAGER, path)
    return path.read_bytes()


def rename(desktop, folder):
    go_to_clips(desktop)
    desktop.key("End")
    desktop.key("F2")
    desktop.settle()
    desktop.key("ctrl+a")
    desktop.type("Beacon")
    desktop.settle()
    desktop.key("Return")
    desktop.until(lambda: "Beacon#01.xml" in names(folder), "the renamed clip")
    check("Lighthouse#01.xml" not in names(folder), "the old name is gone")
    desktop.until(lambda: read_placeholder(folder / "Beacon#01.xml")["clipName"] == "Beacon#01.xml",
                  "the new name in the record")


def delete_and_undo(desktop, folder):
    before = {path.name: path.read_bytes() for path in folder.iterdir() if path.is_file()}
    desktop.settle()
    go_to_clips(desktop)
    desktop.key("Home")
    desktop.key("Delete")
    desktop.until(lambda: len(names(folder)) == len(before) - 1, "the clip to leave the folder")
    trashed = names(folder / "Trash")
    check(len(trashed) == 1 and trashed[0] in before, f"the trash holds {trashed}")
    desktop.key("ctrl+z")
    desktop.until(lambda: len(names(folder)) == len(before), "undo to bring the clip back")
    after = {path.name: path.read_bytes() for path in folder.iterdir() if path.is_file()}
    check(after == before, "undo gives the same files")
    desktop.key("ctrl+shift+z")
    desktop.until(lambda: names(folder / "Trash") == trashed, "redo to trash the clip again")


def reorder_labels(desktop):
    desktop.focus(CLIP_MANAGER)
    desktop.key("ctrl+comma")
    desktop.window(PREFERENCES)
    desktop.settle()
    desktop.click(PREFERENCES, 0.3, 0.25)
    desktop.settle()
    desktop.key("ctrl+Down")
    wanted = ["Trash", "Print", "Audio", "1st Half", "2nd Half"]
    desktop.until(lambda: desktop.settings.exists() and
                  read_placeholder(desktop.settings).get("PrefDict", {}).get("LabelArray") == wanted,
                  "the labels in their new order on disk")
    desktop.key("alt+F4")
    desktop.until(lambda: not desktop.is_shown(PREFERENCES), "the preferences to close")


def main():
    with Desktop(sys.argv[1], launch=False) as desktop:
        folder = make_shoot(desktop.folder)[0]
        desktop.write_settings(settings_for([folder, pathlib.Path(desktop.folder) / "Day 2 Studio"]))
        desktop.start_marquill()
        select_last_clip(desktop)
        rate(desktop, folder)
        play_and_step(desktop)
        rename(desktop, folder)
        delete_and_undo(desktop, folder)
        reorder_labels(desktop)
        desktop.quit(["Return"])  # keeps the clips in the trash
    print("A day reviewed by keys and clicks; the files are as they should be.")


if __name__ == "__main__":
    main()
