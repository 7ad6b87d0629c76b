#pragma once

#include <QDialog>
#include <QList>
#include <QPair>
#include <QPixmap>

#include <functional>

class QLabel;
class QListWidget;

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
    void saveImages();

private:
    void fill();
    void layOut();
    void showFolder();

    const Source m_pictures;
    QString m_folder;
    QLabel *const m_location;
    QListWidget *const m_screens;
    QList<qint64> m_shown; ///< which picture each row shows, by its cache key
};
