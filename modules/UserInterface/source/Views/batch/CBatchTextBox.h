#pragma once

#include "CBatchField.h"

class CPendingEdit;
class QPlainTextEdit;

/// A text that may have line ends; leaving it and Ctrl + Enter take it over.
class CBatchTextBox final : public CBatchField
{
    Q_OBJECT

public:
    CBatchTextBox(CBatchEditor *editor, const QString &key, QWidget *parent);

    void show(const CBatchItems::SProperty &property) override;
    void commit() override;
    bool isBeingEdited() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showAgain();

    QPlainTextEdit *const m_box;
    CPendingEdit *m_pending = nullptr;
    QString m_shown;
    QString m_loaded; ///< into the box
    bool m_isMixed = false;
};
