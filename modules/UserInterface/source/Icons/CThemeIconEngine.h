#pragma once

#include <QIconEngine>
#include <QString>

/// Draws one icon of the editor from the pictures of the theme that is in force at that moment, in
/// the size nearest to the one wanted. A disabled icon is the same drawing in one quiet colour,
/// which stays readable; Qt's own greying would leave it almost as bright as an enabled one.
class CThemeIconEngine final : public QIconEngine
{
public:
    enum class EMark { None, Dot };

    explicit CThemeIconEngine(const QString &name, EMark mark = EMark::None);
    static bool exists(const QString &name);

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    /// `size` is in device pixels.
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) const override;
    QString iconName() const override { return m_name; }
    QIconEngine *clone() const override { return new CThemeIconEngine(m_name, m_mark); }

private:
    const QString m_name;
    const EMark m_mark;
};
