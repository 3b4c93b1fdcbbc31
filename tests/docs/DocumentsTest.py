"""Every link and picture of the documents leads somewhere, the manual quotes the program word for word, and the settings
are described."""
import pathlib
import re
import sys

LINK = re.compile(r"!?\[[^\]]*\]\(([^)\s]+)\)")
LITERAL = re.compile(r'"((?:[^"\\\n]|\\.)*)"')
QUOTED = re.compile(r'"([^"]*)"')
MOST_BYTES = 150_000
# What the manual puts in quotes and the program does not say: names of the examples.
EXAMPLES = {"Ferry reverse", "Salt Line Day 3", "Salt Line Day 2", "Boom in shot"}


def without_code(text):
    return re.sub(r"```.*?```|`[^`\n]*`|^    .*?$", "", text, flags=re.DOTALL | re.MULTILINE)


def anchors_of(document):
    """Those that headings get: lower case, without punctuation, with hyphens for spaces."""
    titles = re.findall(r"^#+ (.+)$", document.read_text(encoding="utf-8"), re.MULTILINE)
    return {re.sub(r"[^\w\- ]", "", title.lower()).replace(" ", "-") for title in titles}


def wrong_links(document):
    for link in LINK.findall(without_code(document.read_text(encoding="utf-8"))):
        if link.startswith(("http:", "https:", "mailto:")):
            continue
        path, _, anchor = link.partition("#")
        target = (document.parent / path).resolve() if path else document
        if not target.exists():
            yield f"{document}: there is no {path}"
        elif anchor and anchor not in anchors_of(target):
            yield f"{document}: {target.name} has no heading #{anchor}"


def wrong_pictures(root, documents):
    shown = {pathlib.Path(link).name for document in documents
             for link in LINK.findall(document.read_text(encoding="utf-8"))}
    for picture in sorted((root / "docs/images").iterdir()):
        if picture.name not in shown:
            yield f"{picture}: no document shows it"
        if picture.stat().st_size > MOST_BYTES:
            yield f"{picture}: {picture.stat().st_size} bytes are more than {MOST_BYTES}"


def texts_of_program(root):
    """The literals of the sources, those of several lines as one, and the texts of the windows."""
    for source in [*(root / "src").rglob("*.cpp"), *(root / "src").rglob("*.h")]:
        text = re.sub(r'"\s*\n\s*u?"', "", source.read_text(encoding="utf-8"))
        yield from (literal.replace('\\"', '"') for literal in LITERAL.findall(text))
    for window in (root / "src").rglob("*.ui"):
        yield from re.findall(r"<string>(.*?)</string>", window.read_text(encoding="utf-8"))


def pattern_of(text):
    """What a text becomes when its places are filled; a text may also be the beginning of one."""
    return re.compile(re.sub(r"%\d", ".*", re.escape(text.strip()).replace("\\%", "%")) + r"( ?…)?$")


def wrong_quotes(document, patterns):
    text = re.sub(r"\n(?:> ?)?\s*", " ", without_code(document.read_text(encoding="utf-8")))
    for quoted in QUOTED.findall(text):
        if " " in quoted and quoted not in EXAMPLES and not any(pattern.match(quoted) for pattern in patterns):
            yield f"{document}: the program does not say “{quoted}”"


def wrong_settings(root):
    """Every key of the settings is described, and none that is not there."""
    described = set(re.findall(r"`([A-Za-z]+)`", (root / "docs/formats/settings.md").read_text(encoding="utf-8")))
    sources = "".join(source.read_text(encoding="utf-8") for source in (root / "src").rglob("*.cpp")) + "".join(
        source.read_text(encoding="utf-8") for source in (root / "src").rglob("*.h"))
    kept = set(re.findall(r'"(k[A-Z]\w+)"_s', sources)) | {"ClipManagerSettings", "PrefDict"}
    yield from (f"settings.md: {key} is not described" for key in sorted(kept - described))
    yield from (f"settings.md: the program keeps no {key}" for key in sorted(described)
                if re.match("k[A-Z]", key) and key not in kept)


def main():
    root = pathlib.Path(sys.argv[1])
    documents = [*sorted(root.glob("*.md")), *sorted((root / "docs").rglob("*.md"))]
    manual = sorted((root / "docs/manual").glob("*.md"))
    if len(manual) < 7:
        raise AssertionError(f"the manual has only {[page.name for page in manual]}")
    # Of a text that is all place, everything would be an example.
    patterns = [pattern_of(text) for text in texts_of_program(root) if re.search(r"[A-Za-z]{3}", text)]
    wrong = [problem for document in documents for problem in wrong_links(document)]
    wrong += wrong_pictures(root, documents)
    wrong += [problem for page in manual for problem in wrong_quotes(page, patterns)]
    wrong += wrong_settings(root)
    if wrong:
        raise AssertionError("\n".join(["the documents are wrong:", *wrong]))
    print(f"{len(documents)} documents, their links and pictures, and what they quote.")


if __name__ == "__main__":
    main()
