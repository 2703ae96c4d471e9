// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/web/GalleryExport.h"
#include "auto/cars/web/GallerySettings.h"
#include "suite/utility/frame/KDialog.h"

class KEdit;
class OfficeSettings;
class QComboBox;
class QLabel;
class QPushButton;

// "خروجی وب": writes the page of the cars on offer into a folder. What the page says is the office's and kept with the first page that is
// written; the folder is the user's, on this computer. The window stays, with what was written and the ways to it.
class CDlgWebGallery : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgWebGallery(QWidget *parent = nullptr);
    ~CDlgWebGallery() override;

    // Refused without the right to take the list of cars out.
    static void Show(QWidget *parent);

    QString folder() const;
    void setFolder(const QString &folder);
    // What the last press of the button wrote, in words; empty before.
    QString outcome() const;

protected:
    bool OnOK() override;

private:
    CDlgWebGallery(const OfficeSettings &settings, QWidget *parent);
    void build();
    void buildCars(class CardPage &page);
    void buildPage(class CardPage &page);
    void buildFolder(class CardPage &page);
    void showCount();
    void showCars();
    void chooseFolder();
    GallerySettings entered() const;
    // What is missing or wrong is said, and the focus goes to its field.
    bool validate();
    bool refuse(const QString &message, QWidget *field);
    bool keepSettings();
    void write();
    void showWritten(const GalleryExport::Written &written);
    QPushButton *addCommand(const QString &caption, const QString &icon, const std::function<void()> &run);

    SettingsEdit m_edit;
    GallerySettings m_kept;
    QString m_moneyUnit;
    bool m_mayChange; // what the page says
    QString m_page;   // written last
    QLabel *m_count = nullptr;
    KEdit *m_title = nullptr;
    KEdit *m_telephone = nullptr;
    KEdit *m_address = nullptr;
    QComboBox *m_prices = nullptr;
    KEdit *m_folder = nullptr;
    QLabel *m_outcome = nullptr;
    QPushButton *m_openPage = nullptr;
    QPushButton *m_openFolder = nullptr;
};
