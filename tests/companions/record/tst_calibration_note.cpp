// SPDX-License-Identifier: GPL-3.0-or-later
// Calibration notes as files, what they may hold, and the levels that follow from them.
#include "SampleNote.h"
#include "record/JsonFields.h"
#include "record/SoundLevels.h"
#include "session/Data.h"
#include "support/QuietTest.h"

#include <cmath>

using namespace quorin;

namespace {

QJsonObject sampleObject()
{
    return QJsonDocument::fromJson(calibrationBytes(sampleNote())).object();
}

QString fileOf(const QTemporaryDir& folder, const QByteArray& bytes)
{
    QFile file(folder.filePath("note.json"));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? file.fileName()
                                                                                : QString();
}

void row(const char* key, const QJsonValue& value)
{
    QTest::addRow("%s: %s", key, qPrintable(value.toVariant().toString())) << key << value;
}

// A tone under a modulation of whole periods.
double toneLevelDb(double depth)
{
    const double normalisation = 1.0 + depth;
    return 10.0 * std::log10((1.0 + depth * depth / 2.0) / 2.0 / (normalisation * normalisation));
}

bool isNear(double level, double expected)
{
    constexpr double toneTolerance = 1e-6; // dB; the carrier's periods are whole as well
    return std::abs(level - expected) < toneTolerance;
}

Data modulatedTone()
{
    Data data;
    data.soundType = sinusoidCarrier;
    data.mainParameter = modulationDepthParameter;
    return data;
}

} // namespace

class TestCalibrationNote : public QuietTest {
    Q_OBJECT

private slots:
    void note_comesBackFromItsFile()
    {
        const QTemporaryDir folder;
        const QByteArray bytes = calibrationBytes(sampleNote());
        const ReadNote read = readCalibrationNote(fileOf(folder, bytes));
        QCOMPARE(read.error, QString());
        QCOMPARE(calibrationBytes(read.note), bytes);
        QCOMPARE(read.note.remark, sampleNote().remark);
        QCOMPARE(read.note.outputs.value(1).volumes, QVector<double>({40.0, 40.5}));
        QCOMPARE(read.note.frequency, std::optional<double>(1000.0));
    }

    void impossibleField_isRefused_data()
    {
        addColumns<QString, QJsonValue>("key", "value");
        row("version", 2);
        row("outputs", QJsonArray());
        row("ear", "middle");
        row("sound", "voice");
        row("sound", "noise"); // with a frequency
        row("rate_hz", 7999);
        row("frequency_hz", QJsonValue::Null); // of a tone
        row("frequency_hz", 0.5);
        row("level_db", 0.1);
        row("level_db", -121);
        row("reading_db_spl", 19.9);
        row("reading_db_spl", 120.1);
        row("reading_db_spl", "nan");
        row("weighting", "B");
    }

    void impossibleField_isRefused()
    {
        QFETCH(QString, key);
        QFETCH(QJsonValue, value);
        QJsonObject object = sampleObject();
        object[key] = value;
        const QTemporaryDir folder;
        const QString path = fileOf(folder, QJsonDocument(object).toJson());
        const QString named = key == "sound" && value == "noise" ? "frequency_hz" : key;
        QCOMPARE(
            readCalibrationNote(path).error, '"' + named + "\" cannot be true of a calibration");
    }

    void fileThatIsNoNote_isRefused()
    {
        const QTemporaryDir folder;
        QCOMPARE(readCalibrationNote(folder.filePath("none")).error,
            QString("cannot be read: No such file or directory"));
        QCOMPARE(readCalibrationNote(fileOf(folder, "[]")).error,
            QString("is no calibration note: no JSON object"));
        QCOMPARE(readCalibrationNote(fileOf(folder, "{}")).error,
            QString("is no calibration note: \"version\" is missing or of a wrong kind"));
        QJsonObject object = sampleObject();
        object["outputs"] = QJsonArray({QJsonObject({{"name", "card"}})});
        QCOMPARE(readCalibrationNote(fileOf(folder, QJsonDocument(object).toJson())).error,
            QString("is no calibration note: \"outputs\" is missing or of a wrong kind"));
    }

