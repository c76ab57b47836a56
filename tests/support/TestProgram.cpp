// SPDX-License-Identifier: GPL-3.0-or-later
// The main function of every test program: it runs the test that its first argument names.
#include "support/TestProgram.h"

#include <QFileInfo>
#include <QMap>

#include <cstdio>

namespace {

constexpr int unknownTest = 2;

// Made when the first test of the program is registered.
QMap<QString, RegisteredTest::Run>& tests()
{
    static QMap<QString, RegisteredTest::Run> all;
    return all;
}

int refuse(const char* program)
{
    std::fprintf(stderr, "usage: %s TEST [argument of QtTest...]; the tests:\n", program);
    const QStringList names = tests().keys();
    for (const QString& name : names)
        std::fprintf(stderr, "  %s\n", qUtf8Printable(name));
    return unknownTest;
}

} // namespace

RegisteredTest::RegisteredTest(const char* source, Run run)
{
    QString name = QFileInfo(source).completeBaseName();
    if (name.startsWith("tst_"))
        name.remove(0, 4);
    if (tests().contains(name))
        qFatal("two tests are called %s", qUtf8Printable(name));
    tests().insert(name, run);
}

int main(int argc, char** argv)
{
    const RegisteredTest::Run run = argc > 1 ? tests().value(argv[1]) : nullptr;
    if (run == nullptr)
        return refuse(argv[0]);
    argv[1] = argv[0];
    return run(argc - 1, argv + 1);
}
