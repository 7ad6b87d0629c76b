#pragma once

#include <QErrorMessage>
#include <QHash>

class QLabel;
class QPushButton;
class QTextEdit;

/// The one box for errors: the fixed text, and below it the reason. It has no box to untick, so
/// that no error can be silenced.
class CErrorBox final : public QErrorMessage
{
    Q_OBJECT

public:
    explicit CErrorBox(QWidget *window);

    /// Before the window, which waits until it is answered, with the focus.
    void tell(const QString &text, const QString &reason);
    /// In a corner of the window, without the focus, and with a way to Save As. As tell() while the
    /// window is not to be seen.
    void tellQuietly(const QString &text, const QString &reason);
    /// Takes that away when it is settled.
    void withdrawQuiet();
    void retranslate();

Q_SIGNALS:
    void saveAsWanted();

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void setQuiet(bool isQuiet);
    void showReason();
    void stayInCorner();

    QHash<QString, QString> m_reasons; ///< by text
    QTextEdit *const m_text;
    QLabel *m_reason;
    QPushButton *m_saveAs;
    bool m_isQuiet = false;
};
