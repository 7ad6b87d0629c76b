#include "ModelTestSupport.h"
#include "ScreenDocuments.h"

#include <QFile>
#include <QTemporaryDir>

#include <memory>

/// Documents of screens and items outside a project, and damaged documents through all readers:
/// nothing crashes, and what is accepted can be saved and read back as the same. A failure prints
/// the seed of its round.
class tst_ModelFuzz : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void projects();
    void copies();
    void libraries();
    void copiedScreens();
    void copiedItems();
    void pageFile();
    void malformedCopies();

private:
    QByteArray mutated(const QByteArray &source, QRandomGenerator &random) const;

    QByteArray m_library;
    QByteArray m_project;
};

void tst_ModelFuzz::initTestCase()
{
    loadTestLibrary();
    QFile file(QFINDTESTDATA("data/widget-library.xml"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    m_library = file.readAll();
    CProjectModel project;
    project.newProject({{PropertyKey::Platform, QStringLiteral("QX110")}});
    CScreenModel *screen = project.screen(0);
    for (const char *type :
         {"Test_Box_T", "Test_Circle_T", "Test_Line_T", "Test_Poly_T", "Else_T"}) {
        auto *inner = newGroup(project, {newWidget(project, QString::fromLatin1(type))});
        screen->appendRow(
            newGroup(project, {inner, newWidget(project, QStringLiteral("Test_Dot_T"))}));
        screen->appendRow(newWidget(project, QString::fromLatin1(type)));
    }
    m_project = project.saveToBytes(nullptr);
    QVERIFY(m_project.size() > 1000);
}

/// A few changes each: by structure, so that most documents stay well-formed, and by byte.
QByteArray tst_ModelFuzz::mutated(const QByteArray &source, QRandomGenerator &random) const
{
    static const QByteArray values[] = {
        "",         "-1",         "0",          "99999999999", "nan",     "inf",
        "-1e308",   "1e999",      "true",       "&#xFFFD;",    "#zz",     "QX1zz",
        "QX100..",  "..",         "|@|",        "12:61:00",    "a,b;;1,", "\xF0\x9F\x98\x80",
        "&amp;#0;", "4294967295", "-2147483648"};
    static const QByteArrayList names =
        QByteArray("name id radius point_size x2_coordinate y_coordinate width height angle "
                   "resizeable locked heightfromfont platform working_directory bfolder pointlist "
                   "font type min")
            .split(' ');
    static const QByteArray tags[] = {"Widget_Group_T", "Kiv_Screen_T", "Test_Circle_T",
                                      "Kiv_Project_T", "widget"};
    const auto pick = [&](const auto &list) { return list[random.bounded(int(std::size(list)))]; };
    QByteArray xml = source;
    for (int n = random.bounded(1, 6); n > 0; --n) {
        const int at = random.bounded(xml.size());
        const int value = xml.indexOf("=\"", at);
        const int valueEnd = value < 0 ? -1 : xml.indexOf('"', value + 2);
        const int open = xml.indexOf('<', at);
        const int space = xml.indexOf(' ', open < 0 ? at : open);
        switch (random.bounded(6)) {
        case 0: // another value
            if (valueEnd > 0)
                xml.replace(value + 2, valueEnd - value - 2, pick(values));
            break;
        case 1: // another attribute
            if (space > 0)
                xml.insert(space, ' ' + pick(names) + "=\"" + pick(values) + '"');
            break;
        case 2: // another tag
            if (open >= 0 && space > open)
                xml.replace(open + 1, space - open - 1, pick(tags));
            break;
        case 3: // an element inside
            if (open > 0)
                xml.insert(open,
                           '<' + pick(tags) + ' ' + pick(names) + "='" + pick(values) + "'/>");
            break;
        case 4: // a byte
            xml[at] = char(random.bounded(256));
            break;
        default: // a piece cut out or doubled
            if (random.bounded(2))
                xml.remove(at, random.bounded(1, 40));
            else
                xml.insert(at, xml.mid(random.bounded(xml.size()), random.bounded(1, 200)));
        }
    }
    return xml;
}

void tst_ModelFuzz::projects()
{
    int accepted = 0;
    for (uint seed = 0; seed < 4000; ++seed) {
        QRandomGenerator random(seed);
        const QByteArray xml = mutated(m_project, random);
        CProjectModel project;
        if (!project.loadFromBytes(xml, nullptr)) {
            QCOMPARE(project.screenCount(), 0);
            continue;
        }
        ++accepted;
        QString error;
        const QByteArray saved = project.saveToBytes(&error);
        QVERIFY2(error.isEmpty(), qPrintable(QStringLiteral("seed %1: %2").arg(seed).arg(error)));
        CProjectModel again;
        QVERIFY2(again.loadFromBytes(saved, &error),
                 qPrintable(QStringLiteral("seed %1: %2").arg(seed).arg(error)));
        QVERIFY2(again.saveToBytes(&error) == saved,
                 qPrintable(QStringLiteral("seed %1").arg(seed)));
        for (int row = 0; row < project.screenCount(); ++row) {
            const std::unique_ptr<CItemModel> copy(project.screen(row)->clone());
            QVERIFY2(describe(*copy) == describe(*project.screen(row)),
                     qPrintable(QStringLiteral("seed %1").arg(seed)));
            (void)copy->bounds();
        }
        (void)project.unusedId();
    }
    QVERIFY2(accepted > 1000, qPrintable(QString::number(accepted))); // else it tries nothing
}

void tst_ModelFuzz::copies()
{
    const QByteArray inner =
        m_project.mid(m_project.indexOf('\n') + 1).replace("Kiv_Screen_T", "Screen");
    const QByteArray source =
        "<CopyScreenXML>" + inner.left(inner.lastIndexOf("</Kiv_Project_T>")) + "</CopyScreenXML>";
    QVERIFY(!ScreenDocuments::copiedScreens(source).isNull());
    int accepted = 0;
    for (uint seed = 0; seed < 2000; ++seed) {
        QRandomGenerator random(seed);
        const QByteArray xml = mutated(source, random);
        const QDomElement root = ScreenDocuments::copiedScreens(xml);
        CProjectModel project;
        project.newProject({});
        for (QDomElement each = root.firstChildElement(); !each.isNull();
             each = each.nextSiblingElement())
            project.buildScreen(each, random.bounded(-1, 5));
        accepted += project.screenCount() - 1;
        QString error;
        const QByteArray saved = project.saveToBytes(&error);
        CProjectModel again;
        QVERIFY2(again.loadFromBytes(saved, &error),
                 qPrintable(QStringLiteral("seed %1: %2").arg(seed).arg(error)));
    }
    QVERIFY2(accepted > 500, qPrintable(QString::number(accepted)));
}

void tst_ModelFuzz::libraries()
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("library.xml")));
    int accepted = 0;
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    for (uint seed = 0; seed < 1000; ++seed) {
        QRandomGenerator random(seed);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(mutated(m_library, random));
        file.close();
        CWidgetLibraryManager manager;
        if (!manager.initialise(file.fileName(), {0x100, 0x113}))
            continue;
        ++accepted;
        const CWidgetLibraryModel *library = manager.libraryModel(0x113);
        CProjectModel project;
        project.newProject({});
        const QStringList types = library->typeNames();
        for (const QString &type : types) // every kind can be used, saved and read back
            project.screen(0)->appendRow(new CWidgetModel(type, library, &project));
        QString error;
        CProjectModel again;
        QVERIFY2(again.loadFromBytes(project.saveToBytes(&error), &error),
                 qPrintable(QStringLiteral("seed %1: %2").arg(seed).arg(error)));
    }
    qInstallMessageHandler(nullptr);
    QVERIFY2(accepted > 200, qPrintable(QString::number(accepted)));
}

