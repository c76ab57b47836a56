// SPDX-License-Identifier: GPL-3.0-or-later
// For the benchmarks that need windows: Google Benchmark's own main makes no application.
#include <QApplication>
#include <QLoggingCategory>

#include <benchmark/benchmark.h>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QLoggingCategory::setFilterRules("*.debug=false");
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
