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
    const char *advice;
};

const SRule table[] = {
    {ERule::RenderError, "render-error", QT_TRANSLATE_NOOP("Checks", "Not drawn as designed"),
     QT_TRANSLATE_NOOP(
         "Checks",
         "The message says what could not be drawn; the widget named needs another value.")},
    {ERule::MissingGlyph, "missing-glyph",
     QT_TRANSLATE_NOOP("Checks", "Character that the font lacks"),
     QT_TRANSLATE_NOOP(
         "Checks",
         "Choose a font that has the character, or give the project's font a fallback that does.")},
    {ERule::Memory, "memory", QT_TRANSLATE_NOOP("Checks", "Memory of the chip"),
     QT_TRANSLATE_NOOP(
         "Checks", "Other formats for the largest images take less; the dock Budget shows them.")},
    {ERule::ChipValue, "chip-value", QT_TRANSLATE_NOOP("Checks", "Not available on the chip"),
     QT_TRANSLATE_NOOP("Checks", "Choose another value, or another chip under Tools, Options.")},
    {ERule::MissingImage, "missing-image", QT_TRANSLATE_NOOP("Checks", "Missing image"),
     QT_TRANSLATE_NOOP(
         "Checks",
         "Choose the image anew, or put its file back into the folder of converted images.")},
    {ERule::ChangedImage, "changed-image", QT_TRANSLATE_NOOP("Checks", "Image file changed since"),
     QT_TRANSLATE_NOOP("Checks",
                       "Convert it again, so that the device shows what the file shows.")},
    {ERule::OutsideScreen, "outside-screen", QT_TRANSLATE_NOOP("Checks", "Outside the screen"),
     QT_TRANSLATE_NOOP(
         "Checks",
         "Move it onto the page, or delete it: outside it costs memory and is not seen.")},
    {ERule::NoSize, "no-size", QT_TRANSLATE_NOOP("Checks", "Without a size"),
     QT_TRANSLATE_NOOP("Checks", "Give it a size, or delete it.")},
    {ERule::Hidden, "hidden", QT_TRANSLATE_NOOP("Checks", "Hidden by others"),
     QT_TRANSLATE_NOOP("Checks",
                       "Bring it to the front, or delete it: it is drawn and never seen.")},
    {ERule::TouchSize, "touch-size", QT_TRANSLATE_NOOP("Checks", "Too small for a finger"),
     QT_TRANSLATE_NOOP(
         "Checks", "Make it larger. If the size is right, tell the dots per inch of the display.")},
    {ERule::TouchOverlap, "touch-overlap", QT_TRANSLATE_NOOP("Checks", "Touch areas overlap"),
     QT_TRANSLATE_NOOP("Checks", "Move them apart: a finger between them meets either.")},
    {ERule::TextCut, "text-cut", QT_TRANSLATE_NOOP("Checks", "Text does not fit"),
     QT_TRANSLATE_NOOP("Checks", "Make the box larger, the font smaller or the text shorter.")},
    {ERule::Contrast, "contrast", QT_TRANSLATE_NOOP("Checks", "Text with little contrast"),
     QT_TRANSLATE_NOOP("Checks",
                       "Choose a lighter or darker colour for the text or for what is behind it.")},
    {ERule::ScaledImage, "scaled-image", QT_TRANSLATE_NOOP("Checks", "Image scaled a lot"),
     QT_TRANSLATE_NOOP("Checks", "Convert the image in the size in which it is shown.")},
    {ERule::SameImage, "same-image", QT_TRANSLATE_NOOP("Checks", "One image under two names"),
     QT_TRANSLATE_NOOP(
         "Checks",
         "Let all widgets show one of the files; the package holds it once in any case.")},
    {ERule::UnusedImage, "unused-image", QT_TRANSLATE_NOOP("Checks", "Image that nothing shows"),
     QT_TRANSLATE_NOOP("Checks", "Delete the file, or ignore it when it is for later.")},
    {ERule::DuplicateId, "duplicate-id", QT_TRANSLATE_NOOP("Checks", "Id used twice"),
     QT_TRANSLATE_NOOP("Checks", "Give it a new id: ids tell widgets apart on the device.")},
    {ERule::DuplicateName, "duplicate-name", QT_TRANSLATE_NOOP("Checks", "Name used twice"),
     QT_TRANSLATE_NOOP("Checks", "Rename it, so that it can be told apart.")},
    {ERule::Identifier, "identifier", QT_TRANSLATE_NOOP("Checks", "Same name in C"),
     QT_TRANSLATE_NOOP("Checks", "Rename one: the firmware knows them by names in C.")},
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

QString advice(ERule rule)
{
    return QCoreApplication::translate("Checks", row(rule).advice);
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
