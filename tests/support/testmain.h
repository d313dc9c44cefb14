// SPDX-License-Identifier: MIT
#ifndef ORIM_TESTMAIN_H
#define ORIM_TESTMAIN_H

#include <QApplication>
#include <QtTest>

namespace TestStage {

//! Sets the stage before the application object exists: offscreen platform, C locale, UTC, and a configuration root
//! that must lie inside the build tree, so that no test can touch the settings of the user who runs it. Ends the
//! process with code 2 when it does not.
void BeforeApplication();
//! Sets the stage after it exists: the DejaVu font at 9 points, C locale for Qt, a store in memory.
void AfterApplication();
//! Drops what the offscreen platform says about each popup that opens: that it cannot raise it nor grab keys for it.
//! Call it from initTestCase() of a test that opens menus or combo boxes; all other messages go on.
void HushPopups();

//! Whether this program was built with the sanitizers, where loops cost five to ten times as much.
bool Sanitized();
//! Turns of a loop: \a longForm when the environment variable ORIM_LONG is set, else \a shortForm.
long long Turns(long long shortForm, long long longForm);
//! Seed of random tests: the environment variable ORIM_SEED, else 20260101. Print it in the line of figures.
unsigned long long Seed();
//! Folder of recordings, without a closing slash; empty when it is absent: the test then skips.
QString Recordings();

} // namespace TestStage

//! The main function of a test of widgets.
#define ORIM_TEST_MAIN(TestClass)                                                                                      \
    int main(int argc, char * argv[])                                                                                  \
    {                                                                                                                  \
        TestStage::BeforeApplication();                                                                                \
        QApplication application(argc, argv);                                                                          \
        TestStage::AfterApplication();                                                                                 \
        TestClass test;                                                                                                \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }

//! The main function of a test of cores, without a display.
#define ORIM_CORE_TEST_MAIN(TestClass)                                                                                 \
    int main(int argc, char * argv[])                                                                                  \
    {                                                                                                                  \
        TestStage::BeforeApplication();                                                                                \
        QCoreApplication application(argc, argv);                                                                      \
        TestClass test;                                                                                                \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }

#endif
