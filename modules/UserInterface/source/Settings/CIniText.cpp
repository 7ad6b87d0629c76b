#include "CIniText.h"

#include <cctype>

namespace {
const QString BytesStart = QStringLiteral("@ByteArray(");
const QLatin1Char Mark('@'); ///< of what stands for an object; a text that begins with it has two

/// The letters that stand for control characters behind a backslash, and these characters.
constexpr char EscapeLetters[] = "abfnrtv";
constexpr char Escaped[] = "\a\b\f\n\r\t\v";

/// Takes a written value apart.
class CValueReader
{
public:
    explicit CValueReader(const QByteArray &written) : m_written(written) {}

    QStringList read()
    {
        while (m_at < m_written.size()) {
            const char next = m_written.at(m_at++);
            if (next == '\\')
                readEscape();
            else if (next == '"')
                m_isQuoted = !m_isQuoted;
            else if (next == ',' && !m_isQuoted)
                endPart();
            else if (next == ';' && !m_isQuoted)
                break; // a comment
            else
                append(QLatin1Char(next));
            m_wasQuoted = m_wasQuoted || m_isQuoted;
        }
        endPart();
        return m_parts;
    }

private:
    /// Spaces around a part belong to it only when they are quoted.
    void append(QChar character)
    {
        if (m_isQuoted || !character.isSpace())
            m_end = m_part.size() + 1;
        else if (m_part.isEmpty() && !m_wasQuoted)
            return;
        m_part.append(character);
    }

    void appendCode(uint code)
    {
        m_part.append(QChar(ushort(code)));
        m_end = m_part.size();
    }

    void readEscape()
    {
        if (m_at >= m_written.size())
            return;
        const char letter = m_written.at(m_at);
        const QByteArray letters(EscapeLetters);
        if (letter == 'x') {
            ++m_at;
            readNumber(16);
        } else if (letter >= '0' && letter <= '7') {
            readNumber(8);
        } else {
            ++m_at;
            const int index = letters.indexOf(letter);
            appendCode(index < 0 ? uchar(letter) : uchar(Escaped[index]));
        }
    }

    void readNumber(uint base)
    {
        uint code = 0;
        for (; m_at < m_written.size(); ++m_at) {
            const char digit = m_written.at(m_at);
            if (!std::isxdigit(uchar(digit)) || (base == 8 && (digit < '0' || digit > '7')))
                break;
            code = (code * base + QByteArray(1, digit).toUInt(nullptr, 16)) & 0xffffU;
        }
        appendCode(code);
    }

    void endPart()
    {
        m_part.truncate(m_end);
        m_parts.append(m_part);
        m_part.clear();
        m_end = 0;
        m_wasQuoted = false;
    }

    const QByteArray m_written;
    int m_at = 0;
    bool m_isQuoted = false;
    bool m_wasQuoted = false; ///< somewhere in this part
    QString m_part;
    int m_end = 0; ///< of the part without the spaces behind it
    QStringList m_parts;
};

/// One part of a value; all of it is ASCII.
QByteArray written(const QString &text)
{
    QByteArray bytes;
    bool needsQuotes = text.startsWith(QLatin1Char(' ')) || text.endsWith(QLatin1Char(' '));
    bool isAfterNumber = false; // whose digits the next character must not look like
    for (const QChar each : text) {
        const ushort code = each.unicode();
        const bool isAscii = code >= 0x20 && code < 0x7f;
        const char character = isAscii ? char(code) : '\0';
        const bool isNumber = !isAscii || (isAfterNumber && std::isxdigit(uchar(character)));
        isAfterNumber = isNumber;
        if (isNumber)
            bytes += "\\x" + QByteArray::number(code, 16);
        else if (character == '"' || character == '\\')
            bytes += QByteArray("\\") + character;
        else
            bytes += character;
        needsQuotes = needsQuotes || character == ';' || character == ',' || character == '=';
    }
    return needsQuotes ? '"' + bytes + '"' : bytes;
}

QString marked(const QString &text)
{
    return text.startsWith(Mark) ? Mark + text : text;
}

QString unmarked(const QString &text)
{
    return text.startsWith(QLatin1String("@@")) ? text.mid(1) : text;
}
} // namespace

std::optional<CIniText> CIniText::parse(const QByteArray &text)
{
    CIniText read;
    bool isOther = false; // a section other than the keys without one
    QByteArray lines = text;
    lines.replace('\r', '\n');
    const auto allLines = lines.split('\n');
    for (const QByteArray &each : allLines) {
        const QByteArray line = each.trimmed();
        if (line.isEmpty() || line.startsWith(';') || line.startsWith('#'))
            continue;
        const bool isSection = line.startsWith('[');
        const int equals = line.indexOf('=');
        if (isSection ? !line.endsWith(']') : equals < 1)
            return {};
        if (isSection)
            isOther = line.toLower() != "[general]";
        if (isOther)
            read.m_otherSections += line + '\n';
        else if (!isSection)
            read.m_values[line.left(equals).trimmed()] = line.mid(equals + 1).trimmed();
    }
    return read;
}

QByteArray CIniText::toText() const
{
    QByteArray text = "[General]\n";
    for (auto each = m_values.begin(); each != m_values.end(); ++each)
        text += each.key() + '=' + each.value() + '\n';
    return m_otherSections.isEmpty() ? text : text + '\n' + m_otherSections;
}

std::optional<QString> CIniText::text(const QByteArray &key) const
{
    const auto found = m_values.find(key);
    if (found == m_values.end())
        return {};
    const QStringList parts = CValueReader(*found).read();
    return parts.size() == 1 ? std::optional(unmarked(parts.first())) : std::nullopt;
}

QStringList CIniText::list(const QByteArray &key) const
{
    const auto found = m_values.find(key);
    QStringList parts = found == m_values.end() ? QStringList() : CValueReader(*found).read();
    if (parts.size() == 1 &&
        (parts.first().isEmpty() || parts.first() == QLatin1String("@Invalid()")))
        return {};
    for (QString &each : parts)
        each = unmarked(each);
    return parts;
}

QByteArray CIniText::bytes(const QByteArray &key) const
{
    const auto found = m_values.find(key);
    const QStringList parts = found == m_values.end() ? QStringList() : CValueReader(*found).read();
    const QString text = parts.size() == 1 ? parts.first() : QString();
    if (!text.startsWith(BytesStart) || !text.endsWith(QLatin1Char(')')))
        return {};
    return text.mid(BytesStart.size(), text.size() - BytesStart.size() - 1).toLatin1();
}

void CIniText::setText(const QByteArray &key, const QString &text)
{
    m_values[key] = written(marked(text));
}

void CIniText::setObject(const QByteArray &key, const QString &text)
{
    m_values[key] = written(text);
}

void CIniText::setList(const QByteArray &key, const QStringList &list)
{
    QByteArrayList parts;
    for (const QString &each : list)
        parts.append(written(marked(each)));
    m_values[key] = list.isEmpty() ? "@Invalid()" : parts.join(", ");
}

void CIniText::setBytes(const QByteArray &key, const QByteArray &bytes)
{
    setObject(key,
              BytesStart + QString::fromLatin1(bytes.constData(), bytes.size()) + QLatin1Char(')'));
}
