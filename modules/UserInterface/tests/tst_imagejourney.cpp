// What is left of a project's images and fonts after a journey: its folder alone is copied to
// another place, all else is out of reach, and the exporter draws what it finds there.
#include "CCommandChangeFonts.h"
#include "CCommandChangeItemProperty.h"
#include "CCommandChangeOptions.h"
#include "CCommandDeleteItem.h"
#include "CCommandDeleteScreen.h"
#include "CImageChooser.h"
#include "CPageOperations.h"
#include "CProjectModel.h"
#include "CProjectSession.h"
#include "CRecentProjects.h"
#include "CScreenModel.h"
#include "CScriptedUser.h"
#include "CWidgetLibraryManager.h"
#include "CWidgetModel.h"
#include "FontFiles.h"
#include "ItemClipboard.h"
#include "ProgramFolder.h"
#include "PropertyKey.h"

#include <QDirIterator>
#include <QImage>
#include <QMimeData>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>
#include <QUndoStack>

namespace {
void copyFolder(const QString &from, const QString &to)
{
    QDirIterator each(from, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (each.hasNext()) {
        const QString target = to + each.next().mid(from.size());
        QDir().mkpath(QFileInfo(target).path());
        QVERIFY(QFile::copy(each.filePath(), target));
    }
}

struct Editor
{
    CScriptedUser user;
    CRecentProjects recent;
    CProjectSession session{&user, &recent};
    CImageChooser chooser{nullptr};

    CProjectModel *project() const { return session.project(); }
    QUndoStack &stack() const { return *project()->undoStack(); }
    CItemModel *item(int row) const { return project()->screen(0)->childItem(row); }
};
} // namespace

class tst_ImageJourney : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { QDir::setCurrent(m_before); }
    void undoAfterSaveAs();
    void fromAnotherProject_data();
    void fromAnotherProject();
    void fontsFromAnotherProject_data();
    void fontsFromAnotherProject();
    void examples_data();
    void examples();

private:
    QString at(const QString &name) const { return m_home->filePath("home/" + name); }
    QString image(const QString &name, const QColor &colour) const;
    /// A project of two bitmaps with images of one name, red and blue.
    void makeProject(Editor &editor, const QString &file, const QColor &first = Qt::red) const;
    QStringList files(const QString &folder) const;
    /// The first screen as the saved project shows it.
    QImage picture(const Editor &editor) const;

    std::unique_ptr<QTemporaryDir> m_home;
    QString m_before;
};

void tst_ImageJourney::initTestCase()
{
    const QString library = qEnvironmentVariable("KIV_BIN_DIR") + "/widget-library.xml";
    QVERIFY(CWidgetLibraryManager::instance().initialise(library, {0x110}));
}

void tst_ImageJourney::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir().mkpath(at("")));
    m_before = QDir::currentPath();
    QDir::setCurrent(qEnvironmentVariable("KIV_BIN_DIR"));
}

QString tst_ImageJourney::image(const QString &name, const QColor &colour) const
{
    QDir().mkpath(QFileInfo(at(name)).path());
    QImage picture(40, 32, QImage::Format_RGB32);
    picture.fill(colour);
    if (!picture.save(at(name)))
        qFatal("cannot write %s", qPrintable(at(name)));
    return at(name);
}

void tst_ImageJourney::makeProject(Editor &editor, const QString &file, const QColor &first) const
{
    QDir().mkpath(QFileInfo(file).path());
    writeFile(file, "<Kiv_Project_T project_name=\"x\" platform=\"QX110\" width=\"200\" "
                    "height=\"100\"><Kiv_Screen_T name=\"Page\">"
                    "<Kiv_Bitmap_T name=\"a\" x_coordinate=\"0\" width=\"40\" height=\"32\"/>"
                    "<Kiv_Bitmap_T name=\"b\" x_coordinate=\"60\" width=\"40\" height=\"32\"/>"
                    "<Kiv_Text_T name=\"t\" x_coordinate=\"0\" y_coordinate=\"50\" text=\"A a\"/>"
                    "</Kiv_Screen_T></Kiv_Project_T>");
    QVERIFY(editor.session.openFile(file));
    editor.project()->setProjectProperty(PropertyKey::ProjectName, QFileInfo(file).baseName());
    QVERIFY(editor.chooser.change(editor.item(0), image("s1/logo.png", first), "ARGB4"));
    QVERIFY(editor.chooser.change(editor.item(1), image("s2/logo.png", Qt::blue), "ARGB4"));
    QVERIFY(editor.session.save());
}

