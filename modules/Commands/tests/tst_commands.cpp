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
#include "CWidgetLibraryManager.h"
#include "CWidgetModel.h"
#include "IProjectOptionsObserver.h"
#include "PropertyKey.h"
#include "ScreenDocuments.h"

#include <QSignalSpy>
#include <QTest>
#include <QUndoStack>

namespace {

class COptionsSpy final : public IProjectOptionsObserver
{
public:
    void projectOptionsChanged() override { ++calls; }
    int calls = 0;
};

} // namespace

/// One screen with three boxes, "front" at row 0, "middle", "back".
class tst_Commands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { m_project.reset(); }

    void texts();
    void addAndInsertPutItemsWhereTheySay();
    void deleteKeepsTheRow();
    void orderMarksTheMove();
    void groupingMovesMembersAndTheirMark();
    void pasteKeepsTheClipboardOrder();
    void pastedScreenIsTheSameAfterRedo();
    void screenIsAppendedAtTheTimeOfTheRedo();
    void propertyEditsDoNotMerge();
    void liveChangeIsUndoneToTheGivenValue();
    void optionsAreRefreshedBothWays();

private:
    CItemModel *newBox(const QString &name);
    QStringList names(const QStandardItem *parent) const;
    QUndoStack &stack() { return *m_project->undoStack(); }

    std::unique_ptr<CProjectModel> m_project;
    CScreenModel *m_screen = nullptr;
};

void tst_Commands::initTestCase()
{
    auto &manager = CWidgetLibraryManager::instance();
    const QString library = qEnvironmentVariable("KIV_SOURCE_DIR") +
                            QStringLiteral("/modules/Model/tests/data/widget-library.xml");
    QVERIFY2(manager.initialise(library, {0x100, 0x101, 0x110, 0x111, 0x112, 0x113}),
             qPrintable(manager.errorText()));
}

void tst_Commands::init()
{
    m_project = std::make_unique<CProjectModel>();
    m_project->newProject({{PropertyKey::Platform, QStringLiteral("QX110")}});
    m_screen = m_project->screen(0);
    for (const char *name : {"front", "middle", "back"})
        m_screen->appendRow(newBox(QLatin1String(name)));
}

CItemModel *tst_Commands::newBox(const QString &name)
{
    auto *box =
        new CWidgetModel(QStringLiteral("Test_Box_T"), m_project->library(), m_project.get());
    box->setProperty(PropertyKey::Name, name);
    return box;
}

QStringList tst_Commands::names(const QStandardItem *parent) const
{
    QStringList result;
    for (int row = 0; row < parent->rowCount(); ++row)
        result << parent->child(row)->text();
    return result;
}

void tst_Commands::texts()
{
    CItemModel *front = m_screen->childItem(0);
    const auto text = [](QUndoCommand *command) {
        const std::unique_ptr<QUndoCommand> owner(command);
        return command->text();
    };
    QCOMPARE(text(new CCommandAddItem(m_screen, newBox("lamp"))), QString("Add lamp"));
    QCOMPARE(text(new CCommandInsertItem(m_screen, newBox("lamp"), 1)), QString("Insert lamp"));
    QCOMPARE(text(new CCommandDeleteItem(front)), QString("Delete front"));
    QCOMPARE(text(new CCommandOrderItem(front, 1)), QString("Order Item"));
    QCOMPARE(text(new CCommandGroupItem(m_screen, m_screen, 0)), QString("Group Item"));
    QCOMPARE(text(new CCommandUngroupItem(m_screen, m_screen, 0, 0)), QString("Ungroup Item"));
    QCOMPARE(text(new CCommandAddScreen(new CScreenModel(m_project.get()), m_project.get())),
             QString("Add Page 2"));
    QCOMPARE(text(new CCommandDeleteScreen(m_screen)), QString("Delete Page 1"));
    QCOMPARE(text(new CCommandPasteScreen(m_project.get(), QDomElement(), 1)), QString("Paste"));
    QCOMPARE(text(new CCommandPaste(m_screen, QDomElement())), QString("Paste"));
    QCOMPARE(text(new CCommandChangeItemProperty(front, "width", 1, 2)),
             QString("Change Property front width"));
    QCOMPARE(text(new CCommandChangeOptions(m_project.get(), {}, nullptr)), QString());
}

void tst_Commands::addAndInsertPutItemsWhereTheySay()
{
    stack().push(new CCommandAddItem(m_screen, newBox("added")));
    stack().push(new CCommandInsertItem(m_screen, newBox("inserted"), 2));
    const QStringList done{"added", "front", "inserted", "middle", "back"};
    QCOMPARE(names(m_screen), done);
    stack().undo();
    stack().undo();
    QCOMPARE(names(m_screen), QStringList({"front", "middle", "back"}));
    stack().redo();
    stack().redo();
    QCOMPARE(names(m_screen), done);
}

