#!/usr/bin/python3
"""Reads a drawing that was filled in from its data card with a reader of somebody else's.

    title_block.py BEFORE AFTER

The title block's attribute TITLE has the card's value on each layout, an independent audit of the
file finds no more to say than before, and no other group of the file has changed but for remarks.
"""

import sys

import ezdxf

EXPECTED = {"Model": "Pump house", "Layout1": "Pump house", "Layout2": "Pump house, details"}


def titles(drawing):
    found = {}
    for layout in drawing.layouts:
        for insert in layout.query('INSERT[name=="A1_TITLE"]'):
            found[layout.name] = insert.get_attrib_text("TITLE")
    return found


def groups(path):
    lines = open(path, "rb").read().split(b"\n")
    return [g for g in zip(lines[0::2], lines[1::2]) if g[0].strip() != b"999"]


def main(before, after):
    drawing = ezdxf.readfile(after)
    if titles(drawing) != EXPECTED:
        return f"the titles are {titles(drawing)}"
    old_errors = len(ezdxf.readfile(before).audit().errors)
    if len(drawing.audit().errors) > old_errors:
        return "the audit finds new errors: " + str(drawing.audit().errors)
    old, new = groups(before), groups(after)
    changed = [(a, b) for a, b in zip(old, new) if a != b]
    wrong = [c for c in changed if c[0][0].strip() != b"1" or c[1][1].strip().decode() not in EXPECTED.values()]
    if len(old) != len(new) or len(changed) != len(EXPECTED) or wrong:
        return f"{len(changed)} groups of {len(old)} differ: {changed[:5]}"
    return None


if __name__ == "__main__":
    problem = main(*sys.argv[1:])
    if problem:
        sys.exit(problem)
    print("title block read back: ok")
