#include <QtTest>
class Placeholder : public QObject
{
    Q_OBJECT
private slots:
    void nothing() {}
};
QTEST_GUILESS_MAIN(Placeholder)
#include "tst_projectfile.moc"
