#!/usr/bin/env python3
# SPDX-License-Identifier: AGPL-3.0-or-later
"""Checks that the manual is complete: its pictures, its links, and an entry for every control of the program."""
import os
import re
import subprocess
import sys
import unittest

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
MANUAL = os.path.join(ROOT, "docs", "manual")
LANGUAGES = ("fr", "es", "pt", "it")
LARGEST = 4 * 1024 * 1024

# The terms that the first look in each language has to take from the program's own translation.
TERMS = ("Settings", "FFT Size", "Floor Gain", "Max Freq", "Min Freq", "Show Piano", "Init")


def read(*path):
    with open(os.path.join(ROOT, *path), encoding="utf-8") as file:
        return file.read()


def read_pages():
    return {name[:-3]: read("docs", "manual", name) for name in sorted(os.listdir(MANUAL)) if name.endswith(".md")}


def read_parameters():
    """The names that hosts show, by the parameters' identifiers."""
    source = read("orlo", "parameters", "Params.cpp")
    found = re.findall(r'make(?:Choice|Bool|Float) \(\s*id::(\w+), \d+, "([^"]+)"', source)
    identifiers = set(re.findall(r'inline constexpr auto \w+ = "(\w+)"', read("orlo", "parameters", "Params.h")))
    # This one is made by the framework, and its name is its identifier.
    parameters = dict(found) | ({"internal": "internal"} if "createInternalParam" in source else {})

    if set(parameters) != identifiers:
        raise AssertionError(f"Params.cpp is read wrongly: {identifiers ^ set(parameters)}")
    return parameters


def read_texts(*path):
    """The texts that a source file shows in the user's language, but for the headings of menus."""
    return re.findall(r'(?<!SectionHeader \()juce::translate \("([^"]+)"\)', read(*path))


def get_anchor(heading):
    """As pandoc and code hosting sites make it from the heading."""
    return re.sub(r"[^\w\- ]", "", re.sub(r"[`*]", "", heading).lower()).replace(" ", "-")


def get_sections(page):
    """The text below each heading, by the heading."""
    parts = re.split(r"^#+ (.+)$", page, flags=re.MULTILINE)
    return dict(zip(parts[1::2], parts[2::2]))


