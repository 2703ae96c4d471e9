// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/CDlgOfficeLogo.h"

#include "suite/accounting/changes/HistoryButton.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/crm/persons/CompanyLogo.h"
#include "suite/image/KStaticImage.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/look/LookFonts.h"

#include <QBuffer>
#include <QDialogButtonBox>
#include <QImage>
#include <QLabel>

using namespace Qt::StringLiterals;

CDlgOfficeLogo::CDlgOfficeLogo(QWidget *parent)
    : KDialog(parent)
    , m_box(new KStaticImage(this))
{
    SetSettingName(u"OfficeLogo"_s);
    setWindowTitle(u"نشان نمایشگاه"_s);
    auto *page = new CardPage(460, this);
    FormGrid *grid = page->addForm();
    m_box->setAccessibleName(u"نشان نمایشگاه"_s);
    m_box->setMinimumHeight(200);
    grid->addLine(m_box);
    auto *note = new QLabel(u"در بالای قراردادها و کاغذهای دیگر چاپ می‌شود. PNG با زمینه شفاف بهترین است."_s, this);
    note->setWordWrap(true);
    LookFonts::applyHint(note);
    grid->addLine(note);
    setContent(page, createButtons());
    HistoryButton::addTo(this, footer(), u"Properties:"_s + CompanyDetails::section(), 0);

    const CompanyLogo logo = CompanyLogo::read();
    m_seen = logo.id;
    m_box->load(logo.bytes);
    m_box->setFocus();
}

QByteArray CDlgOfficeLogo::asLogo(const QImage &picture)
{
    for (int side = CompanyLogo::maxSide; !picture.isNull() && side > 0; side = side * 3 / 4) {
        const bool isLarger = picture.width() > side || picture.height() > side;
        const QImage small = isLarger ? picture.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation) : picture;
        QByteArray bytes;
        QBuffer buffer(&bytes);
        if (buffer.open(QIODevice::WriteOnly) && small.save(&buffer, "PNG") && bytes.size() <= CompanyLogo::maxBytes)
            return bytes;
    }
    return {};
}

bool CDlgOfficeLogo::OnOK()
{
    if (!m_box->isModified())
        return true;
    GetDBSetting()->RequireOpenDB();
    const QByteArray bytes = asLogo(m_box->image());
    if (bytes.isEmpty() && !m_box->isEmpty()) {
        g_pDlgWarning->Show(u"این تصویر را نمی‌توان به کار برد. لطفا تصویر دیگری انتخاب کنید."_s, this);
        m_box->setFocus();
        return false;
    }
    CompanyLogo::save(bytes, m_seen);
    return true;
}
