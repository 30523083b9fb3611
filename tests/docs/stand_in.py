#!/usr/bin/env python3
"""Stands in for a command that a quoted one would install, build or open a window with: checks its words and does
nothing."""

import sys

from commands import complaint

wrong = complaint(sys.argv)
if wrong:
    sys.exit(wrong)
