"""JSON files parse, links and pictures in Markdown lead to what exists, and every picture for documents is in one."""

import itertools
import json
import re

import project as common

LINK = re.compile(r"\[[^\]]*\]\(([^)\s]+)\)")
PICTURE = re.compile(r'<img\s[^>]*src="([^"]+)"')
PICTURES = "docs/pictures/"
HEADING = re.compile(r"^#+\s+(.*?)\s*$", re.MULTILINE)
FENCED = re.compile(r"^```.*?^```", re.MULTILINE | re.DOTALL)


def anchor_of(heading):
    return re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")


def check_link(project, path, link, line):
    target, _, anchor = link.partition("#")
    file = ((project.root / path).parent / target if target else project.root / path).resolve()
    if not file.exists():
        project.problem(path, f"links to {link}, which does not exist", line)
    elif anchor and file.suffix == ".md":
        headings = HEADING.findall(FENCED.sub("", file.read_text(encoding="utf-8")))
        if anchor not in map(anchor_of, headings):
            project.problem(path, f"links to {link}, but there is no such heading", line)
    return file


def check(project, _):
    for path in project.files({".json"}):
        try:
            json.loads(project.read(path))
        except json.JSONDecodeError as error:
            project.problem(path, f"is no JSON: {error}")
    linked = set()
    for path in project.files({".md"}):
        text = project.read(path)
        for found in itertools.chain(LINK.finditer(text), PICTURE.finditer(text)):
            if not re.match(r"[a-z]+:", found.group(1)):
                linked.add(check_link(project, path, found.group(1), text.count("\n", 0, found.start()) + 1))
    for path in project.files(below=PICTURES):
        if project.root / path not in linked:
            project.problem(path, "is in no document")


if __name__ == "__main__":
    common.run(check)
