#pragma once

#include "CCommandAddItem.h"
#include "CCommandAddScreen.h"
#include "CCommandChangeItemProperty.h"
#include "CCommandChangeOptions.h"
#include "CCommandDeleteItem.h"
#include "CCommandDeleteScreen.h"
#include "CCommandGroupItem.h"
#include "CCommandInsertItem.h"
#include "CCommandOrderItem.h"
#include "CCommandPaste.h"
#include "CCommandPasteScreen.h"
#include "CCommandUngroupItem.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CWidgetGroupModel.h"
#include "CWidgetModel.h"
#include "PropertyKey.h"
#include "ScreenDocuments.h"

#include <QRandomGenerator>
#include <QUndoStack>

/// Does to a project what a restless user would: pushes random commands and macros, undoes and
/// redoes. The same seed does the same, and log() tells what was done.
class CCommandMonkey
{
public:
    CCommandMonkey(CProjectModel &project, quint32 seed)
        : m_project(project), m_stack(*project.undoStack()), m_random(seed)
    {
    }

    void step()
    {
        struct Choice
        {
            const char *name;
            int weight;
            void (CCommandMonkey::*act)();
        };
        using Monkey = CCommandMonkey;
        static const Choice choices[] = {
            {"add item", 20, &Monkey::addItem},
            {"insert item", 8, &Monkey::insertItem},
            {"delete item", 10, &Monkey::deleteItem},
            {"order item", 10, &Monkey::orderItem},
            {"order screen", 2, &Monkey::orderScreen},
            {"group", 6, &Monkey::group},
            {"ungroup", 4, &Monkey::ungroup},
            {"add screen", 2, &Monkey::addScreen},
            {"delete screen", 1, &Monkey::deleteScreen},
            {"paste items", 4, &Monkey::pasteItems},
            {"paste screen", 1, &Monkey::pasteScreen},
            {"change property", 25, &Monkey::changeProperty},
            {"change options", 2, &Monkey::changeOptions},
            {"undo", 12, &Monkey::undoSome},
            {"redo", 8, &Monkey::redoSome},
        };
        int total = 0;
        for (const Choice &choice : choices)
            total += choice.weight;
        int left = pick(total);
        for (const Choice &choice : choices) {
            left -= choice.weight;
            if (left < 0) {
                m_log << QString::fromLatin1(choice.name);
                (this->*choice.act)();
                return;
            }
        }
    }
    const QStringList &log() const { return m_log; }

private:
    int pick(int count) { return static_cast<int>(m_random.bounded(count)); }

    CScreenModel *anyScreen()
    {
        return m_project.screenCount() ? m_project.screen(pick(m_project.screenCount())) : nullptr;
    }

    /// A member of the parent, null when it has none.
    CItemModel *anyItem(CItemModel *parent)
    {
        return parent && parent->rowCount() ? parent->childItem(pick(parent->rowCount())) : nullptr;
    }

    int anyCount(const QStandardItem *parent) { return pick(2) ? 1 : 1 + pick(parent->rowCount()); }

    /// So many rows of the parent.
    RowOperations::Rows anyRows(const QStandardItem *parent, int wanted)
    {
        RowOperations::Rows rows;
        for (int row = 0; rows.size() < wanted; ++row) {
            if (pick(parent->rowCount() - row) < wanted - rows.size())
                rows.append(row);
        }
        return rows;
    }
    RowOperations::Rows anyRows(const QStandardItem *parent)
    {
        return anyRows(parent, anyCount(parent));
    }

    RowOperations::Items anyItems(const CItemModel *parent)
    {
        RowOperations::Items items;
        for (const int row : anyRows(parent))
            items.append(parent->childItem(row));
        return items;
    }

    CItemModel *anyItemAnywhere()
    {
        CItemModel *item = anyItem(anyScreen());
        while (item && item->rowCount() && pick(2))
            item = anyItem(item);
        return item;
    }

    CItemModel *newItem()
    {
        static const char *const kinds[] = {"Test_Box_T",  "Test_Circle_T", "Test_Dot_T",
                                            "Test_Line_T", "Test_Poly_T",   "Unheard_Of_T"};
        auto *item =
            new CWidgetModel(QLatin1String(kinds[pick(6)]), m_project.library(), &m_project);
        m_project.assignFreshIds(item);
        return item;
    }

    void addItem()
    {
        if (CScreenModel *screen = anyScreen())
            m_stack.push(new CCommandAddItem(screen, newItem()));
    }

