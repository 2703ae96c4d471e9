// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/CDlgKeys.h"

#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/support/NamedWidget.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

class TestCDlgKeys : public QObject
{
    Q_OBJECT

    static QStringList shown(const CDlgKeys &dialog)
    {
        const auto *list = dialog.findChild<KExtListCtrl *>();
        QStringList keys;
        for (int row = 0; row < list->count(); ++row)
            keys.append(list->cellText(row, 1));
        return keys;
    }

    static QVector<KeyList::Entry> some()
    {
        return {{u"منو"_s, u"Ctrl+1"_s, u"قرارداد"_s}, {u"منو"_s, u"Ctrl+2"_s, u"اشخاص"_s}, {u"فهرست‌ها"_s, u"F5"_s, u"خواندن دوباره"_s}};
    }

private Q_SLOTS:
    void everythingIsListedAtFirst()
    {
        const CDlgKeys dialog(some());
        QCOMPARE(shown(dialog), (QStringList{u"Ctrl+1"_s, u"Ctrl+2"_s, u"F5"_s}));
    }

    void typingSearches_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QStringList>("found");
        QTest::newRow("work") << u"قرار"_s << QStringList{u"Ctrl+1"_s};
        QTest::newRow("key in small letters") << u"ctrl"_s << QStringList{u"Ctrl+1"_s, u"Ctrl+2"_s};
        QTest::newRow("Persian digit") << u"ctrl+۲"_s << QStringList{u"Ctrl+2"_s};
        QTest::newRow("group") << u"فهرستها"_s << QStringList{u"F5"_s};
        QTest::newRow("Arabic yeh, two words") << u"منو اشخاص"_s << QStringList{u"Ctrl+2"_s};
        QTest::newRow("nothing") << u"خودرو"_s << QStringList{};
    }

    void typingSearches()
    {
        QFETCH(QString, typed);
        QFETCH(QStringList, found);
        CDlgKeys dialog(some());
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        auto *search = named<KEdit>(dialog, u"جستجو در کلیدها"_s);
        QVERIFY(search->hasFocus());
        search->setText(typed);
        QCOMPARE(shown(dialog), found);
        search->clear();
        QCOMPARE(shown(dialog).size(), 3);
    }

    void everyCommonKeySaysWhatItDoes()
    {
        QSet<QString> known;
        for (const KeyList::Entry &entry : KeyList::everywhere()) {
            QVERIFY(!entry.group.isEmpty() && !entry.keys.isEmpty() && !entry.work.isEmpty());
            const QString place = entry.group + u'|' + entry.keys;
            QVERIFY2(!known.contains(place), qPrintable(place));
            known.insert(place);
        }
        QVERIFY(known.size() > 30);
    }
};

static const RegisteredTest<TestCDlgKeys, QApplication> registeredCDlgKeys;
#include "TestCDlgKeys.moc"
