"""The information dictionary of the bundle on Linux, for builds with an update feed and without."""

import pathlib
import plistlib
import subprocess
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "packaging/linux/information.cmake"


def information(feed):
    with tempfile.TemporaryDirectory() as folder:
        script = pathlib.Path(folder, "write.cmake")
        script.write_text(f'include("{SCRIPT}")\nwrite_information("{folder}/Info.plist")\n')
        values = ("-DPROJECT_VERSION=1.2.3", "-DHALORIC_BUILD_NUMBER=45", f"-DHALORIC_FEED_URL={feed}")
        subprocess.run(["cmake", *values, "-P", str(script)], check=True)
        return plistlib.loads(pathlib.Path(folder, "Info.plist").read_bytes())


class InformationTest(unittest.TestCase):
    def test_it_names_the_program_and_its_version(self):
        found = information(feed="")
        self.assertEqual((found["CFBundleIdentifier"], found["CFBundleName"]), ("com.kestrow.haloric", "Haloric"))
        self.assertEqual((found["CFBundleShortVersionString"], found["CFBundleVersion"]), ("1.2.3", "45"))

    def test_without_a_feed_it_has_no_key_for_one(self):
        self.assertNotIn("SUFeedURL", information(feed=""))

    def test_a_feed_is_kept_letter_by_letter(self):
        feed = "https://updates.example/feed.xml?channel=beta&system=linux"
        self.assertEqual(information(feed)["SUFeedURL"], feed)


if __name__ == "__main__":
    unittest.main()
