#pragma once

#include <QObject>
#include <QPersistentModelIndex>

class CPropertyEditorFactory;
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
    /// Of the browser, which owns this; the factory makes its editors.
    CPropertyRows(QtTreePropertyBrowser *browser, CPropertyEditorFactory *factory);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void pressed(const QMouseEvent &event);
    void released(const QMouseEvent &event);
    void goOn(bool forward);
    bool edit(QTreeWidgetItem *item);

    QtTreePropertyBrowser *const m_browser;
    CPropertyEditorFactory *const m_factory;
    QTreeWidget *const m_tree;
    QPersistentModelIndex m_pressed; ///< the value whose editor the press has opened
};
