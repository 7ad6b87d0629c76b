#include "CPropertyManager.h"
#include "PropertiesTestSupport.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTimer>

#include <algorithm>

/// Edits go through the editors that a click or a key opens, as a user's do.
class tst_WidgetProperties : public CPropertiesTest
{
    Q_OBJECT

private Q_SLOTS:
    void rowsOfEachKindOfItem();
    void screensThatWereReadHaveAColourToo();
    void noneAndSeveralItemsShowAText();
    void lockedItemsAreNotEdited();
    void typedNumberIsOneStep();
    void steppingIsOneStep();
    void escapeTakesTheEditBack();
    void leavingForAnotherItemCommitsToTheFirst();
    void switchesAndListsTakeOneClick();
    void textsOfSeveralLines();
    void tabLeadsThroughThePanel();
    void undoIsTheProjectsUnlessTextIsTyped();
    void typed_data();
    void typed();
    void entriesOfAnEnumeration();
    void colourByChannelAndByDialog();
    void smallDifferencesAreNoEdit();
    void onePointOfAList();
    void pointRowsFollowTheModel();
    void everyPropertyIsUndoneAndMirrored();
    void mirroringKeepsEditorAndFocus();
    void liveGeometryMakesNoCommand();
    void valuesBeyondTheirLimitsAreShownAsTheyAre();
    void removedItemsAreForgotten();
    void unknownKindsShowTheirAttributes();
};

void tst_WidgetProperties::rowsOfEachKindOfItem()
{
    const auto rows = [this] {
        QStringList texts;
        for (int row = 0; row < tree()->topLevelItemCount(); ++row)
            texts.append(tree()->topLevelItem(row)->text(0));
        return texts;
    };
    m_view->showItems({m_project->screen(0)});
    QCOMPARE(rows(), (QStringList{"name", "type", "color"}));
    QCOMPARE(shown("type"), QStringLiteral("KIV Screen"));
    QCOMPARE(shown("color"), QStringLiteral("#000000"));
    auto *group = new CWidgetGroupModel(m_project->library(), m_project.get());
    m_project->screen(0)->appendRow(group);
    m_view->showItems({group});
    QCOMPARE(rows(), (QStringList{"name", "type", "x_coordinate", "y_coordinate"}));
    QCOMPARE(shown("type"), QStringLiteral("Widget Group"));

    // A widget: all properties of its definition but the hidden ones, in its order.
    CWidgetModel *bitmap = show("Kiv_Bitmap_T");
    QStringList keys = m_project->library()->propertyKeys("Kiv_Bitmap_T");
    QVERIFY(keys.removeAll("suffix") == 1); // hidden
    QCOMPARE(rows(), keys);
    QCOMPARE(treeRow("width")->toolTip(1), QStringLiteral("1 to 2048"));
    m_view->showIndexes({m_project->screen(0)->index()});
    QCOMPARE(rows().size(), 3);
    m_view->showIndexes({bitmap->index()});
    QCOMPARE(rows(), keys);
    QCOMPARE(stack().count(), 0);
}

/// What a document gives a screen are texts.
void tst_WidgetProperties::screensThatWereReadHaveAColourToo()
{
    QVERIFY(m_project->loadFromBytes(
        "<Kiv_Project_T platform='QX110'><Kiv_Screen_T name='A' color='teal'/></Kiv_Project_T>",
        nullptr));
    CScreenModel *screen = m_project->screen(0);
    m_view->showItems({screen});
    QCOMPARE(shown("color"), QStringLiteral("#008080"));
    QCOMPARE(treeRow("color")->childCount(), 4);
    for (const char *colour : {"#80102030", "#102030"}) {
        enter(edit<QLineEdit>("color"), colour);
        QTRY_VERIFY(!tree()->viewport()->findChild<QLineEdit *>());
        QCOMPARE(screen->propertyText(PropertyKey::Color), QString(colour));
    }
    QCOMPARE(stack().count(), 2);
    stack().undo();
    stack().undo();
    QCOMPARE(shown("color"), QStringLiteral("#008080"));
    QCOMPARE(screen->propertyText(PropertyKey::Color), QStringLiteral("teal"));
    QVERIFY(savedBytes(*m_project).contains("color=\"teal\""));
    QCOMPARE(stack().count(), 2);
}

