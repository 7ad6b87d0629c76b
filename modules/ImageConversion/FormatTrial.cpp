#include "FormatTrial.h"

#include "CBitmapFormatTable.h"
#include "CConversionPaths.h"
#include "CToolProcess.h"
#include "ConvertedImageFacts.h"
#include "ImageTools.h"
#include "PictureFile.h"
#include "executor/BitmapFormats.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstring>

namespace {

constexpr int LongestTool = 60'000; // milliseconds
constexpr int WaitStep = 50;

class CTrial
{
    Q_DECLARE_TR_FUNCTIONS(SFormatTrial)

public:
    CTrial(QString source, const QString &programFolder, const std::atomic<bool> &cancelled)
        : m_source(std::move(source)), m_programFolder(programFolder), m_cancelled(cancelled)
    {
    }

    /// The reason, or empty.
    QString run(int code, SFormatTrial &trial)
    {
        const CConversionPaths paths(m_scratch.filePath(QStringLiteral("x")),
                                     QFileInfo(m_source).fileName());
        const QString folder = paths.folder(code);
        if (!m_scratch.isValid() || !QDir().mkpath(folder) ||
            !QFile::copy(m_source, QDir(folder).filePath(paths.fileName())))
            return tr("%1 cannot be copied").arg(m_source);
        if (ImageTools::needsQuantiser(code)) {
            const QString reason = run(ImageTools::quantiser(paths, code, m_programFolder));
            if (!reason.isEmpty())
                return reason;
            useQuantised(paths, folder);
        }
        const QString reason = run(ImageTools::conversion(paths, code, m_programFolder));
        return reason.isEmpty() ? decode(paths.output(code), code, trial) : reason;
    }

private:
    QString run(const SToolCall &call) const
    {
        CToolProcess process;
        process.setWorkingDirectory(call.workingFolder);
        process.setStandardInputFile(QProcess::nullDevice());
        process.setStandardOutputFile(QProcess::nullDevice());
        process.setStandardErrorFile(QProcess::nullDevice());
        QString program = call.program;
        process.startGroup(program.remove(QLatin1Char('"')), call.arguments);
        QElapsedTimer time;
        time.start();
        const QString name = QFileInfo(program).completeBaseName();
        if (!process.waitForStarted(LongestTool))
            return tr("%1 cannot be started").arg(name);
        while (!process.waitForFinished(WaitStep) && process.state() != QProcess::NotRunning)
            if (m_cancelled || time.elapsed() > LongestTool) {
                process.killGroup();
                process.waitForFinished(LongestTool);
                return tr("%1 was ended").arg(name);
            }
        process.killGroup();
        const bool isFine = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
        return isFine ? QString() : tr("%1 failed").arg(name);
    }

    static void useQuantised(const CConversionPaths &paths, const QString &folder)
    {
        const QStringList names = ImageTools::quantisedNames(paths);
        for (const QString &name : names)
            if (QFile::exists(QDir(folder).filePath(name)) && name != names.first())
                QFile::rename(QDir(folder).filePath(name), QDir(folder).filePath(names.first()));
    }

    static QByteArray read(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static QString decode(const QString &rawFile, int code, SFormatTrial &trial)
    {
        using namespace kivemu;
        const QSize size = describedSize(rawFile);
        QByteArray memory = read(rawFile);
        const auto palette = static_cast<uint32_t>(memory.size());
        const QFileInfo file(rawFile);
        memory +=
            read(file.path() + QLatin1Char('/') + file.completeBaseName() + QStringLiteral(".lut"));
        const auto format = static_cast<uint32_t>(code);
        const auto image =
            decodeBitmap(reinterpret_cast<const uint8_t *>(memory.constData()),
                         static_cast<size_t>(memory.size()), format, 0,
                         bitmapStride(format, size.width()), palette, size.width(), size.height());
        if (!image)
            return tr("%1 cannot be read").arg(file.fileName());
        trial.bytes = qint64(bitmapSize(format, size.width(), size.height())) + paletteSize(format);
        trial.picture = QImage(size, QImage::Format_ARGB32_Premultiplied);
        for (int y = 0; y < size.height(); ++y)
            std::memcpy(trial.picture.scanLine(y), image->at(0, y),
                        static_cast<size_t>(size.width()) * sizeof(uint32_t));
        return {};
    }

    const QString m_source;
    const QString m_programFolder;
    const std::atomic<bool> &m_cancelled;
    QTemporaryDir m_scratch;
};

} // namespace

SFormatTrial tryFormat(const QString &source, const QString &format, const QString &programFolder,
                       const std::atomic<bool> &cancelled)
{
    SFormatTrial trial;
    trial.format = format;
    const int code = CBitmapFormatTable::code(format);
    QString reason;
    const QImage original = PictureFile::read(source, PictureFile::formatOf(source), {}, &reason);
    if (original.isNull()) {
        trial.problem = reason;
        return trial;
    }
    if (CBitmapFormatTable::path(code) == CBitmapFormatTable::EPath::None) {
        trial.problem = QCoreApplication::translate("SFormatTrial", "there is no such format");
        return trial;
    }
    trial.problem = CTrial(source, programFolder, cancelled).run(code, trial);
    if (trial.problem.isEmpty() && trial.picture.size() != original.size())
        trial.problem = QCoreApplication::translate("SFormatTrial", "its size is another");
    if (trial.problem.isEmpty())
        trial.error = pictureError(original, trial.picture);
    return trial;
}
