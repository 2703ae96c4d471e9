// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/TestRegistry.h"

#include <QTest>

// For tests that need no application object.
struct NoApplication
{
    NoApplication(int &, char **) {}
};

// Makes a test class known to its program. Stands once at the end of the class's file, with the application class that the
// tests run under:
//     static const RegisteredTest<TestKEdit, QApplication> registeredKEdit;
template <class Test, class Application = NoApplication>
class RegisteredTest
{
public:
    RegisteredTest() { TestRegistry::add(Test::staticMetaObject.className(), &run); }

private:
    static int run(int argc, char **argv)
    {
        Application application(argc, argv);
        // Sizes do not depend on the screen that the tests happen to run on.
        QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
        Test test;
        return QTest::qExec(&test, argc, argv);
    }
};
