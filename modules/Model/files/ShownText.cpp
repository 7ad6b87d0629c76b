#include "ShownText.h"

#include <QTextDocument>

namespace {
bool turnsDirection(QChar character)
{
    const ushort code = character.unicode();
    return (code >= 0x202a && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069);
}

bool isUnseen(QChar character)
{
    return character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator || turnsDirection(character);
}

bool isLayout(QChar character)
{
    return character == QLatin1Char('\n') || character == QLatin1Char('\t');
}

QString shown(const QString &foreign, int length, bool keepsLines)
{
    const bool isCut = foreign.size() > length;
    // Half a character cannot be shown.
    const int end = isCut && foreign.at(length - 1).isHighSurrogate() ? length - 1 : length;
    QString text;
    for (const QChar each : foreign.left(end)) {
        if (!isUnseen(each) || (keepsLines && isLayout(each)))
            text.append(each);
        else
            text.append(QStringLiteral("[U+%1]").arg(QString::number(each.unicode(), 16).toUpper(),
                                                     4, QLatin1Char('0')));
    }
    return isCut ? text + QChar(0x2026) : text;
}
} // namespace

QString ShownText::name(const QString &foreign)
{
    return shown(foreign, MaxName, false);
}

QString ShownText::message(const QString &foreign)
{
    return shown(foreign, MaxLength, true);
}

QString ShownText::toolTip(const QString &foreign)
{
    const QString text = message(foreign);
    if (!Qt::mightBeRichText(text))
        return text;
    return QStringLiteral("<span style=\"white-space:pre-wrap\">%1</span>")
        .arg(text.toHtmlEscaped());
}

QString ShownText::label(const QString &foreign)
{
    return name(foreign).replace(QLatin1Char('&'), QLatin1String("&&"));
}
