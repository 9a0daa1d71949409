#!/usr/bin/env python3
# SPDX-License-Identifier: AGPL-3.0-or-later
"""Runs scripts/install and scripts/uninstall for a made-up user and a made-up build."""
import os
import shutil
import subprocess
import tempfile
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
FILES = {
    "plugin": ["lib/vst3/Orlo.vst3/Contents/x86_64-linux/Orlo.so", "lib/lv2/Orlo.lv2/manifest.ttl"],
    "application": ["bin/orlo", "share/icons/hicolor/16x16/apps/com.morlek.orlo.png", "share/doc/orlo/copyright"],
    "presets": ["share/Morlek/Orlo/presets/Init.mkpreset", "share/Morlek/Orlo/presets/Two words.mkpreset"],
    "tools": ["bin/orlo-host", "share/man/man1/orlo-host.1.gz"],
}
DESKTOP = "share/applications/com.morlek.orlo.desktop"


def write(path, text=""):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def find_all(folder):
    """Everything below a folder, and the text of each file."""
    found = {}
    for place, folders, files in os.walk(folder):
        for name in folders:
            found[os.path.relpath(os.path.join(place, name), folder)] = None
        for name in files:
            found[os.path.relpath(os.path.join(place, name), folder)] = read(os.path.join(place, name))
    return found


class Install(unittest.TestCase):
    def setUp(self):
        self.work = tempfile.TemporaryDirectory()
        self.home = os.path.join(self.work.name, "home of a user")
        self.build = os.path.join(self.work.name, "build")
        os.makedirs(self.home)
        self.make_build(FILES)

    def tearDown(self):
        self.work.cleanup()

    def make_build(self, files, content="first"):
        """A folder that `cmake --install` accepts: it installs these files of each component."""
        shutil.rmtree(self.build, ignore_errors=True)
        rules = []
        for component, paths in files.items():
            for path in paths + ([DESKTOP] if component == "application" else []):
                text = "[Desktop Entry]\nExec=orlo %f\n" if path == DESKTOP else content
                write(os.path.join(self.build, "files", path), text)
                rules.append((component, os.path.join(self.build, "files", path), os.path.dirname(path)))
        for name in ("install.sh", "uninstall.sh"):
            rules.append(("archive", os.path.join(ROOT, "packaging", "linux", name), "."))
        write(os.path.join(self.build, "cmake_install.cmake"), "".join(
            f'if (CMAKE_INSTALL_COMPONENT STREQUAL "{component}")\n'
            f'    file (INSTALL DESTINATION "${{CMAKE_INSTALL_PREFIX}}/{folder}" FILES "{path}" USE_SOURCE_PERMISSIONS)\n'
            "endif()\n" for component, path, folder in rules))

    def run_script(self, name, *arguments, status=0, **variables):
        environment = {key: value for key, value in os.environ.items() if not key.startswith("XDG_")}
        environment.update(HOME=self.home, **variables)
        run = subprocess.run([os.path.join(ROOT, "scripts", name), *arguments], env=environment, capture_output=True,
                             text=True, check=False)
        self.assertEqual(run.returncode, status, run.stdout + run.stderr)
        return run.stdout + run.stderr

    def at_home(self, path):
        return os.path.join(self.home, path)

    def test_everything_lies_where_hosts_menus_and_the_plugin_look(self):
        self.run_script("install", self.build)
        for path in (".vst3/Orlo.vst3/Contents/x86_64-linux/Orlo.so", ".lv2/Orlo.lv2/manifest.ttl", ".local/bin/orlo",
                     ".local/bin/orlo-host", ".local/share/Morlek/Orlo/presets/Init.mkpreset",
                     ".local/share/Morlek/Orlo/presets/Two words.mkpreset", ".local/share/man/man1/orlo-host.1.gz",
                     ".local/share/icons/hicolor/16x16/apps/com.morlek.orlo.png"):
            self.assertEqual(read(self.at_home(path)), "first", path)
        self.assertTrue(os.path.isdir(self.at_home(".local/share/Morlek/Orlo/DesignersPresets")))

    def test_menus_start_the_program_without_a_search_path(self):
        self.run_script("install", self.build)
        self.assertIn(f'Exec="{self.home}/.local/bin/orlo" %f\n',
                      read(self.at_home(".local/share/applications/com.morlek.orlo.desktop")))

    def test_uninstall_takes_exactly_that_away(self):
        write(self.at_home(".local/bin/mine"), "mine")
        write(self.at_home(".vst3/Other.vst3/Other.so"), "other")
        write(self.at_home(".config/Morlek/Orlo/presets/Mine.mkpreset"), "mine")
        before = find_all(self.home)
        self.run_script("install", self.build)
        self.assertNotEqual(find_all(self.home), before)
        self.run_script("uninstall")
        self.assertEqual(find_all(self.home), before)

    def test_uninstall_leaves_what_others_put_into_its_folders(self):
        self.run_script("install", self.build)
        write(self.at_home(".local/share/Morlek/Orlo/DesignersPresets/Bought.mkpreset"), "bought")
        self.run_script("uninstall")
        self.assertEqual([path for path, text in find_all(self.home).items() if text is not None],
                         [".local/share/Morlek/Orlo/DesignersPresets/Bought.mkpreset"])

    def test_an_upgrade_replaces_files_and_drops_those_that_are_gone(self):
        write(self.at_home(".config/Morlek/Orlo/Orlo.settings"), "settings")
        before = find_all(self.home)
        self.run_script("install", self.build)
        self.make_build({**FILES, "presets": ["share/Morlek/Orlo/presets/Init.mkpreset"]}, "second")
        self.run_script("install", self.build)
        self.assertEqual(read(self.at_home(".vst3/Orlo.vst3/Contents/x86_64-linux/Orlo.so")), "second")
        self.assertFalse(os.path.exists(self.at_home(".local/share/Morlek/Orlo/presets/Two words.mkpreset")))
        self.assertEqual(read(self.at_home(".config/Morlek/Orlo/Orlo.settings")), "settings")
        self.run_script("uninstall")
        self.assertEqual(find_all(self.home), before)

    def test_a_data_folder_elsewhere_is_used(self):
        data = os.path.join(self.work.name, "data")
        self.run_script("install", self.build, XDG_DATA_HOME=data)
        self.assertTrue(os.path.exists(os.path.join(data, "Morlek/Orlo/presets/Init.mkpreset")))
        self.assertFalse(os.path.exists(self.at_home(".local/share")))
        self.run_script("uninstall", XDG_DATA_HOME=data)
        self.assertFalse(os.path.exists(data))
        self.assertEqual(find_all(self.home), {})

    def test_uninstall_without_an_installation_says_so(self):
        self.assertIn("Orlo is not installed", self.run_script("uninstall", status=1))


if __name__ == "__main__":
    unittest.main()
