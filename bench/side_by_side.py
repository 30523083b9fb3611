#!/usr/bin/env python3
"""Times whole exports of quarlin-cli and of other programs with comparable work, in one run.

Every round runs each task once, so that other load of the machine affects all of them alike. The tables show medians.
The targets are printed next to the figures; meeting them is not checked.

    side_by_side [--rounds N] [--only-ours] [--no-growth]     other arguments are for the other benchmarks
"""

import argparse
import json
import os
import platform
import shutil
import statistics
import subprocess
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

SIZE = 4096
BENCH = Path(__file__).resolve().parent
CLI = BENCH.parent / "src/cli/quarlin-cli"
PROGRAMS = BENCH / "programs"
TEXTURES = BENCH / "textures"
OUTPUT = BENCH / "output"
RAW = TEXTURES / "photograph.rgba"
REFERENCE = "libvips: one RGBA PNG, level 6, no filters"


class Run:
    """The time and memory of one run of a program."""

    def __init__(self, seconds, processor, system, peak):
        self.seconds, self.processor, self.system, self.peak = seconds, processor, system, peak


def run(command, **environment):
    """Runs a program to its end: elapsed time, processor time, system time (part of it), peak memory in MiB."""
    begin = time.perf_counter()
    process = subprocess.Popen(
        [str(word) for word in command], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
        stderr=subprocess.PIPE, env={**os.environ, **environment})
    complaint = process.stderr.read()
    _, status, usage = os.wait4(process.pid, 0)
    seconds = time.perf_counter() - begin
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        raise SystemExit(f"{' '.join(map(str, command))}\n{complaint.decode(errors='replace')}")
    return Run(seconds, usage.ru_utime + usage.ru_stime, usage.ru_stime, usage.ru_maxrss / 1024)


def median(runs):
    """The median of each time over several runs, and the largest peak memory."""
    return Run(*(statistics.median(getattr(each, name) for each in runs)
                 for name in ("seconds", "processor", "system")), max(each.peak for each in runs))


# ---- Textures ----------------------------------------------------------------------------------------------------


def make_textures():
    """Makes the missing inputs: RGBA photograph, RGB base color and normal, three gray maps.

    libpng writes the PNGs, at level 6 with its own choice of filters, as most programs do.
    """
    TEXTURES.mkdir(exist_ok=True)
    drawn = TEXTURES / "photograph.png"
    if not drawn.exists():
        print("Making the textures (once)", file=sys.stderr)
        run([PROGRAMS / "draw_photograph", SIZE, RAW, drawn])
        run([CLI, "maps", "--source", drawn, "--size", SIZE, "--output", TEXTURES])
    maps = TEXTURES / "photograph"
    wanted = {"base": ("basecolor", 3), "normal": ("normal", 3), "occlusion": ("ao", 1),
              "roughness": ("roughness", 1), "metallic": ("metallic", 1)}
    missing = [(maps / f"photograph_{source}.png", TEXTURES / f"{name}.png", samples)
               for name, (source, samples) in wanted.items()]
    # Every image of a generated set, written by libpng, to compare sizes.
    (TEXTURES / "libpng").mkdir(exist_ok=True)
    missing += [(image, TEXTURES / "libpng" / image.name, 4) for image in sorted(maps.glob("*.png"))]
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        list(pool.map(lambda each: each[1].exists() or run([PROGRAMS / "rewrite_png", *each]), missing))


# ---- Tasks -------------------------------------------------------------------------------------------------------

MAPS, MATERIAL, START = "quarlin-cli maps (ten files)", "quarlin-cli material (five PNGs)", "start to first paint"


def our_tasks():
    return {
        MAPS: lambda: run([CLI, "maps", "--source", TEXTURES / "photograph.png", "--size", SIZE,
                           "--output", OUTPUT / "maps"]),
        MATERIAL: lambda: run([CLI, "material", "--base-color", TEXTURES / "base.png",
                               "--normal", TEXTURES / "normal.png", "--occlusion", TEXTURES / "occlusion.png",
                               "--roughness", TEXTURES / "roughness.png", "--metallic", TEXTURES / "metallic.png",
                               "--size", SIZE, "--output", OUTPUT / "material"]),
        START: lambda: run([PROGRAMS / "first_paint"], QT_QPA_PLATFORM="offscreen"),
    }


def libvips_tasks():
    def write(options):
        return lambda: run(["vips", "rawload", RAW, f"{OUTPUT / 'libvips.png'}[{options}]", SIZE, SIZE, 4])

    grays = " ".join(str(TEXTURES / f"{name}.png") for name in ("occlusion", "roughness", "metallic"))
    return {
        REFERENCE: write("compression=6,filter=none"),
        "libvips: the same with all filters": write("compression=6,filter=all"),
        "libvips: ORM of three gray PNGs":
            lambda: run(["vips", "bandjoin", grays, f"{OUTPUT / 'libvips_orm.png'}[compression=6,filter=none]"]),
    }


