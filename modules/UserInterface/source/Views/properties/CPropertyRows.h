#pragma once

#include <QObject>
#include <QPersistentModelIndex>
#include <QPoint>

class CPropertyDelegate;
class CPropertyEditorFactory;
class CPropertyLayout;
class QMouseEvent;
class QTreeWidgetItem;
class QtTreePropertyBrowser;
class QTreeWidget;

/// How one gets about in the property panel: Tab leads from editor to editor and out of the panel
/// behind the last one, and one click opens a list or turns a switch over.
class CPropertyRows : public QObject
{
    Q_OBJECT

public:
    /// Of the browser, which owns this; the factory makes its editors, and the delegate opens them.
    CPropertyRows(QtTreePropertyBrowser *browser, CPropertyEditorFactory *factory,
                  CPropertyDelegate *delegate, const CPropertyLayout *layout);

    /// Opens the editor of one value of a row. False when it has none.
    bool edit(QTreeWidgetItem *item, int part);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void pressed(const QMouseEvent &event);
    void released(const QMouseEvent &event);
    void goOn(bool forward);

    QtTreePropertyBrowser *const m_browser;
    CPropertyEditorFactory *const m_factory;
    CPropertyDelegate *const m_delegate;
    const CPropertyLayout *const m_layout;
    QTreeWidget *const m_tree;
    QPoint m_pressedAt;
    QPersistentModelIndex m_pressed; ///< the value whose editor the press has opened
};
