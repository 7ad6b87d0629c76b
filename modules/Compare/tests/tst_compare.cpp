#include "ChangesText.h"
#include "ModelTestSupport.h"
#include "ProjectChanges.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <memory>

/// What is told of a change, for each way of changing a project.
class tst_Compare : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadTestLibrary(); }

    void oneChange_data();
    void oneChange();
    void pictures();
};

namespace {

const QByteArray base = R"(<?xml version="1.0" encoding="UTF-8"?>
<Kiv_Project_T name="P" platform="QX110" width="480" height="272">
 <Kiv_Screen_T name="Home" color="#000000">
  <Test_Box_T name="A" id="1" x_coordinate="10" y_coordinate="10"/>
  <Test_Box_T name="B" id="2" x_coordinate="60" y_coordinate="10"/>
  <Test_Box_T name="C" id="3" x_coordinate="110" y_coordinate="10"/>
  <Test_Dot_T name="D" x_coordinate="10" y_coordinate="90" point_size="64"/>
  <Widget_Group_T name="G">
   <Test_Circle_T name="E" id="5" x_coordinate="200" y_coordinate="90"/>
   <Test_Circle_T name="F" id="6" x_coordinate="260" y_coordinate="90"/>
  </Widget_Group_T>
 </Kiv_Screen_T>
 <Kiv_Screen_T name="Menu" color="#000000">
  <Test_Line_T name="L" id="7"/>
 </Kiv_Screen_T>
</Kiv_Project_T>
)";

std::unique_ptr<CProjectModel> loaded(const QByteArray &xml)
{
    auto project = std::make_unique<CProjectModel>();
    QString error;
    if (!project->loadFromBytes(xml, &error))
        qFatal("%s", qPrintable(error));
    return project;
}

QByteArray element(const char *start)
{
    const int from = base.indexOf(start);
    const QByteArray line = base.mid(from, base.indexOf('\n', from) + 1 - from);
    return line;
}

} // namespace

