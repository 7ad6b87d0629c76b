#include "CListProbe.h"
#include "CProjectModel.h"
#include "ItemGeometry.h"
#include "ItemOutline.h"
#include "ItemTree.h"
#include "PropertyKey.h"
#include "RuleSupport.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <vector>

// What is decided by the picture itself: which items are not seen, and how well texts are read.

namespace {

constexpr double LeastContrast = 4.5; // WCAG 2.1, 1.4.3, as all figures of contrast here
constexpr double LeastContrastLarge = 3;
constexpr int LargeLine = 24; // pixels
constexpr int CutOfText = 1;  // pixels of a text that may stand out of its box
constexpr char Ellipsis = '\x85';

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
double contrast(QRgb a, QRgb b)
{
    const double lighter = std::max(luminance(a), luminance(b));
    const double darker = std::min(luminance(a), luminance(b));
    return (lighter + 0.05) / (darker + 0.05);
}

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
/// a large number when it is not drawn in full strength anywhere.
double worstPart(const CListProbe::STextRun &text, const QRect &area, const QImage &with,
                 const QImage &without)
{
    constexpr double None = 21;
    const auto isFull = [&](int x, int y) {
        return distance(rowOf(with, y)[x], text.colour) <= 24 &&
               distance(rowOf(with, y)[x], rowOf(without, y)[x]) > 24;
    };
    bool isOpaque = false;
    for (int y = area.top(); y <= area.bottom() && !isOpaque; ++y)
        for (int x = area.left(); x <= area.right() && !isOpaque; ++x)
            isOpaque = isFull(x, y);
    if (!isOpaque)
        return None;
    double worst = None;
    const int width = std::max(text.lineHeight, 8);
    for (int left = area.left(); left + width / 2 <= area.right(); left += width) {
        const int right = std::min(left + width - 1, area.right());
        std::vector<double> ratios;
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = left; x <= right; ++x)
                ratios.push_back(contrast(text.colour, rowOf(without, y)[x]));
        worst = std::min(worst, median(ratios));
    }
    return worst;
}

/// Between a text and what is behind it, where its strokes are fullest; 0 when nothing of it is
/// seen because something lies in front. Both pictures are Format_RGB32.
double contrastOf(const CListProbe::STextRun &text, const QImage &with, const QImage &without)
{
    const QRect area = text.ink.intersected(with.rect());
    int fullest = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const QRgb *here = rowOf(with, y);
        const QRgb *behind = rowOf(without, y);
        for (int x = area.left(); x <= area.right(); ++x)
            fullest = std::max(fullest, distance(here[x], behind[x]));
    }
    std::vector<double> ratios;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const QRgb *here = rowOf(with, y);
        const QRgb *behind = rowOf(without, y);
        for (int x = area.left(); x <= area.right(); ++x) {
            if (fullest == 0)
                ratios.push_back(contrast(text.colour, behind[x]));
            else if (4 * distance(here[x], behind[x]) >= 3 * fullest)
                ratios.push_back(contrast(here[x], behind[x]));
        }
    }
    if (ratios.empty())
        return 0;
    const double ratio = median(ratios);
    constexpr double Same = 1.1; // a text of the colour that is there already
    if (fullest == 0)
        return ratio > Same ? 0 : ratio;
    return isOneColour(without, area) ? ratio
                                      : std::min(ratio, worstPart(text, area, with, without));
}

bool isDisabled(const CItemModel &item)
{
    const QString enabled = QStringLiteral("enabled");
    return item.hasProperty(enabled) && !item.propertyValue(enabled).toBool();
}

void checkContrast(CRuleContext &context, CListProbe &probe, const QImage &frame,
                   const QHash<quint32, const CItemModel *> &items)
{
    if (probe.texts().isEmpty())
        return;
    const QImage without = probe.withoutTexts();
    struct SWorst
    {
        double ratio;
        double least;
    };
    QHash<quint32, SWorst> worst;
    for (const CListProbe::STextRun &text : probe.texts()) {
        const CItemModel *item = items.value(text.tag);
        if (!item || isDisabled(*item))
            continue;
        const double ratio = contrastOf(text, frame, without);
        const double least = text.lineHeight >= LargeLine ? LeastContrastLarge : LeastContrast;
        if (ratio == 0 || ratio >= least)
            continue;
        const auto known = worst.constFind(text.tag);
        if (known == worst.constEnd() || ratio < known->ratio)
            worst.insert(text.tag, {ratio, least});
    }
    forEachItem(*context.screen, [&](const CItemModel &item) {
        const auto found = worst.constFind(item.id());
        if (found != worst.constEnd() && items.value(item.id()) == &item)
            context.add(
                ERule::Contrast, ESeverity::Warning, &item,
                CRuleContext::tr("The text of %1 has a contrast of %2 : 1 to what is behind "
                                 "it; %3 : 1 is the least.")
                    .arg(context.called(item))
                    .arg(found->ratio, 0, 'f', 1)
                    .arg(found->least));
    });
}

