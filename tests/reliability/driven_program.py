"""Marquill itself, without a screen, driven key by key through the plugin ShootDriver, and killed."""
import json
import os
import pathlib
import select
import signal
import subprocess
import time


class Ended(Exception):
    """The program ended while it was waited for."""


class TimeIsUp(Exception):
    """The moment has come at which the program is to be killed."""


class Program:
    """One run of the program. Times are seconds of the monotonic clock, which both sides share."""

    PATIENCE = 60  # seconds for what must come some time, on however busy a machine

    def __init__(self, binary, plugins, home):
        self.home = pathlib.Path(home)
        environment = dict(os.environ, HOME=str(home), XDG_CONFIG_HOME=str(self.home / "config"),
                           XDG_STATE_HOME=str(self.home / "state"), XDG_CACHE_HOME=str(self.home / "cache"),
                           XDG_DATA_HOME=str(self.home / "data"), QT_QPA_PLATFORM="offscreen", LC_ALL="C.UTF-8",
                           QT_PLUGIN_PATH=str(plugins), QT_QPA_GENERIC_PLUGINS="shootdriver", TZ="UTC")
        environment.pop("DISPLAY", None)
        with open(self.home / "log.txt", "ab") as log:
            log.write(b"--- start\n")
            self.process = subprocess.Popen([binary], cwd=self.home, env=environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                            stderr=log)
        os.set_blocking(self.process.stdout.fileno(), False)
        self.deadline = None  # when it is to be killed; commands that wait longer raise TimeIsUp
        self._number = 0
        self._waiting = {}  # what is to be called with the answer to a command
        self._answers = {}
        self._bytes = b""
        self._has_ended = False

    def send(self, do, text="", then=None, **more):
        """Gives a command and returns its number at once; `then` is called with the answer when that is read."""
        self._number += 1
        self._waiting[self._number] = then
        self._last = (do, text, more)
        line = json.dumps({"id": self._number, "do": do, "text": text, **more}) + "\n"
        try:
            self.process.stdin.write(line.encode())
            self.process.stdin.flush()
        except BrokenPipeError:
            self._has_ended = True
        return self._number

    def do(self, do, text="", then=None, **more):
        """Gives a command and returns its answer."""
        return self.answer(self.send(do, text, then, **more))

    def answer(self, number):
        limit = time.monotonic() + self.PATIENCE
        while number not in self._answers:
            self._read_some(limit)
        return self._answers.pop(number)

    def state(self):
        return self.do("state")

    def until(self, condition, what):
        """The first state for which `condition` holds."""
        limit = time.monotonic() + self.PATIENCE
        while True:
            state = self.state()
            if condition(state):
                return state
            if time.monotonic() > limit:
                raise AssertionError(f"waited {self.PATIENCE} s for {what}; the last state was {state}")
            self.rest(0.005)

    def rest(self, seconds):
        """Lets time pass, up to the deadline."""
        end = time.monotonic() + seconds
        if self.deadline is not None and end >= self.deadline:
            time.sleep(max(0, self.deadline - time.monotonic()))
            raise TimeIsUp
        time.sleep(seconds)

    def kill(self):
        """Ends it as a crash would, takes in what it had answered by then, and returns when that was."""
        moment = time.monotonic()
        os.kill(self.process.pid, signal.SIGKILL)
        self.wait()
        return moment

    def end_as_asked(self):
        """Asks it to end, as a system that shuts down does; returns the exit status."""
        os.kill(self.process.pid, signal.SIGTERM)
        return self.wait()

    def wait(self):
        """Waits for its end; returns the exit status."""
        limit = time.monotonic() + self.PATIENCE
        self.deadline = None
        try:
            while True:
                self._read_some(limit)
        except Ended:
            pass
        try:
            self.process.stdin.close()
        except BrokenPipeError:
            pass  # of a command that it no longer took
        self.process.stdout.close()
        return self.process.wait(self.PATIENCE)

    def _read_some(self, limit):
        if self._has_ended:
            raise Ended
        now = time.monotonic()
        if self.deadline is not None and now >= self.deadline:
            raise TimeIsUp
        if now >= limit:
            raise AssertionError(f"the program gave no answer within {self.PATIENCE} s")
        end = limit if self.deadline is None else min(limit, self.deadline)
        if select.select([self.process.stdout], [], [], end - now)[0]:
            self._take_in(os.read(self.process.stdout.fileno(), 1 << 20))

    def _take_in(self, some):
        if not some:
            self._has_ended = True
            return
        *lines, self._bytes = (self._bytes + some).split(b"\n")
        for line in lines:
            answer = json.loads(line)
            if not answer.get("ok", True):
                raise AssertionError(f"the command cannot be given: {self._last}")
            then = self._waiting.pop(answer["id"], None)
            if then:
                then(answer)
            self._answers[answer["id"]] = answer
