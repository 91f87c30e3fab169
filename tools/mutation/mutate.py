#!/usr/bin/env python3
"""Makes deliberate defects in a copy of the tree, one at a time, and tells which of them the tests catch.

    tools/mutation/mutate.py [--match EXPRESSION] [--jobs N]    makes the defects whose name matches
    tools/mutation/mutate.py --check                            only looks whether the table fits the tree

The copy stands in build/mutation; nothing else is touched. The last line tells the share that was caught. Ends with
1 when the table is wrong, when a test fails without a defect, or when less than the share aimed at was caught.
"""

import argparse
import os
import re
import sys

from bench import Bench, BenchError
from table import TableError, forms_of, judge, read_tables

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))
AIM = 0.95


def in_good_order(defects):
    """By file, so that defects of one file follow each other and nothing is compiled in between."""
    return sorted(defects, key=lambda defect: (defect.path, defect.place))


def run(bench, defects, tell):
    """Makes each defect. Returns those that no test caught, and the errors of the table."""
    survivors, errors = [], []
    for number, defect in enumerate(in_good_order(defects), start=1):
        try:
            outcome = bench.try_defect(defect)
        except (BenchError, TableError) as error:
            errors.append(f"{defect.name()}: {error}")
            outcome = "error of the table"
        if outcome is None:
            survivors.append(defect)
        tell(f"{number}/{len(defects)} {defect.name()}: {outcome or 'SURVIVED'}")
    return survivors, errors


def summary(defects, survivors, errors):
    """The lines at the end, and whether all is as it should be."""
    lines = [f"error: {error}" for error in errors]
    lines += [f"survived: {defect.name()}" for defect in survivors]
    tried = len(defects) - len(errors)
    caught = tried - len(survivors)
    share = caught / tried if tried else 0.0
    lines.append(f"{caught} of {tried} defects caught, {100 * share:.1f} %")
    return lines, not errors and share >= AIM


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--match", default="", help="only the defects whose name matches this expression")
    parser.add_argument("--jobs", type=int, default=2, help="how many jobs run at a time")
    parser.add_argument("--check", action="store_true", help="only check the table")
    options = parser.parse_args()

    bench = Bench(ROOT, os.path.join(ROOT, "build", "mutation"), options.jobs)
    defects = read_tables(os.path.join(ROOT, "tests", "mutation"))
    findings = list(judge(ROOT, defects, forms_of(bench.files())))
    for finding in findings:
        print(finding)
    if findings or options.check:
        print(f"{len(defects)} defects in the table, {len(findings)} findings")
        return 1 if findings else 0

    chosen = [defect for defect in defects if re.search(options.match, defect.name())]
    try:
        bench.prepare(sorted({test for defect in chosen for test in defect.tests}))
    except BenchError as error:
        print(error)
        return 1
    survivors, errors = run(bench, chosen, lambda line: print(line, flush=True))
    lines, good = summary(chosen, survivors, errors)
    print("\n".join(lines))
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
