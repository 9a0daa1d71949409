#!/usr/bin/env python3
# SPDX-License-Identifier: AGPL-3.0-or-later
"""Compares the options that a program prints with those of its man page.

    ManPagesTest.py PROGRAM PAGE
"""
import os
import re
import subprocess
import sys
import unittest

PROGRAM, PAGE = sys.argv[1:3]
OPTION = re.compile(r"--[a-zA-Z][a-zA-Z-]*")


class ManPage(unittest.TestCase):
    def setUp(self):
        self.help = subprocess.run([PROGRAM, "--help"], capture_output=True, text=True, check=True).stdout
        with open(PAGE, encoding="utf-8") as file:
            self.page = file.read().replace("\\-", "-")

    def test_has_every_option_that_the_program_prints(self):
        self.assertEqual(set(OPTION.findall(self.help)) - set(OPTION.findall(self.page)), set())

    def test_has_no_option_that_the_program_does_not_print(self):
        self.assertEqual(set(OPTION.findall(self.page)) - set(OPTION.findall(self.help)), set())

    def test_is_named_after_the_program(self):
        name = os.path.basename(PAGE).removesuffix(".1")
        self.assertIn(f".SH NAME\n{name} - ", self.page)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
