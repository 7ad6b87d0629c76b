#include "CPropertyLayout.h"
#include "CPropertyManager.h"
#include "CWidgetPropertiesView.h"
#include "CanvasTestSupport.h"

#include <QSignalSpy>
#include <QtVariantPropertyManager>
#include <QtWidgets>

#include <algorithm>

/// A property panel on a project of its own; edits go through the editors that a click or a key
/// opens, as a user's do.
class tst_WidgetProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadWidgetLibrary(); }
    void init()
    {
        m_project = newTestProject();
        m_view = std::make_unique<CWidgetPropertiesView>();
        m_view->setProject(m_project.get());
        m_view->resize(360, 700);
        m_view->show();
        m_view->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    }
    void cleanup()
    {
        m_view.reset();
        m_project.reset();
    }

    /// All properties of its definition but the hidden ones, in its order, under headings; called
    /// as people call them, with the key as the tool tip.
    void rowsOfAnItem()
    {
        show("Kiv_Bitmap_T");
        QStringList keys = m_project->library()->propertyKeys("Kiv_Bitmap_T");
        QVERIFY(keys.removeAll("suffix") == 1); // hidden
        QStringList rows, headings, captions;
        for (int row = 0; row < tree()->topLevelItemCount(); ++row) {
            QTreeWidgetItem *each = tree()->topLevelItem(row);
            (layout()->isHeading(each) ? headings : rows).append(each->text(0));
            if (!each->isHidden() && !layout()->isHeading(each))
                captions.append(layout()->caption(each));
        }
        QCOMPARE(rows, keys);
        QCOMPARE(headings.join(' '), "Place Content Look");
        QCOMPARE(captions.mid(0, 6).join(' '), "Name ID Position Size Angle Picture file");
        QCOMPARE(treeRow("bfolder")->toolTip(0), "bfolder");
        m_view->showIndexes({m_project->screen(0)->index()});
        QVERIFY(treeRow("color") && !treeRow("filename"));
        QCOMPARE(layout()->caption(treeRow("color")), "Colour");
        QCOMPARE(layout()->caption(treeRow("type")), "Type");
        QCOMPARE(tree()->topLevelItemCount(), 3);
        QCOMPARE(stack().count(), 0);
    }

    /// A user's library: without sections one list; with odd ones each row is still there once.
    void librariesOfUsers_data()
    {
        QTest::addColumn<QString>("section");
        QTest::addColumn<int>("headings");
        QTest::newRow("none") << QString() << 0;
        QTest::newRow("empty") << "section=''" << 0;
        QTest::newRow("called as a property") << "section='x_coordinate'" << 1;
        QTest::newRow("markup") << "section='&lt;b&gt;&amp;&#10;%1'" << 1;
    }

    void librariesOfUsers()
    {
        QFETCH(QString, section);
        QFETCH(int, headings);
        const QTemporaryDir folder;
        const QString file = written(
            folder.filePath("library.xml"),
            QString(
                "<widgetlibrary><toolboxgroup name='G'><widget type='K_T'><properties>"
                "<property name='name' type='string' value='K'/>"
                "<property name='x_coordinate' type='int' %1/><property name='height' type='int'/>"
                "<property name='width' type='int'/><property name='y_coordinate' type='int'/>"
                "</properties></widget></toolboxgroup></widgetlibrary>")
                .arg(section)
                .toUtf8());
        m_view->setProject(nullptr);
        m_project.reset();
        QVERIFY(CWidgetLibraryManager::instance().initialise(
            file, {0x100, 0x101, 0x110, 0x111, 0x112, 0x113}));
        m_project = newTestProject();
        m_view->setProject(m_project.get());
        show("K_T");
        int found = 0;
        QStringList rows;
        for (int row = 0; row < tree()->topLevelItemCount(); ++row) {
            QTreeWidgetItem *each = tree()->topLevelItem(row);
            QVERIFY(!each->isHidden()); // nothing is a pair here
            if (layout()->isHeading(each))
                ++found;
            else
                rows.append(each->text(0));
        }
        QCOMPARE(rows.join(' '), "name x_coordinate height width y_coordinate");
        QCOMPARE(found, headings);
        QVERIFY(m_view->edit("width"));
        m_view->setProject(nullptr);
        m_project.reset();
        loadWidgetLibrary();
    }

    /// By mouse and keyboard; they stay closed for the next item.
    void sectionsCloseAndOpen()
    {
        show("Kiv_Line_T");
        QTreeWidgetItem *place = treeRow("Place");
        click(tree()->visualItemRect(place).center());
        QVERIFY(treeRow("x_coordinate")->isHidden() && !treeRow("line_color")->isHidden());
        show("Kiv_Text_T");
        QVERIFY(treeRow("width")->isHidden() && !treeRow("text")->isHidden());
        QCOMPARE(layout()->closedSections(), QStringList("Place"));
        tree()->setCurrentItem(treeRow("Place"));
        QTest::keyClick(tree(), Qt::Key_Right);
        QVERIFY(!treeRow("width")->isHidden());
        QVERIFY(treeRow("height")->isHidden()); // beside the width all the same
        QVERIFY(layout()->closedSections().isEmpty());
    }

    /// What a document gives a screen are texts.
    void screensThatWereReadHaveAColourToo()
    {
        QVERIFY(m_project->loadFromBytes(
            "<Kiv_Project_T platform='QX110'><Kiv_Screen_T name='A' color='teal'/></Kiv_Project_T>",
            nullptr));
        CScreenModel *screen = m_project->screen(0);
        m_view->showItems({screen});
        QCOMPARE(shown("color"), "#008080");
        for (const char *colour : {"#80102030", "#102030"}) {
            enter(edit<QLineEdit>("color"), colour);
            QTRY_VERIFY(!tree()->viewport()->findChild<QLineEdit *>());
            QCOMPARE(screen->propertyText(PropertyKey::Color), QString(colour));
        }
        QCOMPARE(stack().count(), 2);
        stack().undo();
        stack().undo();
        QCOMPARE(shown("color"), "#008080");
        QCOMPARE(screen->propertyText(PropertyKey::Color), "teal");
    }

    void noneAndSeveralItemsShowAText()
    {
        CWidgetModel *line = show("Kiv_Line_T");
        m_view->showItems({line, m_project->screen(0)});
        QCOMPARE(tree()->topLevelItem(0)->text(0), "Multiple Items Selected");
        m_view->showItems({});
        m_view->resize(180, 300); // as a dock on a small screen: nothing is aside
        QTRY_COMPARE(tree()->viewport()->width(), tree()->header()->length());
        line->setProperty("thickness", 5); // nobody looks
        m_view->setProject(nullptr);
        QCOMPARE(tree()->topLevelItem(0)->text(0), "No Item Selected");
    }

    void lockedItemsAreNotEdited()
    {
        CWidgetModel *line = addWidget(*m_project, "Kiv_Line_T");
        line->setLocked(true);
        m_view->showItems({line});
        QVERIFY(!edit<QSpinBox>("thickness"));
        line->setLocked(false); // by the canvas, while it is shown
        QVERIFY(edit<QSpinBox>("thickness"));
    }

    void steppingIsOneStep()
    {
        CWidgetModel *line = show("Kiv_Line_T");
        auto *box = edit<QSpinBox>("thickness");
        for (int step = 0; step < 7; ++step)
            QTest::keyClick(box, Qt::Key_Up);
        QCOMPARE(stack().count(), 0);
        QCOMPARE(box->maximum(), 128);
        QTRY_COMPARE(stack().count(), 1);
        QCOMPARE(line->propertyText("thickness"), "9");

        QTest::keyPress(box, Qt::Key_Down); // held: no rest counts until it is released
        QSignalSpy rested(box->findChild<QTimer *>("rest"), &QTimer::timeout);
        QTRY_VERIFY(rested.count() >= 2);
        QCOMPARE(stack().count(), 1);
        QTest::keyRelease(box, Qt::Key_Down);
        QTRY_COMPARE(line->propertyText("thickness"), "8");
        QCOMPARE(stack().count(), 1); // it goes on with the step before ...

        auto *pause = box->findChild<QTimer *>("pause");
        QTest::keyClick(box, Qt::Key_Down);
        QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier); // ... also when it is to be undone
        QCOMPARE(line->propertyText("thickness"), "7");
        QCOMPARE(stack().count(), 1);
        const auto step = [&](int expected) {
            QTest::keyClick(box, Qt::Key_Up);
            QTRY_COMPARE(line->propertyText("thickness"), QString::number(expected));
        };
        step(8); // what is undone is over
        QCOMPARE(stack().count(), 2);
        stack().setClean(); // what is saved stays
        step(9);
        QCOMPARE(stack().count(), 3);
        QTRY_VERIFY(!pause->isActive());
        step(10);
        QCOMPARE(stack().count(), 4);
        QTest::keyClicks(box, "11\r"); // what is typed is another edit
        QTRY_COMPARE(stack().count(), 5);
        stack().setIndex(0);
        QCOMPARE(line->propertyText("thickness"), "2");
    }

    void escapeTakesTheEditBack()
    {
        CWidgetModel *line = show("Kiv_Line_T");
        auto *box = edit<QSpinBox>("thickness");
        box->selectAll();
        QTest::keyClicks(box, "99");
        QTest::keyClick(box, Qt::Key_Escape);
        QTRY_VERIFY(!tree()->viewport()->findChild<QSpinBox *>());
        auto *text = edit<QLineEdit>("name");
        QVERIFY(text);
        QTest::keyClicks(text, "other");
        QTest::keyClick(text, Qt::Key_Escape);
        QTRY_VERIFY(!tree()->viewport()->findChild<QLineEdit *>());
        QCOMPARE(line->propertyText("thickness"), "2");
        QCOMPARE(line->name(), "Line");
        QCOMPARE(stack().count(), 0);

        enter(edit<QSpinBox>("thickness"), "5"); // this is wanted
        QTRY_VERIFY(!tree()->viewport()->findChild<QSpinBox *>());
        box = edit<QSpinBox>("thickness");
        for (int index = 2; index <= 3; ++index) { // steps that come to rest, each a command
            QTest::keyClick(box, Qt::Key_Up);
            QTRY_COMPARE(stack().index(), index);
            QTRY_VERIFY(!box->findChild<QTimer *>("pause")->isActive());
        }
        QTest::keyClick(box, Qt::Key_Escape);
        QCOMPARE(line->propertyText("thickness"), "5");
        QCOMPARE(stack().index(), 1);
        QTRY_VERIFY(!tree()->viewport()->findChild<QSpinBox *>());
    }

    void switchesAndListsTakeOneClick()
    {
        CWidgetModel *clock = show("Kiv_DigitalClock_T");
        auto *box = edit<QCheckBox>("seconds");
        QVERIFY(box && box->isChecked());
        QCOMPARE(clock->propertyText("seconds"), "1");
        QCOMPARE(stack().count(), 1);
        stack().undo();
        QVERIFY(!box->isChecked());

        auto *list = edit<QComboBox>("align");
        QVERIFY(list && list->view()->isVisible());
        QTest::keyClick(list->view(), Qt::Key_Down);
        QTest::keyClick(list->view(), Qt::Key_Return);
        QTRY_COMPARE(clock->propertyText("align"), "center");
        QCOMPARE(stack().count(), 1);
        clock->setProperty("align", "fishtail"); // of a later program
        QCOMPARE(shown("align"), "Fishtail");
        QCOMPARE(stack().count(), 1);
    }

    /// With their height, also the one that there is not; chosen as any entry is.
    void fontsAreChosenFromAList()
    {
        CWidgetModel *text = show("Kiv_Text_T");
        QCOMPARE(shown("font"), QString::fromUtf8("27 · 20 px"));
        auto *list = edit<QComboBox>("font");
        QVERIFY(list && list->view()->isVisible());
        QTest::keyClick(list->view(), Qt::Key_End);
        QTest::keyClick(list->view(), Qt::Key_Return);
        QTRY_COMPARE(text->propertyText("font"), "34");
        QCOMPARE(stack().count(), 1);
        SProjectFont own;
        own.handle = 3;
        own.name = "Fancy";
        m_project->setFonts({own});
        text->setProperty("font", 3);
        QCOMPARE(shown("font"), QString::fromUtf8("3 · 24 px · Fancy"));
        m_project->setFonts({});
        QCOMPARE(shown("font"), "3");
        list = edit<QComboBox>("font");
        QCOMPARE(list->currentText(), "3");
        QCOMPARE(stack().count(), 1);
    }

    void textsOfSeveralLines()
    {
        CWidgetModel *paragraph = show("Kiv_Paragraph_T");
        auto *box = edit<QPlainTextEdit>("text");
        QVERIFY(box);
        box->selectAll();
        QTest::keyClicks(box, "one");
        QTest::keyClick(box, Qt::Key_Return);
        QTest::keyClicks(box, "two");
        QCOMPARE(stack().count(), 0);
        QTest::keyClick(box, Qt::Key_Tab);
        QCOMPARE(paragraph->propertyText("text"), "one\ntwo");
        QCOMPARE(stack().count(), 1);
        QVERIFY(shown("text").startsWith("one ") &&
                !shown("text").contains('\n')); // in its one line
    }

    /// Through every value of every kind, over rows that have none, and out at both ends; back
    /// just the same. Nobody has changed anything.
    void tabLeadsThroughThePanel()
    {
        const auto isInside = [this] {
            return tree()->viewport()->isAncestorOf(qApp->focusWidget());
        };
        const auto valueAt = [this] { // by its place: the rows of points are called alike
            QWidget *editor = qApp->focusWidget();
            while (editor->parentWidget() != tree()->viewport())
                editor = editor->parentWidget();
            return editor->geometry().translated(0, tree()->verticalScrollBar()->value()).topLeft();
        };
        QLineEdit after(m_view.get());
        after.show();
        m_view->resize(360, 1500);
        const QStringList types = m_project->library()->typeNames();
        for (const QString &type : types) {
            show(type);
            int values = 0;
            for (QTreeWidgetItemIterator row(tree()); *row; ++row)
                values += (*row)->text(1).isEmpty() && (*row)->isFirstColumnSpanned() ? 0 : 1;
            for (QTreeWidgetItemIterator row(tree()); *row; ++row) {
                if ((*row)->parent() && !(*row)->parent()->isExpanded())
                    --values; // the channels of colours
            }
            edit<QLineEdit>("name");
            QVector<QPoint> met, back;
            for (; isInside() && met.size() < 100;
                 QTest::keyClick(qApp->focusWidget(), Qt::Key_Tab))
                met.append(valueAt());
            QVERIFY2(met.size() == values, type.toUtf8());
            QVERIFY(qApp->focusWidget() != tree());
            edit<QLineEdit>("name");
            for (int value = 1; value < values; ++value)
                QTest::keyClick(qApp->focusWidget(), Qt::Key_Tab);
            for (; isInside() && back.size() < 100;
                 QTest::keyClick(qApp->focusWidget(), Qt::Key_Backtab))
                back.prepend(valueAt());
            QCOMPARE(back, met);
            QVERIFY(qApp->focusWidget() != tree());
            QCOMPARE(stack().count(), 0);
        }
    }

    /// Each of two values in a row has its editor, and Escape is for that one.
    void xBesideY()
    {
        CWidgetModel *box = show("Kiv_Rectangle_T");
        QCOMPARE(m_view->valueRect("x_coordinate").top(), m_view->valueRect("y_coordinate").top());
        enter(edit<QSpinBox>("y_coordinate"), "31");
        QCOMPARE(box->propertyText("y_coordinate"), "31");
        auto *x = edit<QSpinBox>("x_coordinate");
        x->selectAll();
        QTest::keyClicks(x, "7");
        QTest::keyClick(x, Qt::Key_Tab);
        QCOMPARE(box->propertyText("x_coordinate"), "7");
        QCOMPARE(stack().count(), 2);
        auto *y = qobject_cast<QSpinBox *>(qApp->focusWidget());
        QVERIFY(y && y->value() == 31);
        QTest::keyClicks(y, "99");
        QTest::keyClick(y, Qt::Key_Escape);
        QCOMPARE(box->propertyText("y_coordinate"), "31");
        QCOMPARE(stack().count(), 2);
        QPoint at = m_view->valueRect("y_coordinate").topLeft() + QPoint(-8, 8); // its letter
        const auto send = [&](QEvent::Type type, Qt::MouseButtons held) {
            QMouseEvent event(type, at, tree()->viewport()->mapToGlobal(at), Qt::LeftButton, held,
                              {});
            qApp->sendEvent(tree()->viewport(), &event);
        };
        send(QEvent::MouseButtonPress, Qt::LeftButton);
        for (int step = 0; step < 3; ++step, at += {5, 0})
            send(QEvent::MouseMove, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, {});
        QCOMPARE(box->propertyText("y_coordinate"), "36");
        QCOMPARE(box->propertyText("x_coordinate"), "7");
        QCOMPARE(stack().count(), 3);
        QVERIFY(!tree()->viewport()->isAncestorOf(qApp->focusWidget()));
        enter(edit<QSpinBox>("y_coordinate"), "1"); // the second was edited last
        tree()->setFocus();
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return})
            QTest::keyClick(tree(), key);
        QTest::keyClicks(qApp->focusWidget(), "50");
        QTest::keyClick(qApp->focusWidget(), Qt::Key_Return);
        QCOMPARE(box->propertyText("width"), "50");
    }

    /// The stack's action stands for the one in the window's menu.
    void undoIsTheProjectsUnlessTextIsTyped()
    {
        CWidgetModel *line = show("Kiv_Line_T");
        auto *undo = stack().createUndoAction(m_view.get());
        undo->setShortcut(QKeySequence::Undo);
        m_view->addAction(undo);
        auto *box = edit<QSpinBox>("thickness");
        QTest::keyClick(box, Qt::Key_Up);
        QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier); // a step that has not come to rest
        QCOMPARE(stack().count(), 1);
        QCOMPARE(stack().index(), 0);
        QCOMPARE(line->propertyText("thickness"), "2");
        QCOMPARE(box->value(), 2);

        stack().redo();
        auto *name = edit<QLineEdit>("name");
        name->selectAll();
        QTest::keyClicks(name, "A");
        QTest::keyClick(name, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(name->text(), "Line");
        QCOMPARE(stack().index(), 1);
    }

    void typed_data()
    {
        QTest::addColumn<QString>("key"); // of a line, unless another kind has it
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("expected"); // nothing: what was there stays
        const auto row = [](const char *name, QString key, QString typed, QString expected) {
            QTest::newRow(name) << key << typed << expected;
        };
        row("time", "time", "23:59:58", "23:59:58");
        row("time without colons", "time", "235958", "23:59:58");
        row("half away from zero", "value", "1.00185", "1.0019");
        row("half below zero away from it", "value", "-1.00185", "-1.0019");
        row("without its mark", "line_color", "ff8000", "#ff8000");
        row("with alpha", "line_color", "#80ff8000", "#80ff8000");
        row("name of a colour", "line_color", "orange", "#ffa500");
        row("no colour", "line_color", "#12345", "");
        row("nothing", "line_color", "", "");
        row("blank name", "name", "  ", "");
        row("relative", "thickness", "+4", "6");
        row("another number of the item", "thickness", "=x2_coordinate/40", "3");
        row("halves away from zero", "thickness", "5/2", "3");
        row("cut to its range", "thickness", "999", "128");
        row("decimals with a comma", "value", "1,5*2", "3");
        row("division by zero", "thickness", "8/0", "");
        row("unfinished", "value", "4+", "");
    }

    void typed()
    {
        QFETCH(QString, key);
        QFETCH(QString, typed);
        QFETCH(QString, expected);
        CWidgetModel *line = show(key == "time"    ? "Kiv_DigitalClock_T"
                                  : key == "value" ? "Kiv_Number_T"
                                                   : "Kiv_Line_T");
        if (line->hasProperty("line_color"))
            line->setProperty("line_color", "#102030");
        const QString before = line->propertyText(key);
        QVERIFY(edit<QWidget>(key));
        QWidget *editor = qApp->focusWidget();
        if (typed != "235958") // a time is typed over also without being selected
            QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
        if (typed.isEmpty())
            QTest::keyClick(editor, Qt::Key_Delete);
        for (const QChar each : qAsConst(typed)) {
            if (each == ':')
                QTest::keyClick(editor, Qt::Key_Shift);
            QTest::keyClick(editor, each.toLatin1());
        }
        const bool isNumber = qobject_cast<QAbstractSpinBox *>(editor) && key != "time";
        QTest::keyClick(editor, Qt::Key_Return);
        if (isNumber && expected.isEmpty()) { // what is wrong is told, and stays to be mended
            QVERIFY(!QToolTip::text().isEmpty() && editor->hasFocus());
            QTest::keyClick(editor, Qt::Key_Escape);
        }
        QCOMPARE(line->propertyText(key), expected.isEmpty() ? before : expected);
        QCOMPARE(shown(key), expected.isEmpty() ? before : expected);
        QCOMPARE(stack().count(), expected.isEmpty() ? 0 : 1);
    }

    /// Seen at once, one step at the end; Escape gives the old number back.
    void numbersAreDraggedByTheirNames()
    {
        CWidgetModel *line = show("Kiv_Line_T");
        const auto move = [this](int x, Qt::KeyboardModifiers keys = {}) {
            const QPoint at(x, tree()->visualItemRect(treeRow("thickness")).center().y());
            QMouseEvent event(QEvent::MouseMove, at, tree()->viewport()->mapToGlobal(at),
                              Qt::NoButton, Qt::LeftButton, keys);
            qApp->sendEvent(tree()->viewport(), &event);
        };
        const auto press = [this](QEvent::Type type, const QString &key) {
            const QPoint at(20, tree()->visualItemRect(treeRow(key)).center().y());
            QMouseEvent event(type, at, tree()->viewport()->mapToGlobal(at), Qt::LeftButton,
                              type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, {});
            qApp->sendEvent(tree()->viewport(), &event);
        };
        press(QEvent::MouseButtonPress, "thickness");
        move(22);
        move(30);
        move(37);
        QCOMPARE(line->propertyText("thickness"), "9");
        move(38, Qt::ShiftModifier);
        QCOMPARE(shown("thickness"), "19");
        QTest::keyClick(m_view.get(), Qt::Key_Escape);
        QCOMPARE(line->propertyText("thickness"), "2");
        move(60);
        press(QEvent::MouseButtonRelease, "thickness");
        QCOMPARE(stack().count(), 0);
        for (const char *key : {"thickness", "name"}) { // which is no number
            press(QEvent::MouseButtonPress, key);
            move(30);
            move(25);
            move(-2000);
            press(QEvent::MouseButtonRelease, key);
            QCOMPARE(line->propertyText("thickness"), "1");
            QCOMPARE(stack().count(), 1);
        }
        stack().undo();
        QCOMPARE(line->propertyText("thickness"), "2");
    }

    void colourByChannelAndByDialog()
    {
        CWidgetModel *line = show("Kiv_Line_T");
        QTreeWidgetItem *colour = treeRow("line_color");
        QVERIFY(!colour->icon(1).isNull()); // the swatch
        line->setProperty("line_color", "#102030");
        colour->setExpanded(true);
        auto *red = edit<QSpinBox>(colour->child(0));
        QVERIFY(red);
        enter(red, "255");
        QTRY_VERIFY(!tree()->viewport()->findChild<QSpinBox *>());
        enter(edit<QSpinBox>(colour->child(3)), "128");
        QCOMPARE(shown("line_color"), "#80ff2030");
        stack().undo();
        stack().undo();
        QCOMPARE(line->propertyText("line_color"), "#102030");
        QCOMPARE(colour->child(0)->text(1), "16");
        // In the dialog, seen in the row at once.
        auto *text = edit<QLineEdit>("line_color");
        text->findChild<QAction *>("chooseColour")->trigger();
        auto *dialog = m_view->findChild<QDialog *>();
        QVERIFY(dialog);
        auto *name = dialog->findChild<QLineEdit *>("colourName");
        enter(name, "#445566");
        QCOMPARE(shown("line_color"), "#445566");
        QCOMPARE(stack().count(), 1);
        stack().undo();
        // The same colour by another name is no edit.
        line->setProperty("line_color", "red");
        variantRow("line_color")->setValue(QColor(255, 0, 0));
        QCOMPARE(stack().count(), 1);
    }

    /// In pixels to a sixteenth; what is kept counts sixteenths.
    void sixteenthsAreShownAsPixels()
    {
        CWidgetModel *circle = show("Kiv_Circle_T");
        QCOMPARE(shown("point_size"), "32");
        QCOMPARE(treeRow("point_size")->toolTip(1), "1 to 1024");
        auto *box = edit<QDoubleSpinBox>("point_size");
        QTest::keyClick(box, Qt::Key_Up);
        QTRY_COMPARE(circle->propertyText("point_size"), "528");
        enter(box, "10.53");
        QCOMPARE(circle->propertyText("point_size"), "168");
        QCOMPARE(shown("point_size"), "10.5");
        QCOMPARE(stack().count(), 2);
        circle->setProperty("point_size", 3);
        QCOMPARE(shown("point_size"), "0.1875");
    }

    void smallDifferencesAreNoEdit()
    {
        CWidgetModel *box = show("Kiv_Rectangle_T");
        box->setProperty("angle", 1.00001);
        variantRow("angle")->setValue(1.00005);
        QCOMPARE(stack().count(), 0);
        variantRow("angle")->setValue(1.25);
        QCOMPARE(stack().count(), 1);
        QCOMPARE(shown("angle"), "1.25");
    }

    void onePointOfAList()
    {
        CWidgetModel *lines = show("Kiv_Polyline_T");
        lines->setProperty("pointlist", "10,20;broken;30,40;1,2,3;50,60");
        QTreeWidgetItem *list = treeRow("pointlist");
        QCOMPARE(list->childCount(), 3);
        auto *y = edit<QSpinBox>(list->child(1)->child(1));
        QVERIFY(y);
        QCOMPARE(y->value(), 40);
        y->setValue(44);
        QTest::keyClick(y, Qt::Key_Return);
        QCOMPARE(lines->propertyText("pointlist"), "10,20;30,44;50,60");
        QCOMPARE(stack().count(), 1);
        stack().undo();
        QCOMPARE(list->child(1)->child(1)->text(1), "40");
    }

    /// For each kind of widget and each property: a change made elsewhere, and its undoing, are
    /// shown and make no command; the text that is shown goes with the model's.
    void everyPropertyIsUndoneAndMirrored()
    {
        const QStringList types = m_project->library()->typeNames();
        for (const QString &type : types) {
            CWidgetModel *widget = show(type);
            const QVector<CWidgetProperty> templates = m_project->library()->properties(type);
            for (const CWidgetProperty &each : templates) {
                if (each.isHidden() || each.key() == PropertyKey::PointList)
                    continue;
                const QByteArray what = (type + ' ' + each.key()).toUtf8();
                QtVariantProperty *row = variantRow(each.key());
                QVERIFY2(row, what);
                const QVariant before = row->value();
                const QString text = shown(each.key());
                CWidgetProperty other = each;
                const PropertyType kind = each.propertyType();
                switch (kind) {
                case PropertyType::Bool:
                    other.setValue(!each.value().toBool());
                    break;
                case PropertyType::Enum:
                    other.setValueFromText(each.enumerationEntries().last());
                    break;
                case PropertyType::Int:
                case PropertyType::Float:
                    other.setValue(each.value().toInt() + 1);
                    break;
                default: // a text is "11:22:33" just as well
                    other.setValueFromText(kind == PropertyType::Rgb ? "#123456" : "11:22:33");
                }
                const int count = stack().index();
                row->setValue(kind == PropertyType::Enum
                                  ? QVariant(each.enumerationEntries().size() - 1)
                              : kind == PropertyType::Rgb ? QVariant(QColor(other.text()))
                                                          : other.value());
                if (row->value() == before)
                    continue; // at its limit, or an enumeration that stood at its end
                QCOMPARE(stack().index(), count + 1);
                QVERIFY2(widget->propertyText(each.key()) == other.text(), what);
                stack().undo();
                QVERIFY2(row->value() == before && shown(each.key()) == text, what);
                QVERIFY2(stack().count() == count + 1, what);
                stack().redo();
                QVERIFY2(row->value() != before, what);
                stack().undo();
            }
        }
        QVERIFY(stack().count() > 0);
    }

    void valuesBeyondTheirLimitsAreShownAsTheyAre()
    {
        CWidgetModel *line = addWidget(*m_project, "Kiv_Line_T");
        line->setProperty("thickness", 900);
        m_view->showItems({line});
        QCOMPARE(shown("thickness"), "900");
        line->setProperty("x_coordinate", -9000);
        QCOMPARE(shown("x_coordinate"), "-9000");
        QCOMPARE(treeRow("x_coordinate")->toolTip(1), "-2048 to 2048");
        QCOMPARE(stack().count(), 0);
        QCOMPARE(line->propertyText("thickness"), "900");
    }

    void filesAreChosenInTheirRow()
    {
        const QTemporaryDir folder;
        openIn(folder);
        const QString raw = written(folder.filePath("picture.raw"), QByteArray(64, 'x'));

        CWidgetModel *bitmap = show("Kiv_Bitmap_T");
        const QByteArray before = savedBytes(*m_project);
        QSignalSpy messages(m_view.get(), &CWidgetPropertiesView::message);
        auto *line = edit<QLineEdit>("filename");
        QVERIFY(line);
        auto *choose = line->findChild<QAction *>("chooseFile");
        QVERIFY(choose);
        answerWith(folder.filePath("missing.raw"));
        choose->trigger();
        QCOMPARE(stack().count(), 0);
        answerWith(raw);
        choose->trigger();
        QCOMPARE(bitmap->propertyText("filename"), raw);
        QCOMPARE(bitmap->propertyText("format"), "None");
        QCOMPARE(shown("basename"), "picture");
        QCOMPARE(stack().count(), 1);
        QVERIFY(messages.last().first().toString().contains("size is not known"));
        // A raw file has no other format to be converted into; it is only told what it holds.
        variantRow("format")->setValue(5);
        QCOMPARE(bitmap->propertyText("format"), "L8");
        QCOMPARE(stack().count(), 2);
        stack().undo();
        stack().undo();
        QCOMPARE(savedBytes(*m_project), before);
        show("Kiv_ImageButton_T");
        line = edit<QLineEdit>("basename");
        QVERIFY(line->findChild<QAction *>("chooseFile"));
    }

