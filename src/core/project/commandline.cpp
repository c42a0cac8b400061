#include "core/project/commandline.h"

#include "core/import/inputkind.h"

namespace qv {

QString g_projectArgument(int argc, const char *const *argv)
{
    if (argc != 2 || !argv || !argv[1])
        return QString();
    return QString::fromLatin1(argv[1]).replace(QLatin1Char('\\'), QLatin1Char('/'));
}

StartRequest g_startRequest(int argc, const char *const *argv)
{
    StartRequest request;
    request.path = g_projectArgument(argc, argv);
    if (request.path.isEmpty())
        return request;
    const InputKind kind = g_detectInputKind(request.path);
    request.action = kind == InputKind::Unknown || kind == InputKind::Project ? StartRequest::OpenProject
                                                                              : StartRequest::ImportSampling;
    return request;
}

}  // namespace qv
