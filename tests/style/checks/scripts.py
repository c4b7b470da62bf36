"""Shell scripts parse and pass shellcheck where it is installed; they can be executed."""

import os
import shutil
import subprocess

import project as common


def shell_scripts(project):
    for path in project.files():
        with open(project.root / path, "rb") as file:
            first = file.readline(100)
        if path.suffix == ".sh" or (first.startswith(b"#!") and first.strip().endswith((b"bash", b"/sh"))):
            yield path


def report(project, path, command):
    result = subprocess.run([*command, str(path)], cwd=project.root, capture_output=True, text=True)
    if result.returncode != 0:
        project.problem(path, (result.stdout + result.stderr).strip())


def check(project, _):
    for path in shell_scripts(project):
        report(project, path, ["bash", "-n"])
        if shutil.which("shellcheck"):
            report(project, path, ["shellcheck", "--format=gcc"])
        if not os.access(project.root / path, os.X_OK):
            project.problem(path, "is not executable")


if __name__ == "__main__":
    common.run(check)
