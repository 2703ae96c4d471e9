# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A picture of a car, as a camera would have left it in a folder."""

import subprocess

_STROKES = (
    "fill #7f8a91 rectangle 0,300 640,400",
    "fill #d9d9d9 rectangle 40,348 140,354 rectangle 240,348 340,354 rectangle 440,348 540,354",
    "fill #f4f1ea roundrectangle 70,190 570,290 30,30",
    "fill #f4f1ea polygon 170,200 240,115 430,115 510,200",
    "fill #2f3f4c polygon 190,196 246,128 325,128 325,196",
    "fill #2f3f4c polygon 339,196 339,128 422,128 482,196",
    "fill #b8322a roundrectangle 66,215 84,245 5,5",
    "fill #ffe9a8 roundrectangle 556,215 574,245 5,5",
    "fill #1d1d1d circle 180,290 180,332 circle 460,290 460,332",
    "fill #c8ccd0 circle 180,290 180,310 circle 460,290 460,310",
)


def write_jpeg(path, size="640x400"):
    """Returns the path."""
    strokes = [part for stroke in _STROKES for part in ("-draw", stroke)]
    subprocess.run(["convert", "-size", "640x400", "gradient:#9fc4e0-#e8f1f7", *strokes, "-resize", size, "-quality", "90",
                    path], check=True, timeout=30)
    return path
