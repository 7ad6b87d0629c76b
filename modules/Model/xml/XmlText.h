#pragma once

#include <QByteArray>
#include <QString>

/// What XML can hold: names and characters. Byte arrays are UTF-8.
namespace XmlText {
/// Whether the text can be the name of an element as it stands. Stricter than for attributes:
/// readers follow an older edition of XML there.
bool isElementName(const QString &text);
/// Whether the text can be the name of an attribute as it stands.
bool isAttributeName(const QByteArray &text);

/// Appends the value of an attribute, markup escaped and without the characters that XML cannot
/// hold. Line breaks and tabulators are escaped too, since readers would turn them to spaces.
void appendEscaped(QByteArray &target, const QByteArray &text);
/// How many bytes that appends, at most.
int escapedSize(const QByteArray &text);
} // namespace XmlText
