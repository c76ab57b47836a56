// SPDX-License-Identifier: GPL-3.0-or-later
#include "procedure/ResultsFormat.h"

#include "session/Data.h"

#include <QTextStream>

namespace {

constexpr char tab = '\t';
constexpr auto lineEnd = "\r\n";
constexpr int valueDecimals = 6;
constexpr double percent = 100.0;

} // namespace

QString resultsHeader(int mainParameter)
{
    const QString rest("\tstimulus position\tresponse position\tcorrectness\treaction time (ms)");
    switch (mainParameter) {
    case carrierFrequencyParameter:
        return "frequency difference (Hz)" + rest;
    case modulationDepthParameter:
        return "modulation depth (%)" + rest;
    default:
        return {};
    }
}

QString resultsNumber(double shown)
{
    return QString::number(shown, 'f', valueDecimals);
}

QString resultsValue(const Record& record, int mainParameter, double standardCarrier)
{
    const double unit = mainParameter == carrierFrequencyParameter ? standardCarrier : percent;
    return resultsNumber(record.value * unit);
}

void writeResults(QTextStream& stream, const Data& data)
{
    const QString header = resultsHeader(data.mainParameter);
    if (data.records.isEmpty() || header.isEmpty()) {
        return;
    }
    stream << header << lineEnd;
    for (const Record& record : data.records) {
        stream << resultsValue(record, data.mainParameter, data.cf[standard]) << tab
               << record.stimulusPosition << tab << record.responsePosition << tab
               << (record.correctness ? 1 : 0) << tab << record.reactionTime << lineEnd;
    }
}
