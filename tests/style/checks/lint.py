"""clang-tidy finds nothing in the sources, the benchmarks and what the tests share.

A file is looked at again only when it, one of the project's headers that it reaches, its command, .clang-tidy or
clang-tidy itself has changed. What was found clean is kept in the user's cache folder, for every clone.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess

import project as common

# The test programs themselves are left out: GoogleTest's macros trip many checks and take most of the time.
LINTED = re.compile(r"(src|bench|demo|packaging|testing|tests/support)/.*\.cpp$")
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
INCLUDE_ROOTS = ("src", "tests", "bench", "packaging", ".")
BATCHED = re.compile(r'^#include "(.+\.cpp)"$', re.MULTILINE)
WARNING = re.compile(r"^.*(?:warning|error): .*$", re.MULTILINE)


def extend(parser):
    parser.add_argument("--build", default="build", help="holds compile_commands.json")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())


def arguments_of(command):
    """The compiler's arguments without the launcher, the output and GCC's precompiled header."""
    words = shlex.split(command)
    start = next(index for index, word in enumerate(words) if re.search(r"(?:c\+\+|g\+\+|clang\+\+)[-\d.]*$", word))
    kept = []
    skip = False
    for word in words[start + 1:]:
        if skip or word in ("-c", "-Winvalid-pch", "-MD"):
            skip = False
        elif word in ("-o", "-MT", "-MF", "-include"):
            skip = True
        elif not word.endswith((".cpp", ".cxx")) and not word.startswith("-fsanitize"):
            kept.append(word)
    return kept


def sources_of(entry):
    """The source that the command compiles; of a batch made by CMake, each of its sources."""
    file = pathlib.Path(entry["directory"], entry["file"]).resolve()
    if file.parent.name == "Unity":
        return [pathlib.Path(name) for name in BATCHED.findall(file.read_text())]
    return [file]


def reached_files(project, path, seen):
    """The file and the project's headers that it includes, directly or not."""
    if path in seen:
        return
    seen.add(path)
    for included in INCLUDE.findall(project.read(path)):
        for root in (*INCLUDE_ROOTS, str(path.parent)):
            candidate = pathlib.PurePosixPath(root) / included
            if (project.root / candidate).is_file():
                reached_files(project, candidate, seen)
                break


def fingerprint(project, path, arguments, constant):
    digest = hashlib.sha256(constant)
    digest.update("\0".join(arguments).replace(str(project.root), "").encode())
    seen = set()
    reached_files(project, path, seen)
    for file in sorted(seen):
        digest.update(str(file).encode())
        digest.update((project.root / file).read_bytes())
    return digest.hexdigest()


def lint(project, path, arguments):
    command = ["clang-tidy", "--quiet", str(path), "--", *arguments]
    result = subprocess.run(command, cwd=project.root, capture_output=True, text=True)
    found = WARNING.findall(result.stdout)
    return found or ([result.stderr.strip()] if result.returncode != 0 else [])


def cache_folder():
    standard = pathlib.Path.home() / ".cache"
    return pathlib.Path(os.environ.get("XDG_CACHE_HOME") or standard) / "haloric-lint"


def check(project, options):
    build = (project.root / options.build).resolve()
    cache = cache_folder()
    cache.mkdir(parents=True, exist_ok=True)
    version = subprocess.run(["clang-tidy", "--version"], check=True, capture_output=True).stdout
    constant = version + (project.root / ".clang-tidy").read_bytes()
    pending = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        for file in sources_of(entry):
            if not file.is_relative_to(project.root) or not file.is_file():
                continue
            path = pathlib.PurePosixPath(file.relative_to(project.root))
            if LINTED.match(str(path)):
                arguments = arguments_of(entry["command"])
                mark = cache / fingerprint(project, path, arguments, constant)
                if not mark.exists():
                    pending[path] = (arguments, mark)
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        results = {path: pool.submit(lint, project, path, arguments) for path, (arguments, _) in pending.items()}
    for path, result in results.items():
        for line in dict.fromkeys(result.result()):
            project.problem(path, line.replace(f"{project.root}/", ""))
        if not result.result():
            pending[path][1].touch()


if __name__ == "__main__":
    common.run(check, extend)
