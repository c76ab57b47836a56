// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/RecordLines.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

// One field of a line to JSON and back. A double that is not finite, for which JSON has no number,
// is one of the texts "nan", "inf" and "-inf". A place in a protocol, a calibration, or a text,
// that is not there has no key. Reading changes the field only if the value is one of its kind, and
// says whether it is.

QJsonValue asJson(bool value);
QJsonValue asJson(int value);
QJsonValue asJson(qint64 value);
QJsonValue asJson(double value);
QJsonValue asJson(const std::optional<double>& value);
QJsonValue asJson(const QString& value);
QJsonValue asJson(const QStringList& value);
QJsonValue asJson(const QVector<int>& value);
QJsonValue asJson(const QVector<double>& value);
QJsonValue asJson(const QVector<QString>& value);
QJsonValue asJson(const QJsonArray& value);
QJsonValue asJson(const QJsonObject& value);
QJsonValue asJson(const Data& value);
QJsonValue asJson(const std::optional<QString>& value);
QJsonValue asJson(const std::optional<ProtocolPlace>& value);
QJsonValue asJson(const CalibratedOutput& value);
QJsonValue asJson(const QVector<CalibratedOutput>& value);
QJsonValue asJson(const CalibrationNote& value);
QJsonValue asJson(const std::optional<RunCalibration>& value);

bool readJson(const QJsonValue& json, bool& value);
bool readJson(const QJsonValue& json, int& value);
bool readJson(const QJsonValue& json, qint64& value);
bool readJson(const QJsonValue& json, double& value);
bool readJson(const QJsonValue& json, std::optional<double>& value);
bool readJson(const QJsonValue& json, QString& value);
bool readJson(const QJsonValue& json, QStringList& value);
bool readJson(const QJsonValue& json, QVector<int>& value);
bool readJson(const QJsonValue& json, QVector<double>& value);
bool readJson(const QJsonValue& json, QVector<QString>& value);
bool readJson(const QJsonValue& json, QJsonArray& value);
bool readJson(const QJsonValue& json, QJsonObject& value);
bool readJson(const QJsonValue& json, Data& value);
bool readJson(const QJsonValue& json, std::optional<QString>& value);
bool readJson(const QJsonValue& json, std::optional<ProtocolPlace>& value);
bool readJson(const QJsonValue& json, CalibratedOutput& value);
bool readJson(const QJsonValue& json, QVector<CalibratedOutput>& value);
bool readJson(const QJsonValue& json, CalibrationNote& value);
bool readJson(const QJsonValue& json, std::optional<RunCalibration>& value);

/// Fills an object from the fields that it is called with.
class FieldWriter {
public:
    template <typename Field> void operator()(const char* key, const Field& field)
    {
        m_object.insert(QLatin1String(key), asJson(field));
    }
    const QJsonObject& object() const { return m_object; }

private:
    QJsonObject m_object;
};

/// Fills the fields that it is called with from an object, and keeps the first key that is missing
/// or whose value is of another kind. Keys that are not asked for do not matter.
class FieldReader {
public:
    explicit FieldReader(QJsonObject object);

    template <typename Field> void operator()(const char* key, Field& field)
    {
        if (m_badKey.isEmpty() && !readJson(m_object.value(QLatin1String(key)), field)) {
            m_badKey = QLatin1String(key);
        }
    }
    /// Empty if there is none.
    QString badKey() const { return m_badKey; }

private:
    QJsonObject m_object;
    QString m_badKey;
};
