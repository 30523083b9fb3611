#!/usr/bin/env python3
"""Times whole exports of quarlin-cli and of other programs with comparable work, in one run.

Every round runs each task once, so that other load of the machine affects all of them alike. The tables show medians.
The goals are printed next to the figures; meeting them is not checked.

    side_by_side [--rounds N] [--only-ours] [--no-sides]     other arguments are for the other benchmarks
"""

import argparse
import json
import os
import platform
import shutil
from pathlib import Path

from runs import (BENCH, MAPS, MATERIAL, OUTPUT, PROGRAMS, REFERENCE, SIZE, START, TEXTURES, five_textures,
                  make_textures, maps, material, measure, median, our_tasks, peer_tasks, photograph, run)


def print_table(title, header, rows):
    print(f"\n### {title}\n")
    rows = [header] + [[str(cell) for cell in row] for row in rows]
    widths = [max(len(row[column]) for row in rows) for column in range(len(header))]
    for index, row in enumerate(rows):
        print("| " + " | ".join(cell.ljust(width) for cell, width in zip(row, widths)) + " |")
        if index == 0:
            print("|" + "|".join("-" * (width + 2) for width in widths) + "|")


def print_times(results):
    reference = results.get(REFERENCE)
    goals = {MAPS: "0.22; 96 MiB", MATERIAL: "0.15; 96 MiB", START: "0.40 s"}

    def ratio(name, result):
        return f"{result.seconds / reference.seconds:.2f}" if reference and name != START else ""

    print_table(
        f"Whole programs, {SIZE} x {SIZE}",
        ["program", "seconds", "ratio", "processor seconds", "of it system", "peak MiB", "goal"],
        [[name, f"{result.seconds:.2f}", ratio(name, result), f"{result.processor:.2f}", f"{result.system:.2f}",
          f"{result.peak:.0f}", goals.get(name, "")] for name, result in results.items()])


def print_sizes():
    rows, ours, theirs = [], 0, 0
    for image in sorted((OUTPUT / "maps/photograph").glob("*.png")):
        size, reference = image.stat().st_size, (TEXTURES / "libpng" / image.name).stat().st_size
        ours, theirs = ours + size, theirs + reference
        rows.append([image.stem, f"{size:,}", f"{reference:,}", f"{size / reference:.2f}", "1.40"])
    rows.append(["all", f"{ours:,}", f"{theirs:,}", f"{ours / theirs:.2f}", "1.25"])
    print_table("Bytes of a generated set", ["image", "ours", "libpng, level 6, adaptive filters", "ratio", "goal"],
                rows)


def print_sides(rounds):
    """Both commands by the side of their inputs, at most as large as memory for one raw picture allows."""
    goals = {4096: 96, 8192: 160, 16384: 320}
    rows = []
    for side in (512, 1024, 2048, 4096, 8192, 16384):
        for suffix in ("png", "jpg"):
            source = photograph(side, suffix)
            for name, task in (("maps", lambda: maps(source, "base")),
                               ("material", lambda: material([source] * 5, "base")),
                               ("material to 2048", lambda: material([source] * 5, 2048))):
                result = median([task() for _ in range(rounds)])
                rows.append([f"{name}, {suffix}", side, f"{result.seconds:.3f}", f"{result.processor:.3f}",
                             f"{result.seconds / side**2 * 1e9:.0f}", f"{result.peak:.0f}", goals.get(side, "")])
    print_table("By size (all inputs of a material are the photograph)",
                ["command, input", "side", "seconds", "processor seconds", "nanoseconds per pixel", "peak MiB",
                 "goal MiB"], rows)


def print_threads(rounds):
    """The same work for different numbers of cores. Where there are fewer, threads share them."""
    rows = []
    for cores in (1, 2, 4, 16):
        pretended = {"LD_PRELOAD": PROGRAMS / "libpretended_cores.so", "PRETENDED_CORES": str(cores)}
        for name, task in (("maps", lambda: maps(TEXTURES / "photograph.png", SIZE, **pretended)),
                           ("material", lambda: material(five_textures(), SIZE, **pretended))):
            result = median([task() for _ in range(rounds)])
            rows.append([name, cores, f"{result.seconds:.2f}", f"{result.processor:.2f}", f"{result.peak:.0f}"])
    print_table(f"By the number of threads, {SIZE} x {SIZE}",
                ["command", "threads", "seconds", "processor seconds", "peak MiB"], rows)


def print_operations(rounds):
    """Prints the operations that have their own targets, measured by the benchmarks of the engine."""
    report = BENCH / "operations.json"
    run([BENCH / "kernel_benchmarks", f"--benchmark_repetitions={rounds}", f"--benchmark_out={report}",
         "--benchmark_filter=generator/|operation/"])
    medians = {each["run_name"].split("/process_time")[0]: each["real_time"]
               for each in json.loads(report.read_text())["benchmarks"] if each.get("aggregate_name") == "median"}
    print_table("The generator's arithmetic", ["form", "milliseconds", "times as fast as plain"],
                [[name, f"{value:.0f}", f"{medians['generator/plain'] / value:.1f}"]
                 for name, value in medians.items() if name.startswith("generator/")])
    print_table("Loading and previews", ["operation", "milliseconds"],
                [[name, f"{value:.0f}"] for name, value in medians.items() if name.startswith("operation/")])


def print_machine():
    model = platform.processor()
    info = Path("/proc/cpuinfo")
    if info.exists():
        lines = [line for line in info.read_text().splitlines() if line.startswith("model name")]
        model = lines[0].split(":", 1)[1].strip() if lines else model
    load = os.getloadavg()[0]
    print(f"{model}, {os.cpu_count()} cores, {platform.system()} {platform.release()}; "
          f"load before the run {load:.1f}", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--rounds", type=int, default=3)
    parser.add_argument("--only-ours", action="store_true", help="leave out the other programs except the reference")
    parser.add_argument("--no-sides", action="store_true", help="leave out the sizes other than 4096")
    options, _ = parser.parse_known_args()

    print_machine()
    make_textures()
    for folder in ("maps", "material"):
        (OUTPUT / folder).mkdir(parents=True, exist_ok=True)
    peers = peer_tasks()
    if options.only_ours:
        peers = {name: task for name, task in peers.items() if name == REFERENCE}
    print_times(measure({**peers, **our_tasks()}, options.rounds))
    print_sizes()
    print_operations(options.rounds)
    print_threads(options.rounds)
    if not options.no_sides:
        print_sides(options.rounds)
    shutil.rmtree(OUTPUT)


if __name__ == "__main__":
    main()
