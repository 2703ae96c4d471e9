// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/FooterLine.h"

#include "suite/utility/documents/DocxPackage.h"
#include "suite/utility/documents/WordXml.h"

#include <QFile>
#include <QSaveFile>

#include <algorithm>
#include <sstream>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *halfPoints = "13"; // small enough for a hash to stand in one line

pugi::xml_node element(pugi::xml_node parent, const std::string &prefix, const char *name, const char *value = nullptr)
{
    pugi::xml_node made = parent.append_child((prefix + name).c_str());
    if (value)
        made.append_attribute((prefix + "val").c_str()) = value;
    return made;
}

void addRun(pugi::xml_node paragraph, const std::string &prefix, const QString &text, bool rightToLeft)
{
    pugi::xml_node run = element(paragraph, prefix, "r");
    pugi::xml_node look = element(run, prefix, "rPr");
    if (!rightToLeft) {
        // A Persian font shows its own digits, and among Latin letters those are hard to compare.
        pugi::xml_node fonts = element(look, prefix, "rFonts");
        for (const char *script : {"ascii", "hAnsi", "cs"})
            fonts.append_attribute((prefix + script).c_str()) = "Liberation Sans";
    }
    element(look, prefix, "sz", halfPoints);
    element(look, prefix, "szCs", halfPoints);
    if (rightToLeft)
        element(look, prefix, "rtl");
    pugi::xml_node shown = element(run, prefix, "t");
    shown.append_attribute("xml:space") = "preserve";
    shown.text() = text.toUtf8().constData();
}

void fillParagraph(pugi::xml_node paragraph, const std::string &prefix, const QString &text, const QString &code)
{
    pugi::xml_node look = element(paragraph, prefix, "pPr");
    element(look, prefix, "bidi");
    element(look, prefix, "jc", "center");
    addRun(paragraph, prefix, text + u' ', true);
    addRun(paragraph, prefix, code, false);
}

bool addToFooter(pugi::xml_document &xml, const QString &text, const QString &code)
{
    pugi::xml_node root = xml.document_element();
    if (!root)
        return false;
    const std::string prefix = WordXml::prefix(root);
    fillParagraph(element(root, prefix, "p"), prefix, text, code);
    return true;
}

std::string namespaceOf(const pugi::xml_node &root, const std::string &prefix)
{
    const std::string name = prefix.empty() ? "xmlns" : "xmlns:" + prefix.substr(0, prefix.size() - 1);
    return root.attribute(name.c_str()).value();
}

// The properties of the first section, which its last paragraph holds, or the body where it is the only one.
pugi::xml_node firstSection(pugi::xml_node body)
{
    const std::string prefix = WordXml::prefix(body);
    const pugi::xml_node inText = body.find_node([](const pugi::xml_node &node) { return WordXml::is(node, "sectPr") && WordXml::is(node.parent(), "pPr"); });
    if (inText)
        return inText;
    const pugi::xml_node ofBody = WordXml::child(body, "sectPr");
    return ofBody ? ofBody : element(body, prefix, "sectPr");
}

// The kinds of pages that the first section has no footer for; what a later section does not say, it takes from the one before.
std::vector<const char *> pagesWithout(const pugi::xml_node &section)
{
    std::vector<const char *> kinds;
    for (const char *kind : {"default", "first", "even"}) {
        const bool has = std::ranges::any_of(section.children(), [kind](const pugi::xml_node &node) {
            const QString type = WordXml::attribute(node, "type");
            return WordXml::is(node, "footerReference") && (type.isEmpty() ? u"default"_s : type) == QLatin1String(kind);
        });
        if (!has)
            kinds.push_back(kind);
    }
    return kinds;
}

// A part of its own for those pages.
QString addFooterPart(DocxPackage &package, const pugi::xml_node &root, const QString &text, const QString &code)
{
    const std::string prefix = WordXml::prefix(root);
    pugi::xml_document footer;
    pugi::xml_node declaration = footer.append_child(pugi::node_declaration);
    declaration.append_attribute("version") = "1.0";
    declaration.append_attribute("encoding") = "UTF-8";
    pugi::xml_node made = footer.append_child((prefix + "ftr").c_str());
    made.append_attribute(prefix.empty() ? "xmlns" : ("xmlns:" + prefix.substr(0, prefix.size() - 1)).c_str()) = namespaceOf(root, prefix).c_str();
    fillParagraph(element(made, prefix, "p"), prefix, text, code);
    std::ostringstream bytes;
    footer.save(bytes, "", pugi::format_raw, pugi::encoding_utf8);
    const QString folder = package.mainPart().left(package.mainPart().lastIndexOf(u'/') + 1);
    return package.addPart(folder + u"footer-filed.xml"_s, QByteArray::fromStdString(bytes.str()), u"application/vnd.openxmlformats-officedocument.wordprocessingml.footer+xml"_s);
}

// A footer wherever a page would go without one.
void addMissingFooters(DocxPackage &package, const QString &text, const QString &code)
{
    pugi::xml_document *xml = package.xml(package.mainPart());
    const pugi::xml_node root = xml ? xml->document_element() : pugi::xml_node();
    const pugi::xml_node body = WordXml::child(root, "body");
    if (!body)
        throw DocxError("no body to write into");
    pugi::xml_node section = firstSection(body);
    const std::vector<const char *> missing = pagesWithout(section);
    if (missing.empty())
        return;
    const std::string prefix = WordXml::prefix(root);
    // Documents of the strict kind call their parts otherwise.
    const bool isStrict = namespaceOf(root, prefix).starts_with("http://purl.oclc.org/");
    const QString relations = isStrict ? u"http://purl.oclc.org/ooxml/officeDocument/relationships"_s : u"http://schemas.openxmlformats.org/officeDocument/2006/relationships"_s;
    const QString key = package.addRelationship(package.mainPart(), relations + u"/footer"_s, addFooterPart(package, root, text, code));
    for (const char *kind : missing) {
        // References come first among a section's properties.
        pugi::xml_node reference = section.prepend_child((prefix + "footerReference").c_str());
        reference.append_attribute("xmlns:filed") = relations.toUtf8().constData();
        reference.append_attribute((prefix + "type").c_str()) = kind;
        reference.append_attribute("filed:id") = key.toUtf8().constData();
    }
    package.setChanged(package.mainPart());
}

QByteArray withLine(const QByteArray &file, const QString &text, const QString &code)
{
    DocxPackage package(file);
    for (const QString &footer : package.partsOfType(u"footer+xml"_s)) {
        pugi::xml_document *xml = package.xml(footer);
        if (xml && addToFooter(*xml, text, code))
            package.setChanged(footer);
    }
    addMissingFooters(package, text, code);
    return package.toZip();
}

}

QString FooterLine::add(const QString &path, const QString &text, const QString &code)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    try {
        const QByteArray changed = withLine(file.readAll(), text, code);
        file.close();
        QSaveFile saved(path);
        return saved.open(QIODevice::WriteOnly) && saved.write(changed) == changed.size() && saved.commit() ? QString() : saved.errorString();
    } catch (const DocxError &error) {
        return QString::fromUtf8(error.what());
    }
}
