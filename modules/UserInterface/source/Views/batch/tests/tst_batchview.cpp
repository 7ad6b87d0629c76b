// The batch edit on a project of its own: what it shows, and what its fields do to all items.
#include "CBatchEditView.h"
#include "CBatchField.h"
#include "CColourDialog.h"
#include "CanvasTestSupport.h"

#include <QtWidgets>

class tst_BatchView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadWidgetLibrary(); }
    void init()
    {
        m_project = newTestProject();
        m_view = std::make_unique<CBatchEditView>();
        m_view->setProject(m_project.get());
        m_view->resize(300, 700);
        m_view->show();
        m_view->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    }
    void cleanup()
    {
        m_view.reset();
        m_project.reset();
    }

    /// Boxes 40 and 60 wide, both 30 high, and a clock.
    void fields_data()
    {
        QTest::addColumn<QString>("items"); // a box, another one, the clock, a paragraph
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("before"); // in the field, "~": mixed
        QTest::addColumn<QString>("keys");   // typed, or keys: U(p) with Shift, u(p), d(own), e(sc)
        QTest::addColumn<QString>("after");  // of the items
        const auto row = [](const char *name, const char *items, const char *key,
                            const char *before, const char *keys, const char *after) {
            QTest::newRow(name) << QString(items) << QString(key) << QString(before)
                                << QString(keys) << QString(after);
        };
        row("one number for all", "ab", "width", "~", "55", "55|55");
        row("relative", "abc", "x_coordinate", "~", "+4", "4|104|204");
        row("by each one's own", "ab", "corner", "10", "=width/4", "10|15");
        row("stepped", "ab", "width", "~", "key uUu", "52|72");
        row("stepped and taken back", "ab", "width", "~", "key ude", "");
        row("what is wrong", "ab", "width", "~", "4/0", "");
        row("untouched", "ab", "width", "~", "", "");
        row("a colour", "ab", "fill_color", "#263442", "teal", "#008080|#008080");
        row("no colour", "ab", "fill_color", "#263442", "teel", "");
        row("names", "ab", "name", "Rectangle", "Key", "Key|Key 2");
        row("a time", "cc", "time", "10:10:00", "7:05", "07:05:00|07:05:00");
        row("a switch", "c", "seconds", "0", "click", "1");
        row("a list", "c", "align", "left", "choose", "right");
        row("a font", "cc", "font", "31", "choose", "34|34");
        row("lines", "p", "text", nullptr, "one\ntwo", "one\ntwo");
    }

    void fields()
    {
        QFETCH(QString, items);
        QFETCH(QString, key);
        QFETCH(QString, before);
        QFETCH(QString, keys);
        QFETCH(QString, after);
        const QList<CItemModel *> shown = make(items);
        const QByteArray saved = savedBytes(*m_project);
        m_view->showItems(shown);
        QCoreApplication::processEvents();
        CBatchField *field = m_view->field(key);
        QVERIFY(field);
        if (!before.isNull())
            QCOMPARE(shownIn(field), before);
        QWidget *input = field->focusProxy();
        input->setFocus();
        if (keys == "click") {
            QTest::mouseClick(input, Qt::LeftButton, {}, {8, input->height() / 2});
        } else if (keys == "choose") {
            QTest::keyClick(input, Qt::Key_End);
        } else if (keys.startsWith("key ")) {
            for (const QChar each : keys.mid(4))
                QTest::keyClick(input,
                                each == 'e'   ? Qt::Key_Escape
                                : each == 'd' ? Qt::Key_Down
                                              : Qt::Key_Up,
                                each == 'U' ? Qt::ShiftModifier : Qt::NoModifier);
            if (!after.isEmpty())
                QTRY_COMPARE(stack().count(), 1); // at a rest
        } else {
            QTest::keyClick(input, Qt::Key_A, Qt::ControlModifier);
            for (const QChar each : qAsConst(keys)) {
                if (each == '\n')
                    QTest::keyClick(input, Qt::Key_Return);
                else
                    QTest::keyClick(input, each.toLatin1());
            }
            QTest::keyClick(input, Qt::Key_Return, Qt::ControlModifier);
        }
        QCOMPARE(stack().count(), after.isEmpty() ? 0 : 1);
        if (after.isEmpty()) {
            QTest::keyClick(input, Qt::Key_Escape);
            QTRY_COMPARE(shownIn(field), before);
            QCOMPARE(savedBytes(*m_project), saved);
            return;
        }
        QStringList texts;
        for (const CItemModel *each : shown)
            texts.append(each->propertyText(key));
        QCOMPARE(texts.join('|'), after);
        const bool isOne = texts.count(texts.first()) == texts.size();
        QTRY_COMPARE(shownIn(field), isOne ? texts.first() : QString("~"));
        stack().undo();
        QCOMPARE(savedBytes(*m_project), saved);
        if (!before.isNull())
            QTRY_COMPARE(shownIn(field), before);
    }

    void labelsAreDragged()
    {
        const QList<CItemModel *> items = make("ab");
        m_view->showItems(items);
        QCoreApplication::processEvents();
        QLabel *label = labelOf("width");
        const auto move = [label](int x) {
            const QPoint at(x, 5);
            QMouseEvent event(QEvent::MouseMove, at, label->mapToGlobal(at), Qt::NoButton,
                              Qt::LeftButton, {});
            qApp->sendEvent(label, &event);
        };
        QTest::mousePress(label, Qt::LeftButton, {}, {5, 5});
        move(8);
        move(18);
        QCOMPARE(items.at(1)->propertyText("width"), "70");
        QCOMPARE(stack().count(), 0);
        QTest::mouseRelease(label, Qt::LeftButton, {}, {18, 5});
        QCOMPARE(items.at(0)->propertyText("width"), "50");
        QCOMPARE(stack().count(), 1);
        stack().undo();
        QCOMPARE(items.at(1)->propertyText("width"), "60");
    }

    /// It is seen on the items, and given back when it is not taken.
    void coloursAreSeenWhileTheyAreChosen()
    {
        const QList<CItemModel *> items = make("ab");
        m_view->showItems(items);
        QCoreApplication::processEvents();
        auto *choose = m_view->field("fill_color")->findChild<QAction *>("chooseColour");
        for (const bool isTaken : {false, true}) {
            choose->trigger();
            auto *dialog = m_view->findChild<CColourDialog *>();
            QVERIFY(dialog && dialog->isVisible());
            Q_EMIT dialog->colourTried(Qt::red);
            QCOMPARE(items.at(1)->propertyText("fill_color"), "#ff0000");
            if (isTaken)
                dialog->accept();
            else
                dialog->reject();
            delete dialog;
            QCOMPARE(items.at(0)->propertyText("fill_color"), isTaken ? "#ff0000" : "#263442");
            QCOMPARE(stack().count(), isTaken ? 1 : 0);
        }
        items.at(0)->setProperty("fill_color", "blue");
        m_view->refresh();
        const QAction *mark = m_view->field("fill_color")->findChild<QLineEdit *>()->actions()[0];
        const QImage mixed = mark->icon().pixmap(16).toImage();
        m_view->setPalette(QPalette(Qt::black)); // another theme
        QVERIFY(mark->icon().pixmap(16).toImage() != mixed);
    }

    /// What only some have is behind a button; what is locked or gone is not edited.
    void whatIsShown()
    {
        const QList<CItemModel *> items = make("abc");
        m_view->showItems(items);
        QCoreApplication::processEvents();
        auto *others = m_view->findChild<QToolButton *>("others");
        others->click();
        QVERIFY(!m_view->field("fill_color"));
        others->click();
        auto *line = m_view->field("fill_color")->findChild<QLineEdit *>();
        line->selectAll();
        QTest::keyClicks(line, "red");
        m_view->commit();
        QCOMPARE(items.at(1)->propertyText("fill_color"), "#ff0000");
        items.at(0)->setLocked(true);
        m_view->refresh();
        QVERIFY(texts().contains("2 items \u00b7 1 locked, left out"));
        const QList<CItemModel *> paragraphs = make("p");
        paragraphs.first()->setProperty("text", QString("10\u00a0kW"));
        m_view->showItems(paragraphs);
        QCoreApplication::processEvents();
        m_view->commit(); // of what nobody has typed
        QVERIFY(!m_view->isBeingEdited());
        QCOMPARE(paragraphs.first()->propertyText("text"), QString("10\u00a0kW"));
        m_view->showItems(items);
        QCoreApplication::processEvents();
        m_project->screen(0)->removeRow(items.at(1)->row());
        QVERIFY(!m_view->field("name"));
        m_view->showItems({items.at(0)});
        QCoreApplication::processEvents();
        QVERIFY(texts().contains("What is selected is locked."));
    }

    /// 5,000 widgets: within what nobody waits for, also where tests share a machine.
    void manyItems()
    {
        QList<CItemModel *> items;
        for (int n = 0; n < 5000; ++n)
            items.append(appendBox(m_project->screen(0), n, 0, 40, 30));
        QElapsedTimer clock;
        clock.start();
        m_view->showItems(items);
        QCoreApplication::processEvents();
        const qint64 shown = clock.restart();
        QCOMPARE(shownIn(m_view->field("x_coordinate")), "~");
        QWidget *input = m_view->field("width")->focusProxy();
        input->setFocus();
        QTest::keyClicks(input, "+1\r");
        const qint64 changed = clock.restart();
        QCOMPARE(items.last()->propertyText("width"), "41");
        stack().undo();
        qInfo() << "shown" << shown << "ms, changed" << changed << "ms, undone" << clock.elapsed();
        QVERIFY(shown < 1000 && changed < 3000);
    }

