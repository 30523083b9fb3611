"""Checks the arguments of commands that documents quote."""

import json
import os
import re
import subprocess
from functools import lru_cache
from pathlib import Path

SOURCE = Path(os.environ["QUARLIN_SOURCE"])
CLI = Path(os.environ["QUARLIN_CLI"])


def output_of(*command):
    done = subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True,
                          timeout=60, check=True)
    return done.stdout


@lru_cache(maxsize=None)
def dev_commands():
    return set(re.findall(r"^\./dev (\w+)", output_of(SOURCE / "dev", "help"), re.MULTILINE))


@lru_cache(maxsize=None)
def presets(kind):
    listed = json.loads((SOURCE / "CMakePresets.json").read_text())
    return {preset["name"] for preset in listed[kind] if not preset.get("hidden")}


@lru_cache(maxsize=None)
def cmake_targets():
    names = set()
    for file in [SOURCE / "CMakeLists.txt", *SOURCE.glob("*/**/CMakeLists.txt")]:
        names.update(re.findall(r"add_(?:custom_target|executable|library)\(\s*([\w-]+)", file.read_text()))
    return names


@lru_cache(maxsize=None)
def cli_options(command=None):
    """The options in the help of quarlin-cli or of one of its commands."""
    text = output_of(CLI, command, "--help") if command else output_of(CLI, "--help")
    return set(re.findall(r"(?<![\w-])(--?[a-z][a-z-]*)", text))


@lru_cache(maxsize=None)
def cli_commands():
    return set(re.findall(r"^  ([a-z][a-z-]*) ", output_of(CLI, "--help"), re.MULTILINE))


def option_values(words, option):
    return [words[index + 1] for index, word in enumerate(words[:-1]) if word == option]


def complaint(words):
    """What is wrong with a command and its arguments; None if all of them are known."""
    name, arguments = Path(words[0]).name, words[1:]
    if name == "dev":
        if arguments and arguments[0] not in dev_commands():
            return f"./dev has no command {arguments[0]}"
    elif name in ("cmake", "ctest"):
        kind = "testPresets" if name == "ctest" else "buildPresets" if "--build" in arguments else "configurePresets"
        for preset in option_values(arguments, "--preset"):
            if preset not in presets(kind):
                return f"no such preset: {preset}"
        for target in option_values(arguments, "--target"):
            if target not in cmake_targets():
                return f"no such target: {target}"
    elif name == "quarlin-cli" and arguments:
        command = arguments[0] if re.match(r"[a-z]", arguments[0]) else None
        if command and command not in cli_commands():
            return f"quarlin-cli has no command {command}"
        for word in arguments:
            if word.startswith("--") and word.split("=")[0] not in cli_options(command) | {"--help"}:
                return f"quarlin-cli {command or ''} has no option {word}"
    return None
