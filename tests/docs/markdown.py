"""The parts of a Markdown file that can be checked: code, links and headings."""

import re
from dataclasses import dataclass, field


@dataclass
class Block:
    """A fenced block: its language as named by the fence, its text and its first line."""

    language: str
    text: str
    line: int


@dataclass
class Document:
    blocks: list = field(default_factory=list)
    spans: list = field(default_factory=list)
    links: list = field(default_factory=list)
    headings: list = field(default_factory=list)
    indented: list = field(default_factory=list)


SPAN = re.compile(r"(?<!`)`([^`]+)`(?!`)")
LINK = re.compile(r"!?\[[^\]]*\]\(([^)\s]+)\)")


def anchor(heading):
    """The anchor of this heading in links."""
    words = re.sub(r"[^\w\- ]", "", heading.replace("`", "").lower())
    return words.strip().replace(" ", "-")


def parse(text):
    """Spans and links are pairs of a line number and a text; `indented` has the numbers of code lines without a fence."""
    document = Document()
    prose = []
    fence = None
    blank = True
    for number, line in enumerate(text.splitlines(), 1):
        if line.lstrip().startswith("```"):
            if fence is None:
                fence = Block(line.strip().strip("`"), "", number)
            else:
                document.blocks.append(fence)
                fence = None
        elif fence is not None:
            fence.text += line + "\n"
        else:
            if line.startswith("    ") and blank:
                document.indented.append(number)
            if line.startswith("#"):
                document.headings.append(anchor(line.lstrip("#")))
            prose.append((number, line))
        blank = not line.strip()
    # A span may continue on the next line.
    whole = "\n".join(line for _, line in prose)
    numbers = [number for number, _ in prose]

    def found(expression, where):
        return [(numbers[where.count("\n", 0, match.start())], " ".join(match[1].split()))
                for match in expression.finditer(where)]

    document.spans = found(SPAN, whole)
    document.links = found(LINK, SPAN.sub(lambda match: "\n" * match[0].count("\n"), whole))
    return document
