#include "ScreenGuides.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace {
const QString LockedMark = QStringLiteral("locked");
constexpr int LongestGuide = 64; // characters; more is no guide's

SScreenGuide boundedGuide(SScreenGuide guide)
{
    constexpr int farthest = SScreenGuide::Farthest;
    guide.position = std::clamp(guide.position, -farthest, farthest);
    if (guide.color.isValid())
        guide.color = QColor::fromRgb(guide.color.rgb());
    return guide;
}

QString textOf(const SScreenGuide &guide)
{
    QString text = (guide.orientation == Qt::Vertical ? QLatin1Char('x') : QLatin1Char('y')) +
                   QString::number(guide.position);
    if (guide.color.isValid())
        text += QLatin1Char(',') + guide.color.name();
    if (guide.isLocked)
        text += QLatin1Char(',') + LockedMark;
    return text;
}

std::optional<SScreenGuide> guideFrom(const QString &text)
{
    const bool isVertical = text.startsWith(QLatin1Char('x'));
    if ((!isVertical && !text.startsWith(QLatin1Char('y'))) || text.size() > LongestGuide)
        return {};
    const QStringList parts = text.mid(1).split(QLatin1Char(','));
    SScreenGuide guide;
    guide.orientation = isVertical ? Qt::Vertical : Qt::Horizontal;
    bool isNumber = false;
    guide.position = parts.constFirst().toInt(&isNumber);
    if (!isNumber || boundedGuide(guide).position != guide.position)
        return {};
    for (const QString &each : parts) {
        if (each == LockedMark)
            guide.isLocked = true;
        else if (each.startsWith(QLatin1Char('#')))
            guide.color = QColor(each);
    }
    return boundedGuide(guide);
}
} // namespace

bool SScreenGuide::operator==(const SScreenGuide &other) const
{
    return std::tie(orientation, position, color, isLocked) ==
           std::tie(other.orientation, other.position, other.color, other.isLocked);
}

ScreenGuideList ScreenGuides::bounded(ScreenGuideList guides)
{
    guides.resize(std::min<int>(guides.size(), SScreenGuide::MostOfScreen));
    std::transform(guides.begin(), guides.end(), guides.begin(), boundedGuide);
    return guides;
}

QString ScreenGuides::text(const ScreenGuideList &guides)
{
    QStringList texts;
    for (const SScreenGuide &each : guides)
        texts.append(textOf(each));
    return texts.join(QLatin1Char(' '));
}

ScreenGuideList ScreenGuides::fromText(const QString &text)
{
    ScreenGuideList guides;
    const QStringRef sensible = text.leftRef(SScreenGuide::MostOfScreen * LongestGuide);
    const QVector<QStringRef> parts = sensible.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QStringRef &each : parts) {
        if (guides.size() == SScreenGuide::MostOfScreen)
            break;
        if (const auto guide = guideFrom(each.toString()))
            guides.append(*guide);
    }
    return guides;
}
