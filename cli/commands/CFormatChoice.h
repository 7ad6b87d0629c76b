#pragma once

#include "FormatProposal.h"

#include <QJsonArray>
#include <QStringList>
#include <QVector>

class CProjectModel;

/// What the images of a project would be in other formats, and which of these would fit.
class CFormatChoice
{
public:
    /// Both must live longer.
    CFormatChoice(const CProjectModel &project, const SProjectBudget &budget);

    /// Converts all images into all formats, as many at once as there are cores. Ends early when a
    /// signal is to end the program.
    void measure();

    QStringList toLines() const;
    /// [{"file", "format", "trials": [{"format", "bytes", "psnr", "ssim"} or {"format",
    /// "problem"}], "proposed": format or null}]; "psnr" is null where nothing differs.
    QJsonArray toJson() const;

private:
    const CProjectModel &m_project;
    const SProjectBudget &m_budget;
    QVector<SImageTrials> m_images;
    bool m_fits = false;
};
