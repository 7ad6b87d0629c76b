#pragma once

#include "CListProbe.h"

/// How well a text is read, by WCAG 2.1, as far as that is too little.
struct STextContrast
{
    double ratio = 0; ///< 1 to 21; 0 when nothing is wrong with it, or nothing of it is seen
    double least = 0; ///< what it is to have
};

/// Between a text and what is behind it. Both pictures are Format_RGB32, `without` all texts.
STextContrast textContrast(const CListProbe::STextRun &text, const QImage &with,
                           const QImage &without);
