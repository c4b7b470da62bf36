"""What the checks share: the project's files, and how a check reports."""

import argparse
import pathlib
import subprocess
import sys

CPP_SUFFIXES = {".cpp", ".h", ".mm"}
ALL = object()


class Project:
    def __init__(self, root):
        self.root = pathlib.Path(root).resolve()
        self.problems = []

    def files(self, suffixes=ALL, below=""):
        """Files that are or would be under version control, as paths relative to the root."""
        command = ["git", "-c", "safe.directory=*", "-C", str(self.root)]
        command += ["ls-files", "--cached", "--others", "--exclude-standard", "-z"]
        names = subprocess.run(command, check=True, capture_output=True, text=True).stdout.split("\0")
        for name in sorted(set(names)):
            path = pathlib.PurePosixPath(name)
            if not name or not name.startswith(below) or not (self.root / path).is_file():
                continue
            if suffixes is ALL or path.suffix in suffixes:
                yield path

    def cpp_files(self, below=""):
        return self.files(CPP_SUFFIXES, below)

    def read(self, path):
        return (self.root / path).read_text(encoding="utf-8", errors="replace")

    def problem(self, path, text, line=None):
        self.problems.append(f"{path}{f':{line}' if line else ''}: {text}")


def run(check, extend=lambda parser: None):
    """The main program of a check: `check(project, arguments)` reports problems; any makes the exit code 1."""
    parser = argparse.ArgumentParser(description=sys.modules[check.__module__].__doc__)
    parser.add_argument("--root", default=pathlib.Path(__file__).resolve().parents[3])
    extend(parser)
    arguments = parser.parse_args()
    project = Project(arguments.root)
    check(project, arguments)
    for problem in project.problems:
        print(problem)
    sys.exit(1 if project.problems else 0)
