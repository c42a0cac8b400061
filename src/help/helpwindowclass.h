// The help window: shows the HTML pages of the language's help folder
// beside the program. Reports its geometry and state when it closes.
#pragma once

#include <QByteArray>
#include <QMainWindow>
#include <QString>

class QTextBrowser;

class HelpWindowClass : public QMainWindow
{
    Q_OBJECT

public:
    HelpWindowClass(const QString &appDir, const QString &page, quint32 language, QWidget *parent = nullptr);

    void m_setPage(const QString &page);
    QString m_helpFolder() const;

signals:
    void m_closed(QByteArray *pos, QByteArray *state);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QString appDir;
    quint32 language;
    QTextBrowser *browser;
    QByteArray closedPos;
    QByteArray closedState;
};
