// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/DocxPackage.h"
#include "suite/utility/documents/WordXml.h"

#include <QHash>
#include <QSet>
#include <QStringList>

#include <zip.h>

#include <algorithm>
#include <cstring>
#include <deque>

using namespace Qt::StringLiterals;

namespace {

const QString contentTypesPart = u"[Content_Types].xml"_s;

bool isMacroName(const QString &name)
{
    const QString file = name.section(u'/', -1);
    return ZipEntries::isSameName(file, u"vbaProject.bin"_s) || ZipEntries::isSameName(file, u"vbaData.xml"_s);
}

bool isMacroType(const QString &type)
{
    return type.contains(u"macroEnabled"_s, Qt::CaseInsensitive)
        || type.contains(u"vbaProject"_s, Qt::CaseInsensitive)
        || type.contains(u"vbaData"_s, Qt::CaseInsensitive);
}

bool isXmlName(const QString &name)
{
    return name.endsWith(u".xml"_s, Qt::CaseInsensitive)
        || name.endsWith(u".rels"_s, Qt::CaseInsensitive)
        || name.endsWith(u".vml"_s, Qt::CaseInsensitive);
}

bool isXmlType(const QString &type)
{
    return type.endsWith(u"+xml"_s, Qt::CaseInsensitive)
        || type.endsWith(u"/xml"_s, Qt::CaseInsensitive);
}

// Walks without recursion, as the depth is the question.
bool isTooDeep(const pugi::xml_document &document)
{
    int depth = 0;
    pugi::xml_node node = document.first_child();
    while (node) {
        if (node.first_child()) {
            node = node.first_child();
            if (++depth > DocxPackage::maxDepth)
                return true;
            continue;
        }
        while (node && !node.next_sibling()) {
            node = node.parent();
            --depth;
        }
        node = node.next_sibling();
    }
    return false;
}

void refuseOddXml(const pugi::xml_document &document, const std::string &name)
{
    for (const pugi::xml_node node : document.children()) {
        if (node.type() == pugi::node_doctype)
            throw DocxError("a document type declaration in " + name);
        if (node.type() != pugi::node_declaration)
            continue;
        // The two that the format allows; any other could hide a declaration from this reader that the next one sees.
        const QByteArray encoding = QByteArray(node.attribute("encoding").value()).toLower();
        if (!encoding.isEmpty() && encoding != "utf-8" && encoding != "utf-16")
            throw DocxError("the encoding " + encoding.toStdString() + " in " + name);
    }
    if (isTooDeep(document))
        throw DocxError("elements nested too deep in " + name);
}

std::unique_ptr<pugi::xml_document> parseXml(const QByteArray &content, const QString &part, qint64 *marks)
{
    const std::string name = part.toStdString();
    *marks -= content.count('<') + content.count('=');
    if (*marks < 0)
        throw DocxError("too many elements");
    auto document = std::make_unique<pugi::xml_document>();
    const auto result = document->load_buffer(content.constData(), static_cast<std::size_t>(content.size()),
                                              pugi::parse_full | pugi::parse_ws_pcdata);
    if (!result)
        throw DocxError("unreadable XML in " + name + ": " + result.description());
    refuseOddXml(*document, name);
    return document;
}

QByteArray serialised(pugi::xml_document &document)
{
    struct Writer final : pugi::xml_writer
    {
        QByteArray bytes;
        void write(const void *data, std::size_t size) override
        {
            bytes.append(static_cast<const char *>(data), static_cast<qsizetype>(size));
        }
    } writer;
    pugi::xml_node declaration = document.first_child();
    if (declaration.type() == pugi::node_declaration && declaration.attribute("encoding"))
        declaration.attribute("encoding").set_value("UTF-8");
    document.save(writer, "", pugi::format_raw, pugi::encoding_utf8);
    return writer.bytes;
}

struct ZipDiscarder
{
    void operator()(zip_t *archive) const { zip_discard(archive); }
};

struct ZipSourceFreer
{
    void operator()(zip_source_t *source) const { zip_source_free(source); }
};

} // namespace

DocxPackage::DocxPackage(const QByteArray &file)
    : m_zip(file, maxUnpackedBytes)
{
    readNames();
    readContentTypes();
    readParts();
    findMainPart();
}

DocxPackage::~DocxPackage() = default;