def imagemagick_tasks(program):
    return {
        "ImageMagick: one RGBA PNG":
            lambda: run([program, "-size", f"{SIZE}x{SIZE}", "-depth", "8", f"rgba:{RAW}", OUTPUT / "magick.png"]),
        "ImageMagick: ORM of three gray PNGs":
            lambda: run([program, TEXTURES / "occlusion.png", TEXTURES / "roughness.png", TEXTURES / "metallic.png",
                         "-set", "colorspace", "sRGB", "-combine", OUTPUT / "magick_orm.png"]),
    }


def peer_tasks():
    """The tasks of the other programs that are installed; the reference comes first."""
    tasks = {}
    if shutil.which("vips"):
        tasks.update(libvips_tasks())
    else:
        print("vips is not installed: no reference, so no ratios")
    tasks["Qt: one RGBA PNG"] = lambda: run([PROGRAMS / "qt_writer", SIZE, RAW, OUTPUT / "qt.png"])
    if program := shutil.which("magick") or shutil.which("convert"):
        tasks.update(imagemagick_tasks(program))
    else:
        print("ImageMagick is not installed: skipped")
    if shutil.which("gegl"):
        tasks["GEGL: one RGBA PNG, decoded and written"] = lambda: run(
            ["gegl", TEXTURES / "photograph.png", "-o", OUTPUT / "gegl.png"])
    else:
        print("gegl is not installed: skipped")
    return tasks


def measure(tasks, rounds):
    runs = {name: [] for name in tasks}
    for turn in range(rounds):
        for name, task in tasks.items():
            print(f"  round {turn + 1} of {rounds}: {name}", file=sys.stderr)
            runs[name].append(task())
    return {name: median(each) for name, each in runs.items()}


# ---- Tables ------------------------------------------------------------------------------------------------------


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
    targets = {MAPS: "0.40; 1024 MiB", MATERIAL: "0.35; 700 MiB", START: "0.40 s"}

    def ratio(name, result):
        return f"{result.seconds / reference.seconds:.2f}" if reference and name != START else ""

    print_table(
        f"Whole programs, {SIZE} x {SIZE}",
        ["program", "seconds", "ratio", "processor seconds", "of it system", "peak MiB", "target"],
        [[name, f"{result.seconds:.2f}", ratio(name, result), f"{result.processor:.2f}", f"{result.system:.2f}",
          f"{result.peak:.0f}", targets.get(name, "")] for name, result in results.items()])


def print_sizes():
    rows, ours, theirs = [], 0, 0
    for image in sorted((OUTPUT / "maps/photograph").glob("*.png")):
        size, reference = image.stat().st_size, (TEXTURES / "libpng" / image.name).stat().st_size
        ours, theirs = ours + size, theirs + reference
        rows.append([image.stem, f"{size:,}", f"{reference:,}", f"{size / reference:.2f}", "1.40"])
    rows.append(["all", f"{ours:,}", f"{theirs:,}", f"{ours / theirs:.2f}", "1.25"])
    print_table("Bytes of a generated set", ["image", "ours", "libpng, level 6, adaptive filters", "ratio", "target"],
                rows)


def print_growth(rounds):
    rows = []
    for side in (512, 1024, 2048, 4096, 8192):
        source = TEXTURES / f"photograph_{side}.png"
        if not source.exists():
            raw = TEXTURES / "growth.rgba"
            run([PROGRAMS / "draw_photograph", side, raw, source, "quick"])
            raw.unlink()
        result = median([run([CLI, "maps", "--source", source, "--size", "base", "--output", OUTPUT / "growth"])
                         for _ in range(rounds)])
        pixels = side * side
        rows.append([side, f"{result.seconds:.3f}", f"{result.seconds / pixels * 1e9:.0f}", f"{result.peak:.0f}",
                     f"{result.peak * 2**20 / pixels:.1f}"])
    print_table("Growth of quarlin-cli maps (sources written by the engine)",
                ["side", "seconds", "nanoseconds per pixel", "peak MiB", "bytes per pixel"], rows)


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
    parser.add_argument("--no-growth", action="store_true", help="leave out the sizes other than 4096")
    options, _ = parser.parse_known_args()

    print_machine()
    make_textures()
    for folder in ("maps", "material", "growth"):
        (OUTPUT / folder).mkdir(parents=True, exist_ok=True)
    peers = peer_tasks()
    if options.only_ours:
        peers = {name: task for name, task in peers.items() if name == REFERENCE}
    print_times(measure({**peers, **our_tasks()}, options.rounds))
    print_sizes()
    print_operations(options.rounds)
    if not options.no_growth:
        print_growth(options.rounds)
    shutil.rmtree(OUTPUT)


if __name__ == "__main__":
    main()
