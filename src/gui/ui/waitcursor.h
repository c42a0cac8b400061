// The wait cursor of a long operation, set at most once and restored at most
// once, also when the owner goes away in the middle of the work.
#pragma once

#include <QApplication>

namespace qv {

class WaitCursor
{
public:
    WaitCursor() = default;
    ~WaitCursor() { restore(); }
    WaitCursor(const WaitCursor &) = delete;
    WaitCursor &operator=(const WaitCursor &) = delete;

    void set()
    {
        if (active)
            return;
        QApplication::setOverrideCursor(Qt::WaitCursor);
        active = true;
    }
    void restore()
    {
        if (!active)
            return;
        QApplication::restoreOverrideCursor();
        active = false;
    }

private:
    bool active = false;
};

}  // namespace qv