void tst_Commands::deleteKeepsTheRow()
{
    m_project->appendRow(new CScreenModel(m_project.get()));
    m_project->appendRow(new CScreenModel(m_project.get()));
    CScreenModel *second = m_project->screen(1);
    stack().push(new CCommandDeleteScreen(second));
    stack().push(new CCommandDeleteItem(m_screen->childItem(1)));
    QCOMPARE(names(m_project->invisibleRootItem()), QStringList({"Page 1", "Page 3"}));
    QCOMPARE(names(m_screen), QStringList({"front", "back"}));
    stack().undo();
    stack().undo();
    QCOMPARE(m_project->screen(1), second);
    QCOMPARE(names(m_screen), QStringList({"front", "middle", "back"}));
}

void tst_Commands::orderMarksTheMove()
{
    CItemModel *back = m_screen->childItem(2);
    QVector<bool> marks;
    connect(m_project.get(), &QAbstractItemModel::rowsRemoved, this,
            [&] { marks << back->isMoving(); });
    stack().push(new CCommandOrderItem(back, 0));
    QCOMPARE(names(m_screen), QStringList({"back", "front", "middle"}));
    stack().undo();
    QCOMPARE(names(m_screen), QStringList({"front", "middle", "back"}));
    QCOMPARE(marks, QVector<bool>({true, true}));
    QVERIFY(!back->isMoving());
}

void tst_Commands::groupingMovesMembersAndTheirMark()
{
    CItemModel *middle = m_screen->childItem(1);
    auto *group = new CWidgetGroupModel(m_project->library(), m_project.get());
    stack().beginMacro("Group Selected Items");
    stack().push(new CCommandGroupItem(m_screen, group, 1));
    stack().push(new CCommandInsertItem(m_screen, group, 1));
    stack().endMacro();
    QCOMPARE(names(m_screen), QStringList({"front", "Widget Group", "back"}));
    QCOMPARE(names(group), QStringList({"middle"}));
    QVERIFY(middle->isGrouped() && !middle->isSelectable());

    stack().beginMacro("Ungroup Selected Items");
    stack().push(new CCommandUngroupItem(m_screen, group, 0, 3));
    stack().push(new CCommandDeleteItem(group));
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

void tst_Commands::pasteKeepsTheClipboardOrder()
{
    const QByteArray xml = ScreenDocuments::ofCopiedItems(
        {m_screen->childItem(0), m_screen->childItem(1), m_screen->childItem(2)});
    stack().push(new CCommandPaste(m_screen, ScreenDocuments::copiedItems(xml)));
    const QStringList done{"front", "middle", "back", "front", "middle", "back"};
    QCOMPARE(names(m_screen), done);
    const QStandardItem *pasted = m_screen->child(0);
    stack().undo();
    QCOMPARE(m_screen->rowCount(), 3);
    QVERIFY(m_screen->child(0) != pasted);
    stack().redo();
    QCOMPARE(names(m_screen), done);
    QCOMPARE(m_screen->child(0), pasted);
}

void tst_Commands::pastedScreenIsTheSameAfterRedo()
{
    const QByteArray xml = ScreenDocuments::ofPageFile({m_screen});
    stack().push(new CCommandPasteScreen(m_project.get(),
                                         ScreenDocuments::pageFile(xml).firstChildElement(), 1));
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

void tst_Commands::screenIsAppendedAtTheTimeOfTheRedo()
{
    stack().push(new CCommandAddScreen(new CScreenModel(m_project.get()), m_project.get()));
    stack().undo();
    m_project->appendRow(new CScreenModel(m_project.get()));
    const CScreenModel *other = m_project->screen(1);
    stack().redo();
    QCOMPARE(m_project->screenCount(), 3);
    stack().undo();
    QCOMPARE(m_project->screenCount(), 2);
    QCOMPARE(m_project->screen(1), const_cast<CScreenModel *>(other));
}

void tst_Commands::propertyEditsDoNotMerge()
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
}

void tst_Commands::liveChangeIsUndoneToTheGivenValue()
{
    CItemModel *box = m_screen->childItem(0);
    box->setProperty(PropertyKey::X, 99); // the gesture, before the push
    stack().push(new CCommandChangeItemProperty(box, PropertyKey::X, 120, 10));
    stack().undo();
    QCOMPARE(box->x(), 10.0);
}

void tst_Commands::optionsAreRefreshedBothWays()
{
    COptionsSpy spy;
    stack().beginMacro("Change Project Options");
    stack().push(new CCommandChangeOptions(
        m_project.get(), {{PropertyKey::Platform, "QX100"}, {PropertyKey::Width, "320"}}, &spy));
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

QTEST_GUILESS_MAIN(tst_Commands)
#include "tst_commands.moc"
