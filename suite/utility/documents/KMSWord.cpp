// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/KMSWord.h"
#include "suite/utility/documents/DocxPackage.h"
#include "suite/utility/documents/FieldStory.h"
#include "suite/utility/documents/MailMergeSource.h"
#include "suite/utility/documents/OptionalParts.h"
#include "suite/utility/documents/PictureFields.h"
#include "suite/utility/documents/RepeatedRows.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <zip.h>

#include <algorithm>

using namespace Qt::StringLiterals;

class KMSWord::Document
{
public:
    Document(const QByteArray &file, const QString &filePath, bool onlyToRead)
        : package(file)
        , path(filePath)
        , source(onlyToRead ? QFileInfo(filePath).canonicalFilePath() : QString())
    {
        removeMailMergeSource(package);
        (void)fieldNames(); // a document with absurd ones is refused as long as it can be
    }

    QStringList storyParts() const
    {
        QStringList parts{package.mainPart()};
        for (const char *type : {".header+xml", ".footer+xml", ".footnotes+xml", ".endnotes+xml"})
            parts += package.partsOfType(QLatin1String(type));
        return parts;
    }

    template <class Work>
    void forEachPart(const Work &work)
    {
        for (const QString &part : storyParts())
            if (work(package.xml(part)->document_element()) > 0)
                package.setChanged(part);
    }

    QStringList fieldNames()
    {
        QStringList names;
        for (const QString &part : storyParts())
            names += FieldStory::names(package.xml(part)->document_element());
        return names;
    }

    DocxPackage package;
    QString path;
    QString source; // not to be overwritten; empty: nothing is
};

namespace {

// Reads one byte more than is allowed, so that a file that grows while it is read is still found too large.
QByteArray readFile(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        throw DocxError("the file cannot be read");
    return file.read(DocxPackage::maxUnpackedBytes + 1);
}

// A contract holds people's data: a new file is its owner's alone, wherever the temporary folder lets others look.
void writeFile(const QString &path, const QByteArray &content)
{
    if (QFileInfo(path).isSymbolicLink())
        throw DocxError("the file is a link to another one"); // placed by somebody who knows the name beforehand
    const bool isNew = !QFileInfo::exists(path);
    QSaveFile file(path);
    bool done = file.open(QIODevice::WriteOnly);
    if (done && isNew)
        done = file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    done = done && file.write(content) == content.size();
    if (!done || !file.commit())
        throw DocxError("the file cannot be written: " + file.errorString().toStdString());
}

} // namespace

KMSWord::KMSWord() = default;
KMSWord::~KMSWord() = default;

void KMSWord::SetVisible(int)
{
}

bool KMSWord::Init()
{
    m_initialised = zip_compression_method_supported(ZIP_CM_DEFLATE, 1) != 0;
    m_failure = m_initialised ? QString() : u"the zip library cannot deflate"_s;
    return m_initialised;
}

bool KMSWord::take(const std::function<std::unique_ptr<Document>()> &open)
{
    Close();
    m_failure = m_initialised ? QString() : u"not initialised"_s;
    if (!m_initialised)
        return false;
    try {
        m_document = open();
    } catch (const DocxError &error) {
        m_failure = QString::fromUtf8(error.what());
    }
    return m_document != nullptr;
}

bool KMSWord::OpenDocument(const QString &path, int readOnly)
{
    return take([&] {
        const QString clean = QFileInfo(QDir::fromNativeSeparators(path)).absoluteFilePath();
        return std::make_unique<Document>(readFile(clean), clean, readOnly != 0);
    });
}

bool KMSWord::OpenContent(const QByteArray &file, const QString &fileName)
{
    return take([&] { return std::make_unique<Document>(file, fileName, false); });
}

bool KMSWord::SetParts(const DocumentParts &parts)
{
    m_failure = m_document ? QString() : u"no document is open"_s;
    if (!m_document)
        return false;
    try {
        m_document->forEachPart([&](pugi::xml_node root) { return OptionalParts::leaveOut(root, parts.says); });
        for (const DocumentParts::Table &table : parts.tables)
            m_document->forEachPart([&](pugi::xml_node root) { return RepeatedRows::fill(root, table); });
        for (const DocumentParts::Picture &picture : parts.pictures)
            for (const QString &part : m_document->storyParts())
                PictureFields::fill(m_document->package, part, picture);
    } catch (const DocxError &error) {
        m_failure = QString::fromUtf8(error.what());
        return false;
    }
    return true;
}

QStringList KMSWord::UnpairedMarks() const
{
    QStringList names;
    if (m_document)
        m_document->forEachPart([&](pugi::xml_node root) {
            names += OptionalParts::unpairedMarks(root);
            return 0;
        });
    return names;
}

Fields KMSWord::GetFields() const
{
    return m_document ? Fields(m_document->fieldNames()) : Fields();
}

int KMSWord::SetFieldsValue(const QStringList &names, const QStringList &values, int count)
{
    if (!m_document)
        return 0;
    const int length = static_cast<int>(std::min({static_cast<qsizetype>(std::max(count, 0)), names.size(), values.size()}));
    const QStringList known = names.mid(0, length);
    const FieldStory::ValueOf valueOf = [&](const QString &fieldName) {
        const int index = Fields::indexOfName(known, fieldName);
        if (index < 0)
            return QString();
        const QString &value = values.at(index);
        return value.isNull() ? u""_s : value;
    };
    int filled = 0;
    for (const QString &part : m_document->storyParts()) {
        const int inPart = FieldStory::fill(m_document->package.xml(part)->document_element(), valueOf);
        if (inPart > 0)
            m_document->package.setChanged(part);
        filled += inPart;
    }
    return filled;
}

bool KMSWord::SaveAs(const QString &path)
{
    m_failure = m_document ? QString() : u"no document is open"_s;
    if (!m_document)
        return false;
    try {
        QFileInfo target(QDir::fromNativeSeparators(path));
        if (target.isDir())
            target.setFile(QDir(target.absoluteFilePath()), QFileInfo(m_document->path).fileName());
        if (!m_document->source.isEmpty() && target.canonicalFilePath() == m_document->source)
            throw DocxError("the document was opened to be read only");
        writeFile(target.absoluteFilePath(), m_document->package.toZip());
        m_document->path = target.absoluteFilePath();
    } catch (const DocxError &error) {
        m_failure = QString::fromUtf8(error.what());
        return false;
    }
    return true;
}

QString KMSWord::FullName() const
{
    return m_document ? m_document->path : QString();
}

QString KMSWord::Failure() const
{
    return m_failure;
}

void KMSWord::Close()
{
    m_document.reset();
}

void KMSWord::Quit()
{
    Close();
    m_initialised = false;
}
