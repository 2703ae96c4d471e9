// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/TabOrder.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

class TestTabOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tabComesToThePickedOptionOfEachGroup()
    {
        QWidget window;
        auto *layout = new QHBoxLayout(&window);
        auto *before = new QLineEdit;
        layout->addWidget(before);
        QList<QButtonGroup *> groups;
        for (int number = 0; number < 2; ++number) {
            auto *group = new QButtonGroup(&window);
            for (int option = 0; option < 3; ++option) {
                auto *button = new QRadioButton(QString::number(option));
                group->addButton(button, option);
                layout->addWidget(button);
            }
            group->button(0)->setChecked(true);
            tabToPickedOption(group);
            groups.append(group);
        }
        auto *after = new QLineEdit;
        layout->addWidget(after);
        // Picked by the window itself, before anything had the focus.
        groups.at(0)->button(2)->setChecked(true);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));

        before->setFocus();
        const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
        press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), groups.at(0)->button(2));
        press(Qt::Key_Left);
        QVERIFY(groups.at(0)->button(1)->isChecked());
        QCOMPARE(QApplication::focusWidget(), groups.at(0)->button(1));
        press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), groups.at(1)->button(0));
        press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), after);
        press(Qt::Key_Backtab);
        press(Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), groups.at(0)->button(1));
    }
};

static const RegisteredTest<TestTabOrder, QApplication> registeredTabOrder;
#include "TestTabOrder.moc"
