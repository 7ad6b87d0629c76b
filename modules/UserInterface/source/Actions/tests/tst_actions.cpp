#include "CActionFinder.h"
#include "CFoundList.h"
#include "CKeyField.h"
#include "CShortcutDialog.h"
#include "CShortcutMap.h"
#include "CWindowActions.h"
#include "FuzzyMatch.h"

#include <QTest>
#include <QtWidgets>

namespace {
/// "one=Ctrl+1; F2" and so on; in their order.
CShortcutMap mapOf(const QStringList &defaults)
{
    CShortcutMap map;
    for (const QString &each : defaults)
        map.addAction(each.section('=', 0, 0), QKeySequence::listFromString(each.section('=', 1)));
    return map;
}

QString shown(const CShortcutMap &map)
{
    QStringList all;
    for (const QString &id : map.ids())
        all << id + '=' + QKeySequence::listToString(map.keys(id));
    return all.join(' ');
}
} // namespace

class tst_Actions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ranking_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QStringList>("names");    // "Name | place"
        QTest::addColumn<QStringList>("expected"); // those that match, best first
        const auto row = [](const char *what, const char *typed, const QStringList &names,
                            const QStringList &expected) {
            QTest::newRow(what) << QString(typed) << names << expected;
        };
        row("the name itself", "copy", {"Copy Style", "Photocopy", "Copy"},
            {"Copy", "Copy Style", "Photocopy"});
        row("beginning before middle", "signal", {"No signal", "Signal strength"},
            {"Signal strength", "No signal"});
        row("initials", "bf", {"Subframe", "Bring to Front", "Bring Forward"},
            {"Bring Forward", "Bring to Front", "Subframe"});
        row("humps and digits", "t2", {"Text 12", "KivText2", "Text"}, {"KivText2", "Text 12"});
        row("words in any order", "left align", {"Align Left", "Align Right", "Distribute Left"},
            {"Align Left"});
        row("what is left out in the middle", "dist horiz",
            {"Distribute Vertically", "Distribute Horizontally"}, {"Distribute Horizontally"});
        row("the menu helps, less than the name", "grid type",
            {"Type | Grid", "Grid Type", "Type | Theme"}, {"Grid Type", "Type"});
        row("scattered letters are no match", "open",
            {"Outline of the upper eastern panel", "Open"}, {"Open"});
        row("nor are they beside the name", "sel",
            {"Schedule | Page", "Pump | Diesel", "All | Select", "Selected"}, {"Selected", "All"});
        row("case, spaces", "  ALIGN   le", {"align left"}, {"align left"});
        row("other letters", "\u00dcb", {"\u00fcber"}, {"\u00fcber"});
        row("not there", "xq", {"Text"}, {});
        row("the shorter of two", "page", {"Page settings", "Page 1"}, {"Page 1", "Page settings"});
        row("long ones", "a", {QString(5000, 'b') + 'a', "a"}, {"a"});
    }

    void ranking()
    {
        QFETCH(QString, typed);
        QFETCH(QStringList, names);
        QFETCH(QStringList, expected);
        QVector<CFoundList::SEntry> entries;
        QObject owner;
        for (const QString &each : names)
            entries.append(
                {each.section(" | ", 0, 0), each.section(" | ", 1), new QAction(&owner)});
        QStringList found;
        for (const int each : CFoundList::ranked(entries, typed.toUtf8(), {}))
            found << entries[each].name;
        QCOMPARE(found, expected);
    }

    void shortcutTexts_data()
    {
        QTest::addColumn<QStringList>("texts");
        QTest::addColumn<QString>("expected"); // keys of one, two and three
        QTest::addColumn<QStringList>("kept");
        const QString plain = "one=Ctrl+1 two=Ctrl+2; F2 three=";
        const auto row = [](const char *what, const QStringList &texts, const QString &expected,
                            const QStringList &kept) {
            QTest::newRow(what) << texts << expected << kept;
        };
        row("none", {}, plain, {});
        row("changed, and one without keys", {"three=Ctrl+Shift+X", "two="},
            "one=Ctrl+1 two= three=Ctrl+Shift+X", {"two=", "three=Ctrl+Shift+X"});
        row("as it was", {"one=Ctrl+1"}, plain, {});
        row("exchanged", {"one=F2", "two=Ctrl+2; Ctrl+1"},
            "one=F2 two=Ctrl+2; Ctrl+1 three=", {"one=F2", "two=Ctrl+2; Ctrl+1"});
        row("what the user chose goes before what it came with", {"three=Ctrl+1"},
            "one= two=Ctrl+2; F2 three=Ctrl+1", {"one=", "three=Ctrl+1"});
        row("the first of two", {"three=F9", "one=F9"},
            "one=F9 two=Ctrl+2; F2 three=", {"one=F9", "three="});
        row("the beginning of others", {"one=Ctrl+K", "three=Ctrl+K, Ctrl+L"},
            "one=Ctrl+K two=Ctrl+2; F2 three=", {"one=Ctrl+K", "three="});
        row("of actions that are not there", {"later=F7", "one=F6"},
            "one=F6 two=Ctrl+2; F2 three=", {"one=F6", "later=F7"});
        row("no texts of this kind",
            {"", "=", "one", "one=nonsense", "one=Ctrl+", "two=Shift", "<b>=F1", "=F3",
             "one=" + QString(400, 'F'), "three=@Variant(x)", "one=\u202e"},
            plain, {});
        row("more than it may have", {"three=F3; F4; F5; F6; F7; F8; F3"},
            "one=Ctrl+1 two=Ctrl+2; F2 three=F3; F4; F5; F6", {"three=F3; F4; F5; F6"});
    }

    /// The settings may hold anything; what comes of it comes again from what is then kept, also
    /// by way of a file.
    void shortcutTexts()
    {
        QFETCH(QStringList, texts);
        QFETCH(QString, expected);
        QFETCH(QStringList, kept);
        CShortcutMap map = mapOf({"one=Ctrl+1", "two=Ctrl+2; F2", "three="});
        map.setTexts(texts);
        QCOMPARE(shown(map), expected);
        QCOMPARE(map.toTexts(), kept);
        const auto ofFile = CShortcutMap::textsOfFile(map.toFile().replace("\n", "\r\n"));
        QVERIFY(ofFile);
        map.setTexts(*ofFile);
        QCOMPARE(shown(map), expected);
        QVERIFY(!CShortcutMap::textsOfFile("one=F1\n"));
        map.resetAll();
        QCOMPARE(shown(map), "one=Ctrl+1 two=Ctrl+2; F2 three=");
    }

    /// Actions are found wherever they come from, and take their keys; those without an id keep
    /// theirs.
    void actionsOfAWindow()
    {
        QMainWindow window;
        const auto make = [&window](const char *id, const char *text, const char *keys) {
            auto *action = new QAction(text, &window);
            action->setObjectName(id);
            action->setShortcut(QKeySequence(keys));
            return action;
        };
        QMenu *menu = window.menuBar()->addMenu("&File");
        QMenu *below = menu->addMenu("E&xport (&X)");
        below->addAction(make("salt", "&Salt && Pepper", "Ctrl+1"));
        below->addSeparator();
        menu->addAction(make("", "Nameless", "Ctrl+2"));
        window.addAction(make("own", "Own", "Ctrl+3"));
        menu->addAction(window.actions().first()); // in both
        CWindowActions actions(&window);
        QStringList found;
        for (const auto &each : actions.all())
            found << each.menu + "/" + each.text;
        QCOMPARE(found.join("; "), QString::fromUtf8("File › Export/Salt & Pepper; File/Nameless; "
                                                     "File/Own"));
        actions.setShortcutTexts({"salt=Ctrl+3", "own=Ctrl+1", "later=F3"});
        below->addAction(make("later", "Later", "F4"));
        const auto keys = [&] {
            QStringList all;
            for (const auto &each : actions.all())
                all << each.action->shortcut().toString();
            return all.join(' ');
        };
        QCOMPARE(keys(), "Ctrl+3 F4 Ctrl+2 Ctrl+1"); // it has come too late ...
        actions.setShortcuts(actions.shortcuts());
        QCOMPARE(keys(), "Ctrl+3 F3 Ctrl+2 Ctrl+1"); // ... but its text was kept
        CShortcutMap map = actions.shortcuts();
        map.resetAll();
        actions.setShortcuts(map);
        QCOMPARE(keys(), "Ctrl+1 F4 Ctrl+2 Ctrl+3");
    }

    /// By keys alone: found, pressed, told that another has it, taken all the same.
    void dialogByKeys()
    {
        QObject owner;
        QVector<CWindowActions::SAction> actions;
        for (const char *id : {"one", "two", "three"})
            actions.append({new QAction(&owner), id, QString("Do ") + id, "Menu"});
        const CShortcutMap map = mapOf({"one=Ctrl+1", "two=Ctrl+2; F2", "three="});
        CShortcutDialog dialog(actions, map, {{QKeySequence("Tab"), "it is fixed"}});
        for (QLineEdit *each : dialog.findChildren<QLineEdit *>())
            each->setClearButtonEnabled(
                false); // its fading would outlive the program and be a leak
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        int helps = 0;
        connect(&dialog, &CShortcutDialog::helpWanted, this, [&helps] { ++helps; });
        auto *message = dialog.findChild<QLabel *>("shortcutMessage");
        const auto press = [](int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);
        };
        const auto find = [&](const QString &text) {
            auto *search = dialog.findChild<QLineEdit *>("shortcutSearch");
            search->setFocus();
            search->clear();
            QTest::keyClicks(search, text);
        };
        find("three");
        press(Qt::Key_F1);
        QCOMPARE(helps, 1);
        press(Qt::Key_Return);
        press(Qt::Key_Control); // alone it is none
        press(Qt::Key_Tab);
        QCOMPARE(shown(dialog.map()), shown(map));
        QVERIFY(message->text().contains("it is fixed"));
        press(Qt::Key_2, Qt::ControlModifier);
        QVERIFY(message->text().contains("Do two"));
        QCOMPARE(shown(dialog.map()), shown(map)); // told before it takes effect
        press(Qt::Key_Escape);
        press(Qt::Key_Tab); // from the list past the field, which would take the next Tab as keys
        QCOMPARE(QApplication::focusWidget()->objectName(), QString("shortcutChange"));
        press(Qt::Key_Backtab);
        press(Qt::Key_Return); // of the list
        QVERIFY(dialog.isVisible());
        QCOMPARE(shown(dialog.map()), shown(map));
        press(Qt::Key_2, Qt::ControlModifier);
        press(Qt::Key_2, Qt::ControlModifier);
        QCOMPARE(shown(dialog.map()), "one=Ctrl+1 two=F2 three=Ctrl+2");
        find("ctrl+1"); // by its keys
        dialog.findChild<QPushButton *>("shortcutAdd")->click();
        press(Qt::Key_F1);
        QCOMPARE(shown(dialog.map()), "one=Ctrl+1; F1 two=F2 three=Ctrl+2");
        find("two");
        dialog.findChild<QPushButton *>("shortcutReset")->click();
        QCOMPARE(shown(dialog.map()), "one=Ctrl+1; F1 two=Ctrl+2; F2 three=");
        dialog.findChild<QPushButton *>("shortcutResetAll")->click();
        QCOMPARE(shown(dialog.map()), shown(map));

        // Of what is imported: told before it takes effect.
        const auto import = [&](const char *texts, int answer) {
            const QTemporaryDir folder;
            QFile file(folder.filePath("a.keys"));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(CShortcutMap().toFile() + texts));
            file.close();
            message->setProperty("told", QString());
            QTimer::singleShot(0, &dialog, [&] {
                if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                    message->setProperty("told", box->informativeText());
                    QTest::keyClick(box, Qt::Key(answer));
                }
            });
            dialog.importFrom(file.fileName());
            QCoreApplication::processEvents();
        };
        import("one=F9\ntwo=Tab; F8\nthree=F9", Qt::Key_Escape);
        QCOMPARE(message->property("told").toString(),
                 "F9 are the keys for \"Do one\", and \"Do three\" does not have them.\n"
                 "Tab cannot be changed: it is fixed.");
        QCOMPARE(shown(dialog.map()), shown(map));
        import("one=F9\ntwo=Tab; F8\nthree=F9", Qt::Key_Return);
        QCOMPARE(shown(dialog.map()), "one=F9 two=F8 three=");
        import("one=F2\ntwo=Ctrl+1", Qt::Key_Escape);
        QCOMPARE(message->property("told").toString(), "");
        QCOMPARE(shown(dialog.map()), "one=F2 two=Ctrl+1 three=");
        QVERIFY(!message->text().contains("nothing"));
        import("one=F2\nother=F3\nGroup Selected\ntwo=Nokey", Qt::Key_Return);
        QCOMPARE(message->text().section('\n', 1),
                 "3 of its 4 lines say nothing here: other=F3, Group Selected, two=Nokey");
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
    }
};

QTEST_MAIN(tst_Actions)
#include "tst_actions.moc"
