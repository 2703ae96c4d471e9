// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/reports/CDlgReportLayout.h"
#include "suite/accounting/changes/CDlgRowConflict.h"
#include "suite/accounting/reports/CTblReportLayouts.h"
#include "suite/accounting/reports/KWndReportGen.h"
#include "suite/accounting/reports/ReportColumnsModel.h"
#include "suite/accounting/reports/ReportOutput.h"
#include "suite/accounting/reports/ReportProgressWindow.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/suite/accounting/FormDriver.h"
#include "tests/suite/accounting/reports/SampleReport.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/StoredLayout.h"
#include "tests/support/RegisteredTest.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QScrollBar>
#include <QSpinBox>
#include <QTimer>
#include <QTreeView>
#include <QWheelEvent>
#include <QtTest>

using namespace Qt::StringLiterals;

using FormDriver::button;
using FormDriver::click;
using FormDriver::field;

namespace {

const QString group = u"گالری اتومبیل"_s;
const QString name = u"لیست قراردادها"_s;

// Runs work while the report's window is open.
void whileShown(CDlgReportGenerator &generator, const std::function<void()> &work)
{
    bool ran = false;
    QTimer::singleShot(0, &generator, [&] {
        ran = true;
        work();
        generator.reject();
    });
    generator.ShowReport();
    QVERIFY(ran);
}

// How much of the page on screen is printed on, of 1000.
int inkOf(KWndReportGen &pages)
{
    const QImage image = pages.viewport()->grab().toImage();
    int dark = 0, all = 0;
    for (int y = 0; y < image.height(); y += 2) {
        for (int x = 0; x < image.width(); x += 2, ++all)
            dark += qGray(image.pixel(x, y)) < 90;
    }
    return all ? dark * 1000 / all : 0;
}

}

class TestCDlgReportGenerator : public QObject
{
    Q_OBJECT

