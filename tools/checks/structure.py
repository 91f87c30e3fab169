#!/usr/bin/env python3
"""Checks of the source tree that no compiler makes.

Prints "ok NAME" or "FAILED NAME" and what was found, one check after another; ends with 1 when any
failed. Every check is first tried on small trees that it must object to and on one that it must not.
"""

import argparse
import os
import re
import sys
import tempfile

import boundary
import manual
import rooms
import texts
from samples import SAMPLES
from tree import Tree

CHECKS = {
    "include-order": rooms.include_order,
    "build-lists": rooms.build_lists,
    "forms": rooms.forms,
    "boundary": boundary.boundary,
    "leftovers": texts.leftovers,
    "foreign": texts.foreign,
    "file-length": texts.file_length,
    "layout": texts.layout,
    "links": manual.links,
    "errors-explained": manual.errors_explained,
    "pictures-shown": manual.pictures_shown,
}


def try_on(check, files):
    """What the check finds in a tree of these files (path to text)."""
    with tempfile.TemporaryDirectory() as folder:
        for path, text in files.items():
            whole = os.path.join(folder, path)
            os.makedirs(os.path.dirname(whole), exist_ok=True)
            with open(whole, "w", encoding="utf-8") as file:
                file.write(text)
        return list(check(Tree(folder)))


def self_test(name, check):
    good, bad = SAMPLES[name]
    for finding in try_on(check, good):
        yield f"objects to a good tree: {finding}"
    for spoilt in bad:
        if not try_on(check, {**good, **spoilt}):
            yield f"does not object to {spoilt}"


def report(name, findings):
    findings = list(findings)
    print("FAILED" if findings else "ok", name)
    for finding in findings:
        print("  " + finding)
    return not findings


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--root", default=os.path.join(os.path.dirname(__file__), "..", ".."))
    parser.add_argument("--match", default="", help="only the checks whose name matches this expression")
    options = parser.parse_args()

    tree = Tree(options.root)
    good = True
    for name, check in CHECKS.items():
        for title, findings in ((name, check(tree)), (name + ".self-test", self_test(name, check))):
            if re.search(options.match, title):
                good = report(title, findings) and good
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
