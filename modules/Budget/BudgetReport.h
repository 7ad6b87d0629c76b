#pragma once

#include "SBudget.h"

#include <QJsonObject>
#include <QStringList>

/// The forms in which a budget is told outside the editor.
namespace BudgetReport {

/// {"screens": [{"name", "ram_g_bytes", "ram_g_budget", "ram_g_rest", "ram_dl_bytes",
/// "ram_dl_budget", "ram_dl_rest", "assets", "items": [{"type", "id", "name", "ram_dl_bytes"}]}],
/// "assets": [{"file", "format", "width", "height", "bytes", "items": [ids]}]}. Files are named
/// from `folder` where they lie below it.
QJsonObject toJson(const SProjectBudget &budget, const QString &folder);
QStringList toLines(const SProjectBudget &budget, const QString &folder);

} // namespace BudgetReport