    void insertItem()
    {
        if (CScreenModel *screen = anyScreen())
            m_stack.push(new CCommandInsertItem(screen, newItem(), pick(screen->rowCount() + 1)));
    }

    void deleteItem()
    {
        if (CItemModel *item = anyItemAnywhere())
            m_stack.push(new CCommandDeleteItem(anyItems(item->parentItem())));
    }

    void orderItem()
    {
        if (CItemModel *item = anyItemAnywhere()) {
            const RowOperations::Items items = anyItems(item->parentItem());
            m_stack.push(new CCommandOrderItem(items, anyRows(item->parent(), items.size())));
        }
    }

    void orderScreen()
    {
        if (CScreenModel *screen = anyScreen())
            m_stack.push(new CCommandOrderItem({screen}, {pick(m_project.screenCount())}));
    }

    void group()
    {
        CScreenModel *screen = anyScreen();
        if (!screen || screen->rowCount() < 2)
            return;
        m_stack.beginMacro(QStringLiteral("Group Selected Items"));
        auto *group = new CWidgetGroupModel(m_project.library(), &m_project);
        for (int times = 1 + pick(3); times > 0 && screen->rowCount(); --times)
            m_stack.push(new CCommandGroupItem(screen, group, anyRows(screen)));
        m_stack.push(new CCommandInsertItem(screen, group, pick(screen->rowCount() + 1)));
        m_stack.endMacro();
    }

    void ungroup()
    {
        CScreenModel *screen = anyScreen();
        CItemModel *group = anyItem(screen);
        if (!group || group->kind() != CItemModel::Kind::Group)
            return;
        m_stack.beginMacro(QStringLiteral("Ungroup Selected Items"));
        while (group->rowCount())
            m_stack.push(new CCommandUngroupItem(screen, group, anyRows(group),
                                                 pick(screen->rowCount() + 1)));
        m_stack.push(new CCommandDeleteItem({group}));
        m_stack.endMacro();
    }

    void addScreen()
    {
        if (m_project.screenCount() < 8)
            m_stack.push(new CCommandAddScreen(new CScreenModel(&m_project), &m_project));
    }

    void deleteScreen()
    {
        if (CScreenModel *screen = anyScreen())
            m_stack.push(new CCommandDeleteScreen(screen));
    }

    void pasteItems()
    {
        CScreenModel *screen = anyScreen();
        const CItemModel *first = anyItem(screen);
        const CItemModel *second = anyItem(anyScreen());
        if (!first || !second)
            return;
        const QByteArray xml = ScreenDocuments::ofCopiedItems({first, second});
        m_stack.push(new CCommandPaste(screen, *ScreenDocuments::copiedItems(xml)));
    }

    void pasteScreen()
    {
        const CScreenModel *screen = anyScreen();
        if (!screen || m_project.screenCount() > 8)
            return;
        const QByteArray xml = ScreenDocuments::ofPageFile({screen});
        m_stack.push(new CCommandPasteScreen(
            &m_project, ScreenDocuments::pageFile(xml)->children.front(), m_project.rowCount()));
    }

    void changeProperty()
    {
        CItemModel *item = pick(10) ? anyItemAnywhere() : anyScreen();
        if (!item || item->properties().isEmpty())
            return;
        QStringList keys = item->properties().keys();
        keys.sort(); // the hash's order is not part of the seed
        const QString key = keys.at(pick(keys.size()));
        if (key == PropertyKey::WorkingDirectory)
            return;
        m_stack.push(new CCommandChangeItemProperty(item, key, QString::number(pick(200)),
                                                    item->propertyValue(key)));
    }

    void changeOptions()
    {
        static const char *const platforms[] = {"QX100", "QX110", "QX113", "ABC"};
        m_stack.beginMacro(QStringLiteral("Change Project Options"));
        m_stack.push(
            new CCommandChangeOptions(&m_project,
                                      {{PropertyKey::Platform, QLatin1String(platforms[pick(4)])},
                                       {pick(2) ? PropertyKey::Width : PropertyKey::ProjectName,
                                        QString::number(100 + pick(400))}},
                                      nullptr));
        m_stack.endMacro();
    }

    void undoSome() { m_stack.setIndex(m_stack.index() - 1 - pick(12)); }
    void redoSome() { m_stack.setIndex(m_stack.index() + 1 + pick(12)); }

    CProjectModel &m_project;
    QUndoStack &m_stack;
    QRandomGenerator m_random;
    QStringList m_log;
};
