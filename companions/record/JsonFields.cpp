// SPDX-License-Identifier: GPL-3.0-or-later
// The kinds of fields that a record's lines have, to JSON and back.
#include "record/JsonFields.h"

#include "record/DataFields.h"
#include "session/AdaptedParameter.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <utility>

using namespace quorin;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

template <typename Object> QJsonValue objectOf(const Object& object)
{
    FieldWriter writer;
    Object::eachField(object, writer);
    return writer.object();
}

template <typename Object> bool readObject(const QJsonValue& json, Object& object)
{
    Object read;
    FieldReader reader(json.toObject());
    Object::eachField(read, reader);
    if (!reader.badKey().isEmpty()) {
        return false;
    }
    object = read;
    return true;
}

// A value that is undefined leaves no key in an object.
template <typename Object> QJsonValue objectOf(const std::optional<Object>& object)
{
    return object ? objectOf(*object) : QJsonValue(QJsonValue::Undefined);
}

template <typename Object> bool readObject(const QJsonValue& json, std::optional<Object>& object)
{
    if (json.isUndefined()) {
        object.reset();
        return true;
    }
    Object read;
    const bool isGood = readObject(json, read);
    object = isGood ? std::optional(read) : object;
    return isGood;
}

template <typename List> QJsonArray arrayOf(const List& list)
{
    QJsonArray array;
    for (const auto& entry : list) {
        array.append(asJson(entry));
    }
    return array;
}

template <typename List> bool readArray(const QJsonValue& json, List& list)
{
    List read;
    const QJsonArray array = json.toArray();
    for (const QJsonValue& entry : array) {
        typename List::value_type value {};
        if (!readJson(entry, value)) {
            return false;
        }
        read.append(value);
    }
    list = read;
    return json.isArray();
}

// Whole numbers are exact in JSON's doubles up to 2^53.
bool isWhole(const QJsonValue& json, double lowest, double highest)
{
    const double number = json.toDouble();
    return json.isDouble() && number == std::floor(number) && number >= lowest && number <= highest;
}

template <typename List> bool areOfTheTwoSounds(std::initializer_list<const List*> lists)
{
    return std::all_of(
        lists.begin(), lists.end(), [](const List* list) { return list->size() == deviant + 1; });
}

// The rules look into these lists, and multiply steps, without asking.
bool isUsable(const Data& data)
{
    constexpr int largestStep = 1000;
    const auto isSmall = [](int number) { return number >= -largestStep && number <= largestStep; };
    return areOfTheTwoSounds({&data.dur, &data.durToPlot, &data.freqToPlot, &data.amp, &data.mf,
               &data.md, &data.fd, &data.cf, &data.cfPhaseDeg, &data.mfPhaseDeg, &data.cfPhase,
               &data.mfPhase})
        && areOfTheTwoSounds({&data.nSamples, &data.nPointsToPlot, &data.nFreqPointsToPlot})
        && areOfTheTwoSounds({&data.wavNames}) && adaptedParameter(data.mainParameter) != nullptr
        && !data.stepSizes.isEmpty()
        && std::all_of(data.stepSizes.cbegin(), data.stepSizes.cend(), isSmall)
        && isSmall(data.stepFactor) && isSmall(data.stepFactorCorrect)
        && isSmall(data.stepFactorIncorrect);
}

} // namespace

QJsonValue asJson(bool value)
{
    return value;
}

QJsonValue asJson(int value)
{
    return value;
}

QJsonValue asJson(qint64 value)
{
    return value;
}

QJsonValue asJson(double value)
{
    if (std::isfinite(value)) {
        return value;
    }
    return std::isnan(value) ? QJsonValue("nan") : QJsonValue(value > 0.0 ? "inf" : "-inf");
}

QJsonValue asJson(const std::optional<double>& value)
{
    return value ? asJson(*value) : QJsonValue(QJsonValue::Null);
}

QJsonValue asJson(const QString& value)
{
    return value;
}

QJsonValue asJson(const QStringList& value)
{
    return arrayOf(value);
}

QJsonValue asJson(const QVector<int>& value)
{
    return arrayOf(value);
}

QJsonValue asJson(const QVector<double>& value)
{
    return arrayOf(value);
}

