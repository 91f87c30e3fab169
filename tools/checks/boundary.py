"""The boundary holds declarations only, so that anyone can stand behind it."""

import re

from tree import without_comments

NOT_MEMBERS = re.compile(r"(using|typedef|friend|class|struct|enum|static_assert)\b")


class Scope:
    def __init__(self, kind, header, line):
        self.kind = kind
        self.header = header
        self.line = line
        self.members = []
        self.functions = 0


def kind_of(header):
    """What a brace after this text opens."""
    if re.match(r'namespace\b|extern\s*""', header):
        return "namespace"
    if re.match(r"enum\b", header):
        return "enum"
    if re.match(r"(template\s*<.*>\s*)?(class|struct|union)\b[^()]*$", header, re.S):
        return "class"
    return "body"


def judge_opening(kind, header):
    if kind == "body":
        return f"has a body or an initial value: {header}"
    if kind == "enum" and not re.search(r":\s*int$", header):
        return f"is not fixed to int: {header}"
    return None


def read_statement(scope, statement):
    """Files a finished statement of a class; returns what is wrong with it by itself, or None."""
    if re.search(r"=\s*default$", statement):
        return f"has a body: {statement}"
    if re.match(r"(static\s+)?(inline|constexpr|const)\b[^(]*=", statement) or re.match(r"inline\b", statement):
        return f"is defined here: {statement}"
    if scope is None or scope.kind != "class" or not statement or NOT_MEMBERS.match(statement):
        return None
    if "(" in statement:
        scope.functions += 1
    else:
        scope.members.append(statement)
    return None


def judge_class(scope):
    """A record is data only. Any other class shows at most one opaque pointer; an error, its code."""
    if scope.header.startswith("struct") and scope.functions == 0:
        return None
    allowed = [m for m in scope.members if m.endswith("*") or re.search(r"\*\s*(?:const\s+)?\w+$|unique_ptr<", m)]
    if "std::runtime_error" in scope.header:
        allowed += [m for m in scope.members if re.match(r"int \w+$", m)]
    if len(scope.members) > 1 or len(allowed) < len(scope.members):
        return f"shows its data: {', '.join(scope.members)}"
    return None


def read_header(text):
    """Yields (line, what is wrong) for the text of a header."""
    scopes = []
    statement = ""
    line = 1
    for character in re.sub(r"^\s*#[^\n]*", "", without_comments(text), flags=re.M):
        line += character == "\n"
        if character not in "{};:":
            statement += character
            continue
        words = " ".join(statement.split())
        if character == ":":
            # An access specifier ends a statement; a base or an underlying type does not.
            statement = "" if words in ("public", "protected", "private") else statement + character
            continue
        wrong = None
        if character == "{":
            kind = kind_of(words)
            wrong = judge_opening(kind, words)
            scopes.append(Scope(kind, words, line))
        elif character == "}" and scopes:
            closed = scopes.pop()
            if closed.kind == "class" and judge_class(closed):
                yield closed.line, judge_class(closed)
        elif character == ";":
            wrong = read_statement(scopes[-1] if scopes else None, words)
        if wrong:
            yield line, wrong
        statement = ""


def boundary(tree):
    for path in tree.files:
        if not path.startswith("library/"):
            continue
        if path.endswith(".cpp"):
            yield f"{path}: the boundary has no code of its own"
        if not path.endswith(".h"):
            continue
        for number, wrong in read_header(tree.text(path)):
            yield f"{path}:{number}: {wrong}"
        for number, line in tree.lines(path):
            if re.search(r"simulat|pugi|\bQt\b", line, re.IGNORECASE):
                yield f"{path}:{number}: speaks of who stands behind the boundary, or in front of it"