/// A text that the item itself says ends in an ellipsis was not cut.
bool saysEllipsis(const CItemModel &item)
{
    for (const CWidgetProperty &property : item.properties()) {
        const QString text = property.text();
        if (text.contains(QChar(0x2026)) || text.contains(QLatin1String("...")))
            return true;
    }
    return false;
}

void checkTextSize(CRuleContext &context, const CListProbe &probe,
                   const QHash<quint32, const CItemModel *> &items)
{
    QHash<quint32, QRect> ink;
    QSet<quint32> cut;
    for (const CListProbe::STextRun &text : probe.texts()) {
        ink[text.tag] |= text.ink;
        if (text.latin1.endsWith(Ellipsis))
            cut.insert(text.tag);
    }
    forEachItem(*context.screen, [&](const CItemModel &item) {
        if (items.value(item.id()) != &item)
            return;
        if (!ink.contains(item.id())) {
            const QString text = item.propertyText(QStringLiteral("text")).simplified();
            if (!text.isEmpty() && item.hasProperty(PropertyKey::Font))
                context.add(ERule::TextCut, ESeverity::Warning, &item,
                            CRuleContext::tr("There is no room for the text of %1.")
                                .arg(context.called(item)));
            return;
        }
        const SItemOutline outline = itemOutline(item);
        const QRectF room = outline.box.adjusted(-CutOfText, -CutOfText, CutOfText, CutOfText);
        const bool isCut = cut.contains(item.id()) && !saysEllipsis(item);
        const bool hasRoom = outline.turn != 0 || outline.box.isEmpty() ||
                             item.geometryMode() != GeometryMode::Box ||
                             room.contains(ink.value(item.id()));
        if (isCut)
            context.add(ERule::TextCut, ESeverity::Warning, &item,
                        CRuleContext::tr("The text of %1 is cut.").arg(context.called(item)));
        else if (!hasRoom)
            context.add(ERule::TextCut, ESeverity::Warning, &item,
                        CRuleContext::tr("The text of %1 is larger than its box.")
                            .arg(context.called(item)));
    });
}

/// Whether others in front may cover all of a box: corners, middles of the sides and centre. Only a
/// reason to look closer.
bool mayBeCovered(const QRectF &box, const QVector<QRectF> &inFront)
{
    for (const double x : {box.left() + 1, box.center().x(), box.right() - 1})
        for (const double y : {box.top() + 1, box.center().y(), box.bottom() - 1}) {
            const auto covers = [&](const QRectF &other) { return other.contains(x, y); };
            if (std::none_of(inFront.begin(), inFront.end(), covers))
                return false;
        }
    return !inFront.isEmpty();
}

void checkHidden(CRuleContext &context, CListProbe &probe, const SScreenExport &render,
                 const QHash<quint32, const CItemModel *> &items)
{
    const QRectF screen(render.frame.rect());
    QVector<QRectF> inFront; // items come front-most first
    for (const SExportedItem &each : render.items) {
        const QRectF box = each.bounds.intersected(screen);
        const CItemModel *item = items.value(each.tag);
        if (item && !box.isEmpty() && probe.draws(each.tag) && mayBeCovered(box, inFront) &&
            probe.withoutItem(each.tag) == render.frame.convertToFormat(QImage::Format_RGB32))
            context.add(ERule::Hidden, ESeverity::Warning, item,
                        CRuleContext::tr("%1 is hidden by what lies in front of it.")
                            .arg(context.called(*item)));
        if (each.turn == 0)
            inFront.append(each.bounds);
    }
}

} // namespace

void checkPictures(CRuleContext &context, const SScreenExport &render)
{
    CListProbe probe(render);
    if (!probe.canDraw())
        return;
    QHash<quint32, const CItemModel *> items; // by the tags of the list, those that are unique
    QSet<quint32> several;
    forEachItem(*context.screen, [&](const CItemModel &item) {
        if (item.kind() != CItemModel::Kind::Widget || item.id() == 0)
            return;
        if (items.contains(item.id()))
            several.insert(item.id());
        items.insert(item.id(), &item);
    });
    for (const quint32 id : qAsConst(several))
        items.remove(id);
    checkTextSize(context, probe, items);
    checkContrast(context, probe, render.frame.convertToFormat(QImage::Format_RGB32), items);
    checkHidden(context, probe, render, items);
}
