// What a query finds in a project, what a replacement would make of it, and that no pattern of a
// user's takes for ever.
#include "CItemReplacement.h"
#include "ModelTestSupport.h"

#include <QtTest>

namespace {
using F = ESearchField;

const QByteArray document =
    "<Kiv_Project_T platform=\"QX110\" width=\"480\" height=\"272\">"
    "<fonts><font handle=\"3\" name=\"Inter\" file=\"i.ttf\"/></fonts>"
    "<Kiv_Screen_T name=\"Start\" color=\"RED\">"
    "<Test_Box_T name=\"Hello\" id=\"7\" text=\"Gr\xc3\x9c\xc3\x9f dich\" fill=\"#2d9cdb\" "
    "width=\"120\"/><Photo_T name=\"Pic\" filename=\"/home/logo.png\" basename=\"logo_1\"/>"
    "<Widget_Group_T name=\"Keys\" locked=\"1\">"
    "<Test_Circle_T name=\"Key 1\" id=\"12\" radius=\"27\"/></Widget_Group_T>"
    "<Test_Poly_T name=\"Shape\" font=\"3\"/></Kiv_Screen_T>"
    "<Kiv_Screen_T name=\"Setup\" color=\"#000000\">"
    "<Test_Box_T name=\"Room\" text=\"room room 27\" fill=\"#22dd99\" align=\"Right\" "
    "alarm=\"07:15:00\"/><Test_Poly_T name=\"Line\" font=\"27\"/>"
    "<Test_Dot_T name=\"Dot\" point_size=\"40\"/></Kiv_Screen_T></Kiv_Project_T>";

QString told(const SSearchHit &hit)
{
    return hit.item->name() + QLatin1Char('.') +
           (hit.facet.key.isEmpty() ? QStringLiteral("kind") : hit.facet.key);
}
} // namespace

