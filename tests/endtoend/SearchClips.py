"""Searching with real keys: what is typed hides the other clips, what is done then touches those found alone, and Escape
gives all of them back."""
import pathlib
import plistlib
import subprocess
import sys

from desktop import Desktop, read_placeholder
from shoot import make_shoot, settings_for

CLIP_MANAGER = "Clip Manager"
ROWS = (0.17, 0.23, 0.85, 0.45)
COUNT_LINE = (0.17, 0.484, 0.85, 0.508)
RATINGS = {"Harbour Wide#01.xml": 5, "Harbour Wide#02.xml": 1, "Harbour Close#01.xml": 4, "Ferry Dialogue#03.xml": 3}
LABELS = {"Harbour Wide#02.xml": "Print", "Ferry Dialogue#01.xml": "Print", "Lighthouse#01.xml": "Trash"}


def check(condition, what):
    if not condition:
        raise AssertionError(what)


def enter_what_is_searched_for(folder):
    for path in folder.glob("*.xml"):
        record = read_placeholder(path)
        if path.name in RATINGS:
            record["clipRating"] = RATINGS[path.name]
        if path.name in LABELS:
            record["clipLabel"] = LABELS[path.name]
        path.write_bytes(plistlib.dumps(record))


def names(folder):
    return {path.name for path in folder.iterdir() if path.is_file()}


def search_for(desktop, query):
    desktop.focus(CLIP_MANAGER)
    desktop.key("ctrl+f")
    desktop.settle()
    desktop.key("ctrl+a")
    desktop.type(query)
    desktop.settle()


def finds(desktop, folder, query, found):
    """The search finds just the clips of these names: they alone are deleted with all that is shown, and come back."""
    search_for(desktop, query)
    desktop.key("Return")
    desktop.settle()
    delete_all_shown(desktop, folder, found)


def delete_all_shown(desktop, folder, found):
    before = names(folder)
    desktop.key("ctrl+a")
    desktop.key("Delete")
    desktop.until(lambda: names(folder) == before - found, f"just {sorted(found)} to be deleted")
    desktop.settle()
    desktop.key("ctrl+z")
    desktop.until(lambda: names(folder) == before, "undo to bring them back")
    desktop.settle()


def look(desktop, region):
    """The pixels of a part of the window: left, top, right, bottom, as shares of it."""
    path = desktop.folder / "picture.png"
    desktop.picture_of(CLIP_MANAGER, path)
    width, height = desktop.place(CLIP_MANAGER)[2:]
    left, top, right, bottom = (round(share * side) for share, side in zip(region, (width, height) * 2))
    crop = f"{right - left}x{bottom - top}+{left}+{top}"
    return subprocess.run(["convert", str(path), "-crop", crop, "rgb:-"], check=True, capture_output=True).stdout


def the_window_shows_what_is_found(desktop):
    search_for(desktop, "")
    desktop.key("Escape")  # the keyboard is where it will be later
    desktop.settle()
    rows, count = look(desktop, ROWS), look(desktop, COUNT_LINE)
    search_for(desktop, "rating:>=4")
    check(look(desktop, ROWS) != rows, "other rows are shown")
    check(look(desktop, COUNT_LINE) != count, "the line below the clips tells how many")
    desktop.key("Escape")
    desktop.settle()
    check(look(desktop, ROWS) == rows, "Escape shows the rows again")
    check(look(desktop, COUNT_LINE) == count, "the line below tells of all clips again")


def main():
    with Desktop(sys.argv[1], launch=False) as desktop:
        folder = make_shoot(desktop.folder)[0]
        enter_what_is_searched_for(folder)
        desktop.write_settings(settings_for([folder, pathlib.Path(desktop.folder) / "Day 2 Studio"]))
        desktop.start_marquill()
        the_window_shows_what_is_found(desktop)
        everything = names(folder)
        finds(desktop, folder, "rating:>=4", {"Harbour Wide#01.xml", "Harbour Close#01.xml"})
        finds(desktop, folder, "label:Print -ferry", {"Harbour Wide#02.xml"})
        finds(desktop, folder, "connected:no", everything - {"Lighthouse#01.xml"})
        finds(desktop, folder, 'marker:"second half" scene:12a', {"Harbour Close#01.xml", "Harbour Close#02.xml"})
        desktop.key("ctrl+f", "Escape")
        desktop.settle()
        delete_all_shown(desktop, folder, everything)
        desktop.quit()
    print("Searching finds, hides and gives back what it should.")


if __name__ == "__main__":
    main()
