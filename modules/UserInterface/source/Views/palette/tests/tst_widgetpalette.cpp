#include "CEditorState.h"
#include "CWidgetSelectionPanel.h"
#include "CWidgetSelectionView.h"
#include "CanvasTestSupport.h"

#include <QLineEdit>
#include <QMimeData>

#include <memory>

namespace {

QStringList shown(const CWidgetSelectionView &view)
{
    QStringList texts;
    for (int row = 0; row < view.count(); ++row) {
        if (!view.item(row)->isHidden())
            texts.append(view.item(row)->text());
    }
    return texts;
}

} // namespace

class tst_WidgetPalette : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadWidgetLibrary(); }

    void headersCannotBeUsed()
    {
        CWidgetSelectionView view;
        fill(view);
        QCOMPARE(shown(view).mid(0, 3), (QStringList{"Basic Shapes", "Rectangle", "Circle"}));
        for (const int row : {-1, 0}) { // nothing, and a header
            view.setCurrentRow(row);
            QVERIFY(!view.dragData());
        }
        view.setCurrentRow(1);
        QVERIFY(std::unique_ptr<QMimeData>(view.dragData()));
        CEditorState::instance()->setSnapToGrid(true);
        QCOMPARE(view.dragHotSpot(), QPoint(0, 0));
        CEditorState::instance()->setSnapToGrid(false);
        QCOMPARE(view.dragHotSpot(), QPoint(32, 32));
    }

    void filterKeepsGroupsOfWhatItShows()
    {
        CWidgetSelectionPanel panel;
        fill(*panel.view());
        const int count = shown(*panel.view()).size();
        auto *filter = panel.findChild<QLineEdit *>("widgetFilter");
        QVERIFY(filter);
        filter->setClearButtonEnabled(false); // its fading would outlive the program and be a leak
        QTest::keyClicks(filter, "CIRC");
        QCOMPARE(shown(*panel.view()).mid(0, 2), (QStringList{"Basic Shapes", "Circle"}));
        filter->setText("shapes lin");
        QCOMPARE(shown(*panel.view()).mid(0, 2), (QStringList{"Basic Shapes", "Line"}));
        filter->setText("nothing of this");
        QCOMPARE(shown(*panel.view()), QStringList());
        filter->clear();
        QCOMPARE(shown(*panel.view()).size(), count);
    }

    void bestMatchFirst_data()
    {
        QTest::addColumn<QString>("first");
        for (const char *text : {"signal", "strength", "sig str", "SIGNAL strength"})
            QTest::newRow(text) << "Signal strength";
        QTest::newRow("clock") << "Clock";   // "Digital clock" stands before it
        QTest::newRow("bar") << "Bar chart"; // and so does "Progress bar"
        QTest::newRow("text") << "Text";
        QTest::newRow("tton") << "Button";
        QTest::newRow("arc g") << "Arc gauge";
        QTest::newRow("Kiv_Media_T") << "Media";
    }

    void bestMatchFirst()
    {
        QFETCH(QString, first);
        CWidgetSelectionView view;
        fill(view);
        const QStringList all = shown(view);
        view.setFilter(QTest::currentDataTag());
        QCOMPARE(shown(view).value(1), first);
        QCOMPARE(view.currentItem()->text(), first);
        view.setFilter({});
        QCOMPARE(shown(view), all);
    }

private:
    static void fill(CWidgetSelectionView &view)
    {
        const auto &manager = CWidgetLibraryManager::instance();
        view.setToolbox(manager.toolboxModel(0x110), manager.libraryModel(0x110));
    }
};

QTEST_MAIN(tst_WidgetPalette)
#include "tst_widgetpalette.moc"