private:
    QList<CItemModel *> make(const QString &letters)
    {
        QList<CItemModel *> items;
        for (const QChar letter : letters) {
            const int at = 100 * items.size();
            CItemModel *screen = m_project->screen(0);
            items.append(letter == 'a'   ? appendBox(screen, at, 0, 40, 30)
                         : letter == 'b' ? appendBox(screen, at, 0, 60, 30)
                         : letter == 'c'
                             ? appendWidget(screen, "Kiv_DigitalClock_T", {{PropertyKey::X, at}})
                             : addWidget(*m_project, "Kiv_Paragraph_T"));
        }
        return items;
    }
    static QString shownIn(const CBatchField *field)
    {
        const auto orMixed = [](const QString &text, const QString &placeholder) {
            return text.isEmpty() && placeholder == CBatchField::mixedText() ? "~" : text;
        };
        if (const auto *line = field->findChild<QLineEdit *>())
            return orMixed(line->text(), line->placeholderText());
        if (const auto *list = field->findChild<QComboBox *>())
            return orMixed(list->currentData().toString(), list->placeholderText());
        if (const auto *lines = field->findChild<QPlainTextEdit *>())
            return lines->toPlainText();
        const auto *box = field->findChild<QCheckBox *>();
        return !box                                        ? QString()
               : box->checkState() == Qt::PartiallyChecked ? "~"
                                                           : QString::number(box->isChecked());
    }
    QLabel *labelOf(const QString &key) const
    {
        for (QLabel *each : m_view->findChildren<QLabel *>()) {
            if (each->buddy() == m_view->field(key))
                return each;
        }
        return nullptr;
    }
    QStringList texts() const
    {
        QStringList texts;
        for (const QLabel *each : m_view->widget()->findChildren<QLabel *>())
            texts.append(each->text());
        return texts;
    }
    QUndoStack &stack() const { return *m_project->undoStack(); }

    std::unique_ptr<CProjectModel> m_project;
    std::unique_ptr<CBatchEditView> m_view;
};

QTEST_MAIN(tst_BatchView)
#include "tst_batchview.moc"
