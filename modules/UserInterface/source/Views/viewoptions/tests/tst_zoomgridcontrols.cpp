#include "CGridComboWidget.h"
#include "CZoomComboWidget.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include <functional>

class tst_ZoomGridControls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<Qt::PenStyle>(); }

    /// A change is announced once; what holds already is not, but when it is set from outside.
    void zoom()
    {
        using Zoom = CZoomComboWidget;
        struct SStep
        {
            std::function<void(Zoom &)> act;
            int signalCount;
            int percent;
            int type;
        };
        const SStep steps[] = {
            {[](Zoom &w) { w.setZoom(100, 0); }, 1, 100, 0},
            {[](Zoom &w) { w.valueChanged(100); }, 0, 100, 0},
            {[](Zoom &w) { w.findChild<QSpinBox *>()->setValue(20); }, 1, 50, 0}, // the lower end
            {[](Zoom &w) { w.resetZoom(); }, 1, 100, 0},
            {[](Zoom &w) { w.zoomFitToPage(); }, 1, 100, 1},
            {[](Zoom &w) { w.zoomFitToPage(); }, 0, 100, 1},
            {[](Zoom &w) { w.valueChanged(20); }, 1, 20, 1}, // fitted values know no limits
            {[](Zoom &w) { w.findChild<QComboBox *>()->setCurrentIndex(2); }, 1, 20, 2},
            {[](Zoom &w) { w.resetZoom(); }, 1, 100, 0},
        };
        Zoom widget;
        QSignalSpy spy(&widget, &Zoom::zoomChanged);
        for (const SStep &step : steps) {
            spy.clear();
            step.act(widget);
            QCOMPARE(spy.count(), step.signalCount);
            QCOMPARE(widget.zoomPercent(), step.percent);
            QCOMPARE(widget.zoomType(), step.type);
            QVERIFY(spy.isEmpty() || spy.last() == QVariantList({step.percent, step.type}));
            QCOMPARE(widget.findChild<QComboBox *>()->currentIndex(), step.type);
            QCOMPARE(widget.findChild<QSlider *>()->isEnabled(), step.type == 0);
        }
    }

    void gridSettings()
    {
        CGridComboWidget widget;
        QSignalSpy spy(&widget, &CGridComboWidget::gridChanged);
        widget.setGrid(true, 35, Qt::green, Qt::DotLine);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.first(), QVariantList({true, 35, QColor(Qt::green),
                                            QVariant::fromValue(Qt::PenStyle(Qt::DotLine))}));
        widget.findChild<QSlider *>()->setValue(40);
        QCOMPARE(widget.findChild<QSpinBox *>()->value(), 40);
        QCOMPARE(spy.count(), 2);
    }

    void gridColourDialog()
    {
        CGridComboWidget widget;
        QSignalSpy spy(&widget, &CGridComboWidget::gridChanged);
        for (const bool accepted : {false, true}) {
            QTimer::singleShot(0, this, [accepted] {
                auto *dialog = qobject_cast<QColorDialog *>(QApplication::activeModalWidget());
                dialog->setCurrentColor(Qt::cyan);
                accepted ? dialog->accept() : dialog->reject();
            });
            widget.chooseColor();
            QCOMPARE(spy.count(), int(accepted));
        }
        QCOMPARE(widget.gridColor(), QColor(Qt::cyan));
    }
};

QTEST_MAIN(tst_ZoomGridControls)
#include "tst_zoomgridcontrols.moc"
