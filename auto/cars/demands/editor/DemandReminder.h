// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QGroupBox>

#include <functional>

class KEdit;
class QCheckBox;
class QPushButton;

// The reminder of a demand on its editor's page. "يادآوري شود" is ticked while the demand has a reminder: it adds one, and
// opens the existing one, as "تنظيمات " does. A reminder that was added belongs to the demand at once, whether or not
// the editor is confirmed, as an attached file does.
class DemandReminder final : public QGroupBox
{
    Q_OBJECT

public:
    explicit DemandReminder(QWidget *parent = nullptr);

    // proposed returns what the description of a new reminder begins with.
    void bind(int demandID, int demandCode, int alarmID, const std::function<QString()> &proposed);
    // The group is hidden until then: it is for a demand that may be changed, and for one that has a reminder to read.
    void showFor(bool changeable);
    // 0 without a reminder, also when it was deleted elsewhere.
    int alarmID() const { return m_alarmID; }

    QCheckBox *remindBox() const { return m_remind; }
    QPushButton *settingsButton() const { return m_settings; }
    QString description() const;

private:
    // Adds the reminder or changes it.
    void edit();
    void showReminder();

    int m_demandID = 0;
    int m_demandCode = 0;
    int m_alarmID = 0;
    std::function<QString()> m_proposed;
    QCheckBox *m_remind;
    QPushButton *m_settings;
    KEdit *m_description;
};
