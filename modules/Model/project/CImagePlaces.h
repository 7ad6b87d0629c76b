#pragma once

#include <QHash>
#include <QSet>
#include <QString>

class CItemModel;

/// By which texts the items of a project have called the folders and files of their images since it
/// was opened, and the project those of its fonts, and what is called otherwise since the project
/// went to another folder or name. Commands and removed items keep the texts of their time; nobody
/// changes them there, they are brought up to date when they come back.
class CImagePlaces
{
public:
    /// What an item of the project says, and all below it.
    void noteAll(const CItemModel &item);
    void note(const QString &key, const QString &text);

    const QSet<QString> &folders() const { return m_folders; } ///< texts of "bfolder"
    const QSet<QString> &files() const { return m_files; } ///< texts of "filename", and of fonts
    const QSet<QString> &names() const { return m_names; } ///< texts of "basename"

    static bool isPlace(const QString &key); ///< whether values of the property name a place
    /// What is meant today by a folder or file of former times.
    QString today(const QString &text) const { return m_moved.value(text, text); }
    bool hasMoved() const { return !m_moved.isEmpty(); }
    /// From now on the texts (the keys) are called otherwise.
    void move(const QHash<QString, QString> &texts);
    /// Brings an item that comes back into the project up to date, and all below it.
    void update(CItemModel &item) const;

private:
    QSet<QString> m_folders;
    QSet<QString> m_files;
    QSet<QString> m_names;
    QHash<QString, QString> m_moved;
};
