"""A file browser opens a folder and a movie with Marquill while it runs: the second start ends, the first comes up with what
was opened."""
import pathlib
import subprocess
import sys

from desktop import Desktop, read_placeholder
from shoot import make_movie, make_shoot, settings_for

CLIP_MANAGER, OTHER_PROGRAM = "Clip Manager", "Event Tester"


def check(condition, what):
    if not condition:
        raise AssertionError(what)


def open_with_marquill(desktop, *paths):
    command = [desktop.program, "--settings", str(desktop.settings), *map(str, paths)]
    ended = subprocess.run(command, env=desktop.environment, timeout=120)
    check(ended.returncode == 0, f"the second start ended with {ended.returncode}")


def go_elsewhere(desktop):
    """Another program's window gets the keyboard, as the file browser's would."""
    desktop.focus(OTHER_PROGRAM)
    desktop.until(lambda: is_active(desktop, OTHER_PROGRAM), "the other program to have the keyboard")


def comes_up(desktop):
    desktop.until(lambda: is_active(desktop, CLIP_MANAGER), "the running program to come up")


def is_active(desktop, name):
    return desktop.xdotool("getactivewindow") == desktop.window(name)


def listed_folders(desktop):
    settings = read_placeholder(desktop.settings).get("ClipManagerSettings", {})
    return [record["folderPath"] for record in settings.get("kRecordFolderArray", [])]


def main():
    with Desktop(sys.argv[1], launch=False) as desktop:
        folder = make_shoot(desktop.folder)[0]
        card = pathlib.Path(desktop.folder) / "Card"
        card.mkdir()
        movie = make_movie(card)
        before = movie.read_bytes()
        desktop.write_settings(settings_for([folder]))
        desktop.start_marquill()
        desktop.start_other_program(["xev", "-event", "owner_grab_button"])
        go_elsewhere(desktop)
        open_with_marquill(desktop, desktop.folder / "Day 2 Studio")
        comes_up(desktop)
        desktop.until(lambda: str(desktop.folder / "Day 2 Studio") in listed_folders(desktop), "the opened folder's record")
        go_elsewhere(desktop)
        open_with_marquill(desktop, movie)
        comes_up(desktop)
        desktop.until(lambda: str(card) in listed_folders(desktop), "the record of the folder that the movie lies in")
        desktop.xdotool("windowminimize", desktop.window(CLIP_MANAGER))
        desktop.until(lambda: not desktop.is_shown(CLIP_MANAGER), "the window to be away")
        open_with_marquill(desktop)
        comes_up(desktop)
        check(movie.read_bytes() == before, "opening a movie leaves it as it is")
        desktop.quit()
    print("What is opened from outside comes up in the running program.")


if __name__ == "__main__":
    main()