void tst_WidgetProperties::noneAndSeveralItemsShowAText()
{
    CWidgetModel *line = show("Kiv_Line_T");
    m_view->showItems({line, m_project->screen(0)});
    QCOMPARE(tree()->topLevelItemCount(), 1);
    QCOMPARE(tree()->topLevelItem(0)->text(0), QStringLiteral("Multiple Items Selected"));
    m_view->showItems({});
    QCOMPARE(tree()->topLevelItemCount(), 1);
    QCOMPARE(tree()->topLevelItem(0)->text(0), QStringLiteral("No Item Selected"));
    m_view->resize(180, 300); // as a dock on a small screen: nothing is aside
    QTRY_COMPARE(tree()->viewport()->width(), tree()->header()->length());
    line->setProperty("thickness", 5); // nobody looks
    m_view->setProject(nullptr);
    QCOMPARE(tree()->topLevelItem(0)->text(0), QStringLiteral("No Item Selected"));
}

void tst_WidgetProperties::lockedItemsAreNotEdited()
{
    CWidgetModel *line = addWidget(*m_project, "Kiv_Line_T");
    line->setLocked(true);
    m_view->showItems({line});
    QVERIFY(!m_view->isEnabled());
    QVERIFY(!edit<QSpinBox>("thickness"));
    line->setLocked(false); // by the canvas, while it is shown
    QVERIFY(m_view->isEnabled());
    QVERIFY(edit<QSpinBox>("thickness"));
}

void tst_WidgetProperties::typedNumberIsOneStep()
{
    CWidgetModel *line = show("Kiv_Line_T");
    auto *box = edit<QSpinBox>("thickness");
    QVERIFY(box);
    QCOMPARE(box->minimum(), 1);
    QCOMPARE(box->maximum(), 128);
    box->selectAll();
    QTest::keyClicks(box, "12");
    QCOMPARE(stack().count(), 0); // not while typing
    QTest::keyClick(box, Qt::Key_Return);
    QCOMPARE(line->propertyText("thickness"), QStringLiteral("12"));
    QCOMPARE(stack().count(), 1);
    QCOMPARE(stack().undoText(), QStringLiteral("Change Property Line thickness"));
    QTRY_VERIFY(!tree()->viewport()->findChild<QSpinBox *>());
    QCOMPARE(stack().count(), 1);
}

void tst_WidgetProperties::steppingIsOneStep()
{
    CWidgetModel *line = show("Kiv_Line_T");
    auto *box = edit<QSpinBox>("thickness");
    for (int step = 0; step < 7; ++step)
        QTest::keyClick(box, Qt::Key_Up);
    QCOMPARE(box->value(), 9);
    QCOMPARE(stack().count(), 0);
    QTRY_COMPARE(stack().count(), 1);
    QCOMPARE(line->propertyText("thickness"), QStringLiteral("9"));

    QTest::keyPress(box, Qt::Key_Down); // held: no rest counts until it is released
    QSignalSpy rested(box->findChild<QTimer *>("rest"), &QTimer::timeout);
    box->stepDown();
    QTRY_VERIFY(rested.count() >= 2);
    QCOMPARE(stack().count(), 1);
    QTest::keyRelease(box, Qt::Key_Down);
    QTRY_COMPARE(stack().count(), 2);
    QCOMPARE(line->propertyText("thickness"), QStringLiteral("7"));
}

void tst_WidgetProperties::escapeTakesTheEditBack()
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
    QCOMPARE(line->propertyText("thickness"), QStringLiteral("2"));
    QCOMPARE(line->name(), QStringLiteral("Line"));
    QCOMPARE(stack().count(), 0);

    enter(edit<QSpinBox>("thickness"), "5"); // this is wanted
    QTRY_VERIFY(!tree()->viewport()->findChild<QSpinBox *>());
    box = edit<QSpinBox>("thickness");
    for (int index = 2; index <= 3; ++index) { // steps that come to rest, each a command
        QTest::keyClick(box, Qt::Key_Up);
        QTRY_COMPARE(stack().index(), index);
    }
    QTest::keyClick(box, Qt::Key_Escape);
    QCOMPARE(line->propertyText("thickness"), QStringLiteral("5"));
    QCOMPARE(stack().index(), 1);
    QTRY_VERIFY(!tree()->viewport()->findChild<QSpinBox *>());
}

