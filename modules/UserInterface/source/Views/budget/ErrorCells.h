#pragma once

#include "CBudgetTable.h"
#include "PictureError.h"

#include <QCoreApplication>

/// How the error of a picture is told in tables, and where its measures come from.
class ErrorCells
{
    Q_DECLARE_TR_FUNCTIONS(ErrorCells)

public:
    static QString psnrTitle() { return tr("PSNR, dB"); }
    static CBudgetTable::SFigure psnr(const SPictureError &error);
    static CBudgetTable::SFigure ssim(const SPictureError &error);
    static QString toolTip();
};
