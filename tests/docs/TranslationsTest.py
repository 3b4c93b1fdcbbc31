"""tools/translations passes what the project holds, and finds each kind of fault that is put into a copy of it."""
import pathlib
import shutil
import subprocess
import sys
import tempfile

GERMAN = "translations/marquill_de.ts"

# What is replaced in which file, and what the tool is to say of it.
FAULTS = {
    "a new text": ("src/platform/NoticeBar.cpp", 'tr("Notice")', 'tr("News of the day")', "“News of the day” is not translated"),
    "a text that went": ("src/platform/NoticeBar.cpp", 'tr("Notice")', "QString()", "“Notice” is no text of the program any more"),
    "a text of a window description": ("src/resources/windows/ProgressSheet.ui", "<string>Cancel</string>",
                                       "<string>Give up</string>", "“Give up” is not translated"),
    "a text that is not finished": (GERMAN, "<translation>&amp;Datei</translation>",
                                    '<translation type="unfinished">&amp;Datei</translation>', "“&File” is not translated"),
    "an empty translation": (GERMAN, "<translation>Filme importieren</translation>", "<translation></translation>",
                             "“Import Movies” is translated by nothing"),
    "a lost placeholder": (GERMAN, "%1 (bei Byte %2)", "%1", "other placeholders"),
    "a lost mnemonic": (GERMAN, "&amp;Datei", "Datei", "other mnemonic"),
    "two controls with one mnemonic": (GERMAN, "&amp;Datei", "Datei&amp;n", "more than one control answers to N"),
    "a lost ellipsis": (GERMAN, "Filme importieren…", "Filme importieren", "other ellipsis"),
    "a translated option": (GERMAN, "--converted fehlt", "--umgewandelt fehlt", "other commands and options"),
    "a literal that is shown": ("src/platform/NoticeBar.cpp", 'tr("Notice")', 'u"News of the day"_s',
                                "no translation sees “News of the day”"),
    "a single word that is shown": ("src/platform/NoticeBar.cpp", 'setToolTip(tr("Close Notice"))', 'setToolTip(u"Close"_s)',
                                    "no translation sees “Close”"),
    "an error that is not translated": ("src/platform/ProgressSheet.cpp", 'tr("the window description holds no dialog")',
                                        'u"the window holds no dialog"_s', "no translation sees “the window holds no dialog”"),
    "a constant that is made too early": ("src/platform/NoticeBar.cpp", "namespace marquill {",
                                          'namespace marquill {\nconst QString early = NoticeBar::tr("Notice");',
                                          "translated before the program runs"),
    "a table whose texts tr() does not find": ("src/clipmanager/ClipConflicts.cpp", '("marquill::ClipConflicts"', '("ClipConflicts"',
                                               "tr() looks under “marquill::ClipConflicts”"),
    "a class that the catalogue does not know": ("src/platform/NoticeBar.cpp", 'tr("Notice")', 'Strange::tr("Notice")',
                                                 "Strange is not seen"),
}


def say(root):
    done = subprocess.run([sys.executable, root / "tools/translations"], capture_output=True, text=True)
    return done.returncode, done.stdout + done.stderr


def main(source):
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        for part in ("src", "translations", "tools"):
            shutil.copytree(source / part, root / part)
        status, said = say(root)
        assert status == 0, said
        for fault, (path, old, new, expected) in FAULTS.items():
            file = root / path
            whole = file.read_text(encoding="utf-8")
            assert old in whole, f"{fault}: “{old}” is not in {path} any more"
            file.write_text(whole.replace(old, new), encoding="utf-8")
            status, said = say(root)
            assert status != 0 and expected in said, f"{fault}: {said}"
            file.write_text(whole, encoding="utf-8")
            print(f"found: {fault}")


main(pathlib.Path(sys.argv[1]))
