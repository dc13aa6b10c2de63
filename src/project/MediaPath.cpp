#include "project/MediaPath.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace selvora {
namespace project {

MediaPath::MediaPath(const QString& folder)
    : folder_(QDir::cleanPath(folder)), canonicalFolder_(QDir(folder).canonicalPath()) {}

MediaPath::Resolved MediaPath::resolve(const QString& src) const {
    // Resolved by the text first, so that no ".." can take the path above the folder.
    QStringList parts;
    bool climbed = false;
    for (const QString& part : src.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        if (part == QLatin1String("."))
            continue;
        if (part != QLatin1String("..")) {
            parts.append(part);
        } else if (parts.isEmpty()) {
            climbed = true;
        } else {
            parts.removeLast();
        }
    }
    Resolved resolved{folder_ + QLatin1Char('/') + parts.join(QLatin1Char('/')), false};
    if (climbed)
        return resolved;
    const QFileInfo info(resolved.path);
    // A file that is not there is only missing; the views show it as such.
    if (!info.exists())
        resolved.readable = !info.isSymLink();
    else
        resolved.readable = info.isFile() && !canonicalFolder_.isEmpty() &&
                            info.canonicalFilePath().startsWith(canonicalFolder_ + '/');
    return resolved;
}

} // namespace project
} // namespace selvora
