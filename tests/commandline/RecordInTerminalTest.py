"""marquill record in a terminal: keys without Enter, a clock in place, and a terminal that is given back."""
import os
import pathlib
import plistlib
import pty
import re
import select
import signal
import subprocess
import sys
import tempfile
import termios
import time


PATIENCE = 60  # seconds


def check(condition, what):
    if not condition:
        raise AssertionError(what)


class Take:
    """A take in a terminal of its own. `shown` is all that has appeared on it."""

    def __init__(self, program, folder, *arguments):
        self.terminal, side = pty.openpty()
        self.side = side
        self.before = termios.tcgetattr(side)
        environment = dict(os.environ, XDG_CONFIG_HOME=str(folder) + "-config", XDG_STATE_HOME=str(folder) + "-state")
        environment.pop("DISPLAY", None)
        environment.pop("QT_QPA_PLATFORM", None)
        self.process = subprocess.Popen([program, "record", str(folder), *arguments], stdin=side, stdout=side,
                                        stderr=side, env=environment, start_new_session=True,
                                        preexec_fn=self.become_session)
        self.shown = ""
        self.until("Enter or Escape stops")

    def become_session(self):
        # The terminal becomes the session's own, so that Ctrl-C in it reaches the program.
        import fcntl
        fcntl.ioctl(self.side, termios.TIOCSCTTY, 0)

    def read(self, seconds):
        if select.select([self.terminal], [], [], seconds)[0]:
            self.shown += os.read(self.terminal, 4096).decode()

    def until(self, pattern):
        """Waits until what is shown holds this regular expression."""
        end = time.time() + PATIENCE
        while not re.search(pattern, self.shown):
            check(time.time() < end, f"waited {PATIENCE} s for {pattern!r} in {self.shown!r}")
            self.read(0.1)

    def type(self, keys):
        os.write(self.terminal, keys.encode())

    def fire(self, digit):
        """Strikes a digit and waits until its marker is shown, over the clock and with its time."""
        self.type(digit)
        self.until(r"\r\d\d:\d\d:\d\d  untitled \(%s\)\r\n" % digit)

    def end(self):
        """The exit status, once the program has ended; the terminal must be as it was."""
        end = time.time() + PATIENCE
        while self.process.poll() is None:
            check(time.time() < end, f"the take did not end: {self.shown!r}")
            self.read(0.05)
        check(termios.tcgetattr(self.side) == self.before, "the terminal is not given back as it was")
        os.close(self.terminal)
        os.close(self.side)
        return self.process.returncode


def clip(folder, name):
    return plistlib.loads((folder / name).read_bytes())


def titles(folder, name):
    return [marker["clipMarkerTitle"] for marker in clip(folder, name)["clipMarkerArray"]]


def keys_fire_at_once(program, folder):
    take = Take(program, folder, "--name", "Wide")
    flags = termios.tcgetattr(take.side)[3]
    check(not flags & (termios.ECHO | termios.ICANON), "keys are echoed or kept back")
    take.until(r"\r00:00:00[^\n]*\r00:00:(?!0[01])\d\d")
    take.fire("3")
    take.type("\x1b[A\x1b[B")  # arrows do not stop
    take.fire("0")
    take.type("\r")
    take.until(r"/Wide#01\.xml")  # the clip's path
    check(take.end() == 0, "Enter does not end it well")
    check(titles(folder, "Wide#01.xml") == ["untitled (3)", "untitled (0)"], "the markers")
    record = clip(folder, "Wide#01.xml")
    check(record["clipDuration"] >= 2 and record["clipMarkerArray"][0]["clipMarkerIn"] >= 2, f"the times in {record}")


def escape_stops(program, folder):
    take = Take(program, folder, "--name", "Escaped")
    take.fire("1")
    take.type("\x1b")
    check(take.end() == 0, "Escape does not end it well")
    check(titles(folder, "Escaped#01.xml") == ["untitled (1)"], "the markers")


def control_c_stops_and_writes(program, folder):
    take = Take(program, folder, "--name", "Interrupted")
    take.fire("2")
    take.type("\x1a")  # Ctrl-Z puts no take to sleep
    take.type("\x03")
    check(take.end() == 0, "Ctrl-C does not end it well")
    check(titles(folder, "Interrupted#01.xml") == ["untitled (2)"], "the markers")


def signals_stop_and_write(program, folder):
    for number in (signal.SIGINT, signal.SIGTERM, signal.SIGQUIT):
        name = number.name
        take = Take(program, folder, "--name", name)
        take.fire("5")
        take.process.send_signal(number)
        check(take.end() == 0, f"{name} does not end it well")
        check(titles(folder, f"{name}#01.xml") == ["untitled (5)"], f"the markers of {name}")


def a_closed_terminal_costs_no_take(program, folder):
    take = Take(program, folder, "--name", "Closed")
    take.fire("6")
    os.close(take.side)
    os.close(take.terminal)
    take.process.wait(PATIENCE)
    check(titles(folder, "Closed#01.xml") == ["untitled (6)"], "the markers")


def main():
    program = sys.argv[1]
    with tempfile.TemporaryDirectory(prefix="marquill-") as place:
        folder = pathlib.Path(place) / "Day 1"
        folder.mkdir()
        for test in (keys_fire_at_once, escape_stops, control_c_stops_and_writes, signals_stop_and_write,
                     a_closed_terminal_costs_no_take):
            test(program, folder)
            print(test.__name__)


if __name__ == "__main__":
    main()
