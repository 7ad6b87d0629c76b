#pragma once

#include "CRecoveryCopy.h"

#include <QHash>
#include <QStringList>
#include <QWidget>

class QBoxLayout;
class QLabel;
class QPushButton;
class QScrollArea;

/// What the central area shows while no project is open: ways to one, as buttons and links, with
/// pictures of the recent projects and the examples. Covers its parent; scrolls where that is too
/// small for it.
class CStartPage final : public QWidget
{
    Q_OBJECT

public:
    /// `examples`: the folder that holds one folder for each example. It is read in the background.
    CStartPage(const QString &examples, QWidget *parent);

    void setRecentProjects(const QStringList &paths);
    /// Reads the pictures of the recent projects again.
    void readPictures();
    void setLeftWork(const QVector<CRecoveryCopy::SLeft> &left);
    /// Its texts are made when it is seen: it lies hidden behind every project that is open.
    void setVisible(bool visible) override;

Q_SIGNALS:
    void newProjectWanted();
    void openWanted();
    void projectWanted(const QString &path);
    void exampleWanted(const QString &path); ///< as a copy
    void recoveryWanted(const CRecoveryCopy::SLeft &left);
    void forgetWanted(const CRecoveryCopy::SLeft &left);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct SExample
    {
        QString project; ///< path of its file
        int width = 0;   ///< pixels of its picture, 0 without one
        QString picture; ///< as an address that holds the picture itself
    };

    /// With the pictures for a display of more than one pixel a unit, where there are any.
    static QVector<SExample> examplesBelow(const QString &folder, bool isFine);
    void makeContent();
    void showTexts();
    int room() const;
    QString recentProjects() const;
    QString examples() const;
    QString leftWorkInRows() const;
    void follow(const QString &link);

    bool m_areTextsOld = false;
    QVector<SExample> m_examples;
    QStringList m_recent;
    QHash<QString, QString> m_pictures; ///< of recent projects, as addresses
    QVector<CRecoveryCopy::SLeft> m_left;
    QScrollArea *m_area;
    QLabel *m_label;
    QLabel *m_title = nullptr;
    QPushButton *m_new = nullptr;
    QPushButton *m_open = nullptr;
    QBoxLayout *m_buttons = nullptr;
};
