#pragma once

#include "CBatchItems.h"

#include <QWidget>

class CBatchEditor;

/// The field of one property in the batch edit. It shows what all items have, or that they differ,
/// and asks the editor for what the user does; what is not touched stays.
class CBatchField : public QWidget
{
    Q_OBJECT

public:
    /// Of the editor, which must outlive it.
    CBatchField(CBatchEditor *editor, const QString &key, QWidget *parent);

    const QString &key() const { return m_key; }
    /// Drops what was being typed.
    virtual void show(const CBatchItems::SProperty &property) = 0;
    virtual void commit() {}
    virtual bool isBeingEdited() const { return false; }

    /// What stands in place of a value where they differ.
    static QString mixedText();

Q_SIGNALS:
    void left(bool forward); ///< by Tab

protected:
    CBatchEditor *editor() const { return m_editor; }
    /// Its one widget, which gets the focus.
    void setContent(QWidget *content);

private:
    CBatchEditor *const m_editor;
    const QString m_key;
};
