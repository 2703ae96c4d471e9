// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/FooterLine.h"

#include "suite/utility/documents/DocxPackage.h"
#include "suite/utility/documents/WordXml.h"

#include <QFile>
#include <QSaveFile>

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

// Before the section's properties, which end the body.
bool addToBody(pugi::xml_document &xml, const QString &text, const QString &code)
{
    pugi::xml_node body = WordXml::child(xml.document_element(), "body");
    if (!body)
        return false;
    const std::string prefix = WordXml::prefix(body);
    const std::string name = prefix + "p";
    const pugi::xml_node section = WordXml::child(body, "sectPr");
    fillParagraph(section ? body.insert_child_before(name.c_str(), section) : body.append_child(name.c_str()), prefix, text, code);
    return true;
}

QByteArray withLine(const QByteArray &file, const QString &text, const QString &code)
{
    DocxPackage package(file);
    bool isDone = false;
    for (const QString &footer : package.partsOfType(u"footer+xml"_s)) {
        pugi::xml_document *xml = package.xml(footer);
        if (xml && addToFooter(*xml, text, code)) {
            package.setChanged(footer);
            isDone = true;
        }
    }
    if (!isDone) {
        pugi::xml_document *xml = package.xml(package.mainPart());
        if (!xml || !addToBody(*xml, text, code))
            throw DocxError("no body to write into");
        package.setChanged(package.mainPart());
    }
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
