"""The Debian package, installed into a folder of its own, run from there and removed.

    package_test.py --config CPackConfig.cmake --program-test TEST      packs what the build has made
    package_test.py --package FILE.deb                                  a package that is there
"""

import argparse
import gzip
import os
import pathlib
import re
import stat
import sys
import tempfile
import unittest

import debian_package
from debian_package import BUNDLE, EXECUTABLE, FILES, ICON_SIZES, IDENTIFIER, run

OPTIONS = argparse.Namespace()
TEXTS = {name for name in FILES - EXECUTABLE - {"usr/bin/haloric"} if not name.endswith(".png")}


class PackageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory(prefix="haloric-package-")
        cls.addClassCleanup(cls.folder.cleanup)
        os.chmod(cls.folder.name, 0o755)
        cls.package = OPTIONS.package or debian_package.make(OPTIONS.config, pathlib.Path(cls.folder.name) / "made")
        cls.root = cls.make_root("installed")
        cls.root.install(cls.package)

    @classmethod
    def make_root(cls, name):
        return debian_package.Root(pathlib.Path(cls.folder.name) / name)

    def assert_succeeds(self, *command, silent=False, **options):
        result = run(*command, **options)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        if silent:
            self.assertEqual(result.stdout + result.stderr, "")
        return result.stdout

    def installed(self, path):
        return self.root.folder / path

    def test_it_installs_these_files_and_no_others(self):
        self.assertEqual(self.root.files(), FILES)

    def test_permissions_are_those_of_the_system(self):
        for path in self.installed("usr").rglob("*"):
            name = str(path.relative_to(self.root.folder))
            mode = path.lstat().st_mode
            if stat.S_ISLNK(mode):
                self.assertTrue(path.exists(), f"{name} leads nowhere")
            else:
                is_open = stat.S_ISDIR(mode) or name in EXECUTABLE
                self.assertEqual(oct(stat.S_IMODE(mode)), oct(0o755 if is_open else 0o644), name)
        listing = self.assert_succeeds("dpkg-deb", "--contents", self.package)
        self.assertEqual({line.split()[1] for line in listing.splitlines()}, {"root/root"})

    def content(self, name):
        path = self.installed(name)
        return gzip.decompress(path.read_bytes()) if path.suffix == ".gz" else path.read_bytes()

    def test_no_text_knows_where_it_was_built(self):
        source = str(pathlib.Path(__file__).resolve().parents[2]).encode()
        for name in TEXTS:
            self.assertNotIn(source, self.content(name), name)

    def test_no_text_has_a_gap_left_to_fill(self):
        for name in TEXTS:
            self.assertIsNone(re.search(rb"@[A-Z_]+@", self.content(name)), name)

    def test_the_guide_leads_to_nothing_that_is_not_installed(self):
        guide = self.content("usr/share/doc/haloric/user-guide.md.gz").decode()
        self.assertIn("\n## Troubleshooting\n", guide)
        self.assertNotIn("<img", guide)
        links = re.findall(r"\]\(([^)]*)\)", guide)
        self.assertEqual([link for link in links if not link.startswith(("#", "https://"))], [])

    def test_lintian_has_no_objection(self):
        options = [] if os.geteuid() != 0 else ["--allow-root"]
        found = self.assert_succeeds("lintian", *options, "--fail-on", "error,warning", self.package)
        self.assertEqual(found, "")

    def test_it_depends_on_what_it_links_and_on_what_qt_loads(self):
        depends = self.assert_succeeds("dpkg-deb", "--field", self.package, "Depends")
        for package in ("libc6", "libcairo2", "libqt6widgets6", "libsystemd0", "libxcb1", "qt6-qpa-plugins"):
            self.assertRegex(depends, rf"(^|, ){package}( |,|$)")

    def test_the_desktop_entry_is_valid_and_starts_the_program(self):
        entry = self.installed(f"usr/share/applications/{IDENTIFIER}.desktop")
        self.assert_succeeds("desktop-file-validate", entry, silent=True)
        self.assertIn("\nExec=haloric\n", entry.read_text())

    def test_the_metainfo_is_valid(self):
        self.assert_succeeds("appstreamcli", "validate", "--no-net",
                             self.installed(f"usr/share/metainfo/{IDENTIFIER}.metainfo.xml"))

    def test_the_manual_page_has_no_warnings_and_names_every_option_of_the_help(self):
        page = self.installed("usr/share/man/man1/haloric.1.gz")
        environment = os.environ | {"LC_ALL": "C.UTF-8", "MANWIDTH": "80", "MANROFFSEQ": ""}
        shown = run("man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", page, env=environment)
        self.assertEqual((shown.returncode, shown.stderr), (0, ""))
        text = re.sub(".\b", "", shown.stdout)
        for option in self.options_of_the_help():
            self.assertIn(option, text)

    def options_of_the_help(self):
        options = set(re.findall(r"--[a-z][a-z-]*", self.assert_succeeds(self.installed("usr/bin/haloric"), "--help")))
        self.assertIn("--help", options)
        return options

    def test_completions_parse_and_know_every_option_of_the_help(self):
        for path, check in (("usr/share/bash-completion/completions/haloric", ("bash", "-n")),
                            ("usr/share/zsh/vendor-completions/_haloric", ("zsh", "-n")),
                            ("usr/share/fish/vendor_completions.d/haloric.fish", ("fish", "--no-execute"))):
            with self.subTest(path):
                self.assert_succeeds(*check, self.installed(path), silent=True)
                for option in self.options_of_the_help():
                    known = self.installed(path).read_text()
                    self.assertRegex(known, rf"{option}\b|-l {option[2:]} ")

    def test_bash_completes_options_and_effects(self):
        script = self.installed("usr/share/bash-completion/completions/haloric")
        for words, expected in ((["haloric", "--di"], "--diagnostics"), (["haloric", "--toggle", "bo"], "border"),
                                (["haloric", "--version", ""], "")):
            with self.subTest(words):
                ask = (f'. "{script}"; COMP_WORDS=({" ".join(word or chr(39) * 2 for word in words)}); '
                       f'COMP_CWORD={len(words) - 1}; _haloric; echo "${{COMPREPLY[*]}}"')
                self.assertEqual(self.assert_succeeds("bash", "-c", ask).strip(), expected)

    def test_icons_have_the_size_of_their_folder(self):
        for size in ICON_SIZES:
            data = self.installed(f"usr/share/icons/hicolor/{size}x{size}/apps/{IDENTIFIER}.png").read_bytes()
            self.assertEqual(data[:8], b"\x89PNG\r\n\x1a\n")
            self.assertEqual([int.from_bytes(data[at:at + 4], "big") for at in (16, 20)], [size, size])

    def test_the_version_is_that_of_the_package(self):
        version = self.assert_succeeds("dpkg-deb", "--field", self.package, "Version").split("-")[0]
        self.assertEqual(self.assert_succeeds(self.installed("usr/bin/haloric"), "--version"), f"Haloric {version}\n")

    def test_removing_it_leaves_the_users_settings_alone(self):
        root = self.make_root("removed")
        root.install(self.package)
        settings = f"home/user/.config/{IDENTIFIER}/Haloric.settings.v1"
        (root.folder / settings).parent.mkdir(parents=True)
        (root.folder / settings).write_text("{}")
        if OPTIONS.program_test:
            environment = os.environ | {"HALORIC_INSTALLED_PROGRAM": str(root.folder / "usr/bin/haloric")}
            self.assert_succeeds(OPTIONS.program_test, env=environment)
        root.remove("haloric")
        self.assertEqual(root.files(), {settings})
        self.assertFalse((root.folder / "usr").exists())


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--config", type=pathlib.Path)
    parser.add_argument("--program-test", type=pathlib.Path)
    parser.add_argument("--package", type=pathlib.Path)
    OPTIONS, rest = parser.parse_known_args()
    unittest.main(argv=[sys.argv[0], *rest])
