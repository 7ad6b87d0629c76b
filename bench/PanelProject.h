#pragma once

#include <QString>

namespace bench {

/// Writes a project as a team has it after a year into a folder, with its converted images: 100
/// screens, each with 100 widgets of ten kinds over a picture: cards with texts and icons on them,
/// buttons, sliders, bars and lamps. False when something was not written.
bool writePanelProject(const QString &folder);
/// The same with an item moved, a text changed and an item gone on every tenth screen; it shows the
/// same images.
bool writeChangedPanelProject(const QString &folder);

constexpr const char *PanelFile = "panel.nyx";
constexpr const char *ChangedPanelFile = "changed.nyx";

} // namespace bench
