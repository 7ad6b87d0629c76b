#pragma once

#include "CGitVersions.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

/// Asks with which earlier version of the project it is to be compared.
class CVersionDialog final : public QDialog
{
    Q_OBJECT

public:
    enum class EKind {
        File,      ///< to be asked for
        Saved,     ///< what the user saved last
        Automatic, ///< the project's file
        Backup,    ///< one that was left beside the file
        Copy,      ///< a recovery copy
        Git
    };
    struct SChoice
    {
        EKind kind = EKind::File;
        QString title; ///< for people
        QString id;    ///< of git, or the path of a copy
    };

    /// `offered`: beside a file, which is always. `projectFile`: whose versions git is asked for;
    /// empty: none.
    CVersionDialog(const QVector<SChoice> &offered, const QString &projectFile, QWidget *parent);

    void add(const SChoice &choice);
    SChoice choice() const;

    /// A revision that was typed is asked of git first; the dialog stays when there is none.
    void accept() override;

private:
    void takeVersions(const QVector<CGitVersions::SVersion> &versions);
    void takeRevision(const CGitVersions::SVersion &version);
    void showNote(const QString &text);

    QListWidget *const m_list;
    QLabel *const m_revisionLabel;
    QLineEdit *const m_revision;
    QLabel *const m_note;
    QPushButton *m_compare = nullptr;
    CGitVersions *m_versions = nullptr; ///< null without a project's file, as the next
    CGitVersions *m_typed = nullptr;
    QVector<SChoice> m_choices; ///< by row
    SChoice m_found;            ///< for what was typed; of another kind than git when nothing was
};
