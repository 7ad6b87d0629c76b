#pragma once

#include <QColor>
#include <QStringList>
#include <QVector>

/// The colours that were chosen last, newest first, for all panels and projects of the program.
class CRecentColours
{
public:
    static constexpr int Most = 16;

    static CRecentColours &instance();

    const QVector<QColor> &colours() const { return m_colours; }
    void add(const QColor &colour);

    /// As the settings keep them; what is no colour is passed over.
    QStringList names() const;
    void setNames(const QStringList &names);

private:
    QVector<QColor> m_colours;
};
