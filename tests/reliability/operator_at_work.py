"""The operator of a shoot: carries out random operations in the program, and notes in the ledger what each clip may
hold from then on."""
import time

from driven_program import Ended
from shoot_ledger import ANYTHING, CONNECTED, Clip, Marker

BUTTONS = ["Action", "Cut", "Good", "NG", "Boom in shot", "Focus soft", "Pickup", "Wild line", "Flare", "Hold"]
WORDS = ["second half only", "Ton läuft <nach>", "check & mark", "", "lens cap", "Blende 5,6 – bitte prüfen"]


class Operator:
    scenes = 0  # of all shoots, so that each take has its own
    labels = 0

    def __init__(self, program, random, clips, folder, media, name):
        self.program, self.random, self.clips = program, random, clips
        self.folder, self.media, self.name = folder, media, name
        self.take = None  # in progress
        self.now = None  # the operation under way
        self.done = 0
        self._back = None  # takes back, in the ledger, what was done last
        self._target = self._delay = None

    def aim(self, target, delay):
        """The program is to be killed `delay` seconds after the decisive key of the operation `target`."""
        self._target, self._delay = target, delay

    def work(self):
        """Works until the program is killed or has ended."""
        before = self.random.randint(0, 3) if self._target else 1_000_000
        for _ in range(before):
            self.perform(self.random.choices(["take part", "rate", "comment", "rename", "delete", "take back", "connect",
                                              "disconnect", "quit"], [12, 3, 3, 3, 2, 3, 1, 1, 0.3])[0])
        while True:  # until it meets what it needs: a clip, a take in progress
            if self._target in ("start", "marker", "stop") or not any(clip.is_take() for clip in self.in_folder()):
                self.perform("take part")
            elif self._target == "take back" and self._back is None:
                self.perform(self.random.choice(["rate", "comment", "rename", "delete"]))
            else:
                self.perform(self._target)

    def perform(self, operation):
        self.done += 1
        {"take part": self.go_on_with_take, "rate": self.rate, "comment": self.comment, "rename": self.rename,
         "delete": self.delete, "take back": self.take_back, "connect": self.connect, "disconnect": self.disconnect,
         "quit": self.quit}[operation]()
        self.now = None

    def begin(self, operation):
        """The decisive key of the operation comes now."""
        self.now = operation
        if operation == self._target:
            self.program.deadline = time.monotonic() + self._delay

    # Takes

    def go_on_with_take(self):
        if self.take is None:
            self.start()
        elif self.random.random() < (0.25 if self._target != "stop" else 0.6):
            self.stop()
        else:
            for _ in range(self.random.randint(1, 5)):
                self.fire_marker()
                if self.random.random() < 0.5:
                    self.program.rest(self.random.uniform(0, 0.04))

    def start(self):
        Operator.scenes += 1
        scene = f"S{self.random.randrange(1 << 30)}x{Operator.scenes}"
        self.program.do("click", "_defaultSceneName")
        self.program.do("key", "Ctrl+A")
        self.program.do("type", scene)
        take = Clip.take(scene, self.name)
        self.clips[scene] = take
        self.begin("start")
        self.program.do("key", self.random.choice(["Ctrl+Space", "`"]), lambda answer: setattr(take, "start", answer))
        self.take = take
        self._back = None

    def fire_marker(self):
        number = self.random.randint(0, 9)
        marker = Marker(BUTTONS[number - 1])
        self.take.markers.append(marker)
        self.begin("marker")
        self.program.do("key", f"Alt+{number}", lambda answer: note(marker, answer))

    def stop(self):
        take, self.take = self.take, None
        self.begin("stop")
        self.program.do("key", "Esc", lambda answer: setattr(take, "stop", answer))
        self._back = None

    # Edits

    def in_folder(self):
        return [clip for clip in self.clips.values() if clip.places == {"folder"} and clip is not self.take]

    def rows(self, clips):
        """The numbers of the clips' rows, and what stands in all."""
        wanted = {clip.scene for clip in clips}
        rows = self.program.state()["rows"]
        return [number for number, row in enumerate(rows) if row["Scene"] in wanted], rows

    def select(self, most=1, takes_only=False):
        """Selects some clips and returns them; none when there are none."""
        clips = [clip for clip in self.in_folder() if clip.is_take() or not takes_only]
        clips = self.random.sample(clips, min(len(clips), self.random.randint(1, most)))
        if not clips:
            return clips
        wanted, has_clicked = {clip.scene for clip in clips}, False  # a click gives the table the keyboard too
        while True:  # a take that was just stopped comes between the rows, and is selected, on a later turn
            state = self.program.state()
            if has_clicked and {state["rows"][number]["Scene"] for number in state["selected"]} == wanted:
                return clips
            numbers = [number for number, row in enumerate(state["rows"]) if row["Scene"] in wanted]
            if len(numbers) != len(clips):
                raise AssertionError(f"of {[clip.describe() for clip in clips]} {len(numbers)} are listed")
            self.program.do("rows", rows=numbers)
            has_clicked = True

    def change(self, clip, key, value, operation, do, text="", **more):
        """Gives the command `do`, which changes a value of the clip."""
        before = clip.values[key]
        clip.may(key, value)
        self.begin(operation)
        self.program.do(do, text, lambda _: clip.has(key, value), **more)

        def back():
            clip.may(key, *before)
            return lambda: clip.values.update({key: set(before)})

        self._back = back

    def rate(self):
        for clip in self.select():
            rating = self.random.choice([number for number in range(6) if number not in clip.values["clipRating"]])
            self.change(clip, "clipRating", rating, "rate", "key", str(rating))

    def comment(self):
        for clip in self.select():
            Operator.labels += 1
            text = f"{self.random.choice(WORDS)} {Operator.labels}".strip()
            self.program.do("click", "_commentView")
            self.program.do("key", "Ctrl+A")
            before = set(clip.values["clipComment"])
            clip.may("clipComment", *[text[:end] for end in range(1, len(text) + 1)])  # it is written as it rests
            self.now = "comment"
            self.program.do("type", text)
            clip.values["clipComment"] = before | {text}
            self.change(clip, "clipComment", text, "comment", "rows", rows=self.rows([clip])[0])

    def rename(self):
        for clip in self.select():
            Operator.labels += 1
            name, before = f"Name {Operator.labels}", set(clip.names)
            self.program.do("command", "renameSelected")
            self.program.do("key", "Ctrl+A")
            clip.names |= {name[:end] for end in range(1, len(name) + 1)}  # an end that was asked for takes it over
            self.program.do("type", name)
            clip.names = before | {name}
            self.begin("rename")
            self.program.do("key", "Return", lambda _: setattr(clip, "names", {name}))

            def back(clip=clip, before=before):
                clip.names |= before
                return lambda: setattr(clip, "names", before)

            self._back = back

    def take_back(self):
        """Takes back the last operation, when there is one that can be."""
        if self._back is None:
            return
        settled = self._back()
        self._back = None
        self.begin("take back")
        self.program.do("key", "Ctrl+Z", lambda _: settled())

    # Files

    def delete(self):
        clips = self.select(most=4, takes_only=True)
        if not clips:
            return
        numbers, rows = self.rows(clips)
        names = {rows[number]["Scene"]: f"{rows[number]['Clip']}#{rows[number]['Take']}.xml" for number in numbers}
        for clip in clips:
            for older in self.clips.values():
                if older is not clip and older.trash_name == names[clip.scene] and "trash" in older.places:
                    older.places.add("gone")  # the one that comes into the trash takes its place
            clip.places = {"folder", "trash"}
            clip.trash_name = names[clip.scene]
        self.begin("delete")
        self.program.do("key", "Del", lambda _: place(clips, {"trash"}))

        def back():
            place(clips, {"folder", "trash"})
            return lambda: place(clips, {"folder"})

        self._back = back

    def connect(self):
        clips = self.select(most=6, takes_only=True)
        if not clips:
            return
        self._back = None
        command = self.program.send("command", "batchConnectQTClips")
        self.program.until(lambda state: state["modal"] == "Choose folder with QuickTime clips", "the chooser")
        for clip in clips:
            clip.may("clipPath", CONNECTED)
        self.begin("connect")
        self.program.do("choose", str(self.media))
        self.program.answer(command)
        state = self.program.until(lambda state: self.are_connected(clips, state), "the clips to be connected")
        self.note_connected(clips, state)
        while state["modal"]:
            if state["modal"] == "Could not connect all clips":
                self.program.do("button", "OK")
            state = self.program.state()

    @staticmethod
    def are_connected(clips, state):
        files = {row["Scene"]: row["File"] for row in state["rows"]}
        return state["modal"] == "Could not connect all clips" or (
            not state["modal"] and all(files.get(clip.scene) != "not connected" for clip in clips))

    @staticmethod
    def note_connected(clips, state):
        files = {row["Scene"]: row["File"] for row in state["rows"]}
        for clip in clips:
            clip.has("clipPath", None if files[clip.scene] == "not connected" else CONNECTED)

    def disconnect(self):
        clips = self.select(most=3, takes_only=True)
        if not clips:
            return
        for clip in clips:
            clip.may("clipPath", None)
        self.begin("disconnect")
        self.program.do("command", "unConnectSelectedClips",
                        lambda _: [clip.has("clipPath", None) for clip in clips])
        self._back = None

    def quit(self):
        if self.take:
            self.stop()
        has_trash = any("trash" in clip.places for clip in self.clips.values())
        deletes = self.random.random() < 0.3
        self.begin("quit")
        self.program.send("key", "Ctrl+Q")
        if has_trash:
            self.answer_trash_question("Delete Clips" if deletes else "Keep Clips")
        while True:
            self.program.rest(0.002)
            self.program.state()

    def answer_trash_question(self, answer):
        """The question may not come: a clip that was thought to be in the trash need not be."""
        self.program.until(lambda state: state["modal"] == "Delete Clips in the Trash?", "the question")
        if answer == "Delete Clips":
            for clip in self.clips.values():
                if "trash" in clip.places:
                    clip.places.add("gone")
        self.begin("quit")
        self.program.do("button", answer)

    def note_end(self):
        """The program has stopped the take in progress and selected it: what was still being typed went there."""
        if self.take:
            self.take.values["clipComment"] = ANYTHING

    def quit_keeping_trash(self):
        try:
            self.program.send("key", "Ctrl+Q")
            if any("trash" in clip.places for clip in self.clips.values()):
                self.program.until(lambda state: state["modal"] == "Delete Clips in the Trash?", "the question")
                self.program.do("button", "Keep Clips")
            while True:
                self.program.state()
        except Ended:
            pass


def note(marker, answer):
    marker.sent, marker.done = answer["sent"], answer["done"]


def place(clips, places):
    for clip in clips:
        clip.places = set(places)
