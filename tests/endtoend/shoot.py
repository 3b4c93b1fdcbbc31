"""A small day of shooting for pictures and end-to-end tests: two record folders with placeholder clips."""
import datetime
import pathlib
import plistlib
import subprocess

MORNING = datetime.datetime(2026, 5, 4, 7, 12, 30)
TAKES = [("Harbour Wide", "12", 3, 74), ("Harbour Close", "12A", 2, 41), ("Ferry Dialogue", "14", 4, 128),
         ("Lighthouse", "15B", 1, 212)]
BUTTONS = ["Action", "Cut", "Good", "NG", "Boom in shot", "Focus soft", "Pickup", "Wild line", "Flare", "Hold"]


def marker(title, seconds, comment=""):
    tags = {"in": True} if title == "Action" else {"out": True} if title == "Cut" else {}
    return {"clipMarkerTitle": title, "clipMarkerIn": seconds, "clipMarkerDur": 0.0, "clipMarkerComment": comment,
            "clipMarkerTags": tags}


def clip(name, scene, start, duration, take):
    markers = [marker("Action", 2.48), marker("Good" if take % 2 else "NG", duration * 0.6, "second half"),
               marker("Cut", duration - 1.5)]
    return {"clipName": name, "clipScene": scene, "clipCreationDate": start, "clipRecordingStartTime": start,
            "clipOldRecordingStartTime": start, "clipDuration": duration, "clipOldDuration": duration,
            "clipMarkerArray": markers}


def make_movie(parent):
    """A movie of ten seconds at 25 frames a second, each frame bearing its number."""
    path = pathlib.Path(parent) / "A001_C003.mov"
    subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "testsrc2=size=640x360:rate=25:duration=10", "-c:v",
                    "mjpeg", "-q:v", "5", path], check=True)
    return path


def make_shoot(parent):
    """Writes the folders below `parent` and returns their paths."""
    first, second = pathlib.Path(parent) / "Day 1 Harbour", pathlib.Path(parent) / "Day 2 Studio"
    second.mkdir()
    first.mkdir()
    start = MORNING
    for name, scene, takes, duration in TAKES:
        for take in range(1, takes + 1):
            file_name = f"{name}#{take:02d}.xml"
            record = clip(file_name, scene, start, duration + 7 * take, take)
            if name == "Lighthouse":
                record |= {"clipPath": str(make_movie(parent)), "clipProxyType": "clipTypeQT"}
            (first / file_name).write_bytes(plistlib.dumps(record))
            start += datetime.timedelta(seconds=duration + 240)
    return [first, second]


def settings_for(folders, scale=1):
    """Settings that show these folders, the first one as the recording folder, on a screen of 1280 by 800."""
    records = [{"folderPath": str(folder), "folderName": folder.name} for folder in folders]
    return {
        "ClipManagerSettings": {"kRecordFolderArray": records, "kRecordFolderPath": str(folders[0]),
                                "kWindPosX": 16.0, "kWindPosY": 40.0, "kWindWidth": 800.0, "kWindHeight": 640.0,
                                "kWindVisible": True, "kWindExpanded": True},
        "kMarkerSets": {"kMarkerSetArray": [{"kMarkerSetTitle": "Fiction", "kMarkerArray": BUTTONS, "kMarkerID": 1}],
                        "kMarkerCurrSet": 1, "kWindowVisible": True},
        "kMarkerWindowFrame": "840 40 284 340",
        "kOfflineRecorderWindowFrame": "840 476 404 180",
        "kOfflineRecorder": {"kOfflineRecorderWindowVisible": True, "kOfflineRecorderClipName": "Ferry Dialogue",
                             "kOfflineRecorderSceneName": "14"},
    }
