#include "CProjectExplorerView.h"
#include "CanvasTestSupport.h"
#include "ItemTree.h"
#include "ScreenDocuments.h"

#include <QtTest>
#include <QtWidgets>

namespace {

QStringList screenNames(const CProjectModel &project)
{
    QStringList names;
    for (int row = 0; row < project.screenCount(); ++row)
        names.append(project.screen(row)->name());
    return names;
}

/// The explorer with a user who drags: what the drag meets is told by a function.
class CDraggedExplorer : public CProjectExplorerView
{
public:
    std::function<void(QMimeData *)> user;
    int drags = 0;

    void enter(QMimeData *payload, const QPoint &at) { send<QDragEnterEvent>(payload, at); }
    void move(QMimeData *payload, const QPoint &at) { send<QDragMoveEvent>(payload, at); }
    void leave()
    {
        QDragLeaveEvent event;
        QCoreApplication::sendEvent(viewport(), &event);
    }
    void drop(QMimeData *payload, const QPoint &at)
    {
        QCOMPARE(send<QDropEvent>(payload, at), Qt::MoveAction);
    }
    /// Presses the row and moves far enough for a drag.
    void dragFrom(const QModelIndex &index)
    {
        const QPoint from = visualRect(index).center();
        QTest::mousePress(viewport(), Qt::LeftButton, {}, from);
        for (const int distance : {4, 12, 24}) {
            QMouseEvent event(QEvent::MouseMove, from + QPoint(distance, 0), Qt::LeftButton,
                              Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(viewport(), &event);
        }
        QTest::mouseRelease(viewport(), Qt::LeftButton, {}, from);
    }

protected:
    void execute(QDrag *drag) override
    {
        ++drags;
        if (user)
            user(drag->mimeData());
        drag->deleteLater();
    }

private:
    template<typename Event>
    Qt::DropAction send(QMimeData *payload, const QPoint &at)
    {
        Event event(at, Qt::MoveAction, payload, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(viewport(), &event);
        return event.dropAction();
    }
};

} // namespace

Q_DECLARE_METATYPE(CScreenModel *)

class tst_ProjectExplorer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qRegisterMetaType<CScreenModel *>();
        loadWidgetLibrary();
    }

    void init()
    {
        m_project = newTestProject(3); // Page 1, Page 2, Page 3
        addWidget(*m_project, "Kiv_Text_T", 0);
        addWidget(*m_project, "Kiv_Line_T", 0);
        addWidget(*m_project, "Kiv_Circle_T", 1);
        m_view = std::make_unique<CDraggedExplorer>();
        m_view->resize(240, 400);
        m_view->setProject(m_project.get());
        m_view->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
        QGuiApplication::clipboard()->clear();
    }

    void cleanup()
    {
        m_view.reset();
        m_project.reset();
    }

    void renamingIsOneUndoStep()
    {
        QUndoStack &stack = *m_project->undoStack();
        const auto rename = [this](const QString &name) {
            m_view->edit(m_project->index(1, 0));
            auto *editor = m_view->viewport()->findChild<QLineEdit *>();
            QVERIFY(editor);
            editor->setText(name);
            QTest::keyClick(editor, Qt::Key_Return);
            QTRY_VERIFY(!m_view->viewport()->findChild<QLineEdit *>());
        };
        rename("  Settings ");
        QCOMPARE(screenNames(*m_project), (QStringList{"Page 1", "Settings", "Page 3"}));
        QCOMPARE(m_project->index(1, 0).data().toString(), "Settings");
        QCOMPARE(stack.count(), 1);
        rename("   ");
        rename("Settings");
        QCOMPARE(stack.count(), 1);
        rename("Page 3"); // which there is
        QCOMPARE(m_project->index(1, 0).data().toString(), "Page 4");
        stack.undo();
        stack.undo();
        QCOMPARE(m_project->index(1, 0).data().toString(), "Page 2");
    }

