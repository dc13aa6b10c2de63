#ifndef SELVORA_PROJECT_PROJECTREADER_H
#define SELVORA_PROJECT_PROJECTREADER_H

#include <QString>

#include <functional>

namespace selvora {
namespace document {
class Document;
} // namespace document

namespace project {

// Reads a project file into a cleared document. The file is read whole (within the size limit),
// looked over by ProjectScan, parsed once to check it and gather the meta data, and parsed again
// as a stream that builds the model: nothing is built from a file that would be refused, and
// memory follows the model, not the file's tree.
class ProjectReader {
public:
    // Called after each scene with the progress in tenths of a percent.
    using Progress = std::function<void(int)>;

    explicit ProjectReader(document::Document* document, Progress progress = {});

    // "noError", "openError", "noScenes", or "sizeError" for a file beyond the limits of
    // ProjectScan, decided before anything is parsed.
    QString read(const QString& filePath);

private:
    struct Survey;
    bool survey(const QString& text, Survey& found) const;
    bool load(const QString& text, const QString& folder, int sceneCount);

    document::Document* document_;
    Progress progress_;
};

} // namespace project
} // namespace selvora

#endif
