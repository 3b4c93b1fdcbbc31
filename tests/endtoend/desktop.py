"""A display of its own (Xvfb, openbox) with Marquill on it, driven by real keys and clicks through xdotool."""
import os
import pathlib
import plistlib
import re
import shutil
import subprocess
import tempfile
import time

PATIENCE = 120  # seconds; the busiest machine needs no longer for anything here


class Desktop:
    """Use as a context manager. Times are seconds since 1970, positions pixels from the top left corner."""

    def __init__(self, program, width=1280, height=800, scale=None, theme=None, launch=True):
        self.program = program
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="marquill-"))
        self.settings = self.folder / "settings.plist"
        self.launch = launch
        self.size = (width, height)
        self.scale = scale
        self.theme = theme
        self.processes = []
        self.marquill = None

    def __enter__(self):
        reading, writing = os.pipe()
        self._start(["Xvfb", "-displayfd", str(writing), "-screen", "0", "%dx%dx24" % self.size, "-nolisten", "tcp",
                     "-r"],  # without repeated keys: on a busy machine one is easily held for too long
                    pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as display:
            number = display.readline().strip()
        if not number:
            raise RuntimeError("Xvfb did not start")
        self.environment = dict(os.environ, DISPLAY=":" + number, LC_ALL="C.UTF-8", QT_QPA_PLATFORM="xcb",
                                HOME=str(self.folder), XDG_CONFIG_HOME=str(self.folder / "config"),
                                XDG_RUNTIME_DIR=str(self.folder), NO_AT_BRIDGE="1")
        self.environment.pop("QT_SCALE_FACTOR", None)
        if self.scale:
            self.environment["QT_SCALE_FACTOR"] = str(self.scale)
        self._start_window_manager()
        if self.launch:
            self.start_marquill()
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.terminate()
        for process in reversed(self.processes):
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def _start(self, command, **options):
        process = subprocess.Popen(command, stdout=subprocess.DEVNULL,
                                   stderr=options.pop("stderr", subprocess.DEVNULL), **options)
        self.processes.append(process)
        return process

    def _start_window_manager(self):
        """One that came up too early on a busy machine ends at once, and windows would take no keyboard."""
        for _ in range(5):
            manager = self._start(["openbox", "--sm-disable"], env=self.environment)
            end = time.time() + PATIENCE
            while manager.poll() is None and time.time() < end:
                root = subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], env=self.environment, text=True,
                                      capture_output=True)
                if "window id" in root.stdout:
                    return
                time.sleep(0.05)
            manager.terminate()
        raise RuntimeError("openbox did not start")

    def start_marquill(self, *arguments):
        command = [self.program, "--settings", str(self.settings), *arguments]
        if self.theme:
            command += ["--theme", self.theme]
        self.marquill = self._start(command, env=self.environment, stderr=None)
        self.window("Clip Manager")
        self.settle()  # the windows come to lie where they shall

    def start_other_program(self, command):
        self._start(command, env=self.environment)

    def write_settings(self, settings):
        self.settings.write_bytes(plistlib.dumps(settings))

    def quit(self, trash_answer=()):
        """Quits as the user does, pressing the keys of `trash_answer` at the question that follows, and waits."""
        self.focus("Clip Manager")
        self.key("ctrl+q")
        for key in trash_answer:
            self.settle()
            self.key(key)
        self.wait_for_end()

    def wait_for_end(self):
        marquill, self.marquill = self.marquill, None
        if marquill.wait(PATIENCE) != 0:
            raise AssertionError(f"Marquill ended with {marquill.returncode}")

    def xdotool(self, *arguments):
        return subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, check=True, text=True,
                              capture_output=True).stdout.strip()

    def window(self, name):
        """The number of the visible window whose title holds `name`, waited for."""
        return self.until(lambda: self._find(name), f"the window “{name}”")

    def _find(self, name):
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", name], env=self.environment, text=True,
                               capture_output=True).stdout.split()
        return found[0] if found else None

    def is_shown(self, name):
        return self._find(name) is not None

    def settle(self, timers=0.2):
        """Waits until all that was asked for is done, what waits for a timer of so many seconds included: a button that
        is pressed by a key acts after a tenth of a second."""
        self._rest()
        time.sleep(timers)
        self._rest()

    def _rest(self):
        """Waits until no thread of Marquill, of the display and of the window manager has anything to do. One that
        waits for its turn on a busy machine has. Three looks in a row find all of them asleep, and between the first
        and the last they had no more turns than a cursor that blinks takes."""
        turns_of_a_cursor = 10
        looks = []

        def is_resting():
            look = self._turns()
            looks[:] = [*looks[-2:], look] if look else []
            if len(looks) < 3:
                return False
            return sum(turns - looks[0].get(thread, 0) for thread, turns in look.items()) <= turns_of_a_cursor
        self.until(is_resting, "Marquill to come to rest", pause=0.01)

    def _turns(self):
        """How often each thread has gone to sleep; nothing while one of them is awake, or waits for a disk."""
        turns = {}
        for process in self.processes:
            if process.poll() is not None:
                continue
            try:
                for thread in os.scandir(f"/proc/{process.pid}/task"):
                    with open(f"{thread.path}/status", encoding="ascii", errors="replace") as file:
                        status = file.read()
                    if status[status.index("State:") + 7] not in "SI":
                        return None
                    turns[thread.name] = int(status.rpartition("nonvoluntary")[0].split()[-1])
            except (FileNotFoundError, ProcessLookupError):
                return None  # one has just ended
        return turns

    def until(self, condition, what, pause=0.05):
        """What `condition` returns as soon as it is true; fails when that takes too long."""
        end = time.time() + PATIENCE
        while time.time() < end:
            result = condition()
            if result:
                return result
            if self.marquill and self.marquill.poll() is not None:
                raise AssertionError(f"Marquill ended ({self.marquill.returncode}) while waiting for {what}")
            time.sleep(pause)
        self.picture("/tmp/marquill-failure.png")
        raise AssertionError(f"waited {PATIENCE} s for {what}; see /tmp/marquill-failure.png")

    def focus(self, name):
        """Gives a window the keyboard; one that was just opened may not be the window manager's yet."""
        command = ["xdotool", "windowactivate", "--sync", self.window(name)]
        self.until(lambda: subprocess.run(command, env=self.environment, capture_output=True).returncode == 0,
                   f"“{name}” to take the keyboard")

    def key(self, *keys):
        """Presses keys as xdotool names them, e.g. alt+3; returns the times just before and just after."""
        before = time.time()
        self.xdotool("key", "--delay", 1, *keys)
        return before, time.time()

    def type(self, text):
        self.xdotool("type", "--delay", 5, text)

    def place(self, name):
        """x, y, width, height of a window's contents on the screen."""
        text = subprocess.run(["xwininfo", "-id", self.window(name)], env=self.environment, check=True, text=True,
                              capture_output=True).stdout
        return [int(re.search(rf"{label}:\s+(-?\d+)", text)[1])
                for label in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]

    def click(self, name, across, down, count=1):
        """Clicks in a window at a share of its width and height; returns the times before and after."""
        x, y, width, height = self.place(name)
        x, y = x + int(width * across), y + int(height * down)
        self.xdotool("mousemove", x + 3, y + 3)  # waiting for the mouse to move where it is would last
        self.xdotool("mousemove", "--sync", x, y)
        before = time.time()
        self.xdotool("click", "--repeat", count, "--delay", 60, 1)
        return before, time.time()

    def double_click(self, name, across, down):
        """Two clicks that are quick enough for a double one, however often that takes on a busy machine."""
        def is_quick():
            before, after = self.click(name, across, down, count=2)
            self.settle()
            return after - before < 0.4  # Qt's own limit
        self.until(is_quick, f"two quick clicks in “{name}”")

    def picture(self, path):
        """A picture of the whole screen."""
        subprocess.run(["import", "-silent", "-window", "root", str(path)], env=self.environment, check=False)

    def picture_of(self, name, path):
        """A picture of one window."""
        subprocess.run(["import", "-silent", "-window", self.window(name), str(path)], env=self.environment,
                       check=False)


def read_placeholder(path):
    with open(path, "rb") as file:
        return plistlib.load(file)
