#pragma once

#include "CBatchItems.h"

#include <QPointer>
#include <QScrollArea>
#include <QTimer>

class CBatchEditor;
class CBatchField;
class CProjectModel;
class QFormLayout;
class QLabel;
class QModelIndex;
class QToolButton;
class QVBoxLayout;

/// The batch edit: the properties of all selected items in one form, those that all have first. A
/// value that differs is told as "mixed" and stays unless it is edited. It follows the selection
/// and every change of the items; while it is hidden, it does nothing.
class CBatchEditView : public QScrollArea
{
    Q_OBJECT

public:
    explicit CBatchEditView(QWidget *parent = nullptr);

    /// Follows the changes of a project, which is not owned; null shows no items.
    void setProject(CProjectModel *project);
    void showItems(const QList<CItemModel *> &items);
    /// The limits and entries of the items' properties may be others now.
    void refresh();

    /// Whether it can be seen, and not only shown behind another tab.
    void setSeen(bool isSeen);

    /// What is being typed counts.
    void commit();
    bool isBeingEdited() const;
    /// Takes back what is being dragged or tried.
    void cancel();
    CBatchField *field(const QString &key) const; ///< null when there is none

Q_SIGNALS:
    void message(const QString &text); ///< for the output window

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void outdate();
    void update();
    void rebuild(const QVector<CBatchItems::SProperty> &properties);
    int widest(const QVector<CBatchItems::SProperty> &properties) const;
    void showOthers(bool areShown);
    CBatchField *makeField(const CBatchItems::SProperty &property, QWidget *parent);
    void addRow(QFormLayout *form, const CBatchItems::SProperty &property);
    void showText();
    void removed(const QModelIndex &parent, int first, int last);

    CBatchEditor *const m_editor;
    QPointer<CProjectModel> m_project;
    QList<CItemModel *> m_items;
    QVector<CBatchItems::SProperty> m_properties; ///< that the fields are for
    QVector<CBatchField *> m_fields;
    QWidget *m_form = nullptr;
    QLabel *m_text = nullptr;
    QToolButton *m_more = nullptr;
    QFormLayout *m_others = nullptr;
    int m_labelWidth = 0; ///< pixels, of all
    bool m_isSeen = true;
    bool m_areOthersShown = true;
    bool m_isOutdated = true; ///< other items than those that are shown
    QTimer m_update;          ///< values have changed
};
