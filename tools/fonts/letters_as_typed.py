#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""Copies a TrueType font without its contextual alternates (the OpenType feature "calt").

The alternates are shapes of letters that no character has. A PDF that we write names the letter behind a shape by the font's
own table of characters, so that every letter drawn as an alternate was missing in the text taken from the file. The feature
stays where it is and applies nothing.

Arguments: the font, the copy.
"""

import struct
import sys

FEATURE = b"calt"
CHECKSUM_OF_A_FONT = 0xB1B0AFBA


def checksum(data):
    padded = data + bytes(-len(data) % 4)
    return sum(struct.unpack(f">{len(padded) // 4}L", padded)) & 0xFFFFFFFF


def tables(font):
    """Of each table: the place of its entry in the directory, its offset and its length."""
    count = struct.unpack_from(">H", font, 4)[0]
    entries = {}
    for i in range(count):
        entry = 12 + 16 * i
        tag, _, offset, length = struct.unpack_from(">4sLLL", font, entry)
        entries[tag] = (entry, offset, length)
    return entries


def empty_feature(font, substitutions):
    """Takes the lookups of every feature of that name; returns how many there were."""
    features = substitutions + struct.unpack_from(">H", font, substitutions + 6)[0]
    emptied = 0
    for i in range(struct.unpack_from(">H", font, features)[0]):
        tag, offset = struct.unpack_from(">4sH", font, features + 2 + 6 * i)
        if tag == FEATURE:
            struct.pack_into(">H", font, features + offset + 2, 0)
            emptied += 1
    return emptied


def without_alternates(source):
    font = bytearray(source)
    entries = tables(font)
    entry, offset, length = entries[b"GSUB"]
    if empty_feature(font, offset) == 0:
        raise SystemExit("the font has no contextual alternates: is this script still needed?")
    struct.pack_into(">L", font, entry + 4, checksum(font[offset:offset + length]))
    head = entries[b"head"][1]
    struct.pack_into(">L", font, head + 8, 0)
    struct.pack_into(">L", font, head + 8, (CHECKSUM_OF_A_FONT - checksum(font)) & 0xFFFFFFFF)
    return bytes(font)


def main():
    source, target = sys.argv[1:]
    with open(source, "rb") as file:
        font = without_alternates(file.read())
    with open(target, "wb") as file:
        file.write(font)


if __name__ == "__main__":
    main()
