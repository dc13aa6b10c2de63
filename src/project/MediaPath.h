#ifndef SELVORA_PROJECT_MEDIAPATH_H
#define SELVORA_PROJECT_MEDIAPATH_H

#include <QString>

namespace selvora {
namespace project {

// Where the `src` of a media element leads. A file names its media relative to the project
// folder, and a medium may only be read from a regular file inside that folder: a path that
// climbs out, or leads (through a link) to anything else, is a medium whose file is missing.
class MediaPath {
public:
    explicit MediaPath(const QString& folder);

    struct Resolved {
        QString path;  // inside the folder, for the project file to name again
        bool readable; // false: the medium has no file to read
    };

    Resolved resolve(const QString& src) const;

private:
    QString folder_;
    QString canonicalFolder_;
};

} // namespace project
} // namespace selvora

#endif
