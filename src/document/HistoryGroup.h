#ifndef SELVORA_DOCUMENT_HISTORYGROUP_H
#define SELVORA_DOCUMENT_HISTORYGROUP_H

#include "document/Document.h"

namespace selvora {
namespace document {

// Makes the changes of its lifetime one step of the history: opened on construction, closed on
// destruction, so that an early return cannot leave the group open.
class HistoryGroup {
public:
    explicit HistoryGroup(Document* document) : document_(document) {
        if (document_)
            document_->openHistoryGroup();
    }
    ~HistoryGroup() {
        if (document_)
            document_->closeHistoryGroup();
    }
    HistoryGroup(const HistoryGroup&) = delete;
    HistoryGroup& operator=(const HistoryGroup&) = delete;

private:
    Document* document_;
};

} // namespace document
} // namespace selvora

#endif
