#pragma once

#include <QColor>
#include <QVector>

class CProjectModel;

/// The colours that a project's screens and items have.
namespace ProjectColours {
struct SUse
{
    QColor colour;
    int count; ///< properties that have it
};
using Uses = QVector<SUse>;

/// Each once, the one that is used most first, equally many by their names.
Uses of(const CProjectModel &project);
} // namespace ProjectColours
