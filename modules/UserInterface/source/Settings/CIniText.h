#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

/// The top-level keys of an INI text in the form of QSettings, which is not asked to read it: as
/// soon as it is asked for one key, it makes whatever objects all the values call for, pictures and
/// lists within lists among them. Here a value is text, a list of texts, or bytes.
/// Kept:   keys that nobody asks for, and other sections, as they are; comments are not.
class CIniText
{
public:
    /// Nothing when it is no such text.
    static std::optional<CIniText> parse(const QByteArray &text);
    QByteArray toText() const;

    /// Nothing when there is no such key, or it holds a list. What stands for an object is given as
    /// it is written, such as "@Rect(0 0 8 6)".
    std::optional<QString> text(const QByteArray &key) const;
    QStringList list(const QByteArray &key) const;
    /// Of "@ByteArray(...)"; empty for anything else.
    QByteArray bytes(const QByteArray &key) const;

    void setText(const QByteArray &key, const QString &text);
    /// A text that stands for an object, such as "@Rect(0 0 8 6)".
    void setObject(const QByteArray &key, const QString &text);
    void setList(const QByteArray &key, const QStringList &list);
    void setBytes(const QByteArray &key, const QByteArray &bytes);

private:
    QMap<QByteArray, QByteArray> m_values; ///< as they are written
    QByteArray m_otherSections;
};
