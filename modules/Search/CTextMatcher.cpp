#include "CTextMatcher.h"

#include <QElapsedTimer>

namespace {
constexpr int MaxReplacingTime = 200; // ms, for one text

/// In front of every pattern: steps and memory of a match.
/// Without a compiler for patterns, whose steps are counted less often.
const QString Limits =
    QStringLiteral("(*LIMIT_MATCH=20000)(*LIMIT_DEPTH=20000)(*LIMIT_HEAP=32768)(*NO_JIT)");

/// What of a text a pattern is held against; ends with a whole character.
QString beginning(const QString &text)
{
    if (text.size() <= CTextMatcher::MaxText)
        return text;
    const bool isSplit = text.at(CTextMatcher::MaxText - 1).isHighSurrogate();
    return text.left(CTextMatcher::MaxText - (isSplit ? 1 : 0));
}
} // namespace

CTextMatcher::CTextMatcher(const QString &wanted, EMode mode, Qt::CaseSensitivity sensitivity)
    : m_wanted(wanted), m_mode(mode), m_plain(wanted, sensitivity)
{
    if (mode == EMode::Plain)
        return;
    if (wanted.size() > MaxPattern) {
        m_problem = tr("The regular expression is too long.");
        return;
    }
    QRegularExpression::PatternOptions options = QRegularExpression::UseUnicodePropertiesOption;
    if (sensitivity == Qt::CaseInsensitive)
        options |= QRegularExpression::CaseInsensitiveOption;
    const QRegularExpression alone(wanted, options);
    // In a group, since a pattern could raise the limits at its beginning.
    m_pattern =
        QRegularExpression(Limits + QLatin1String("(?:") + wanted + QLatin1Char(')'), options);
    if (!alone.isValid())
        m_problem =
            tr("At character %1: %2").arg(alone.patternErrorOffset() + 1).arg(alone.errorString());
    else if (!m_pattern.isValid())
        m_problem = m_pattern.errorString();
}

/// A match without a result that is not even "none" has run into a limit.
QRegularExpressionMatch CTextMatcher::match(const QString &text, int from)
{
    if (!m_problem.isEmpty())
        return {};
    const QRegularExpressionMatch found = m_pattern.match(text, from);
    if (!found.isValid())
        m_problem = tr("The regular expression takes too long. Make it simpler.");
    return found;
}

CTextMatcher::SSpan CTextMatcher::find(const QString &text)
{
    if (!isPattern())
        return {m_plain.indexIn(text), m_wanted.size()};
    const QString bounded = beginning(text);
    if (!bounded.isValidUtf16()) // no text: nothing is found in half a character
        return {};
    const QRegularExpressionMatch found = match(bounded, 0);
    return found.hasMatch() ? SSpan{found.capturedStart(), found.capturedLength()} : SSpan();
}

std::optional<QString> CTextMatcher::replaced(const QString &text, const QString &by)
{
    if (isPattern())
        return patternReplaced(text, by);
    QString result;
    int end = 0;
    for (int start = m_plain.indexIn(text); start >= 0 && !m_wanted.isEmpty();
         start = m_plain.indexIn(text, end)) {
        result += text.midRef(end, start - end) + by;
        end = start + m_wanted.size();
        if (result.size() > MaxResult)
            return std::nullopt;
    }
    result += text.midRef(end);
    return result.size() > MaxResult ? std::nullopt : std::make_optional(result);
}

std::optional<QString> CTextMatcher::patternReplaced(const QString &text, const QString &by)
{
    if (text.size() > MaxText || !text.isValidUtf16())
        return std::nullopt;
    QElapsedTimer time;
    time.start();
    QString result;
    int end = 0;
    for (int from = 0; from <= text.size();) {
        const QRegularExpressionMatch found = match(text, from);
        if (!m_problem.isEmpty() || time.hasExpired(MaxReplacingTime))
            return std::nullopt;
        if (!found.hasMatch())
            break;
        result += text.midRef(end, found.capturedStart() - end) + expanded(by, found);
        if (result.size() > MaxResult)
            return std::nullopt;
        end = found.capturedEnd();
        from = found.capturedLength() > 0 ? end : end + 1; // what is empty is found once
    }
    return result + text.midRef(end);
}

QString CTextMatcher::lackFor(const QString &by) const
{
    if (!isPattern() || !m_problem.isEmpty())
        return {};
    for (int at = by.indexOf(QLatin1Char('\\')); at >= 0 && at + 1 < by.size();
         at = by.indexOf(QLatin1Char('\\'), at + 2)) {
        const QChar next = by.at(at + 1);
        if (next >= QLatin1Char('0') && next <= QLatin1Char('9') &&
            next.digitValue() > m_pattern.captureCount())
            return m_pattern.captureCount() == 0
                       ? tr("The regular expression has no groups, so \\%1 stands for nothing.")
                             .arg(next)
                       : tr("\\%1 stands for nothing: the last group of the regular expression is "
                            "\\%2.")
                             .arg(next)
                             .arg(m_pattern.captureCount());
    }
    return {};
}

QString CTextMatcher::expanded(const QString &by, const QRegularExpressionMatch &match)
{
    QString result;
    for (int at = 0; at < by.size(); ++at) {
        const QChar next = at + 1 < by.size() ? by.at(at + 1) : QChar();
        if (by.at(at) != QLatin1Char('\\') || next.isNull()) {
            result += by.at(at);
            continue;
        }
        ++at;
        if (next >= QLatin1Char('0') && next <= QLatin1Char('9'))
            result += match.captured(next.digitValue());
        else if (next == QLatin1Char('n'))
            result += QLatin1Char('\n');
        else if (next == QLatin1Char('\\'))
            result += next;
        else
            result += by.midRef(at - 1, 2);
    }
    return result;
}
