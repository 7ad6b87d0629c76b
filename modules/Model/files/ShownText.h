#pragma once

#include <QString>

/// Texts from outside (names, paths, values, reasons that quote them) as they may be shown. What
/// cannot be seen, or turns the direction of what stands behind it, is shown by its number:
/// "[U+202E]". Long texts are cut and end in an ellipsis: laying out a text that has no spaces
/// takes time with the square of its length.
/// The result is plain text; a label that guesses the format has to be told so.
namespace ShownText {
constexpr int MaxLength = 1000; ///< of a text that may be shown, characters before the ellipsis
constexpr int MaxName = 250;

QString name(const QString &foreign); ///< on one line
/// Keeps its lines.
QString message(const QString &foreign);
/// For a place that guesses whether a text is HTML, such as a tool tip: never read as such.
QString toolTip(const QString &foreign);
/// For a place where "&" marks a key, such as a menu and a tab.
QString label(const QString &foreign);
} // namespace ShownText