void tst_WidgetProperties::leavingForAnotherItemCommitsToTheFirst()
{
    CWidgetModel *first = show("Kiv_Line_T");
    CWidgetModel *second = addWidget(*m_project, "Kiv_Line_T");
    QTest::keyClick(edit<QSpinBox>("thickness"), Qt::Key_Up);
    m_view->showItems({second});
    QCOMPARE(first->propertyText("thickness"), QStringLiteral("3"));
    QCOMPARE(second->propertyText("thickness"), QStringLiteral("2"));
    QTRY_VERIFY(!tree()->viewport()->findChild<QSpinBox *>());
    QCOMPARE(stack().count(), 1);
}

void tst_WidgetProperties::switchesAndListsTakeOneClick()
{
    CWidgetModel *clock = show("Kiv_DigitalClock_T");
    auto *box = edit<QCheckBox>("seconds");
    QVERIFY(box && box->isChecked());
    QCOMPARE(clock->propertyText("seconds"), QStringLiteral("1"));
    QCOMPARE(stack().count(), 1);
    QTest::keyClick(box, Qt::Key_Space);
    QCOMPARE(clock->propertyText("seconds"), QStringLiteral("0"));
    stack().undo();
    QVERIFY(box->isChecked());
    QCOMPARE(stack().count(), 2);

    auto *list = edit<QComboBox>("align");
    QVERIFY(list && list->view()->isVisible());
    QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Return);
    QTRY_COMPARE(clock->propertyText("align"), QStringLiteral("center"));
    QCOMPARE(stack().count(), 2);
}

void tst_WidgetProperties::textsOfSeveralLines()
{
    CWidgetModel *paragraph = show("Kiv_Paragraph_T");
    auto *box = edit<QPlainTextEdit>("text");
    QVERIFY(box);
    QVERIFY(box->height() > 3 * box->fontMetrics().lineSpacing());
    QVERIFY(tree()->viewport()->rect().contains(box->geometry()));
    box->selectAll();
    QTest::keyClicks(box, "one");
    QTest::keyClick(box, Qt::Key_Return);
    QTest::keyClicks(box, "two");
    QCOMPARE(stack().count(), 0);
    QTest::keyClick(box, Qt::Key_Tab);
    QCOMPARE(paragraph->propertyText("text"), QStringLiteral("one\ntwo"));
    QCOMPARE(stack().count(), 1);
    QVERIFY(shown("text").startsWith("one ") && !shown("text").contains('\n')); // in its one line
    QVERIFY(!edit<QPlainTextEdit>("name"));
}

/// Through every editor of the clock, over rows that have none, and out at both ends.
void tst_WidgetProperties::tabLeadsThroughThePanel()
{
    const auto isInside = [this] { return tree()->viewport()->isAncestorOf(qApp->focusWidget()); };
    const auto currentRow = [this] { return tree()->currentItem()->text(0); };
    QLineEdit after(m_view.get());
    after.show();
    for (const char *type : {"Kiv_DigitalClock_T", "Kiv_Polyline_T"}) {
        show(type);
        QStringList rows;
        for (QTreeWidgetItem *row = tree()->topLevelItem(0); row; row = tree()->itemBelow(row)) {
            if (row->text(0) != "pointlist" && row->text(0) != "point")
                rows.append(row->text(0));
        }
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
            edit<QLineEdit>(tree()->topLevelItem(0));
            while (key == Qt::Key_Backtab && currentRow() != rows.last())
                QTest::keyClick(qApp->focusWidget(), Qt::Key_Tab);
            QStringList met;
            while (isInside() && met.size() < 100) {
                met.append(currentRow());
                QTest::keyClick(qApp->focusWidget(), key);
            }
            if (key == Qt::Key_Backtab)
                std::reverse(met.begin(), met.end());
            QCOMPARE(met, rows);
            QVERIFY(qApp->focusWidget() != tree());
        }
        QCOMPARE(stack().count(), 0);
    }
}

