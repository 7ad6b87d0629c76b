#pragma once

#include <QString>

#include <functional>
#include <optional>

/// What may be typed where a number stands.
///   Expressions: + - * / and brackets over numbers, with a point or a comma before the decimals,
///                and names; `=` may stand before one.
///   Relative:    + * / before it go on from the number that is there ("+4", "*2"), and so do +=
///                -= *= /= with all that follows ("-=4", "/=2+1"). A minus alone makes a number
///                negative.
///   Percentages: of what stands before + or -, or, alone, of the number that is there ("50%",
///                "+10%"); elsewhere hundredths ("width*50%").
/// Errors:  a text that is none, names that are not known, a division by zero and what is too large
///          are told; no text takes long or fails otherwise.
namespace NumberExpression {
constexpr int MaxLength = 500; ///< characters of an expression
constexpr int MaxDepth = 50;   ///< brackets and signs within each other
constexpr int MaxWords = 5;    ///< of a name

using Names = std::function<std::optional<double>(const QString &)>;

struct SResult
{
    double value = 0;          ///< finite, no larger than fits into 32 bits
    QString error;             ///< for a user; empty when there is a value
    bool isIncomplete = false; ///< more may follow: that is the error
    explicit operator bool() const { return error.isEmpty(); }
};
/// `current`: the number that is there.
SResult evaluate(const QString &text, double current, const Names &names);

/// A number and nothing else, so that there is nothing to work out.
bool isPlain(const QString &text);
} // namespace NumberExpression
