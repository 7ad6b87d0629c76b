#include "CStateReader.h"
#include "ChangesText.h"
#include "ItemTree.h"
#include "ModelTestSupport.h"
#include "ProjectChanges.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRandomGenerator>
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
    void randomChanges_data();
    void randomChanges();
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

QStringList changedLines(const CProjectModel &before, const CProjectModel &after)
{
    const ProjectState states[] = {CStateReader::read(before), CStateReader::read(after)};
    const SProjectChanges changes = projectChanges(*states[0], *states[1]);
    QStringList lines = ChangesText::toLines(changes, {});
    lines.sort();
    return lines;
}

/// Changes a project in one way that users have, by chance, and says what a comparison must tell.
class CRandomChange
{
public:
    CRandomChange(CProjectModel &project, quint32 seed) : m_project(project), m_random(seed) {}

    enum {
        Value,
        Name,
        Move,
        Group,
        Ungroup,
        Remove,
        Duplicate,
        CopyId,
        Reorder,
        OtherScreen,
        Guides,
        RenameScreen,
        MoveScreen,
        NewScreen,
        Setting,
        WayCount
    };

    /// Nothing when the project has no place for a change of this kind.
    QStringList make(int way)
    {
        CItemModel *screen = m_project.screen(below(m_project.screenCount()));
        QVector<CItemModel *> items;
        forEachItem(*screen, [&items](CItemModel &each) { items.append(&each); });
        CItemModel *item = items.value(1 + below(items.size() - 1));
        CItemModel *parent = item ? item->parentItem() : nullptr;
        switch (way) {
        case Value: // colours, texts, images, fonts, what is locked and hidden, whole numbers
        case Move: {
            const QStringList keys =
                way == Move ? QStringList{PropertyKey::X, PropertyKey::Y} : valueKeys(item);
            const QString key = keys.value(below(keys.size()));
            if (!item || item->kind() != CItemModel::Kind::Widget || !item->hasProperty(key))
                return {};
            return {set(item, key, QString::number(item->propertyValue(key).toInt() + 7))};
        }
        case Name:
            return item ? QStringList(set(item, PropertyKey::Name, "Other \"name\""))
                        : QStringList();
        case RenameScreen:
            return {set(screen, PropertyKey::Name, "Other")};
        case Setting:
            m_project.setProjectProperty("remark", "x");
            return {"project: remark: (none) -> \"x\""};
        case Guides:
            static_cast<CScreenModel *>(screen)->setGuides(ScreenGuides::fromText("x12"));
            return {label(screen) + "guides: (none) -> \"x12\""};
        case NewScreen:
            m_project.appendRow(new CScreenModel(&m_project));
            return {label(m_project.screen(m_project.screenCount() - 1)) + "added"};
        case MoveScreen: {
            if (m_project.screenCount() < 3)
                return {};
            QStandardItem *first = m_project.takeRow(0).first();
            m_project.appendRow(first);
            return {label(CItemModel::fromItem(first)) + "in another order"};
        }
        default:
            return item ? place(way, item, parent, screen) : QStringList();
        }
    }

private:
    int below(int end) { return end > 0 ? m_random.bounded(end) : 0; }

    static QString label(const CItemModel *item)
    {
        const CItemModel *screen = item;
        while (screen->parentItem())
            screen = screen->parentItem();
        QString text = "screen \"" + screen->name() + "\": ";
        if (item != screen) {
            QString name = item->name();
            text += item->itemTypeName() + ' ' + item->idString() +
                    (item->idString().isEmpty() ? "\"" : " \"") + name.replace('"', "\\\"") +
                    "\": ";
        }
        return text;
    }

    static QStringList valueKeys(const CItemModel *item)
    {
        QStringList keys{PropertyKey::Locked, PropertyKey::Hidden};
        if (!item)
            return keys;
        for (const CWidgetProperty &each : item->properties())
            if (!ItemGeometry::keys().contains(each.key()) && each.key() != PropertyKey::Name &&
                each.key() != PropertyKey::Id && !each.isInternal())
                keys.append(each.key());
        keys.sort();
        return keys;
    }

    static QString set(CItemModel *item, const QString &key, const QVariant &value)
    {
        const auto quoted = [item, &key] {
            return item->hasProperty(key)
                       ? '"' + item->propertyText(key).replace('"', "\\\"").replace('\n', "\\n") +
                             '"'
                       : QStringLiteral("(none)");
        };
        const QString before = quoted();
        item->setProperty(key, value);
        return label(item) + key + ": " + before + " -> " + quoted();
    }

    static QStringList told(const CItemModel *item, const QString &what)
    {
        QStringList lines;
        forEachItem(*item, [&](const CItemModel &each) { lines.append(label(&each) + what); });
        return lines;
    }