/// The stack's action stands for the one in the window's menu.
void tst_WidgetProperties::undoIsTheProjectsUnlessTextIsTyped()
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
    QCOMPARE(line->propertyText("thickness"), QStringLiteral("2"));
    QCOMPARE(box->value(), 2);

    stack().redo();
    auto *name = edit<QLineEdit>("name");
    name->selectAll();
    QTest::keyClicks(name, "A");
    QTest::keyClick(name, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(name->text(), QStringLiteral("Line"));
    QCOMPARE(stack().index(), 1);
}

void tst_WidgetProperties::typed_data()
{
    QTest::addColumn<QString>("key"); // of a line, unless another kind has it
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("expected"); // nothing: what was there stays
    const auto row = [](const char *name, QString key, QString typed, QString expected) {
        QTest::newRow(name) << key << typed << expected;
    };
    row("time", "time", "23:59:58", "23:59:58");
    row("time without colons", "time", "235958", "23:59:58");
    row("time of single figures", "time", "07:08:09", "07:08:09");
    row("rounded up", "value", "12.34567", "12.3457");
    row("rounded down", "value", "12.34561", "12.3456");
    row("half away from zero", "value", "1.00185", "1.0019");
    row("half below zero away from it", "value", "-1.00185", "-1.0019");
    row("text", "name", "Wall", "Wall");
    row("opaque", "line_color", "#FF8000", "#ff8000");
    row("without its mark", "line_color", "ff8000", "#ff8000");
    row("with alpha", "line_color", "#80ff8000", "#80ff8000");
    row("name of a colour", "line_color", "orange", "#ffa500");
    row("no colour", "line_color", "#12345", "");
    row("nothing", "line_color", "", "");
    row("blank name", "name", "  ", "");
}

void tst_WidgetProperties::typed()
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
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(line->propertyText(key), expected.isEmpty() ? before : expected);
    QCOMPARE(shown(key), expected.isEmpty() ? before : expected);
    QCOMPARE(stack().count(), expected.isEmpty() ? 0 : 1);
}

void tst_WidgetProperties::entriesOfAnEnumeration()
{
    CWidgetModel *arrow = show("Kiv_Arrow_T");
    auto *box = edit<QComboBox>("ends");
    QVERIFY(box);
    QCOMPARE(box->count(), 3);
    QTest::keyClick(box, Qt::Key_Down);
    QTest::keyClick(box, Qt::Key_Down);
    QTRY_COMPARE(stack().count(), 1);
    QCOMPARE(arrow->propertyValue("ends"), QVariant("none")); // the name, never the index
    QCOMPARE(shown("ends"), QStringLiteral("none"));
    stack().undo();
    QCOMPARE(arrow->propertyText("ends"), QStringLiteral("end"));
    QCOMPARE(box->currentIndex(), 0);
    QCOMPARE(shown("ends"), QStringLiteral("end"));
    arrow->setProperty("ends", "fishtail"); // of a later program
    QCOMPARE(shown("ends"), QStringLiteral("fishtail"));
    QCOMPARE(box->currentText(), QStringLiteral("fishtail"));
    QCOMPARE(stack().count(), 1);
}

