#include "CCommandAddItem.h"
#include "CCommandChangeItemProperty.h"
#include "CCommandChangeOptions.h"
#include "CCommandDeleteItem.h"
#include "CCommandGroupItem.h"
#include "CCommandInsertItem.h"
#include "CCommandPasteScreen.h"
#include "CCommandUngroupItem.h"
#include "IProjectOptionsObserver.h"
#include "ModelTestSupport.h"
#include "ScreenDocuments.h"

#include <QSignalSpy>
#include <QUndoStack>

#include <memory>

namespace {

class COptionsSpy final : public IProjectOptionsObserver
{
public:
    void projectOptionsChanged() override { ++calls; }
    int calls = 0;
};

} // namespace

/// One screen with three boxes, "front" at row 0, "middle", "back". What a user does with the
/// commands, in any order, is undone and redone in tst_canvascommands.
class tst_Commands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadTestLibrary(); }

    void init()
    {
        m_project = std::make_unique<CProjectModel>();
        m_project->newProject({{PropertyKey::Platform, QStringLiteral("QX110")}});
        m_screen = m_project->screen(0);
        for (const char *name : {"front", "middle", "back"})
            m_screen->appendRow(newBox(QLatin1String(name)));
    }

    void itemsLieWhereTheCommandsSay()
    {
        const QStringList before{"front", "middle", "back"};
        stack().push(new CCommandAddItem(m_screen, newBox("added")));
        stack().push(new CCommandInsertItem(m_screen, newBox("inserted"), 2));
        QCOMPARE(names(m_screen), QStringList({"added", "front", "inserted", "middle", "back"}));
        stack().setIndex(0);
        QCOMPARE(names(m_screen), before);
    }

    void groupingMovesMembersAndTheirMark()
    {
        CItemModel *middle = m_screen->childItem(1);
        auto *group = newGroup(*m_project, {});
        stack().beginMacro("Group Selected Items");
        stack().push(new CCommandGroupItem(m_screen, group, {1}));
        stack().push(new CCommandInsertItem(m_screen, group, 1));
        stack().endMacro();
        QCOMPARE(names(m_screen), QStringList({"front", "Widget Group", "back"}));
        QCOMPARE(names(group), QStringList({"middle"}));
        QVERIFY(middle->isGrouped() && !middle->isSelectable());

        stack().beginMacro("Ungroup Selected Items");
        stack().push(new CCommandUngroupItem(m_screen, group, {0}, 3));
        stack().push(new CCommandDeleteItem({group}));
        stack().endMacro();
        QCOMPARE(names(m_screen), QStringList({"front", "back", "middle"}));
        QVERIFY(!middle->isGrouped() && middle->isSelectable());

        stack().undo();
        QVERIFY(middle->isGrouped() && !middle->isSelectable());
        QCOMPARE(middle->parent(), static_cast<QStandardItem *>(group));
        stack().undo();
        QCOMPARE(names(m_screen), QStringList({"front", "middle", "back"}));
        QVERIFY(!middle->isGrouped() && middle->isSelectable());
    }

    void pastedScreenIsTheSameAfterRedo()
    {
        const QByteArray xml = ScreenDocuments::ofPageFile({m_screen});
        stack().push(new CCommandPasteScreen(m_project.get(),
                                             ScreenDocuments::pageFile(xml)->children.front(), 1));
        QCOMPARE(m_project->screenCount(), 2);
        // A later command points into the pasted screen; it must still do so after undo and redo.
        CItemModel *box = m_project->screen(1)->childItem(0);
        stack().push(new CCommandChangeItemProperty(box, PropertyKey::Width, 77,
                                                    box->propertyValue(PropertyKey::Width)));
        stack().undo();
        stack().undo();
        QCOMPARE(m_project->screenCount(), 1);
        stack().redo();
        stack().redo();
        QCOMPARE(m_project->screen(1)->childItem(0)->width(), 77.0);
    }

    void propertyEditsDoNotMerge()
    {
        CItemModel *box = m_screen->childItem(0);
        QSignalSpy told(m_project.get(), &CProjectModel::propertyChanged);
        for (const int width : {50, 60})
            stack().push(new CCommandChangeItemProperty(box, PropertyKey::Width, width,
                                                        box->propertyValue(PropertyKey::Width)));
        QCOMPARE(stack().count(), 2);
        stack().undo();
        QCOMPARE(box->width(), 50.0);
        stack().undo();
        QCOMPARE(box->width(), 40.0);
        QCOMPARE(told.count(), 4);

        box->setProperty(PropertyKey::X, 99); // a live gesture, before the push
        stack().push(new CCommandChangeItemProperty(box, PropertyKey::X, 120, 10));
        stack().undo();
        QCOMPARE(box->x(), 10.0);
    }

    void optionsAreRefreshedBothWays()
    {
        COptionsSpy spy;
        stack().beginMacro("Change Project Options");
        stack().push(new CCommandChangeOptions(
            m_project.get(), {{PropertyKey::Platform, "QX100"}, {PropertyKey::Width, "320"}},
            &spy));
        stack().endMacro();
        QCOMPARE(m_project->platform(), QString("QX100"));
        QCOMPARE(m_project->resolution(), QSize(320, 320));
        stack().undo();
        QCOMPARE(m_project->platform(), QString("QX110"));
        QCOMPARE(m_project->resolution(), QSize(480, 320));
        QCOMPARE(spy.calls, 2);
        QCOMPARE(stack().undoText(), QString());
        QCOMPARE(stack().redoText(), QString("Change Project Options"));
    }

private:
    CItemModel *newBox(const QString &name)
    {
        auto *box = newWidget(*m_project, "Test_Box_T");
        box->setProperty(PropertyKey::Name, name);
        return box;
    }

    static QStringList names(const QStandardItem *parent)
    {
        QStringList result;
        for (int row = 0; row < parent->rowCount(); ++row)
            result << parent->child(row)->text();
        return result;
    }

    QUndoStack &stack() { return *m_project->undoStack(); }

    std::unique_ptr<CProjectModel> m_project;
    CScreenModel *m_screen = nullptr;
};

QTEST_GUILESS_MAIN(tst_Commands)
#include "tst_commands.moc"
