#pragma once

#include "CGitVersions.h"

#include <QDialog>

class QLabel;
class QListWidget;

/// Asks with which earlier version of the project it is to be compared.
class CVersionDialog final : public QDialog
{
    Q_OBJECT

public:
    enum class EKind { File, Saved, Automatic, Git };
    struct SChoice
    {
        EKind kind = EKind::File;
        QString title; ///< for people
        QString id;    ///< of git
    };

    /// `offered`: beside a file, which is always. `projectFile`: whose versions git is asked for;
    /// empty: none.
    CVersionDialog(const QVector<SChoice> &offered, const QString &projectFile, QWidget *parent);

    SChoice choice() const;

private:
    void add(const SChoice &choice);
    void takeVersions(const QVector<CGitVersions::SVersion> &versions);

    QListWidget *const m_list;
    QLabel *const m_note;
    QVector<SChoice> m_choices; ///< by row
};
