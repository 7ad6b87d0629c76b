#pragma once

#include "CPendingEdit.h"
#include "CProjectModel.h"
#include "NumberExpression.h"

#include <QHash>
#include <QPointer>
#include <QSet>
#include <QWidget>
#include <QtVariantEditorFactory>

#include <functional>

/// The editors of the property panel. Each hands its value to the manager once for an edit: when
/// Enter is pressed or the editor is left, and for steps after a short rest.
class CPropertyEditorFactory : public QtVariantEditorFactory
{
    Q_OBJECT

public:
    explicit CPropertyEditorFactory(QObject *parent = nullptr);

    /// Commits or drops what is being edited; before the rows go.
    void commitPending();
    void discardPending();
    /// Rows that get a button for choosing a file.
    void setFileRow(QtProperty *property);
    /// Rows whose text may have line ends.
    void setMultiLine(QtProperty *property);
    /// The names that expressions in number fields may have.
    void setNames(const NumberExpression::Names &names) { m_names = names; }
    /// Whose fonts and line drawings the lists show; null: lists without pictures.
    void setProject(const CProjectModel *project) { m_project = project; }
    /// A click that has opened the row's editor: turns a switch over, opens a list.
    void use(QtProperty *property);

Q_SIGNALS:
    void fileWanted(QtProperty *property);
    void colourWanted(QtProperty *property, QWidget *editor);
    void nextWanted(bool forward); ///< the editor of the next row, in place of the open one
    /// Of the open editor, around the commit of a step; and when its steps are not wanted.
    void stepping(bool isFirst, bool goesOn);
    void stepped();
    void stepsTakenBack();

protected:
    void connectPropertyManager(QtVariantPropertyManager *manager) override;
    QWidget *createEditor(QtVariantPropertyManager *manager, QtProperty *property,
                          QWidget *parent) override;
    void disconnectPropertyManager(QtVariantPropertyManager *manager) override;

private:
    struct SEditor
    {
        QPointer<QWidget> widget;
        QPointer<CPendingEdit> pending;
        std::function<void()> showValue; ///< in the widget, without taking it for an edit
    };

    QWidget *makeWholeNumberEditor(QtVariantPropertyManager *manager, QtProperty *property,
                                   QWidget *parent);
    QWidget *makeSpinBox(QtVariantPropertyManager *manager, QtProperty *property, QWidget *parent);
    QWidget *makeNumberBox(QtVariantPropertyManager *manager, QtProperty *property,
                           QWidget *parent);
    QWidget *makePixelBox(QtVariantPropertyManager *manager, QtProperty *property, QWidget *parent);
    QWidget *makeFontBox(QtVariantPropertyManager *manager, QtProperty *property, QWidget *parent);
    QWidget *makeLineEdit(QtVariantPropertyManager *manager, QtProperty *property, QWidget *parent);
    QWidget *makeColourEdit(QtVariantPropertyManager *manager, QtProperty *property,
                            QWidget *parent);
    QWidget *makeTimeEdit(QtVariantPropertyManager *manager, QtProperty *property, QWidget *parent);
    QWidget *makeTextBox(QtVariantPropertyManager *manager, QtProperty *property, QWidget *parent);
    QWidget *makeCheckBox(QtVariantPropertyManager *manager, QtProperty *property, QWidget *parent);
    QWidget *makeComboBox(QtVariantPropertyManager *manager, QtProperty *property, QWidget *parent);
    /// Keeps a new editor in step with its row. `value` gives what the widget shows.
    CPendingEdit *follow(QtVariantPropertyManager *manager, QtProperty *property, QWidget *widget,
                         const std::function<QVariant()> &value,
                         const std::function<void()> &showValue);
    void refresh(QtProperty *property);
    void forget(QtProperty *property);

    QHash<QtProperty *, SEditor> m_editors;
    QPointer<const CProjectModel> m_project;
    QtProperty *m_fileRow = nullptr;
    QSet<QtProperty *> m_multiLineRows;
    NumberExpression::Names m_names;
};
