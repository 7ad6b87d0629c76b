#pragma once

#include "ProjectFonts.h"

#include <QByteArray>
#include <QString>
#include <QVector>

class CItemModel;
class CProjectModel;
class QUndoCommand;
struct SItemElement;

/// Brings the fonts of a project along with items that are copied from it into another one: their
/// files are copied, they get handles that are free there, and the items then use these. Fonts that
/// the other project has already are shared.
class CFontImport
{
public:
    static const QString Mime; ///< beside copied items and pages, which do without where it lacks

    /// The fonts that the items use, with those to fall back on; empty for none.
    static QByteArray copied(const CProjectModel &project,
                             const QVector<const CItemModel *> &items);

    explicit CFontImport(CProjectModel *project) : m_project(project) {}

    /// Changes the elements of items below `root`, which were copied with these fonts. Otherwise
    /// the reason why a font could not be brought; then nothing is changed.
    QString bring(SItemElement &root, const QByteArray &fonts);
    /// Gives the project the fonts; null when it has them all. Owned by `parent` or the caller.
    QUndoCommand *command(QUndoCommand *parent = nullptr) const;

private:
    int handleOf(const SProjectFont &font, ProjectFontList &fonts) const;

    CProjectModel *const m_project;
    ProjectFontList m_fonts; ///< of the project afterwards; empty: as they are
};
