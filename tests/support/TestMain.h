#ifndef SELVORA_TESTS_TESTMAIN_H
#define SELVORA_TESTS_TESTMAIN_H

#include "support/TestEnvironment.h"

#include <QApplication>
#include <QtTest>

// Every test runs in a QApplication with the resources loaded, with settings and home in a
// temporary folder, and with the reference screen of 1600x900 unless the test sets another.
#define SELVORA_TEST_MAIN(TestObject)                                                              \
    int main(int argc, char** argv) {                                                              \
        selvora::test::TestEnvironment environment;                                                \
        QApplication app(argc, argv);                                                              \
        environment.start();                                                                       \
        TestObject tc;                                                                             \
        QTEST_SET_MAIN_SOURCE_PATH                                                                 \
        return QTest::qExec(&tc, argc, argv);                                                      \
    }

#endif
