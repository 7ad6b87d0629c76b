#include "Identifiers.h"

#include <QSet>

namespace {

bool isAsciiLetterOrDigit(uint c)
{
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

QString capitals(const QString &name, const QString &otherwise)
{
    QString text;
    const auto separate = [&text] {
        if (!text.isEmpty() && !text.endsWith(QLatin1Char('_')))
            text += QLatin1Char('_');
    };
    const QString plain = name.toUpper().normalized(QString::NormalizationForm_KD).toUpper();
    for (const uint c : plain.toUcs4()) {
        if (isAsciiLetterOrDigit(c))
            text += QChar(c);
        else if (QChar::isMark(c))
            continue;
        else if (c > 0x7F && QChar::isLetterOrNumber(c))
            text += QLatin1Char('U') + QString::number(c, 16).toUpper();
        else
            separate();
    }
    while (text.endsWith(QLatin1Char('_')))
        text.chop(1);
    return text.isEmpty() ? otherwise : text;
}

QString cut(QString text, int length)
{
    text.truncate(length);
    while (text.endsWith(QLatin1Char('_')))
        text.chop(1);
    return text;
}

} // namespace

QStringList Identifiers::unique(const QString &prefix, const QStringList &names,
                                const QString &otherwise)
{
    QStringList result;
    for (const QString &name : names)
        result.append(cut(prefix + capitals(name, otherwise), MaxLength));
    QSet<QString> taken(result.begin(), result.end());   // a clash takes no other name's own
    QSet<QString> seen{prefix + QLatin1String("COUNT")}; // panel.h says how many there are
    taken.unite(seen);
    for (QString &identifier : result) {
        const QString base = identifier;
        const bool isClash = seen.contains(base);
        seen.insert(base);
        for (int n = 2; isClash && taken.contains(identifier); ++n) {
            const QString tail = QStringLiteral("_%1").arg(n);
            identifier = cut(base, MaxLength - tail.size()) + tail;
        }
        taken.insert(identifier);
    }
    return result;
}
