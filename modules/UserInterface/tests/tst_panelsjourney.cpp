// What a user does with the palette and the explorer on the real window, with a real emulator,
// beginning with nothing selected.
#include "CDropGhost.h"
#include "CEditorState.h"
#include "CFrameItem.h"
#include "CItemModel.h"
#include "CMainWindow.h"
#include "CProjectExplorerView.h"
#include "CProjectModel.h"
#include "CScreen.h"
#include "CScreenModel.h"
#include "CScreenScene.h"
#include "CScreenView.h"
#include "CSettings.h"
#include "CWidgetSelectionView.h"
#include "ExplorerMarks.h"
#include "ItemClipboard.h"
#include "ItemGeometry.h"
#include "ProgramFolder.h"
#include "PropertyKey.h"

#include <QtTest>
#include <QtWidgets>

#include <memory>

class tst_PanelsJourney : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<CProgramFolder>();
        const QString path = m_folder->path("demo.nyx");
        writeFile(path, "<Kiv_Project_T platform=\"QX110\" width=\"480\" height=\"272\">"
                        "<Kiv_Screen_T name=\"First\" color=\"#102030\"/>"
                        "<Kiv_Screen_T name=\"Second\">"
                        "<Kiv_Rectangle_T name=\"Speed\" id=\"1\" x_coordinate=\"20\"/>"
                        "<Kiv_Rectangle_T name=\"Range\" id=\"2\" x_coordinate=\"300\"/>"
                        "<Kiv_Button_T name=\"Go\" id=\"3\" y_coordinate=\"200\" text=\"Go\"/>"
                        "</Kiv_Screen_T></Kiv_Project_T>");
        m_window = std::make_unique<CMainWindow>(path);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_view = m_window->findChild<CScreen *>()->currentView();
        m_palette = m_window->findChild<CWidgetSelectionView *>();
        m_before = saved();
    }

    void cleanup()
    {
        m_window->project()->undoStack()->setClean();
        m_window.reset();
        m_folder.reset();
    }

    /// By the keys alone and by the mouse: in the middle of what is seen, selected, one step each,
    /// and none lies exactly over another one.
    void placedWithoutADrag()
    {
        auto *filter = m_window->findChild<QLineEdit *>("widgetFilter");
        filter->setFocus();
        filter->setClearButtonEnabled(false); // its fading would outlive the program and be a leak
        QTest::keyClicks(filter, "signal");
        QTest::keyClick(filter, Qt::Key_Return);
        QVERIFY(m_view->hasFocus());
        QCOMPARE(screen()->rowCount(), 1);
        CItemModel *first = screen()->childItem(0);
        QCOMPARE(first->itemTypeName(), "Kiv_Signal_T");
        const QRectF seen = m_view->mapToScene(m_view->viewport()->rect()).boundingRect();
        const QPointF middle = ItemGeometry::frameOf(*first).center();
        QVERIFY(((seen & m_view->scene()->sceneRect()).center() - middle).manhattanLength() <= 1);
        QCOMPARE(m_view->selectedItems(), QVector<CItemModel *>{first});
        QTest::keyClick(m_view, Qt::Key_Left, Qt::ShiftModifier);
        QCOMPARE(ItemGeometry::frameOf(*first).center(), middle - QPointF(1, 0));
        m_window->project()->undoStack()->undo();
        filter->setFocus();
        QTest::keyClick(filter, Qt::Key_Down);
        QTest::keyClick(m_palette, Qt::Key_Enter);
        const QPoint entry = m_palette->visualItemRect(m_palette->currentItem()).center();
        for (int time = 0; time < 40; ++time) // as many as no diagonal of the page holds
            QTest::mouseDClick(m_palette->viewport(), Qt::LeftButton, {}, entry);
        QCOMPARE(screen()->rowCount(), 41);
        QSet<QPair<double, double>> places;
        for (int row = 0; row < screen()->rowCount(); ++row)
            places.insert({screen()->childItem(row)->x(), screen()->childItem(row)->y()});
        QCOMPARE(places.size(), 41);
        QCOMPARE(m_window->project()->undoStack()->count(), 41);
        m_window->project()->undoStack()->setIndex(0);
        QCOMPARE(saved(), m_before);
    }

    /// The shelves are there after the next start; what is on them works as it does below.
    void favouritesAndLastUsed()
    {
        const int entries = m_palette->count();
        choose("Kiv_Slider_T");
        QTest::keyClick(m_palette, Qt::Key_Return);
        choose("Kiv_Button_T");
        QTest::keyClick(m_palette, Qt::Key_Return);
        m_palette->setFavourite("Kiv_Gauge_T", true);
        m_palette->setFavourite("Kiv_Gone_T", true); // of another library
        QCOMPARE(top(6), (QStringList{"Favourites", "Gauge", "Last used", "Button", "Slider",
                                      "Basic Shapes"}));
        m_window->project()->undoStack()->setClean();
        m_window->close();
        m_window = std::make_unique<CMainWindow>(m_folder->path("demo.nyx"));
        m_palette = m_window->findChild<CWidgetSelectionView *>();
        QCOMPARE(top(5), (QStringList{"Favourites", "Gauge", "Last used", "Button", "Slider"}));
        m_palette->setCurrentRow(1);
        QTest::keyClick(m_palette, Qt::Key_Return);
        QCOMPARE(top(4), (QStringList{"Favourites", "Gauge", "Last used", "Gauge"}));
        m_palette->setFilter("gauge"); // each is found once
        QCOMPARE(top(3), (QStringList{"Indicators", "Gauge", "Arc gauge"}));
        m_palette->setFilter({});
        m_palette->setShelf(CWidgetSelectionView::LastUsed, {});
        m_palette->setShelf(CWidgetSelectionView::Favourites, {});
        QCOMPARE(m_palette->count(), entries);
        QCOMPARE(top(3), (QStringList{"Basic Shapes", "Rectangle", "Circle"}));
    }

    void ghost_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<bool>("snaps");
        QTest::newRow("box") << "Kiv_Rectangle_T" << false;
        QTest::newRow("about its middle") << "Kiv_Circle_T" << true;
        QTest::newRow("between points") << "Kiv_Arrow_T" << false;
    }

    /// What is dragged over the page looks as the dropped widget will, at the place of the drop.
    void ghost()
    {
        QFETCH(QString, type);
        QFETCH(bool, snaps);
        CEditorState::instance()->setSnapToGrid(snaps);
        choose(type);
        const std::unique_ptr<QMimeData> data(m_palette->dragData());
        const QPoint at = m_view->mapFromScene(203, 117);
        QDragEnterEvent enter(at, Qt::CopyAction, data.get(), Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_view->viewport(), &enter);
        QDragMoveEvent move(at, Qt::CopyAction, data.get(), Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_view->viewport(), &move);
        const auto ghosts = [this] {
            QVector<CDropGhost *> found;
            for (QGraphicsItem *each : m_view->scene()->items()) {
                if (auto *one = dynamic_cast<CDropGhost *>(each))
                    found.append(one);
            }
            return found;
        };
        QCOMPARE(ghosts().size(), 1);
        const CDropGhost *ghost = ghosts().constFirst();
        QTRY_VERIFY(!ghost->picture().isNull());
        QCOMPARE(saved(), m_before);
        QImage expected(480, 272, QImage::Format_ARGB32_Premultiplied);
        expected.fill(QColor("#102030"));
        QPainter painter(&expected);
        painter.drawImage(ghost->pos() + ghost->corner(), ghost->picture());
        painter.end();

        QDropEvent drop(at, Qt::CopyAction, data.get(), Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_view->viewport(), &drop);
        QVERIFY(ghosts().isEmpty());
        QCOMPARE(screen()->rowCount(), 1);
        int off = 256; // the largest difference of a colour: two roundings
        const auto farthest = [&] {
            const QImage drawn =
                m_view->screenScene()->frameItem()->pixmap().toImage().convertToFormat(
                    expected.format());
            off = drawn.size() == expected.size() ? 0 : 256;
            for (int y = 0; off < 256 && y < drawn.height(); ++y) {
                for (int x = 0; x < drawn.width(); ++x) {
                    const QRgb left = drawn.pixel(x, y);
                    const QRgb right = expected.pixel(x, y);
                    off = std::max({off, std::abs(qRed(left) - qRed(right)),
                                    std::abs(qGreen(left) - qGreen(right)),
                                    std::abs(qBlue(left) - qBlue(right))});
                }
            }
            return off;
        };
        QTRY_VERIFY2(farthest() <= 3, qPrintable(QString::number(off)));
    }

    /// By a click each: one step, of all that is selected when the row is; the selection stays.
    void marksInTheExplorer()
    {
        CItemModel *item = screen(1)->childItem(0);
        CItemModel *other = screen(1)->childItem(1);
        auto *tree = m_window->findChild<CProjectExplorerView *>();
        tree->expandAll();
        const auto click = [tree](const CItemModel *on, ExplorerMarks::EMark mark) {
            const QRect row = tree->visualRect(on->index());
            QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                              ExplorerMarks::place(mark, row).center());
        };
        click(item, ExplorerMarks::Eye);
        QVERIFY(item->isHidden() && !other->isHidden());
        click(item, ExplorerMarks::Lock);
        QVERIFY(item->isLocked() && tree->selectionModel()->selectedIndexes().isEmpty());
        QCOMPARE(m_window->project()->undoStack()->count(), 2);
        click(item, ExplorerMarks::Eye);
        click(item, ExplorerMarks::Lock);
        QCOMPARE(saved(), m_before);
        tree->selectAll();
        click(other, ExplorerMarks::Eye);
        QVERIFY(item->isHidden() && other->isHidden());
        m_window->project()->undoStack()->undo();
        QCOMPARE(saved(), m_before);
    }

    /// Explorer and canvas agree about the page, whoever changes it, and a double-click zooms.
    void explorerAndCanvasAgree()
    {
        CItemModel *item = screen(1)->childItem(1);
        auto *screens = m_window->findChild<CScreen *>();
        auto *tree = m_window->findChild<CProjectExplorerView *>();
        tree->expandAll();
        const auto isMarked = [tree](const CScreenModel *page) {
            return tree->shownScreen() == page;
        };
        tree->setFocus();
        tree->setCurrentIndex(screen(0)->index());
        QTest::keyClick(tree, Qt::Key_Down);
        QCOMPARE(screens->currentScreen(), screen(1));
        QVERIFY(isMarked(screen(1)));
        screens->openScreen(screen(0));
        QVERIFY(isMarked(screen(0)));
        tree->scrollTo(item->index());
        const QPoint row = tree->visualRect(item->index()).center();
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, row);
        QTRY_VERIFY(screens->currentView()->isVisible()); // laid out, as between two clicks
        QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, row);
        QCOMPARE(screens->currentScreen(), screen(1));
        CScreenView *view = screens->currentView();
        const QRectF seen = view->mapToScene(view->viewport()->rect()).boundingRect();
        const QRectF frame = ItemGeometry::frameOf(*item);
        QVERIFY(seen.contains(frame));
        QVERIFY(frame.width() * 2 > seen.width() || frame.height() * 2 > seen.height());
        QCOMPARE(view->selectedItems(), QVector<CItemModel *>{item});
        QCOMPARE(saved(), m_before);
    }

    /// A row that was clicked gives the keys to the canvas; its name is opened from there.
    void renamedWhereverTheKeysAre()
    {
        CItemModel *item = screen(1)->childItem(1);
        auto *tree = m_window->findChild<CProjectExplorerView *>();
        tree->expandAll();
        tree->scrollTo(item->index());
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          tree->visualRect(item->index()).center());
        QVERIFY(!tree->hasFocus());
        QTest::keyClick(m_window.get(), Qt::Key_F2);
        auto *line = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        QVERIFY(line); // its row of the property panel
        line->selectAll();
        QTest::keyClicks(line, "Called so");
        QTest::keyClick(line, Qt::Key_Return);
        QCOMPARE(item->name(), "Called so");
        tree->scrollTo(screen(1)->index());
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          tree->visualRect(screen(1)->index()).center());
        QTest::keyClick(m_window.get(), Qt::Key_F2);
        line = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        QVERIFY(line && tree->isAncestorOf(line)); // a page, where it stands
        line->selectAll();
        QTest::keyClicks(line, "Its page");
        QTest::keyClick(line, Qt::Key_Return);
        QTRY_COMPARE(screen(1)->name(), QString("Its page"));
        QCOMPARE(m_window->project()->undoStack()->count(), 2);
    }

    void explorerFilter()
    {
        auto *tree = m_window->findChild<CProjectExplorerView *>();
        tree->collapseAll();
        const auto rows = [tree] {
            tree->scrollToTop();
            QStringList names;
            for (QModelIndex at = tree->indexAt({20, 4}); at.isValid(); at = tree->indexBelow(at))
                names.append(at.data().toString());
            return names.join(' ');
        };
        auto *filter = m_window->findChild<QLineEdit *>("explorerFilter");
        filter->setClearButtonEnabled(false);
        filter->setFocus();
        QTest::keyClicks(filter, "ran");
        QCOMPARE(rows(), "Second Range");
        screen(1)->childItem(0)->setProperty(PropertyKey::Name, "Transfer"); // it fits now
        QTRY_COMPARE(rows(), "Second Transfer Range");
        QTest::keyClick(filter, Qt::Key_Return);
        const auto *screens = m_window->findChild<CScreen *>();
        QCOMPARE(screens->selectedItems(), QList<CItemModel *>{screen(1)->childItem(0)});
        filter->setText("sec");
        QCOMPARE(rows(), "Second Transfer Range Go");
        filter->setText("nothing");
        QCOMPARE(rows(), "");
        QTest::keyClick(filter, Qt::Key_Escape);
        QCOMPARE(rows(), "First Second"); // collapsed as before
    }

    /// Looks go over to what has them, and nothing else does; what is locked keeps its own.
    void styleByKeys()
    {
        const auto page = [this](int row) { return screen(1)->childItem(row); };
        QHash<QString, QVariant> look{
            {"fill_color", "#ff0000"}, {"corner", 3}, {PropertyKey::Width, 50}, {"border", 2}};
        for (auto each = look.cbegin(); each != look.cend(); ++each)
            page(0)->setProperty(each.key(), each.value());
        m_before = saved();
        press({page(0)}, "Ctrl+Alt+C");
        press({page(1), page(2)}, "Ctrl+Alt+V");
        QCOMPARE(page(1)->propertyText("fill_color"), "#ff0000");
        QCOMPARE(page(1)->propertyText("border"), "2");
        QCOMPARE(page(2)->propertyText("fill_color"), "#ff0000");
        QCOMPARE(page(2)->propertyText("corner"), "3");
        QVERIFY(!page(2)->hasProperty("border"));
        QCOMPARE(page(1)->propertyText(PropertyKey::Width), "120");
        QCOMPARE(page(2)->propertyText("text"), "Go");
        checkOneStep();
        page(1)->setLocked(true);
        m_before = saved();
        press({page(1)}, "Ctrl+Alt+V");
        QCOMPARE(saved(), m_before);
    }

    /// The copy takes the place on the page and in the order of each that is selected.
    void pasteToReplace()
    {
        const auto page = [this](int row) { return screen(1)->childItem(row); };
        press({page(2)}, "Ctrl+C");
        press({page(0), page(1)}, "Ctrl+Alt+R");
        QCOMPARE(screen(1)->rowCount(), 3);
        const QStringList names = {"Go 2", "Go 3", "Go"};
        const int x[] = {20, 300, 0};
        for (int row = 0; row < 3; ++row) {
            QCOMPARE(page(row)->name(), names.at(row));
            QCOMPARE(page(row)->x(), double(x[row]));
            QCOMPARE(page(row)->y(), row < 2 ? 0.0 : 200.0);
        }
        const auto *screens = m_window->findChild<CScreen *>();
        QCOMPARE(screens->selectedItems().size(), 2);
        checkOneStep();
        press({page(2)}, "Ctrl+Alt+R");
        QCOMPARE(page(2)->name(), "Go"); // its name was free
    }

    /// What lay on a larger page comes onto this one.
    void pastedInPlaceFromALargerPage()
    {
        CItemModel *item = screen(1)->childItem(1);
        item->setProperty(PropertyKey::X, 700);
        const std::unique_ptr<QMimeData> data(ItemClipboard::toMimeData({item}));
        const auto xAfter = [&](const char *size) {
            data->setData("widget-copy-page-size", size);
            const auto pasted = ItemClipboard::paste(*screen(), *data, nullptr, QPoint());
            return pasted.value(0)->x();
        };
        QCOMPARE(xAfter("480 272"), 700.0); // it lay there beside the page
        QCOMPARE(xAfter("800 480"), 360.0);
    }

