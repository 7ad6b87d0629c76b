#pragma once

#include <QHash>
#include <QModelIndex>
#include <QPair>
#include <QPointer>
#include <QVector>
#include <QtTreePropertyBrowser>

#include "CEditSteps.h"
#include "CPointListRows.h"

class CColourChooser;
class CImageChooser;
class CItemModel;
class CProjectModel;
class CPropertyDelegate;
class CPropertyEditorFactory;
class CPropertyLayout;
class CPropertyManager;
class CRowDrag;
class CPropertyRows;
class CWidgetProperty;
class QTreeWidgetItem;

/// Shows and edits the properties of the one selected item. An edit is one command on the project's
/// undo stack; the model is never written directly. What changes the model elsewhere is mirrored.
class CWidgetPropertiesView : public QtTreePropertyBrowser
{
    Q_OBJECT

public:
    explicit CWidgetPropertiesView(QWidget *parent = nullptr);
    ~CWidgetPropertiesView() override;

    /// Follows the changes of a project, which is not owned; null shows no item.
    void setProject(CProjectModel *project);

    /// The selected items: exactly one is shown.
    void showItems(const QList<CItemModel *> &items);
    void showIndexes(const QModelIndexList &indexes);
    CItemModel *currentItemModel() const { return m_item; }

    /// Puts back what is being dragged.
    void cancelDrag();

    /// The limits and entries of the item's properties may be others now.
    void refresh();

    QtProperty *row(const QString &key) const { return m_rows.value(key); }
    /// Opens the editor of a row. False when there is none, or it is not to be edited.
    bool edit(const QString &key);
    /// Where the value of a row stands, in coordinates of the tree's viewport.
    QRect valueRect(const QString &key) const;
    CPropertyLayout *rowLayout() const { return m_layout; }
    /// Which sections are closed, whatever item is shown.
    QStringList closedSections() const;
    void setClosedSections(const QStringList &names);

public Q_SLOTS:
    void propertyChanged(CItemModel *item, const QString &key, const QVariant &value);
    /// The item's geometry has changed by a gesture and is not a property yet.
    void geometryChanged(CItemModel *item);

Q_SIGNALS:
    /// Something for the output window.
    void message(const QString &text);

protected:
    void itemChanged(QtBrowserItem *changed) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void onCurrentItemChanged(QtBrowserItem *current);

private:
    void makeDrag();
    QtProperty *rowNamedAt(const QPoint &place) const;
    void clearRows();
    void drawMarks();
    void showState();
    void showText(const QString &text);
    void rebuild();
    QString kindText() const;
    void addRow(const CWidgetProperty &property);
    void insertRow(QtProperty *row, const QString &key);
    QPair<QTreeWidgetItem *, int> place(const QString &key) const;
    void layOut(const QVector<CWidgetProperty> &properties);
    void commit(const QString &key, const QVariant &value);
    void change(const QString &key, const QVariant &value);
    void takeUp(const QString &key);
    void chooseFile();
    void chooseColour(QtProperty *row, QWidget *editor);
    void takeFocusBack();
    void changeFormat(const QString &format);
    void showLock();
    void forgetRemoved(const QModelIndex &parent, int first, int last);
    void showHeader();
    void spaceRows(const QModelIndex &parent, int first, int last);
    void fitColumns();

    CPropertyManager *m_manager;
    CPropertyEditorFactory *m_factory;
    CImageChooser *const m_images;
    CColourChooser *const m_colours;
    CRowDrag *m_drag = nullptr;
    CPropertyLayout *const m_layout;
    CPropertyDelegate *const m_delegate;
    CPropertyRows *const m_leading;
    QHash<QString, QtProperty *> m_rows; ///< by property key
    CPointListRows m_points;
    CEditSteps m_steps;
    QPointer<CProjectModel> m_project;
    CItemModel *m_item = nullptr; ///< null unless exactly one item is shown
    bool m_areSeveral = false;    ///< more items than one are selected
    QString m_currentKey;         ///< of the row that the user was at, for the next item
    bool m_updating = false;      ///< rows are being set from the model, not by the user
};
