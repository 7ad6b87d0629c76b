#pragma once

#include "ProjectChecks.h"

#include <QHash>
#include <QObject>
#include <QPersistentModelIndex>
#include <QVector>

#include <memory>

class CProjectModel;

/// The findings of the open project, as they were found last. What they are about may be gone
/// meanwhile; such findings are left out.
class CCheckResults final : public QObject
{
    Q_OBJECT

public:
    struct SEntry
    {
        SFinding finding;             ///< its pointers are not to be followed: see the places
        QPersistentModelIndex screen; ///< invalid for what concerns the project
        QPersistentModelIndex item;   ///< invalid for what concerns the screen as a whole
    };

    using QObject::QObject;

    void setProject(CProjectModel *project);
    /// A screen as it is now. Its picture is looked at in the background.
    void takeScreen(const SScreenExport &screen);
    /// All screens were taken.
    void takeProject();
    /// Looks at the image files, of which nothing in the project tells: in the background.
    void lookAtFiles();
    /// The same, but of the project as it was then; the project itself is looked at only when
    /// something is different.
    void followFiles();
    /// All findings are to be made anew, such as in another language.
    void startAnew();

    CProjectModel *project() const { return m_project; }
    QVector<SEntry> entries() const;

Q_SIGNALS:
    void changed();
    /// By which the project is judged, or in which words: all screens are to be taken again.
    void measuresChanged();
    /// Of one screen, while more are to come.
    void partlyChanged();
    /// A picture is being looked at: the next one is to wait until it has been.
    void lookingAtPicture(bool isLooking);

private:
    struct SScreen
    {
        QPersistentModelIndex place;
        QVector<SEntry> entries;
        ProjectChecks::ImageContents images;
    };

    struct SLook
    {
        SPictureState picture;
        ProjectChecks::ImageContents images;
    };

    SEntry entryOf(const SFinding &finding) const;
    void takeLook(const QPersistentModelIndex &place, const SScreenExport &screen,
                  const SLook &look);
    void takeFiles(const SImageFiles::SState &state);
    QStringList measures() const;
    void followSteps();

    CProjectModel *m_project = nullptr; ///< not owned
    QVector<SScreen> m_screens;         ///< in the order in which they were taken first
    QVector<SEntry> m_ofProject;
    QVector<SEntry> m_ofFiles;
    QString m_ignored;      ///< what the project says of findings about it
    QStringList m_measures; ///< by which it is judged
    std::shared_ptr<CPictureLook> m_pictures;
    std::shared_ptr<CImageFileLook> m_look;
    SImageFiles m_files; ///< that were looked at last
    SImageFiles::SState m_filesState;
    bool m_isLooking = false;
    bool m_looksAgain = false; ///< when it has looked
};
