"""A whole shoot of fifty takes for end-to-end tests: the placeholders that were logged, and what the cameras made."""
import datetime
import os
import pathlib
import plistlib
import shutil
import subprocess

from shoot import clip

NOON = datetime.datetime(2026, 5, 4, 12, 0, 0)  # UTC
# What ffmpeg encodes, and how long it lasts in seconds; files that are equally long are copies.
ENCODINGS = {
    "film": (41, "32x32", "24000/1001", ["libx264", "-preset", "ultrafast", "-video_track_timescale", "24000"]),
    "pal": (95, "32x32", "25", ["libx264", "-preset", "ultrafast", "-video_track_timescale", "25000"]),
    "proxy": (62, "32x32", "24", ["mjpeg", "-video_track_timescale", "24000"]),
    "dv": (1, "720x576", "25", ["dvvideo", "-pix_fmt", "yuv420p"]),
}


class Day:
    """A record folder, how its placeholders are connected, and what must come of it."""

    def __init__(self, name, kind, media, converted=None):
        self.name, self.kind, self.media, self.converted = name, kind, media, converted
        self.connected = {}  # names of placeholders, and the media they must get; None: nothing is left for them
        self.lacks_raw_file = False
        self.start = None  # UTC, of all connected clips


class Shoot:
    """All of it below `parent`: the record folders under "records", and the media."""

    def __init__(self, parent):
        self.parent = pathlib.Path(parent)
        self.records = self.parent / "records"
        self.movies = {name: self._encode(name) for name in ENCODINGS}
        self.days = [self._quicktime(), *map(self._red, "HPM"), self._raw(), self._card()]
        shutil.rmtree(self.parent / "encoded")

    def folders(self):
        return [self.records / day.name for day in self.days]

    # What the days hold

    def _quicktime(self):
        """Two cameras, whose clocks are seconds off. One take was logged twice, and one movie never."""
        day = Day("Day 1 QuickTime", "qt", self.parent / "cards")
        for take in range(1, 20):
            began = NOON + datetime.timedelta(minutes=6 * take)
            name = self._placeholder(day, f"Harbour Wide#{take:02d}.xml", began, take)
            encoding = ["film", "pal", "dv"][take % 3]
            ending, off = (".MOV", 7) if take % 2 else (".mov", -4)
            card = day.media / ("Card A" if take % 2 else "Card B/DCIM") / f"MVI_{take:04d}{ending}"
            day.connected[name] = self._movie(card, encoding, began + datetime.timedelta(seconds=off))
            day.start = began + datetime.timedelta(seconds=off)
        again = self._placeholder(day, "Harbour Wide#20.xml", NOON + datetime.timedelta(minutes=6 * 19 + 1), 20)
        day.connected[again] = None
        self._movie(day.media / "Card A/MVI_0000.MOV", "pal", NOON - datetime.timedelta(minutes=30))
        # Named like a movie without being one, and nearest to nothing.
        self._stamp(day.media / "Card A/MVI_0000.mov.txt", b"lens cap", NOON - datetime.timedelta(minutes=40))
        return day

    def _red(self, letter):
        """Proxies in three sizes beside the raw file that has the date; one raw file was taken away."""
        number = "HPM".index(letter) + 2
        day = Day(f"Day {number} RED {letter}", f"red-{letter.lower()}", self.parent / f"A00{number}.RDM")
        day.lacks_raw_file = letter == "P"
        for take in range(1, 5):
            began = NOON + datetime.timedelta(days=number - 1, minutes=5 * take, seconds=-9)
            name = self._placeholder(day, f"Lighthouse#{take:02d}.xml", began, take)
            began += datetime.timedelta(seconds=3 + take)
            reel = f"A00{number}_C00{take}_0504XY"
            folder = day.media / f"{reel}.RDC"
            for size in "HPM":
                # Proxies are made at night, and their dates mean nothing.
                proxy = self._movie(folder / f"{reel}_{size}.mov", "proxy", NOON + datetime.timedelta(days=number, hours=9))
                if size == letter:
                    day.connected[name] = proxy
            if day.lacks_raw_file and take == 4:
                day.connected[name] = None
            else:
                self._stamp(folder / f"{reel}_001.R3D", b"raw" * 1000, began)
                day.start = began
        return day

    def _raw(self):
        """Raw files and the movies converted from them, all but one."""
        day = Day("Day 5 RED raw", "red-raw", self.parent / "B001.RDM", self.parent / "converted raw")
        for take in range(1, 9):
            began = NOON + datetime.timedelta(days=4, minutes=4 * take)
            name = self._placeholder(day, f"Ferry & Gulls#{take:02d}.xml", began, take)
            began -= datetime.timedelta(seconds=2 * take)
            self._stamp(day.media / f"B001_C00{take}_0508.RDC/B001_C00{take}_0508_001.R3D", b"raw", began)
            day.connected[name] = None
            if take != 5:
                day.connected[name] = self._movie(day.converted / f"B001_C00{take}_0508.mov", "film",
                                                  NOON + datetime.timedelta(days=9))
            day.start = began
        return day

    def _card(self):
        """A P2 card, whose clock is set to local time and two seconds late, and the movies converted from it."""
        day = Day("Day 6 P2", "p2", self.parent / "P2 card", self.parent / "converted P2")
        starts = {}
        for take in range(1, 11):
            # After noon where the test runs: seven hours behind UTC.
            began = NOON + datetime.timedelta(days=5, hours=8, minutes=3 * take)
            name = self._placeholder(day, f"Studio#{take:02d}.xml", began, take)
            began += datetime.timedelta(seconds=2)
            local = (began - datetime.timedelta(hours=7)).isoformat() + "-07:00"
            code = f"00{take:02d}AB"
            folder = day.media / "CONTENTS" / "CLIP" / ("late" if take > 8 else "")
            self._stamp(folder / f"{code}.XML", self._description(local), began)
            self._stamp(day.media / "CONTENTS" / "VIDEO" / f"{code}.MXF", b"media", began)
            day.connected[name] = self._movie(day.converted / f"{code}.mov", "pal", NOON + datetime.timedelta(days=9))
            starts[code] = began
        self._stamp(day.media / "CONTENTS/CLIP/0099ZZ.xml", b"not read, as its extension is in lower case", NOON)
        day.start = starts.values()  # of which one is the last of the listing, whatever its order
        return day

    # How it is made

    def _encode(self, name):
        seconds, size, rate, codec = ENCODINGS[name]
        path = self.parent / "encoded" / f"{name}.mov"
        path.parent.mkdir(parents=True, exist_ok=True)
        subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", f"color=gray:size={size}:rate={rate}", "-t",
                        str(seconds), "-c:v", *codec, str(path)], check=True)
        return path

    def _placeholder(self, day, name, began, take):
        record = clip(name, f"{take}A", began, 30 + take, take)
        record |= {"clipComment": f"take {take}, <wind> & gulls", "clipLabel": "Print" if take % 3 else "Gulls"}
        if take % 4:
            record["clipRating"] = take % 6
        if take % 5 == 0:
            del record["clipMarkerArray"]
        path = self.records / day.name / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(plistlib.dumps(record))
        return name

    def _movie(self, path, encoding, began):
        """A movie that was stamped once, at the end of its recording."""
        path.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(self.movies[encoding], path)
        set_date(path, began + datetime.timedelta(seconds=ENCODINGS[encoding][0]))
        return path

    @staticmethod
    def _stamp(path, contents, moment):
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(contents)
        set_date(path, moment)

    @staticmethod
    def _description(local):
        return (f'<?xml version="1.0" encoding="UTF-8"?>\n<P2Main xmlns="urn:schemas-Professional-Plug-in:P2:Clip'
                f'Metadata:v3.1"><ClipContent><ClipMetadata><Access><CreationDate>{local}</CreationDate></Access>'
                f'</ClipMetadata></ClipContent></P2Main>\n').encode()


def set_date(path, moment):
    """Makes `moment`, of UTC, the date a file was last written; in the past it is also the date it was made."""
    seconds = moment.replace(tzinfo=datetime.timezone.utc).timestamp()
    os.utime(path, (seconds, seconds))
