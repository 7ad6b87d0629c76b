#pragma once

#include <QString>

#include <optional>

/// How well a name answers what a user types of it, the case of letters aside. Every word that is
/// typed has to be found, its letters in their order: beginnings of words and letters that stand
/// together count for it, gaps against it. Letters that are merely scattered are no match.
namespace FuzzyMatch {

/// Higher is better, nothing is no match. `context`: what stands beside the name, such as a menu;
/// words found only there count less.
std::optional<int> score(const QString &typed, const QString &name, const QString &context = {});

} // namespace FuzzyMatch