void DocxPackage::readNames()
{
    for (const ZipEntries::Entry &entry : m_zip.all()) {
        if (isMacroName(entry.name))
            throw DocxError("macros");
        m_parts.push_back({entry.name, entry.index, nullptr, {}, false, {}});
    }
}

void DocxPackage::readContentTypes()
{
    Part *types = find(contentTypesPart);
    if (!types)
        throw DocxError("the content types are missing");
    qint64 room = maxUnpackedBytes;
    qint64 marks = maxMarks;
    types->xml = parseXml(m_zip.unpack(types->index, &room), types->name, &marks);
    QHash<QString, QString> byEnding, byName;
    for (const pugi::xml_node node : types->xml->document_element().children()) {
        const QString type = WordXml::attribute(node, "ContentType");
        if (isMacroType(type))
            throw DocxError("macros");
        if (WordXml::is(node, "Default"))
            byEnding.insert(WordXml::attribute(node, "Extension").toLower(), type);
        else if (WordXml::is(node, "Override"))
            byName.insert(targetOf({}, WordXml::attribute(node, "PartName")).toLower(), type);
    }
    for (Part &part : m_parts) {
        const QString ending = part.name.section(u'/', -1).section(u'.', -1).toLower();
        part.contentType = byName.value(part.name.toLower(), byEnding.value(ending));
    }
}

void DocxPackage::readParts()
{
    qint64 room = maxUnpackedBytes;
    qint64 marks = maxMarks;
    for (Part &part : m_parts) {
        const QByteArray content = m_zip.unpack(part.index, &room);
        if (isXmlName(part.name) || isXmlType(part.contentType))
            part.xml = parseXml(content, part.name, &marks);
    }
}

void DocxPackage::findMainPart()
{
    const QString relationships = relationshipsOf({});
    if (const pugi::xml_document *root = xml(relationships)) {
        for (const pugi::xml_node node : root->document_element().children())
            if (WordXml::attribute(node, "Type").endsWith(u"/officeDocument"_s))
                m_mainPart = targetOf({}, WordXml::attribute(node, "Target"));
    }
    const Part *part = find(m_mainPart);
    if (!part || !part->xml || !part->contentType.endsWith(u"wordprocessingml.document.main+xml"_s))
        throw DocxError("no word-processor document in the file");
    m_mainPart = part->name;
}

DocxPackage::Part *DocxPackage::find(const QString &name)
{
    return const_cast<Part *>(std::as_const(*this).find(name));
}

const DocxPackage::Part *DocxPackage::find(const QString &name) const
{
    const auto found = std::find_if(m_parts.begin(), m_parts.end(), [&](const Part &part) { return ZipEntries::isSameName(part.name, name); });
    return found == m_parts.end() ? nullptr : &*found;
}

QString DocxPackage::mainPart() const
{
    return m_mainPart;
}

QList<QString> DocxPackage::partsOfType(const QString &contentTypeEnd) const
{
    QList<QString> names;
    for (const Part &part : m_parts)
        if (part.xml && part.contentType.endsWith(contentTypeEnd))
            names.append(part.name);
    return names;
}

pugi::xml_document *DocxPackage::xml(const QString &part)
{
    const Part *found = find(part);
    return found ? found->xml.get() : nullptr;
}

void DocxPackage::setChanged(const QString &part)
{
    if (Part *found = find(part))
        found->changed = true;
}

void DocxPackage::removePart(const QString &part)
{
    pugi::xml_node types = xml(contentTypesPart)->document_element();
    for (pugi::xml_node node = types.first_child(); node;) {
        const pugi::xml_node next = node.next_sibling();
        if (WordXml::is(node, "Override") && ZipEntries::isSameName(targetOf({}, WordXml::attribute(node, "PartName")), part))
            types.remove_child(node);
        node = next;
    }
    setChanged(contentTypesPart);
    std::erase_if(m_parts, [&](const Part &candidate) { return ZipEntries::isSameName(candidate.name, part); });
}

QString DocxPackage::addPart(const QString &name, const QByteArray &content, const QString &contentType)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    QString free = name;
    for (int i = 2; find(free); ++i)
        free = name.left(dot) + u'-' + QString::number(i) + name.mid(dot);
    pugi::xml_node types = xml(contentTypesPart)->document_element();
    pugi::xml_node type = types.append_child((WordXml::prefix(types) + "Override").c_str());
    type.append_attribute("PartName").set_value((u'/' + free).toUtf8().constData());
    type.append_attribute("ContentType").set_value(contentType.toUtf8().constData());
    setChanged(contentTypesPart);
    m_parts.push_back({free, 0, nullptr, contentType, true, content});
    return free;
}