QStringList tst_ImageJourney::files(const QString &folder) const
{
    QStringList found;
    QDirIterator each(folder, QDir::Files, QDirIterator::Subdirectories);
    while (each.hasNext())
        found.append(each.next());
    found.sort();
    return found;
}

QImage tst_ImageJourney::picture(const Editor &editor) const
{
    const QFileInfo file(editor.session.path());
    const QTemporaryDir elsewhere;
    copyFolder(file.path(), elsewhere.filePath("copy"));
    QDir().rename(at(""), m_home->filePath("away"));
    QProcess exporter;
    exporter.start(QDir::currentPath() + "/panel-export",
                   {elsewhere.filePath("copy/" + file.fileName()), "--png",
                    elsewhere.filePath("out"), "--strict"});
    const bool isDone = exporter.waitForFinished() && exporter.exitCode() == 0;
    QDir().rename(m_home->filePath("away"), at(""));
    if (!isDone)
        qWarning() << exporter.readAllStandardError();
    const QDir out(elsewhere.filePath("out"));
    const QString first = editor.project()->screen(0)->name();
    return isDone ? QImage(out.filePath(first + ".png")) : QImage();
}

/// At each step of the undo history the picture is the one of then, wherever the project went.
void tst_ImageJourney::undoAfterSaveAs()
{
    Editor editor;
    makeProject(editor, at("a/demo.nyx"));
    CItemModel *const first = editor.item(0);
    CItemModel *const text = editor.item(2);
    QVector<QImage> pictures;
    const auto note = [&] {
        QVERIFY(editor.session.save());
        pictures.append(picture(editor));
        QVERIFY(!pictures.last().isNull());
        QCOMPARE(pictures.size(), editor.stack().index() - 1);
    };
    note();
    QCOMPARE(pictures.last().pixelColor(20, 16), QColor(Qt::red));
    QCOMPARE(pictures.last().pixelColor(80, 16), QColor(Qt::blue));
    QVERIFY(editor.chooser.changeFormat(first, "DXT1"));
    note();
    editor.stack().push(new CCommandChangeOptions(
        editor.project(), {{PropertyKey::ProjectName, "renamed"}}, nullptr));
    note();
    QVERIFY(editor.chooser.change(first, image("a/logo.png", Qt::yellow), "PALETTED8"));
    note();
    QCOMPARE(pictures.last().pixelColor(20, 16), QColor(Qt::yellow));
    editor.stack().push(new CCommandDeleteItem({editor.item(1)}));
    note();
    QVERIFY(editor.chooser.changeFormat(first, "L8"));
    note();
    ProjectFontList fonts(1);
    fonts[0].file = QStringLiteral(KIV_TEST_FONTS "/variable.woff2");
    QCOMPARE(FontFiles::bringIn(*editor.project(), fonts), QString());
    QVERIFY(QDir::isRelativePath(fonts[0].file));
    editor.stack().beginMacro({});
    editor.stack().push(new CCommandChangeFonts(editor.project(), fonts));
    editor.stack().push(new CCommandChangeItemProperty(text, PropertyKey::Font, 0,
                                                       text->propertyValue(PropertyKey::Font)));
    editor.stack().endMacro();
    note();
    QVERIFY(pictures.last() != pictures.at(pictures.size() - 2));

    const int last = editor.stack().index();
    const QStringList before = files(at("a"));
    for (const QString &next :
         {at("b/Second.nyx"), at("b/Third.nyx"), at("c/Third.nyx"), at("b/Second.nyx")}) {
        QDir().mkpath(at("c/Third_ConvertedImages"));
        writeFile(at("c/Third_ConvertedImages/logo_ARGB4.raw"), "another project's");
        writeFile(at("c/logo.png"), "another picture");
        editor.user.savePath = next;
        QVERIFY(editor.session.saveAs());
        if (next == at("b/Third.nyx"))
            continue; // nothing was undone between two of them
        for (int index = last; index >= 2; --index) {
            editor.stack().setIndex(index);
            QVERIFY(editor.session.save());
            QVERIFY2(picture(editor) == pictures.at(index - 2), qPrintable(next));
        }
        editor.stack().setIndex(last);
    }
    QCOMPARE(readFile(at("c/Third_ConvertedImages/logo_ARGB4.raw")), "another project's");
    QCOMPARE(readFile(at("c/logo.png")), "another picture");
    QCOMPARE(files(at("a")), before);
    // A source inside the project went along: other formats still work.
    QVERIFY(QDir(at("a")).removeRecursively() && QDir(at("s1")).removeRecursively());
    editor.stack().setIndex(5);
    QVERIFY(editor.chooser.changeFormat(first, "RGB565"));
    QVERIFY(editor.session.save());
    QCOMPARE(picture(editor).pixelColor(20, 16), QColor(Qt::yellow));
}

