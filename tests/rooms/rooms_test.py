#!/usr/bin/env python3
"""Tests that the sources keep to their rooms, and that the check notices when they do not."""

import os
import tempfile
import unittest
from pathlib import Path

import rooms as checks

SOURCE = Path(os.environ["QUARLIN_SOURCE"]) / "src"
ROOMS = Path(os.environ["QUARLIN_ROOMS"])
WIDGET_HEADERS = Path(os.environ["QUARLIN_WIDGET_HEADERS"])
WIDGET_ROOM = "ui"


def widget_headers():
    return {path.name for path in WIDGET_HEADERS.iterdir()}


class Sources(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.rooms = checks.read_rooms(ROOMS.read_text(encoding="utf-8"))

    def assert_none(self, findings):
        if findings:
            self.fail("\n" + "\n".join(findings))

    def test_rooms_are_in_no_circle(self):
        self.assert_none(checks.circles(self.rooms))

    def test_includes_name_a_room_that_is_linked(self):
        self.assert_none(checks.wrong_includes(SOURCE, self.rooms))

    def test_folders_are_small(self):
        self.assert_none(checks.crowded_folders(SOURCE))

    def test_widgets_are_used_by_the_window_only(self):
        self.assertIn("QWidget", widget_headers())
        self.assert_none(checks.widgets_below(SOURCE, self.rooms, WIDGET_ROOM, widget_headers()))


class Checks(unittest.TestCase):
    """The checks find what they are for, in small trees of sources."""

    ROOMS = "base: |\nsecret: base |\nhouse/ground: base | secret\nui: house_ground |\n"

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.source = Path(folder.name)
        self.rooms = checks.read_rooms(self.ROOMS)
        for room in self.rooms:
            self.write(f"{room}/thing.h", "")

    def write(self, name, text):
        path = self.source / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def wrong_includes_of(self, name, included):
        self.write(name, f'#include "{included}"\n#include <vector>\n')
        return checks.wrong_includes(self.source, self.rooms)

    def test_rooms_that_are_linked_may_be_included(self):
        self.assertEqual(self.wrong_includes_of("house/ground/a.cpp", "house/ground/thing.h"), [])
        self.assertEqual(self.wrong_includes_of("house/ground/a.cpp", "secret/thing.h"), [])
        self.assertEqual(self.wrong_includes_of("ui/buttons/a.cpp", "base/thing.h"), [])

    def test_rooms_that_are_not_linked_may_not_be_included(self):
        self.assertEqual(len(self.wrong_includes_of("base/a.cpp", "house/ground/thing.h")), 1)

    def test_a_private_link_is_not_passed_on(self):
        self.assertEqual(len(self.wrong_includes_of("ui/a.cpp", "secret/thing.h")), 1)

    def test_an_include_names_its_room(self):
        self.assertEqual(len(self.wrong_includes_of("base/a.cpp", "thing.h")), 1)
        self.assertEqual(len(self.wrong_includes_of("base/a.cpp", "base/missing.h")), 1)

    def test_every_file_is_in_a_room(self):
        self.assertEqual(len(self.wrong_includes_of("attic/a.cpp", "base/thing.h")), 1)

    def test_circles_are_found(self):
        self.assertEqual(checks.circles(self.rooms), [])
        self.rooms["base"].private.append("ui")
        self.assertIn("base -> ui -> house/ground -> base", checks.circles(self.rooms))

    def test_crowded_folders_are_found(self):
        for index in range(checks.MOST_FILES_PER_FOLDER - 1):
            self.write(f"base/file{index}.cpp", "")
        self.assertEqual(checks.crowded_folders(self.source), [])
        self.write("base/surplus.cpp", "")
        self.assertEqual(len(checks.crowded_folders(self.source)), 1)

    def test_widgets_below_the_window_are_found(self):
        for name in ("base/a.cpp", "ui/a.cpp"):
            self.write(name, "#include <QWidget>\n#include <QtWidgets/QLabel>\n#include <QString>\n")
        found = checks.widgets_below(self.source, self.rooms, WIDGET_ROOM, {"QWidget"})
        self.assertEqual([finding.split()[0] for finding in found], ["base/a.cpp", "base/a.cpp"])


if __name__ == "__main__":
    unittest.main()
