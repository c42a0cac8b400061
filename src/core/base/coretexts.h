// The user texts of the core (failure messages, questions, chart and page
// labels) are English source texts in a translation context of their own, so
// that no widget class reaches into the core. The core marks them with
// QT_TRANSLATE_NOOP("QuorvantaCore", ...), the name written out because
// lupdate reads contexts only as literals; the widgets show them through
// g_coreText().
#pragma once

#include <QCoreApplication>
#include <QString>

namespace qv {

constexpr const char kCoreTextContext[] = "QuorvantaCore";

// A text the core gave in English, in the language of the installed translators.
inline QString g_coreText(const char *source)
{
    return QCoreApplication::translate(kCoreTextContext, source ? source : "");
}

inline QString g_coreText(const QString &source)
{
    return QCoreApplication::translate(kCoreTextContext, source.toUtf8().constData());
}

}  // namespace qv
