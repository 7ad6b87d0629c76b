#include "PlatformFilter.h"

namespace {
const QLatin1String Range("..");

/// "text@filter" taken apart; without "@" there is no filter and the text always counts.
struct Alternative
{
    explicit Alternative(const QString &source)
    {
        const QStringList parts = source.split(QLatin1Char('@'));
        text = parts.first();
        conditional = parts.size() > 1;
        filter = parts.value(1);
    }
    bool isFor(quint32 chipCode) const
    {
        return !conditional || PlatformFilter::matches(filter, chipCode);
    }

    QString text;
    QString filter;
    bool conditional = false;
};

bool conditionHolds(const QString &condition, quint32 chipCode)
{
    if (condition.startsWith(Range))
        return chipCode <= chipCodeOfPlatform(condition.mid(Range.size()));
    if (condition.endsWith(Range))
        return chipCode >= chipCodeOfPlatform(condition.chopped(Range.size()));
    const int range = condition.indexOf(Range);
    if (range < 0)
        return chipCode == chipCodeOfPlatform(condition);
    return chipCode >= chipCodeOfPlatform(condition.left(range)) &&
           chipCode <= chipCodeOfPlatform(condition.mid(range + Range.size()));
}
} // namespace

quint32 chipCodeOfPlatform(const QString &platform)
{
    constexpr quint32 firstModel = 0x100;
    if (!platform.startsWith(QLatin1String("QX1")))
        return firstModel;
    return platform.mid(2).toUInt(nullptr, 16);
}

bool PlatformFilter::matches(const QString &filter, quint32 chipCode)
{
    const QStringList conditions = filter.split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString &condition : conditions) {
        if (conditionHolds(condition.trimmed(), chipCode))
            return true;
    }
    return false;
}

QString PlatformFilter::resolve(const QString &alternatives, quint32 chipCode)
{
    const QStringList sources = alternatives.split(QLatin1Char('|'), Qt::SkipEmptyParts);
    for (const QString &source : sources) {
        const Alternative alternative(source);
        if (alternative.isFor(chipCode))
            return alternative.text;
    }
    return {};
}

QStringList PlatformFilter::enumerationEntries(const QString &typeText, quint32 chipCode)
{
    constexpr int headLength = 5; // "enum" and one separator
    const QString list = typeText.mid(headLength);
    QStringList entries;
    if (list.isEmpty())
        return entries;
    const QStringList sources = list.split(QLatin1Char('|'));
    for (const QString &source : sources) {
        const Alternative alternative(source);
        if (alternative.isFor(chipCode))
            entries.append(alternative.text);
    }
    return entries;
}
