#include "CColourChooser.h"
#include "CColourDialog.h"
#include "CColourField.h"
#include "CColourSwatches.h"
#include "CEmulatorAdapter.h"
#include "CPictureBox.h"
#include "CRecentColours.h"
#include "CanvasTestSupport.h"
#include "RomFonts.h"

#include <QUndoStack>
#include <QtWidgets>

class tst_Pickers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadWidgetLibrary(); }

    void init()
    {
        m_project = newTestProject();
        m_box = addWidget(*m_project, "Kiv_Rectangle_T");
        m_box->setProperty("fill_color", "#102030");
        m_panel.resize(200, 100);
        m_panel.show();
        QVERIFY(QTest::qWaitForWindowExposed(&m_panel));
    }

    /// Each once, whatever it is called, also of the pages; most used first.
    void coloursOfAProject()
    {
        m_project->screen(0)->setProperty("color", "red");
        m_box->setProperty("border_color", "#ff0000");
        m_box->setProperty("name", "#123456"); // is no colour
        QStringList found;
        for (const ProjectColours::SUse &each : ProjectColours::of(*m_project))
            found << each.colour.name(QColor::HexArgb) + '*' + QString::number(each.count);
        QCOMPARE(found.join(' '), "#ffff0000*2 #ff102030*1");
    }

    void recentColoursAreFewAndValid()
    {
        CRecentColours recent;
        QStringList given = {"#80102030", "no colour", "", "#80102030", "red"};
        for (int i = 0; i < 100; ++i)
            given << QColor(i, 0, 0).name();
        recent.setNames(given);
        QCOMPARE(recent.colours().size(), int(CRecentColours::Most));
        QCOMPARE(recent.names().mid(0, 3).join(' '), "#80102030 #ffff0000 #ff000000");
        recent.add(Qt::red);
        QCOMPARE(recent.names().mid(0, 2).join(' '), "#ffff0000 #80102030");
    }

    void chosen_data()
    {
        QTest::addColumn<QString>("way");
        QTest::addColumn<QString>("tried"); // seen on the item before the dialog is closed
        QTest::addColumn<bool>("accepted");
        QTest::newRow("typed") << "80ff8000"
                               << "#80ff8000" << true;
        QTest::newRow("typed, not wanted") << "#00ff00"
                                           << "#00ff00" << false;
        QTest::newRow("no colour") << "maybe"
                                   << "#102030" << true;
        QTest::newRow("of the project") << "project"
                                        << "#3a4a5a" << true;
        QTest::newRow("chosen last") << "recent"
                                     << "#0000ff" << true;
        QTest::newRow("dragged to the corner") << "corner"
                                               << "#000000" << true;
        QTest::newRow("keys") << "keys"
                              << "#14293d" << false; // brighter by 5 %
        QTest::newRow("item goes") << "cancel"
                                   << "#102030" << false;
    }

    /// Seen at once, one step when it is kept, and nothing otherwise.
    void chosen()
    {
        QFETCH(QString, way);
        QFETCH(QString, tried);
        QFETCH(bool, accepted);
        const QByteArray before = savedBytes(*m_project);
        CRecentColours::instance().setNames({"#0000ff"});
        CColourChooser chooser;
        chooser.choose({m_box}, "fill_color", &m_panel);
        const QPointer<CColourDialog> dialog = m_panel.findChild<CColourDialog *>();
        QVERIFY(dialog && QTest::qWaitForWindowExposed(dialog));
        auto *text = dialog->findChild<QLineEdit *>();
        QCOMPARE(text->text(), "#102030");
        auto *field = dialog->findChild<CColourField *>();
        const bool isSwatch = way == "project" || way == "recent";
        if (isSwatch) {
            auto *swatches = dialog->findChild<CColourSwatches *>(way + "Colours");
            const int index = swatches->colours().indexOf(QColor(tried));
            QVERIFY(index >= 0);
            QTest::mouseClick(swatches, Qt::LeftButton, {}, swatches->rectOf(index).center());
        } else if (way == "corner") {
            QTest::mousePress(field, Qt::LeftButton, {}, {100, 50});
            QMouseEvent move(QEvent::MouseMove, {-50, 900}, Qt::NoButton, Qt::LeftButton, {});
            qApp->sendEvent(field, &move);
        } else if (way == "keys") {
            for (int i = 0; i < 5; ++i)
                QTest::keyClick(field, Qt::Key_Up);
        } else if (way != "cancel") {
            text->selectAll();
            QTest::keyClicks(text, way);
        }
        QCOMPARE(m_project->undoStack()->count(), isSwatch ? 1 : 0); // which is taken by its click
        QCOMPARE(m_box->propertyText("fill_color"), tried);
        if (way == "cancel")
            chooser.cancel();
        else if (!isSwatch)
            QTest::keyClick(text, accepted ? Qt::Key_Return : Qt::Key_Escape);
        QTRY_VERIFY(!dialog);
        const bool isChange = accepted && tried != "#102030";
        QCOMPARE(m_box->propertyText("fill_color"), accepted ? tried : "#102030");
        QCOMPARE(m_project->undoStack()->count(), isChange ? 1 : 0);
        m_project->undoStack()->undo();
        QCOMPARE(savedBytes(*m_project), before);
        QCOMPARE(CRecentColours::instance().colours().first().name(QColor::HexArgb),
                 QColor(accepted ? tried : "#0000ff").name(QColor::HexArgb));
    }

    /// Byte for byte what lies in the ROM, on as many pages as it takes; each sample once.
    void samplesAreWhatTheChipDraws()
    {
        startEmulator();
        QVector<CSampleSheet::SSample> samples = {{"A", 26, {30, 30}},
                                                  {"heart", CSampleSheet::SSample::None, {24, 24}},
                                                  {"", 26, {0, 0}},
                                                  {"A", 34, {5000, 5000}},
                                                  {"no such", CSampleSheet::SSample::None, {9, 9}}};
        for (int more = 0; more < 30; ++more)
            samples.append({"A", 26, {200, 100}});
        QMap<int, QImage> drawn;
        CSampleSheet sheet(m_project.get());
        connect(&sheet, &CSampleSheet::drawn, this, [&](int index, const QImage &coverage) {
            QVERIFY(!drawn.contains(index));
            drawn.insert(index, coverage);
        });
        sheet.ask({samples.mid(0, 2)}); // what is asked for last counts
        sheet.ask(samples);
        QTRY_COMPARE(drawn.size(), samples.size() - 1);
        const romfonts::SGlyph *glyph = romfonts::glyph(26, 'A');
        const QRect ink = inkOf(drawn[0]);
        QCOMPARE(ink.size(), QSize(glyph->width, glyph->height));
        for (int y = 0; y < ink.height(); ++y) {
            for (int x = 0; x < ink.width(); ++x)
                QCOMPARE(drawn[0].constScanLine(ink.top() + y)[ink.left() + x],
                         glyph->coverage[y * glyph->stride + x]);
        }
        QVERIFY(inkOf(drawn[1]).height() > 15 && inkOf(drawn[4]).isNull());
        QCOMPARE(drawn[3].size(), m_project->resolution());
        sheet.ask(samples); // nobody waits for it
    }

    void fontsOfTheProjectComeFirst()
    {
        SProjectFont own;
        own.handle = 3;
        own.name = "Fancy";
        own.size = 20.5;
        m_project->setFonts({own});
        const auto entries = FontEntries::of(*m_project);
        QCOMPARE(entries.size(), 1 + romfonts::LastFont - romfonts::FirstFont + 1);
        QCOMPARE(entries.first().text, QString::fromUtf8("3 · 20.5 px · Fancy"));
        QCOMPARE(FontEntries::textOf(entries, 26), QString::fromUtf8("26 · 16 px"));
        QCOMPARE(FontEntries::textOf(entries, 99), "99");
    }

    /// Pictures come when the list is opened, and only then.
    void listsShowPictures()
    {
        startEmulator();
        CPictureBox box(m_project.get(), &m_panel);
        box.addItems({"heart", "bell"});
        for (int index : {0, 1})
            box.setSample(index, {box.itemText(index), CSampleSheet::SSample::None, {24, 24}});
        box.show();
        QVERIFY(box.itemData(1, CPictureBox::PictureRole).isNull());
        box.showPopup();
        QTRY_VERIFY(!inkOf(box.itemData(1, CPictureBox::PictureRole).value<QImage>()).isNull());
        QVERIFY(box.view()->grab().width() > 60); // and they are painted
        QTest::keyClick(box.view(), Qt::Key_Down);
        QTest::keyClick(box.view(), Qt::Key_Return);
        QCOMPARE(box.currentText(), "bell");
    }

private:
    static void startEmulator()
    {
        CEmulatorAdapter *adapter = CEmulatorAdapter::instance();
        QVERIFY(adapter->registerEmulator(qEnvironmentVariable("KIV_BIN_DIR") + "/kiv_render.lua"));
        adapter->emulatorStart(0x110);
        adapter->emulatorConfigScreen(480, 272);
    }
    static QRect inkOf(const QImage &coverage)
    {
        QRect ink;
        for (int y = 0; y < coverage.height(); ++y) {
            for (int x = 0; x < coverage.width(); ++x)
                ink |= coverage.constScanLine(y)[x] ? QRect(x, y, 1, 1) : QRect();
        }
        return ink;
    }

    std::unique_ptr<CProjectModel> m_project;
    CItemModel *m_box = nullptr;
    QWidget m_panel;
};

QTEST_MAIN(tst_Pickers)
#include "tst_pickers.moc"
