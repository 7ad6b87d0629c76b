#pragma once

#include <QByteArray>

/// Counts the attributes of a document without parsing it, so that a reader whose time grows with
/// their square need not be given too many. Walks the bytes once; markup that is not well-formed
/// is counted somehow, since the reader stops there.
class CXmlTagScan
{
public:
    explicit CXmlTagScan(const QByteArray &xml);

    qint64 attributes() const { return m_attributes; }
    qint64 mostInOneElement() const { return m_mostInOneElement; }

private:
    const char *skipPast(const char *from, const char *text) const;
    const char *scanMarkup(const char *open);
    const char *scanTag(const char *from);

    const char *m_end;
    qint64 m_attributes = 0;
    qint64 m_mostInOneElement = 0;
};
