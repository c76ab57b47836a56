// SPDX-License-Identifier: GPL-3.0-or-later
// The lines of a results file.
#include "procedure/ResultsFormat.h"

#include "session/AdaptedParameter.h"
#include "session/Data.h"

#include <QByteArray>
#include <QTextStream>

using namespace quorin;

namespace {

constexpr char tab = '\t';
constexpr auto lineEnd = "\r\n";
constexpr int valueDecimals = 6;

} // namespace

QString resultsHeader(int mainParameter)
{
    const AdaptedParameter* const adapted = adaptedParameter(mainParameter);
    return adapted == nullptr ? QString()
                              : QString(adapted->columnHeading)
            + "\tstimulus position\tresponse position\tcorrectness\treaction time (ms)";
}

QString resultsNumber(double shown)
{
    return QString::number(shown, 'f', valueDecimals);
}

void writeResults(QTextStream& stream, const Data& data)
{
    const AdaptedParameter* const adapted = adaptedParameter(data.mainParameter);
    if (data.records.isEmpty() || adapted == nullptr) {
        return;
    }
    stream << resultsHeader(data.mainParameter) << lineEnd;
    for (const Record& record : data.records) {
        stream << resultsNumber(adapted->shown(record.value, data.cf[standard])) << tab
               << record.stimulusPosition << tab << record.responsePosition << tab
               << (record.correctness ? 1 : 0) << tab << record.reactionTime << lineEnd;
    }
}

QByteArray resultsBytes(const Data& data)
{
    QByteArray bytes;
    QTextStream stream(&bytes);
    writeResults(stream, data);
    stream.flush();
    return bytes;
}