QJsonValue asJson(const QVector<QString>& value)
{
    return arrayOf(value);
}

QJsonValue asJson(const QJsonArray& value)
{
    return value;
}

QJsonValue asJson(const QJsonObject& value)
{
    return value;
}

QJsonValue asJson(const Data& value)
{
    FieldWriter writer;
    eachSetting(value, writer);
    return writer.object();
}

QJsonValue asJson(const std::optional<QString>& value)
{
    return value ? QJsonValue(*value) : QJsonValue(QJsonValue::Undefined);
}

QJsonValue asJson(const std::optional<ProtocolPlace>& value)
{
    return objectOf(value);
}

QJsonValue asJson(const CalibratedOutput& value)
{
    return objectOf(value);
}

QJsonValue asJson(const QVector<CalibratedOutput>& value)
{
    return arrayOf(value);
}

QJsonValue asJson(const CalibrationNote& value)
{
    return objectOf(value);
}

QJsonValue asJson(const std::optional<RunCalibration>& value)
{
    return objectOf(value);
}

bool readJson(const QJsonValue& json, bool& value)
{
    value = json.toBool(value);
    return json.isBool();
}

bool readJson(const QJsonValue& json, int& value)
{
    value = json.toInt(value);
    return isWhole(json, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
}

bool readJson(const QJsonValue& json, qint64& value)
{
    constexpr double largestExact = 9007199254740992.0;
    if (!isWhole(json, -largestExact, largestExact)) {
        return false;
    }
    value = static_cast<qint64>(json.toDouble());
    return true;
}

bool readJson(const QJsonValue& json, double& value)
{
    const QString text = json.toString();
    if (text == "nan") {
        value = std::numeric_limits<double>::quiet_NaN();
    } else if (text == "inf" || text == "-inf") {
        value = text == "inf" ? infinity : -infinity;
    } else if (json.isDouble()) {
        value = json.toDouble();
    } else {
        return false;
    }
    return true;
}

bool readJson(const QJsonValue& json, std::optional<double>& value)
{
    if (json.isNull()) {
        value.reset();
        return true;
    }
    double number = 0.0;
    if (!readJson(json, number)) {
        return false;
    }
    value = number;
    return true;
}

bool readJson(const QJsonValue& json, QString& value)
{
    value = json.toString(value);
    return json.isString();
}

bool readJson(const QJsonValue& json, QStringList& value)
{
    return readArray(json, value);
}

bool readJson(const QJsonValue& json, QVector<int>& value)
{
    return readArray(json, value);
}

bool readJson(const QJsonValue& json, QVector<double>& value)
{
    return readArray(json, value);
}

bool readJson(const QJsonValue& json, QVector<QString>& value)
{
    return readArray(json, value);
}

bool readJson(const QJsonValue& json, QJsonArray& value)
{
    value = json.toArray(value);
    return json.isArray();
}

bool readJson(const QJsonValue& json, QJsonObject& value)
{
    value = json.toObject(value);
    return json.isObject();
}

bool readJson(const QJsonValue& json, Data& value)
{
    if (!json.isObject()) {
        return false;
    }
    Data read;
    FieldReader reader(json.toObject());
    eachSetting(read, reader);
    if (!reader.badKey().isEmpty() || !isUsable(read)) {
        return false;
    }
    value = read;
    return true;
}

bool readJson(const QJsonValue& json, std::optional<QString>& value)
{
    value = json.isString() ? std::optional(json.toString()) : std::nullopt;
    return json.isString() || json.isUndefined();
}

bool readJson(const QJsonValue& json, std::optional<ProtocolPlace>& value)
{
    return readObject(json, value);
}

bool readJson(const QJsonValue& json, CalibratedOutput& value)
{
    return readObject(json, value);
}

bool readJson(const QJsonValue& json, QVector<CalibratedOutput>& value)
{
    return readArray(json, value);
}

bool readJson(const QJsonValue& json, CalibrationNote& value)
{
    return readObject(json, value);
}

bool readJson(const QJsonValue& json, std::optional<RunCalibration>& value)
{
    return readObject(json, value);
}

FieldReader::FieldReader(QJsonObject object)
    : m_object(std::move(object))
{
}
