#pragma once

#include <QDialog>
#include <QList>
#include <QPair>
#include <QPixmap>

#include <atomic>
#include <functional>
#include <memory>

class QLabel;
class QListWidget;
class QPushButton;
class QToolButton;

/// Shows all screens as pictures and saves those that the user picks as PNG files.
class CPrintScreenDialog : public QDialog
{
    Q_OBJECT

public:
    using Pictures = QList<QPair<QString, QPixmap>>; ///< name and picture of each screen
    using Source = std::function<Pictures()>;

    /// `pictures` gives the current ones whenever it is asked. `folder` is where they are saved;
    /// when there is no such folder, the user's own is proposed.
    CPrintScreenDialog(const Source &pictures, const QString &folder, QWidget *parent = nullptr);
    ~CPrintScreenDialog() override;

    const QString &saveFolder() const { return m_folder; }

public Q_SLOTS:
    /// Shows those pictures that are new since; the screens must be the same.
    void refresh();

Q_SIGNALS:
    void saveFolderChanged(const QString &folder);
    /// Something for the output window.
    void message(const QString &text);

private Q_SLOTS:
    void selectFolder();
    /// Closes the dialog when all are written; a dialog that is closed before writes no more.
    void saveImages();

private:
    void fill();
    void layOut();
    void showScaled(int row, const QPixmap &picture);
    void showFolder();

    const Source m_pictures;
    QString m_folder;
    QLabel *const m_location;
    QListWidget *const m_screens;
    QToolButton *const m_choose;
    QPushButton *const m_save;
    const std::shared_ptr<std::atomic<bool>> m_isStopped; ///< asked by the thread that writes
    QList<qint64> m_shown; ///< which picture each row shows, by its cache key
};
