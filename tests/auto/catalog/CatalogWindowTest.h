// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/catalog/CDlgCarsAll.h"

#include "auto/catalog/CDlgAddCar.h"
#include "suite/accounting/changes/CDlgRowConflict.h"
#include "auto/catalog/CatalogPanel.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"
#include "tests/office/TestOffice.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

// A small catalog, and its window.
class CatalogWindowTest : public QObject
{
protected:
    static constexpr CatalogLevel brandLevel = CatalogLevel::Brand;
    static constexpr CatalogLevel modelLevel = CatalogLevel::Model;
    static constexpr CatalogLevel classLevel = CatalogLevel::Class;
    static inline const QString rightsForm = u"CarsAll"_s;

    static QStringList names(const CDlgCarsAll &dialog, CatalogLevel level)
    {
        QStringList names;
        const KExtListCtrl *list = dialog.panel(level)->list();
        for (int row = 0; row < list->count(); ++row)
            names << list->cellText(row, 1);
        return names;
    }

    static int selected(const CDlgCarsAll &dialog, CatalogLevel level)
    {
        return dialog.panel(level)->list()->currentKey();
    }

    static QPushButton *buttonOf(const CDlgCarsAll &dialog, const QString &caption)
    {
        for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
            if (button->text() == caption)
                return button;
        }
        return nullptr;
    }

    // The label beside a list.
    static QString countText(const CDlgCarsAll &dialog, CatalogLevel level)
    {
        for (const QLabel *label : dialog.panel(level)->findChildren<QLabel *>()) {
            if (!label->buddy())
                return label->text();
        }
        return u"no label"_s;
    }

    static void doubleClick(KExtListCtrl *list, int row)
    {
        const QPoint place = row < 0 ? QPoint(list->viewport()->width() / 2, list->viewport()->height() - 4)
                                     : list->visualRect(list->listModel()->index(row, 1)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
    }

    // Answers the name editor that comes up next.
    static void typeName(const QString &name, QString *title = nullptr)
    {
        TestOffice::whenModal("CDlgAddCar", [name, title](QWidget *window) {
            if (title)
                *title = window->windowTitle();
            window->findChild<KEdit *>()->setText(name);
            static_cast<CDlgAddCar *>(window)->accept();
        });
    }

    void makeOffice() { m_office = std::make_unique<TestOffice>(); }
    void dropOffice() { m_office.reset(); }
    void begin()
    {
        m_office->clear();
        m_peugeot = m_office->addBrand(u"Peugeot"_s);
        m_kia = m_office->addBrand(u"Kia"_s);
        m_model206 = m_office->addModel(m_peugeot, u"206"_s);
        m_pars = m_office->addModel(m_peugeot, u"Pars"_s);
        m_office->addModel(m_kia, u"Rio"_s);
        m_type5 = m_office->addClass(m_model206, u"Type 5"_s);
        m_type2 = m_office->addClass(m_model206, u"Type 2"_s);
    }

    std::unique_ptr<TestOffice> m_office;
    int m_peugeot = 0;
    int m_kia = 0;
    int m_model206 = 0;
    int m_pars = 0;
    int m_type2 = 0;
    int m_type5 = 0;

    void show(CDlgCarsAll &dialog)
    {
        dialog.resize(1100, 600);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    }
    QString value(const QString &statement) { return m_office->database().value(statement); }
    QString counts()
    {
        return value(u"SELECT CONCAT_WS(',',(SELECT COUNT(*) FROM CarBrands),(SELECT COUNT(*) FROM CarModels),"
                     "(SELECT COUNT(*) FROM CarClasses))"_s);
    }

    void usedEntryStays(CatalogLevel level, const std::function<void(CTblAutomobilInformations &)> &use, const QString &warning)
    {
        m_office->addCar(use);
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        dialog.panel(modelLevel)->list()->selectKey(m_model206);
        dialog.panel(classLevel)->list()->selectKey(m_type5);
        dialog.panel(level)->deleteButton()->click();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{warning});
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QCOMPARE(counts(), u"2,3,2"_s);
        QCOMPARE(selected(dialog, classLevel), m_type5);
    }
};
