#pragma once

#include <QString>
#include <QStringList>

/// Names that users give, as names in C.
namespace Identifiers {
constexpr int MaxLength = 63; ///< characters that every C99 compiler tells apart

/// One C identifier for each name, all different: `prefix`, then the name in capitals with "_" for
/// what C does not take. Letters lose their accents; characters of other scripts become their code,
/// so that names keep different ones. Where two names give the same one the later gets "_2", "_3",
/// ...; names that clash with none are not touched by others that do.
/// PREFIXCOUNT stays free for their number. `otherwise` stands for a name of which nothing is left.
/// Prefix and `otherwise` must be identifiers in capitals.
QStringList unique(const QString &prefix, const QStringList &names, const QString &otherwise);
} // namespace Identifiers
