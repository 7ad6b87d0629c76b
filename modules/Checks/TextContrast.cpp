#include "TextContrast.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr double LeastContrast = 4.5; // WCAG 2.1, 1.4.3, as all figures of contrast here
constexpr double LeastContrastLarge = 3;
constexpr int LargeLine = 24; // pixels

/// WCAG 2.1, relative luminance.
double luminance(QRgb colour)
{
    static const std::vector<double> linear = [] {
        std::vector<double> values(256);
        for (size_t i = 0; i < values.size(); ++i) {
            const double share = static_cast<double>(i) / 255;
            values[i] = share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
        }
        return values;
    }();
    return 0.2126 * linear[size_t(qRed(colour))] + 0.7152 * linear[size_t(qGreen(colour))] +
           0.0722 * linear[size_t(qBlue(colour))];
}

/// WCAG 2.1, contrast ratio: 1 to 21.
double contrast(double luminanceA, double luminanceB)
{
    const double lighter = std::max(luminanceA, luminanceB);
    const double darker = std::min(luminanceA, luminanceB);
    return (lighter + 0.05) / (darker + 0.05);
}

/// To one colour. Beside a pixel often lies one like it.
class CContrastTo
{
public:
    explicit CContrastTo(QRgb colour) : m_luminance(luminance(colour)) {}

    double of(QRgb other)
    {
        if (other != m_other || m_ratio == 0) {
            m_other = other;
            m_ratio = contrast(m_luminance, luminance(other));
        }
        return m_ratio;
    }

private:
    const double m_luminance;
    QRgb m_other = 0;
    double m_ratio = 0; ///< to the other; 0 at first
};

int distance(QRgb a, QRgb b)
{
    return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
           std::abs(qBlue(a) - qBlue(b));
}

double median(std::vector<double> &values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

const QRgb *rowOf(const QImage &picture, int y)
{
    return reinterpret_cast<const QRgb *>(picture.constScanLine(y));
}

bool isOneColour(const QImage &picture, const QRect &area)
{
    const QRgb colour = rowOf(picture, area.top())[area.left()];
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const QRgb *row = rowOf(picture, y);
        if (std::any_of(row + area.left(), row + area.right() + 1,
                        [colour](QRgb each) { return each != colour; }))
            return false;
    }
    return true;
}

/// Of the pieces of a line, each as wide as the line is high, the one that is read worst: grounds
/// differ along a line. From the text's colour, since strokes that are not seen cannot be measured;
/// `enough` when none is worse, or the text is not drawn in full strength anywhere.
double worstPart(const CListProbe::STextRun &text, const QRect &area, const QImage &with,
                 const QImage &without, double enough)
{
    const auto isFull = [&](int x, int y) {
        return distance(rowOf(with, y)[x], text.colour) <= 24 &&
               distance(rowOf(with, y)[x], rowOf(without, y)[x]) > 24;
    };
    bool isOpaque = false;
    for (int y = area.top(); y <= area.bottom() && !isOpaque; ++y)
        for (int x = area.left(); x <= area.right() && !isOpaque; ++x)
            isOpaque = isFull(x, y);
    if (!isOpaque)
        return enough;
    double worst = enough;
    CContrastTo ratio(text.colour);
    std::vector<double> ratios;
    const int width = std::max(text.lineHeight, 8);
    for (int left = area.left(); left + width / 2 <= area.right(); left += width) {
        const int right = std::min(left + width - 1, area.right());
        const auto each = [&](auto take) {
            for (int y = area.top(); y <= area.bottom(); ++y) {
                const QRgb *behind = rowOf(without, y);
                for (int x = left; x <= right; ++x)
                    take(ratio.of(behind[x]));
            }
        };
        int worse = 0;
        each([&](double here) { worse += here < worst; });
        if (worse <= (right - left + 1) * area.height() / 2)
            continue; // nor is the median
        ratios.clear();
        each([&](double here) { ratios.push_back(here); });
        worst = median(ratios);
    }
    return worst;
}

} // namespace

STextContrast textContrast(const CListProbe::STextRun &text, const QImage &with,
                           const QImage &without)
{
    const double least = text.lineHeight >= LargeLine ? LeastContrastLarge : LeastContrast;
    const QRect area = text.ink.intersected(with.rect());
    int fullest = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const QRgb *here = rowOf(with, y);
        const QRgb *behind = rowOf(without, y);
        for (int x = area.left(); x <= area.right(); ++x)
            if (here[x] != behind[x])
                fullest = std::max(fullest, distance(here[x], behind[x]));
    }
    std::vector<double> ratios; // where its strokes are fullest
    CContrastTo toText(text.colour);
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const QRgb *here = rowOf(with, y);
        const QRgb *behind = rowOf(without, y);
        for (int x = area.left(); x <= area.right(); ++x) {
            if (fullest == 0)
                ratios.push_back(toText.of(behind[x]));
            else if (here[x] != behind[x] && 4 * distance(here[x], behind[x]) >= 3 * fullest)
                ratios.push_back(contrast(luminance(here[x]), luminance(behind[x])));
        }
    }
    if (ratios.empty())
        return {};
    const double ratio = median(ratios);
    constexpr double Same = 1.1; // a text of the colour that is there already
    if (fullest == 0)            // or one behind something else
        return ratio > Same ? STextContrast() : STextContrast{ratio, least};
    const double worst = isOneColour(without, area)
                             ? ratio
                             : std::min(ratio, worstPart(text, area, with, without, least));
    return worst < least ? STextContrast{worst, least} : STextContrast();
}
