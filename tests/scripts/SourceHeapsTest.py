# SPDX-License-Identifier: AGPL-3.0-or-later
"""Tests of scripts/source_heaps.py."""
import os
import sys
import tempfile
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.dont_write_bytecode = True
sys.path.insert(0, os.path.join(ROOT, "scripts"))
import source_heaps  # noqa: E402 (found by the path set above)


class Heaps(unittest.TestCase):
    def make(self, texts, size=10):
        with tempfile.TemporaryDirectory() as folder:
            root, source_heaps.ROOT = source_heaps.ROOT, folder
            try:
                for name, text in texts.items():
                    with open(os.path.join(folder, name), "w", encoding="utf-8") as file:
                        file.write(text)
                return source_heaps.make_heaps(list(texts), size)
            finally:
                source_heaps.ROOT = root

    def test_files_without_common_names_share_a_heap(self):
        self.assertEqual(self.make({"a.cpp": "int one() { return 1; }\n", "b.cpp": "constexpr int two = 2;\n"}),
                         [["a.cpp", "b.cpp"]])

    def test_files_that_define_the_same_name_do_not(self):
        texts = {"a.cpp": "constexpr int size = 1;\n", "b.cpp": "int size() { return 2; }\n", "c.cpp": "struct C;\n"}
        self.assertEqual(self.make(texts), [["a.cpp", "c.cpp"], ["b.cpp"]])

    def test_members_and_locals_are_no_common_names(self):
        texts = {"a.cpp": "void A::run() {\n    int size = 1;\n}\n", "b.cpp": "void B::run() {\n    int size = 2;\n}\n"}
        self.assertEqual(self.make(texts), [["a.cpp", "b.cpp"]])

    def test_a_heap_has_no_more_files_than_allowed(self):
        self.assertEqual(self.make({"a.cpp": "", "b.cpp": "", "c.cpp": ""}, 2), [["a.cpp", "b.cpp"], ["c.cpp"]])

    def test_files_that_take_the_same_namespaces_whole_share_a_heap(self):
        texts = {"a.cpp": "using namespace one;\n", "b.cpp": "", "c.cpp": "using namespace one;\n",
                 "d.cpp": "using namespace two;\n"}
        self.assertEqual(self.make(texts), [["a.cpp", "c.cpp"], ["b.cpp"], ["d.cpp"]])

    def test_instances_of_parameterised_tests_are_no_common_names(self):
        text = "INSTANTIATE_TEST_SUITE_P (All, Test, values);\n"
        self.assertEqual(self.make({"a.cpp": text, "b.cpp": text}), [["a.cpp", "b.cpp"]])

    def test_a_file_that_includes_x11_is_the_last_of_its_heap(self):
        texts = {"a.cpp": "#include <X11/Xlib.h>\n", "b.cpp": "", "c.cpp": ""}
        self.assertEqual(self.make(texts), [["b.cpp", "c.cpp", "a.cpp"]])


class Written(unittest.TestCase):
    def test_a_heap_that_has_not_changed_keeps_its_time(self):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "heap.cpp")
            source_heaps.write_heap(path, ["a.cpp"])
            os.utime(path, (1, 1))
            source_heaps.write_heap(path, ["a.cpp"])
            self.assertEqual(os.stat(path).st_mtime, 1)
            source_heaps.write_heap(path, ["a.cpp", "b.cpp"])
            self.assertNotEqual(os.stat(path).st_mtime, 1)
            with open(path, encoding="utf-8") as file:
                self.assertEqual(file.read(), '#include "a.cpp"\n#include "b.cpp"\n')


if __name__ == "__main__":
    unittest.main()
