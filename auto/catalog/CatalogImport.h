// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

// Reads a file of catalog entries and finds out which of them a catalog does not have yet.
//
// The file is plain text in UTF-8, a line per entry: brand, model and class (trim), with a tab between them. A line of a
// brand alone, or of a brand and a model, enters just those. Empty lines and lines that begin with # are passed over.
// It comes from outside, so everything about it is bounded.
namespace CatalogImport {

inline constexpr qsizetype maxBytes = 1024LL * 1024;
inline constexpr int maxLines = 20000;
inline constexpr int longestName = 50;

// Names in standard letters; model and class may be empty.
struct Entry
{
    QString brand;
    QString model;
    QString carClass;
};

enum class Trouble {
    None,
    TooLarge,     // of the file as a whole: line is 0
    TooManyLines, // line is the first one over the limit
    NoEntries,    // line is 0
    NotText,      // not UTF-8, or with characters that are not text
    TooManyColumns,
    BrandMissing,
    ModelMissing, // a class without a model
    NameTooLong
};

struct Parsed
{
    QVector<Entry> entries; // none when there is a problem
    Trouble trouble = Trouble::None;
    int line = 0; // from 1
};

Parsed parse(const QByteArray &data);

// What the catalog holds; the parent is the key of the brand or of the model.
struct KnownEntry
{
    int key = 0;
    int parent = 0;
    QString name;
};

struct Known
{
    QVector<KnownEntry> brands;
    QVector<KnownEntry> models;
    QVector<KnownEntry> classes;
};

// An entry to be added. Its parent is there already (parentKey) or is itself new (newParent, its position among the new
// entries of the level above).
struct NewEntry
{
    QString name;
    int parentKey = 0;
    int newParent = -1;
};

struct Plan
{
    QVector<NewEntry> brands;
    QVector<NewEntry> models;
    QVector<NewEntry> classes;

    bool isEmpty() const { return brands.isEmpty() && models.isEmpty() && classes.isEmpty(); }
};

// Two names are the same when a reader takes them so: blanks, the forms of a letter, accents and upper case do not count.
// Compared below the same parent only.
Plan plan(const QVector<Entry> &entries, const Known &known);

}
