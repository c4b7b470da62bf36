"""Files and folders keep to the sizes of CONTRIBUTING.md, headers are guarded and say what they are for, a class's file
has its name, and the unit tests mirror the sources."""

import collections
import re

import project as common

MOST_LINES = {".cpp": 400, ".mm": 400, ".py": 400, ".h": 150}
MOST_LINES_OF_TEST_HEADER = 180  # a fake is often a header only
MOST_FILES = 36  # C++ files in one folder of src/: about 30
CLASS = re.compile(r"^class\s+(?:(?:\[\[\w+\]\]|API_AVAILABLE\([^)]*\)\))\s+)?(\w+)[^;]*$", re.MULTILINE)
ALIAS = re.compile(r"^using\s+(\w+)\s*=", re.MULTILINE)
UNIT_TESTS = "tests/unit/"


def check_header(project, path, text):
    if not text.startswith(("//", "/*")):
        project.problem(path, "opens without a comment that says what it is")
    if "\n#pragma once\n" not in text:
        project.problem(path, "has no #pragma once")
    classes = CLASS.findall(text)
    known = classes + ALIAS.findall(text)
    if path.parts[0] == "src" and len(classes) == 1 and path.stem[0].isupper() and path.stem not in known:
        project.problem(path, f"holds {classes[0]}; the file has the name of its class")


def check(project, _):
    folders = collections.Counter(path.parent for path in project.cpp_files())
    for folder, files in folders.items():
        if files > MOST_FILES and folder.parts[0] == "src":
            project.problem(folder, f"has {files} C++ files, more than {MOST_FILES}")
        if str(folder).startswith(UNIT_TESTS):
            mirrored = "src" / folder.relative_to(UNIT_TESTS)
            if not (project.root / mirrored).is_dir():
                project.problem(folder, f"mirrors {mirrored}, which does not exist")
    for path in project.files(set(MOST_LINES)):
        text = project.read(path)
        lines = text.count("\n")
        is_test_header = path.suffix == ".h" and path.parts[0] == "tests"
        most = MOST_LINES_OF_TEST_HEADER if is_test_header else MOST_LINES[path.suffix]
        if lines > most:
            project.problem(path, f"has {lines} lines, more than {most}")
        if text and not text.endswith("\n"):
            project.problem(path, "does not end with a newline")
        if path.suffix == ".h":
            check_header(project, path, text)


if __name__ == "__main__":
    common.run(check)
