#include "Rules.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>

namespace {

struct SRule
{
    ERule rule;
    const char *id;
    const char *title;
};

const SRule table[] = {
    {ERule::RenderError, "render-error", QT_TRANSLATE_NOOP("Checks", "Not drawn as designed")},
    {ERule::MissingGlyph, "missing-glyph",
     QT_TRANSLATE_NOOP("Checks", "Character that the font lacks")},
    {ERule::Memory, "memory", QT_TRANSLATE_NOOP("Checks", "Memory of the chip")},
    {ERule::ChipValue, "chip-value", QT_TRANSLATE_NOOP("Checks", "Not available on the chip")},
    {ERule::MissingImage, "missing-image", QT_TRANSLATE_NOOP("Checks", "Missing image")},
    {ERule::ChangedImage, "changed-image", QT_TRANSLATE_NOOP("Checks", "Image file changed since")},
    {ERule::OutsideScreen, "outside-screen", QT_TRANSLATE_NOOP("Checks", "Outside the screen")},
    {ERule::NoSize, "no-size", QT_TRANSLATE_NOOP("Checks", "Without a size")},
    {ERule::Hidden, "hidden", QT_TRANSLATE_NOOP("Checks", "Hidden by others")},
    {ERule::TouchSize, "touch-size", QT_TRANSLATE_NOOP("Checks", "Too small for a finger")},
    {ERule::TouchOverlap, "touch-overlap", QT_TRANSLATE_NOOP("Checks", "Touch areas overlap")},
    {ERule::TextCut, "text-cut", QT_TRANSLATE_NOOP("Checks", "Text does not fit")},
    {ERule::Contrast, "contrast", QT_TRANSLATE_NOOP("Checks", "Text with little contrast")},
    {ERule::ScaledImage, "scaled-image", QT_TRANSLATE_NOOP("Checks", "Image scaled a lot")},
    {ERule::SameImage, "same-image", QT_TRANSLATE_NOOP("Checks", "One image under two names")},
    {ERule::UnusedImage, "unused-image", QT_TRANSLATE_NOOP("Checks", "Image that nothing shows")},
    {ERule::DuplicateId, "duplicate-id", QT_TRANSLATE_NOOP("Checks", "Id used twice")},
    {ERule::DuplicateName, "duplicate-name", QT_TRANSLATE_NOOP("Checks", "Name used twice")},
    {ERule::Identifier, "identifier", QT_TRANSLATE_NOOP("Checks", "Same name in C")},
};

const SRule &row(ERule rule)
{
    for (const SRule &each : table)
        if (each.rule == rule)
            return each;
    return table[0];
}

/// Of a line that ignores the rule. What a subject is called may hold anything, and a line ends at
/// its end.
QString beginning(ERule rule, QString subject = {})
{
    if (subject.isEmpty())
        return Rules::id(rule) + QLatin1Char(':');
    subject.replace(QLatin1Char('%'), QLatin1String("%25"));
    subject.replace(QLatin1Char('\n'), QLatin1String("%0A"));
    subject.replace(QLatin1Char(']'), QLatin1String("%5D"));
    return QStringLiteral("%1 [%2]:").arg(Rules::id(rule), subject);
}

} // namespace

namespace Rules {

const QString IgnoredKey = QStringLiteral("ignored_checks");

QString id(ERule rule)
{
    return QString::fromLatin1(row(rule).id);
}

QString title(ERule rule)
{
    return QCoreApplication::translate("Checks", row(rule).title);
}

QString id(ESeverity severity)
{
    return severity == ESeverity::Error     ? QStringLiteral("error")
           : severity == ESeverity::Warning ? QStringLiteral("warning")
                                            : QStringLiteral("note");
}

const QVector<ERule> &all()
{
    static const QVector<ERule> rules = [] {
        QVector<ERule> list;
        for (const SRule &each : table)
            list.append(each.rule);
        return list;
    }();
    return rules;
}

QString ignoredBecause(const QString &text, ERule rule, const QString &subject)
{
    if (text.isEmpty())
        return {};
    for (const QString &begin : {beginning(rule, subject), beginning(rule)})
        for (const QString &line : text.split(QLatin1Char('\n')))
            if (line.startsWith(begin))
                return line.mid(begin.size()).trimmed() + QLatin1String("");
    return {};
}

QString withIgnored(const QString &text, ERule rule, const QString &subject, const QString &reason)
{
    QStringList lines = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    const QString begin = beginning(rule, subject);
    const auto isTold = [&](const QString &line) {
        return line.startsWith(begin) || (reason.isNull() && line.startsWith(beginning(rule)));
    };
    lines.erase(std::remove_if(lines.begin(), lines.end(), isTold), lines.end());
    if (!reason.isNull())
        lines.append(begin + QLatin1Char(' ') + reason.simplified());
    lines.sort();
    return lines.join(QLatin1Char('\n'));
}

} // namespace Rules
