#pragma once

#include "CDescriptor.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

/// A folder that is held open: what is done in it happens there, whatever becomes of the way to it.
/// A name in it stands for the entry itself; of a link for the link, never for its target.
/// Errors:  in error(), for people, with the path; a folder that is not open does nothing.
class CFolder
{
    Q_DECLARE_TR_FUNCTIONS(CFolder)

public:
    enum class EEntry {
        None,
        File,
        SharedFile, ///< has other names, maybe elsewhere: writing into it changes what they name
        Folder,
        Link,
        Other ///< a pipe, a device
    };

    /// One that the user has named: links on the way to it are followed.
    static CFolder named(const QString &path);
    /// One that lies below another, absolute paths both: on the way to `root` links are followed,
    /// behind it there must be none.
    static CFolder below(const QString &root, const QString &path);
    /// The same, and makes what is missing, also of `root`; `made` gets each folder behind the one
    /// that holds it.
    static CFolder madeBelow(const QString &root, const QString &path, QStringList *made);

    bool isOpen() const { return m_folder.isOpen(); }
    const QString &error() const { return m_error; }
    const QString &path() const { return m_path; }    ///< by which it was reached
    int descriptor() const { return m_folder.get(); } ///< for openat() and its like only

    EEntry entry(const QString &name) const;
    /// Not a folder. True when nothing of this name is left.
    bool remove(const QString &name) const;
    /// In one step, also over a file that is there.
    bool rename(const QString &from, const QString &to) const;

private:
    CFolder() = default;
    static CFolder failed(const QString &error);
    static CFolder walk(const QString &root, const QString &path, QStringList *made);
    void enter(const QString &name, QStringList *made);

    CDescriptor m_folder;
    QString m_path;
    QString m_error;
};
