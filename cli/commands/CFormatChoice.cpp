#include "CFormatChoice.h"

#include "CProjectModel.h"
#include "PackagePaths.h"
#include "StopSignals.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QRunnable>
#include <QThread>
#include <QThreadPool>

#include <atomic>
#include <cmath>

CFormatChoice::CFormatChoice(const CProjectModel &project, const SProjectBudget &budget)
    : m_project(project), m_budget(budget), m_images(FormatProposal::imagesOf(budget))
{
}

void CFormatChoice::measure()
{
    std::atomic<bool> cancelled{false};
    const QString folder = QCoreApplication::applicationDirPath();
    QThreadPool threads;
    for (SImageTrials &image : m_images)
        for (SFormatTrial &trial : image.trials) {
            SFormatTrial *const result = &trial;
            const QString source = image.source;
            threads.start([result, source, folder, &cancelled] {
                *result = tryFormat(source, result->format, folder, cancelled);
                result->picture = {}; // all of a project would be much
            });
        }
    constexpr int StepTime = 50; // milliseconds
    while (!threads.waitForDone(StepTime))
        if (StopSignals::exitCode() != 0) {
            threads.clear();
            cancelled = true;
        }
    m_fits = FormatProposal::propose(m_images, m_budget);
}

QStringList CFormatChoice::toLines() const
{
    QStringList lines;
    for (const SImageTrials &image : m_images) {
        const QString file = fileInPackage(image.asset.file, m_project.workingDirectory());
        for (const SFormatTrial &trial : image.trials)
            lines.append(
                trial.problem.isEmpty()
                    ? QStringLiteral("%1 as %2: %3 bytes, PSNR %4 dB, SSIM %5")
                          .arg(file, trial.format)
                          .arg(trial.bytes)
                          .arg(trial.error.psnr, 0, 'f', 1)
                          .arg(trial.error.ssim, 0, 'f', 4)
                    : QStringLiteral("%1 as %2: %3").arg(file, trial.format, trial.problem));
        if (image.proposed >= 0)
            lines.append(QStringLiteral("%1: %2 is proposed, it is %3")
                             .arg(file, image.trials[image.proposed].format, image.format));
    }
    if (!m_images.isEmpty())
        lines.append(m_fits ? QStringLiteral("With these formats every screen fits.")
                            : QStringLiteral("No formats make every screen fit."));
    return lines;
}

QJsonArray CFormatChoice::toJson() const
{
    QJsonArray images;
    for (const SImageTrials &image : m_images) {
        QJsonArray trials;
        for (const SFormatTrial &trial : image.trials) {
            QJsonObject object{{QStringLiteral("format"), trial.format}};
            if (!trial.problem.isEmpty()) {
                object.insert(QStringLiteral("problem"), trial.problem);
            } else {
                object.insert(QStringLiteral("bytes"), trial.bytes);
                object.insert(QStringLiteral("psnr"), std::isinf(trial.error.psnr)
                                                          ? QJsonValue()
                                                          : QJsonValue(trial.error.psnr));
                object.insert(QStringLiteral("ssim"), trial.error.ssim);
            }
            trials.append(object);
        }
        images.append(QJsonObject{
            {QStringLiteral("file"), fileInPackage(image.asset.file, m_project.workingDirectory())},
            {QStringLiteral("format"), image.format},
            {QStringLiteral("trials"), trials},
            {QStringLiteral("proposed"),
             image.proposed < 0 ? QJsonValue() : QJsonValue(image.trials[image.proposed].format)}});
    }
    return images;
}
