#include "update/webupdateclass.h"

#include <QTimer>

// No update server is configured yet: the check ends at once with "nothing new".
WebUpdateClass::WebUpdateClass(const QString &version, QObject *parent) : QObject(parent), version(version)
{
    QTimer::singleShot(0, this, [this] { emit m_webUpdateReady(0); });
}
