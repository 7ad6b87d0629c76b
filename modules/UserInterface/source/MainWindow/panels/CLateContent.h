#pragma once

#include <QObject>
#include <QPointer>

class QDockWidget;

/// Takes what a hidden dock holds out of the window until the dock is shown first: a style sheet is
/// matched with every widget of the window, also with those that nobody sees.
class CLateContent final : public QObject
{
    Q_OBJECT

public:
    /// The dock is not shown yet, and has its content. Its child.
    explicit CLateContent(QDockWidget *dock);
    ~CLateContent() override; ///< and what was never shown

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QDockWidget *const m_dock;
    QPointer<QWidget> m_content; ///< null when the dock has it
};
