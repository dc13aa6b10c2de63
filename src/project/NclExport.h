#ifndef SELVORA_PROJECT_NCLEXPORT_H
#define SELVORA_PROJECT_NCLEXPORT_H

#include "project/ExportResult.h"

#include <QByteArray>
#include <QString>

namespace selvora {
namespace document {
class Document;
}

namespace project {

// The lesson as an NCL 3.0 document for digital television: one context per scene, started
// from the body's port; in each, a clock node whose temporal anchors are the seconds of the
// scene's syncs, the media with their regions and descriptors, and timed links that start,
// stop and set them. Gotos, clicks and the remote control's keys are links of the body that
// stop one scene and start another. Web addresses have no place in NCL and are left out.
class NclExport {
public:
    // Writes <base>.ncl into the project folder.
    static ExportResult run(const document::Document* document, const QString& folder);

    static QByteArray document(const document::Document* document, const QString& folder);
};

} // namespace project
} // namespace selvora

#endif
