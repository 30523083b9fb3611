"""The rooms of the sources, and the rules that hold between them. A room is a folder of src with a library of its own;
a folder inside it without one belongs to it."""

import re
from dataclasses import dataclass, field
from pathlib import Path

MOST_FILES_PER_FOLDER = 25
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"(?P<quoted>[^"]+)"|<(?P<angled>[^>]+)>)', re.MULTILINE)
WIDGETS_FOLDER = "QtWidgets/"


@dataclass
class Room:
    """A room and the rooms that its library is linked to. Those that link this room reach its public ones, too."""

    name: str
    public: list = field(default_factory=list)
    private: list = field(default_factory=list)

    @property
    def linked(self):
        return [*self.public, *self.private]


def read_rooms(text):
    """Rooms by name, from lines such as `imaging/png: imaging_deflate imaging_files | imaging_color`: a room, what
    it links publicly and what it links privately. A library has underscores where its room has slashes."""
    lines = [re.fullmatch(r"([^:]+):([^|]*)\|(.*)", line) for line in text.splitlines()]
    names = {line[1].replace("/", "_"): line[1] for line in lines}

    def rooms(libraries):
        return [names[library] for library in libraries.split()]

    return {line[1]: Room(line[1], rooms(line[2]), rooms(line[3])) for line in lines}


def reachable(rooms, name):
    """The rooms that the room `name` may include besides its own."""
    found = set()
    waiting = list(rooms[name].linked)
    while waiting:
        room = waiting.pop()
        if room not in found:
            found.add(room)
            waiting += rooms[room].public
    return found


def room_of(rooms, path):
    """The room that holds `path`, relative to src; none for a file outside of all rooms."""
    holding = [name for name in rooms if path.startswith(name + "/")]
    return max(holding, key=len, default=None)


def circles(rooms):
    """Each circle of links, as text."""
    found = []
    done = set()

    def visit(name, path):
        if name in path:
            found.append(" -> ".join([*path[path.index(name):], name]))
        elif name not in done:
            for linked in rooms[name].linked:
                visit(linked, [*path, name])
            done.add(name)

    for name in sorted(rooms):
        visit(name, [])
    return found


def source_files(source):
    return sorted(path for path in Path(source).rglob("*") if path.suffix in (".h", ".cpp"))


def crowded_folders(source):
    """Each folder with more files than a reader can take in."""
    counts = {}
    for path in source_files(source):
        folder = path.parent.relative_to(source).as_posix()
        counts[folder] = counts.get(folder, 0) + 1
    return [f"{folder}: {count} files, at most {MOST_FILES_PER_FOLDER} wanted"
            for folder, count in sorted(counts.items()) if count > MOST_FILES_PER_FOLDER]


def wrong_includes(source, rooms):
    """Each include that names no file by its room, or one of a room that the including room is not linked to."""
    found = []
    for path in source_files(source):
        name = path.relative_to(source).as_posix()
        room = room_of(rooms, name)
        if room is None:
            found.append(f"{name} is in no room")
            continue
        allowed = {room} | reachable(rooms, room)
        for include in INCLUDE.finditer(path.read_text(encoding="utf-8")):
            included = include["quoted"]
            if included is None:
                continue
            target = room_of(rooms, included)
            if target is None or not (Path(source) / included).is_file():
                found.append(f'{name} includes "{included}", which is not in any room')
            elif target not in allowed:
                found.append(f'{name} includes "{included}", but {room} is not linked to {target}')
    return found


def widgets_below(source, rooms, widget_room, widget_headers):
    """Each include of Qt Widgets in a room that does not build on `widget_room`. `widget_headers` are the names of that
    module's headers."""
    def is_above(name):
        return name == widget_room or name.startswith(widget_room + "/") or any(
            room == widget_room or room.startswith(widget_room + "/") for room in reachable(rooms, name))

    found = []
    for path in source_files(source):
        name = path.relative_to(source).as_posix()
        room = room_of(rooms, name)
        if room is None or is_above(room):
            continue
        for include in INCLUDE.finditer(path.read_text(encoding="utf-8")):
            header = include["angled"] or include["quoted"]
            if header.startswith(WIDGETS_FOLDER) or header in widget_headers:
                found.append(f"{name} includes {header} of Qt Widgets, below {widget_room}")
    return found
