// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/contracts/editor/ContractAtWorkTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

// The contract editor as its users meet it: where the focus is, what a refusal says and where it leads, what stays.
class TestContractEditorAtWork : public ContractAtWorkTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

    // --- Texts ---

    void everyLabelIsToTheLetter()
    {
        const int archived = m_office->addContract([](auto &contract) { contract.m_iArchiveUserID = 1; });
        auto dialog = opened(archived, Mode::Show);
        QStringList texts;
        for (const QLabel *label : dialog->basePage()->findChildren<QLabel *>())
            texts << label->text();
        for (const QString &text :
             {u"مبلغ قرارداد :"_s, u"حق کميسيون :"_s,
              u"کميسيون دريافتي از هر طرفين :"_s, u"ماليات :"_s, u"عوارض :"_s,
              u"تخفيف :"_s, u"پرداختي :"_s, u"کد قرارداد :"_s,
              u"شماره سند :"_s, u"تاريخ عقد :"_s, u"تاريخ انقضاء :"_s,
              u"تاريخ تمديد :"_s, u"حوزه ثبتي :"_s, u"مشاور خودرو شماره :"_s,
              u"تعهدات مربوط به طرف اول :"_s, u"تعهدات مربوط به طرف دوم :"_s,
              u"مورد معامله :"_s, u"شرح قرارداد :"_s, u"توضيحات :"_s,
              u"تبصره ها :"_s, u"خلاصه اين قرارداد در صفحه :"_s, u"جلد :"_s,
              u"شماره :"_s, u"و تاريخ :"_s, u"ثبت گرديده است."_s,
              u"کاربر بايگاني کننده :"_s, u"تاريخ بايگاني :"_s, u"شخص قرارداد :"_s,
              u"بموجب :"_s, u"از طرف :"_s, u"نام و نام خانوادگي :"_s,
              u"نام پدر :"_s, u"تاريخ تولد :"_s, u"محل صدور :"_s,
              u"شماره شناسنامه :"_s, u"کد ملي :"_s, u"آدرس :"_s,
              u"تلفن :"_s, u"موبايل :"_s, u"%"_s})
            QVERIFY2(texts.contains(text), qPrintable(text));
        const auto *kinds = dialog->basePage()->form()->comboBox(column("iPersonContract2"));
        QStringList kindTexts;
        for (int i = 0; i < kinds->count(); ++i)
            kindTexts << kinds->itemText(i);
        QCOMPARE(kindTexts, (QStringList{u"عادی"_s, u"نمایشگاه"_s, u"متفرقه"_s}));
        QCOMPARE(dialog->activeBox()->text(), u"فعال"_s);
        QCOMPARE(dialog->unarchiveButton()->text(), u"برگشت از بايگاني"_s);
        QCOMPARE(dialog->carButton()->text(), u"گالري اتومبيل"_s);
    }

    void fieldsThatAreNotDisplayedKeepTheirValues()
    {
        const QDateTime extension(QDate(2027, 1, 1), QTime(0, 0), Qt::UTC);
        const int contract = m_office->addContract([&](auto &row) {
            row.m_dateExtension = extension;
            row.m_sName1 = u"a"_s;
            row.m_sName2 = u"b"_s;
            row.m_dAmount = 5;
            row.m_dCommissionEveryPerson = 77;
        });
        auto dialog = opened(contract, Mode::Edit);
        QVERIFY(!dialog->basePage()->form()->control(column("dateExtension"))->isVisible());
        QVERIFY(!edit(*dialog, "dCommissionEveryPerson")->isVisible());
        fillMatterPage(*dialog->matterPage());
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        CTblAutomobilContracts row;
        QVERIFY(row.IsRecordExist(u"iID"_s, contract));
        QCOMPARE(row.m_dateExtension, extension);
        QCOMPARE(row.m_dCommissionEveryPerson, 77.0);
    }

    // --- Focus ---

    void newContractBeginsAtItsAmountAndAnOldOneAtItsFirstField()
    {
        auto created = opened(Dialog::addPlaceholder(), Mode::New);
        QCOMPARE(created->focusWidget(), edit(*created, "dAmount"));
        auto old = opened(m_office->addContract(), Mode::Edit);
        QCOMPARE(old->focusWidget(), edit(*old, "iCode"));
    }

    void typingAtOnceIntoANewContractGivesTheAmount()
    {
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        QTest::keyClicks(dialog->focusWidget(), u"1000000"_s);
        QCOMPARE(shown(*dialog, "dAmount"), 1000000.0);
        QCOMPARE(shown(*dialog, "dCommission"), 20000.0);
    }

    void refusalShowsThePageThatItIsAbout()
    {
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        dialog->tabs()->setCurrentIndex(tabOf(*dialog, u"پرونده های عمومی"_s));
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا مبلغ قرارداد را وارد نمایید."_s});
        QCOMPARE(dialog->tabs()->currentIndex(), 0);
        QCOMPARE(dialog->focusWidget(), edit(*dialog, "dAmount"));
    }

    void refusedCustomFieldShowsItsPage()
    {
        CTblCustomFields::define(CTblAutomobilContracts::recordKind, u"کارکرد"_s, CTblCustomFields::Number);
        auto dialog = filledNew();
        const int tab = tabOf(*dialog, dialog->findChild<CDlgCustomFields *>()->title());
        dialog->tabs()->setCurrentIndex(tab);
        // The fields are read and laid out now.
        QCoreApplication::processEvents();
        auto *field = named<QLineEdit>(*dialog, u"کارکرد :"_s);
        QVERIFY(field);
        field->setText(u"99999999999999999999"_s);
        dialog->tabs()->setCurrentIndex(0);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(dialog->tabs()->currentIndex(), tab);
        QCOMPARE(dialog->focusWidget(), field);
        field->setText(u"120"_s);
        dialog->tabs()->setCurrentIndex(0);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(value(u"SELECT sValue FROM CustomFieldRecords WHERE iTable=69 AND iRecordID=%1"_s.arg(key())),
                 u"120"_s);
    }

    void savedContractLeavesTheTabsAsTheyWere()
    {
        auto dialog = filledNew();
        const int files = tabOf(*dialog, u"پرونده های شخصی"_s);
        dialog->tabs()->setCurrentIndex(files);
        m_office->database().run(u"RENAME TABLE Docs TO DocsAway"_s);
        dialog->accept();
        m_office->database().run(u"RENAME TABLE DocsAway TO Docs"_s);
        QVERIFY(dialog->isVisible());
        QCOMPARE(dialog->tabs()->currentIndex(), files);
    }

    void pickerOfAMissingPartyLeavesTheFocusOnItsName()
    {
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        type(*dialog, "dAmount", "100");
        dialog->basePage()->firstParty()->takePerson(m_seller);
        TestOffice::whenModal("KDialogHolder", [](QWidget *window) { static_cast<QDialog *>(window)->reject(); });
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا شخص دوم را انتخاب نمایید."_s});
        QCOMPARE(dialog->focusWidget(), dialog->basePage()->secondParty()->personField()->nameEdit());
    }

    void refusedDateHasTheFocus()
    {
        auto dialog = filledNew();
        KDateEdit *date = dialog->basePage()->form()->dateEdit(column("dateContract"));
        date->setDate(QDate(2019, 12, 31));
        dialog->accept();
        QCOMPARE(dialog->focusWidget(), date);
        QCOMPARE(date->date(), QDate(2019, 12, 31));
    }

    // --- Refusals ---

    void requiredEntriesAreAskedForBeforeAnythingElseIsFoundWrong()
    {
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        dialog->basePage()->form()->dateEdit(column("dateExpiration"))->setText(u"1405/13/40"_s);
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا مبلغ قرارداد را وارد نمایید."_s});
    }

    void refusedEntryIsNamed()
    {
        auto dialog = filledNew();
        dialog->basePage()->form()->dateEdit(column("dateExpiration"))->setText(u"1405/13/40"_s);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{u"تاريخ انقضاء : تاریخ نادرست است. نمونه : 1405/08/29"_s});
        QCOMPARE(dialog->focusWidget(), dialog->basePage()->form()->dateEdit(column("dateExpiration")));
    }

    void contractDateThatIsNoDateIsToldAsSuch()
    {
        auto dialog = filledNew();
        dialog->basePage()->form()->dateEdit(column("dateContract"))->setText(u"1405/13/40"_s);
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{u"تاريخ عقد : تاریخ نادرست است. نمونه : 1405/08/29"_s});
        dialog->basePage()->form()->dateEdit(column("dateContract"))->clear();
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا تاریخ عقد را وارد نمایید."_s});
        QVERIFY(dialog->isVisible());
    }

    void nameOfBlanksIsNoName()
    {
        auto dialog = filledNew();
        dialog->basePage()->secondParty()->setKind(PartyKind::Other);
        dialog->basePage()->secondParty()->personField()->nameEdit()->setText(u"   "_s);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا شخص دوم را انتخاب نمایید."_s});
    }

    void discountAboveWhatThePartyOwesIsRefused_data()
    {
        QTest::addColumn<QByteArray>("discount");
        QTest::addColumn<QByteArray>("pays");
        QTest::addColumn<QString>("message");
        QTest::newRow("first party") << QByteArray("dDiscountFirst") << QByteArray("dPayFirst")
                                     << u"تخفیف طرف اول بیشتر از مبلغی است که باید بپردازد."_s;
        QTest::newRow("second party") << QByteArray("dDiscountSecond") << QByteArray("dPaySecond")
                                      << u"تخفیف طرف دوم بیشتر از مبلغی است که باید بپردازد."_s;
    }

    void discountAboveWhatThePartyOwesIsRefused()
    {
        QFETCH(QByteArray, discount);
        QFETCH(QByteArray, pays);
        QFETCH(QString, message);
        auto dialog = filledNew();
        type(*dialog, discount.constData(), "21801");
        QCOMPARE(shown(*dialog, pays.constData()), -1.0);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{message});
        QCOMPARE(dialog->focusWidget(), edit(*dialog, discount.constData()));
        type(*dialog, discount.constData(), "21800");
        QCOMPARE(shown(*dialog, pays.constData()), 0.0);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(value(u"SELECT SUM(dBed)=SUM(dBes) FROM Docs"_s), u"1"_s);
    }

    // --- What is asked about ---

    void unusualDateIsAskedAbout_data()
    {
        QTest::addColumn<QString>("contractDate");
        QTest::addColumn<QString>("expiration");
        QTest::addColumn<QString>("sentence");
        QTest::addColumn<QByteArray>("field");
        QTest::newRow("after the end of the fiscal year")
            << u"1406/01/01"_s << QString() << u"تاریخ عقد پس از پایان سال مالی است."_s << QByteArray("dateContract");
        QTest::newRow("expiry before the contract")
            << u"1405/08/02"_s << u"1405/08/01"_s << u"تاریخ انقضاء پیش از تاریخ عقد است."_s << QByteArray("dateExpiration");
        QTest::newRow("both") << u"1406/01/02"_s << u"1406/01/01"_s
                              << u"تاریخ عقد پس از پایان سال مالی است.\nتاریخ انقضاء پیش از تاریخ عقد است."_s
                              << QByteArray("dateContract");
        QTest::newRow("the last day, expiring on it") << u"1405/12/29"_s << u"1405/12/29"_s << QString() << QByteArray();
    }

    void unusualDateIsAskedAbout()
    {
        QFETCH(QString, contractDate);
        QFETCH(QString, expiration);
        QFETCH(QString, sentence);
        QFETCH(QByteArray, field);
        GetDBSetting()->SetFiscalYear(1405);
        auto dialog = filledNew();
        KForm *form = dialog->basePage()->form();
        form->dateEdit(column("dateContract"))->setText(contractDate);
        form->dateEdit(column("dateExpiration"))->setText(expiration);
        if (!sentence.isEmpty()) {
            g_pDlgYesNo->answerNext(KMessageDialog::No);
            dialog->accept();
            QVERIFY(dialog->isVisible());
            QCOMPARE(g_pDlgYesNo->takeShown(), QStringList{sentence + u"\nمطمئن هستید؟"_s});
            QCOMPARE(dialog->focusWidget(), form->control(QString::fromLatin1(field)));
            QCOMPARE(value(u"SELECT COUNT(*) FROM Docs"_s), u"0"_s);
        }
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(g_pDlgYesNo->takeShown().size(), sentence.isEmpty() ? 0 : 1);
    }

    // --- Notes ---

    void notesArePickedKeptOnePerColumnAndShownAgain()
    {
        auto dialog = filledNew();
        const QStringList notes{u"الف"_s, u"ب"_s};
        pickNotes(*dialog, notes);
        QCOMPARE(dialog->basePage()->notes(), notes);
        QCOMPARE(named<KEdit>(*dialog, u"تبصره ها :"_s)->text(), u"الف، ب"_s);
        dialog->accept();
        QCOMPARE(value(u"SELECT CONCAT_WS('|',sNote1,sNote2,sNote3) FROM AutomobilContracts"_s),
                 u"الف|ب"_s);
        QCOMPARE(opened(key(), Mode::Edit)->basePage()->notes(), notes);
    }

    void noteOfTwentyCharactersIsSavedAndALongerOneRefused_data()
    {
        QTest::addColumn<int>("length");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("20") << 20 << true;
        QTest::newRow("21") << 21 << false;
    }

    void noteOfTwentyCharactersIsSavedAndALongerOneRefused()
    {
        QFETCH(int, length);
        QFETCH(bool, accepted);
        auto dialog = filledNew();
        const QString note(length, u'ت');
        pickNotes(*dialog, {u"الف"_s, note});
        dialog->accept();
        QCOMPARE(!dialog->isVisible(), accepted);
        const QStringList told = g_pDlgWarning->takeShown();
        if (accepted) {
            QVERIFY(told.isEmpty());
            return;
        }
        QCOMPARE(told, QStringList{u"هر تبصره حداکثر 20 نویسه است و این تبصره بلندتر است : "_s + note});
        QCOMPARE(dialog->focusWidget(), named<QPushButton>(*dialog, u"تبصره ها : ..."_s));
        QCOMPARE(dialog->basePage()->notes().size(), 2);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Documents"_s), u"0"_s);
    }

    void eleventhNoteIsRefused()
    {
        auto dialog = filledNew();
        QStringList notes;
        for (int i = 11; i <= 21; ++i)
            notes << QString::number(i);
        pickNotes(*dialog, notes);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"حداکثر 10 تبصره قابل ثبت است."_s});
        QCOMPARE(dialog->focusWidget(), named<QPushButton>(*dialog, u"تبصره ها : ..."_s));
    }

    // --- Closed database ---

    void closedDatabaseRefusesNewAndEdit()
    {
        const int contract = m_office->addContract();
        GetDBSetting()->SetClosedDB(true);
        QVERIFY_THROWS_EXCEPTION(KAccountingError, Dialog::NewContract(nullptr));
        QVERIFY_THROWS_EXCEPTION(KAccountingError, Dialog::EditContract(contract, false, nullptr));
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"1"_s);
    }

    void databaseClosedMeanwhileKeepsWhatWasTypedAndSavesNothing()
    {
        auto dialog = filledNew();
        GetDBSetting()->SetClosedDB(true);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{u"این پایگاه داده بسته شده است و تغییر آن ممکن نیست."_s});
        QCOMPARE(shown(*dialog, "dAmount"), 1000000.0);
        QCOMPARE(value(u"SELECT dAmount FROM AutomobilContracts"_s), u"0"_s);
    }

    void archivedContractOfAClosedDatabaseStaysInTheArchive()
    {
        const int contract = m_office->addContract([](auto &row) { row.m_iArchiveUserID = 1; });
        auto dialog = opened(contract, Mode::Show);
        GetDBSetting()->SetClosedDB(true);
        dialog->unarchiveButton()->click();
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{u"این پایگاه داده بسته شده است و تغییر آن ممکن نیست."_s});
        QVERIFY(dialog->isVisible());
        QVERIFY(!dialog->refreshNeeded());
        QCOMPARE(value(u"SELECT iArchiveUserID FROM AutomobilContracts"_s), u"1"_s);
        QVERIFY(opened(contract, Mode::Show)->unarchiveButton()->isHidden());
    }

    void shownContractGivesItsFieldsAndFilesToReadOnly()
    {
        CTblCustomFields::define(CTblAutomobilContracts::recordKind, u"کارکرد"_s, CTblCustomFields::Text);
        auto dialog = opened(m_office->addContract(), Mode::Show);
        auto *fields = dialog->findChild<CDlgCustomFields *>();
        dialog->tabs()->setCurrentIndex(tabOf(*dialog, fields->title()));
        QVERIFY(named<QLineEdit>(*fields, u"کارکرد :"_s)->isReadOnly());
        QVERIFY(named<QPushButton>(*fields, u"تعریف فیلدها"_s)->isHidden());
        const QList<CDlgFileDocs *> filePages = dialog->findChildren<CDlgFileDocs *>();
        QCOMPARE(filePages.size(), 2);
        for (const CDlgFileDocs *files : filePages) {
            QVERIFY(named<QPushButton>(*files, u"افزودن"_s)->isHidden());
            QVERIFY(named<QPushButton>(*files, u"حذف"_s)->isHidden());
        }
    }

    // --- Saving ---

    void contractWithoutAUserGetsTheOneWhoSavesIt_data()
    {
        QTest::addColumn<int>("stored");
        QTest::newRow("none") << 0;
        QTest::newRow("another user") << 4711;
    }

    void contractWithoutAUserGetsTheOneWhoSavesIt()
    {
        QFETCH(int, stored);
        const int contract = m_office->addContract([stored](auto &row) {
            row.m_iUserID = stored;
            row.m_sName1 = u"a"_s;
            row.m_sName2 = u"b"_s;
            row.m_dAmount = 5;
        });
        auto dialog = opened(contract, Mode::Edit);
        fillMatterPage(*dialog->matterPage());
        dialog->accept();
        QCOMPARE(value(u"SELECT iUserID FROM AutomobilContracts"_s).toInt(),
                 stored == 0 ? m_office->adminID() : stored);
    }

    // One deadlock, once the document already has its number.
    void saveThatMeetsALockConflictRunsAgainAndGivesOneDocument()
    {
        TestDatabase &database = m_office->database();
        database.run(u"CREATE TRIGGER Conflict BEFORE INSERT ON Docs FOR EACH ROW BEGIN "
                     "SET @inserts = IFNULL(@inserts, 0) + 1; IF @inserts = 3 THEN "
                     "SIGNAL SQLSTATE 'HY000' SET MYSQL_ERRNO = 1213; END IF; END"_s);
        auto dialog = filledNew();
        dialog->accept();
        database.run(u"DROP TRIGGER Conflict"_s);
        QVERIFY2(!dialog->isVisible(), qPrintable(g_pDlgWarning->takeShown().join(u'|')));
        QVERIFY(value(u"SELECT @inserts"_s).toInt() > 3);
        const QString number = value(u"SELECT GROUP_CONCAT(iNum) FROM Documents"_s);
        QCOMPARE(value(u"SELECT iDocNum FROM AutomobilContracts"_s), number);
        QCOMPARE(value(u"SELECT COUNT(*)=0 FROM Docs WHERE iDocNum<>%1"_s.arg(number)), u"1"_s);
        QCOMPARE(value(u"SELECT SUM(dBed)=SUM(dBes) FROM Docs"_s), u"1"_s);
        QCOMPARE(g_pDlgMessage->takeShown().size(), 1);
    }

    // --- The code ---

    void codeThatIsEmptyOrAnotherContractsIsRefusedAtItsField_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("message");
        QTest::newRow("empty") << QString() << u"لطفا کد را وارد نمایید."_s;
        QTest::newRow("zero") << u"0"_s << u"لطفا کد را وارد نمایید."_s;
        QTest::newRow("another contract's") << u"41"_s << u"کد 41 از آن ردیف دیگری است. لطفا کد دیگری وارد نمایید."_s;
    }

    void codeThatIsEmptyOrAnotherContractsIsRefusedAtItsField()
    {
        QFETCH(QString, typed);
        QFETCH(QString, message);
        auto dialog = filledNew();
        m_office->addContract([](auto &contract) { contract.m_iCode = 41; });
        dialog->tabs()->setCurrentIndex(1);
        edit(*dialog, "iCode")->setText(typed);
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{message});
        QVERIFY(dialog->isVisible());
        QCOMPARE(dialog->tabs()->currentIndex(), 0);
        QCOMPARE(dialog->focusWidget(), edit(*dialog, "iCode"));
        QCOMPARE(shown(*dialog, "dAmount"), 1'000'000.0);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Documents"_s), u"0"_s);
        edit(*dialog, "iCode")->setText(u"42"_s);
        dialog->accept();
        QVERIFY2(!dialog->isVisible(), qPrintable(g_pDlgWarning->takeShown().join(u'|')));
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iCode ORDER BY iCode) FROM AutomobilContracts"_s), u"41,42"_s);
        g_pDlgMessage->takeShown();
    }
};

static const RegisteredTest<TestContractEditorAtWork, KApplication> registeredContractEditorAtWork;

#include "TestContractEditorAtWork.moc"
