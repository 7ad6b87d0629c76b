#pragma once

#include <QString>
#include <QStringList>

#include <memory>

class CItemModel;
class CProjectModel;
class CScreenModel;

/// A project with empty screens of these names.
std::unique_ptr<CProjectModel> testProject(const QStringList &screens,
                                           const QString &platform = QStringLiteral("QX110"));
CScreenModel *appendTestScreen(CProjectModel *project, const QString &name);
/// Adds groups of these names below an item, in this order; they need no widget library.
void addTestItems(CItemModel *parent, const QStringList &names);
