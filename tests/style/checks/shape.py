"""Files stay short, headers are guarded and say what they are for, and a class's file has its name."""

import re

import project as common

MOST_LINES = {".cpp": 300, ".mm": 300, ".h": 150, ".py": 200}
MOST_LINES_OF_TEST_HEADER = 200  # fakes are often headers alone
CLASS = re.compile(r"^class\s+(?:(?:\[\[\w+\]\]|API_AVAILABLE\([^)]*\)\))\s+)?(\w+)[^;]*$", re.MULTILINE)
ALIAS = re.compile(r"^using\s+(\w+)\s*=", re.MULTILINE)


def check_header(project, path, text):
    if not text.startswith(("//", "/*")):
        project.problem(path, "opens without a comment that says what it is")
    if "\n#pragma once\n" not in text:
        project.problem(path, "has no #pragma once")
    classes = CLASS.findall(text)
    if classes and path.stem not in classes + ALIAS.findall(text) and path.stem[0].isupper() and path.parts[0] == "src" and len(classes) == 1:
        project.problem(path, f"holds {classes[0]}; the file has the name of its class")


def check(project, _):
    for path in project.files(set(MOST_LINES)):
        text = project.read(path)
        lines = text.count("\n")
        most = MOST_LINES_OF_TEST_HEADER if path.suffix == ".h" and path.parts[0] == "tests" else MOST_LINES[path.suffix]
        if lines > most:
            project.problem(path, f"has {lines} lines, more than {most}")
        if text and not text.endswith("\n"):
            project.problem(path, "does not end with a newline")
        if path.suffix == ".h":
            check_header(project, path, text)


if __name__ == "__main__":
    common.run(check)
