// SPDX-License-Identifier: GPL-3.0-or-later
// The frame of every test. It brings all of Qt Core and Qt Test.
#pragma once

#include <QApplication>
#include <QtTest>

#include <initializer_list>

/// Names the columns of a test's table: addColumns<int, QString>("value", "text").
template <typename... Types, typename... Names> void addColumns(Names... names)
{
    static_assert(sizeof...(Types) == sizeof...(Names), "a column has a type and a name");
    (QTest::addColumn<Types>(names), ...);
}

/// A row of such a table.
template <typename... Values> void addRow(const char* name, const Values&... values)
{
    (QTest::newRow(name) << ... << values);
}

/// The table of a test of single integers.
inline void addIntegers(const char* column, std::initializer_list<int> integers)
{
    QTest::addColumn<int>(column);
    for (const int integer : integers) {
        QTest::addRow("%d", integer) << integer;
    }
}

/// A test class that its program runs by name: `tst_signal fft_tables` runs the one in
/// tst_fft_tables.cpp. Arguments after the name go to QtTest.
class RegisteredTest {
public:
    using Run = int (*)(int argc, char** argv);

    /// @param source the path of the test's source, tst_NAME.cpp, or the name itself
    RegisteredTest(const char* source, Run run);
};

/// Runs a test class as QTEST_MAIN and QTEST_GUILESS_MAIN do.
template <typename Application, typename Test> int runTest(int argc, char** argv)
{
    const Application application(argc, argv);
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

/// Runs a test class without an application object, as QTEST_APPLESS_MAIN does.
template <typename Test> int runTestWithoutApplication(int argc, char** argv)
{
    Test test;
    return QTest::qExec(&test, argc, argv);
}

/// Ends the source of a test: of one with widgets, of one without, and of one without an
/// application object.
#define QUORIN_TEST(Test)                                                                          \
    static const RegisteredTest registered##Test(__FILE__, &runTest<QApplication, Test>)
#define QUORIN_GUILESS_TEST(Test)                                                                  \
    static const RegisteredTest registered##Test(__FILE__, &runTest<QCoreApplication, Test>)
#define QUORIN_APPLESS_TEST(Test)                                                                  \
    static const RegisteredTest registered##Test(__FILE__, &runTestWithoutApplication<Test>)
