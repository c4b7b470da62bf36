"""The macOS adapters ask the system for exactly what they should.

Each file of the tables (macos_table.py, macos_interface_table.py, macos_portable_table.py) holds each of its fragments.
A constant of the system that an adapter uses and the tables do not know is a slip as well, or a new one to be added
there.
"""

import plistlib
import re

from macos_interface_table import INTERFACE_ADAPTERS
from macos_portable_table import PORTABLE
import macos_table
import project as common

ADAPTERS = macos_table.ADAPTERS | INTERFACE_ADAPTERS

FOLDER = "src/hosts/macos/"

INFORMATION = "packaging/macos/Info.plist.in"
INFORMATION_VALUES = {
    "CFBundleExecutable": "Haloric",
    "CFBundleIconFile": "Haloric",
    "CFBundleIdentifier": "com.kestrow.haloric",
    "CFBundleName": "Haloric",
    "CFBundlePackageType": "APPL",
    "CFBundleShortVersionString": "${PROJECT_VERSION}",
    "CFBundleVersion": "${HALORIC_BUILD_NUMBER}",
    "LSMinimumSystemVersion": "${CMAKE_OSX_DEPLOYMENT_TARGET}",
    "LSUIElement": True,
    "NSHighResolutionCapable": True,
    "NSPrincipalClass": "NSApplication",
}

# Constants of the system by their names' shape.
CONSTANT = re.compile(r"\b(?:k(?:AX|CG|CF|CV)\w+|(?:RTLD|DISPATCH|QOS|NSEC)_\w+|NS\w+Notification\b(?!\*)"
                      r"|NS(?:Window|Event|BackingStore|Alert|Compositing|ModalResponse|AboutPanelOption)\w*?"
                      r"(?:Mask|Behavior|Buffered|Return|Operation|OK|Option)\w+"
                      r"|NSRunLoop\w+Modes?|SMAppServiceStatus\w+|UTType[A-Z]\w+)\b")
# In the adapters' own names, or of no consequence: how the form looks and which keys move it.
OWN = re.compile(r"kCF\b|NSWindowStyleMask$|NSEventMask$|NSEventModifier\w+|NSBackingStoreType|NSWindow\w+Behavior$"
                 r"|NSCompositingOperationSourceOver|DISPATCH_SOURCE_\w+|kCFNumber\w+")


def normalised(text):
    text = re.sub(r"//[^\n]*", "", text)
    return re.sub(r"\s+", " ", text)


def squeezed(text):
    return re.sub(r"\s", "", text)


def check_fragments(project, path, fragments):
    text = squeezed(normalised(project.read(path)))
    for fragment in fragments:
        if squeezed(fragment) not in text:
            project.problem(path, f"does not hold “{fragment}”")


def check_information(project):
    text = project.read(INFORMATION).replace("${HALORIC_UPDATE_KEYS}", "")
    values = plistlib.loads(text.encode())
    for key, value in INFORMATION_VALUES.items():
        if values.get(key) != value:
            project.problem(INFORMATION, f"{key} is {values.get(key)!r}, not {value!r}")


def check_names(project, paths):
    for path in PORTABLE.keys() - paths:
        project.problem(path, "is in the tables, but not there")
    for name in ADAPTERS.keys() - {path.rpartition("/")[2] for path in paths if path.startswith(FOLDER)}:
        project.problem(FOLDER + name, "is in the tables, but not there")


def check(project, _):
    known = squeezed(" ".join(fragment for fragments in ADAPTERS.values() for fragment in fragments))
    paths = {str(path): path for path in project.cpp_files("src/")}
    adapters = [path for name, path in paths.items() if name.startswith(FOLDER)]
    if (project.root / INFORMATION).is_file():
        check_information(project)
    if adapters:
        check_names(project, paths.keys())
    for name in PORTABLE.keys() & paths.keys():
        check_fragments(project, paths[name], PORTABLE[name])
    for path in adapters:
        check_fragments(project, path, ADAPTERS.get(path.name, []))
        for constant in sorted(set(CONSTANT.findall(normalised(project.read(path))))):
            if constant not in known and not OWN.search(constant):
                project.problem(path, f"uses {constant}, which the tables do not know")


if __name__ == "__main__":
    common.run(check)
