#pragma once

#include <QString>

class CItemModel;

/// The words by which users know properties and their values, in the language of the program. The
/// widget library has them in English; a property's key and an entry's name stay what documents
/// and scripts have.
namespace PropertyWords {
/// "Line colour" for "line_color".
QString caption(const CItemModel &item, const QString &key);
/// The key of a property by its name: the key or the caption, in any case and without regard to
/// blanks and underscores. Empty when the item has none.
QString keyOf(const CItemModel &item, const QString &name);
/// "Left" for the entry "left" of an enumeration.
QString entry(const QString &name);
/// "Button" for a kind that the library calls so; without the marks of a translation that say where
/// the word can be broken: who looks for it types none of them.
QString kind(const QString &name);
/// "True" or "False".
QString truth(bool isTrue);
/// How much of the property is one of what users see: of a length in sixteenths 16, else 1.
int unit(const CItemModel &item, const QString &key);
/// A value as users see it, by its text as documents have it.
QString value(const CItemModel &item, const QString &key, const QString &text);
/// A number in the language's form, with no more decimals than there is need for.
QString number(double value);
} // namespace PropertyWords
