"""clang-tidy finds nothing in the sources, the benchmarks and what the tests share.

It reads the batches that the compiler reads, which takes a quarter of the time. A batch is read again only when one of
its sources, a header of the project that they reach, its command, .clang-tidy or clang-tidy itself has changed. The
marks of clean batches are kept in the user's cache folder, for every clone.
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
FOLDERS = "src|bench|demo|packaging|testing|tests"
LINTED = re.compile(r"(src|bench|demo|packaging|testing|tests/fakes|tests/support)/.*\.cpp$")
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


def units_of(project, entry):
    """What clang-tidy reads for a command, each with its sources: the source, or the batch of them that CMake made."""
    file = pathlib.Path(entry["directory"], entry["file"]).resolve()
    files = [pathlib.Path(name) for name in BATCHED.findall(file.read_text())] if file.parent.name == "Unity" else [file]
    inside = [path.relative_to(project.root) for path in files if path.is_relative_to(project.root) and path.is_file()]
    linted = [pathlib.PurePosixPath(path) for path in inside if LINTED.match(str(path))]
    if len(linted) == len(files):
        return [(file, linted)]
    return [(project.root / path, [path]) for path in linted]


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


def fingerprint(project, paths, arguments, constant):
    digest = hashlib.sha256(constant)
    digest.update("\0".join(arguments).replace(str(project.root), "").encode())
    seen = set()
    for path in paths:
        reached_files(project, path, seen)
    for file in sorted(seen):
        digest.update(str(file).encode())
        digest.update((project.root / file).read_bytes())
    return digest.hexdigest()


def lint(project, file, arguments):
    # The sources of a batch count as headers of it.
    header_filter = f"--header-filter=^{re.escape(str(project.root))}/({FOLDERS})/"
    command = ["clang-tidy", "--quiet", header_filter, str(file), "--", *arguments]
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
        arguments = arguments_of(entry["command"])
        for file, paths in units_of(project, entry):
            mark = cache / fingerprint(project, paths, arguments, constant)
            if not mark.exists():
                pending[file] = (arguments, mark)
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        results = {file: pool.submit(lint, project, file, arguments) for file, (arguments, _) in pending.items()}
    for file, result in results.items():
        for line in dict.fromkeys(result.result()):
            project.problem(file.name, line.replace(f"{project.root}/", ""))
        if not result.result():
            pending[file][1].touch()


if __name__ == "__main__":
    common.run(check, extend)
