#include "CXmlGuard.h"
#include "ModelTestSupport.h"
#include "ScreenDocuments.h"

#include <QDomDocument>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QUndoStack>

#include <memory>

namespace {
QByteArray saved(const CProjectModel &project)
{
    QString error;
    const QByteArray xml = project.saveToBytes(&error);
    return error.isEmpty() ? xml : QByteArray("error: ") + error.toUtf8();
}

bool load(CProjectModel &project, const QByteArray &xml)
{
    QString error;
    const bool loaded = project.loadFromBytes(xml, &error);
    return loaded && error.isEmpty();
}

} // namespace

/// The project and its document.
class tst_ProjectModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadTestLibrary(); }

    void platformRelinksEveryItem()
    {
        CProjectModel project;
        project.newProject({{PropertyKey::Platform, QStringLiteral("QX100")}});
        auto *box = newWidget(project, "Test_Box_T");
        project.screen(0)->appendRow(newGroup(project, {box}));
        const auto &manager = CWidgetLibraryManager::instance();
        QCOMPARE(box->library(), manager.libraryModel(0x100));
        const auto definition = [box] { // of what differs between the chips
            const CItemModel::PropertySet &all = box->properties();
            return QString("%1 %2 %3 %4=%5")
                .arg(all["x_coordinate"].maximum().toString(),
                     all["y_coordinate"].maximum().toString(),
                     all["align"].enumerationEntries().join('|'),
                     all["hush"].isHidden() ? "-" : "hush", all["align"].text());
        };
        box->setProperty("align", "Right");
        QCOMPARE(definition(), QString("2048 1024 Left|Right hush=Right"));
        project.setProjectProperty(PropertyKey::Platform, "QX112");
        QCOMPARE(box->library(), manager.libraryModel(0x112));
        QCOMPARE(definition(), QString("4096 2048 Left|Middle|Right -=Right"));
        project.setProjectProperty(PropertyKey::Platform, "unheard of");
        QCOMPARE(box->library(), manager.libraryModel(0x100));
        project.setProjectProperty(PropertyKey::Platform, "QX1zz");
        QVERIFY(!box->library());
        QCOMPARE(static_cast<IModelItem *>(box)->renderCommands(), "");
        QVERIFY(load(project, saved(project)));
    }

    void whatIsInternalIsNotSaved()
    {
        CProjectModel project;
        project.newProject({{PropertyKey::Platform, "QX110"}, {"zone", "b"}, {"area", "a"}});
        auto *box = newWidget(project, "Test_Box_T");
        box->setProperty("secret", 99);
        project.screen(0)->appendRow(newGroup(project, {box}));
        const QByteArray xml = saved(project);
        QVERIFY(xml.startsWith("<Kiv_Project_T platform=\"QX110\" area=\"a\" zone=\"b\">\n"));
        CProjectModel again;
        QVERIFY(load(again, xml));
        const CItemModel *read = again.screen(0)->childItem(0)->childItem(0);
        QCOMPARE(read->propertyText("secret"), "7");
        QVERIFY(read->isGrouped() && !read->isSelectable());
    }

    void readsScreensAndItems()
    {
        CProjectModel project;
        QVERIFY(load(project,
                     "<?xml version='1.0'?><!-- c --><Kiv_Project_T height='99' platform='QX101'>"
                     "<Kiv_Screen_T color='teal' name='One' id='7' "
                     "working_directory='x'/><Else><Kiv_Screen_T/></Else>"
                     "<Kiv_Screen_T/><Kiv_Screen_T name='Page 1'>text<Widget_Group_T "
                     "x_coordinate='5' name='G'>"
                     "<Test_Dot_T name='D' point_size='32' x='8' y='3' "
                     "y_coordinate='4'/><Widget_Group_T/></Widget_Group_T></Kiv_Screen_T>"
                     "</Kiv_Project_T>"));
        QCOMPARE(project.screenCount(), 3);
        QVERIFY(project.saveToBytes(nullptr).contains(" working_directory=\"x\"")); // not lost
        QCOMPARE(project.screen(1)->text(), "Page 2"); // a name of its own
        const CItemModel *group = project.screen(2)->childItem(0);
        QCOMPARE(group->x(), 5.0);
        QCOMPARE(group->properties()[PropertyKey::X].propertyType(), PropertyType::Int);
        const CItemModel *dot = group->childItem(0);
        QCOMPARE(dot->radius(), 2.0);
        QCOMPARE(QPointF(dot->x(), dot->y()), QPointF(8, 4)); // "x" is short for "x_coordinate"
        QCOMPARE(dot->propertyText(PropertyKey::X), "8");
        QVERIFY(!dot->hasProperty(PropertyKey::ShortX));
    }

    void attributeOrderDoesNotMatter()
    {
        const QByteArray forward =
            "x_coordinate='5' x2_coordinate='9' radius='17' width='80' resizeable='0' angle='7'";
        QByteArrayList parts = forward.split(' ');
        QStringList results;
        std::sort(parts.begin(), parts.end());
        do {
            CProjectModel project;
            QVERIFY(load(project, "<Kiv_Project_T platform='QX110'><Kiv_Screen_T><Test_Circle_T " +
                                      parts.join(' ') + "/></Kiv_Screen_T></Kiv_Project_T>"));
            results += describe(project);
            QCOMPARE(project.screen(0)->childItem(0)->propertyText(PropertyKey::Radius), "17");
        } while (std::next_permutation(parts.begin(), parts.end()) && results.size() < 200);
        QCOMPARE(results.removeDuplicates(), 199);
    }

    void keepsWhatItDoesNotKnow()
    {
        const QByteArray xml =
            "<Kiv_Project_T platform=\"QX110\" team=\"b\">\n"
            " <Kiv_Screen_T name=\"P\" color=\"#000000\" screen_bm_ts=\"\" mood=\"good\">\n"
            "  <Future_T angle=\"045\" height=\"1.5\" name=\"F\" radius=\"08\" width=\"034\"/>\n"
            "  <Test_Dot_T name=\"D\" x_coordinate=\"0\" y_coordinate=\"0\" point_size=\"64\" "
            "bounce=\"yes &amp; no\"/>\n"
            " </Kiv_Screen_T>\n"
            "</Kiv_Project_T>\n";
        CProjectModel project;
        QVERIFY(load(project, xml));
        QCOMPARE(saved(project), xml);
    }

    void guides_data()
    {
        QTest::addColumn<QString>("document"); // then what is made of it; empty: just that
        QTest::addColumn<QString>("meant");
        QTest::newRow("all") << "x120 y-40,#ff8800 x120,locked y9,#000000,locked"
                             << "";
        QTest::newRow("hostile") << "x16384 x16385 y-99999999999 x y5.5 xy7 z9 X1 , x1x "
                                    "y2,#12,later,locked x3,#80ff0000 x0x10 x+4 "
                                 << "x16384 y2,locked x3,#ff0000 x4";
        QTest::newRow("many") << QString("x7 ").repeated(100000) << QString("x7 ").repeated(200);
        QTest::newRow("long") << "x" + QString("0").repeated(100000) << " ";
    }

    void guides()
    {
        QFETCH(QString, document);
        QFETCH(QString, meant);
        const QString text = (meant.isEmpty() ? document : meant).trimmed();
        const QString attribute = QString("guides=\"%1\"").arg(document);
        CProjectModel project;
        QVERIFY(load(
            project,
            QString("<Kiv_Project_T><Kiv_Screen_T %1/></Kiv_Project_T>").arg(attribute).toUtf8()));
        CScreenModel *screen = project.screen(0);
        QCOMPARE(ScreenGuides::text(screen->guides()), text);
        QVERIFY(saved(project).contains(attribute.toUtf8())); // until they are changed
        QVERIFY(!screen->hasProperty(PropertyKey::Guides));
        for (int i = 0; i < screen->propertyCount(); ++i)
            QVERIFY(qstrcmp(screen->property(i)->name(), "guides") != 0);

        const std::unique_ptr<CItemModel> copy(screen->clone());
        QCOMPARE(static_cast<CScreenModel *>(copy.get())->guides(), screen->guides());
        const auto page = ScreenDocuments::pageFile(ScreenDocuments::ofPageFile({screen}));
        QCOMPARE(project.buildScreen(page->children.front(), -1)->guides(), screen->guides());
        QDomDocument dom;
        project.save(dom);
        CProjectModel byDom;
        QVERIFY(byDom.load(dom));
        QCOMPARE(byDom.screen(0)->guides(), screen->guides());

        const QByteArray before = saved(project);
        QSignalSpy told(&project, &CProjectModel::guidesChanged);
        ScreenGuideList guides = screen->guides().mid(0, 3);
        guides.append({Qt::Horizontal, 999999, QColor(1, 2, 3, 4), true}); // brought into bounds
        screen->setGuides(guides);
        QCOMPARE(screen->guides().last(),
                 (SScreenGuide{Qt::Horizontal, SScreenGuide::Farthest, QColor(1, 2, 3), true}));
        screen->setGuides(guides + ScreenGuides::fromText(QString("y1 ").repeated(300)));
        QCOMPARE(screen->guides().size(), SScreenGuide::MostOfScreen);
        QCOMPARE(told.count(), 2);
        QCOMPARE(ScreenGuides::fromText(ScreenGuides::text(screen->guides())), screen->guides());
        screen->setGuides({});
        QVERIFY(saved(project).count("guides=") == before.count("guides=") - 1);
    }

    void fonts()
    {
        const QByteArray list = " <fonts>\n"
                                "  <font handle=\"0\" name=\"Brand\" file=\"P_Fonts/b.ttf\" "
                                "size=\"13.5\" bits=\"4\" axes=\"wght=700\" fallback=\"7,1\" "
                                "extra=\"0-9 , .\"/>\n"
                                "  <font handle=\"7\" name=\"\" file=\"/f.otf\" size=\"24\" "
                                "bits=\"8\" axes=\"\" fallback=\"\" extra=\"\"/>\n"
                                " </fonts>\n";
        const QByteArray xml = "<Kiv_Project_T platform=\"QX110\">\n" + list +
                               " <Kiv_Screen_T name=\"P\" color=\"#000000\" "
                               "screen_bm_ts=\"\"/>\n</Kiv_Project_T>\n";
        CProjectModel project;
        QVERIFY(load(project, xml));
        QCOMPARE(saved(project), xml);
        QDomDocument document;
        project.save(document);
        CProjectModel byDocument;
        QVERIFY(byDocument.load(document));
        QCOMPARE(saved(byDocument), xml);

        QStringList given;
        CScreenModel *screen = project.screen(0);
        for (int i = 0; i < screen->propertyCount(); ++i) {
            if (qstrcmp(screen->property(i)->name(), "fonts") == 0)
                given.append(screen->property(i)->valueText());
        }
        QCOMPARE(given, QStringList("0\tBrand\tP_Fonts/b.ttf\t13.5\t4\twght=700\t7,1\t0-9 , .\n"
                                    "7\t\t/f.otf\t24\t8\t\t\t"));

        // Nothing of what somebody has written by hand is lost, as far as it can be meant.
        QVERIFY(load(project, "<Kiv_Project_T><fonts><font handle='99' size='1e9' bits='3'/>"
                              "<font handle='0' size='nan' fallback='0,x,16,-1,2'/>"
                              "<font handle='0' name='a&#9;b'/><odd/></fonts></Kiv_Project_T>"));
        QCOMPARE(ProjectFonts::rendererText(project.fonts()),
                 QString("0\t\t\t24\t8\t\t0,2\t\n1\t\t\t256\t8\t\t\t\n2\ta b\t\t24\t8\t\t\t"));
    }

    void refusedDocuments()
    {
        CProjectModel project;
        project.newProject({{PropertyKey::Platform, "QX110"}});
        project.screen(0)->appendRow(newWidget(project, "Test_Box_T"));
        project.undoStack()->push(new QUndoCommand);
        const QString before = describe(project);
        QSignalSpy removed(&project, &QAbstractItemModel::rowsRemoved);
        QSignalSpy cleared(&project, &QAbstractItemModel::modelReset);
        QByteArray many; // as many as may be read, and then there are those that every screen has
        for (int i = 0; i < CXmlGuard::MaxAttributesOfElement; ++i)
            many += " a" + QByteArray::number(i) + "=\"\"";
        for (const QByteArray &xml :
             {QByteArray(), "<Kiv_Project_T><Kiv_Screen_T" + many + "/></Kiv_Project_T>",
              QByteArray("hello"), QByteArray("<project><Kiv_Project_T/></project>"),
              QByteArray("<Kiv_Project_T><Kiv_Screen_T>"), // cut, and an error at the very end
              QByteArray("<Kiv_Project_T><Kiv_Screen_T/></Kiv_Project_T><x"),
              QByteArray("<ScreenSave><Screen/></ScreenSave>")}) {
            QString error;
            QVERIFY2(!project.loadFromBytes(xml, &error), xml.left(80).constData());
            QVERIFY(!error.isEmpty());
            QVERIFY(!CProjectModel::isProjectDocument(xml, nullptr));
        }
        QCOMPARE(describe(project), before);
        QCOMPARE(removed.count() + cleared.count(), 0);
        QCOMPARE(project.undoStack()->count(), 1);
    }

    void tooDeepToBeReadBack()
    {
        CProjectModel project;
        project.newProject({});
        CItemModel *inner = newGroup(project, {});
        CItemModel *outer = inner;
        for (int i = 0; i < 300; ++i)
            outer = newGroup(project, {outer});
        project.screen(0)->appendRow(outer);
        QString error;
        QVERIFY(project.saveToBytes(&error).isEmpty());
        QVERIFY(error.contains("256"));
    }

    void filesAndFolders()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath("demo.nyx");
        const QString images = QStringLiteral("demo_ConvertedImages/L8");
        const auto imageFolder = [](const CScreenModel *screen) {
            return screen->childItem(0)->propertyText(PropertyKey::BitmapFolder);
        };
        CProjectModel project;
        project.newProject({});
        project.setWorkingDirectory(folder.path());
        auto *box = newWidget(project, "Test_Box_T");
        project.screen(0)->appendRow(box);
        box->setProperty(PropertyKey::BitmapFolder, folder.filePath(images));
        QString error;
        QVERIFY2(project.saveToFile(path, &error), qPrintable(error));
        const QByteArray bytes = project.saveToBytes(&error, path);
        QVERIFY(!bytes.contains(folder.path().toUtf8())); // nothing of the place where it lies
        QVERIFY(bytes.contains("bfolder=\"demo_ConvertedImages/L8\""));

        QTemporaryDir other; // moved or checked out elsewhere
        const QString moved = other.filePath("demo.nyx");
        QVERIFY(QFile::copy(path, moved));
        CProjectModel opened;
        QVERIFY2(opened.loadFromFile(moved, &error), qPrintable(error));
        QCOMPARE(opened.workingDirectory(), other.path());
        QCOMPARE(opened.absoluteFolder(imageFolder(opened.screen(0))), other.filePath(images));
        QCOMPARE(opened.saveToBytes(&error, moved), bytes);
        const auto copy =
            ScreenDocuments::pageFile(ScreenDocuments::ofPageFile({opened.screen(0)}));
        QCOMPARE(imageFolder(project.buildScreen(copy->children.front(), -1)),
                 other.filePath(images)); // found from any project

        const QString outside[] = {"/elsewhere", other.path() + "x/a", other.path() + "/../a", ""};
        for (const QString &each : outside)
            QCOMPARE(opened.storedFolder(each), each);
        QCOMPARE(opened.storedFolder(other.path()), ".");

        QVERIFY(
            !project.saveToFile(folder.path(), &error)); // failures name the file, change nothing
        QVERIFY(error.contains(folder.path()));
        const QString before = describe(project);
        QVERIFY(!project.loadFromFile(folder.filePath("none.nyx"), &error));
        QVERIFY(error.contains("none.nyx"));
        QCOMPARE(describe(project), before);
    }
};

QTEST_MAIN(tst_ProjectModel)
#include "tst_projectmodel.moc"