void tst_WidgetProperties::colourByChannelAndByDialog()
{
    CWidgetModel *line = show("Kiv_Line_T");
    QTreeWidgetItem *colour = treeRow("line_color");
    QVERIFY(!colour->isExpanded());
    QVERIFY(!colour->icon(1).isNull()); // the swatch
    QCOMPARE(colour->childCount(), 4);
    line->setProperty("line_color", "#102030");
    colour->setExpanded(true);
    auto *red = edit<QSpinBox>(colour->child(0));
    QVERIFY(red);
    enter(red, "255");
    QCOMPARE(line->propertyText("line_color"), QStringLiteral("#ff2030"));
    QCOMPARE(stack().count(), 1);
    QTRY_VERIFY(!tree()->viewport()->findChild<QSpinBox *>());
    enter(edit<QSpinBox>(colour->child(3)), "128");
    QCOMPARE(line->propertyText("line_color"), QStringLiteral("#80ff2030"));
    QCOMPARE(shown("line_color"), QStringLiteral("#80ff2030"));
    stack().undo();
    stack().undo();
    QCOMPARE(line->propertyText("line_color"), QStringLiteral("#102030"));
    QCOMPARE(colour->child(0)->text(1), QStringLiteral("16"));
    // The same colour by another name is no edit.
    line->setProperty("line_color", "red");
    variantRow("line_color")->setValue(QColor(255, 0, 0));
    QCOMPARE(stack().count(), 2);
}

void tst_WidgetProperties::smallDifferencesAreNoEdit()
{
    CWidgetModel *box = show("Kiv_Rectangle_T");
    box->setProperty("angle", 1.00001);
    variantRow("angle")->setValue(1.00005);
    QCOMPARE(stack().count(), 0);
    variantRow("angle")->setValue(1.25);
    QCOMPARE(stack().count(), 1);
    QCOMPARE(shown("angle"), QStringLiteral("1.25"));
    auto *spin = edit<QDoubleSpinBox>("angle");
    QVERIFY(spin);
    QVERIFY(!spin->text().contains("0000"));
    enter(spin, QStringLiteral("45") + spin->locale().decimalPoint() + "5");
    QCOMPARE(box->angle(), 45.5);
    QCOMPARE(stack().count(), 2);
}

void tst_WidgetProperties::onePointOfAList()
{
    CWidgetModel *lines = show("Kiv_Polyline_T");
    lines->setProperty("pointlist", "10,20;broken;30,40;1,2,3;50,60");
    QTreeWidgetItem *list = treeRow("pointlist");
    QCOMPARE(list->childCount(), 3);
    QCOMPARE(list->child(1)->text(0), QStringLiteral("point"));
    auto *y = edit<QSpinBox>(list->child(1)->child(1));
    QVERIFY(y);
    QCOMPARE(y->value(), 40);
    QCOMPARE(y->minimum(), 0);
    y->setValue(44);
    QTest::keyClick(y, Qt::Key_Return);
    QCOMPARE(lines->propertyText("pointlist"), QStringLiteral("10,20;30,44;50,60"));
    QCOMPARE(stack().count(), 1);
    stack().undo();
    QCOMPARE(list->child(1)->child(1)->text(1), QStringLiteral("40"));
}

void tst_WidgetProperties::pointRowsFollowTheModel()
{
    CWidgetModel *lines = show("Kiv_Polyline_T");
    QTreeWidgetItem *list = treeRow("pointlist");
    for (const char *const text : {"1,2;3,4;5,6;7,8;9,10;11,12", "9,8;7,6", "", "-5,3;x,4;5,5"}) {
        lines->setProperty("pointlist", text);
        QStringList points;
        for (int row = 0; row < list->childCount(); ++row)
            points.append(list->child(row)->child(0)->text(1) + ',' +
                          list->child(row)->child(1)->text(1));
        QCOMPARE(points.join(';'), QString(text).replace('x', '0'));
    }
    QCOMPARE(stack().count(), 0);
}

/// For each kind of widget and each property: a change made elsewhere, and its undoing, are shown
/// and make no command; the text that is shown goes with the model's.
void tst_WidgetProperties::everyPropertyIsUndoneAndMirrored()
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
            if (kind == PropertyType::Rgb)
                other.setValueFromText("#123456");
            else if (kind == PropertyType::Time)
                other.setValueFromText("11:22:33");
            else if (kind == PropertyType::Bool)
                other.setValue(!each.value().toBool());
            else if (kind == PropertyType::Enum)
                other.setValueFromText(each.enumerationEntries().last());
            else if (kind == PropertyType::String)
                other.setValueFromText("other");
            else
                other.setValue(each.value().toInt() + 1);
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

