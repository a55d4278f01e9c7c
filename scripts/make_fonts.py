#!/usr/bin/python3
"""Draw OpenSans-Medium.ttf from the Regular and Semibold cuts of Open Sans.

make_fonts.py REGULAR SEMIBOLD OUTPUT

No package carries the Medium cut, and it lies between two that are packaged. Every glyph of the Regular is
made heavier, gets the mean of both cuts' advances, and shares the room left of and right of its outline as
the Regular does. The same input gives the same bytes. Needs a Python that can `import fontforge`.
"""

import argparse
import contextlib
import os
import sys
import tempfile

STEM_GROWTH = 30  # font units; the Semibold's stems are about 70 wider than the Regular's

# FontForge writes this, and not the clock, into the font.
os.environ["SOURCE_DATE_EPOCH"] = "0"


@contextlib.contextmanager
def quiet_unless_failing():
    """Hold back what FontForge's C code writes about the packaged fonts' oddities; show it on a failure."""
    sys.stderr.flush()
    terminal = os.dup(2)
    with tempfile.TemporaryFile() as held:
        os.dup2(held.fileno(), 2)
        try:
            yield
        except BaseException:
            held.seek(0)
            os.write(terminal, held.read())
            raise
        finally:
            os.dup2(terminal, 2)
            os.close(terminal)


def place(glyph, left, right, advance):
    """Give the glyph its advance, and divide what its outline leaves over between the two sides.

    `left` and `right` are the bearings that set the proportion. Where they have none, in glyphs that reach
    out on a side or have no advance, both sides change by the same amount.
    """
    xmin, _, xmax, _ = glyph.boundingBox()
    room = advance - (xmax - xmin)
    if left > 0 and right > 0 and room > 0:
        new_left = room * left / (left + right)
    else:
        new_left = left + (room - left - right) / 2
    glyph.transform((1, 0, 0, 1, round(new_left - xmin), 0))
    glyph.width = advance


def make_heavier(font, semibold):
    bearings = {g.glyphname: (g.left_side_bearing, g.right_side_bearing) for g in font.glyphs()}

    # A composite's parts move on their own when their glyphs do, so each glyph gets outlines of its own.
    for glyph in font.glyphs():
        glyph.unlinkRef()
    for glyph in font.glyphs():
        advance = round((glyph.width + semibold[glyph.glyphname].width) / 2)
        if len(glyph.foreground):
            # "LCG" keeps the heights; "squish" lets stems grow into the counters too, as the Semibold's do.
            glyph.changeWeight(STEM_GROWTH, "LCG", 0, 0, "squish")
            glyph.round()
            place(glyph, *bearings[glyph.glyphname], advance)
        else:
            glyph.width = advance
        glyph.ttinstrs = ()

    # The instructions were written for the Regular's points.
    for table in ("cvt ", "fpgm", "prep"):
        font.setTableData(table, None)
    font.gasp = ((65535, ("gridfit", "antialias", "symmetric-smoothing", "gridfit+smoothing")),)


def rename(font):
    font.fontname = "OpenSans-Medium"
    font.familyname = "Open Sans Medium"
    font.fullname = "Open Sans Medium"
    font.weight = "Medium"
    font.os2_weight = 500
    panose = list(font.os2_panose)
    panose[2] = 6  # medium
    font.os2_panose = tuple(panose)

    names = {
        "SubFamily": "Regular",
        "Preferred Family": "Open Sans",
        "Preferred Styles": "Medium",
        "UniqueID": "Open Sans Medium, drawn from the Regular",
        # The fonts' licence asks that a changed file says so.
        "Descriptor": "Changed from Open Sans Regular: heavier outlines, new metrics, no instructions.",
    }
    for name, text in names.items():
        font.appendSFNTName("English (US)", name, text)


def main(regular, semibold, output):
    with quiet_unless_failing():
        import fontforge

        font = fontforge.open(regular)
        make_heavier(font, fontforge.open(semibold))
        rename(font)
        font.generate(output, flags=("opentype", "no-FFTM-table"))


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    for argument in ("regular", "semibold", "output"):
        parser.add_argument(argument)
    main(**vars(parser.parse_args()))
