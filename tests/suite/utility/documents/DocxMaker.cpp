// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/suite/utility/documents/DocxMaker.h"

#include <QFile>
#include <QHash>
#include <QXmlStreamReader>

#include <zip.h>

#include <stdexcept>

namespace {

const QByteArray mainType = "application/vnd.openxmlformats-officedocument.wordprocessingml.";
const QByteArray relationshipType = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";

struct OpenZip
{
    explicit OpenZip(const QString &path)
        : archive(zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY, nullptr))
    {
        if (!archive)
            throw std::runtime_error("not a zip: " + path.toStdString());
    }
    ~OpenZip() { zip_discard(archive); }
    OpenZip(const OpenZip &) = delete;
    OpenZip &operator=(const OpenZip &) = delete;
    zip_t *archive;
};

} // namespace

DocxMaker::DocxMaker(const QByteArray &body)
{
    m_parts.append(Part{"[Content_Types].xml", {}});
    setPart("_rels/.rels",
            "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\"><Relationship Id=\"rId1\" Type=\""
                + relationshipType + "officeDocument\" Target=\"word/document.xml\"/></Relationships>");
    setPart("word/document.xml", wrapped("w:document", "<w:body>" + body + "<w:sectPr/></w:body>"), mainType + "document.main+xml");
    m_parts.append(Part{"word/_rels/document.xml.rels", {}});
}

DocxMaker &DocxMaker::setPart(const QByteArray &name, const QByteArray &content, const QByteArray &contentType)
{
    if (!contentType.isEmpty())
        m_overrides += "<Override PartName=\"/" + name + "\" ContentType=\"" + contentType + "\"/>";
    for (Part &part : m_parts) {
        if (part.name == name) {
            part.content = content;
            return *this;
        }
    }
    m_parts.append(Part{name, content});
    return *this;
}

DocxMaker &DocxMaker::removePart(const QByteArray &name)
{
    m_parts.removeIf([&](const Part &part) { return part.name == name; });
    return *this;
}

DocxMaker &DocxMaker::addTextPart(const QByteArray &kind, const QByteArray &content)
{
    static const QHash<QByteArray, QByteArray> roots{
        {"header", "w:hdr"}, {"footer", "w:ftr"}, {"footnotes", "w:footnotes"}, {"endnotes", "w:endnotes"}};
    const QByteArray file = kind + "1.xml";
    addRelationship(relationshipType + kind, file);
    return setPart("word/" + file, wrapped(roots.value(kind), content), mainType + kind + "+xml");
}

DocxMaker &DocxMaker::addRelationship(const QByteArray &type, const QByteArray &target)
{
    m_relationships += "<Relationship Id=\"r" + QByteArray::number(m_relationships.size()) + "\" Type=\"" + type + "\" Target=\""
        + target + "\"/>";
    return *this;
}

DocxMaker &DocxMaker::encrypt(const QByteArray &name)
{
    for (Part &part : m_parts)
        part.encrypted = part.encrypted || part.name == name;
    return *this;
}

QByteArray DocxMaker::zip() const
{
    zip_source_t *target = zip_source_buffer_create(nullptr, 0, 0, nullptr);
    zip_source_keep(target);
    zip_t *archive = zip_open_from_source(target, ZIP_TRUNCATE, nullptr);
    QList<Part> parts = m_parts;
    for (Part &part : parts) {
        if (part.name == "[Content_Types].xml" && part.content.isEmpty())
            part.content = "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\"><Default Extension=\"rels\" "
                           "ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/><Default Extension=\"xml\" "
                           "ContentType=\"application/xml\"/>"
                + m_overrides + "</Types>";
        if (part.name == "word/_rels/document.xml.rels" && part.content.isEmpty())
            part.content = "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">" + m_relationships
                + "</Relationships>";
        zip_source_t *source = zip_source_buffer(archive, part.content.constData(), static_cast<zip_uint64_t>(part.content.size()), 0);
        const zip_int64_t index = zip_file_add(archive, part.name.constData(), source, ZIP_FL_ENC_UTF_8);
        if (index < 0)
            throw std::runtime_error("no entry of the name " + part.name.toStdString());
        if (part.encrypted)
            zip_file_set_encryption(archive, static_cast<zip_uint64_t>(index), ZIP_EM_AES_256, "secret");
    }
    if (zip_close(archive) != 0)
        throw std::runtime_error(zip_strerror(archive));
    zip_stat_t stat;
    zip_source_stat(target, &stat);
    QByteArray bytes(static_cast<qsizetype>(stat.size), Qt::Uninitialized);
    zip_source_open(target);
    zip_source_read(target, bytes.data(), stat.size);
    zip_source_close(target);
    zip_source_free(target);
    return bytes;
}

