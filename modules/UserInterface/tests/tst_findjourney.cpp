// Finding, jumping and replacing on the real window, by the keys and the mouse, beginning with
// nothing selected; and that the results follow the project.
#include "CCommandChangeItemProperty.h"
#include "CCompareActions.h"
#include "CCompareView.h"
#include "CDialogAnswers.h"
#include "CFindActions.h"
#include "CFindPanel.h"
#include "CItemModel.h"
#include "CMainWindow.h"
#include "COutputWindowView.h"
#include "CProjectModel.h"
#include "CScreen.h"
#include "CScreenModel.h"
#include "CScreenView.h"
#include "CZoomComboWidget.h"
#include "ProgramFolder.h"

#include <QtTest>
#include <QtWidgets>

#include <memory>

namespace {
const QByteArray threePages =
    "<Kiv_Project_T project_name=\"demo\" platform=\"QX110\" width=\"480\" height=\"272\">"
    "<Kiv_Screen_T name=\"First\" color=\"#102030\">"
    "<Kiv_Rectangle_T name=\"Box\" id=\"1\" fill_color=\"#ff0000\"/>"
    "<Kiv_Text_T name=\"Title\" id=\"2\" text=\"Living room\"/></Kiv_Screen_T>"
    "<Kiv_Screen_T name=\"Second\" color=\"#304050\">"
    "<Widget_Group_T name=\"Rooms\" id=\"3\"><Kiv_Text_T name=\"Label\" id=\"4\" "
    "x_coordinate=\"20\" "
    "text=\"Room 2, room 3\"/></Widget_Group_T></Kiv_Screen_T>"
    "<Kiv_Screen_T name=\"Third\" color=\"#000000\"><Kiv_Text_T name=\"Far room\" id=\"5\" "
    "x_coordinate=\"440\" y_coordinate=\"250\" width=\"20\" text=\"Hall\"/>"
    "<Kiv_Text_T name=\"Locked\" id=\"6\" locked=\"1\" text=\"room\"/>"
    "</Kiv_Screen_T></Kiv_Project_T>";
} // namespace

