#pragma once

#include <QRandomGenerator>
#include <QStringList>

class CItemModel;
class CProjectModel;
class CScreenModel;
class QUndoStack;

/// Does to a project what a restless user would: pushes random commands and macros, undoes and
/// redoes. The same seed does the same, and log() tells what was done.
class CCommandMonkey
{
public:
    CCommandMonkey(CProjectModel &project, quint32 seed);

    void step();
    const QStringList &log() const { return m_log; }

private:
    void addItem();
    void insertItem();
    void deleteItem();
    void orderItem();
    void orderScreen();
    void group();
    void ungroup();
    void addScreen();
    void deleteScreen();
    void pasteItems();
    void pasteScreen();
    void changeProperty();
    void changeOptions();
    void undoSome();
    void redoSome();

    int pick(int count) { return static_cast<int>(m_random.bounded(count)); }
    CScreenModel *anyScreen();
    CItemModel *anyItem(CItemModel *parent); ///< a member of the parent, null when it has none
    CItemModel *anyItemAnywhere();
    CItemModel *newItem();

    CProjectModel &m_project;
    QUndoStack &m_stack;
    QRandomGenerator m_random;
    QStringList m_log;
};