void tst_ModelFuzz::copiedScreens()
{
    const auto project = randomProject(5, 60);
    const QByteArray xml =
        ScreenDocuments::ofCopiedScreens({project->screen(0), project->screen(1)});
    const QDomElement root = ScreenDocuments::copiedScreens(
        ScreenDocuments::fromClipboard(ScreenDocuments::toClipboard(xml)));
    QCOMPARE(root.tagName(), QStringLiteral("CopyScreenXML"));
    QCOMPARE(root.firstChildElement().tagName(), QStringLiteral("Screen"));

    CProjectModel target;
    target.newProject({{PropertyKey::Platform, project->platform()}});
    CScreenModel *second = target.buildScreen(root.firstChildElement().nextSiblingElement(), 0);
    CScreenModel *first = target.buildScreen(root.firstChildElement(), -1);
    QCOMPARE(target.screen(0), second);
    QCOMPARE(target.screen(2), first);
    QCOMPARE(first->rowCount(), project->screen(0)->rowCount());
    QCOMPARE(first->text(), project->screen(0)->text());
    QVERIFY(first->project() == &target);

    QSet<quint32> ids; // all different
    int withId = 0;
    const std::function<void(const CItemModel *)> collect = [&](const CItemModel *item) {
        if (item->hasProperty(PropertyKey::Id)) {
            ids.insert(item->id());
            ++withId;
        }
        for (int row = 0; row < item->rowCount(); ++row)
            collect(item->childItem(row));
    };
    for (int row = 0; row < 3; ++row)
        collect(target.screen(row));
    QVERIFY(withId > 10);
    QCOMPARE(ids.size(), withId);
    QVERIFY(!ids.contains(0));
}

