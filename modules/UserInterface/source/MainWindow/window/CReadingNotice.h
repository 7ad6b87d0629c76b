#pragma once

#include <QLabel>
#include <QTimer>

class QMainWindow;

/// Tells in a corner of the canvas which project is being read in the background, also where the
/// pointer does not show it and while there is no status bar. What is read at once is not told.
class CReadingNotice final : public QLabel
{
    Q_OBJECT

public:
    explicit CReadingNotice(QMainWindow *window);

    /// Empty: none is being read any more.
    void tell(const QString &path);

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void place();
    void retranslate();

    QMainWindow *const m_window;
    QString m_path;
    QTimer m_delay;
};
