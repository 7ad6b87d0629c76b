#pragma once

#include <QFileDialog>

/// Asks for a folder to write into: one that is there, or one that is yet to be made.
class CFolderDialog final : public QFileDialog
{
    Q_OBJECT

public:
    CFolderDialog(QWidget *parent, const QString &title, const QString &folder,
                  const QString &acceptText);

    /// Full path; empty when the user cancels.
    QString ask();

protected:
    void accept() override;

private:
    bool isNew() const;
};
