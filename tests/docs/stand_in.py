#!/usr/bin/env python3
"""Replaces a quoted command that would install or build something or open a window. Only checks its arguments."""

import sys

from commands import complaint

wrong = complaint(sys.argv)
if wrong:
    sys.exit(wrong)
