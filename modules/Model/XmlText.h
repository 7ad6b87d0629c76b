#pragma once

#include <QByteArray>
#include <QString>

/// What XML can hold: names and characters. All texts are UTF-8.
namespace XmlText {
enum class Place { Attribute, Content };

/// Whether the text can be the name of an element or attribute, for every reader of XML.
bool isName(const QString &text);
/// The same for the usual case, quickly: false also for a name with other letters than ASCII.
bool isAsciiName(const QByteArray &text);

/// Appends the text with markup escaped and without the characters that XML cannot hold. In an
/// attribute, line breaks and tabulators are escaped too, since readers would turn them to spaces.
void appendEscaped(QByteArray &target, const QByteArray &text, Place place);

/// Appends the text without the characters that XML cannot hold, markup as it stands.
void appendCleaned(QByteArray &target, const QByteArray &text);
} // namespace XmlText
