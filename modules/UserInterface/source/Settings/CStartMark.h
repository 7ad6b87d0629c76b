#pragma once

#include <QObject>
#include <QString>

class QWidget;

/// Tells a start of the program whether one before it ended without having shown its window.
/// Mark:   a file beside the settings, from the making of this object until the window has been
///         painted, or the object goes: then the program ends in order. The process holds a lock on
///         its mark, so that another copy that is just starting is not taken for one that failed.
/// Errors: none; where no mark can be made, no failure is seen.
class CStartMark : public QObject
{
    Q_OBJECT

public:
    /// `settingsFile`: the mark lies beside it.
    CStartMark(const QString &settingsFile, QWidget *window);
    ~CStartMark() override;
    CStartMark(const CStartMark &) = delete;
    CStartMark &operator=(const CStartMark &) = delete;

    bool isAfterFailure() const { return m_isAfterFailure; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void removeLeft(const QString &settingsFile);
    void remove();

    QString m_path; ///< empty: there is none
    int m_file = -1;
    bool m_isAfterFailure = false;
};
