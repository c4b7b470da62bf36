"""Nothing is left for later, no test sleeps, and the text speaks of this project alone."""

import re

import project as common

# Put together from pieces, so that this list does not find itself.
EVERYWHERE = {
    "T" + "ODO": "finish it or leave it out",
    "FIX" + "ME": "finish it or leave it out",
    r"\bXX" + r"X\b": "finish it or leave it out",
    r"[Ss]peci" + "fication": "give the reason, not a reference",
    r"\bthe " + r"spec\b": "give the reason, not a reference",
    r"\bPart " + r"[0-9]\.[0-9]": "give the reason, not a reference",
    r"\bissue " + r"#?[0-9]": "give the reason, not a reference",
    r"(?<![\w.])/wo" + "rk/": "a path of one machine",
    r"(?<![\w.])/ho" + r"me/\w": "a path of one machine",
    r"\bAI " + "agent": "not about this project",
    r"language " + "model": "not about this project",
}
IN_TESTS = {
    r"sleep" + r"_for\b": "wait for an acknowledgement instead",
    r"\busl" + r"eep\(": "wait for an acknowledgement instead",
    r"\bsle" + r"ep\s+[0-9]": "wait for an acknowledgement instead",
}


def check(project, _):
    for path in project.files():
        try:
            text = (project.root / path).read_text(encoding="utf-8")
        except UnicodeDecodeError:
            continue  # a picture
        patterns = EVERYWHERE | (IN_TESTS if path.parts[0] == "tests" else {})
        for pattern, advice in patterns.items():
            for found in re.finditer(pattern, text):
                project.problem(path, f"“{found.group()}”: {advice}", text.count("\n", 0, found.start()) + 1)


if __name__ == "__main__":
    common.run(check)
