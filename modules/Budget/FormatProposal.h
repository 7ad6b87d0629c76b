#pragma once

#include "FormatTrial.h"
#include "SBudget.h"

/// An image of the project, and what it would be in each format that its items offer.
struct SImageTrials
{
    SAssetUse asset;              ///< of the budget
    QString source;               ///< the file that it was made of
    QString format;               ///< that it has
    bool isLocked = false;        ///< an item that shows it is, so it stays as it is
    QVector<SFormatTrial> trials; ///< with names only until they are tried
    int proposed = -1;            ///< of the trials; -1: it stays as it is
};

namespace FormatProposal {

/// What a screen would need of the graphics memory.
struct SSum
{
    const SScreenBudget *screen; ///< of the budget that was given
    size_t bytes;
};

/// Untried; without a source when it could not be made anew. The asset's items are all there.
SImageTrials trialsOf(const SAssetUse &asset);
/// The images that could be made anew, untried. The budget's items are all there.
QVector<SImageTrials> imagesOf(const SProjectBudget &budget);
/// Proposes a format for each image that was tried and is not locked, by FormatFit. Whether every
/// screen fits then.
bool propose(QVector<SImageTrials> &images, const SProjectBudget &budget);
/// Each screen with what is proposed. The emulator's figure, or up to 3 bytes more for a gap that
/// is none at the end of the memory.
QVector<SSum> sumsOf(const QVector<SImageTrials> &images, const SProjectBudget &budget);

} // namespace FormatProposal
