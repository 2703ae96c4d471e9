// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/documents/DocumentParts.h"
#include "suite/utility/documents/Fields.h"
#include "suite/utility/documents/TzDocumentsExport.h"

#include <QString>
#include <QStringList>

#include <memory>

// Fills the merge fields of a word-processor document (DOCX). It has the steps of a driven word processor, yet needs none:
// the document is read, filled and written here, and nothing is ever shown.
//
//     KMSWord word;
//     word.SetVisible(0);
//     if (!word.Init()) ...
//     if (!word.OpenDocument(templatePath, 1)) ...
//     const Fields fields(word.GetFields());
//     word.SetFieldsValue(names, values, 25);
//     if (!word.SaveAs(QDir::tempPath() + u'/' + fileName)) ...
//     const QString saved = word.FullName();
//     word.Close();
//     word.Quit();
class TZDOCUMENTS_EXPORT KMSWord
{
public:
    KMSWord();
    ~KMSWord();
    KMSWord(const KMSWord &) = delete;
    KMSWord &operator=(const KMSWord &) = delete;

    // Kept for the order of steps; there is no window, so nothing becomes visible by 1 either.
    void SetVisible(int visible);

    // Must come before a document is opened. False when documents cannot be read here: the compression they are written
    // with is missing in the system's library.
    [[nodiscard]] bool Init();

    // Reads the document whole; the file is not held open. readOnly 1: SaveAs refuses this very file, so that a template
    // cannot be lost; 0: it may be overwritten. Closes the document that was open before.
    //
    // False, with nothing open, when the file is missing, is no word-processor document or could harm: no zip, encrypted
    // entries, entry names that are absolute, lead out of the document or stand twice, over 4,000 entries, over 64 MiB
    // unpacked (counted while unpacking), a document type declaration, elements nested absurdly deep, macros.
    [[nodiscard]] bool OpenDocument(const QString &path, int readOnly);

    // The same of a document that is in memory, to be saved under that file name where a folder is given.
    [[nodiscard]] bool OpenContent(const QByteArray &file, const QString &fileName);

    // Leaves out, repeats and puts in what a template marks (DocumentParts); before values are set, which fill what is left. A template
    // without marks stays as it is. False when the picture cannot be put in.
    [[nodiscard]] bool SetParts(const DocumentParts &parts);
    // Marks that lack their other half, by their names.
    QStringList UnpairedMarks() const;

    // The merge fields that are still to be filled: body, headers, footers, foot- and endnotes and the text boxes in them.
    [[nodiscard]] Fields GetFields() const;

    // Puts values[i] where a merge field is called names[i], for the first `count` of both lists (a shorter list ends it).
    // Which name a field takes: Fields::indexOfName. The field becomes ordinary text with the look of its former result; a
    // line break in the value stays one, an empty value leaves nothing, a single blank stays a blank. Switches that shape
    // text count (\* Upper, Lower, FirstCap, Caps; \b and \f around a value that is not blank); pictures for numbers and
    // dates do not, as values come formatted. Fields of other names keep what they show. Returns how many were filled.
    int SetFieldsValue(const QStringList &names, const QStringList &values, int count);

    // Writes the document, without the list of recipients that the template was drafted with. A path that is a folder
    // takes the document under its own file name. Written aside and moved into place: false leaves nothing behind and an
    // older file of that name as it was.
    [[nodiscard]] bool SaveAs(const QString &path);

    // The full path of the document: where it was saved last, else where it was opened; empty without a document.
    QString FullName() const;

    // Why the last step failed, in English, for the log; empty after success.
    QString Failure() const;

    void Close(); // forgets the document; what was not saved is lost
    void Quit();  // Close, and Init is needed again

private:
    class Document;

    bool take(const std::function<std::unique_ptr<Document>()> &open);

    bool m_initialised = false;
    QString m_failure;
    std::unique_ptr<Document> m_document;
};