    void dragMovesAScreen_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>(
            "before"); // the screen above which it is dropped; -1: below all, -2: where it was
        QTest::addColumn<QStringList>("order");
        QTest::newRow("up") << 2 << 0 << QStringList{"Page 3", "Page 1", "Page 2"};
        QTest::newRow("down") << 0 << 2 << QStringList{"Page 2", "Page 1", "Page 3"};
        QTest::newRow("to the end") << 0 << -1 << QStringList{"Page 2", "Page 3", "Page 1"};
        QTest::newRow("where it was, which the next one now covers") << 0 << -2 << QStringList();
        QTest::newRow("where it was, at the end of a scrolled tree") << 2 << -2 << QStringList();
        QTest::newRow("last one below all") << 2 << -1 << QStringList();
    }

    void dragMovesAScreen()
    {
        QFETCH(int, from);
        QFETCH(int, before);
        QFETCH(QStringList, order);
        const QByteArray start = savedBytes(*m_project);
        const QStringList startNames = screenNames(*m_project);
        CScreenModel *target = m_project->screen(before);
        if (before == -2) {
            m_view->resize(240, m_view->height() - m_view->viewport()->height() + 40); // scrolls
            m_view->scrollTo(m_project->index(from, 0));
            m_view->setCurrentIndex(m_project->index(1, 0, m_project->index(0, 0)));
            m_view->scrollTo(m_project->index(from, 0));
        }
        const QPoint ownPlace = m_view->visualRect(m_project->index(from, 0)).bottomLeft();
        QWidget *indicator = m_view->viewport()->findChild<QWidget *>("dropIndicator");
        QVERIFY(!m_view->viewport()->rect().intersects(indicator->geometry()));
        QSignalSpy shown(m_view.get(), &CProjectExplorerView::screenActivated);
        CScreenModel *dragged = m_project->screen(from);
        m_view->setShownScreen(dragged);

        m_view->user = [&](QMimeData *data) {
            QCOMPARE(data->formats(), QStringList{"drag-drop-explorer"});
            m_view->enter(data, before == -2 ? ownPlace : QPoint(20, 5));
            QCOMPARE(m_project->screenCount(), 2);
            QVERIFY(m_view->isDragging());
            QVERIFY(dragged->isMoving());
            const QPoint place = target         ? upperHalfOf(target->row())
                                 : before == -2 ? ownPlace
                                                : below();
            m_view->move(data, place);
            QVERIFY(m_view->viewport()->rect().intersects(indicator->geometry()));
            m_view->drop(data, place);
            QVERIFY(!m_view->viewport()->rect().intersects(indicator->geometry()));
            QCOMPARE(m_view->selectionModel()->selectedIndexes(),
                     QModelIndexList{dragged->index()});
            QVERIFY(m_view->isExpanded(dragged->index()));
        };
        m_view->dragFrom(m_project->index(from, 0));
        QCOMPARE(m_view->drags, 1);
        QVERIFY(!m_view->isDragging());
        QVERIFY(!dragged->isMoving());
        QCOMPARE(screenNames(*m_project), order.isEmpty() ? startNames : order);
        QCOMPARE(m_project->undoStack()->count(), order.isEmpty() ? 0 : 1);
        QCOMPARE(shown.last().first().value<CScreenModel *>(), dragged);
        if (!order.isEmpty()) {
            m_project->undoStack()->undo();
        }
        QCOMPARE(savedBytes(*m_project), start);
    }

    void dragOutsidePutsTheScreenBack()
    {
        const QByteArray start = savedBytes(*m_project);
        m_view->user = [this](QMimeData *data) {
            for (int time = 0; time < 2; ++time) { // out, in again, out
                m_view->enter(data, below());
                QCOMPARE(m_project->screenCount(), 2);
                m_view->leave();
                QCOMPARE(m_project->screenCount(), 3);
            }
        };
        m_view->dragFrom(m_project->index(0, 0));
        QCOMPARE(savedBytes(*m_project), start);
        m_view->user = [this](QMimeData *data) { m_view->enter(data, below()); }; // broken off
        m_view->dragFrom(m_project->index(1, 0));
        QCOMPARE(m_view->drags, 2);
        QCOMPARE(savedBytes(*m_project), start);
        QCOMPARE(m_project->undoStack()->count(), 0);
        QVERIFY(m_view->isExpanded(m_project->index(1, 0)));
    }

    void dragMovesItems_data()
    {
        QTest::addColumn<QString>("dragged"); // those before the last one are selected as well
        QTest::addColumn<QString>("over");
        QTest::addColumn<double>("share"); // of its row's height; below 0: to the left of it
        QTest::addColumn<QString>("after");
        const auto row = [](const char *dragged, const char *over, double share,
                            const char *after) {
            QTest::addRow("%s to %s at %g", dragged, over, share)
                << dragged << over << share << after;
        };
        row("A", "D", 0.9, "G(BC)DAH(EF)");
        row("D", "A", 0.1, "DAG(BC)H(EF)");
        row("DA", "H", 0.1, "G(BC)ADH(EF)"); // in their order
        row("A", "G", 0.5, "G(ABC)DH(EF)");
        row("A", "B", 0.9, "G(BAC)DH(EF)");
        row("DA", "C", 0.9, "G(BCAD)H(EF)");
        row("B", "A", 0.1, "BAG(C)DH(EF)");
        row("C", "B", 0.1, "AG(CB)DH(EF)");
        row("B", "H", 0.5, "AG(C)DH(BEF)");
        row("G", "H", 0.5, "ADH(G(BC)EF)");
        row("MA", "D", 0.9, "G(BC)DMAH(EF)"); // from two pages
        row("A", "F", -0.9, "G(BC)DH(EF)A");  // out of the group again
        row("A", "Page 3", 0.5, "AG(BC)DH(EF)");
        row("A", "A", 0.9, "AG(BC)DH(EF)");
        row("G", "B", 0.9, "AG(BC)DH(EF)"); // not into itself
        row("A", "L", 0.1, "AG(BC)DH(EF)"); // nor into what is locked
    }

    /// One step, which changes the order and nothing else: no item moves on its page.
    void dragMovesItems()
    {
        QFETCH(QString, dragged);
        QFETCH(QString, over);
        QFETCH(double, share);
        QFETCH(QString, after);
        CScreenModel *page = m_project->screen(2);
        const QString before = "AG(BC)DH(EF)";
        fill(*page, before);
        fill(*m_project->screen(1), "K(L)M");
        m_project->screen(1)->childItem(1)->setLocked(true);
        m_view->resize(240, 900);
        m_view->expandAll();
        const QByteArray start = savedBytes(*m_project);
        const auto named = [this](const QString &name) {
            CItemModel *found = nullptr;
            forEachItem(*m_project, [&](CItemModel &each) {
                if (each.name() == name)
                    found = &each;
            });
            return found;
        };
        QList<CItemModel *> items;
        for (const QChar each : dragged)
            items.append(named(each));
        const QRectF frame = ItemGeometry::frameOf(*items.last());
        m_view->selectItems(items);
        const QRect row = m_view->visualRect(named(over)->index());
        const QPoint at(share < 0 ? 8 : row.left() + 20,
                        row.top() + qRound(std::abs(share) * (row.height() - 1)));
        QSignalSpy moved(m_view.get(), &CProjectExplorerView::itemsMoved);
        m_view->user = [&](QMimeData *data) {
            m_view->enter(data, at);
            QCOMPARE(savedBytes(*m_project), start);
            m_view->move(data, at);
            m_view->drop(data, at);
        };
        if (items.size() == 1)
            m_view->setCurrentIndex(items.last()->index());
        m_view->dragFrom(items.last()->index());
        QCOMPARE(m_view->drags, 1);
        QCOMPARE(textOf(*page), after);
        QCOMPARE(m_project->undoStack()->count(), after == before ? 0 : 1);
        QCOMPARE(ItemGeometry::frameOf(*items.last()), frame);
        QVERIFY(m_view->isExpanded(named("G")->index()));
        const QByteArray end = savedBytes(*m_project);
        m_project->undoStack()->undo();
        QCOMPARE(savedBytes(*m_project), start);
        m_project->undoStack()->redo();
        QCOMPARE(savedBytes(*m_project), end);
    }

    /// The last member takes its group along; on another page a name that is there counts up.
    void dragToAnotherPage()
    {
        fill(*m_project->screen(2), "G(B)");
        fill(*m_project->screen(1), "B");
        const QByteArray start = savedBytes(*m_project);
        m_view->resize(240, 900);
        m_view->expandAll();
        m_view->user = [&](QMimeData *data) {
            QCOMPARE(data->formats(), QStringList("drag-drop-explorer-member")); // not for a canvas
            m_view->enter(data, upperHalfOf(1));
            m_view->drop(data, upperHalfOf(1));
        };
        CItemModel *member = m_project->screen(2)->childItem(0)->childItem(0);
        m_view->dragFrom(member->index());
        QCOMPARE(textOf(*m_project->screen(2)), "");
        QCOMPARE(member->name(), "B 2");
        QCOMPARE(m_project->screen(1)->childItem(0), member);
        QCOMPARE(m_project->undoStack()->count(), 1);
        m_project->undoStack()->undo();
        QCOMPARE(savedBytes(*m_project), start);
    }

    void onlyScreensAreReordered()
    {
        m_view->user = [this](QMimeData *payload) { // a widget is for the canvas
            QCOMPARE(payload->formats(), QStringList("widget-move"));
            m_view->enter(payload, below());
            QVERIFY(!m_view->isDragging());
        };
        m_view->dragFrom(m_project->index(0, 0, m_project->index(0, 0)));
        QCOMPARE(m_view->drags, 1);
        QMimeData foreign; // of another window or program
        foreign.setData("drag-drop-explorer", "0");
        m_view->enter(&foreign, below());
        QCOMPARE(m_project->screenCount(), 3);
    }

    void pasteMakesValuesCanonical()
    {
        const QString xml = "<CopyScreenXML><Screen name='Pasted'>"
                            "<Kiv_Arrow_T name='a' thickness='007' ends='BOTH'/>"
                            "<Kiv_Rectangle_T name='b' angle='1.50' width='30'/>"
                            "<Kiv_Arrow_T name='c' ends='2' head='12'/>"
                            "</Screen></CopyScreenXML>";
        const QByteArray start = savedBytes(*m_project);
        pasteCopied(ScreenDocuments::toClipboard(xml.toUtf8()));
        QCOMPARE(m_project->screenCount(), 4);
        const CItemModel *screen = m_project->screen(3);
        QCOMPARE(screen->childItem(0)->propertyText("thickness"), "7");
        QCOMPARE(screen->childItem(0)->propertyText("ends"), "both");
        QCOMPARE(screen->childItem(1)->propertyText("angle"), "1.5");
        QCOMPARE(screen->childItem(2)->propertyText("ends"), "none");
        QCOMPARE(m_project->undoStack()->count(), 1);
        m_project->undoStack()->undo();
        QCOMPARE(savedBytes(*m_project), start);
    }

    void pagesOfOnePasteAreToldApart()
    {
        pasteCopied(ScreenDocuments::toClipboard(
            "<CopyScreenXML><Screen><Kiv_Arrow_T id='1'/></Screen>"
            "<Screen name='Page 4'><Kiv_Arrow_T id='1'/></Screen></CopyScreenXML>"));
        QCOMPARE(screenNames(*m_project).mid(3), (QStringList{"Page 5", "Page 4"}));
        QVERIFY(m_project->screen(3)->childItem(0)->id() !=
                m_project->screen(4)->childItem(0)->id());
    }

    void malformedPagesChangeNothing_data()
    {
        QTest::addColumn<QByteArray>("xml");
        QTest::newRow("no page in it") << QByteArray("<ScreenSave/>");
        QByteArray attributes;
        for (int i = 0; i < 510; ++i)
            attributes += " a" + QByteArray::number(i) + "=''";
        QTest::newRow("more attributes than can be saved")
            << "<ScreenSave><Screen/><Screen><Kiv_Rectangle_T" + attributes +
                   "/></Screen></ScreenSave>";
    }

    void malformedPagesChangeNothing()
    {
        QFETCH(QByteArray, xml);
        const QByteArray start = savedBytes(*m_project);
        QSignalSpy told(m_view.get(), &CProjectExplorerView::message);
        pasteCopied(
            ScreenDocuments::toClipboard(QByteArray(xml).replace("ScreenSave", "CopyScreenXML")));
        pasteCopied(xml); // no streamed string at all
        QCOMPARE(told.count(), 2);
        for (int times = 0; times < 2; ++times)
            QVERIFY(told.takeFirst().value(0).toString().contains("cannot be pasted: "));

        QTemporaryDir folder;
        QFile file(folder.filePath("broken.page"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(xml);
        file.close();
        answer(folder, "broken.page");
        m_view->loadScreen();
        QVERIFY(told.value(0).value(0).toString().contains("broken.page: "));
        QCOMPARE(savedBytes(*m_project), start);
        QCOMPARE(m_project->undoStack()->count(), 0);
    }

    void pageFilesThroughTheDialogs()
    {
        QTemporaryDir folder;
        m_view->selectItems({m_project->screen(1), m_project->screen(0)});
        answer(folder, "two");
        m_view->saveScreen();
        QVERIFY(QFile::exists(folder.filePath("two.page")));

        answer(folder, "two.page");
        m_view->loadScreen();
        QCOMPARE(screenNames(*m_project),
                 (QStringList{"Page 1", "Page 2", "Page 3", "Page 4", "Page 5"}));
        QCOMPARE(m_project->screen(3)->rowCount(), 2);
        QCOMPARE(m_project->undoStack()->count(), 1);
    }

    void closingTheProjectDuringADrag()
    {
        m_view->user = [this](QMimeData *data) {
            m_view->enter(data, below());
            m_view->setProject(nullptr);
            QCOMPARE(m_project->screenCount(), 3);
            m_view->drop(data, below());
        };
        m_view->dragFrom(m_project->index(0, 0));
        QCOMPARE(screenNames(*m_project), (QStringList{"Page 1", "Page 2", "Page 3"}));
    }

private:
    /// What is typed into the next file dialog, and confirmed.
    void answer(const QTemporaryDir &folder, const QString &name)
    {
        QTimer::singleShot(0, this, [&folder, name] {
            auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            dialog->setDirectory(folder.path());
            auto *line = dialog->findChild<QLineEdit *>("fileNameEdit");
            line->setText(name);
            QTest::keyClick(line, Qt::Key_Return);
        });
    }
    /// Boxes and, with their members in brackets, groups.
    static void fill(CItemModel &parent, const QString &text)
    {
        CItemModel *into = &parent;
        for (int at = 0; at < text.size(); ++at) {
            if (text.at(at) == ')') {
                into = into->parentItem();
                continue;
            }
            CItemModel *item = text.mid(at + 1, 1) == "("
                                   ? new CWidgetGroupModel(parent.library(), parent.observer())
                                   : appendBox(into, 10 * at, 20, 30, 40);
            item->setProperty(PropertyKey::Name, QString(text.at(at)));
            item->setGrouped(into->kind() == CItemModel::Kind::Group);
            if (item->kind() != CItemModel::Kind::Group)
                continue;
            into->appendRow(item);
            into = item;
            ++at;
        }
    }
    static QString textOf(const CItemModel &parent)
    {
        QString text;
        for (int row = 0; row < parent.rowCount(); ++row) {
            const CItemModel &item = *parent.childItem(row);
            const bool isGroup = item.kind() == CItemModel::Kind::Group;
            text += item.name() + (isGroup ? '(' + textOf(item) + ')' : QString());
        }
        return text;
    }
    QPoint upperHalfOf(int screen) const
    {
        return m_view->visualRect(m_project->index(screen, 0)).topLeft() + QPoint(20, 2);
    }
    void pasteCopied(const QByteArray &bytes)
    {
        auto *data = new QMimeData;
        data->setData("screen-copy", bytes);
        QGuiApplication::clipboard()->setMimeData(data);
        m_view->paste();
    }
    QPoint below() const { return {20, m_view->viewport()->height() - 30}; }

    std::unique_ptr<CProjectModel> m_project;
    std::unique_ptr<CDraggedExplorer> m_view;
};

QTEST_MAIN(tst_ProjectExplorer)
#include "tst_projectexplorer.moc"