private:
    QTreeWidget *tree() const { return m_view->findChild<QTreeWidget *>(); }
    QTreeWidgetItem *treeRow(const QString &key) const
    {
        return tree()->findItems(key, Qt::MatchExactly).value(0);
    }
    QString shown(const QString &key) const { return treeRow(key)->text(1); }
    CPropertyLayout *layout() const { return m_view->rowLayout(); }
    void click(const QPoint &position) const
    {
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {}, position);
    }
    /// Opens the editor of a row by a click into its value.
    template<typename Editor>
    Editor *edit(QTreeWidgetItem *row) const
    {
        tree()->scrollToItem(row);
        QCoreApplication::processEvents(); // what is still to be laid out would move it
        QRect cell = m_view->valueRect(row->text(0));
        if (row->parent())
            cell = {tree()->columnViewportPosition(1), tree()->visualItemRect(row).top(), 40, 20};
        click({cell.left() + 20, cell.center().y()});
        Editor *editor = nullptr;
        for (Editor *each : tree()->viewport()->findChildren<Editor *>())
            editor = each->isVisible() ? each : editor;
        return editor;
    }
    template<typename Editor>
    Editor *edit(const QString &key) const
    {
        return edit<Editor>(treeRow(key));
    }
    /// Types in place of what is there, and confirms.
    template<typename Editor>
    static void enter(Editor *editor, const QString &text)
    {
        editor->selectAll();
        QTest::keyClick(editor, Qt::Key_Delete);
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
    }
    QtVariantProperty *variantRow(const QString &key) const
    {
        return static_cast<QtVariantProperty *>(m_view->row(key));
    }
    QUndoStack &stack() const { return *m_project->undoStack(); }
    CWidgetModel *show(const QString &type)
    {
        CWidgetModel *widget = addWidget(*m_project, type);
        m_view->showItems({widget});
        QCoreApplication::processEvents();
        return widget;
    }

    void openIn(const QTemporaryDir &folder) const
    {
        m_project->setWorkingDirectory(folder.path());
        CProjectModel::setCurrent(m_project.get()); // until it is destroyed
    }
    static QString written(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(bytes) > 0 ? path : QString();
    }
    /// Takes the file in the dialog that opens next, or closes it when there is no such file.
    void answerWith(const QString &file)
    {
        QTimer::singleShot(0, this, [file] {
            auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            dialog->setDirectory(QFileInfo(file).path());
            dialog->selectFile(file);
            if (QFile::exists(file))
                QMetaObject::invokeMethod(dialog, "accept");
            else
                dialog->reject();
        });
    }

    std::unique_ptr<CProjectModel> m_project;
    std::unique_ptr<CWidgetPropertiesView> m_view;
};

QTEST_MAIN(tst_WidgetProperties)
#include "tst_widgetproperties.moc"
