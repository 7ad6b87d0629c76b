#include "CModelIterator.h"
#include "ItemTree.h"
#include "ModelTestSupport.h"

#include <QSignalSpy>

#include <memory>

namespace {
QHash<QByteArray, QByteArray> seenByRenderer(IModelItem *item)
{
    QHash<QByteArray, QByteArray> seen;
    for (int i = 0; i < item->propertyCount(); ++i)
        seen.insert(item->property(i)->name(), item->property(i)->valueText());
    return seen;
}
} // namespace

/// Items: the geometry that follows from their properties, copies, groups, and the walk.
class tst_ItemModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadTestLibrary(); }

    void init()
    {
        m_project = std::make_unique<CProjectModel>();
        m_project->newProject({{PropertyKey::Platform, QStringLiteral("QX110")}});
    }

    void cleanup() { m_project.reset(); }

    void sizes()
    {
        // A kind, a property set, then the item's width, height and radius, and the text of the
        // property that defines its size.
        using Row = std::tuple<QString, QString, QVariant, QVector<double>, QString>;
        const Row cases[] = {
            {"Test_Dot_T", "point_size", 256, {32, 32, 16}, "point_size=256"},
            {"Test_Dot_T", "point_size", -32, {4, 4, 2}, "point_size=-32"},
            {"Test_Dot_T", "width", 33, {33, 33, 16.5}, "point_size=264"},
            {"Test_Circle_T", "radius", -7, {14, 14, 7}, "radius=-7"},
            {"Test_Circle_T", "radius", "8", {16, 16, 8}, "radius=8"},
            {"Test_Circle_T", "width", 34, {34, 34, 17}, "radius=17"},
            {"Test_Circle_T", "height", 34, {34, 34, 17}, "radius=17"},
            {"Test_Circle_T", "width", 35, {35, 35, 18}, "radius=18"}, // away from zero
            {"Test_Box_T", "width", 34, {34, 30, 0}, "width=34"},
            {"Test_Box_T", "height", 34, {40, 34, 0}, "height=34"},
            {"Test_Line_T", "width", 25.4, {25.4, 20, 0}, "x2_coordinate=35"},
            {"Test_Line_T", "height", -8, {40, -8, 0}, "y2_coordinate=12"},
            {"Test_Line_T", "x2_coordinate", 110, {100, 20, 0}, "x2_coordinate=110"},
            {"Test_Line_T", "x_coordinate", 40, {10, 20, 0}, "x2_coordinate=50"},
            {"Test_Box_T", "width", 1e300, {1e300, 30, 0}, "width=2147483647"},
        };
        for (const auto &[type, key, value, sizes, defining] : cases) {
            CWidgetModel *item = add(newWidget(*m_project, type));
            item->setProperty(key, value);
            QCOMPARE((QVector<double>{item->width(), item->height(), item->radius()}), sizes);
            const QString name = defining.section(QLatin1Char('='), 0, 0);
            QCOMPARE(name + QLatin1Char('=') + item->propertyText(name), defining);
        }
    }

    void sizeOfGesture()
    {
        CWidgetModel *box = add(newWidget(*m_project, "Test_Box_T"));
        QSignalSpy spy(m_project.get(), &CProjectModel::propertyChanged);
        box->setWidth(50.4); // live: the picture follows the pointer, the property stays whole
        QCOMPARE(box->width(), 50.4);
        QCOMPARE(box->propertyText(PropertyKey::Width), "50");
        QCOMPARE(spy.count(), 1);
        box->setWidth(50.3);
        QCOMPARE(spy.count(), 1); // the same whole number
    }

    void numbersThatAreNone()
    {
        CWidgetModel *box = add(newWidget(*m_project, "Test_Box_T"));
        for (const QVariant &none :
             {QVariant("wide"), QVariant(qQNaN()), QVariant(qInf()), QVariant()}) {
            for (const QString &key : {PropertyKey::X, PropertyKey::Width, PropertyKey::Height}) {
                box->setProperty(key, none);
                QVERIFY(ItemGeometry::frameOf(*box).width() == 0 || key != PropertyKey::Width);
                QVERIFY(qIsFinite(box->x()) && qIsFinite(ItemGeometry::frameOf(*box).bottom()));
            }
        }
    }

    void keysThatMeanMore()
    {
        CWidgetModel *box = add(newWidget(*m_project, "Test_Box_T"));
        box->setProperty("x", 111); // short for x_coordinate
        box->setProperty("y", 222);
        QCOMPARE(QPointF(box->x(), box->y()), QPointF(111, 222));
        QCOMPARE(box->propertyText(PropertyKey::X), "111");
        QVERIFY(!box->hasProperty("y"));
        box->setProperty(PropertyKey::Resizeable, false); // makes it round
        QVERIFY(!box->isResizeable());
        QCOMPARE(box->geometryMode(), GeometryMode::Radius);
        box->setProperty(PropertyKey::Width, 64);
        QCOMPARE(box->height(), 64.0);
    }

    void missingPropertyComesAndGoes()
    {
        CWidgetModel *dot = add(newWidget(*m_project, "Test_Dot_T"));
        const QString before = describe(*dot);
        dot->setProperty("note", "mine");
        QCOMPARE(dot->propertyText("note"), "mine");
        dot->setProperty("note", QVariant()); // as an undo does
        QCOMPARE(describe(*dot), before);
        dot->setProperty(PropertyKey::Name, QVariant());
        QVERIFY(dot->hasProperty(PropertyKey::Name)); // the kind's own stay
    }

    void aLockIsAPropertyAndHoldsInAGroup()
    {
        CWidgetModel *poly = newWidget(*m_project, "Test_Poly_T"); // has it by its kind
        CWidgetModel *dot = newWidget(*m_project, "Test_Dot_T");
        auto *inner = newGroup(*m_project, {newWidget(*m_project, "Test_Box_T")});
        auto *group = add(newGroup(*m_project, {poly, dot, inner}));
        const QString before = describe(*group);
        for (CItemModel *each :
             {static_cast<CItemModel *>(poly), static_cast<CItemModel *>(inner)}) {
            each->setLocked(true);
            QCOMPARE(each->propertyText(PropertyKey::Locked), "1");
        }
        QVERIFY(inner->childItem(0)->isUnderLock() && !inner->childItem(0)->isLocked());
        QVERIFY(!dot->isUnderLock());
        poly->setLocked(false);
        inner->setLocked(false);
        QVERIFY(poly->hasProperty(PropertyKey::Locked) && !inner->hasProperty(PropertyKey::Locked));
        QCOMPARE(describe(*group), before);
        inner->setHidden(true);
        QVERIFY(inner->childItem(0)->isUnderHidden() && !inner->childItem(0)->isHidden());
        QCOMPARE(countItems(*screen()).hidden, 1);
        CModelIterator canvas;
        canvas.setRoot(screen(), CModelIterator::EHidden::LeftOut);
        for (canvas.next(); canvas.currentItem(); canvas.next())
            QVERIFY(!canvas.currentItem()->isUnderHidden());
        inner->setHidden(false);
        QVERIFY(!inner->hasProperty(PropertyKey::Hidden)); // documents are as before
        screen()->setProperty(PropertyKey::Locked, 1); // by hand, in a file: nothing could undo it
        QVERIFY(!dot->isUnderLock());
    }

    void boundsOfGroup()
    {
        auto *box = newWidget(*m_project, "Test_Box_T");       // (10, 20) 40 x 30
        auto *circle = newWidget(*m_project, "Test_Circle_T"); // about (0, 0), 40 x 40
        QCOMPARE(ItemGeometry::frameOf(*circle), QRectF(-20, -20, 40, 40));
        const CItemModel *group = add(newGroup(*m_project, {box, circle}));
        QCOMPARE(ItemGeometry::frameOf(*group), QRectF(-20, -20, 70, 70));
        CWidgetModel text("Kiv_Text_T", nullptr, nullptr); // of a kind without a size
        QCOMPARE(ItemGeometry::frameOf(text), QRectF(0, 0, 15, 15));
        text.setProperty(PropertyKey::Font, 16); // 4 pixels a character
        text.setProperty("text", "ten chars.");
        QCOMPARE(ItemGeometry::frameOf(text), QRectF(0, 0, 40, 8));
    }

    void rendererSeesEverything()
    {
        m_project->setWorkingDirectory("/somewhere");
        IModelItem *page = screen();
        const QHash<QByteArray, QByteArray> expected = {{"name", "Page 1"},
                                                        {"color", "#000000"},
                                                        {"screen_bm_ts", ""},
                                                        {"working_directory", "/somewhere"}};
        QCOMPARE(seenByRenderer(page), expected);
        QVERIFY(!screen()->hasProperty(PropertyKey::WorkingDirectory));
        CWidgetProperty own(PropertyKey::WorkingDirectory, PropertyType::String);
        own.setValue("/of/a/document");
        screen()->addProperty(own); // kept, but not what the renderer sees
        QCOMPARE(seenByRenderer(page), expected);
        QCOMPARE(page->propertyCount(), 4);

        CWidgetModel *box = add(newWidget(*m_project, "Test_Box_T"));
        box->setProperty(PropertyKey::Id, 42);
        IModelItem *item = box;
        QCOMPARE(item->idText(), "42");
        QCOMPARE(item->renderCommands(), "disc(x_coordinate, 1 < 2, \"\xC3\xA4\")");
    }

    void rendererGetsScreenColorsInOneForm()
    {
        const std::pair<const char *, QByteArray> cases[] = {{"#FFF", "#ffffff"},
                                                             {"#80ff0000", "#80ff0000"}};
        for (const auto &[stored, seen] : cases) {
            CWidgetProperty asLoaded(PropertyKey::Color, PropertyType::String);
            asLoaded.setValueFromText(QString::fromLatin1(stored));
            screen()->addProperty(asLoaded);
            QCOMPARE(seenByRenderer(screen()).value("color"), seen);
            QCOMPARE(screen()->propertyText(PropertyKey::Color), QString::fromLatin1(stored));
        }
    }

    void propertyIndexSurvivesChanges()
    {
        CWidgetModel *box = add(newWidget(*m_project, "Test_Box_T"));
        for (int round = 0; round < 3; ++round) {
            const CItemModel::PropertySet kept =
                box->properties(); // shared: the next change moves all
            box->setProperty(PropertyKey::X, round);
            box->setProperty(QStringLiteral("extra%1").arg(round), round);
            const auto seen = seenByRenderer(box);
            QCOMPARE(seen.size(), box->properties().size());
            for (auto each = seen.begin(); each != seen.end(); ++each)
                QCOMPARE(each.value(), box->propertyText(QString::fromUtf8(each.key())).toUtf8());
        }
    }

    void walkIsBackToFront()
    {
        const auto named = [this](const QString &name) {
            auto *item = newWidget(*m_project, "Test_Dot_T");
            item->setProperty(PropertyKey::Name, name);
            return item;
        };
        add(named("a"));
        add(newGroup(*m_project, {named("b"), newGroup(*m_project, {named("d")}), named("c")}));
        add(newGroup(*m_project, {}));
        add(named("f"));
        CModelIterator iterator(screen());
        QVERIFY(iterator.current() == screen());
        QStringList names;
        for (iterator.next(); iterator.current(); iterator.next())
            names += iterator.currentItem()->name();
        const QString group = "Widget Group";
        QCOMPARE(names, QStringList({"f", group, "c", "d", group, "b", group, "a"}));
        iterator.next();
        QVERIFY(!iterator.current());

        screen()->setProperty(PropertyKey::BaseName, "none"); // only widgets count
        screen()->childItem(0)->setProperty(PropertyKey::BaseName, "sky");
        QCOMPARE(countItems(*screen()).widgets, 5);
        QCOMPARE(countItems(*screen()).bitmaps, 1);
    }

private:
    CScreenModel *screen() { return m_project->screen(0); }
    template<class Item>
    Item *add(Item *item)
    {
        screen()->appendRow(item);
        return item;
    }

    std::unique_ptr<CProjectModel> m_project;
};

QTEST_MAIN(tst_ItemModel)
#include "tst_itemmodel.moc"
