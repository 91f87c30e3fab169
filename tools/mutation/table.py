"""The table of deliberate defects: how it is read, and what must hold of it.

A table is a text file. Lines that begin with "#" are remarks, empty ones separate. A form is named once, with the
tests that concern it; the defects that may be made in it follow:

    form app/AboutBox.ui
    tests AboutBoxTest HelpTest

    wrong text | app/AboutBox.cpp
    - what stands there
    + what is to stand there instead

The text to find may have several lines, and must stand exactly once in its file. Lines are taken as they are behind
"- " and "+ "; without any "+" the text is taken out.
"""

import dataclasses
import os
import re

KINDS = ("wrong order", "missing guard", "swapped row", "lost refresh", "off by one", "wrong text", "wrong call")
DEFECTS_PER_FORM = 5


class TableError(Exception):
    """A table that does not say what to do, or speaks of what is not there."""


@dataclasses.dataclass
class Defect:
    form: str
    tests: tuple
    kind: str
    path: str
    place: str
    find: str = ""
    replacement: str = ""

    def name(self):
        return f"{self.form}: {self.kind} ({self.place})"

    def applied_to(self, text):
        """The text of the file with the defect in it."""
        count = text.count(self.find) if self.find else 0
        if count != 1:
            raise TableError(f"{self.place}: the text stands {count} times in {self.path}")
        if self.find == self.replacement:
            raise TableError(f"{self.place}: changes nothing")
        return text.replace(self.find, self.replacement)


def parse(text, name):
    """The defects of one table; its name stands in messages."""
    form, tests, defects, sign = None, (), [], None
    for number, line in enumerate(text.splitlines(), start=1):
        place = f"{name}:{number}"
        if line.startswith(("- ", "+ ")) or line in ("-", "+"):
            if not defects or (line[0] == "-" and sign == "+"):
                raise TableError(f"{place}: belongs to no defect")
            sign = line[0]
            _add_line(defects[-1], sign, line[2:])
        elif line.startswith("form "):
            form, tests = line[5:].strip(), ()
        elif line.startswith("tests "):
            tests = tuple(line[6:].split())
        elif " | " in line and not line.startswith("#"):
            kind, path = (word.strip() for word in line.split(" | ", 1))
            if form is None or not tests:
                raise TableError(f"{place}: no form or no tests before this defect")
            if kind not in KINDS:
                raise TableError(f"{place}: unknown kind {kind}")
            defects.append(Defect(form, tests, kind, path, place))
            sign = None
        elif line.strip() and not line.startswith("#"):
            raise TableError(f"{place}: not understood: {line}")
    return defects


def _add_line(defect, sign, line):
    field = "find" if sign == "-" else "replacement"
    before = getattr(defect, field)
    # An empty first line cannot be told from none, and no defect needs one.
    setattr(defect, field, before + "\n" + line if before else line)


def read_tables(folder):
    defects = []
    for name in sorted(os.listdir(folder)):
        if name.endswith(".defects"):
            with open(os.path.join(folder, name), encoding="utf-8") as file:
                defects += parse(file.read(), name)
    return defects


def judge(root, defects, forms):
    """What is wrong with the table, for the tree at root with these forms; nothing when all is well."""
    for defect in defects:
        try:
            with open(os.path.join(root, defect.path), encoding="utf-8") as file:
                defect.applied_to(file.read())
        except (OSError, TableError) as error:
            yield str(error)
    known = _tests_of(root)
    for form in sorted(set(forms) | {defect.form for defect in defects}):
        own = [defect for defect in defects if defect.form == form]
        if len(own) != DEFECTS_PER_FORM:
            yield f"{form}: {len(own)} defects, not {DEFECTS_PER_FORM}"
        if form not in forms:
            yield f"{form}: is no form"
        for test in sorted({test for defect in own for test in defect.tests} - known):
            yield f"{form}: there is no test {test}"


def _tests_of(root):
    names = set()
    for _, _, files in os.walk(os.path.join(root, "tests")):
        names.update(re.sub(r"\.cpp$", "", file) for file in files if file.endswith("Test.cpp"))
    return names


# What the operator sees as a form of its own, although Qt makes it.
FORMS_WITHOUT_UI = ("app/ErrorDecoder.cpp",)


def forms_of(paths):
    """The forms among the files of a tree."""
    return [path for path in paths if path.endswith(".ui") or path in FORMS_WITHOUT_UI]
