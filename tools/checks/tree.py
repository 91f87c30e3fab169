"""The project's files as the checks see them."""

import os
import re

IGNORED_FOLDERS = {".git", "build", "__pycache__"}


class Tree:
    def __init__(self, root):
        self.root = root
        self.files = sorted(self._walk())
        self._known = set(self.files)

    def _walk(self):
        for folder, folders, names in os.walk(self.root):
            folders[:] = [f for f in folders if f not in IGNORED_FOLDERS]
            for name in names:
                yield os.path.relpath(os.path.join(folder, name), self.root)

    def has(self, path):
        return path in self._known

    def sources(self):
        return [f for f in self.files if f.endswith((".h", ".cpp"))]

    def text(self, path):
        """The text of a file; nothing for a picture or another binary file."""
        with open(os.path.join(self.root, path), "rb") as file:
            content = file.read()
        return "" if b"\0" in content else content.decode("utf-8", errors="replace")

    def lines(self, path):
        return enumerate(self.text(path).splitlines(), start=1)


def without_comments(text):
    """C++ text with comments and the insides of literals blanked; the lines keep their numbers."""

    def blank(match):
        found = match.group(0)
        if found[0] == "/":
            return re.sub(r"[^\n]", " ", found)
        return found[0] + found[0]

    return re.sub(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|(?<!\w)\'(?:\\.|[^\'\\\n])*\'', blank, text, flags=re.S)