void tst_Compare::oneChange_data()
{
    using Edit = std::function<void(QByteArray &)>;
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QStringList>("lines");
    const auto row = [](const char *name, const Edit &edit, const QStringList &lines) {
        QByteArray after = base;
        edit(after);
        QTest::newRow(name) << after << lines;
    };
    const auto replaced = [](const char *from, const char *to) {
        return [=](QByteArray &xml) { xml.replace(xml.indexOf(from), int(qstrlen(from)), to); };
    };
    const QByteArray a = element("<Test_Box_T name=\"A\"");
    const QByteArray c = element("<Test_Box_T name=\"C\"");
    const QByteArray e = element("<Test_Circle_T name=\"E\"");
    const QString home = QStringLiteral("screen \"Home\": ");

    row("nothing", [](QByteArray &) {}, {});
    row("attributes in another order", replaced("name=\"A\" id=\"1\"", "id=\"1\" name=\"A\""), {});
    row("a value", replaced("name=\"A\"", "fill=\"#00ff00\" name=\"A\""),
        {home + "Test_Box_T 1 \"A\": fill: \"#ff0000\" -> \"#00ff00\""});
    row("a name", replaced("name=\"A\"", "name=\"Z\""),
        {home + "Test_Box_T 1 \"Z\": name: \"A\" -> \"Z\""});
    row("an id", replaced("id=\"2\"", "id=\"9\""),
        {home + "Test_Box_T 9 \"B\": id: \"2\" -> \"9\""});
    row("what has no id, by its place", replaced("name=\"D\"", "name=\"Y\""),
        {home + "Test_Dot_T \"Y\": name: \"D\" -> \"Y\""});
    row("an item moved", replaced("x_coordinate=\"60\"", "x_coordinate=\"61\""),
        {home + "Test_Box_T 2 \"B\": x_coordinate: \"60\" -> \"61\""});
    row("an item removed", [&](QByteArray &xml) { xml.replace(a, ""); },
        {home + "Test_Box_T 1 \"A\": removed"});
    row("an item added",
        [&](QByteArray &xml) { xml.replace(a, a + "<Test_Box_T name=\"A\" id=\"8\"/>\n"); },
        {home + "Test_Box_T 8 \"A\": added"});
    row("an item of another kind with the same id",
        replaced("<Test_Line_T name=\"L\"", "<Test_Circle_T name=\"L\""),
        {"screen \"Menu\": Test_Circle_T 7 \"L\": added",
         "screen \"Menu\": Test_Line_T 7 \"L\": removed"});
    row("one item in front of two others",
        [&](QByteArray &xml) { xml.replace(c, "").replace(a, c + a); },
        {home + "Test_Box_T 3 \"C\": in another order"});
    row("out of its group", [&](QByteArray &xml) { xml.replace(e, "").replace(a, e + a); },
        {home + "Test_Circle_T 5 \"E\": out of its group"});
    row("to another screen",
        [&](QByteArray &xml) {
            xml.replace(a, "").replace("  <Test_Line_T", a + "  <Test_Line_T");
        },
        {"screen \"Menu\": Test_Box_T 1 \"A\": from screen \"Home\""});
    row("a screen renamed", replaced("name=\"Home\"", "name=\"Start\""),
        {"screen \"Start\": name: \"Home\" -> \"Start\""});
    row("a screen that has nothing of the other",
        replaced("name=\"Menu\" color=\"#000000\">\n  <Test_Line_T name=\"L\" id=\"7\"",
                 "name=\"New\" color=\"#000000\">\n  <Test_Box_T name=\"N\" id=\"70\""),
        {"screen \"New\": added", "screen \"New\": Test_Box_T 70 \"N\": added",
         "screen \"Menu\": removed"});
    row("the project", replaced("width=\"480\"", "width=\"320\""),
        {"project: width: \"480\" -> \"320\""});
    row("a text that would break the line",
        replaced("name=\"A\"", "text=\"x&#10;&quot;\" name=\"A\""),
        {home + "Test_Box_T 1 \"A\": text: \"a <b>\" -> \"x\\n\\\"\""});
}

void tst_Compare::oneChange()
{
    QFETCH(QByteArray, after);
    QFETCH(QStringList, lines);
    const auto before = loaded(base);
    const auto later = loaded(after);
    const SProjectChanges changes = projectChanges(*before, *later);
    // Items that a group brings along when it is measured anew are no business of these rows.
    QStringList told = ChangesText::toLines(changes, {});
    told.erase(std::remove_if(told.begin(), told.end(),
                              [](const QString &line) {
                                  return line.contains(QLatin1String("Widget_Group_T"));
                              }),
               told.end());
    QCOMPARE(told, lines);
    const QJsonObject json = ChangesText::toJson(changes, {});
    QCOMPARE(json.value("equal").toBool(), changes.isEmpty());
    if (QByteArray(QTest::currentDataTag()) == "an item moved")
        QCOMPARE(changes.screens[0].items[0].kind, SItemChange::EKind::Moved);
}

void tst_Compare::pictures()
{
    QImage before(20, 10, QImage::Format_RGB32);
    before.fill(0xff336699);
    QImage after = before;
    QVERIFY(pictureDifference(before, after).isEmpty());
    after.setPixel(3, 4, 0xff336698);
    after.setPixel(11, 9, 0xff336799);
    const SPictureDifference difference = pictureDifference(before, after);
    QCOMPARE(difference.pixels, 2);
    QCOMPARE(difference.box, QRect(3, 4, 9, 6));
    const QImage shown = differencePicture(before, after);
    QVERIFY(shown.pixel(3, 4) == shown.pixel(11, 9) && shown.pixel(3, 4) != shown.pixel(0, 0));
    QCOMPARE(pictureDifference(before, after.copy(0, 0, 5, 12)).box, QRect(0, 0, 20, 12));
}

QTEST_GUILESS_MAIN(tst_Compare)
#include "tst_compare.moc"
