#ifndef SELVORA_PROJECT_LESSONJSON_H
#define SELVORA_PROJECT_LESSONJSON_H

#include <QByteArray>
#include <QString>

namespace selvora {
namespace document {
class Document;
}

namespace project {

class ExportSources;

// The lesson as the page's player reads it: scenes in play order, each with its media and its
// timeline grouped by second in the order the scene clock runs them, its links, and the quiz if
// the project holds one. Geometry is percent of the stage in the model's number form.
class LessonJson {
public:
    // The title shown by the page: the document's, or the project's base name.
    static QString title(const document::Document* document);

    // Compact JSON that may stand inside a script element: '<', '>', '&' and the two line
    // separators JavaScript reads as line ends are escaped, so no text of the project can end
    // the element or open another.
    static QByteArray build(const document::Document* document, ExportSources& sources, bool scorm);
};

} // namespace project
} // namespace selvora

#endif