void tst_ImageJourney::fromAnotherProject_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"page file", "page", "items"})
        QTest::newRow(way) << way;
}

void tst_ImageJourney::fromAnotherProject()
{
    QFETCH(QString, way);
    QImage wanted;
    std::unique_ptr<QMimeData> copied;
    QString error;
    {
        Editor other;
        makeProject(other, at("other/demo.nyx"));
        wanted = picture(other);
        QVERIFY(!wanted.isNull());
        const CScreenModel *screen = other.project()->screen(0);
        QCOMPARE(CPageOperations::save({screen}, at("saved.page")), QString());
        copied.reset(way == "items" ? ItemClipboard::toMimeData({other.item(0), other.item(1)})
                                    : CPageOperations::copy({screen}, &error));
    }
    Editor editor;
    makeProject(editor, at("mine/demo.nyx"), Qt::green); // its "logo" is another one
    const QImage mine = picture(editor);
    const auto bring = [&] {
        CPageOperations pages(editor.project());
        if (way == "page file")
            QCOMPARE(pages.load(at("saved.page")), QString());
        else if (way == "page")
            QCOMPARE(pages.paste(copied.get()), QString());
        else
            QCOMPARE(ItemClipboard::paste(*editor.project()->screen(0), *copied, &error).size(), 2);
        QCOMPARE(error, QString());
    };
    bring();
    const QStringList once = files(at("mine"));
    bring();
    QCOMPARE(files(at("mine")), once); // equal images are shared
    QVERIFY(!editor.project()->saveToBytes(nullptr).contains("/other/"));
    QVERIFY(QDir(at("other")).removeRecursively());
    QVERIFY(QFile::remove(at("saved.page")));

    QUndoStack &stack = editor.stack();
    stack.undo();       // the second one stood aside
    if (way != "items") // the page that came is looked at first
        stack.push(new CCommandDeleteItem({editor.project()->screen(0)->childItem(0)}));
    QVERIFY(editor.session.save());
    if (way == "items") {
        QCOMPARE(picture(editor), wanted);
    } else {
        const CItemModel *logo = editor.project()->screen(1)->childItem(0);
        QCOMPARE(QFileInfo(editor.project()->absoluteFolder(
                               logo->propertyText(PropertyKey::BitmapFolder)))
                     .path(),
                 at("mine"));
        QVERIFY(editor.chooser.changeFormat(editor.project()->screen(1)->childItem(0), "RGB565"));
    }
    stack.setIndex(2);
    QVERIFY(editor.session.save());
    QCOMPARE(picture(editor), mine);
}

void tst_ImageJourney::fontsFromAnotherProject_data()
{
    QTest::addColumn<bool>("isPage");
    QTest::newRow("page") << true;
    QTest::newRow("items") << false;
}

