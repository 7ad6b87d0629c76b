#include "ShownText.h"

#include <QTextDocument>

namespace {
/// Signs that enclose digits; of all format characters these are seen.
bool isNumberSign(uint code)
{
    return (code >= 0x600 && code <= 0x605) || code == 0x6dd || code == 0x70f || code == 0x8e2;
}

/// Letters that take their place and draw nothing.
bool isFiller(uint code)
{
    return code == 0x115f || code == 0x1160 || code == 0x3164 || code == 0xffa0;
}

bool isUnseen(uint code)
{
    switch (QChar::category(code)) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    case QChar::Other_Format:
        return !isNumberSign(code);
    default:
        return isFiller(code);
    }
}

/// A joiner forms letters and pictures out of its neighbours, which differ without it.
bool joins(const QVector<uint> &codes, int index)
{
    constexpr uint ZeroWidthNonJoiner = 0x200c;
    constexpr uint ZeroWidthJoiner = 0x200d;
    constexpr uint EndOfLatin = 0x24f;
    if (codes.at(index) != ZeroWidthNonJoiner && codes.at(index) != ZeroWidthJoiner)
        return false;
    const auto isJoined = [](uint code) { return code > EndOfLatin && !isUnseen(code); };
    return index > 0 && index + 1 < codes.size() && isJoined(codes.at(index - 1)) &&
           isJoined(codes.at(index + 1));
}

bool isLayout(uint code)
{
    return code == '\n' || code == '\t';
}

QString shown(const QString &foreign, int length, bool keepsLines)
{
    const bool isCut = foreign.size() > length;
    // Half a character cannot be shown.
    const int end = isCut && foreign.at(length - 1).isHighSurrogate() ? length - 1 : length;
    QString text;
    const QVector<uint> codes = foreign.left(end).toUcs4();
    for (int index = 0; index < codes.size(); ++index) {
        const uint code = codes.at(index);
        if (!isUnseen(code) || (keepsLines && isLayout(code)) || joins(codes, index))
            text.append(QString::fromUcs4(&code, 1));
        else
            text.append(QStringLiteral("[U+%1]").arg(QString::number(code, 16).toUpper(), 4,
                                                     QLatin1Char('0')));
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
