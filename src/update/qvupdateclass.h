// The update dialog: compares the running version with the newest one and
// places the updater at settingsDir + "/QuorvantaUpdate"; accepted means
// the updater is ready to start after the program ends.
#pragma once

#include <QDialog>
#include <QString>

class QVUpdateClass : public QDialog
{
    Q_OBJECT

public:
    QVUpdateClass(const QString &version, const QString &settingsDir, QWidget *parent = nullptr);

private:
    QString version;
    QString settingsDir;
};
