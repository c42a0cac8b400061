// Background version check: reports through m_webUpdateReady whether a
// newer version than the running one exists (non-zero) or not (0).
#pragma once

#include <QObject>
#include <QString>

class WebUpdateClass : public QObject
{
    Q_OBJECT

public:
    WebUpdateClass(const QString &version, QObject *parent = nullptr);

signals:
    void m_webUpdateReady(int found);

private:
    QString version;
};
