#include "PaletteRank.h"

#include <algorithm>

namespace {
enum ERank {
    WholeName,
    StartOfName,
    WordOfName,
    InName,
    InType,
    WordOfGroup,
    InGroup,
    WordOfTip,
    InTip,
};

/// A translation may say where a word can be broken.
QString plain(QString text)
{
    return text.remove(QChar(QChar::SoftHyphen));
}

bool isIn(const QStringList &texts, const QString &word)
{
    return std::any_of(texts.begin(), texts.end(), [&word](const QString &each) {
        return plain(each).contains(word, Qt::CaseInsensitive);
    });
}

bool beginsWord(const QString &text, const QString &word)
{
    for (int at = text.indexOf(word, 0, Qt::CaseInsensitive); at >= 0;
         at = text.indexOf(word, at + 1, Qt::CaseInsensitive)) {
        if (at == 0 || !text.at(at - 1).isLetterOrNumber())
            return true;
    }
    return false;
}

bool beginsWord(const QStringList &texts, const QString &word)
{
    return std::any_of(texts.begin(), texts.end(),
                       [&word](const QString &each) { return beginsWord(plain(each), word); });
}

std::optional<int> ofWord(const QString &word, const PaletteRank::SEntry &entry)
{
    if (beginsWord(entry.names, word))
        return WordOfName;
    if (isIn(entry.names, word))
        return InName;
    if (entry.type.contains(word, Qt::CaseInsensitive))
        return InType;
    if (beginsWord(entry.groups, word))
        return WordOfGroup;
    if (isIn(entry.groups, word))
        return InGroup;
    if (beginsWord(entry.tips, word))
        return WordOfTip;
    return isIn(entry.tips, word) ? std::optional<int>(InTip) : std::nullopt;
}
} // namespace

std::optional<int> PaletteRank::of(const QString &text, const SEntry &entry)
{
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    int sum = 0;
    for (const QString &each : words) {
        const std::optional<int> rank = ofWord(each, entry);
        if (!rank)
            return {};
        sum += *rank;
    }
    const QString whole = words.join(QLatin1Char(' '));
    for (const QString &each : entry.names) {
        if (plain(each).compare(whole, Qt::CaseInsensitive) == 0)
            return WholeName;
        if (plain(each).startsWith(whole, Qt::CaseInsensitive))
            sum = std::min<int>(sum, StartOfName);
    }
    return sum;
}