class Manual(unittest.TestCase):
    def setUp(self):
        self.pages = read_pages()

    def test_every_picture_is_there_used_and_made_by_the_script(self):
        used = {path for page in self.pages.values() for path in re.findall(r"!\[[^\]]*\]\(([^)]+)\)", page)}
        there = {f"pictures/{name}" for name in os.listdir(os.path.join(MANUAL, "pictures"))}
        made = subprocess.run([sys.executable, os.path.join(ROOT, "scripts", "manual-pictures"), "--list"],
                              capture_output=True, text=True, check=True).stdout.split()
        self.assertEqual(used - there, set(), "missing")
        self.assertEqual(there - used, set(), "unused")
        self.assertEqual({f"pictures/{name}.png" for name in made}, there, "those of scripts/manual-pictures")

    def test_every_picture_has_a_description(self):
        for name, page in self.pages.items():
            self.assertNotIn("![]", page, name)

    def test_every_parameter_has_an_entry_with_its_name_and_its_identifier(self):
        sections = get_sections(self.pages["controls"])
        for identifier, name in read_parameters().items():
            entries = [text for text in sections.values() if text.lstrip().startswith(f"*{name}* (`{identifier}`).")]
            self.assertEqual(len(entries), 1, f"entries in controls.md that begin with *{name}* (`{identifier}`).")
            self.assertGreater(len(entries[0].split()), 15, f"{name} says too little")

    def test_every_text_of_menus_buttons_and_labels_is_mentioned(self):
        english = " ".join(" ".join(page.split()) for name, page in self.pages.items() if "." not in name)
        texts = {text for path in (("orlo", "display", "ContextMenu.cpp"), ("orlo", "window", "SettingsComponent.cpp"),
                                   ("orlo", "window", "SideBarComponent.cpp"), ("orlo", "window", "MainComponent.cpp"),
                                   ("plugin_core", "presets", "PresetMenu.cpp"))
                 for text in read_texts(*path)}
        # Longer ones are help texts, which the window itself shows.
        texts = {text for text in texts if len(text.split()) <= 4}
        self.assertGreater(len(texts), 20)
        for text in sorted(texts):
            self.assertIn(text.lower(), english.lower())

    def test_every_choice_is_mentioned(self):
        source = read("orlo", "parameters", "Params.cpp")
        choices = [word for call in re.findall(r"\(makeChoice \(.*?;", source, re.DOTALL)
                   for group in re.findall(r"\{ ([^}]+) \}", call) for word in re.findall(r'"([^"]+)"', group)]
        for path, name in (("orlo/analysis/Source.h", "sourceNames"), ("orlo/display/ContextMenu.cpp", "pointsTexts")):
            choices += re.findall(r'"([^"]+)"', re.search(rf"{name} \{{ ([^}}]+) \}}", read(path)).group(1))
        sizes = re.search(r"windowSizes \{ ([^}]+) \}", source).group(1).split(", ")
        self.assertGreaterEqual(len(choices) + len(sizes), 27)
        for choice in choices + sizes:
            self.assertRegex(" ".join(self.pages["controls"].split()), rf"\b{choice}\b")

    def test_every_option_in_the_examples_is_one_of_orlo_render(self):
        examples = "".join(re.findall(r"^```\n(.*?)^```", self.pages["orlo-render"], re.MULTILINE | re.DOTALL))
        calls = re.findall(r"orlo-render ((?:[^\n]|\\\n)+)", examples.replace("\\\n", ""))
        used = {option for call in calls for option in re.findall(r"--([\w-]+)", call)}
        known = set(re.findall(r'"--([\w-]+)', read("tools", "orlo-render", "CommandLine.cpp"))) | set(read_parameters())
        self.assertGreater(len(used), 10)
        self.assertEqual(used - known, set())

    def test_links_lead_somewhere(self):
        for name, page in self.pages.items():
            for target, anchor in re.findall(r"(?<!!)\[[^\]]+\]\(([\w.-]+)\.md(?:#([\w-]+))?\)", page):
                self.assertIn(target, self.pages, f"a link in {name}.md")
                if anchor:
                    self.assertIn(anchor, [get_anchor(heading) for heading in get_sections(self.pages[target])],
                                  f"a link in {name}.md to {target}.md")

    def test_every_page_is_in_the_contents(self):
        for name in self.pages:
            if name != "index":
                self.assertIn(f"({name}.md)", self.pages["index"])

    def test_the_first_look_uses_the_words_of_the_program_in_every_language(self):
        for language in LANGUAGES:
            words = dict(re.findall(r'^"([^"]+)"\s+= "([^"]+)"$',
                                    read("resources", "translations", f"product_{language}.txt"), re.MULTILINE))
            page = " ".join(self.pages[f"first-look.{language}"].split())
            for term in TERMS:
                self.assertIn(words[term], page, f"{term} in {language}")
            self.assertEqual(re.findall(r"pictures/[\w-]+\.png", page),
                             re.findall(r"pictures/[\w-]+\.png", self.pages["first-look"]), language)

    def test_it_stays_small(self):
        size = sum(os.path.getsize(os.path.join(folder, name))
                   for folder, _, names in os.walk(MANUAL) for name in names)
        self.assertLess(size, LARGEST)

    def test_the_citation_names_the_version_of_the_program(self):
        version = re.search(r"project \(Orlo VERSION ([\d.]+)", read("CMakeLists.txt")).group(1)
        self.assertIn(f"\nversion: {version}\n", read("CITATION.cff"))


if __name__ == "__main__":
    unittest.main()
