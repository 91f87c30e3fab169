"""The copy of the tree in which defects are made, built and tested."""

import os
import shutil
import signal
import subprocess

PRESET = "dev"
IGNORED_FOLDERS = {".git", "build", "__pycache__"}

# A defect may keep a test from ending. No test of a form takes nearly as long.
LONGEST_SECONDS = 120


class BenchError(Exception):
    """What cannot be built, or fails without a defect."""


class Bench:
    def __init__(self, root, folder, jobs):
        self.root = root
        self.tree = os.path.join(folder, "tree")
        self.log = os.path.join(folder, "log.txt")
        self.jobs = jobs
        self.changed = None

    def files(self):
        """The paths of the project's files, from its root."""
        for folder, folders, names in os.walk(self.root):
            folders[:] = [name for name in folders if name not in IGNORED_FOLDERS]
            for name in names:
                yield os.path.relpath(os.path.join(folder, name), self.root)

    def prepare(self, tests):
        """Brings the copy up to date, builds the tests and sees them pass without a defect."""
        self._copy()
        if self._command(["cmake", "--preset", PRESET]) != 0:
            raise BenchError(f"the copy cannot be configured: see {self.log}")
        self._build(tests)
        if not self._passes(tests):
            raise BenchError(f"a test fails without any defect: see {self.log}")

    def try_defect(self, defect):
        """How the tests caught the defect, or None when they did not. The copy's file keeps the defect until the
        next one is made, so that nothing is compiled for nothing."""
        if self.changed not in (None, defect.path):
            self._restore(self.changed)
        with open(os.path.join(self.root, defect.path), encoding="utf-8") as file:
            spoilt = defect.applied_to(file.read())
        self.changed = defect.path
        with open(os.path.join(self.tree, defect.path), "w", encoding="utf-8") as file:
            file.write(spoilt)
        self._build(defect.tests)
        return None if self._passes(defect.tests) else "caught"

    def _copy(self):
        wanted = set()
        for path in self.files():
            wanted.add(path)
            self._restore(path)
        for folder, folders, names in os.walk(self.tree):
            folders[:] = [name for name in folders if name not in IGNORED_FOLDERS]
            for name in names:
                path = os.path.join(folder, name)
                if os.path.relpath(path, self.tree) not in wanted:
                    os.remove(path)

    def _restore(self, path):
        source, copy = os.path.join(self.root, path), os.path.join(self.tree, path)
        if not os.path.exists(copy) or _content(source) != _content(copy):
            os.makedirs(os.path.dirname(copy), exist_ok=True)
            # Not with the time of the source, which may be older than what was built of the defect.
            shutil.copy(source, copy)

    def _build(self, tests):
        if self._command(["ninja", "-C", os.path.join("build", PRESET), f"-j{self.jobs}", *tests]) != 0:
            raise BenchError(f"does not compile: see {self.log}")

    def _passes(self, tests):
        names = "^(" + "|".join(tests) + ")$"
        return self._command(["ctest", "--preset", PRESET, "-R", names, "--stop-on-failure", f"-j{self.jobs}"]) == 0

    def _command(self, command):
        """The exit code of a command in the copy; one that takes too long is ended and has failed, unless it builds."""
        limit = LONGEST_SECONDS if command[0] == "ctest" else None
        with open(self.log, "w", encoding="utf-8") as log:
            process = subprocess.Popen(command, cwd=self.tree, stdout=log, stderr=log, start_new_session=True)
            try:
                return process.wait(timeout=limit)
            except subprocess.TimeoutExpired:
                return -1
            finally:
                if process.poll() is None:
                    # The tests that it started go with it.
                    os.killpg(process.pid, signal.SIGKILL)
                    process.wait()


def _content(path):
    with open(path, "rb") as file:
        return file.read()
