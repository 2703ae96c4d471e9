// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/look/ElidedLabel.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/KChip.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/look/WrapLine.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QScreen>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using HostColors::Look;
using HostColors::Role;

// Whether a pixel has that colour, edges aside.
bool holds(const QImage &picture, const QColor &color)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y) == color)
                return true;
        }
    }
    return false;
}

QImage drawn(const QIcon &icon, QIcon::Mode mode = QIcon::Normal)
{
    return icon.pixmap(QSize(96, 96), 1, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

}

class TestLookPieces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { HostColors::setLook(Look::Light); }

    void iconsFollowTheLook()
    {
        const QIcon icon = LookIcons::icon(u":/icons/edit.svg"_s);
        for (const Look look : {Look::Light, Look::Dark}) {
            HostColors::setLook(look);
            QVERIFY(holds(drawn(icon), HostColors::of(Role::Icon, look)));
            QVERIFY(holds(drawn(icon), HostColors::of(Role::Icon2, look)));
            QVERIFY(holds(drawn(icon, QIcon::Disabled), HostColors::of(Role::Disabled, look)));
        }
    }

    void inkReplacesBothStrokes()
    {
        const QImage picture = drawn(LookIcons::inked(LookIcons::icon(u":/icons/delete.svg"_s), Role::Danger));
        QVERIFY(holds(picture, HostColors::of(Role::Danger)));
        QVERIFY(!holds(picture, HostColors::of(Role::Icon)));
        QVERIFY(!holds(picture, HostColors::of(Role::Icon2)));
    }

    // One with a colour of its own would stay as it is in the other look.
    void everyIconIsDrawnInTheTwoStrokes()
    {
        const QStringList files = QDir(u":/icons"_s).entryList({u"*.svg"_s});
        QVERIFY(files.size() > 30);
        for (const QString &file : files) {
            if (file == u"tzauto.svg"_s)
                continue;
            const QImage picture = drawn(LookIcons::icon(u":/icons/"_s + file, Role::Danger));
            const QColor ink = HostColors::of(Role::Danger);
            QVERIFY2(holds(picture, ink), qPrintable(file));
            for (int y = 0; y < picture.height(); ++y) {
                for (int x = 0; x < picture.width(); ++x) {
                    const QColor pixel = picture.pixelColor(x, y);
                    QVERIFY2(pixel.alpha() < 200 || qAbs(pixel.red() - ink.red()) < 8, qPrintable(file));
                }
            }
        }
    }

    void noPathMakesNoIcon() { QVERIFY(LookIcons::icon({}).isNull()); }

    void fontsAreRelativeToTheApplications()
    {
        const QFont before = QApplication::font();
        QFont larger = before;
        larger.setPointSizeF(20);
        QApplication::setFont(larger);
        QCOMPARE(qRound(LookFonts::font(LookFonts::Use::Page).pointSizeF() * 13), 400);
        QCOMPARE(LookSizes::scaled(100), 200);
        QApplication::setFont(before);
        QCOMPARE(LookFonts::font(LookFonts::Use::Text).pointSizeF(), before.pointSizeF());
        QVERIFY(LookFonts::font(LookFonts::Use::Title).weight() > LookFonts::font(LookFonts::Use::Strong).weight());
    }

    void cutTextEndsInDotsAndIsWholeInTheTip()
    {
        ElidedLabel label(u"بیست و سه میلیون و سیصد و هفتاد و پنج هزار"_s);
        label.resize(label.sizeHint());
        QVERIFY(!label.isCut());
        const QImage whole = label.grab().toImage();
        label.resize(60, label.height());
        QVERIFY(label.isCut());
        QVERIFY(label.minimumSizeHint().width() == 0);
        QVERIFY(label.grab().toImage() != whole.copy(0, 0, 60, label.height()));
    }

    void chipsHaveTheirSoftGround_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("ground");
        QTest::newRow("neutral") << int(KChip::Kind::Neutral) << int(Role::NeutralSoft);
        QTest::newRow("info") << int(KChip::Kind::Info) << int(Role::InfoSoft);
        QTest::newRow("good") << int(KChip::Kind::Good) << int(Role::GoodSoft);
        QTest::newRow("warn") << int(KChip::Kind::Warn) << int(Role::WarnSoft);
        QTest::newRow("danger") << int(KChip::Kind::Danger) << int(Role::DangerSoft);
    }
    void chipsHaveTheirSoftGround()
    {
        QFETCH(int, kind);
        QFETCH(int, ground);
        KChip chip(static_cast<KChip::Kind>(kind), u"ذخیره نشده"_s);
        chip.resize(chip.sizeHint());
        QVERIFY(holds(chip.grab().toImage(), HostColors::of(static_cast<Role>(ground))));
    }

    void theNoteSaysWhatIsWrongBeforeAHintBeforeItsOwnText()
    {
        QWidget page;
        QLineEdit field(&page);
        FieldNote note(&field, &page);
        QCOMPARE(FieldNote::of(&field), &note);
        note.setOwnText(u"پنج میلیون"_s);
        QCOMPARE(note.text(), u"پنج میلیون"_s);
        note.showHint(u"کمیسیون را وارد کنید"_s);
        QCOMPARE(note.text(), u"کمیسیون را وارد کنید"_s);
        note.showError(u"نادرست است."_s);
        QCOMPARE(note.text(), u"نادرست است."_s);
        QCOMPARE(note.foregroundRole(), HostColors::dangerText);
        note.showError({});
        note.showHint({});
        QCOMPARE(note.text(), u"پنج میلیون"_s);
        QCOMPARE(note.foregroundRole(), HostColors::hintText);
    }

    void aRefusedNumberIsSaidBesideItsLabel()
    {
        QWidget page;
        KEdit field(KEdit::Kind::Percent, &page);
        const FieldNote note(&field, &page);
        field.setText(u"120"_s);
        QCOMPARE(note.text(), field.entryError());
        QVERIFY(!note.text().isEmpty());
        field.setText(u"12"_s);
        QVERIFY(note.text().isEmpty());
    }

    void aLineWrapsFromTheRight()
    {
        QWidget page;
        page.setLayoutDirection(Qt::RightToLeft);
        auto *line = new WrapLine(&page);
        QList<QLabel *> words;
        for (int i = 0; i < 4; ++i) {
            words.append(new QLabel(u"خلاصه اين قرارداد"_s, &page));
            line->addWidget(words.constLast());
        }
        const int one = line->heightForWidth(2000);
        page.resize(2000, 100);
        page.show();
        line->activate();
        QCOMPARE(words.constLast()->y(), words.constFirst()->y());
        QVERIFY(words.at(1)->geometry().right() < words.at(0)->geometry().left());
        page.resize(words.constFirst()->width() * 2 + 40, 200);
        line->activate();
        QVERIFY(words.constLast()->y() > words.constFirst()->y());
        QVERIFY(line->heightForWidth(page.width()) > one);
    }

    void noWindowIsLargerThanTheScreen()
    {
        QWidget window;
        const QRect free = window.screen()->availableGeometry();
        window.setGeometry(free.right() - 50, free.bottom() - 50, free.width() * 2, free.height() * 2);
        window.show();
        LookSizes::keepOnScreen(&window);
        QVERIFY(free.contains(window.frameGeometry()));
    }
};

static const RegisteredTest<TestLookPieces, QApplication> registeredLookPieces;
#include "TestLookPieces.moc"
