#include "CProjectViews.h"
#include "CSettings.h"
#include "ProgramFolder.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

using Check = std::function<bool(const SSettings &)>;
Q_DECLARE_METATYPE(Check)

class tst_Settings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        m_file = m_folder->filePath(QStringLiteral("config.ini"));
    }

    void nothingKept()
    {
        const CSettings settings(m_folder->path());
        QCOMPARE(settings.read().savingFolderPath, m_folder->path());
        QVERIFY(!QFile::exists(m_file));
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("examples")));
        QCOMPARE(settings.read().savingFolderPath, m_folder->path() + QStringLiteral("/examples/"));
    }

    /// A renamed one would be forgotten.
    void writtenUnderTheirNames()
    {
        QVERIFY(CSettings(m_folder->path()).write({}));
        QCOMPARE(QSettings(m_file, QSettings::IniFormat).allKeys().join(' '),
                 "autosaveInterval closedSections favouriteWidgets fineNudgeStep gridColor "
                 "gridFaint gridSize "
                 "gridType isMaximized language lastFolder lastWidgets latestProjects "
                 "mainWindow nudgeStep projectViews recentColours savingFolderPath screenshotDir "
                 "shortcuts showGrid showGuides snapToGaps snapToGrid snapToGuides "
                 "snapToItems snapToPage snapping statusBar theme usedActions windowState "
                 "windowStateCheck zoomPercent zoomType");
    }

    void absurdValues_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<Check>("isSane");
        const auto row = [](const QByteArray &line, const Check &check) {
            QTest::newRow(line.left(60).constData()) << line << check;
        };
        const Check noWindow = [](const SSettings &s) { return s.mainWindow.isNull(); };
        row("mainWindow=@Rect(30 40 900 700)",
            [](const SSettings &s) { return s.mainWindow == QRect(30, 40, 900, 700); });
        row("gridType=3", [](const SSettings &s) { return s.gridType == Qt::DotLine; });
        row("latestProjects=\"/a,b.nyx\", /c.nyx", [](const SSettings &s) {
            return s.latestProjects == QStringList({"/a,b.nyx", "/c.nyx"});
        });
        row("mainWindow=@Rect(0 0 -5 99999999)", noWindow);
        row("zoomPercent=99999999999", [](const SSettings &s) { return s.zoomPercent == 100; });
        row("zoomType=7", [](const SSettings &s) { return s.zoomType == 0; });
        row("showGrid=maybe", [](const SSettings &s) { return s.showGrid; });
        row("gridSize=0", [](const SSettings &s) { return s.gridSize == 20; });
        row("gridColor=#102030",
            [](const SSettings &s) { return s.gridColor == QColor(16, 32, 48); });
        row("gridColor=@Variant(\\0\\0\\0\\x43\\x1\\xff\\xff\\x10\\x10\\x20\\x20\\x30\\x30\\0\\0)",
            [](const SSettings &s) { return s.gridColor == QColor(16, 32, 48); });
        row("gridColor=@Variant(\\0\\0\\0\\x43)",
            [](const SSettings &s) { return s.gridColor == Qt::white; });
        row("gridType=0", [](const SSettings &s) { return s.gridType == Qt::SolidLine; });
        row("autosaveInterval=4000000",
            [](const SSettings &s) { return s.autosaveInterval == 10; });
        row("savingFolderPath=", [](const SSettings &s) { return !s.savingFolderPath.isEmpty(); });
        row("savingFolderPath=/a\\0b",
            [](const SSettings &s) { return s.savingFolderPath != "/a"; });
        row("latestProjects=/a\\nb, /c, /d;e", [](const SSettings &s) {
            return s.latestProjects == QStringList({"/c", "/d"});
        });
        row("theme=a, b", [](const SSettings &s) { return s.theme.isEmpty(); });
        row("theme=\" \\x41\\x42 \" ; comment",
            [](const SSettings &s) { return s.theme == " AB "; });
        row("windowState=@ByteArray(\\0\\0\\0\\xff)",
            [](const SSettings &s) { return s.windowState.isEmpty(); });
        const QByteArray nested = QByteArray("\\0\\0\\0\\t\\0\\0\\0\\x1").repeated(40000);
        row("whatever=@Variant(" + nested + ")", [](const SSettings &) { return true; });
    }

    /// One bad key leaves the others alone.
    void absurdValues()
    {
        QFETCH(QByteArray, line);
        QFETCH(Check, isSane);
        writeFile(m_file, "[General]\n" + line + "\nscreenshotDir=/kept\n");
        const CSettings settings(m_folder->path());
        const SSettings values = settings.read();
        QVERIFY(isSane(values));
        QCOMPARE(values.screenshotDir, QStringLiteral("/kept"));
        QVERIFY(settings.write(values)); // what it does not know stays
        QVERIFY(!line.startsWith("whatever") || readFile(m_file).contains('\n' + line + '\n'));
    }

    /// What reaches Qt's own reader of layouts is what Qt has written.
    void changedStateIsLeftOut()
    {
        const CSettings settings(m_folder->path());
        SSettings values;
        values.windowState = QByteArray("\0\0\0\xff\0state, \"of\" windows;", 26);
        QVERIFY(settings.write(values));
        const QByteArray whole = readFile(m_file);
        const int begin = whole.indexOf("windowState=") + 12;
        for (int at = begin; whole.at(at) != '\n'; ++at) {
            QByteArray changed = whole;
            changed[at] = char(changed.at(at) + 1);
            writeFile(m_file, changed);
            const QByteArray read = settings.read().windowState;
            QVERIFY2(read.isEmpty() || read == values.windowState, qPrintable(changed));
        }
        writeFile(m_file, whole);
        QCOMPARE(settings.read().windowState, values.windowState);
    }

    /// How projects were seen comes back as it was, within its limits; texts that make no sense
    /// leave the others alone.
    void projectViews()
    {
        CProjectViews views;
        for (int i = 0; i < 30; ++i)
            views.remember(QString("/p%1.nyx").arg(i), {});
        SProjectView seen{{}, 45, 250, 1, {7, 4294967295U}};
        for (int i = 0; i < 50; ++i)
            seen.pages.append({QString(30, '"') + QString::number(i), i, {i + 0.4, -20}});
        views.remember("/a \"b\"\\.nyx", seen);
        SSettings values;
        values.projectViews =
            views.texts() + QStringList{"", "[]", "{\"file\":3}", QString(5000, '['), "{\"file\":"};
        const CSettings settings(m_folder->path());
        QVERIFY(settings.write(values));
        CProjectViews read;
        read.setTexts(settings.read().projectViews);
        QCOMPARE(read.texts().size(), CProjectViews::MaxProjects);
        const auto found = read.find("/a \"b\"\\.nyx");
        QCOMPARE(read.lastFirst({"/other", "/p28.nyx", "/new", "/p29.nyx"}),
                 (QStringList{"/p29.nyx", "/p28.nyx", "/other", "/new"}));
        QVERIFY(found && !read.find("/p0.nyx") && read.find("/p29.nyx"));
        QVERIFY(found->pages.size() > 20 && found->pages.size() <= CProjectViews::MaxPages);
        const SProjectView::SPage &page = found->pages.at(found->current);
        QCOMPARE(page.name, seen.pages[45].name); // those further from it were left out
        QVERIFY(page.row == 45 && page.centre == QPointF(45, -20));
        QVERIFY(found->zoomPercent == 250 && found->zoomType == 1);
        QCOMPARE(found->selected, seen.selected);
        read.setTexts({R"({"file":"/x","pages":[["a"],7,["b",-3,1e99,"c"]],"current":9,)"
                       R"("zoom":[0,7],"selected":[-1,"x",1e20]})"});
        const auto absurd = read.find("/x");
        QVERIFY(absurd && absurd->pages.size() == 2 && absurd->current == 0);
        QVERIFY(absurd->pages[1].row == 0 && absurd->pages[1].centre == QPointF(100000, 0));
        QVERIFY(absurd->zoomPercent == 100 && absurd->zoomType == 0 && absurd->selected.isEmpty());
    }

    void brokenFileIsKeptAside()
    {
        const CSettings settings(m_folder->path());
        for (const char *name : {"config.ini.broken", "config.ini.broken (1)"}) {
            writeFile(m_file, QByteArray("no settings\n\0\xff=[", 16));
            QString told;
            QCOMPARE(settings.read(&told).zoomPercent, 100);
            QCOMPARE(told, m_folder->filePath(QString::fromLatin1(name)));
            QVERIFY(settings.write(settings.read()));
            QFile aside(m_folder->filePath(QString::fromLatin1(name)));
            QVERIFY2(aside.open(QIODevice::ReadOnly), name);
            QVERIFY(aside.readAll().startsWith("no settings"));
        }
    }

    void folderInPlaceOfTheFile()
    {
        const CSettings settings(m_folder->path());
        QVERIFY(QDir().mkpath(m_file + QStringLiteral("/x")));
        QCOMPARE(settings.read().zoomPercent, 100);
        const CSettings nowhere(m_folder->filePath(QStringLiteral("missing/deeper")));
        QFile(m_folder->filePath(QStringLiteral("missing"))).open(QIODevice::WriteOnly);
        QCOMPARE(nowhere.read().zoomPercent, 100);
        QVERIFY(!nowhere.write(SSettings()));
    }

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

QTEST_GUILESS_MAIN(tst_Settings)
#include "tst_settings.moc"
