// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/web/CDlgWebGallery.h"
#include "auto/cars/web/PublicCars.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TwoDesks.h"

#include <QComboBox>
#include <QDir>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString galleryForm = u"AutomobilInformations"_s;

template <class Control>
Control *named(const QWidget &window, const QString &name)
{
    for (Control *control : window.findChildren<Control *>()) {
        if (control->accessibleName() == name)
            return control;
    }
    qFatal("the window has no %s", qPrintable(name));
}

}

// The window "خروجی وب".
class TestCDlgWebGallery : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<QTemporaryDir> m_dir;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    void run(const QString &statement) { m_office->database().run(statement); }
    QString target() const { return m_dir->filePath(u"web"_s); }
    QByteArray page() const
    {
        QFile file(target() + u"/index.html"_s);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void addShown()
    {
        PublicCars::set({m_office->addCar([](auto &car) { car.m_dAmount = 555'000'000; })}, true);
    }
    static KEdit *title(const QWidget &window) { return named<KEdit>(window, u"عنوان صفحه :"_s); }
    static KEdit *telephone(const QWidget &window) { return named<KEdit>(window, u"تلفن :"_s); }
    static KEdit *folderField(const QWidget &window) { return named<KEdit>(window, u"پوشه خروجی :"_s); }
    static QComboBox *prices(const QWidget &window) { return named<QComboBox>(window, u"قیمت‌ها :"_s); }
    QString stored() { return value(u"SELECT GROUP_CONCAT(CONCAT(sKey,'=',sValue) ORDER BY sKey SEPARATOR '/') FROM Properties WHERE sSection='WebGallery'"_s); }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_dir = std::make_unique<QTemporaryDir>();
        CompanyDetails office;
        office.name1 = u"نمایشگاه مهر"_s;
        office.telephone = u"021-5555"_s;
        office.city = u"تهران"_s;
        office.address = u"خیابان آزادی"_s;
        office.write();
    }

    void beginsWithWhatTheOfficeSaysOfItself()
    {
        const CDlgWebGallery window;
        QCOMPARE(title(window)->text(), u"نمایشگاه مهر"_s);
        QCOMPARE(telephone(window)->text(), u"021-5555"_s);
        QCOMPARE(named<KEdit>(window, u"آدرس :"_s)->text(), u"تهران، خیابان آزادی"_s);
        QCOMPARE(prices(window)->currentText(), u"با قیمت"_s);
        // A city that the address names is not said twice.
        run(u"UPDATE Properties SET sValue='تهران، خیابان آزادی' WHERE sSection='Company' AND sKey='address'"_s);
        const CDlgWebGallery again;
        QCOMPARE(named<KEdit>(again, u"آدرس :"_s)->text(), u"تهران، خیابان آزادی"_s);
    }

    void writesThePageAndRemembers()
    {
        addShown();
        CDlgWebGallery window;
        window.show();
        window.setFolder(target());
        telephone(window)->clear();
        prices(window)->setCurrentIndex(1);
        window.accept();
        QVERIFY(window.isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
        QVERIFY2(window.outcome().startsWith(u"نوشته شد: 1 خودرو"_s), qPrintable(window.outcome()));
        QVERIFY(page().contains(u"نمایشگاه مهر"_s.toUtf8()));
        QVERIFY(!page().contains("555000000") && !page().contains("021-5555"));
        QVERIFY(named<QPushButton>(window, u"باز کردن صفحه"_s)->isEnabled());
        // The next desk has the office's settings, an emptied telephone among them; this user his folder.
        const CDlgWebGallery next;
        QCOMPARE(telephone(next)->text(), QString());
        QCOMPARE(prices(next)->currentText(), u"توافقی"_s);
        QCOMPARE(next.folder(), target());
        m_office->logInAs(u"sima"_s, galleryForm, KSecurity::allRights);
        const CDlgWebGallery hers;
        QCOMPARE(hers.folder(), QString());
        QCOMPARE(prices(hers)->currentText(), u"توافقی"_s);
    }

    void pressedTwiceWritesTheSame()
    {
        addShown();
        CDlgWebGallery window;
        window.show();
        window.setFolder(target());
        window.accept();
        const QByteArray first = page();
        window.accept();
        QCOMPARE(page(), first);
        QCOMPARE(QDir(m_dir->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList{u"web"_s});
    }

    void wrongEntriesAreSaidOnTheirField_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("told");
        QTest::addColumn<bool>("atTitle");
        QTest::newRow("no title") << u" "_s << u"web"_s << u"لطفا عنوان صفحه را وارد نمایید."_s << true;
        QTest::newRow("no folder") << u"مهر"_s << QString() << u"لطفا پوشه خروجی را انتخاب نمایید."_s << false;
        QTest::newRow("a folder of nowhere") << u"مهر"_s << u"none/web"_s << u"پیدا نشد"_s << false;
        QTest::newRow("a file") << u"مهر"_s << u"letter.odt"_s << u"پوشه نیست"_s << false;
        QTest::newRow("a folder with other things") << u"مهر"_s << u"letters"_s << u"خالی نیست"_s << false;
    }
    void wrongEntriesAreSaidOnTheirField()
    {
        QFETCH(QString, title);
        QFETCH(QString, folder);
        QFETCH(QString, told);
        QFETCH(bool, atTitle);
        addShown();
        QVERIFY(QDir(m_dir->path()).mkdir(u"letters"_s));
        for (const QString &name : {u"letter.odt"_s, u"letters/one.odt"_s}) {
            QFile letter(m_dir->filePath(name));
            QVERIFY(letter.open(QIODevice::WriteOnly) && letter.write("letter") == 6);
        }
        CDlgWebGallery window;
        window.show();
        this->title(window)->setText(title);
        window.setFolder(folder.isEmpty() ? folder : m_dir->filePath(folder));
        window.accept();
        const QStringList shown = g_pDlgWarning->takeShown();
        QCOMPARE(shown.size(), 1);
        QVERIFY2(shown.constFirst().contains(told), qPrintable(shown.constFirst()));
        QCOMPARE(window.focusWidget(), atTitle ? this->title(window) : folderField(window));
        QVERIFY(window.isVisible());
        QCOMPARE(QDir(m_dir->filePath(u"letters"_s)).entryList(QDir::Files), QStringList{u"one.odt"_s});
        QCOMPARE(this->title(window)->text(), title);
    }

    // All sold: the old page would go on offering them, so one without cars is written when the user says so.
    void aPageWithoutCarsIsAskedFor()
    {
        CDlgWebGallery window;
        window.show();
        window.setFolder(target());
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        window.accept();
        QVERIFY(!QDir(target()).exists());
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        window.accept();
        QVERIFY(page().contains("<html"));
        QVERIFY(window.outcome().startsWith(u"نوشته شد: 0 خودرو"_s));
    }

    void whoMayNotTakeTheListOutIsRefused()
    {
        m_office->logInAs(u"clerk"_s, galleryForm, KSecurity::allRights & ~KSecurity::PrintList);
        CDlgWebGallery::Show(nullptr);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(galleryForm, KSecurity::PrintList)});
        // Taken away while the window was open.
        addShownAsAdmin();
        CDlgWebGallery window;
        window.show();
        window.setFolder(target());
        window.accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(galleryForm, KSecurity::PrintList)});
        QVERIFY(!QDir(target()).exists());
    }

    // He writes the page as the office has it.
    void whoMayNotChangeCarsWritesWhatTheOfficeSays()
    {
        addShown();
        m_office->logInAs(u"clerk"_s, galleryForm, KSecurity::allRights & ~KSecurity::Modify);
        CDlgWebGallery window;
        window.show();
        QVERIFY(!title(window)->isEnabled());
        window.setFolder(target());
        window.accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
        QVERIFY(page().contains(u"نمایشگاه مهر"_s.toUtf8()));
        QCOMPARE(stored(), QString());
    }

    void anotherDeskChangedTheSettings_data()
    {
        QTest::addColumn<bool>("mine");
        QTest::newRow("mine") << true;
        QTest::newRow("theirs") << false;
    }
    void anotherDeskChangedTheSettings()
    {
        QFETCH(bool, mine);
        addShown();
        {
            CDlgWebGallery first;
            first.show();
            first.setFolder(target());
            first.accept();
        }
        CDlgWebGallery window;
        window.show();
        window.setFolder(target());
        title(window)->setText(u"عنوان من"_s);
        run(u"UPDATE Properties SET sValue='عنوان دیگری' WHERE sSection='WebGallery' AND sKey='sTitle'"_s);
        run(u"UPDATE Properties SET sValue='0' WHERE sSection='WebGallery' AND sKey='bPrices'"_s);
        CDlgRowConflict::takeShown();
        CDlgRowConflict::answerNext(mine ? CDlgRowConflict::Answer::TakeMine : CDlgRowConflict::Answer::TakeTheirs);
        window.accept();
        QCOMPARE(CDlgRowConflict::takeShown().isEmpty(), false);
        QVERIFY(page().contains((mine ? u"عنوان من"_s : u"عنوان دیگری"_s).toUtf8()));
        // That prices are not to be shown holds, whoever says so.
        QVERIFY(!page().contains("555000000"));
        QCOMPARE(prices(window)->currentText(), u"توافقی"_s);
    }

private:
    void addShownAsAdmin()
    {
        const int user = GetDBSetting()->GetUserID();
        m_office->logInAsAdmin();
        addShown();
        if (!GetDBSetting()->Login(user))
            qFatal("the user could not log in again");
        KSecurity::forgetRights();
    }
};

static const RegisteredTest<TestCDlgWebGallery, KApplication> registeredCDlgWebGallery;
#include "TestCDlgWebGallery.moc"
