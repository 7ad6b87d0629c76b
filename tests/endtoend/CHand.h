#pragma once

#include "CDisplay.h"

/// A user's hand that counts what it does: clicks (a drag is one) and strokes of keys (a chord is
/// one, typed characters one each).
class CHand
{
public:
    explicit CHand(CDisplay &display) : m_display(display) {}

    void click(const QPoint &place)
    {
        ++m_clicks;
        m_display.click(place);
    }
    void drag(const QPoint &from, const QPoint &to)
    {
        ++m_clicks;
        m_display.drag(from, to);
    }
    void key(const char *name)
    {
        ++m_keys;
        m_display.key(name);
    }
    void type(const char *text)
    {
        m_keys += int(qstrlen(text));
        m_display.type(text);
    }

    int clicks() const { return m_clicks; }
    int keys() const { return m_keys; }

private:
    CDisplay &m_display;
    int m_clicks = 0;
    int m_keys = 0;
};
