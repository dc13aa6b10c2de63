#ifndef SELVORA_PROJECT_SCORMPACKAGE_H
#define SELVORA_PROJECT_SCORMPACKAGE_H

#include "project/ExportResult.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace selvora {
namespace document {
class Document;
}

namespace project {

// The lesson as a SCORM 1.2 package for a learning platform: the exported page as index.html,
// the media it shows, and imsmanifest.xml naming them, in one zip beside the project file. The
// page reports to the platform when one is around and plays the same without one.
class ScormPackage {
public:
    // Writes <base>-scorm.zip into the project folder.
    static ExportResult run(const document::Document* document, const QString& folder);

    // The manifest of a package that launches index.html and holds these files.
    static QByteArray manifest(const QString& identifier, const QString& title,
                               const QStringList& files);
};

} // namespace project
} // namespace selvora

#endif