void tst_WidgetProperties::mirroringKeepsEditorAndFocus()
{
    CWidgetModel *line = show("Kiv_Line_T");
    auto *box = edit<QSpinBox>("x_coordinate");
    QVERIFY(box->hasFocus());
    const QPointer<QSpinBox> editor = box;
    const int rows = tree()->topLevelItemCount();
    QTreeWidgetItem *row = treeRow("x_coordinate");
    for (int x = 1; x <= 50; ++x)
        line->setProperty("x_coordinate", x);
    QVERIFY(editor);
    QVERIFY(editor->hasFocus());
    QCOMPARE(editor->value(), 50);
    QCOMPARE(treeRow("x_coordinate"), row);
    QCOMPARE(tree()->topLevelItemCount(), rows);
    QCOMPARE(stack().count(), 0);
}

void tst_WidgetProperties::liveGeometryMakesNoCommand()
{
    CWidgetModel *box = show("Kiv_Rectangle_T");
    box->setProperty("x_coordinate", 10.4, CItemModel::Notify::No);
    box->setWidth(77);
    box->setAngle(30);
    box->notifyGeometryChanged();
    QCOMPARE(shown("x_coordinate"), QStringLiteral("10"));
    QCOMPARE(shown("width"), QStringLiteral("77"));
    QCOMPARE(shown("angle"), QStringLiteral("30"));
    CWidgetModel *disc = show("Kiv_Circle_T");
    disc->setRadius(16.5);
    disc->notifyGeometryChanged();
    QCOMPARE(shown("point_size"), QStringLiteral("264"));
    box->notifyGeometryChanged(); // not the one that is shown
    QCOMPARE(stack().count(), 0);
}

void tst_WidgetProperties::valuesBeyondTheirLimitsAreShownAsTheyAre()
{
    CWidgetModel *line = addWidget(*m_project, "Kiv_Line_T");
    line->setProperty("thickness", 900);
    m_view->showItems({line});
    QCOMPARE(shown("thickness"), QStringLiteral("900"));
    line->setProperty("x_coordinate", -9000);
    QCOMPARE(shown("x_coordinate"), QStringLiteral("-9000"));
    QCOMPARE(treeRow("x_coordinate")->toolTip(1), QStringLiteral("-2048 to 2048"));
    m_project->setProjectProperty(PropertyKey::Platform, "QX100");
    m_view->renew();
    QCOMPARE(treeRow("x_coordinate")->toolTip(1), QStringLiteral("-512 to 512"));
    QCOMPARE(shown("x_coordinate"), QStringLiteral("-9000"));
    QCOMPARE(stack().count(), 0);
    QCOMPARE(line->propertyText("thickness"), QStringLiteral("900"));
}

void tst_WidgetProperties::removedItemsAreForgotten()
{
    CWidgetModel *line = show("Kiv_Line_T");
    QTest::keyClick(edit<QSpinBox>("thickness"), Qt::Key_Up);
    line->setMoving(true);
    m_project->screen(0)->takeRow(0);
    m_project->screen(0)->appendRow(line);
    line->setMoving(false);
    QCOMPARE(m_view->currentItemModel(), line);
    m_project->removeRow(0); // its screen
    QCOMPARE(m_view->currentItemModel(), nullptr);
    QCOMPARE(tree()->topLevelItem(0)->text(0), QStringLiteral("No Item Selected"));
    QCOMPARE(stack().count(), 0);
}

void tst_WidgetProperties::unknownKindsShowTheirAttributes()
{
    QDomDocument xml;
    QVERIFY(xml.setContent(QStringLiteral("<Screen><Kiv_Later_T name='n' glow='7'/></Screen>")));
    CScreenModel *screen = m_project->buildScreen(xml.documentElement(), 1);
    m_view->showItems({screen->childItem(0)});
    QVERIFY(treeRow("glow"));
    QCOMPARE(shown("glow"), QStringLiteral("7"));
}

QTEST_MAIN(tst_WidgetProperties)
#include "tst_widgetproperties.moc"
