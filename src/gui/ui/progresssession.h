// A progress dialog that appears with the first progress report of a long
// operation, so that errors found before any work starts (a file that cannot
// be opened) show without an empty progress window behind them.
#pragma once

#include "core/base/progress.h"
#include "gui/ui/progressdialogclass.h"

#include <QPointer>
#include <QString>

#include <functional>

class QDialog;
class QWidget;

namespace qv {

class ProgressSession
{
public:
    // onShow runs once, right before the dialog appears (sets the wait cursor).
    ProgressSession(QWidget *parent, const QString &text, const QString &detail, std::function<void()> onShow = {});
    ~ProgressSession();
    ProgressSession(const ProgressSession &) = delete;
    ProgressSession &operator=(const ProgressSession &) = delete;

    void set(int mainValue, int detailValue);
    ProgressFn callback();

    ProgressDialogClass *dialog() const { return shownDialog; }
    // Hands the dialog over to an error exit that releases it; null if none was shown.
    QDialog *take();
    // Schedules the dialog for deletion.
    void release();

private:
    QWidget *parentWidget;
    QString mainText;
    QString detailText;
    std::function<void()> beforeShow;
    QPointer<ProgressDialogClass> shownDialog;
    int lastMain = -1;
    int lastDetail = -1;
};

}  // namespace qv
