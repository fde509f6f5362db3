"""The guide holds together, and quotes the program as it speaks."""

import html
import re
import unittest
from functools import cache

from guide import ANCHOR, GUIDE, LANGUAGES, ROOT, anchors, blocks, links, pages, text_of, words

QUOTES = {"zh": re.compile("「([^」]*)」"), "en": re.compile("“([^”]*)”")}
LITERAL = re.compile(r'"((?:[^"\\\n]|\\.)*)"')
SEVERAL_LITERALS = re.compile(r'"(?:_s)?\s*(?:u|u8)?"')
PLACEHOLDER = re.compile(r"%[0-9nvo]")
MESSAGES = "messages.md"  # quotes what is put together of several texts: scripts/check-guide-messages sees to it
WHOLE_CAPTION = 6  # a shorter quotation is a whole text of the program, a longer one may be a part of it


def plain(text):
    """A text without what a caption has for the keyboard and the field behind it."""
    text = re.sub(r"\(&\w\)|&", "", text.replace("\\n", " "))
    return " ".join(text.split()).rstrip("：:")


def literals_of(source):
    code = re.sub(r"^\s*//.*$", "", source.read_text(encoding="utf-8"), flags=re.MULTILINE)
    return LITERAL.findall(SEVERAL_LITERALS.sub("", code))


@cache
def texts_of_the_program():
    texts = set()
    for source in [*ROOT.glob("src/**/*.cpp"), *ROOT.glob("src/**/*.h")]:
        texts.update(literals_of(source))
    translations = (ROOT / "translations/english.ts").read_text(encoding="utf-8")
    for text in re.findall(r"<(?:source|translation|numerusform)>([^<]*)<", translations):
        texts.add(html.unescape(text))
    return sorted(filter(None, (plain(PLACEHOLDER.sub("…", text)) for text in texts)))


def says(quotation):
    """Whether the program says it; … stands for anything."""
    pattern = re.compile(".*".join(map(re.escape, plain(quotation).split("…"))))
    is_part = len(quotation) > WHOLE_CAPTION and "…" not in quotation
    match = pattern.search if is_part else pattern.fullmatch
    return any(match(text) for text in texts_of_the_program())


class GuideTest(unittest.TestCase):
    def test_each_text_that_is_quoted_is_one_of_the_program(self):
        for language in LANGUAGES:
            for page in pages(language):
                if page.name == MESSAGES:
                    continue
                for quotation in QUOTES[language].findall(words(page)):
                    with self.subTest(page=f"{language}/{page.name}", quotation=quotation):
                        self.assertTrue(says(quotation))

    def test_a_text_that_the_program_does_not_say_is_noticed(self):
        self.assertTrue(says("串口设置"))
        self.assertTrue(says("… is back"))
        for wrong in ("串口设", "串口调置", "… is here", "仪表目录没有打开过"):
            self.assertFalse(says(wrong), wrong)

    def test_each_link_leads_somewhere(self):
        for language in LANGUAGES:
            for page in pages(language):
                for target in links(page):
                    with self.subTest(page=f"{language}/{page.name}", target=target):
                        name, _, anchor = target.partition("#")
                        aim = (page.parent / name).resolve() if name else page
                        self.assertTrue(aim.is_file())
                        self.assertTrue(not anchor or anchor in anchors(aim))

    def test_each_page_is_reached_from_the_index(self):
        for language in LANGUAGES:
            reached = {"index.md", *links(GUIDE / language / "index.md")}
            self.assertEqual({page.name for page in pages(language)} - reached, set())

    def test_each_picture_is_shown(self):
        shown = {(page.parent / target).resolve() for language in LANGUAGES for page in pages(language)
                 for target in links(page)}
        self.assertEqual(set(GUIDE.glob("pictures/**/*.png")) - shown, set())

    def test_an_anchor_stands_once_and_before_its_heading(self):
        for language in LANGUAGES:
            for page in pages(language):
                with self.subTest(page=f"{language}/{page.name}"):
                    self.assertEqual(len(anchors(page)), len(set(anchors(page))))
                    behind = [text_of(page)[match.end():] for match in ANCHOR.finditer(text_of(page))]
                    self.assertEqual([text[:20] for text in behind if not re.match(r"\n+(<a name|#+ )", text)], [])

    def test_both_languages_have_the_same_pages_anchors_links_and_blocks(self):
        chinese, english = (pages(language) for language in LANGUAGES)
        self.assertEqual([page.name for page in chinese], [page.name for page in english])
        for one, other in zip(chinese, english):
            with self.subTest(page=one.name):
                self.assertEqual(anchors(one), anchors(other))
                self.assertEqual(*({link.replace("/zh/", "/en/") for link in links(each)
                                    if not re.match(r"\.\./(zh|en)/", link)} for each in (one, other)))
                self.assertEqual(blocks(one), blocks(other))


if __name__ == "__main__":
    unittest.main()
