#include "project/ExportSources.h"

#include "app/Definitions.h"
#include "document/Media.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>
#include <QUrl>

namespace selvora {
namespace project {

using MediaType = Definitions::kMediaType;

ExportSources::ExportSources(const QString& folder, bool packed)
    : folder_(QDir::cleanPath(QDir(folder).absolutePath())), packed_(packed) {}

QString ExportSources::fileOf(const document::Media* media) {
    const MediaType type = media->getType();
    if (type == MediaType::text || type == MediaType::shape) {
        const QString picture = media->getPathProject();
        return !picture.isEmpty() && QFileInfo(picture).isFile() ? picture : QString();
    }
    const QString stored = media->getPathProject();
    return stored.isEmpty() ? media->getPathStart() : stored;
}

QString ExportSources::urlOf(const document::Media* media) {
    const QString file = fileOf(media);
    if (file.isEmpty())
        return QString();
    QStringList parts = nameOf(file).split(QLatin1Char('/'));
    for (QString& part : parts)
        part = QString::fromLatin1(QUrl::toPercentEncoding(part));
    return parts.join(QLatin1Char('/'));
}

QString ExportSources::nameOf(const QString& file) {
    const auto known = names_.constFind(file);
    if (known != names_.constEnd())
        return known.value();
    const QString absolute = QDir::cleanPath(QFileInfo(file).absoluteFilePath());
    QString name = QDir(folder_).relativeFilePath(absolute);
    const bool outside = name.startsWith(QLatin1String("../")) || QFileInfo(name).isAbsolute();
    if (packed_ && outside) {
        // Numbered, so that two files of the same name from different folders stay apart.
        name =
            QStringLiteral("medias/extra/%1-%2").arg(++extras_).arg(QFileInfo(absolute).fileName());
    }
    if (packed_ && QFileInfo(absolute).isFile())
        packedFiles_.append({absolute, name});
    names_.insert(file, name);
    return name;
}

} // namespace project
} // namespace selvora
