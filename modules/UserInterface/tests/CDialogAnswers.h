#pragma once

#include <QApplication>
#include <QDialog>
#include <QErrorMessage>
#include <QEvent>
#include <QMessageBox>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <deque>
#include <functional>

/// Answers modal dialogs as they open, one answer a dialog, in order. A dialog that nobody has
/// reckoned with is rejected and counted, so that no test hangs.
class CDialogAnswers : public QObject
{
public:
    using Answer = std::function<void(QDialog *)>;

    CDialogAnswers() { qApp->installEventFilter(this); }

    void expect(Answer answer) { m_answers.push_back(std::move(answer)); }
    bool allGiven() const { return m_answers.empty() && m_unexpected == 0; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *dialog = qobject_cast<QDialog *>(watched);
        if (event->type() == QEvent::Show && dialog && dialog->isModal() &&
            !qobject_cast<QErrorMessage *>(dialog))
            QTimer::singleShot(0, dialog, [this, dialog] { answer(dialog); });
        return false;
    }

private:
    void answer(QDialog *dialog)
    {
        if (m_answers.empty()) {
            ++m_unexpected;
            const auto *box = qobject_cast<QMessageBox *>(dialog);
            qWarning("unexpected dialog: %s %s", qUtf8Printable(dialog->windowTitle()),
                     box ? qUtf8Printable(box->text()) : "");
            dialog->reject();
            return;
        }
        const Answer given = std::move(m_answers.front());
        m_answers.pop_front();
        given(dialog);
        if (dialog->isVisible())
            dialog->reject();
    }

    std::deque<Answer> m_answers;
    int m_unexpected = 0;
};
