"""Which folder of the tree may include which, and how an include is written."""

import posixpath
import re

# The folders of the simulator: each may include those before it.
SIMULATOR = ["signals", "hardware", "acquisition", "bench", "files", "boundary", "control"]
# Every folder, with the folders besides itself that it may include.
PANEL_BASE = ["library", "panels/common"]
ROOMS = {
    "library": [],
    **{
        f"simulator/{folder}": ["library"] + [f"simulator/{lower}" for lower in SIMULATOR[:index]]
        for index, folder in enumerate(SIMULATOR)
    },
    "panels/common": ["library"],
    "panels/types": PANEL_BASE,
    "panels/wireless": PANEL_BASE,
    "panels/airgauge": PANEL_BASE,
    "panels/modes": PANEL_BASE,
    "panels/module": PANEL_BASE + ["panels/types", "panels/wireless", "panels/airgauge"],
    "app": ["library", "panels"],
    "packaging": [],
    "tests": ["library", "panels", "app", "simulator", "tools"],
    "tools/driver": [],
    "tools/bench": ["simulator/control"],
    "tools/oracle": ["panels/common", "simulator/control", "tools/driver"],
    "tools/tour": ["library", "app", "simulator/control", "tools/driver", "tools/bench"],
    "tools/screenshots": ["app", "tools/driver", "tools/bench", "tools/tour"],
    "tools/soak": ["app", "simulator/control", "tools/driver", "tools/bench", "tools/tour", "tools/sweep"],
    "tools/sweep": ["app", "simulator/control", "tools/driver", "tools/bench", "tools/oracle", "tools/tour"],
    "tools/monkey": ["library", "panels/common", "app", "simulator/control", "tools/driver", "tools/bench",
                     "tools/oracle"],
    "benchmarks": ["library", "panels", "app", "simulator/control", "tools"],
}
WITHOUT_QT = re.compile(r"(?:library|simulator)\b")

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
GENERATED = re.compile(r"(?:ui_\w+\.h|moc_\w+\.cpp|\w+\.moc)$")


def room_of(path):
    for room in ROOMS:
        if path.startswith(room + "/"):
            return room
    return None


def may_include(room, path):
    return any(path.startswith(allowed + "/") for allowed in [room] + ROOMS[room])


def judge_include(tree, room, bracket, target):
    """What is wrong with this include in this room, or None."""
    if bracket == "<":
        if room_of(target):
            return f"<{target}> belongs in quotes"
        if WITHOUT_QT.match(room) and re.match(r"Q[A-Zt]", target):
            return f"<{target}>: {room} does without Qt"
        return None
    if GENERATED.match(posixpath.basename(target)):
        return None
    if not tree.has(target):
        return f'"{target}" is not written from the project\'s root'
    if not may_include(room, target):
        return f'"{target}" is not for {room}'
    return None


def include_order(tree):
    for path in tree.sources():
        room = room_of(path)
        if room is None:
            yield f"{path}: stands in no known room"
            continue
        for number, line in tree.lines(path):
            include = INCLUDE.match(line)
            wrong = include and judge_include(tree, room, *include.groups())
            if wrong:
                yield f"{path}:{number}: {wrong}"
    yield from folder_cycles(tree)


def folder_cycles(tree):
    """Folders that include each other, directly or through others."""
    includes = {}
    for path in tree.sources():
        for number, line in tree.lines(path):
            include = INCLUDE.match(line)
            target = include and include.group(2)
            if target and tree.has(target) and posixpath.dirname(target) != posixpath.dirname(path):
                edge = includes.setdefault(posixpath.dirname(path), {})
                edge.setdefault(posixpath.dirname(target), f"{path}:{number}")
    for folder in includes:
        for target, place in includes[folder].items():
            way_back = shortest_way(includes, target, folder)
            if way_back:
                yield f"{place}: include cycle {' -> '.join([folder] + way_back)}"


def shortest_way(includes, start, end):
    """The folders by which one includes another, both included; None when it does not."""
    ways = [[start]]
    seen = {start}
    for way in ways:
        if way[-1] == end:
            return way
        for target in includes.get(way[-1], {}):
            if target not in seen:
                seen.add(target)
                ways.append(way + [target])
    return None


def build_lists(tree):
    """A source that no CMakeLists.txt names is never compiled, nor is one whose list nobody includes."""
    named = set()
    for path in tree.files:
        if posixpath.basename(path) == "CMakeLists.txt":
            if not is_included(tree, posixpath.dirname(path)):
                yield f"{path}: no CMakeLists.txt above it adds this folder"
            named.update(named_in(posixpath.dirname(path), re.sub(r"#.*", "", tree.text(path))))
    for path in tree.files:
        # A form is compiled through the source beside it, which includes what is made of it.
        wanted = path[:-3] + ".cpp" if path.endswith(".ui") else path
        if path.endswith((".cpp", ".ui", ".qrc")) and not {path, wanted} & named:
            yield f"{path}: no CMakeLists.txt names it"


def is_included(tree, folder):
    above = folder
    while above:
        above = posixpath.dirname(above)
        lists = posixpath.join(above, "CMakeLists.txt")
        if tree.has(lists):
            name = re.escape(posixpath.relpath(folder, above or "."))
            return re.search(rf"(?<![\w/]){name}(?![\w/])", re.sub(r"#.*", "", tree.text(lists))) is not None
    return True


def named_in(folder, text):
    """The sources that a list names, as paths from the root; ${X}.cpp stands for any word of the list."""
    text = text.replace("${PROJECT_SOURCE_DIR}/", posixpath.relpath(".", folder or ".") + "/")
    for name in re.findall(r"[^\s()\"]+\.(?:cpp|ui|qrc)\b", text):
        words = re.findall(r"[\w/]+", text) if "${" in name else [""]
        for word in words:
            yield posixpath.normpath(posixpath.join(folder, re.sub(r"\${\w+}", lambda _: word, name)))


def forms(tree):
    for path in tree.files:
        stem, extension = posixpath.splitext(path)
        name = posixpath.basename(stem)
        if extension == ".ui":
            yield from judge_form(tree, path, stem, name)
        elif extension in (".h", ".cpp"):
            for used in set(re.findall(r'\bUi::(\w+)|\bui_(\w+)\.h"', tree.text(path))):
                form = used[0] or used[1]
                if form != name or not tree.has(stem + ".ui"):
                    yield f"{path}: uses the form {form}, which is not {name}.ui beside it"


def judge_form(tree, path, stem, name):
    for extension in (".h", ".cpp"):
        if not tree.has(stem + extension):
            yield f"{path}: no {name}{extension} beside it"
    if f"<class>{name}</class>" not in tree.text(path):
        yield f"{path}: its class is not {name}"
    if tree.has(stem + ".h") and not re.search(rf"\bclass {name}\b[^;]*{{", tree.text(stem + ".h")):
        yield f"{stem}.h: does not define the class {name}"
    if tree.has(stem + ".cpp") and f'ui_{name}.h"' not in tree.text(stem + ".cpp"):
        yield f"{stem}.cpp: does not use its form"
