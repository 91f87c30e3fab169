#!/usr/bin/env python3
"""Checks of the source tree that no compiler makes.

Prints "ok NAME" or "FAILED NAME" and what was found, one check after another; ends with 1 when any
failed. ChecksTest tries every check on a tree that passes and on trees that must not.
"""

import argparse
import os
import re
import sys

import boundary
import manual
import rooms
import texts
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
        if re.search(options.match, name):
            good = report(name, check(tree)) and good
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