    void note_satisfiesTheSchema_andNothingElseDoes()
    {
        const QTemporaryDir folder;
        const QString path = fileOf(folder, calibrationBytes(sampleNote()));
        const char* const check = "import json, jsonschema, sys\n"
                                  "schema = json.load(open(sys.argv[1]))\n"
                                  "jsonschema.Draft202012Validator.check_schema(schema)\n"
                                  "validator = jsonschema.Draft202012Validator(schema)\n"
                                  "note = json.load(open(sys.argv[2], encoding='utf-8'))\n"
                                  "validator.validate(note)\n"
                                  "for key in note:\n"
                                  "    less = dict(note)\n"
                                  "    del less[key]\n"
                                  "    assert not validator.is_valid(less), key\n"
                                  "    assert not validator.is_valid({**note, key: []}), key\n"
                                  "assert not validator.is_valid({**note, 'more': 1})\n"
                                  "print(len(note))\n";
        QProcess python;
        python.setProcessChannelMode(QProcess::MergedChannels);
        python.start("/usr/bin/python3", {"-c", check, NOTE_SCHEMA, path});
        QVERIFY(python.waitForFinished());
        QCOMPARE(QString(python.readAll()), QString("12\n"));
    }

    void sameOutputs_doNotDiffer()
    {
        QVector<CalibratedOutput> now = sampleNote().outputs;
        QCOMPARE(differencesFrom(sampleNote(), now), QStringList());
        now[1].volumes[0] += 0.04; // a server may round
        now[1].description = "renamed";
        QCOMPARE(differencesFrom(sampleNote(), now), QStringList());
    }

    void otherOutputOrVolume_isTold()
    {
        QVector<CalibratedOutput> now = sampleNote().outputs;
        now[1].volumes = {40.0, 41.0};
        QCOMPARE(differencesFrom(sampleNote(), now),
            QStringList("the volume of card is 40.0, 41.0 %, in the note 40.0, 40.5 %"));
        now[0].name = "card";
        now.removeLast();
        QCOMPARE(differencesFrom(sampleNote(), now),
            QStringList({"the output is card, the note is of one_ear",
                "sounds pass 1 outputs, in the note 2"}));
        QCOMPARE(differencesFrom(sampleNote(), {}),
            QStringList("the sound server does not tell its output and volume"));
    }

    void mutedOutput_isTold()
    {
        QVector<CalibratedOutput> now = sampleNote().outputs;
        now[1].isMuted = true;
        QCOMPARE(differencesFrom(sampleNote(), now), QStringList("the output card is muted"));
    }

    void levels_areThoseOfTheSounds_data()
    {
        QTest::addColumn<double>("depth");
        QTest::newRow("no modulation") << 0.0;
        QTest::newRow("half") << 0.5;
        QTest::newRow("full") << 1.0;
    }

    void levels_areThoseOfTheSounds()
    {
        QFETCH(double, depth);
        Data data = modulatedTone();
        data.md = {0.0, depth};
        const auto equalised = trialLevelsDb(data);
        QVERIFY(isNear(equalised[standard], toneLevelDb(depth)));
        QVERIFY(isNear(equalised[deviant], toneLevelDb(depth)));
        data.equalizeRms = false;
        QVERIFY(isNear(trialLevelsDb(data)[standard], -10.0 * std::log10(2.0)));
    }

    void levels_ofNoise_areThoseOfItsDistribution()
    {
        Data data;
        data.soundType = noiseCarrier;
        data.md = {0.0, 0.0};
        constexpr double sixDeviations = 0.15; // dB, of the RMS of 24000 uniform numbers
        QVERIFY(std::abs(trialLevelsDb(data)[deviant] + 10.0 * std::log10(3.0)) < sixDeviations);
        data.nSamples = {0, 0};
        QVERIFY(std::isnan(trialLevelsDb(data)[standard]));
    }

    void pressure_followsTheDigitalLevel()
    {
        QCOMPARE(pressureLevelDb(sampleNote(), -30.0), 70.0);
        QCOMPARE(pressureLevelDb(sampleNote(), -3.0), 97.0);
        QCOMPARE(spectrumLevelDb(80.0, 40000.0), 80.0 - 10.0 * std::log10(20000.0));
    }

    void rangeOfARun_goesFromItsDeepestToItsShallowestModulation()
    {
        const LevelRange range = levelRange(modulatedTone(), 0.1, 1.0);
        QVERIFY(isNear(range.startDb[standard], toneLevelDb(0.5)));
        QVERIFY(isNear(range.startDb[deviant], toneLevelDb(0.5)));
        QVERIFY(isNear(range.lowestDb, toneLevelDb(1.0)));
        QVERIFY(isNear(range.highestDb, toneLevelDb(0.1)));
    }
};

QUORIN_GUILESS_TEST(TestCalibrationNote);
#include "tst_calibration_note.moc"