    TestOffice m_office;

private Q_SLOTS:
    void init()
    {
        m_office.database.run(u"DELETE FROM ReportLayouts"_s);
        for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgYesNo})
            dialog->takeShown();
    }

    void fileIsOfferedByTheListsNameAndDate()
    {
        const QString date = shamsiText(QDate::currentDate()).replace(u'/', u'-');
        QCOMPARE(CDlgReportGenerator::fileName(sampleReport(1), u"pdf"_s), u"لیست قراردادها %1.pdf"_s.arg(date));
        QCOMPARE(CDlgReportGenerator::fileName(ListReport(u"g"_s, u"a/b:c"_s), u"xlsx"_s), u"a-b-c %1.xlsx"_s.arg(date));
    }

    void savedFileIsTold_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("suffix");
        QTest::newRow("PDF") << u"ذخیره PDF"_s << u"pdf"_s;
        QTest::newRow("spreadsheet") << u"صفحه گسترده"_s << u"xlsx"_s;
    }

    void savedFileIsTold()
    {
        QFETCH(QString, command);
        QFETCH(QString, suffix);
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"a."_s + suffix);
        g_pDlgMessage->answerNext(KMessageDialog::No); // the folder stays closed
        CDlgReportGenerator generator(sampleReport(3));
        QString offered;
        whileShown(generator, [&] {
            QTimer::singleShot(0, &generator, [&] {
                auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
                QVERIFY(dialog);
                offered = QFileInfo(dialog->selectedFiles().value(0)).fileName();
                dialog->selectFile(path);
                QMetaObject::invokeMethod(dialog, "accept");
            });
            click(&generator, command);
        });
        QCOMPARE(offered, CDlgReportGenerator::fileName(generator.report(), suffix));
        QVERIFY(QFileInfo(path).size() > 0);
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{u"فایل «a.%1» ذخیره شد."_s.arg(suffix)});
    }

    void paperIsWhiteInEveryLook()
    {
        const auto back = qScopeGuard([] { HostColors::setLook(HostColors::Look::Light); });
        for (const HostColors::Look look : {HostColors::Look::Light, HostColors::Look::Dark}) {
            HostColors::setLook(look);
            CDlgReportGenerator generator(sampleReport(3));
            whileShown(generator, [&] {
                generator.pages()->setFit(KWndReportGen::FitPage);
                const QImage shown = generator.pages()->viewport()->grab().toImage();
                QCOMPARE(shown.pixelColor(8, shown.height() / 2), HostColors::of(HostColors::Role::Window));
                QCOMPARE(shown.pixelColor(shown.width() / 2, 20), QColor(Qt::white));
            });
        }
    }

    void focusOfThePagesShows()
    {
        CDlgReportGenerator generator(sampleReport(3));
        whileShown(generator, [&] {
            const auto shown = [&] { return generator.pages()->viewport()->grab().toImage(); };
            generator.pages()->setFocus();
            QTRY_VERIFY(generator.pages()->hasFocus());
            const QImage with = shown();
            field<QSpinBox>(&generator, u"صفحه"_s)->setFocus();
            QVERIFY(shown() != with);
        });
    }

    void previewTurnsItsPages()
    {
        CDlgReportGenerator generator(sampleReport(200));
        whileShown(generator, [&] {
            const int count = generator.pages()->pageCount();
            QVERIFY(count > 3);
            QVERIFY(generator.windowTitle().contains(u"لیست قراردادها"_s));
            QVERIFY(!button(&generator, u"قبلی"_s)->isEnabled());
            click(&generator, u"بعدی"_s);
            QCOMPARE(generator.pages()->currentPage(), 1);
            click(&generator, u"انتها"_s);
            QCOMPARE(generator.pages()->currentPage(), count - 1);
            QVERIFY(!button(&generator, u"بعدی"_s)->isEnabled());
            auto *page = field<QSpinBox>(&generator, u"صفحه"_s);
            QCOMPARE(page->value(), count);
            QCOMPARE(page->maximum(), count);
            page->setValue(2);
            QCOMPARE(generator.pages()->currentPage(), 1);
            click(&generator, u"ابتدا"_s);
            QTest::keyClick(generator.pages(), Qt::Key_PageDown);
            QCOMPARE(page->value(), 2);
            QTest::keyClick(generator.pages(), Qt::Key_End);
            QCOMPARE(page->value(), count);
            QTest::keyClick(generator.pages(), Qt::Key_Home);
            QCOMPARE(page->value(), 1);
        });
    }

    void previewShowsThePageInEveryScale()
    {
        CDlgReportGenerator generator(sampleReport(60));
        whileShown(generator, [&] {
            KWndReportGen *pages = generator.pages();
            auto *zoom = field<QComboBox>(&generator, u"بزرگنمایی :"_s);
            QCOMPARE(pages->fit(), KWndReportGen::FitWidth);
            QVERIFY2(inkOf(*pages) > 5, qPrintable(QString::number(inkOf(*pages))));
            QCOMPARE(pages->horizontalScrollBar()->maximum(), 0);
            auto choose = [&](const QString &text) {
                zoom->setCurrentText(text);
                Q_EMIT zoom->activated(zoom->currentIndex());
            };
            choose(u"تمام صفحه"_s);
            QCOMPARE(pages->verticalScrollBar()->maximum(), 0);
            const double whole = pages->scale();
            choose(u"200%"_s);
            QCOMPARE(pages->scale(), 2.0);
            QVERIFY(whole < 2);
            QVERIFY(pages->verticalScrollBar()->maximum() > 0);
            QTest::keyClick(pages, Qt::Key_Minus);
            QCOMPARE(pages->scale(), 1.6);
        });
    }

    void everyInputHasAName()
    {
        CDlgReportGenerator generator(sampleReport(1));
        QVERIFY(FormDriver::everyInputHasAName(&generator));
        CDlgReportLayout layout(sampleReport(1));
        QVERIFY(FormDriver::everyInputHasAName(&layout));
    }

    void reportOfElementsUsesTheStoredLayoutWhenThereIsOne()
    {
        const ListReport sample = sampleReport(2);
        ReportLayout stored = sample.layout();
        stored.columns.resize(2);
        for (const bool isDefault : {false, true}) {
            storeLayout(group, name, u"کوتاه"_s, stored, isDefault);
            CDlgReportGenerator generator(group, name);
            generator.SetText(u"Count"_s, u"تعداد : 2"_s);
            generator.SetTable(u"List"_s, sample.columns(), sample.rows());
            QCOMPARE(generator.LoadLayout(), isDefault);
            if (!isDefault)
                generator.BuildListReport(name);
            QCOMPARE(generator.report().shownColumns().size(), isDefault ? 2 : 5);
            QCOMPARE(generator.report().shownTitle(), name);
        }
    }

    void columnsModelKeepsItsContract()
    {
        ReportColumnsModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        ListReport report = sampleReport(1);
        ReportLayout layout = report.layout();
        layout.columns = {{u"مبلغ"_s, 30}, {u"رفته"_s, 0}, {u"نام"_s, 0}};
        model.arrange(report, layout);
        QCOMPARE(model.rowCount(), 5);
        QCOMPARE(model.chosen(), (QVector<ReportLayout::Column>{{u"مبلغ"_s, 30}, {u"نام"_s, 0}}));
        QCOMPARE(model.move(0, 1), 1);
        QCOMPARE(model.move(1, 10), 1);
        QCOMPARE(model.move(0, -1), 0);
        QVERIFY(model.setData(model.index(4, 0), Qt::Checked, Qt::CheckStateRole));
        model.setShare(0, 250);
        QCOMPARE(model.chosen(), (QVector<ReportLayout::Column>{{u"نام"_s, 100}, {u"مبلغ"_s, 30}, {u"توضیحات"_s, 0}}));
    }

    void layoutOfTheFieldsIsWhatWasSet()
    {
        CDlgReportLayout dialog(sampleReport(1));
        QCOMPARE(dialog.layoutOfFields(), sampleReport(1).layout());
        field<KEdit>(&dialog, u"راست بالا :"_s)->setText(u"دفتر ما"_s);
        field<KEdit>(&dialog, u"چپ پایین :"_s)->setText(QString());
        field<KEdit>(&dialog, u"عنوان :"_s)->setText(u"فهرست"_s);
        field<QComboBox>(&dialog, u"جهت کاغذ :"_s)->setCurrentIndex(1);
        field<QSpinBox>(&dialog, u"اندازه قلم :"_s)->setValue(13);
        click(&dialog, u"پایین"_s);
        field<QSpinBox>(&dialog, u"پهنا (درصد) :"_s)->setValue(25);
        const ReportLayout layout = dialog.layoutOfFields();
        QCOMPARE(layout.title, u"فهرست"_s);
        QCOMPARE(layout.texts, (QMap<QString, QString>{{u"RightTop"_s, u"دفتر ما"_s}, {u"LeftBottom"_s, QString()}}));
        QVERIFY(layout.landscape);
        QCOMPARE(layout.fontSize, 13.0);
        QCOMPARE(layout.columns.at(0).title, u"نام"_s);
        QCOMPARE(layout.columns.at(1), (ReportLayout::Column{u"ردیف"_s, 25}));
        dialog.setFields(layout);
        QCOMPARE(dialog.layoutOfFields(), layout);
    }

    void wheelChangesNothingOfALayoutItPassesOver()
    {
        storeLayout(group, name, u"درشت"_s, sampleReport(1).layout(), false);
        storeLayout(group, name, u"ریز"_s, sampleReport(1).layout(), false);
        CDlgReportLayout dialog(sampleReport(1));
        dialog.show();
        field<KEdit>(&dialog, u"عنوان :"_s)->setFocus();
        auto *names = field<QComboBox>(&dialog, u"نام قالب :"_s);
        names->setCurrentIndex(0);
        const ReportLayout before = dialog.layoutOfFields();
        for (QWidget *over : {static_cast<QWidget *>(names), static_cast<QWidget *>(field<QComboBox>(&dialog, u"جهت کاغذ :"_s)),
                              static_cast<QWidget *>(field<QSpinBox>(&dialog, u"اندازه قلم :"_s)),
                              static_cast<QWidget *>(field<QSpinBox>(&dialog, u"پهنا (درصد) :"_s))}) {
            QVERIFY(over->isVisible());
            QCOMPARE(over->focusPolicy(), Qt::StrongFocus);
            for (const int turn : {-120, -120, 120}) {
                const QPointF middle = over->rect().center();
                QWheelEvent wheel(middle, over->mapToGlobal(middle), {}, QPoint(0, turn), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
                QCoreApplication::sendEvent(over, &wheel);
            }
        }
        QCOMPARE(dialog.layoutOfFields(), before);
        QCOMPARE(names->currentIndex(), 0);
    }

    void layoutIsSavedByNameLoadedAndDeleted()
    {
        CDlgReportLayout dialog(sampleReport(1));
        auto *names = field<QComboBox>(&dialog, u"نام قالب :"_s);
        field<QSpinBox>(&dialog, u"اندازه قلم :"_s)->setValue(14);
        names->setEditText(u"درشت"_s);
        dialog.findChild<QCheckBox *>()->setChecked(true);
        click(&dialog, u"ذخیره"_s);
        QVERIFY(dialog.storedChanged());
        QCOMPARE(CTblReportLayouts::load(group, name)->fontSize, 14.0);

        // Another window finds it, the default chosen, and its fields follow the chosen name.
        CDlgReportLayout other(sampleReport(1));
        auto *otherNames = field<QComboBox>(&other, u"نام قالب :"_s);
        QCOMPARE(otherNames->currentText(), u"درشت"_s);
        QVERIFY(other.findChild<QCheckBox *>()->isChecked());
        QCOMPARE(other.layoutOfFields().fontSize, 9.0);
        Q_EMIT otherNames->textActivated(u"درشت"_s);
        QCOMPARE(other.layoutOfFields().fontSize, 14.0);

        g_pDlgYesNo->answerNext(KMessageDialog::No);
        click(&other, u"حذف"_s);
        QCOMPARE(CTblReportLayouts::entries(group, name).size(), 1);
        click(&other, u"حذف"_s);
        QCOMPARE(CTblReportLayouts::entries(group, name).size(), 0);
        QCOMPARE(otherNames->count(), 0);
        QVERIFY(!button(&other, u"حذف"_s)->isEnabled());
    }

    void savedNameIsReplacedOnlyWhenAgreed()
    {
        storeLayout(group, name, u"درشت"_s, sampleReport(1).layout(), false);
        CDlgReportLayout dialog(sampleReport(1));
        field<QComboBox>(&dialog, u"نام قالب :"_s)->setEditText(u"درشت"_s);
        field<QSpinBox>(&dialog, u"اندازه قلم :"_s)->setValue(14);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        click(&dialog, u"ذخیره"_s);
        QCOMPARE(CTblReportLayouts::load(group, name, u"درشت"_s)->fontSize, 9.0);
        click(&dialog, u"ذخیره"_s);
        QCOMPARE(CTblReportLayouts::load(group, name, u"درشت"_s)->fontSize, 14.0);
    }

    void layoutThatAnotherDeskKeptMeanwhileIsAskedAbout()
    {
        const auto stored = [] { return CTblReportLayouts::load(group, name, u"درشت"_s)->fontSize; };
        ReportLayout theirs = sampleReport(1).layout();
        storeLayout(group, name, u"درشت"_s, theirs, false);
        CDlgReportLayout dialog(sampleReport(1));
        field<QComboBox>(&dialog, u"نام قالب :"_s)->setEditText(u"درشت"_s);
        field<QSpinBox>(&dialog, u"اندازه قلم :"_s)->setValue(14);
        theirs.fontSize = 11;
        storeLayout(group, name, u"درشت"_s, theirs, false);
        CDlgRowConflict::answerNext(CDlgRowConflict::Answer::GoBack);
        click(&dialog, u"ذخیره"_s);
        QCOMPARE(stored(), 11.0);
        const QStringList shown = CDlgRowConflict::takeShown();
        QVERIFY2(shown.size() == 1 && shown.constFirst().startsWith(u"قالب: "_s) && shown.constFirst().contains(u"قلم 14"_s),
                 qPrintable(shown.join(u'\n')));
        CDlgRowConflict::answerNext(CDlgRowConflict::Answer::TakeMine);
        click(&dialog, u"ذخیره"_s);
        QCOMPARE(stored(), 14.0);
    }

    void nameThatAnotherDeskTookMeanwhileIsNotReplacedUnasked()
    {
        CDlgReportLayout dialog(sampleReport(1));
        field<QComboBox>(&dialog, u"نام قالب :"_s)->setEditText(u"درشت"_s);
        field<QSpinBox>(&dialog, u"اندازه قلم :"_s)->setValue(14);
        storeLayout(group, name, u"درشت"_s, sampleReport(1).layout(), false);
        g_pDlgYesNo->takeShown();
        click(&dialog, u"ذخیره"_s);
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(CTblReportLayouts::load(group, name, u"درشت"_s)->fontSize, 9.0);
        // The next try asks, as for every name that is there.
        click(&dialog, u"ذخیره"_s);
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
        QCOMPARE(CTblReportLayouts::load(group, name, u"درشت"_s)->fontSize, 14.0);
    }

    void layoutWithoutNameOrColumnsIsRefused()
    {
        CDlgReportLayout dialog(sampleReport(1));
        click(&dialog, u"ذخیره"_s);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا نام قالب را وارد نمایید."_s});
        auto *model = dialog.findChild<ReportColumnsModel *>();
        for (int row = 0; row < model->rowCount(); ++row)
            model->setData(model->index(row, 0), Qt::Unchecked, Qt::CheckStateRole);
        field<QComboBox>(&dialog, u"نام قالب :"_s)->setEditText(u"تهی"_s);
        click(&dialog, u"ذخیره"_s);
        dialog.accept();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 2);
        QCOMPARE(dialog.result(), 0);
        QVERIFY(CTblReportLayouts::entries(group, name).isEmpty());
    }

    void layoutIsArrangedFromThePreview()
    {
        CDlgReportGenerator generator(sampleReport(200));
        whileShown(generator, [&] {
            const int before = generator.pages()->pageCount();
            QTimer::singleShot(0, &generator, [] {
                auto *dialog = qobject_cast<CDlgReportLayout *>(QApplication::activeModalWidget());
                QVERIFY(dialog);
                field<QSpinBox>(dialog, u"اندازه قلم :"_s)->setValue(20);
                dialog->accept();
            });
            click(&generator, u"چیدمان گزارش"_s);
            QCOMPARE(generator.report().layout().fontSize, 20.0);
            QVERIFY(generator.pages()->pageCount() > before);
            QVERIFY(CTblReportLayouts::entries(group, name).isEmpty());
        });
    }

    void closedDatabaseKeepsItsLayouts()
    {
        GetDBSetting()->SetClosedDB(true);
        CDlgReportGenerator generator(sampleReport(1));
        GetDBSetting()->SetClosedDB(false);
        QVERIFY(button(&generator, u"چیدمان گزارش"_s)->isHidden());
        QVERIFY(!button(&generator, u"ذخیره PDF"_s)->isHidden());
    }

    void databaseClosedMeanwhileKeepsItsLayouts()
    {
        storeLayout(group, name, u"درشت"_s, sampleReport(1).layout(), false);
        CDlgReportLayout dialog(sampleReport(1));
        GetDBSetting()->SetClosedDB(true);
        auto *names = field<QComboBox>(&dialog, u"نام قالب :"_s);
        names->setEditText(u"تازه"_s);
        click(&dialog, u"ذخیره"_s);
        names->setEditText(u"درشت"_s);
        click(&dialog, u"حذف"_s);
        GetDBSetting()->SetClosedDB(false);
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList(2, u"این پایگاه داده بسته شده است و تغییر آن ممکن نیست."_s));
        QVERIFY(!dialog.storedChanged());
        QCOMPARE(CTblReportLayouts::entries(group, name).size(), 1);
    }

    void longWorkIsStoppedByItsButtonAndLeavesNoFile()
    {
        const ListReport report = sampleReport(5'000);
        ReportProgressWindow progress(u"در حال نوشتن فایل PDF ..."_s, nullptr, 0);
        QTimer::singleShot(0, qApp, [] {
            for (QWidget *window : QApplication::topLevelWidgets()) {
                if (qobject_cast<QProgressDialog *>(window) && window->isVisible())
                    click(window, u"انصراف"_s);
            }
        });
        const QString path = m_office.folder.filePath(u"list.pdf"_s);
        QVERIFY(!ReportOutput::writePdf(report, path, progress.callback()));
        QVERIFY(!QFile::exists(path));
    }

    void shortWorkShowsNoProgress()
    {
        bool shown = false;
        ReportProgressWindow progress(u"در حال چاپ ..."_s, nullptr);
        const ReportProgress report = progress.callback();
        for (int i = 0; i < 10; ++i) {
            QTest::qSleep(20);
            QVERIFY(report(i, 10));
            for (QWidget *window : QApplication::topLevelWidgets())
                shown = shown || (qobject_cast<QProgressDialog *>(window) && window->isVisible());
        }
        QVERIFY(!shown);
    }
};

static const RegisteredTest<TestCDlgReportGenerator, QApplication> registeredCDlgReportGenerator;
#include "TestCDlgReportGenerator.moc"
