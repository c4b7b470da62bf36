"""Each check passes a sound project and fails one with a planted fault."""

import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

CHECKS = pathlib.Path(__file__).parent / "checks"
REPOSITORY = CHECKS.parents[2]

SOUND = {
    "src/foundation/Sound.h": "// Something sound.\n#pragma once\n\n#include <string>\n\nstruct Sound {\n"
                              "    std::string text;\n};\n",
    "src/tracking/Sound.cpp": '#include "foundation/Sound.h"\n\n#include <cmath>\n',
    "src/hosts/x11/Sound.cpp": '#include "hosts/posix/Sound.h"\n\n#include <xcb/xcb.h>\n',
    "src/hosts/x11/overlay/Sound.cpp": '#include "hosts/linux/loop/Sound.h"\n#include "hosts/x11/server/Sound.h"\n',
    "tests/unit/tracking/SoundTest.cpp": "// A sound test of whose result the file's name reports.\n",
    "src/drawing/raster/Sound.cpp": "#include <cairo/cairo.h>\n",
    "README.md": "# Sound\n\nSee [itself](README.md#sound).\n",
    "sound.json": "{}\n",
    "sound.sh": "#!/usr/bin/env bash\necho sound\n",
}


class SelfTest(unittest.TestCase):
    def run_check(self, name, changes, arguments=()):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            subprocess.run(["git", "init", "--quiet", folder], check=True)
            (root / ".clang-format").write_bytes((REPOSITORY / ".clang-format").read_bytes())
            (root / ".clang-tidy").write_bytes((REPOSITORY / ".clang-tidy").read_bytes())
            for path, text in (SOUND | changes).items():
                file = root / path
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text.replace("ROOT", str(root.resolve())))
                if text.startswith("#!"):
                    file.chmod(0o755)
            if "--build" in arguments:
                batch = "Unity/unity_0_cxx.cxx"
                self.write_compile_commands(root, batch if batch in changes else "src/foundation/Linted.cpp")
            command = [sys.executable, str(CHECKS / f"{name}.py"), "--root", folder, *arguments]
            return subprocess.run(command, capture_output=True, text=True)

    @staticmethod
    def write_compile_commands(root, file):
        command = f"ccache /usr/bin/c++ -I{root}/src -std=c++20 -o Linted.o -c {root}/{file}"
        (root / "compile_commands.json").write_text(
            json.dumps([{"directory": str(root), "command": command, "file": file}]))

    def assert_passes(self, name, changes=None, arguments=()):
        result = self.run_check(name, changes or {}, arguments)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)

    def assert_fails(self, name, changes, expected, arguments=()):
        result = self.run_check(name, changes, arguments)
        self.assertEqual(result.returncode, 1, result.stdout + result.stderr)
        self.assertIn(expected, result.stdout)

    def test_a_sound_project_passes(self):
        for name in ("formatting", "floors", "shape", "words", "scripts", "documents", "macos"):
            with self.subTest(name):
                self.assert_passes(name)

    def test_unformatted_code(self):
        self.assert_fails("formatting", {"src/app/Bad.cpp": "int  x ;\n"}, "src/app/Bad.cpp")

    def test_a_folder_that_includes_one_below_it(self):
        self.assert_fails("floors", {"src/platform/Bad.h": '#include "tracking/FocusTracker.h"\n'}, "stands below")

    def test_a_host_that_includes_another(self):
        self.assert_fails("floors", {"src/hosts/sim/Bad.h": '#include "hosts/x11/X11.h"\n'}, "another host")

    def test_a_folder_of_a_host_that_includes_one_below_or_beside_it(self):
        for path, included in (("x11/server", "x11/overlay"), ("x11/input", "x11/windows"), ("linux/loop", "linux/qt"),
                               ("sim/desktop", "sim"), ("macos/base", "macos/shell")):
            with self.subTest(path):
                self.assert_fails("floors", {f"src/hosts/{path}/Bad.h": f'#include "hosts/{included}/Other.h"\n'},
                                  "does not stand above")
        self.assert_fails("floors", {"src/hosts/x11/new/Bad.h": '#include "hosts/x11/server/Other.h"\n'}, "has no floor")

    def test_unit_tests_that_mirror_nothing(self):
        self.assert_fails("shape", {"tests/unit/gone/Test.cpp": "\n"}, "mirrors src/gone")

    def test_a_folder_with_too_many_files(self):
        self.assert_fails("shape", {f"src/app/Bad{number}.cpp": "\n" for number in range(37)}, "37 C++ files")

    def test_a_system_header_outside_the_hosts(self):
        for header in ("unistd.h", "sys/types.h", "xcb/xcb.h", "gio/gio.h"):
            with self.subTest(header):
                self.assert_fails("floors", {"src/app/Bad.cpp": f"#include <{header}>\n"}, "system header")

    def test_cairo_outside_the_raster(self):
        self.assert_fails("floors", {"src/overlay/Bad.cpp": "#include <cairo/cairo.h>\n"}, "cairo")

    def test_a_question_for_the_system_outside_the_hosts(self):
        for line in ("#ifdef __linux__", "#if defined(__APPLE__)", "#elif defined(_WIN32)"):
            with self.subTest(line):
                self.assert_fails("floors", {"src/app/Bad.cpp": f"{line}\n#endif\n"}, "choose files in CMake")

    def test_a_long_file(self):
        self.assert_fails("shape", {"src/app/Bad.cpp": "\n" * 401}, "more than 400")

    def test_a_header_without_guard_or_comment(self):
        self.assert_fails("shape", {"src/app/bad.h": "// A header.\nint x();\n"}, "#pragma once")
        self.assert_fails("shape", {"src/app/bad.h": "#pragma once\nint x();\n"}, "without a comment")

    def test_a_header_with_another_name_than_its_type(self):
        text = "// A header.\n#pragma once\n\nclass Good {\n};\n"
        self.assert_fails("shape", {"src/app/Bad.h": text}, "holds Good")

    def test_words(self):
        for word in ("TODO", "FIXME", "XXX", "/home/me/x"):
            with self.subTest(word):
                self.assert_fails("words", {"src/app/Bad.cpp": f"// {word}\n"}, "src/app/Bad.cpp:1")
        self.assert_passes("words", {"src/app/Good.cpp": "// A regression: issue 12.\n"})

    def test_words_that_are_not_plain(self):
        for word in ("Nobody", "whoever", "somebody", "who", "anew"):
            with self.subTest(word):
                self.assert_fails("words", {"src/app/Bad.cpp": f"// {word} asks.\n"}, "src/app/Bad.cpp:1")
                self.assert_fails("words", {"docs/bad.md": f"{word} asks.\n"}, "docs/bad.md:1")
        self.assert_passes("words", {"src/app/Good.cpp": 'f("Who asks?"); // "Who asks?"\n'})

    def test_a_test_that_sleeps(self):
        line = "std::this_thread::sleep_for(1s);\n"
        self.assert_fails("words", {"tests/unit/Bad.cpp": line}, "acknowledgement")
        self.assert_fails("words", {"tests/bad.sh": "sleep 0.4\n"}, "acknowledgement")
        self.assert_passes("words", {"bench/Good.cpp": line})
        self.assert_passes("words", {"tests/unit/Good.cpp": 'f("sleep 0.4; /usr/bin/open ");\n'})

    def test_a_script_that_does_not_parse(self):
        self.assert_fails("scripts", {"bad": "#!/usr/bin/env bash\nif then\n"}, "bad")

    def test_broken_json_and_links(self):
        self.assert_fails("documents", {"bad.json": "{,}\n"}, "no JSON")
        self.assert_fails("documents", {"bad.md": "[gone](gone.md)\n"}, "does not exist")
        self.assert_fails("documents", {"bad.md": "[gone](README.md#gone)\n"}, "no such heading")

    def test_pictures_that_are_missing_or_not_shown(self):
        shown = '<img src="docs/pictures/shown.png" width="9" alt="shown">\n'
        self.assert_fails("documents", {"bad.md": shown}, "does not exist")
        self.assert_fails("documents", {"docs/pictures/shown.png": ""}, "is in no document")
        self.assert_passes("documents", {"good.md": shown, "docs/pictures/shown.png": ""})

    def test_names_of_macos_that_are_misspelt(self):
        names = self.symbols()
        sound = {"src/hosts/macos/Names.mm": "".join(f'"{name}"\n' for name in names)}
        self.assert_passes("macos", sound)
        for right, wrong in (("SLSGetWindowBounds", "SLSGetWindowBound"), ("AXMinimized", "AXMinimised"),
                             ("SkyLight.framework", "Skylight.framework")):
            with self.subTest(wrong):
                changed = {path: text.replace(right, wrong) for path, text in sound.items()}
                self.assert_fails("macos", changed, wrong)
        fewer = {path: text.replace('"AXRole"', "") for path, text in sound.items()}
        self.assert_fails("macos", fewer, '"AXRole" is used nowhere')

    @staticmethod
    def symbols():
        command = [sys.executable, "-B", "-c", "import macos; print(*macos.SYMBOLS)"]
        return subprocess.run(command, cwd=CHECKS, check=True, capture_output=True, text=True).stdout.split()

    def test_the_information_of_macos(self):
        plist = (REPOSITORY / "packaging/macos/Info.plist.in").read_text()
        self.assert_passes("macos", {"packaging/macos/Info.plist.in": plist})
        wrong = plist.replace("<true/>", "<false/>")
        self.assert_fails("macos", {"packaging/macos/Info.plist.in": wrong}, "LSUIElement")

    def test_what_clang_tidy_finds_in_a_batch(self):
        batch = '/* generated by CMake */\n\n#include "ROOT/src/foundation/Linted.cpp"\n\n#include "ROOT/src/app/Fine.cpp"\n'
        files = {"src/foundation/Linted.cpp": "int* nothing() { return 0; }\n", "src/app/Fine.cpp": "int one() { return 1; }\n"}
        build = ("--build", ".")
        self.assert_fails("lint", files | {"Unity/unity_0_cxx.cxx": batch}, "Linted.cpp:1", build)
        files["src/foundation/Linted.cpp"] = "int two() { return 2; }\n"
        self.assert_passes("lint", files | {"Unity/unity_0_cxx.cxx": batch}, build)

    def test_what_clang_tidy_finds(self):
        build = ("--build", ".")
        self.assert_fails("lint", {"src/foundation/Linted.cpp": "int* nothing() { return 0; }\n"}, "nullptr", build)
        self.assert_passes("lint", {"src/foundation/Linted.cpp": "int* nothing() { return nullptr; }\n"}, build)


if __name__ == "__main__":
    unittest.main()
