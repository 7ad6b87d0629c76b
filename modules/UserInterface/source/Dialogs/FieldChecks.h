#pragma once

#include <QString>

/// What is wrong with what the user has entered, as a text for people; empty when nothing is.
namespace FieldChecks {
QString problemOfProjectName(const QString &name);
/// The folder must exist and take new files.
QString problemOfFolder(const QString &folder);
} // namespace FieldChecks
