// SPDX-License-Identifier: GPL-3.0-or-later
// Reading 10,000 results files with quorin-report.
#include "companions/report/SimulatedRun.h"
#include "report/Report.h"
#include "session/OutputFileName.h"

#include <QDir>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace quorin;

namespace {

constexpr int nFiles = 10000;

// A folder of 10,000 runs of some 45 trials, as sessions of 100 subjects.
void fillFolder(const QTemporaryDir& folder)
{
    Data data;
    data.sesType = 1;
    data.mainParameter = modulationDepthParameter;
    for (int i = 0; i < nFiles; ++i) {
        data.subCode = QString("S%1").arg(i % 100);
        data.sesNum = i / 100;
        fillFile(folder.filePath(composedFileName(data)),
            resultsBytes(simulatedRun(modulationDepthParameter, static_cast<unsigned>(i))));
    }
}

void tenThousandFiles(benchmark::State& state)
{
    const QTemporaryDir folder;
    fillFolder(folder);
    ReportOptions options;
    options.runs.inputs = QStringList(folder.path());
    options.csvPath = folder.filePath("all.csv");
    options.hasSummary = true;
    options.isForced = true;
    for (auto _ : state) {
        QString output;
        QString errors;
        QTextStream outputStream(&output);
        QTextStream errorStream(&errors);
        if (!Report(options, outputStream, errorStream).make()) {
            state.SkipWithError(qPrintable(errors));
        }
    }
    state.SetItemsProcessed(state.iterations() * nFiles);
}
BENCHMARK(tenThousandFiles)
    ->Name("report/10000 files, table, csv and summary")
    ->Unit(benchmark::kMillisecond);

void readOneFile(benchmark::State& state)
{
    const QByteArray file = resultsBytes(simulatedRun(modulationDepthParameter, 1));
    qint64 nTrials = 0;
    for (auto _ : state) {
        nTrials += readResults(file).records.size();
    }
    state.SetItemsProcessed(nTrials);
}
BENCHMARK(readOneFile)->Name("report/read the lines of one file");

} // namespace
