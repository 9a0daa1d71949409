#!/usr/bin/env python3
# SPDX-License-Identifier: AGPL-3.0-or-later
"""Checks desktop entry, AppStream metadata and icons, and lets the systems' own validators judge where they are there.

    ApplicationFilesTest.py FOLDER      the folder into which the build writes the metadata
"""
import glob
import os
import shutil
import struct
import subprocess
import sys
import unittest
import xml.etree.ElementTree

BUILT = sys.argv[1]
ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
APPLICATION = os.path.join(ROOT, "resources", "application")
DESKTOP = os.path.join(APPLICATION, "com.morlek.orlo.desktop")
METADATA = os.path.join(BUILT, "com.morlek.orlo.metainfo.xml")


class ApplicationFiles(unittest.TestCase):
    def judge(self, *command):
        if shutil.which(command[0]) is None:
            self.skipTest(f"needs {command[0]}")
        run = subprocess.run(command, capture_output=True, text=True, check=False)
        self.assertEqual(run.returncode, 0, run.stdout + run.stderr)
        return run.stdout + run.stderr

    def test_desktop_entry_is_valid(self):
        self.assertEqual(self.judge("desktop-file-validate", DESKTOP), "")

    def test_metadata_is_valid(self):
        self.judge("appstreamcli", "validate", "--no-net", METADATA)

    def test_metadata_names_the_desktop_entry_and_the_version(self):
        tree = xml.etree.ElementTree.parse(METADATA)
        with open(os.path.join(ROOT, "CMakeLists.txt"), encoding="utf-8") as file:
            self.assertIn(f"project (Orlo VERSION {tree.find('releases/release').get('version')} ", file.read())
        self.assertEqual(tree.find("launchable").text, os.path.basename(DESKTOP))

    def test_every_icon_has_the_size_of_its_name(self):
        icons = glob.glob(os.path.join(APPLICATION, "icons", "*.png"))
        self.assertGreaterEqual(len(icons), 9)
        for path in icons:
            with open(path, "rb") as file:
                head = file.read(24)
            size = int(os.path.basename(path).removeprefix("orlo-").removesuffix(".png"))
            self.assertEqual(struct.unpack(">II", head[16:24]), (size, size), path)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
