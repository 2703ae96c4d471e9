// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/documents/ZipEntries.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <pugixml.hpp>

#include <memory>
#include <vector>

struct zip;

using DocxError = PackageError;

// A DOCX file in memory: a zip of parts, most of them XML. Everything in it is treated as hostile until it has been read
// once: the constructor unpacks every part, counting, and parses every XML part.
class DocxPackage
{
public:
    static constexpr qint64 maxUnpackedBytes = 64LL * 1024 * 1024; // and of the file itself
    static constexpr int maxEntries = ZipEntries::maxEntries;
    static constexpr int maxDepth = 500;          // of elements; a table in a text box in a table is at about sixty
    static constexpr qint64 maxMarks = 4'000'000; // elements and attributes, which weigh far more parsed than written

    explicit DocxPackage(const QByteArray &file); // throws DocxError
    ~DocxPackage();
    DocxPackage(const DocxPackage &) = delete;
    DocxPackage &operator=(const DocxPackage &) = delete;

    // Part names are as in the file, without a leading slash; they compare without case.
    QString mainPart() const;
    QList<QString> partsOfType(const QString &contentTypeEnd) const; // as "header+xml"; in the order of the file
    pugi::xml_document *xml(const QString &part);                    // null: there is no such XML part
    void setChanged(const QString &part);                            // its XML is written anew
    void removePart(const QString &part);                            // and its content type

    // Adds a part under that name, or one like it where the name is taken; returns its name.
    QString addPart(const QString &name, const QByteArray &content, const QString &contentType);
    // Of an XML part to another one. Returns its key.
    QString addRelationship(const QString &part, const QString &type, const QString &target);

    // The part that holds the relationships of a part, whether it exists or not; and what a relationship points to.
    static QString relationshipsOf(const QString &part);
    static QString targetOf(const QString &part, const QString &target);

    QByteArray toZip() const; // throws DocxError

private:
    struct Part
    {
        QString name;
        quint64 index = 0; // in the file
        std::unique_ptr<pugi::xml_document> xml;
        QString contentType;
        bool changed = false;
        QByteArray added; // the content of one that is not in the file
    };

    void readNames();
    void readParts();
    void readContentTypes();
    void findMainPart();
    Part *find(const QString &name);
    const Part *find(const QString &name) const;
    void addTo(struct zip *archive, const Part &part, const QByteArray &content) const;

    ZipEntries m_zip; // unchanged parts are copied from it as they are packed
    std::vector<Part> m_parts;
    QString m_mainPart;
};
