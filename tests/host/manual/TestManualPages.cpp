// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/manual/ManualDocument.h"
#include "host/manual/ManualPages.h"
#include "host/manual/ManualPaper.h"
#include "host/manual/ManualSearch.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

using namespace Qt::StringLiterals;

// What is read and written without a window. That each window has a page, and each link its target, is checked where the pages are.
class TestManualPages : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

    void write(const QString &name, const QString &text)
    {
        QFile file(m_folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
    }

    // Words as they stand in a PDF, whichever spaces its reader finds between and within them.
    static QString packed(QString text)
    {
        text = text.normalized(QString::NormalizationForm_KC);
        text.removeIf([](QChar letter) { return !letter.isLetter(); });
        return text;
    }

    static QString textOf(const QString &pdf)
    {
        QProcess reader;
        reader.start(u"pdftotext"_s, {pdf, u"-"_s});
        return reader.waitForFinished() ? packed(QString::fromUtf8(reader.readAllStandardOutput())) : QString();
    }

private Q_SLOTS:
    void initTestCase()
    {
        write(u"index.md"_s, u"<!-- licence -->\n<div dir=\"rtl\">\n\n# راهنما\n\n## شروع\n\n- [یک](one.md)\n- [دو](two.md)\n\n## کمک\n\n- [سه](three.md): بیشتر\n\n</div>\n"_s);
        write(u"windows.md"_s, u"# پنجره‌ها\n\n| الف | [یک](one.md) | `CDlgOne` `CDlgOther` |\n| ب | [دو](two.md) | `CDlgTwo` |\n"_s);
        write(u"one.md"_s, u"# یک\n\nخودروی نخست\n\n## ستون دوم\n\n| الف | ب |\n|---|---|\n| ۱ | ۲ |\n"_s);
        write(u"two.md"_s, u"# دو\n\nتاييد کنيد\n"_s);
        write(u"three.md"_s, u"# Three\n\nin English\n"_s);
    }

    void contentsStandInOrder()
    {
        const ManualPages pages(m_folder.path());
        QStringList read;
        for (const ManualPages::Entry &entry : pages.contents())
            read.append(entry.group + u'/' + entry.page + u'/' + entry.title);
        QCOMPARE(read, (QStringList{u"شروع/one/یک"_s, u"شروع/two/دو"_s, u"کمک/three/سه"_s}));
        QVERIFY(pages.text(u"index"_s).startsWith(u"# راهنما"));
        QVERIFY(!pages.text(u"index"_s).contains(u"div"));
        QVERIFY(pages.words(u"index"_s).contains(u"یک") && !pages.words(u"index"_s).contains(u"one"));
    }

    void aWindowHasThePageOfItsNearestClass()
    {
        const ManualPages pages(m_folder.path());
        QCOMPARE(pages.pageOf({u"QWidget"_s, u"CDlgTwo"_s, u"CDlgOne"_s}), u"two"_s);
        QCOMPARE(pages.pageOf({u"CDlgOther"_s}), u"one"_s);
        QCOMPARE(pages.pageOf({u"QWidget"_s}), QString());
        QVERIFY(pages.has(u"one"_s));
        QVERIFY(!pages.has(u"four"_s) && !pages.has({}));
        QCOMPARE(pages.text(u"four"_s), QString());
    }

    void searchIsBlindToSpelling_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("found");
        QTest::newRow("Arabic letters typed") << u"تاييد كنيد"_s << u"تایید کنید"_s << true;
        QTest::newRow("Arabic letters written") << u"تایید"_s << u"«تاييد»"_s << true;
        QTest::newRow("half-space written") << u"دریافتها"_s << u"دریافت‌ها"_s << true;
        QTest::newRow("half-space typed") << u"دریافت‌ها"_s << u"دریافتها"_s << true;
        QTest::newRow("digits") << u"۱۲"_s << u"تا 12 ماه"_s << true;
        QTest::newRow("words in another order") << u"خودرو فروش"_s << u"فروش خودرو"_s << true;
        QTest::newRow("small letters") << u"ctrl+k"_s << u"کلید Ctrl+K"_s << true;
        QTest::newRow("a sign of patterns") << u"("_s << u"خودرو"_s << false;
        QTest::newRow("one word missing") << u"فروش قسطی"_s << u"فروش خودرو"_s << false;
        QTest::newRow("nothing typed") << u" "_s << u"فروش"_s << true;
    }

    void searchIsBlindToSpelling()
    {
        QFETCH(QString, typed);
        QFETCH(QString, text);
        QFETCH(bool, found);
        const ManualSearch search(typed);
        QCOMPARE(search.isIn(text), found);
        QCOMPARE(search.isEmpty(), typed.trimmed().isEmpty());
        if (found)
            QCOMPARE(text.contains(search.anyWord()), !search.isEmpty());
    }

    void aPageRunsAsItIsRead()
    {
        const ManualPages pages(m_folder.path());
        QTextDocument document;
        ManualDocument::fill(document, {.text = pages.text(u"one"_s), .folder = pages.folder(), .pictureWidth = 300});
        QCOMPARE(document.begin().blockFormat().layoutDirection(), Qt::RightToLeft);
        const auto *table = qobject_cast<QTextTable *>(document.rootFrame()->childFrames().value(0));
        QVERIFY(table);
        // The first column stands at the right.
        QCOMPARE(table->cellAt(0, 1).firstCursorPosition().block().text(), u"الف"_s);
        const int position = ManualDocument::positionOf(document, u"ستون-دوم"_s);
        QCOMPARE(document.findBlock(position).text(), u"ستون دوم"_s);
        QCOMPARE(ManualDocument::positionOf(document, u"ستون-سوم"_s), -1);
        ManualDocument::fill(document, {.text = pages.text(u"three"_s), .folder = pages.folder(), .pictureWidth = 300});
        QCOMPARE(document.begin().blockFormat().layoutDirection(), Qt::LeftToRight);
    }

    void picturesAreNoWiderThanThePage()
    {
        QImage picture(400, 100, QImage::Format_RGB32);
        picture.fill(Qt::gray);
        QVERIFY(picture.save(m_folder.filePath(u"wide.png"_s)));
        QTextDocument document;
        ManualDocument::fill(document, {.text = u"# یک\n\n![پهن](wide.png)\n"_s, .folder = m_folder.path(), .pictureWidth = 200, .ratio = 1});
        const auto kept = document.resource(QTextDocument::ImageResource, QUrl(u"wide.png"_s)).value<QImage>();
        QCOMPARE(kept.width(), 200);
        ManualDocument::fill(document, {.text = u"# یک\n\n![پهن](wide.png)\n"_s, .folder = m_folder.path(), .pictureWidth = 200});
        QCOMPARE(document.resource(QTextDocument::ImageResource, QUrl(u"wide.png"_s)).value<QImage>().width(), 400);
        // And no room is left below it.
        QVERIFY(document.size().height() < 100 + 100);
    }

    void thePdfHoldsEachPage()
    {
        const ManualPages pages;
        QVERIFY(pages.contents().size() > 40);
        const QString path = m_folder.filePath(u"manual.pdf"_s);
        QVERIFY(ManualPaper::writePdf(pages, path));
        const QString text = textOf(path);
        // Of each page the title and the last lines, so that none may be cut.
        QStringList missing;
        for (const ManualPages::Entry &entry : pages.contents()) {
            QTextDocument page;
            page.setMarkdown(pages.text(entry.page));
            for (const QTextBlock &block : {page.begin(), page.lastBlock()}) {
                if (!text.contains(packed(block.text())))
                    missing.append(entry.page + u": "_s + block.text());
            }
        }
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(u'\n')));
        QVERIFY(!text.contains(packed(u"دوچرخه"_s)));
        QVERIFY(!ManualPaper::writePdf(pages, m_folder.filePath(u"none/manual.pdf"_s)));
    }
};

static const RegisteredTest<TestManualPages, QApplication> registeredManualPages;
#include "TestManualPages.moc"
