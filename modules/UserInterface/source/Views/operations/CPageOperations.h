#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QVector>

class CProjectModel;
class CScreenModel;
class QMimeData;
struct SItemElement;

/// What is done with whole screens ("pages") of a project: clipboard and page files. Knows no
/// window and no clipboard.
/// Errors:  documents that cannot be read or written change nothing; the reason is the result,
///          which is empty when all went well. Images of another project come along with its pages;
///          pages whose images are missing are added all the same, and the result says which.
class CPageOperations
{
    Q_DECLARE_TR_FUNCTIONS(CPageOperations)

public:
    using Screens = QVector<const CScreenModel *>;

    explicit CPageOperations(CProjectModel *project);

    /// The screens as clipboard data, owned by the caller; null, and the reason, when they cannot
    /// be a document.
    static QMimeData *copy(const Screens &screens, QString *error);
    /// The same and, as one undo step, the screens are gone.
    QMimeData *cut(const QVector<CScreenModel *> &screens, QString *error);
    static bool canPaste(const QMimeData *data);
    /// Appends the screens of clipboard data, as one undo step, with all values in canonical form.
    QString paste(const QMimeData *data);

    static QString save(const Screens &screens, const QString &path);
    /// Appends the screens of a page file, as one undo step.
    QString load(const QString &path);

private:
    enum class Values { AsTheyAre, Canonical };

    QString refusalOf(const SItemElement &root) const;
    QString addScreens(SItemElement &root, const QString &macroText, Values values,
                       const QByteArray &fonts = {});
    void makeValuesCanonical();

    CProjectModel *const m_project; ///< not owned
};
