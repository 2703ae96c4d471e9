// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/keeping/BackupFields.h"

#include "host/keeping/BackupSettings.h"
#include "host/keeping/BackupsHere.h"
#include "host/keeping/CDlgBackupPassphrase.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/db/connection/KConnection.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/frame/FolderChoice.h"
#include "suite/utility/look/LookFonts.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

QString settingName(const OfficeSettings::Key &key)
{
    return SettingsEdit::nameOf(key.section, key.key);
}

bool hasPrivateServer()
{
    return KConnection::settings(0).socketPath.size() > 0;
}

QLabel *hint(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setWordWrap(true);
    LookFonts::applyHint(label);
    return label;
}

}

BackupFields::BackupFields(const DataFolder &folder, bool isAdmin, bool isClosed, CardPage *page)
    : QObject(page)
    , m_folder(folder)
    , m_window(page->window())
    , m_isAdmin(isAdmin)
    , m_isClosed(isClosed)
{
    FormGrid *office = page->addForm(u"پشتیبان خودکار"_s);
    placeOffice(office);
    office->parentWidget()->setEnabled(isAdmin && !isClosed);
    FormGrid *here = page->addForm(u"پشتیبان‌های این رایانه"_s);
    placeHere(here);
    here->parentWidget()->setEnabled(isAdmin);
}

KEdit *BackupFields::addNumber(FormGrid *grid, const QString &caption, int least, int most)
{
    auto *edit = new KEdit(KEdit::Kind::Integer, grid->parentWidget());
    edit->setRange(least, most);
    addLabelled(grid, caption, edit);
    return edit;
}

void BackupFields::placeOffice(FormGrid *grid)
{
    m_hours = addNumber(grid, u"فاصله پشتیبان‌ها (ساعت) :"_s, 0, BackupSettings::mostHours);
    m_atClosing = new QCheckBox(u"هنگام بستن برنامه، اگر چیزی تغییر کرده باشد"_s, grid->parentWidget());
    m_atClosing->setAccessibleName(m_atClosing->text());
    grid->addCell(m_atClosing, 3);
    m_daily = addNumber(grid, u"روزانه‌های نگهداری شده :"_s, 1, BackupSettings::mostKept);
    m_weekly = addNumber(grid, u"هفتگی‌ها :"_s, 0, BackupSettings::mostKept);
    m_monthly = addNumber(grid, u"ماهانه‌ها :"_s, 0, BackupSettings::mostKept);
    m_binDays = addNumber(grid, u"روزهای سطل بازیافت :"_s, 1, BackupSettings::mostBinDays);
    grid->addLine(hint(u"فاصله صفر یعنی پشتیبان فقط هنگام بستن برنامه و با دستور شما گرفته می‌شود."_s, grid->parentWidget()));
}

void BackupFields::placeHere(FormGrid *grid)
{
    QWidget *card = grid->parentWidget();
    m_here = new QCheckBox(u"این رایانه خودکار پشتیبان می‌گیرد"_s, card);
    m_changeLog = new QCheckBox(u"نگهداری تغییرهای میان دو پشتیبان (بازگشت تا آخرین دقیقه)"_s, card);
    for (QCheckBox *box : {m_here, m_changeLog}) {
        box->setAccessibleName(box->text());
        grid->addCell(box, 4);
    }
    m_changeLog->setToolTip(u"از اجرای بعدی برنامه؛ ذخیره‌ها اندکی کندتر می‌شود و فضای بیشتری از دیسک گرفته می‌شود."_s);
    m_changeLog->setVisible(hasPrivateServer());
    placeSecondFolder(grid);
    m_passphrase = new QPushButton(card);
    m_passphrase->setAutoDefault(false);
    m_passphrase->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(m_passphrase, &QPushButton::clicked, this, &BackupFields::choosePassphrase);
    grid->startRow();
    grid->addCell(m_passphrase, 4);
    showPassphrase();
}

void BackupFields::placeSecondFolder(FormGrid *grid)
{
    QWidget *card = grid->parentWidget();
    m_second = new KEdit(card);
    m_second->setMaxLength(1000);
    m_second->setPlaceholderText(u"هر پشتیبان در این پوشه هم نوشته می‌شود"_s);
    auto *choose = new QPushButton(u"انتخاب پوشه"_s, card);
    choose->setAccessibleName(choose->text());
    choose->setAutoDefault(false);
    connect(choose, &QPushButton::clicked, this, [this] {
        const QString folder = ShowBrowseForFolder(m_window->window(), u"پوشه دوم پشتیبان‌ها"_s);
        if (!folder.isEmpty())
            m_second->setText(folder);
    });
    grid->startRow();
    addLabelled(grid, u"پوشه دوم (دیسک جدا یا شبکه) :"_s, m_second, 3);
    grid->addCell(choose);
}

void BackupFields::choosePassphrase()
{
    CDlgBackupPassphrase(m_folder, m_window->window()).exec();
    showPassphrase();
}

void BackupFields::showPassphrase()
{
    m_passphrase->setText(BackupPassphrase(m_folder).isSet() ? u"تغییر رمز پشتیبان‌ها"_s : u"رمزنگاری پشتیبان‌ها"_s);
    m_passphrase->setAccessibleName(m_passphrase->text());
}