private:
    /// Selected on the canvas of their page, which has the keys.
    void press(const QList<CItemModel *> &items, const char *keys)
    {
        auto *screens = m_window->findChild<CScreen *>();
        screens->openScreen(static_cast<CScreenModel *>(items.first()->parentItem()));
        QTRY_VERIFY(screens->currentView()->isVisible());
        screens->currentView()->screenScene()->chooseModelItems(items.toVector());
        screens->currentView()->setFocus();
        QTest::keySequence(screens->currentView(), QKeySequence(keys));
    }
    void checkOneStep()
    {
        QUndoStack *stack = m_window->project()->undoStack();
        const QByteArray after = saved();
        QVERIFY(after != m_before);
        QCOMPARE(stack->count(), 1);
        stack->undo();
        QCOMPARE(saved(), m_before);
        stack->redo();
        QCOMPARE(saved(), after);
    }
    CScreenModel *screen(int row = 0) const { return m_window->project()->screen(row); }
    QByteArray saved() const { return m_window->project()->saveToBytes(nullptr); }
    void choose(const QString &type)
    {
        for (int row = m_palette->count() - 1; row >= 0; --row) {
            if (m_palette->item(row)->data(CWidgetSelectionView::TypeRole) == type)
                m_palette->setCurrentRow(row);
        }
        QCOMPARE(m_palette->currentType(), type);
    }
    QStringList top(int count) const
    {
        QStringList texts;
        for (int row = 0; texts.size() < count && row < m_palette->count(); ++row) {
            if (!m_palette->item(row)->isHidden())
                texts.append(m_palette->item(row)->text());
        }
        return texts;
    }

    std::unique_ptr<CProgramFolder> m_folder;
    std::unique_ptr<CMainWindow> m_window;
    CScreenView *m_view = nullptr;
    CWidgetSelectionView *m_palette = nullptr;
    QByteArray m_before;
};

QTEST_MAIN(tst_PanelsJourney)
#include "tst_panelsjourney.moc"
