#pragma once

#include <QString>
#include <optional>

/// What decides where the open project's converted images lie.
struct SProjectPlace
{
    QString name;
    QString workingFolder; ///< may be empty
};

/// Nothing when no project is open.
std::optional<SProjectPlace> openProjectPlace();
void setOpenProjectPlace(const std::optional<SProjectPlace> &place);
