// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/HostLook.h"

#include "host/frame/HostStyle.h"
#include "host/frame/SystemLook.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/values/KSettings.h"

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QPointer>
#include <QToolTip>
#include <QTranslator>

#include <algorithm>
#include <iterator>

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

// Keys are called as they are printed on them: "Ctrl+1", also where Qt's own texts are Persian.
class KeyNames : public QTranslator
{
public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        return QLatin1StringView(context) == "QShortcut"_L1 ? QString::fromLatin1(text) : QString();
    }
};

const QString lookSection = u"tzhost\\Look"_s;
const QString lookKey = u"sPalette"_s;

// As they are kept, in the order of the choices.
constexpr QLatin1StringView choiceNames[] = {"system"_L1, "light"_L1, "dark"_L1};

QPointer<SystemLook> desktopLook;

HostColors::Look lookOfPlatform()
{
    constexpr int middle = 128;
    const bool isDark = QGuiApplication::palette().color(QPalette::Window).lightness() < middle;
    return isDark ? HostColors::Look::Dark : HostColors::Look::Light;
}

// Every widget is told by its palette, and paints itself anew; so do the pictures, which ask for the look when they are painted.
void showLook(HostColors::Look look)
{
    HostColors::setLook(look);
    const QPalette palette = HostColors::palette(look);
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}

}

namespace HostLook {

Choice choice()
{
    const QString kept = ReadSetting(lookSection, lookKey, QString());
    const auto *found = std::find(std::begin(choiceNames), std::end(choiceNames), kept);
    return found == std::end(choiceNames) ? Choice::AsSystem : Choice(found - std::begin(choiceNames));
}

HostColors::Look lookOf(Choice choice)
{
    switch (choice) {
    case Choice::Light:
        return HostColors::Look::Light;
    case Choice::Dark:
        return HostColors::Look::Dark;
    case Choice::AsSystem:
        break;
    }
    return desktopLook ? desktopLook->look() : HostColors::Look::Light;
}

void showChoice()
{
    if (const HostColors::Look wanted = lookOf(choice()); wanted != HostColors::look())
        showLook(wanted);
}

void choose(Choice choice)
{
    WriteSetting(lookSection, lookKey, QString(choiceNames[std::size_t(choice)]));
    showChoice();
}

void apply(QApplication &application)
{
    // What the platform has, before it is replaced.
    desktopLook = new SystemLook(SystemLook::sessionBus(), lookOfPlatform(), &application);
    QObject::connect(desktopLook, &SystemLook::changed, &application, &showChoice);
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
    showLook(desktopLook->look());

    auto *texts = new QTranslator(&application);
    if (texts->load(u"qtbase_fa"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(texts);
    QCoreApplication::installTranslator(new KeyNames(&application));
    QApplication::setWindowIcon(LookIcons::icon(u":/icons/tzauto.svg"_s));
}

}
