#!/usr/bin/env python3
# SPDX-License-Identifier: AGPL-3.0-or-later
"""Runs scripts/check-layers over small made-up trees."""
import os
import subprocess
import sys
import tempfile
import unittest

SCRIPT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "scripts", "check-layers")
TABLE = """
# Two sections.
core
    text
    files   # knows text
    style
shell uses core
    engine: core/text without widgets
    window
    Main
"""


class CheckLayers(unittest.TestCase):
    def check(self, files, table=TABLE):
        """Runs the script over a tree of these files; returns its exit status and both outputs."""
        with tempfile.TemporaryDirectory() as root:
            for path, text in {**files, "scripts/layers.txt": table}.items():
                os.makedirs(os.path.dirname(os.path.join(root, path)), exist_ok=True)
                with open(os.path.join(root, path), "w", encoding="utf-8") as file:
                    file.write(text)
            run = subprocess.run([sys.executable, SCRIPT, root], capture_output=True, text=True, check=False)
        return run.returncode, run.stdout, run.stderr

    def assert_fails(self, files, message, table=TABLE, status=1):
        found, _, errors = self.check(files, table)
        self.assertIn(message, errors)
        self.assertEqual(found, status)

    def test_passes_a_tree_within_its_table_and_prints_the_graph(self):
        status, graph, errors = self.check({
            "core/text/Utf8.h": "#pragma once\n",
            "core/files/File.cpp": '#include "File.h"\n#include "core/text/Utf8.h"\n#include <widgets/Button.h>\n',
            "core/files/File.h": "#include <vector>\n",
            "shell/engine/Engine.h": '#include "core/text/Utf8.h"\n',
            "shell/window/Window.h": '#include "../engine/Engine.h"\n#include "core/files/File.h"\n',
            "shell/Main.cpp": '#include "window/Window.h"\n'})
        self.assertEqual(errors, "")
        self.assertEqual(status, 0)
        self.assertEqual(graph.splitlines(), [
            "core/text:", "core/files: core/text", "core/style:", "shell/engine: core/text",
            "shell/window: core/files shell/engine", "shell/Main: shell/window"])

    def test_fails_on_an_include_of_a_later_folder(self):
        self.assert_fails({"core/text/Utf8.h": '#include "core/files/File.h"\n', "core/files/File.h": ""},
                          'core/text/Utf8.h: "core/files/File.h": core/text may not include core/files')

    def test_fails_on_an_include_that_an_entry_does_not_list(self):
        self.assert_fails({"shell/engine/Engine.h": '#include "core/files/File.h"\n', "core/files/File.h": ""},
                          "shell/engine may not include core/files")

    def test_fails_on_an_include_of_a_section_that_is_not_used(self):
        self.assert_fails({"core/style/Style.mm": '#import "shell/window/Window.h"\n', "shell/window/Window.h": ""},
                          "core/style may not include shell/window")

    def test_sees_includes_that_are_indented_or_in_brackets(self):
        self.assert_fails({"core/text/Utf8.cpp": "#if ONE\n    #  include <core/files/File.h>\n#endif\n",
                           "core/files/File.h": ""}, "core/text may not include core/files")

    def test_ignores_includes_in_comments(self):
        self.assertEqual(self.check({"core/text/Utf8.h": '// #include "core/files/File.h"\n',
                                     "core/files/File.h": ""})[0], 0)

    def test_counts_a_folder_without_an_entry_as_the_one_around_it(self):
        self.assert_fails({"core/text/deep/Utf8.h": '#include "core/files/File.h"\n', "core/files/File.h": ""},
                          "core/text may not include core/files")

    def test_fails_on_a_cycle_between_folders(self):
        table = "core\n    text\n    files\nother uses core\n    text: core/text\n"
        self.assert_fails({"core/text/A.h": '#include "core/files/B.h"\n', "core/files/B.h": '#include "../text/C.h"\n',
                           "core/text/C.h": ""},
                          "a cycle between folders: core/files -> core/text -> core/files", table)

    def test_fails_on_a_cycle_between_files_of_one_folder(self):
        self.assert_fails({"core/text/A.h": '#include "B.h"\n', "core/text/B.h": '#include "A.h"\n'},
                          "a cycle between files: core/text/A.h -> core/text/B.h -> core/text/A.h")

    def test_fails_on_a_source_outside_the_table(self):
        for path in ("core/other/File.cpp", "shell/Loose.h", "tools/deep/main.mm", "Top.cpp"):
            self.assert_fails({path: ""}, f"{path}: in no folder of the table")

    def test_skips_build_trees_and_hidden_folders(self):
        self.assertEqual(self.check({"build/core/x.cpp": "", "build-other/x.cpp": "", ".cache/x.cpp": ""})[0], 0)

    def test_fails_on_a_library_that_an_entry_must_do_without_even_far_away(self):
        self.assert_fails({"shell/engine/Engine.cpp": '#include "core/text/Utf8.h"\n',
                           "core/text/Utf8.h": '#include "Button.h"\n',
                           "core/text/Button.h": "#include <widgets/Button.h>\n"},
                          "shell/engine must do without widgets, which core/text/Button.h includes")

    def test_fails_on_a_table_that_names_an_unknown_folder(self):
        self.assert_fails({}, "layers.txt:3: files does not stand above this line",
                          "core\n    text\n    style: files\n", 2)
        self.assert_fails({}, "layers.txt:1: core does not stand above this line", "shell uses core\n", 2)
        self.assert_fails({}, "layers.txt:3: core/text stands here twice", "core\n    text\n    text\n", 2)


if __name__ == "__main__":
    unittest.main()
