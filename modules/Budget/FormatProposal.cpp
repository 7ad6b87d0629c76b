#include "FormatProposal.h"

#include "CItemImages.h"
#include "CItemModel.h"
#include "CWidgetLibraryModel.h"
#include "FormatFit.h"
#include "PictureFile.h"
#include "PropertyKey.h"

#include <QHash>

#include <algorithm>

namespace {

/// The formats that the item's kind offers on the project's chip.
QStringList formatsOf(const CItemModel &item)
{
    QStringList formats = item.properties().value(PropertyKey::Format).enumerationEntries();
    formats.removeAll(QStringLiteral("None"));
    return formats;
}

/// With the gap behind it: all that lies in graphics memory begins at a multiple of 4.
size_t placeOf(size_t bytes)
{
    constexpr size_t Alignment = 4;
    return (bytes + Alignment - 1) / Alignment * Alignment;
}

QString keyOf(const SAssetUse &asset)
{
    return QStringLiteral("%1/%2").arg(asset.format).arg(asset.file);
}

/// What the screens need beside the images, and which of these each shows.
QVector<FormatFit::SScreen> limitsOf(const QVector<SImageTrials> &images,
                                     const SProjectBudget &budget)
{
    QHash<QString, int> known;
    for (int i = 0; i < images.size(); ++i)
        known.insert(keyOf(images[i].asset), i);
    QVector<FormatFit::SScreen> screens;
    for (const SScreenBudget &screen : budget.screens) {
        FormatFit::SScreen limits;
        limits.budget = screen.ramG.budget;
        limits.otherBytes = placeOf(screen.ramG.used);
        for (const SAssetUse &asset : screen.assets) {
            const int image = known.value(keyOf(asset), -1);
            if (image < 0)
                continue;
            limits.images.append(image);
            limits.otherBytes -= std::min(limits.otherBytes, placeOf(asset.bytes));
        }
        screens.append(limits);
    }
    return screens;
}

size_t bytesOf(const SImageTrials &image)
{
    return image.proposed < 0 ? image.asset.bytes : size_t(image.trials[image.proposed].bytes);
}

} // namespace

namespace FormatProposal {

SImageTrials trialsOf(const SAssetUse &asset)
{
    SImageTrials image;
    image.asset = asset;
    const auto item =
        std::find_if(asset.items.begin(), asset.items.end(), [](const CItemModel *each) {
            return each->hasProperty(PropertyKey::BaseName) && !CItemImages::isMedia(*each);
        });
    if (item == asset.items.end())
        return image;
    const QString source = CItemImages::sourceOf(**item);
    if (PictureFile::formatOf(source).isEmpty())
        return image; // nothing is left of which it could be made, or it was raw from the start
    image.source = source;
    image.format = (*item)->propertyText(PropertyKey::Format);
    image.isLocked = std::any_of(asset.items.begin(), asset.items.end(),
                                 [](const CItemModel *each) { return each->isUnderLock(); });
    for (const QString &format : formatsOf(**item)) {
        SFormatTrial trial;
        trial.format = format;
        image.trials.append(trial);
    }
    return image;
}

QVector<SImageTrials> imagesOf(const SProjectBudget &budget)
{
    QVector<SImageTrials> images;
    for (const SAssetUse &asset : budget.assets) {
        const SImageTrials image = trialsOf(asset);
        if (!image.source.isEmpty())
            images.append(image);
    }
    return images;
}

bool propose(QVector<SImageTrials> &images, const SProjectBudget &budget)
{
    QVector<FormatFit::SImage> choices;
    QVector<QVector<int>> tried; // the trial of each option
    for (const SImageTrials &image : qAsConst(images)) {
        FormatFit::SImage options;
        QVector<int> trials;
        for (int i = 0; i < image.trials.size() && !image.isLocked; ++i) {
            const SFormatTrial &trial = image.trials[i];
            if (!trial.problem.isEmpty() || trial.bytes <= 0)
                continue;
            options.options.append({placeOf(size_t(trial.bytes)), trial.error.squares});
            trials.append(i);
        }
        if (options.options.isEmpty())
            options.options.append({placeOf(image.asset.bytes), 0}); // stays as it is
        choices.append(options);
        tried.append(trials);
    }
    const FormatFit::SChoice choice = FormatFit::choose(choices, limitsOf(images, budget));
    for (int i = 0; i < images.size(); ++i)
        images[i].proposed = tried[i].value(choice.options[i], -1);
    return choice.fits;
}

QVector<SSum> sumsOf(const QVector<SImageTrials> &images, const SProjectBudget &budget)
{
    const QVector<FormatFit::SScreen> limits = limitsOf(images, budget);
    QVector<SSum> sums;
    for (int i = 0; i < limits.size(); ++i) {
        SSum sum{&budget.screens[i], limits[i].otherBytes};
        bool isChanged = false;
        for (const int image : limits[i].images) {
            sum.bytes += placeOf(bytesOf(images[image]));
            isChanged = isChanged || bytesOf(images[image]) != images[image].asset.bytes;
        }
        if (!isChanged)
            sum.bytes = sum.screen->ramG.used;
        sums.append(sum);
    }
    return sums;
}

} // namespace FormatProposal
