"""What no file of the project should contain, and how the sources are laid out."""

import os
import re
import subprocess

LONGEST_SOURCE = 400

# Written so that these lines do not find themselves.
LEFTOVERS = re.compile(r"\b(?:[T]ODO|[F]IXME|[H]ACK|[X]XX)\b")
COMMENTED_OUT = re.compile(r"^\s*//+\s*(?:[\w:.>\[\]-]+\(.*\)|return\b.*|[\w:<>*& ]+ = .*|(?:if|for|while) \(.*\)) ?[;{]\s*$")

FOREIGN = [
    (re.compile(r"(?<![\w.$})])/(?:home|root|work|tmp)/"), "a place on one machine"),
    (re.compile(r"\bhttps?://(?!www\.w3\.org/)", re.IGNORECASE), "an address"),
    (re.compile(r"\b[s]pec(?:ification)?s?\b|\b[P]art\s\d+\.\d|\b[i]ssue\s*#?\d", re.IGNORECASE),
     "a document that readers do not have"),
]


def leftovers(tree):
    for path in tree.files:
        for number, line in tree.lines(path):
            if LEFTOVERS.search(line):
                yield f"{path}:{number}: unfinished: {line.strip()}"
            elif path.endswith((".h", ".cpp")) and COMMENTED_OUT.match(line):
                yield f"{path}:{number}: commented-out code: {line.strip()}"


def foreign(tree):
    """Files speak for themselves: no place, host or document that only some people have."""
    for path in tree.files:
        for number, line in tree.lines(path):
            for pattern, what in FOREIGN:
                if pattern.search(line):
                    yield f"{path}:{number}: refers to {what}: {line.strip()}"


def file_length(tree):
    for path in tree.files:
        if path.endswith((".h", ".cpp", ".py")):
            length = len(tree.text(path).splitlines())
            if length > LONGEST_SOURCE:
                yield f"{path}: {length} lines, more than {LONGEST_SOURCE}"


def layout(tree):
    sources = tree.sources()
    if not sources:
        return
    result = subprocess.run(["clang-format", "--dry-run", "-Werror", "--style=file", "--fallback-style=none"] + sources,
                            cwd=tree.root, capture_output=True, text=True)
    complaints = re.findall(r"^(\S+?:\d+):\d+: error", result.stderr, re.M)
    for place in sorted(set(complaints)):
        yield f"{place}: not laid out by clang-format"
    if result.returncode != 0 and not complaints:
        yield f"clang-format failed: {result.stderr.strip()}"
    if not os.path.exists(os.path.join(tree.root, ".clang-format")):
        yield ".clang-format is missing"
