"""Checks every Markdown file against the repository.

- A link leads to an existing file and an existing heading.
- Code is in fenced blocks that name their language. The `sh` blocks of a document are run by bash, one after the other,
  in a folder with the samples. `quarlin-cli` is the real one; a command that would install or build something, or open a
  window, is replaced by a stand-in that only checks its arguments.
- In a code span, a path, a command and its options exist, and a name occurs somewhere in the repository.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from functools import lru_cache
from pathlib import Path

import markdown
from commands import CLI, SOURCE, cli_commands, cli_options, complaint

HERE = Path(__file__).resolve().parent
NOT_OURS = {".git", ".cache", "build", "node_modules", "out"}
# Quoted commands that must not really run here.
STAND_INS = ["cmake", "cpack", "ctest", "git", "man", "quarlin", "sudo"]
LANGUAGES = {"sh", "text", "json", "cpp", "cmake"}
# Made by the commands, or a placeholder.
MADE = re.compile(r"^(build|out|node_modules)/|[A-Z]{3,}|^[~/]|\*\*|<|…")
FILE_NAME = re.compile(r"^[\w.@*{},-]+\.(h|cpp|py|cmake|in|md|svg|json|desktop|supp|1)$")


def files():
    for folder, folders, names in os.walk(SOURCE):
        folders[:] = [name for name in folders if name not in NOT_OURS]
        for name in names:
            yield Path(folder, name)


@lru_cache(maxsize=None)
def documents():
    return {file: markdown.parse(file.read_text()) for file in sorted(files()) if file.suffix == ".md"}


@lru_cache(maxsize=None)
def names():
    """Every word in the repository outside its documents, and the parts of its file names."""
    found = set()
    for file in files():
        found.update(file.relative_to(SOURCE).parts, {file.stem})
        if file.suffix not in (".md", ".png", ".jpg"):
            try:
                found.update(re.findall(r"[\w.-]*\w", file.read_text()))
            except UnicodeDecodeError:
                continue
    return found | {part for name in found for part in re.findall(r"\w+", name)}


def exists(path, beside):
    """Whether a path exists, relative to the repository or to the document. A suffix may be omitted."""
    path = path.rstrip("/")
    for folder in (SOURCE, beside):
        if any(folder.glob(path)) or any(folder.glob(path + ".*")):
            return True
    return False


def wrong_in_span(span, document):
    """What is wrong with a code span; None if it is right or can't be checked."""
    words = span.split()
    if words[0] in ("./dev", "cmake", "ctest", "quarlin-cli"):
        return complaint(words)
    if len(words) > 1:
        return None
    if re.fullmatch(r"--[a-z][a-z-]*", span):
        known = cli_options().union(*map(cli_options, cli_commands()))
        return None if span in known or span.lstrip("-") in names() else f"no option {span}"
    if MADE.search(span):
        return None
    if "/" in span and re.fullmatch(r"[\w.@*/-]+", span):
        return None if exists(span, document.parent) else f"no file {span}"
    if FILE_NAME.fullmatch(span):
        return None if any(SOURCE.rglob(span)) else f"no file named {span}"
    if re.fullmatch(r"[A-Za-z_][\w:]*(\(\))?", span):
        missing = [part for part in re.findall(r"\w+", span) if part not in names()]
        return f"{missing[0]} occurs nowhere" if missing else None
    return None


def prepare(folder):
    """Prepares the folder in which quoted commands run. Returns the folder of the programs that they call."""
    programs = folder / ".programs"
    programs.mkdir()
    for command in STAND_INS:
        (programs / command).symlink_to(HERE / "stand_in.py")
    (programs / "quarlin-cli").symlink_to(CLI)
    (folder / "dev").symlink_to(HERE / "stand_in.py")
    (folder / ".ci").mkdir()
    (folder / ".ci/run").symlink_to(HERE / "stand_in.py")
    (folder / "samples").mkdir()
    for sample in [*SOURCE.glob("samples/*.png"), *SOURCE.glob("samples/*.jpg")]:
        shutil.copy(sample, folder / "samples")
    return programs


def failure_of(script, folder, programs):
    """The output of bash and the commands if the script fails in the folder; None if it succeeds."""
    done = subprocess.run(
        ["bash", "-euo", "pipefail", "-c", script], cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT, text=True, timeout=250,
        env={**os.environ, "PATH": f"{programs}:{os.environ['PATH']}", "PYTHONPATH": str(HERE)})
    return f"exit status {done.returncode}\n{done.stdout}" if done.returncode != 0 else None


class Documents(unittest.TestCase):
    def setUp(self):
        # Print only the message, not the two lists that it was made from.
        self.longMessage = False

    def each(self, wrong_in):
        """Asserts that `wrong_in(file, document)` lists nothing for any document."""
        complaints = [f"{file.relative_to(SOURCE)}:{line}: {text}"
                      for file, document in documents().items() for line, text in wrong_in(file, document)]
        self.assertFalse(complaints, "\n" + "\n".join(complaints))

    def test_the_documents_that_a_reader_expects_exist(self):
        there = {str(file.relative_to(SOURCE)) for file in documents()}
        self.assertLessEqual({"README.md", "ARCHITECTURE.md", "CONTRIBUTING.md", "CHANGELOG.md"}, there)

    def test_the_architecture_names_every_layer(self):
        layers = [f"src/{file.parent.name}/" for file in SOURCE.glob("src/*/CMakeLists.txt")]
        text = (SOURCE / "ARCHITECTURE.md").read_text()
        self.assertEqual([layer for layer in layers if layer not in text], [])

    def test_links_have_targets(self):
        def wrong(file, document):
            for line, link in document.links:
                if re.match(r"[a-z]+:", link):
                    continue
                path, _, heading = link.partition("#")
                target = (file.parent / path).resolve() if path else file
                if not target.exists():
                    yield line, f"no file {link}"
                elif heading and heading not in documents()[target].headings:
                    yield line, f"no heading {link}"

        self.each(wrong)

    def test_code_is_in_blocks_that_name_their_language(self):
        def wrong(_, document):
            for line in document.indented:
                yield line, "code without a fence around it"
            for block in document.blocks:
                if block.language not in LANGUAGES:
                    yield block.line, f"a block of the language '{block.language}'"

        self.each(wrong)

    def test_spans_name_what_exists(self):
        def wrong(file, document):
            for line, span in document.spans:
                text = wrong_in_span(span, file)
                if text:
                    yield line, f"`{span}`: {text}"

        self.each(wrong)

    def test_quoted_commands_work(self):
        def wrong(_, document):
            # As for a reader who follows the document, the files that one block writes are there for the next one.
            with tempfile.TemporaryDirectory(prefix="quarlin-documents-") as name:
                programs = prepare(Path(name))
                for block in document.blocks:
                    text = failure_of(block.text, Path(name), programs) if block.language == "sh" else None
                    if text:
                        yield block.line, text

        self.each(wrong)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "--verbose", *sys.argv[1:]])
