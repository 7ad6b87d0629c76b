#include "CCommandMonkey.h"
#include "IProjectOptionsObserver.h"
#include "ModelTestSupport.h"

#include <QSignalSpy>

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
    void initTestCase() { loadTestLibrary(); }
    void init();
    void cleanup() { m_project.reset(); }

    void itemsLieWhereTheCommandsSay();
    void groupingMovesMembersAndTheirMark();
    void pasteKeepsTheClipboardOrder();
    void pastedScreenIsTheSameAfterRedo();
    void propertyEditsDoNotMerge();
    void optionsAreRefreshedBothWays();
    void undoAndRedoRestoreEveryByte_data();
    void undoAndRedoRestoreEveryByte();

private:
    CItemModel *newBox(const QString &name);
    QStringList names(const QStandardItem *parent) const;
    QUndoStack &stack() { return *m_project->undoStack(); }

    std::unique_ptr<CProjectModel> m_project;
    CScreenModel *m_screen = nullptr;
};

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
    auto *box = newWidget(*m_project, "Test_Box_T");
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

void tst_Commands::itemsLieWhereTheCommandsSay()
{
    const QStringList before{"front", "middle", "back"};
    stack().push(new CCommandAddItem(m_screen, newBox("added")));
    stack().push(new CCommandInsertItem(m_screen, newBox("inserted"), 2));
    QCOMPARE(names(m_screen), QStringList({"added", "front", "inserted", "middle", "back"}));
    stack().setIndex(0);
    QCOMPARE(names(m_screen), before);

    m_project->appendRow(new CScreenModel(m_project.get()));
    m_project->appendRow(new CScreenModel(m_project.get()));
    CScreenModel *second = m_project->screen(1);
    stack().push(new CCommandDeleteScreen(second));
    stack().push(new CCommandDeleteItem({m_screen->childItem(1)}));
    QCOMPARE(names(m_project->invisibleRootItem()), QStringList({"Page 1", "Page 3"}));
    QCOMPARE(names(m_screen), QStringList({"front", "back"}));
    stack().setIndex(0);
    QCOMPARE(m_project->screen(1), second);
    QCOMPARE(names(m_screen), before);
}

void tst_Commands::groupingMovesMembersAndTheirMark()
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

void tst_Commands::pasteKeepsTheClipboardOrder()
{
    const QByteArray xml = ScreenDocuments::ofCopiedItems(
        {m_screen->childItem(0), m_screen->childItem(1), m_screen->childItem(2)});
    stack().push(new CCommandPaste(m_screen, *ScreenDocuments::copiedItems(xml)));
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

    box->setProperty(PropertyKey::X, 99); // a live gesture, before the push
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

void tst_Commands::undoAndRedoRestoreEveryByte_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 10; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

/// 20,000 random commands in ten runs: undoing all gives the first document again, redoing all the
/// last one, byte for byte, and so does every index on the way that was looked at.
void tst_Commands::undoAndRedoRestoreEveryByte()
{
    constexpr int Steps = 2000;
    constexpr int SnapshotEvery = 50;
    QFETCH(quint32, seed);

    CProjectModel &project = *m_project;
    project.newProject({{PropertyKey::Platform, QStringLiteral("QX110")}});
    QUndoStack &history = stack();
    const auto document = [&project] {
        QString error;
        const QByteArray bytes = project.saveToBytes(&error);
        return error.isEmpty() ? bytes : error.toUtf8();
    };

    QHash<int, QByteArray> snapshots{{0, document()}};
    CCommandMonkey monkey(project, seed);
    const auto where = [&](int index) {
        return QStringLiteral("seed %1, index %2, after: %3")
            .arg(seed)
            .arg(index)
            .arg(monkey.log().mid(qMax(0, monkey.log().size() - 40)).join(", "));
    };
    int lastIndex = 0;
    for (int step = 0; step < Steps; ++step) {
        const int before = history.index();
        const bool couldRedo = history.canRedo();
        monkey.step();
        // A push in the middle of the history forgets what lay behind it.
        if (couldRedo && !history.canRedo() && monkey.log().last() != QLatin1String("redo")) {
            for (const int index : snapshots.keys()) {
                if (index > before)
                    snapshots.remove(index);
            }
        }
        lastIndex = history.index();
        if (snapshots.contains(lastIndex))
            QVERIFY2(document() == snapshots.value(lastIndex), qPrintable(where(lastIndex)));
        else if (step % SnapshotEvery == 0)
            snapshots.insert(lastIndex, document());
    }
    history.setIndex(history.count());
    const QByteArray last = document();
    QVERIFY(last != snapshots.value(0)); // it really changed, else the rest proves nothing

    while (history.canUndo()) {
        history.undo();
        if (snapshots.contains(history.index()))
            QVERIFY2(document() == snapshots.value(history.index()),
                     qPrintable(where(history.index())));
    }
    history.setIndex(history.count());
    QVERIFY2(document() == last, qPrintable(where(history.index())));

    // A project that is thrown away in the middle of its history frees everything once.
    history.setIndex(history.count() / 2);
}

QTEST_GUILESS_MAIN(tst_Commands)
#include "tst_commands.moc"
