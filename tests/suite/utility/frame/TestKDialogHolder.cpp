// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KDialogHolder.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include "suite/utility/frame/KDialogTabPage.h"
#include "suite/utility/look/LookMarks.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

namespace {

class SamplePage : public KDialogTabPage
{
public:
    SamplePage() { setTitle(u"قرارداد"_s); }
    bool OnAccess() override
    {
        ++accessCount;
        return access;
    }
    bool OnOK() override
    {
        ++okCount;
        return ok;
    }
    void OnClosing() override { ++closingCount; }

    bool access = true;
    bool ok = true;
    int accessCount = 0;
    int okCount = 0;
    int closingCount = 0;
};

}

class TestKDialogHolder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusedAccessShowsNothing();
    void okAsksThePage();
    void refusedOkKeepsTheWindow();
    void theOkButtonIsFilledUnlessItOnlyCloses();
    void thePageStandsAboveTheFooterWithItsOwnMargins();
    void thePageCanAskForOk();
    void thePageCanAskToClose();
    void titleFollowsThePage();
    void ownsThePage();
    void aPageAllowsEverythingAtFirst();
};

void TestKDialogHolder::refusedAccessShowsNothing()
{
    auto *page = new SamplePage;
    page->access = false;
    KDialogHolder holder(page);
    QCOMPARE(holder.exec(), int(QDialog::Rejected));
    QCOMPARE(page->accessCount, 1);
    QCOMPARE(page->closingCount, 0);
    QVERIFY(!page->isVisible());
}

void TestKDialogHolder::okAsksThePage()
{
    auto *page = new SamplePage;
    KDialogHolder holder(page);
    QTimer::singleShot(0, &holder, [&] { holder.accept(); });
    QCOMPARE(holder.exec(), int(QDialog::Accepted));
    QCOMPARE(page->okCount, 1);
    QCOMPARE(page->closingCount, 1);
}

void TestKDialogHolder::refusedOkKeepsTheWindow()
{
    auto *page = new SamplePage;
    page->ok = false;
    KDialogHolder holder(page);
    holder.show();
    holder.accept();
    QVERIFY(holder.isVisible());
    QCOMPARE(page->closingCount, 0);
    holder.reject();
    QVERIFY(!holder.isVisible());
    QCOMPARE(page->closingCount, 1);
}

void TestKDialogHolder::theOkButtonIsFilledUnlessItOnlyCloses()
{
    KDialogHolder holder(new SamplePage);
    const auto filled = [&holder] {
        QStringList captions;
        for (const QPushButton *button : holder.findChildren<QPushButton *>()) {
            if (LookMarks::button(button) == LookMarks::Button::Primary)
                captions.append(button->text());
        }
        return captions;
    };
    QCOMPARE(filled(), QStringList{u"تاييد"_s});
    holder.okOnlyCloses();
    QCOMPARE(filled(), QStringList());
}

void TestKDialogHolder::thePageStandsAboveTheFooterWithItsOwnMargins()
{
    auto *page = new SamplePage;
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(16, 8, 16, 8);
    auto *line = new QLineEdit;
    layout->addWidget(line);
    KDialogHolder holder(page);
    holder.resize(500, 300);
    holder.show();
    QCOMPARE(line->mapTo(&holder, QPoint()).x(), 16);
    const auto *buttons = holder.findChild<QDialogButtonBox *>();
    QCOMPARE(LookMarks::bar(buttons->parentWidget()), LookMarks::Bar::Bottom);
    QCOMPARE(buttons->parentWidget()->geometry().bottom(), holder.rect().bottom());
    QVERIFY(page->geometry().bottom() < buttons->parentWidget()->geometry().top());
}

void TestKDialogHolder::thePageCanAskForOk()
{
    auto *page = new SamplePage;
    KDialogHolder holder(page);
    QTimer::singleShot(0, page, [page] { Q_EMIT page->okRequested(); });
    QCOMPARE(holder.exec(), int(QDialog::Accepted));
    QCOMPARE(page->okCount, 1);
}

void TestKDialogHolder::thePageCanAskToClose()
{
    auto *page = new SamplePage;
    KDialogHolder holder(page);
    QTimer::singleShot(0, page, [page] { Q_EMIT page->closeRequested(); });
    QCOMPARE(holder.exec(), int(QDialog::Rejected));
    QCOMPARE(page->okCount, 0);
    QCOMPARE(page->closingCount, 1);
}

void TestKDialogHolder::titleFollowsThePage()
{
    auto *page = new SamplePage;
    KDialogHolder holder(page);
    QCOMPARE(holder.windowTitle(), u"قرارداد"_s);
    QSignalSpy changed(page, &KDialogTabPage::titleChanged);
    page->setTitle(u"قرارداد ها"_s);
    page->setTitle(u"قرارداد ها"_s);
    QCOMPARE(holder.windowTitle(), u"قرارداد ها"_s);
    QCOMPARE(changed.size(), 1);
}

void TestKDialogHolder::ownsThePage()
{
    QPointer<KDialogTabPage> page = new SamplePage;
    {
        KDialogHolder holder(page);
        QCOMPARE(holder.page(), page.data());
    }
    QVERIFY(page.isNull());
}

void TestKDialogHolder::aPageAllowsEverythingAtFirst()
{
    KDialogTabPage page;
    QVERIFY(page.OnAccess());
    QVERIFY(page.OnOK());
    QCOMPARE(page.layoutDirection(), Qt::RightToLeft);
    QCOMPARE(page.title(), QString());
}

static const RegisteredTest<TestKDialogHolder, QApplication> registeredKDialogHolder;
#include "TestKDialogHolder.moc"
