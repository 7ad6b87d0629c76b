#include "CEditorState.h"
#include "CToolboxModel.h"
#include "CWidgetLibraryModel.h"
#include "CWidgetSelectionPanel.h"
#include "CWidgetSelectionView.h"

#include <QDataStream>
#include <QDomDocument>
#include <QLineEdit>
#include <QMimeData>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTest>

namespace {

QListWidgetItem *entry(const CWidgetSelectionView &view, const QString &text)
{
    return view.findItems(text, Qt::MatchExactly).value(0);
}

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
    void initTestCase()
    {
        QPixmap icon(64, 64);
        icon.fill(Qt::red);
        const QString iconFile = m_folder.filePath("icon.png");
        QVERIFY(icon.save(iconFile));
        const auto widget = [&iconFile](const QString &type, const QString &name) {
            return QStringLiteral("<widget type='%1' name='%2'><icon>%3</icon><properties/>"
                                  "<rendercmds/><tooltip>About %2</tooltip></widget>")
                .arg(type, name, iconFile);
        };
        QDomDocument document;
        QVERIFY(document.setContent(
            "<widgetlibrary><toolboxgroup name='Shapes'>" + widget("Kiv_Line_T", "Line") +
            widget("Kiv_Circle_T", "Circle") + "</toolboxgroup><toolboxgroup name='Controls'>" +
            widget("Kiv_Button_T", "Button") + "</toolboxgroup></widgetlibrary>"));
        m_toolbox = std::make_unique<CToolboxModel>(document);
        m_library = std::make_unique<CWidgetLibraryModel>(document, 0x100);
    }

    void headersCannotBeUsed()
    {
        CWidgetSelectionView view;
        view.setToolbox(m_toolbox.get(), m_library.get());
        QCOMPARE(shown(view), (QStringList{"Shapes", "Line", "Circle", "Controls", "Button"}));
        view.setCurrentRow(0);
        QVERIFY(!view.dragData());
        view.setCurrentItem(nullptr);
        QVERIFY(!view.dragData());
    }

    void dragCarriesTheType()
    {
        CWidgetSelectionView view;
        view.setToolbox(m_toolbox.get(), m_library.get());
        view.setCurrentItem(entry(view, "Circle"));
        QVERIFY(std::unique_ptr<QMimeData>(view.dragData()));
        CEditorState::instance()->setSnapToGrid(true);
        QCOMPARE(view.dragHotSpot(), QPoint(0, 0));
        CEditorState::instance()->setSnapToGrid(false);
        QCOMPARE(view.dragHotSpot(), QPoint(32, 32));
    }

    void filterKeepsGroupsOfWhatItShows()
    {
        CWidgetSelectionPanel panel;
        panel.view()->setToolbox(m_toolbox.get(), m_library.get());
        auto *filter = panel.findChild<QLineEdit *>("widgetFilter");
        QVERIFY(filter);
        filter->setClearButtonEnabled(false); // its fading would outlive the program and be a leak
        QTest::keyClicks(filter, "CIRC");
        QCOMPARE(shown(*panel.view()), (QStringList{"Shapes", "Circle"}));
        filter->setText("about shapes lin");
        QCOMPARE(shown(*panel.view()), (QStringList{"Shapes", "Line"}));
        filter->setText("nothing of this");
        QCOMPARE(shown(*panel.view()), QStringList());
        filter->clear();
        QCOMPARE(shown(*panel.view()).size(), 5);
    }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<CToolboxModel> m_toolbox;
    std::unique_ptr<CWidgetLibraryModel> m_library;
};

QTEST_MAIN(tst_WidgetPalette)
#include "tst_widgetpalette.moc"