    QStringList place(int way, CItemModel *item, CItemModel *parent, CItemModel *screen)
    {
        const int row = item->row();
        const auto copy = [&](bool isFresh) {
            CItemModel *made = item->clone();
            if (isFresh)
                m_project.assignFreshIds(made);
            parent->insertRow(0, made);
            return told(made, "added");
        };
        switch (way) {
        case Duplicate:
        case CopyId:
            return copy(way == Duplicate);
        case Remove: {
            const QStringList lines = told(item, "removed");
            parent->removeRow(row);
            return lines;
        }
        case Group: {
            parent->takeRow(row);
            CWidgetGroupModel *group = newGroup(m_project, {item});
            group->setProperty(PropertyKey::Name, "New group");
            parent->insertRow(row, group);
            return {label(group) + "added", label(item) + "into group \"New group\""};
        }
        case Ungroup: {
            if (item->kind() != CItemModel::Kind::Group || parent != screen)
                return {};
            QStringList lines{label(item) + "removed"};
            parent->takeRow(row);
            while (item->rowCount() > 0) {
                QStandardItem *member = item->takeRow(item->rowCount() - 1).first();
                parent->insertRow(row, member);
                lines.append(label(CItemModel::fromItem(member)) + "out of its group");
            }
            delete item;
            return lines;
        }
        case Reorder: {
            if (row < 2)
                return {};
            parent->insertRow(0, parent->takeRow(row));
            return {label(item) + "in another order"};
        }
        default: { // to another screen
            CItemModel *other = m_project.screen((screen->row() + 1) % m_project.screenCount());
            if (other == screen)
                return {};
            other->insertRow(0, parent->takeRow(row));
            return told(item, "from screen \"" + screen->name() + '"');
        }
        }
    }

    CProjectModel &m_project;
    QRandomGenerator m_random;
};

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
    const QString home = QStringLiteral("screen \"Home\": ");

    row("attributes in another order", replaced("name=\"A\" id=\"1\"", "id=\"1\" name=\"A\""), {});
    row("an id", replaced("id=\"2\"", "id=\"9\""),
        {home + "Test_Box_T 9 \"B\": id: \"2\" -> \"9\""});
    row("what has no id, by its place", replaced("name=\"D\"", "name=\"Y\""),
        {home + "Test_Dot_T \"Y\": name: \"D\" -> \"Y\""});
    row("an item moved", replaced("x_coordinate=\"60\"", "x_coordinate=\"61\""),
        {home + "Test_Box_T 2 \"B\": x_coordinate: \"60\" -> \"61\""});
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
    row("a screen that has nothing of the other",
        replaced("name=\"Menu\" color=\"#000000\">\n  <Test_Line_T name=\"L\" id=\"7\"",
                 "name=\"New\" color=\"#000000\">\n  <Test_Box_T name=\"N\" id=\"70\""),
        {"screen \"New\": added", "screen \"New\": Test_Box_T 70 \"N\": added",
         "screen \"Menu\": removed"});
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
    const ProjectState states[] = {CStateReader::read(*before), CStateReader::read(*later)};
    const SProjectChanges changes = projectChanges(*states[0], *states[1]);
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

void tst_Compare::randomChanges_data()
{
    QTest::addColumn<QByteArray>("xml");
    for (const char *name : {"thermostat", "coffee-machine", "ev-charger"}) {
        QFile file(qEnvironmentVariable("KIV_SOURCE_DIR") + "/examples/" + name + '/' + name +
                   ".nyx");
        QVERIFY(file.open(QIODevice::ReadOnly));
        QTest::newRow(name) << file.readAll();
    }
}

/// Nothing but the change is told, also when the project was saved and read meanwhile. (The kinds
/// are not those of the tests' library, so they keep what they have.)
void tst_Compare::randomChanges()
{
    QFETCH(QByteArray, xml);
    const auto before = loaded(xml);
    QCOMPARE(changedLines(*before, *loaded(xml)), QStringList());
    int changes = 0;
    for (quint32 seed = 0; seed < 10 * CRandomChange::WayCount; ++seed) {
        const auto after = loaded(xml);
        QStringList expected =
            CRandomChange(*after, seed).make(int(seed % CRandomChange::WayCount));
        expected.sort();
        changes += expected.isEmpty() ? 0 : 1;
        const auto saved = loaded(after->saveToBytes(nullptr));
        for (const CProjectModel *each : {after.get(), saved.get()})
            QVERIFY2(
                changedLines(*before, *each) == expected,
                qPrintable(QStringLiteral("%1\n%2\ninstead of\n%3")
                               .arg(seed)
                               .arg(changedLines(*before, *each).join('\n'), expected.join('\n'))));
    }
    QVERIFY(changes > 100);
}

QTEST_GUILESS_MAIN(tst_Compare)
#include "tst_compare.moc"
