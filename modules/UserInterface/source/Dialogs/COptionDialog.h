#pragma once

#include "CProjectModel.h"

#include <QDialog>
#include <QPointer>

class CPlatformTable;
class CProblemLabel;
class IProjectOptionsObserver;
class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QLineEdit;
class QSpinBox;

/// The options of the open project, changed as one undo step, and for all projects the autosave and
/// how far the arrow keys move.
/// Lives as long as the window and is filled anew for each showing.
class COptionDialog : public QDialog
{
    Q_OBJECT

public:
    /// Both must live as long as the dialog; the observer may be null.
    COptionDialog(const CPlatformTable &platforms, IProjectOptionsObserver *observer,
                  QWidget *parent = nullptr);

    /// Fills the fields. Without a project only what is for all of them can be changed.
    /// `autosaveInterval`: seconds; 0 or less is off.
    void fill(CProjectModel *project, int autosaveInterval);
    /// How far the arrow keys move, in pixels.
    void fillNudgeSteps(int step, int fine);

public Q_SLOTS:
    void accept() override;

Q_SIGNALS:
    /// Only when it has changed; 0 is off.
    void autosaveIntervalChanged(int seconds);
    void nudgeStepsChosen(int step, int fine);

private:
    void layOut();
    QWidget *makeAutosaveGroup();
    QWidget *makeNudgeGroup();
    void platformChanged(const QString &platform);
    void showSize(const QSize &size);
    void sizeChosen();
    void check();
    QSize chosenSize() const;
    int autosaveInterval() const;
    void pushOptions();

    const CPlatformTable &m_platforms;
    IProjectOptionsObserver *const m_observer; ///< not owned
    QPointer<CProjectModel> m_project;
    int m_oldInterval = 0;

    QLineEdit *const m_name;
    CProblemLabel *const m_nameProblem;
    QComboBox *const m_platform;
    QComboBox *const m_offered; ///< the offered sizes and, last, a custom one
    QSpinBox *const m_width;
    QSpinBox *const m_height;
    CProblemLabel *const m_sizeProblem;
    QCheckBox *const m_autosave;
    QSpinBox *const m_interval;
    QSpinBox *const m_nudgeStep;
    QSpinBox *const m_fineNudgeStep;
    QLineEdit *const m_folder;
    QDialogButtonBox *const m_buttons;
};
