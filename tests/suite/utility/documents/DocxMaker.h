// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// A small DOCX file with a body of the test's own, and whatever else a test puts into it.
class DocxMaker
{
public:
    explicit DocxMaker(const QByteArray &body = "<w:p><w:r><w:t>empty</w:t></w:r></w:p>");

    // Replaces a part of that name or adds one; the content type is added only where one is given.
    DocxMaker &setPart(const QByteArray &name, const QByteArray &content, const QByteArray &contentType = {});
    DocxMaker &removePart(const QByteArray &name);
    // A part of running text, as "header" or "footnotes", that the body's relationships name.
    DocxMaker &addTextPart(const QByteArray &kind, const QByteArray &content);
    DocxMaker &addRelationship(const QByteArray &type, const QByteArray &target);
    DocxMaker &encrypt(const QByteArray &name);

    QByteArray zip() const;
    bool write(const QString &path) const;

    static QByteArray wrapped(const QByteArray &rootElement, const QByteArray &content); // with the usual namespaces
    static QByteArray runs(const QByteArray &text);                                      // one plain run
    static QByteArray simple(const QByteArray &instruction, const QByteArray &shown);
    // begin, instruction, separate, result, end; each a run with this look.
    static QByteArray complex(const QByteArray &instruction, const QByteArray &shown, const QByteArray &look = {});
    static QByteArray mark(const QByteArray &kind, const QByteArray &look = {});
    static QByteArray code(const QByteArray &instruction, const QByteArray &look = {});
    static QByteArray paragraph(const QByteArray &content);

    // From a file that was written: a part (null: there is none), and the names of all.
    static QByteArray part(const QString &path, const QByteArray &name);
    static QList<QByteArray> partNames(const QString &path);
    // What a part shows: paragraphs between bars, line breaks and tabs as such, nothing of instructions.
    static QString shown(const QString &path, const QByteArray &name = "word/document.xml");

private:
    struct Part
    {
        QByteArray name;
        QByteArray content;
        bool encrypted = false;
    };

    QList<Part> m_parts;
    QByteArray m_overrides, m_relationships;
};
