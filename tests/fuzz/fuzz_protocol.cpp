// SPDX-License-Identifier: GPL-3.0-or-later
// The reader of protocols, given any bytes: what it takes must read the same when it is written
// again with every cell filled in, every order must have the same runs, and what it refuses it must
// place in the file.
#include "fuzz/Demand.h"
#include "protocol/ProtocolColumns.h"
#include "protocol/ProtocolReader.h"
#include "protocol/RunSheet.h"

#include <QSet>
#include <QStringList>

#include <cstddef>
#include <cstdint>

using namespace quorin;

namespace {

// While the deviant is reset, cells of it are refused.
bool isLeftOut(const ProtocolRow& row, int column)
{
    const bool isOfDeviant = column == deviantCarrierColumn || column == deviantDepthColumn
        || column == deviantDifferenceColumn;
    return isOfDeviant && row.texts[resetColumn] == "yes";
}

QByteArray rewritten(const QVector<ProtocolRow>& rows)
{
    QStringList headings;
    for (int column = 0; column < nProtocolColumns; ++column) {
        headings.append(protocolColumn(column).name);
    }
    QString file = headings.join(',') + '\n';
    for (const ProtocolRow& row : rows) {
        QStringList cells;
        for (int column = 0; column < nProtocolColumns; ++column) {
            const QString text = isLeftOut(row, column) ? QString() : row.texts[column];
            cells.append('"' + QString(text).replace("\"", "\"\"") + '"');
        }
        file += cells.join(',') + '\n';
    }
    return file.toUtf8();
}

void checkReadingAgain(const Protocol& protocol)
{
    const QByteArray file = rewritten(protocol.rows);
    if (file.size() > mostProtocolBytes) {
        return;
    }
    const Protocol again = readProtocol(file);
    demand(again.rows.size() == protocol.rows.size(), "what is written again has the same rows");
    for (int i = 0; i < protocol.rows.size(); ++i) {
        demand(again.rows[i].texts == protocol.rows[i].texts, "they have the same cells");
        demand(again.rows[i].breakText == protocol.rows[i].breakText, "and breaks");
    }
}

QSet<QString> identifiers(const QVector<ProtocolRun>& runs)
{
    QSet<QString> ids;
    for (const ProtocolRun& run : runs) {
        ids.insert(run.id);
    }
    return ids;
}

void checkOrders(const Protocol& protocol)
{
    const QVector<ProtocolRun> written = orderedRuns(protocol, RunOrder::asWritten, 0, 0);
    const QSet<QString> ids = identifiers(written);
    demand(ids.size() == written.size(), "every run has an identifier of its own");
    demand(ids.size() <= mostProtocolRuns, "there are not too many");
    for (const RunOrder order : {RunOrder::shuffled, RunOrder::latinSquare}) {
        if (orderObstacle(protocol, order).isEmpty()) {
            const QVector<ProtocolRun> runs
                = orderedRuns(protocol, order, protocol.rows[0].line, 1);
            demand(runs.size() == written.size(), "an order has as many runs as are written");
            demand(identifiers(runs) == ids, "they are the same");
        }
    }
    const QString sheet = runSheet(protocol, written, {written[0].id});
    demand(sheet.count('\n') > written.size(), "every run has its line");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const QByteArray file(reinterpret_cast<const char*>(bytes), static_cast<int>(size));
    const Protocol protocol = readProtocol(file);
    if (protocol.complaints.isEmpty()) {
        demand(!protocol.rows.isEmpty(), "what is good has rows");
        checkReadingAgain(protocol);
        checkOrders(protocol);
    } else {
        demand(protocol.rows.isEmpty(), "what is refused has no rows");
        for (const ProtocolComplaint& complaint : protocol.complaints) {
            demand(!complaint.text.isEmpty(), "a complaint says something");
            demand(complaint.line >= 0 && complaint.line <= file.count('\n') + 1,
                "its line is in the file");
        }
    }
    return 0;
}
