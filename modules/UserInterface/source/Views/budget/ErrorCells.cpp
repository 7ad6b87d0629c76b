#include "ErrorCells.h"

#include <QLocale>

#include <cmath>

CBudgetTable::SFigure ErrorCells::psnr(const SPictureError &error)
{
    return {error.psnr,
            std::isinf(error.psnr) ? tr("equal") : QLocale().toString(error.psnr, 'f', 1)};
}

CBudgetTable::SFigure ErrorCells::ssim(const SPictureError &error)
{
    constexpr int Digits = 4;
    return {error.ssim, QLocale().toString(error.ssim, 'f', Digits)};
}

QString ErrorCells::toolTip()
{
    return tr("PSNR: peak signal-to-noise ratio over red, green and blue, in dB; more is better.\n"
              "SSIM: mean structural similarity of the luminance, 1 for no difference (Wang, "
              "Bovik, Sheikh, Simoncelli, 2004).");
}
