"""What the Debian package holds, and how it is made, installed and removed without touching the system."""

import os
import subprocess

ICON_SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
IDENTIFIER = "com.kestrow.haloric"
BUNDLE = "usr/lib/haloric/Haloric.app"
FILES = {
    "usr/bin/haloric", f"{BUNDLE}/haloric", f"{BUNDLE}/Info.plist", f"{BUNDLE}/Haloric.png",
    f"usr/share/applications/{IDENTIFIER}.desktop", f"usr/share/metainfo/{IDENTIFIER}.metainfo.xml",
    "usr/share/man/man1/haloric.1.gz", "usr/share/lintian/overrides/haloric",
    "usr/share/bash-completion/completions/haloric", "usr/share/zsh/vendor-completions/_haloric",
    "usr/share/fish/vendor_completions.d/haloric.fish",
    *(f"usr/share/doc/haloric/{name}" for name in
      ("copyright", "changelog.gz", "changelog.Debian.gz", "user-guide.md.gz")),
    *(f"usr/share/icons/hicolor/{size}x{size}/apps/{IDENTIFIER}.png" for size in ICON_SIZES),
    f"usr/share/icons/hicolor/symbolic/apps/{IDENTIFIER}-symbolic.svg",
}
EXECUTABLE = {f"{BUNDLE}/haloric"}


def run(*command, **options):
    return subprocess.run([str(word) for word in command], capture_output=True, text=True, **options)


def _must_run(*command):
    done = run(*command)
    if done.returncode != 0:
        raise RuntimeError(done.stdout + done.stderr)


def make(config, folder):
    """Packs what a build has made; the package."""
    _must_run("cpack", "--config", config, "-B", folder)
    (package,) = folder.glob("*.deb")
    return package


class Root:
    """A folder that stands for the system's root."""

    def __init__(self, folder):
        self.folder = folder
        (folder / "var/lib/dpkg/updates").mkdir(parents=True)
        (folder / "var/lib/dpkg/info").mkdir()
        (folder / "var/lib/dpkg/status").touch()

    def install(self, package):
        self._dpkg("--install", package)

    def remove(self, name):
        self._dpkg("--remove", name)

    def files(self):
        """All but dpkg's own, relative to the root."""
        found = (path for path in self.folder.rglob("*") if path.is_symlink() or not path.is_dir())
        return {name for path in found if not (name := str(path.relative_to(self.folder))).startswith("var/lib/dpkg/")}

    def _dpkg(self, *action):
        # Installing changes the owner of files, which needs root or fakeroot.
        fake = [] if os.geteuid() == 0 else ["fakeroot"]
        _must_run(*fake, "dpkg", f"--root={self.folder}", "--force-all", "--log=/dev/null", *action)
