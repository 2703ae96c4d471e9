// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class DocxPackage;

// Makes a document forget the list of recipients that its author chose fields from: a program that opens a document with
// one asks whether to read that list, which is on another computer.
void removeMailMergeSource(DocxPackage &package);
