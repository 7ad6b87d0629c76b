#include "CFormatChoice.h"

#include "CItemImages.h"
#include "CItemModel.h"
#include "CProjectModel.h"
#include "CWidgetLibraryModel.h"
#include "FormatFit.h"
#include "PackagePaths.h"
#include "PropertyKey.h"
#include "StopSignals.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QRunnable>
#include <QThread>
#include <QThreadPool>

#include <atomic>
#include <cmath>

namespace {

/// The formats that the item's kind offers on the project's chip.
QStringList formatsOf(const CItemModel &item)
{
    QStringList formats = item.properties().value(PropertyKey::Format).enumerationEntries();
    formats.removeAll(QStringLiteral("None"));
    return formats;
}

} // namespace

CFormatChoice::CFormatChoice(const CProjectModel &project, const SProjectBudget &budget)
    : m_project(project), m_budget(budget)
{
    for (const SAssetUse &asset : budget.assets) {
        const CItemModel *item = asset.items.isEmpty() ? nullptr : asset.items.first();
        if (!item || !item->hasProperty(PropertyKey::BaseName) || CItemImages::isMedia(*item))
            continue;
        const QString source = CItemImages::sourceOf(*item);
        if (source.isEmpty())
            continue; // nothing is left of which it could be made anew
        SImage image{&asset, source, item->propertyText(PropertyKey::Format), {}, -1};
        for (const QString &format : formatsOf(*item)) {
            SFormatTrial trial;
            trial.format = format;
            image.trials.append(trial);
        }
        m_images.append(image);
    }
}

void CFormatChoice::measure()
{
    std::atomic<bool> cancelled{false};
    const QString folder = QCoreApplication::applicationDirPath();
    QThreadPool threads;
    for (SImage &image : m_images)
        for (SFormatTrial &trial : image.trials) {
            SFormatTrial *const result = &trial;
            const QString source = image.source;
            threads.start([result, source, folder, &cancelled] {
                *result = tryFormat(source, result->format, folder, cancelled);
            });
        }
    constexpr int StepTime = 50; // milliseconds
    while (!threads.waitForDone(StepTime))
        if (StopSignals::exitCode() != 0) {
            threads.clear();
            cancelled = true;
        }
    propose();
}

void CFormatChoice::propose()
{
    QVector<FormatFit::SImage> images;
    for (const SImage &image : qAsConst(m_images)) {
        FormatFit::SImage options;
        for (const SFormatTrial &trial : image.trials)
            if (trial.problem.isEmpty())
                options.options.append({size_t(trial.bytes), trial.error.squares});
        if (options.options.isEmpty())
            options.options.append({image.asset->bytes, 0}); // stays as it is
        images.append(options);
    }
    QVector<FormatFit::SScreen> screens;
    for (const SScreenBudget &screen : m_budget.screens) {
        FormatFit::SScreen limits;
        limits.budget = screen.ramG.budget;
        limits.otherBytes = screen.ramG.used;
        for (int i = 0; i < m_images.size(); ++i)
            for (const SAssetUse &asset : screen.assets)
                if (asset.file == m_images[i].asset->file &&
                    asset.format == m_images[i].asset->format) {
                    limits.images.append(i);
                    limits.otherBytes -= std::min(limits.otherBytes, asset.bytes);
                }
        screens.append(limits);
    }
    const FormatFit::SChoice choice = FormatFit::choose(images, screens);
    m_fits = choice.fits;
    for (int i = 0; i < m_images.size(); ++i) {
        int option = choice.options[i];
        for (int trial = 0; trial < m_images[i].trials.size(); ++trial)
            if (m_images[i].trials[trial].problem.isEmpty() && option-- == 0)
                m_images[i].proposed = trial;
    }
}

QStringList CFormatChoice::toLines() const
{
    QStringList lines;
    for (const SImage &image : m_images) {
        const QString file = fileInPackage(image.asset->file, m_project.workingDirectory());
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
    for (const SImage &image : m_images) {
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
            {QStringLiteral("file"),
             fileInPackage(image.asset->file, m_project.workingDirectory())},
            {QStringLiteral("format"), image.format},
            {QStringLiteral("trials"), trials},
            {QStringLiteral("proposed"),
             image.proposed < 0 ? QJsonValue() : QJsonValue(image.trials[image.proposed].format)}});
    }
    return images;
}
