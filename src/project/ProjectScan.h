#ifndef SELVORA_PROJECT_PROJECTSCAN_H
#define SELVORA_PROJECT_PROJECTSCAN_H

#include <QString>

namespace selvora {
namespace project {

// A look at the text of a project file before any parser sees it: it finds what the format never
// holds and what would make a parser recurse, expand or work without end, in one pass with no
// allocation. The limits stand far above any real lesson (a lesson of a hundred scenes is a few
// thousand elements nested five deep, with at most fifteen attributes each).
class ProjectScan {
public:
    static constexpr qint64 kMaxFileBytes = 64LL * 1024 * 1024;
    static constexpr int kMaxElements = 1000000;
    static constexpr int kMaxDepth = 32;
    static constexpr int kMaxAttributes = 32;

    enum class Verdict {
        fine,
        refused,  // nested too deep, a document type with declarations, or not XML at all
        tooLarge, // more elements than kMaxElements
    };

    static Verdict scan(const QString& text);
};

} // namespace project
} // namespace selvora

#endif
