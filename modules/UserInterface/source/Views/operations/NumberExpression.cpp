#include "NumberExpression.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {
/// As it may be shown in a message.
QString quoted(const QString &text)
{
    constexpr int most = 24;
    return text.size() <= most ? text : text.left(most) + QChar(0x2026);
}

/// Signs as they come from other keyboards and from texts that are pasted.
QChar plainSign(QChar sign)
{
    switch (sign.unicode()) {
    case 0x2212: // minus
    case 0x2013: // en dash
        return QLatin1Char('-');
    case 0x00d7: // times
    case 0x22c5: // dot
        return QLatin1Char('*');
    case 0x00f7: // division
        return QLatin1Char('/');
    case ',':
        return QLatin1Char('.');
    default:
        return sign;
    }
}

bool isDigit(QChar each)
{
    return each >= QLatin1Char('0') && each <= QLatin1Char('9');
}

bool isNameStart(QChar each)
{
    return each.isLetter() || each == QLatin1Char('_');
}

/// Reads from left to right and works out on the way; the first error ends it.
class CReader
{
    Q_DECLARE_TR_FUNCTIONS(NumberExpression)

public:
    CReader(const QString &text, double current, const NumberExpression::Names &names)
        : m_text(text), m_current(current), m_names(names)
    {
    }

    NumberExpression::SResult read()
    {
        if (m_text.size() > NumberExpression::MaxLength)
            return {0,
                    tr("An expression has %1 characters at most").arg(NumberExpression::MaxLength),
                    false};
        double value = 0;
        skipBlanks();
        const QChar sign = peek();
        const bool isSign = QStringLiteral("+-*/").contains(sign) && !sign.isNull();
        if (isSign && peek(1) == QLatin1Char('=')) {
            m_at += 2;
            value = continued(sign, m_current);
        } else if (isSign && sign != QLatin1Char('-')) {
            value = sum(m_current);
        } else {
            if (sign == QLatin1Char('='))
                ++m_at;
            value = sum();
        }
        skipBlanks();
        if (m_at < m_text.size())
            fail(tr("\"%1\" is not expected here").arg(quoted(m_text.mid(m_at))));
        check(value);
        return {m_error.isEmpty() ? value : 0, m_error, m_isIncomplete};
    }

private:
    struct SOperand
    {
        double value = 0;
        bool isPercentage = false;
        double number() const { return isPercentage ? value / 100 : value; }
    };

    QChar peek(int ahead = 0) const
    {
        return m_at + ahead < m_text.size() ? plainSign(m_text.at(m_at + ahead)) : QChar();
    }
    void skipBlanks()
    {
        while (m_at < m_text.size() && m_text.at(m_at).isSpace())
            ++m_at;
    }
    bool take(char sign)
    {
        skipBlanks();
        if (m_at >= m_text.size() || peek() != QLatin1Char(sign))
            return false;
        ++m_at;
        return true;
    }
    void fail(const QString &error)
    {
        if (m_error.isEmpty())
            m_error = error;
    }
    bool hasFailed() const { return !m_error.isEmpty(); }
    void check(double value)
    {
        constexpr double most = std::numeric_limits<qint32>::max();
        if (!std::isfinite(value) || std::abs(value) > most)
            fail(tr("The result is too large"));
    }

    /// The sign with all that follows as one operand.
    double continued(QChar sign, double before)
    {
        SOperand operand = product();
        skipBlanks();
        if (m_at < m_text.size())
            operand = {terms(absolute(operand)), false};
        switch (sign.unicode()) {
        case '*':
            return before * operand.number();
        case '/':
            return quotient(before, operand.number());
        default:
            return added(before, operand, sign == QLatin1Char('-') ? -1 : 1);
        }
    }

    static double added(double left, const SOperand &right, int sign)
    {
        return right.isPercentage ? left * (1 + sign * right.number()) : left + sign * right.value;
    }

    double quotient(double dividend, double divisor)
    {
        if (divisor == 0 && !hasFailed())
            fail(tr("Division by zero"));
        return hasFailed() ? 0 : dividend / divisor;
    }