QString DocxPackage::addRelationship(const QString &part, const QString &type, const QString &target)
{
    const QString name = relationshipsOf(part);
    if (!find(name)) {
        m_parts.push_back({name, 0, std::make_unique<pugi::xml_document>(), u"application/vnd.openxmlformats-package.relationships+xml"_s, true, {}});
        m_parts.back().xml->append_child("Relationships").append_attribute("xmlns").set_value("http://schemas.openxmlformats.org/package/2006/relationships");
    }
    pugi::xml_document *document = xml(name);
    if (!document)
        throw DocxError("relationships that are no XML: " + name.toStdString());
    pugi::xml_node root = document->document_element();
    QSet<QString> taken;
    for (const pugi::xml_node node : root.children())
        taken.insert(WordXml::attribute(node, "Id"));
    QString key = u"filled1"_s;
    for (int i = 2; taken.contains(key); ++i)
        key = u"filled"_s + QString::number(i);
    pugi::xml_node node = root.append_child((WordXml::prefix(root) + "Relationship").c_str());
    node.append_attribute("Id").set_value(key.toUtf8().constData());
    node.append_attribute("Type").set_value(type.toUtf8().constData());
    node.append_attribute("Target").set_value((u'/' + target).toUtf8().constData());
    setChanged(name);
    return key;
}

QString DocxPackage::relationshipsOf(const QString &part)
{
    const QString folder = part.left(part.lastIndexOf(u'/') + 1);
    return folder + u"_rels/"_s + part.mid(folder.size()) + u".rels"_s;
}

QString DocxPackage::targetOf(const QString &part, const QString &target)
{
    QStringList steps;
    const bool fromRoot = target.startsWith(u'/');
    const QString whole = fromRoot ? target : part.left(part.lastIndexOf(u'/') + 1) + target;
    for (const QString &step : whole.split(u'/', Qt::SkipEmptyParts)) {
        if (step == u".."_s && !steps.isEmpty())
            steps.removeLast();
        else if (step != u"."_s && step != u".."_s)
            steps.append(step);
    }
    return steps.join(u'/');
}

void DocxPackage::addTo(zip_t *archive, const Part &part, const QByteArray &content) const
{
    zip_source_t *source = part.changed
        ? zip_source_buffer(archive, content.constData(), static_cast<zip_uint64_t>(content.size()), 0)
        : zip_source_zip(archive, m_zip.handle(), part.index, ZIP_FL_COMPRESSED, 0, -1);
    if (!source)
        throw DocxError(zip_strerror(archive));
    if (zip_file_add(archive, part.name.toUtf8().constData(), source, ZIP_FL_ENC_UTF_8) < 0) {
        zip_source_free(source);
        throw DocxError(zip_strerror(archive));
    }
}

QByteArray DocxPackage::toZip() const
{
    zip_error_t error;
    zip_error_init(&error);
    const std::unique_ptr<zip_source_t, ZipSourceFreer> target(zip_source_buffer_create(nullptr, 0, 0, &error));
    zip_error_fini(&error);
    if (!target)
        throw DocxError("no memory for the document");
    zip_source_keep(target.get()); // to read it once the archive is closed
    std::unique_ptr<zip_t, ZipDiscarder> archive(zip_open_from_source(target.get(), ZIP_TRUNCATE, nullptr));
    if (!archive) {
        zip_source_free(target.get());
        throw DocxError("no memory for the document");
    }
    std::deque<QByteArray> contents; // they must stay where they are until the archive is closed
    for (const Part &part : m_parts)
        addTo(archive.get(), part, contents.emplace_back(part.changed && part.xml ? serialised(*part.xml) : part.added));
    if (zip_close(archive.get()) != 0)
        throw DocxError(zip_strerror(archive.get()));
    (void)archive.release(); // closed, and so gone

    zip_stat_t stat;
    if (zip_source_stat(target.get(), &stat) != 0 || zip_source_open(target.get()) != 0)
        throw DocxError("the written document cannot be read back");
    QByteArray bytes(static_cast<qsizetype>(stat.size), Qt::Uninitialized);
    const zip_int64_t got = zip_source_read(target.get(), bytes.data(), stat.size);
    zip_source_close(target.get());
    if (got != static_cast<zip_int64_t>(stat.size))
        throw DocxError("the written document cannot be read back");
    return bytes;
}
