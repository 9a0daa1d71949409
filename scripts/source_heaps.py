#!/usr/bin/env python3
# SPDX-License-Identifier: AGPL-3.0-or-later
"""Puts source files into heaps that a compiler can read as one, which is several times quicker than one by one.

    scripts/source_heaps.py FOLDER SIZE FILE...

Writes a source file for each heap into FOLDER and prints the paths of these files, one a line. FILEs are relative to
the project's folder. A heap has at most SIZE files. Files that define the same name go into different heaps. A written
file that is right already keeps its time, so that it is not compiled again.
"""
import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))


def get_own_names(text):
    """The names that a file defines outside classes, whether in its unnamed namespaces or not."""
    names = set()
    for line in re.findall(r"^(?! |//|/\*|\*|#|\{|\}|namespace|using namespace|TEST|INSTANTIATE_TEST).+$", text, re.MULTILINE):
        defined = re.match(r"(?:template <.*> *)?(?:struct|class|enum class|enum)(?: \[\[\w+\]\])? (\w+)", line)
        defined = defined or re.match(r"[^(={;]*?(?<!::)\b(\w+) *(?:\(|=|\{|;|$)", line)
        if defined:
            names.add(defined.group(1))
    if "START_JUCE_APPLICATION" in text:
        names.add("main")
    return names


def get_whole_namespaces(text):
    """The namespaces that it takes whole, which makes names ambiguous in files that do not."""
    return sorted(set(re.findall(r"^using namespace ([^;]+);", text, re.MULTILINE)))


def stands_last(text):
    """Whether no other can be read after it: X11 defines macros with everyday names."""
    return re.search(r"^ *#include <(X11|xcb)/", text, re.MULTILINE) is not None


def stands_alone(text):
    """Whether it can be read with no other: colourId is the product's there, but the framework's here."""
    return re.search(r"^namespace colourId =", text, re.MULTILINE) is not None


def read_text(path):
    with open(os.path.join(ROOT, path), encoding="utf-8") as file:
        return file.read()


def make_heaps(sources, size):
    """Lists of at most so many files that can be read as one."""
    texts = {path: read_text(path) for path in sources}
    heaps = []
    for path in sorted(texts, key=lambda path: (stands_last(texts[path]), path)):
        text = texts[path]
        names, spaces = get_own_names(text), get_whole_namespaces(text)
        last, alone = stands_last(text), stands_alone(text)
        for heap in heaps:
            has_room = not heap["closed"] and (last or len(heap["paths"]) < size)
            if has_room and not alone and heap["spaces"] == spaces and not heap["names"] & names:
                break
        else:
            heap = {"paths": [], "names": set(), "spaces": spaces}
            heaps.append(heap)
        heap["paths"].append(path)
        heap["names"] |= names
        heap["closed"] = last or alone
    return [heap["paths"] for heap in heaps]


def write_heap(target, paths):
    # The paths are relative to the project's folder, so that clones share what the compiler cache holds.
    text = "".join(f'#include "{path}"\n' for path in paths)
    if not os.path.exists(target) or open(target, encoding="utf-8").read() != text:
        with open(target, "w", encoding="utf-8") as file:
            file.write(text)


def main():
    folder, size, sources = sys.argv[1], int(sys.argv[2]), sys.argv[3:]
    os.makedirs(folder, exist_ok=True)
    for number, heap in enumerate(make_heaps(sources, size)):
        target = os.path.join(folder, f"{number}.cpp")
        write_heap(target, heap)
        print(target)


if __name__ == "__main__":
    main()
