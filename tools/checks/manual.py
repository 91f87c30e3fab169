"""The documents: their links lead somewhere, and the manual leaves no error unexplained."""

import os
import posixpath
import re
import urllib.parse

LINK = re.compile(r"!?\[[^\]]*\]\(\s*<?([^)\s>]+)>?[^)]*\)")
HEADING = re.compile(r"^#+\s+(.*?)\s*#*$")
ERROR_CODE = re.compile(r"^\s*(\w+) = (0[xX][0-9A-Fa-f]+|\d+)\s*,")


def documents(tree):
    return [f for f in tree.files if f.endswith(".md")]


def links(tree):
    """Every link to a file, an image or a heading of this project, from every document."""
    for path in documents(tree):
        for number, line in prose(tree, path):
            for target in LINK.findall(line):
                wrong = judge_link(tree, path, target)
                if wrong:
                    yield f"{path}:{number}: {target}: {wrong}"


def prose(tree, path):
    """The lines of a document outside of its examples."""
    fenced = False
    for number, line in tree.lines(path):
        if line.lstrip().startswith("```"):
            fenced = not fenced
        elif not fenced:
            yield number, re.sub(r"`[^`]*`", "", line)


def judge_link(tree, path, target):
    """What is wrong with a link, or None."""
    if re.match(r"[a-z]+:", target):
        return None
    file, _, anchor = urllib.parse.unquote(target).partition("#")
    wanted = posixpath.normpath(posixpath.join(posixpath.dirname(path), file)) if file else path
    if not tree.has(wanted) and not os.path.isdir(os.path.join(tree.root, wanted)):
        return "there is no such file"
    if anchor and wanted.endswith(".md") and anchor not in anchors(tree, wanted):
        return "there is no such heading"
    return None


def anchors(tree, path):
    """Headings as they are named where documents are hosted."""
    for _, line in prose(tree, path):
        heading = HEADING.match(line)
        if heading:
            yield re.sub(r"[^\w\- ]", "", heading.group(1).lower()).replace(" ", "-")


def errors_explained(tree):
    """Every code of the library has a row in the manual's page of errors."""
    header, page = "library/TavikEnums.h", "docs/manual/errors.md"
    if not tree.has(header):
        return
    enumeration = re.search(r"enum class eTavikErrors : int \{(.*?)\n\};", tree.text(header), re.S)
    codes = {int(m.group(2), 0): m.group(1) for m in map(ERROR_CODE.match, enumeration.group(1).splitlines()) if m}
    codes.pop(0, None)
    rows = re.findall(r"^\| (0x[0-9A-F]+) \| (\d+) \|", tree.text(page) if tree.has(page) else "", re.M)
    for code, decimal in rows:
        if int(code, 16) != int(decimal):
            yield f"{page}: {code} is not {decimal}"
    explained = {int(code, 16) for code, _ in rows}
    for code in sorted(codes.keys() - explained):
        yield f"{page}: does not explain 0x{code:X} ({codes[code]})"


def pictures_shown(tree):
    """A picture of the manual that no page shows is only weight."""
    folder = "docs/manual/images/"
    shown = {posixpath.normpath(posixpath.join(posixpath.dirname(path), target))
             for path in documents(tree) for _, line in prose(tree, path) for target in LINK.findall(line)}
    for path in tree.files:
        if path.startswith(folder) and path not in shown:
            yield f"{path}: no page shows it"
