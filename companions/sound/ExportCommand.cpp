// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-sound export from its options to its files.
#include "sound/ExportCommand.h"

#include "output/OutputFile.h"
#include "sound/ExportOptions.h"
#include "sound/SoundPicture.h"
#include "sound/SoundTable.h"
#include "sound/WavFile.h"

#include <QDir>

#include <algorithm>

using namespace quorin;

namespace {

/// Makes the sounds and writes what was asked for.
class Export {
public:
    Export(const ExportOptions& options, StandardStreams& streams)
        : m_options(options)
        , m_streams(streams)
        , m_rate(options.data.fs)
    {
    }

    int make()
    {
        if (!checkOutputs()) {
            return somethingIsWrong;
        }
        m_sounds = trialSounds(m_options.data, m_options.draws);
        for (const int i : {standard, deviant}) {
            m_figures.at(static_cast<size_t>(i)) = soundFigures(m_sounds.samples[i], m_rate);
        }
        writeFiles();
        const QString table = soundTable(m_figures, m_options.data.nSamples, m_rate);
        const int status = m_streams.print(table, success);
        warnOfClipping();
        return m_isGood ? status : somethingIsWrong;
    }

private:
    OutputFile soundFile(int index) const
    {
        return {QDir(m_options.folder).filePath(m_options.data.wavNames[index]),
            OutputFile::Kind::unmarked, {}, false};
    }

    OutputFile tableFile() const
    {
        return {m_options.csvPath, OutputFile::Kind::table, soundHeadings().toUtf8(),
            m_options.isForced};
    }

    // All or nothing, as far as it can be told before.
    bool checkOutputs()
    {
        if (!m_options.folder.isEmpty()) {
            complainIfAny(outputObstacle(soundFile(standard)));
            complainIfAny(outputObstacle(soundFile(deviant)));
        }
        if (!m_options.csvPath.isEmpty()) {
            complainIfAny(outputObstacle(tableFile()));
        }
        if (!m_options.plotPath.isEmpty()) {
            complainIfAny(outputObstacle(
                {m_options.plotPath, OutputFile::Kind::marked, {}, m_options.isForced}));
        }
        return m_isGood;
    }

    void writeFiles()
    {
        if (!m_options.folder.isEmpty()) {
            writeSound(standard);
            writeSound(deviant);
        }
        if (!m_options.csvPath.isEmpty()) {
            const QString rows = soundRows(m_figures, m_options.data.nSamples, m_rate);
            complainIfAny(writeOutput(tableFile(), (soundHeadings() + '\n' + rows).toUtf8()));
        }
        if (!m_options.plotPath.isEmpty()) {
            complainIfAny(
                writeSoundPicture(m_options.plotPath, m_sounds, m_rate, m_options.isForced));
        }
    }

    void writeSound(int index)
    {
        const OutputFile file = soundFile(index);
        const QByteArray content = wavFile(m_sounds.samples[index], static_cast<int>(m_rate));
        complainIfAny(content.isEmpty() ? file.path + ": the sound cannot be made into a file"
                                        : writeOutput(file, content));
    }

    void warnOfClipping()
    {
        const double peak = std::max(m_figures[standard].peak, m_figures[deviant].peak);
        if (peak > 1.0) {
            m_streams.complain(QString("the peak is %1 of full scale: what plays it clips it, "
                                       "unless it is turned down before")
                                   .arg(peak));
        }
    }

    void complainIfAny(const QString& what)
    {
        if (!what.isEmpty()) {
            m_streams.complain(what);
            m_isGood = false;
        }
    }

    const ExportOptions& m_options;
    StandardStreams& m_streams;
    double m_rate; ///< Hz
    TrialSounds m_sounds;
    BothFigures m_figures {};
    bool m_isGood = true;
};

} // namespace

int runExport(const QStringList& arguments, StandardStreams& streams)
{
    const ExportOptions options = exportOptions(arguments);
    return options.answer ? streams.say(*options.answer) : Export(options, streams).make();
}
