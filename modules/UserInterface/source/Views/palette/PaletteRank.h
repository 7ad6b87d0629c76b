#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// How well entries of the palette fit what is typed to find them.
namespace PaletteRank {
/// The texts of an entry, as the library and as the language in force have them.
struct SEntry
{
    QStringList names;
    QString type;
    QStringList groups;
    QStringList tips;
};

/// The lower, the better; nothing when a word of the text is nowhere in the entry. A name counts
/// more than a group and that more than a tool tip, the beginning of a word more than its middle.
std::optional<int> of(const QString &text, const SEntry &entry);
} // namespace PaletteRank
