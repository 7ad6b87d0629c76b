#pragma once

#include <QObject>

#include <functional>
#include <memory>

class CItemModel;
class CLiveEdit;
class CNumberDrag;
class QPoint;
class QtProperty;
class QtVariantPropertyManager;
class QWidget;

/// Drags on the names of number rows in a property browser change the number: seen at once, one
/// step when the drag ends.
class CRowDrag : public QObject
{
    Q_OBJECT

public:
    struct SUse
    {
        std::function<QtProperty *(const QPoint &)> rowAt; ///< whose name is there; or null
        std::function<QString(QtProperty *)> key;          ///< of the item's property
        std::function<CItemModel *()> item;                ///< that is shown; null when none is
        std::function<void()> begins;                      ///< an open editor is to be finished
    };
    /// Of the view that shows the rows, which owns this. The manager has their limits and steps.
    CRowDrag(QWidget *view, QtVariantPropertyManager *manager, const SUse &use);
    ~CRowDrag() override;

    /// Puts back what is being dragged: the item is about to go.
    void cancel();

private:
    QtProperty *numberAt(const QPoint &place) const;
    void begin(const QPoint &place);
    void show(int steps);
    void end(bool isKept);

    QtVariantPropertyManager *const m_manager;
    const SUse m_use;
    CNumberDrag *const m_drag;
    std::unique_ptr<CLiveEdit> m_edit;
    double m_step = 1;
    double m_least = 0;
    double m_most = 0;
};
