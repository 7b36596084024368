"""What a desktop finds in its folders: menu entries, programs and icons, each by its own look-up rules."""

import configparser
import os
import shlex

DEFAULT_THRESHOLD = 2  # of an icon folder, in pixels


class Menu:
    """The folders for data and for programs, those that come first looked at first."""

    def __init__(self, data_folders, program_folders):
        self.data_folders = data_folders
        self.program_folders = program_folders

    def entry(self, entry_id):
        """The menu entry of this id, with its groups."""
        path = self._first(folder / "applications" / f"{entry_id}.desktop" for folder in self.data_folders)
        return path and read(path)

    def program(self, command):
        """The program that a command line starts."""
        name = shlex.split(command)[0]
        return self._first(folder / name for folder in self.program_folders if os.access(folder / name, os.X_OK))

    def icon(self, name, size):
        """The file of an icon in the theme that all others inherit, at scale 1."""
        theme = read(self._first(folder / "icons/hicolor/index.theme" for folder in self.data_folders))
        folders = [theme[folder] for folder in theme["Icon Theme"]["Directories"].split(",")]
        found = [(folder, file) for folder in folders if (file := self._icon_in(folder.name, name))]
        for folder, file in found:
            if matches(folder, size):
                return file
        nearest = min(found, key=lambda pair: distance(pair[0], size), default=None)
        return nearest and nearest[1]

    def _icon_in(self, folder, name):
        return self._first(data / "icons/hicolor" / folder / f"{name}.{kind}"
                           for data in self.data_folders for kind in ("png", "svg", "xpm"))

    @staticmethod
    def _first(paths):
        return next((path for path in paths if path.is_file()), None)


def read(path):
    """The groups of a file of the desktop's kind."""
    parser = configparser.ConfigParser(interpolation=None, strict=False)
    parser.optionxform = str
    parser.read(path)
    return parser


def sizes_of(folder):
    """The smallest and the largest size for which a folder's icons are meant."""
    size = int(folder["Size"])
    kind = folder.get("Type", "Threshold")
    if kind == "Fixed":
        return size, size
    if kind == "Scalable":
        return int(folder.get("MinSize", size)), int(folder.get("MaxSize", size))
    threshold = int(folder.get("Threshold", DEFAULT_THRESHOLD))
    return size - threshold, size + threshold


def matches(folder, size):
    smallest, largest = sizes_of(folder)
    return folder.get("Scale", "1") == "1" and smallest <= size <= largest


def distance(folder, size):
    """How far a size is from those of a folder."""
    scale = int(folder.get("Scale", "1"))
    smallest, largest = (each * scale for each in sizes_of(folder))
    return max(smallest - size, size - largest, 0)
