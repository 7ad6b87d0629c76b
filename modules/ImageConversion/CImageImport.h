#pragma once

#include "CFileCopies.h"

#include <QCoreApplication>
#include <QStringList>

class CProjectModel;
struct SItemElement;

/// Brings images into a project together with items that were copied from another one: their files
/// are copied into the project's folder of converted images, and the items then refer to the
/// copies, relative to the project. Images that the project has already are shared.
class CImageImport
{
    Q_DECLARE_TR_FUNCTIONS(CImageImport)

public:
    explicit CImageImport(const CProjectModel *project);

    /// Changes the elements of items below `root`. Empty when all is done; otherwise the reason,
    /// and then nothing was copied and the elements are of no use.
    QString bring(SItemElement &root);
    /// Removes what was copied, for items that do not come after all.
    void takeBack() { m_copies.takeBack(); }
    /// What could not be brought because it was not there, one line; empty when nothing is missing.
    QString missing() const;

private:
    struct SFiles;

    void resolveFolder(SItemElement &item);
    void bringItem(SItemElement &item, const QString &folder, const QString &base);
    static SFiles filesOf(const SItemElement &item, const QString &folder, const QString &base);
    bool fits(const SFiles &files, const QString &folder, const QString &base) const;

    const CProjectModel *const m_project;
    CFileCopies m_copies;
    QStringList m_missing;
    QString m_error;
};
