#include "CCommandMonkey.h"

#include "CProjectModel.h"
#include "CWidgetLibraryManager.h"
#include "PropertyKey.h"

#include <QTest>
#include <QUndoStack>

/// 20,000 random commands in ten runs: undoing all gives the first document again, redoing all the
/// last one, byte for byte, and so does every index on the way that was looked at.
class tst_CommandMonkey : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void undoAndRedoRestoreEveryByte_data();
    void undoAndRedoRestoreEveryByte();
};

void tst_CommandMonkey::initTestCase()
{
    auto &manager = CWidgetLibraryManager::instance();
    const QString library = qEnvironmentVariable("KIV_SOURCE_DIR") +
                            QStringLiteral("/modules/Model/tests/data/widget-library.xml");
    QVERIFY2(manager.initialise(library, {0x100, 0x101, 0x110, 0x111, 0x112, 0x113}),
             qPrintable(manager.errorText()));
}

void tst_CommandMonkey::undoAndRedoRestoreEveryByte_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 10; ++seed)
        QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed;
}

void tst_CommandMonkey::undoAndRedoRestoreEveryByte()
{
    constexpr int Steps = 2000;
    constexpr int SnapshotEvery = 50;
    QFETCH(quint32, seed);

    CProjectModel project;
    project.newProject({{PropertyKey::Platform, QStringLiteral("QX110")},
                        {PropertyKey::Width, QStringLiteral("480")},
                        {PropertyKey::Height, QStringLiteral("272")}});
    QUndoStack &stack = *project.undoStack();
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
            .arg(monkey.log().mid(qMax(0, monkey.log().size() - 40)).join(QStringLiteral(", ")));
    };
    int lastIndex = 0;
    for (int step = 0; step < Steps; ++step) {
        const int before = stack.index();
        const bool couldRedo = stack.canRedo();
        monkey.step();
        // A push in the middle of the history forgets what lay behind it.
        if (couldRedo && !stack.canRedo() && monkey.log().last() != QLatin1String("redo")) {
            for (const int index : snapshots.keys()) {
                if (index > before)
                    snapshots.remove(index);
            }
        }
        lastIndex = stack.index();
        if (snapshots.contains(lastIndex))
            QVERIFY2(document() == snapshots.value(lastIndex), qPrintable(where(lastIndex)));
        else if (step % SnapshotEvery == 0)
            snapshots.insert(lastIndex, document());
    }
    while (stack.canRedo())
        stack.redo();
    const QByteArray last = document();
    QVERIFY(last != snapshots.value(0)); // it really changed, else the rest proves nothing

    while (stack.canUndo()) {
        stack.undo();
        if (snapshots.contains(stack.index()))
            QVERIFY2(document() == snapshots.value(stack.index()),
                     qPrintable(where(stack.index())));
    }
    while (stack.canRedo())
        stack.redo();
    QVERIFY2(document() == last, qPrintable(where(stack.index())));

    // A project that is thrown away in the middle of its history frees everything once.
    for (int count = stack.count() / 2; count > 0; --count)
        stack.undo();
}

QTEST_GUILESS_MAIN(tst_CommandMonkey)
#include "tst_commandmonkey.moc"
