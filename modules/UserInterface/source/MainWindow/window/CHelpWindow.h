#pragma once

#include <QWidget>

class QUrl;
class QWebView;

/// Shows the user guide in a window of its own. Links that lead out of it open in the system's
/// browser.
class CHelpWindow final : public QWidget
{
    Q_OBJECT

public:
    /// `page`: the file that is shown first; absolute. `place`: the id of a part of it, or empty.
    CHelpWindow(const QString &page, const QString &place, QWidget *parent);

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showTheme();
    void follow(const QUrl &url);

    const QString m_folder; ///< of the page
    QWebView *const m_view;
};
