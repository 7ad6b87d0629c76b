#pragma once

#include "CFileCopies.h"
#include "CImagePlaces.h"
#include "ProjectFonts.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QVector>

class CItemModel;
class CProjectModel;

/// Takes the images and fonts of a project along to another folder or name: all files that it,
/// items of it, those that an undo would bring back, and values in commands refer to, as far as
/// they lie in the project's folder. They are copied to the same places below the new folder; the
/// folder of converted images becomes the one of the new name. No file of another content is
/// replaced: the folder that meets one goes to a subfolder of the converted images instead.
class CImageMove
{
public:
    CImageMove(CProjectModel *project, const QString &workingDirectory, const QString &projectName);

    /// Empty when all was copied, otherwise the reason, and nothing has been made.
    QString copy() { return m_copies.copy(); }
    /// Gives the project its new name and folder, and lets all that refers to images find them
    /// there.
    void apply();
    /// Puts all of that back as it was before copy().
    void takeBack();

private:
    struct SText
    {
        CItemModel *item;
        QString key;
        QString text;
    };

    void planConverted();
    void planOthers();
    void planTexts();
    void planFolder(const QString &folder, const QStringList &files, const QString &wanted);
    bool isInside(const QString &path) const;
    QString absolute(const QString &text) const;
    QString moved(const QString &folder) const;
    void update(CItemModel &item);

    CProjectModel *const m_project; ///< not owned
    const QString m_from;           ///< the folders, absolute
    const QString m_to;
    const QString m_converted; ///< of the new name
    const QString m_name;
    const QString m_newDirectory;
    const QString m_oldName;
    const QString m_oldDirectory;
    const CImagePlaces m_oldPlaces;
    const ProjectFontList m_oldFonts;
    CFileCopies m_copies;
    QHash<QString, QString> m_folders; ///< from where to where, absolute
    QHash<QString, QString> m_texts;   ///< what items say, old and new
    QVector<SText> m_oldTexts;         ///< what apply() has changed
};
