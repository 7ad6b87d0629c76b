#pragma once

#include <QCoreApplication>
#include <QRegularExpression>
#include <QString>
#include <QStringMatcher>

#include <optional>

/// Finds one text in others, as it stands or as a regular expression.
/// Errors: a pattern that does not read has a problem() and finds nothing. One that takes too many
///         steps for a text is given up from then on, and has a problem() too.
/// Time:   of a match is bounded for every pattern; only the first MaxText characters of a text are
///         held against one.
class CTextMatcher
{
    Q_DECLARE_TR_FUNCTIONS(CTextMatcher)

public:
    enum class EMode { Plain, Pattern };
    static constexpr int MaxPattern = 500; ///< characters
    static constexpr int MaxText = 4000;   ///< the same, of a text that a pattern is held against
    static constexpr int MaxResult = 1 << 20; ///< the same, of a text with replacements

    struct SSpan
    {
        int start = -1; ///< none when negative
        int length = 0;
        bool isFound() const { return start >= 0; }
    };

    CTextMatcher(const QString &wanted, EMode mode, Qt::CaseSensitivity sensitivity);

    bool isPattern() const { return m_mode == EMode::Pattern; }
    const QString &wanted() const { return m_wanted; }
    QString problem() const { return m_problem; } ///< empty when there is none
    SSpan find(const QString &text);
    /// The text with `by` in place of each occurrence. In that of a pattern "\0" to "\9" stand for
    /// what was found and its groups, "\n" for a line end and "\\" for a backslash.
    /// Nothing when the result or, for a pattern, the text is too long.
    std::optional<QString> replaced(const QString &text, const QString &by);
    /// What `by` refers to in the pattern that is not there; empty otherwise.
    QString lackFor(const QString &by) const;

private:
    static QString expanded(const QString &by, const QRegularExpressionMatch &match);
    QRegularExpressionMatch match(const QString &text, int from);
    std::optional<QString> patternReplaced(const QString &text, const QString &by);

    const QString m_wanted;
    const EMode m_mode;
    const QStringMatcher m_plain;
    QRegularExpression m_pattern;
    QString m_problem;
};