QStringList BackupFields::sections()
{
    return BackupSettings::sections();
}

QList<SettingsEdit::Setting> BackupFields::settings()
{
    const auto setting = [](const OfficeSettings::Key &key, const QString &caption) {
        return SettingsEdit::Setting{key.section.toString(), key.key.toString(), caption};
    };
    return {setting(BackupSettings::hoursKey, u"فاصله پشتیبان‌ها (ساعت)"_s),
            setting(BackupSettings::atClosingKey, u"پشتیبان هنگام بستن برنامه"_s),
            setting(BackupSettings::dailyKey, u"پشتیبان‌های روزانه"_s),
            setting(BackupSettings::weeklyKey, u"پشتیبان‌های هفتگی"_s),
            setting(BackupSettings::monthlyKey, u"پشتیبان‌های ماهانه"_s),
            setting(BackupSettings::binDaysKey, u"روزهای سطل بازیافت"_s)};
}

void BackupFields::load(const OfficeSettings &read)
{
    const BackupSettings stored = BackupSettings::of(read);
    m_hours->setNumber(stored.hours);
    m_atClosing->setChecked(stored.atClosing);
    m_daily->setNumber(stored.daily);
    m_weekly->setNumber(stored.weekly);
    m_monthly->setNumber(stored.monthly);
    m_binDays->setNumber(stored.binDays);
    m_here->setChecked(BackupsHere::takesByItself(hasPrivateServer(), m_isAdmin));
    m_changeLog->setChecked(BackupsHere::keepsChangeLog());
    m_second->setText(BackupsHere::secondFolder());
}

QString BackupFields::problem()
{
    if (!m_isAdmin)
        return {};
    for (KEdit *number : {m_hours, m_daily, m_weekly, m_monthly, m_binDays}) {
        if (m_isClosed || (number->isEntryValid() && !number->text().isEmpty()))
            continue;
        number->setFocus();
        return u"لطفا «%1» را درست وارد نمایید."_s.arg(number->accessibleName().chopped(2));
    }
    const QString second = m_second->text().trimmed();
    if (second.isEmpty() || second == BackupsHere::secondFolder())
        return {};
    const QFileInfo folder(second);
    QString problem;
    if (!folder.isDir() || !folder.isAbsolute())
        problem = u"پوشه دوم پشتیبان‌ها پیدا نشد؛ دیسک آن را وصل یا پوشه دیگری انتخاب نمایید."_s;
    else if (!folder.isWritable())
        problem = u"در پوشه دوم پشتیبان‌ها نمی‌توان نوشت؛ پوشه دیگری انتخاب نمایید."_s;
    else if (folder.canonicalFilePath() == QFileInfo(m_folder.backupsPath()).canonicalFilePath())
        problem = u"پوشه دوم همان پوشه پشتیبان‌هاست؛ پوشه‌ای روی دیسکی دیگر انتخاب نمایید."_s;
    if (!problem.isEmpty())
        m_second->setFocus();
    return problem;
}

void BackupFields::write(SettingsEdit &edit) const
{
    if (!m_isAdmin || m_isClosed)
        return;
    const auto set = [&edit](const OfficeSettings::Key &key, int number) { edit.setText(key.section, key.key, QString::number(number)); };
    set(BackupSettings::hoursKey, m_hours->integer());
    set(BackupSettings::atClosingKey, int(m_atClosing->isChecked()));
    set(BackupSettings::dailyKey, m_daily->integer());
    set(BackupSettings::weeklyKey, m_weekly->integer());
    set(BackupSettings::monthlyKey, m_monthly->integer());
    set(BackupSettings::binDaysKey, m_binDays->integer());
}

void BackupFields::requireMayChange(SettingsEdit &edit) const
{
    const OfficeSettings stored = OfficeSettings::read(sections());
    const QList<SettingsEdit::Setting> all = settings();
    for (const SettingsEdit::Setting &setting : all) {
        if (edit.text(setting.section, setting.key) != stored.text(setting.section, setting.key, {}))
            return CTblUsers::requireAdministrator();
    }
}

void BackupFields::storeHere() const
{
    if (!m_isAdmin)
        return;
    if (m_here->isChecked() != BackupsHere::takesByItself(hasPrivateServer(), m_isAdmin))
        BackupsHere::setTakesByItself(m_here->isChecked());
    if (m_changeLog->isChecked() != BackupsHere::keepsChangeLog())
        BackupsHere::setKeepsChangeLog(m_changeLog->isChecked());
    if (const QString second = m_second->text().trimmed(); second != BackupsHere::secondFolder())
        BackupsHere::setSecondFolder(second);
}

QWidget *BackupFields::fieldOf(const QString &setting) const
{
    const QHash<QString, QWidget *> fields{{settingName(BackupSettings::hoursKey), m_hours},
                                           {settingName(BackupSettings::atClosingKey), m_atClosing},
                                           {settingName(BackupSettings::dailyKey), m_daily},
                                           {settingName(BackupSettings::weeklyKey), m_weekly},
                                           {settingName(BackupSettings::monthlyKey), m_monthly},
                                           {settingName(BackupSettings::binDaysKey), m_binDays}};
    return fields.value(setting);
}
