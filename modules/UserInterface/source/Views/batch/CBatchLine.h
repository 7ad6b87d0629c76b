#pragma once

#include "CBatchField.h"

class CPendingEdit;
class QLineEdit;

/// A field with one line that is typed: a text, or what its heirs make of it. Enter and leaving it
/// take it over, Escape takes it back; what is wrong is told below it and stays to be mended.
class CBatchLine : public CBatchField
{
    Q_OBJECT

public:
    CBatchLine(CBatchEditor *editor, const QString &key, QWidget *parent);

    void show(const CBatchItems::SProperty &property) override;
    void commit() override;
    bool isBeingEdited() const override;

protected:
    QLineEdit *line() const { return m_line; }
    CPendingEdit *pending() const { return m_pending; }
    bool isMixed() const { return m_isMixed; }
    /// How a value reads in the line.
    virtual QString textOf(const CWidgetProperty &property) const;
    /// Gives the text to the items; what is wrong with it otherwise.
    virtual QString take(const QString &text);
    /// Takes over what else is pending.
    virtual void takePending();

private:
    void showAgain();

    QLineEdit *const m_line;
    CPendingEdit *const m_pending;
    QString m_shown;
    bool m_isMixed = false;
};
