"""Every C++ file is as clang-format leaves it."""

import subprocess

import project as common


def check(project, _):
    files = [str(path) for path in project.cpp_files() if path.suffix != ".mm"]
    if not files:
        return
    result = subprocess.run(["clang-format", "--dry-run", "--Werror", *files], cwd=project.root,
                            capture_output=True, text=True)
    for line in result.stderr.splitlines():
        if "error:" in line:
            project.problem(line.split(": error:")[0], "not formatted; run clang-format -i")


if __name__ == "__main__":
    common.run(check)