    double absolute(const SOperand &first) const
    {
        return first.isPercentage ? m_current * first.number() : first.value;
    }
    double sum() { return terms(absolute(product())); }
    /// The number that is there is the first operand, and the signs follow at once.
    double sum(double first) { return terms(factors({first, false}).value); }
    double terms(double value)
    {
        while (!hasFailed()) {
            if (take('+'))
                value = added(value, product(), 1);
            else if (take('-'))
                value = added(value, product(), -1);
            else
                break;
        }
        return value;
    }

    SOperand product() { return factors(operand()); }
    SOperand factors(SOperand value)
    {
        while (!hasFailed()) {
            if (take('*'))
                value = {value.number() * operand().number(), false};
            else if (take('/'))
                value = {quotient(value.number(), operand().number()), false};
            else
                break;
        }
        return value;
    }

    SOperand operand()
    {
        if (++m_depth > NumberExpression::MaxDepth)
            fail(tr("Too many brackets or signs within each other"));
        SOperand read;
        if (hasFailed())
            return read;
        if (take('-')) {
            read = operand();
            read.value = -read.value;
        } else if (take('+')) {
            read = operand();
        } else if (take('(')) {
            read.value = sum();
            if (!take(')'))
                closeMissing();
        } else {
            read.value = numberOrName();
        }
        if (!hasFailed() && take('%'))
            read = {read.number(), true};
        --m_depth;
        return read;
    }

    void closeMissing()
    {
        if (m_at < m_text.size())
            fail(tr("\"%1\" is not expected here").arg(quoted(m_text.mid(m_at))));
        else
            endEarly(tr("A closing bracket is missing"));
    }

    void endEarly(const QString &error)
    {
        m_isIncomplete = !hasFailed();
        fail(error);
    }

    double numberOrName()
    {
        skipBlanks();
        if (m_at >= m_text.size()) {
            endEarly(tr("A number is missing at the end"));
            return 0;
        }
        if (isDigit(peek()) || peek() == QLatin1Char('.'))
            return number();
        if (isNameStart(peek()))
            return named();
        fail(tr("\"%1\" is not expected here").arg(quoted(m_text.mid(m_at))));
        return 0;
    }

    double number()
    {
        QString digits;
        while (isDigit(peek()) || peek() == QLatin1Char('.')) {
            digits.append(peek());
            ++m_at;
        }
        bool isNumber = false;
        const double value = digits.toDouble(&isNumber);
        if (!isNumber)
            fail(tr("\"%1\" is no number").arg(quoted(digits)));
        return value;
    }

    QString word()
    {
        const int begin = m_at;
        while (isNameStart(peek()) || isDigit(peek()))
            ++m_at;
        return m_text.mid(begin, m_at - begin);
    }

    /// The longest of the names that begin here; one may have several words.
    double named()
    {
        const QString first = word();
        std::optional<double> value = m_names ? m_names(first) : std::nullopt;
        int end = m_at;
        QString name = first;
        for (int words = 1; words < NumberExpression::MaxWords && m_names; ++words) {
            skipBlanks();
            if (!isNameStart(peek()) && !isDigit(peek()))
                break;
            name += QLatin1Char(' ') + word();
            if (const std::optional<double> longer = m_names(name)) {
                value = longer;
                end = m_at;
            }
        }
        const bool isLast = m_at >= m_text.size();
        m_at = end;
        skipBlanks();
        const bool isName = value && !isNameStart(peek()); // two side by side are none
        if (!isName && !hasFailed()) {
            m_isIncomplete = isLast; // its end may not be typed yet
            fail(tr("There is no number named \"%1\"").arg(quoted(isLast ? name : first)));
        }
        return value.value_or(0);
    }

    const QString &m_text;
    const double m_current;
    const NumberExpression::Names &m_names;
    int m_at = 0;
    int m_depth = 0;
    QString m_error;
    bool m_isIncomplete = false;
};
} // namespace

NumberExpression::SResult NumberExpression::evaluate(const QString &text, double current,
                                                     const Names &names)
{
    return CReader(text, current, names).read();
}

bool NumberExpression::isPlain(const QString &text)
{
    QString number = text.trimmed();
    for (QChar &each : number)
        each = plainSign(each);
    if (number.startsWith(QLatin1Char('-')))
        number.remove(0, 1);
    const int point = number.indexOf(QLatin1Char('.'));
    if (point >= 0)
        number.remove(point, 1);
    return !number.isEmpty() && std::all_of(number.begin(), number.end(), isDigit);
}
