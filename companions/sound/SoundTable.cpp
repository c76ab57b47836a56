// SPDX-License-Identifier: GPL-3.0-or-later
// The figures of the two sounds as tables.
#include "sound/SoundTable.h"

#include "session/Data.h"
#include "session/Units.h"
#include "sound/ShownFigures.h"

#include <cmath>
#include <vector>

using namespace quorin;

namespace {

constexpr int fractionDecimals = 6;
constexpr int msDecimals = 3;

struct Figure {
    const char* name;
    int decimals;
    std::array<double, 2> values; ///< of standard and deviant
};

std::vector<Figure> rowsOf(const BothFigures& figures, const QVector<int>& lengths, double rate)
{
    const auto both = [&figures](auto value) {
        return std::array<double, 2> {value(figures[standard]), value(figures[deviant])};
    };
    using S = SoundFigures;
    const double difference = figures[deviant].rmsDb() - figures[standard].rmsDb();
    return {
        {"samples", 0, {double(lengths[standard]), double(lengths[deviant])}},
        {"duration (ms)", msDecimals,
            {inMs(lengths[standard] / rate), inMs(lengths[deviant] / rate)}},
        {"RMS (dB re full scale)", decibelDecimals, both([](const S& s) { return s.rmsDb(); })},
        {"level re standard (dB)", decibelDecimals, {0.0, difference}},
        {"peak (dB re full scale)", decibelDecimals, both([](const S& s) { return s.peakDb(); })},
        {"crest factor (dB)", decibelDecimals, both([](const S& s) { return s.crestDb(); })},
        {"first sample", fractionDecimals, both([](const S& s) { return s.firstSample; })},
        {"last sample", fractionDecimals, both([](const S& s) { return s.lastSample; })},
        {"first millisecond (dB)", decibelDecimals, both([](const S& s) { return s.beginDb(); })},
        {"last millisecond (dB)", decibelDecimals, both([](const S& s) { return s.endDb(); })},
    };
}

} // namespace

QString soundTable(const BothFigures& figures, const QVector<int>& lengths, double rate)
{
    constexpr int nameWidth = 26;
    constexpr int valueWidth = 12;
    QString table = QString(nameWidth, ' ') + QString("standard").rightJustified(valueWidth)
        + QString("deviant").rightJustified(valueWidth) + '\n';
    const std::vector<Figure> all = rowsOf(figures, lengths, rate);
    for (const Figure& figure : all) {
        table += QString(figure.name).leftJustified(nameWidth);
        for (const double value : figure.values) {
            table += shown(value, figure.decimals).rightJustified(valueWidth);
        }
        table += '\n';
    }
    return table;
}

QString soundHeadings()
{
    QStringList headings {"sound"};
    const std::vector<Figure> all = rowsOf({}, {0, 0}, 1.0);
    for (const Figure& figure : all) {
        headings.append(figure.name);
    }
    return headings.join(',');
}

QString soundRows(const BothFigures& figures, const QVector<int>& lengths, double rate)
{
    const std::vector<Figure> all = rowsOf(figures, lengths, rate);
    QString rows;
    for (const int i : {standard, deviant}) {
        QStringList cells {i == standard ? "standard" : "deviant"};
        for (const Figure& figure : all) {
            cells.append(shown(figure.values.at(static_cast<size_t>(i)), figure.decimals));
        }
        rows += cells.join(',') + '\n';
    }
    return rows;
}
