// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/SettingsEdit.h"

#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/records/KChangeLog.h"

#include <QMap>

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 noKey = -1; // it is one and always there

QString kindOf(const QString &section)
{
    return u"Properties:"_s + section;
}

// Keys say by their first letter what their text stands for: "bClosed", "dPercentCommission", "iHours", "dateOpening".
QVariant noted(const SettingsEdit::Setting &setting, const QString &text)
{
    if (text.isEmpty())
        return {};
    if (!setting.words.isEmpty())
        return setting.words.value(text.toInt(), text);
    const QChar kind = setting.key.size() > 1 && setting.key.at(1).isUpper() ? setting.key.front() : QChar();
    return kind == u'b' ? QVariant(text != "0"_L1) : kind == u'd' ? QVariant(text.toDouble())
                                                                  : QVariant(text);
}

QList<CTblValues::Field> fieldsOf(const QList<SettingsEdit::Setting> &settings)
{
    QList<CTblValues::Field> fields;
    for (const SettingsEdit::Setting &setting : settings)
        fields.append({SettingsEdit::nameOf(setting.section, setting.key), setting.caption});
    return fields;
}

}

SettingsEdit::SettingsEdit(const OfficeSettings &read, const QList<Setting> &settings, QList<QStringList> groups, int database)
    : SettingsEdit(read, settings, std::move(groups),
                   std::make_unique<CTblValues>(kindOf(settings.constFirst().section), fieldsOf(settings), database))
{
}

SettingsEdit::SettingsEdit(const OfficeSettings &read, const QList<Setting> &settings, QList<QStringList> groups,
                           std::unique_ptr<CTblValues> values)
    : RowEdit(*values, noKey, std::move(groups))
    , m_settings(settings)
    , m_values(std::move(values))
{
    take(read);
}

SettingsEdit::~SettingsEdit() = default;

QString SettingsEdit::nameOf(QStringView section, QStringView key)
{
    return section.toString() + u'/' + key.toString();
}

QString SettingsEdit::text(QStringView section, QStringView key)
{
    return m_values->text(nameOf(section, key));
}

void SettingsEdit::setText(QStringView section, QStringView key, const QString &text)
{
    m_values->setText(nameOf(section, key), text);
}

void SettingsEdit::take(const OfficeSettings &read)
{
    for (const Setting &setting : std::as_const(m_settings))
        setText(setting.section, setting.key, read.text(setting.section, setting.key, {}));
}

bool SettingsEdit::isRefusedWhenClosed() const
{
    return !m_changesClosed || OfficeSettings::isOnlyRead();
}

// Nobody else is here; the rows themselves cannot be locked, because some are not there before they are set.
void SettingsEdit::lockRow()
{
    QStringList sections;
    for (const Setting &setting : std::as_const(m_settings)) {
        if (!sections.contains(setting.section))
            sections.append(setting.section);
    }
    take(OfficeSettings::read(sections, m_values->database()));
    m_stored = m_values->rowValues();
}

void SettingsEdit::storeRow()
{
    QMap<QString, QList<KChangedValue>> changed;
    for (const Setting &setting : std::as_const(m_settings)) {
        const QString wanted = text(setting.section, setting.key);
        const QVariant stored = m_stored.value(nameOf(setting.section, setting.key));
        if (isSameValue(stored, wanted))
            continue;
        CTblProperties::DBWriteSetting(setting.section, setting.key, wanted, m_values->database());
        changed[setting.section].append({setting.caption, noted(setting, stored.toString()), noted(setting, wanted), setting.isSecret});
    }
    if (!changed.isEmpty())
        changed.insert(m_settings.constFirst().section, changed.value(m_settings.constFirst().section));
    for (auto section = changed.cbegin(); section != changed.cend(); ++section)
        KChangeLog::note(kindOf(section.key()), 0, KChange::Kind::Changed, m_values->database(), section.value());
}
