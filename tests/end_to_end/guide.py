"""The guide of docs/guide as its tests see it."""

import re
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
GUIDE = ROOT / "docs/guide"
LANGUAGES = ("zh", "en")

FENCE = re.compile(r"^( *)```(\w*)\n(.*?)^\1```$", re.MULTILINE | re.DOTALL)
ANCHOR = re.compile(r'^<a name="([^"]+)"></a>$', re.MULTILINE)
LINK = re.compile(r"(!?)\[[^\]]*\]\(([^)\s]+)\)")


def pages(language):
    return sorted((GUIDE / language).glob("*.md"))


def text_of(page):
    return page.read_text(encoding="utf-8")


def blocks(page):
    """The fenced blocks of a page: language and text, without the indentation of a list."""
    return [(language, re.sub(f"^{indent}", "", text, flags=re.MULTILINE))
            for indent, language, text in FENCE.findall(text_of(page))]


def words(page):
    """What is read of a page: neither its blocks nor what it has as code."""
    return re.sub(r"`[^`]*`", "", FENCE.sub("", text_of(page)))


def calls(page):
    """The calls of the program's own that stand within its lines."""
    return re.findall(r"`((?:commtest|commtest-cli|instrument-simulator)(?: [^`]+)?)`", FENCE.sub("", text_of(page)))


def anchors(page):
    return ANCHOR.findall(text_of(page))


def links(page):
    return [target for _, target in LINK.findall(words(page))]
