#include "CLateContent.h"

#include <QDockWidget>
#include <QEvent>

#include <utility>

CLateContent::CLateContent(QDockWidget *dock)
    : QObject(dock), m_dock(dock), m_content(dock->widget())
{
    m_content->setParent(nullptr);
    dock->installEventFilter(this);
}

CLateContent::~CLateContent()
{
    delete m_content;
}

bool CLateContent::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show && m_content) {
        QWidget *content = std::exchange(m_content, nullptr);
        m_dock->setWidget(content);
        content->show();
    }
    return QObject::eventFilter(watched, event);
}
