#pragma once

#include <QHash>
#include <QString>

/// Finds out when one file is given twice on a command line, as input or output: the second use
/// would destroy the first.
class CPathClash
{
public:
    /// `user`: what the path is given as. Empty paths and the standard output ("-") are passed
    /// over.
    void add(const QString &path, const QString &user);
    /// The first clash, as a sentence; empty when there is none.
    const QString &text() const { return m_text; }

private:
    QHash<QString, QString> m_users; ///< by absolute path
    QString m_text;
};
