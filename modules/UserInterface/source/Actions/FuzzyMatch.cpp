#include "FuzzyMatch.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <limits>

namespace {
constexpr int MaxLetters = 128; // of a text that are looked at
constexpr int WordStart = 10;
constexpr int Beside = 12; // the letter before was found too
constexpr int MaxGap = 6;  // that counts
constexpr int Whole = 30;
constexpr int Start = 8;
constexpr int Together = 8; // all that was typed stands there as it is
constexpr int Elsewhere = 20;
constexpr int LeastOfALetter = 2; // on average; below, letters are scattered
constexpr int None = std::numeric_limits<int>::min() / 2;

bool isWordStart(const QString &text, int at)
{
    if (at == 0)
        return true;
    const QChar before = text[at - 1];
    const QChar here = text[at];
    return !before.isLetterOrNumber() || (before.isLower() && here.isUpper()) ||
           before.isDigit() != here.isDigit();
}

bool isSubsequence(const QString &word, const QString &text)
{
    int found = 0;
    for (int i = 0; i < text.size() && found < word.size(); ++i)
        found += text[i] == word[found];
    return found == word.size();
}

/// The best way of finding the letters of a word one after the other. Both are in lower case.
int bestWay(const QString &word, const QString &text, const QString &written)
{
    std::array<int, MaxLetters> before{}; // best with the letters so far, the last one found here
    std::array<int, MaxLetters> now{};
    for (int letter = 0; letter < word.size(); ++letter) {
        int reached = None; // best of those further left, less the gap to here
        for (int at = 0; at < text.size(); ++at) {
            int way = None;
            if (text[at] == word[letter]) {
                way = letter == 0 ? -std::min(at, MaxGap) : reached;
                if (letter > 0 && at > 0)
                    way = std::max(way, before.at(size_t(at - 1)) + Beside);
                way += isWordStart(written, at) ? WordStart : 0;
            }
            now.at(size_t(at)) = way;
            if (letter > 0 && at > 0)
                reached = std::max(reached - 1, before.at(size_t(at - 1)) - 2);
        }
        std::swap(before, now);
    }
    return *std::max_element(before.begin(), before.begin() + text.size());
}

std::optional<int> scoreOfWord(const QString &word, const QString &written)
{
    const QString text = written.toLower();
    if (word.size() > text.size() || text.size() != written.size() || !isSubsequence(word, text))
        return {};
    const int score = bestWay(word, text, written);
    if (score < LeastOfALetter * word.size())
        return {};
    return text.startsWith(word) ? score + Start : score;
}
/// Beside the name only whole beginnings of words count, or everything would answer to something.
std::optional<int> scoreBeside(const QString &word, const QString &written)
{
    for (int at = written.indexOf(word, 0, Qt::CaseInsensitive); at >= 0;
         at = written.indexOf(word, at + 1, Qt::CaseInsensitive)) {
        if (isWordStart(written, at))
            return WordStart + Beside * (word.size() - 1);
    }
    return {};
}
} // namespace

std::optional<int> FuzzyMatch::score(const QString &typed, const QString &name,
                                     const QString &context)
{
    const QString phrase = typed.left(MaxLetters).toLower().simplified();
    const QString shown = name.left(MaxLetters);
    int sum = 0;
    for (const QString &word : phrase.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        std::optional<int> best = scoreOfWord(word, shown);
        const auto beside = scoreBeside(word, context.left(MaxLetters));
        if (beside && *beside - Elsewhere > best.value_or(None))
            best = *beside - Elsewhere;
        if (!best)
            return {};
        sum += *best;
    }
    const int at = shown.indexOf(phrase, 0, Qt::CaseInsensitive);
    if (at >= 0 && at < shown.size() && isWordStart(shown, at))
        sum += phrase.size() == shown.size() ? Whole : Together;
    return sum - shown.size() / 8; // of equal ones the shorter name was meant
}
