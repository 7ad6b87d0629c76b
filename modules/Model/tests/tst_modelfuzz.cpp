#include "ModelTestSupport.h"

#include <QDomDocument>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <memory>

/// Damaged projects and libraries: nothing crashes, and what is accepted can be saved and read back
/// as the same. A failure prints the seed of its round.
class tst_ModelFuzz : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
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
            screen->appendRow(newGroup(project, {inner, newWidget(project, "Test_Dot_T")}));
            screen->appendRow(newWidget(project, QString::fromLatin1(type)));
        }
        m_project = project.saveToBytes(nullptr);
        QVERIFY(m_project.size() > 1000);
    }

    void projects()
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
            QVERIFY2(error.isEmpty(),
                     qPrintable(QStringLiteral("seed %1: %2").arg(seed).arg(error)));
            CProjectModel again;
            QVERIFY2(again.loadFromBytes(saved, &error),
                     qPrintable(QStringLiteral("seed %1: %2").arg(seed).arg(error)));
            CProjectModel fromDom; // the other way to read and to write
            QDomDocument written;
            project.save(written);
            QVERIFY(fromDom.load(written));
            QVERIFY2(again.saveToBytes(&error) == saved && fromDom.saveToBytes(&error) == saved &&
                         describe(fromDom) == describe(again),
                     qPrintable(QStringLiteral("seed %1").arg(seed)));
            for (int row = 0; row < project.screenCount(); ++row) {
                const std::unique_ptr<CItemModel> copy(project.screen(row)->clone());
                QVERIFY2(describe(*copy) == describe(*project.screen(row)),
                         qPrintable(QStringLiteral("seed %1").arg(seed)));
                (void)ItemGeometry::frameOf(*copy);
            }
            (void)project.unusedId();
        }
        QVERIFY2(accepted > 1000, qPrintable(QString::number(accepted))); // else it tries nothing
    }

    void libraries()
    {
        QTemporaryDir folder;
        QFile file(folder.filePath("library.xml"));
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

private:
    /// A few changes each: by structure, so that most documents stay well-formed, and by byte.
    QByteArray mutated(const QByteArray &source, QRandomGenerator &random) const
    {
        static const QByteArray values[] = {
            "",         "-1",         "0",          "99999999999", "nan",     "inf",
            "-1e308",   "1e999",      "true",       "&#xFFFD;",    "#zz",     "QX1zz",
            "QX100..",  "..",         "|@|",        "12:61:00",    "a,b;;1,", "\xF0\x9F\x98\x80",
            "&amp;#0;", "4294967295", "-2147483648"};
        static const QByteArrayList names =
            QByteArray(
                "name id radius point_size x2_coordinate y_coordinate width height angle "
                "resizeable locked heightfromfont platform working_directory bfolder pointlist "
                "font type min")
                .split(' ');
        static const QByteArray tags[] = {"Widget_Group_T", "Kiv_Screen_T", "Test_Circle_T",
                                          "Kiv_Project_T", "widget"};
        const auto pick = [&](const auto &list) {
            return list[random.bounded(int(std::size(list)))];
        };
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

    QByteArray m_library;
    QByteArray m_project;
};

QTEST_MAIN(tst_ModelFuzz)
#include "tst_modelfuzz.moc"
