"""What an operator knows of a shoot: which clips there must be, and what each of them may hold. A value that is
being changed may be the old one or the new one; one whose change the program has dealt with is the new one."""
import datetime
import plistlib
import struct

GRACE = 0.100  # seconds after which what happened during a take must survive a kill
CLOCKS = 0.030  # seconds that the clocks of the two sides may be apart
CONNECTED = "(connected)"
RECOVERED = "Recovered take"


class Anything:
    """The set of all values."""

    def __contains__(self, value):
        return True


ANYTHING = Anything()


class Marker:
    def __init__(self, title):
        self.title, self.sent, self.done = title, None, None
        self.was_found = False

    def is_due(self, moment, is_stopped):
        return self.was_found or (self.done is not None and (is_stopped or moment - self.done > GRACE))


class Clip:
    """A take, or a movie that was there from the start. Its scene tells it from all others."""

    def __init__(self, scene, name):
        self.scene = scene
        self.names = {name}  # display names
        self.old_names = {name}  # which the record may still hold after a kill
        self.places = {"folder"}
        self.trash_name = None  # the file's name there
        self.values = {"clipComment": {None}, "clipRating": {None}, "clipPath": {None}}
        self.start = self.stop = None  # answers; of a take only
        self.wall = None  # when it was started, seconds since 1970
        self.markers = []
        self.is_known = True  # it was found by an earlier look at the files

    @classmethod
    def take(cls, scene, name):
        clip = cls(scene, name)
        clip.is_known = False
        clip.wall = datetime.datetime.now(datetime.timezone.utc).timestamp()
        return clip

    def is_take(self):
        return self.wall is not None

    def may(self, key, *values):
        self.values[key].update(values)

    def has(self, key, value):
        self.values[key] = {value}

    def must_exist(self, moment):
        started = self.start is not None and moment - self.start["done"] > GRACE
        return (self.is_known or started or self.stop is not None) and "gone" not in self.places

    def describe(self):
        return (f"scene {self.scene}: names {sorted(self.names)}, places {sorted(self.places)}, values {self.values}, "
                f"start {self.start}, stop {self.stop}, known {self.is_known}, "
                f"markers {[(m.title, m.sent, m.done) for m in self.markers]}")


def differences(clip, found, moment):
    """What is wrong with the files `found` of a clip after the program was killed at `moment`, as texts. They are
    (place, file name, record), all with the clip's scene."""
    if not found:
        return ["is lost"] if clip.must_exist(moment) else []
    if len(found) > 1:
        return [f"stands there {len(found)} times: {[(place, name) for place, name, _ in found]}"]
    place, file_name, record = found[0]
    wrong = []
    if place not in clip.places:
        wrong.append(f"is in the {place}")
    if display_name(file_name) not in clip.names:
        wrong.append(f"has the name {file_name}")
    if file_name.endswith(".xml") and display_name(record["clipName"]) not in clip.names | clip.old_names:
        wrong.append(f"{file_name} holds the name {record['clipName']}")
    for key, allowed in clip.values.items():
        value = CONNECTED if key == "clipPath" and key in record else record.get(key)
        recovered = key == "clipComment" and value == RECOVERED and clip.is_take() and clip.stop is None
        if value not in allowed and not recovered:
            wrong.append(f"{key} is {value!r}")
    return wrong + (take_differences(clip, record, moment) if clip.is_take() else [])


def display_name(file_name):
    return file_name.rpartition("#")[0]


def take_differences(clip, record, moment):
    wrong = []
    markers = record.get("clipMarkerArray", [])
    due = [marker for marker in clip.markers if marker.is_due(moment, clip.stop is not None)]
    if len(markers) < len(due):
        wrong.append(f"has {len(markers)} markers, of {len(due)} that are due")
    if len(markers) > len(clip.markers):
        wrong.append(f"has {len(markers)} markers, of {len(clip.markers)} that were fired")
    for number, (marker, stored) in enumerate(zip(clip.markers, markers), 1):
        if stored["clipMarkerTitle"] != marker.title:
            wrong.append(f"marker {number} is {stored['clipMarkerTitle']!r}, not {marker.title!r}")
        if clip.start is None or marker.done is None:
            continue
        earliest = marker.sent - clip.start["done"] - CLOCKS
        latest = marker.done - clip.start["sent"] + CLOCKS
        if not earliest <= stored["clipMarkerIn"] <= latest:
            wrong.append(f"marker {number} is at {stored['clipMarkerIn']}, not {earliest:.3f} to {latest:.3f}")
    return wrong + length_differences(clip, record)


def length_differences(clip, record):
    began = record.get("clipOldRecordingStartTime") or record.get("clipRecordingStartTime")
    late = began.replace(tzinfo=datetime.timezone.utc).timestamp() - clip.wall
    if not -1.1 <= late <= 60:  # sent at once, but a busy machine may deal with it late
        return [f"began {late} s after the key"]
    length = record.get("clipOldDuration")
    if clip.start and clip.stop:
        shortest = int(max(0, clip.stop["sent"] - clip.start["done"] - CLOCKS))
        longest = int(clip.stop["done"] - clip.start["sent"] + CLOCKS)
        if not shortest <= length <= longest:
            return [f"lasts {length} s, not {shortest} to {longest}"]
    elif record.get("clipMarkerArray") and length < int(record["clipMarkerArray"][-1]["clipMarkerIn"]):
        return [f"lasts {length} s, less than to its last marker"]
    return []


def settle(clip, found):
    """From now on the clip has what it was found with."""
    clip.is_known = bool(found)
    if not found:
        clip.places = {"gone"}
        return
    place, file_name, record = found[0]
    clip.old_names |= clip.names
    clip.places, clip.names = {place}, {display_name(file_name)}
    clip.trash_name = file_name if place == "trash" else None
    for key in clip.values:
        clip.values[key] = {CONNECTED if key == "clipPath" and key in record else record.get(key)}
    # What survived is written, and must survive what comes.
    if clip.is_take():
        clip.markers = clip.markers[:len(record.get("clipMarkerArray", []))]
        for marker in clip.markers:
            marker.was_found = True


def read_clip(path):
    """The record in a clip file, by other means than the program's own; raises when there is none."""
    data = path.read_bytes()
    return plistlib.loads(data if path.suffix == ".xml" else movie_record(data))


def movie_record(data):
    """The property list in moov/udta/KVXN of a QuickTime movie; every atom up to it must be whole."""
    for name, body in atoms(data):
        if name == b"moov":
            for inner, contents in atoms(body):
                if inner == b"udta":
                    for item, record in atoms(contents):
                        if item == b"KVXN":
                            return record
    raise ValueError("the movie has no record")


def atoms(data):
    at = 0
    while at + 8 <= len(data):
        size, name = struct.unpack_from(">I4s", data, at)
        if size == 0:
            size = len(data) - at if name != b"\0\0\0\0" else 4
        if size == 4:
            return  # the null that ends a user-data list
        header = 8
        if size == 1:
            size, header = struct.unpack_from(">Q", data, at + 8)[0], 16
        if size < header or at + size > len(data):
            raise ValueError(f"the atom {name} at {at} reaches over the end")
        yield name, data[at + header:at + size]
        at += size
