#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QVector>

/// Files that go together to other places: all of them arrive, or none does.
/// A file that lies at its place with the same bytes stays as it is; one with other bytes is never
/// replaced.
/// Order:   they are made as they were added, each as a whole, and taken back the other way round:
///          however a process ends in between, no file lies there without those before it.
/// Errors:  a full disk, missing rights, a place outside the root or behind a link below it. What
///          was made until then is taken back.
class CFileCopies
{
    Q_DECLARE_TR_FUNCTIONS(CFileCopies)

public:
    /// Whether both are regular files with the same bytes.
    static bool areEqual(const QString &one, const QString &other);

    /// `root`: the folder, absolute, below which all places lie.
    explicit CFileCopies(const QString &root) : m_root(root) {}

    /// Absolute paths. A file that is not there makes nothing, but its place must be free.
    void add(const QString &from, const QString &to);
    /// Takes over what others are to copy or have copied below the same root.
    void add(const CFileCopies &others);
    /// Whether something else lies at one of the places, or two different files go there.
    bool meetOthers() const;
    /// Empty when all are there, otherwise the reason.
    QString copy();
    /// Removes what copy() has made.
    void takeBack();

private:
    struct SCopy
    {
        QString from;
        QString to;
    };
    QString copyOne(const SCopy &copy);

    QString m_root;
    QVector<SCopy> m_copies;
    QStringList m_madeFiles;
    QStringList m_madeFolders; ///< each behind the one that holds it
};
