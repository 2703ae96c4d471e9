// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/cars/register/editor/CarBasePageTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

class TestCDlgAddAutomobilInformationBase : public CarBasePageTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }
    void cleanup() { end(); }

    // --- Texts ---

    void everyLabelIsToTheLetter()
    {
        open();
        compareLabels(u"base"_s, form(), *m_dialog->basePage());
    }

    void fixedListsAreToTheLetterAndStoreTheirCodes_data()
    {
        QTest::addColumn<QString>("column");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("code");
        const auto rows = [](const QString &column, const QList<std::pair<QString, int>> &entries) {
            for (qsizetype i = 0; i < entries.size(); ++i)
                QTest::addRow("%s %d", qPrintable(column), int(i)) << column << int(i) << entries.at(i).first << entries.at(i).second;
        };
        rows(u"iFuel"_s, {{u"بنزین"_s, 1}, {u"دوگانه سوز"_s, 2}, {u"گاز"_s, 4}, {u"گازوئیل"_s, 3}, {u"سایر"_s, 5}});
        rows(u"iUsageType"_s, {{u"سواری"_s, 1}, {u"سنگین"_s, 2}});
        rows(u"iTypeDocument"_s, {{u"قولنامه ای"_s, 0}, {u"اجاره ای "_s, 1}});
        QList<std::pair<QString, int>> months{{u"تمام ماه ها"_s, 0}};
        for (int month = 1; month <= 12; ++month)
            months.append({shamsiMonthName(month), month});
        rows(u"iMonth"_s, months);
    }

    void fixedListsAreToTheLetterAndStoreTheirCodes()
    {
        QFETCH(QString, column);
        QFETCH(int, position);
        QFETCH(QString, text);
        QFETCH(int, code);
        open();
        QCOMPARE(form().comboBox(column)->itemText(position), text);
        form().comboBox(column)->setCurrentIndex(position);
        Car car;
        QCOMPARE(saved(car).value(column).toInt(), code);
        m_dialog = m_office->opened(m_dialog->key());
        QCOMPARE(form().comboBox(column)->currentText(), text);
    }

    void fixedListsHaveNoFurtherEntries()
    {
        open();
        QCOMPARE(form().comboBox(u"iFuel"_s)->count(), 5);
        QCOMPARE(form().comboBox(u"iUsageType"_s)->count(), 2);
        QCOMPARE(form().comboBox(u"iTypeDocument"_s)->count(), 2);
        QCOMPARE(form().comboBox(u"iMonth"_s)->count(), 13);
    }

    void codeIsShownAndKept()
    {
        open([](Car &car) { car.m_iCode = 77; });
        KEdit *code = form().edit(u"iCode"_s);
        QVERIFY(code->isReadOnly());
        QCOMPARE(code->integer(), 77);
        Car car;
        QCOMPARE(saved(car).m_iCode, 77);
    }

    // --- Numbers ---

    void yearIsSteppedByArrows()
    {
        open();
        KEdit *year = form().edit(u"iYear"_s);
        QTest::keyClick(year, Qt::Key_Up);
        QCOMPARE(year->integer(), GetShamsiYearOfToday());
        QTest::keyClick(year, Qt::Key_Down);
        Car car;
        QCOMPARE(saved(car).m_iYear, GetShamsiYearOfToday() - 1);
    }

    void unusualYearOrNumberOfWheelsIsAskedAboutOnce()
    {
        Dialog &dialog = open();
        form().edit(u"iYear"_s)->setText(u"3"_s);
        form().edit(u"iNumOfWheels"_s)->setText(u"45"_s);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        dialog.accept();
        QVERIFY(dialog.isVisible());
        QCOMPARE(g_pDlgYesNo->takeShown(),
                 QStringList{u"سال تولید 3 معمول نیست.\nتعداد چرخ 45 معمول نیست.\nمطمئن هستید؟"_s});
        QCOMPARE(dialog.focusWidget(), form().edit(u"iYear"_s));
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        Car car;
        QCOMPARE(saved(car).m_iYear, 3);
        QCOMPARE(car.m_iNumOfWheels, 45);
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
    }

    void usualOrMissingYearAndWheelsAreNotAskedAbout()
    {
        Dialog &dialog = open();
        form().edit(u"iNumOfWheels"_s)->setText(u"6"_s);
        for (const QString &year : {QString(), u"1402"_s, u"2024"_s}) {
            form().edit(u"iYear"_s)->setText(year);
            dialog.accept();
            QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        }
    }

    void numbersOfTheVehicleReadFromTheLeft_data()
    {
        QTest::addColumn<QString>("column");
        for (const char *name : {"sNumOfPlates", "sVIN", "sChassisNum", "sNumOfEngines", "sNumOfBodies"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void numbersOfTheVehicleReadFromTheLeft()
    {
        QFETCH(QString, column);
        const QString plate = u"12 ب 345 ایران 67"_s;
        open([&](Car &car) { car.setValue(column, plate); });
        KEdit *edit = form().edit(column);
        QCOMPARE(edit->layoutDirection(), Qt::LeftToRight);
        QVERIFY(!edit->text().isRightToLeft());
        QCOMPARE(edit->plainText(), plate);
        Car car;
        QCOMPARE(saved(car).value(column).toString(), plate);
    }

    void wrongVinGivesAHintBesideTheFieldAndNoRefusal()
    {
        open();
        KEdit *vin = form().edit(u"sVIN"_s);
        QCOMPARE(m_dialog->basePage()->vinHint(), QString());
        vin->setText(u"1HGCM82643A004352"_s);
        QCOMPARE(m_dialog->basePage()->vinHint(), u"رقم کنترل درست نیست."_s);
        QCOMPARE(vin->accessibleDescription(), m_dialog->basePage()->vinHint());
        vin->setText(u"1HGCM82633A004352"_s);
        QCOMPARE(m_dialog->basePage()->vinHint(), QString());
        vin->setText(u"1HGCM"_s);
        QCOMPARE(m_dialog->basePage()->vinHint(), u"شماره VIN هفده نویسه دارد."_s);
        vin->setText(u"1HGCO"_s);
        QVERIFY(!m_dialog->basePage()->vinHint().isEmpty());
        Car car;
        QCOMPARE(saved(car).m_sVIN, u"1HGCO"_s);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        // The hint is there when the car is opened again.
        m_dialog = m_office->opened(m_dialog->key());
        QVERIFY(!m_dialog->basePage()->vinHint().isEmpty());
    }

    // In the line of its label, so that nothing moves when it appears; it ends where the field ends.
    void hintStandsBesideTheLabelOfTheVin()
    {
        open();
        KEdit *vin = form().edit(u"sVIN"_s);
        const QRect before = vin->geometry();
        vin->setText(u"1HGCM"_s);
        QCoreApplication::processEvents();
        const FieldNote *hint = FieldNote::of(vin);
        QVERIFY(hint->isVisible());
        QCOMPARE(hint->text(), m_dialog->basePage()->vinHint());
        QCOMPARE(vin->geometry(), before);
        const QLabel *label = form().label(u"sVIN"_s);
        QCOMPARE(hint->geometry().top(), label->geometry().top());
        QVERIFY(hint->geometry().bottom() <= vin->geometry().top());
        QVERIFY(hint->geometry().right() < label->geometry().left());
        QCOMPARE(hint->geometry().left(), vin->geometry().left());
    }

    // --- Plate ---

    void plateIsDrawnBesideItsFieldAndOnThePageOfTheSale()
    {
        open([](Car &car) { car.m_sNumOfPlates = u"12 ب 345 ایران 67"_s; });
        const PlatePicture *plate = m_dialog->basePage()->plate();
        QVERIFY(plate->isPlate());
        QCOMPARE(m_dialog->salePage()->plate()->accessibleName(), u"12 ب 345 ایران 67"_s);
        KEdit *field = form().edit(u"sNumOfPlates"_s);
        QVERIFY(plate->geometry().right() < field->geometry().left());
        const QRect before = plate->geometry();
        const QRect behind = form().control(u"sChassisNum"_s)->geometry();
        for (const QString &typed : {u"12 ب"_s, u"تهران 11"_s, QString()}) {
            field->setText(typed);
            QCoreApplication::processEvents();
            QVERIFY2(!plate->isPlate(), qPrintable(typed));
            QVERIFY(!m_dialog->salePage()->plate()->isPlate());
            QCOMPARE(plate->geometry(), before);
            QCOMPARE(form().control(u"sChassisNum"_s)->geometry(), behind);
        }
        field->setText(u"۲۱ د ۶۵۴ - ۷۶"_s);
        QCOMPARE(plate->accessibleName(), u"21 د 654 ایران 76"_s);
        QCOMPARE(m_dialog->salePage()->plate()->accessibleName(), plate->accessibleName());
    }

    void anOlderSpellingStaysUntilItIsTouchedAndThenBecomesTheOne()
    {
        open([](Car &car) { car.m_sNumOfPlates = u"67-345ب12"_s; });
        QVERIFY(m_dialog->basePage()->plate()->isPlate());
        Car car;
        QCOMPARE(saved(car).m_sNumOfPlates, u"67-345ب12"_s);
        m_dialog = m_office->opened(m_dialog->key());
        form().edit(u"sNumOfPlates"_s)->setText(u"۶۷-۳۴۵د۱۲"_s);
        QCOMPARE(saved(car).m_sNumOfPlates, u"12 د 345 ایران 67"_s);
    }

    // --- Insurance ---

    void nameOfTheInsuranceIsTextAndOfferedToTheNextCar()
    {
        open();
        QComboBox *name = form().comboBox(u"sNameInsurance"_s);
        name->setEditText(u"بیمه ایران"_s);
        Car car;
        QCOMPARE(saved(car).m_sNameInsurance, u"بیمه ایران"_s);
        open();
        QCOMPARE(offered(u"sNameInsurance"_s), QStringList{u"بیمه ایران"_s});
        QCOMPARE(form().comboBox(u"sNameInsurance"_s)->currentText(), QString());
    }

    // --- Picture ---

    void pictureIsShownExchangedAndTakenAway()
    {
        QTemporaryDir folder;
        QFile file(folder.filePath(u"car.jpg"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(picture());
        file.close();
        open();
        QVERIFY(m_dialog->basePage()->picture()->isEmpty());
        QVERIFY(m_dialog->basePage()->picture()->takeFile(file.fileName()));
        Car car;
        const QByteArray stored = saved(car).m_oPicture.data;
        QVERIFY(!stored.isEmpty());
        m_dialog = m_office->opened(m_dialog->key());
        KStaticImage *box = m_dialog->basePage()->picture();
        QCOMPARE(box->image().size(), QSize(40, 30));
        QCOMPARE(box->bytes(), stored);
        QVERIFY(box->clear());
        QVERIFY(saved(car).m_oPicture.isEmpty());
    }

    void pictureThatCannotBeDecodedIsKept()
    {
        const QByteArray broken("no picture at all");
        open([&](Car &car) { car.m_oPicture.data = broken; });
        QVERIFY(m_dialog->basePage()->picture()->isBroken());
        form().edit(u"sDesc"_s)->setText(u"چیزی"_s);
        Car car;
        QCOMPARE(saved(car).m_oPicture.data, broken);
        QCOMPARE(car.m_sDesc, u"چیزی"_s);
    }

    void pictureIsOnlyLookedAtWhileTheCarIsShown()
    {
        open([](Car &car) { car.m_oPicture.data = picture(); }, EditorMode::Show);
        QVERIFY(m_dialog->basePage()->picture()->isReadOnly());
        QVERIFY(!m_dialog->basePage()->picture()->image().isNull());
    }

    // --- Archive ---

    void archivedCarTellsByWhomAndWhen()
    {
        open([this](Car &car) {
            car.m_iArchiveUserID = m_office->adminID();
            car.m_dateArchive = QDateTime(QDate(2026, 5, 1), QTime(9, 0), Qt::UTC);
        });
        QStringList texts;
        for (const QLabel *label : m_dialog->basePage()->findChildren<QLabel *>()) {
            if (label->isVisibleTo(m_dialog.get()))
                texts << label->text();
        }
        for (const QString &text : {u"کاربر بايگاني کننده :"_s, u"مدیر"_s,
                                    u"تاريخ بايگاني :"_s, shamsiText(QDate(2026, 5, 1))})
            QVERIFY2(texts.contains(text), qPrintable(text));
    }

    // --- Grid ---

    void bothPagesStandOnTheGrid_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("columns");
        QTest::newRow("wide") << 1366 << 8;
        QTest::newRow("middle") << 960 << 4;
        QTest::newRow("narrow") << 560 << 2;
    }

    void bothPagesStandOnTheGrid()
    {
        QFETCH(int, width);
        QFETCH(int, columns);
        open([](Car &car) { car.m_sNumOfPlates = u"12 ب 345 ایران 67"_s; });
        QCOMPARE(OnGrid::problem(*m_dialog, *m_dialog->basePage(), width, columns), QString());
        Q_EMIT m_dialog->salePage()->frontRequested();
        QCOMPARE(OnGrid::problem(*m_dialog, *m_dialog->salePage(), width, columns), QString());
    }

    // --- Keys ---

    void enterGoesThroughTheFieldsInTheirOrder()
    {
        open();
        QStringList met;
        QWidget *first = form().control(u"dateCreate"_s);
        first->setFocus();
        for (int i = 0; i < 80; ++i) {
            QTest::keyClick(m_dialog->focusWidget(), Qt::Key_Return);
            // On the last field Enter confirms.
            if (!m_dialog->isVisible())
                break;
            const QWidget *now = m_dialog->focusWidget();
            met << (now->objectName().isEmpty() ? now->accessibleName() : now->objectName());
        }
        QStringList expected;
        for (const char *name :
             {"dateIntroduction", "iSource", "iAutomobilType", "iModel", "iBrigade", "iSystem", "iYear", "iMonth", "iColor", "iFuel",
              "iUsageType", "iCountry", "iBodyStatus", "iVolumCylinders", "iNumOfWheels", "iNumOfCylinders", "iCapacity",
              "iNumOFAxles", "sNumOfPlates", "plateKind", "sChassisNum", "sNumOfEngines", "sNumOfBodies", "sVIN", "iFunction", "dAmount",
              "iTypeDocument", "dateInsurance", "sDiscountYears", "sNameInsurance", "sInsuranceStatus", "sAccessories",
              "sFractionalParts", "sDocumentsDelivered", "sDocumentsDeficit", "sFacilities", "sDesc", "sDescSpecial"})
            expected << QString::fromLatin1(name);
        QCOMPARE(met, expected);
        QVERIFY(!m_dialog->isVisible());
    }
};

static const RegisteredTest<TestCDlgAddAutomobilInformationBase, KApplication> registeredCDlgAddAutomobilInformationBase;

#include "TestCDlgAddAutomobilInformationBase.moc"
