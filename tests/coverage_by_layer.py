#!/usr/bin/env python3
"""coverage_by_layer.py SUMMARY: prints which part of the lines the tests run, per file and per layer, from the JSON
summary of gcovr. Fails when a layer that holds no widgets is below its share."""

import json
import sys
from collections import defaultdict

REQUIRED = {"imaging": 95.0, "model": 95.0, "engine": 95.0, "stores": 95.0}


def percent(covered, total):
    return 100.0 * covered / total if total else 100.0


def main(path):
    with open(path, encoding="utf-8") as file:
        files = json.load(file)["files"]
    layers = defaultdict(lambda: [0, 0])
    for entry in files:
        covered, total = entry["line_covered"], entry["line_total"]
        print(f"{percent(covered, total):6.1f} %  {total - covered:4} of {total:4} lines not run  {entry['filename']}")
        layer = layers[entry["filename"].split("/")[1]]
        layer[0] += covered
        layer[1] += total
    print()
    low = []
    for name, (covered, total) in sorted(layers.items()):
        required = REQUIRED.get(name)
        print(f"{percent(covered, total):6.1f} %  src/{name}" + (f" (at least {required:g} %)" if required else ""))
        if required and percent(covered, total) < required:
            low.append(name)
    missing = REQUIRED.keys() - layers.keys()
    if low or missing:
        sys.exit("too few lines are run in: " + ", ".join(low + sorted(missing)))


if __name__ == "__main__":
    main(sys.argv[1])
