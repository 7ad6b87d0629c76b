#pragma once

#include "CCheckResults.h"
#include "CCommandDeleteImage.h"

#include <QString>

/// What the user can do about findings, each as one step that can be undone.
namespace CheckFixes {

/// What a mend would do, for a menu; empty when there is no safe one.
QString mend(const CCheckResults::SEntry &entry);
void apply(CProjectModel &project, const CCheckResults::SEntry &entry);
/// Not empty: the image is to be converted again instead, from this file.
QString sourceToConvert(const CCheckResults::SEntry &entry);
/// Whether it removes a file instead: to be asked before.
bool removesFile(const CCheckResults::SEntry &entry);
void removeFile(CProjectModel &project, const CCheckResults::SEntry &entry,
                const CCommandDeleteImage::SCalls &calls);

/// What of the project the rule measures by, and the user may set.
struct SMeasure
{
    QString key;   ///< of the project's property; empty when there is none
    QString title; ///< for a menu
    QString question;
    double usual = 0;
    double most = 0;
};
QVector<SMeasure> measures(); ///< all there are
SMeasure measure(const CCheckResults::SEntry &entry);
void setMeasure(CProjectModel &project, const QString &key, double value);

/// Ignores the rule for the item or the screen, or what of the project it was found in. A null
/// reason ends it.
void ignore(CProjectModel &project, const CCheckResults::SEntry &entry, const QString &reason);

} // namespace CheckFixes