void tst_ModelFuzz::copiedItems()
{
    const auto project = randomProject(6, 60);
    QVector<const CItemModel *> items;
    for (int row = 0; row < project->screen(0)->rowCount(); ++row)
        items.append(project->screen(0)->childItem(row));
    const QDomElement root = ScreenDocuments::copiedItems(ScreenDocuments::ofCopiedItems(items));
    QCOMPARE(root.tagName(), QStringLiteral("CopyXML"));
    CScreenModel holding(project.get()); // as a paste does
    holding.loadFromElement(root);
    QCOMPARE(holding.rowCount(), items.size());
    for (int row = 0; row < items.size(); ++row)
        QCOMPARE(describe(*holding.childItem(row)), describe(*items.at(row)));
}

void tst_ModelFuzz::pageFile()
{
    const auto project = randomProject(7, 20);
    const QByteArray xml = ScreenDocuments::ofPageFile({project->screen(0)});
    QVERIFY(xml.startsWith("<ScreenSave>\n <Screen "));
    QVERIFY(ScreenDocuments::copiedScreens(xml).isNull());
    QString error;
    QVERIFY(!ScreenDocuments::pageFile(xml, &error).isNull());
    QVERIFY(error.isEmpty());
    QVERIFY(ScreenDocuments::copiedItems(xml, &error).isNull());
    QVERIFY(error.contains(QStringLiteral("CopyXML")));
}

void tst_ModelFuzz::malformedCopies()
{
    for (const QByteArray &xml :
         {QByteArray(), QByteArray("<CopyXML><Test_Box_T"), // cut
          QByteArray("<a><CopyXML/><ScreenSave/><CopyScreenXML/></a>"),
          QByteArray("<!DOCTYPE a><CopyXML/>"),
          "<CopyXML>" + QByteArray("<Widget_Group_T>").repeated(1000) +
              QByteArray("</Widget_Group_T>").repeated(1000) + "</CopyXML>"}) {
        for (const auto read : {ScreenDocuments::copiedScreens, ScreenDocuments::pageFile,
                                ScreenDocuments::copiedItems}) {
            QString error;
            QVERIFY2(read(xml, &error).isNull(), xml.left(80).constData());
            QVERIFY(!error.isEmpty());
        }
    }
    const QByteArray data = ScreenDocuments::toClipboard("<a/>");
    for (int size = 0; size < data.size(); ++size)
        QCOMPARE(ScreenDocuments::fromClipboard(data.left(size)), QByteArray());
    QCOMPARE(ScreenDocuments::fromClipboard(QByteArray("\xff\xff\xff\xf0 rest", 9)), QByteArray());
}

QTEST_MAIN(tst_ModelFuzz)
#include "tst_modelfuzz.moc"
