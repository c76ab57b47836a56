// SPDX-License-Identifier: GPL-3.0-or-later
// The values that options are swept over, and the simulations that follow.
#include "simulate/Sweep.h"

#include "output/OptionReader.h"
#include "simulate/SimulationReader.h"

#include <QCommandLineParser>

#include <cmath>

namespace {

constexpr int mostSimulations = 10000;

struct SweptOption {
    QString name;
    QStringList values;
};

bool readNumbers(const QStringList& texts, QVector<double>& numbers)
{
    for (const QString& text : texts) {
        bool isNumber = false;
        numbers.append(text.toDouble(&isNumber));
        if (!isNumber || !std::isfinite(numbers.constLast())) {
            return false;
        }
    }
    return true;
}

// from:to or from:to:step; empty if it is none.
QStringList valuesOfRange(const QString& range)
{
    constexpr int enoughDigits = 12;
    constexpr double margin = 1e-9; // of a step, for what decimal fractions are off
    QVector<double> limits;
    if (!readNumbers(range.split(':'), limits) || limits.size() < 2 || limits.size() > 3) {
        return {};
    }
    const double step = limits.size() == 3 ? limits[2] : 1.0;
    const double count = std::floor((limits[1] - limits[0]) / step + margin) + 1;
    if (!(step > 0.0) || !(count >= 1) || count > mostSimulations) {
        return {};
    }
    QStringList values;
    for (int i = 0; i < static_cast<int>(count); ++i) {
        values.append(QString::number(limits[0] + i * step, 'g', enoughDigits));
    }
    return values;
}

// Numbers with commas between them; empty if it is none.
QStringList valuesOfList(const QString& list)
{
    QVector<double> numbers;
    QStringList values = list.split(',');
    return readNumbers(values, numbers) ? values : QStringList();
}

SweptOption sweptOption(const QString& text)
{
    const int equals = text.indexOf('=');
    const QString values = text.mid(equals + 1);
    return {equals < 0 ? QString("reversals") : text.left(equals),
        values.contains(':') ? valuesOfRange(values) : valuesOfList(values)};
}

QString mistakeIn(const SweptOption& option, const QString& text,
    const QVector<SweptOption>& before, const QCommandLineParser& parser)
{
    if (!numericOptions().contains(option.name)) {
        return "--sweep knows no number called \"" + option.name
            + "\": " + numericOptions().join(", ");
    }
    if (option.values.isEmpty()) {
        return QString("--sweep is name=a,b,c or name=from:to or name=from:to:step, numbers, at "
                       "most %1 of them, not \"%2\"")
            .arg(QString::number(mostSimulations), text);
    }
    for (const SweptOption& other : before) {
        if (other.name == option.name) {
            return "--sweep " + option.name + " stands twice: " + text;
        }
    }
    return parser.isSet(option.name)
        ? QString("--sweep %1 and --%1 do not go together").arg(option.name)
        : QString();
}

QVector<SweptOption> readSweptOptions(const QCommandLineParser& parser, OptionReader& reader)
{
    QVector<SweptOption> swept;
    qint64 count = 1;
    const QStringList texts = parser.values("sweep");
    for (const QString& text : texts) {
        const SweptOption option = sweptOption(text);
        const QString mistake = mistakeIn(option, text, swept, parser);
        count *= option.values.size();
        if (!mistake.isEmpty() || count > mostSimulations) {
            reader.fail(!mistake.isEmpty()
                    ? mistake
                    : QString("--sweep asks for more than %1 simulations").arg(mostSimulations));
            return {};
        }
        swept.append(option);
    }
    return swept;
}

} // namespace

void addSweepOption(QCommandLineParser& parser)
{
    parser.addOption({"sweep",
        "Table of the figures over values of an option that takes a number, such as last=4,6,8 or "
        "start=0.1:0.5:0.1. Can be given more than once, for all combinations. A range alone is "
        "one of numbers of reversals.",
        "name=values"});
}

Sweep readSweep(const QCommandLineParser& parser, OptionReader& reader)
{
    const QVector<SweptOption> swept = readSweptOptions(parser, reader);
    Sweep sweep;
    QVector<QStringList> combinations {QStringList()};
    for (const SweptOption& option : swept) {
        sweep.options.append(option.name);
        QVector<QStringList> longer;
        for (const QStringList& combination : qAsConst(combinations)) {
            for (const QString& value : option.values) {
                longer.append(combination + QStringList {value});
            }
        }
        combinations = longer;
    }
    for (int i = 0; i < combinations.size() && !swept.isEmpty(); ++i) {
        QMap<QString, QString> values;
        for (int option = 0; option < swept.size(); ++option) {
            values.insert(swept[option].name, combinations[i][option]);
        }
        OptionReader ofOne(parser, values);
        sweep.simulations.append({combinations[i], readSimulation(ofOne)});
        if (!ofOne.errorText().isEmpty()) {
            reader.fail("--sweep: " + ofOne.errorText());
        }
    }
    return sweep;
}
