// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/HostLook.h"

#include "host/frame/HostStyle.h"
#include "suite/utility/look/HostColors.h"

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QIcon>
#include <QLibraryInfo>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {

QStringList fontsOf(const QDir &folder)
{
    QStringList files = folder.entryList({u"*.ttf"_s}, QDir::Files, QDir::Name);
    for (QString &file : files)
        file = folder.filePath(file);
    return files;
}

QString familyBesideProgram()
{
    const QDir folder(QCoreApplication::applicationDirPath() + u"/../share/tzauto/fonts"_s);
    QString family;
    for (const QString &file : fontsOf(folder)) {
        const QStringList families = QFontDatabase::applicationFontFamilies(
            QFontDatabase::addApplicationFont(file));
        // The cuts of other weights may name a family of their own; the shortest name is the one that has them all.
        for (const QString &name : families)
            if (family.isEmpty() || name.size() < family.size())
                family = name;
    }
    // The cut for codes is asked for by name (CodeFont), never the program's own.
    for (const QString &file : fontsOf(folder.filePath(u"codes"_s)))
        QFontDatabase::addApplicationFont(file);
    return family;
}

QString systemFamily()
{
    const QStringList installed = QFontDatabase::families(QFontDatabase::Arabic);
    for (const QString &name : {u"Vazirmatn"_s, u"Noto Sans Arabic"_s,
                                u"Noto Naskh Arabic"_s})
        if (installed.contains(name))
            return name;
    return {};
}

}

namespace HostLook {

void apply(QApplication &application)
{
    // The application takes ownership of the style, which the checker cannot see.
    // NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks)
    QApplication::setStyle(new HostStyle);
    QString family = familyBesideProgram();
    // NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)
    if (family.isEmpty())
        family = systemFamily();
    if (!family.isEmpty())
        QApplication::setFont(QFont(family, 10));
    HostStyle::applyFonts();
    QApplication::setPalette(HostColors::palette(HostColors::look()));

    auto *texts = new QTranslator(&application);
    if (texts->load(u"qtbase_fa"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(texts);
    QApplication::setWindowIcon(QIcon(u":/icons/tzauto.svg"_s));
}

}
