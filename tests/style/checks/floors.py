"""Each folder of src/ includes only what stands above it, inside each host too, and only the hosts know a system."""

import re

import project as common

FLOORS = ["foundation", "platform", "drawing", "settings", "windowserver", "tracking", "overlay", "menubar", "app",
          "hosts"]

# What one host may take from another: the POSIX adapters serve all real ones, the Linux adapters every display server.
HOSTS_BESIDE = {"linux": {"posix"}, "x11": {"linux", "posix"}, "macos": {"posix"}}

# The floors inside each host: a folder includes only floors before its own, and none beside it. TOP is the host's own
# folder.
TOP = ""
FLOORS_OF_HOSTS = {
    "linux": [{"loop"}, {"files"}, {"instance"}, {"tray"}, {"update"}, {"qt"}, {"form"}, {"shell"}, {TOP}],
    "x11": [{"server"}, {"windows", "refresh", "input"}, {"overlay"}, {"tray"}, {"shell"}, {TOP}],
    "sim": [{"loop"}, {"desktop"}, {"windows", "refresh", "overlay", "input", "form", "shell"}, {"scenario/session"},
            {"scenario/checks"}, {"scenario/steps"}, {"scenario"}, {"scenario/random"}, {"program"}, {TOP}],
    "macos": [{"base"}, {"loop"}, {"windows", "refresh", "input", "overlay"}, {"shell"}, {"form"}, {TOP}],
}

INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s*(["<])([^">]+)[">]')
CONDITION = re.compile(r"^\s*#\s*(?:if|ifdef|ifndef|elif)\b(.*)")
SYSTEM_MACRO = re.compile(r"__(?:linux|unix|gnu_linux|APPLE|MACH|FreeBSD|OpenBSD)\w*|_WIN32|TARGET_OS_\w+|\bunix\b")

# Headers of the C++ library, which any folder may include, have neither a folder nor a suffix; C's have these names.
C_LIBRARY = {"assert.h", "ctype.h", "errno.h", "float.h", "limits.h", "math.h", "stddef.h", "stdint.h", "stdio.h",
             "stdlib.h", "string.h", "time.h"}
PORTABLE_LIBRARIES = {"nlohmann/json.hpp": {"settings", "hosts"}}
CAIRO_HOMES = ("src/drawing/raster/", "src/hosts/")


def check_own_include(project, path, line, included):
    parts = path.parts
    target = included.split("/")
    if target[0] not in FLOORS:
        project.problem(path, f'"{included}" does not start with a folder of src/', line)
    elif FLOORS.index(target[0]) > FLOORS.index(parts[1]):
        project.problem(path, f'"{included}" stands below {parts[1]}', line)
    elif parts[1] == "hosts" and target[0] == "hosts":
        if target[1] != parts[2] and target[1] not in HOSTS_BESIDE.get(parts[2], set()):
            project.problem(path, f'host {parts[2]} includes "{included}" of another host', line)
        elif target[1] == parts[2]:
            check_floor_of_host(project, path, line, included)


def check_floor_of_host(project, path, line, included):
    host = path.parts[2]
    floors = FLOORS_OF_HOSTS.get(host)
    if not floors:
        return
    own = "/".join(path.parts[3:-1])
    target = "/".join(included.split("/")[2:-1])
    height = {folder: number for number, floor in enumerate(floors) for folder in floor}
    for folder in (own, target):
        if folder not in height:
            project.problem(path, f"the folder “{folder}” of host {host} has no floor", line)
            return
    if own != target and height[target] >= height[own]:
        project.problem(path, f'"{included}" does not stand above {own or "the top folder"}', line)


def check_foreign_include(project, path, line, included):
    folder = path.parts[1]
    if "cairo" in included:
        if not str(path).startswith(CAIRO_HOMES):
            project.problem(path, f"<{included}> outside {' and '.join(CAIRO_HOMES)}", line)
    elif folder == "hosts":
        return
    elif included in PORTABLE_LIBRARIES:
        if folder not in PORTABLE_LIBRARIES[included]:
            project.problem(path, f"<{included}> outside {sorted(PORTABLE_LIBRARIES[included])}", line)
    elif ("/" in included or "." in included) and included not in C_LIBRARY:
        project.problem(path, f"<{included}> is a system header", line)
    elif included in C_LIBRARY:
        project.problem(path, f"<{included}> has a C++ name", line)


def check(project, _):
    for path in project.cpp_files("src/"):
        for number, text in enumerate(project.read(path).splitlines(), 1):
            if include := INCLUDE.match(text):
                kind, included = include.groups()
                (check_own_include if kind == '"' else check_foreign_include)(project, path, number, included)
            elif condition := CONDITION.match(text):
                if path.parts[1] != "hosts" and SYSTEM_MACRO.search(condition.group(1)):
                    project.problem(path, "asks for the system; choose files in CMake instead", number)


if __name__ == "__main__":
    common.run(check)
