#ifndef SELVORA_PROJECT_HTMLEXPORT_H
#define SELVORA_PROJECT_HTMLEXPORT_H

#include "project/ExportResult.h"

#include <QByteArray>
#include <QString>

namespace selvora {
namespace document {
class Document;
}

namespace project {

class ExportSources;

// The lesson as one web page that plays it from the disk, with no service and no network: the
// player of resources/player with the project's data filled in, beside the medias folder.
class HtmlExport {
public:
    // Writes <base>.html into the project folder.
    static ExportResult run(const document::Document* document, const QString& folder);

    // The page, naming media as `sources` does; with scorm it also reports to an LMS.
    static QByteArray page(const document::Document* document, ExportSources& sources, bool scorm);

    // The base name of the exported files: the project file's, or the folder's.
    static QString baseName(const document::Document* document, const QString& folder);

    // False, with the message for the user, when there is no project folder to write into.
    static bool hasFolder(const QString& folder, ExportResult& result);

    // Writes data as the file `name` of the folder through a temporary file, so that a failed
    // export leaves the former one whole; the result says which to the user.
    static ExportResult writeFile(const QString& folder, const QString& name,
                                  const QByteArray& data);
};

} // namespace project
} // namespace selvora

#endif