class tst_ItemSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadTestLibrary(); }
    void init()
    {
        QString error;
        QVERIFY2(m_project.loadFromBytes(document, &error), qPrintable(error));
    }

    void find_data()
    {
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("flags"); // p: a pattern, c: case counts
        QTest::addColumn<QString>("found");
        const auto row = [](const char *name, F field, const char *text, const char *flags,
                            const char *found) {
            QTest::newRow(name) << int(field) << QString::fromUtf8(text) << QString(flags)
                                << QString(found);
        };
        row("case and umlauts", F::Text, "gr\xc3\xbc\xc3\x9f", "", "Hello.text");
        row("case counts", F::Text, "gr\xc3\xbc\xc3\x9f", "c", "");
        row("names, members and pages too", F::Name, "e", "",
            "Hello.name Keys.name Key 1.name "
            "Shape.name Setup.name Line.name");
        row("kind as it is called", F::Kind, "disc", "", "Key 1.kind");
        row("kind by its type", F::Kind, "Test_Poly", "", "Shape.kind Line.kind");
        row("pages and groups", F::Kind, "g", "",
            "Start.kind Keys.kind Shape.kind Setup.kind "
            "Line.kind");
        row("a property by name", F::Property, "radi", "", "Key 1.radius");
        row("with a value", F::Property, "width = 120", "", "Hello.width");
        row("compared", F::Property, "width>=40", "", "Hello.width Key 1.width Room.width");
        row("by its name for people", F::Property, "FILL", "", "Hello.fill Room.fill");
        row("sixteenths in pixels", F::Property, "point_size=2,5", "", "Dot.point_size");
        row("with decimals behind a comma", F::Property, "width<120,5", "",
            "Hello.width Key 1.width Room.width");
        row("text in a property", F::Property, "text:ROOM", "", "Room.text");
        row("a number is a whole", F::Everything, "27", "",
            "Key 1.radius Room.text Line.font"); // not 127, not "0.27"
        row("no part of a number", F::Value, "0.2", "", "");
        row("in all values", F::Value, "right", "", "Room.align");
        row("a colour by name", F::Colour, "red", "", "Start.color");
        row("a colour as it is typed", F::Colour, "#2D9", "", "Hello.fill Room.fill");
        row("a font by its name", F::Font, "inter", "", "Shape.font");
        row("a font by its number", F::Font, "27", "", "Line.font");
        row("a font is no part of one", F::Font, "2", "", "");
        row("an image by its file", F::Image, "LOGO.png", "", "Pic.basename");
        row("nothing hidden", F::Value, "7", "", "Hello.id Room.text"); // "secret" is one
        row("a pattern", F::Everything, "^k\\w+ \\d$", "p", "Key 1.name");
        row("what is no pattern", F::Everything, "^k", "", "");
        row("no text", F::Everything, "", "", "");
    }
    void find()
    {
        QFETCH(int, field);
        QFETCH(QString, text);
        QFETCH(QString, flags);
        QFETCH(QString, found);
        CItemSearch search(m_project, {text, F(field), flags.contains('p'), flags.contains('c')},
                           CItemSearch::EHits::OfItem);
        search.finish();
        QCOMPARE(search.problem(), QString());
        QStringList hits;
        for (const SSearchHit &each : search.hits())
            hits.append(told(each));
        QCOMPARE(hits.join(' '), found);
    }

    void replace_data()
    {
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("by");
        QTest::addColumn<bool>("isPattern");
        QTest::addColumn<QString>("changes"); // "!" instead of "=" where it is refused
        const auto row = [](const char *name, F field, const char *text, const char *by,
                            bool isPattern, const char *changes) {
            QTest::newRow(name) << int(field) << QString(text) << QString(by) << isPattern
                                << QString(changes);
        };
        row("each place in a text", F::Text, "ROOM", "hall", false, "Room.text=hall hall 27");
        row("groups of a pattern", F::Text, "(\\w+) (\\w+) (\\d)", "\\2-\\3\\\\", true,
            "Room.text=room-2\\7");
        row("no such group", F::Text, "r(oo)m", "\\2", true,
            "Room.text!\\2 stands for nothing: the last group of the regular expression is \\1.");
        row("sixteenths as pixels", F::Property, "point_size=2.5", "3.25", false,
            "Dot.point_size=52");
        row("what is empty", F::Name, "^", "A ", true,
            "Start.name=A Start|Hello.name=A Hello|Pic.name=A Pic|Keys.name!Locked|Key "
            "1.name!Locked|"
            "Shape.name=A Shape|Setup.name=A Setup|Room.name=A Room|Line.name=A Line|Dot.name=A "
            "Dot");
        row("pages stay apart", F::Name, "Setup", "Start", false,
            "Setup.name!Another page is called so");
        row("not to the same either", F::Name, "^S(tart|etup)$", "One", true,
            "Start.name=One|Setup.name!Another page is called so");
        row("no name", F::Name, "Room", "", false, "Room.name!A name is missing");
        row("a line end", F::Text, "room", "a\\nb", true, "Room.text!Has only one line");
        row("a locked one", F::Property, "radius", "30", false, "Key 1.radius!Locked");
        row("a number", F::Property, "width=120", "90", false, "Hello.width=90");
        row("no number", F::Property, "width=120", "wide", false, "Hello.width!Not a number");
        row("too large", F::Property, "width=120", "5000", false, "Hello.width!More than 2048");
        row("the same", F::Property, "width=120", "120", false, "Hello.width!Is so already");
        row("a choice", F::Value, "right", "left", false, "Room.align=Left");
        row("no choice", F::Value, "right", "up", false, "Room.align!None of its choices");
        row("a time", F::Value, "07:15", "08:00", false, "Room.alarm=08:00:00");
        row("a colour", F::Colour, "#22dd99", "Blue", false, "Room.fill=#0000ff");
        row("of a page", F::Colour, "red", "#fff", false, "Start.color=#ffffff");
        row("no colour", F::Colour, "red", "bleu", false, "Start.color!Not a colour");
        row("a font", F::Font, "27", "3", false, "Line.font=3");
        row("no font", F::Font, "27", "5", false, "Line.font!No font has this number");
        row("no image", F::Image, "logo", "other", false,
            "Pic.basename!No Photo_T shows an image of this name");
        row("ids stay", F::Property, "id=7", "9", false,
            "Hello.id!Each item has a number of its own");
    }
    void replace()
    {
        QFETCH(int, field);
        QFETCH(QString, text);
        QFETCH(QString, by);
        QFETCH(bool, isPattern);
        QFETCH(QString, changes);
        const SSearchQuery query{text, F(field), isPattern, false};
        CItemSearch search(m_project, query, CItemSearch::EHits::All);
        search.finish();
        CItemReplacement replacement(m_project, query, by);
        QStringList all;
        for (const SSearchHit &each : search.hits()) {
            const SReplacement change = replacement.of(each);
            QCOMPARE(change.values.isEmpty(), !change.refusal.isEmpty());
            CWidgetProperty after = each.item->properties().value(each.facet.key);
            if (!change.values.isEmpty())
                after.setValue(change.values.constFirst().after);
            all.append(told(each) +
                       (change.refusal.isEmpty() ? '=' + after.text() : '!' + change.refusal));
        }
        QCOMPARE(all.join('|'), changes);
    }

    void hostilePatterns_data()
    {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<bool>("isRead"); // to the end
        for (const char *each :
             {"(a+)+$", "(a|aa)+$", "(a*)*\\d", "(.*)(.*)(.*)(.*)\\d", "((a{0,9}){0,9}){0,9}\\d",
              "(?R)", "(a?){99}a{99}\\d", "(*LIMIT_MATCH=4000000000)(a+)+$", "(\\w\\w?)+\\d"})
            QTest::newRow(each) << QString(each) << false;
        QTest::newRow("deep") << QString(250, '(') + 'a' + QString(249, ')') << false;
        QTest::newRow("long") << QString(CTextMatcher::MaxPattern + 1, 'a') << false;
        QTest::newRow("only slow") << QString("a*\\d") << true;
    }
    /// Each is told of, and no single piece of the work takes long.
    void hostilePatterns()
    {
        QFETCH(QString, pattern);
        QFETCH(bool, isRead);
        for (int count = 0; count < 100; ++count) {
            auto *box = newWidget(m_project, QStringLiteral("Test_Box_T"));
            box->setProperty(QStringLiteral("text"), QString(CTextMatcher::MaxText - 9, 'a') + '!');
            m_project.screen(0)->appendRow(box);
        }
        CItemSearch search(m_project, {pattern, F::Everything, true, false},
                           CItemSearch::EHits::All);
        QElapsedTimer piece;
        bool isMore = true;
        for (piece.start(); isMore; piece.restart()) {
            isMore = search.advance(5);
            QVERIFY2(piece.elapsed() < 1000, qPrintable(QString::number(piece.elapsed())));
        }
        QCOMPARE(search.problem().isEmpty(), isRead);
    }

    void brokenPatternNamesThePlace()
    {
        CItemSearch search(m_project, {"ab(c", F::Name, true, false}, CItemSearch::EHits::All);
        search.finish();
        QVERIFY2(search.problem().startsWith("At character 5: "), qPrintable(search.problem()));
        QCOMPARE(search.hits().size(), 0);
    }

private:
    CProjectModel m_project;
};

QTEST_MAIN(tst_ItemSearch)
#include "tst_itemsearch.moc"
