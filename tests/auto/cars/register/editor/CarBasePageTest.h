// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/catalog/CDlgCarsAll.h"
#include "auto/catalog/parameters/CDlgInputParameters.h"
#include "auto/catalog/CatalogPanel.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDlgMultiItems.h"
#include "suite/image/KStaticImage.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/PlatePicture.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/auto/cars/register/editor/CarEditorOffice.h"
#include "tests/auto/editor/OnGrid.h"

#include <QBuffer>
#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <cmath>

using namespace Qt::StringLiterals;

// A car whose editor is open on its first page.
class CarBasePageTest : public QObject
{
protected:
    using Car = CTblAutomobilInformations;
    using Dialog = CDlgAddAutomobilInformation;
    using Parameters = InputParameters::Option;

    static inline const QString brand = u"iAutomobilType"_s;
    static inline const QString model = u"iModel"_s;
    static inline const QString carClass = u"iBrigade"_s;
    static inline const QString color = u"iColor"_s;
    static inline const QString country = u"iCountry"_s;
    static inline const QString dash = u"-"_s;

    static QByteArray picture()
    {
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "JPEG");
        return buffer.data();
    }

    void makeOffice() { m_office = std::make_unique<CarEditorOffice>(); }
    void dropOffice() { m_office.reset(); }
    void begin() { m_office->begin(); }
    void end() { m_dialog.reset(); }

    std::unique_ptr<CarEditorOffice> m_office;
    std::unique_ptr<Dialog> m_dialog;

    Dialog &open(const std::function<void(Car &)> &set = {}, EditorMode mode = EditorMode::Edit)
    {
        m_dialog = m_office->opened(m_office->addOwnedCar(set), mode);
        return *m_dialog;
    }

    KForm &form() { return *m_dialog->basePage()->form(); }
    QStringList offered(const QString &column) { return m_office->entries(form().comboBox(column)); }

    Car &saved(Car &car) { return m_office->saved(*m_dialog, car); }

    // Opens the input parameters by a field's button, works in them, and presses one of the window's buttons.
    void inParameters(const QString &column, const QString &button, const std::function<void(CDlgInputParameters &)> &work)
    {
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            auto *page = qobject_cast<CDlgInputParameters *>(static_cast<KDialogHolder *>(window)->page());
            QVERIFY(page);
            work(*page);
            for (QPushButton *candidate : window->findChildren<QPushButton *>()) {
                if (candidate->text() == button)
                    candidate->click();
            }
        });
        form().button(column)->click();
    }

    void inCatalog(const QString &column, const std::function<void(CDlgCarsAll &)> &work)
    {
        TestOffice::whenModal("CDlgCarsAll", [&](QWidget *window) { work(static_cast<CDlgCarsAll &>(*window)); });
        form().button(column)->click();
    }

    void inMultiItems(const QString &column, const std::function<void(CDlgMultiItems &)> &work)
    {
        TestOffice::whenModal("CDlgMultiItems", [&](QWidget *window) { work(static_cast<CDlgMultiItems &>(*window)); });
        form().button(column)->click();
    }
};
