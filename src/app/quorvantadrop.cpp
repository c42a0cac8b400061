// Files handed to the main window from outside: dropped on it, or named on
// the command line. A project opens as with Open, a sampling file becomes a
// new project through the importer of its kind.
#include "app/quorvantaclass.h"

#include "core/import/inputkind.h"
#include "document/qvchartclass.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

namespace {

// The one local file a drag carries and its kind, or an empty path.
QString droppedFile(const QMimeData *mime)
{
    if (!mime || !mime->hasUrls() || mime->urls().size() != 1 || !mime->urls().first().isLocalFile())
        return QString();
    const QString path = mime->urls().first().toLocalFile();
    return qv::g_detectInputKind(path) == qv::InputKind::Unknown ? QString() : path;
}

}  // namespace

bool QuorvantaClass::m_openFile(const QString &path)
{
    const qv::InputKind kind = qv::g_detectInputKind(path);
    if (kind == qv::InputKind::Unknown)
        return false;
    if (kind == qv::InputKind::Project) {
        s_openProject(path);
        return true;
    }
    // As Open does: close the current project (a Cancel at the prompt keeps
    // it), then an empty document which the import fills or which goes again.
    if (!s_closeProject())
        return true;
    s_newProject(true);
    if (!chart)
        return true;
    if (!chart->m_importSampling(kind, path)) {
        setWindowModified(false);
        s_closeProject();
        return true;
    }
    m_showClockReading();
    s_resizeDisplay();
    return true;
}

void QuorvantaClass::dragEnterEvent(QDragEnterEvent *event)
{
    if (droppedFile(event->mimeData()).isEmpty())
        return;
    event->acceptProposedAction();
}

void QuorvantaClass::dropEvent(QDropEvent *event)
{
    const QString path = droppedFile(event->mimeData());
    if (path.isEmpty())
        return;
    event->acceptProposedAction();
    // The prompt and the importer's questions run after the drop has ended,
    // so the program the file came from is not kept waiting.
    QTimer::singleShot(0, this, [this, path] { m_openFile(path); });
}
