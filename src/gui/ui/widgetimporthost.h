// The desktop program's answers to an import: message boxes and the progress dialog.
#pragma once

#include "core/import/importhost.h"

class QWidget;

namespace qv {

class ProgressSession;

class WidgetImportHost : public ImportHost
{
public:
    WidgetImportHost(QWidget *parent, ProgressSession &progress);

    bool askYesNo(const QString &title, const QString &question) override;
    void warn(const QString &message) override;
    void progress(int mainValue, int detailValue) override;

private:
    QWidget *parentWidget;
    ProgressSession &session;
};

}  // namespace qv
