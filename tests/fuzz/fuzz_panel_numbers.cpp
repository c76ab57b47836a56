// SPDX-License-Identifier: GPL-3.0-or-later
// What is typed into the panel's number fields, one field a line, on its way into the record: every
// text must read as the number that its characters spell, or as 0, and every count that is made of
// it must stay within its limits.
#include "app/TrialSequence.h"
#include "fuzz/Demand.h"
#include "session/Counts.h"
#include "session/PanelNumbers.h"

#include <QRegularExpression>
#include <QStringList>
#include <QVector>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

using namespace quorin;

namespace {

bool areSame(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

// Qt takes the minus sign of typography for a minus.
QString plainWord(const QString& text)
{
    constexpr ushort minusSign = 0x2212;
    return text.trimmed().replace(QChar(minusSign), '-');
}

// What a text spells, without Qt's number parsing.
double spelledNumber(const QString& text)
{
    static const QRegularExpression decimal(R"(\A[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)(e[+-]?[0-9]+)?\z)",
        QRegularExpression::CaseInsensitiveOption);
    const QString word = plainWord(text);
    if (decimal.match(word).hasMatch()) {
        return std::strtod(word.toLatin1().constData(), nullptr); // it rounds correctly
    }
    const QString name = word.toLower();
    if (name == "inf" || name == "+inf") {
        return std::numeric_limits<double>::infinity();
    }
    if (name == "-inf") {
        return -std::numeric_limits<double>::infinity();
    }
    return name == "nan" ? std::numeric_limits<double>::quiet_NaN() : 0.0;
}

int spelledInteger(const QString& text)
{
    static const QRegularExpression integer(R"(\A[+-]?0*([0-9]{1,10})\z)");
    const QString word = plainWord(text);
    const QRegularExpressionMatch match = integer.match(word);
    if (!match.hasMatch()) {
        return 0;
    }
    const std::int64_t size = std::strtoll(match.captured(1).toLatin1().constData(), nullptr, 10);
    const std::int64_t number = word.startsWith('-') ? -size : size;
    const bool fits
        = number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
    return fits ? static_cast<int>(number) : 0;
}

void checkReading(const QString& text)
{
    const double number = spelledNumber(text);
    demand(areSame(readFrequency(text), number), "a frequency is the number spelled");
    demand(areSame(readDepth(text), number / 100.0), "a depth is a hundredth of it");
    demand(areSame(readDuration(text), number / 1000.0), "a duration is a thousandth of it");
    demand(readInteger(text) == spelledInteger(text), "an integer is the number spelled");
}

// Whether what is shown of a number reads as the number shown. Zero is shown without its sign.
template <typename Show, typename Read> bool isShownAgain(const QString& text, Show show, Read read)
{
    const QString shown = show(read(text));
    const auto number = read(shown);
    return number == 0 || show(number) == shown;
}

// Up to this size the decimals that are shown determine the number.
void checkShowingAgain(const QString& text)
{
    constexpr double largest = 1e9;
    if (!(std::abs(readFrequency(text)) < largest)) {
        return;
    }
    demand(isShownAgain(text, shownFrequency, readFrequency), "a frequency is shown again");
    demand(isShownAgain(text, shownDepth, readDepth), "a depth is shown again");
    demand(isShownAgain(text, shownDuration, readDuration), "a duration is shown again");
    demand(isShownAgain(text, shownInteger, readInteger), "an integer is shown again");
}

void checkSizes(const QString& rateText, const QString& durationText)
{
    const double fs = readFrequency(rateText);
    const double duration = readDuration(durationText);
    const int nSamples = soundLength(fs, duration);
    demand(nSamples <= longestSound, "a sound is not too long");
    demand(nSamples <= 0 || fs * duration >= nSamples, "a sound is not longer than asked for");
    const int nPlotted = plottedPoints(fs, duration, nSamples);
    demand(nPlotted <= nSamples && nPlotted <= mostPlottedPoints, "not too much is plotted");

    const long long length = spectrumLength(nSamples);
    demand(length >= 1 && (length & (length - 1)) == 0, "a spectrum's length is a power of two");
    demand(length >= nSamples && length / 2 < std::max(nSamples, 1), "it is the next power of two");
}

void checkPeriod(const QString& silenceText, const QString& durationText)
{
    const double silence = readDuration(silenceText);
    const double duration = readDuration(durationText);
    const int period = trialPeriodMs(silence, {duration, duration});
    demand(period >= 1, "a period is at least a millisecond");
    demand(endReportTimeoutMs(period) > 5000, "an end report is waited for");
}

void checkDifference(const QString& carrierText, const QString& differenceText)
{
    const double carrier = readFrequency(carrierText);
    const double difference = readDifference(differenceText, carrier);
    demand(areSame(difference, spelledNumber(differenceText) / carrier),
        "a difference is a fraction of the carrier");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string input(bytes, bytes + size);
    const QStringList fields = QString::fromUtf8(input.data(), static_cast<int>(size)).split('\n');
    for (int i = 0; i < fields.size(); ++i) {
        const QString& text = fields[i];
        const QString& next = fields[(i + 1) % fields.size()];
        checkReading(text);
        checkShowingAgain(text);
        checkSizes(text, next);
        checkPeriod(text, next);
        checkDifference(text, next);
    }
    return 0;
}
