#include "update/qvupdateclass.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

// Until the update server is configured the dialog only tells the running
// version; it is never accepted.
QVUpdateClass::QVUpdateClass(const QString &version, const QString &settingsDir, QWidget *parent)
    : QDialog(parent), version(version), settingsDir(settingsDir)
{
    setObjectName(QStringLiteral("updateDialog"));
    setWindowTitle(tr("Check for Updates"));
    auto *layout = new QVBoxLayout(this);
    auto *label = new QLabel(tr("Installed version: %1").arg(version) + QStringLiteral("\n\n") +
                                 tr("No update server is configured in this version."),
                             this);
    layout->addWidget(label);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}
