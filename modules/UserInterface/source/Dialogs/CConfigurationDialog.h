#pragma once

#include <QDialog>
#include <QHash>
#include <QSize>

class CPlatformTable;
class CProblemLabel;
class QComboBox;
class QDialogButtonBox;
class QLineEdit;

/// The settings of a new project: name, platform, screen size and folder.
class CConfigurationDialog : public QDialog
{
    Q_OBJECT

public:
    using Options = QHash<QString, QString>; ///< property name to value text

    /// `platforms` must live as long as the dialog; `folder` is proposed for the project.
    CConfigurationDialog(const CPlatformTable &platforms, const QString &folder,
                         QWidget *parent = nullptr);

    /// What the user has accepted, for the new project's properties.
    const Options &options() const { return m_options; }

    /// "untitled_project", or the first "untitled_project(n)" from 1 on that the folder has no
    /// file of.
    static QString proposedName(const QString &folder);

public Q_SLOTS:
    void accept() override;

private Q_SLOTS:
    void dropdownResolutions(const QString &platform);
    void widthHeightChanged(const QString &resolution);

private:
    void layOut();
    void chooseFolder();
    void folderChanged();
    void check();

    const CPlatformTable &m_platforms;
    QLineEdit *const m_name;
    CProblemLabel *const m_nameProblem;
    QComboBox *const m_platform;
    QComboBox *const m_resolution;
    QLineEdit *const m_folder;
    CProblemLabel *const m_folderProblem;
    QDialogButtonBox *const m_buttons;
    QSize m_size; ///< the chosen resolution
    Options m_options;
};
