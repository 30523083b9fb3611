"""The inputs, programs and runs that side_by_side measures."""

import os
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


def photograph(side, suffix):
    """The photograph in a file of one of the window's inputs: PNG as the engine writes it, or baseline JPEG."""
    png = TEXTURES / f"photograph_{side}.png"
    if not png.exists():
        raw = TEXTURES / "photograph_side.rgba"
        run([PROGRAMS / "draw_photograph", side, raw, png, "quick"])
        raw.unlink()
    if suffix == "jpg" and not png.with_suffix(".jpg").exists():
        run(["vips", "jpegsave", png, png.with_suffix(".jpg"), "--Q", "90"])
    return png.with_suffix(f".{suffix}")


# ---- Tasks -------------------------------------------------------------------------------------------------------

MAPS, MATERIAL = "quarlin-cli maps", "quarlin-cli material (five PNGs)"
WINDOW, START = "window: load five PNGs, previews, export", "start to first paint"
SLOTS = ("base", "normal", "occlusion", "roughness", "metallic")


def maps(source, size, **environment):
    return run([CLI, "maps", "--source", source, "--size", size, "--output", OUTPUT / "maps"], **environment)


def material(files, size, **environment):
    options = ("--base-color", "--normal", "--occlusion", "--roughness", "--metallic")
    inputs = [word for pair in zip(options, files) for word in pair]
    return run([CLI, "material", *inputs, "--size", size, "--output", OUTPUT / "material"], **environment)


def five_textures():
    return [TEXTURES / f"{name}.png" for name in SLOTS]


def our_tasks():
    return {
        MAPS: lambda: maps(TEXTURES / "photograph.png", SIZE),
        MATERIAL: lambda: material(five_textures(), SIZE),
        WINDOW: lambda: run([PROGRAMS / "window_session", *five_textures(), OUTPUT / "material"]),
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
