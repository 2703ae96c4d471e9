// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/MailMergeSource.h"
#include "suite/utility/documents/DocxPackage.h"
#include "suite/utility/documents/WordXml.h"

using namespace Qt::StringLiterals;

namespace {

bool isMailMergeType(const QString &relationshipType)
{
    const QString kind = relationshipType.section(u'/', -1);
    return kind.startsWith(u"mailMerge"_s, Qt::CaseInsensitive)
        || kind.compare(u"recipientData"_s, Qt::CaseInsensitive) == 0;
}

void removeRelationships(DocxPackage &package, const QString &settings)
{
    const QString part = DocxPackage::relationshipsOf(settings);
    pugi::xml_document *document = package.xml(part);
    if (!document)
        return;
    pugi::xml_node root = document->document_element();
    for (pugi::xml_node node = root.first_child(); node;) {
        const pugi::xml_node next = node.next_sibling();
        if (isMailMergeType(WordXml::attribute(node, "Type"))) {
            if (WordXml::attribute(node, "TargetMode") != u"External"_s)
                package.removePart(DocxPackage::targetOf(settings, WordXml::attribute(node, "Target")));
            root.remove_child(node);
            package.setChanged(part);
        }
        node = next;
    }
}

} // namespace

void removeMailMergeSource(DocxPackage &package)
{
    for (const QString &settings : package.partsOfType(u"wordprocessingml.settings+xml"_s)) {
        pugi::xml_node root = package.xml(settings)->document_element();
        while (const pugi::xml_node merge = WordXml::child(root, "mailMerge")) {
            root.remove_child(merge);
            package.setChanged(settings);
        }
        removeRelationships(package, settings);
    }
}
