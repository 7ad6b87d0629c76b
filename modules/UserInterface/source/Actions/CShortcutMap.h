#pragma once

#include <QByteArray>
#include <QHash>
#include <QKeySequence>
#include <QList>
#include <QStringList>
#include <QVector>

#include <optional>

/// Which keys each action has: those it came with, and what the user made of them. An action is
/// known by its id, which never changes.
/// Text:    "id=Ctrl+D; Ctrl+Y", one for each action whose keys were changed; without keys, it has
///          none. Texts of actions that are not there are kept.
class CShortcutMap
{
public:
    using Keys = QList<QKeySequence>;

    /// Keys that two actions would have had.
    struct SConflict
    {
        QKeySequence keys;
        QString winner;
        QString loser;
    };

    static constexpr int MaxTexts = 1000;
    static constexpr int MaxTextLength = 300; ///< of one
    static constexpr int MaxKeys = 4;         ///< of one action

    /// In the order in which they are listed.
    void addAction(const QString &id, const Keys &defaults);
    const QStringList &ids() const { return m_ids; }

    Keys keys(const QString &id) const;
    Keys defaults(const QString &id) const { return m_defaults.value(id); }
    bool isChanged(const QString &id) const { return m_changed.contains(id); }

    /// Another action that has these keys, or keys of which they are the beginning, or the other
    /// way round. Empty when they are free.
    QString holder(const QKeySequence &wanted, const QString &except) const;
    /// Gives an action these keys, and takes them from whoever has them.
    void setKeys(const QString &id, const Keys &keys);
    void reset(const QString &id);
    void resetAll();

    QStringList toTexts() const;
    /// Forgets all changes and takes those of the texts. What is no such text is passed over. Of
    /// actions that would have the same keys one keeps them: rather a changed one, the first; these
    /// are given.
    QVector<SConflict> setTexts(const QStringList &texts);
    /// Those that are no such text, or of actions that are not there.
    QStringList passedOver(const QStringList &texts) const;

    /// As a file for another installation, and back. Nothing when it is no such file.
    QByteArray toFile() const;
    static std::optional<QStringList> textsOfFile(const QByteArray &bytes);

private:
    QStringList take(const QKeySequence &wanted, const QString &from);
    QVector<SConflict> settle();

    QStringList m_ids;
    QHash<QString, Keys> m_defaults;
    QHash<QString, Keys> m_changed;
    QStringList m_foreign; ///< texts of actions that are not there
};
