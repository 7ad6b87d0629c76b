#pragma once

#include "CProjectModel.h"
#include "fontfiles/FontInfo.h"

#include <QDialog>
#include <QFileDialog>
#include <QHash>
#include <QPointer>
#include <QTimer>

class CEmulatorAdapter;
class CFontForm;
class CFontPreview;
class CProblemLabel;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

/// The fonts of a project: adds, removes and changes them, as one undo step when it is accepted.
/// Files of added fonts are copied into the project's folder only then.
class CFontsDialog : public QDialog
{
    Q_OBJECT

public:
    CFontsDialog(CEmulatorAdapter *adapter, CProjectModel *project, QWidget *parent = nullptr);

    /// Adds fonts from files; those that are no fonts are told.
    void addFiles(const QStringList &files);

public Q_SLOTS:
    void accept() override;

private:
    void layOut();
    QStringList askForFiles(QFileDialog::FileMode mode, const QString &title);
    void replaceFile();
    void addFont(const QString &file, const kivemu::SFontInfo &info);
    void tellUnusable(const QString &file, const kivemu::SFontInfo &info);
    void removeCurrent();
    void tellAbandoned();
    void fillList();
    void showCurrent();
    void takeForm();
    void readInfo(const QString &file);
    void showPreview(const QImage &picture, size_t bytes, const QString &errors);
    void check(const QString &problem = {});
    int current() const; ///< index into the list; -1 when there is none
    int itemsUsing(int handle) const;

    const QPointer<CProjectModel> m_project;
    ProjectFontList m_fonts; ///< as they are to become
    int m_ownHandle = 0;     ///< the last one that the current font had for itself
    QString m_notice;        ///< shown unless there is something worse to say
    QHash<QString, kivemu::SFontInfo> m_infos; ///< by absolute path
    CFontPreview *const m_preview;
    QTimer m_previewDelay; ///< until the user pauses
    QListWidget *const m_list;
    QPushButton *const m_add;
    QPushButton *const m_remove;
    CFontForm *const m_form;
    QLineEdit *const m_sample;
    QLabel *const m_picture;
    QLabel *const m_bytes;
    CProblemLabel *const m_problem;
    QDialogButtonBox *const m_buttons;
};