/// Texts look as where they were copied, also where their handle is another font's, and the other
/// project may go.
void tst_ImageJourney::fontsFromAnotherProject()
{
    QFETCH(bool, isPage);
    const auto open = [this](Editor &editor, const QString &folder, double size) {
        QDir().mkpath(at(folder));
        writeFile(at(folder + "/demo.nyx"),
                  "<Kiv_Project_T project_name=\"x\" platform=\"QX110\" width=\"200\" "
                  "height=\"100\"><Kiv_Screen_T name=\"Page\"><Kiv_Text_T name=\"t\" font=\"0\" "
                  "text=\"A a\"/></Kiv_Screen_T></Kiv_Project_T>");
        QVERIFY(editor.session.openFile(at(folder + "/demo.nyx")));
        ProjectFontList fonts(1);
        fonts[0].size = size;
        fonts[0].file = QStringLiteral(KIV_TEST_FONTS "/variable.woff2");
        QCOMPARE(FontFiles::bringIn(*editor.project(), fonts), QString());
        editor.stack().beginMacro({});
        editor.stack().push(new CCommandChangeFonts(editor.project(), fonts));
        editor.stack().endMacro();
        QVERIFY(editor.session.save());
    };
    Editor editor;
    open(editor, "mine", 12);
    std::unique_ptr<QMimeData> copied;
    QImage wanted;
    {
        Editor other;
        open(other, "other", 40);
        wanted = picture(other);
        QString error;
        copied.reset(isPage ? CPageOperations::copy({other.project()->screen(0)}, &error)
                            : ItemClipboard::toMimeData({other.item(0)}));
    }
    QVERIFY(picture(editor) != wanted);
    const QByteArray before = editor.project()->saveToBytes(nullptr);
    for (int time = 0; time < 2; ++time) { // the second one shares the font of the first
        if (isPage)
            QCOMPARE(CPageOperations(editor.project()).paste(copied.get()), QString());
        else
            ItemClipboard::paste(*editor.project()->screen(0), *copied, nullptr, QPoint());
        QCOMPARE(editor.project()->fonts().size(), 2);
    }
    editor.stack().undo();
    const QByteArray after = editor.project()->saveToBytes(nullptr);
    QVERIFY(!after.contains("/other"));
    QVERIFY(QDir(at("other")).removeRecursively());
    // What came is looked at.
    if (isPage)
        editor.stack().push(new CCommandDeleteScreen(editor.project()->screen(0)));
    else
        editor.stack().push(new CCommandDeleteItem({editor.item(1)}));
    QVERIFY(editor.session.save());
    QCOMPARE(picture(editor), wanted);
    editor.stack().undo();
    QCOMPARE(editor.project()->saveToBytes(nullptr), after);
    editor.stack().undo();
    QCOMPARE(editor.project()->saveToBytes(nullptr), before);
}

void tst_ImageJourney::examples_data()
{
    QTest::addColumn<QString>("format");
    QTest::newRow("coffee-machine") << "RGB565";
    QTest::newRow("ev-charger") << "ARGB4";
}

/// Their sources are named relative to the project, and no copies lie beside what was made of them.
void tst_ImageJourney::examples()
{
    QFETCH(QString, format);
    const QString name = QTest::currentDataTag();
    copyFolder(QDir::currentPath() + "/examples/" + name, at(name));
    Editor editor;
    QVERIFY(editor.session.openFile(at(name + '/' + name + ".nyx")));
    const QImage before = picture(editor);
    QVERIFY(!before.isNull());
    QSignalSpy messages(&editor.chooser, &CImageChooser::message);
    QVector<CItemModel *> images;
    const auto rows = editor.project()->findItems("*", Qt::MatchWildcard | Qt::MatchRecursive);
    for (QStandardItem *each : rows) {
        CItemModel *item = CItemModel::fromItem(each);
        if (item->itemTypeName() == "Kiv_Bitmap_T")
            images.append(item);
    }
    QVERIFY(images.size() >= 3);
    for (CItemModel *each : qAsConst(images)) {
        QVERIFY(CImageChooser::changeOf(*each, format) == CImageChooser::EFormat::Conversion);
        QVERIFY(editor.chooser.changeFormat(each, format));
    }
    QVERIFY2(messages.isEmpty(), qPrintable(messages.value(0).value(0).toString()));
    QVERIFY(editor.session.save());
    QVERIFY(!picture(editor).isNull()); // all of them are found
    editor.stack().setIndex(0);
    QVERIFY(editor.session.save());
    QCOMPARE(picture(editor), before);

    for (const QString &each : files(at(name))) {
        if (!each.endsWith(".nyx") && !each.endsWith(".raw") && !each.endsWith(".json") &&
            !each.endsWith(".lut") && !each.endsWith("lake.jpg"))
            QVERIFY(QFile::remove(each));
    }
    for (CItemModel *each : qAsConst(images)) {
        if (CImageChooser::changeOf(*each, "RGB332") == CImageChooser::EFormat::Lost)
            QVERIFY(!editor.chooser.changeFormat(each, "RGB332"));
    }
    QVERIFY(messages.count() >= images.size() - 1);
    QCOMPARE(editor.stack().index(), 0);
    QCOMPARE(picture(editor), before);
}

QTEST_MAIN(tst_ImageJourney)
#include "tst_imagejourney.moc"
