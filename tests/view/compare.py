#!/usr/bin/env python3
"""Compares the host's pictures of drawings with those that ezdxf's drawing add-on makes of the same files.

  compare.py PICTURES OUT DRAWING[:LAYOUT]...

PICTURES has a picture of the host's window for each drawing, "NAME.png" or "NAME-LAYOUT.png". Both are
reduced to a grid that tells where something is drawn; in OUT they stand side by side. Needs Debian's
python3-ezdxf and python3-matplotlib, which nothing else here does.
"""
import pathlib
import sys

import ezdxf
import matplotlib
import numpy
from ezdxf.addons import Importer
from ezdxf.addons.drawing import Frontend, RenderContext
from ezdxf.addons.drawing.matplotlib import MatplotlibBackend
from PIL import Image

matplotlib.use("Agg")
from matplotlib import pyplot  # noqa: E402

GROUND = (33, 40, 48)
GRID = 40


def load_xrefs(document, folder):
    """Puts the content of the xrefs' files into their blocks, as the host does."""
    for block in list(document.blocks):
        if not block.block.dxf.flags & 4:
            continue
        path = folder / block.block.dxf.xref_path.replace("\\", "/")
        places = [path, folder / path.name]
        found = next((one for place in places for one in [insensitive(place)] if one), None)
        if not found:
            continue
        source = ezdxf.readfile(found)
        load_xrefs(source, found.parent)
        block.block.dxf.flags &= ~4
        importer = Importer(source, document)
        importer.import_entities(list(source.modelspace()), block)
        importer.finalize()


def insensitive(path):
    """The file of that name in any case, as on Windows."""
    place = pathlib.Path("/")
    for part in path.resolve().parts[1:]:
        found = [one for one in place.iterdir() if one.name.lower() == part.lower()] if place.is_dir() else []
        if not found:
            return None
        place = found[0]
    return place


def judge(drawing, layout):
    document = ezdxf.readfile(drawing)
    load_xrefs(document, drawing.parent)
    space = document.layout(layout) if layout else document.modelspace()
    figure = pyplot.figure(figsize=(12, 8), dpi=80)
    axes = figure.add_axes([0, 0, 1, 1])
    backend = MatplotlibBackend(axes)
    Frontend(RenderContext(document), backend).draw_layout(space, finalize=True)
    figure.canvas.draw()
    pixels = numpy.asarray(figure.canvas.buffer_rgba())[:, :, :3].astype(int)
    ground = pixels[0, 0]
    pyplot.close(figure)
    return pixels, numpy.abs(pixels - ground).max(axis=2) > 40


def host(picture):
    pixels = numpy.asarray(Image.open(picture).convert("RGB")).astype(int)
    rows, columns = numpy.where((pixels == GROUND).all(axis=2))
    view = pixels[rows.min():rows.max() + 1, columns.min():columns.max() + 1]
    return view, numpy.abs(view - GROUND).max(axis=2) > 40


def grid(drawn):
    rows, columns = numpy.where(drawn)
    if not len(rows):
        return numpy.zeros((GRID, GRID), bool)
    cells = numpy.zeros((GRID, GRID), bool)
    high, wide = max(rows.max() - rows.min(), 1), max(columns.max() - columns.min(), 1)
    cells[(rows - rows.min()) * (GRID - 1) // high, (columns - columns.min()) * (GRID - 1) // wide] = True
    return cells


def grown(cells):
    result = cells.copy()
    for down in (-1, 0, 1):
        for right in (-1, 0, 1):
            result |= numpy.roll(cells, (down, right), (0, 1))
    return result


def main():
    pictures, out = map(pathlib.Path, sys.argv[1:3])
    worst = 0
    for argument in sys.argv[3:]:
        name, _, layout = argument.partition(":")
        drawing = pathlib.Path(name)
        stem = drawing.stem + (f"-{layout}" if layout else "")
        theirs, their_ink = judge(drawing, layout)
        ours, our_ink = host(pictures / f"{stem}.png")
        mine, other = grid(our_ink), grid(their_ink)
        extra, missing = (mine & ~grown(other)).sum(), (other & ~grown(mine)).sum()
        print(f"{stem}: {mine.sum()} cells drawn, {other.sum()} by ezdxf, {extra} only here, {missing} only there")
        worst = max(worst, (extra + missing) / max(other.sum(), 1))
        height = max(len(ours), len(theirs))
        sheet = numpy.zeros((height, ours.shape[1] + theirs.shape[1] + 10, 3), numpy.uint8)
        sheet[:len(ours), :ours.shape[1]] = ours
        sheet[:len(theirs), ours.shape[1] + 10:] = theirs
        Image.fromarray(sheet).save(out / f"{stem}-compared.png")
    return 1 if worst > 0.05 else 0


sys.exit(main())