bool DocxMaker::write(const QString &path) const
{
    QFile file(path);
    const QByteArray bytes = zip();
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray DocxMaker::wrapped(const QByteArray &rootElement, const QByteArray &content)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n<" + rootElement
        + " xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\""
          " xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\""
          " xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\" xmlns:v=\"urn:schemas-microsoft-com:vml\""
          " xmlns:wps=\"http://schemas.microsoft.com/office/word/2010/wordprocessingShape\">"
        + content + "</" + rootElement + ">";
}

QByteArray DocxMaker::runs(const QByteArray &text)
{
    return "<w:r><w:t xml:space=\"preserve\">" + text + "</w:t></w:r>";
}

QByteArray DocxMaker::simple(const QByteArray &instruction, const QByteArray &shown)
{
    return "<w:fldSimple w:instr=\" " + QByteArray(instruction).replace('"', "&quot;") + " \">" + runs(shown) + "</w:fldSimple>";
}

QByteArray DocxMaker::mark(const QByteArray &kind, const QByteArray &look)
{
    return "<w:r>" + look + "<w:fldChar w:fldCharType=\"" + kind + "\"/></w:r>";
}

QByteArray DocxMaker::code(const QByteArray &instruction, const QByteArray &look)
{
    return "<w:r>" + look + "<w:instrText xml:space=\"preserve\">" + instruction + "</w:instrText></w:r>";
}

QByteArray DocxMaker::complex(const QByteArray &instruction, const QByteArray &shown, const QByteArray &look)
{
    return mark("begin", look) + code(" " + instruction + " ", look) + mark("separate", look) + "<w:r>" + look + "<w:t>" + shown
        + "</w:t></w:r>" + mark("end", look);
}

QByteArray DocxMaker::paragraph(const QByteArray &content)
{
    return "<w:p>" + content + "</w:p>";
}

QByteArray DocxMaker::part(const QString &path, const QByteArray &name)
{
    const OpenZip open(path);
    const zip_int64_t index = zip_name_locate(open.archive, name.constData(), 0);
    if (index < 0)
        return {};
    zip_stat_t stat;
    zip_stat_index(open.archive, static_cast<zip_uint64_t>(index), 0, &stat);
    QByteArray bytes(static_cast<qsizetype>(stat.size), Qt::Uninitialized);
    zip_file_t *file = zip_fopen_index(open.archive, static_cast<zip_uint64_t>(index), 0);
    if (!file || zip_fread(file, bytes.data(), stat.size) != static_cast<zip_int64_t>(stat.size))
        throw std::runtime_error("cannot read " + name.toStdString());
    zip_fclose(file);
    return bytes;
}

QList<QByteArray> DocxMaker::partNames(const QString &path)
{
    const OpenZip open(path);
    QList<QByteArray> names;
    for (zip_int64_t i = 0; i < zip_get_num_entries(open.archive, 0); ++i)
        names.append(zip_get_name(open.archive, static_cast<zip_uint64_t>(i), 0));
    return names;
}

QString DocxMaker::shown(const QString &path, const QByteArray &name)
{
    QXmlStreamReader reader(part(path, name));
    QString text;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::EndElement && reader.name() == u"p")
            text += u'|';
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == u"br")
            text += u'\n';
        else if (reader.name() == u"tab")
            text += u'\t';
        else if (reader.name() == u"t")
            text += reader.readElementText();
    }
    if (reader.hasError())
        throw std::runtime_error("no XML in " + name.toStdString() + ": " + reader.errorString().toStdString());
    return text;
}
