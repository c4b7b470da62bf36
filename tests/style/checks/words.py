"""Nothing is left for later, no test sleeps, no path of one machine is kept, and the words are plain English."""

import re

import project as common

EVERYWHERE = {
    r"\b(?:TODO|FIXME|XXX)\b": "finish it or leave it out",
    r"(?<![\w.])/(?:work/|home/\w)": "a path of one machine",
}
# The program itself starts a shell that waits before it opens the application again.
IN_TESTS = {
    r"\bsleep_for\b|\busleep\(|\bsleep\s+[0-9](?!\.4; /usr/bin/open)": "wait for an acknowledgement instead",
}
PLAIN = {
    r"(?i)\b(?:who|whoever|nobody|somebody|everybody|anew)\b": "name the code or the thing (CONTRIBUTING.md)",
}
# These spell the words out: the rule, and the checks with their tests.
EXEMPT = ("CONTRIBUTING.md", "LICENSE", "tests/style/")
PLAIN_FOLDERS = ("src/", "tests/", "testing/", "demo/", "bench/", "docs/")

COMMENT = {suffix: re.compile(r"(?://|#(?!include|pragma|import)).*") for suffix in (".cpp", ".h", ".mm")}
COMMENT |= {suffix: re.compile(r"#.*") for suffix in (".py", ".sh", ".cmake", ".txt", "")}
QUOTED = re.compile(r'"[^"\n]*"|“[^”\n]*”|`[^`\n]*`')


def prose(path, line):
    """What of the line is in the project's own words: not code, and not a text of the product."""
    if path.suffix == ".md":
        return QUOTED.sub("", line)
    found = COMMENT[path.suffix].search(QUOTED.sub("", line)) if path.suffix in COMMENT else None
    return found.group() if found else ""


def report(project, path, patterns, text, line):
    for pattern, advice in patterns.items():
        for found in re.finditer(pattern, text):
            project.problem(path, f"“{found.group()}”: {advice}", line)


def check(project, _):
    for path in project.files():
        try:
            text = (project.root / path).read_text(encoding="utf-8")
        except UnicodeDecodeError:
            continue  # a picture
        if str(path).startswith(EXEMPT):
            continue
        patterns = EVERYWHERE | (IN_TESTS if path.parts[0] == "tests" else {})
        is_prose = str(path).startswith(PLAIN_FOLDERS) or path.suffix == ".md"
        for number, line in enumerate(text.splitlines(), 1):
            report(project, path, patterns, line, number)
            if is_prose:
                report(project, path, PLAIN, prose(path, line), number)


if __name__ == "__main__":
    common.run(check)
