// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/image/PictureBoxReader.h"

#include "suite/image/KStaticImage.h"

#include <QAccessibleWidget>

namespace {

class Reader : public QAccessibleWidget
{
public:
    explicit Reader(KStaticImage *box)
        : QAccessibleWidget(box, QAccessible::Graphic) { }

    QStringList actionNames() const override
    {
        QStringList names = QAccessibleWidget::actionNames();
        if (box()->isEnabled())
            names.prepend(pressAction());
        return names;
    }

    void doAction(const QString &name) override
    {
        if (name != pressAction())
            QAccessibleWidget::doAction(name);
        else if (box()->isEnabled())
            // Later: whoever presses waits for this to return, and a window opens.
            QMetaObject::invokeMethod(box(), "activate", Qt::QueuedConnection);
    }

private:
    KStaticImage *box() const { return static_cast<KStaticImage *>(widget()); }
};

QAccessibleInterface *makeReader(const QString &, QObject *object)
{
    auto *box = qobject_cast<KStaticImage *>(object);
    return box ? new Reader(box) : nullptr;
}

// The module is unloaded before the program's last window goes, and must not be asked about that one.
struct Installation
{
    Installation() { QAccessible::installFactory(makeReader); }
    ~Installation() { QAccessible::removeFactory(makeReader); }
    Q_DISABLE_COPY_MOVE(Installation)
};

}

void PictureBoxReader::install()
{
    static const Installation untilUnloaded;
}
