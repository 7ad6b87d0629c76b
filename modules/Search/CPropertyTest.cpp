#include "CPropertyTest.h"

#include <QRegularExpression>

CPropertyTest::CPropertyTest(const QString &text)
{
    static const QRegularExpression form(
        QStringLiteral("^\\s*([^=<>!:]*?)\\s*(?:(<=|>=|!=|=|<|>|:)\\s*(.*?)\\s*)?$"),
        QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch parts = form.match(text);
    m_key = parts.hasMatch() ? parts.captured(1) : text;
    static const QString signs[] = {QStringLiteral(":"), QStringLiteral("="),  QStringLiteral("!="),
                                    QStringLiteral("<"), QStringLiteral("<="), QStringLiteral(">"),
                                    QStringLiteral(">=")};
    for (int sign = 0; sign < int(std::size(signs)); ++sign) {
        if (parts.captured(2) == signs[sign])
            m_test = ETest(sign + 1);
    }
    m_value = parts.captured(3);
}

namespace {
/// Decimals may stand behind a comma.
double numberOf(const QString &text, bool *isNumber)
{
    const double number = text.toDouble(isNumber);
    return *isNumber ? number
                     : QString(text).replace(QLatin1Char(','), QLatin1Char('.')).toDouble(isNumber);
}
} // namespace

bool isSameValue(const QString &left, const QString &right)
{
    bool isLeft = false;
    bool isRight = false;
    const double first = numberOf(left, &isLeft);
    const double second = numberOf(right, &isRight);
    return isLeft && isRight ? first == second : left.compare(right, Qt::CaseInsensitive) == 0;
}

bool CPropertyTest::isPassedBy(const QString &value, const QString &key) const
{
    if (key.isEmpty())
        return isPassedBy(value);
    return m_test == ETest::Unequal ? isPassedBy(value) && isPassedBy(key)
                                    : isPassedBy(value) || isPassedBy(key);
}

bool CPropertyTest::isPassedBy(const QString &value) const
{
    bool isNumber = false;
    bool isLimit = false;
    const double number = value.toDouble(&isNumber);
    const double limit = numberOf(m_value, &isLimit);
    const bool areNumbers = isNumber && isLimit;
    switch (m_test) {
    case ETest::None:
        return true;
    case ETest::Contains:
        return value.contains(m_value, Qt::CaseInsensitive);
    case ETest::Equal:
        return isSameValue(value, m_value);
    case ETest::Unequal:
        return !isSameValue(value, m_value);
    case ETest::Less:
        return areNumbers && number < limit;
    case ETest::LessOrEqual:
        return areNumbers && number <= limit;
    case ETest::Greater:
        return areNumbers && number > limit;
    case ETest::GreaterOrEqual:
        return areNumbers && number >= limit;
    }
    return false;
}
