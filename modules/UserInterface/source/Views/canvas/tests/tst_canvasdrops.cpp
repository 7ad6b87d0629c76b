// What is dropped on a canvas: kinds from the palette, items from the explorer, files.
#include "CWidgetSelectionView.h"
#include "CanvasFixture.h"
#include "CanvasRoles.h"
#include "ItemDrag.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QImage>
#include <QMessageBox>
#include <QMimeData>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

namespace {
/// Whether the canvas took it.
bool drop(const Canvas &canvas, const QMimeData &dropped, QPointF scenePos)
{
    const QPoint at = canvas.at(scenePos);
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(at, actions, &dropped, Qt::LeftButton, {});
    QDragMoveEvent move(at, actions, &dropped, Qt::LeftButton, {});
    QDropEvent event(at, actions, &dropped, Qt::LeftButton, {});
    event.ignore();
    for (QEvent *each : {static_cast<QEvent *>(&enter), static_cast<QEvent *>(&move),
                         static_cast<QEvent *>(&event)})
        QCoreApplication::sendEvent(canvas.view->viewport(), each);
    return event.isAccepted();
}

QPointF placeOf(const CItemModel *item)
{
    return {item->x(), item->y()};
}
} // namespace

class tst_CanvasDrops : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadWidgetLibrary(); }
    void init() { resetEditorState(); }

    void kindsFromThePalette()
    {
        Canvas canvas;
        canvas.show();
        const QByteArray before = savedBytes(*canvas.project);
        CWidgetSelectionView palette;
        palette.setToolbox(CWidgetLibraryManager::instance().toolboxModel(0x110),
                           CWidgetLibraryManager::instance().libraryModel(0x110));
        const auto dropKind = [&palette, &canvas](const QString &type, QPointF scenePos) {
            for (int row = 0; row < palette.count(); ++row) {
                if (palette.item(row)->data(CWidgetSelectionView::TypeRole).toString() == type)
                    palette.setCurrentRow(row);
            }
            const std::unique_ptr<QMimeData> dragged(palette.dragData());
            QCOMPARE(dragged->text(), type);
            QVERIFY(drop(canvas, *dragged, scenePos));
        };
        dropKind("Kiv_Arrow_T", {131, 49});
        CItemModel *arrow = canvas.screen->childItem(0);
        QVERIFY(arrow);
        for (const QGraphicsItem *each : canvas.view->scene()->items()) {
            const int role = each->data(CanvasRole::RoleKey).toInt();
            QVERIFY(role != CanvasRole::SnapCross || !each->isVisible()); // only during the drag
        }
        QCOMPARE(placeOf(arrow), QPointF(140, 40));
        QCOMPARE(QPointF(arrow->x2(), arrow->y2()), QPointF(260, 40)); // it keeps its length
        QCOMPARE(arrow->id(), 1u);
        canvas.checkOneStep(before);
        CEditorState::instance()->setSnapToGrid(false);
        dropKind("Kiv_Rectangle_T", {131, 49});
        QCOMPARE(placeOf(canvas.screen->childItem(0)), QPointF(131, 49));
        QMimeData unknown;
        unknown.setData("widget-create", "?");
        unknown.setText("Kiv_Nothing_T");
        drop(canvas, unknown, {10, 10});
        unknown.removeFormat("widget-create");
        QVERIFY(!drop(canvas, unknown, {10, 10})); // a text
        QCOMPARE(canvas.screen->rowCount(), 2);
    }

    void imageFiles()
    {
        Canvas canvas;
        showInFolder(canvas);
        writeRaw("logo.raw", 300);
        QVERIFY(dropFile(canvas, "logo.raw", {58, 41}));
        const CItemModel *bitmap = canvas.screen->childItem(0);
        QVERIFY(bitmap);
        QCOMPARE(placeOf(bitmap), QPointF(60, 40));
        QCOMPARE(bitmap->propertyText("filename"), m_folder.filePath("logo.raw"));
        QVERIFY(QDir(m_folder.path()).exists(bitmap->propertyText("bfolder") + "/logo.raw"));

        // With the program's own tools; a JPEG has no alpha.
        const QString current = QDir::currentPath();
        QDir::setCurrent(qEnvironmentVariable("KIV_BIN_DIR"));
        for (const char *file : {"logo.jpg", "logo.png"}) {
            QImage image(8, 8, QImage::Format_RGB32);
            image.fill(canvas.screen->rowCount() * 80);
            QVERIFY(image.save(m_folder.filePath(file)) && dropFile(canvas, file, {100, 100}));
        }
        QDir::setCurrent(current);
        for (const char *expected : {"logo_2 ARGB4", "logo RGB565"}) {
            const CItemModel *item = canvas.screen->childItem(0);
            QCOMPARE(item->propertyText("basename") + ' ' + item->propertyText("format"), expected);
            canvas.stack.undo();
        }

        QVERIFY(!dropFile(canvas, "notes.txt", {10, 10}));
        QSignalSpy messages(canvas.view.get(), &CScreenView::message);
        dropFile(canvas, "missing.raw", {10, 10});
        QVERIFY(messages.count() > 0);
        QCOMPARE(canvas.screen->rowCount(), 1);
        QCOMPARE(canvas.stack.index(), 1);
        canvas.stack.undo();
        QCOMPARE(canvas.screen->rowCount(), 0);

        const QByteArray before = savedBytes(*canvas.project);
        writeRaw("other.raw", 200);
        QVERIFY(dropFiles(canvas, {"logo.raw", "missing.raw", "other.raw"}, {58, 41}));
        QCOMPARE(canvas.view->selectedItems().size(), 2);
        QVERIFY(canvas.screen->childItem(0)->id() != canvas.screen->childItem(1)->id());
        QVERIFY(canvas.screen->childItem(0)->name() != canvas.screen->childItem(1)->name());
        canvas.checkOneStep(before);
    }

    void filesTooLargeForTheChip()
    {
        Canvas canvas;
        showInFolder(canvas);
        constexpr int GraphicsMemory = 1024 * 1024; // of a QX110
        writeRaw("half.raw", GraphicsMemory / 2);
        bool isWarned = false;
        const auto answer = [&isWarned] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            isWarned = box && box->close();
        };
        canvas.view->setMemoryUsage(0, GraphicsMemory / 2); // the file would just reach the limit
        QTimer::singleShot(0, this, answer);
        dropFile(canvas, "half.raw", {10, 10});
        QVERIFY(isWarned);
        QCOMPARE(canvas.screen->rowCount(), 0);
        QCOMPARE(canvas.stack.count(), 0);
        canvas.view->setMemoryUsage(0, GraphicsMemory / 2 - 1);
        dropFile(canvas, "half.raw", {10, 10});
        QCOMPARE(canvas.screen->rowCount(), 1);
    }

    void itemsOfThisScreen()
    {
        Canvas canvas;
        CItemModel *box = appendBox(canvas.screen, 100, 100, 40, 30);
        CItemModel *line = appendWidget(canvas.screen, "Kiv_Line_T",
                                        {{PropertyKey::X, 113},
                                         {PropertyKey::Y, 107},
                                         {PropertyKey::X2, 153},
                                         {PropertyKey::Y2, 109}});
        CItemModel *locked = appendBox(canvas.screen, 300, 200, 40, 30);
        locked->setLocked(true);
        canvas.show();
        const QByteArray before = savedBytes(*canvas.project);
        const std::unique_ptr<QMimeData> items(ItemDrag::toMimeData({box, line, locked}));
        QVERIFY(drop(canvas, *items, {201, 59}));
        QCOMPARE(placeOf(box), QPointF(200, 60));
        QCOMPARE(placeOf(line), QPointF(213, 67));
        QCOMPARE(QPointF(line->x2(), line->y2()), QPointF(253, 69));
        QCOMPARE(placeOf(locked), QPointF(300, 200));
        QCOMPARE(canvas.view->selectedItems(), QVector<CItemModel *>({box, line}));
        canvas.checkOneStep(before);
        QVERIFY(drop(canvas, *items, placeOf(box))); // where they are: no step
        QCOMPARE(canvas.stack.count(), 1);

        QMimeData foreign; // of another run of the program
        foreign.setData("widget-move", "1 0/0");
        QVERIFY(!drop(canvas, foreign, {10, 10}));
    }

    void itemsOfAnotherScreen()
    {
        Canvas canvas;
        appendBox(canvas.screen, 0, 0, 10, 10)->setProperty(PropertyKey::Name, "Lamp");
        auto *elsewhere = new CScreenModel(canvas.project.get());
        canvas.project->appendRow(elsewhere);
        CItemModel *front = appendBox(elsewhere, 100, 100, 40, 30);
        front->setProperty(PropertyKey::Name, "Lamp");
        front->setProperty(PropertyKey::Id, 7);
        CItemModel *back = appendBox(elsewhere, 120, 100, 40, 30);
        canvas.show();
        const QByteArray before = savedBytes(*canvas.project);
        const std::unique_ptr<QMimeData> items(ItemDrag::toMimeData({front, back}));
        QVERIFY(drop(canvas, *items, {41, 61}));
        QCOMPARE(elsewhere->rowCount(), 0);
        QCOMPARE(canvas.screen->rowCount(), 3);
        const CItemModel *moved = canvas.screen->childItem(0);
        QCOMPARE(placeOf(moved), QPointF(40, 60));
        QCOMPARE(moved->id(), 7u);
        QCOMPARE(moved->name(), QString("Lamp 2"));
        QCOMPARE(placeOf(canvas.screen->childItem(1)), QPointF(60, 60));
        QCOMPARE(canvas.view->selectedItems().size(), 2);
        canvas.checkOneStep(before);
    }

private:
    void showInFolder(Canvas &canvas) const
    {
        CProjectModel::setCurrent(canvas.project.get());
        canvas.project->setWorkingDirectory(m_folder.path());
        canvas.show();
    }
    bool dropFile(const Canvas &canvas, const QString &name, QPointF scenePos) const
    {
        return dropFiles(canvas, {name}, scenePos);
    }
    bool dropFiles(const Canvas &canvas, const QStringList &names, QPointF scenePos) const
    {
        QMimeData files;
        QList<QUrl> urls;
        for (const QString &each : names)
            urls.append(QUrl::fromLocalFile(m_folder.filePath(each)));
        files.setUrls(urls);
        return drop(canvas, files, scenePos);
    }
    void writeRaw(const QString &name, int bytes) const
    {
        QFile file(m_folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(bytes, '\1'));
    }

    QTemporaryDir m_folder;
};

QTEST_MAIN(tst_CanvasDrops)
#include "tst_canvasdrops.moc"