class tst_FindJourney : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<CProgramFolder>();
        writeFile(m_folder->path("demo.nyx"), threePages);
        m_window = std::make_unique<CMainWindow>(m_folder->path("demo.nyx"));
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_screens = m_window->findChild<CScreen *>();
        m_panel = m_window->findActions()->panel();
        m_text = m_panel->findChild<QLineEdit *>("findText");
        m_text->setClearButtonEnabled(false); // its fading would outlive the program and be a leak
        QVERIFY(m_window->findActions()->dock()->isHidden());
        m_before = saved();
    }
    void cleanup()
    {
        m_window->project()->undoStack()->setClean();
        m_window.reset();
        m_folder.reset();
    }

    void findAndJump()
    {
        QTest::keyClick(m_screens->currentView(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget(), m_text);
        QTest::keyClicks(m_text, "room");
        const QStringList all = {"Title", "Rooms", "Label", "Far room", "Locked"};
        m_window->findChild<CZoomComboWidget *>()->setZoom(800, CZoomComboWidget::FreeValue);
        QTRY_COMPARE(rows(), all);
        QCOMPARE(selected(), QStringList());

        QTest::keyClick(m_text, Qt::Key_Return); // the first, and the keys stay in the field
        QCOMPARE(selected(), QStringList{"First/Title"});
        QCOMPARE(QApplication::focusWidget(), m_text);
        const QRect label = m_panel->list()->visualRect(index(2)); // a member of a group
        QTest::mouseClick(m_panel->list()->viewport(), Qt::LeftButton, {}, label.center());
        QCOMPARE(selected(), QStringList{"Second/Label"}); // and not its group, for the next key
        QTest::keyClick(m_window.get(), Qt::Key_F3);
        QCOMPARE(selected(), QStringList{"Third/Far room"});
        const CScreenView *view = m_screens->currentView();
        QVERIFY(view->viewport()->rect().contains(view->mapFromScene(450, 260)));
        QTest::keyClick(m_window.get(), Qt::Key_F3);
        QTest::keyClick(m_window.get(), Qt::Key_F3); // around
        QCOMPARE(selected(), QStringList{"First/Title"});
        QTest::keyClick(m_window.get(), Qt::Key_F3, Qt::ShiftModifier);
        QCOMPARE(selected(), QStringList{"Third/Locked"});

        QTest::keyClick(m_panel->list(), Qt::Key_Delete); // nothing on the canvas is meant
        QCOMPARE(saved(), m_before);
        QTest::keyClick(m_text, Qt::Key_Escape);
        QCOMPARE(QApplication::focusWidget(), m_screens->currentView());
        QCOMPARE(selected(), QStringList{"Third/Locked"});
    }

    /// File > Compare With..., the file as it was saved, after a change; then a file that is none.
    void comparedWithTheSavedFile()
    {
        auto *list = m_window->compareActions()->view()->findChild<QTreeView *>();
        const QAbstractItemModel *rows = list->model();
        CItemModel *label = m_window->project()->screen(1)->childItem(0)->childItem(0);
        m_window->project()->undoStack()->push(
            new CCommandChangeItemProperty(label, "text", "Hall", "Room 2, room 3"));
        CDialogAnswers answers;
        answers.expect([](QDialog *dialog) { dialog->accept(); });
        m_window->findChild<QAction *>("compareWith")->trigger();
        QTRY_COMPARE(rows->rowCount(), 1);
        QVERIFY(answers.allGiven() && list->isVisible());
        const QModelIndex changed = rows->index(0, 0, rows->index(0, 0));
        QCOMPARE(changed.data().toString(), "Changed: Text \"Label\"");
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(changed).center());
        QCOMPARE(selected(), QStringList{"Second/Label"});
        m_window->project()->undoStack()->undo(); // the list follows
        QTRY_COMPARE(rows->rowCount(), 0);
        const auto *head = m_window->compareActions()->view()->findChild<QLabel *>();
        QDockWidget *dock = m_window->compareActions()->dock();
        const auto saveWith = [this](bool isChanged) {
            if (isChanged)
                m_window->project()->undoStack()->redo();
            else
                m_window->project()->undoStack()->undo();
            QVERIFY(m_window->saveProject());
        };
        for (const bool isSeen : {true, false}) { // what was saved is what is compared with
            dock->setVisible(isSeen);
            saveWith(isSeen);
            dock->show();
            QTRY_VERIFY(head->text().startsWith("Nothing has changed"));
            m_window->project()->undoStack()->setIndex(isSeen ? 0 : 1);
            QTRY_VERIFY(head->text().startsWith("Changed since"));
            m_window->project()->undoStack()->setIndex(isSeen ? 1 : 0);
        }
        QTRY_COMPARE(rows->rowCount(), 0);
        const QString bad = m_folder->path("bad.nyx");
        writeFile(bad, "<!DOCTYPE a [<!ENTITY b 'c'>]><a/>");
        const auto *output = m_window->findChild<COutputWindowView *>();
        for (const QString &file : {bad, m_folder->path("none.nyx"), m_folder->path("")}) {
            const QString before = output->toPlainText();
            dock->hide();
            m_window->compareActions()->compareWith({CVersionDialog::EKind::File, file, {}}, file);
            QTRY_VERIFY(output->toPlainText() != before);
            QVERIFY(dock->isVisible() && head->text().startsWith("Not compared: " + file));
        }
        QCOMPARE(saved(), m_before);
    }

    void pagesAreFoundToo()
    {
        find("third");
        QCOMPARE(rows(), QStringList{"Third"});
        m_panel->step(1);
        QCOMPARE(m_screens->currentScreen()->name(), "Third");
    }

    void replaceIsOneStep()
    {
        QTest::keyClick(m_window.get(), Qt::Key_H, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget(), m_text);
        auto *by = m_panel->findChild<QLineEdit *>("findBy");
        QVERIFY(by->isVisible());
        find("room");
        QTest::keyClicks(by, "hall");
        m_panel->session()->finish();
        const QStringList all = {"Title", "Rooms", "Label", "Far room", "Locked"};
        QCOMPARE(rows(), all);
        QCOMPARE(index(2).data(CFindResults::AfterRole).toString(), "hall 2, hall 3");
        QCOMPARE(index(4).data(CFindResults::RefusalRole).toString(), "Locked");
        QCOMPARE(index(4).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
        const QRect row = m_panel->list()->visualRect(index(1));
        QTest::mouseClick(m_panel->list()->viewport(), Qt::LeftButton, {},
                          {row.left() + 8, row.center().y()}); // its tick
        QCOMPARE(selected(), QStringList());                   // which leads nowhere
        auto *button = m_panel->findChild<QPushButton *>("findReplace");
        QCOMPARE(button->text(), "Replace (3)");
        button->click();
        const QUndoStack *stack = m_window->project()->undoStack();
        QCOMPARE(stack->count(), 1);
        QCOMPARE(stack->undoText(), "Replace in 3 places");
        const QByteArray after = saved();
        for (const char *each :
             {"\"Living hall\"", "\"hall 2, hall 3\"", "\"Far hall\"", "\"Rooms\"", "\"room\""})
            QVERIFY2(after.contains(each), each);
        m_panel->session()->finish();
        QCOMPARE(rows(), (QStringList{"Rooms", "Locked"})); // what is left of it
        m_window->project()->undoStack()->undo();
        QCOMPARE(saved(), m_before);
        m_window->project()->undoStack()->redo();
        QCOMPARE(saved(), after);
    }

    void coloursAreChosen()
    {
        m_window->findActions()->action(CFindActions::Replace)->trigger();
        m_panel->findChild<QComboBox *>("findField")->setCurrentIndex(int(ESearchField::Colour));
        auto *choice = m_panel->findChild<QComboBox *>("findChoice");
        QVERIFY(choice->isVisible() && !m_panel->findChild<QLineEdit *>("findBy")->isVisible());
        QVERIFY(choice->findText("#304050") >= 0);
        find("red");
        choice->setEditText("#304050");
        m_panel->session()->finish();
        QCOMPARE(rows(), QStringList{"Box"});
        m_panel->findChild<QPushButton *>("findReplace")->click();
        QCOMPARE(saved(), QByteArray(m_before).replace("#ff0000", "#304050"));
    }

    void resultsFollowTheProject()
    {
        find("room");
        QUndoStack *stack = m_window->project()->undoStack();
        m_screens->openScreen(m_window->project()->screen(1));
        QTest::keyClick(m_text, Qt::Key_Escape);
        QTest::keyClick(m_screens->currentView(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(m_screens->currentView(), Qt::Key_Delete);
        QCOMPARE(rows().size(), 5);
        QVERIFY(index(1).data(CFindResults::ItemRole).value<CItemModel *>() == nullptr); // at once
        m_panel->list()->setCurrentIndex(index(1));
        QTest::keyClick(m_panel->list(), Qt::Key_Return); // leads nowhere
        const QStringList rest = {"Title", "Far room", "Locked"};
        QTRY_COMPARE(rows(), rest);
        stack->undo();
        QTRY_COMPARE(rows().size(), 5);
        m_window->findActions()->dock()->hide(); // nobody looks
        stack->redo();
        m_window->findActions()->dock()->show();
        QTRY_COMPARE(rows(), rest);
        stack->setClean();
        m_window->closeProject();
        QCOMPARE(rows(), QStringList());
        QVERIFY(!m_window->findActions()->action(CFindActions::Find)->isEnabled());
        const auto *state = m_panel->findChild<QLabel *>("findState");
        QCOMPARE(state->text(), "No project");
        QVERIFY(m_window->openProjectFile(m_folder->path("demo.nyx")));
        for (const char *text : {"nowhere", "x_coordinate=20"}) {
            find(text);
            QTRY_VERIFY(state->text().startsWith("Nothing found"));
            QCOMPARE(state->text().contains("\"Property\""), strchr(text, '=') != nullptr);
        }
    }

    void picturesShowTheItems()
    {
        m_window->project()->screen(0)->setProperty("color", "#00ff00");
        find("box");
        CFindPictures pictures;
        pictures.setProject(m_window->project());
        QPixmap picture;
        const auto take = [&] {
            picture = pictures.picture(m_window->project()->screen(0)->childItem(0), {60, 40});
            return !picture.isNull();
        };
        QTRY_VERIFY(take());
        QVERIFY(picture.width() <= 60 && picture.height() <= 40);
        QCOMPARE(picture.toImage().pixelColor(picture.rect().center()), QColor("#ff0000"));
        m_window->project()->screen(0)->childItem(0)->setProperty("fill_color", "#0000ff");
        const auto isNew = [&] {
            take();
            return picture.toImage().pixelColor(picture.rect().center()) == QColor("#0000ff");
        };
        QTRY_VERIFY(isNew());
        pictures.withdraw(); // a page that goes while it is asked for
        take();
        m_window->project()->removeRow(0);
        QCoreApplication::processEvents();
    }

private:
    void find(const QString &text)
    {
        m_window->findActions()->action(CFindActions::Find)->trigger();
        m_text->setText(text);
        m_panel->session()->finish();
    }
    QModelIndex index(int row) const { return m_panel->list()->model()->index(row, 0); }
    QStringList rows() const
    {
        QStringList names;
        for (int row = 0; row < m_panel->list()->model()->rowCount(); ++row)
            names.append(index(row).data(CFindResults::NameRole).toString());
        return names;
    }
    QStringList selected() const
    {
        QStringList names;
        for (const CItemModel *each : m_screens->selectedItems())
            names.append(m_screens->currentScreen()->name() + '/' + each->name());
        return names;
    }
    QByteArray saved() const
    {
        QString error;
        return m_window->project()->saveToBytes(&error);
    }

    std::unique_ptr<CProgramFolder> m_folder;
    std::unique_ptr<CMainWindow> m_window;
    CScreen *m_screens = nullptr;
    CFindPanel *m_panel = nullptr;
    QLineEdit *m_text = nullptr;
    QByteArray m_before;
};

QTEST_MAIN(tst_FindJourney)
#include "tst_findjourney.moc"
