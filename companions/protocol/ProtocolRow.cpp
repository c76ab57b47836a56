// SPDX-License-Identifier: GPL-3.0-or-later
// The conditions of a protocol: what empty cells stand for, and which cells exclude each other.
#include "protocol/ProtocolRow.h"

#include "procedure/StaircaseRule.h"
#include "protocol/ProtocolCells.h"
#include "protocol/ProtocolColumns.h"
#include "session/AdaptedParameter.h"
#include "session/Data.h"
#include "session/PanelNumbers.h"

#include <algorithm>
#include <cmath>

using namespace quorin;

namespace {

constexpr int practiceSession = 0; // index of its name

/// The texts of a row in the making, and what is wrong with them.
class RowTexts {
public:
    RowTexts(const QVector<CsvCell>& cells, QVector<ProtocolComplaint>& complaints)
        : m_cells(cells)
        , m_complaints(complaints)
        , m_texts(emptyRowTexts())
    {
    }

    QVector<QString> filledIn()
    {
        for (int column = 0; column < nProtocolColumns; ++column) {
            if (isGiven(column)) {
                m_texts[column] = m_cells[column].text;
                complain(column, cellComplaint(column, m_texts[column]));
            }
        }
        if (m_isGood) {
            fillInSessionType();
            fillInReversals();
            fillInDeviant();
            checkRanges();
            checkCombinations();
        }
        return m_texts;
    }

private:
    bool isGiven(int column) const { return !m_cells[column].text.isEmpty(); }
    bool is(int column, const QString& text) const { return m_texts[column] == text; }

    void complain(int column, const QString& text)
    {
        if (!text.isEmpty()) {
            m_complaints.append({m_cells[column].line, protocolColumn(column).name, text});
            m_isGood = false;
        }
    }

    void fillIn(int column, const QString& text)
    {
        if (!isGiven(column)) {
            m_texts[column] = text;
        }
    }

    void fillInSessionType()
    {
        const QStringList types = choicesOf(sessionTypeColumn);
        const QString& practice = types[practiceSession];
        if (isGiven(practiceColumn)) {
            fillIn(sessionTypeColumn, is(practiceColumn, "yes") ? practice : types.last());
        }
        fillIn(practiceColumn, is(sessionTypeColumn, practice) ? "yes" : "no");
        if (is(practiceColumn, "yes") != is(sessionTypeColumn, practice)) {
            complain(practiceColumn,
                QString(R"("%1" contradicts the session type "%2")")
                    .arg(m_texts[practiceColumn], m_texts[sessionTypeColumn]));
        }
    }

    // The panel lowers it to the number of reversals.
    void fillInReversals()
    {
        fillIn(reversalsToCalculateColumn,
            shownInteger(std::min(readInteger(m_texts[reversalsColumn]),
                readInteger(m_texts[reversalsToCalculateColumn]))));
    }

    void fillInDeviant()
    {
        m_start.mainParameter
            = choicesOf(mainParameterColumn).indexOf(m_texts[mainParameterColumn]);
        m_start.cf[standard] = readFrequency(m_texts[standardCarrierColumn]);
        resetDeviant(m_start);
        const bool isOfCarrier = m_start.mainParameter == carrierFrequencyParameter;
        if (isOfCarrier && isGiven(deviantDifferenceColumn)) {
            setAdaptedValue(
                m_start, readDifference(m_texts[deviantDifferenceColumn], m_start.cf[standard]));
        }
        fillIn(deviantDepthColumn, shownDepth(m_start.md[deviant]));
        fillIn(deviantDifferenceColumn, shownDifference(m_start.fd[deviant], m_start.cf[standard]));
        fillIn(deviantCarrierColumn, shownFrequency(m_start.cf[deviant]));
    }

    void checkRanges()
    {
        for (int column = 0; column < nProtocolColumns; ++column) {
            if (isGiven(column)) {
                complain(column, rangeComplaint(column, m_texts));
            }
        }
    }

    void checkCombinations()
    {
        const QString noise = choicesOf(soundTypeColumn).at(noiseCarrier);
        const bool isOfCarrier = m_start.mainParameter == carrierFrequencyParameter;
        if (isOfCarrier && is(soundTypeColumn, noise)) {
            complain(soundTypeColumn,
                QString(R"("%1" is incompatible with the main parameter "%2"%3)")
                    .arg(noise, m_texts[mainParameterColumn],
                        isGiven(soundTypeColumn) ? "" : "; it is the default"));
        }
        if (is(resetColumn, "yes")) {
            checkDeviantIsEmpty();
        } else if (isOfCarrier && isGiven(deviantCarrierColumn)) {
            checkDeviantCarrier();
        }
    }

    void checkDeviantIsEmpty()
    {
        for (const int column :
            {deviantCarrierColumn, deviantDepthColumn, deviantDifferenceColumn}) {
            if (isGiven(column)) {
                complain(column,
                    QString(R"(%1 has no effect as long as "%2" is "yes")")
                        .arg(quotedStart(m_texts[column]), protocolColumn(resetColumn).name));
            }
        }
    }

    // The first trial plays the carrier that is given, the trend and the file tell the difference.
    void checkDeviantCarrier()
    {
        constexpr double roundingOfShown = 0.005; // Hz, half of the last decimal
        constexpr double roundingOfDoubles = 1e-9;
        const double difference
            = readFrequency(m_texts[deviantCarrierColumn]) - m_start.cf[deviant];
        if (std::abs(difference) > roundingOfShown + roundingOfDoubles) {
            complain(deviantCarrierColumn,
                QString("%1 contradicts the frequency difference: the standard's carrier less it "
                        "is %2 Hz")
                    .arg(quotedStart(m_texts[deviantCarrierColumn]),
                        shownFrequency(m_start.cf[deviant])));
        }
    }

    const QVector<CsvCell>& m_cells;
    QVector<ProtocolComplaint>& m_complaints;
    QVector<QString> m_texts;
    Data m_start; ///< the deviant as the run begins
    bool m_isGood = true;
};

QString breakText(const QString& cell)
{
    if (cell == "no") {
        return {};
    }
    return cell == "yes" ? QString(plainBreakText) : cell;
}

} // namespace

ProtocolRow protocolRow(
    const QVector<CsvCell>& cells, int line, QVector<ProtocolComplaint>& complaints)
{
    ProtocolRow row;
    row.line = line;
    row.texts = RowTexts(cells, complaints).filledIn();
    row.repeat = readInteger(row.texts[repeatColumn]);
    row.isPractice = row.texts[practiceColumn] == "yes";
    row.breakText = breakText(row.texts[breakColumn]);
    row.instruction = row.texts[instructionColumn];
    for (const CsvCell& cell : cells) {
        row.isWritten.append(!cell.text.isEmpty());
    }
    return row;
}

QVector<PanelSetting> panelSettings(const ProtocolRow& row)
{
    // Goes with every sound type; the row's own is set after the sound type.
    QVector<PanelSetting> settings {{protocolColumn(mainParameterColumn).widget,
        choicesOf(mainParameterColumn).at(modulationDepthParameter)}};
    for (int column = 0; column < nProtocolColumns; ++column) {
        const char* const widget = protocolColumn(column).widget;
        if (widget != nullptr) {
            settings.append({widget, row.texts[column]});
        }
    }
    return settings;
}
