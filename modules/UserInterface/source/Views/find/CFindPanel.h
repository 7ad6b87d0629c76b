#pragma once

#include "CFindPictures.h"
#include "CFindResults.h"
#include "CFindSession.h"

#include <QWidget>

class CItemModel;
class CProjectModel;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class QToolButton;

/// Finds items over all pages and leads to them, and replaces what was found in those that are
/// ticked. Results follow the project as long as the panel is seen.
class CFindPanel final : public QWidget
{
    Q_OBJECT

public:
    explicit CFindPanel(QWidget *parent = nullptr);

    void setProject(CProjectModel *project); ///< not owned; null for none
    /// Brings the keys into the field, all of its text selected.
    void startFind();
    void startReplace();
    /// Leads to the next or, with -1, the previous result; around at the ends.
    void step(int by);
    /// Whether there is a text to look for.
    bool hasQuery() const;
    QString propertyHint() const;
    CFindSession *session() { return &m_session; }
    QListView *list() const { return m_list; }

Q_SIGNALS:
    void itemChosen(CItemModel *item);
    void left(); ///< Esc: the keys are wanted elsewhere

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makeFields();
    void makeList();
    void layOut();
    void retranslate();
    void setReplacing(bool isReplacing);
    void search();
    void fieldChanged();
    void fillChoices();
    QString replacementText() const;
    void showResults();
    void showState();
    void choose(const QModelIndex &index);
    void replace();

    CFindSession m_session;
    CFindPictures m_pictures;
    CFindResults m_results;
    QToolButton *m_more = nullptr;
    QLineEdit *m_text = nullptr;
    QToolButton *m_case = nullptr;
    QToolButton *m_pattern = nullptr;
    QComboBox *m_field = nullptr;
    QLabel *m_state = nullptr;
    QWidget *m_replaceRow = nullptr;
    QLineEdit *m_by = nullptr;
    QComboBox *m_choice = nullptr; ///< in its place, for what is chosen and not typed
    QPushButton *m_replace = nullptr;
    QCheckBox *m_all = nullptr;
    QListView *m_list = nullptr;
};
